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

constexpr float speedStep = 0.005F;
constexpr int tempoSteps = 10;

/// For each shift the sum of what stands out at the peaks of a song.
struct Sums
{
    alignas(32) std::array<std::int16_t, shiftsRead> values{};
    float power = 0; ///< what the sum of as many values of the query varies by
    int peaks = 0;
};

Sums sumsOf(const QueryRows &query, std::span<const KeptPeak> peaks, const Playing &playing)
{
    const float middle = float(query.frames()) / 2;
    const float reach = middle * playing.tempo;
    const auto first = std::uint32_t(std::max(0.0F, std::floor(playing.middle - reach)));
    auto peak = std::lower_bound(peaks.begin(), peaks.end(), first,
                                 [](const KeptPeak &p, std::uint32_t frame) { return p.frame < frame; });
    Sums sums;
    for (; peak != peaks.end() && sums.peaks < mostPeaks; ++peak) {
        const auto frame =
            int(std::floor((float(peak->frame) - playing.middle) / playing.tempo + middle + 0.5F));
        const auto bin = int(std::lround(float(peak->bin) * playing.pitch));
        if (frame >= query.frames())
            break;
        if (frame < 0 || bin >= binCount)
            continue;
        const std::int8_t *values = query.around(bin, frame);
        for (std::size_t i = 0; i < shiftsRead; ++i)
            sums.values[i] = std::int16_t(sums.values[i] + values[i]);
        sums.power += query.power(bin);
        ++sums.peaks;
    }
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
    const float surprise = (float(*best) - chance.mean) / (chance.deviation + leastSpread);
    const float share = float(*best) / std::sqrt(sums.power + leastPower);
    Agreement result{weightOfSurprise * surprise + weightOfShare * share, playing};
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

} // namespace trackwise::fingerprint
