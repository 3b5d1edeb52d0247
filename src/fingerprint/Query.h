// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "fingerprint/PeakExtractor.h"

#include <cstdint>

namespace trackwise::fingerprint {

/// How far, in frames, what is heard is shifted against a song to learn which agreement chance brings: 1.3 s.
inline constexpr int largestShift = 80;
/// What is read from largestShift before a frame: all shifts, and some more for whole vector registers.
inline constexpr int shiftsRead = 176;
static_assert(shiftsRead > 2 * largestShift && shiftsRead % 16 == 0);

/// The longest sound that is looked up: 15 s. What has not been named by then never will be.
inline constexpr std::size_t longestQuery = std::size_t(15) * sampleRateHz;
inline constexpr int longestQueryFrames = int(longestQuery / songHop);

/// What stands out when in each bin of what is heard, small enough to be compared with hundreds of songs.
/// Each bin is freed of its mean and scaled by its spread, so that none outweighs the others; sound goes on
/// from its beginning behind its end, and from its end before its beginning.
class QueryRows
{
public:
    QueryRows();

    /// Adds a whitened row, one a frame; what follows longestQueryFrames is left out.
    void append(Row row);
    /// Forgets what was appended behind the first @p frames.
    void truncate(int frames) { m_appended = std::min(m_appended, frames); }
    /// Makes what follows tell of the rows that are there now.
    void settle();

    [[nodiscard]] int frames() const { return m_frames; }
    [[nodiscard]] int appended() const { return m_appended; }
    /// The values of @p bin from largestShift before @p frame on, which is one of the frames(): shiftsRead of
    /// them.
    [[nodiscard]] const std::int8_t *around(int bin, int frame) const
    {
        return m_values.data() + std::size_t(bin) * stride + std::size_t(frame);
    }
    /// The mean square of the values of @p bin.
    [[nodiscard]] float power(int bin) const { return m_powers[std::size_t(bin)]; }

private:
    static constexpr std::size_t stride = longestQueryFrames + shiftsRead;

    int m_appended = 0;
    int m_frames = 0;
    std::vector<float> m_whitened; ///< for each bin its values, one behind the other
    std::vector<std::int8_t> m_values;
    std::vector<float> m_powers;
};

/// Some seconds of sound, made ready to be looked up while they come in. One thread.
class Query
{
public:
    Query();

    /// Adds the sound that follows; what goes beyond longestQuery is left out.
    void push(std::span<const float> samples);

    /// Whether more sound may follow what is there.
    enum class Ending { Open, Final };
    /// Makes peaks() and rows() tell of all the sound that is there. Which peaks stand out towards its very
    /// end is not certain before some more follows; those that were told once stay, so that they need be
    /// looked up once only.
    void settle(Ending ending);

    /// In queryDensity, in the order of time but for a row. Only ever added to.
    [[nodiscard]] std::span<const Peak> peaks() const { return m_peaks; }
    [[nodiscard]] const QueryRows &rows() const { return m_rows; }
    /// The strongest of them: 56 a second at most. Where most of the song is heard they are enough.
    [[nodiscard]] std::span<const Peak> strongPeaks() const { return m_strongPeaks; }
    /// The length and the middle of the sound, in frames, as of the last settle().
    [[nodiscard]] int frames() const { return m_rows.frames(); }
    [[nodiscard]] float middle() const { return float(frames()) / 2; }
    /// Of all that was pushed.
    [[nodiscard]] float seconds() const { return float(m_samples) / float(sampleRateHz); }

private:
    void accept(std::span<const Peak> peaks, float until);
    RowSink rowSink(bool &isSongRow);

    PeakExtractor m_extractor;
    std::size_t m_samples = 0;
    bool m_isSongRow = true;     ///< whether the next row begins where one of a song does: every other one
    std::vector<Peak> m_certain; ///< that came since the last settle()
    std::vector<Peak> m_peaks;
    PeakQuota m_strongQuota;
    std::vector<Peak> m_strongPeaks;
    float m_accepted = -1; ///< up to here, in frames, peaks are told
    QueryRows m_rows;
};

} // namespace trackwise::fingerprint
