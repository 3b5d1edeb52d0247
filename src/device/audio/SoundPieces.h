// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "device/audio/Microphone.h"

#include <array>

namespace trackwise {

/// Makes pieces of one length and one channel of what comes from inputs, and tells when they were heard.
/// Takes no memory while it does. One thread.
class SoundPieces
{
public:
    explicit SoundPieces(Microphone::Tap tap);

    /// Sound of @p rateHz and @p channels comes from now on; what was no whole piece is dropped.
    void begin(int rateHz, int channels);
    /// @p sound: one value for each channel of the first frame, then of the next; nothing where it was lost.
    void take(const float *sound, std::size_t frames);
    /// Whether any sound came yet, from whichever input.
    [[nodiscard]] bool hasBegun() const { return m_first.has_value(); }
    /// The greatest magnitude in the last piece.
    [[nodiscard]] float level() const { return m_level; }

private:
    using Clock = std::chrono::steady_clock;
    void passOn();

    Microphone::Tap m_tap;
    int m_rateHz = 0;
    int m_channels = 0;
    std::array<float, Microphone::samplesOfPiece> m_samples{};
    std::size_t m_count = 0;
    float m_level = 0;
    std::optional<Clock::time_point> m_first;     ///< when the first sound of all came
    std::optional<Clock::duration> m_inputsFirst; ///< and the first of this input, after that
    std::int64_t m_framesPassedOn = 0;            ///< of this input
};

} // namespace trackwise
