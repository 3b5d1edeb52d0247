// SPDX-License-Identifier: GPL-3.0-or-later
#include "information/InformationView.h"

#include <utility>

namespace trackwise {

InformationView::InformationView(Song song, Preferences &preferences, const FormatLocale &locale,
                                 const QTimeZone &zone, QObject *parent)
    : QObject(parent)
    , m_song(std::move(song))
    , m_locale(locale)
    , m_zone(zone)
    , m_rows(informationRows(m_song.mediaItem, m_locale, m_zone))
    , m_userDefaultsStore(preferences)
{
    connect(&m_userDefaultsStore, &UserDefaultsStore::didChange, this,
            &InformationView::showMoreInformationChanged);
}

int InformationView::moreRowCount() const
{
    return showMoreInformation() ? static_cast<int>(m_rows.more.size()) : 0;
}

void InformationView::setMediaItem(const MediaItem &mediaItem)
{
    Q_ASSERT(isSameSong(mediaItem, m_song.mediaItem));
    m_song.mediaItem = mediaItem;
    makeRows();
}

void InformationView::setTimeZone(const QTimeZone &zone)
{
    m_zone = zone;
    makeRows();
}

void InformationView::makeRows()
{
    const InformationRows rows = informationRows(m_song.mediaItem, m_locale, m_zone);
    if (rows == m_rows)
        return;
    m_rows = rows;
    Q_EMIT rowsChanged();
}

void InformationView::run(const InformationRow &row) const
{
    if (row.action == RowAction::ShowLyrics && m_song.lyricsAction)
        m_song.lyricsAction();
}

} // namespace trackwise
