// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "fingerprint/CatalogFailure.h"

#include <cstdint>
#include <filesystem>
#include <span>
#include <vector>

namespace trackwise::fingerprint {

/// An open file, which is closed with this.
class FileDescriptor
{
public:
    FileDescriptor() = default;
    explicit FileDescriptor(int descriptor)
        : m_descriptor(descriptor)
    {}
    FileDescriptor(FileDescriptor &&other) noexcept
        : m_descriptor(std::exchange(other.m_descriptor, -1))
    {}
    FileDescriptor &operator=(FileDescriptor &&other) noexcept
    {
        std::swap(m_descriptor, other.m_descriptor);
        return *this;
    }
    ~FileDescriptor();

    [[nodiscard]] explicit operator bool() const { return m_descriptor >= 0; }
    [[nodiscard]] int get() const { return m_descriptor; }

private:
    int m_descriptor = -1;
};

/// Why @p path could not be worked on: what the system said in @p error.
CatalogFailure systemFailure(int error, CatalogFailure::Kind kind, const char *doing,
                             const std::filesystem::path &path);

/// Writes all of @p bytes at the end of what was written, or from @p offset on; false: see errno.
[[nodiscard]] bool writeAll(int descriptor, std::span<const std::uint8_t> bytes);
[[nodiscard]] bool writeAllAt(int descriptor, std::span<const std::uint8_t> bytes, std::uint64_t offset);

CatalogResult<std::vector<std::uint8_t>> readFile(const std::filesystem::path &path);

/// What was renamed, made or removed in @p folder is so even after a crash of the system, where its file
/// system can do that.
void syncFolder(const std::filesystem::path &folder);

} // namespace trackwise::fingerprint
