// SPDX-License-Identifier: GPL-3.0-or-later
#include "fingerprint/Voting.h"

#include <algorithm>
#include <bit>
#include <limits>

namespace trackwise::fingerprint {

namespace {

/// Votes are counted in bins of two places (128 ms): what rounding, and a speed that is a little off, spread.
constexpr int placesPerBin = 2;
/// A pair that more places than this share says nothing.
constexpr float commonest = 1e6F;
/// How far the time of a pair may be off in a query: its rows lie between those of the song.
constexpr float slack = 1;

/// Most bins of a line of songs have a vote or two, and counting them exactly would take more memory than a
/// player on a phone may use. A sketch of them, of 8 MB at most, says which are worth it: a line of 150 hours
/// fits in it without two bins in one place.
constexpr std::size_t largestSketch = std::size_t(1) << 22;
constexpr std::size_t promisingBins = 3000;
/// Steps of the sketch for a weight of 1.
constexpr float sketchSteps = 4;

std::uint32_t binOf(LinePlace place, std::int32_t delay)
{
    // Delays are at most half of a query, places at least the margin before the first song, which is longer.
    return (place - std::uint32_t(delay)) / placesPerBin;
}

} // namespace

Voting::Voting(const SongIndex &index)
    : m_index(index)
    , m_sketch(std::min(largestSketch, std::bit_ceil<std::size_t>(index.lineLength() / placesPerBin + 2)))
{}

std::vector<Candidate> Voting::candidates(std::span<const Peak> peaks, float middle, Probing probing,
                                          std::size_t count)
{
    collect(peaks, middle, probing);
    sketch();
    this->count();
    return best(count);
}

void Voting::collect(std::span<const Peak> peaks, float middle, Probing probing)
{
    m_ballots.clear();
    std::vector<float> pitches;
    pitches.reserve(peaks.size());
    for (const Peak &peak : peaks)
        pitches.push_back(pitchScale(peak.bin));
    for (std::size_t first = 0; first < peaks.size(); ++first) {
        const auto delay = std::int32_t(std::lround((peaks[first].time - middle) / framesPerPlace));
        const auto ask = [&](Cell cell) {
            const auto places = m_index.places(cell);
            if (!places.empty() && float(places.size()) < commonest)
                m_ballots.push_back({places, delay, std::log(commonest / float(places.size()))});
        };
        forEachPartner(peaks, first, slack, [&](std::size_t second) {
            const PeakPair pair{pitches[first], pitches[second], peaks[second].time - peaks[first].time};
            if (probing == Probing::CellsAround)
                forEachCellAround(pair, ask);
            else if (const auto cell = cellOf(pair))
                ask(*cell);
        });
    }
}

void Voting::sketch()
{
    constexpr std::uint32_t most = std::numeric_limits<std::uint16_t>::max();
    std::fill(m_sketch.begin(), m_sketch.end(), 0);
    const std::size_t mask = m_sketch.size() - 1;
    for (const Ballot &ballot : m_ballots) {
        const auto weight = std::uint32_t(std::lround(ballot.weight * sketchSteps));
        for (const LinePlace place : ballot.places) {
            std::uint16_t &votes = m_sketch[binOf(place, ballot.delay) & mask];
            votes = std::uint16_t(std::min(most, votes + weight));
        }
    }
    std::vector<std::uint32_t> histogram(most / 16 + 1);
    for (const std::uint16_t votes : m_sketch)
        ++histogram[votes / 16];
    std::size_t level = histogram.size() - 1;
    for (std::size_t bins = 0; level > 1 && bins + histogram[level] <= promisingBins; --level)
        bins += histogram[level];
    m_promising = std::uint16_t(std::min<std::size_t>(most, (level + 1) * 16));
}

bool Voting::isPromising(std::uint32_t bin) const
{
    const std::size_t mask = m_sketch.size() - 1;
    return m_sketch[bin & mask] >= m_promising || m_sketch[(bin + 1) & mask] >= m_promising ||
           m_sketch[(bin - 1) & mask] >= m_promising;
}

void Voting::count()
{
    m_bins.clear();
    for (const Ballot &ballot : m_ballots) {
        for (const LinePlace place : ballot.places) {
            const std::uint32_t bin = binOf(place, ballot.delay);
            if (isPromising(bin))
                m_bins.emplace_back(bin, ballot.weight);
        }
    }
    std::sort(m_bins.begin(), m_bins.end());
    std::size_t kept = 0;
    for (const auto &[bin, votes] : m_bins) {
        if (kept > 0 && m_bins[kept - 1].first == bin)
            m_bins[kept - 1].second += votes;
        else
            m_bins[kept++] = {bin, votes};
    }
    m_bins.resize(kept);
}

std::vector<Candidate> Voting::best(std::size_t count) const
{
    const auto votesAt = [this](std::size_t i, std::uint32_t bin) {
        return i < m_bins.size() && m_bins[i].first == bin ? m_bins[i].second : 0.0F;
    };
    std::vector<Candidate> found;
    for (std::size_t i = 0; i < m_bins.size(); ++i) {
        const auto [bin, votes] = m_bins[i];
        const float before = votesAt(i - 1, bin - 1); // of the first there is none: i - 1 is beyond all
        const float after = votesAt(i + 1, bin + 1);
        if (before > votes || after >= votes)
            continue;
        const double middle = double(bin) + 0.5 + (after - before) / (before + votes + after);
        if (const auto time = m_index.songAt(middle * placesPerBin))
            found.push_back({*time, votes + std::max(before, after)});
    }
    const auto kept = std::min(count, found.size());
    std::partial_sort(found.begin(), found.begin() + std::ptrdiff_t(kept), found.end(),
                      [](const Candidate &a, const Candidate &b) { return a.votes > b.votes; });
    found.resize(kept);
    return found;
}

} // namespace trackwise::fingerprint
