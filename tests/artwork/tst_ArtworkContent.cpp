// SPDX-License-Identifier: GPL-3.0-or-later
#include "artwork/ArtworkAddress.h"
#include "artwork/ArtworkContent.h"
#include "support/Test.h"

class tst_ArtworkContent : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void theTileLeavesSpaceBesideItself()
    {
        constexpr std::pair<qreal, qreal> sides[]{{360, 280}, {380, 300}, {1440, 300},
                                                  {80, 0},    {20, 0},    {0, 0}};
        for (const auto &[width, side] : sides)
            QCOMPARE(artworkSide(width), side);
    }

    void thePlaceholderChangesWithTheDay()
    {
        const auto symbol = [](std::chrono::seconds afterMidnightUtc, const char *zone) {
            return placeholderSymbol(Instant{std::chrono::sys_days{2021y / 9 / 20}} + afterMidnightUtc,
                                     QTimeZone(zone));
        };
        QCOMPARE(symbol(0s, "UTC"), u"noteinfo"_s);
        QCOMPARE(symbol(1s, "UTC"), u"note"_s);
        QCOMPARE(symbol(-1s, "UTC"), u"noteinfo"_s);
        QCOMPARE(symbol(-8h, "Asia/Tokyo"), u"note"_s);      // the day begins earlier there
        QCOMPARE(symbol(4h, "America/Lima"), u"noteinfo"_s); // and later there
    }

    void titleAndArtistAreSaidAsShown()
    {
        using Text = std::optional<QString>;
        const auto spoken = [](const Text &title, const Text &artist, bool isExplicit = false,
                               const QString &fileName = {}) {
            const MediaItem song{.title = title, .artist = artist, .isExplicitItem = isExplicit};
            return spokenText(titleBlock(song, fileName));
        };
        QCOMPARE(spoken(u"Lines"_s, u"Machines"_s, false, u"01 x"_s), u"Lines, Machines"_s);
        QCOMPARE(spoken(u"Lines"_s, u"Machines"_s, true), u"Lines, Explicit, Machines"_s);
        QCOMPARE(spoken({}, {}, true), u"--, Explicit"_s);
        QCOMPARE(spoken({}, u"Machines"_s, false, u"01 x"_s), u"01 x, Machines"_s);
        QCOMPARE(spoken(u""_s, u"Machines"_s), u"--, Machines"_s);
        QCOMPARE(spoken(u"Lines"_s, {}), u"Lines"_s); // no artist, no line
        QCOMPARE(spoken(u"Lines"_s, u""_s), u"Lines, --"_s);
        QCOMPARE(spoken(u"<b>x</b>"_s, {}), u"<b>x</b>"_s);
    }

    void addressesAreReadBack()
    {
        const ArtworkReference reference{PersistentID{0xff}, QByteArray("\xc0\xff\xee")};
        QCOMPARE(artworkAddress(reference), u"image://artwork/00000000000000FF/c0ffee"_s);
        for (const auto &address :
             {artworkAddress(reference), u"00000000000000FF/c0ffee"_s, // as providers get it
              u"00000000000000ff/C0FFEE"_s})
            QCOMPARE(artworkReference(address), reference);
        for (const auto &broken :
             {u""_s, u"00000000000000FF"_s, u"00000000000000FF/"_s, u"00000000000000FF/c0ffe"_s,
              u"00000000000000FF/coffee"_s, u"FF/c0ffee"_s, u"000000000000 0FF/c0ffee"_s})
            QVERIFY2(!artworkReference(broken), qPrintable(broken));
    }
};

QTEST_GUILESS_MAIN(tst_ArtworkContent)
#include "tst_ArtworkContent.moc"
