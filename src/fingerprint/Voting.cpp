// SPDX-License-Identifier: GPL-3.0-or-later
#include "fingerprint/Voting.h"

#include <algorithm>
#include <array>
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
/// player on a phone may use. A sketch of them, of 4 MB at most, says which are worth it: a line of 150 hours
/// fits in it without two bins in one place.
constexpr std::size_t largestSketch = std::size_t(1) << 22;
constexpr std::size_t smallestSketch = 64;
constexpr std::size_t promisingBins = 3000;
/// The weight of one step of the sketch. A vote has 3 to 5 of the 255 that there are; whoever has all is
/// promising.
constexpr float sketchStep = 3;

/// The places of ballots lie all over the memory: they are sent for this many ballots ahead.
constexpr std::size_t ballotsAhead = 16;

std::uint32_t binOf(LinePlace place, std::int32_t delay)
{
    // Delays are at most half of a query, places at least the margin before the first song, which is longer.
    return (place - std::uint32_t(delay)) / placesPerBin;
}

} // namespace

Voting::Voting(const SongIndex &index)
    : m_index(index)
    , m_sketch(std::clamp(std::bit_ceil<std::size_t>(index.lineLength() / placesPerBin + 2), smallestSketch,
                          largestSketch))
    , m_promising(m_sketch.size() / 64)
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

template <typename Take>
void Voting::forEachVote(Take &&take) const
{
    for (std::size_t i = 0; i < m_ballots.size(); ++i) {
        if (i + ballotsAhead < m_ballots.size())
            __builtin_prefetch(m_ballots[i + ballotsAhead].places.data());
        const Ballot &ballot = m_ballots[i];
        for (const LinePlace place : ballot.places)
            take(binOf(place, ballot.delay), ballot.weight);
    }
}

void Voting::sketch()
{
    constexpr unsigned most = std::numeric_limits<std::uint8_t>::max();
    std::fill(m_sketch.begin(), m_sketch.end(), 0);
    const std::size_t mask = m_sketch.size() - 1;
    forEachVote([&](std::uint32_t bin, float weight) {
        std::uint8_t &votes = m_sketch[bin & mask];
        votes = std::uint8_t(std::min(most, votes + unsigned(weight / sketchStep) + 1));
    });
    std::array<std::size_t, most + 1> histogram{};
    for (const std::uint8_t votes : m_sketch)
        ++histogram[votes];
    // As many as may be promising, and the others that have as much as the last of them does not.
    unsigned level = most;
    for (std::size_t bins = histogram[most]; level > 1 && bins <= promisingBins; --level)
        bins += histogram[level - 1];
    mark(std::min(level + 1, most));
}

void Voting::mark(unsigned least)
{
    std::fill(m_promising.begin(), m_promising.end(), 0);
    const std::size_t mask = m_sketch.size() - 1;
    for (std::size_t bin = 0; bin < m_sketch.size(); ++bin) {
        if (m_sketch[bin] < least)
            continue;
        for (const std::size_t near : {bin - 1, bin, bin + 1}) // its neighbours tell where in it the song is
            m_promising[(near & mask) / 64] |= std::uint64_t(1) << near % 64;
    }
}

void Voting::count()
{
    m_bins.clear();
    const std::size_t mask = m_sketch.size() - 1;
    forEachVote([&](std::uint32_t bin, float weight) {
        if ((m_promising[(bin & mask) / 64] >> bin % 64 & 1) != 0)
            m_bins.emplace_back(bin, weight);
    });
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
