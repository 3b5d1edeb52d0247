// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QStringList>

#include <vector>

class QSettings;

namespace trackwise {

/// Where the music is and where the library is kept. A value; tests and the command line make their own.
struct LibraryConfiguration
{
    std::vector<QByteArray> musicFolders; ///< absolute, as bytes of the file system
    QByteArray databasePath;

    /// The user's: the music folder of the desktop, and the further folders of the device settings. The home
    /// folder itself is never taken for a music folder, although desktops without one name it. Without a home
    /// (HOME is not set) there is no path of a database.
    [[nodiscard]] static LibraryConfiguration ofUser(const QSettings &deviceSettings);

    friend bool operator==(const LibraryConfiguration &, const LibraryConfiguration &) = default;
};

/// A file of the user's settings for this program: "device.ini" of the device, "defaults.ini" of the app.
[[nodiscard]] QString settingsFile(const char *name);
/// A file of what is only convenient to know again, by the XDG base directory specification.
[[nodiscard]] QString stateFile(const char *name);

void setFurtherMusicFolders(QSettings &deviceSettings, const QStringList &folders);

} // namespace trackwise
