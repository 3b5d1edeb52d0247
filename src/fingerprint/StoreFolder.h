// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string_view>
#include <vector>

namespace trackwise::fingerprint {

/// The files of a CatalogStore. Each name is used once: whoever still reads an old file is not confused.
class StoreFolder
{
public:
    enum class Kind { Segment, Journal, Added };

    explicit StoreFolder(std::filesystem::path path)
        : m_path(std::move(path))
    {}
    [[nodiscard]] const std::filesystem::path &path() const { return m_path; }
    [[nodiscard]] std::filesystem::path manifest() const { return m_path / "manifest"; }
    [[nodiscard]] std::filesystem::path lock() const { return m_path / "lock"; }
    /// A note: someone waits for the lock.
    [[nodiscard]] std::filesystem::path wanted() const { return m_path / "wanted"; }
    [[nodiscard]] std::filesystem::path file(Kind kind, std::uint32_t number) const;

    /// The numbers of the files of one kind that are there, in order.
    [[nodiscard]] std::vector<std::uint32_t> numbers(Kind kind) const;
    /// Removes what begins like a file of the store and is none of @p kept.
    void removeAllBut(const std::vector<std::filesystem::path> &kept) const;
    [[nodiscard]] std::uint64_t byteCount() const;

private:
    std::filesystem::path m_path;
};

} // namespace trackwise::fingerprint
