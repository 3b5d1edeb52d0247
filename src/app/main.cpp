// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/AppDelegate.h"
#include "app/StartOptions.h"
#include "cli/CommandLine.h"
#include "lookup/CatalogConfiguration.h"
#include "lookup/CatalogLookup.h"
#include "platform/linux/device/Device.h"
#include "platform/linux/integration/DesktopApplication.h"
#include "preferences/Preferences.h"
#include "settings/LibraryAccessRequest.h"
#include "settings/SettingsScreen.h"
#include "ui/Translations.h"

#include <QDir>
#include <QEventLoop>
#include <QFile>
#include <QFont>
#include <QGuiApplication>
#include <QProcess>
#include <QStandardPaths>
#include <QTimer>

#include <cstdio>
#include <filesystem>

using namespace trackwise;

namespace {

QString configFile(const char *name)
{
    return QStandardPaths::writableLocation(QStandardPaths::AppConfigLocation) + u'/' + QLatin1String(name);
}

// Beside the program where it was built; in the data folder of the system where it is installed.
QString demoFolder()
{
    const QDir programs(QCoreApplication::applicationDirPath());
    for (const auto *place : {"../share/demo-library", "../share/trackwise/demo-library"}) {
        const QString folder = QDir::cleanPath(programs.filePath(QLatin1String(place)));
        if (QDir(folder).exists())
            return folder;
    }
    return {};
}

std::optional<LibraryConfiguration> otherLibrary(const StartOptions &options)
{
    const QString cache = QStandardPaths::writableLocation(QStandardPaths::CacheLocation);
    if (options.usesDemoLibrary)
        return LibraryConfiguration{{QFile::encodeName(demoFolder())},
                                    QFile::encodeName(cache + QStringLiteral("/demo/library.db"))};
    if (options.folder.isEmpty() && options.database.isEmpty())
        return std::nullopt;
    LibraryConfiguration configuration =
        LibraryConfiguration::ofUser(QSettings(configFile("device.ini"), QSettings::IniFormat));
    if (!options.folder.isEmpty())
        configuration.musicFolders = {QFile::encodeName(QDir(options.folder).absolutePath())};
    configuration.databasePath =
        QFile::encodeName(options.database.isEmpty() ? cache + QStringLiteral("/folder/library.db")
                                                     : QDir::current().absoluteFilePath(options.database));
    return configuration;
}

std::optional<MediaItem> songOfFile(const LinuxLibrary &library, const QByteArray &path)
{
    std::error_code error; // a file that has gone has no other name
    const auto resolved = std::filesystem::canonical(path.toStdString(), error);
    for (const QByteArray &name : {path, QByteArray::fromStdString(resolved.string())})
        if (const auto known = library.songForPath(name))
            return known->item;
    return std::nullopt;
}

std::optional<MediaItem> songNamed(const LinuxLibrary &library, const QString &words)
{
    if (auto known = songOfFile(library, QFile::encodeName(QDir::current().absoluteFilePath(words))))
        return known;
    std::optional<PersistentID> id = PersistentID::fromString(words);
    if (!id) {
        const std::vector<PersistentID> found = library.search(words, 1);
        id = found.empty() ? std::nullopt : std::optional(found.front());
    }
    const auto song = id ? library.song(*id) : std::nullopt;
    return song ? std::optional(song->item) : std::nullopt;
}

void say(const QString &text)
{
    std::fputs(qPrintable(QStringLiteral("trackwise: ") + text + u'\n'), stderr);
}

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
                }};
}

/// The first window with what the program was started for.
class Launch : public QObject
{
public:
    Launch(AppDelegate &app, Device &device, StartOptions options)
        : m_app(app)
        , m_device(device)
        , m_options(std::move(options))
    {
        LibraryAccess &access = device.library().access();
        access.setQuestion([this](LibraryAccess::Answer answer) { askForAccess(std::move(answer)); });
        connect(&device.library().mediaLibrary(), &MediaLibrary::authorizationStatusDidChange, this,
                [this] { scanIfAllowed(); });
        connect(&device.library().scan(), &ScanController::finished, this, [this] { scanDidFinish(); });
    }

    void run()
    {
        m_app.newWindow();
        if (m_options.size)
            m_app.scenes().front()->window().resize(*m_options.size);
        scanIfAllowed();
        if (!m_options.addresses.isEmpty())
            m_app.open(m_options.addresses);
        if (m_options.show.isEmpty() && !m_options.screenshotFile.isEmpty())
            saveScreenshotSoon();
    }

private:
    void scanIfAllowed()
    {
        if (m_device.library().access().status() == LibraryAuthorizationStatus::Authorized)
            m_device.library().scan().start();
    }

    // The question may come while the first window is still being made.
    void askForAccess(LibraryAccess::Answer answer)
    {
        QTimer::singleShot(0, this, [this, answer = std::move(answer)] {
            if (m_app.scenes().empty())
                answer(std::nullopt);
            else
                presentLibraryAccessRequest(m_device.musicFolders(), m_app.scenes().front()->presentation(),
                                            answer);
        });
    }

    void scanDidFinish()
    {
        if (!m_options.show.isEmpty()) {
            showSong();
            return;
        }
        if (!m_options.usesDemoLibrary && m_device.library().browser().songCount() == 0)
            offerDemoLibrary();
    }

