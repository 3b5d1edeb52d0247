// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>

#include <set>

namespace trackwise {

/// Which folders a scan is about: all of the library, or those in which something has happened. A value.
class ScanPart
{
public:
    [[nodiscard]] static ScanPart everything();

    /// The files right in this folder.
    void addFolder(const QByteArray &path) { m_folders.insert(path); }
    /// This folder, which need not be there any more, and all below it.
    void addTree(const QByteArray &path) { m_trees.insert(path); }
    void add(const ScanPart &other);

    [[nodiscard]] bool isEverything() const { return m_isEverything; }
    [[nodiscard]] bool isEmpty() const { return !m_isEverything && m_folders.empty() && m_trees.empty(); }
    [[nodiscard]] bool contains(const QByteArray &folder) const;
    [[nodiscard]] const std::set<QByteArray> &folders() const { return m_folders; }
    [[nodiscard]] const std::set<QByteArray> &trees() const { return m_trees; }

    friend bool operator==(const ScanPart &, const ScanPart &) = default;

private:
    bool m_isEverything = false;
    std::set<QByteArray> m_folders;
    std::set<QByteArray> m_trees;
};

} // namespace trackwise
