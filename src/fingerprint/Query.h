// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "fingerprint/Peak.h"
#include "fingerprint/Row.h"

#include <cstdint>
#include <vector>

namespace trackwise::fingerprint {

/// How far, in frames, what is heard is shifted against a song to learn which agreement chance brings: 1.3 s.
inline constexpr int largestShift = 80;
/// What is read from largestShift before a frame: all shifts, and some more for whole vector registers.
inline constexpr int shiftsRead = 176;
static_assert(shiftsRead > 2 * largestShift && shiftsRead % 16 == 0);

/// What stands out when in each bin of what is heard, small enough to be compared with hundreds of songs.
/// Each bin is freed of its mean and scaled by its spread, so that none outweighs the others; sound goes on
/// from its beginning behind its end, and from its end before its beginning.
class QueryRows
{
public:
    /// @p rows: whitened rows, one a frame, binCount values each.
    explicit QueryRows(std::span<const float> rows);

    [[nodiscard]] int frames() const { return m_frames; }
    /// The values of @p bin from largestShift before @p frame on, which is one of the frames(): shiftsRead of
    /// them.
    [[nodiscard]] const std::int8_t *around(int bin, int frame) const
    {
        return m_values.data() + std::size_t(bin) * m_stride + std::size_t(frame);
    }
    /// The mean square of the values of @p bin.
    [[nodiscard]] float power(int bin) const { return m_powers[std::size_t(bin)]; }

private:
    int m_frames = 0;
    std::size_t m_stride = 0;
    std::vector<std::int8_t> m_values;
    std::vector<float> m_powers;
};

/// The samples of the longest sound that is asked for: 15 s. What has not been named by then never will be.
inline constexpr std::size_t longestQuery = std::size_t(15) * sampleRateHz;

/// Some seconds of sound, ready to be asked for.
struct Query
{
    std::vector<Peak> peaks; ///< in queryDensity
    QueryRows rows;

    /// What of @p samples follows longestQuery is left out.
    static Query of(std::span<const float> samples);
    /// The middle of the sound, in frames.
    [[nodiscard]] float middle() const { return float(rows.frames()) / 2; }
};

} // namespace trackwise::fingerprint
