// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <cmath>

namespace trackwise::fingerprint {

/// A place that stands out of its surroundings in a whitened spectrum.
struct Peak
{
    float time = 0;     ///< in frames of a song (16 ms), between them too
    float bin = 0;      ///< between bins too
    float strength = 0; ///< nepers above the surroundings
    friend bool operator==(const Peak &, const Peak &) = default;
};

/// Peaks are sought from 203 Hz, where small speakers begin to sound, to 5 kHz, where compressed music and
/// telephones have ended and cheap microphones have much noise.
inline constexpr int firstPeakBin = 13;
inline constexpr int lastPeakBin = 320;

/// The bands that share the peaks fairly, so that a loud one leaves some for the others, which may be all
/// that is left of them under speech or in a narrow channel.
inline constexpr int bandCount = 4;

/// The band, 0 to 3, of a place at @p bin. They meet at 470 Hz, 1.03 kHz and 2.27 kHz, about an octave each.
inline int bandOf(float bin)
{
    constexpr std::array<int, bandCount - 1> beginnings{30, 66, 145};
    const auto nearest = std::lround(bin);
    int band = 0;
    for (const int beginning : beginnings)
        band += nearest >= beginning ? 1 : 0;
    return band;
}

} // namespace trackwise::fingerprint
