// SPDX-License-Identifier: GPL-3.0-or-later
//
// microphone_figures SECONDS: how long it takes from the start of the default input to the first piece of
// sound, and what gets lost in so many seconds in which all processors are busy with something else.
#include "device/audio/Microphone.h"
#include "support/Figures.h"

#include <QSemaphore>

#include <algorithm>
#include <atomic>
#include <cstdio>
#include <cstdlib>
#include <thread>

using namespace trackwise;
using Clock = std::chrono::steady_clock;

namespace {

double millisecondsSince(Clock::time_point start)
{
    return std::chrono::duration<double, std::milli>(Clock::now() - start).count();
}

/// From the start to the first piece; -1 where there is none.
double timeToFirstPiece()
{
    Microphone microphone;
    QSemaphore first;
    std::atomic<double> time = -1;
    const auto start = Clock::now();
    microphone.start(
        defaultInputChoice,
        [&](const HeardSound &heard) {
            if (heard.time.count() == 0) {
                time = millisecondsSince(start);
                first.release();
            }
        },
        [&first](const Failure &) { first.release(); });
    first.acquire();
    return time;
}

void listenAmongBusyThreads(int seconds)
{
    std::atomic<bool> isOver = false;
    std::vector<std::jthread> busy;
    for (unsigned i = 0; i < 2 * std::thread::hardware_concurrency(); ++i)
        busy.emplace_back([&isOver] {
            while (!isOver) {
            }
        });
    Microphone microphone;
    std::atomic<double> heard = 0;
    double latest = 0;
    auto last = Clock::now();
    const auto start = Clock::now();
    microphone.start(
        defaultInputChoice,
        [&](const HeardSound &piece) {
            heard = heard + double(piece.samples.size()) / piece.rateHz;
            latest = std::max(latest, millisecondsSince(std::exchange(last, Clock::now())));
        },
        [](const Failure &failure) { std::fprintf(stderr, "%s\n", qPrintable(failure.detail)); });
    std::this_thread::sleep_for(std::chrono::seconds(seconds));
    const int overruns = microphone.overruns();
    const double time = millisecondsSince(start) / 1000;
    microphone.stop();
    isOver = true;
    printFigure("overruns", overruns, "times");
    printFigure("heard", 100 * heard / time, "% of the time");
    printFigure("latest_piece", latest, "ms");
}

} // namespace

int main(int count, char **arguments)
{
    if (count != 2) {
        std::fprintf(stderr, "usage: microphone_figures SECONDS\n");
        return 2;
    }
    std::vector<double> times(20);
    std::generate(times.begin(), times.end(), timeToFirstPiece);
    printTimes("first_piece", times);
    listenAmongBusyThreads(std::atoi(arguments[1]));
    return 0;
}
