// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "fingerprint/Verification.h"
#include "fingerprint/Voting.h"

namespace trackwise::fingerprint {

/// The song that is likeliest to be heard.
struct Match
{
    SongNumber song = 0;
    Playing playing;
    float score = 0; ///< how much better than chance and than any different song; see certainScore
};

/// From this score on a match is taken for certain.
inline constexpr float certainScore = 4.5F;

/// Names the song of a query.
class Matcher
{
public:
    /// @p index must stay as long as the matcher does.
    explicit Matcher(const SongIndex &index);

    /// The best match, certain or not; nothing where no song has anything in common with @p query.
    [[nodiscard]] std::optional<Match> match(const Query &query);

private:
    /// A candidate that was compared with the query.
    struct Verified
    {
        SongNumber song = 0;
        Agreement agreement;
        float popularity = 0; ///< how its votes compare with those of the others
        [[nodiscard]] float score() const { return agreement.score + popularity; }
    };

    void tryAtSpeed(const Query &query, std::span<const Peak> peaks, float speed, Probing probing);
    void tryTempos(const Query &query);
    static void sort(std::vector<Verified> &verified); ///< the best first
    [[nodiscard]] std::optional<Match> decide() const;
    [[nodiscard]] bool soundAlike(const Verified &one, const Verified &other) const;
    [[nodiscard]] bool soundAlike(const Verified &one, const Verified &other, float tempo, float pitch) const;

    const SongIndex &m_index;
    Voting m_voting;
    std::vector<Verified> m_verified; ///< the best first
};

} // namespace trackwise::fingerprint
