// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "fingerprint/Row.h"

#include <array>
#include <vector>

namespace trackwise::fingerprint {

/// Takes from each value of a log spectrum the mean of its surroundings, 0.48 s before and after and 20 bins
/// (312 Hz) below and above; at the edges, of what there is of them. What remains is how far a place stands
/// out, whatever the loudness, the microphone's colour or steady noise, which are all that a mean of this
/// size follows.
class Whitening
{
public:
    /// @p hop in samples: the time between the rows.
    explicit Whitening(int hop);

    /// Takes the next row; @p sink gets the row that now has all its surroundings, if one has.
    void push(Row row, const RowSink &sink);
    /// Nothing follows any more: @p sink gets the rows that still wait for it.
    void finish(const RowSink &sink);

private:
    float *slot(int row);
    void leave(int row);
    void emitNext(const RowSink &sink);

    int m_reach;                            ///< rows before and after
    std::vector<float> m_rows;              ///< a ring of the last 2 · m_reach + 1
    std::array<float, binCount> m_sums{};   ///< of the rows around the next one to be emitted, for each bin
    std::array<float, binCount> m_shares{}; ///< of one bin in the mean over its neighbours
    int m_pushed = 0;
    int m_emitted = 0;
};

} // namespace trackwise::fingerprint
