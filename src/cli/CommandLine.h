// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>

#include <vector>

namespace trackwise::cli {

/// What the shell is told about how a call went.
enum class ExitCode {
    Success = 0,
    Failure = 1, ///< it was understood and could not be done
    Usage = 2,   ///< it was not understood
    NotFound = 3,
};

/// Whether a program called with this first argument is the command line rather than the window.
[[nodiscard]] bool isCommand(const QByteArray &firstArgument);

/// Carries out one call. @p arguments are those after the program's name, as the bytes that the shell gave,
/// since file names need not be UTF-8. A QCoreApplication must exist; its event loop runs while folders are
/// scanned. Main thread.
[[nodiscard]] ExitCode runCommand(const std::vector<QByteArray> &arguments);

/// The commands and their options, for the program's own help.
[[nodiscard]] QByteArray commandsHelp();

} // namespace trackwise::cli
