// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/linux/library/LibraryFixture.h"
#include "platform/linux/players/NowPlayingMatcher.h"
#include "platform/linux/players/SongFile.h"

#include <QDir>
#include <QTemporaryDir>
#include <QTest>

using namespace trackwise;
using namespace std::chrono_literals;

namespace {

QString text(const char *value)
{
    return QString::fromUtf8(value);
}

TrackMetadata said(const char *title, const char *artist, const char *album = "",
                   std::chrono::milliseconds length = 0ms)
{
    TrackMetadata track;
    track.title = text(title);
    if (*artist)
        track.artists = {text(artist)};
    track.albumTitle = text(album);
    track.length = length;
    return track;
}

} // namespace

Q_DECLARE_METATYPE(trackwise::TrackMetadata)
Q_DECLARE_METATYPE(trackwise::MatchedBy)

class tst_NowPlayingMatcher : public QObject
{
    Q_OBJECT

private:
    QTemporaryDir m_folder;
    LibraryFixture m_library;
    QList<PersistentID> m_songs; ///< number 1 first

    void add(const QString &title, const QString &artist, const QString &album, double seconds)
    {
        m_songs << m_library.add(songTags(title, artist, album, seconds));
    }

private Q_SLOTS:
    void initTestCase()
    {
        QFile file(m_folder.filePath(text("song one.flac")));
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.close();
        QVERIFY(QFile::link(text("song one.flac"), m_folder.filePath(text("link.flac"))));
        QCOMPARE(::link(QFile::encodeName(file.fileName()).constData(),
                        QFile::encodeName(m_folder.filePath(text("hard.flac"))).constData()),
                 0);
        SongTags one = songTags(text("Song One"), text("Band"), text("First"), 200);
        one.catalogID = text("1440833098");
        one.recordingMBID = text("f27ec8db-af05-4f36-916e-3d57f91ecf5e");
        m_songs << addSongFile(m_library, QDir(m_folder.path()).canonicalPath() + text("/song one.flac"),
                               one);
        add(text("Intro"), text("Band"), text("First"), 60);                          // 2
        add(text("Intro"), text("Band"), text("Second"), 61);                         // 3
        add(text("Intro"), text("Choir"), text("Third"), 62);                         // 4
        add(text("Café del Mar"), text("Énergie"), text("Été"), 300);                 // 5
        add(text("Duet"), text("Anna & Otto"), text("Pairs"), 100);                   // 6
        add(text("Evergreen (Remastered 2011)"), text("Old Man"), text("Best"), 240); // 7
        add(text("Hymn"), text("Old Man"), text("Best"), 180);                        // 8
        add(text("Same"), text("Twin"), text("Album"), 180);                          // 9
        add(text("Same"), text("Twin"), text("Album"), 182);                          // 10
        add(text("Untitled"), QString(), QString(), 50);                              // 11
    }

