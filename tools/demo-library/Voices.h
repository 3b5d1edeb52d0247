// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

#include <vector>

namespace trackwise::demo {

constexpr int sampleRateHz = 44100;

/// One note of an instrument, as sound.
struct Tone
{
    double frequencyHz = 440;
    double seconds = 1; ///< until the key is released; the sound may ring on
    unsigned seed = 1;  ///< of the noise in it: the same seed gives the same sound
};

/// The sound of @p tone on the instrument of this name, mono at sampleRateHz, about -1 to 1. Throws
/// std::runtime_error when there is no such instrument.
[[nodiscard]] std::vector<float> play(const QString &instrument, const Tone &tone);

} // namespace trackwise::demo
