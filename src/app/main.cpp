// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/AppDelegate.h"
#include "app/StartOptions.h"
#include "app/composition/Launch.h"
#include "app/composition/LibraryChoice.h"
#include "app/composition/Support.h"
#include "cli/CommandLine.h"
#include "cli/Console.h"
#include "device/Device.h"
#include "device/audio/LinuxInputMonitor.h"
#include "device/integration/DesktopApplication.h"
#include "device/integration/SystemTimeZone.h"
#include "device/library/store/SetAside.h"
#include "device/recognizer/FingerprintWorker.h"
#include "lookup/CatalogConfiguration.h"
#include "lookup/CatalogLookup.h"
#include "preferences/Preferences.h"
#include "settings/SettingsScreen.h"
#include "ui/Translations.h"

#include <QEventLoop>
#include <QFile>
#include <QFont>
#include <QGuiApplication>
#include <QLoggingCategory>
#include <QStandardPaths>
#include <QTemporaryDir>

#include <algorithm>
#include <cstdlib>
#include <iterator>
#include <string_view>
#include <unistd.h>

using namespace trackwise;

namespace {

// The text font of desktops that name none is whatever comes first on the disk.
void chooseFont()
{
    QFont font = QGuiApplication::font();
    const QStringList unnamed{QStringLiteral("Sans"), QStringLiteral("Sans Serif"),
                              QStringLiteral("sans-serif"), QString()};
    if (!unnamed.contains(font.family()) && !qEnvironmentVariableIsEmpty("XDG_CURRENT_DESKTOP"))
        return;
    font.setFamilies({QStringLiteral("Inter"), QStringLiteral("Noto Sans"), QStringLiteral("sans-serif")});
    QGuiApplication::setFont(font);
}

SettingsServices settingsServices(Device &device)
{
    return {.device = device.settings(),
            .appearance = device.appearance(),
            .folders = device.musicFolders(),
            .library = device.library().mediaLibrary(),
            .scan = device.library().scan(),
            .index = device.fingerprinting(),
            .setMusicAccess =
                [&device](bool isAllowed) {
                    device.library().access().setStatus(isAllowed ? LibraryAuthorizationStatus::Authorized
                                                                  : LibraryAuthorizationStatus::Denied);
                },
            .players =
                [&device] {
                    std::vector<KnownPlayer> players;
                    for (const PlayerDescription &player : device.systemPlayer().players())
                        players.push_back({playerKind(player.player), player.identity});
                    return players;
                },
            .makeInputMonitor = [] { return std::make_unique<LinuxInputMonitor>(); }};
}

// Whether another one of us runs already and has taken over what this start is for.
bool isHandedOver(DesktopApplication &place, const StartOptions &options)
{
    if (!options.canBeHandedOver())
        return false;
    QEventLoop waiting;
    auto standing = DesktopApplication::Standing::Running;
    place.start({options.addresses, options.action}, [&](DesktopApplication::Standing answer) {
        standing = answer;
        waiting.quit();
    });
    waiting.exec();
    return standing == DesktopApplication::Standing::HandedOver;
}

int runWindows(QGuiApplication &application, DesktopApplication &place, const StartOptions &options)
{
    if (options.usesDemoLibrary && demoFolder().isEmpty()) {
        say(QStringLiteral("the demo library is not installed"));
        return EXIT_FAILURE;
    }
    AppDelegate *running = nullptr;
    Device::Options deviceOptions{QStringLiteral(TRACKWISE_APP_ID), settingsFile("device.ini"),
                                  otherLibrary(options),
                                  [&running] {
                                      if (running)
                                          running->activate();
                                  },
                                  [] { QCoreApplication::quit(); }};
    Result<std::unique_ptr<Device>> opened = Device::open(deviceOptions);
    std::optional<QTemporaryDir> standIn; // for a library while the user is told that there is none
    std::optional<Failure> trouble;
    if (!opened) {
        trouble = opened.failure();
        say(QStringLiteral("the library cannot be opened: %1").arg(trouble->detail));
        if (!options.screenshotFile.isEmpty())
            return EXIT_FAILURE; // nobody is looking
        standIn.emplace();
        deviceOptions.library =
            LibraryConfiguration{{}, QFile::encodeName(standIn->filePath(QStringLiteral("library")))};
        opened = Device::open(deviceOptions);
        if (!opened)
            return EXIT_FAILURE;
    }
    Device &device = **opened;

    Preferences preferences(settingsFile("defaults.ini"));
    const CatalogLookup catalog(device.http(), catalogConfiguration(device.settingsFile()));
    AppDelegate app({device.library().mediaLibrary(), device.library().browser(), device.library().scan(),
                     device.fingerprinting(), device.player(), device.systemPlayer(), device.appearance(),
                     device.addresses(), catalog, device.recognition(),
                     QStandardPaths::writableLocation(QStandardPaths::CacheLocation),
                     stateFile("windows.ini"), supportServices(device),
                     [&device](const QByteArray &path) {
                         const auto song = device.library().songForPath(path);
                         return song ? std::optional(song->item) : std::nullopt;
                     }},
                    preferences);
    running = &app;
    app.setSettingsScreen(
        [&device](Presentation &presentation) { presentSettings(settingsServices(device), presentation); });
    app.didFinishLaunching();
    const SystemTimeZone timeZone;
    QObject::connect(&timeZone, &SystemTimeZone::zoneDidChange, &app,
                     [&] { app.setTimeZone(timeZone.zone()); });
    Launch launch(app, device, options);
    if (trouble)
        launch.runWithoutLibrary(*trouble);
    else
        launch.run();
    place.setRequests({.activate = [&app] { app.activate(); },
                       .open = [&app](const QStringList &addresses) { app.open(addresses); },
                       .activateAction = [&app](const QString &name) { app.activateAction(name); }});
    const int result = application.exec();
    place.setRequests({});
    running = nullptr;
    return result;
}

void setLibraryAside(const StartOptions &options)
{
    const auto aside = setDatabaseAside(databaseOf(options));
    if (!aside)
        say(QStringLiteral("the library cannot be set aside: %1").arg(aside.failure().detail));
}

// Qt ends a program that finds no display by a signal; this says why in one line and ends it by a code.
void explainMissingDisplay(QtMsgType type, const QMessageLogContext & /*context*/, const QString &text)
{
    static QString why;
    if (why.isEmpty())
        why = text.simplified();
    if (type != QtFatalMsg)
        return;
    say(QStringLiteral("no window can be opened: ") + why);
    std::_Exit(EXIT_FAILURE); // nothing has been begun
}

} // namespace

