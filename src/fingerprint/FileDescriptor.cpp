// SPDX-License-Identifier: GPL-3.0-or-later
#include "fingerprint/FileDescriptor.h"

#include <cerrno>
#include <fcntl.h>
#include <system_error>
#include <unistd.h>

namespace trackwise::fingerprint {

FileDescriptor::~FileDescriptor()
{
    if (m_descriptor >= 0)
        ::close(m_descriptor);
}

CatalogFailure systemFailure(int error, CatalogFailure::Kind kind, const char *doing,
                             const std::filesystem::path &path)
{
    if (error == ENOENT || error == ENOTDIR)
        kind = CatalogFailure::Kind::NotThere;
    return {kind, std::string(doing) + " " + path.string() + ": " + std::generic_category().message(error)};
}

bool writeAll(int descriptor, std::span<const std::uint8_t> bytes)
{
    while (!bytes.empty()) {
        const ssize_t written = ::write(descriptor, bytes.data(), bytes.size());
        if (written < 0 && errno != EINTR)
            return false;
        bytes = bytes.subspan(std::size_t(std::max<ssize_t>(0, written)));
    }
    return true;
}

bool writeAllAt(int descriptor, std::span<const std::uint8_t> bytes, std::uint64_t offset)
{
    while (!bytes.empty()) {
        const ssize_t written = ::pwrite(descriptor, bytes.data(), bytes.size(), off_t(offset));
        if (written < 0 && errno != EINTR)
            return false;
        const auto count = std::size_t(std::max<ssize_t>(0, written));
        bytes = bytes.subspan(count);
        offset += count;
    }
    return true;
}

CatalogResult<std::vector<std::uint8_t>> readFile(const std::filesystem::path &path)
{
    const FileDescriptor file(::open(path.c_str(), O_RDONLY | O_CLOEXEC));
    std::vector<std::uint8_t> bytes;
    std::vector<std::uint8_t> part(std::size_t(1) << 16);
    ssize_t count = file ? 1 : -1;
    while (count > 0) {
        count = ::read(file.get(), part.data(), part.size());
        if (count < 0 && errno == EINTR)
            count = 1;
        else if (count > 0)
            bytes.insert(bytes.end(), part.begin(), part.begin() + count);
    }
    if (count < 0)
        return systemFailure(errno, CatalogFailure::Kind::CannotRead, "reading", path);
    return bytes;
}

void syncFolder(const std::filesystem::path &folder)
{
    const FileDescriptor opened(::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (opened)
        ::fsync(opened.get());
}

} // namespace trackwise::fingerprint
