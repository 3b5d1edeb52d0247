// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/Result.h"

#include <QSize>
#include <QString>
#include <QStringList>

#include <optional>

namespace trackwise {

/// What the program was asked for when it was started with a window.
struct StartOptions
{
    bool usesDemoLibrary = false;
    QString show;                  ///< a song: its file, its identifier, or words to search for
    QString screenshotFile;        ///< save the window there once the song is drawn, then quit
    QString database;              ///< another library than the user's
    QString folder;                ///< another music folder than the user's
    std::optional<QSize> size;     ///< of the first window, in points
    QStringList addresses;         ///< of song links and song files to show
    QString action;                ///< of the desktop entry, to carry out
    std::optional<QString> answer; ///< to print instead of starting: help, or the version

    /// Nothing but addresses or an action was given: an app that runs already can do that just as well.
    [[nodiscard]] bool canBeHandedOver() const;

    friend bool operator==(const StartOptions &, const StartOptions &) = default;
};

/// @p arguments start with the program's name; the options that every Qt program takes may be among them.
/// Malformed where they make no sense: an unknown option, one without its value, an operand that is neither
/// an address nor a file. The detail says why. A QCoreApplication must exist.
[[nodiscard]] Result<StartOptions> parseStartOptions(const QStringList &arguments);

} // namespace trackwise
