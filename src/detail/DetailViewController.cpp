// SPDX-License-Identifier: GPL-3.0-or-later
#include "detail/DetailViewController.h"

#include "artwork/ArtworkMimeData.h"
#include "detail/DetailAlerts.h"
#include "detail/FeedbackMail.h"
#include "detail/StoreLinks.h"
#include "detail/SupportScreens.h"
#include "lookup/DroppedUrls.h"
#include "platform/AddressOpener.h"
#include "platform/Background.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QMimeData>

#include <utility>

namespace trackwise {

DetailViewController::DetailViewController(const DetailServices &services, Presentation &presentation,
                                           QObject *parent)
    : QObject(parent)
    , m_services(services)
    , m_presentation(presentation)
    , m_moreMenu(new CommandMenu(
          MoreMenu::title(), [this](int command) { perform(command); }, this))
    , m_gate(new LibraryAccessGate(
          services.library, [this](const AlertMessage &message) { presentAlert(message); }, this))
    , m_nowPlaying(new NowPlayingSource(
          services.systemPlayer, *m_gate,
          [this](const MediaItem &song, bool showsNotInLibraryAlert, const Completion &completion) {
              displayMediaItem(song, {.isNowPlaying = true, .showsNotInLibraryAlert = showsNotInLibraryAlert},
                               completion);
          },
          [this](const AlertMessage &message) { presentAlert(message); }, this))
    , m_picker(new SongPickerSource(presentation, services.makePicker, services.connectedScenes, this))
    , m_linkDrop(new LinkDrop(*m_gate, services.library, services.catalog, services.searches,
                              {.presentAlert = [this](const AlertMessage &message) { presentAlert(message); },
                               .display = [this](const MediaItem &song) { displayMediaItem(song, {}); }},
                              this))
    , m_recognition(
          new RecognitionController(services.recognition, services.library, recognitionActions(), this))
{
    connect(m_picker, &SongPickerSource::didPickSong, this,
            [this](const MediaItem &song) { displayMediaItem(song, {}); });
    connect(m_picker, &SongPickerSource::folderWanted, this, [this] {
        m_presentation.dismiss([controller = QPointer(this)] {
            if (controller)
                controller->presentSettings();
        });
    });
    connect(&services.library, &MediaLibrary::songDidChange, this, [this](PersistentID song) {
        if (m_visible.mediaItem && m_visible.mediaItem->persistentID == song)
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
    if (m_visible.mediaItem || m_nowPlaying->hasUserChosen())
        return;
    m_nowPlaying->selectSongOfStart();
    // The answer to a first request for access may take the user a while: until then there is no song.
    setNoSongLabelVisible(true);
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

void DetailViewController::displayMediaItem(const MediaItem &mediaItem, const Display &display,
                                            const Completion &completion)
{
    const bool isInLibrary = mediaItem.persistentID.isInLibrary();
    if (isInLibrary) {
        if (!display.isNowPlaying)
            m_nowPlaying->dropSilentRequests();
        m_visible.isTrackingNowPlaying = display.isNowPlaying;
        showInformationView(mediaItem);
        updateMoreMenu();
        if (m_tellDelegate)
            m_tellDelegate(mediaItem, display.isNowPlaying);
    } else if (display.showsNotInLibraryAlert) {
        presentAlert(songNotAddedToLibrary());
    }
    if (completion)
        completion(isInLibrary);
}

void DetailViewController::showInformationView(const MediaItem &mediaItem)
{
    setNoSongLabelVisible(false);
    // The old views are taken off the screen before what they show goes.
    const auto oldArtwork = std::move(m_visible.artworkView);
    const auto oldInformation = std::move(m_visible.informationView);
    m_visible.artworkView = std::make_unique<ArtworkView>(
        ArtworkContent{
            .mediaItem = mediaItem, .isNowPlaying = m_visible.isTrackingNowPlaying, .supportsPlayback = true},
        m_services.artwork);
    m_visible.informationView = makeInformationView(mediaItem);
    m_visible.mediaItem = mediaItem;
    Q_EMIT songDidChange();
}

std::unique_ptr<InformationView> DetailViewController::makeInformationView(const MediaItem &mediaItem)
{
    InformationView::Song song{.mediaItem = mediaItem,
                               .isNowPlaying = m_visible.isTrackingNowPlaying,
                               .supportsPlayback = true,
                               .lyricsAction = [controller = QPointer(this)] {
                                   if (controller && controller->m_visible.mediaItem)
                                       controller->presentLyrics(*controller->m_visible.mediaItem);
                               }};
    return std::make_unique<InformationView>(std::move(song), m_services.preferences, m_services.locale,
                                             m_services.zone);
}

void DetailViewController::clearSelectedSong()
{
    if (!m_visible.mediaItem)
        return;
    m_nowPlaying->dropSilentRequests();
    setNoSongLabelVisible(true);
    const auto old = std::exchange(m_visible, {});
    Q_EMIT songDidChange();
    if (m_tellDelegate)
        m_tellDelegate(std::nullopt, false);
    updateMoreMenu();
}

void DetailViewController::updateMoreMenu()
{
    m_moreMenu->setEntries(MoreMenu::entries({.showsSong = m_visible.mediaItem.has_value(),
                                              .isListening = isListening(),
                                              .hasSettings = m_services.openSettings != nullptr}));
}

void DetailViewController::presentAlert(const AlertMessage &message)
{
    AlertDestinations destinations;
    destinations.openMusic = [&addresses = m_services.addresses] {
        addresses.open(QUrl(QStringLiteral("music://")));
    };
    if (m_services.openSettings) {
        destinations.openSettings = [controller = QPointer(this)] {
            if (controller)
                controller->presentSettings();
        };
    }
    m_presentation.presentAlert(makeAlert(message, destinations));
}

void DetailViewController::requestLibraryAccess(std::function<void(bool)> then)
{
    m_gate->requestLibraryAccess(RefusalAlerts::Shown, std::move(then));
}

void DetailViewController::selectSongFromLibrary()
{
    requestLibraryAccess([this](bool authorized) { m_picker->presentMediaPicker(authorized); });
}

void DetailViewController::selectNowPlayingSong(bool showsAlerts, Completion completion)
{
    m_nowPlaying->selectNowPlayingSong(showsAlerts, std::move(completion));
}

void DetailViewController::selectSongFromNowPlaying()
{
    m_presentation.whenUncovered([controller = QPointer(this)] {
        if (controller)
            controller->selectNowPlayingSong(true);
    });
}

void DetailViewController::selectSongMusicRecognition()
{
    m_recognition->selectSongMusicRecognition();
}

RecognitionController::Actions DetailViewController::recognitionActions()
{
    return {.requestLibraryAccess =
                [this](std::function<void(bool)> then) { requestLibraryAccess(std::move(then)); },
            .presentNoMicrophoneAccess = [this] { presentAlert(microphoneAccessDenied()); },
            .stopTrackingNowPlaying = [this] { m_visible.isTrackingNowPlaying = false; },
            .stateDidChange =
                [this] {
                    updateMoreMenu();
                    Q_EMIT shazamStateDidChange();
                },
            .display = [this](const MediaItem &song) { displayMediaItem(song, {}); }};
}

void DetailViewController::systemNowPlayingItemDidChange()
{
    m_nowPlaying->nowPlayingItemDidChange(m_visible.isTrackingNowPlaying);
}

// A play of the shown song was counted, or its file was retagged. It is the same song: nobody has chosen
// anything, so what is shown stays and its values follow.
void DetailViewController::refreshVisibleMediaItem()
{
    if (!m_visible.mediaItem)
        return;
    runInBackground(
        m_services.searches, this,
        [&library = m_services.library, song = m_visible.mediaItem->persistentID] {
            return library.song(song);
        },
        [this, refresh = ++m_latestRefresh](const std::optional<MediaItem> &now) {
            if (now && refresh == m_latestRefresh)
                visibleMediaItemWasRead(*now);
        });
}

void DetailViewController::visibleMediaItemWasRead(const MediaItem &now)
{
    const std::optional<MediaItem> &shown = m_visible.mediaItem;
    if (!shown || now.persistentID != shown->persistentID || now == *shown)
        return;
    m_visible.mediaItem = now;
    m_visible.artworkView->setMediaItem(now);
    m_visible.informationView->setMediaItem(now);
    Q_EMIT visibleMediaItemDidChange();
}

void DetailViewController::timeZoneDidChange()
{
    refreshVisibleMediaItem(); // a release date is the start of a day in the time zone
    if (m_visible.informationView)
        m_visible.informationView->setTimeZone(m_services.zone);
}

void DetailViewController::presentLyrics(const MediaItem &mediaItem)
{
    if (!m_presentation.pushedViews().empty())
        return; // a second click while they slide in
    m_presentation.push(std::make_shared<HostedView>(
        tr("Lyrics"), QUrl(QStringLiteral("qrc:/qt/qml/Trackwise/Screens/LyricsView.qml")),
        QVariantMap{{QStringLiteral("lyrics"), mediaItem.lyrics.value_or(QString())}}));
}

void DetailViewController::presentHelp()
{
    presentHelpScreen(m_presentation, [controller = QPointer(this)] {
        if (controller)
            controller->sendFeedback();
    });
}

void DetailViewController::presentAbout()
{
    const auto to = [this](void (DetailViewController::*operation)()) {
        return [controller = QPointer(this), operation] {
            if (controller)
                (controller->*operation)();
        };
    };
    presentAboutScreen(m_presentation, m_services.support,
                       {.showMoreApps = to(&DetailViewController::showMoreApps),
                        .rate = to(&DetailViewController::rateApp),
                        .showPrivacyPolicy = to(&DetailViewController::showPrivacyPolicy)});
}

void DetailViewController::rateApp()
{
    openReviewPage(m_services.support.deployment, m_services.addresses);
}

void DetailViewController::showMoreApps()
{
    m_services.addresses.open(moreAppsAddress(m_services.support.deployment));
}

void DetailViewController::showPrivacyPolicy()
{
    m_services.addresses.open(privacyAddress(m_services.support.deployment));
}

void DetailViewController::sendFeedback()
{
    sendFeedbackMail(m_services.support, feedbackFacts(m_services.support), m_services.addresses);
}

void DetailViewController::presentSettings()
{
    if (m_services.openSettings)
        m_services.openSettings(m_presentation);
}

bool DetailViewController::validateCommand(KeyCommand command) const
{
    switch (command) {
    case KeyCommand::SelectSongMusicRecognition:
        return !isListening();
    case KeyCommand::ClearSelectedSong:
        return m_visible.informationView != nullptr;
    default:
        return true;
    }
}

void DetailViewController::perform(int moreCommand)
{
    switch (moreCommand) {
    case MoreMenu::SelectNowPlaying:
        selectNowPlayingSong(true);
        break;
    case MoreMenu::SelectMusicRecognition:
        selectSongMusicRecognition();
        break;
    case MoreMenu::ClearSelectedSong:
        clearSelectedSong();
        break;
    case MoreMenu::ShowAbout:
        presentAbout();
        break;
    case MoreMenu::ShowHelp:
        presentHelp();
        break;
    case MoreMenu::OpenSettings:
        presentSettings();
        break;
    default:
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

} // namespace trackwise