int main(int argc, char *argv[])
{
    cli::keepStreamsTaken();
    if (argc == 3 && std::string_view(argv[1]) == workerArgument)
        return runFingerprintWorker(STDIN_FILENO, STDOUT_FILENO, argv[2]);
    // Qt 6.4 takes another multimedia backend by itself, which stops the program where its plug-ins are
    // missing.
    if (qEnvironmentVariableIsEmpty("QT_MEDIA_BACKEND"))
        qputenv("QT_MEDIA_BACKEND", "ffmpeg");
    // Qt's own remarks without a category go to the terminal, and what it finds wrong with covers. What the
    // environment asks for is logged all the same.
    QLoggingCategory::setFilterRules(QStringLiteral("default.debug=false\nqt.gui.imageio*=false"));
    QCoreApplication::setApplicationName(QStringLiteral("trackwise"));
    QCoreApplication::setApplicationVersion(QStringLiteral(TRACKWISE_VERSION));
    if (argc > 1 && cli::isCommand(argv[1])) {
        const QCoreApplication application(argc, argv);
        return static_cast<int>(cli::runCommand({argv + 1, argv + argc}));
    }
    const Result<StartOptions> options = [&] {
        // No display is needed to read the options. Nor is there an application yet: the end of one would
        // take Qt Quick's interfaces for screen readers with it, for good.
        QStringList arguments;
        std::transform(argv, argv + argc, std::back_inserter(arguments),
                       [](const char *argument) { return QFile::decodeName(argument); });
        return parseStartOptions(arguments);
    }();
    if (!options) {
        say(options.failure().detail);
        return static_cast<int>(cli::ExitCode::Usage);
    }
    if (options->answer) {
        cli::print(*options->answer);
        return cli::finishOutput() ? EXIT_SUCCESS : EXIT_FAILURE;
    }
    if (!qgetenv("HOME").startsWith('/')) {
        say(QStringLiteral("HOME is not set: there is no place for your settings and your library"));
        return EXIT_FAILURE;
    }

    QGuiApplication::setDesktopFileName(QStringLiteral(TRACKWISE_APP_ID));
    qInstallMessageHandler(explainMissingDisplay);
    QGuiApplication application(argc, argv);
    qInstallMessageHandler(nullptr);
    QGuiApplication::setApplicationDisplayName(QStringLiteral("Trackwise"));
    DesktopApplication place(QStringLiteral(TRACKWISE_APP_ID), QDBusConnection::sessionBus());
    if (isHandedOver(place, *options))
        return EXIT_SUCCESS;
    chooseFont();
    installTranslations(application);
    int result = runWindows(application, place, *options);
    for (; result == Launch::newLibraryWanted; result = runWindows(application, place, *options))
        setLibraryAside(*options);
    return result;
}
