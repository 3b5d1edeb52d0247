// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "detail/LibraryAccessGate.h"
#include "platform/SystemMusicPlayer.h"

#include <QObject>

#include <functional>
#include <optional>

namespace trackwise {

/// Takes the song that the system's player is playing now. Main thread.
class NowPlayingSource : public QObject
{
    Q_OBJECT

public:
    using Completion = std::function<void(bool shown)>;
    /// Shows a song that is playing now; the Boolean says whether to complain when it is not in the library.
    using Display = std::function<void(const MediaItem &, bool showsNotInLibraryAlert, Completion)>;

    NowPlayingSource(SystemMusicPlayer &player, LibraryAccessGate &gate, Display display,
                     LibraryAccessGate::PresentAlert presentAlert, QObject *parent = nullptr);

    /// Without permission nothing is shown and @p completion, which may be empty, is not called. Alerts are
    /// for the user's own request: it waits for players that are still being asked, unless the user asks
    /// again or chooses otherwise meanwhile.
    void selectNowPlayingSong(bool showsAlerts, Completion completion);
    /// The silent request of a window that has just opened. A song that the library does not have yet, since
    /// it is being read for the first time, is waited for.
    void selectSongOfStart();
    /// The player has another song, or the library knows more about it: it is shown where the player is
    /// followed, or where it is the song of the start.
    void nowPlayingItemDidChange(bool isFollowed);
    /// The user has chosen otherwise: silent requests that are under way come to nothing.
    void dropSilentRequests();
    [[nodiscard]] bool hasUserChosen() const { return m_choices > 0; }

private:
    using Answer = std::optional<MediaItem>;

    void ask(bool showsAlerts, SystemMusicPlayer::AnswerHandler then);
    void take(const Answer &song, bool showsAlerts, const Completion &completion);
    [[nodiscard]] bool isSongOfStart(const Answer &song) const;

    SystemMusicPlayer &m_player;
    LibraryAccessGate &m_gate;
    Display m_display;
    LibraryAccessGate::PresentAlert m_presentAlert;
    unsigned m_choices = 0;      ///< of the user, while requests were under way
    unsigned m_requests = 0;     ///< that wait for players, or that need not any more
    Answer m_unknownSongOfStart; ///< as the player describes it
};

} // namespace trackwise
