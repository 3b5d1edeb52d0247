// SPDX-License-Identifier: GPL-3.0-or-later
#include "device/recognizer/FingerprintWorker.h"

#include "device/audio/SoundDecoder.h"
#include "fingerprint/PeakExtractor.h"

#include <cerrno>
#include <climits>
#include <cstdlib>
#include <linux/ioprio.h>
#include <sched.h>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <csignal>
#include <utility>

namespace trackwise {

namespace {

/// What decoding takes is below 50 MB; a file that wants more than this is after something else.
constexpr rlim_t mostMemory = rlim_t{512} << 20;

void yieldToOthers()
{
    const sched_param none{};
    if (sched_setscheduler(0, SCHED_IDLE, &none) != 0)
        (void)setpriority(PRIO_PROCESS, 0, 19);
    (void)syscall(SYS_ioprio_set, IOPRIO_WHO_PROCESS, 0, IOPRIO_PRIO_VALUE(IOPRIO_CLASS_IDLE, 0));
}

void limit(decltype(RLIMIT_CORE) what, rlim_t value)
{
    rlimit now{};
    if (getrlimit(what, &now) != 0)
        return;
    now.rlim_cur = std::min(value, now.rlim_max);
    (void)setrlimit(what, &now);
}

/// By the time it takes on the processor: how long it waits for that is not the file's fault.
void bePatient(std::chrono::seconds patience)
{
    rusage used{};
    if (getrusage(RUSAGE_SELF, &used) == 0)
        limit(RLIMIT_CPU, rlim_t(used.ru_utime.tv_sec + used.ru_stime.tv_sec + 1 + patience.count()));
}

void keepWithinLimits()
{
    prctl(PR_SET_PDEATHSIG, SIGKILL);
    limit(RLIMIT_CORE, 0); // its end is expected, and nobody's business
#if !defined(__SANITIZE_ADDRESS__) && !defined(__SANITIZE_THREAD__) // whose shadows are larger
    limit(RLIMIT_DATA, mostMemory);
#endif
}

bool readWhole(int descriptor, void *to, std::size_t length)
{
    auto *place = static_cast<char *>(to);
    while (length > 0) {
        const ssize_t count = read(descriptor, place, length);
        if (count < 0 && errno == EINTR)
            continue;
        if (count <= 0)
            return false;
        place += count;
        length -= std::size_t(count);
    }
    return true;
}

bool writeWhole(int descriptor, const void *from, std::size_t length)
{
    const auto *place = static_cast<const char *>(from);
    while (length > 0) {
        const ssize_t count = write(descriptor, place, length);
        if (count < 0 && errno == EINTR)
            continue;
        if (count <= 0)
            return false;
        place += count;
        length -= std::size_t(count);
    }
    return true;
}

bool reply(int descriptor, const Result<HeardSong> &heard)
{
    if (heard) {
        const auto count = std::min<std::size_t>(heard->peaks.size(), mostPeaks);
        const ReplyHead head{0, heard->seconds, std::uint32_t(count)};
        return writeWhole(descriptor, &head, sizeof(head)) &&
               writeWhole(descriptor, heard->peaks.data(), count * sizeof(fingerprint::Peak));
    }
    const QByteArray why = heard.failure().detail.toUtf8();
    const ReplyHead head{std::uint32_t(heard.failure().kind) + 1, 0, std::uint32_t(why.size())};
    return writeWhole(descriptor, &head, sizeof(head)) &&
           writeWhole(descriptor, why.constData(), std::size_t(why.size()));
}

} // namespace

std::string_view nameOf(Effort effort)
{
    return effort == Effort::Background ? "background" : "full";
}

Result<HeardSong> hear(const QByteArray &path, const std::function<void()> &goesOn)
{
    // The worker's limits say how long a file may take.
    auto decoder = SoundDecoder::open(path, {.patience = std::chrono::hours(24 * 365)});
    if (!decoder)
        return decoder.failure();
    HeardSong song;
    fingerprint::PeakExtractor extractor(fingerprint::songDensity);
    std::size_t samples = 0;
    for (auto piece = decoder->next(); !piece.empty(); piece = decoder->next()) {
        extractor.push(piece, song.peaks);
        const std::size_t before = std::exchange(samples, samples + piece.size());
        if (before / fingerprint::sampleRateHz != samples / fingerprint::sampleRateHz)
            goesOn();
    }
    if (decoder->failure())
        return *decoder->failure();
    if (samples == 0)
        return Failure{FailureKind::Malformed, QStringLiteral("there is no sound in it")};
    extractor.finish(song.peaks);
    song.seconds = float(samples) / fingerprint::sampleRateHz;
    return song;
}

int runFingerprintWorker(int requests, int replies, std::string_view effort, const Hearing &listen,
                         std::chrono::seconds patience)
{
    keepWithinLimits();
    if (effort != nameOf(Effort::Full))
        yieldToOthers();
    RequestHead head;
    while (readWhole(requests, &head, sizeof(head)) && head.pathLength < PATH_MAX) {
        QByteArray path(qsizetype(head.pathLength), '\0');
        if (!readWhole(requests, path.data(), head.pathLength))
            return EXIT_FAILURE;
        bePatient(patience);
        if (!reply(replies, listen(path, [patience] { bePatient(patience); })))
            return EXIT_FAILURE;
    }
    return EXIT_SUCCESS;
}

} // namespace trackwise
