// SPDX-License-Identifier: GPL-3.0-or-later
#include "fingerprint/Whitening.h"

#include <algorithm>
#include <cmath>

namespace trackwise::fingerprint {

namespace {

constexpr float reachSeconds = 0.48f;
constexpr int reachBins = 20;
constexpr int boxBins = 2 * reachBins + 1;

/// The sum of each bin with its neighbours. Sums of 2, 4, … 32 neighbours are made of one another in loops
/// without a chain of additions; 32 + 8 + 1 are the 41 of the box.
std::array<float, binCount> boxSums(const std::array<float, binCount> &values)
{
    static_assert(boxBins == 32 + 8 + 1);
    constexpr int padded = binCount + 2 * reachBins;
    std::array<float, padded + 32> single{};
    std::copy(values.begin(), values.end(), single.begin() + reachBins);
    std::array<float, padded + 32> sums = single;
    std::array<float, padded> ofEight{};
    const auto doubled = [&sums](int distance) {
        for (int i = 0; i < padded; ++i)
            sums[i] += sums[i + distance]; // reads only what is not yet doubled
    };
    doubled(1);
    doubled(2);
    doubled(4);
    std::copy_n(sums.begin(), padded, ofEight.begin());
    doubled(8);
    doubled(16);
    std::array<float, binCount> box;
    for (int bin = 0; bin < binCount; ++bin)
        box[bin] = sums[bin] + ofEight[bin + 32] + single[bin + 40];
    return box;
}

} // namespace

Whitening::Whitening(int hop)
    : m_reach(int(std::lround(reachSeconds * sampleRateHz / float(hop))))
    , m_rows(std::size_t(2 * m_reach + 1) * binCount)
{
    for (int bin = 0; bin < binCount; ++bin)
        m_shares[bin] = 1 / float(std::min(binCount, bin + reachBins + 1) - std::max(0, bin - reachBins));
}

float *Whitening::slot(int row)
{
    return m_rows.data() + std::size_t(row % (2 * m_reach + 1)) * binCount;
}

void Whitening::leave(int row)
{
    if (row < 0)
        return;
    const float *values = slot(row);
    for (int bin = 0; bin < binCount; ++bin)
        m_sums[bin] -= values[bin];
}

void Whitening::push(Row row, const RowSink &sink)
{
    leave(m_pushed - (2 * m_reach + 1));
    float *values = slot(m_pushed);
    for (int bin = 0; bin < binCount; ++bin) {
        values[bin] = row[bin];
        m_sums[bin] += row[bin];
    }
    ++m_pushed;
    if (m_pushed > m_reach)
        emitNext(sink);
}

void Whitening::finish(const RowSink &sink)
{
    while (m_emitted < m_pushed) {
        leave(m_emitted - m_reach - 1);
        emitNext(sink);
    }
}

void Whitening::emitNext(const RowSink &sink)
{
    const int first = std::max(0, m_emitted - m_reach);
    const int last = std::min(m_pushed - 1, m_emitted + m_reach);
    const float share = 1 / float(last - first + 1);
    const auto sums = boxSums(m_sums);
    const float *values = slot(m_emitted);
    std::array<float, binCount> whitened;
    for (int bin = 0; bin < binCount; ++bin)
        whitened[bin] = values[bin] - sums[bin] * m_shares[bin] * share;
    ++m_emitted;
    sink(whitened);
}

} // namespace trackwise::fingerprint
