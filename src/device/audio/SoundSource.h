// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/Result.h"

#include <QByteArray>

extern "C" {
#include <libavformat/avformat.h>
}

#include <chrono>
#include <memory>
#include <optional>

namespace trackwise {

template <auto release>
struct AvFree
{
    template <typename T>
    void operator()(T *pointer) const
    {
        release(&pointer);
    }
};
using InputPtr = std::unique_ptr<AVFormatContext, AvFree<avformat_close_input>>;

/// The bytes that libavformat reads sound from: of one file, or of a stream that comes as it likes. It must
/// stay where it is while an input() of it is in use.
class SoundSource
{
public:
    /// Failures as those of SoundDecoder::open().
    [[nodiscard]] static Result<std::unique_ptr<SoundSource>> open(const QByteArray &path,
                                                                   std::chrono::milliseconds patience);
    [[nodiscard]] static Result<std::unique_ptr<SoundSource>> ofStream(int descriptor,
                                                                       std::chrono::milliseconds patience);
    SoundSource(const SoundSource &) = delete;
    SoundSource &operator=(const SoundSource &) = delete;
    ~SoundSource();

    /// Nothing where it is not of a known kind.
    [[nodiscard]] InputPtr input();
    /// Patience begins anew.
    void noteSound() { m_busy = {}; }
    /// Called before work that is done without reading.
    [[nodiscard]] bool isTooLate();
    [[nodiscard]] const std::optional<Failure> &failure() const { return m_failure; }

private:
    using Clock = std::chrono::steady_clock;

    SoundSource(int descriptor, std::chrono::milliseconds patience);
    [[nodiscard]] bool isFile() const { return m_size >= 0; }
    static int read(void *source, std::uint8_t *to, int length);
    static std::int64_t seek(void *source, std::int64_t offset, int whence);

    int m_descriptor;
    std::int64_t m_size = -1; ///< of a file
    std::chrono::milliseconds m_patience;
    Clock::duration m_busy{}; ///< since the last sound, without the time spent waiting for a stream
    Clock::time_point m_looked = Clock::now();
    std::optional<Failure> m_failure;
    struct FreeIo
    {
        void operator()(AVIOContext *io) const;
    };
    std::unique_ptr<AVIOContext, FreeIo> m_io;
};

} // namespace trackwise
