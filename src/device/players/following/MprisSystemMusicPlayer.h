// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "device/players/following/MprisFollower.h"
#include "platform/SongMatching.h"
#include "platform/SystemMusicPlayer.h"

#include <QThreadPool>
#include <QTimer>

#include <cstdint>
#include <functional>
#include <vector>

namespace trackwise {

/// The device's music player on a desktop of many: whichever player on the session bus plays, its track
/// looked up in the library. The look-up happens on a worker; the item changes when it is done. Main thread.
class MprisSystemMusicPlayer : public SystemMusicPlayer
{
    Q_OBJECT

public:
    /// @p library must outlive the player, which is at work when it returns. @p appId names our own players
    /// on the bus.
    MprisSystemMusicPlayer(const SongMatching &library, const QDBusConnection &bus, const QString &appId,
                           QObject *parent = nullptr);

    [[nodiscard]] std::optional<MediaItem> nowPlayingItem() const override { return m_item; }
    void beginGeneratingPlaybackNotifications() override;
    void endGeneratingPlaybackNotifications() override;

    /// Calls @p handler once nowPlayingItem() tells what was playing when this was made: at once or within
    /// about a second. Before that it tells nothing. Not called when the player goes first.
    void whenReady(std::function<void()> handler) override;
    void whenAnswered(AnswerHandler handler) override;
    /// Looks the track up again; for when the library has changed. The change signal is sent only if it is
    /// another song now: a play counted since is none.
    void refresh();

    [[nodiscard]] std::vector<PlayerDescription> players() const { return m_follower.players(); }
    void setIgnored(QStringList kinds) { m_follower.setIgnored(std::move(kinds)); }
    /// Shows the window of the player that plays. False when there is none or it has no window to show.
    bool raisePlayer() { return m_follower.raisePlayer(); }

Q_SIGNALS:
    /// A song of the library was played to its end in the followed player. Sent whether or not
    /// notifications are being generated.
    void songWasPlayed(trackwise::PersistentID song);

private:
    void show(std::optional<MediaItem> item);
    void becomeReady();
    [[nodiscard]] bool isAnswerAwaited() const;
    void tellIfAnswered();
    void tellAnswer();
    void countPlay(const TrackMetadata &track);

    const SongMatching &m_library;
    MprisFollower m_follower;
    std::optional<MediaItem> m_item;
    std::uint64_t m_latestLookUp = 0;
    int m_listeners = 0;
    bool m_hasSurveyed = false;
    bool m_isReady = false;
    bool m_isLookingUp = false;
    std::vector<std::function<void()>> m_waitingForReady;
    std::vector<AnswerHandler> m_waitingForAnswer;
    QTimer m_answerLimit;
    QThreadPool m_workers; ///< last: waits for its work before the rest goes
};

} // namespace trackwise
