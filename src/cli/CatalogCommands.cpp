// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/Commands.h"

#include "cli/Console.h"
#include "cli/Interruption.h"
#include "cli/SongJson.h"
#include "device/recognizer/CatalogSummary.h"
#include "fingerprint/CatalogStore.h"
#include "fingerprint/StoreFolder.h"

#include <QDeadlineTimer>
#include <QFile>
#include <QJsonArray>
#include <QLocale>

#include <filesystem>
#include <functional>

namespace trackwise::cli {

namespace {

using fingerprint::CatalogFailure;
using fingerprint::CatalogStore;

constexpr std::chrono::seconds longestWait{30};

std::filesystem::path native(const QByteArray &path)
{
    return path.toStdString();
}

/// Opens a catalog once whoever has it open, such as the window, has let go of it.
fingerprint::CatalogResult<std::unique_ptr<CatalogStore>> openInTurn(const std::filesystem::path &folder)
{
    const auto open = [&] {
        return CatalogStore::open(folder, fingerprint::PairDensity::Full, CatalogStore::Note::Left);
    };
    const auto isInUse = [](const auto &store) {
        const auto *failure = std::get_if<CatalogFailure>(&store);
        return failure && failure->kind == CatalogFailure::Kind::InUse;
    };
    auto store = open();
    if (!isInUse(store))
        return store;
    StatusLine line;
    line.show(QStringLiteral("Waiting for another program that writes the catalog…"));
    QEventLoop loop;
    const Interruption interruption(loop, [&] { loop.quit(); });
    const QDeadlineTimer patience(longestWait);
    QTimer nextAttempt;
    QObject::connect(&nextAttempt, &QTimer::timeout, &loop, [&] {
        store = open();
        if (!isInUse(store) || patience.hasExpired())
            loop.quit();
    });
    nextAttempt.start(std::chrono::milliseconds(250));
    loop.exec();
    return store;
}

/// Carries out a change of the library's catalog.
ExitCode change(const Call &call,
                const std::function<ExitCode(CatalogStore &, const ReadLibrary &)> &carryOut)
{
    const auto library = readLibrary(call);
    if (!library)
        return giveUp(library.failure());
    auto store = openInTurn(native(catalogFolder(library->configuration.databasePath)));
    if (const auto *failure = std::get_if<CatalogFailure>(&store))
        return giveUp(asFailure(*failure));
    return carryOut(*std::get<0>(store), *library);
}

} // namespace

ExitCode showCatalog(const Call &call)
{
    const auto library = readLibrary(call);
    if (!library)
        return giveUp(library.failure());
    const QByteArray folder = catalogFolder(library->configuration.databasePath);
    const auto catalog = readCatalog(library->configuration.databasePath);
    const auto sounds = (*library)->sounds();
    if (!catalog || !sounds)
        return giveUp(catalog ? sounds.failure() : catalog.failure());
    const CatalogSummary summary = summaryOf(**catalog, *sounds);
    const auto bytes = qint64(fingerprint::StoreFolder(native(folder)).byteCount());
    if (call.wantsJson) {
        QJsonArray added;
        for (const auto &[name, songs] : summary.added)
            added.append(QJsonObject{{QStringLiteral("name"), name}, {QStringLiteral("songs"), songs}});
        write(lineOf({{QStringLiteral("catalog"), QString::fromUtf8(folder)},
                      {QStringLiteral("songs"), summary.songs},
                      {QStringLiteral("left"), summary.left},
                      {QStringLiteral("bytes"), bytes},
                      {QStringLiteral("added"), added}}));
        return ExitCode::Success;
    }
    QStringList added;
    for (const auto &[name, songs] : summary.added)
        added << QStringLiteral("%1 (%2 songs)").arg(name).arg(songs);
    print(table(
        {{QStringLiteral("Catalog"), QFile::decodeName(folder)},
         {QStringLiteral("Songs"), QString::number(summary.songs)},
         {QStringLiteral("Songs left to do"), QString::number(summary.left)},
         {QStringLiteral("Size on disk"), QLocale::c().formattedDataSize(bytes)},
         {QStringLiteral("Added catalogs"), added.isEmpty() ? QStringLiteral("--") : added.join(u'\n')}}));
    return ExitCode::Success;
}

ExitCode exportCatalog(const Call &call)
{
    return change(call, [&](const CatalogStore &store, const ReadLibrary &library) {
        const auto failure = store.exportTo(native(call.operands.front()), namingBy(*library.library));
        return failure ? giveUp(asFailure(*failure)) : ExitCode::Success;
    });
}

ExitCode addCatalog(const Call &call)
{
    return change(call, [&](CatalogStore &store, const ReadLibrary &) {
        const auto added = store.addCatalog(native(call.operands.front()));
        if (const auto *failure = std::get_if<CatalogFailure>(&added))
            return giveUp(asFailure(*failure));
        const auto &catalog = std::get<0>(added);
        print(printable(QString::fromStdString(catalog.name)).replace(u'\n', u' ') +
              QStringLiteral(": %1 songs\n").arg(catalog.songCount));
        return ExitCode::Success;
    });
}

ExitCode removeCatalog(const Call &call)
{
    return change(call, [&](CatalogStore &store, const ReadLibrary &) {
        const auto failure = store.removeCatalog(call.operands.front().toStdString());
        return failure ? giveUp(asFailure(*failure)) : ExitCode::Success;
    });
}

} // namespace trackwise::cli
