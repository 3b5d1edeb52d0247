// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "information/InformationRows.h"
#include "preferences/UserDefaultsStore.h"

#include <QObject>
#include <QtQml/qqmlregistration.h>

#include <functional>

namespace trackwise {

class Preferences;

/// The information list of one song. Another song gets another one; when values of the song change, such as
/// its play count, the list stays and its rows follow. Main thread.
class InformationView : public QObject
{
    Q_OBJECT
    QML_NAMED_ELEMENT(SongInformation)
    QML_UNCREATABLE("Made for a song by whoever shows it")

    Q_PROPERTY(bool isNowPlaying READ isNowPlaying CONSTANT)
    Q_PROPERTY(bool supportsPlayback READ supportsPlayback CONSTANT)
    Q_PROPERTY(bool showMoreInformation READ showMoreInformation NOTIFY showMoreInformationChanged)
    Q_PROPERTY(trackwise::InformationRows rows READ rows NOTIFY rowsChanged)
    /// The same for every song.
    Q_PROPERTY(int mainRowCount READ mainRowCount CONSTANT)
    /// None while the list is collapsed.
    Q_PROPERTY(int moreRowCount READ moreRowCount NOTIFY showMoreInformationChanged)

public:
    struct Song
    {
        MediaItem mediaItem;
        bool isNowPlaying = false;
        bool supportsPlayback = false;
        std::function<void()> lyricsAction;
    };

    /// Starts collapsed or expanded as @p preferences say now; they must outlive this object.
    InformationView(Song song, Preferences &preferences, const FormatLocale &locale, const QTimeZone &zone,
                    QObject *parent = nullptr);

    [[nodiscard]] const MediaItem &mediaItem() const { return m_song.mediaItem; }
    /// Takes a later record of the same song.
    void setMediaItem(const MediaItem &mediaItem);
    void setTimeZone(const QTimeZone &zone);
    [[nodiscard]] bool isNowPlaying() const { return m_song.isNowPlaying; }
    [[nodiscard]] bool supportsPlayback() const { return m_song.supportsPlayback; }
    [[nodiscard]] bool showMoreInformation() const { return m_userDefaultsStore.showMoreInformation(); }
    [[nodiscard]] const InformationRows &rows() const { return m_rows; }
    [[nodiscard]] int mainRowCount() const { return static_cast<int>(m_rows.main.size()); }
    [[nodiscard]] int moreRowCount() const;

    Q_INVOKABLE void toggleShowMoreInformation() { m_userDefaultsStore.toggleShowMoreInformation(); }
    /// What the button of @p row does.
    Q_INVOKABLE void run(const trackwise::InformationRow &row) const;

Q_SIGNALS:
    void rowsChanged();
    void showMoreInformationChanged();

private:
    void makeRows();

    Song m_song;
    FormatLocale m_locale;
    QTimeZone m_zone;
    InformationRows m_rows;
    UserDefaultsStore m_userDefaultsStore;
};

} // namespace trackwise
