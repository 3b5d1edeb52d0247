// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/ContainerViewController.h"

#include "app/ReviewPolicy.h"
#include "platform/MusicPlayer.h"
#include "preferences/Preferences.h"
#include "ui/Theme.h"

namespace trackwise {

namespace {
constexpr qreal narrowColumn = 320;
constexpr qreal wideColumn = 414;
} // namespace

qreal primaryColumnWidth(const QSizeF &available)
{
    return available.width() > available.height() ? wideColumn : narrowColumn;
}

bool isRegularWidth(qreal windowWidth)
{
    return windowWidth >= Theme::regularWidth();
}

ContainerViewController::ContainerViewController(const ContainerServices &services,
                                                 DetailViewController &detail, QObject *parent)
    : QObject(parent)
    , m_services(services)
    , m_detail(detail)
    , m_loadedDate(services.now())
    , m_columnWidth(narrowColumn)
{
    m_detail.setDelegate(this);
    connect(&m_detail, &DetailViewController::visibleMediaItemDidChange, this,
            &ContainerViewController::refreshMediaItem);
}

ContainerViewController::~ContainerViewController()
{
    m_services.player.endGeneratingPlaybackNotifications();
}

void ContainerViewController::viewDidLoad()
{
    m_services.player.beginGeneratingPlaybackNotifications();
    installSidebar();
}

void ContainerViewController::viewWillTransitionToSize(const QSizeF &size)
{
    const qreal columnWidth = primaryColumnWidth(size);
    const bool isVisible = isRegularWidth(size.width());
    if (columnWidth == m_columnWidth && isVisible == m_isSidebarVisible)
        return;
    m_columnWidth = columnWidth;
    m_isSidebarVisible = isVisible;
    Q_EMIT layoutDidChange();
}

void ContainerViewController::installSidebar()
{
    // The old sidebar is taken off the screen before it goes.
    const std::unique_ptr<ArtworkSidebarView> old = std::move(m_artworkSidebar);
    m_artworkSidebar =
        std::make_unique<ArtworkSidebarView>(m_mediaItem, m_isNowPlaying, true, m_services.artwork);
    Q_EMIT sidebarDidChange();
}

void ContainerViewController::refreshMediaItem()
{
    m_mediaItem = m_detail.visibleMediaItem();
    m_artworkSidebar->artwork()->setMediaItem(*m_mediaItem);
}

void ContainerViewController::detailViewControllerDidChangeMediaItem(
    const std::optional<MediaItem> &mediaItem, bool isNowPlaying)
{
    stopPlayerIfItPlayedThePreviousSong();
    m_mediaItem = mediaItem;
    m_isNowPlaying = isNowPlaying;
    installSidebar();
    if (!m_mediaItem)
        return;
    m_services.preferences.countViewedSound();
    runReviewPolicy();
}

// The new song is not looked at: choosing the song that was shown already stops and rewinds it too.
void ContainerViewController::stopPlayerIfItPlayedThePreviousSong()
{
    const std::optional<MediaItem> playing = m_services.player.nowPlayingItem();
    const bool neitherHasASong = !m_mediaItem && !playing;
    const bool playedIt = m_mediaItem && playing && isSameSong(*m_mediaItem, *playing);
    if (!neitherHasASong && !playedIt)
        return;
    m_services.player.stop();
    m_services.player.skipToBeginning();
}

void ContainerViewController::runReviewPolicy()
{
    Preferences &preferences = m_services.preferences;
    const QDateTime now = m_services.now();
    const ReviewFacts facts{m_isInWindow, preferences.soundsViewedCount(), preferences.firstLaunchDate(),
                            m_loadedDate, preferences.lastReviewRequestDate()};
    if (!shouldRequestReview(facts, now))
        return;
    m_isReviewCardVisible = true;
    Q_EMIT reviewCardDidChange();
    preferences.setLastReviewRequestDate(now);
}

void ContainerViewController::rate()
{
    m_detail.rateApp();
    closeReviewCard();
}

void ContainerViewController::closeReviewCard()
{
    m_isReviewCardVisible = false;
    Q_EMIT reviewCardDidChange();
}

} // namespace trackwise
