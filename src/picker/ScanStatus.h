// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/LibraryScan.h"

#include <QtQml/qqmlregistration.h>

namespace trackwise {

/// How far the reading of the music folders has come, in words. Main thread.
class ScanStatus : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Made by the picker")

    Q_PROPERTY(bool isRunning READ isRunning NOTIFY changed)
    Q_PROPERTY(double fraction READ fraction NOTIFY changed)
    Q_PROPERTY(QString text READ text NOTIFY changed)
    Q_PROPERTY(QString folder READ folder NOTIFY changed)

public:
    ScanStatus(LibraryScan &scan, QObject *parent);

    /// A scan that is worth mentioning.
    [[nodiscard]] bool isRunning() const { return m_progress.isRunning && !m_progress.isQuiet; }
    /// Of the files found so far, 0 to 1.
    [[nodiscard]] double fraction() const;
    [[nodiscard]] QString text() const;
    [[nodiscard]] QString folder() const { return m_progress.currentFolder; }
    Q_INVOKABLE void start() { m_scan.start(); }
    Q_INVOKABLE void cancel() { m_scan.cancel(); }
    void lookForChanges() { m_scan.lookForChanges(); }

Q_SIGNALS:
    void changed();

private:
    LibraryScan &m_scan;
    ScanProgress m_progress;
};

} // namespace trackwise
