// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QProcess>
#include <QString>
#include <QStringList>
#include <QTemporaryDir>
#include <QTest>

namespace trackwise {

/// A sound server of the test's own, whose outputs are silent. Make it before anything of the multimedia
/// library; it sets the environment by which that finds the server.
class PrivateSound
{
public:
    PrivateSound()
    {
        qputenv("PULSE_SERVER", "unix:" + m_socket.toUtf8());
        for (const char *folder : {"PULSE_RUNTIME_PATH", "PULSE_STATE_PATH"})
            qputenv(folder, m_folder.path().toUtf8());
    }
    ~PrivateSound() { stop(); }

    [[nodiscard]] bool start()
    {
        m_server.setStandardOutputFile(QProcess::nullDevice());
        m_server.setStandardErrorFile(QProcess::nullDevice());
        const QString socket = QStringLiteral("auth-anonymous=1 socket=") + m_socket;
        m_server.start(QStringLiteral("pulseaudio"),
                       {QStringLiteral("--daemonize=no"), QStringLiteral("-n"),
                        QStringLiteral("--exit-idle-time=-1"),
                        QStringLiteral("--load=module-native-protocol-unix ") + socket,
                        QStringLiteral("--load=module-null-sink sink_name=first"),
                        QStringLiteral("--load=module-null-sink sink_name=second")});
        const auto isThere = [this] { return control("list short sinks").contains(u"second"); };
        const bool hasStarted = QTest::qWaitFor(isThere, 10'000);
        control("set-default-sink first");
        return hasStarted;
    }
    void stop()
    {
        m_server.terminate();
        m_server.waitForFinished();
    }
    /// Runs pactl; what it printed.
    QString control(const char *command) const
    {
        QProcess pactl;
        pactl.start(QStringLiteral("pactl"), QString::fromLatin1(command).split(u' '));
        pactl.waitForFinished();
        return QString::fromUtf8(pactl.readAllStandardOutput());
    }

private:
    QTemporaryDir m_folder;
    QString m_socket = m_folder.filePath(QStringLiteral("native"));
    QProcess m_server;
};

/// Writes @p seconds of a tone to @p path with these tags ("title=A"); the suffix says which format.
[[nodiscard]] inline bool makeTone(const QString &path, double seconds, const QStringList &tags = {})
{
    auto arguments =
        QStringLiteral("-v error -y -f lavfi -i sine=frequency=440:duration=%1").arg(seconds).split(u' ');
    for (const QString &tag : tags)
        arguments << QStringLiteral("-metadata") << tag;
    return QProcess::execute(QStringLiteral("ffmpeg"), arguments << path) == 0;
}

} // namespace trackwise
