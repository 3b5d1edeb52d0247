// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/Call.h"
#include "cli/Console.h"

#include <QTest>

using namespace trackwise;
using namespace trackwise::cli;

class tst_Console : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void letsNoTagSteerTheTerminal_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("shown");
        QTest::newRow("plain") << QStringLiteral("Føhn ★ 雨 😀") << QStringLiteral("Føhn ★ 雨 😀");
        QTest::newRow("colour") << QStringLiteral("\x1b[31mred\x1b[0m") << QStringLiteral("␛[31mred␛[0m");
        QTest::newRow("title of the window") << QStringLiteral("\x1b]0;x\x07") << QStringLiteral("␛]0;x␇");
        QTest::newRow("eight-bit escape")
            << QString(QChar(0x9b)) + QStringLiteral("2J") << QStringLiteral("�2J");
        QTest::newRow("line end and tab") << QStringLiteral("a\nb\tc") << QStringLiteral("a\nb c");
        QTest::newRow("backspace, delete") << QStringLiteral("a\b\x7f") << QStringLiteral("a␈␡");
        QTest::newRow("reversed name") << QStringLiteral("\u202egpj.exe") << QStringLiteral("�gpj.exe");
        QTest::newRow("half a character") << QString(QChar(0xd83d)) << QStringLiteral("�");
    }
    void letsNoTagSteerTheTerminal()
    {
        QFETCH(QString, text);
        QFETCH(QString, shown);
        QCOMPARE(printable(text), shown);
    }

    void countsColumnsAsTerminalsDo_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<int>("columns");
        QTest::newRow("Latin") << QStringLiteral("Rock") << 4;
        QTest::newRow("kanji and kana") << QStringLiteral("雨のA") << 5;
        QTest::newRow("half-width kana") << QStringLiteral("ｱｲ") << 2;
        QTest::newRow("combining mark") << QStringLiteral("e\u0301a") << 2;
        QTest::newRow("beyond 16 bits") << QStringLiteral("😀") << 2;
        QTest::newRow("stars") << QStringLiteral("★★☆") << 3;
    }
    void countsColumnsAsTerminalsDo()
    {
        QFETCH(QString, text);
        QFETCH(int, columns);
        QCOMPARE(columnsOf(text), columns);
    }

    void beginsValuesBelowEachOther()
    {
        QCOMPARE(table({{QStringLiteral("雨"), QStringLiteral("1")},
                        {QStringLiteral("Comments"), QStringLiteral("one\r\ntwo\rthree")}}),
                 QStringLiteral("雨        1\n"
                                "Comments  one\n"
                                "          two\n"
                                "          three\n"));
    }

    void takesCallsApart()
    {
        const auto call =
            parseCall({"--json", "--folder=/a/../b/", "--folder", "c", "--", "--more"}, {.json = true});
        QVERIFY(call);
        QVERIFY(call->wantsJson);
        QVERIFY(!call->wantsMore);
        QCOMPARE(call->operands, std::vector<QByteArray>{"--more"});
        QCOMPARE(call->musicFolders.at(0), QByteArray("/b"));
        QCOMPARE(call->musicFolders.at(1), absolutePath("c"));
        QVERIFY(call->musicFolders.at(1).startsWith('/'));
        for (const auto &wrong : std::vector<std::vector<QByteArray>>{
                 {"--more"}, {"--library"}, {"--library="}, {"-x"}, {"--folder", ""}})
            QVERIFY2(!parseCall(wrong, {.json = true}), wrong.front().constData());
    }
};

QTEST_GUILESS_MAIN(tst_Console)
#include "tst_Console.moc"
