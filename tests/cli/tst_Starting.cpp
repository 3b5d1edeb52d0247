// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/Program.h"

#include <QTest>

// What a start says where it cannot go on, and that it leaves nothing behind then.
class tst_Starting : public QObject, private Program
{
    Q_OBJECT

private Q_SLOTS:
    void saysInOneLineWhatIsWrong_data()
    {
        QTest::addColumn<QByteArray>("environment");
        QTest::addColumn<QByteArrayList>("arguments");
        QTest::addColumn<int>("code");
        QTest::addColumn<QByteArray>("says");
        const QByteArray noDisplay = "env -u QT_QPA_PLATFORM -u DISPLAY -u WAYLAND_DISPLAY";
        const QByteArray noWindow = "no window can be opened: ";
        QTest::newRow("no display") << noDisplay << QByteArrayList{} << 1 << noWindow;
        QTest::newRow("wrong display")
            << noDisplay + " DISPLAY=:4711" << QByteArrayList{"--demo"} << 1 << noWindow;
        QTest::newRow("no compositor")
            << noDisplay + " QT_QPA_PLATFORM=wayland WAYLAND_DISPLAY=nowhere XDG_RUNTIME_DIR=/tmp"
            << QByteArrayList{"https://example.org/1"} << 1 << noWindow;
        QTest::newRow("missing plug-in") << QByteArray("env QT_QPA_PLATFORM=nowhere") << QByteArrayList{} << 1
                                         << noWindow + "Could not find the Qt platform plugin";
        QTest::newRow("plug-in named by an option")
            << noDisplay << QByteArrayList{"-platform", "nowhere"} << 1 << noWindow + "Could not find";
        for (const char *wrong : {"frobnicate", "./missing.mp3", ""})
            QTest::addRow("operand '%s'", wrong)
                << noDisplay << QByteArrayList{wrong} << 2
                << QByteArray("neither a command, an address nor a file that is there: ") + wrong + '\n';
        QTest::newRow("option without its value")
            << noDisplay << QByteArrayList{"--show"} << 2 << QByteArray("Missing value after '--show'.\n");
        QTest::newRow("option with an empty value")
            << noDisplay << QByteArrayList{"--library="} << 2 << QByteArray("--library needs a value\n");
        QTest::newRow("unknown option")
            << noDisplay << QByteArrayList{"--frobnicate"} << 2 << QByteArray("Unknown option");
        QTest::newRow("no size") << noDisplay << QByteArrayList{"--size", "3"} << 2
                                 << QByteArray("not a size: 3\n");
        QTest::newRow("no folder") << noDisplay << QByteArrayList{"--folder", "/nowhere"} << 2
                                   << QByteArray("no such folder: /nowhere\n");
        QTest::newRow("no home") << QByteArray("env -u HOME") << QByteArrayList{} << 1
                                 << QByteArray("HOME is not set");
        QTest::newRow("no home for a command")
            << QByteArray("env -u HOME -u XDG_DATA_HOME") << QByteArrayList{"library", "status"} << 1
            << QByteArray("your library cannot be found, since HOME");
    }
    void saysInOneLineWhatIsWrong()
    {
        QFETCH(QByteArray, environment);
        QFETCH(QByteArrayList, arguments);
        QFETCH(int, code);
        QFETCH(QByteArray, says);
        const Outcome outcome = run(arguments, environment);
        QVERIFY2(outcome.errors.startsWith("trackwise: " + says), outcome.errors.constData());
        QCOMPARE(outcome.errors.count('\n'), 1);
        QCOMPARE(outcome.code, code);
        QCOMPARE(outcome.output, QByteArray());
        QVERIFY(hasMadeNothing());
    }

    void answersWithoutADisplay()
    {
        const QByteArray bare = "env -i";
        const Outcome help = run({"--help"}, bare);
        QVERIFY(help.output.startsWith("Usage: "));
        QVERIFY(help.output.contains("--demo"));
        QVERIFY(!help.output.contains("platform"));
        QCOMPARE(run({"--version"}, bare).output, QByteArray("trackwise " TRACKWISE_VERSION "\n"));
        for (const char *question : {"--help", "-h", "--help-all", "--version"}) {
            const Outcome answered = run({question}, bare);
            QCOMPARE(answered.code, 0);
            QCOMPARE(answered.errors, QByteArray());
            QCOMPARE(run({question}, bare, "/dev/full").code, 1);
        }
        QVERIFY(hasMadeNothing());
    }
};

QTEST_GUILESS_MAIN(tst_Starting)
#include "tst_Starting.moc"
