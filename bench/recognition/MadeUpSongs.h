// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "fingerprint/Peak.h"

#include <cstdint>
#include <span>
#include <vector>

namespace trackwise::bench {

/// A song that nobody has heard, with the statistics of real ones: pieces of some seconds out of @p songs,
/// each a song's peaks in order, one behind the other, as long as one of them. All of it is 8 to 20 % higher
/// and 5 to 12 % slower, or lower and faster, so that it is not taken for what it is made of, whatever speed
/// that is played at. The same for the same @p number.
std::vector<fingerprint::Peak> madeUpSong(std::span<const std::vector<fingerprint::Peak>> songs,
                                          std::uint32_t number);

} // namespace trackwise::bench
