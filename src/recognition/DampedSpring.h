// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace trackwise {

/// The way of something that a damped spring pulls from rest at 0 to rest at 1. The spring is as stiff as it
/// has to be for the swing to stay within a thousandth of the way once the duration is over.
struct DampedSpring
{
    double duration = 0;     ///< seconds
    double dampingRatio = 0; ///< above 0 and below 1: it swings over

    /// Undamped, in radians per second.
    [[nodiscard]] double angularFrequency() const;
    /// @p time in seconds since the start, without a velocity there.
    [[nodiscard]] double position(double time) const;
};

} // namespace trackwise
