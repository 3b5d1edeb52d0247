// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "device/recognizer/FingerprintMessages.h"
#include "platform/Result.h"

#include <QByteArray>

#include <chrono>
#include <functional>
#include <string_view>

namespace trackwise {

/// How much of the machine a worker may take from others.
enum class Effort {
    Background, ///< what nobody else wants
    Full,       ///< as much as any program: somebody waits for it
};

/// The first argument of a call of the program that makes it a worker, and the second.
inline constexpr char workerArgument[] = "--fingerprint-worker";
[[nodiscard]] std::string_view nameOf(Effort effort);

/// What a worker does with a file. It calls @p goesOn every now and then while it gets ahead.
using Hearing = std::function<Result<HeardSong>(const QByteArray &path, const std::function<void()> &goesOn)>;

/// Listens to a file.
[[nodiscard]] Result<HeardSong> hear(const QByteArray &path, const std::function<void()> &goesOn);

/// The whole life of a worker: takes paths from @p requests and gives what it has heard to @p replies, until
/// there are no more. A file that is too much for it, by what it makes the decoder do, take or wait for, ends
/// the worker and nothing else: that is what it is for. The code of its end.
[[nodiscard]] int runFingerprintWorker(int requests, int replies, std::string_view effort,
                                       const Hearing &listen = hear,
                                       std::chrono::seconds patience = std::chrono::seconds(60));

} // namespace trackwise
