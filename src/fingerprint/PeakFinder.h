// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "fingerprint/Peak.h"
#include "fingerprint/Row.h"

#include <vector>

namespace trackwise::fingerprint {

/// Finds the peaks of whitened rows: places that nothing exceeds within 48 ms and 6 bins (94 Hz), which is
/// what one note takes up in a spectrum of this resolution. A peak has a row before it and one behind it.
class PeakFinder
{
public:
    /// @p hop in samples: the time between the rows. @p threshold: the least strength of a peak.
    PeakFinder(int hop, float threshold);

    /// Takes the next row; peaks that are certain now go to the end of @p peaks, in the order of their rows.
    void push(Row row, std::vector<Peak> &peaks);
    /// Nothing follows any more.
    void finish(std::vector<Peak> &peaks);

private:
    std::size_t placeOf(int row) const;
    const float *values(int row) const;
    const float *greatest(int row) const;
    void settleNext(std::vector<Peak> &peaks);
    bool isGreatest(int row, int bin) const;
    Peak refined(int row, int bin) const;

    float m_framesPerRow;
    float m_threshold;
    int m_reach; ///< rows before and after
    std::vector<float>
        m_ring; ///< of the last 2 · m_reach + 1 rows: values, and the greatest around each of them
    int m_pushed = 0;
    int m_settled = 0;
};

} // namespace trackwise::fingerprint
