// SPDX-License-Identifier: GPL-3.0-or-later
#include "device/library/LibraryFixture.h"
#include "device/library/WavFolder.h"
#include "support/Test.h"

#include <set>

class tst_SongIdentity : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void followsTheSound()
    {
        // Where the songs of "a/one.wav" and "a/two.wav" are then (empty: nowhere), and what is done. Copies
        // are written into the file that is there; "retagged" has the sound of the first song.
        const std::tuple<const char *, const char *, const char *> rows[]{
            {"a/one.wav", "a/two.wav", ":"},
            {"a/one.wav", "a/two.wav", "cp ../retagged.wav a/one.wav"},
            {"a/one.wav", "a/two.wav", "cp ../retagged.wav a/new.tmp; mv a/new.tmp a/one.wav"},
            {"a/zzz.wav", "a/two.wav", "mv a/one.wav a/zzz.wav"},
            {"a/zzz.wav", "a/two.wav", "mv a/one.wav a/zzz.wav; cp ../retagged.wav a/zzz.wav"},
            {"b/c/one.wav", "a/two.wav", "mkdir -p b/c; mv a/one.wav b/c"},
            {"0/one.wav", "0/two.wav", "mv a 0"},
            {"b/one.wav", "a/two.wav", "mkdir b; cp a/one.wav b; rm a/one.wav"},
            {"a/two.wav", "a/one.wav", "mv a/one.wav a/x; mv a/two.wav a/one.wav; mv a/x a/two.wav"},
            {"a/two.wav", "a/one.wav", "cp a/one.wav ../x; cp a/two.wav a/one.wav; cp ../x a/two.wav"},
            {"a/two.wav", "", "mv a/one.wav a/two.wav"},
            {"a/one.wav", "a/two.wav", "cp ../better.wav a/one.wav"},
            {"", "a/two.wav", "cp ../other.wav a/one.wav"},
            {"a/0 copy.wav", "a/two.wav", "cp a/one.wav 'a/0 copy.wav'; cp ../other.wav a/one.wav"},
            {"a/one.wav", "a/two.wav", "cp a/one.wav 'a/0 copy.wav'"},
            {"a/one.wav", "a/two.wav", "ln a/one.wav 'a/0 link.wav'"},
            {"a/one.wav", "a/two.wav", "mv a/one.wav 'a/0 backup.wav'; cp ../retagged.wav a/one.wav"},
            {"", "a/two.wav", "rm a/one.wav"}};
        for (const auto &[oneIsAt, twoIsAt, commands] : rows) {
            const WavFolder music{"a/one.wav", "a/two.wav"};
            music.write("../retagged.wav", 1, "Another Title", "Zoe");
            music.write("../better.wav", 77, "ONE", "ann"); // of the same song
            music.write("../other.wav", 77, "Something Else");
            LibraryFixture fixture({music.root()});
            QCOMPARE(fixture.scan().songsRead, 2);
            const PersistentID one = fixture.idAt(music.path("a/one.wav"));
            const PersistentID two = fixture.idAt(music.path("a/two.wav"));
            QVERIFY(one.isInLibrary() && two.isInLibrary() && one != two);
            QVERIFY(fixture.store().recordPlay(one, Instant(5s)));

            music.run(commands);
            QVERIFY(fixture.scan().isComplete);

            const auto check = [&](PersistentID song, const QByteArray &place) {
                const LibrarySong found = *fixture.library().song(song);
                if (place.isEmpty())
                    return found.availability == Availability::FileGone;
                return found.availability == Availability::Available &&
                       found.file.path() == music.path(place);
            };
            QVERIFY2(check(one, oneIsAt), commands);
            QVERIFY2(check(two, twoIsAt), commands);
            QCOMPARE(fixture.library().song(one)->item.playCount, 1U);
            QCOMPARE(fixture.library().song(one)->item.lastPlayedDate, Instant(5s));

            std::set<PersistentID> all;
            (void)fixture.library().forEachSong(
                [&](const LibrarySong &song) { return all.insert(song.item.persistentID).second; });
            const LibraryStatus status = *fixture.library().status();
            QCOMPARE(static_cast<qsizetype>(all.size()), status.available + status.fileGone);
            QCOMPARE(fixture.scan().songsRead, 0); // all of it has been understood
        }
    }

    void comesBackAsItself()
    {
        const WavFolder music{"one.wav"};
        LibraryFixture fixture(music);
        const PersistentID one = fixture.idAt(music.path("one.wav"));
        music.remove("one.wav");
        QCOMPARE(fixture.scan().songsMissing, 1);
        QCOMPARE(fixture.library().browser().songCount(), 0);
        music.write("later/elsewhere.wav", 1, "Renamed");
        fixture.scan();
        QCOMPARE(fixture.idAt(music.path("later/elsewhere.wav")), one);
        QCOMPARE(fixture.library().browser().songCount(), 1);
    }

    void keepsTwinsApartOnTheWayToAnotherFolder()
    {
        const WavFolder music;
        const QByteArrayList names{"a/one.wav", "b/one.wav", "a/x/two.wav", "b/x/two.wav", "c/three.wav"};
        for (const QByteArray &name : names)
            music.write("old/" + name, 1, "Same", "Ann");
        music.write("old/d/three.wav", 1, "Other", "Ann"); // the same sound under another title
        LibraryFixture fixture(music);
        std::vector<PersistentID> before;
        for (const QByteArray &name : names)
            before.push_back(fixture.idAt(music.path("old/" + name)));
        const PersistentID other = fixture.idAt(music.path("old/d/three.wav"));

        for (const QByteArray &name : names.first(4))
            music.copy("old/" + name, "new/" + name);
        music.copy("old/d/three.wav", "new/e/three.wav"); // no folder tells them apart any more
        music.copy("old/c/three.wav", "new/f/three.wav");
        music.remove("old");
        fixture.scan();
        for (qsizetype i = 0; i < 4; ++i)
            QCOMPARE(fixture.idAt(music.path("new/" + names[i])), before[static_cast<std::size_t>(i)]);
        QCOMPARE(fixture.idAt(music.path("new/e/three.wav")), other);
        QCOMPARE(fixture.idAt(music.path("new/f/three.wav")), before[4]);
        QCOMPARE(fixture.library().status()->fileGone, 0);
    }

    void doesNotGuessBetweenVanishedTwins()
    {
        const WavFolder music{"a/one.wav"};
        music.copy("a/one.wav", "b/one.wav");
        LibraryFixture fixture(music);
        const PersistentID a = fixture.idAt(music.path("a/one.wav"));
        const PersistentID b = fixture.idAt(music.path("b/one.wav"));
        music.copy("a/one.wav", "c/one.wav"); // before the others go: it must not get one of their inodes
        music.remove("a");
        music.remove("b");
        fixture.scan();
        const PersistentID c = fixture.idAt(music.path("c/one.wav"));
        QVERIFY(c != a && c != b);
    }
};

QTEST_GUILESS_MAIN(tst_SongIdentity)
#include "tst_SongIdentity.moc"
