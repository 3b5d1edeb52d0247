// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "artwork/ArtworkView.h"

namespace trackwise {

/// Feeds `ArtworkSidebarView.qml`, the column beside the details in wide windows. Main thread.
class ArtworkSidebarView : public QObject
{
    Q_OBJECT
    QML_NAMED_ELEMENT(ArtworkSidebarViewModel)
    QML_UNCREATABLE("made by controllers")
    Q_PROPERTY(trackwise::ArtworkView *artwork READ artwork CONSTANT)

public:
    /// The sidebar offers playback always, whatever @p supportsPlayback says; the value is only carried.
    ArtworkSidebarView(std::optional<MediaItem> mediaItem, bool isNowPlaying, bool supportsPlayback,
                       const ArtworkServices &services, QObject *parent = nullptr);

    [[nodiscard]] ArtworkView *artwork() { return &m_artwork; }
    [[nodiscard]] bool supportsPlayback() const { return m_supportsPlayback; }

private:
    bool m_supportsPlayback;
    ArtworkView m_artwork;
};

} // namespace trackwise
