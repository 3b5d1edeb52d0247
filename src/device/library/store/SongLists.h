// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "device/library/store/ConnectionPool.h"
#include "platform/LibraryBrowser.h"

namespace trackwise {

/// The library's lists, from indexes that hold them in order. Any thread.
class SongLists final : public LibraryBrowser
{
public:
    /// @p connections must outlive this.
    explicit SongLists(const ConnectionPool &connections)
        : m_connections(connections)
    {}

    [[nodiscard]] qsizetype songCount() const override;
    [[nodiscard]] SongIndex songs(const SongScope &scope) const override;
    [[nodiscard]] std::vector<SongRow> songRows(std::span<const PersistentID> songs) const override;
    [[nodiscard]] GroupIndex artists() const override;
    [[nodiscard]] GroupIndex albums() const override;
    [[nodiscard]] std::vector<GroupRow> artistRows(std::span<const GroupKey> artists) const override;
    [[nodiscard]] std::vector<GroupRow> albumRows(std::span<const GroupKey> albums) const override;

private:
    const ConnectionPool &m_connections;
};

} // namespace trackwise
