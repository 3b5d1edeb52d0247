// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/WholeProgram.h"
#include "app/composition/Launch.h"
#include "device/integration/WebServer.h"
#include "device/library/WavFolder.h"
#include "device/players/following/FakePlayer.h"
#include "device/recognizer/FingerprintWorker.h"
#include "settings/LibraryAccessRequest.h"
#include "support/Covers.h"
#include "support/Files.h"
#include "support/Test.h"
#include "ui/Engine.h"
#include "ui/Theme.h"

#include <QElapsedTimer>
#include <QFile>
#include <QScreen>
#include <QSignalSpy>
#include <QTcpSocket>
#include <QTimer>

#include <optional>

namespace {

constexpr int rounds = 16;
constexpr int songCount = 24; // each in a folder of its own, with its own cover

QString link(const QString &identifier)
{
    return u"https://catalog.example/album/1?i="_s + identifier;
}

const QString answeredLate = u"1"_s;
const QString neverAnswered = u"2"_s;
const QString inTheLibrary = u"1440857781"_s;

/// A catalog that answers late or not at all.
struct Catalog
{
    int waiting = 0; ///< requests without an answer
    WebServer server{[this](QTcpSocket &socket, const QByteArray &path) {
        ++waiting;
        if (path.contains("id=1&"))
            QTimer::singleShot(4ms, &socket, [&socket] {
                WebServer::reply(
                    socket, "200 OK\r\nConnection: close",
                    R"({"results":[{"kind":"song","trackName":"Title","artistName":"Artist"}]})");
                socket.disconnectFromHost();
            });
        QObject::connect(&socket, &QTcpSocket::disconnected, &server, [this] { --waiting; });
    }};
};

struct Program : WholeProgram
{
    Program(const WavFolder &music, const QTemporaryDir &folder, const Catalog &web)
        : WholeProgram(music.root(), folder, {web.server.address({}).toString(), u"catalog.example"_s})
    {}

    /// Everything that a window waits for, all at once: searches, the catalog, lists and covers.
    void keepBusy(WindowScene &window, int round)
    {
        DetailViewController &detail = window.detail();
        for (const QString &identifier : {inTheLibrary, answeredLate, neverAnswered})
            detail.handleDroppedURLs({link(identifier)});
        const auto songs = library.search(u"Song %1"_s.arg(round % songCount), 1);
        detail.displayMediaItem(library.song(songs->at(0))->item, {});
        detail.selectSongFromLibrary();
        detail.selectNowPlayingSong(true);
        library.scan().start();
    }
    /// Whether the library may be used is asked again; the user thinks.
    void forgetAccess(std::vector<LibraryAccess::Answer> &answers)
    {
        library.access().setStatus(LibraryAuthorizationStatus::NotDetermined);
        library.access().setQuestion(
            [&answers](LibraryAccess::Answer answer) { answers.push_back(std::move(answer)); });
    }
};

void letRunFor(std::chrono::microseconds time)
{
    QElapsedTimer timer;
    timer.start();
    do
        QCoreApplication::processEvents();
    while (std::chrono::nanoseconds(timer.nsecsElapsed()) < time);
}

/// From none at all to long enough for everything, with most of them early.
std::chrono::microseconds moment(int round)
{
    return round * round * 60us;
}

} // namespace

/// Windows and the program go while all that they have asked for is still under way on other threads, in the
/// network and on the bus. The sanitizers find what is touched too late.
class tst_ClosingWindows : public QObject
{
    Q_OBJECT

    WavFolder m_music;
    QTemporaryDir m_folder;
    Catalog m_catalog;
    FakePlayer m_player{u"player"_s};

private Q_SLOTS:
    void cleanup() { m_player.vanish(); }
    void initTestCase()
    {
        m_player.set(playing(u"Song 1"_s, u"Ann"_s));
        for (int i = 0; i < songCount; ++i) {
            const QByteArray album = QByteArray::number(i);
            m_music.write(album + "/song.wav", i, "Song " + album);
            m_music.writeBytes(album + "/cover.jpg",
                               coverBytes({900, 900}, QColor::fromHsv(i * 10, 200, 200), "JPG"));
        }
        m_music.writeBytes("known.m4a", contentsOf(QStringLiteral(TRACKWISE_TEST_DATA "/atoms.m4a")));
        Program program(m_music, m_folder, m_catalog);
        QSignalSpy scanned(&program.library.scan(), &ScanController::finished);
        program.library.scan().start();
        QVERIFY(scanned.wait());
        QCOMPARE(program.library.status()->available, songCount + 1);
    }

