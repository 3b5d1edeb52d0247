// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <span>
#include <vector>

namespace trackwise::fingerprint {

using Sound = std::vector<float>; ///< mono, at the engine's rate

/// A piece for three voices and a drum, with chords, a tempo and a timbre of its own for each @p seed.
Sound piece(unsigned seed, double seconds);
/// White noise of the mean power @p power.
Sound noise(unsigned seed, std::size_t samples, double power);
double powerOf(std::span<const float> sound);

} // namespace trackwise::fingerprint
