// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "app/StartOptions.h"
#include "device/library/LibraryConfiguration.h"

#include <QByteArray>
#include <QString>

#include <optional>

namespace trackwise {

/// Where the demo songs are; empty when they are not installed.
[[nodiscard]] QString demoFolder();
/// The library that a start asks for, where it is not the user's own.
[[nodiscard]] std::optional<LibraryConfiguration> otherLibrary(const StartOptions &options);

/// The database of the library that a start asks for.
[[nodiscard]] QByteArray databaseOf(const StartOptions &options);

} // namespace trackwise
