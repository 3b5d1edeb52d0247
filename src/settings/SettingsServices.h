// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

#include <functional>
#include <memory>
#include <vector>

namespace trackwise {

class Appearance;
class DeviceSettings;
class InputMonitor;
class LibraryScan;
class MediaLibrary;
class MusicFolders;
class RecognitionIndex;

/// Another player as people know it.
struct KnownPlayer
{
    QString name;  ///< as DeviceSettings::ignoredPlayers() names it
    QString title; ///< for people

    friend bool operator==(const KnownPlayer &, const KnownPlayer &) = default;
};

/// What the settings screen shows and changes; one for all windows.
struct SettingsServices
{
    DeviceSettings &device;
    Appearance &appearance;
    MusicFolders &folders;
    MediaLibrary &library;
    LibraryScan &scan;
    RecognitionIndex &index;
    std::function<void(bool isAllowed)> setMusicAccess;
    std::function<std::vector<KnownPlayer>()> players; ///< those that run now
    std::function<std::unique_ptr<InputMonitor>()> makeInputMonitor;
};

} // namespace trackwise
