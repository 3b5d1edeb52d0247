// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/Call.h"
#include "cli/Console.h"
#include "device/library/store/FilePaths.h"

#include <QTest>

using namespace Qt::StringLiterals;
using namespace trackwise;
using namespace trackwise::cli;

class tst_Console : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void letsNoTagSteerTheTerminal()
    {
        QCOMPARE(printable(u"Føhn ★ 雨 😀"_s), u"Føhn ★ 雨 😀"_s);
        QCOMPARE(printable(QStringLiteral("\x1b[31mred\x1b[0m")), u"␛[31mred␛[0m"_s);
        QCOMPARE(printable(QStringLiteral("\x1b]0;x\x07")), u"␛]0;x␇"_s);
        QCOMPARE(printable(QString(QChar(0x9b)) + u"2J"_s), u"�2J"_s);
        QCOMPARE(printable(u"a\nb\tc"_s), u"a\nb c"_s);
        QCOMPARE(printable(QStringLiteral("a\b\x7f")), u"a␈␡"_s);
        QCOMPARE(printable(u"\u202egpj.exe"_s), u"�gpj.exe"_s);
        QCOMPARE(printable(QString(QChar(0xd83d))), u"�"_s);
    }

    void countsColumnsAsTerminalsDo()
    {
        QCOMPARE(columnsOf(u"Rock"_s), 4);
        QCOMPARE(columnsOf(u"雨のA"_s), 5);
        QCOMPARE(columnsOf(u"ｱｲ"_s), 2);
        QCOMPARE(columnsOf(u"e\u0301a"_s), 2);
        QCOMPARE(columnsOf(u"😀"_s), 2);
        QCOMPARE(columnsOf(u"★★☆"_s), 3);
    }

    void beginsValuesBelowEachOther()
    {
        QCOMPARE(table({{u"雨"_s, u"1"_s}, {u"Comments"_s, u"one\r\ntwo\rthree"_s}}),
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
        QCOMPARE(call->musicFolders.at(0), "/b"_ba);
        QCOMPARE(call->musicFolders.at(1), absolutePath("c"));
        QVERIFY(call->musicFolders.at(1).startsWith('/'));
        for (const auto &wrong : std::vector<std::vector<QByteArray>>{
                 {"--more"}, {"--library"}, {"--library="}, {"-x"}, {"--folder", ""}})
            QVERIFY2(!parseCall(wrong, {.json = true}), wrong.front().constData());
    }
};

QTEST_GUILESS_MAIN(tst_Console)
#include "tst_Console.moc"
