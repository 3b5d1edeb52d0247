// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/Call.h"

#include "device/library/store/FilePaths.h"

#include <QFile>

namespace trackwise::cli {

namespace {

Failure misused(const QByteArray &argument, const char *why)
{
    return {FailureKind::Malformed, QFile::decodeName(argument) + QLatin1String(why)};
}

// Whether @p argument is the option by its long name, or by its letter.
bool isSpelled(const Option &option, const QByteArray &argument)
{
    const std::string_view text(argument.constData(), static_cast<size_t>(argument.size()));
    return (text.starts_with("--") && text.substr(2) == option.name) ||
           (option.letter != '\0' && text.size() == 2 && text[1] == option.letter);
}

bool takeFlag(Call &call, const QByteArray &argument, std::span<const Option> options)
{
    const std::pair<std::string_view, bool &> flags[] = {
        {"help", call.wantsHelp},     {"json", call.wantsJson}, {"more", call.wantsMore},
        {"lyrics", call.wantsLyrics}, {"all", call.wantsAll},   {"listen", call.wantsListening}};
    for (const Option &option : options) {
        for (const auto &[name, flag] : flags) {
            if (name == option.name && isSpelled(option, argument)) {
                flag = true;
                return true;
            }
        }
    }
    return false;
}

Result<LibraryConfiguration> configurationOf(const Call &call, const QSettings &settings)
{
    LibraryConfiguration configuration = LibraryConfiguration::ofUser(settings);
    if (call.database)
        configuration.databasePath = *call.database;
    if (!call.musicFolders.empty())
        configuration.musicFolders = call.musicFolders;
    if (configuration.databasePath.isEmpty())
        return Failure{
            FailureKind::Unavailable,
            QStringLiteral("your library cannot be found, since HOME is not set; name one with --library")};
    return configuration;
}

Result<std::unique_ptr<LibraryQuestions>> emptyLibrary(const QTemporaryDir &folder)
{
    const QByteArray path = QFile::encodeName(folder.filePath(QStringLiteral("library")));
    if (const auto made = SongStore::open(path); !made)
        return made.failure();
    return LibraryQuestions::open(path);
}

} // namespace

Result<Call> parseCall(const std::vector<QByteArray> &arguments, std::span<const Option> options)
{
    Call call;
    bool optionsEnded = false;
    for (size_t i = 0; i < arguments.size(); ++i) {
        const QByteArray &argument = arguments[i];
        if (optionsEnded || !argument.startsWith('-') || argument == "-") {
            call.operands.push_back(argument);
        } else if (argument == "--") {
            optionsEnded = true;
        } else if (takeFlag(call, argument, options) || takeFlag(call, argument, commonOptions())) {
            continue;
        } else {
            const qsizetype equals = argument.indexOf('=');
            const QByteArray name = equals < 0 ? argument : argument.left(equals);
            if (name != "--library" && name != "--folder")
                return misused(argument, ": no such option");
            if (equals < 0 && i + 1 == arguments.size())
                return misused(argument, " needs a path");
            const QByteArray value = equals < 0 ? arguments[++i] : argument.mid(equals + 1);
            if (value.isEmpty())
                return misused(argument, " needs a path");
            if (name == "--library")
                call.database = absolutePath(value);
            else
                call.musicFolders.push_back(absolutePath(value));
        }
    }
    return call;
}

std::unique_ptr<QSettings> userSettings()
{
    return std::make_unique<QSettings>(settingsFile("device.ini"), QSettings::IniFormat);
}

Result<OpenLibrary> openLibrary(const Call &call)
{
    auto settings = userSettings();
    const auto configuration = configurationOf(call, *settings);
    if (!configuration)
        return configuration.failure();
    auto library = LinuxLibrary::open(*configuration, *settings);
    if (!library)
        return library.failure();
    return OpenLibrary{std::move(settings), std::move(*library)};
}

Result<ReadLibrary> readLibrary(const Call &call, Absent absent)
{
    auto configuration = configurationOf(call, *userSettings());
    if (!configuration)
        return configuration.failure();
    auto library = LibraryQuestions::open(configuration->databasePath);
    const bool countsAsEmpty = absent == Absent::CountsAsEmpty || !call.database;
    std::unique_ptr<QTemporaryDir> scratch;
    if (!library && library.failure().kind == FailureKind::NotFound && countsAsEmpty) {
        scratch = std::make_unique<QTemporaryDir>();
        library = emptyLibrary(*scratch);
    }
    if (!library)
        return library.failure();
    return ReadLibrary{*std::move(configuration), std::move(scratch), *std::move(library)};
}

} // namespace trackwise::cli
