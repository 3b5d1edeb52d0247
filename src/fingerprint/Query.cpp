// SPDX-License-Identifier: GPL-3.0-or-later
#include "fingerprint/Query.h"

#include <algorithm>
#include <limits>
#include <utility>

namespace trackwise::fingerprint {

namespace {

/// What is beyond says no more than this: one loud click is not to outweigh a tune. Nepers.
constexpr float lowest = -1.5F;
constexpr float highest = 2.5F;
/// The spread that a bin is scaled to, of ±127 that there are: beyond it lie four of these.
constexpr float spread = 32;
/// A bin that is all but still is not blown up: as if it had this variance more.
constexpr float leastVariance = 0.1F;
/// How far before the end of the sound peaks are told of, in frames: nearer they would often be others with a
/// little more sound.
constexpr float uncertainEnd = 8;

/// In a second.
constexpr int strongPeaksOfBand = 14;

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
        sum += double(value);
        squares += double(value) * double(value);
    }
    const double mean = sum / double(values.size());
    const double variance = squares / double(values.size()) - mean * mean;
    return {float(mean), spread / std::sqrt(float(variance) + leastVariance)};
}

std::int8_t scaled(float value, const Scaling &scaling)
{
    // Rounds as std::lround does, but in a loop that is vectorised.
    const float wanted = std::clamp((value - scaling.mean) * scaling.gain, -127.0F, 127.0F);
    return std::int8_t(int(wanted + 128.5F) - 128);
}

float meanSquare(const std::int8_t *values, int count)
{
    int sum = 0;
    for (int i = 0; i < count; ++i)
        sum += values[i] * values[i];
    return float(sum) / float(count);
}

} // namespace

QueryRows::QueryRows()
    : m_whitened(std::size_t(binCount) * longestQueryFrames)
    , m_values(stride * binCount)
    , m_powers(binCount)
{}

void QueryRows::append(Row row)
{
    if (m_appended == longestQueryFrames)
        return;
    for (std::size_t bin = 0; bin < binCount; ++bin)
        m_whitened[bin * longestQueryFrames + std::size_t(m_appended)] =
            std::clamp(row[bin], lowest, highest);
    ++m_appended;
}

void QueryRows::settle()
{
    m_frames = m_appended;
    if (m_frames == 0)
        return;
    const auto frames = std::size_t(m_frames);
    for (std::size_t bin = 0; bin < binCount; ++bin) {
        const std::span values(m_whitened.data() + bin * longestQueryFrames, frames);
        const Scaling scaling = scalingOf(values);
        std::int8_t *row = m_values.data() + bin * stride;
        std::int8_t *sound = row + largestShift;
        for (std::size_t i = 0; i < frames; ++i)
            sound[i] = scaled(values[i], scaling);
        for (std::size_t i = frames; i < frames + shiftsRead - largestShift; ++i)
            sound[i] = sound[i - frames];
        for (int i = -1; i >= -largestShift; --i)
            sound[i] = sound[i + m_frames];
        m_powers[bin] = meanSquare(sound, m_frames);
    }
}

Query::Query()
    : m_extractor(queryDensity)
    , m_strongQuota(strongPeaksOfBand)
{}

RowSink Query::rowSink(bool &isSongRow)
{
    return [this, &isSongRow](Row row) {
        if (isSongRow)
            m_rows.append(row);
        isSongRow = !isSongRow;
    };
}

void Query::push(std::span<const float> samples)
{
    const auto taken = samples.first(std::min(samples.size(), longestQuery - m_samples));
    m_samples += taken.size();
    m_extractor.push(taken, m_certain, rowSink(m_isSongRow));
}

void Query::settle(Ending ending)
{
    const int certainRows = m_rows.appended();
    bool isSongRow = m_isSongRow;
    PeakExtractor atTheEnd = m_extractor;
    std::vector<Peak> peaks = std::exchange(m_certain, {});
    atTheEnd.finish(peaks, rowSink(isSongRow));
    m_rows.settle();
    m_rows.truncate(certainRows);
    accept(peaks, ending == Ending::Final ? std::numeric_limits<float>::max()
                                          : float(m_rows.frames()) - uncertainEnd);
    if (ending == Ending::Final)
        m_strongQuota.finish(m_strongPeaks);
}

void Query::accept(std::span<const Peak> peaks, float until)
{
    if (until <= m_accepted)
        return;
    for (const Peak &peak : peaks) {
        if (peak.time > m_accepted && peak.time <= until) {
            m_peaks.push_back(peak);
            m_strongQuota.push(peak, m_strongPeaks);
        }
    }
    m_accepted = until;
}

} // namespace trackwise::fingerprint
