// SPDX-License-Identifier: GPL-3.0-or-later
#include "fingerprint/PeakQuota.h"

#include "fingerprint/Row.h"

namespace trackwise::fingerprint {

namespace {

constexpr float reach = 0.5f * framesPerSecond;
/// Peaks come by rows, and each may lie up to half a row before or behind its own.
constexpr float disorder = 1;

} // namespace

PeakQuota::PeakQuota(int quota)
    : m_quota(quota)
{}

void PeakQuota::push(const Peak &peak, std::vector<Peak> &passed)
{
    m_waiting.push_back(peak);
    m_bands[bandOf(peak.bin)].push_back(peak);
    while (m_waiting.front().time + reach + disorder < peak.time) {
        if (passes(m_waiting.front()))
            passed.push_back(m_waiting.front());
        m_waiting.pop_front();
    }
}

void PeakQuota::finish(std::vector<Peak> &passed)
{
    for (const Peak &peak : m_waiting) {
        if (passes(peak))
            passed.push_back(peak);
    }
    m_waiting.clear();
}

bool PeakQuota::passes(const Peak &peak)
{
    std::deque<Peak> &band = m_bands[bandOf(peak.bin)];
    while (band.front().time < peak.time - reach - disorder)
        band.pop_front(); // never the peak itself
    int stronger = 0;
    for (const Peak &other : band) {
        if (other.time > peak.time + reach + disorder)
            break;
        if (other.strength > peak.strength && std::abs(other.time - peak.time) <= reach &&
            ++stronger == m_quota)
            return false;
    }
    return true;
}

} // namespace trackwise::fingerprint
