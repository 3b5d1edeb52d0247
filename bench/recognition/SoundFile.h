// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <vector>

namespace trackwise::bench {

/// The first stream of sound of the file @p path, mono at the engine's rate; empty where it has none that can
/// be read, or nothing before what is broken in it.
std::vector<float> soundOf(const std::string &path);

} // namespace trackwise::bench
