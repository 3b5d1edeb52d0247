// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QFile>

#include <algorithm>
#include <cstdio>
#include <ctime>
#include <vector>

namespace trackwise {

inline double percentile(std::vector<double> values, double share)
{
    if (values.empty())
        return 0;
    std::sort(values.begin(), values.end());
    return values.at(static_cast<size_t>(share * static_cast<double>(values.size() - 1)));
}

/// One line of a measure: name, value, unit.
inline void printFigure(const QByteArray &name, double value, const char *unit)
{
    std::printf("%s %.3f %s\n", name.constData(), value, unit);
}

inline void printTimes(const QByteArray &name, const std::vector<double> &milliseconds)
{
    printFigure(name + "_median", percentile(milliseconds, 0.5), "ms");
    printFigure(name + "_p99", percentile(milliseconds, 0.99), "ms");
    printFigure(name + "_most", percentile(milliseconds, 1), "ms");
}

/// Processor time of the calling thread, in milliseconds.
inline double threadTime()
{
    timespec time{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
    return static_cast<double>(time.tv_sec) * 1e3 + static_cast<double>(time.tv_nsec) / 1e6;
}

/// A field of this process's status in MiB: "VmRSS" now, "VmHWM" at most.
inline double memoryMiB(const char *field)
{
    QFile status(QStringLiteral("/proc/self/status"));
    if (!status.open(QIODevice::ReadOnly))
        return 0;
    for (const QByteArray &line : status.readAll().split('\n')) {
        if (line.startsWith(field))
            return line.mid(qsizetype(qstrlen(field)) + 1).simplified().split(' ').first().toDouble() / 1024;
    }
    return 0;
}

} // namespace trackwise
