// SPDX-License-Identifier: GPL-3.0-or-later
#include "device/library/LibraryFixture.h"
#include "device/players/following/NowPlayingMatcher.h"
#include "support/Test.h"

#include <QFileInfo>

namespace {

TrackMetadata said(const char *title, const char *artist, const char *album = "",
                   std::chrono::milliseconds length = 0ms)
{
    return {.title = QString::fromUtf8(title),
            .artists = QString::fromUtf8(artist).split(u',', Qt::SkipEmptyParts),
            .albumTitle = QString::fromUtf8(album),
            .length = length};
}

} // namespace

class tst_NowPlayingMatcher : public QObject
{
    Q_OBJECT

private:
    WavFolder m_files;
    LibraryFixture m_library;
    QList<PersistentID> m_songs; ///< number 1 first

    void add(const QString &title, const QString &artist, const QString &album, double seconds)
    {
        m_songs << m_library.add(songTags(title, artist, album, seconds));
    }

private Q_SLOTS:
    void initTestCase()
    {
        m_files.run("touch 'song one.flac'; ln -s 'song one.flac' link.flac; ln 'song one.flac' hard.flac");
        SongTags one = songTags(u"Song One"_s, u"Band"_s, u"First"_s, 200);
        one.catalogID = u"1440833098"_s;
        one.recordingMBID = u"f27ec8db-af05-4f36-916e-3d57f91ecf5e"_s;
        const QString file = QString::fromUtf8(m_files.path("song one.flac"));
        m_songs << m_library.addFile(QFileInfo(file).canonicalFilePath(), one);
        add(u"Intro"_s, u"Band"_s, u"First"_s, 60);                          // 2
        add(u"Intro"_s, u"Band"_s, u"Second"_s, 61);                         // 3
        add(u"Intro"_s, u"Choir"_s, u"Third"_s, 62);                         // 4
        add(u"Café del Mar"_s, u"Énergie"_s, u"Été"_s, 300);                 // 5
        add(u"Duet"_s, u"Anna & Otto"_s, u"Pairs"_s, 100);                   // 6
        add(u"Evergreen (Remastered 2011)"_s, u"Old Man"_s, u"Best"_s, 240); // 7
        add(u"Hymn"_s, u"Old Man"_s, u"Best"_s, 180);                        // 8
        add(u"Same"_s, u"Twin"_s, u"Album"_s, 180);                          // 9
        add(u"Same"_s, u"Twin"_s, u"Album"_s, 182);                          // 10
        add(u"Untitled"_s, QString(), QString(), 50);                        // 11
    }

    void finds()
    {
        const auto at = [this](const char *file) {
            TrackMetadata track = said("Intro", "Choir"); // what it says otherwise is not looked at
            track.url = u"file://"_s + QString::fromUtf8(m_files.path(file));
            return track;
        };
        const QString page = u"https://music.example.com/de/"_s;
        const std::tuple<const char *, TrackMetadata, qsizetype> rows[]{
            {"file", at("song%20one.flac"), 1},
            {"symbolic link", at("link.flac"), 1},
            {"hard link", at("hard.flac"), 1},
            {"file that is elsewhere", at("copy.flac"), 4},
            {"album page", {.url = page + u"album/first/99?i=1440833098"_s}, 1},
            {"song page", {.url = page + u"song/song-one/1440833098"_s}, 1},
            {"album number", {.url = page + u"album/first/1440833098"_s}, 0},
            {"MusicBrainz", {.musicBrainzId = u"f27ec8db-af05-4f36-916e-3d57f91ecf5e"_s}, 1},
            {"album decides", said("INTRO", "band", "Second", 60s), 3},
            {"album without length", said("intro", "Band", "first"), 2},
            {"album, wrong length", said("Intro", "Band", "First", 70s), 0},
            {"not unique", said("Intro", "Band", "", 60s), 0},
            {"unknown album, not unique", said("Intro", "Band", "Live", 60s), 0},
            {"unique by artist", said("Intro", "Choir", "", 64s), 4},
            {"three seconds", said("Song One", "Band", "", 203s), 1},
            {"more than three", said("Song One", "Band", "", 203001ms), 0},
            {"closest copy", said("Same", "Twin", "Album", 183s), 10},
            {"diacritics", said("cafe\xcc\x81 DEL mar", "Energie", "ete", 300s), 5},
            {"one of two artists", said("Duet", "Otto", "", 100s), 6},
            {"more artists", said("Song One", "Band feat. Guest", "", 200s), 1},
            {"other artist", said("Song One", "Bandana", "", 200s), 0},
            {"no artist said", said("Song One", "", "", 200s), 0},
            {"no artist anywhere", said("Untitled", "", "", 50s), 11},
            {"stream", said("Band - Song One", ""), 1},
            {"theirs is remastered", said("Hymn - Remastered 2009", "Old Man", "Best", 181s), 8},
            {"ours is remastered", said("Evergreen", "Old Man", "", 240s), 7},
            {"guest in the title", said("Hymn (feat. Choir) [Live]", "Old Man", "", 180s), 8},
            {"another length", said("Hymn (Live)", "Old Man", "", 300s), 0},
            {"another song", said("Evergreen Hills", "Old Man", "", 240s), 0},
            {"nothing", {}, 0}};
        for (const auto &[name, track, song] : rows) {
            const auto match = NowPlayingMatcher(m_library.library().matching()).match(track);
            QVERIFY2((match ? m_songs.indexOf(*match) + 1 : 0) == song, name);
        }
    }

    void findsIdentifiersInAddresses()
    {
        const std::pair<QString, QString> rows[]{{u"https://music.example.com/song/one/more"_s, {}},
                                                 {u"https://music.example.com/song/a/1x"_s, {}},
                                                 {u"https://music.example.com/song/a/7?i=x"_s, u"7"_s},
                                                 {u"ftp://music.example.com/song/a/1"_s, {}},
                                                 {u"http://music.example.com/song/a/09"_s, u"09"_s}};
        for (const auto &[address, identifier] : rows)
            QCOMPARE(catalogIdentifierIn(address), identifier);
    }

    void stripsEditions()
    {
        for (const auto &title :
             {u"song (remastered 2011)"_s, u"song - 2009 remaster"_s, u"song - live at the hall"_s,
              u"song [deluxe edition]"_s, u"song feat. x & y"_s, u"song (feat. x) - single version"_s,
              u"song - 2004 digital remaster"_s, u"song (mono) (live)"_s})
            QCOMPARE(withoutEdition(title), u"song"_s);
        for (const auto &title : {u"live"_s, u"alive (and well)"_s, u"song - part two"_s, u"(live) song"_s,
                                  u"featured song"_s, u"song (club remix)"_s})
            QCOMPARE(withoutEdition(title), title);
    }
};

QTEST_GUILESS_MAIN(tst_NowPlayingMatcher)
#include "tst_NowPlayingMatcher.moc"
