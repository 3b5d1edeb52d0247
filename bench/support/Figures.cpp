// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/Figures.h"

#include <algorithm>
#include <cstdio>
#include <ctime>
#include <fstream>

namespace trackwise {

namespace {
double statusMegabytes(const std::string &key)
{
    std::ifstream status("/proc/self/status");
    std::string word;
    while (status >> word) {
        double kilobytes = 0;
        if (word == key + ':' && status >> kilobytes)
            return kilobytes / 1024;
    }
    return 0;
}

double clockSeconds(clockid_t clock)
{
    timespec now = {};
    clock_gettime(clock, &now);
    return static_cast<double>(now.tv_sec) + static_cast<double>(now.tv_nsec) / 1e9;
}
} // namespace

double cpuSeconds()
{
    return clockSeconds(CLOCK_PROCESS_CPUTIME_ID);
}

double threadCpuSeconds()
{
    return clockSeconds(CLOCK_THREAD_CPUTIME_ID);
}

double residentMegabytes()
{
    return statusMegabytes("VmRSS");
}

double privateMegabytes()
{
    return statusMegabytes("RssAnon");
}

double peakMegabytes()
{
    return statusMegabytes("VmHWM");
}

void printFigure(const std::string &name, double value, const char *unit)
{
    std::printf("%s %.4g %s\n", name.c_str(), value, unit);
    std::fflush(stdout);
}

double percentile(std::vector<double> values, double share)
{
    if (values.empty())
        return 0;
    std::ranges::sort(values);
    return values.at(static_cast<std::size_t>(share * static_cast<double>(values.size() - 1)));
}

void printTimes(const std::string &name, const std::vector<double> &times)
{
    printFigure(name + "_median", percentile(times, 0.5), "ms");
    printFigure(name + "_p99", percentile(times, 0.99), "ms");
    printFigure(name + "_most", percentile(times, 1), "ms");
}

} // namespace trackwise
