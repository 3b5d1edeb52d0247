// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/LibraryScan.h"

#include <QByteArray>
#include <QFile>

#include <atomic>
#include <mutex>

namespace trackwise {

/// Where a scan notes how far it has come and others look. Any thread.
class ScanMonitor
{
public:
    void noteFound(qsizetype files) { m_found += files; }
    void noteHandled(qsizetype files) { m_handled += files; }
    void noteAllFound() { m_isTotalKnown = true; }
    void noteFolder(const QByteArray &folder)
    {
        const std::scoped_lock lock(m_mutex);
        m_folder = folder;
    }
    /// The library holds something else than before: counts such moments.
    void noteLibraryChange() { ++m_changes; }

    [[nodiscard]] unsigned libraryChanges() const { return m_changes; }
    [[nodiscard]] ScanProgress progress(bool isRunning) const
    {
        const std::scoped_lock lock(m_mutex);
        return {isRunning, m_found, m_handled, m_isTotalKnown, QFile::decodeName(m_folder)};
    }

private:
    std::atomic<qsizetype> m_found = 0;
    std::atomic<qsizetype> m_handled = 0;
    std::atomic<unsigned> m_changes = 0;
    std::atomic<bool> m_isTotalKnown = false;
    mutable std::mutex m_mutex;
    QByteArray m_folder;
};

} // namespace trackwise
