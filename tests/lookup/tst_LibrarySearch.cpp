// SPDX-License-Identifier: GPL-3.0-or-later
#include "lookup/LibrarySearch.h"
#include "lookup/ListedLibrary.h"

#include <QTest>

using namespace trackwise;

class tst_LibrarySearch : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void triesTheSearchesInOrder_data()
    {
        QTest::addColumn<QString>("title");
        QTest::addColumn<QString>("artist");
        QTest::addColumn<QString>("album"); // null: not given
        QTest::addColumn<quint64>("found"); // 0: none
        const auto row = [](const char *name, const char *title, const char *artist, const char *album,
                            quint64 found) {
            QTest::newRow(name) << QString::fromUtf8(title) << QString::fromUtf8(artist)
                                << (album ? QString::fromUtf8(album) : QString()) << found;
        };
        row("all three, though others come first", "Song", "Band", "Album", 4);
        row("another spelling of the artist", "Song", "The Band", "Album", 2);
        row("another edition of the album", "Song", "Band", "Album (Deluxe)", 3);
        row("no album", "Song", "Band", nullptr, 3);
        row("no album and another artist", "Song", "The Band", nullptr, 0);
        row("letter case, first of two", "SONG", "BAND", "Album (Deluxe)", 1);
        row("letter case, no album", "SONG", "BAND", nullptr, 1);
        row("an empty album is one too", "Single", "Band", "", 5);
        row("nowhere", "Other", "Band", "Album", 0);
    }
    void triesTheSearchesInOrder()
    {
        QFETCH(QString, title);
        QFETCH(QString, artist);
        QFETCH(QString, album);
        QFETCH(quint64, found);
        ListedLibrary library;
        library.add(1, "song", "band", "Other");
        library.add(2, "Song", "Somebody", "Album");
        library.add(3, "Song", "Band", "Live");
        library.add(4, "Song", "Band", "Album");
        library.add(6, "Single", "Band", "Album");
        library.add(5, "Single", "Band", "");
        const auto song =
            findLibrarySong(library, title, artist, album.isNull() ? std::nullopt : std::optional(album));
        QCOMPARE(song ? song->persistentID.value : 0, found);
    }
};

QTEST_GUILESS_MAIN(tst_LibrarySearch)
#include "tst_LibrarySearch.moc"
