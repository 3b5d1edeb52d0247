// SPDX-License-Identifier: GPL-3.0-or-later
#include "picker/ScanStatus.h"

#include <QLocale>

#include <algorithm>

namespace trackwise {

ScanStatus::ScanStatus(LibraryScan &scan, QObject *parent)
    : QObject(parent)
    , m_scan(scan)
    , m_progress(scan.progress())
{
    connect(&scan, &LibraryScan::progressDidChange, this, [this] {
        m_progress = m_scan.progress();
        Q_EMIT changed();
    });
}

double ScanStatus::fraction() const
{
    if (m_progress.filesFound <= 0)
        return 0;
    return std::clamp(
        static_cast<double>(m_progress.filesHandled) / static_cast<double>(m_progress.filesFound), 0.0, 1.0);
}

QString ScanStatus::text() const
{
    const QString handled = QLocale().toString(m_progress.filesHandled);
    const QString found = QLocale().toString(m_progress.filesFound);
    return m_progress.isTotalKnown ? tr("Reading music: %1 of %2").arg(handled, found)
                                   : tr("Looking for music: %1 of %2 found").arg(handled, found);
}

} // namespace trackwise
