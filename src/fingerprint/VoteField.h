// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "fingerprint/Catalog.h"
#include "fingerprint/Peak.h"

#include <cstdint>
#include <span>
#include <vector>

namespace trackwise::fingerprint {

/// A song that may be what is heard.
struct Candidate
{
    SongTime time;   ///< what of the song is heard in the middle of the query
    float votes = 0; ///< the weight of the pairs that speak for it
};

/// Lets the pairs of a query's peaks vote: each for the places of the songs where it is heard too, less the
/// time at which it is heard in the query, so that those of the right song meet at one place. A rare pair's
/// vote weighs more. Votes stay while the query grows: each pair is looked up once only.
///
/// Votes are counted in bins of 128 ms, which is what rounding and a speed that is a little off spread. Bins
/// far apart on the line of songs share a count where that is longer than the field.
class VoteField
{
public:
    /// For what is played at @p speed. @p largest: how many counts (2 bytes each) the field may have, a power
    /// of two.
    VoteField(const Catalog &catalog, float speed, std::size_t largest);

    /// Lets pairs of @p peaks vote whose later peak has not been looked up yet, in their order, until about
    /// @p budget votes are counted. @p peaks are all of a query, as Query::peaks() has them. Returns how
    /// many votes there were.
    std::size_t vote(std::span<const Peak> peaks, std::size_t budget);

    /// The best places, about @p count, the best first, for a query with this @p middle in frames.
    [[nodiscard]] std::vector<Candidate> best(std::size_t count, float middle) const;
    [[nodiscard]] float speed() const { return m_speed; }

private:
    struct Ballot
    {
        PlaceList places;
        std::uint32_t offset = 0; ///< what makes a bin's place out of a place of the list
        std::uint16_t weight = 0;
    };

    void collect(std::size_t second);
    void askFor(Cell cell, float time);
    std::size_t countBallots();
    void raiseLeast();
    [[nodiscard]] float votesAt(std::size_t bin) const { return m_votes[bin & (m_votes.size() - 1)]; }

    const Catalog *m_catalog;
    float m_speed;
    std::vector<Peak> m_peaks;    ///< that were looked up, as a song's would be
    std::vector<float> m_pitches; ///< theirs, see pitchScale()
    std::vector<Ballot> m_ballots;
    std::vector<std::uint32_t> m_bins; ///< that a ballot votes for; kept for its memory
    std::vector<std::uint16_t> m_votes;
    std::vector<std::uint32_t> m_promising; ///< those of them that have m_least
    std::uint16_t m_least = 1;
};

} // namespace trackwise::fingerprint
