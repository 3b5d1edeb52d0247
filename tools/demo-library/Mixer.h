// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "Piece.h"

#include <vector>

namespace trackwise::demo {

/// The piece as sound: left and right by turns, at sampleRateHz, its loudest sample just below 1.
[[nodiscard]] std::vector<float> render(const Piece &piece);

} // namespace trackwise::demo
