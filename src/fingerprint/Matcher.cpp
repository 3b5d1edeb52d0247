// SPDX-License-Identifier: GPL-3.0-or-later
#include "fingerprint/Matcher.h"

#include "fingerprint/PeakQuota.h"

#include <algorithm>
#include <cmath>

namespace trackwise::fingerprint {

namespace {

/// Under noise the right song may have hardly more votes than others; it is among this many all the same.
constexpr std::size_t candidateCount = 100;
/// Those of them that are compared at exact speeds: the right one is among them when its speed is half a per
/// cent off.
constexpr std::size_t candidatesForSpeed = 25;
/// A changed tempo costs the votes little, so only the best are compared at others.
constexpr std::size_t candidatesForTempo = 10;
/// Speeds that are tried where the song's own does not convince; verification bridges what lies between them.
constexpr float otherSpeeds[]{0.98F, 1.02F, 0.96F, 1.04F};
/// What makes further steps superfluous. More than what is certain in the end: a song that is played faster
/// may resemble another one at its own speed.
constexpr float convincingScore = 6;
/// How much of the score of the best different song is taken off: where two convince, none does.
constexpr float weightOfRival = 0.7F;
/// Two recordings are one and the same music (a duplicate, a remaster) where this share of their peaks
/// coincides, 10 s before and behind what is heard, as near as two times are known. Measured: other codecs
/// and equalisers leave 0.7 and more, echoes 0.4; different music has 0.05, another verse of the same song
/// 0.2.
constexpr double shareOfSiblings = 0.3;
constexpr float siblingReach = 10 * framesPerSecond;
constexpr float siblingSlack = 2;

/// The strongest of the peaks: 9 a band in a second. That is enough for most of what is played nearby.
std::vector<Peak> thinned(std::span<const Peak> peaks)
{
    PeakQuota quota(9);
    std::vector<Peak> passed;
    for (const Peak &peak : peaks)
        quota.push(peak, passed);
    quota.finish(passed);
    return passed;
}

/// The peaks as they would be at the speed 1, of what is played at @p speed.
std::vector<Peak> atOwnSpeed(std::span<const Peak> peaks, float speed)
{
    std::vector<Peak> scaled(peaks.begin(), peaks.end());
    for (Peak &peak : scaled) {
        peak.time *= speed;
        peak.bin /= speed;
    }
    return scaled;
}

std::span<const KeptPeak> between(std::span<const KeptPeak> peaks, float first, float last)
{
    const auto isBefore = [](const KeptPeak &peak, float frame) { return float(peak.frame) < frame; };
    const auto begin = std::lower_bound(peaks.begin(), peaks.end(), first, isBefore);
    return {begin, std::lower_bound(begin, peaks.end(), last, isBefore)};
}

} // namespace

Matcher::Matcher(const SongIndex &index)
    : m_index(index)
    , m_voting(index)
{}

std::optional<Match> Matcher::match(const Query &query)
{
    // Each step costs several times what the ones before it do, and few queries need the last.
    m_verified.clear();
    tryAtSpeed(query, thinned(query.peaks), 1, Probing::NearestCell);
    if (const auto found = decide(); found && found->score >= convincingScore)
        return found;
    m_verified.clear();
    tryAtSpeed(query, query.peaks, 1, Probing::CellsAround);
    tryTempos(query);
    if (const auto found = decide(); found && found->score >= convincingScore)
        return found;
    for (const float speed : otherSpeeds)
        tryAtSpeed(query, atOwnSpeed(query.peaks, speed), speed, Probing::CellsAround);
    return decide();
}

void Matcher::tryAtSpeed(const Query &query, std::span<const Peak> peaks, float speed, Probing probing)
{
    const auto candidates = m_voting.candidates(peaks, query.middle() * speed, probing, candidateCount);
    if (candidates.empty())
        return;
    const float median = candidates[candidates.size() / 2].votes;
    std::vector<Verified> found;
    for (const Candidate &candidate : candidates) {
        const auto [song, frame] = candidate.time;
        const Playing playing{frame, speed, speed};
        const Agreement agreement = bestSpeed(query.rows, m_index.peaks(song), playing, Speeds::Few);
        if (std::isfinite(agreement.score))
            found.push_back({song, agreement, std::log(candidate.votes / median)});
    }
    sort(found);
    for (std::size_t i = 0; i < std::min(candidatesForSpeed, found.size()); ++i) {
        auto &[song, best, popularity] = found[i];
        const Playing playing{best.playing.middle, speed, speed};
        const Agreement agreement = bestSpeed(query.rows, m_index.peaks(song), playing, Speeds::All);
        if (agreement.score > best.score)
            best = agreement;
    }
    m_verified.insert(m_verified.end(), found.begin(), found.end());
    sort(m_verified);
}

void Matcher::tryTempos(const Query &query)
{
    for (std::size_t i = 0; i < std::min(candidatesForTempo, m_verified.size()); ++i) {
        auto &[song, best, popularity] = m_verified[i];
        Playing playing = best.playing;
        playing.tempo = playing.pitch;
        const Agreement agreement = bestTempo(query.rows, m_index.peaks(song), playing);
        if (agreement.score > best.score)
            best = agreement;
    }
    sort(m_verified);
}

void Matcher::sort(std::vector<Verified> &verified)
{
    std::stable_sort(verified.begin(), verified.end(),
                     [](const Verified &a, const Verified &b) { return a.score() > b.score(); });
}

std::optional<Match> Matcher::decide() const
{
    if (m_verified.empty())
        return std::nullopt;
    const Verified &best = m_verified.front();
    std::vector<SongNumber> same{best.song}; // and what is found to be the same music
    float rival = 0;
    for (const Verified &other : m_verified) {
        if (std::find(same.begin(), same.end(), other.song) != same.end())
            continue;
        if (!soundAlike(best, other)) {
            rival = std::max(0.0F, other.score());
            break;
        }
        same.push_back(other.song);
    }
    return Match{best.song, best.agreement.playing, best.score() - weightOfRival * rival};
}

bool Matcher::soundAlike(const Verified &one, const Verified &other) const
{
    const Playing &here = one.agreement.playing;
    const Playing &there = other.agreement.playing;
    // At the same speed, or at those that were found: these are too rough for the one, and needed for a
    // faster version.
    return soundAlike(one, other, 1, 1) ||
           soundAlike(one, other, there.tempo / here.tempo, there.pitch / here.pitch);
}

bool Matcher::soundAlike(const Verified &one, const Verified &other, float tempo, float pitch) const
{
    const float here = one.agreement.playing.middle;
    const float there = other.agreement.playing.middle;
    const auto peaks = between(m_index.peaks(one.song), here - siblingReach, here + siblingReach);
    int shared = 0;
    for (const KeptPeak &peak : peaks) {
        const float frame = there + (float(peak.frame) - here) * tempo;
        const float bin = float(peak.bin) / pitch;
        const auto near = between(m_index.peaks(other.song), frame - siblingSlack, frame + siblingSlack + 1);
        shared += std::any_of(near.begin(), near.end(), [bin](const KeptPeak &candidate) {
            return std::abs(float(candidate.bin) - bin) <= 1;
        });
    }
    return shared > shareOfSiblings * double(peaks.size());
}

} // namespace trackwise::fingerprint
