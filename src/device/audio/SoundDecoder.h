// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/Result.h"

#include <QByteArray>

#include <chrono>
#include <memory>
#include <optional>
#include <span>

namespace trackwise {

class SoundSource;

/// Reads the sound of a music file, or of a stream, piece by piece: as mono (the mean of all channels) at the
/// rate of the recogniser (fingerprint::sampleRateHz), full scale ±1. Of several tracks the best one counts,
/// pictures and films are left alone. What is broken is passed over. Nothing but the one file is ever opened
/// or fetched, whatever stands in it. One thread at a time.
class SoundDecoder
{
public:
    struct Limits
    {
        /// How long a file may keep us busy without giving a sound. Waiting for a stream does not count.
        std::chrono::milliseconds patience = std::chrono::seconds(30);
        /// What of the sound follows is left out.
        std::chrono::seconds longest = std::chrono::hours(10);
    };

    /// Regular files only. Failures: NotFound, Unreadable, Unsupported (no regular file; a coding that is not
    /// known), Malformed (no sound in it). Blocks on the disk.
    [[nodiscard]] static Result<SoundDecoder> open(const QByteArray &path, Limits limits);
    [[nodiscard]] static Result<SoundDecoder> open(const QByteArray &path) { return open(path, {}); }
    /// What can be read from @p descriptor, such as a pipe's; it stays open. Blocks until enough has come to
    /// tell what it is.
    [[nodiscard]] static Result<SoundDecoder> openStream(int descriptor, Limits limits);

    SoundDecoder(SoundDecoder &&other) noexcept;
    ~SoundDecoder();

    /// The sound that follows, some milliseconds to some seconds of it, valid until the next call; empty at
    /// the end.
    [[nodiscard]] std::span<const float> next();
    /// Why it ended early, where it is not the file that is to blame: Unreadable (the disk failed),
    /// Unavailable (it took too long).
    [[nodiscard]] const std::optional<Failure> &failure() const;

private:
    struct State;
    explicit SoundDecoder(std::unique_ptr<State> state);
    [[nodiscard]] static Result<SoundDecoder> of(std::unique_ptr<SoundSource> source, const Limits &limits);

    std::unique_ptr<State> m_state;
};

} // namespace trackwise
