// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "artwork/ArtworkView.h"
#include "detail/DetailServices.h"
#include "detail/DetailViewControllerDelegate.h"
#include "detail/KeyCommands.h"
#include "detail/LibraryAccessGate.h"
#include "detail/LinkDrop.h"
#include "detail/MoreMenu.h"
#include "detail/NowPlayingSource.h"
#include "detail/SongPickerSource.h"
#include "information/InformationView.h"
#include "recognition/RecognitionController.h"
#include "ui/Presentation.h"

#include <QObject>
#include <QPointer>

#include <functional>
#include <memory>
#include <optional>

namespace trackwise {

/// The main screen of a window. Holds the song that is shown; every source of songs ends in
/// displayMediaItem(), and clearSelectedSong() is the one way back to no song. Main thread.
class DetailViewController : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("one for each window")
    Q_PROPERTY(trackwise::InformationView *informationView READ informationView NOTIFY songDidChange)
    Q_PROPERTY(trackwise::ArtworkView *artworkView READ artworkView NOTIFY songDidChange)
    Q_PROPERTY(bool isNoSongLabelVisible READ isNoSongLabelVisible NOTIFY noSongLabelDidChange)
    Q_PROPERTY(trackwise::CommandMenu *moreMenu READ moreMenu CONSTANT)
    Q_PROPERTY(trackwise::Presentation *presentation READ presentation CONSTANT)
    Q_PROPERTY(trackwise::RecognitionHUD *recognitionHUD READ recognitionHUD CONSTANT)

public:
    using Completion = NowPlayingSource::Completion;

    /// @p services and @p presentation must outlive the controller.
    DetailViewController(const DetailServices &services, Presentation &presentation,
                         QObject *parent = nullptr);
    ~DetailViewController() override;

    /// The delegate is held weakly: it is not told of anything once it has gone.
    template <typename Delegate>
    void setDelegate(Delegate *delegate)
    {
        m_tellDelegate = [object = QPointer(delegate)](const auto &mediaItem, bool isNowPlaying) {
            if (object)
                object->detailViewControllerDidChangeMediaItem(mediaItem, isNowPlaying);
        };
    }

    /// To be called once, when the view is there: shows what is playing now, and follows it.
    void viewDidLoad();

    /// How a song comes on the screen.
    struct Display
    {
        bool isNowPlaying = false; ///< it follows the system's player
        bool showsNotInLibraryAlert = true;
    };
    /// Shows a song of the library. One that is not in it (persistent identifier 0) is refused: the song
    /// shown before stays. @p completion, which may be empty, is told whether the song was shown.
    void displayMediaItem(const MediaItem &mediaItem, const Display &display,
                          const Completion &completion = {});
    void updateMoreMenu();
    /// The time zone of the services is another one: the dates shown follow.
    void timeZoneDidChange();
    void presentAlert(const AlertMessage &message);
    /// Asks for access to the library, says why there is none, then calls @p then with whether there is.
    void requestLibraryAccess(std::function<void(bool authorized)> then);

    void selectNowPlayingSong(bool showsAlerts, Completion completion = {});
    void selectSongFromNowPlaying();
    /// Listens for a song, once library and microphone may be used.
    void selectSongMusicRecognition();
    void presentLyrics(const MediaItem &mediaItem);
    void presentHelp();
    void presentAbout();
    void rateApp();
    void showMoreApps();
    void showPrivacyPolicy();
    /// Lets the user write to whoever ships the program.
    void sendFeedback();

    void presentSettings();

    // What the user can ask for.
    Q_INVOKABLE void selectSongFromLibrary();
    Q_INVOKABLE void clearSelectedSong();
    Q_INVOKABLE void handleDroppedURLs(const QStringList &addresses);
    void pasteLink();

    void selectSongKeyCommanded() { selectSongFromLibrary(); }
    void selectSongNowPlayingKeyCommanded() { selectNowPlayingSong(true); }
    void selectSongMusicRecognitionKeyCommanded() { selectSongMusicRecognition(); }
    void clearSelectedSongKeyCommanded() { clearSelectedSong(); }
    /// Whether the command has anything to do: a song to clear, for example.
    [[nodiscard]] bool validateCommand(KeyCommand command) const;

    [[nodiscard]] const std::optional<MediaItem> &visibleMediaItem() const { return m_visible.mediaItem; }
    [[nodiscard]] bool isTrackingNowPlaying() const { return m_visible.isTrackingNowPlaying; }
    [[nodiscard]] InformationView *informationView() const { return m_visible.informationView.get(); }
    /// Stands above the list in narrow windows; there while the list is.
    [[nodiscard]] ArtworkView *artworkView() const { return m_visible.artworkView.get(); }
    [[nodiscard]] bool isNoSongLabelVisible() const { return m_noSongLabelVisible; }
    [[nodiscard]] bool isListening() const { return m_recognition->isListening(); }
    [[nodiscard]] CommandMenu *moreMenu() const { return m_moreMenu; }
    [[nodiscard]] Presentation *presentation() const { return &m_presentation; }
    [[nodiscard]] RecognitionHUD *recognitionHUD() const { return &m_recognition->hud(); }

Q_SIGNALS:
    void songDidChange();
    /// Values of the shown song, such as its play count, are different; it is the same song.
    void visibleMediaItemDidChange();
    void noSongLabelDidChange();
    /// Music is being recognised, or not any more.
    void shazamStateDidChange();

private:
    void showPlayingSongAtStart();
    void showInformationView(const MediaItem &mediaItem);
    void systemNowPlayingItemDidChange();
    void refreshVisibleMediaItem();
    void visibleMediaItemWasRead(const MediaItem &now);
    void perform(int moreCommand);
    void setNoSongLabelVisible(bool visible);
    [[nodiscard]] RecognitionController::Actions recognitionActions();
    [[nodiscard]] std::unique_ptr<InformationView> makeInformationView(const MediaItem &mediaItem);

    const DetailServices &m_services;
    Presentation &m_presentation;
    std::function<void(const std::optional<MediaItem> &, bool isNowPlaying)> m_tellDelegate;
    struct
    {
        std::optional<MediaItem> mediaItem;
        bool isTrackingNowPlaying = false;
        std::unique_ptr<ArtworkView> artworkView;
        std::unique_ptr<InformationView> informationView;
    } m_visible; ///< the song, and its views
    unsigned m_latestRefresh = 0;
    bool m_noSongLabelVisible = false;
    CommandMenu *m_moreMenu;
    LibraryAccessGate *m_gate;
    NowPlayingSource *m_nowPlaying;
    SongPickerSource *m_picker;
    LinkDrop *m_linkDrop;
    RecognitionController *m_recognition;
};

} // namespace trackwise
