// SPDX-License-Identifier: GPL-3.0-or-later
#include "fingerprint/CatalogJournal.h"

#include "fingerprint/Bits.h"

#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#include <xxhash.h>

namespace trackwise::fingerprint {

namespace {

using Failure = CatalogFailure::Kind;

/// Before the bytes of an entry: their number, the kind, and the checksum of all three.
constexpr std::size_t headBytes = 16;

std::uint64_t checksumOf(std::uint32_t kind, std::span<const std::uint8_t> bytes)
{
    return XXH3_64bits_withSeed(bytes.data(), bytes.size(), std::uint64_t(bytes.size()) << 32 | kind);
}

void appendEntry(std::vector<std::uint8_t> &to, CatalogJournal::Kind kind,
                 std::span<const std::uint8_t> bytes)
{
    appendLittle(to, std::uint32_t(bytes.size()));
    appendLittle(to, std::uint32_t(kind));
    appendLittle(to, checksumOf(std::uint32_t(kind), bytes));
    to.insert(to.end(), bytes.begin(), bytes.end());
}

} // namespace

CatalogJournal::CatalogJournal(std::filesystem::path path, FileDescriptor file, std::uint64_t size)
    : m_path(std::move(path))
    , m_file(std::move(file))
    , m_size(size)
{}

CatalogResult<CatalogJournal::Contents> CatalogJournal::read(const std::filesystem::path &path)
{
    const auto bytes = readFile(path);
    if (const auto *failure = std::get_if<CatalogFailure>(&bytes))
        return *failure;
    std::span<const std::uint8_t> rest = std::get<std::vector<std::uint8_t>>(bytes);
    Contents contents;
    while (rest.size() >= headBytes) {
        const auto size = loadLittle<std::uint32_t>(rest.data());
        const auto kind = loadLittle<std::uint32_t>(rest.data() + 4);
        if (size > rest.size() - headBytes)
            break;
        const auto entry = rest.subspan(headBytes, size);
        if (loadLittle<std::uint64_t>(rest.data() + 8) != checksumOf(kind, entry))
            break;
        contents.entries.push_back({Kind(kind), {entry.begin(), entry.end()}});
        contents.size += headBytes + size;
        rest = rest.subspan(headBytes + size);
    }
    return contents;
}

CatalogResult<CatalogJournal> CatalogJournal::make(const std::filesystem::path &path,
                                                   std::span<const Entry> entries)
{
    FileDescriptor file(::open(path.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, S_IRUSR | S_IWUSR));
    std::vector<std::uint8_t> bytes;
    for (const Entry &entry : entries)
        appendEntry(bytes, entry.kind, entry.bytes);
    if (!file || !writeAll(file.get(), bytes) || ::fsync(file.get()) != 0)
        return systemFailure(errno, Failure::CannotWrite, "writing", path);
    syncFolder(path.parent_path());
    return CatalogJournal(path, std::move(file), bytes.size());
}

CatalogResult<CatalogJournal> CatalogJournal::goOn(const std::filesystem::path &path, std::uint64_t size)
{
    FileDescriptor file(::open(path.c_str(), O_WRONLY | O_CLOEXEC));
    if (!file || ::ftruncate(file.get(), off_t(size)) != 0)
        return systemFailure(errno, Failure::CannotWrite, "writing", path);
    return CatalogJournal(path, std::move(file), size);
}

std::optional<CatalogFailure> CatalogJournal::append(Kind kind, std::span<const std::uint8_t> bytes)
{
    std::vector<std::uint8_t> entry;
    appendEntry(entry, kind, bytes);
    if (!writeAllAt(m_file.get(), entry, m_size) || ::fdatasync(m_file.get()) != 0) {
        const auto failure = systemFailure(errno, Failure::CannotWrite, "writing", m_path);
        // A part of it that stays is torn, or written over by the next.
        [[maybe_unused]] const int cut = ::ftruncate(m_file.get(), off_t(m_size));
        return failure;
    }
    m_size += entry.size();
    return std::nullopt;
}

} // namespace trackwise::fingerprint