    void closesAWindowAtAnyMoment()
    {
        QVERIFY(m_player.appear());
        Program program(m_music, m_folder, m_catalog);
        WindowScene &stays = program.openWindow();
        QVERIFY(stays.window().property("container").value<ContainerViewController *>()->sidebar());
        QTRY_VERIFY(stays.detail().isTrackingNowPlaying());
        for (int round = 0; round < rounds; ++round) {
            WindowScene &closes = program.openWindow();
            program.keepBusy(closes, round);
            m_player.change(playing(u"Song %1"_s.arg(round), u"Ann"_s));
            letRunFor(moment(round));
            if (round == rounds - 1)
                QTRY_VERIFY(m_catalog.waiting > 0);
            closes.window().close();
        }
        QTRY_COMPARE(program.app.scenes().size(), 1u);
        QTRY_COMPARE(m_catalog.waiting, 0); // nobody waits any more
        QTRY_COMPARE(stays.detail().visibleMediaItem().value_or(MediaItem()).title, u"Song 15"_s);
        stays.detail().handleDroppedURLs({link(inTheLibrary)});
        QTRY_COMPARE(stays.detail().visibleMediaItem()->playbackStoreID, inTheLibrary);
    }

    void quitsAtAnyMoment()
    {
        QVERIFY(m_player.appear());
        for (int round = 0; round < rounds; round += 3) {
            Program program(m_music, m_folder, m_catalog);
            program.keepBusy(program.openWindow(), round);
            letRunFor(moment(round));
        }
        QTRY_COMPARE(m_catalog.waiting, 0);
    }

    void remembersItsFirstLaunchAndOpensOneWindow()
    {
        Program program(m_music, m_folder, m_catalog);
        const QDateTime before = QDateTime::currentDateTimeUtc();
        program.app.didFinishLaunching();
        const auto first = program.preferences.firstLaunchDate();
        QVERIFY(first && *first >= before.addSecs(-1) && *first <= QDateTime::currentDateTimeUtc());
        program.preferences.setFirstLaunchDate(before.addDays(-3));
        program.app.didFinishLaunching();
        QCOMPARE(program.preferences.firstLaunchDate(), std::optional(before.addDays(-3)));

        program.app.activateAction(u"SelectSongNowPlayingAction"_s);
        program.app.activate();
        QCOMPARE(program.app.scenes().size(), 1u);
        WindowScene &scene = *program.app.scenes().front();
        const Presentation &presentation = scene.presentation();
        QVERIFY(!presentation.alert()); // the window is being set up
        QTRY_VERIFY(presentation.alert());
        QCOMPARE(presentation.alert()->title(), u"No Song Playing"_s);
        const std::tuple<QString, bool> rows[]{{u"SelectSongAction"_s, true},
                                               {u"selectSongAction"_s, false},
                                               {u"SelectSongMusicRecognitionAction"_s, false},
                                               {u"SelectSongNowPlayingAction"_s, false}};
        for (const auto &[action, answer] : rows)
            QCOMPARE(scene.perform(action), answer);
        QTRY_COMPARE(presentation.alert() ? presentation.alert()->title() : QString(), u"No Song Playing"_s);
    }

    void windowsAreAsTheLastOneWas()
    {
        Program program(m_music, m_folder, m_catalog);
        QQuickWindow &first = program.openWindow().window();
        first.setGeometry(40, 50, 640, 500);
        first.close();
        QTRY_VERIFY(program.app.scenes().empty());
        QQuickWindow &second = program.openWindow().window();
        QCOMPARE(second.geometry(), QRect(40, 50, 640, 500));
        QQuickWindow &third = program.openWindow().window(); // not over it
        QCOMPARE(third.size(), QSize(640, 500));
        QVERIFY(third.position() != second.position());
        second.close();
        third.setGeometry(-900, -900, 5000, 400); // no screen shows it
        third.close();
        QTRY_VERIFY(program.app.scenes().empty());
        QQuickWindow &fourth = program.openWindow().window();
        QCOMPARE(fourth.width(), fourth.screen()->availableSize().width());
        QVERIFY(fourth.x() >= 0);
        fourth.showMaximized();
        fourth.close();
        QTRY_VERIFY(program.app.scenes().empty());
        QVERIFY(program.openWindow().window().windowStates().testFlag(Qt::WindowMaximized));
    }

