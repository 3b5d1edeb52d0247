// SPDX-License-Identifier: GPL-3.0-or-later
#include "artwork/ArtworkSidebarView.h"

#include <utility>

namespace trackwise {

ArtworkSidebarView::ArtworkSidebarView(std::optional<MediaItem> mediaItem, bool isNowPlaying,
                                       bool supportsPlayback, const ArtworkServices &services,
                                       QObject *parent)
    : QObject(parent)
    , m_supportsPlayback(supportsPlayback)
    , m_artwork({.mediaItem = std::move(mediaItem),
                 .isNowPlaying = isNowPlaying,
                 .supportsPlayback = true,
                 .alignPlaybackWithArtwork = true},
                services)
{}

} // namespace trackwise
