// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "fingerprint/CatalogFailure.h"

#include <cstdint>
#include <filesystem>
#include <memory>
#include <span>
#include <vector>

namespace trackwise::fingerprint {

/// The bytes of a segment, which do not change and do not go while somebody has this: a file that is mapped
/// into memory, or memory. Nobody may shorten the file meanwhile; to remove it does no harm.
class SegmentBytes
{
public:
    static CatalogResult<SegmentBytes> ofFile(const std::filesystem::path &path);
    static SegmentBytes of(std::vector<std::uint8_t> bytes);

    [[nodiscard]] std::span<const std::uint8_t> all() const { return m_all; }
    [[nodiscard]] bool isFile() const { return m_isFile; }

private:
    std::shared_ptr<const void> m_owner;
    std::span<const std::uint8_t> m_all;
    bool m_isFile = false;
};

} // namespace trackwise::fingerprint
