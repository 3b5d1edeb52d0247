// SPDX-License-Identifier: GPL-3.0-or-later
#include "device/library/tags/Lyrics.h"
#include "device/library/tags/PartialDate.h"
#include "device/library/tags/SongTags.h"
#include "device/library/tags/TagFields.h"
#include "support/Test.h"

class tst_TagValues : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void readsPartialDates()
    {
        const auto start = [](const QString &text) {
            const auto date = PartialDate::fromText(text);
            if (!date || date->text != text)
                return QString();
            const auto moment = date->start(QTimeZone("Europe/Berlin")).time_since_epoch().count();
            return QDateTime::fromMSecsSinceEpoch(moment, Qt::UTC).toString(Qt::ISODate);
        };
        const std::pair<QString, QStringList> rows[]{
            // when it starts, in UTC
            {u"2020-12-31T23:00:00Z"_s,
             {u"2021"_s, u"2021-13-40"_s, u"2021 (remaster)"_s, u"05/03/2021"_s, u"31.02.2021"_s,
              u"March 5, 2021"_s}},
            {u"2021-06-30T22:00:00Z"_s, {u"2021-07"_s}},
            {u"2021-07-04T22:00:00Z"_s, {u"2021-07-05"_s, u"20210705"_s, u"2021/7/5"_s}},
            {u"2021-07-05T05:00:00Z"_s, {u"2021-07-05T07:00:00"_s, u"2021-07-05T07:00:00.123+02:00"_s}},
            {u"2021-07-05T05:30:00Z"_s, {u"2021-07-05 07:30"_s}},
            {u"2021-07-05T07:00:00Z"_s, {u"2021-07-05T07:00:00Z"_s}},
            {u"2021-01-31T23:00:00Z"_s, {u"2021-02-30"_s}},
            {u"2021-03-04T23:00:00Z"_s, {u"05.03.2021"_s, u"5-3-2021"_s}},
            {u"2021-03-24T23:00:00Z"_s, {u"03/25/2021"_s}}};
        for (const auto &[moment, texts] : rows) {
            for (const QString &text : texts)
                QCOMPARE(text + u": "_s + start(text), text + u": "_s + moment);
        }
        for (const auto &text : {u"No. 12021"_s, u"0000"_s, u"21"_s, u"unknown"_s, u""_s})
            QVERIFY2(!PartialDate::fromText(text), qPrintable(text));
    }

    void understandsRatings()
    {
        const auto percent = [](const QString &text, Field kind = Field::RatingLoose) {
            TagFields fields;
            fields.add(kind, text);
            return songTags(fields).ratingPercent.value_or(-1); // not rated
        };
        QCOMPARE(percent(u"0.0"_s, Field::RatingFraction), 0);
        QCOMPARE(percent(u"0.5"_s, Field::RatingFraction), 50);
        QCOMPARE(percent(u"7"_s, Field::RatingFraction), -1);
        QCOMPARE(percent(u"80"_s, Field::RatingPercent), 80);
        const std::pair<QString, int> rows[]{
            {u"★★★"_s, 60}, {u"★★★☆☆"_s, 60}, {u" ★★½"_s, 50}, {u"☆☆☆☆☆"_s, 0}, {u"★★★★★★"_s, -1},
            {u"1"_s, 20},   {u"1.0"_s, 100},  {u"0.6"_s, 60},  {u"5"_s, 100},   {u"7"_s, 70},
            {u"10"_s, 100}, {u"60"_s, 60},    {u"101"_s, -1},  {u"-1"_s, -1},   {u"good"_s, -1}};
        for (const auto &[text, expected] : rows)
            QCOMPARE(percent(text), expected);
    }

    void roundsToWholeStars()
    {
        for (const auto &[percent, stars] :
             {std::pair(0, 0U), std::pair(1, 1U), std::pair(10, 1U), std::pair(30, 2U), std::pair(29, 1U),
              std::pair(90, 5U), std::pair(100, 5U)})
            QCOMPARE(SongTags{.ratingPercent = percent}.stars(), stars);
    }

    void understandsNumbers()
    {
        const std::tuple<QString, unsigned, unsigned> rows[]{
            {u" 07 / 12"_s, 7U, 12U}, {u"3 of 12"_s, 3U, 12U}, {u"128 BPM"_s, 128U, 0U},
            {u"127,6"_s, 128U, 0U},   {u"0/2"_s, 0U, 2U},      {u"-3"_s, 0U, 0U},
            {u"A1"_s, 0U, 0U}}; // 0: none
        for (const auto &[text, first, second] : rows) {
            TagFields fields;
            for (const auto field : {Field::Track, Field::Disc, Field::BeatsPerMinute, Field::PlayCount})
                fields.add(field, text);
            auto tags = songTags(fields);
            QCOMPARE(tags.trackNumber.value_or(0U), first);
            QCOMPARE(tags.beatsPerMinute.value_or(0U), first);
            QCOMPARE(tags.playCount.value_or(0U), first);
            QCOMPARE(tags.trackCount.value_or(0U), second);
            fields.add(Field::DiscCount, u"5"_s);
            tags = songTags(fields);
            QCOMPARE(tags.discNumber.value_or(0U), first);
            QCOMPARE(tags.discCount, 5U); // a field of its own counts more
        }
    }

    void prefersTheBetterSpellingAndKeepsLists()
    {
        TagFields fields;
        fields.add(Field::Artist, u"worse"_s, 1);
        fields.add(Field::Artist, u" \t\u00a0"_s);
        fields.add(Field::Artist, u"first"_s);
        fields.add(Field::Artist, QString::fromUtf16(u"\ufeff \u3000second act\u200b \0", 16));
        fields.add(Field::Artist, u"first"_s);
        fields.add(Field::Artist, u"late and worse"_s, 1);
        QCOMPARE(songTags(fields).displayArtist(), u"first, second act"_s);
    }

    void limitsTexts()
    {
        TagFields fields;
        fields.add(Field::Comments, QString(3'000'000, u'x'));
        QCOMPARE(songTags(fields).comments->size(), 512 * 1024);
    }

    void stripsTimeMarks()
    {
        QCOMPARE(withoutTimeMarks(u"[00:01.50]one\n[01:02]two"_s), u"one\ntwo"_s);
        QCOMPARE(withoutTimeMarks(u"[00:01.50][00:09.50] one\n\n[01:02:33] two"_s), u"one\n\ntwo"_s);
        QCOMPARE(withoutTimeMarks(u"[00:01.50]<00:01.50> one <00:01.90> more"_s), u"one more"_s);
        QCOMPARE(withoutTimeMarks(u"[ar:Somebody]\n[offset:+20]\n[00:01.50]one"_s), u"one"_s);
        QCOMPARE(withoutTimeMarks(u"[Chorus]\none [twice]"_s), u"[Chorus]\none [twice]"_s);
        QCOMPARE(withoutTimeMarks(u"[00:01.50][Chorus]\n[00:02.50]one"_s), u"[Chorus]\none"_s);
        QCOMPARE(withoutTimeMarks(u"one\rtwo\r\rthree"_s), u"one\ntwo\n\nthree"_s);
        QCOMPARE(withoutTimeMarks(u"[00:01.50]one\r\n[00:02.50]two\r\n"_s), u"one\ntwo"_s);
    }

    void decodesUnknownText()
    {
        QCOMPARE(decodedText("\xc3\xa9t\xc3\xa9"_ba), u"été"_s);
        QCOMPARE(decodedText("\xef\xbb\xbf\xc3\xa9"_ba), u"é"_s);
        QCOMPARE(decodedText(QByteArray("\xff\xfe\xe9\0t\0", 6)), u"ét"_s);
        QCOMPARE(decodedText("\xe9 \x80 \x93"_ba), u"é € “"_s);
    }
};

QTEST_APPLESS_MAIN(tst_TagValues)
#include "tst_TagValues.moc"
