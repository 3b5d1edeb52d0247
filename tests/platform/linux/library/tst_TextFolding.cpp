// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/linux/library/store/TextFolding.h"
#include "platform/linux/library/store/TextOrder.h"

#include <QTest>

using namespace trackwise;

class tst_TextFolding : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void foldsWhatPeopleVary_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("expected");
        QTest::newRow("case and blanks")
            << QStringLiteral("  Hello\t WORLD ") << QStringLiteral("hello world");
        QTest::newRow("Scandinavian") << QStringLiteral("Sigur Rós ÅØ") << QStringLiteral("sigur ros ao");
        QTest::newRow("Polish") << QStringLiteral("ŁÓDŹ") << QStringLiteral("lodz");
        QTest::newRow("sharp s") << QStringLiteral("Straße STRASSE") << QStringLiteral("strasse strasse");
        QTest::newRow("dotted I") << QStringLiteral("İstanbul ıI") << QStringLiteral("istanbul ii");
        QTest::newRow("ligatures and width")
            << QStringLiteral("ﬁnale Ｆｕｌｌ œuvre Ænima") << QStringLiteral("finale full oeuvre aenima");
        QTest::newRow("decomposed") << QStringLiteral("e\u0301toile q\u0303") << QStringLiteral("etoile q");
        QTest::newRow("Russian short i stays") << QStringLiteral("МОЙ Ёлка") << QStringLiteral("мой елка");
        QTest::newRow("voiced kana stay")
            << QStringLiteral("が か\u3099 ｶﾞ か") << QStringLiteral("が が ガ か");
        QTest::newRow("Greek accents and sigma")
            << QStringLiteral("Νύχτα ΟΔΥΣΣΕΥΣ") << QStringLiteral("νυχτα οδυσσευσ");
        QTest::newRow("Arabic vowels") << QStringLiteral("حَبِيبِي") << QStringLiteral("حبيبي");
        QTest::newRow("invisible characters")
            << QStringLiteral("o\u200bo \u202eabc\u202c") << QStringLiteral("oo abc");
        QTest::newRow("punctuation stays")
            << QStringLiteral("AC/DC “P!nk”") << QStringLiteral("ac/dc \"p!nk\"");
    }
    void foldsWhatPeopleVary()
    {
        QFETCH(QString, text);
        QFETCH(QString, expected);
        QCOMPARE(folded(text), expected);
        QCOMPARE(folded(folded(text)), expected);
    }

    void partsIntoWords_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("expected");
        QTest::newRow("punctuation") << QStringLiteral("ac/dc (live) #1") << QStringLiteral("ac dc live 1");
        QTest::newRow("apostrophe") << QStringLiteral("don't o’neil") << QStringLiteral("dont oneil");
        QTest::newRow("Han and kana")
            << QStringLiteral("東京ラブab海") << QStringLiteral("東 京 ラ ブ ab 海");
        QTest::newRow("length sign") << QStringLiteral("ストーリー") << QStringLiteral("ス ト ー リ ー");
        QTest::newRow("Thai marks stay with their letter") << QStringLiteral("รัก") << QStringLiteral("รั ก");
        QTest::newRow("symbols") << QStringLiteral("i♥you 🎵") << QStringLiteral("i ♥ you 🎵");
        QTest::newRow("only punctuation") << QStringLiteral("???") << QStringLiteral("???");
        QTest::newRow("nothing") << QString() << QString();
    }
    void partsIntoWords()
    {
        QFETCH(QString, text);
        QFETCH(QString, expected);
        QCOMPARE(QString::fromStdString(searchText(text)), expected);
    }

    void losesCaseAlone_data()
    {
        QTest::addColumn<QString>("one");
        QTest::addColumn<QString>("other");
        QTest::addColumn<bool>("equal");
        QTest::newRow("case") << QStringLiteral("HÉLLO") << QStringLiteral("héllo") << true;
        QTest::newRow("form") << QStringLiteral("e\u0301") << QStringLiteral("É") << true;
        QTest::newRow("diacritics count") << QStringLiteral("Hello") << QStringLiteral("Héllo") << false;
        QTest::newRow("blanks count") << QStringLiteral("a b") << QStringLiteral("a  b") << false;
        QTest::newRow("width counts") << QStringLiteral("Full") << QStringLiteral("Ｆｕｌｌ") << false;
    }
    void losesCaseAlone()
    {
        QFETCH(QString, one);
        QFETCH(QString, other);
        QTEST(withoutCase(one) == withoutCase(other), "equal");
        QTEST(caselessKey(one) == caselessKey(other), "equal");
    }

    void ordersAsPeopleDo()
    {
        const TextOrder order("en_US");
        QStringList names{QStringLiteral("zebra"),   QStringLiteral("Éclair"), QStringLiteral("Track 10"),
                          QStringLiteral("Track 9"), QStringLiteral("apple"),  QStringLiteral("1999"),
                          QStringLiteral("Борис"),   QStringLiteral("eagle")};
        std::sort(names.begin(), names.end(),
                  [&](const QString &a, const QString &b) { return order.sortKey(a) < order.sortKey(b); });
        QCOMPARE(names.join(u'|'), QStringLiteral("1999|apple|eagle|Éclair|Track 9|Track 10|zebra|Борис"));
    }

    void namesSections_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("section");
        QTest::newRow("Latin") << QStringLiteral("élan") << QStringLiteral("E");
        QTest::newRow("Polish l") << QStringLiteral("Łódź") << QStringLiteral("L");
        QTest::newRow("digit") << QStringLiteral("99 Luftballons") << QStringLiteral("#");
        QTest::newRow("symbol") << QStringLiteral("♥") << QStringLiteral("#");
        QTest::newRow("nothing") << QString() << QStringLiteral("#");
        QTest::newRow("Cyrillic") << QStringLiteral("Йод") << QStringLiteral("Й");
        QTest::newRow("hiragana") << QStringLiteral("さくら") << QStringLiteral("さ");
        QTest::newRow("katakana") << QStringLiteral("ガラス") << QStringLiteral("か");
        QTest::newRow("Hangul") << QStringLiteral("사랑") << QStringLiteral("ㅅ");
        QTest::newRow("Han") << QStringLiteral("月亮") << QStringLiteral("…");
    }
    void namesSections()
    {
        QFETCH(QString, text);
        static const TextOrder order("en_US");
        QTEST(order.section(text), "section");
    }
};

QTEST_GUILESS_MAIN(tst_TextFolding)
#include "tst_TextFolding.moc"
