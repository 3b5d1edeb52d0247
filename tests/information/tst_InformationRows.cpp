// SPDX-License-Identifier: GPL-3.0-or-later
#include "information/InformationRows.h"

#include <QProcess>
#include <QTest>

#include <limits>

using namespace trackwise;
using namespace std::chrono_literals;

namespace {

constexpr Instant referenceInstant{std::chrono::sys_days{std::chrono::year{2001} / 1 / 1}};

Instant utc(int year, unsigned month, unsigned day, std::chrono::minutes time = 0min)
{
    return std::chrono::sys_days{std::chrono::year{year} / static_cast<int>(month) / static_cast<int>(day)} +
           time;
}

InformationRows rowsOf(const MediaItem &item, const QByteArray &locale = "en_US",
                       const QByteArray &zone = "UTC")
{
    return informationRows(item, {locale, locale}, QTimeZone(zone));
}

QString valueOf(const InformationRows &rows, const QString &title)
{
    for (const auto *group : {&rows.main, &rows.more}) {
        for (const InformationRow &row : *group) {
            if (row.title == title)
                return row.value;
        }
    }
    return QStringLiteral("(no such row)");
}

QStringList lines(const std::vector<InformationRow> &rows)
{
    QStringList result;
    for (const InformationRow &row : rows)
        result << row.title + QStringLiteral(": ") + row.value;
    return result;
}

MediaItem songWithEverything()
{
    MediaItem item;
    item.title = QStringLiteral("Golden Hour Lines");
    item.artist = QStringLiteral("The Quiet Machines");
    item.albumTitle = QStringLiteral("Paper Satellites");
    item.albumArtist = QStringLiteral("Various");
    item.composer = QStringLiteral("I. Vale");
    item.genre = QStringLiteral("Electronic");
    item.userGrouping = QStringLiteral("Evening");
    item.comments = QStringLiteral("Two\nlines");
    item.lyrics = QStringLiteral("La");
    item.releaseDate = utc(2021, 3, 5);
    item.lastPlayedDate = utc(2021, 3, 5, 15h + 4min);
    item.dateAddedForReal = utc(2020, 12, 31, 9h);
    item.playbackDuration = 205.9;
    item.playCount = 1234567;
    item.skipCount = 2;
    item.rating = 4;
    item.beatsPerMinute = 1118;
    item.albumTrackNumber = 3;
    item.albumTrackCount = 12;
    item.discNumber = 1;
    item.discCount = 1;
    item.isExplicitItem = true;
    return item;
}

} // namespace