    void finds_data()
    {
        QTest::addColumn<TrackMetadata>("track");
        QTest::addColumn<qsizetype>("song");
        QTest::addColumn<MatchedBy>("by");
        const auto row = [](const char *name, const TrackMetadata &track, qsizetype song,
                            MatchedBy by = MatchedBy::File) { QTest::newRow(name) << track << song << by; };
        const auto at = [this](const char *file) {
            TrackMetadata track = said("Intro", "Choir"); // what it says otherwise is not looked at
            track.url = text("file://") + m_folder.filePath(text(file));
            return track;
        };
        const auto withUrl = [](const char *url) {
            TrackMetadata track = said("x", "y");
            track.url = text(url);
            return track;
        };

        row("file", at("song%20one.flac"), 1);
        row("symbolic link", at("link.flac"), 1);
        row("hard link", at("hard.flac"), 1);
        row("file that is elsewhere", at("copy.flac"), 4, MatchedBy::Texts);
        row("album page", withUrl("https://music.example.com/de/album/first/99?i=1440833098"), 1,
            MatchedBy::Identifier);
        row("song page", withUrl("https://music.example.com/de/song/song-one/1440833098"), 1,
            MatchedBy::Identifier);
        row("album number", withUrl("https://music.example.com/de/album/first/1440833098"), 0);
        TrackMetadata tagged = said("x", "y");
        tagged.musicBrainzId = text("f27ec8db-af05-4f36-916e-3d57f91ecf5e");
        row("MusicBrainz", tagged, 1, MatchedBy::Identifier);

        row("album decides", said("INTRO", "band", "Second", 60s), 3, MatchedBy::AlbumTexts);
        row("album without length", said("intro", "Band", "first"), 2, MatchedBy::AlbumTexts);
        row("album, wrong length", said("Intro", "Band", "First", 70s), 0);
        row("not unique", said("Intro", "Band", "", 60s), 0);
        row("unknown album, not unique", said("Intro", "Band", "Live", 60s), 0);
        row("unique by artist", said("Intro", "Choir", "", 64s), 4, MatchedBy::Texts);
        row("three seconds", said("Song One", "Band", "", 203s), 1, MatchedBy::Texts);
        row("more than three", said("Song One", "Band", "", 203001ms), 0);
        row("closest copy", said("Same", "Twin", "Album", 183s), 10, MatchedBy::AlbumTexts);
        row("diacritics", said("cafe\xcc\x81 DEL mar", "Energie", "ete", 300s), 5, MatchedBy::AlbumTexts);
        row("one of two artists", said("Duet", "Otto", "", 100s), 6, MatchedBy::Texts);
        row("more artists", said("Song One", "Band feat. Guest", "", 200s), 1, MatchedBy::Texts);
        row("other artist", said("Song One", "Bandana", "", 200s), 0);
        row("no artist said", said("Song One", "", "", 200s), 0);
        row("no artist anywhere", said("Untitled", "", "", 50s), 11, MatchedBy::Texts);
        row("stream", said("Band - Song One", ""), 1, MatchedBy::Texts);

        row("theirs is remastered", said("Hymn - Remastered 2009", "Old Man", "Best", 181s), 8,
            MatchedBy::SimilarTitle);
        row("ours is remastered", said("Evergreen", "Old Man", "", 240s), 7, MatchedBy::SimilarTitle);
        row("guest in the title", said("Hymn (feat. Choir) [Live]", "Old Man", "", 180s), 8,
            MatchedBy::SimilarTitle);
        row("another length", said("Hymn (Live)", "Old Man", "", 300s), 0);
        row("another song", said("Evergreen Hills", "Old Man", "", 240s), 0);
        row("nothing", {}, 0);
    }
    void finds()
    {
        QFETCH(TrackMetadata, track);
        QFETCH(qsizetype, song);
        QFETCH(MatchedBy, by);
        const auto match = NowPlayingMatcher(m_library.library().matching()).match(track);
        QCOMPARE(match ? m_songs.indexOf(match->song) + 1 : 0, song);
        if (match)
            QVERIFY(match->by == by);
    }

    void stripsEditions_data()
    {
        QTest::addColumn<QString>("stripped");
        for (const char *title :
             {"song (remastered 2011)", "song - 2009 remaster", "song - live at the hall",
              "song [deluxe edition]", "song feat. x & y", "song (feat. x) - single version",
              "song - 2004 digital remaster", "song (mono) (live)", "song"})
            QTest::newRow(title) << text("song");
        for (const char *title : {"live", "alive (and well)", "song - part two", "(live) song",
                                  "featured song", "song (club remix)"})
            QTest::newRow(title) << text(title);
    }
    void stripsEditions()
    {
        QFETCH(QString, stripped);
        QCOMPARE(withoutEdition(text(QTest::currentDataTag())), stripped);
    }
};

QTEST_GUILESS_MAIN(tst_NowPlayingMatcher)
#include "tst_NowPlayingMatcher.moc"
