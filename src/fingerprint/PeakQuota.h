// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "fingerprint/Peak.h"

#include <array>
#include <deque>
#include <vector>

namespace trackwise::fingerprint {

/// Lets the strongest peaks pass: those with fewer than `quota` stronger ones in their band, half a second
/// before and after. A window around each peak, and not one second after the other, so that the same peaks
/// pass wherever in the song one begins to listen.
class PeakQuota
{
public:
    explicit PeakQuota(int quota);

    /// Takes the next peak, in the order of a PeakFinder; those that are certain to pass go to the end of @p
    /// passed.
    void push(const Peak &peak, std::vector<Peak> &passed);
    /// Nothing follows any more.
    void finish(std::vector<Peak> &passed);

private:
    bool passes(const Peak &peak);

    int m_quota;
    std::deque<Peak> m_waiting;
    std::array<std::deque<Peak>, bandCount> m_bands; ///< what may count against those that wait, or come
};

} // namespace trackwise::fingerprint
