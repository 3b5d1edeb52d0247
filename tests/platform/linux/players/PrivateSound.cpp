// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/linux/players/PrivateSound.h"

#include <QDir>
#include <QElapsedTimer>
#include <QThread>

namespace trackwise {

PrivateSound::PrivateSound()
{
    qputenv("PULSE_SERVER", "unix:" + m_folder.filePath(QStringLiteral("native")).toUtf8());
    qputenv("PULSE_RUNTIME_PATH", m_folder.path().toUtf8());
    qputenv("PULSE_STATE_PATH", m_folder.path().toUtf8());
}

PrivateSound::~PrivateSound()
{
    stop();
}

bool PrivateSound::start()
{
    const QString socket = m_folder.filePath(QStringLiteral("native"));
    m_server.setStandardOutputFile(QProcess::nullDevice());
    m_server.setStandardErrorFile(QProcess::nullDevice());
    m_server.start(
        QStringLiteral("pulseaudio"),
        {QStringLiteral("--daemonize=no"), QStringLiteral("-n"), QStringLiteral("--exit-idle-time=-1"),
         QStringLiteral("--load=module-native-protocol-unix auth-anonymous=1 socket=%1").arg(socket),
         QStringLiteral("--load=module-null-sink sink_name=first"),
         QStringLiteral("--load=module-null-sink sink_name=second")});
    QElapsedTimer waiting;
    waiting.start();
    while (!control({QStringLiteral("list"), QStringLiteral("short"), QStringLiteral("sinks")})
                .contains(QStringLiteral("second"))) {
        if (waiting.elapsed() > 10000)
            return false;
        QThread::msleep(50);
    }
    control({QStringLiteral("set-default-sink"), QStringLiteral("first")});
    return true;
}

void PrivateSound::stop()
{
    m_server.terminate();
    m_server.waitForFinished();
}

QString PrivateSound::control(const QStringList &arguments) const
{
    QProcess pactl;
    pactl.start(QStringLiteral("pactl"), arguments);
    pactl.waitForFinished();
    return QString::fromUtf8(pactl.readAllStandardOutput());
}

bool makeTone(const QString &path, double seconds, const QStringList &tags)
{
    QStringList arguments{QStringLiteral("-v"),
                          QStringLiteral("error"),
                          QStringLiteral("-y"),
                          QStringLiteral("-f"),
                          QStringLiteral("lavfi"),
                          QStringLiteral("-i"),
                          QStringLiteral("sine=frequency=440:duration=%1").arg(seconds)};
    for (const QString &tag : tags)
        arguments << QStringLiteral("-metadata") << tag;
    QProcess ffmpeg;
    ffmpeg.start(QStringLiteral("ffmpeg"), arguments << path);
    return ffmpeg.waitForFinished() && ffmpeg.exitStatus() == QProcess::NormalExit && ffmpeg.exitCode() == 0;
}

} // namespace trackwise
