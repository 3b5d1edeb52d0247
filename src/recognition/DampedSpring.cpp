// SPDX-License-Identifier: GPL-3.0-or-later
#include "recognition/DampedSpring.h"

#include <cmath>

namespace trackwise {

namespace {

constexpr double settled = 0.001;

/// Of the swing's frequency to the undamped one, and of the first swing to the envelope around all of them.
double swing(double dampingRatio)
{
    return std::sqrt(1 - dampingRatio * dampingRatio);
}

} // namespace

// The swing lies within ±exp(−ζωt)/√(1−ζ²), which is to be `settled` at the end.
double DampedSpring::angularFrequency() const
{
    return -std::log(settled * swing(dampingRatio)) / (dampingRatio * duration);
}

// x″ + 2ζω x′ + ω²(x − 1) = 0 from x = 0, x′ = 0.
double DampedSpring::position(double time) const
{
    const double frequency = angularFrequency();
    const double decay = dampingRatio * frequency;
    const double swinging = swing(dampingRatio) * frequency;
    return 1 - std::exp(-decay * time) *
                   (std::cos(swinging * time) + decay / swinging * std::sin(swinging * time));
}

} // namespace trackwise
