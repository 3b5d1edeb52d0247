// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "picker/ListKeys.h"
#include "picker/ListLoader.h"

#include <QAbstractListModel>
#include <QtQml/qqmlregistration.h>

namespace trackwise {

class RowPages;

/// A list of songs, artists or albums of the library, however long: the order is held, rows come in pages
/// while they are looked at. Also knows which row is highlighted by the keyboard. Main thread.
class LibraryListModel : public QAbstractListModel
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Made by the picker")

    Q_PROPERTY(int count READ count NOTIFY countChanged)
    Q_PROPERTY(bool isLoaded READ isLoaded NOTIFY didLoad)
    Q_PROPERTY(bool hasSections READ hasSections NOTIFY didLoad)
    Q_PROPERTY(int sectionCount READ sectionCount NOTIFY didLoad)
    Q_PROPERTY(bool isOfGroups READ isOfGroups CONSTANT)
    Q_PROPERTY(bool isOfArtists READ isOfArtists CONSTANT)
    Q_PROPERTY(int highlightedRow READ highlightedRow NOTIFY highlightedRowChanged)

public:
    enum Role {
        TitleRole = Qt::DisplayRole,
        SubtitleRole = Qt::UserRole,
        ArtworkRole,
        IsExplicitRole,
        IsAvailableRole,
        SpokenTextRole,
        SectionRole,
        StartsSectionRole,
    };

    LibraryListModel(const LibraryBrowser &browser, QThreadPool &pool, ListContent::Kind kind,
                     QObject *parent);

    [[nodiscard]] bool isOfGroups() const { return m_content.kind != ListContent::Kind::Songs; }
    [[nodiscard]] bool isOfArtists() const { return m_content.kind == ListContent::Kind::Artists; }
    [[nodiscard]] const ListContent &content() const { return m_content; }
    /// Which songs a list shows that is not loaded yet.
    void setScope(const SongScope &scope) { m_content.scope = scope; }
    /// Turns to other songs. What is shown stays until they have been found; then they start at the top.
    void show(const SongScope &scope);
    /// Shows nothing, as before the first load.
    void clear();
    /// Only a list that somebody looks at follows the library; others catch up when they are looked at.
    void setWatched(bool isWatched);
    void libraryDidChange();
    /// Whether what is shown is not yet what was asked for last.
    [[nodiscard]] bool isWaiting() const { return m_shown != m_content; }
    [[nodiscard]] QString shownSearchText() const { return m_shown ? m_shown->scope.searchText : QString(); }

    [[nodiscard]] int rowCount(const QModelIndex &parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex &index, int role) const override;
    [[nodiscard]] QHash<int, QByteArray> roleNames() const override;

    [[nodiscard]] int count() const { return m_keys.size(); }
    [[nodiscard]] bool isLoaded() const { return m_shown.has_value(); }
    [[nodiscard]] std::uint64_t keyAt(int row) const { return m_keys.at(row); }

    [[nodiscard]] bool hasSections() const { return sectionCount() > 1; }
    [[nodiscard]] int sectionCount() const { return static_cast<int>(sections().size()); }
    Q_INVOKABLE [[nodiscard]] QString sectionLabel(int section) const;
    Q_INVOKABLE [[nodiscard]] int firstRowOfSection(int section) const;
    /// Letters for an index with this many places; where they are too few, every other one is a dot.
    Q_INVOKABLE [[nodiscard]] QStringList indexLabels(int places) const;

    /// Row, or -1. It follows its song or group when rows come and go.
    [[nodiscard]] int highlightedRow() const { return m_highlightedRow; }
    /// Moves by @p rows within the list; without a highlight yet, onto the first row in view, or the last
    /// one when moving up.
    void moveHighlight(int rows);
    void highlight(int row);

    /// Called by the view in answer to viewportWanted().
    Q_INVOKABLE void setViewport(int firstRow, int lastRow);
    [[nodiscard]] int rowsInView();

Q_SIGNALS:
    void countChanged();
    void didLoad();
    void highlightedRowChanged();
    /// The keyboard moved the highlight: bring the row into view.
    void highlightDidMove(int row);
    /// Tell now by setViewport() which rows are in view.
    void viewportWanted();
    /// Around the changes of one refresh(), which leave the rows in view where they are.
    void willUpdate();
    void didUpdate();

private:
    void refresh();
    void start();
    void listDidLoad(const LoadedList &list);
    void replaceRows(const LoadedList &list);
    void editRows(const LoadedList &list);
    void rowsDidArrive();
    void findHighlightAgain(std::uint64_t key);
    [[nodiscard]] const std::vector<SectionStart> &sections() const { return m_keys.order()->sections; }
    [[nodiscard]] int sectionOfRow(int row) const;
    /// An empty one at row 0 where there is none.
    [[nodiscard]] SectionStart sectionAt(int section) const;

    ListContent m_content;
    std::optional<ListContent> m_shown;
    ListKeys m_keys;
    RowPages *m_pages;
    ListLoader *m_loader;
    bool m_isWatched = false;
    bool m_isOutdated = true; ///< the library has changed since the last load began
    int m_highlightedRow = -1;
    int m_firstInView = 0;
    int m_lastInView = -1;
};

} // namespace trackwise
