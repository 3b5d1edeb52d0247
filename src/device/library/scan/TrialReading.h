// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <chrono>
#include <functional>

namespace trackwise {

/// Whether @p read comes back: it is tried in a child process, which dies in our place where it does not, or
/// is ended after @p patience. Nothing when there can be no child. Blocks.
///
/// The child is a copy of this process with the calling thread alone: call it while no other thread is busy
/// with the same library that @p read uses, whose locks would stay taken.
enum class TrialResult { Returned, Died, NotTried };
[[nodiscard]] TrialResult tryInChild(const std::function<void()> &read, std::chrono::milliseconds patience);

} // namespace trackwise
