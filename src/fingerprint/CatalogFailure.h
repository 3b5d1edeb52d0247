// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <utility>
#include <variant>

namespace trackwise::fingerprint {

/// Why a catalog cannot be used.
struct CatalogFailure
{
    enum class Kind {
        NotThere,     ///< there is no such file or folder
        CannotRead,   ///< the system refuses to open or read it
        CannotWrite,  ///< no space, no permission
        NotACatalog,  ///< a file of another kind
        NewerVersion, ///< made by a later version of this program
        Truncated,    ///< its end is missing
        Damaged,      ///< what is in it contradicts itself, or its checksums
        InUse,        ///< another process writes it
        Unknown,      ///< there is no song or added catalog of that name
    };
    Kind kind = Kind::Damaged;
    std::string detail; ///< for the log: what was being done to which file
};

/// A T, or why there is none.
template <typename T>
using CatalogResult = std::variant<T, CatalogFailure>;

} // namespace trackwise::fingerprint
