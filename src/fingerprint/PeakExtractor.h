// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "fingerprint/LogSpectrum.h"
#include "fingerprint/PeakFinder.h"
#include "fingerprint/PeakQuota.h"
#include "fingerprint/Whitening.h"

namespace trackwise::fingerprint {

/// How closely sound is looked at.
struct PeakDensity
{
    int hop = 0;         ///< samples
    float threshold = 0; ///< nepers above the surroundings
    int quota = 0;       ///< peaks a band, in a second
};

/// What is kept of a song: about 15.7 peaks a second, a size that fits a library.
inline constexpr PeakDensity songDensity{songHop, 1.0F, 4};
/// What is asked with: up to 92 peaks a second. Under noise most of them are the noise's, and the song's few
/// must be among them; that costs a query nothing but time.
inline constexpr PeakDensity queryDensity{queryHop, 0.8F, 23};

/// The road from sound to peaks: spectrum, whitening, maxima, quota. Holds about two seconds of it at any
/// time, however long the sound is; the peaks do not depend on how it is cut into pieces. A copy goes on from
/// where it was made, on the same thread.
class PeakExtractor
{
public:
    explicit PeakExtractor(const PeakDensity &density);

    /// Takes the sound that follows; peaks that are certain now go to the end of @p peaks, in the order of
    /// their rows, and whitened rows to @p rows where somebody wants them.
    void push(std::span<const float> samples, std::vector<Peak> &peaks, const RowSink &rows = {});
    /// Nothing follows any more.
    void finish(std::vector<Peak> &peaks, const RowSink &rows = {});

private:
    void take(Row whitened, std::vector<Peak> &peaks, const RowSink &rows);
    void passOn(std::vector<Peak> &peaks);

    LogSpectrum m_spectrum;
    Whitening m_whitening;
    PeakFinder m_finder;
    PeakQuota m_quota;
    std::vector<Peak> m_found; ///< of the row at hand; kept for its memory
};

/// The peaks of a whole piece of sound.
std::vector<Peak> peaksOf(std::span<const float> samples, const PeakDensity &density);

} // namespace trackwise::fingerprint
