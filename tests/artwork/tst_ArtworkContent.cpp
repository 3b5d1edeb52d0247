// SPDX-License-Identifier: GPL-3.0-or-later
#include "artwork/ArtworkAddress.h"
#include "artwork/ArtworkContent.h"

#include <QTest>

using namespace trackwise;
using namespace std::chrono_literals;

class tst_ArtworkContent : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void theTileLeavesSpaceBesideItself_data()
    {
        QTest::addColumn<double>("width");
        QTest::addColumn<double>("side");
        QTest::newRow("phone") << 360.0 << 280.0;
        QTest::newRow("widest") << 380.0 << 300.0;
        QTest::newRow("wider than that") << 1440.0 << 300.0;
        QTest::newRow("nothing left") << 80.0 << 0.0;
        QTest::newRow("less than nothing left") << 20.0 << 0.0;
        QTest::newRow("not laid out yet") << 0.0 << 0.0;
    }
    void theTileLeavesSpaceBesideItself()
    {
        QFETCH(double, width);
        QTEST(artworkSide(width), "side");
    }

    void thePlaceholderChangesWithTheDay_data()
    {
        QTest::addColumn<QByteArray>("zone");
        QTest::addColumn<qint64>("secondsFromMidnightUtc");
        QTest::addColumn<QString>("symbol");
        const auto note = QStringLiteral("note");
        const auto noteInfo = QStringLiteral("noteinfo");
        QTest::newRow("the very moment") << QByteArray("UTC") << qint64(0) << noteInfo;
        QTest::newRow("after") << QByteArray("UTC") << qint64(1) << note;
        QTest::newRow("before") << QByteArray("UTC") << qint64(-1) << noteInfo;
        QTest::newRow("the day begins earlier in Tokyo")
            << QByteArray("Asia/Tokyo") << qint64(-8 * 3600) << note;
        QTest::newRow("and later in Lima") << QByteArray("America/Lima") << qint64(4 * 3600) << noteInfo;
    }
    void thePlaceholderChangesWithTheDay()
    {
        QFETCH(QByteArray, zone);
        QFETCH(qint64, secondsFromMidnightUtc);
        const Instant midnight{std::chrono::sys_days{2021y / 9 / 20}};
        QTEST(placeholderSymbol(midnight + std::chrono::seconds(secondsFromMidnightUtc), QTimeZone(zone)),
              "symbol");
    }

    void titleAndArtistAreSaidAsShown_data()
    {
        QTest::addColumn<QString>("title"); // null: absent
        QTest::addColumn<QString>("artist");
        QTest::addColumn<bool>("isExplicit");
        QTest::addColumn<QString>("fileName");
        QTest::addColumn<QString>("spoken");
        const QString lines = QStringLiteral("Lines");
        const QString machines = QStringLiteral("Machines");
        const QString empty(u""_qs);
        QTest::newRow("both") << lines << machines << false << u"01 x"_qs << u"Lines, Machines"_qs;
        QTest::newRow("explicit") << lines << machines << true << empty << u"Lines, Explicit, Machines"_qs;
        QTest::newRow("explicit, untitled") << QString() << QString() << true << empty << u"--, Explicit"_qs;
        QTest::newRow("untitled file")
            << QString() << machines << false << u"01 x"_qs << u"01 x, Machines"_qs;
        QTest::newRow("empty title") << empty << machines << false << empty << u"--, Machines"_qs;
        QTest::newRow("no artist, no line") << lines << QString() << false << empty << u"Lines"_qs;
        QTest::newRow("empty artist") << lines << empty << false << empty << u"Lines, --"_qs;
        QTest::newRow("markup is text") << u"<b>x</b>"_qs << QString() << false << empty << u"<b>x</b>"_qs;
    }
    void titleAndArtistAreSaidAsShown()
    {
        QFETCH(QString, title);
        QFETCH(QString, artist);
        QFETCH(bool, isExplicit);
        MediaItem song;
        song.title = title.isNull() ? std::nullopt : std::optional(title);
        song.artist = artist.isNull() ? std::nullopt : std::optional(artist);
        song.isExplicitItem = isExplicit;
        QFETCH(QString, fileName);
        QTEST(spokenText(titleBlock(song, fileName)), "spoken");
    }

    void addressesAreReadBack_data()
    {
        QTest::addColumn<QString>("address");
        QTest::addColumn<bool>("isValid");
        QTest::newRow("whole") << u"image://artwork/00000000000000FF/c0ffee"_qs << true;
        QTest::newRow("as a provider gets it") << u"00000000000000FF/c0ffee"_qs << true;
        QTest::newRow("lower case") << u"00000000000000ff/C0FFEE"_qs << true;
        QTest::newRow("no key") << u"00000000000000FF/"_qs << false;
        QTest::newRow("half a byte") << u"00000000000000FF/c0ffe"_qs << false;
        QTest::newRow("not hexadecimal") << u"00000000000000FF/coffee"_qs << false;
        QTest::newRow("identifier too short") << u"FF/c0ffee"_qs << false;
        QTest::newRow("identifier not a number") << u"000000000000 0FF/c0ffee"_qs << false;
        QTest::newRow("empty") << QString() << false;
    }
    void addressesAreReadBack()
    {
        QFETCH(QString, address);
        QFETCH(bool, isValid);
        const ArtworkReference expected{PersistentID{0xff}, QByteArray("\xc0\xff\xee")};
        QCOMPARE(artworkReference(address), isValid ? std::optional(expected) : std::nullopt);
        QCOMPARE(artworkReference(artworkAddress(expected)), expected);
    }
};

QTEST_GUILESS_MAIN(tst_ArtworkContent)
#include "tst_ArtworkContent.moc"
