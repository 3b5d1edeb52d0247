// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "fingerprint/Query.h"
#include "fingerprint/Verification.h"
#include "fingerprint/VoteField.h"

#include <optional>

namespace trackwise::fingerprint {

/// The song that is likeliest to be heard.
struct Match
{
    SongNumber song = 0;
    Playing playing;
    float score = 0; ///< how much better than chance and than any different song; see certainScore
};

/// From this score on a match is taken for certain.
inline constexpr float certainScore = 4;

/// Names the song of a sound, at any time while it comes in. What was found out at one look is kept for the
/// next. One thread.
class Matcher
{
public:
    /// @p catalog must stay as long as the matcher does.
    explicit Matcher(const Catalog &catalog);

    /// Adds the sound that follows, mono at sampleRateHz.
    void push(std::span<const float> samples) { m_query.push(samples); }
    [[nodiscard]] float seconds() const { return m_query.seconds(); }

    /// The best match by all that was heard, certain or not; nothing where no song has anything in common
    /// with it. What is more than some milliseconds' work is left for the next looks, but for a Final one.
    [[nodiscard]] std::optional<Match> look(Query::Ending ending);
    /// Where in the song what was pushed begins, in seconds.
    [[nodiscard]] float beginning(const Match &match) const;

private:
    /// A candidate that was compared with the query.
    struct Verified
    {
        SongNumber song = 0;
        std::span<const KeptPeak> peaks; ///< of the song, around what is heard
        Agreement agreement;
        float popularity = 0; ///< how its votes compare with those of the others
        bool isOtherSpeed = false;
        std::optional<float> beat; ///< what of the score is its, where that is known
        [[nodiscard]] float score() const { return agreement.score + popularity - beat.value_or(0); }
    };

    void trySpeed(std::size_t budget);
    void verify(const VoteField &field, std::size_t count);
    void verifyHeld();
    void hold();
    void tryTempos();
    void takeBeatOff();
    std::span<const KeptPeak> peaksAround(const SongTime &time, float reach);
    static void sort(std::vector<Verified> &verified); ///< the best first
    [[nodiscard]] std::optional<Match> decide();
    [[nodiscard]] bool soundAlike(const Verified &one, const Verified &other);

    const Catalog &m_catalog;
    Query m_query;
    std::vector<VoteField> m_fields; ///< the first for a song's own speed
    std::vector<std::vector<KeptPeak>> m_peaks;
    std::size_t m_peaksUsed = 0;
    std::vector<Verified> m_verified; ///< the best first
    std::size_t m_nextSpeed = 0;
    std::vector<Verified> m_held; ///< of other speeds, of the last look
    float m_heldMiddle = 0;
};

/// The best match of a whole piece of sound, of longestQuery at most.
[[nodiscard]] std::optional<Match> matchOf(const Catalog &catalog, std::span<const float> samples);

} // namespace trackwise::fingerprint
