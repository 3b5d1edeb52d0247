// SPDX-License-Identifier: GPL-3.0-or-later
#include "device/library/scan/TrialReading.h"

#include <fcntl.h>
#include <poll.h>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <csignal>

namespace trackwise {

namespace {
[[noreturn]] void beChild(const std::function<void()> &read, int answer)
{
    prctl(PR_SET_PDEATHSIG, SIGKILL);
    const rlimit none{0, 0};
    setrlimit(RLIMIT_CORE, &none);
    // A crash is expected here, and nobody's business.
    for (const int signal : {SIGSEGV, SIGABRT, SIGBUS, SIGFPE, SIGILL, SIGTERM, SIGINT})
        std::signal(signal, SIG_DFL);
    read();
    const char returned = 1;
    (void)!write(answer, &returned, sizeof(returned));
    _exit(0);
}

bool answersIn(int answer, std::chrono::milliseconds patience)
{
    const auto end = std::chrono::steady_clock::now() + patience;
    pollfd waiting{answer, POLLIN, 0};
    for (;;) {
        const auto left =
            std::chrono::duration_cast<std::chrono::milliseconds>(end - std::chrono::steady_clock::now());
        const int ready = poll(&waiting, 1, static_cast<int>(std::max<std::int64_t>(left.count(), 0)));
        if (ready < 0 && errno == EINTR)
            continue;
        char returned = 0;
        return ready > 0 && ::read(answer, &returned, sizeof(returned)) == sizeof(returned);
    }
}
} // namespace

TrialResult tryInChild(const std::function<void()> &read, std::chrono::milliseconds patience)
{
    std::array<int, 2> answer{};
    if (pipe2(answer.data(), O_CLOEXEC) != 0)
        return TrialResult::NotTried;
    const pid_t child = fork();
    if (child == 0)
        beChild(read, answer[1]);
    close(answer[1]);
    const bool hasReturned = child > 0 && answersIn(answer[0], patience);
    close(answer[0]);
    if (child < 0)
        return TrialResult::NotTried;
    if (!hasReturned)
        kill(child, SIGKILL);
    while (waitpid(child, nullptr, 0) < 0 && errno == EINTR) {
    }
    return hasReturned ? TrialResult::Returned : TrialResult::Died;
}

} // namespace trackwise
