// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QObject>

#include <memory>

namespace trackwise {

/// Tells which output the sound server plays to when nothing else is asked for. Speaks the PulseAudio
/// protocol, which PipeWire understands too: Qt Multimedia 6.4 reads the default output once and does not
/// notice that it changes, nor that the server is gone. Main thread; it waits on a thread of its own.
class DefaultOutput : public QObject
{
    Q_OBJECT

public:
    explicit DefaultOutput(QObject *parent = nullptr);
    ~DefaultOutput() override;

Q_SIGNALS:
    /// Sent for the first time soon after construction; @p name is the server's own.
    void didChange(const QByteArray &name);
    /// The server is gone, or was never there. Nothing is sent after it.
    void serverDidVanish();

private:
    struct Connection;
    std::unique_ptr<Connection> m_connection;
};

} // namespace trackwise
