// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QString>
#include <QTemporaryDir>

namespace trackwise {

/// A folder with real music files: a tenth of a second of WAV, tagged. Paths are relative to it.
class WavFolder
{
public:
    [[nodiscard]] QByteArray root() const;
    [[nodiscard]] QByteArray path(const QByteArray &name) const { return root() + '/' + name; }

    /// Another number is another sound.
    void write(const QByteArray &name, int sound, const QByteArray &title,
               const QByteArray &artist = "Ann") const;
    void writeBytes(const QByteArray &name, const QByteArray &bytes) const;
    void makeFolder(const QByteArray &name) const;
    void move(const QByteArray &from, const QByteArray &to) const;
    void copy(const QByteArray &from, const QByteArray &to) const;
    void remove(const QByteArray &name) const;

private:
    QTemporaryDir m_folder;
};

} // namespace trackwise
