// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "fingerprint/Matcher.h"

#include <memory>

namespace trackwise::fingerprint {

/// One attempt to name what is heard: looks four times a second from 1.5 s on, and decides once. One thread.
class Listening
{
public:
    enum class Answer { Undecided, Match, NoMatch };

    explicit Listening(std::shared_ptr<const Catalog> catalog);

    /// Takes the sound that follows, mono at sampleRateHz; what comes after an answer is passed over. A match
    /// has to be found twice in a row, at the same place; without one it ends after 13 s of sound.
    Answer hear(std::span<const float> samples);
    /// Of Answer::Match.
    [[nodiscard]] const Match &match() const { return *m_last; }
    /// Where in its song what was heard begins, in seconds.
    [[nodiscard]] float beginning() const { return m_lastBeginning; }
    /// Of the likeliest song at the last look, and what makes it certain there.
    [[nodiscard]] float score() const { return m_score; }
    [[nodiscard]] float scoreAsked() const;
    [[nodiscard]] const Catalog &catalog() const { return *m_catalog; }

private:
    Answer look();
    [[nodiscard]] bool agrees(const Match &match, float beginning) const;

    std::shared_ptr<const Catalog> m_catalog;
    Matcher m_matcher;
    Answer m_answer = Answer::Undecided;
    std::size_t m_untilLook; ///< samples
    float m_loudest = 0;
    float m_score = 0;
    std::optional<Match> m_last; ///< certain, of the last look
    float m_lastBeginning = 0;
};

} // namespace trackwise::fingerprint
