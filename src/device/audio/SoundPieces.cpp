// SPDX-License-Identifier: GPL-3.0-or-later
#include "device/audio/SoundPieces.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace trackwise {

SoundLevel levelOf(std::span<const float> samples, int rateHz)
{
    SoundLevel level{.duration = std::chrono::microseconds(std::int64_t(samples.size()) * 1000000 / rateHz)};
    for (const float sample : samples)
        level.peak = std::max(level.peak, std::abs(sample));
    return level;
}

SoundPieces::SoundPieces(Microphone::Tap tap)
    : m_tap(std::move(tap))
{}

void SoundPieces::begin(int rateHz, int channels)
{
    m_rateHz = rateHz;
    m_channels = channels;
    m_count = 0;
    m_inputsFirst.reset();
    m_framesPassedOn = 0;
}

void SoundPieces::take(const float *sound, std::size_t frames)
{
    if (!m_inputsFirst) {
        const auto now = Clock::now();
        m_inputsFirst = now - m_first.value_or(now);
        m_first = m_first.value_or(now);
    }
    for (std::size_t frame = 0; frame < frames; ++frame) {
        float sum = 0;
        for (int channel = 0; sound && channel < m_channels; ++channel)
            sum += *sound++;
        m_samples[m_count++] = sum / float(m_channels);
        if (m_count == m_samples.size())
            passOn();
    }
}

void SoundPieces::passOn()
{
    m_level = levelOf(m_samples, m_rateHz).peak;
    const auto before = std::chrono::microseconds(m_framesPassedOn * 1000000 / m_rateHz);
    m_tap({m_samples, m_rateHz,
           std::chrono::duration_cast<std::chrono::microseconds>(*m_inputsFirst) + before});
    m_framesPassedOn += std::int64_t(m_count);
    m_count = 0;
}

} // namespace trackwise
