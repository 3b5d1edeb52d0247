// SPDX-License-Identifier: GPL-3.0-or-later
#include "device/recognizer/CatalogSummary.h"

#include <map>
#include <unordered_map>

namespace trackwise {

using fingerprint::Catalog;
using fingerprint::CatalogFailure;
using fingerprint::CatalogStore;

QByteArray catalogFolder(const QByteArray &databasePath)
{
    return databasePath + ".catalog";
}

Failure asFailure(const CatalogFailure &failure)
{
    using Kind = CatalogFailure::Kind;
    const auto kind = [&] {
        switch (failure.kind) {
        case Kind::NotThere:
        case Kind::Unknown:
            return FailureKind::NotFound;
        case Kind::CannotRead:
            return FailureKind::Unreadable;
        case Kind::CannotWrite:
            return FailureKind::NoSpace;
        case Kind::NewerVersion:
            return FailureKind::Unsupported;
        case Kind::InUse:
            return FailureKind::Busy;
        case Kind::NotACatalog:
        case Kind::Truncated:
        case Kind::Damaged:
            break;
        }
        return FailureKind::Malformed;
    }();
    if (kind == FailureKind::Busy)
        return {kind, QStringLiteral("another program is writing the catalog")};
    return {kind, QString::fromStdString(failure.detail)};
}

Result<std::shared_ptr<const Catalog>> readCatalog(const QByteArray &databasePath)
{
    auto read = CatalogStore::read(catalogFolder(databasePath).toStdString());
    if (auto *catalog = std::get_if<0>(&read))
        return std::move(*catalog);
    const CatalogFailure &failure = std::get<CatalogFailure>(read);
    if (failure.kind == CatalogFailure::Kind::NotThere)
        return std::make_shared<const Catalog>();
    return asFailure(failure);
}

CatalogSummary summaryOf(const Catalog &catalog, const std::vector<SongSound> &library)
{
    CatalogSummary summary;
    std::unordered_map<std::uint64_t, std::uint64_t> stamps;
    std::map<std::string_view, qsizetype> added;
    for (fingerprint::SongNumber number = 0; number < catalog.songCount(); ++number) {
        if (catalog.isRemoved(number))
            continue;
        if (const auto origin = catalog.originOf(number); !origin.empty()) {
            ++added[origin];
            continue;
        }
        const auto song = catalog.song(number);
        stamps[song.persistentID] = song.stamp;
    }
    for (const auto &[name, songs] : added)
        summary.added.push_back({QString::fromUtf8(name.data(), qsizetype(name.size())), songs});
    for (const SongSound &song : library) {
        const auto known = stamps.find(song.song.value);
        if (song.availability != Availability::FileGone && known != stamps.end() &&
            known->second == song.stamp)
            ++summary.songs;
        else if (song.availability == Availability::Available)
            ++summary.left;
    }
    return summary;
}

fingerprint::SongNaming namingBy(const LibraryQuestions &library)
{
    return [&library](fingerprint::CatalogSong &song) {
        const auto known = library.song({song.persistentID});
        if (!known)
            return;
        const auto text = [](const std::optional<QString> &value) {
            return value.value_or(QString()).toStdString();
        };
        song.catalogID = known->item.playbackStoreID.toStdString();
        song.title = text(known->item.title);
        song.artist = text(known->item.artist);
    };
}

} // namespace trackwise
