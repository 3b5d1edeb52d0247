// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "fingerprint/CatalogJournal.h"
#include "fingerprint/CatalogSnapshot.h"

#include <mutex>
#include <stop_token>

namespace trackwise::fingerprint {

/// What several threads work on. Who holds both locks took that of the merging first.
class StoreState
{
public:
    StoreState(StoreFolder storeFolder, FileDescriptor lock, PairDensity pairDensity)
        : folder(std::move(storeFolder))
        , density(pairDensity)
        , m_lock(std::move(lock))
    {}

    std::optional<CatalogFailure> begin();
    std::optional<CatalogFailure> append(CatalogJournal::Kind kind, std::span<const std::uint8_t> bytes);
    enum class Journal { GoesOn, New };
    /// Makes @p next what there is, when it is written. The mutex is held.
    std::optional<CatalogFailure> change(StoreContents next, Journal journal);
    std::shared_ptr<const Catalog> snapshot();

    /// The songs of the journal become a segment when they are many, or many for so small a catalog. False:
    /// there is nothing to do. Here and below, the lock of the merging is held.
    CatalogResult<bool> settleFull();
    CatalogResult<bool> settleEarly();
    CatalogResult<bool> merge(const std::stop_token &stop);

    const StoreFolder folder;
    const PairDensity density;
    std::mutex mutex;   ///< of the contents and the journal
    std::mutex merging; ///< one at a time
    StoreContents contents;
    std::uint64_t changes = 0;

private:
    CatalogResult<bool> settle(std::size_t fewestSongs);
    CatalogResult<bool> replaceByOne(const std::vector<StoredSegment> &inputs, Journal journal,
                                     const std::stop_token &stop = {});
    void removeFiles(const std::vector<std::filesystem::path> &before);

    FileDescriptor m_lock;
    std::optional<CatalogJournal> m_journal;
    std::mutex m_snapshotMutex; ///< of what follows
    CatalogSnapshot m_snapshots;
    std::shared_ptr<const Catalog> m_snapshot;
    std::uint64_t m_snapshotChanges = 0;
};

/// The songs of segments, to be merged.
[[nodiscard]] std::vector<MergeInput> songsOf(std::span<const StoredSegment> segments);

} // namespace trackwise::fingerprint
