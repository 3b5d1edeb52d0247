// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/Result.h"

#include <QByteArray>

#include <cstdint>
#include <memory>
#include <span>
#include <string_view>

namespace trackwise {

/// A music file opened for reading, with what is needed to look around in it cheaply: the beginning stays
/// in memory, the rest passes through one window. Only regular files can be opened, so that no pipe or device
/// blocks. One thread at a time.
class MusicFile
{
public:
    using Bytes = std::span<const std::uint8_t>;

    /// The most that view() gives at once. Below 64 KiB, from where on freeing memory tidies up the whole
    /// heap.
    static constexpr qint64 windowSize = qint64{64} * 1024;

    [[nodiscard]] static Result<MusicFile> open(const QByteArray &path);

    MusicFile(MusicFile &&other) noexcept;
    MusicFile &operator=(MusicFile &&) = delete;
    ~MusicFile();

    [[nodiscard]] qint64 size() const { return m_size; }
    /// @p length bytes from @p offset, fewer at the end of the file or above windowSize. They stay valid
    /// until the next call.
    [[nodiscard]] Bytes view(qint64 offset, qint64 length);
    /// Copies up to @p length bytes; answers how many there were. Goes past the windows.
    qint64 read(qint64 offset, void *to, qint64 length) const;
    /// The disk has failed to give something that is in the file: what was made of the rest means nothing.
    [[nodiscard]] bool hasFailed() const { return m_hasFailed; }

private:
    struct Window
    {
        std::unique_ptr<std::uint8_t[]> bytes;
        qint64 offset = 0;
        qint64 length = 0;

        [[nodiscard]] bool holds(qint64 from, qint64 count) const
        {
            return from >= offset && from + count <= offset + length;
        }
    };

    MusicFile(int descriptor, qint64 size)
        : m_descriptor(descriptor)
        , m_size(size)
    {}
    void fill(Window &window, qint64 offset, qint64 length) const;

    int m_descriptor = -1;
    qint64 m_size = 0;
    mutable bool m_hasFailed = false;
    Window m_beginning;
    Window m_elsewhere;
};

/// Numbers of either byte order at @p at; 0 where @p bytes ends before them.
[[nodiscard]] std::uint64_t bigEndian(MusicFile::Bytes bytes, std::size_t at, std::size_t width);
[[nodiscard]] std::uint64_t littleEndian(MusicFile::Bytes bytes, std::size_t at, std::size_t width);
/// Whether @p text stands at @p at.
[[nodiscard]] bool stands(MusicFile::Bytes bytes, std::size_t at, std::string_view text);

} // namespace trackwise
