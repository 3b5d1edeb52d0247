// SPDX-License-Identifier: GPL-3.0-or-later
#include "device/library/store/SearchWords.h"
#include "device/library/store/TextFolding.h"
#include "device/library/store/TextOrder.h"
#include "support/Test.h"

class tst_TextFolding : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void foldsWhatPeopleVary()
    {
        const std::pair<QString, QString> rows[]{
            {u"  Hello\t WORLD "_s, u"hello world"_s},
            {u"Sigur Rós ÅØ"_s, u"sigur ros ao"_s},
            {u"ŁÓDŹ"_s, u"lodz"_s},
            {u"Straße STRASSE"_s, u"strasse strasse"_s},
            {u"İstanbul ıI"_s, u"istanbul ii"_s},
            {u"ﬁnale Ｆｕｌｌ œuvre Ænima"_s, u"finale full oeuvre aenima"_s},
            {u"e\u0301toile q\u0303"_s, u"etoile q"_s},
            {u"МОЙ Ёлка"_s, u"мой елка"_s},
            {u"が か\u3099 ｶﾞ か"_s, u"が が ガ か"_s},
            {u"Νύχτα ΟΔΥΣΣΕΥΣ"_s, u"νυχτα οδυσσευσ"_s},
            {u"حَبِيبِي"_s, u"حبيبي"_s},
            {u"o\u200bo \u202eabc\u202c"_s, u"oo abc"_s},
            {u"AC/DC “P!nk”"_s, u"ac/dc \"p!nk\""_s}};
        for (const auto &[text, expected] : rows) {
            QCOMPARE(folded(text), expected);
            QCOMPARE(folded(expected), expected);
        }
    }

    void partsIntoWords()
    {
        const std::pair<QString, const char *> rows[]{{u"ac/dc (live) #1"_s, "ac dc live 1"},
                                                      {u"don't o’neil"_s, "dont oneil"},
                                                      {u"東京ラブab海"_s, "東 京 ら ぶ ab 海"},
                                                      {u"ストーリー"_s, "す と ー り ー"},
                                                      {u"รัก"_s, "รั ก"},
                                                      {u"i♥you 🎵"_s, "i ♥ you 🎵"},
                                                      {u"???"_s, "???"},
                                                      {QString(), ""}};
        for (const auto &[text, words] : rows)
            QCOMPARE(searchText(text), words);
    }

    void knowsOtherWordsOfAText()
    {
        const std::pair<QString, const char *> rows[]{
            {u"plain words 1999"_s, "plain words 1999"},
            {u"L'Aventurière d’Or"_s, "laventuriere dor\naventuriere or"},
            {u"We'll Don't You're I've"_s, "well dont youre ive"},
            {u"Arc-en-l'île"_s, "arc en lile\narcenlile ile"},
            {u"A.D.I. (J.S.)"_s, "a d i j s\nadi js"},
            {u"Q&A/B"_s, "q and a b\nqab qnab n"},
            {u"B*W $ 5$"_s, "b w 5\nbw"},
            {u"Ca$h m@n Sh!n"_s, "ca h m n sh n\ncah mn shn cash man shin"},
            {u"Wham! !Oh!"_s, "wham oh"},
            {u"l33t mau5 t4k3 4you h1 7up 2020"_s, "l33t mau5 t4k3 4you h1 7up 2020\nmaus tak3"},
            {u"M€N £ 5£"_s, "m € n £ 5 £\nmn men"},
            {u"Salt-N-Sweet rock'n'stone"_s, "salt and sweet rock and stone\nsaltnsweet rocknstone n"},
            {u"N'Joy n"_s, "njoy n\njoy"},
            {u"one + two +"_s, "one and two\nn"},
            {u"the-longest-of-all-names-is-this"_s, "the longest of all names is this"},
            {u"&"_s, "&"},
            {u"ガラスｱｲ ヽ"_s, "が ら す あ い ゝ"},
            {u"أغنية إلى آدم شيء مؤمن ٢٠"_s, "اغنيه الي ادم شي مومن 20"},
            {u"گل کوی‌ها"_s, "گل كويها"}};
        for (const auto &[text, expected] : rows) {
            QCOMPARE(indexedText(folded(text)), expected);
            QCOMPARE(searchTextIn(indexedText(folded(text))), searchText(folded(text)));
        }
    }

    void losesCaseAlone()
    {
        const std::tuple<QString, QString, bool> rows[]{{u"HÉLLO"_s, u"héllo"_s, true},
                                                        {u"e\u0301"_s, u"É"_s, true},
                                                        {u"Hello"_s, u"Héllo"_s, false},
                                                        {u"a b"_s, u"a  b"_s, false},
                                                        {u"Full"_s, u"Ｆｕｌｌ"_s, false}};
        for (const auto &[one, other, areEqual] : rows) {
            QCOMPARE(withoutCase(one) == withoutCase(other), areEqual);
            QCOMPARE(caselessKey(one) == caselessKey(other), areEqual);
        }
    }

    void namesTheCountryWhereItMatters()
    {
        QCOMPARE(TextOrder("en_US").name(), TextOrder("en_GB").name());
        QCOMPARE(TextOrder(TextOrder("sv_FI").name().toLatin1()).name(), TextOrder("sv").name());
        QVERIFY(TextOrder("sv").name() != TextOrder("en").name());
        QVERIFY(TextOrder("zh_TW").name() != TextOrder("zh_CN").name());
        QVERIFY(TextOrder("en_US_POSIX").name().startsWith(u"en "_s));
    }

    void ordersAsPeopleDo()
    {
        const TextOrder order("en_US");
        QStringList names{u"zebra"_s, u"Éclair"_s, u"Track 10"_s, u"Track 9"_s,
                          u"apple"_s, u"1999"_s,   u"Борис"_s,    u" \u3000eagle "_s};
        std::sort(names.begin(), names.end(),
                  [&](const QString &a, const QString &b) { return order.sortKey(a) < order.sortKey(b); });
        QCOMPARE(names.join(u'|'), u"1999|apple| \u3000eagle |Éclair|Track 9|Track 10|zebra|Борис"_s);
    }

    void namesSections()
    {
        const TextOrder order("en_US");
        const std::pair<QString, QString> rows[]{
            {u"élan"_s, u"E"_s},  {u"Łódź"_s, u"L"_s}, {u"99 Luftballons"_s, u"#"_s}, {u"♥"_s, u"#"_s},
            {QString(), u"#"_s},  {u"Йод"_s, u"Й"_s},  {u"さくら"_s, u"さ"_s},        {u"ガラス"_s, u"か"_s},
            {u"사랑"_s, u"ㅅ"_s}, {u"月亮"_s, u"…"_s}};
        for (const auto &[title, section] : rows)
            QCOMPARE(order.section(title), section);
    }
};

QTEST_GUILESS_MAIN(tst_TextFolding)
#include "tst_TextFolding.moc"
