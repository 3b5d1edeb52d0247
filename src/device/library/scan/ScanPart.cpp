// SPDX-License-Identifier: GPL-3.0-or-later
#include "device/library/scan/ScanPart.h"

namespace trackwise {

ScanPart ScanPart::everything()
{
    ScanPart all;
    all.m_isEverything = true;
    return all;
}

void ScanPart::add(const ScanPart &other)
{
    if (m_isEverything || other.m_isEverything) {
        *this = everything();
        return;
    }
    m_folders.insert(other.m_folders.begin(), other.m_folders.end());
    m_trees.insert(other.m_trees.begin(), other.m_trees.end());
}

bool ScanPart::contains(const QByteArray &folder) const
{
    if (m_isEverything || m_folders.contains(folder))
        return true;
    QByteArray above = folder;
    while (!above.isEmpty() && !m_trees.contains(above))
        above.truncate(above.lastIndexOf('/'));
    return !above.isEmpty();
}

} // namespace trackwise
