// SPDX-License-Identifier: GPL-3.0-or-later
#include "information/DateFormats.h"
#include "information/FormatLocale.h"
#include "information/InformationRows.h"
#include "support/FullSong.h"
#include "support/Test.h"

#include <QProcess>

#include <limits>

using std::chrono::sys_days;

namespace {

constexpr Instant referenceInstant = sys_days{2001y / 1 / 1};

InformationRows rowsOf(const MediaItem &item, const QByteArray &locale = "en_US",
                       const QByteArray &zone = "UTC")
{
    return informationRows(item, {locale, locale}, QTimeZone(zone));
}

/// What is shown, what is spoken instead, and what can be pressed.
QStringList lines(const std::vector<InformationRow> &rows)
{
    QStringList result;
    for (const InformationRow &row : rows)
        result << row.title + u": "_s + row.value +
                      (row.valueAccessibilityLabel ? u" ("_s + row.spoken() + u')' : QString()) +
                      (row.action == RowAction::ShowLyrics ? u" [button]"_s : QString());
    return result;
}

QString valueOf(const InformationRows &rows, const QString &title)
{
    const QString start = title + u": "_s;
    return (lines(rows.main) + lines(rows.more)).filter(start).value(0).mid(start.size());
}

} // namespace

class tst_InformationRows : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void showsEverythingInOrder()
    {
        MediaItem song = fullSong();
        song.playCount = 1234567;
        song.beatsPerMinute = 1118;
        song.comments = u"Two\nlines"_s;
        const InformationRows rows = rowsOf(song);
        QCOMPARE(lines(rows.main).join(u'\n'),
                 u"Title: Tïtle ✓ 夜\nArtist: First, Second\nAlbum: Album\n"
                 "Album artist: Album Artist\nComposer: Composer\nGenre: Jazz, Rock\n"
                 "Release date: March 5, 2021\nDuration: 3:25\nPlay count: 1234567\n"
                 "Last played: March 5, 2021 at 3:04 PM"_s);
        QCOMPARE(lines(rows.more).join(u'\n'),
                 u"Grouping: Grouping\nTrack: 3 of 12\nDisc number: 1 of 2\nCompilation: Yes\n"
                 "Explicit: Yes\nRating: ★★★★☆ (Rating, 4 stars)\nBPM: 1118\nSkip count: 2\n"
                 "Date added: December 31, 2020 at 9:00 AM\nComments: Two\nlines\n"
                 "Lyrics: Show Lyrics [button]"_s);
    }

    void showsPlaceholdersForASongWithoutMetadata()
    {
        for (const auto &text : {std::optional<QString>(), std::optional(u""_s)}) {
            MediaItem item;
            for (auto field : {&MediaItem::title, &MediaItem::artist, &MediaItem::albumTitle,
                               &MediaItem::albumArtist, &MediaItem::composer, &MediaItem::genre,
                               &MediaItem::userGrouping, &MediaItem::comments, &MediaItem::lyrics})
                item.*field = text;
            const InformationRows rows = rowsOf(item);
            for (const InformationRow &row : rows.main)
                QCOMPARE(row.value, row.title == u"Play count" ? u"0"_s : u"--"_s);
            QCOMPARE(
                lines(rows.more).join(u'\n'),
                u"Grouping: --\nTrack: --\nDisc number: --\nCompilation: No\nExplicit: No\n"
                "Rating: ☆☆☆☆☆ (Rating, Not rated)\nBPM: --\nSkip count: 0\nDate added: --\nComments: --\nLyrics: --"_s);
        }
    }

    void writesDates()
    {
        MediaItem item;
        item.releaseDate = item.lastPlayedDate = item.dateAddedForReal = sys_days{2021y / 3 / 5} + 15h + 4min;
        const auto dates = [&item](const QByteArray &locale, const QByteArray &zone) {
            const InformationRows rows = rowsOf(item, locale, zone);
            const QString added = valueOf(rows, u"Date added"_s);
            return valueOf(rows, u"Release date"_s) + u'|' +
                   (added == valueOf(rows, u"Last played"_s) ? added : u"differ"_s);
        };
        QCOMPARE(dates("en_US", "UTC"), u"March 5, 2021|March 5, 2021 at 3:04 PM"_s);
        QCOMPARE(dates("en_US", "America/New_York"), u"March 5, 2021|March 5, 2021 at 10:04 AM"_s);
        QCOMPARE(dates("en_US", "Asia/Tokyo"), u"March 6, 2021|March 6, 2021 at 12:04 AM"_s);
        QCOMPARE(dates("en_GB", "UTC+05:45"), u"5 March 2021|5 March 2021 at 20:49"_s);
        QCOMPARE(dates("de_DE", "UTC"), u"5. März 2021|5. März 2021 um 15:04"_s);
        QCOMPARE(dates("ja_JP", "UTC"), u"2021年3月5日|2021年3月5日 15:04"_s);
        QCOMPARE(dates("ar_EG", "UTC"), u"٥ مارس ٢٠٢١|٥ مارس ٢٠٢١ في ٣:٠٤ م"_s);
    }

    void theReferenceInstantIsNoDateAdded()
    {
        MediaItem item;
        item.releaseDate = item.lastPlayedDate = item.dateAddedForReal = referenceInstant;
        const InformationRows rows = rowsOf(item);
        QCOMPARE(valueOf(rows, u"Release date"_s), u"January 1, 2001"_s);
        QCOMPARE(valueOf(rows, u"Last played"_s), u"January 1, 2001 at 12:00 AM"_s);
        QCOMPARE(valueOf(rows, u"Date added"_s), u"--"_s);
        item.dateAddedForReal = referenceInstant + 1ms;
        QCOMPARE(valueOf(rowsOf(item), u"Date added"_s), u"January 1, 2001 at 12:00 AM"_s);
    }

    void writesDurations()
    {
        const auto duration = [](double seconds, const QByteArray &locale = "en_US") {
            return valueOf(rowsOf({.playbackDuration = seconds}, locale), u"Duration"_s);
        };
        QCOMPARE(duration(-1), u"--"_s);
        QCOMPARE(duration(0), u"--"_s);
        QCOMPARE(duration(std::numeric_limits<double>::quiet_NaN()), u"--"_s);
        QCOMPARE(positionalDuration(0, "en_US"), u"0:00"_s); // where it is known
        QCOMPARE(duration(0.4), u"0:00"_s);
        QCOMPARE(duration(45), u"0:45"_s);
        QCOMPARE(duration(59.9), u"0:59"_s);
        QCOMPARE(duration(60), u"1:00"_s);
        QCOMPARE(duration(3599.9), u"59:59"_s);
        QCOMPARE(duration(3600), u"1:00:00"_s);
        QCOMPARE(duration(3723), u"1:02:03"_s);
        QCOMPARE(duration(36'000'000), u"10000:00:00"_s);
        QCOMPARE(duration(std::numeric_limits<double>::infinity()), u"0"_s);
        QCOMPARE(duration(3723, "da_DK"), u"1.02.03"_s);
        QCOMPARE(duration(45, "ar_EG"), u"٠:٤٥"_s);
        QCOMPARE(duration(3723, "ar_EG"), u"١:٠٢:٠٣"_s);
        QCOMPARE(duration(45, "lt_LT"), u"0:45"_s); // the locale pads the minutes: "00:45"
        QCOMPARE(duration(205, "lt_LT"), u"03:25"_s);
    }

    void writesCountPairs()
    {
        const auto pair = [](unsigned number, unsigned count) {
            const InformationRows rows = rowsOf({.albumTrackNumber = number,
                                                 .albumTrackCount = count,
                                                 .discNumber = number,
                                                 .discCount = count});
            const QString track = valueOf(rows, u"Track"_s);
            return track == valueOf(rows, u"Disc number"_s) ? track : u"differ"_s;
        };
        QCOMPARE(pair(3, 12), u"3 of 12"_s);
        QCOMPARE(pair(1, 1), u"1 of 1"_s);
        QCOMPARE(pair(0, 10), u"-- of 10"_s);
        QCOMPARE(pair(4, 0), u"4"_s);
        QCOMPARE(pair(0, 0), u"--"_s);
        QCOMPARE(pair(1000, 2000), u"1000 of 2000"_s); // not grouped
    }

    void speaksRatings()
    {
        const auto rating = [](unsigned stars) { return valueOf(rowsOf({.rating = stars}), u"Rating"_s); };
        QCOMPARE(rating(1), u"★☆☆☆☆ (Rating, 1 star)"_s);
        QCOMPARE(rating(2), u"★★☆☆☆ (Rating, 2 stars)"_s);
        QCOMPARE(rating(5), u"★★★★★ (Rating, 5 stars)"_s);
    }

    void stopsAtARatingAboveFive()
    {
        const QByteArray childMark("TRACKWISE_TEST_RATING");
        if (qEnvironmentVariableIsSet(childMark)) {
            (void)rowsOf({.rating = 6});
            return; // not reached: the parent sees a normal end and fails
        }
        QProcess child;
        qputenv(childMark, "1");
        child.setProcessChannelMode(QProcess::MergedChannels);
        child.start(QCoreApplication::applicationFilePath(),
                    {u"stopsAtARatingAboveFive"_s, u"-nocrashhandler"_s});
        QVERIFY(child.waitForFinished());
        qunsetenv(childMark);
        QCOMPARE(child.exitStatus(), QProcess::CrashExit);
        QVERIFY(child.readAll().contains("rating of 6 stars"));
    }

    void formatsFollowTheEnvironment()
    {
        const auto locales = [](const QString &variables) {
            QProcessEnvironment environment;
            for (const QString &variable : variables.split(u' ', Qt::SkipEmptyParts))
                environment.insert(variable.section(u'=', 0, 0), variable.section(u'=', 1));
            const FormatLocale locale = FormatLocale::fromEnvironment(environment);
            return locale.dates == locale.numbers ? locale.dates : locale.dates + ' ' + locale.numbers;
        };
        QCOMPARE(locales({}), "en_US"_ba);
        QCOMPARE(locales(u"LANG=de_DE.UTF-8"_s), "de_DE"_ba);
        QCOMPARE(locales(u"LANG=en_US.UTF-8 LC_TIME=da_DK.UTF-8"_s), "da_DK en_US"_ba);
        QCOMPARE(locales(u"LANG=en_US LC_NUMERIC=ar_EG.UTF-8"_s), "en_US ar_EG"_ba);
        QCOMPARE(locales(u"LC_ALL=ja_JP.UTF-8 LC_TIME=fr_FR LANG=de_DE"_s), "ja_JP"_ba);
        QCOMPARE(locales(u"LC_ALL= LC_TIME= LANG=fi_FI"_s), "fi_FI"_ba); // empty means unset
        QCOMPARE(locales(u"LANG=C.UTF-8 LC_NUMERIC=POSIX"_s), "en_US"_ba);
        QCOMPARE(locales(u"LANG=fr_FR@euro"_s), "fr_FR"_ba);
        QCOMPARE(locales(u"LANG=sr_RS.UTF-8@latin"_s), "sr_Latn_RS"_ba);
        QCOMPARE(locales(u"LANG=uz@cyrillic"_s), "uz_Cyrl"_ba);
    }
};

QTEST_GUILESS_MAIN(tst_InformationRows)
#include "tst_InformationRows.moc"
