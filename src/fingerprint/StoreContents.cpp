// SPDX-License-Identifier: GPL-3.0-or-later
#include "fingerprint/StoreContents.h"

#include "fingerprint/CatalogJournal.h"

#include <algorithm>

namespace trackwise::fingerprint {

namespace {

using Failure = CatalogFailure::Kind;
using Files = StoreFolder::Kind;

/// Whether one can go on without the file. Where it is only out of reach, or was made by a later version,
/// nothing may be written.
bool canBeLeftOut(const CatalogFailure &failure)
{
    return failure.kind != Failure::CannotRead && failure.kind != Failure::NewerVersion;
}

CatalogResult<CatalogManifest> manifestOf(const StoreFolder &folder)
{
    const auto bytes = readFile(folder.manifest());
    if (const auto *failure = std::get_if<CatalogFailure>(&bytes))
        return *failure;
    return CatalogManifest::of(std::get<std::vector<std::uint8_t>>(bytes));
}

/// All that is there.
CatalogManifest manifestByFiles(const StoreFolder &folder)
{
    CatalogManifest manifest;
    for (const std::uint32_t number : folder.numbers(Files::Segment))
        manifest.own.push_back({number, {}});
    for (const std::uint32_t number : folder.numbers(Files::Added))
        manifest.added.push_back({number, folder.file(Files::Added, number).filename().string()});
    for (const auto kind : {Files::Segment, Files::Added, Files::Journal}) {
        for (const std::uint32_t number : folder.numbers(kind))
            manifest.nextNumber = std::max(manifest.nextNumber, number + 1);
    }
    return manifest;
}

StoredSegment *segmentIn(std::vector<StoredSegment> &segments, const Segment *sought)
{
    const auto found = std::find_if(segments.begin(), segments.end(), [sought](const StoredSegment &segment) {
        return segment.songs.segment.get() == sought;
    });
    return found == segments.end() ? nullptr : &*found;
}

} // namespace

void StoredSegment::remove(SongNumber song)
{
    if (song >= songs.segment->songCount())
        return;
    songs.removed.resize(songs.segment->songCount());
    songs.removed[song] = true;
}

std::uint64_t StoredSegment::pairCount() const
{
    std::uint64_t sum = 0;
    for (SongNumber song = 0; song < songs.segment->songCount(); ++song)
        sum += songs.isRemoved(song) ? 0 : songs.segment->row(song).pairCount;
    return sum;
}

CatalogResult<StoreContents> StoreContents::load(const StoreFolder &folder)
{
    StoreContents contents;
    auto manifest = manifestOf(folder);
    const auto *const failure = std::get_if<CatalogFailure>(&manifest);
    if (failure && !canBeLeftOut(*failure))
        return *failure;
    if (failure && failure->kind != Failure::NotThere)
        contents.damages.push_back(*failure);
    const auto opened =
        contents.open(folder, failure ? manifestByFiles(folder) : std::get<CatalogManifest>(manifest));
    if (opened)
        return *opened;
    if (failure) {
        for (const std::uint32_t number : folder.numbers(Files::Journal))
            contents.readJournal(folder, number);
        contents.journal = 0;
    }
    return contents;
}

std::optional<CatalogFailure> StoreContents::open(const StoreFolder &folder, const CatalogManifest &manifest)
{
    nextNumber = manifest.nextNumber;
    for (const auto &[number, removed] : manifest.own) {
        auto segment = Segment::ofFile(folder.file(Files::Segment, number));
        if (const auto *failure = std::get_if<CatalogFailure>(&segment)) {
            if (!canBeLeftOut(*failure))
                return *failure;
            damages.push_back(*failure);
            continue;
        }
        StoredSegment &stored = m_settled.emplace_back();
        stored.number = number;
        stored.songs.segment = std::get<Segment::Ptr>(segment);
        for (const SongNumber song : removed)
            stored.remove(song);
        claim(stored);
    }
    for (const auto &[number, name] : manifest.added) {
        auto segment = Segment::ofFile(folder.file(Files::Added, number));
        if (const auto *failure = std::get_if<CatalogFailure>(&segment)) {
            if (!canBeLeftOut(*failure))
                return *failure;
            damages.push_back(*failure);
            continue;
        }
        added.push_back({number, {std::get<Segment::Ptr>(segment), {}}, name});
    }
    if (manifest.journal != 0)
        readJournal(folder, manifest.journal);
    return std::nullopt;
}

void StoreContents::readJournal(const StoreFolder &folder, std::uint32_t number)
{
    const auto read = CatalogJournal::read(folder.file(Files::Journal, number));
    if (const auto *failure = std::get_if<CatalogFailure>(&read)) {
        damages.push_back(*failure);
        return;
    }
    const auto &contents = std::get<CatalogJournal::Contents>(read);
    journal = number;
    journalSize = contents.size;
    for (const auto &[kind, bytes] : contents.entries) {
        if (kind == CatalogJournal::Kind::Removal) {
            for (std::size_t at = 0; at + sizeof(std::uint64_t) <= bytes.size(); at += sizeof(std::uint64_t))
                remove(loadLittle<std::uint64_t>(bytes.data() + at));
            continue;
        }
        auto single = Segment::of(SegmentBytes::of(bytes));
        if (const auto *failure = std::get_if<CatalogFailure>(&single))
            damages.push_back(*failure);
        else
            addFresh(std::get<Segment::Ptr>(std::move(single)));
    }
}

void StoreContents::addFresh(Segment::Ptr single)
{
    StoredSegment &stored = m_fresh.emplace_back();
    stored.songs.segment = std::move(single);
    claim(stored);
}

void StoreContents::claim(const StoredSegment &segment)
{
    for (SongNumber song = 0; song < segment.songs.segment->songCount(); ++song) {
        if (segment.songs.isRemoved(song))
            continue;
        const SongRow row = segment.songs.segment->row(song);
        remove(row.persistentID);
        m_known[row.persistentID] = {segment.songs.segment.get(), song, row.stamp};
    }
}

void StoreContents::remove(std::uint64_t persistentID)
{
    const auto known = m_known.find(persistentID);
    if (known == m_known.end())
        return;
    for (auto *segments : {&m_settled, &m_fresh}) {
        if (StoredSegment *segment = segmentIn(*segments, known->second.segment))
            segment->remove(known->second.song);
    }
    m_known.erase(known);
}

void StoreContents::removeAllOwn()
{
    m_settled.clear();
    m_fresh.clear();
    m_known.clear();
}

void StoreContents::replace(std::span<const StoredSegment> inputs, StoredSegment merged)
{
    const Segment &segment = *merged.songs.segment;
    for (SongNumber song = 0; song < segment.songCount(); ++song) {
        const auto known = m_known.find(segment.row(song).persistentID);
        const bool isStillThere = known != m_known.end() &&
                                  std::any_of(inputs.begin(), inputs.end(), [&](const StoredSegment &input) {
                                      return input.songs.segment.get() == known->second.segment;
                                  });
        if (isStillThere)
            known->second = {&segment, song, known->second.stamp};
        else
            merged.remove(song);
    }
    for (const StoredSegment &input : inputs)
        leaveOut(input.songs.segment);
    if (merged.pairCount() > 0 || std::any_of(m_known.begin(), m_known.end(), [&](const auto &known) {
            return known.second.segment == &segment;
        }))
        m_settled.push_back(std::move(merged));
}

void StoreContents::leaveOut(const Segment::Ptr &damaged)
{
    std::erase_if(m_known, [&](const auto &known) { return known.second.segment == damaged.get(); });
    for (auto *segments : {&m_settled, &m_fresh})
        std::erase_if(*segments,
                      [&](const StoredSegment &segment) { return segment.songs.segment == damaged; });
}

std::unordered_map<std::uint64_t, std::uint64_t> StoreContents::stamps() const
{
    std::unordered_map<std::uint64_t, std::uint64_t> result;
    result.reserve(m_known.size());
    for (const auto &[persistentID, known] : m_known)
        result.emplace(persistentID, known.stamp);
    return result;
}

CatalogManifest StoreContents::manifest() const
{
    CatalogManifest manifest{nextNumber, journal, {}, {}};
    for (const StoredSegment &segment : m_settled) {
        auto &own = manifest.own.emplace_back();
        own.number = segment.number;
        for (SongNumber song = 0; song < segment.songs.removed.size(); ++song) {
            if (segment.songs.removed[song])
                own.removed.push_back(song);
        }
    }
    for (const StoredSegment &segment : added)
        manifest.added.push_back({segment.number, segment.name});
    return manifest;
}

std::vector<std::filesystem::path> StoreContents::files(const StoreFolder &folder) const
{
    std::vector<std::filesystem::path> result{folder.file(Files::Journal, journal)};
    for (const StoredSegment &segment : m_settled)
        result.push_back(folder.file(Files::Segment, segment.number));
    for (const StoredSegment &segment : added)
        result.push_back(folder.file(Files::Added, segment.number));
    return result;
}

} // namespace trackwise::fingerprint
