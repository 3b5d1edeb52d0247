// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

namespace trackwise {

/// Processor time of the whole process, all threads.
[[nodiscard]] double cpuSeconds();
/// Processor time of the calling thread.
[[nodiscard]] double threadCpuSeconds();
/// Memory of the process that is in use now, with what it has mapped.
[[nodiscard]] double residentMegabytes();
/// The part of it that is this process's alone: without what is mapped from files.
[[nodiscard]] double privateMegabytes();
/// The most that it has been since the start.
[[nodiscard]] double peakMegabytes();
void printFigure(const std::string &name, double value, const char *unit);

} // namespace trackwise
