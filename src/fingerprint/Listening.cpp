// SPDX-License-Identifier: GPL-3.0-or-later
#include "fingerprint/Listening.h"

#include <algorithm>
#include <cmath>

namespace trackwise::fingerprint {

namespace {

constexpr std::size_t firstLook = sampleRateHz * 3 / 2;
constexpr std::size_t nextLook = sampleRateHz / 4;
constexpr float longest = 13;
/// 80 dB below full scale: what is no louder is an input without a microphone, or one that is switched off.
constexpr float silence = 1e-4F;
/// How far apart two looks may find the beginning of what is heard, in seconds: repeated bars are not the
/// same place.
constexpr float samePlace = 1.5F;

/// What has not been found early is likelier to be found wrongly, as more looks have been tried: every second
/// after the fourth asks for 0.2 more.
float scoreAskedFor(float seconds)
{
    return certainScore + 0.2F * std::max(0.0F, seconds - 4);
}

} // namespace

Listening::Listening(std::shared_ptr<const Catalog> catalog)
    : m_catalog(std::move(catalog))
    , m_matcher(*m_catalog)
    , m_untilLook(firstLook)
{}

Listening::Answer Listening::hear(std::span<const float> samples)
{
    while (!samples.empty() && m_answer == Answer::Undecided) {
        const auto piece = samples.first(std::min(samples.size(), m_untilLook));
        samples = samples.subspan(piece.size());
        for (const float sample : piece)
            m_loudest = std::max(m_loudest, std::abs(sample));
        m_matcher.push(piece);
        m_untilLook -= piece.size();
        if (m_untilLook == 0) {
            m_untilLook = nextLook;
            m_answer = look();
        }
    }
    return m_answer;
}

Listening::Answer Listening::look()
{
    const float seconds = m_matcher.seconds();
    const Answer otherwise = seconds < longest ? Answer::Undecided : Answer::NoMatch;
    if (m_loudest < silence)
        return otherwise;
    const auto found = m_matcher.look(Query::Ending::Open);
    m_score = found ? found->score : 0;
    if (!found || found->score < scoreAsked()) {
        m_last.reset();
        return otherwise;
    }
    const float beginning = m_matcher.beginning(*found);
    const bool isSure = agrees(*found, beginning);
    m_last = found;
    m_lastBeginning = beginning;
    return isSure ? Answer::Match : otherwise;
}

float Listening::scoreAsked() const
{
    return scoreAskedFor(m_matcher.seconds());
}

bool Listening::agrees(const Match &match, float beginning) const
{
    return m_last && m_last->song == match.song && std::abs(beginning - m_lastBeginning) < samePlace;
}

} // namespace trackwise::fingerprint
