// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "fingerprint/SongLine.h"

#include <span>
#include <vector>

namespace trackwise::fingerprint {

/// The peaks of a song in some 12 bits each: the step from the frame before, and the bin. Blocks of 128 can
/// be unpacked alone.
///
/// The bytes: the number of peaks and that of the lower bits of a step (4 bytes each); for each block its
/// first frame and where its bits begin (4 bytes each, bits behind these tables); the bits.
[[nodiscard]] std::vector<std::uint8_t> packedPeaks(std::span<const KeptPeak> peaks);

/// Puts the peaks from frame @p first on, and before frame @p last, to the end of @p out. The bytes may be
/// anything; bitPadding follows them.
void unpackPeaks(std::span<const std::uint8_t> packed, float first, float last, std::vector<KeptPeak> &out);

} // namespace trackwise::fingerprint
