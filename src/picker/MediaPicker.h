// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "picker/EmptyState.h"
#include "picker/LibraryListModel.h"
#include "picker/ListeningStatus.h"
#include "picker/ScanStatus.h"
#include "song/MediaItem.h"

#include <QThreadPool>

#include <array>
#include <vector>

namespace trackwise {

class MediaLibrary;

/// Lets the user choose one song of the library: by title, artist, album, date or by typing. The object may
/// be shown again and again; each time it starts without search text and highlight, on the tab that was used
/// last. Main thread.
class MediaPicker : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Made by whoever wants a song")

    Q_PROPERTY(Tab tab READ tab WRITE setTab NOTIFY tabChanged)
    Q_PROPERTY(QString searchText READ searchText WRITE setSearchText NOTIFY searchTextChanged)
    Q_PROPERTY(QString title READ title NOTIFY currentListChanged)
    Q_PROPERTY(QString groupTitle READ groupTitle NOTIFY currentListChanged)
    Q_PROPERTY(QString resultsSummary READ resultsSummary NOTIFY currentListChanged)
    Q_PROPERTY(bool isShowingGroup READ isShowingGroup NOTIFY currentListChanged)
    Q_PROPERTY(bool isShowingResults READ isShowingResults NOTIFY currentListChanged)
    Q_PROPERTY(bool canGoBack READ canGoBack NOTIFY currentListChanged)
    Q_PROPERTY(trackwise::LibraryListModel *currentList READ currentList NOTIFY currentListChanged)
    Q_PROPERTY(trackwise::LibraryListModel *songs READ songs CONSTANT)
    Q_PROPERTY(trackwise::LibraryListModel *artists READ artists CONSTANT)
    Q_PROPERTY(trackwise::LibraryListModel *albums READ albums CONSTANT)
    Q_PROPERTY(trackwise::LibraryListModel *recentlyAdded READ recentlyAdded CONSTANT)
    Q_PROPERTY(trackwise::LibraryListModel *groupSongs READ groupSongs CONSTANT)
    Q_PROPERTY(trackwise::LibraryListModel *results READ results CONSTANT)
    Q_PROPERTY(trackwise::ScanStatus *scan READ scan CONSTANT)
    Q_PROPERTY(trackwise::ListeningStatus *listening READ listening CONSTANT)
    Q_PROPERTY(trackwise::EmptyState emptyState READ emptyState NOTIFY emptyStateChanged)

public:
    enum class Tab { Songs, Artists, Albums, RecentlyAdded };
    Q_ENUM(Tab)

    /// All four must outlive the picker.
    MediaPicker(MediaLibrary &library, const LibraryBrowser &browser, LibraryScan &scan,
                RecognitionIndex &index, QObject *parent = nullptr);
    ~MediaPicker() override;

    /// Call each time the picker is about to be shown; its view does so when it is made.
    Q_INVOKABLE void prepare();

    [[nodiscard]] Tab tab() const { return m_tab; }
    void setTab(Tab tab);
    [[nodiscard]] QString searchText() const { return m_searchText; }
    /// Starts a search for songs; an empty text ends it.
    void setSearchText(const QString &text);

    [[nodiscard]] QString title() const;
    /// The artist or album that was opened last.
    [[nodiscard]] QString groupTitle() const;
    /// How many songs the search has found, in words; empty while nothing is looked for.
    [[nodiscard]] QString resultsSummary() const;
    [[nodiscard]] bool isShowingGroup() const { return m_isShowingGroup; }
    /// False until the first results have come, so that there is no blank moment before.
    [[nodiscard]] bool isShowingResults() const { return !m_searchText.isEmpty() && m_results->isLoaded(); }
    [[nodiscard]] bool canGoBack() const { return m_isShowingGroup && !isShowingResults(); }
    [[nodiscard]] LibraryListModel *currentList() const;
    [[nodiscard]] LibraryListModel *songs() const { return m_tabLists[0]; }
    [[nodiscard]] LibraryListModel *artists() const { return m_tabLists[1]; }
    [[nodiscard]] LibraryListModel *albums() const { return m_tabLists[2]; }
    [[nodiscard]] LibraryListModel *recentlyAdded() const { return m_tabLists[3]; }
    [[nodiscard]] LibraryListModel *groupSongs() const { return m_groupSongs; }
    [[nodiscard]] LibraryListModel *results() const { return m_results; }
    [[nodiscard]] ScanStatus *scan() const { return m_scan; }
    [[nodiscard]] ListeningStatus *listening() const { return m_listening; }
    [[nodiscard]] EmptyState emptyState() const;

    /// Picks the song of the current list's row, or opens its artist or album. Picking and cancelling end
    /// it: what comes later, such as the second click of two, means nothing until prepare().
    Q_INVOKABLE void activate(int row);
    /// From an artist's or album's songs to the list before.
    Q_INVOKABLE void goBack();
    Q_INVOKABLE void cancel();
    /// Moves the highlight, picks, goes back or cancels. False where the key means nothing here. While text
    /// is being edited, Home and End belong to the text.
    Q_INVOKABLE bool handleKey(int key, int modifiers, bool isEditingText);
    /// Takes a character that was typed while the focus was elsewhere. False where @p text is not one.
    Q_INVOKABLE bool type(const QString &text);

Q_SIGNALS:
    /// One song; none when it vanished from the library at that moment.
    void didPick(const std::vector<trackwise::MediaItem> &mediaItems);
    void didCancel();
    /// The library is empty, and the user wants to say where the music is.
    void folderWanted();

    void searchFocusWanted();
    void tabChanged();
    void searchTextChanged();
    void currentListChanged();
    void emptyStateChanged();

private:
    LibraryListModel *makeList(ListContent::Kind kind);
    [[nodiscard]] std::vector<LibraryListModel *> allLists() const;
    void watchCurrentList();
    void resultsDidLoad();
    void activateHighlighted();
    void pick(PersistentID song);
    void openGroup(SongScope::Kind kind, int row);
    void escape();

    MediaLibrary &m_library;
    const LibraryBrowser &m_browser;
    QThreadPool m_pool;
    ScanStatus *m_scan;
    ListeningStatus *m_listening;
    std::array<LibraryListModel *, 4> m_tabLists{};
    LibraryListModel *m_groupSongs;
    LibraryListModel *m_results;
    Tab m_tab = Tab::Songs;
    QString m_searchText;
    QString m_groupTitle;
    bool m_isShowingGroup = false;
    bool m_isPresented = false;
    bool m_picksFirstResult = false; ///< Return came before the results
};

} // namespace trackwise
