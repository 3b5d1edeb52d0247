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

bool syncFolder(const std::filesystem::path &folder)
{
    const FileDescriptor opened(::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    return opened && ::fsync(opened.get()) == 0;
}

std::optional<CatalogFailure> replaceFile(const std::filesystem::path &path,
                                          std::span<const std::uint8_t> bytes)
{
    using Kind = CatalogFailure::Kind;
    std::filesystem::path beside = path;
    beside += ".new";
    {
        const FileDescriptor file(
            ::open(beside.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, S_IRUSR | S_IWUSR));
        if (!file || !writeAll(file.get(), bytes) || ::fsync(file.get()) != 0)
            return systemFailure(errno, Kind::CannotWrite, "writing", beside);
    }
    if (::rename(beside.c_str(), path.c_str()) != 0 || !syncFolder(path.parent_path()))
        return systemFailure(errno, Kind::CannotWrite, "replacing", path);
    return std::nullopt;
}

} // namespace trackwise::fingerprint
