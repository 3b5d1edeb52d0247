// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "fingerprint/CatalogManifest.h"
#include "fingerprint/SegmentMerge.h"
#include "fingerprint/StoreFolder.h"

#include <unordered_map>

namespace trackwise::fingerprint {

/// A segment of a CatalogStore, less what was removed of it.
struct StoredSegment
{
    std::uint32_t number = 0; ///< of its file; 0: it is in the journal
    MergeInput songs;
    std::string name; ///< of an added catalog

    void remove(SongNumber song);
    /// Pairs of songs that were not removed.
    [[nodiscard]] std::uint64_t pairCount() const;
};

/// What the files of a CatalogStore say. A value: changes are made to a copy, and count when they are
/// written.
class StoreContents
{
public:
    /// Files that are damaged or missing are left out. Where the manifest is, all segments count that are
    /// there, and what was removed of them may be back.
    static CatalogResult<StoreContents> load(const StoreFolder &folder);

    /// Adds a segment of one song, in the place of the one with its persistent ID.
    void addFresh(Segment::Ptr single);
    void remove(std::uint64_t persistentID);
    void removeAllOwn();
    /// Puts @p merged, which was made of @p inputs as they were some time ago, in their place.
    void replace(std::span<const StoredSegment> inputs, StoredSegment merged);
    void leaveOut(const Segment::Ptr &damaged);

    [[nodiscard]] const std::vector<StoredSegment> &settled() const { return m_settled; }
    /// Segments of one song, in the order in which they were added.
    [[nodiscard]] const std::vector<StoredSegment> &fresh() const { return m_fresh; }
    [[nodiscard]] std::unordered_map<std::uint64_t, std::uint64_t> stamps() const;
    [[nodiscard]] bool knows(std::uint64_t persistentID) const { return m_known.contains(persistentID); }
    [[nodiscard]] CatalogManifest manifest() const;
    [[nodiscard]] std::vector<std::filesystem::path> files(const StoreFolder &folder) const;

    std::vector<StoredSegment> added;
    std::uint32_t nextNumber = 1; ///< that no file ever had
    std::uint32_t journal = 0;    ///< 0: there is none, or none to go on with
    std::uint64_t journalSize = 0;
    std::vector<CatalogFailure> damages;

private:
    struct Known
    {
        const Segment *segment = nullptr;
        SongNumber song = 0;
        std::uint64_t stamp = 0;
    };
    [[nodiscard]] std::optional<CatalogFailure> open(const StoreFolder &folder,
                                                     const CatalogManifest &manifest);
    void readJournal(const StoreFolder &folder, std::uint32_t number);
    void claim(const StoredSegment &segment);

    std::vector<StoredSegment> m_settled;
    std::vector<StoredSegment> m_fresh;
    std::unordered_map<std::uint64_t, Known> m_known;
};

} // namespace trackwise::fingerprint
