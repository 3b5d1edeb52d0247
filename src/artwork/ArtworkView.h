// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "artwork/ArtworkContent.h"
#include "artwork/ArtworkDrag.h"

#include <QColor>
#include <QObject>
#include <QPointF>
#include <QtQml/qqmlregistration.h>

#include <functional>

namespace trackwise {

class AddressOpener;
class MusicPlayer;

/// What every artwork view uses; all of it outlives them.
struct ArtworkServices
{
    MusicPlayer &player; ///< the app's own, never the system's
    AddressOpener &opener;
    ArtworkLoader &loader;
    ArtworkFiles &files;
    std::function<Instant()> now;
    /// The name of a library song's file, as lists show it for a song without a title. Empty: not known.
    std::function<QString(PersistentID)> fileName = {};
};

/// Feeds `ArtworkView.qml`: one song's cover and, beneath it, its title, artist and play button. Another
/// song gets another view; this one follows its song's own values, and the player. Main thread.
class ArtworkView : public QObject
{
    Q_OBJECT
    QML_NAMED_ELEMENT(ArtworkViewModel)
    QML_UNCREATABLE("made by controllers")
    Q_PROPERTY(QString artworkAddress READ artworkAddress NOTIFY mediaItemChanged)
    Q_PROPERTY(QString placeholderSymbol READ placeholderSymbol CONSTANT)
    Q_PROPERTY(bool hasSong READ hasSong CONSTANT)
    Q_PROPERTY(QString title READ title NOTIFY mediaItemChanged)
    Q_PROPERTY(bool isTitleRightToLeft READ isTitleRightToLeft NOTIFY mediaItemChanged)
    Q_PROPERTY(bool hasArtist READ hasArtist NOTIFY mediaItemChanged)
    Q_PROPERTY(QString artist READ artist NOTIFY mediaItemChanged)
    Q_PROPERTY(bool isExplicit READ isExplicit NOTIFY mediaItemChanged)
    Q_PROPERTY(QString spokenText READ spokenText NOTIFY mediaItemChanged)
    Q_PROPERTY(bool isNowPlaying READ isNowPlaying CONSTANT)
    Q_PROPERTY(bool showsPlayButton READ showsPlayButton CONSTANT)
    Q_PROPERTY(bool alignPlaybackWithArtwork READ alignPlaybackWithArtwork CONSTANT)
    Q_PROPERTY(bool isPlaying READ isPlaying NOTIFY isPlayingChanged)
    Q_PROPERTY(bool isDragging READ isDragging NOTIFY isDraggingChanged)

public:
    ArtworkView(ArtworkContent content, const ArtworkServices &services, QObject *parent = nullptr);

    [[nodiscard]] QString artworkAddress() const { return m_artworkAddress; }
    [[nodiscard]] QString placeholderSymbol() const { return m_placeholderSymbol; }
    [[nodiscard]] bool hasSong() const { return m_content.mediaItem.has_value(); }
    [[nodiscard]] QString title() const { return m_titleBlock.title; }
    [[nodiscard]] bool isTitleRightToLeft() const { return m_titleBlock.title.isRightToLeft(); }
    [[nodiscard]] bool hasArtist() const { return m_titleBlock.artist.has_value(); }
    [[nodiscard]] QString artist() const { return m_titleBlock.artist.value_or(QString()); }
    [[nodiscard]] bool isExplicit() const { return m_titleBlock.isExplicit; }
    [[nodiscard]] QString spokenText() const { return trackwise::spokenText(m_titleBlock); }
    [[nodiscard]] bool isNowPlaying() const { return m_content.isNowPlaying; }
    [[nodiscard]] bool showsPlayButton() const;
    [[nodiscard]] bool alignPlaybackWithArtwork() const { return m_content.alignPlaybackWithArtwork; }
    [[nodiscard]] bool isPlaying() const { return m_isPlaying; }
    [[nodiscard]] bool isDragging() const { return m_drag.isCarrying(); }

    /// Takes a later record of the same song.
    void setMediaItem(const MediaItem &mediaItem);

    /// Side of the tile where the host has this width to give.
    Q_INVOKABLE [[nodiscard]] qreal side(qreal availableWidth) const { return artworkSide(availableWidth); }

    /// The view has come on screen: from now on isPlaying is what the player says.
    Q_INVOKABLE void appear();
    /// Pauses or resumes this song where the player has it loaded, else loads it and plays it. Whether it
    /// plays then is seen in isPlaying, when the player says so.
    Q_INVOKABLE void togglePlayback();
    Q_INVOKABLE void openMusicApp();
    Q_INVOKABLE void copyArtwork();
    /// Lengths in points; @p hotSpot from the tile's top left corner.
    Q_INVOKABLE void startDrag(qreal side, qreal cornerRadius, qreal pixelRatio, const QColor &ground,
                               const QPointF &hotSpot);
    Q_INVOKABLE void cancelDrag();

Q_SIGNALS:
    void mediaItemChanged();
    void isPlayingChanged();
    void isDraggingChanged();

private:
    void readMediaItem();
    [[nodiscard]] bool isLoadedInPlayer() const;
    void refreshIsPlaying();

    ArtworkContent m_content;
    MusicPlayer &m_player;
    ArtworkLoader &m_loader;
    AddressOpener &m_opener;
    std::function<QString(PersistentID)> m_fileName;
    QString m_artworkAddress;
    QString m_placeholderSymbol;
    TitleBlock m_titleBlock;
    ArtworkDrag m_drag;
    bool m_isPlaying = false;
};

} // namespace trackwise
