// SPDX-License-Identifier: GPL-3.0-or-later
#include "information/InformationView.h"

#include <utility>

namespace trackwise {

InformationView::InformationView(Song song, Preferences &preferences, const FormatLocale &locale,
                                 const QTimeZone &zone, QObject *parent)
    : QObject(parent)
    , m_song(std::move(song))
    , m_rows(informationRows(m_song.mediaItem, locale, zone))
    , m_userDefaultsStore(preferences)
{
    connect(&m_userDefaultsStore, &UserDefaultsStore::didChange, this,
            &InformationView::showMoreInformationChanged);
}

int InformationView::moreRowCount() const
{
    return showMoreInformation() ? static_cast<int>(m_rows.more.size()) : 0;
}

InformationRow InformationView::mainRow(int index) const
{
    return m_rows.main.at(static_cast<size_t>(index));
}

InformationRow InformationView::moreRow(int index) const
{
    return m_rows.more.at(static_cast<size_t>(index));
}

void InformationView::run(const InformationRow &row) const
{
    if (row.action == RowAction::ShowLyrics && m_song.lyricsAction)
        m_song.lyricsAction();
}

} // namespace trackwise
