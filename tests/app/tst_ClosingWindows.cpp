// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/AppDelegate.h"
#include "device/Device.h"
#include "device/integration/WebServer.h"
#include "device/library/WavFolder.h"
#include "device/players/FakePlayer.h"
#include "preferences/Preferences.h"
#include "support/Covers.h"

#include <QElapsedTimer>
#include <QFile>
#include <QSignalSpy>
#include <QTcpSocket>
#include <QTest>
#include <QTimer>

#include <optional>

using namespace trackwise;
using namespace std::chrono_literals;

namespace {

constexpr int rounds = 16;
constexpr int songCount = 24; // each in a folder of its own, with its own cover

QString link(const QString &identifier)
{
    return QStringLiteral("https://catalog.example/album/1?i=") + identifier;
}

const QString answeredLate = QStringLiteral("1");
const QString neverAnswered = QStringLiteral("2");
const QString inTheLibrary = QStringLiteral("1440857781");

/// Answers of the catalog, late or not at all.
class Catalog
{
public:
    [[nodiscard]] QString address() const { return m_server.address({}).toString(); }
    /// Requests that still wait for an answer.
    [[nodiscard]] int waiting() const { return m_waiting; }

private:
    void answer(QTcpSocket &socket, const QByteArray &path)
    {
        ++m_waiting;
        if (path.contains("id=1&"))
            QTimer::singleShot(4ms, &socket, [&socket] {
                WebServer::reply(
                    socket, "200 OK\r\nConnection: close",
                    R"({"results":[{"kind":"song","trackName":"Title","artistName":"Artist"}]})");
                socket.disconnectFromHost();
            });
        QObject::connect(&socket, &QTcpSocket::disconnected, &m_server, [this] { --m_waiting; });
    }

    int m_waiting = 0;
    WebServer m_server{[this](QTcpSocket &socket, const QByteArray &path) { answer(socket, path); }};
};

/// The program as it is put together when it starts.
class Program
{
public:
    Program(const WavFolder &music, const QTemporaryDir &folder, const Catalog &catalog)
        : m_device(open(music, folder))
        , m_preferences(folder.filePath(QStringLiteral("defaults.ini")))
        , m_catalog(m_device->http(), {catalog.address(), QStringLiteral("catalog.example")})
        , m_app({m_device->library().mediaLibrary(), m_device->library().browser(),
                 m_device->library().scan(), m_device->player(), m_device->systemPlayer(),
                 m_device->appearance(), m_device->addresses(), m_catalog, folder.path(), QUrl()},
                m_preferences)
    {}

    [[nodiscard]] LinuxLibrary &library() { return m_device->library(); }
    [[nodiscard]] AppDelegate &app() { return m_app; }
    [[nodiscard]] Preferences &preferences() { return m_preferences; }
    WindowScene &openWindow()
    {
        m_app.newWindow();
        return *m_app.scenes().back();
    }
    /// Everything that a window waits for, all at once: searches, the catalog, lists and covers.
    void keepBusy(WindowScene &window, int round)
    {
        DetailViewController &detail = window.detail();
        for (const QString &identifier : {inTheLibrary, answeredLate, neverAnswered})
            detail.handleDroppedURLs({link(identifier)});
        const auto songs = library().search(QStringLiteral("Song %1").arg(round % songCount), 1);
        detail.displayMediaItem(library().song(songs->at(0))->item, false, true);
        detail.selectSongFromLibrary();
        detail.selectNowPlayingSong(true);
        library().scan().start();
    }

private:
    static std::unique_ptr<Device> open(const WavFolder &music, const QTemporaryDir &folder)
    {
        const LibraryConfiguration library{{music.root()},
                                           QFile::encodeName(folder.filePath(QStringLiteral("library.db")))};
        auto device = Device::open({QStringLiteral("org.example.tester"),
                                    folder.filePath(QStringLiteral("device.ini")), library, [] {}, [] {}});
        if (!device)
            qFatal("%s", qPrintable(device.failure().detail));
        return *std::move(device);
    }

    std::unique_ptr<Device> m_device;
    Preferences m_preferences;
    CatalogLookup m_catalog;
    AppDelegate m_app;
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

private Q_SLOTS:
    void initTestCase()
    {
        for (int i = 0; i < songCount; ++i) {
            const QByteArray album = QByteArray::number(i);
            m_music.write(album + "/song.wav", i, "Song " + album);
            m_music.writeBytes(album + "/cover.jpg",
                               coverBytes({900, 900}, QColor::fromHsv(i * 10, 200, 200), "JPG"));
        }
        QFile known(QStringLiteral(TRACKWISE_TEST_DATA "/atoms.m4a"));
        QVERIFY(known.open(QIODevice::ReadOnly));
        m_music.writeBytes("known.m4a", known.readAll());
        Program program(m_music, m_folder, m_catalog);
        QSignalSpy scanned(&program.library().scan(), &ScanController::finished);
        program.library().scan().start();
        QVERIFY(scanned.wait());
        QCOMPARE(program.library().status()->available, songCount + 1);
    }

