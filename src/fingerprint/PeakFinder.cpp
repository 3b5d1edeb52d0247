// SPDX-License-Identifier: GPL-3.0-or-later
#include "fingerprint/PeakFinder.h"

#include <algorithm>
#include <cmath>

namespace trackwise::fingerprint {

namespace {

constexpr float reachSeconds = 0.048f;
constexpr int reachBins = 6;
/// Bins in which a peak can be, and their neighbours: what is asked of a row.
constexpr int firstAsked = firstPeakBin - 1;
constexpr int lastAsked = lastPeakBin + 1;
static_assert(firstAsked >= reachBins && lastAsked + reachBins < binCount);

/// The greatest of each bin's neighbours up to reachBins away, by doubling: of 2, 4 and 8 neighbours, and 13
/// are eight at either end.
void greatestAround(const float *values, float *greatest)
{
    static_assert(reachBins == 6);
    float run[binCount];
    std::copy_n(values, binCount, run);
    for (const int distance : {1, 2, 4}) {
        for (int bin = 0; bin < binCount - distance; ++bin)
            run[bin] = std::max(run[bin], run[bin + distance]);
    }
    for (int bin = firstAsked; bin <= lastAsked; ++bin)
        greatest[bin] = std::max(run[bin - reachBins], run[bin - reachBins + 5]);
}

/// How far from the middle one of three values at the distance 1 a parabola through them is highest.
float summit(float before, float middle, float after)
{
    const float curvature = 2 * (2 * middle - before - after);
    return curvature > 1e-6f ? std::clamp((after - before) / curvature, -0.5f, 0.5f) : 0;
}

} // namespace

PeakFinder::PeakFinder(int hop, float threshold)
    : m_framesPerRow(float(hop) / songHop)
    , m_threshold(threshold)
    , m_reach(int(std::lround(reachSeconds * sampleRateHz / float(hop))))
    , m_ring(std::size_t(2 * m_reach + 1) * 2 * binCount)
{}

std::size_t PeakFinder::placeOf(int row) const
{
    return std::size_t(row % (2 * m_reach + 1)) * 2 * binCount;
}

const float *PeakFinder::values(int row) const
{
    return m_ring.data() + placeOf(row);
}

const float *PeakFinder::greatest(int row) const
{
    return values(row) + binCount;
}

void PeakFinder::push(Row row, std::vector<Peak> &peaks)
{
    float *place = m_ring.data() + placeOf(m_pushed);
    std::copy(row.begin(), row.end(), place);
    greatestAround(place, place + binCount);
    ++m_pushed;
    if (m_pushed > m_reach)
        settleNext(peaks);
}

void PeakFinder::finish(std::vector<Peak> &peaks)
{
    while (m_settled < m_pushed)
        settleNext(peaks);
}

void PeakFinder::settleNext(std::vector<Peak> &peaks)
{
    const int row = m_settled++;
    if (row == 0 || row == m_pushed - 1)
        return;
    const float *here = values(row);
    const float *around = greatest(row);
    for (int bin = firstPeakBin; bin <= lastPeakBin; ++bin) {
        if (here[bin] == around[bin] && here[bin] >= m_threshold && here[bin] > here[bin - 1] &&
            isGreatest(row, bin))
            peaks.push_back(refined(row, bin));
    }
}

// Of equal values next to one another the earliest and lowest is the peak.
bool PeakFinder::isGreatest(int row, int bin) const
{
    const float value = values(row)[bin];
    for (int other = std::max(0, row - m_reach); other < row; ++other) {
        if (greatest(other)[bin] >= value)
            return false;
    }
    for (int other = row + 1; other <= std::min(m_pushed - 1, row + m_reach); ++other) {
        if (greatest(other)[bin] > value)
            return false;
    }
    return true;
}

Peak PeakFinder::refined(int row, int bin) const
{
    const float *here = values(row);
    const float time = float(row) + summit(values(row - 1)[bin], here[bin], values(row + 1)[bin]);
    return {time * m_framesPerRow, float(bin) + summit(here[bin - 1], here[bin], here[bin + 1]), here[bin]};
}

} // namespace trackwise::fingerprint
