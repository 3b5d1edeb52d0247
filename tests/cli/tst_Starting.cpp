// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/Program.h"
#include "support/Test.h"

#include <QImage>

// What a start says where it cannot go on, that it leaves nothing behind then, and the picture that it saves.
class tst_Starting : public QObject, private Program
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { std::filesystem::remove_all(inScratch("home").constData()); }

    void saysInOneLineWhatIsWrong()
    {
        const QByteArray noDisplay = "env -u QT_QPA_PLATFORM -u DISPLAY -u WAYLAND_DISPLAY";
        const QByteArray noRuntime = " QT_QPA_PLATFORM=wayland WAYLAND_DISPLAY=nowhere XDG_RUNTIME_DIR=/tmp";
        const QByteArray noWindow = "no window can be opened: ";
        const QByteArray noOperand = "neither a command, an address nor a file that is there: ";
        const std::tuple<QByteArray, QByteArrayList, int, QByteArray> rows[]{
            {noDisplay, {}, 1, noWindow},
            {noDisplay + " DISPLAY=:4711", {"--demo"}, 1, noWindow},
            {noDisplay + noRuntime, {"https://example.org/1"}, 1, noWindow},
            {"env QT_QPA_PLATFORM=nowhere", {}, 1, noWindow + "Could not find the Qt platform plugin"},
            {noDisplay, {"-platform", "nowhere"}, 1, noWindow + "Could not find"},
            {noDisplay, {"frobnicate"}, 2, noOperand + "frobnicate\n"},
            {noDisplay, {"./missing.mp3"}, 2, noOperand + "./missing.mp3\n"},
            {noDisplay, {""}, 2, noOperand + "\n"},
            {noDisplay, {"--show"}, 2, "Missing value after '--show'.\n"},
            {noDisplay, {"--library="}, 2, "--library needs a value\n"},
            {noDisplay, {"--frobnicate"}, 2, "Unknown option"},
            {noDisplay, {"--size", "3"}, 2, "not a size: 3\n"},
            {noDisplay,
             {"--action", "Select"},
             2,
             "--action is one of SelectSongAction, SelectSongNowPlayingAction, "
             "SelectSongMusicRecognitionAction\n"},
            {noDisplay,
             {"--action", "SelectSongAction", "x://y"},
             2,
             "either an action or something to show\n"},
            {noDisplay, {"--folder", "/nowhere"}, 2, "no such folder: /nowhere\n"},
            {"env -u HOME", {}, 1, "HOME is not set"},
            {"env -u HOME -u XDG_DATA_HOME",
             {"library", "status"},
             1,
             "your library cannot be found, since HOME"},
        };
        for (const auto &[environment, arguments, code, says] : rows) {
            const Outcome outcome = run(arguments, environment);
            QVERIFY2(outcome.errors.startsWith("trackwise: " + says), outcome.errors);
            QCOMPARE(outcome.errors.count('\n'), 1);
            QVERIFY2(outcome.code == code && outcome.output.isEmpty() && hasMadeNothing(), says);
        }
    }

    void savesAPictureOfASong()
    {
        const QByteArrayList picture{"--size", "500x400", "--screenshot", inScratch("picture.png")};
        std::vector<QImage> pictures;
        for (const QByteArrayList &shown :
             {QByteArrayList{"--demo"}, {"--folder", DEMO_LIBRARY_FOLDER, "--show", "harbour lights"}}) {
            const Outcome outcome = run(picture + shown);
            QCOMPARE(std::pair(outcome.code, outcome.errors), std::pair(0, ""_ba));
            pictures.emplace_back(QString::fromUtf8(inScratch("picture.png")));
            QCOMPARE(pictures.back().size(), QSize(500, 400));
        }
        QVERIFY(pictures.front() != pictures.back());
        const std::pair<QByteArrayList, QByteArray> rows[]{
            {{"--demo", "--show", "qqqq"}, "no file and no song of the library: qqqq"},
            {{"--demo", "--screenshot", "/nowhere/picture.png"}, "cannot write /nowhere/picture.png"},
            {{"--library", TRACKWISE_PROGRAM}, "the library cannot be opened: " TRACKWISE_PROGRAM ": "}};
        for (const auto &[arguments, says] : rows) {
            const Outcome outcome = run(picture + arguments);
            QVERIFY2(outcome.errors.startsWith("trackwise: " + says), outcome.errors);
            QCOMPARE(outcome.code, 1);
        }
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
