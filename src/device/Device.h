// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "device/audio/LinuxAudioSession.h"
#include "device/integration/DesktopAddressOpener.h"
#include "device/integration/DesktopAppearance.h"
#include "device/integration/DesktopConditions.h"
#include "device/integration/NetworkHttpClient.h"
#include "device/integration/PortalMailComposer.h"
#include "device/integration/StoredDeviceSettings.h"
#include "device/library/LinuxLibrary.h"
#include "device/library/StoredMusicFolders.h"
#include "device/players/following/MprisSystemMusicPlayer.h"
#include "device/players/playing/ApplicationMusicPlayer.h"
#include "device/players/publishing/MprisPublisher.h"
#include "device/recognizer/LibraryFingerprinting.h"
#include "platform/RecognitionServices.h"
#include "platform/Result.h"

#include <QSettings>

#include <functional>
#include <memory>

namespace trackwise {

/// Everything that the app asks of this device, wired together. One for the process; it outlives all windows.
/// Main thread.
class Device
{
public:
    struct Options
    {
        QString appId;
        /// The settings screen's file; the user's answer about the library is kept there too.
        QString settingsFile;
        /// Another library than that of the settings. Whoever names one has allowed its use.
        std::optional<LibraryConfiguration> library;
        std::function<void()> raise; ///< brings a window of ours to the front
        std::function<void()> quit;
    };

    /// Fails when the library cannot be opened.
    [[nodiscard]] static Result<std::unique_ptr<Device>> open(const Options &options);
    ~Device();

    [[nodiscard]] LinuxLibrary &library() { return *m_library; }
    [[nodiscard]] StoredDeviceSettings &settings() { return m_settings; }
    /// The folders of the settings, whichever library is in use.
    [[nodiscard]] MusicFolders &musicFolders() { return m_musicFolders; }
    [[nodiscard]] Appearance &appearance() { return m_appearance; }
    [[nodiscard]] MusicPlayer &player() { return m_player; }
    [[nodiscard]] MprisSystemMusicPlayer &systemPlayer() { return m_systemPlayer; }
    [[nodiscard]] HttpClient &http() { return m_http; }
    [[nodiscard]] LinuxAudioSession &audioSession() { return m_recognition.audioSession; }
    [[nodiscard]] const DeviceConditions &conditions() const { return m_recognition.conditions; }
    [[nodiscard]] const RecognitionServices &recognition() const { return m_recognition.services; }
    [[nodiscard]] LibraryFingerprinting &fingerprinting() { return m_recognition.fingerprinting; }
    [[nodiscard]] QSettings &settingsFile() { return *m_files.settings; }
    [[nodiscard]] AddressOpener &addresses() { return m_addresses; }
    [[nodiscard]] MailComposer &mail() { return m_mail; }

private:
    struct Files;
    Device(const Options &options, Files files);
    void connectCounts();
    void followIgnoredPlayers();
    void followChoiceOfFolders();
    void fingerprintTheLibrary();

    struct
    {
        std::unique_ptr<QSettings> settings;
        std::unique_ptr<QSettings> access; ///< to a library other than that of the settings
    } m_files;
    StoredDeviceSettings m_settings;
    StoredMusicFolders m_musicFolders;
    DesktopAppearance m_appearance;
    std::unique_ptr<LinuxLibrary> m_library;
    ApplicationMusicPlayer m_player;
    MprisPublisher m_publisher;
    MprisSystemMusicPlayer m_systemPlayer;
    DesktopAddressOpener m_addresses;
    PortalMailComposer m_mail;
    NetworkHttpClient m_http;
    struct Recognition
    {
        Recognition(DeviceSettings &settings, const QString &appId, const LinuxLibrary &library);

        LinuxAudioSession audioSession;
        DesktopConditions conditions;
        LibraryFingerprinting fingerprinting;
        RecognitionServices services;
    } m_recognition;
};

} // namespace trackwise
