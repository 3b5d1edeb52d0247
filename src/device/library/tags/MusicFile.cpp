// SPDX-License-Identifier: GPL-3.0-or-later
#include "device/library/tags/MusicFile.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <string_view>
#include <utility>
#include <vector>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace trackwise {

namespace {

/// How much is read around a place in the middle of the file.
constexpr qint64 smallWindow = qint64{16} * 1024;

using Buffer = std::unique_ptr<std::uint8_t[]>;

/// Windows wait here for the thread's next file: to get and free such blocks for each file takes longer than
/// to read it.
std::vector<Buffer> &spareBuffers()
{
    thread_local std::vector<Buffer> spare;
    return spare;
}

Buffer takeBuffer()
{
    auto &spare = spareBuffers();
    if (spare.empty())
        return std::make_unique_for_overwrite<std::uint8_t[]>(
            static_cast<std::size_t>(MusicFile::windowSize));
    auto buffer = std::move(spare.back());
    spare.pop_back();
    return buffer;
}

void giveBack(Buffer buffer)
{
    constexpr std::size_t mostSpares = 4;
    if (buffer && spareBuffers().size() < mostSpares)
        spareBuffers().push_back(std::move(buffer));
}

Failure openFailure(int error)
{
    const auto detail = QString::fromLocal8Bit(std::strerror(error));
    switch (error) {
    case ENOENT:
    case ENOTDIR:
    case ELOOP:
        return {FailureKind::NotFound, detail};
    case ENXIO: // a pipe or socket without a partner
        return {FailureKind::Unsupported, QStringLiteral("not a regular file")};
    default:
        return {FailureKind::Unreadable, detail};
    }
}

} // namespace

Result<MusicFile> MusicFile::open(const QByteArray &path)
{
    const int descriptor = ::open(path.constData(), O_RDONLY | O_NONBLOCK | O_CLOEXEC | O_NOCTTY);
    if (descriptor < 0)
        return openFailure(errno);
    struct stat status = {};
    const bool known = fstat(descriptor, &status) == 0;
    MusicFile file(descriptor, known ? status.st_size : 0);
    if (!known)
        return openFailure(errno);
    if (!S_ISREG(status.st_mode))
        return Failure{FailureKind::Unsupported, QStringLiteral("not a regular file")};
    if (file.m_size == 0)
        return Failure{FailureKind::Malformed, QStringLiteral("the file is empty")};
    return file;
}

MusicFile::MusicFile(MusicFile &&other) noexcept
    : m_descriptor(std::exchange(other.m_descriptor, -1))
    , m_size(other.m_size)
    , m_hasFailed(other.m_hasFailed)
    , m_beginning(std::move(other.m_beginning))
    , m_elsewhere(std::move(other.m_elsewhere))
{}

MusicFile::~MusicFile()
{
    giveBack(std::move(m_beginning.bytes));
    giveBack(std::move(m_elsewhere.bytes));
    if (m_descriptor >= 0)
        ::close(m_descriptor);
}

MusicFile::Bytes MusicFile::view(qint64 offset, qint64 length)
{
    if (offset < 0 || offset >= m_size)
        return {};
    length = std::min({length, windowSize, m_size - offset});
    if (m_beginning.length == 0)
        fill(m_beginning, 0, windowSize);
    Window *window = &m_beginning;
    if (!window->holds(offset, length)) {
        window = &m_elsewhere;
        if (!window->holds(offset, length)) { // near the end, the window covers all of the end
            const auto some = std::max(length, smallWindow);
            fill(*window, std::min(offset, std::max<qint64>(0, m_size - some)), some);
        }
    }
    if (!window->holds(offset, length)) // the disk failed, or the file shrank meanwhile
        return {};
    return {window->bytes.get() + (offset - window->offset), static_cast<std::size_t>(length)};
}

qint64 MusicFile::read(qint64 offset, void *to, qint64 length) const
{
    qint64 done = 0;
    while (done < length) {
        const auto count = pread(m_descriptor, static_cast<char *>(to) + done,
                                 static_cast<size_t>(length - done), offset + done);
        if (count < 0 && errno == EINTR)
            continue;
        if (count < 0)
            m_hasFailed = true;
        if (count <= 0)
            break;
        done += count;
    }
    return done;
}

void MusicFile::fill(Window &window, qint64 offset, qint64 length) const
{
    if (!window.bytes)
        window.bytes = takeBuffer();
    window.offset = offset;
    window.length = read(offset, window.bytes.get(), std::min(length, m_size - offset));
}

std::uint64_t bigEndian(MusicFile::Bytes bytes, std::size_t at, std::size_t width)
{
    if (at + width > bytes.size())
        return 0;
    std::uint64_t value = 0;
    for (std::size_t i = 0; i < width; ++i)
        value = value << 8 | bytes[at + i];
    return value;
}

std::uint64_t littleEndian(MusicFile::Bytes bytes, std::size_t at, std::size_t width)
{
    if (at + width > bytes.size())
        return 0;
    std::uint64_t value = 0;
    for (std::size_t i = width; i > 0; --i)
        value = value << 8 | bytes[at + i - 1];
    return value;
}

bool stands(MusicFile::Bytes bytes, std::size_t at, std::string_view text)
{
    return text.empty() || (at + text.size() <= bytes.size() &&
                            std::memcmp(bytes.data() + at, text.data(), text.size()) == 0);
}

} // namespace trackwise
