// SPDX-License-Identifier: GPL-3.0-or-later
#include "fingerprint/VoteField.h"

#include "fingerprint/PairCells.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <limits>

namespace trackwise::fingerprint {

namespace {

constexpr int placesPerBin = 2;
/// A pair that more places than this share says nothing.
constexpr float commonest = 1e6F;
/// How far the time of a pair may be off in a query: its rows lie between those of the song.
constexpr float slack = 1;
/// Peaks come by rows, and each may lie up to half a row before or behind its own.
constexpr float disorder = 1;
/// What counts as one: a pair has 60 to 100 of these, and a bin can have 65,535.
constexpr float weightOfVote = 0.125F;
constexpr std::size_t ballotsTogether = 4096;
/// So many bins are looked at in the end; more only where that many have all the votes that a bin can have.
constexpr std::size_t promisingBins = 3000;
constexpr std::size_t mostPromising = 20000;
/// However many bins share a count: the song may be under any of these.
constexpr std::size_t leastSummits = 25;
constexpr std::size_t smallestField = 64;
/// Added to places, so that what began before the first song is on the line too: more than the longest query.
constexpr LinePlace origin = 256;

} // namespace

VoteField::VoteField(const Catalog &catalog, float speed, std::size_t largest)
    : m_catalog(&catalog)
    , m_speed(speed)
    , m_votes(std::clamp(std::bit_ceil<std::size_t>((catalog.lineLength() + origin) / placesPerBin + 2),
                         smallestField, largest))
{}

std::size_t VoteField::vote(std::span<const Peak> peaks, std::size_t budget)
{
    std::size_t votes = 0;
    for (std::size_t next = m_peaks.size(); next < peaks.size() && votes < budget; ++next) {
        const Peak &peak = peaks[next];
        m_peaks.push_back({peak.time * m_speed, peak.bin / m_speed, peak.strength});
        m_pitches.push_back(pitchScale(m_peaks.back().bin));
        collect(next);
        if (m_ballots.size() > ballotsTogether)
            votes += countBallots();
    }
    return votes + countBallots();
}

void VoteField::collect(std::size_t second)
{
    for (std::size_t first = second; first-- > 0;) {
        const float delay = m_peaks[second].time - m_peaks[first].time;
        if (delay > longestDelay + slack + disorder)
            break;
        if (delay <= longestDelay + slack && delay >= shortestDelay - slack)
            forEachCellAround({m_pitches[first], m_pitches[second], delay},
                              [&](Cell cell) { askFor(cell, m_peaks[first].time); });
    }
}

void VoteField::askFor(Cell cell, float time)
{
    const std::size_t begin = m_ballots.size();
    const auto offset = origin - std::uint32_t(std::lround(time / framesPerPlace));
    std::size_t length = 0;
    m_catalog->forEachList(cell, [&](const PlaceList &places, LinePlace base) {
        m_ballots.push_back({places, base + offset, 0});
        length += places.size();
    });
    if (length == 0)
        return;
    const float weight = std::log(commonest / float(length)) / weightOfVote;
    if (weight <= 0)
        m_ballots.resize(begin);
    for (std::size_t i = begin; i < m_ballots.size(); ++i)
        m_ballots[i].weight = std::uint16_t(std::lround(weight));
}

std::size_t VoteField::countBallots()
{
    constexpr unsigned most = std::numeric_limits<std::uint16_t>::max();
    const std::size_t mask = m_votes.size() - 1;
    std::uint16_t *field = m_votes.data();
    std::size_t votes = 0;
    for (std::size_t i = 0; i < m_ballots.size(); ++i) {
        const Ballot &ballot = m_ballots[i];
        votes += ballot.places.size();
        const unsigned weight = ballot.weight;
        const unsigned least = m_least;
        m_bins.clear();
        ballot.places.forEach([&](LinePlace place) {
            const std::size_t bin = (place + ballot.offset) / placesPerBin & mask;
            __builtin_prefetch(field + bin, 1);
            m_bins.push_back(std::uint32_t(bin));
        });
        for (const std::uint32_t bin : m_bins) {
            const unsigned before = field[bin];
            const unsigned after = std::min(most, before + weight);
            field[bin] = std::uint16_t(after);
            if (before < least && after >= least && m_promising.size() < mostPromising)
                m_promising.push_back(bin);
        }
        if (m_promising.size() > 2 * promisingBins && m_least < most)
            raiseLeast();
    }
    m_ballots.clear();
    return votes;
}

void VoteField::raiseLeast()
{
    const auto last = m_promising.begin() + std::ptrdiff_t(promisingBins);
    std::nth_element(m_promising.begin(), last, m_promising.end(),
                     [this](std::uint32_t a, std::uint32_t b) { return m_votes[a] > m_votes[b]; });
    m_least = std::uint16_t(m_votes[*last] + 1);
    std::erase_if(m_promising, [this](std::uint32_t bin) { return m_votes[bin] < m_least; });
}

std::vector<Candidate> VoteField::best(std::size_t count, float middle) const
{
    struct Summit
    {
        std::uint32_t bin;
        float votes;
    };
    std::vector<Summit> summits;
    for (const std::uint32_t bin : m_promising) {
        const float votes = votesAt(bin);
        const float before = votesAt(std::size_t(bin) - 1);
        const float after = votesAt(std::size_t(bin) + 1);
        if (before <= votes && after < votes)
            summits.push_back({bin, votes + std::max(before, after)});
    }
    const std::size_t lineBins = (std::size_t(m_catalog->lineLength()) + origin) / placesPerBin + 1;
    const std::size_t sharing = lineBins / m_votes.size() + 1;
    const auto kept = std::min(std::max(count / sharing, leastSummits), summits.size());
    std::partial_sort(summits.begin(), summits.begin() + std::ptrdiff_t(kept), summits.end(),
                      [](const Summit &a, const Summit &b) {
                          return std::pair(b.votes, a.bin) < std::pair(a.votes, b.bin);
                      });
    std::vector<Candidate> found;
    for (std::size_t i = 0; i < kept; ++i) {
        const float votes = votesAt(summits[i].bin);
        const float before = votesAt(std::size_t(summits[i].bin) - 1);
        const float after = votesAt(std::size_t(summits[i].bin) + 1);
        const double within = 0.5 + double(after - before) / double(before + votes + after);
        for (std::size_t bin = summits[i].bin; bin < lineBins; bin += m_votes.size()) {
            const double place =
                (double(bin) + within) * placesPerBin - origin + double(middle * m_speed) / framesPerPlace;
            if (const auto time = m_catalog->songAt(place))
                found.push_back({*time, summits[i].votes});
        }
    }
    return found;
}

} // namespace trackwise::fingerprint
