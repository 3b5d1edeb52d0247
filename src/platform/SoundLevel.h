// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <algorithm>
#include <chrono>
#include <cmath>

namespace trackwise {

/// How loud a piece of sound is that has just come in.
struct SoundLevel
{
    float peak = 0; ///< the greatest magnitude; full scale is 1
    std::chrono::microseconds duration{};

    friend bool operator==(const SoundLevel &, const SoundLevel &) = default;
};

/// Shows an input's level: rises at once, falls slowly enough for eyes. The sound's own time counts.
class SoundMeter
{
public:
    void hear(const SoundLevel &level)
    {
        const double time = std::chrono::duration<double>(level.duration).count();
        m_fullness = std::max(fullnessOf(level.peak), m_fullness - time / timeOfFall.count());
        m_silence = level.peak < leastStep ? m_silence + level.duration : std::chrono::microseconds();
    }
    /// From 0, which is below quiet rooms, to 1, which is full scale.
    [[nodiscard]] double fullness() const { return m_fullness; }
    /// Digital silence has come in for so long that something must be switched off.
    [[nodiscard]] bool isSilent() const { return m_silence >= longEnough; }

    static constexpr std::chrono::seconds longEnough{3};

private:
    static double fullnessOf(float peak)
    {
        return peak > 0 ? std::clamp(1 - 20 * std::log10(double(peak)) / quietestDb, 0.0, 1.0) : 0;
    }

    static constexpr double quietestDb = -60;
    static constexpr float leastStep = 1.0F / 32768; ///< of 16 bits; no microphone is as quiet
    static constexpr std::chrono::duration<double> timeOfFall{0.8};

    double m_fullness = 0;
    std::chrono::microseconds m_silence{};
};

} // namespace trackwise
