// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QProcess>
#include <QString>
#include <QStringList>
#include <QTemporaryDir>

namespace trackwise {

/// A sound server of the test's own, whose outputs are silent. Make it before anything of the multimedia
/// library; it sets the environment by which that finds the server.
class PrivateSound
{
public:
    PrivateSound();
    ~PrivateSound();

    [[nodiscard]] bool start();
    void stop();
    /// Runs pactl; what it printed.
    QString control(const QStringList &arguments) const;

private:
    QTemporaryDir m_folder;
    QProcess m_server;
};

/// Writes @p seconds of a tone to @p path with these tags ("title=A"); the suffix says which format.
[[nodiscard]] bool makeTone(const QString &path, double seconds, const QStringList &tags = {});

} // namespace trackwise
