// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <string>

namespace trackwise::fingerprint {

/// What a catalog says of a song besides its sound. Texts are UTF-8, of which a catalog made elsewhere may
/// break every rule.
struct CatalogSong
{
    std::uint64_t persistentID = 0; ///< of the library that it was made from
    std::uint64_t stamp = 0;        ///< says which sound was heard: the library's own signature of it
    std::string catalogID;          ///< of the streaming catalog; empty: unknown, here and below
    std::string title;
    std::string artist;
    float seconds = 0;
    friend bool operator==(const CatalogSong &, const CatalogSong &) = default;
};

} // namespace trackwise::fingerprint
