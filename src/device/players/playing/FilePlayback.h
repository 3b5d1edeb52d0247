// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/MusicPlayer.h"

#include <QByteArray>
#include <QDeadlineTimer>
#include <QElapsedTimer>
#include <QObject>
#include <QTimer>

#include <chrono>
#include <memory>

class QAudioOutput;
class QFile;
class QMediaPlayer;

namespace trackwise {

class DefaultOutput;

/// Plays one audio file at a time to the device's default output, wherever that is at the moment. Nothing of
/// the multimedia library is loaded before the first file is. Main thread.
class FilePlayback : public QObject
{
    Q_OBJECT

public:
    using Milliseconds = std::chrono::milliseconds;

    explicit FilePlayback(QObject *parent = nullptr);
    ~FilePlayback() override;

    /// Makes the file at @p path ready, standing at its beginning. False when it cannot be opened or holds
    /// no sound; one that turns out to be broken later on fails with didFail().
    bool load(const QByteArray &path);
    void unload();
    [[nodiscard]] bool isLoaded() const { return m_file != nullptr; }

    /// Does nothing without a file or without any audio output. Losing the sound server pauses; play() then
    /// plays when it comes back within ten seconds.
    void play();
    void pause();
    void stop(); ///< and goes back to the beginning
    void seek(Milliseconds position);

    [[nodiscard]] PlaybackState state() const;
    [[nodiscard]] Milliseconds position() const;             ///< never beyond the duration
    [[nodiscard]] Milliseconds duration() const;             ///< zero: not known yet
    [[nodiscard]] double volume() const { return m_volume; } ///< 0 to 1, as ears judge loudness
    void setVolume(double volume);

Q_SIGNALS:
    void stateDidChange();
    void durationDidChange();
    void didReachEnd(); ///< the state is Stopped
    void didFail();     ///< the file is unloaded

private:
    void ensurePlayer();
    void openAgain();
    void followDefaultOutput();
    void makeOutput();
    [[nodiscard]] bool hasOutput();
    void leaveServer();
    void returnToServer();
    void lookForServer();
    void applyVolume();

    double m_volume = 1;
    std::unique_ptr<QFile> m_file; ///< that the player reads
    std::unique_ptr<QAudioOutput> m_output;
    std::unique_ptr<QMediaPlayer> m_player;
    std::unique_ptr<DefaultOutput> m_defaultOutput;
    QByteArray m_wantedOutput; ///< where sound is to go; the library may not know it yet
    int m_attempts = 0;        ///< to find it there
    QTimer m_nextAttempt;
    bool m_isServerLost = true; ///< or not looked for yet
    QElapsedTimer m_sinceLoss;  ///< or since the library was told to connect again
    QDeadlineTimer m_playUntil; ///< play when the server comes back before
    QTimer m_nextReturn;
};

} // namespace trackwise
