// SPDX-License-Identifier: GPL-3.0-or-later
#include "fingerprint/SegmentMerge.h"

#include "fingerprint/SegmentOutputs.h"

#include <algorithm>
#include <limits>
#include <queue>

namespace trackwise::fingerprint {

namespace {

/// Songs that stay behind one another, or that all go: from where on, and by how much they move.
struct Run
{
    LinePlace begin = 0;
    std::uint32_t shift = 0; ///< is added, wrapping around
    bool isRemoved = false;
};

/// Goes through one of the segments, cell by cell.
class Source
{
public:
    Source(const Segment &segment, std::vector<Run> runs)
        : m_places(&segment.packedPlaces())
        , m_runs(std::move(runs))
    {
        next();
    }
    [[nodiscard]] bool atEnd() const { return m_next == m_lists.size(); }
    [[nodiscard]] Cell cell() const { return m_lists[m_next].cell; }
    void next()
    {
        if (m_next < m_lists.size() && ++m_next < m_lists.size())
            return;
        m_next = 0;
        do
            m_places->listsOf(m_group++, m_lists);
        while (m_lists.empty() && m_group < m_places->coding().groupCount());
    }
    /// Where the places of the cell at hand come to lie.
    void takePlaces(std::vector<LinePlace> &places) const
    {
        auto run = m_runs.begin();
        m_lists[m_next].places.forEach([&](LinePlace place) {
            if (std::next(run) != m_runs.end() && place >= std::next(run)->begin) {
                const auto behind = std::upper_bound(run, m_runs.end(), place,
                                                     [](LinePlace p, const Run &r) { return p < r.begin; });
                run = std::prev(behind);
            }
            if (!run->isRemoved)
                places.push_back(place + run->shift);
        });
    }

private:
    const PackedPlaces *m_places;
    std::vector<Run> m_runs; ///< the first begins with the line
    std::vector<PackedPlaces::CellPlaces> m_lists;
    std::size_t m_next = 0;
    std::uint32_t m_group = 0;
};

std::vector<Run> addSongs(const MergeInput &input, SegmentWriter &writer, const SongChange &change,
                          const std::stop_token &stop)
{
    std::vector<Run> runs;
    for (SongNumber number = 0; number < input.segment->songCount() && !stop.stop_requested(); ++number) {
        const SongRow row = input.segment->row(number);
        Run run{number == 0 ? 0 : row.beginning - lineMargin, 0, input.isRemoved(number)};
        if (!run.isRemoved) {
            CatalogSong song = input.segment->song(number);
            if (change)
                change(song);
            run.shift =
                writer.addSong(song, {input.segment->packedPeaks(number), input.segment->lengthOf(number),
                                      row.pairCount, PairDensity(row.density)}) -
                row.beginning;
        }
        if (runs.empty() || runs.back().shift != run.shift || runs.back().isRemoved != run.isRemoved)
            runs.push_back(run);
    }
    if (runs.empty())
        runs.push_back({0, 0, true});
    return runs;
}

} // namespace

bool mergeSegments(std::span<const MergeInput> inputs, SegmentOutput &output, const SongChange &change,
                   const std::stop_token &stop)
{
    SegmentWriter writer(output);
    std::vector<Source> sources;
    for (const MergeInput &input : inputs)
        sources.emplace_back(*input.segment, addSongs(input, writer, change, stop));

    using Waiting = std::pair<Cell, std::size_t>; // the next cell of a source
    std::priority_queue<Waiting, std::vector<Waiting>, std::greater<>> waiting;
    const auto wait = [&](std::size_t source) {
        if (!sources[source].atEnd())
            waiting.emplace(sources[source].cell(), source);
    };
    for (std::size_t source = 0; source < sources.size(); ++source)
        wait(source);
    std::vector<LinePlace> places;
    while (!waiting.empty()) {
        if (stop.stop_requested())
            return false;
        const Cell cell = waiting.top().first;
        places.clear();
        while (!waiting.empty() && waiting.top().first == cell) {
            const std::size_t source = waiting.top().second;
            waiting.pop();
            sources[source].takePlaces(places);
            sources[source].next();
            wait(source);
        }
        writer.addPlaces(cell, places);
    }
    if (stop.stop_requested())
        return false;
    writer.finish();
    return true;
}

Segment::Ptr mergedInMemory(std::span<const MergeInput> inputs)
{
    MemoryOutput output;
    mergeSegments(inputs, output);
    return std::get<Segment::Ptr>(Segment::of(SegmentBytes::of(output.take())));
}

} // namespace trackwise::fingerprint
