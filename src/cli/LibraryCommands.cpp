// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/Commands.h"

#include "cli/Console.h"
#include "cli/SongJson.h"

#include <QFile>
#include <QJsonArray>

namespace trackwise::cli {

namespace {

constexpr int searchLimit = 1000;

QString number(qsizetype value)
{
    return QString::number(value);
}

QString joined(const std::vector<QByteArray> &paths)
{
    QStringList names;
    for (const QByteArray &path : paths)
        names << QFile::decodeName(path);
    return names.isEmpty() ? QStringLiteral("--") : names.join(u'\n');
}

QJsonArray toJson(const std::vector<QByteArray> &paths)
{
    QJsonArray names;
    for (const QByteArray &path : paths)
        names.append(QString::fromUtf8(path));
    return names;
}

} // namespace

ExitCode showStatus(const Call &call)
{
    const auto library = readLibrary(call);
    if (!library)
        return giveUp(library.failure());
    const auto status = (*library)->status();
    if (!status)
        return giveUp(status.failure());
    const LibraryConfiguration &configuration = library->configuration;
    if (call.wantsJson) {
        write(lineOf({{QStringLiteral("library"), QString::fromUtf8(configuration.databasePath)},
                      {QStringLiteral("folders"), toJson(configuration.musicFolders)},
                      {QStringLiteral("available"), status->available},
                      {QStringLiteral("diskAbsent"), status->diskAbsent},
                      {QStringLiteral("fileGone"), status->fileGone},
                      {QStringLiteral("problems"), status->problems}}));
        return ExitCode::Success;
    }
    print(table({{QStringLiteral("Library"), QFile::decodeName(configuration.databasePath)},
                 {QStringLiteral("Music folders"), joined(configuration.musicFolders)},
                 {QStringLiteral("Songs"), number(status->available)},
                 {QStringLiteral("Songs on absent disks"), number(status->diskAbsent)},
                 {QStringLiteral("Songs whose file is gone"), number(status->fileGone)},
                 {QStringLiteral("Files with problems"), number(status->problems)}}));
    return ExitCode::Success;
}

ExitCode searchLibrary(const Call &call)
{
    const auto library = readLibrary(call);
    if (!library)
        return giveUp(library.failure());
    QStringList words;
    for (const QByteArray &operand : call.operands)
        words << QFile::decodeName(operand);
    const auto matches = (*library)->search(words.join(u' '), searchLimit);
    if (!matches)
        return giveUp(matches.failure());
    for (const PersistentID id : *matches) {
        const auto song = (*library)->song(id);
        if (!song)
            return giveUp(song.failure());
        if (call.wantsJson) {
            write(lineOf(cli::toJson(*song)));
            continue;
        }
        QString title = song->item.title.value_or(QString());
        if (title.isEmpty())
            title = QFile::decodeName(song->file.name);
        const QString artist = song->item.artist.value_or(QString());
        print(
            id.toString() + QStringLiteral("  ") + printable(title).replace(u'\n', u' ') +
            (artist.isEmpty() ? QString() : QStringLiteral(" – ") + printable(artist).replace(u'\n', u' ')) +
            u'\n');
    }
    return matches->empty() ? ExitCode::NotFound : ExitCode::Success;
}

ExitCode listProblems(const Call &call)
{
    const auto library = readLibrary(call);
    if (!library)
        return giveUp(library.failure());
    const auto problems = (*library)->problems();
    if (!problems)
        return giveUp(problems.failure());
    for (const ScanProblem &problem : *problems) {
        const QByteArray path = problem.file.path();
        if (call.wantsJson)
            write(lineOf({{QStringLiteral("path"), QString::fromUtf8(path)},
                          {QStringLiteral("path_hex"), QString::fromLatin1(path.toHex())},
                          {QStringLiteral("reason"), problem.reason}}));
        else
            print(printable(QFile::decodeName(path)).replace(u'\n', u' ') + QStringLiteral(": ") +
                  printable(problem.reason) + u'\n');
    }
    return ExitCode::Success;
}

ExitCode exportLibrary(const Call &call)
{
    const auto library = readLibrary(call);
    if (!library)
        return giveUp(library.failure());
    const auto visited =
        (*library)->forEachSong([](const LibrarySong &song) { return write(lineOf(cli::toJson(song))); });
    return visited ? ExitCode::Success : giveUp(visited.failure());
}

} // namespace trackwise::cli
