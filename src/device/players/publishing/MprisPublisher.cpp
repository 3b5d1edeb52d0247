// SPDX-License-Identifier: GPL-3.0-or-later
#include "device/players/publishing/MprisPublisher.h"

#include "device/bus/BusCalls.h"
#include "device/players/MprisNames.h"
#include "device/players/publishing/ArtworkFile.h"
#include "device/players/publishing/MprisAdaptors.h"
#include "platform/Background.h"

#include <QCoreApplication>
#include <QUrl>

#include <utility>

namespace trackwise {

namespace {

QString textOf(PlaybackState state)
{
    switch (state) {
    case PlaybackState::Playing:
        return QStringLiteral("Playing");
    case PlaybackState::Paused:
        return QStringLiteral("Paused");
    case PlaybackState::Stopped:
        break;
    }
    return QStringLiteral("Stopped");
}

} // namespace

MprisPublisher::MprisPublisher(ApplicationMusicPlayer &player, Settings settings, const QDBusConnection &bus,
                               QObject *parent)
    : QObject(parent)
    , m_player(player)
    , m_settings(std::move(settings))
    , m_bus(bus)
{
    m_worker.setMaxThreadCount(1);
    if (!m_bus.isConnected())
        return;
    new MprisRootAdaptor(*this);
    new MprisPlayerAdaptor(*this, player);
    m_bus.registerObject(mprisPath, this, QDBusConnection::ExportAdaptors);
    m_announced = playerProperties();
    connect(&player, &ApplicationMusicPlayer::didChange, this, &MprisPublisher::scheduleUpdate);
    scheduleUpdate();
}

MprisPublisher::~MprisPublisher()
{
    if (m_requestedName.isEmpty())
        return;
    m_bus.unregisterObject(mprisPath);
    m_bus.send(busCall(QStringLiteral("ReleaseName")) << m_requestedName);
}

QVariantMap MprisPublisher::playerProperties() const
{
    const auto current = track();
    return {
        {QStringLiteral("PlaybackStatus"), textOf(m_player.playbackState())},
        {QStringLiteral("Metadata"), publishedMetadata(m_settings.appId, current)},
        {QStringLiteral("Volume"), m_player.volume()},
        {QStringLiteral("Rate"), 1.0},
        {QStringLiteral("MinimumRate"), 1.0},
        {QStringLiteral("MaximumRate"), 1.0},
        {QStringLiteral("CanGoNext"), m_player.hasNextItem()},
        {QStringLiteral("CanGoPrevious"), m_player.hasPreviousItem()},
        {QStringLiteral("CanPlay"), current.has_value()},
        {QStringLiteral("CanPause"), current.has_value()},
        {QStringLiteral("CanSeek"), current && current->length.count() > 0},
    };
}

bool MprisPublisher::isCurrentTrack(const QString &trackId) const
{
    const auto current = track();
    return current && trackId == publishedTrackId(m_settings.appId, current);
}

std::optional<PublishedTrack> MprisPublisher::track() const
{
    const auto item = m_player.nowPlayingItem();
    if (!item)
        return std::nullopt;
    const QString artUrl = item->artwork == m_artwork ? m_artUrl : QString();
    return PublishedTrack{*item, m_player.duration(), m_player.nowPlayingPath(), artUrl};
}

/// One change of song changes several properties; they go out together.
void MprisPublisher::scheduleUpdate()
{
    if (std::exchange(m_isUpdateScheduled, true))
        return;
    QMetaObject::invokeMethod(this, &MprisPublisher::update, Qt::QueuedConnection);
}

void MprisPublisher::update()
{
    m_isUpdateScheduled = false;
    loadArtwork();
    if (m_requestedName.isEmpty() && m_player.nowPlayingItem())
        takeName(mprisPrefix + m_settings.appId);

    const QVariantMap properties = playerProperties();
    QVariantMap changed;
    for (auto it = properties.begin(); it != properties.end(); ++it) {
        if (m_announced.value(it.key()) != it.value())
            changed.insert(it.key(), it.value());
    }
    if (changed.isEmpty())
        return;
    m_announced = properties;
    QDBusMessage signal = QDBusMessage::createSignal(
        mprisPath, QStringLiteral("org.freedesktop.DBus.Properties"), QStringLiteral("PropertiesChanged"));
    signal << mprisPlayerInterface << changed << QStringList();
    m_bus.send(signal);
}

void MprisPublisher::takeName(const QString &name)
{
    m_requestedName = name;
    requestName(m_bus, name, this, [this, name](bool isTaken) {
        const QString instance = QStringLiteral(".instance%1").arg(QCoreApplication::applicationPid());
        if (isTaken && !name.endsWith(instance))
            takeName(name + instance); // another process of the app was here first
    });
}

void MprisPublisher::loadArtwork()
{
    const auto item = m_player.nowPlayingItem();
    const ArtworkPtr artwork = item ? item->artwork : nullptr;
    if (artwork == m_artwork)
        return;
    m_artwork = artwork;
    m_artUrl.clear();
    if (!artwork)
        return;
    runInBackground(
        m_worker, this, [artwork, folder = m_settings.artFolder] { return artworkFile(*artwork, folder); },
        [this, artwork](const std::optional<QString> &path) {
            if (artwork != m_artwork || !path)
                return;
            m_artUrl = QUrl::fromLocalFile(*path).toString(QUrl::FullyEncoded);
            scheduleUpdate();
        });
}

} // namespace trackwise
