// SPDX-License-Identifier: GPL-3.0-or-later
#include "picker/LibraryListModel.h"

#include "picker/RowPages.h"
#include "picker/SectionLabels.h"

#include <algorithm>

namespace trackwise {

namespace {

constexpr int none = -1;
// Above this many signals a refresh is announced coarsely; a list view takes some 20 µs for each.
constexpr size_t maxPreciseEdits = 64;

/// What a screen reader says for a row.
QString spokenText(const ListRow &row)
{
    QStringList parts{row.title, row.subtitle};
    if (row.isExplicit)
        parts.append(LibraryListModel::tr("explicit"));
    if (!row.isAvailable)
        parts.append(LibraryListModel::tr("file not available"));
    parts.removeAll(QString());
    return parts.join(QStringLiteral(", "));
}

} // namespace

LibraryListModel::LibraryListModel(const LibraryBrowser &browser, QThreadPool &pool, ListContent::Kind kind,
                                   QObject *parent)
    : QAbstractListModel(parent)
    , m_content{.kind = kind, .scope = {}}
    , m_pages(new RowPages(browser, pool, kind, this))
    , m_loader(new ListLoader(browser, pool, this))
{
    connect(m_pages, &RowPages::didArrive, this, &LibraryListModel::rowsDidArrive);
    connect(m_loader, &ListLoader::didLoad, this, &LibraryListModel::listDidLoad);
    connect(this, &QAbstractItemModel::rowsInserted, this, &LibraryListModel::countChanged);
    connect(this, &QAbstractItemModel::rowsRemoved, this, &LibraryListModel::countChanged);
    connect(this, &QAbstractItemModel::modelReset, this, &LibraryListModel::countChanged);
}

void LibraryListModel::show(const SongScope &scope)
{
    if (scope == m_content.scope && (m_shown || m_loader->isLoading()))
        return;
    m_content.scope = scope;
    start();
}

void LibraryListModel::clear()
{
    m_loader->abandon();
    m_content.scope.searchText.clear();
    beginResetModel();
    m_keys.replace(std::make_shared<const ListOrder>());
    m_shown.reset();
    m_highlightedRow = none;
    endResetModel();
    Q_EMIT didLoad();
    Q_EMIT highlightedRowChanged();
}

void LibraryListModel::setWatched(bool isWatched)
{
    m_isWatched = isWatched;
    refresh();
}

void LibraryListModel::libraryDidChange()
{
    m_isOutdated = true;
    refresh();
}

void LibraryListModel::refresh()
{
    if (m_isWatched && m_isOutdated && !m_loader->isLoading())
        start();
}

void LibraryListModel::start()
{
    m_isOutdated = false;
    m_loader->load(m_content, isWaiting() ? nullptr : m_keys.order());
}

void LibraryListModel::listDidLoad(const LoadedList &list)
{
    if (list.edits)
        editRows(list);
    else
        replaceRows(list);
    Q_EMIT didLoad();
    refresh();
}

void LibraryListModel::replaceRows(const LoadedList &list)
{
    beginResetModel();
    m_keys.replace(list.order);
    m_pages->expire();
    m_pages->store(std::span(list.order->keys), list.firstRows);
    m_shown = list.content;
    m_highlightedRow = none;
    endResetModel();
    Q_EMIT highlightedRowChanged();
}

void LibraryListModel::editRows(const LoadedList &list)
{
    Q_EMIT willUpdate();
    Q_EMIT viewportWanted();
    const std::uint64_t highlighted = m_highlightedRow == none ? 0 : m_keys.at(m_highlightedRow);
    m_keys.beginEdits(list.order);
    int row = 0;
    for (const ListEdit &edit : list.edits->size() > maxPreciseEdits
                                    ? coarsened(*list.edits, m_firstInView, m_lastInView)
                                    : *list.edits) {
        const int last = row + edit.count - 1;
        switch (edit.kind) {
        case ListEdit::Kind::Keep:
        case ListEdit::Kind::Replace: // told below, with all rows that may look different now
            m_keys.keep(edit.count);
            row += edit.count;
            break;
        case ListEdit::Kind::Remove:
            beginRemoveRows({}, row, last);
            m_keys.remove(edit.count);
            endRemoveRows();
            break;
        case ListEdit::Kind::Insert:
            beginInsertRows({}, row, last);
            m_keys.insert(edit.count);
            endInsertRows();
            row += edit.count;
            break;
        }
    }
    m_keys.endEdits();
    m_pages->expire();
    if (m_highlightedRow != none)
        findHighlightAgain(highlighted);
    rowsDidArrive();
    Q_EMIT didUpdate();
}

void LibraryListModel::findHighlightAgain(std::uint64_t key)
{
    const auto &keys = m_keys.order()->keys;
    const auto found = std::ranges::find(keys, key);
    m_highlightedRow = found == keys.end() ? none : static_cast<int>(found - keys.begin());
    Q_EMIT highlightedRowChanged();
}

void LibraryListModel::rowsDidArrive()
{
    // Views look only at the rows that they show, so there is nothing to win by naming the rows.
    if (count() > 0)
        Q_EMIT dataChanged(index(0), index(count() - 1));
}

int LibraryListModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : m_keys.size();
}

