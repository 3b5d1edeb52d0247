// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/Commands.h"

#include "cli/Console.h"
#include "cli/SongJson.h"
#include "device/library/FindSong.h"
#include "device/library/store/FilePaths.h"
#include "information/InformationRows.h"

#include <QJsonArray>
#include <QJsonDocument>

namespace trackwise::cli {

namespace {

std::vector<InformationRow> rowsOf(const MediaItem &item, bool more)
{
    InformationRows rows =
        informationRows(item, FormatLocale::fromEnvironment(), QTimeZone::systemTimeZone());
    if (more)
        std::move(rows.more.begin(), rows.more.end(), std::back_inserter(rows.main));
    return std::move(rows.main);
}

void printRows(const std::vector<InformationRow> &rows)
{
    std::vector<std::pair<QString, QString>> lines;
    lines.reserve(rows.size());
    for (const InformationRow &row : rows)
        lines.emplace_back(row.title, row.value);
    print(table(lines));
}

void printJson(const LibrarySong &song, const std::vector<InformationRow> &rows)
{
    QJsonArray list;
    for (const InformationRow &row : rows)
        list.append(QJsonObject{{QStringLiteral("title"), row.title}, {QStringLiteral("value"), row.value}});
    QJsonObject json = toJson(song);
    json.insert(QStringLiteral("rows"), list);
    print(QString::fromUtf8(QJsonDocument(json).toJson()));
}

ExitCode printLyrics(const MediaItem &item)
{
    if (!item.lyrics || item.lyrics->isEmpty())
        return giveUp({FailureKind::NotFound, QStringLiteral("the song has no lyrics")});
    print(printable(*item.lyrics) + u'\n');
    return ExitCode::Success;
}

} // namespace

ExitCode showInformation(const Call &call)
{
    const bool isFile = !resolvedPath(call.operands.front()).isEmpty();
    const auto library = readLibrary(call, isFile ? Absent::CountsAsEmpty : Absent::Fails);
    if (!library)
        return giveUp(library.failure());
    const auto found = findOrReadSong(*library->library, call.operands.front());
    if (!found)
        return giveUp(found.failure());
    if (found->others > 0)
        complain(QStringLiteral("%1 more songs fit; this is the best").arg(found->others));

    const LibrarySong &song = found->song;
    if (call.wantsLyrics)
        return printLyrics(song.item);
    const std::vector<InformationRow> rows = rowsOf(song.item, call.wantsMore);
    if (call.wantsJson)
        printJson(song, rows);
    else
        printRows(rows);
    return ExitCode::Success;
}

} // namespace trackwise::cli