class tst_InformationRows : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void showsEverythingInOrder()
    {
        const InformationRows rows = rowsOf(songWithEverything());
        QCOMPARE(
            lines(rows.main).join(u'\n'),
            QStringLiteral("Title: Golden Hour Lines\nArtist: The Quiet Machines\nAlbum: Paper Satellites\n"
                           "Album artist: Various\nComposer: I. Vale\nGenre: Electronic\n"
                           "Release date: March 5, 2021\nDuration: 3:25\nPlay count: 1234567\n"
                           "Last played: March 5, 2021 at 3:04 PM"));
        QCOMPARE(lines(rows.more).join(u'\n'),
                 QStringLiteral("Grouping: Evening\nTrack: 3 of 12\nDisc number: 1 of 1\nCompilation: No\n"
                                "Explicit: Yes\nRating: ★★★★☆\nBPM: 1118\nSkip count: 2\n"
                                "Date added: December 31, 2020 at 9:00 AM\nComments: Two\nlines\n"
                                "Lyrics: Show Lyrics"));
    }

    void showsPlaceholdersForASongWithoutMetadata_data()
    {
        QTest::addColumn<std::optional<QString>>("text");
        QTest::newRow("absent") << std::optional<QString>();
        QTest::newRow("empty") << std::optional<QString>(QString());
    }
    void showsPlaceholdersForASongWithoutMetadata()
    {
        QFETCH(std::optional<QString>, text);
        MediaItem item;
        for (auto field : {&MediaItem::title, &MediaItem::artist, &MediaItem::albumTitle,
                           &MediaItem::albumArtist, &MediaItem::composer, &MediaItem::genre,
                           &MediaItem::userGrouping, &MediaItem::comments, &MediaItem::lyrics})
            item.*field = text;
        const InformationRows rows = rowsOf(item);
        for (const InformationRow &row : rows.main)
            QCOMPARE(row.value, row.title == u"Play count" ? QStringLiteral("0") : QStringLiteral("--"));
        QCOMPARE(lines(rows.more).join(u'\n'),
                 QStringLiteral(
                     "Grouping: --\nTrack: --\nDisc number: --\nCompilation: No\nExplicit: No\n"
                     "Rating: ☆☆☆☆☆\nBPM: --\nSkip count: 0\nDate added: --\nComments: --\nLyrics: --"));
    }

    void onlyLyricsAreAButtonAndOnlyTheRatingIsSpokenDifferently()
    {
        const InformationRows rows = rowsOf(songWithEverything());
        for (const auto *group : {&rows.main, &rows.more}) {
            for (const InformationRow &row : *group) {
                QCOMPARE(row.action == RowAction::ShowLyrics, row.title == u"Lyrics");
                QCOMPARE(row.valueAccessibilityLabel.has_value(), row.title == u"Rating");
            }
        }
        QCOMPARE(rowsOf({}).more.back().action, RowAction::None);
    }

    void writesDates_data()
    {
        QTest::addColumn<QByteArray>("locale");
        QTest::addColumn<QByteArray>("zone");
        QTest::addColumn<QString>("date");
        QTest::addColumn<QString>("dateAndTime");
        const auto row = [](const char *locale, const char *zone, const QString &date,
                            const QString &dateAndTime) {
            QTest::addRow("%s in %s", locale, zone)
                << QByteArray(locale) << QByteArray(zone) << date << dateAndTime;
        };
        row("en_US", "UTC", QStringLiteral("March 5, 2021"), QStringLiteral("March 5, 2021 at 3:04 PM"));
        row("en_US", "America/New_York", QStringLiteral("March 5, 2021"),
            QStringLiteral("March 5, 2021 at 10:04 AM"));
        row("en_US", "Asia/Tokyo", QStringLiteral("March 6, 2021"),
            QStringLiteral("March 6, 2021 at 12:04 AM"));
        row("en_GB", "UTC+05:45", QStringLiteral("5 March 2021"), QStringLiteral("5 March 2021 at 20:49"));
        row("de_DE", "UTC", QStringLiteral("5. März 2021"), QStringLiteral("5. März 2021 um 15:04"));
        row("ja_JP", "UTC", QStringLiteral("2021年3月5日"), QStringLiteral("2021年3月5日 15:04"));
        row("ar_EG", "UTC", QStringLiteral("٥ مارس ٢٠٢١"), QStringLiteral("٥ مارس ٢٠٢١ في ٣:٠٤ م"));
    }
    void writesDates()
    {
        QFETCH(QByteArray, locale);
        QFETCH(QByteArray, zone);
        MediaItem item;
        item.releaseDate = item.lastPlayedDate = item.dateAddedForReal = utc(2021, 3, 5, 15h + 4min);
        const InformationRows rows = rowsOf(item, locale, zone);
        QTEST(valueOf(rows, QStringLiteral("Release date")), "date");
        QTEST(valueOf(rows, QStringLiteral("Last played")), "dateAndTime");
        QTEST(valueOf(rows, QStringLiteral("Date added")), "dateAndTime");
    }

    void theReferenceInstantIsNoDateAdded()
    {
        MediaItem item;
        item.releaseDate = item.lastPlayedDate = item.dateAddedForReal = referenceInstant;
        const InformationRows rows = rowsOf(item);
        QCOMPARE(valueOf(rows, QStringLiteral("Release date")), QStringLiteral("January 1, 2001"));
        QCOMPARE(valueOf(rows, QStringLiteral("Last played")), QStringLiteral("January 1, 2001 at 12:00 AM"));
        QCOMPARE(valueOf(rows, QStringLiteral("Date added")), QStringLiteral("--"));
        item.dateAddedForReal = referenceInstant + 1ms;
        QCOMPARE(valueOf(rowsOf(item), QStringLiteral("Date added")),
                 QStringLiteral("January 1, 2001 at 12:00 AM"));
    }

    void writesDurations_data()
    {
        QTest::addColumn<QByteArray>("locale");
        QTest::addColumn<double>("seconds");
        QTest::addColumn<QString>("text");
        const auto row = [](const char *locale, double seconds, const QString &text) {
            QTest::addRow("%s %g", locale, seconds) << QByteArray(locale) << seconds << text;
        };
        row("en_US", -1, QStringLiteral("--"));
        row("en_US", 0, QStringLiteral("--"));
        row("en_US", std::numeric_limits<double>::quiet_NaN(), QStringLiteral("--"));
        row("en_US", 0.4, QStringLiteral("0:00"));
        row("en_US", 45, QStringLiteral("0:45"));
        row("en_US", 59.9, QStringLiteral("0:59"));
        row("en_US", 60, QStringLiteral("1:00"));
        row("en_US", 205, QStringLiteral("3:25"));
        row("en_US", 3599.9, QStringLiteral("59:59"));
        row("en_US", 3600, QStringLiteral("1:00:00"));
        row("en_US", 3723, QStringLiteral("1:02:03"));
        row("en_US", 86400, QStringLiteral("24:00:00"));
        row("en_US", 36'000'000, QStringLiteral("10000:00:00"));
        row("en_US", std::numeric_limits<double>::infinity(), QStringLiteral("0"));
        row("da_DK", 3723, QStringLiteral("1.02.03"));
        row("ar_EG", 45, QStringLiteral("٠:٤٥"));
        row("ar_EG", 3723, QStringLiteral("١:٠٢:٠٣"));
        row("lt_LT", 45, QStringLiteral("0:45")); // the locale pads the minutes: "00:45"
        row("lt_LT", 205, QStringLiteral("03:25"));
    }
    void writesDurations()
    {
        QFETCH(QByteArray, locale);
        QFETCH(double, seconds);
        MediaItem item;
        item.playbackDuration = seconds;
        QTEST(valueOf(rowsOf(item, locale), QStringLiteral("Duration")), "text");
    }

    void writesCountPairs_data()
    {
        QTest::addColumn<unsigned>("number");
        QTest::addColumn<unsigned>("count");
        QTest::addColumn<QString>("text");
        QTest::newRow("both") << 3u << 12u << QStringLiteral("3 of 12");
        QTest::newRow("count alone") << 0u << 10u << QStringLiteral("-- of 10");
        QTest::newRow("number alone") << 4u << 0u << QStringLiteral("4");
        QTest::newRow("neither") << 0u << 0u << QStringLiteral("--");
        QTest::newRow("large, in a locale that groups") << 1000u << 2000u << QStringLiteral("1000 of 2000");
    }
    void writesCountPairs()
    {
        QFETCH(unsigned, number);
        QFETCH(unsigned, count);
        MediaItem item;
        item.albumTrackNumber = number;
        item.albumTrackCount = count;
        QTEST(valueOf(rowsOf(item), QStringLiteral("Track")), "text");
        std::swap(item.albumTrackNumber, item.discNumber);
        std::swap(item.albumTrackCount, item.discCount);
        QTEST(valueOf(rowsOf(item), QStringLiteral("Disc number")), "text");
    }

    void speaksRatings_data()
    {
        QTest::addColumn<unsigned>("rating");
        QTest::addColumn<QString>("stars");
        QTest::addColumn<QString>("spoken");
        QTest::newRow("none") << 0u << QStringLiteral("☆☆☆☆☆") << QStringLiteral("Not rated");
        QTest::newRow("one") << 1u << QStringLiteral("★☆☆☆☆") << QStringLiteral("1 star");
        QTest::newRow("four") << 4u << QStringLiteral("★★★★☆") << QStringLiteral("4 stars");
        QTest::newRow("five") << 5u << QStringLiteral("★★★★★") << QStringLiteral("5 stars");
    }
    void speaksRatings()
    {
        QFETCH(unsigned, rating);
        MediaItem item;
        item.rating = rating;
        const InformationRow row = rowsOf(item).more.at(5);
        QTEST(row.value, "stars");
        QTEST(row.valueAccessibilityLabel.value_or(QString()), "spoken");
    }

    void stopsAtARatingAboveFive()
    {
        const QByteArray childMark("TRACKWISE_TEST_RATING");
        if (qEnvironmentVariableIsSet(childMark)) {
            MediaItem item;
            item.rating = 6;
            (void)rowsOf(item);
            return; // not reached: the parent sees a normal end and fails
        }
        QProcess child;
        auto environment = QProcessEnvironment::systemEnvironment();
        environment.insert(QString::fromLatin1(childMark), QStringLiteral("1"));
        child.setProcessEnvironment(environment);
        child.setProcessChannelMode(QProcess::MergedChannels);
        child.start(QCoreApplication::applicationFilePath(), {QStringLiteral("stopsAtARatingAboveFive")});
        QVERIFY(child.waitForFinished());
        QCOMPARE(child.exitStatus(), QProcess::CrashExit);
        QVERIFY(child.readAll().contains("rating of 6 stars"));
    }
};

QTEST_GUILESS_MAIN(tst_InformationRows)
#include "tst_InformationRows.moc"
