// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "app/StartOptions.h"
#include "device/library/LinuxLibrary.h"

#include <QByteArray>
#include <QString>

#include <optional>

namespace trackwise {

/// A file of the user's settings for this app.
[[nodiscard]] QString configFile(const char *name);
/// Where the demo songs are; empty when they are not installed.
[[nodiscard]] QString demoFolder();
/// The library that a start asks for, where it is not the user's own.
[[nodiscard]] std::optional<LibraryConfiguration> otherLibrary(const StartOptions &options);

/// The database of the library that a start asks for.
[[nodiscard]] QByteArray databaseOf(const StartOptions &options);

/// The song in that file, or in the file that it is another name of.
[[nodiscard]] std::optional<MediaItem> songOfFile(const LinuxLibrary &library, const QByteArray &path);
/// The song that @p words mean: a file's path, an identifier, or words to search for.
[[nodiscard]] std::optional<MediaItem> songNamed(const LinuxLibrary &library, const QString &words);

} // namespace trackwise
