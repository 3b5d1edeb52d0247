// SPDX-License-Identifier: GPL-3.0-or-later
#include "fingerprint/Matcher.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>

namespace trackwise::fingerprint {

namespace {

/// Under noise the right song may have hardly more votes than others; it is among this many all the same.
constexpr std::size_t candidateCount = 100;
/// Those of them that are compared at exact speeds: the right one is among them when its speed is half a per
/// cent off.
constexpr std::size_t candidatesForSpeed = 25;
/// A changed tempo costs the votes little, so only the best are compared at others.
constexpr std::size_t candidatesForTempo = 10;
/// Of the best so many are freed of what the beat has brought them.
constexpr std::size_t candidatesForBeat = 10;
/// Speeds that are tried where the song's own does not convince; verification bridges what lies between them.
constexpr float otherSpeeds[]{0.98F, 1.02F, 0.96F, 1.04F};
/// What makes further steps superfluous. More than what is certain in the end: a song that is played faster
/// may resemble another one at its own speed.
constexpr float convincingScore = 5;
/// How much of the score of the best different song is taken off: where two convince, none does.
constexpr float weightOfRival = 0.7F;
/// Two recordings are one and the same music (a duplicate, a remaster) where this share of their peaks
/// coincides, 10 s before and behind what is heard, as near as two times are known. Measured: other codecs
/// and equalisers leave 0.7 and more, echoes 0.4; different music has 0.05, another verse of the same song
/// 0.2.
constexpr double shareOfSiblings = 0.3;
constexpr float siblingReach = 10 * framesPerSecond;
constexpr float siblingSlack = 2;
/// How much of a song a query may cover, against its own length: what verification tries, and a little more.
constexpr float widestTempo = 1.12F;
/// With more music than this, about 20,000 songs, all the peaks of a query would take too long to look up.
constexpr LinePlace longLine = 80'000'000;
/// Other speeds are tried from here on: most songs are named by then.
constexpr float secondsBeforeSpeeds = 2.4F;
/// One of them at each look, and no more votes for it than these; a vote takes about 20 ns.
constexpr std::size_t votesOfLook = 2'000'000;
constexpr std::size_t candidatesOfSpeed = 100;
/// Of the candidates of a speed so many are compared again at the next look, which tries another speed.
constexpr std::size_t heldCount = 10;
/// Bins of a field. With 600 hours of music each has a count of its own.
constexpr std::size_t largestField = std::size_t(1) << 24;
constexpr std::size_t largestFieldOfSpeed = std::size_t(1) << 21;

std::span<const KeptPeak> between(std::span<const KeptPeak> peaks, float first, float last)
{
    const auto isBefore = [](const KeptPeak &peak, float frame) { return float(peak.frame) < frame; };
    const auto begin = std::lower_bound(peaks.begin(), peaks.end(), first, isBefore);
    return {begin, std::lower_bound(begin, peaks.end(), last, isBefore)};
}

} // namespace

Matcher::Matcher(const Catalog &catalog)
    : m_catalog(catalog)
{
    m_fields.emplace_back(catalog, 1, largestField);
}

std::optional<Match> Matcher::look(Query::Ending ending)
{
    m_query.settle(ending);
    m_verified.clear();
    m_peaksUsed = 0;
    constexpr std::size_t unlimited = std::numeric_limits<std::size_t>::max();
    m_fields.front().vote(m_catalog.lineLength() > longLine ? m_query.strongPeaks() : m_query.peaks(),
                          unlimited);
    verify(m_fields.front(), candidateCount);
    tryTempos();
    verifyHeld();
    if (const auto found = decide(); found && found->score >= convincingScore)
        return found;
    if (ending == Query::Ending::Final) {
        for (std::size_t i = 0; i < std::size(otherSpeeds); ++i)
            trySpeed(unlimited);
    } else if (m_query.seconds() >= secondsBeforeSpeeds) {
        trySpeed(votesOfLook);
    }
    hold();
    return decide();
}

void Matcher::trySpeed(std::size_t budget)
{
    const std::size_t next = m_nextSpeed++ % std::size(otherSpeeds);
    if (m_fields.size() < next + 2)
        m_fields.emplace_back(m_catalog, otherSpeeds[next], largestFieldOfSpeed);
    VoteField &field = m_fields[next + 1];
    field.vote(m_query.strongPeaks(), budget);
    verify(field, candidatesOfSpeed);
}

void Matcher::hold()
{
    m_held.clear();
    for (std::size_t i = 0; i < m_verified.size() && m_held.size() < heldCount; ++i) {
        if (m_verified[i].isOtherSpeed)
            m_held.push_back(m_verified[i]);
    }
    m_heldMiddle = m_query.middle();
}

void Matcher::verifyHeld()
{
    const float moved = m_query.middle() - m_heldMiddle;
    for (Verified one : m_held) {
        Playing playing = one.agreement.playing;
        playing.middle += moved * playing.tempo;
        one.peaks = peaksAround({one.song, playing.middle}, m_query.middle() * widestTempo);
        one.agreement = bestSpeed(m_query.rows(), one.peaks, playing, Speeds::All);
        one.beat.reset();
        if (std::isfinite(one.agreement.score))
            m_verified.push_back(one);
    }
    sort(m_verified);
}

float Matcher::beginning(const Match &match) const
{
    return (match.playing.middle - m_query.middle() * match.playing.tempo) / framesPerSecond;
}

std::span<const KeptPeak> Matcher::peaksAround(const SongTime &time, float reach)
{
    if (m_peaksUsed == m_peaks.size())
        m_peaks.emplace_back();
    std::vector<KeptPeak> &peaks = m_peaks[m_peaksUsed++];
    peaks.clear();
    m_catalog.peaks(time.song, time.frame - reach, time.frame + reach, peaks);
    return peaks;
}

void Matcher::verify(const VoteField &field, std::size_t count)
{
    const auto candidates = field.best(count, m_query.middle());
    if (candidates.empty())
        return;
    const float median = candidates[candidates.size() / 2].votes;
    std::vector<Verified> found;
    for (const Candidate &candidate : candidates) {
        const Playing playing{candidate.time.frame, field.speed(), field.speed()};
        const auto peaks = peaksAround(candidate.time, m_query.middle() * widestTempo);
        const Agreement agreement = bestSpeed(m_query.rows(), peaks, playing, Speeds::Few);
        if (std::isfinite(agreement.score))
            found.push_back({candidate.time.song, peaks, agreement, std::log(candidate.votes / median),
                             field.speed() != 1});
    }
    sort(found);
    for (std::size_t i = 0; i < std::min(candidatesForSpeed, found.size()); ++i) {
        Verified &one = found[i];
        const Playing playing{one.agreement.playing.middle, field.speed(), field.speed()};
        const Agreement agreement = bestSpeed(m_query.rows(), one.peaks, playing, Speeds::All);
        if (agreement.score > one.agreement.score)
            one.agreement = agreement;
    }
    m_verified.insert(m_verified.end(), found.begin(), found.end());
    sort(m_verified);
}

void Matcher::tryTempos()
{
    for (std::size_t i = 0; i < std::min(candidatesForTempo, m_verified.size()); ++i) {
        Verified &one = m_verified[i];
        Playing playing = one.agreement.playing;
        playing.tempo = playing.pitch;
        const Agreement agreement = bestTempo(m_query.rows(), one.peaks, playing);
        if (agreement.score > one.agreement.score)
            one.agreement = agreement;
    }
    sort(m_verified);
}

void Matcher::takeBeatOff()
{
    // Those that lose by it make room for others, which must not be better off.
    for (bool isDone = false; !isDone;) {
        isDone = true;
        for (std::size_t i = 0; i < std::min(candidatesForBeat, m_verified.size()); ++i) {
            Verified &one = m_verified[i];
            if (one.beat)
                continue;
            one.beat = scoreOfBeat(m_query.rows(), one.peaks, one.agreement.playing);
            isDone = false;
        }
        sort(m_verified);
    }
}

void Matcher::sort(std::vector<Verified> &verified)
{
    std::stable_sort(verified.begin(), verified.end(),
                     [](const Verified &a, const Verified &b) { return a.score() > b.score(); });
}

std::optional<Match> Matcher::decide()
{
    if (m_verified.empty())
        return std::nullopt;
    takeBeatOff();
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

bool Matcher::soundAlike(const Verified &one, const Verified &other)
{
    const Playing &here = one.agreement.playing;
    const Playing &there = other.agreement.playing;
    const auto ones = peaksAround({one.song, here.middle}, siblingReach);
    const auto others = peaksAround({other.song, there.middle}, siblingReach * widestTempo);
    // At the same speed, or at those that were found: these are too rough for the one, and needed for a
    // faster version.
    const std::array<std::pair<float, float>, 2> speeds{
        {{1, 1}, {there.tempo / here.tempo, there.pitch / here.pitch}}};
    return std::any_of(speeds.begin(), speeds.end(), [&](const auto &speed) {
        int shared = 0;
        for (const KeptPeak &peak : ones) {
            const float frame = there.middle + (float(peak.frame) - here.middle) * speed.first;
            const float bin = float(peak.bin) / speed.second;
            const auto near = between(others, frame - siblingSlack, frame + siblingSlack + 1);
            shared += std::any_of(near.begin(), near.end(), [bin](const KeptPeak &candidate) {
                return std::abs(float(candidate.bin) - bin) <= 1;
            });
        }
        return shared > shareOfSiblings * double(ones.size());
    });
}

std::optional<Match> matchOf(const Catalog &catalog, std::span<const float> samples)
{
    Matcher matcher(catalog);
    matcher.push(samples);
    return matcher.look(Query::Ending::Final);
}

} // namespace trackwise::fingerprint