    void quitsByItsKey()
    {
        Program program(m_music, m_folder, m_catalog);
        QQuickWindow &window = program.openWindow().window();
        QVERIFY(QTest::qWaitForWindowActive(&window));
        QTimer::singleShot(0, &window,
                           [&window] { QTest::keyPress(&window, Qt::Key_Q, Qt::ControlModifier); });
        QTimer::singleShot(5000, &window, [] { QCoreApplication::exit(1); });
        QCOMPARE(QCoreApplication::exec(), 0);
    }

    void eachWindowHasItsOwnPickerAndTheOneInUseIsMeant()
    {
        Program program(m_music, m_folder, m_catalog);
        std::vector<LibraryAccess::Answer> answers;
        program.forgetAccess(answers);
        WindowScene &first = program.openWindow();
        first.menus().applicationMenu()->trigger(0);
        WindowScene &second = *program.app.scenes().back();
        QVERIFY(&second != &first);
        for (const ThemeChoice choice : {ThemeChoice::Dark, ThemeChoice::Light}) {
            const bool isDark = choice == ThemeChoice::Dark;
            const TextSize size = isDark ? TextSize::Accessibility1 : TextSize::ExtraExtraExtraLarge;
            program.device->settings().setAppearance({.theme = choice, .textSize = size});
            const Theme &theme = themeOf(*qmlEngine(&first.window()));
            QTRY_COMPARE(theme.isDark(), isDark);
            QCOMPARE(theme.settings().textScale, isDark ? 1.64 : 1.35);
            QCOMPARE(theme.isAccessibilitySize(), isDark);
        }
        for (WindowScene *asking : {&first, &second, &second}) // impatiently
            asking->detail().selectSongFromLibrary();
        QCOMPARE(answers.size(), 1u);
        answers.front()(true);
        for (WindowScene *scene : {&first, &second}) {
            QTRY_VERIFY(scene->presentation().isSheetVisible());
            scene->presentation().cancelSheet();
            QTRY_VERIFY(!scene->presentation().isPresenting());
        }

        first.window().requestActivate();
        QVERIFY(QTest::qWaitForWindowActive(&first.window()));
        program.app.activateAction(u"SelectSongAction"_s);
        QTRY_VERIFY(first.presentation().isSheetVisible());
        program.app.open({u"https://elsewhere.example"_s});
        QTRY_VERIFY(first.presentation().alert());
        QVERIFY(!second.presentation().isPresenting());
        QCOMPARE(program.app.scenes().back().get(), &first);
    }

    void asksForTheLibraryWhereTheUserIs()
    {
        Program program(m_music, m_folder, m_catalog);
        LibraryAccess &access = program.library.access();
        access.setStatus(LibraryAuthorizationStatus::NotDetermined);
        Launch launch(
            program.app, *program.device,
            {.show = u"Song 3"_s, .size = QSize(500, 400), .addresses = {u"https://elsewhere.example"_s}});
        std::optional<LibraryAuthorizationStatus> answer;
        access.request([&answer](LibraryAuthorizationStatus status) { answer = status; });
        QTRY_COMPARE(answer, LibraryAuthorizationStatus::NotDetermined); // there is no window to ask in
        launch.run();
        WindowScene &first = *program.app.scenes().front();
        QCOMPARE(first.window().size(), QSize(500, 400));
        const auto title = [](WindowScene &scene) {
            return scene.presentation().isSheetVisible() ? scene.presentation().sheet()->title() : QString();
        };
        QTRY_COMPARE(title(first), u"Music Access"_s); // to show what is playing
        QVERIFY(first.presentation().alert());         // over the address
        first.presentation().chooseAlertAction(0);
        first.perform(u"SelectSongNowPlayingAction"_s); // which needs the answer: the question stays
        WindowScene &second = program.openWindow();
        QVERIFY(QTest::qWaitForWindowActive(&second.window()));
        QSignalSpy scanned(&program.library.scan(), &ScanController::finished);
        const QVariant request = first.presentation().sheet()->properties().value(u"request"_s);
        qobject_cast<LibraryAccessRequest *>(request.value<QObject *>())->allow();
        QTRY_COMPARE(scanned.size(), 1);
        QCOMPARE(second.detail().visibleMediaItem().value_or(MediaItem()).title, u"Song 3"_s);

        second.detail().selectSongFromLibrary();
        QTRY_COMPARE(title(second), u"Select Song"_s);
        access.setStatus(LibraryAuthorizationStatus::NotDetermined);
        program.app.activateAction(u"SelectSongAction"_s);
        QTRY_COMPARE(title(second), u"Music Access"_s);
        QCOMPARE(title(first), QString());
        QCOMPARE(first.presentation().alert()->title(), u"No Song Playing"_s); // to the action
    }

