// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/Call.h"
#include "cli/Console.h"
#include "cli/NamedClip.h"
#include "device/library/store/FilePaths.h"
#include "support/Test.h"

#include <pty.h>
#include <unistd.h>

using namespace trackwise::cli;

class tst_Console : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void letsNoTagSteerTheTerminal()
    {
        const std::pair<QString, QString> rows[]{
            {u"Føhn ★ 雨 😀"_s, u"Føhn ★ 雨 😀"_s},
            {u"\x1b[31mred\x1b[0m"_s, u"␛[31mred␛[0m"_s},
            {u"\x1b]0;x\x07"_s, u"␛]0;x␇"_s},
            {u"a\nb\tc\b\x1f ~\x7f"_s, u"a\nb c␈␟ ~␡"_s},
            {u"\x80\x9f\xa0"_s, u"��\xa0"_s},
            {u"\u2029\u202a\u202e\u202f"_s, u"\u2029��\u202f"_s},
            {u"\u2065\u2066\u2069\u206a"_s, u"\u2065��\u206a"_s},
            {QString(QChar(0xd800)), u"�"_s},
            {QString(QChar(0xdfff)) + QChar(0xe000), u"�\ue000"_s},
        };
        for (const auto &[text, shown] : rows)
            QCOMPARE(printable(text), shown);
    }

    void countsColumnsAsTerminalsDo()
    {
        QList<int> columns;
        for (const QString &text : {u"Rock"_s, u"雨のA"_s, u"ｱｲ"_s, u"e\u0301a"_s, u"😀"_s, u"★★☆"_s})
            columns << columnsOf(text);
        QCOMPARE(columns, QList<int>({4, 5, 2, 2, 2, 3}));
    }

    void keepsItsStatusOnOneLineOfATerminal()
    {
        int terminal = -1;
        int program = -1;
        const winsize size{.ws_row = 24, .ws_col = 10, .ws_xpixel = 0, .ws_ypixel = 0};
        QCOMPARE(openpty(&terminal, &program, nullptr, nullptr, &size), 0);
        const int errors = dup(STDERR_FILENO);
        dup2(program, STDERR_FILENO);
        {
            StatusLine line;
            line.show(u"a\nb"_s);
            line.show(u"雨雨雨雨 is more than fits"_s);
        }
        dup2(errors, STDERR_FILENO);
        const auto expected = "\r\x1b[Ka b\r\x1b[K雨雨雨雨 \r\x1b[K"_ba;
        QByteArray shown;
        for (char c = 0; shown.size() < expected.size() && read(terminal, &c, 1) == 1;) // comes in pieces
            shown += c;
        QCOMPARE(shown, expected);
        for (const int file : {errors, program, terminal})
            close(file);
    }

    void beginsValuesBelowEachOther()
    {
        QCOMPARE(table({{u"雨"_s, u"1"_s}, {u"Comments"_s, u"one\r\ntwo\rthree"_s}}),
                 QStringLiteral("雨        1\n"
                                "Comments  one\n"
                                "          two\n"
                                "          three\n"));
    }

    void tellsWhereInTheSongAClipBegins()
    {
        for (const auto &[seconds, place] :
             {std::pair(-61.5, u"-1:01"_s), {-1, u"-0:01"_s}, {-0.9, u"0:00"_s}, {599.9, u"9:59"_s}})
            QCOMPARE(textOf({.answer = {.match = {{.offsetSeconds = seconds}}}, .title = u"A"_s}),
                     u"A  "_s + place);
    }

    void takesCallsApart()
    {
        const Option json[] = {{.name = "json"}};
        const auto call = parseCall({"--json", "--folder=/a/../b/", "--folder", "c", "--", "--more"}, json);
        QVERIFY(call);
        QVERIFY(call->wantsJson);
        QVERIFY(!call->wantsMore);
        QCOMPARE(call->operands, std::vector<QByteArray>{"--more"});
        QCOMPARE(call->musicFolders.at(0), "/b"_ba);
        QCOMPARE(call->musicFolders.at(1), absolutePath("c"));
        QVERIFY(call->musicFolders.at(1).startsWith('/'));
        for (const auto &wrong : std::vector<std::vector<QByteArray>>{
                 {"--more"}, {"--library"}, {"--library="}, {"-x"}, {"--folder", ""}})
            QVERIFY2(!parseCall(wrong, json), wrong.front().constData());
    }
};

QTEST_GUILESS_MAIN(tst_Console)
#include "tst_Console.moc"