    void closesAWindowAtAnyMoment()
    {
        FakePlayer player(QStringLiteral("player"));
        player.set(playing(QStringLiteral("Song 1"), QStringLiteral("Ann")));
        QVERIFY(player.appear());
        Program program(m_music, m_folder, m_catalog);
        WindowScene &stays = program.openWindow();
        QTRY_VERIFY(stays.detail().isTrackingNowPlaying());
        for (int round = 0; round < rounds; ++round) {
            WindowScene &closes = program.openWindow();
            program.keepBusy(closes, round);
            player.change(playing(QStringLiteral("Song %1").arg(round), QStringLiteral("Ann")));
            letRunFor(moment(round));
            if (round == rounds - 1)
                QTRY_VERIFY(m_catalog.waiting() > 0);
            closes.window().close();
        }
        QTRY_COMPARE(program.app().scenes().size(), 1u);
        QTRY_COMPARE(m_catalog.waiting(), 0); // nobody waits any more
        QTRY_COMPARE(stays.detail().visibleMediaItem().value_or(MediaItem()).title,
                     QStringLiteral("Song 15"));
        stays.detail().handleDroppedURLs({link(inTheLibrary)});
        QTRY_COMPARE(stays.detail().visibleMediaItem()->playbackStoreID, inTheLibrary);
    }

    void quitsAtAnyMoment()
    {
        FakePlayer player(QStringLiteral("player"));
        player.set(playing(QStringLiteral("Song 1"), QStringLiteral("Ann")));
        QVERIFY(player.appear());
        for (int round = 0; round < rounds; round += 3) {
            Program program(m_music, m_folder, m_catalog);
            program.keepBusy(program.openWindow(), round);
            letRunFor(moment(round));
        }
        QTRY_COMPARE(m_catalog.waiting(), 0);
    }

    void remembersItsFirstLaunchAndOpensOneWindow()
    {
        Program program(m_music, m_folder, m_catalog);
        const QDateTime before = QDateTime::currentDateTimeUtc();
        program.app().didFinishLaunching();
        const auto first = program.preferences().firstLaunchDate();
        QVERIFY(first && *first >= before.addSecs(-1) && *first <= QDateTime::currentDateTimeUtc());
        program.preferences().setFirstLaunchDate(before.addDays(-3));
        program.app().didFinishLaunching();
        QCOMPARE(program.preferences().firstLaunchDate(), std::optional(before.addDays(-3)));

        program.app().activateAction(QStringLiteral("SelectSongNowPlayingAction"));
        program.app().activate();
        QCOMPARE(program.app().scenes().size(), 1u);
        const Presentation &presentation = program.app().scenes().front()->presentation();
        QTRY_VERIFY(presentation.alert());
        QCOMPARE(presentation.alert()->title(), QStringLiteral("No Song Playing"));
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
        program.library().access().setStatus(LibraryAuthorizationStatus::NotDetermined);
        program.library().access().setQuestion(
            [&answers](LibraryAccess::Answer answer) { answers.push_back(std::move(answer)); });
        WindowScene &first = program.openWindow();
        WindowScene &second = program.openWindow();
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
        program.app().activateAction(QStringLiteral("SelectSongAction"));
        QTRY_VERIFY(first.presentation().isSheetVisible());
        program.app().open({QStringLiteral("https://elsewhere.example")});
        QTRY_VERIFY(first.presentation().alert());
        QVERIFY(!second.presentation().isPresenting());
        QCOMPARE(program.app().scenes().back().get(), &first);
    }

    void isNotThereForTheUsersAnswer()
    {
        std::vector<LibraryAccess::Answer> answers;
        {
            Program program(m_music, m_folder, m_catalog);
            program.library().access().setStatus(LibraryAuthorizationStatus::NotDetermined);
            program.library().access().setQuestion(
                [&answers](LibraryAccess::Answer answer) { answers.push_back(std::move(answer)); });
            for (const bool isAllowed : {true, false}) {
                program.library().access().setStatus(LibraryAuthorizationStatus::NotDetermined);
                program.keepBusy(program.openWindow(), 0);
                QVERIFY(!answers.empty());
                program.app().scenes().back()->window().close();
                QTRY_VERIFY(program.app().scenes().empty());
                answers.back()(isAllowed);
                QCoreApplication::processEvents();
            }
            program.library().access().setStatus(LibraryAuthorizationStatus::NotDetermined);
            program.keepBusy(program.openWindow(), 0);
        }
        QCOMPARE(answers.size(), 3u);
        answers.back()(true);
        QCoreApplication::processEvents();
        QCOMPARE(m_catalog.waiting(), 0); // the drop went no further
    }
};

QTEST_MAIN(tst_ClosingWindows)
#include "tst_ClosingWindows.moc"
