// SPDX-License-Identifier: GPL-3.0-or-later
#include "fingerprint/Query.h"

#include "fingerprint/PeakExtractor.h"

#include <algorithm>

namespace trackwise::fingerprint {

namespace {

/// What is beyond says no more than this: one loud click is not to outweigh a tune. Nepers.
constexpr float lowest = -1.5F;
constexpr float highest = 2.5F;
/// The spread that a bin is scaled to, of ±127 that there are: beyond it lie four of these.
constexpr float spread = 32;
/// A bin that is all but still is not blown up: as if it had this variance more.
constexpr float leastVariance = 0.1F;

struct Scaling
{
    float mean = 0;
    float gain = 0;
};

Scaling scalingOf(std::span<const float> values)
{
    double sum = 0;
    double squares = 0;
    for (const float value : values) {
        sum += value;
        squares += double(value) * value;
    }
    const double mean = sum / double(values.size());
    const double variance = squares / double(values.size()) - mean * mean;
    return {float(mean), spread / std::sqrt(float(variance) + leastVariance)};
}

std::int8_t scaled(float value, const Scaling &scaling)
{
    return std::int8_t(std::lround(std::clamp((value - scaling.mean) * scaling.gain, -127.0F, 127.0F)));
}

float meanSquare(const std::int8_t *values, int count)
{
    int sum = 0;
    for (int i = 0; i < count; ++i)
        sum += values[i] * values[i];
    return float(sum) / float(count);
}

} // namespace

QueryRows::QueryRows(std::span<const float> rows)
    : m_frames(int(rows.size() / binCount))
    , m_stride(std::size_t(m_frames) + shiftsRead)
    , m_values(m_stride * binCount)
    , m_powers(binCount)
{
    if (m_frames == 0)
        return;
    std::vector<float> values(static_cast<std::size_t>(m_frames));
    for (std::size_t bin = 0; bin < binCount; ++bin) {
        for (std::size_t frame = 0; frame < values.size(); ++frame)
            values[frame] = std::clamp(rows[frame * binCount + bin], lowest, highest);
        const Scaling scaling = scalingOf(values);
        std::int8_t *row = m_values.data() + bin * m_stride;
        std::int8_t *sound = row + largestShift;
        std::transform(values.begin(), values.end(), sound, [&](float v) { return scaled(v, scaling); });
        for (int i = m_frames; i < int(m_stride) - largestShift; ++i)
            sound[i] = sound[i - m_frames];
        for (int i = -1; i >= -largestShift; --i)
            sound[i] = sound[i + m_frames];
        m_powers[bin] = meanSquare(sound, m_frames);
    }
}

Query Query::of(std::span<const float> samples)
{
    std::vector<Peak> peaks;
    std::vector<float> rows;
    bool isWhole = false; // every other row of a query begins where a frame does
    const RowSink keep = [&](Row row) {
        isWhole = !isWhole;
        if (isWhole)
            rows.insert(rows.end(), row.begin(), row.end());
    };
    PeakExtractor extractor(queryDensity);
    extractor.push(samples.first(std::min(samples.size(), longestQuery)), peaks, keep);
    extractor.finish(peaks, keep);
    return {std::move(peaks), QueryRows(rows)};
}

} // namespace trackwise::fingerprint
