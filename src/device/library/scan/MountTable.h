// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>

#include <set>

namespace trackwise {

/// What is mounted where, as proc_pid_mountinfo(5) tells, and when that changes. One thread at a time.
class MountTable
{
public:
    MountTable();
    ~MountTable();
    MountTable(const MountTable &) = delete;
    MountTable &operator=(const MountTable &) = delete;

    /// Has an exceptional condition, POLLPRI of poll(2), after each change; -1 where there is no such table.
    [[nodiscard]] int descriptor() const { return m_descriptor; }
    /// Where something has been mounted, unmounted or mounted otherwise since the last call.
    [[nodiscard]] std::set<QByteArray> takeChangedPlaces();

private:
    [[nodiscard]] std::set<QByteArray> lines() const;

    int m_descriptor;
    std::set<QByteArray> m_known;
};

} // namespace trackwise
