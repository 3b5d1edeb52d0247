// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "device/players/playing/ApplicationMusicPlayer.h"
#include "device/players/publishing/PublishedTrack.h"

#include <QDBusConnection>
#include <QObject>
#include <QThreadPool>
#include <QVariantMap>

#include <functional>

namespace trackwise {

/// Publishes the app's own player on the session bus, so that media keys, desktop widgets and other programs
/// see and drive it (MPRIS 2.2). The name is taken when there is a first song to play, not before: desktops
/// send the media keys to the player that came last, and looking at songs must not take them from the player
/// that is heard. Without a bus nothing happens. Main thread.
class MprisPublisher : public QObject
{
    Q_OBJECT

public:
    struct Settings
    {
        QString appId;     ///< also the name of the desktop entry
        QString name;      ///< as people know the app
        QString artFolder; ///< where artwork is put for other programs to read; may be emptied any time
        std::function<void()> raise;
        std::function<void()> quit;
    };

    /// @p player must outlive the publisher.
    MprisPublisher(ApplicationMusicPlayer &player, Settings settings, const QDBusConnection &bus,
                   QObject *parent = nullptr);
    ~MprisPublisher() override;

    [[nodiscard]] const Settings &settings() const { return m_settings; }
    /// The values of all properties but the position, by their names on the bus.
    [[nodiscard]] QVariantMap playerProperties() const;
    [[nodiscard]] bool isCurrentTrack(const QString &trackId) const;

private:
    [[nodiscard]] std::optional<PublishedTrack> track() const;
    void scheduleUpdate();
    void update();
    void takeName(const QString &name);
    void loadArtwork();

    ApplicationMusicPlayer &m_player;
    Settings m_settings;
    QDBusConnection m_bus;
    QString m_requestedName;
    QVariantMap m_announced;
    ArtworkPtr m_artwork;
    QString m_artUrl;
    bool m_isUpdateScheduled = false;
    QThreadPool m_worker; ///< last: waits for its work before the rest goes
};

} // namespace trackwise
