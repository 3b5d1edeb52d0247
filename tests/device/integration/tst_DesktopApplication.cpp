// SPDX-License-Identifier: GPL-3.0-or-later
#include "device/integration/DesktopApplication.h"
#include "support/Test.h"

#include <QDBusConnectionInterface>
#include <QDBusMessage>
#include <QProcess>
#include <QTemporaryDir>

#include <optional>

using Standing = DesktopApplication::Standing;

namespace {

const QString name = u"org.example.desk-top"_s;

/// One start of the program: it has a connection of its own.
struct Start
{
    explicit Start(const char *connection)
        : bus(QDBusConnection::connectToBus(QDBusConnection::SessionBus, QLatin1StringView(connection)))
        , application(name, bus)
    {}
    ~Start() { QDBusConnection::disconnectFromBus(bus.name()); }

    std::optional<Standing> run(const DesktopApplication::Purpose &purpose = {})
    {
        standing.reset();
        application.start(purpose, [this](Standing answer) { standing = answer; });
        if (standing)
            qFatal("the answer came before the call had returned");
        (void)QTest::qWaitFor([this] { return standing.has_value(); });
        return standing;
    }
    void listen()
    {
        const auto note = [this](const QString &what) {
            events << what + u' ' + qEnvironmentVariable("XDG_ACTIVATION_TOKEN");
        };
        application.setRequests({.activate = [note] { note(u"activate"_s); },
                                 .open = [note](const QStringList &a) { note(a.join(u' ')); },
                                 .activateAction = note});
    }

    QDBusConnection bus;
    DesktopApplication application;
    std::optional<Standing> standing;
    QStringList events;
};

} // namespace

class tst_DesktopApplication : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { qunsetenv("XDG_ACTIVATION_TOKEN"); }

    void handsOverToTheOneThatRuns()
    {
        Start first("first");
        QCOMPARE(first.run(), Standing::Running);
        Start second("second");
        // Nobody carries anything out yet: it has to wait.
        QCOMPARE(second.run({.addresses = {u"https://a/?i=1"_s, u"file:///b%FF"_s}}), Standing::HandedOver);
        QCOMPARE(first.events, QStringList());
        first.listen();
        QCOMPARE(first.events, QStringList(u"https://a/?i=1 file:///b%FF "_s));

        qputenv("XDG_ACTIVATION_TOKEN", "token");
        QCOMPARE(second.run(), Standing::HandedOver);
        QCOMPARE(first.events.last(), u"activate token"_s);
        QVERIFY(qEnvironmentVariableIsEmpty("XDG_ACTIVATION_TOKEN"));

        QCOMPARE(second.run({.action = u"Act"_s}), Standing::HandedOver);
        QCOMPARE(first.events.last(), u"Act "_s);
    }

    void goesOnWhereNobodyAnswers()
    {
        Start third("third");
        auto holder = QDBusConnection::connectToBus(QDBusConnection::SessionBus, u"holder"_s);
        QVERIFY(holder.registerService(name)); // it has the name, and knows nothing of the interface
        QCOMPARE(third.run(), Standing::Running);
        QDBusConnection::disconnectFromBus(u"holder"_s);

        DesktopApplication alone(name, QDBusConnection(u"no bus"_s));
        std::optional<Standing> standing;
        alone.start({}, [&](Standing answer) { standing = answer; });
        QTRY_COMPARE(standing, Standing::Running);
    }

    void theProgramRunsOnce()
    {
        const QTemporaryDir home;
        for (const char *folder : {"HOME", "XDG_CONFIG_HOME", "XDG_DATA_HOME", "XDG_CACHE_HOME"})
            qputenv(folder, home.path().toUtf8());
        QProcess first;
        QProcess second;
        for (QProcess *program : {&first, &second})
            program->setProgram(QStringLiteral(TRACKWISE_PROGRAM));
        first.start();
        auto *bus = QDBusConnection::sessionBus().interface();
        QTRY_VERIFY(bus->isServiceRegistered(QStringLiteral(TRACKWISE_APP_ID)));
        second.setArguments({u"https://example.org/?i=1"_s});
        second.start();
        QVERIFY(second.waitForFinished());
        QCOMPARE(second.exitCode(), 0);
        QCOMPARE(first.state(), QProcess::Running);
        // Another library is another matter.
        second.setArguments({u"--library"_s, home.filePath(u"other.db"_s)});
        second.start();
        QVERIFY(!second.waitForFinished(500));
        for (QProcess *program : {&first, &second}) {
            program->terminate();
            QVERIFY(program->waitForFinished());
        }
    }
};

QTEST_GUILESS_MAIN(tst_DesktopApplication)
#include "tst_DesktopApplication.moc"
