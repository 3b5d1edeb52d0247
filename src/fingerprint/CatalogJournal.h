// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "fingerprint/FileDescriptor.h"

#include <optional>
#include <vector>

namespace trackwise::fingerprint {

/// A file to whose end is written what was added and removed, entry by entry.
class CatalogJournal
{
public:
    enum class Kind : std::uint32_t { Song = 1, Removal = 2 };
    struct Entry
    {
        Kind kind = Kind::Song;
        std::vector<std::uint8_t> bytes; ///< a segment of one song, or persistent IDs of 8 bytes
    };
    struct Contents
    {
        std::vector<Entry> entries;
        std::uint64_t size = 0; ///< of the entries that are whole; an end that is torn lies behind
    };

    static CatalogResult<Contents> read(const std::filesystem::path &path);
    /// Writes a new journal.
    static CatalogResult<CatalogJournal> make(const std::filesystem::path &path,
                                              std::span<const Entry> entries);
    /// Goes on with one of which @p size bytes are whole; the rest is cut off.
    static CatalogResult<CatalogJournal> goOn(const std::filesystem::path &path, std::uint64_t size);

    /// The entry is on the disk then, or else nothing of it counts.
    std::optional<CatalogFailure> append(Kind kind, std::span<const std::uint8_t> bytes);

private:
    CatalogJournal(std::filesystem::path path, FileDescriptor file, std::uint64_t size);

    std::filesystem::path m_path;
    FileDescriptor m_file;
    std::uint64_t m_size = 0;
};

} // namespace trackwise::fingerprint