QVariant LibraryListModel::data(const QModelIndex &index, int role) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid))
        return {};
    if (role == SectionRole)
        return sectionLabel(sectionOfRow(index.row()));
    if (role == StartsSectionRole)
        return index.row() == firstRowOfSection(sectionOfRow(index.row()));
    if (role != TitleRole && (role < SubtitleRole || role > SpokenTextRole))
        return {};

    static const ListRow notYetFetched;
    const ListRow *fetched = m_pages->row(m_keys, index.row());
    const ListRow &row = fetched ? *fetched : notYetFetched;
    switch (role) {
    case SubtitleRole:
        return row.subtitle;
    case ArtworkRole:
        return row.artwork;
    case IsExplicitRole:
        return row.isExplicit;
    case IsAvailableRole:
        return row.isAvailable;
    case SpokenTextRole:
        return spokenText(row);
    default:
        return row.title;
    }
}

QHash<int, QByteArray> LibraryListModel::roleNames() const
{
    return {
        {TitleRole, "title"},           {SubtitleRole, "subtitle"},          {ArtworkRole, "artwork"},
        {IsExplicitRole, "isExplicit"}, {IsAvailableRole, "isAvailable"},    {SpokenTextRole, "spokenText"},
        {SectionRole, "section"},       {StartsSectionRole, "startsSection"}};
}

int LibraryListModel::sectionOfRow(int row) const
{
    const auto next = std::ranges::upper_bound(sections(), row, {}, &SectionStart::firstRow);
    return static_cast<int>(next - sections().begin()) - 1;
}

SectionStart LibraryListModel::sectionAt(int section) const
{
    return section >= 0 && section < sectionCount() ? sections()[static_cast<size_t>(section)]
                                                    : SectionStart{};
}

QString LibraryListModel::sectionLabel(int section) const
{
    return sectionAt(section).label;
}

int LibraryListModel::firstRowOfSection(int section) const
{
    return static_cast<int>(sectionAt(section).firstRow);
}

QStringList LibraryListModel::indexLabels(int places) const
{
    QStringList labels;
    for (const SectionStart &section : sections())
        labels.append(section.label);
    return fittedLabels(labels, places);
}

void LibraryListModel::moveHighlight(int rows)
{
    if (count() == 0)
        return;
    Q_EMIT viewportWanted();
    if (m_highlightedRow == none)
        highlight(rows > 0 ? m_firstInView : m_lastInView);
    else
        highlight(std::max(m_highlightedRow + rows, 0));
}

void LibraryListModel::highlight(int row)
{
    const int valid = row == none || count() == 0 ? none : std::clamp(row, 0, count() - 1);
    if (valid != m_highlightedRow) {
        m_highlightedRow = valid;
        Q_EMIT highlightedRowChanged();
    }
    if (valid != none)
        Q_EMIT highlightDidMove(valid);
}

void LibraryListModel::setViewport(int firstRow, int lastRow)
{
    m_firstInView = std::max(firstRow, 0);
    m_lastInView = lastRow < 0 ? count() - 1 : lastRow;
}

int LibraryListModel::rowsInView()
{
    Q_EMIT viewportWanted();
    return std::max(1, m_lastInView - m_firstInView);
}

} // namespace trackwise
