// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>
#include <QString>

namespace trackwise {

/// How far the songs of the library are known by their sound.
struct RecognitionIndexState
{
    enum class Activity {
        Idle,        ///< all that can be known is
        Working,     ///< songs are being listened to
        Paused,      ///< by the user
        SavingPower, ///< until the device may use more
        Unavailable, ///< see trouble
    };
    Activity activity = Activity::Idle;
    qsizetype songsDone = 0;
    qsizetype songsTotal = 0; ///< that are in the library now
    qint64 bytes = 0;         ///< on disk
    QString trouble;          ///< why nothing is possible, for the user
    bool hasMissed = false;   ///< something was heard that may be among the songs not yet done

    friend bool operator==(const RecognitionIndexState &, const RecognitionIndexState &) = default;
};

/// What the device knows of how the library's songs sound, by which it recognises them. It is made in the
/// background, while the app runs. Main thread.
class RecognitionIndex : public QObject
{
    Q_OBJECT

public:
    using QObject::QObject;

    [[nodiscard]] virtual RecognitionIndexState state() const = 0;
    /// Stays so over restarts. What has been done is kept.
    virtual void setPaused(bool isPaused) = 0;
    /// Forgets all songs and listens to them anew.
    virtual void rebuild() = 0;
    /// Forgets all songs, and pauses.
    virtual void clear() = 0;

Q_SIGNALS:
    /// At most ten times a second.
    void stateDidChange();
};

} // namespace trackwise
