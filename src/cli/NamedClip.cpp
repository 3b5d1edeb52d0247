// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/NamedClip.h"

#include "cli/Console.h"
#include "device/recognizer/CatalogSummary.h"

#include <QFile>

#include <cmath>

namespace trackwise::cli {

namespace {

QJsonValue orNull(const QString &text)
{
    return text.isEmpty() ? QJsonValue() : QJsonValue(QString::fromUtf8(text.toUtf8()));
}

double rounded(double value, int decimals)
{
    return QString::number(value, 'f', decimals).toDouble();
}

/// Minutes and seconds, with a sign where the clip begins before the song.
QString placeText(double seconds)
{
    const int whole = int(std::abs(seconds));
    return QStringLiteral("%1%2:%3")
        .arg(seconds <= -1 ? QStringLiteral("-") : QString())
        .arg(whole / 60)
        .arg(whole % 60, 2, 10, QChar(u'0'));
}

} // namespace

NamedClip named(const LibraryQuestions &library, const ClipAnswer &answer)
{
    NamedClip clip{.answer = answer};
    const auto &match = answer.match;
    if (!match)
        return clip;
    clip.title = match->title;
    clip.artist = match->artist;
    if (const auto song =
            match->librarySong ? library.song(*match->librarySong) : Failure{FailureKind::NotFound, {}}) {
        clip.path = song->file.path();
        clip.song = song->item.persistentID;
        clip.title = song->item.title.value_or(QString());
        clip.artist = song->item.artist.value_or(QString());
    }
    return clip;
}

QString textOf(const NamedClip &clip)
{
    const auto &match = clip.answer.match;
    if (!match)
        return QStringLiteral("no match");
    QString text = clip.title.isEmpty() ? QFile::decodeName(FileName::ofPath(clip.path).name) : clip.title;
    if (!clip.artist.isEmpty())
        text += QStringLiteral(" – ") + clip.artist;
    return text + QStringLiteral("  ") + placeText(match->offsetSeconds);
}

QJsonObject toJson(const QByteArray &file, const Result<NamedClip> &clip)
{
    QJsonObject json{{QStringLiteral("file"), file.isNull() ? QJsonValue() : QString::fromUtf8(file)},
                     {QStringLiteral("match"), clip && clip->answer.match}};
    if (QString::fromUtf8(file).toUtf8() != file)
        json.insert(QStringLiteral("file_hex"), QString::fromLatin1(file.toHex()));
    if (!clip) {
        json.insert(QStringLiteral("error"), clip.failure().detail);
        return json;
    }
    const auto &match = clip->answer.match;
    json.insert(QStringLiteral("path"), orNull(QString::fromUtf8(clip->path)));
    if (QString::fromUtf8(clip->path).toUtf8() != clip->path)
        json.insert(QStringLiteral("path_hex"), QString::fromLatin1(clip->path.toHex()));
    json.insert(QStringLiteral("persistentID"),
                clip->song.isInLibrary() ? QJsonValue(clip->song.toString()) : QJsonValue());
    json.insert(QStringLiteral("title"), orNull(clip->title));
    json.insert(QStringLiteral("artist"), orNull(clip->artist));
    json.insert(QStringLiteral("offset_s"),
                match ? QJsonValue(rounded(match->offsetSeconds, 3)) : QJsonValue());
    json.insert(QStringLiteral("score"), rounded(clip->answer.score, 3));
    json.insert(QStringLiteral("threshold"), clip->answer.threshold);
    json.insert(QStringLiteral("ms"), rounded(clip->milliseconds, 2));
    return json;
}

void warnOfSongsLeft(const LibraryQuestions &library, const fingerprint::Catalog &catalog)
{
    const auto sounds = library.sounds();
    const CatalogSummary summary = summaryOf(catalog, sounds ? *sounds : std::vector<SongSound>());
    if (summary.songs == 0 && summary.added.empty())
        complain(QStringLiteral("no song is known by its sound yet: run \"trackwise catalog build\""));
    else if (summary.left > 0)
        complain(
            QStringLiteral("%1 of %2 songs are not known by their sound yet: run \"trackwise catalog build\"")
                .arg(summary.left)
                .arg(summary.left + summary.songs));
}

} // namespace trackwise::cli
