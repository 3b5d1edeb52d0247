// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/Commands.h"

#include "cli/Console.h"
#include "cli/SongJson.h"
#include "device/recognizer/CatalogSummary.h"
#include "device/recognizer/ClipRecognition.h"

#include <QElapsedTimer>
#include <QFile>

#include <algorithm>
#include <cstdio>

namespace trackwise::cli {

namespace {

/// What is told of a clip.
struct Named
{
    ClipAnswer answer;
    QByteArray path; ///< of the song's file; empty: it is not in the library
    PersistentID song;
    QString title;
    QString artist;
    double milliseconds = 0;
};

void warnOfSongsLeft(const ReadLibrary &library, const fingerprint::Catalog &catalog)
{
    const auto sounds = library->sounds();
    const CatalogSummary summary = summaryOf(catalog, sounds ? *sounds : std::vector<SongSound>());
    if (summary.songs == 0 && summary.added.empty())
        complain(QStringLiteral("no song is known by its sound yet: run \"trackwise catalog build\""));
    else if (summary.left > 0)
        complain(
            QStringLiteral("%1 of %2 songs are not known by their sound yet: run \"trackwise catalog build\"")
                .arg(summary.left)
                .arg(summary.left + summary.songs));
}

Result<Named> named(const ReadLibrary &library, const fingerprint::Catalog &catalog, const QByteArray &file)
{
    QElapsedTimer clock;
    clock.start();
    auto answer = recognizeClip(catalog, file);
    if (!answer)
        return answer.failure();
    Named named{.answer = *std::move(answer)};
    if (const auto &match = named.answer.match) {
        named.title = match->title;
        named.artist = match->artist;
        if (const auto song = match->librarySong ? library->song(*match->librarySong)
                                                 : Failure{FailureKind::NotFound, {}}) {
            named.path = song->file.path();
            named.song = song->item.persistentID;
            named.title = song->item.title.value_or(QString());
            named.artist = song->item.artist.value_or(QString());
        }
    }
    named.milliseconds = double(clock.nsecsElapsed()) / 1e6;
    return named;
}

QJsonValue orNull(const QString &text)
{
    return text.isEmpty() ? QJsonValue() : QJsonValue(QString::fromUtf8(text.toUtf8()));
}

double rounded(double value, int decimals)
{
    return QString::number(value, 'f', decimals).toDouble();
}

QJsonObject toJson(const QByteArray &file, const Result<Named> &named)
{
    QJsonObject json{{QStringLiteral("file"), QString::fromUtf8(file)},
                     {QStringLiteral("match"), named && named->answer.match}};
    if (QString::fromUtf8(file).toUtf8() != file)
        json.insert(QStringLiteral("file_hex"), QString::fromLatin1(file.toHex()));
    if (!named) {
        json.insert(QStringLiteral("error"), named.failure().detail);
        return json;
    }
    const auto &match = named->answer.match;
    json.insert(QStringLiteral("path"), orNull(QString::fromUtf8(named->path)));
    if (QString::fromUtf8(named->path).toUtf8() != named->path)
        json.insert(QStringLiteral("path_hex"), QString::fromLatin1(named->path.toHex()));
    json.insert(QStringLiteral("persistentID"),
                named->song.isInLibrary() ? QJsonValue(named->song.toString()) : QJsonValue());
    json.insert(QStringLiteral("title"), orNull(named->title));
    json.insert(QStringLiteral("artist"), orNull(named->artist));
    json.insert(QStringLiteral("offset_s"),
                match ? QJsonValue(rounded(match->offsetSeconds, 3)) : QJsonValue());
    json.insert(QStringLiteral("score"), rounded(named->answer.score, 3));
    json.insert(QStringLiteral("threshold"), named->answer.threshold);
    json.insert(QStringLiteral("ms"), rounded(named->milliseconds, 2));
    return json;
}

QString toLine(const QByteArray &file, const Named &named)
{
    QString found = QStringLiteral("no match");
    if (const auto &match = named.answer.match) {
        found = named.title.isEmpty() ? QFile::decodeName(FileName::ofPath(named.path).name) : named.title;
        if (!named.artist.isEmpty())
            found += QStringLiteral(" – ") + named.artist;
        const int seconds = std::max(0, int(match->offsetSeconds));
        found += QStringLiteral("  %1:%2").arg(seconds / 60).arg(seconds % 60, 2, 10, QChar(u'0'));
    }
    const QString line = QFile::decodeName(file) + QStringLiteral(": ") + found;
    return printable(line).replace(u'\n', u' ') + u'\n';
}

/// That something is not found means that there is no match.
ExitCode failed(const Failure &failure)
{
    complain(failure.detail);
    return ExitCode::Failure;
}

} // namespace

ExitCode identifyClips(const Call &call)
{
    const auto library = readLibrary(call);
    if (!library)
        return failed(library.failure());
    const auto catalog = readCatalog(library->configuration.databasePath);
    if (!catalog)
        return failed(catalog.failure());
    warnOfSongsLeft(*library, **catalog);
    bool hasFailed = false;
    bool isAllFound = true;
    for (const QByteArray &file : call.operands) {
        const auto found = named(*library, **catalog, file);
        hasFailed = hasFailed || !found;
        isAllFound = isAllFound && found && found->answer.match;
        if (call.wantsJson)
            write(lineOf(toJson(file, found)));
        else if (found)
            print(toLine(file, *found));
        if (!found)
            complain(QFile::decodeName(file) + QStringLiteral(": ") + found.failure().detail);
        std::fflush(stdout); // whoever reads it may wait for each
    }
    if (hasFailed)
        return ExitCode::Failure;
    return isAllFound ? ExitCode::Success : ExitCode::NotFound;
}

} // namespace trackwise::cli
