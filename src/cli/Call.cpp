// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/Call.h"

#include <QFile>
#include <QStandardPaths>

#include <filesystem>

namespace trackwise::cli {

namespace {

Failure misused(const QByteArray &argument, const char *why)
{
    return {FailureKind::Malformed, QFile::decodeName(argument) + QLatin1String(why)};
}

bool takeFlag(Call &call, const QByteArray &argument, const KnownOptions &known)
{
    const struct
    {
        const char *name;
        bool isKnown;
        bool &flag;
    } flags[] = {{"--help", true, call.wantsHelp},
                 {"-h", true, call.wantsHelp},
                 {"--json", known.json, call.wantsJson},
                 {"--more", known.more, call.wantsMore},
                 {"--lyrics", known.lyrics, call.wantsLyrics},
                 {"--all", known.all, call.wantsAll}};
    for (const auto &candidate : flags) {
        if (candidate.isKnown && argument == candidate.name) {
            candidate.flag = true;
            return true;
        }
    }
    return false;
}

} // namespace

QByteArray absolutePath(const QByteArray &path)
{
    std::error_code error;
    std::filesystem::path absolute = std::filesystem::absolute(path.toStdString(), error).lexically_normal();
    if (!absolute.has_filename() && absolute.has_relative_path())
        absolute = absolute.parent_path(); // "folder/"
    return QByteArray::fromStdString(absolute.string());
}

Result<Call> parseCall(const std::vector<QByteArray> &arguments, const KnownOptions &known)
{
    Call call;
    bool optionsEnded = false;
    for (size_t i = 0; i < arguments.size(); ++i) {
        const QByteArray &argument = arguments[i];
        if (optionsEnded || !argument.startsWith('-') || argument == "-") {
            call.operands.push_back(argument);
        } else if (argument == "--") {
            optionsEnded = true;
        } else if (takeFlag(call, argument, known)) {
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

Result<OpenLibrary> openLibrary(const Call &call)
{
    // The same file as the window's.
    auto settings =
        std::make_unique<QSettings>(QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) +
                                        QStringLiteral("/trackwise/device.ini"),
                                    QSettings::IniFormat);
    LibraryConfiguration configuration = LibraryConfiguration::ofUser(*settings);
    if (call.database)
        configuration.databasePath = *call.database;
    if (!call.musicFolders.empty())
        configuration.musicFolders = call.musicFolders;
    auto library = LinuxLibrary::open(configuration, *settings);
    if (!library)
        return library.failure();
    return OpenLibrary{std::move(settings), std::move(*library)};
}

} // namespace trackwise::cli