    void showSong()
    {
        const std::optional<MediaItem> song = songNamed(m_device.library(), m_options.show);
        if (!song) {
            say(QStringLiteral("no such song: %1").arg(m_options.show));
            if (!m_options.screenshotFile.isEmpty())
                QCoreApplication::exit(EXIT_FAILURE);
            return;
        }
        m_options.show.clear();
        if (m_app.scenes().empty())
            return;
        m_app.scenes().front()->detail().displayMediaItem(*song, false, true);
        if (!m_options.screenshotFile.isEmpty())
            saveScreenshotSoon();
    }

    void saveScreenshotSoon()
    {
        constexpr std::chrono::milliseconds timeToSettle{1500}; // covers are decoded, animations have ended
        QTimer::singleShot(timeToSettle, this, [this] {
            const bool saved = m_app.scenes().front()->window().grabWindow().save(m_options.screenshotFile);
            if (!saved)
                say(QStringLiteral("cannot write %1").arg(m_options.screenshotFile));
            QCoreApplication::exit(saved ? EXIT_SUCCESS : EXIT_FAILURE);
        });
    }

    void offerDemoLibrary()
    {
        if (m_app.scenes().empty() || demoFolder().isEmpty())
            return;
        std::vector<AlertAction> actions{
            {QObject::tr("Show Demo"), AlertAction::Style::Default,
             [] {
                 if (QProcess::startDetached(QCoreApplication::applicationFilePath(),
                                             {QStringLiteral("--demo")}))
                     QCoreApplication::quit();
             }},
            {QObject::tr("Not Now"), AlertAction::Style::Cancel, {}}};
        m_app.scenes().front()->presentation().presentAlert(std::make_unique<Alert>(
            QObject::tr("No Music Found"),
            QObject::tr("There are no songs in your music folder. Would you like to look around "
                        "with a dozen demo songs?"),
            std::move(actions), 0));
    }

    AppDelegate &m_app;
    Device &m_device;
    StartOptions m_options;
};

// Whether another one of us runs already and has taken over what this start is for.
bool isHandedOver(DesktopApplication &place, const StartOptions &options)
{
    if (!options.canBeHandedOver())
        return false;
    QEventLoop waiting;
    auto standing = DesktopApplication::Standing::Running;
    place.start(options.addresses, [&](DesktopApplication::Standing answer) {
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
    Device::Options deviceOptions{QStringLiteral(TRACKWISE_APP_ID), configFile("device.ini"),
                                  otherLibrary(options),
                                  [&running] {
                                      if (running)
                                          running->activate();
                                  },
                                  [] { QCoreApplication::quit(); }};
    const Result<std::unique_ptr<Device>> opened = Device::open(deviceOptions);
    if (!opened) {
        say(QStringLiteral("the library cannot be opened: %1").arg(opened.failure().detail));
        return EXIT_FAILURE;
    }
    Device &device = **opened;

    Preferences preferences(configFile("defaults.ini"));
    const CatalogLookup catalog(device.http(), catalogConfiguration(device.settingsFile()));
    AppDelegate app({device.library().mediaLibrary(), device.library().browser(), device.library().scan(),
                     device.player(), device.systemPlayer(), device.appearance(), device.addresses(), catalog,
                     QStandardPaths::writableLocation(QStandardPaths::CacheLocation),
                     QUrl(QStringLiteral("appstream://" TRACKWISE_APP_ID)),
                     [&device](const QByteArray &path) { return songOfFile(device.library(), path); }},
                    preferences);
    running = &app;
    app.setSettingsScreen(
        [&device](Presentation &presentation) { presentSettings(settingsServices(device), presentation); });
    app.didFinishLaunching();
    Launch launch(app, device, options);
    launch.run();
    place.setRequests({.activate = [&app] { app.activate(); },
                       .open = [&app](const QStringList &addresses) { app.open(addresses); },
                       .activateAction = [&app](const QString &name) { app.activateAction(name); }});
    const int result = application.exec();
    place.setRequests({});
    running = nullptr;
    return result;
}

} // namespace

int main(int argc, char *argv[])
{
    // Qt 6.4 takes another multimedia backend by itself, which stops the program where its plug-ins are
    // missing.
    if (qEnvironmentVariableIsEmpty("QT_MEDIA_BACKEND"))
        qputenv("QT_MEDIA_BACKEND", "ffmpeg");
    QCoreApplication::setApplicationName(QStringLiteral("trackwise"));
    QCoreApplication::setApplicationVersion(QStringLiteral(TRACKWISE_VERSION));
    if (argc > 1 && cli::isCommand(argv[1])) {
        const QCoreApplication application(argc, argv);
        return static_cast<int>(cli::runCommand({argv + 1, argv + argc}));
    }
    QGuiApplication::setDesktopFileName(QStringLiteral(TRACKWISE_APP_ID));
    QGuiApplication application(argc, argv);
    QGuiApplication::setApplicationDisplayName(QStringLiteral("Trackwise"));

    const Result<StartOptions> options = parseStartOptions(QCoreApplication::arguments());
    if (!options) {
        say(options.failure().detail);
        return 2;
    }
    if (options->answer) {
        std::fputs(qPrintable(*options->answer), stdout);
        return EXIT_SUCCESS;
    }
    DesktopApplication place(QStringLiteral(TRACKWISE_APP_ID), QDBusConnection::sessionBus());
    if (isHandedOver(place, *options))
        return EXIT_SUCCESS;
    chooseFont();
    installTranslations(application);
    return runWindows(application, place, *options);
}
