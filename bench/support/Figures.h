// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <vector>

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
/// The value that @p share of them, 0 to 1, do not exceed.
[[nodiscard]] double percentile(std::vector<double> values, double share);
/// The median, the 99th percentile and the greatest of times in milliseconds.
void printTimes(const std::string &name, const std::vector<double> &times);

} // namespace trackwise
