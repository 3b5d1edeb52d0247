// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "fingerprint/CatalogFailure.h"
#include "fingerprint/SongLine.h"

#include <span>
#include <vector>

namespace trackwise::fingerprint {

/// Which files of a folder are the catalog, by their numbers.
struct CatalogManifest
{
    struct Own
    {
        std::uint32_t number = 0;
        std::vector<SongNumber> removed;
        friend bool operator==(const Own &, const Own &) = default;
    };
    struct Added
    {
        std::uint32_t number = 0;
        std::string name;
        friend bool operator==(const Added &, const Added &) = default;
    };

    std::uint32_t nextNumber = 1; ///< that no file ever had
    std::uint32_t journal = 0;    ///< 0: none
    std::vector<Own> own;
    std::vector<Added> added;
    friend bool operator==(const CatalogManifest &, const CatalogManifest &) = default;

    [[nodiscard]] std::vector<std::uint8_t> bytes() const;
    static CatalogResult<CatalogManifest> of(std::span<const std::uint8_t> bytes);
};

} // namespace trackwise::fingerprint
