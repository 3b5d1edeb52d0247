// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/linux/library/LibraryFixture.h"
#include "platform/linux/library/WavFolder.h"

#include <QTest>

#include <filesystem>
#include <set>

using namespace trackwise;
using namespace std::chrono_literals;

namespace {
using Step = std::function<void(const WavFolder &)>;

/// What is done to the files "a/one.wav" (sound 1) and "a/two.wav" (sound 2), and where the songs are then;
/// empty: nowhere.
struct Change
{
    Step step;
    QByteArray one;
    QByteArray two;
};
} // namespace

Q_DECLARE_METATYPE(Change)

class tst_SongIdentity : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void followsTheSound_data()
    {
        QTest::addColumn<Change>("change");
        const auto row = [](const char *name, const QByteArray &one, const QByteArray &two, Step step) {
            QTest::newRow(name) << Change{std::move(step), one, two};
        };
        row("nothing", "a/one.wav", "a/two.wav", [](const WavFolder &) {});
        row("retagged in place", "a/one.wav", "a/two.wav",
            [](const WavFolder &music) { music.write("a/one.wav", 1, "Another Title", "Zoe"); });
        row("retagged through a new file", "a/one.wav", "a/two.wav", [](const WavFolder &music) {
            music.write("a/new.tmp", 1, "Another Title", "Zoe");
            music.move("a/new.tmp", "a/one.wav");
        });
        row("renamed", "a/zzz.wav", "a/two.wav",
            [](const WavFolder &music) { music.move("a/one.wav", "a/zzz.wav"); });
        row("renamed and retagged", "a/zzz.wav", "a/two.wav", [](const WavFolder &music) {
            music.move("a/one.wav", "a/zzz.wav");
            music.write("a/zzz.wav", 1, "Another Title");
        });
        row("moved to another folder", "b/c/one.wav", "a/two.wav",
            [](const WavFolder &music) { music.move("a/one.wav", "b/c/one.wav"); });
        row("folder renamed", "0/one.wav", "0/two.wav", [](const WavFolder &music) { music.move("a", "0"); });
        row("copied elsewhere and deleted", "b/one.wav", "a/two.wav", [](const WavFolder &music) {
            music.copy("a/one.wav", "b/one.wav");
            music.remove("a/one.wav");
        });
        row("names swapped", "a/two.wav", "a/one.wav", [](const WavFolder &music) {
            music.move("a/one.wav", "a/x");
            music.move("a/two.wav", "a/one.wav");
            music.move("a/x", "a/two.wav");
        });
        row("contents swapped", "a/two.wav", "a/one.wav", [](const WavFolder &music) {
            music.write("a/one.wav", 2, "Two");
            music.write("a/two.wav", 1, "One");
        });
        row("moved over the other", "a/two.wav", "",
            [](const WavFolder &music) { music.move("a/one.wav", "a/two.wav"); });
        row("better copy under the same name", "a/one.wav", "a/two.wav",
            [](const WavFolder &music) { music.write("a/one.wav", 77, "ONE", "ann"); });
        row("another song under the same name", "", "a/two.wav",
            [](const WavFolder &music) { music.write("a/one.wav", 77, "Something Else"); });
        row("copied", "a/one.wav", "a/two.wav",
            [](const WavFolder &music) { music.copy("a/one.wav", "a/0 copy.wav"); });
        row("linked hard", "a/one.wav", "a/two.wav", [](const WavFolder &music) {
            std::filesystem::create_hard_link(music.path("a/one.wav").toStdString(),
                                              music.path("a/0 link.wav").toStdString());
        });
        row("kept as a backup beside a new file", "a/one.wav", "a/two.wav", [](const WavFolder &music) {
            music.move("a/one.wav", "a/0 backup.wav");
            music.write("a/one.wav", 1, "Another Title");
        });
        row("deleted", "", "a/two.wav", [](const WavFolder &music) { music.remove("a/one.wav"); });
    }
    void followsTheSound()
    {
        QFETCH(Change, change);
        const WavFolder music;
        music.write("a/one.wav", 1, "One");
        music.write("a/two.wav", 2, "Two");
        LibraryFixture fixture({music.root()});
        QCOMPARE(fixture.scan().songsRead, 2);
        const PersistentID one = fixture.idAt(music.path("a/one.wav"));
        const PersistentID two = fixture.idAt(music.path("a/two.wav"));
        QVERIFY(one.isInLibrary() && two.isInLibrary() && one != two);
        QVERIFY(fixture.store().recordPlay(one, Instant(5s)));

        change.step(music);
        QVERIFY(fixture.scan().isComplete);

        const auto check = [&](PersistentID song, const QByteArray &place) {
            const LibrarySong found = *fixture.library().song(song);
            if (place.isEmpty())
                return found.availability == Availability::FileGone;
            return found.availability == Availability::Available && found.file.path() == music.path(place);
        };
        QVERIFY(check(one, change.one));
        QVERIFY(check(two, change.two));
        QCOMPARE(fixture.library().song(one)->item.playCount, 1U);
        QCOMPARE(fixture.library().song(one)->item.lastPlayedDate, Instant(5s));

        std::set<PersistentID> all;
        (void)fixture.library().forEachSong(
            [&](const LibrarySong &song) { return all.insert(song.item.persistentID).second; });
        const LibraryStatus status = *fixture.library().status();
        QCOMPARE(static_cast<qsizetype>(all.size()), status.available + status.fileGone);
        QCOMPARE(fixture.scan().songsRead, 0); // all of it has been understood
    }

    void comesBackAsItself()
    {
        const WavFolder music;
        music.write("one.wav", 1, "One");
        LibraryFixture fixture({music.root()});
        fixture.scan();
        const PersistentID one = fixture.idAt(music.path("one.wav"));
        music.remove("one.wav");
        QCOMPARE(fixture.scan().songsMissing, 1);
        QCOMPARE(fixture.library().browser().songCount(), 0);
        music.write("later/elsewhere.wav", 1, "Renamed");
        fixture.scan();
        QCOMPARE(fixture.idAt(music.path("later/elsewhere.wav")), one);
        QCOMPARE(fixture.library().browser().songCount(), 1);
    }

    void keepsSongsOfAnAbsentFolder()
    {
        const WavFolder music;
        music.write("disk/one.wav", 1, "One");
        music.write("other/two.wav", 2, "Two");
        LibraryFixture fixture({music.path("disk"), music.path("other")});
        fixture.scan();
        const PersistentID one = fixture.idAt(music.path("disk/one.wav"));
        music.move("disk", "unplugged");
        fixture.scan();
        QCOMPARE(fixture.availability(one), Availability::DiskAbsent);
        QCOMPARE(fixture.library().browser().songCount(), 2); // shown, but not as available
        QVERIFY(!fixture.library().browser().songRows(std::span(&one, 1)).front().isAvailable);
        music.move("unplugged", "disk");
        QCOMPARE(fixture.scan().songsRead, 0);
        QCOMPARE(fixture.availability(one), Availability::Available);
    }

    void keepsTwinsApartOnTheWayToAnotherFolder()
    {
        const WavFolder music;
        const QByteArrayList names{"a/one.wav", "b/one.wav", "a/x/two.wav", "b/x/two.wav", "c/three.wav"};
        for (const QByteArray &name : names)
            music.write("old/" + name, 1, "Same", "Ann");
        music.write("old/d/three.wav", 1, "Other", "Ann"); // the same sound under another title
        LibraryFixture fixture({music.root()});
        fixture.scan();
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
        const WavFolder music;
        music.write("a/one.wav", 1, "One");
        music.copy("a/one.wav", "b/one.wav");
        LibraryFixture fixture({music.root()});
        fixture.scan();
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
