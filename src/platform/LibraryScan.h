// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>
#include <QString>

namespace trackwise {

/// How far the search for music has come.
struct ScanProgress
{
    bool isRunning = false;
    qsizetype filesFound = 0;   ///< audio files seen so far; grows while folders are walked
    qsizetype filesHandled = 0; ///< of these: read, unchanged or failed
    bool isTotalKnown = false;  ///< all folders have been walked
    QString currentFolder;
    /// Nobody has asked for it and it has not taken long: nothing to speak of.
    bool isQuiet = false;

    friend bool operator==(const ScanProgress &, const ScanProgress &) = default;
};

/// The reading of the music folders into the library. Main thread.
class LibraryScan : public QObject
{
    Q_OBJECT

public:
    using QObject::QObject;

    /// Starts a scan of everything, or asks the running one to be followed by another.
    virtual void start() = 0;
    /// Scans quietly where changes of the music folders are not noticed by themselves; else does nothing.
    virtual void lookForChanges() {}
    /// Stops soon; what has been read stays.
    virtual void cancel() = 0;
    [[nodiscard]] virtual ScanProgress progress() const = 0;

Q_SIGNALS:
    /// At most ten times a second while a scan runs, and once when it ends.
    void progressDidChange();
};

} // namespace trackwise

Q_DECLARE_METATYPE(trackwise::ScanProgress)
