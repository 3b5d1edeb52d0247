// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "fingerprint/SongIndex.h"

namespace trackwise::fingerprint {

/// A song that may be what was heard.
struct Candidate
{
    SongTime time;   ///< what of the song is heard in the middle of the query
    float votes = 0; ///< the weight of the pairs that speak for it
    friend bool operator==(const Candidate &, const Candidate &) = default;
};

/// How a query looks for pairs that were rounded the other way.
enum class Probing { NearestCell, CellsAround };

/// Lets the pairs of a query's peaks vote: each for the places of the songs where it is heard too, less the
/// time at which it is heard in the query, so that those of the right song meet at one place. A rare pair's
/// vote weighs more.
class Voting
{
public:
    explicit Voting(const SongIndex &index);

    /// The best @p count places, the best first. @p peaks as a song's would be: for what is played faster or
    /// higher than its song they are scaled before; @p middle in frames, on their scale.
    [[nodiscard]] std::vector<Candidate> candidates(std::span<const Peak> peaks, float middle,
                                                    Probing probing, std::size_t count);

private:
    /// What one pair of the query votes for.
    struct Ballot
    {
        std::span<const LinePlace> places;
        std::int32_t delay = 0; ///< after the middle of the query, in places
        float weight = 0;
    };

    void collect(std::span<const Peak> peaks, float middle, Probing probing);
    template <typename Take>
    void forEachVote(Take &&take) const;
    void sketch();
    void mark(unsigned least);
    void count();
    [[nodiscard]] std::vector<Candidate> best(std::size_t count) const;

    const SongIndex &m_index;
    std::vector<Ballot> m_ballots;
    std::vector<std::uint8_t> m_sketch;     ///< the votes of each bin, roughly, bins wrapped around
    std::vector<std::uint64_t> m_promising; ///< a bit for each bin of the sketch
    std::vector<std::pair<std::uint32_t, float>> m_bins; ///< the promising bins in order, with their votes
};

} // namespace trackwise::fingerprint
