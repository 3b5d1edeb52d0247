// SPDX-License-Identifier: GPL-3.0-or-later
#include "fingerprint/SegmentBytes.h"

#include "fingerprint/FileDescriptor.h"

#include <cerrno>
#include <fcntl.h>
#include <sys/mman.h>
#include <sys/stat.h>

namespace trackwise::fingerprint {

CatalogResult<SegmentBytes> SegmentBytes::ofFile(const std::filesystem::path &path)
{
    // Not blocking: a pipe of that name would wait for somebody to write into it.
    const FileDescriptor file(::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK));
    if (!file)
        return systemFailure(errno, CatalogFailure::Kind::CannotRead, "opening", path);
    struct stat status
    {};
    if (::fstat(file.get(), &status) != 0)
        return systemFailure(errno, CatalogFailure::Kind::CannotRead, "looking at", path);
    if (!S_ISREG(status.st_mode) || status.st_size == 0)
        return CatalogFailure{CatalogFailure::Kind::NotACatalog, path.string() + " is empty, or no file"};
    const auto size = std::size_t(status.st_size);
    void *const mapped = ::mmap(nullptr, size, PROT_READ, MAP_SHARED, file.get(), 0);
    if (mapped == MAP_FAILED)
        return systemFailure(errno, CatalogFailure::Kind::CannotRead, "mapping", path);
    SegmentBytes bytes;
    bytes.m_owner = {mapped, [size](void *begin) { ::munmap(begin, size); }};
    bytes.m_all = {static_cast<const std::uint8_t *>(mapped), size};
    bytes.m_isFile = true;
    return bytes;
}

SegmentBytes SegmentBytes::of(std::vector<std::uint8_t> bytes)
{
    const auto owner = std::make_shared<const std::vector<std::uint8_t>>(std::move(bytes));
    SegmentBytes result;
    result.m_owner = owner;
    result.m_all = *owner;
    return result;
}

} // namespace trackwise::fingerprint
