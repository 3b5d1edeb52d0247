// SPDX-License-Identifier: GPL-3.0-or-later
#include "device/Device.h"

#include "device/integration/FeedbackHaptics.h"
#include "device/recognizer/CatalogSummary.h"
#include "device/recognizer/LibraryRecognition.h"

#include <QFile>
#include <QStandardPaths>

#include <utility>

namespace trackwise {

namespace {

MprisPublisher::Settings publisherSettings(const Device::Options &options)
{
    return {options.appId, QStringLiteral("Trackwise"),
            QStandardPaths::writableLocation(QStandardPaths::CacheLocation) + QStringLiteral("/mpris"),
            options.raise, options.quit};
}

std::optional<QByteArray> pathOf(const LinuxLibrary &library, PersistentID id)
{
    const auto song = library.song(id);
    return song ? std::optional(song->file.path()) : std::nullopt;
}

const QString pausedKey = QStringLiteral("Recognition/IndexPaused");

Instant now()
{
    return std::chrono::time_point_cast<std::chrono::milliseconds>(std::chrono::system_clock::now());
}

} // namespace

struct Device::Files
{
    std::unique_ptr<QSettings> settings;
    std::unique_ptr<QSettings> access;
    std::unique_ptr<LinuxLibrary> library;
};

Result<std::unique_ptr<Device>> Device::open(const Options &options)
{
    Files files;
    files.settings = std::make_unique<QSettings>(options.settingsFile, QSettings::IniFormat);
    if (options.library)
        files.access = std::make_unique<QSettings>(
            QFile::decodeName(options.library->databasePath + ".access.ini"), QSettings::IniFormat);
    Result<std::unique_ptr<LinuxLibrary>> library =
        options.library ? LinuxLibrary::open(*options.library, *files.access, Sorting::OfUser)
                        : LinuxLibrary::open(LibraryConfiguration::ofUser(*files.settings), *files.settings,
                                             Sorting::OfUser);
    if (!library)
        return library.failure();
    files.library = *std::move(library);
    if (options.library)
        files.library->access().setStatus(LibraryAuthorizationStatus::Authorized);
    return std::unique_ptr<Device>(new Device(options, std::move(files)));
}

Device::Device(const Options &options, Files files)
    : m_files{std::move(files.settings), std::move(files.access)}
    , m_settings(*m_files.settings)
    , m_musicFolders(*m_files.settings)
    , m_appearance(m_settings)
    , m_library(std::move(files.library))
    , m_player([songs = m_library.get()](PersistentID id) { return pathOf(*songs, id); })
    , m_publisher(m_player, publisherSettings(options), QDBusConnection::sessionBus())
    , m_systemPlayer(m_library->matching(), QDBusConnection::sessionBus(), options.appId)
    , m_addresses([this] { return m_systemPlayer.raisePlayer(); })
    , m_http(QStandardPaths::writableLocation(QStandardPaths::CacheLocation) + QStringLiteral("/http"))
    , m_recognition(m_settings, options.appId, *m_library)
{
    connectCounts();
    followIgnoredPlayers();
    m_library->followMusicFolders();
    fingerprintTheLibrary();
    if (!options.library)
        followChoiceOfFolders();
}

Device::~Device() = default;

Device::Recognition::Recognition(DeviceSettings &settings, const QString &appId, const LinuxLibrary &library)
    : audioSession(settings)
    , fingerprinting(library, catalogFolder(library.configuration().databasePath),
                     LibraryFingerprinting::Workers::ofThisProgram(Effort::Background))
    , services{audioSession,
               [&library, &settings] {
                   return std::make_unique<LibraryRecognition>(LibraryRecognition::Sources{
                       .catalog = [path = library.configuration().databasePath] { return readCatalog(path); },
                       .naming = namingBy(library),
                       .input = [&settings] { return settings.soundInput().name.toUtf8(); }});
               },
               [appId] { return std::make_unique<FeedbackHaptics>(appId, QDBusConnection::sessionBus()); },
               [this] { return conditions.isScreenReaderRunning(); }, [this] { fingerprinting.noteMiss(); }}
{}

void Device::connectCounts()
{
    MediaLibrary *songs = &m_library->mediaLibrary();
    const auto countPlay = [songs](PersistentID id) { songs->recordPlay(id, now()); };
    QObject::connect(&m_player, &ApplicationMusicPlayer::songWasPlayed, songs, countPlay);
    QObject::connect(&m_systemPlayer, &MprisSystemMusicPlayer::songWasPlayed, songs, countPlay);
    QObject::connect(&m_player, &ApplicationMusicPlayer::songWasSkipped, songs,
                     [songs](PersistentID id) { songs->recordSkip(id); });
    QObject::connect(songs, &MediaLibrary::libraryDidChange, &m_systemPlayer,
                     &MprisSystemMusicPlayer::refresh);
}

void Device::followIgnoredPlayers()
{
    const auto ignore = [this] { m_systemPlayer.setIgnored(m_settings.ignoredPlayers()); };
    ignore();
    QObject::connect(&m_settings, &DeviceSettings::ignoredPlayersDidChange, &m_systemPlayer, ignore);
}

void Device::followChoiceOfFolders()
{
    QObject::connect(&m_musicFolders, &MusicFolders::foldersDidChange, &m_library->mediaLibrary(), [this] {
        m_library->setMusicFolders(LibraryConfiguration::ofUser(*m_files.settings).musicFolders);
    });
}

void Device::fingerprintTheLibrary()
{
    LibraryFingerprinting *fingerprinting = &m_recognition.fingerprinting;
    const auto settings = m_files.settings.get();
    fingerprinting->setPaused(settings->value(pausedKey).toBool());
    QObject::connect(fingerprinting, &RecognitionIndex::stateDidChange, fingerprinting,
                     [settings, fingerprinting] {
                         if (settings->value(pausedKey).toBool() != fingerprinting->isPaused())
                             settings->setValue(pausedKey, fingerprinting->isPaused());
                     });

    const auto consider = [this, fingerprinting] {
        fingerprinting->setConditions(m_recognition.conditions.isSavingPower(),
                                      m_library->access().status() == LibraryAuthorizationStatus::Authorized);
    };
    consider();
    QObject::connect(&m_recognition.conditions, &DeviceConditions::conditionsDidChange, fingerprinting,
                     consider);
    QObject::connect(&m_library->access(), &LibraryAccess::statusDidChange, fingerprinting, consider);

    // After the first scan, and after each that has found something.
    const ScanController *scan = &m_library->scan();
    const auto isDue = std::make_shared<bool>(true);
    QObject::connect(scan, &ScanController::libraryDidChange, fingerprinting, [isDue] { *isDue = true; });
    QObject::connect(scan, &LibraryScan::progressDidChange, fingerprinting, [scan, isDue, fingerprinting] {
        if (!scan->progress().isRunning && std::exchange(*isDue, false))
            fingerprinting->lookForWork();
    });
}

} // namespace trackwise
