// SPDX-License-Identifier: GPL-3.0-or-later
#include "picker/MediaPicker.h"

#include "platform/Background.h"
#include "platform/MediaLibrary.h"

#include <algorithm>

namespace trackwise {

namespace {

// Two orders that are being read and two pages of rows.
constexpr int workerCount = 4;

} // namespace

MediaPicker::MediaPicker(MediaLibrary &library, const LibraryBrowser &browser, LibraryScan &scan,
                         RecognitionIndex &index, QObject *parent)
    : QObject(parent)
    , m_library(library)
    , m_browser(browser)
    , m_scan(new ScanStatus(scan, this))
    , m_listening(new ListeningStatus(index, this))
    , m_tabLists{makeList(ListContent::Kind::Songs), makeList(ListContent::Kind::Artists),
                 makeList(ListContent::Kind::Albums), makeList(ListContent::Kind::Songs)}
    , m_groupSongs(makeList(ListContent::Kind::Songs))
    , m_results(makeList(ListContent::Kind::Songs))
{
    m_pool.setMaxThreadCount(workerCount);
    recentlyAdded()->setScope({.kind = SongScope::Kind::RecentlyAdded});
    connect(&library, &MediaLibrary::libraryDidChange, this, [this] {
        for (LibraryListModel *list : allLists())
            list->libraryDidChange();
    });
    connect(m_results, &LibraryListModel::didLoad, this, &MediaPicker::resultsDidLoad);
    connect(m_scan, &ScanStatus::changed, this, &MediaPicker::emptyStateChanged);
    connect(this, &MediaPicker::currentListChanged, this, &MediaPicker::emptyStateChanged);
}

MediaPicker::~MediaPicker()
{
    // Workers read the browser, which may go right after the picker.
    m_pool.clear();
    m_pool.waitForDone();
}

LibraryListModel *MediaPicker::makeList(ListContent::Kind kind)
{
    return new LibraryListModel(m_browser, m_pool, kind, this);
}

std::vector<LibraryListModel *> MediaPicker::allLists() const
{
    return {songs(), artists(), albums(), recentlyAdded(), m_groupSongs, m_results};
}

void MediaPicker::prepare()
{
    m_isPresented = true;
    m_isShowingGroup = false;
    m_scan->lookForChanges();
    m_listening->prepare();
    setSearchText({});
    for (LibraryListModel *list : allLists())
        list->highlight(-1);
    watchCurrentList();
    Q_EMIT currentListChanged();
}

void MediaPicker::setTab(Tab tab)
{
    if (tab == m_tab && !m_isShowingGroup)
        return;
    m_tab = tab;
    m_isShowingGroup = false;
    watchCurrentList();
    Q_EMIT tabChanged();
    Q_EMIT currentListChanged();
}

void MediaPicker::setSearchText(const QString &text)
{
    if (text == m_searchText)
        return;
    m_searchText = text;
    m_picksFirstResult = false;
    const QString words = text.simplified();
    if (words.isEmpty())
        m_results->clear();
    else
        m_results->show({.kind = SongScope::Kind::Matching, .searchText = words});
    Q_EMIT searchTextChanged();
    Q_EMIT currentListChanged();
}

QString MediaPicker::title() const
{
    return canGoBack() ? m_groupTitle : tr("Select Song");
}

QString MediaPicker::groupTitle() const
{
    return m_groupTitle.isEmpty() ? tr("Artist or Album") : m_groupTitle;
}

QString MediaPicker::resultsSummary() const
{
    if (!isShowingResults())
        return {};
    return m_results->count() > 0 ? songCountText(m_results->count()) : emptyState().title;
}

LibraryListModel *MediaPicker::currentList() const
{
    if (isShowingResults())
        return m_results;
    return m_isShowingGroup ? m_groupSongs : m_tabLists[static_cast<size_t>(m_tab)];
}

EmptyState MediaPicker::emptyState() const
{
    // While a newer text is looked for, the rows and their absence are still those of the text before.
    return trackwise::emptyState(isShowingResults() ? m_results->shownSearchText() : QString(),
                                 m_scan->isRunning());
}

void MediaPicker::watchCurrentList()
{
    LibraryListModel *current = currentList();
    for (LibraryListModel *list : allLists())
        list->setWatched(m_isPresented && list == current);
}

void MediaPicker::resultsDidLoad()
{
    watchCurrentList();
    Q_EMIT currentListChanged();
    if (m_picksFirstResult && !m_results->isWaiting()) {
        m_picksFirstResult = false;
        activateHighlighted();
    }
}

void MediaPicker::activate(int row)
{
    LibraryListModel *list = currentList();
    if (!m_isPresented || row < 0 || row >= list->count())
        return;
    switch (list->content().kind) {
    case ListContent::Kind::Songs:
        pick(PersistentID{list->keyAt(row)});
        break;
    case ListContent::Kind::Artists:
        openGroup(SongScope::Kind::OfArtist, row);
        break;
    case ListContent::Kind::Albums:
        openGroup(SongScope::Kind::OfAlbum, row);
        break;
    }
}

void MediaPicker::activateHighlighted()
{
    if (m_results->isWaiting() && !m_results->content().scope.searchText.isEmpty()) {
        m_picksFirstResult = true;
        return;
    }
    LibraryListModel *list = currentList();
    const bool isBestMatchMeant = list == m_results && list->highlightedRow() < 0;
    activate(isBestMatchMeant ? 0 : list->highlightedRow());
}

void MediaPicker::pick(PersistentID song)
{
    m_isPresented = false;
    watchCurrentList();
    std::vector<MediaItem> items;
    if (std::optional<MediaItem> item = m_library.song(song))
        items.push_back(std::move(*item));
    Q_EMIT didPick(items);
}

void MediaPicker::openGroup(SongScope::Kind kind, int row)
{
    const LibraryListModel *list = currentList();
    const std::uint64_t key = list->keyAt(row);
    const SongScope scope{.kind = kind, .group = GroupKey(key)};
    m_groupTitle = list->index(row).data().toString();
    if (m_groupTitle.isEmpty()) { // the keyboard was faster than the row
        runInBackground(
            m_pool, this,
            [&browser = m_browser, rows = list->content().kind, key] {
                return rowsOf(browser, rows, std::span(&key, 1)).front().title;
            },
            [this, scope](const QString &title) {
                if (m_groupSongs->content().scope != scope)
                    return;
                m_groupTitle = title;
                Q_EMIT currentListChanged();
            });
    }
    m_isShowingGroup = true;
    m_groupSongs->clear();
    m_groupSongs->show(scope);
    watchCurrentList();
    Q_EMIT currentListChanged();
}

void MediaPicker::goBack()
{
    if (!canGoBack())
        return;
    m_isShowingGroup = false;
    watchCurrentList();
    Q_EMIT currentListChanged();
}

void MediaPicker::cancel()
{
    if (!m_isPresented)
        return;
    m_isPresented = false;
    watchCurrentList();
    Q_EMIT didCancel();
}

void MediaPicker::escape()
{
    if (!m_searchText.isEmpty())
        setSearchText({});
    else if (canGoBack())
        goBack();
    else
        cancel();
}

bool MediaPicker::type(const QString &text)
{
    if (text.trimmed().isEmpty() ||
        !std::ranges::all_of(text, [](QChar c) { return c.isPrint() || c.isSurrogate(); }))
        return false;
    setSearchText(m_searchText + text);
    Q_EMIT searchFocusWanted();
    return true;
}

bool MediaPicker::handleKey(int key, int modifiers, bool isEditingText)
{
    LibraryListModel *list = currentList();
    const auto held = Qt::KeyboardModifiers(modifiers) & ~Qt::KeypadModifier;
    if (key == Qt::Key_Back || (key == Qt::Key_Left && held == Qt::AltModifier)) {
        const bool goes = canGoBack();
        goBack();
        return goes;
    }
    if (held != Qt::NoModifier)
        return false;
    switch (key) {
    case Qt::Key_Up:
        list->moveHighlight(-1);
        return true;
    case Qt::Key_Down:
        list->moveHighlight(1);
        return true;
    case Qt::Key_PageUp:
        list->moveHighlight(-list->rowsInView());
        return true;
    case Qt::Key_PageDown:
        list->moveHighlight(list->rowsInView());
        return true;
    case Qt::Key_Home:
    case Qt::Key_End:
        if (isEditingText)
            return false;
        list->highlight(key == Qt::Key_Home ? 0 : list->count() - 1);
        return true;
    case Qt::Key_Return:
    case Qt::Key_Enter:
        activateHighlighted();
        return true;
    case Qt::Key_Escape:
        escape();
        return true;
    default:
        return false;
    }
}

} // namespace trackwise
