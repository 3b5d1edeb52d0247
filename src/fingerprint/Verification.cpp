// SPDX-License-Identifier: GPL-3.0-or-later
#include "fingerprint/Verification.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace trackwise::fingerprint {

namespace {

/// A song with fewer peaks than this in the time of the query says nothing.
constexpr int fewestPeaks = 12;
/// More than these could overflow the sums of 16 bits (256 · 127); 15 s of a song have about as many.
constexpr int mostPeaks = 256;
/// A vote is exact to 128 ms: the best of the shifts by that many frames is the song's.
constexpr int ownShifts = 4;
/// From this many frames on a shift tells of chance only: notes last up to 0.2 s.
constexpr int chanceShifts = 12;
/// Added to spread and power, in the values of the query: where it has little to say, small numbers are not
/// to divide.
constexpr float leastSpread = 20;
constexpr float leastPower = 2000;
/// How the two measures go together: how far above chance, and which share of what there is.
constexpr float weightOfSurprise = 0.6F;
constexpr float weightOfShare = 0.4F;

/// Pitches that tell of the beat, in bins from a song's own: a peak has none beside it within six.
constexpr std::array otherPitches{-14, -12, -10, -8, 8, 10, 12, 14};

/// The share, without the beat's, that is no more than the beat brings along, and that which needs no doubt:
/// songs that are heard have 4 and more, others 2 at most.
constexpr float doubtfulShare = 2;
constexpr float certainShare = 6;

constexpr float speedStep = 0.005F;
constexpr int tempoSteps = 10;

/// For each shift the sum of what stands out at the peaks of a song.
struct Sums
{
    alignas(32) std::array<std::int16_t, shiftsRead> values{};
    float power = 0; ///< what the sum of as many values of the query varies by
    int peaks = 0;
};

/// Calls @p take with the bin and the frame of the query where each of the @p peaks should be.
template <typename Take>
void forEachPlace(const QueryRows &query, std::span<const KeptPeak> peaks, const Playing &playing,
                  Take &&take)
{
    const float middle = float(query.frames()) / 2;
    const float reach = middle * playing.tempo;
    const auto first = std::uint32_t(std::max(0.0F, std::floor(playing.middle - reach)));
    auto peak = std::lower_bound(peaks.begin(), peaks.end(), first,
                                 [](const KeptPeak &p, std::uint32_t frame) { return p.frame < frame; });
    for (int taken = 0; peak != peaks.end() && taken < mostPeaks; ++peak) {
        const auto frame =
            int(std::floor((float(peak->frame) - playing.middle) / playing.tempo + middle + 0.5F));
        const auto bin = int(std::lround(float(peak->bin) * playing.pitch));
        if (frame >= query.frames())
            break;
        if (frame < 0 || bin >= binCount)
            continue;
        take(bin, frame);
        ++taken;
    }
}

Sums sumsOf(const QueryRows &query, std::span<const KeptPeak> peaks, const Playing &playing)
{
    Sums sums;
    forEachPlace(query, peaks, playing, [&](int bin, int frame) {
        const std::int8_t *values = query.around(bin, frame);
        for (std::size_t i = 0; i < shiftsRead; ++i)
            sums.values[i] = std::int16_t(sums.values[i] + values[i]);
        sums.power += query.power(bin);
        ++sums.peaks;
    });
    return sums;
}

struct Chance
{
    float mean = 0;
    float deviation = 0;
};

Chance chanceIn(const Sums &sums)
{
    const auto own = sums.values.begin() + largestShift;
    std::int64_t sum = 0;
    std::int64_t squares = 0;
    constexpr int count = 2 * (largestShift - chanceShifts);
    for (int shift = chanceShifts + 1; shift <= largestShift; ++shift) {
        for (const std::int64_t value : {own[-shift], own[shift]}) {
            sum += value;
            squares += value * value;
        }
    }
    const double mean = double(sum) / count;
    const double variance = double(squares) / count - mean * mean;
    return {float(mean), float(std::sqrt(std::max(0.0, variance)))};
}

float scoreOf(float value, float mean, const Sums &sums, const Chance &chance)
{
    const float surprise = (value - mean) / (chance.deviation + leastSpread);
    const float share = value / std::sqrt(sums.power + leastPower);
    return weightOfSurprise * surprise + weightOfShare * share;
}

float doubtIn(float share)
{
    return std::clamp((certainShare - share) / (certainShare - doubtfulShare), 0.0F, 1.0F);
}

Agreement better(const Agreement &one, const Agreement &other)
{
    return other.score > one.score ? other : one;
}

} // namespace

Agreement agreement(const QueryRows &query, std::span<const KeptPeak> peaks, const Playing &playing)
{
    const Sums sums = sumsOf(query, peaks, playing);
    if (sums.peaks < fewestPeaks)
        return {};
    const auto own = sums.values.begin() + largestShift;
    const auto best = std::max_element(own - ownShifts, own + ownShifts + 1);
    const Chance chance = chanceIn(sums);
    Agreement result{scoreOf(*best, chance.mean, sums, chance), playing};
    // What is heard later than expected is an earlier place of the song.
    result.playing.middle -= float(best - own) * playing.tempo;
    return result;
}

Agreement bestSpeed(const QueryRows &query, std::span<const KeptPeak> peaks, const Playing &playing,
                    Speeds speeds)
{
    Agreement best;
    const int outermost = speeds == Speeds::Few ? 2 : 3;
    const int stride = speeds == Speeds::Few ? 2 : 1;
    for (int step = -outermost; step <= outermost; step += stride) {
        const float factor = 1 + float(step) * speedStep;
        best = better(
            best, agreement(query, peaks, {playing.middle, playing.tempo * factor, playing.pitch * factor}));
    }
    return best;
}

Agreement bestTempo(const QueryRows &query, std::span<const KeptPeak> peaks, const Playing &playing)
{
    Agreement best;
    for (int step = -tempoSteps; step <= tempoSteps; ++step) {
        const float factor = 1 + float(step) * speedStep;
        best = better(best, agreement(query, peaks, {playing.middle, playing.tempo * factor, playing.pitch}));
    }
    return best;
}

float scoreOfBeat(const QueryRows &query, std::span<const KeptPeak> peaks, const Playing &playing)
{
    int sum = 0;
    int count = 0;
    forEachPlace(query, peaks, playing, [&](int bin, int frame) {
        for (const int pitch : otherPitches) {
            if (bin + pitch < 0 || bin + pitch >= binCount)
                continue;
            sum += query.around(bin + pitch, frame)[largestShift];
            ++count;
        }
    });
    if (sum <= 0)
        return 0;
    const Sums sums = sumsOf(query, peaks, playing);
    const float beat = float(sum) / float(count) * float(sums.peaks);
    const float notes = (float(sums.values[largestShift]) - beat) / std::sqrt(sums.power + leastPower);
    return doubtIn(notes) * scoreOf(beat, 0, sums, chanceIn(sums));
}

} // namespace trackwise::fingerprint
