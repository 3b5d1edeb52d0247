// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/linux/library/tags/Lyrics.h"
#include "platform/linux/library/tags/PartialDate.h"
#include "platform/linux/library/tags/SongTags.h"
#include "platform/linux/library/tags/TagFields.h"

#include <QTest>

using namespace trackwise;

class tst_TagValues : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void readsPartialDates_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("start"); // in Berlin; empty: not a date
        const auto add = [](const char *text, const char *start) {
            QTest::newRow(text) << QString::fromLatin1(text) << QString::fromLatin1(start);
        };
        add("2021", "2020-12-31T23:00:00Z");
        add("2021-07", "2021-06-30T22:00:00Z");
        add("2021-07-05", "2021-07-04T22:00:00Z");
        add("2021-07-05T07:00:00", "2021-07-05T05:00:00Z");
        add("2021-07-05 07:30", "2021-07-05T05:30:00Z");
        add("2021-07-05T07:00:00Z", "2021-07-05T07:00:00Z");
        add("2021-07-05T07:00:00.123+02:00", "2021-07-05T05:00:00Z");
        add("20210705", "2021-07-04T22:00:00Z");
        add("2021/7/5", "2021-07-04T22:00:00Z");
        add("2021-13-40", "2020-12-31T23:00:00Z");
        add("2021-02-30", "2021-01-31T23:00:00Z");
        add("2021 (remaster)", "2020-12-31T23:00:00Z");
        add("05.03.2021", "2021-03-04T23:00:00Z");
        add("5-3-2021", "2021-03-04T23:00:00Z");
        add("03/25/2021", "2021-03-24T23:00:00Z");
        add("05/03/2021", "2020-12-31T23:00:00Z"); // May or March
        add("31.02.2021", "2020-12-31T23:00:00Z");
        add("March 5, 2021", "2020-12-31T23:00:00Z");
        add("No. 12021", "");
        add("0000", "");
        add("21", "");
        add("unknown", "");
        add("", "");
    }
    void readsPartialDates()
    {
        QFETCH(QString, text);
        QFETCH(QString, start);
        const auto date = PartialDate::fromText(text);
        QCOMPARE(date.has_value(), !start.isEmpty());
        if (!date)
            return;
        const auto moment = date->start(QTimeZone("Europe/Berlin")).time_since_epoch().count();
        QCOMPARE(QDateTime::fromMSecsSinceEpoch(moment, Qt::UTC).toString(Qt::ISODate), start);
        QCOMPARE(date->text, text);
    }

    void understandsRatings_data()
    {
        QTest::addColumn<int>("kind");
        QTest::addColumn<QString>("text");
        QTest::addColumn<int>("percent"); // -1: not rated
        const auto add = [](Field kind, const char *text, int percent) {
            QTest::addRow("%d %s", int(kind), text) << int(kind) << QString::fromUtf8(text) << percent;
        };
        add(Field::RatingLoose, "★★★", 60);
        add(Field::RatingLoose, "★★★☆☆", 60);
        add(Field::RatingLoose, " ★★½", 50);
        add(Field::RatingLoose, "☆☆☆☆☆", 0);
        add(Field::RatingLoose, "★★★★★★", -1);
        add(Field::RatingFraction, "0.0", 0);
        add(Field::RatingFraction, "0.5", 50);
        add(Field::RatingFraction, "7", -1);
        add(Field::RatingPercent, "80", 80);
        add(Field::RatingLoose, "1", 20);
        add(Field::RatingLoose, "1.0", 100);
        add(Field::RatingLoose, "0.6", 60);
        add(Field::RatingLoose, "5", 100);
        add(Field::RatingLoose, "7", 70);
        add(Field::RatingLoose, "10", 100);
        add(Field::RatingLoose, "60", 60);
        add(Field::RatingLoose, "101", -1);
        add(Field::RatingLoose, "-1", -1);
        add(Field::RatingLoose, "good", -1);
    }
    void understandsRatings()
    {
        QFETCH(int, kind);
        QFETCH(QString, text);
        QFETCH(int, percent);
        TagFields fields;
        fields.add(static_cast<Field>(kind), text);
        QCOMPARE(songTags(fields).ratingPercent.value_or(-1), percent);
    }

    void roundsToWholeStars_data()
    {
        QTest::addColumn<int>("percent");
        QTest::addColumn<unsigned>("stars");
        QTest::newRow("rated with nothing") << 0 << 0U;
        QTest::newRow("a trace") << 1 << 1U;
        QTest::newRow("a half") << 10 << 1U;
        QTest::newRow("one and a half") << 30 << 2U;
        QTest::newRow("below it") << 29 << 1U;
        QTest::newRow("four and a half") << 90 << 5U;
        QTest::newRow("five") << 100 << 5U;
    }
    void roundsToWholeStars()
    {
        QFETCH(int, percent);
        QTEST(SongTags{.ratingPercent = percent}.stars(), "stars");
    }

    void understandsNumbers_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<unsigned>("first"); // 0: none
        QTest::addColumn<unsigned>("second");
        QTest::newRow("padded") << QStringLiteral(" 07 / 12") << 7U << 12U;
        QTest::newRow("in words") << QStringLiteral("3 of 12") << 3U << 12U;
        QTest::newRow("with a unit") << QStringLiteral("128 BPM") << 128U << 0U;
        QTest::newRow("rounded") << QStringLiteral("127,6") << 128U << 0U;
        QTest::newRow("zero") << QStringLiteral("0/2") << 0U << 2U;
        QTest::newRow("negative") << QStringLiteral("-3") << 0U << 0U;
        QTest::newRow("side of a record") << QStringLiteral("A1") << 0U << 0U;
    }
    void understandsNumbers()
    {
        QFETCH(QString, text);
        TagFields fields;
        for (const auto field : {Field::Track, Field::Disc, Field::BeatsPerMinute, Field::PlayCount})
            fields.add(field, text);
        auto tags = songTags(fields);
        QTEST(tags.trackNumber.value_or(0), "first");
        QTEST(tags.beatsPerMinute.value_or(0), "first");
        QTEST(tags.playCount.value_or(0), "first");
        QTEST(tags.trackCount.value_or(0), "second");
        fields.add(Field::DiscCount, QStringLiteral("5"));
        tags = songTags(fields);
        QTEST(tags.discNumber.value_or(0), "first");
        QCOMPARE(tags.discCount, 5U); // a field of its own counts more
    }

    void prefersTheBetterSpellingAndKeepsLists()
    {
        TagFields fields;
        fields.add(Field::Artist, QStringLiteral("worse"), 1);
        fields.add(Field::Artist, QStringLiteral(" \t\u00a0"));
        fields.add(Field::Artist, QStringLiteral("first"));
        fields.add(Field::Artist, QString::fromUtf16(u"\ufeff \u3000second act\u200b \0", 16));
        fields.add(Field::Artist, QStringLiteral("first"));
        fields.add(Field::Artist, QStringLiteral("late and worse"), 1);
        QCOMPARE(songTags(fields).displayArtist(), QStringLiteral("first, second act"));
    }

    void limitsTexts()
    {
        TagFields fields;
        fields.add(Field::Comments, QString(3'000'000, u'x'));
        QCOMPARE(songTags(fields).comments->size(), 512 * 1024);
    }

    void stripsTimeMarks_data()
    {
        QTest::addColumn<QString>("lyrics");
        QTest::addColumn<QString>("plain");
        const auto add = [](const char *name, const char *lyrics, const char *plain) {
            QTest::newRow(name) << QString::fromLatin1(lyrics) << QString::fromLatin1(plain);
        };
        add("lines", "[00:01.50]one\n[01:02]two", "one\ntwo");
        add("repeated lines", "[00:01.50][00:09.50] one\n\n[01:02:33] two", "one\n\ntwo");
        add("words", "[00:01.50]<00:01.50> one <00:01.90> more", "one more");
        add("header", "[ar:Somebody]\n[offset:+20]\n[00:01.50]one", "one");
        add("brackets without times", "[Chorus]\none [twice]", "[Chorus]\none [twice]");
        add("chorus among times", "[00:01.50][Chorus]\n[00:02.50]one", "[Chorus]\none");
        add("old Macintosh line ends", "one\rtwo\r\rthree", "one\ntwo\n\nthree");
        add("Windows line ends", "[00:01.50]one\r\n[00:02.50]two\r\n", "one\ntwo");
    }
    void stripsTimeMarks()
    {
        QFETCH(QString, lyrics);
        QTEST(withoutTimeMarks(lyrics), "plain");
    }

    void decodesUnknownText_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<QString>("text");
        QTest::newRow("UTF-8") << QByteArray("\xc3\xa9t\xc3\xa9") << QStringLiteral("été");
        QTest::newRow("UTF-8, marked") << QByteArray("\xef\xbb\xbf\xc3\xa9") << QStringLiteral("é");
        QTest::newRow("UTF-16, marked") << QByteArray("\xff\xfe\xe9\0t\0", 6) << QStringLiteral("ét");
        QTest::newRow("Windows-1252") << QByteArray("\xe9 \x80 \x93") << QStringLiteral("é € “");
    }
    void decodesUnknownText()
    {
        QFETCH(QByteArray, bytes);
        QTEST(decodedText(bytes), "text");
    }
};

QTEST_APPLESS_MAIN(tst_TagValues)
#include "tst_TagValues.moc"
