// SPDX-License-Identifier: GPL-3.0-or-later
#include "artwork/ArtworkView.h"

#include "platform/AddressOpener.h"
#include "platform/MusicPlayer.h"

#include <QTimeZone>
#include <QUrl>

#include <utility>

namespace trackwise {

ArtworkView::ArtworkView(ArtworkContent content, const ArtworkServices &services, QObject *parent)
    : QObject(parent)
    , m_content(std::move(content))
    , m_player(services.player)
    , m_loader(services.loader)
    , m_opener(services.opener)
    , m_fileName(services.fileName)
    , m_placeholderSymbol(trackwise::placeholderSymbol(services.now(), QTimeZone::systemTimeZone()))
    , m_drag(services.loader, services.files)
{
    readMediaItem();
    connect(&m_player, &MusicPlayer::playbackStateDidChange, this, &ArtworkView::refreshIsPlaying);
    connect(&m_drag, &ArtworkDrag::isCarryingChanged, this, &ArtworkView::isDraggingChanged);
}

void ArtworkView::readMediaItem()
{
    if (!m_content.mediaItem)
        return;
    m_artworkAddress = m_loader.address(*m_content.mediaItem);
    const MediaItem &song = *m_content.mediaItem;
    const bool needsFileName = song.title.value_or(QString()).isEmpty() && m_fileName;
    m_titleBlock = titleBlock(song, needsFileName ? m_fileName(song.persistentID) : QString());
}

void ArtworkView::setMediaItem(const MediaItem &mediaItem)
{
    Q_ASSERT(m_content.mediaItem && isSameSong(mediaItem, *m_content.mediaItem));
    m_content.mediaItem = mediaItem;
    readMediaItem();
    Q_EMIT mediaItemChanged();
}

bool ArtworkView::showsPlayButton() const
{
    return m_content.supportsPlayback && !m_content.isNowPlaying;
}

void ArtworkView::appear()
{
    refreshIsPlaying();
}

bool ArtworkView::isLoadedInPlayer() const
{
    const std::optional<MediaItem> loaded = m_player.nowPlayingItem();
    return loaded && m_content.mediaItem && isSameSong(*loaded, *m_content.mediaItem);
}

void ArtworkView::refreshIsPlaying()
{
    if (!m_content.supportsPlayback)
        return;
    const bool isNeither = !m_content.mediaItem && !m_player.nowPlayingItem();
    const bool isPlaying =
        (isNeither || isLoadedInPlayer()) && m_player.playbackState() == PlaybackState::Playing;
    if (isPlaying == m_isPlaying)
        return;
    m_isPlaying = isPlaying;
    Q_EMIT isPlayingChanged();
}

void ArtworkView::togglePlayback()
{
    if (!m_content.mediaItem)
        return;
    if (isLoadedInPlayer()) {
        if (m_player.playbackState() == PlaybackState::Playing)
            m_player.pause();
        else
            m_player.play();
        return;
    }
    m_player.stop();
    m_player.setQueue({*m_content.mediaItem});
    m_player.prepareToPlay();
    m_player.play();
}

void ArtworkView::openMusicApp()
{
    m_opener.open(QUrl(QStringLiteral("music://")));
}

void ArtworkView::copyArtwork()
{
    if (m_content.mediaItem)
        m_drag.copy(*m_content.mediaItem);
}

void ArtworkView::startDrag(qreal side, qreal cornerRadius, qreal pixelRatio, const QColor &ground,
                            const QPointF &hotSpot)
{
    if (!m_content.mediaItem)
        return;
    m_drag.start(*m_content.mediaItem, {.side = side,
                                        .cornerRadius = cornerRadius,
                                        .pixelRatio = pixelRatio,
                                        .ground = ground,
                                        .hotSpot = hotSpot});
}

void ArtworkView::cancelDrag()
{
    m_drag.cancel();
}

} // namespace trackwise
