// SPDX-License-Identifier: GPL-3.0-or-later
#include "Encoder.h"

#include "Voices.h"

#include <QFileInfo>
#include <QMap>
#include <QProcess>

#include <span>
#include <stdexcept>

namespace trackwise::demo {

namespace {

QStringList codecFor(const QString &suffix)
{
    static const QMap<QString, QString> codecs{
        {QStringLiteral("mp3"), QStringLiteral("-c:a libmp3lame -b:a 96k -write_id3v1 0 -id3v2_version 0")},
        {QStringLiteral("flac"), QStringLiteral("-c:a flac -compression_level 8 -sample_fmt s16 -ar 22050")},
        {QStringLiteral("ogg"), QStringLiteral("-c:a libvorbis -q:a 2")},
        {QStringLiteral("opus"), QStringLiteral("-c:a libopus -b:a 64k")},
        {QStringLiteral("m4a"), QStringLiteral("-c:a aac -b:a 88k -movflags +faststart")},
        {QStringLiteral("wav"), QStringLiteral("-c:a pcm_s16le -ac 1 -ar 16000")}};
    if (!codecs.contains(suffix))
        throw std::runtime_error("no such format: " + suffix.toStdString());
    return codecs.value(suffix).split(u' ');
}

} // namespace

void encode(const std::vector<float> &sound, const QString &path)
{
    QStringList arguments{QStringLiteral("-v"),  QStringLiteral("error"),       QStringLiteral("-nostdin"),
                          QStringLiteral("-y"),  QStringLiteral("-f"),          QStringLiteral("f32le"),
                          QStringLiteral("-ar"), QString::number(sampleRateHz), QStringLiteral("-ac"),
                          QStringLiteral("2"),   QStringLiteral("-i"),          QStringLiteral("pipe:0")};
    arguments << codecFor(QFileInfo(path).suffix());
    arguments << QStringLiteral("-threads") << QStringLiteral("1") << QStringLiteral("-fflags")
              << QStringLiteral("+bitexact") << QStringLiteral("-flags:a") << QStringLiteral("+bitexact")
              << path;
    QProcess ffmpeg;
    ffmpeg.start(QStringLiteral("ffmpeg"), arguments);
    if (!ffmpeg.waitForStarted())
        throw std::runtime_error("cannot start ffmpeg; is it installed?");
    const auto bytes = std::as_bytes(std::span(sound));
    ffmpeg.write(reinterpret_cast<const char *>(bytes.data()), static_cast<qint64>(bytes.size()));
    ffmpeg.closeWriteChannel();
    if (!ffmpeg.waitForFinished(-1) || ffmpeg.exitStatus() != QProcess::NormalExit || ffmpeg.exitCode() != 0)
        throw std::runtime_error("ffmpeg failed: " + ffmpeg.readAllStandardError().toStdString());
}

} // namespace trackwise::demo
