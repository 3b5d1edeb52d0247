// SPDX-License-Identifier: GPL-3.0-or-later
#include "detail/DetailViewController.h"

#include "artwork/ArtworkMimeData.h"
#include "detail/DetailAlerts.h"
#include "lookup/DroppedUrls.h"
#include "platform/AddressOpener.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QMimeData>

namespace trackwise {

DetailViewController::DetailViewController(const DetailServices &services, Presentation &presentation,
                                           QObject *parent)
    : QObject(parent)
    , m_services(services)
    , m_presentation(presentation)
    , m_moreMenu(new MoreMenu([this](MoreCommand command) { perform(command); }, this))
    , m_gate(new LibraryAccessGate(
          services.library, [this](const AlertMessage &m) { presentMessage(m); }, this))
    , m_nowPlaying(new NowPlayingSource(
          services.systemPlayer, *m_gate,
          [this](const MediaItem &song, bool showsNotInLibraryAlert, const Completion &completion) {
              displayMediaItem(song, true, showsNotInLibraryAlert, completion);
          },
          [this](const AlertMessage &m) { presentMessage(m); }, this))
    , m_picker(new SongPickerSource(presentation, services.makePicker, services.connectedScenes, this))
    , m_linkDrop(
          new LinkDrop(*m_gate, services.library, services.catalog, services.searches, linkActions(), this))
{
    connect(m_picker, &SongPickerSource::didPickSong, this,
            [this](const MediaItem &song) { displayMediaItem(song, false, true); });
    connect(m_picker, &SongPickerSource::folderWanted, this, [this] {
        m_presentation.dismiss([controller = QPointer(this)] {
            if (controller)
                controller->perform(MoreCommand::OpenSettings);
        });
    });
    connect(&services.library, &MediaLibrary::songDidChange, this, [this](PersistentID song) {
        if (m_visibleMediaItem && m_visibleMediaItem->persistentID == song)
            refreshVisibleMediaItem();
    });
    connect(&services.library, &MediaLibrary::libraryDidChange, this,
            &DetailViewController::refreshVisibleMediaItem);
}

DetailViewController::~DetailViewController()
{
    m_services.systemPlayer.endGeneratingPlaybackNotifications();
}

void DetailViewController::viewDidLoad()
{
    updateMoreMenu();
    m_services.systemPlayer.whenReady([controller = QPointer(this)] {
        if (controller)
            controller->showPlayingSongAtStart();
    });
    m_services.systemPlayer.beginGeneratingPlaybackNotifications();
    connect(&m_services.systemPlayer, &SystemMusicPlayer::nowPlayingItemDidChange, this,
            &DetailViewController::systemNowPlayingItemDidChange);
}

void DetailViewController::showPlayingSongAtStart()
{
    // A song may have been asked for, or cleared, while the device was looking for players.
    if (m_visibleMediaItem || m_nowPlaying->hasUserChosen())
        return;
    m_nowPlaying->selectSongOfStart();
    // The answer to a first request for access may take the user a while: until then there is no song.
    setNoSongLabelVisible(true);
}

LinkDrop::Actions DetailViewController::linkActions()
{
    return {[this](const AlertMessage &message) { presentMessage(message); },
            [this](const MediaItem &song) { show(song, false); },
            [this](const MediaItem &song) { displayMediaItem(song, false, true); }};
}

void DetailViewController::handleDroppedURLs(const QStringList &addresses)
{
    m_linkDrop->handleDroppedURLs(addresses);
}

void DetailViewController::pasteLink()
{
    const QMimeData *pasted = QGuiApplication::clipboard()->mimeData();
    if (pasted && !isOurArtwork(*pasted))
        m_linkDrop->handleDroppedURLs(droppedUrls(*pasted));
}

void DetailViewController::displayMediaItem(const MediaItem &mediaItem, bool isNowPlaying,
                                            bool showsNotInLibraryAlert, const Completion &completion)
{
    const bool isInLibrary = mediaItem.persistentID.isInLibrary();
    if (isInLibrary)
        show(mediaItem, isNowPlaying);
    else if (showsNotInLibraryAlert)
        presentMessage(songNotAddedToLibrary());
    if (completion)
        completion(isInLibrary);
}

void DetailViewController::show(const MediaItem &mediaItem, bool isNowPlaying)
{
    if (!isNowPlaying)
        m_nowPlaying->dropSilentRequests();
    m_isTrackingNowPlaying = isNowPlaying;
    showInformationView(mediaItem);
    updateMoreMenu();
    tellDelegate(mediaItem, isNowPlaying);
}

void DetailViewController::showInformationView(const MediaItem &mediaItem)
{
    setNoSongLabelVisible(false);
    // The old view is taken off the screen before what it shows goes.
    const std::unique_ptr<ArtworkView> oldArtwork = std::move(m_artworkView);
    const std::unique_ptr<InformationView> old = std::move(m_informationView);
    m_artworkView = std::make_unique<ArtworkView>(
        ArtworkContent{mediaItem, m_isTrackingNowPlaying, true, false}, m_services.artwork);
    m_informationView = makeInformationView(mediaItem);
    m_visibleMediaItem = mediaItem;
    Q_EMIT songDidChange();
}

std::unique_ptr<InformationView> DetailViewController::makeInformationView(const MediaItem &mediaItem)
{
    InformationView::Song song{mediaItem, m_isTrackingNowPlaying, true, {}};
    song.lyricsAction = [controller = QPointer(this)] {
        if (controller && controller->m_visibleMediaItem)
            controller->presentLyrics(*controller->m_visibleMediaItem);
    };
    return std::make_unique<InformationView>(std::move(song), m_services.preferences, m_services.locale,
                                             m_services.zone);
}

void DetailViewController::clearSelectedSong()
{
    if (!m_informationView)
        return;
    m_nowPlaying->dropSilentRequests();
    setNoSongLabelVisible(true);
    const std::unique_ptr<ArtworkView> oldArtwork = std::move(m_artworkView);
    const std::unique_ptr<InformationView> old = std::move(m_informationView);
    m_isTrackingNowPlaying = false;
    m_visibleMediaItem.reset();
    Q_EMIT songDidChange();
    tellDelegate(std::nullopt, false);
    updateMoreMenu();
}

void DetailViewController::updateMoreMenu()
{
    m_moreMenu->update({m_informationView != nullptr, m_services.openSettings != nullptr});
}

void DetailViewController::presentAlert(const QString &title, const QString &message, bool includesOpenMusic,
                                        bool includesOpenSettings)
{
    presentMessage({title, message, includesOpenMusic, includesOpenSettings});
}

void DetailViewController::presentMessage(const AlertMessage &message)
{
    AlertDestinations destinations;
    destinations.openMusic = [&addresses = m_services.addresses] {
        addresses.open(QUrl(QStringLiteral("music://")));
    };
    if (m_services.openSettings) {
        destinations.openSettings = [controller = QPointer(this)] {
            if (controller)
                controller->perform(MoreCommand::OpenSettings);
        };
    }
    m_presentation.presentAlert(makeAlert(message, destinations));
}

void DetailViewController::selectSongFromLibrary()
{
    m_gate->requestLibraryAccess(RefusalAlerts::Shown,
                                 [this](bool authorized) { m_picker->presentMediaPicker(authorized); });
}

void DetailViewController::selectNowPlayingSong(bool showsAlerts, Completion completion)
{
    m_nowPlaying->selectNowPlayingSong(showsAlerts, std::move(completion));
}

void DetailViewController::selectSongFromNowPlaying()
{
    if (!m_presentation.isPresenting()) {
        selectNowPlayingSong(true);
        return;
    }
    m_presentation.dismiss([controller = QPointer(this)] {
        if (controller)
            controller->selectNowPlayingSong(true);
    });
}

void DetailViewController::systemNowPlayingItemDidChange()
{
    if (m_isTrackingNowPlaying || m_nowPlaying->stopWaitingForSongOfStart())
        selectNowPlayingSong(false);
}

// A play of the shown song was counted, or its file was retagged. It is the same song: nobody has chosen
// anything, so what is shown stays and its values follow.
void DetailViewController::refreshVisibleMediaItem()
{
    if (!m_visibleMediaItem)
        return;
    const std::optional<MediaItem> now = m_services.library.song(m_visibleMediaItem->persistentID);
    if (!now || *now == *m_visibleMediaItem)
        return;
    m_visibleMediaItem = now;
    m_artworkView->setMediaItem(*now);
    m_informationView->setMediaItem(*now);
    Q_EMIT visibleMediaItemDidChange();
}

void DetailViewController::timeZoneDidChange()
{
    refreshVisibleMediaItem(); // a release date is the start of a day in the time zone
    if (m_informationView)
        m_informationView->setTimeZone(m_services.zone);
}

void DetailViewController::presentLyrics(const MediaItem &mediaItem)
{
    if (!m_presentation.pushedViews().empty())
        return; // a second click while they slide in
    m_presentation.push(std::make_shared<HostedView>(
        tr("Lyrics"), QUrl(QStringLiteral("qrc:/qt/qml/Trackwise/Screens/LyricsView.qml")),
        QVariantMap{{QStringLiteral("lyrics"), mediaItem.lyrics.value_or(QString())}}));
}

void DetailViewController::perform(MoreCommand command)
{
    switch (command) {
    case MoreCommand::SelectNowPlaying:
        selectNowPlayingSong(true);
        break;
    case MoreCommand::ClearSelectedSong:
        clearSelectedSong();
        break;
    case MoreCommand::OpenSettings:
        if (m_services.openSettings)
            m_services.openSettings(m_presentation);
        break;
    }
}

void DetailViewController::setNoSongLabelVisible(bool visible)
{
    if (visible == m_noSongLabelVisible)
        return;
    m_noSongLabelVisible = visible;
    Q_EMIT noSongLabelDidChange();
}

void DetailViewController::tellDelegate(const std::optional<MediaItem> &mediaItem, bool isNowPlaying)
{
    if (m_delegateObject)
        m_delegate->detailViewControllerDidChangeMediaItem(mediaItem, isNowPlaying);
}

} // namespace trackwise
