// SPDX-License-Identifier: GPL-3.0-or-later
#include "fingerprint/StoreState.h"

#include "fingerprint/SegmentOutputs.h"

#include <algorithm>

namespace trackwise::fingerprint {

namespace fs = std::filesystem;

namespace {

using Files = StoreFolder::Kind;

/// As many songs of the journal become a segment. They are in memory until then.
constexpr std::size_t songsOfJournal = 64;
/// Each takes a third more there. A small library is tidied up when they are this share of it.
constexpr std::size_t shareOfJournal = 16;

/// What is worth merging: the smallest segments as long as the next is at most twice as large as they are
/// together, so that there are few at any time, and none is written often; else one of which a third was
/// removed.
std::vector<StoredSegment> worthMerging(const std::vector<StoredSegment> &settled)
{
    std::vector<std::pair<std::uint64_t, const StoredSegment *>> bySize;
    bySize.reserve(settled.size());
    for (const StoredSegment &segment : settled)
        bySize.emplace_back(segment.pairCount(), &segment);
    std::sort(bySize.begin(), bySize.end());
    std::uint64_t sum = 0;
    std::uint64_t line = 0;
    std::size_t count = 0;
    for (std::size_t i = 0; i < bySize.size(); ++i) {
        line += bySize[i].second->songs.segment->lineLength();
        if (i > 0 && bySize[i].first <= 2 * sum && line <= longestLine)
            count = i + 1;
        sum += bySize[i].first;
    }
    std::vector<StoredSegment> result;
    for (std::size_t i = 0; i < count; ++i)
        result.push_back(*bySize[i].second);
    for (const auto &[pairs, segment] : bySize) {
        if (result.empty() && pairs * 3 < segment->songs.segment->pairCount() * 2)
            result.push_back(*segment);
    }
    return result;
}

} // namespace

std::vector<MergeInput> songsOf(std::span<const StoredSegment> segments)
{
    std::vector<MergeInput> inputs;
    inputs.reserve(segments.size());
    for (const StoredSegment &segment : segments)
        inputs.push_back(segment.songs);
    return inputs;
}

std::optional<CatalogFailure> StoreState::begin()
{
    auto loaded = StoreContents::load(folder);
    if (const auto *failure = std::get_if<CatalogFailure>(&loaded))
        return *failure;
    contents = std::get<StoreContents>(std::move(loaded));
    if (contents.journal == 0) {
        if (auto failure = change(contents, Journal::New))
            return failure;
    } else {
        auto journal =
            CatalogJournal::goOn(folder.file(Files::Journal, contents.journal), contents.journalSize);
        if (const auto *failure = std::get_if<CatalogFailure>(&journal))
            return *failure;
        m_journal = std::get<CatalogJournal>(std::move(journal));
    }
    auto kept = contents.files(folder);
    folder.removeAllBut(kept);
    return std::nullopt;
}

std::optional<CatalogFailure> StoreState::append(CatalogJournal::Kind kind,
                                                 std::span<const std::uint8_t> bytes)
{
    ++changes;
    return m_journal->append(kind, bytes);
}

std::optional<CatalogFailure> StoreState::change(StoreContents next, Journal journal)
{
    std::optional<CatalogJournal> nextJournal;
    if (journal == Journal::New) {
        next.journal = next.nextNumber++;
        std::vector<CatalogJournal::Entry> entries;
        for (const StoredSegment &single : next.fresh()) {
            const auto bytes = single.songs.segment->bytes();
            if (!single.songs.isRemoved(0))
                entries.push_back({CatalogJournal::Kind::Song, {bytes.begin(), bytes.end()}});
        }
        auto made = CatalogJournal::make(folder.file(Files::Journal, next.journal), entries);
        if (const auto *failure = std::get_if<CatalogFailure>(&made))
            return *failure;
        nextJournal = std::get<CatalogJournal>(std::move(made));
    }
    FileOutput output(folder.manifest());
    output.append(next.manifest().bytes());
    if (auto failure = output.finish())
        return failure;
    const auto before = contents.files(folder);
    contents = std::move(next);
    ++changes;
    if (nextJournal)
        m_journal = std::move(nextJournal);
    removeFiles(before);
    return std::nullopt;
}

void StoreState::removeFiles(const std::vector<fs::path> &before)
{
    const auto now = contents.files(folder);
    for (const fs::path &path : before) {
        std::error_code ignored; // it is tried again at the next start
        if (std::find(now.begin(), now.end(), path) == now.end())
            fs::remove(path, ignored);
    }
}

CatalogResult<bool> StoreState::settle(std::size_t fewestSongs)
{
    std::vector<StoredSegment> inputs;
    {
        const std::lock_guard lock(mutex);
        if (contents.fresh().size() < fewestSongs)
            return false;
        inputs = contents.fresh();
    }
    return replaceByOne(inputs, Journal::New);
}

CatalogResult<bool> StoreState::settleFull()
{
    return settle(songsOfJournal);
}

CatalogResult<bool> StoreState::settleEarly()
{
    std::size_t settled = 0;
    {
        const std::lock_guard lock(mutex);
        for (const StoredSegment &segment : contents.settled())
            settled += segment.songs.segment->songCount();
    }
    return settle(std::clamp(settled / shareOfJournal, std::size_t(1), songsOfJournal));
}

CatalogResult<bool> StoreState::merge(const std::stop_token &stop)
{
    std::vector<StoredSegment> inputs;
    {
        const std::lock_guard lock(mutex);
        inputs = worthMerging(contents.settled());
    }
    for (const StoredSegment &input : inputs) {
        if (stop.stop_requested())
            return false;
        if (const auto damage = input.songs.segment->verify()) {
            const std::lock_guard lock(mutex);
            StoreContents next = contents;
            next.leaveOut(input.songs.segment);
            next.damages.push_back(*damage);
            if (const auto failure = change(std::move(next), Journal::GoesOn))
                return *failure;
            return true;
        }
    }
    if (inputs.empty())
        return false;
    return replaceByOne(inputs, Journal::GoesOn, stop);
}

CatalogResult<bool> StoreState::replaceByOne(const std::vector<StoredSegment> &inputs, Journal journal,
                                             const std::stop_token &stop)
{
    StoredSegment merged;
    {
        const std::lock_guard lock(mutex);
        merged.number = contents.nextNumber++;
    }
    const fs::path path = folder.file(Files::Segment, merged.number);
    FileOutput output(path);
    if (!mergeSegments(songsOf(inputs), output, {}, stop))
        return false;
    if (const auto failure = output.finish())
        return *failure;
    auto opened = Segment::ofFile(path);
    if (const auto *failure = std::get_if<CatalogFailure>(&opened))
        return *failure;
    merged.songs.segment = std::get<Segment::Ptr>(std::move(opened));

    const std::lock_guard lock(mutex);
    StoreContents next = contents;
    next.replace(inputs, std::move(merged));
    const auto failure = change(std::move(next), journal);
    removeFiles({path}); // where it does not count
    if (failure)
        return *failure;
    return true;
}

std::shared_ptr<const Catalog> StoreState::snapshot()
{
    const std::lock_guard snapshotLock(m_snapshotMutex);
    StoreContents now;
    {
        const std::lock_guard lock(mutex);
        if (m_snapshot && m_snapshotChanges == changes)
            return m_snapshot;
        now = contents;
        m_snapshotChanges = changes;
    }
    m_snapshot = m_snapshots.of(now);
    return m_snapshot;
}

} // namespace trackwise::fingerprint
