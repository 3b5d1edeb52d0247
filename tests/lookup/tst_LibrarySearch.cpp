// SPDX-License-Identifier: GPL-3.0-or-later
#include "lookup/LibrarySearch.h"
#include "lookup/ListedLibrary.h"

#include <QTest>

using namespace Qt::StringLiterals;
using namespace trackwise;

class tst_LibrarySearch : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void triesTheSearchesInOrder()
    {
        ListedLibrary library;
        library.add(1, "song", "band", "Other");
        library.add(2, "Song", "Somebody", "Album");
        library.add(3, "Song", "Band", "Live");
        library.add(4, "Song", "Band", "Album");
        library.add(6, "Single", "Band", "Album");
        library.add(5, "Single", "Band", "");
        const struct
        {
            const char *what;
            QString title, artist;
            std::optional<QString> album;
            quint64 found; ///< 0: none
        } rows[]{
            {"all three, though others come first", u"Song"_s, u"Band"_s, u"Album"_s, 4},
            {"another spelling of the artist", u"Song"_s, u"The Band"_s, u"Album"_s, 2},
            {"another edition of the album", u"Song"_s, u"Band"_s, u"Album (Deluxe)"_s, 3},
            {"no album", u"Song"_s, u"Band"_s, {}, 3},
            {"no album and another artist", u"Song"_s, u"The Band"_s, {}, 0},
            {"letter case, first of two", u"SONG"_s, u"BAND"_s, u"Album (Deluxe)"_s, 1},
            {"letter case, no album", u"SONG"_s, u"BAND"_s, {}, 1},
            {"an empty album is one too", u"Single"_s, u"Band"_s, u""_s, 5},
            {"nowhere", u"Other"_s, u"Band"_s, u"Album"_s, 0},
        };
        for (const auto &[what, title, artist, album, found] : rows) {
            const auto song = findLibrarySong(library, title, artist, album);
            QVERIFY2((song ? song->persistentID.value : 0) == found, what);
        }
    }
};

QTEST_GUILESS_MAIN(tst_LibrarySearch)
#include "tst_LibrarySearch.moc"
