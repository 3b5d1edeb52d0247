// SPDX-License-Identifier: GPL-3.0-or-later
#include "device/players/PrivateSound.h"

#include <QDir>
#include <QElapsedTimer>
#include <QThread>

using namespace Qt::StringLiterals;

namespace trackwise {

PrivateSound::PrivateSound()
{
    qputenv("PULSE_SERVER", "unix:" + m_folder.filePath(u"native"_s).toUtf8());
    qputenv("PULSE_RUNTIME_PATH", m_folder.path().toUtf8());
    qputenv("PULSE_STATE_PATH", m_folder.path().toUtf8());
}

PrivateSound::~PrivateSound()
{
    stop();
}

bool PrivateSound::start()
{
    const QString socket = m_folder.filePath(u"native"_s);
    m_server.setStandardOutputFile(QProcess::nullDevice());
    m_server.setStandardErrorFile(QProcess::nullDevice());
    m_server.start(u"pulseaudio"_s,
                   {u"--daemonize=no"_s, u"-n"_s, u"--exit-idle-time=-1"_s,
                    u"--load=module-native-protocol-unix auth-anonymous=1 socket=%1"_s.arg(socket),
                    u"--load=module-null-sink sink_name=first"_s,
                    u"--load=module-null-sink sink_name=second"_s});
    QElapsedTimer waiting;
    waiting.start();
    while (!control({u"list"_s, u"short"_s, u"sinks"_s}).contains(u"second"_s)) {
        if (waiting.elapsed() > 10000)
            return false;
        QThread::msleep(50);
    }
    control({u"set-default-sink"_s, u"first"_s});
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
    pactl.start(u"pactl"_s, arguments);
    pactl.waitForFinished();
    return QString::fromUtf8(pactl.readAllStandardOutput());
}

bool makeTone(const QString &path, double seconds, const QStringList &tags)
{
    QStringList arguments{u"-v"_s,
                          u"error"_s,
                          u"-y"_s,
                          u"-f"_s,
                          u"lavfi"_s,
                          u"-i"_s,
                          u"sine=frequency=440:duration=%1"_s.arg(seconds)};
    for (const QString &tag : tags)
        arguments << u"-metadata"_s << tag;
    QProcess ffmpeg;
    ffmpeg.start(u"ffmpeg"_s, arguments << path);
    return ffmpeg.waitForFinished() && ffmpeg.exitStatus() == QProcess::NormalExit && ffmpeg.exitCode() == 0;
}

} // namespace trackwise