    void asksForTheMicrophoneOnceInTheWindowThatListens()
    {
        Program program(m_music, m_folder, m_catalog);
        program.library.access().setStatus(LibraryAuthorizationStatus::Authorized);
        StoredDeviceSettings &settings = program.device->settings();
        Launch launch(program.app, *program.device, {});
        const auto listen = [&] { program.app.scenes().back()->detail().selectSongMusicRecognition(); };
        const auto answer = [&](int choice, const QString &followedBy) {
            Presentation &presentation = program.app.scenes().back()->presentation();
            QTRY_VERIFY(presentation.alert());
            QCOMPARE(presentation.alert()->title(), u"“Trackwise” would like to access the microphone"_s);
            QCOMPARE(presentation.alert()->actionTitles().join(u','), u"Don't Allow,OK"_s);
            presentation.chooseAlertAction(choice);
            QTRY_COMPARE(presentation.alert() ? presentation.alert()->title() : QString(), followedBy);
        };
        program.openWindow();
        listen();
        QTRY_VERIFY(program.app.scenes().back()->presentation().alert());
        program.app.scenes().back()->window().close(); // goes without an answer
        QTRY_VERIFY(program.app.scenes().empty());
        QCOMPARE(settings.microphoneAccess(), AccessChoice::NotDetermined);

        program.openWindow();
        listen();
        answer(0, u"No Microphone Access"_s);
        QCOMPARE(settings.microphoneAccess(), AccessChoice::Denied);
        settings.setMicrophoneAccess(AccessChoice::NotDetermined);
        program.openWindow();
        listen();
        answer(1, {});
        QCOMPARE(settings.microphoneAccess(), AccessChoice::Allowed);
        RecognitionHUD &hud = *program.app.scenes().back()->detail().recognitionHUD();
        QTRY_VERIFY(hud.config());
        QTRY_VERIFY(!hud.config() || hud.config()->property("bottomText") == u"No sound on this device"_s);
    }

    void offersANewLibraryInPlaceOfADamagedOne()
    {
        const std::tuple<FailureKind, QString, int> rows[]{
            {FailureKind::Malformed, u"New Library,Quit"_s, Launch::newLibraryWanted},
            {FailureKind::Unreadable, u"New Library,Quit"_s, Launch::newLibraryWanted},
            {FailureKind::NoSpace, u"Quit"_s, EXIT_FAILURE},
        };
        for (const auto &[kind, answers, code] : rows) {
            Program program(m_music, m_folder, m_catalog);
            Launch launch(program.app, *program.device, {});
            launch.runWithoutLibrary({kind, u"It is broken."_s});
            Presentation &presentation = program.app.scenes().front()->presentation();
            const Alert &alert = *presentation.alert();
            QCOMPARE(alert.title(), u"Music Library Unreadable"_s);
            QVERIFY(alert.message().startsWith(u"It is broken."_s));
            QCOMPARE(alert.actionTitles().join(u','), answers);
            QCOMPARE(alert.actionTitles().value(alert.preferredAction()), u"Quit"_s);
            QTimer::singleShot(0, &presentation, [&presentation] {
                presentation.chooseAlertAction(0);
                presentation.alertDidHide();
            });
            QTimer::singleShot(5000, &presentation, [] { QCoreApplication::exit(0); });
            QCOMPARE(QCoreApplication::exec(), code);
        }
    }

    void isNotThereForTheUsersAnswer()
    {
        std::vector<LibraryAccess::Answer> answers;
        {
            Program program(m_music, m_folder, m_catalog);
            for (const bool isAllowed : {true, false}) {
                program.forgetAccess(answers);
                program.keepBusy(program.openWindow(), 0);
                QVERIFY(!answers.empty());
                program.app.scenes().back()->window().close();
                QTRY_VERIFY(program.app.scenes().empty());
                answers.back()(isAllowed);
                QCoreApplication::processEvents();
            }
            program.forgetAccess(answers);
            program.keepBusy(program.openWindow(), 0);
        }
        QCOMPARE(answers.size(), 3u);
        answers.back()(true);
        QCoreApplication::processEvents();
        QCOMPARE(m_catalog.waiting, 0); // the drop went no further
    }
};

int main(int argc, char **argv)
{
    if (argc == 3 && std::string_view(argv[1]) == workerArgument)
        return runFingerprintWorker(STDIN_FILENO, STDOUT_FILENO, argv[2]);
    QGuiApplication application(argc, argv);
    tst_ClosingWindows test;
    return QTest::qExec(&test, argc, argv);
}
#include "tst_ClosingWindows.moc"
