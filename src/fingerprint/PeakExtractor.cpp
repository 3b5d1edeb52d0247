// SPDX-License-Identifier: GPL-3.0-or-later
#include "fingerprint/PeakExtractor.h"

namespace trackwise::fingerprint {

PeakExtractor::PeakExtractor(const PeakDensity &density)
    : m_spectrum(density.hop)
    , m_whitening(density.hop)
    , m_finder(density.hop, density.threshold)
    , m_quota(density.quota)
{}

void PeakExtractor::push(std::span<const float> samples, std::vector<Peak> &peaks, const RowSink &rows)
{
    const RowSink whitened = [&](Row row) { take(row, peaks, rows); };
    m_spectrum.push(samples, [&](Row row) { m_whitening.push(row, whitened); });
}

void PeakExtractor::finish(std::vector<Peak> &peaks, const RowSink &rows)
{
    m_whitening.finish([&](Row row) { take(row, peaks, rows); });
    m_finder.finish(m_found);
    passOn(peaks);
    m_quota.finish(peaks);
}

void PeakExtractor::take(Row whitened, std::vector<Peak> &peaks, const RowSink &rows)
{
    if (rows)
        rows(whitened);
    m_finder.push(whitened, m_found);
    passOn(peaks);
}

void PeakExtractor::passOn(std::vector<Peak> &peaks)
{
    for (const Peak &peak : m_found)
        m_quota.push(peak, peaks);
    m_found.clear();
}

std::vector<Peak> peaksOf(std::span<const float> samples, const PeakDensity &density)
{
    PeakExtractor extractor(density);
    std::vector<Peak> peaks;
    extractor.push(samples, peaks);
    extractor.finish(peaks);
    return peaks;
}

} // namespace trackwise::fingerprint
