// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "fingerprint/Row.h"

#include <array>
#include <memory>

namespace trackwise::fingerprint {

/// Turns sound into rows of log magnitudes (in nepers), one every `hop` samples; the first covers the first
/// frameLength samples. The rows do not depend on how the sound is cut into pieces. Any value may stand in
/// the sound, NaN too: the rows stay finite. A copy goes on from where it was made, on the same thread.
class LogSpectrum
{
public:
    /// @p hop in samples, at most frameLength.
    explicit LogSpectrum(int hop);

    /// Takes the sound that follows; @p sink gets the rows which that completes.
    void push(std::span<const float> samples, const RowSink &sink);

private:
    struct Transform;

    void transform();

    std::shared_ptr<const Transform> m_transform;
    int m_hop;
    int m_filled = 0; ///< samples in m_frame
    std::array<float, frameLength> m_frame;
    std::array<float, binCount> m_row;
};

} // namespace trackwise::fingerprint
