// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/linux/library/store/SearchWords.h"
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
            << QStringLiteral("東京ラブab海") << QStringLiteral("東 京 ら ぶ ab 海");
        QTest::newRow("length sign") << QStringLiteral("ストーリー") << QStringLiteral("す と ー り ー");
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

    void knowsOtherWordsOfAText_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("expected");
        const auto row = [](const char *text, const char *expected) {
            QTest::newRow(text) << QString::fromUtf8(text) << QString::fromUtf8(expected);
        };
        row("plain words 1999", "plain words 1999");
        row("L'Aventurière d’Or", "laventuriere dor\naventuriere or");
        row("We'll Don't You're I've", "well dont youre ive");
        row("Arc-en-l'île", "arc en lile\narcenlile ile");
        row("A.D.I. (J.S.)", "a d i j s\nadi js");
        row("Q&A/B", "q and a b\nqab qnab n");
        row("B*W $ 5$", "b w 5\nbw");
        row("Ca$h m@n Sh!n", "ca h m n sh n\ncah mn shn cash man shin");
        row("Wham! !Oh!", "wham oh");
        row("l33t mau5 t4k3 4you h1 7up 2020", "l33t mau5 t4k3 4you h1 7up 2020\nmaus tak3");
        row("M€N £ 5£", "m € n £ 5 £\nmn men");
        row("Salt-N-Sweet rock'n'stone", "salt and sweet rock and stone\nsaltnsweet rocknstone n");
        row("N'Joy n", "njoy n\njoy");
        row("one + two +", "one and two\nn");
        row("the-longest-of-all-names-is-this", "the longest of all names is this");
        row("&", "&");
        row("ガラスｱｲ ヽ", "が ら す あ い ゝ");
        row("أغنية إلى آدم شيء مؤمن ٢٠", "اغنيه الي ادم شي مومن 20");
        row("گل کوی‌ها", "گل كويها");
    }
    void knowsOtherWordsOfAText()
    {
        QFETCH(QString, text);
        QFETCH(QString, expected);
        QCOMPARE(QString::fromStdString(indexedText(folded(text))), expected);
        QCOMPARE(searchTextIn(indexedText(folded(text))), searchText(folded(text)));
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

    void namesTheCountryWhereItMatters()
    {
        QCOMPARE(TextOrder("en_US").name(), TextOrder("en_GB").name());
        QCOMPARE(TextOrder(TextOrder("sv_FI").name().toLatin1()).name(), TextOrder("sv").name());
        QVERIFY(TextOrder("sv").name() != TextOrder("en").name());
        QVERIFY(TextOrder("zh_TW").name() != TextOrder("zh_CN").name());
        QVERIFY(TextOrder("en_US_POSIX").name().startsWith(QStringLiteral("en ")));
    }

    void ordersAsPeopleDo()
    {
        const TextOrder order("en_US");
        QStringList names{QStringLiteral("zebra"),    QStringLiteral("Éclair"),
                          QStringLiteral("Track 10"), QStringLiteral("Track 9"),
                          QStringLiteral("apple"),    QStringLiteral("1999"),
                          QStringLiteral("Борис"),    QStringLiteral(" \u3000eagle ")};
        std::sort(names.begin(), names.end(),
                  [&](const QString &a, const QString &b) { return order.sortKey(a) < order.sortKey(b); });
        QCOMPARE(names.join(u'|'),
                 QStringLiteral("1999|apple| \u3000eagle |Éclair|Track 9|Track 10|zebra|Борис"));
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
