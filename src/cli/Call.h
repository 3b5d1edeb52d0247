// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "cli/CommandLine.h"
#include "cli/Syntax.h"
#include "device/library/LinuxLibrary.h"
#include "platform/Result.h"

#include <QSettings>
#include <QTemporaryDir>

#include <memory>
#include <optional>

namespace trackwise::cli {

/// One call of the program, taken apart.
struct Call
{
    std::vector<QByteArray> operands;
    std::optional<QByteArray> database;   ///< --library; absolute
    std::vector<QByteArray> musicFolders; ///< --folder; absolute; empty: the user's
    bool wantsHelp = false;
    bool wantsJson = false;
    bool wantsMore = false;
    bool wantsLyrics = false;
    bool wantsAll = false;
    bool wantsListening = false;
};

/// Takes @p arguments apart; @p options are known besides those of all commands. The detail of a failure is a
/// sentence for the user.
[[nodiscard]] Result<Call> parseCall(const std::vector<QByteArray> &arguments,
                                     std::span<const Option> options);

/// What the settings screen of the app writes.
[[nodiscard]] std::unique_ptr<QSettings> userSettings();

/// The library that a call is about, the user's or what its options say, to be scanned.
struct OpenLibrary
{
    std::unique_ptr<QSettings> settings;
    std::unique_ptr<LinuxLibrary> library;

    LinuxLibrary *operator->() const { return library.get(); }
};
[[nodiscard]] Result<OpenLibrary> openLibrary(const Call &call);

/// The same library, only to be asked: opening it makes no files.
struct ReadLibrary
{
    LibraryConfiguration configuration;
    std::unique_ptr<QTemporaryDir> scratch; ///< of the library that counts as empty
    std::unique_ptr<LibraryQuestions> library;

    LibraryQuestions *operator->() const { return library.get(); }
};
/// What a library that is not there means. The user's own, before its first scan, counts as empty anyway.
enum class Absent { Fails, CountsAsEmpty };
[[nodiscard]] Result<ReadLibrary> readLibrary(const Call &call, Absent absent = Absent::Fails);

} // namespace trackwise::cli
