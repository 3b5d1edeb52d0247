// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/composition/LibraryChoice.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QSettings>
#include <QStandardPaths>

#include <filesystem>

namespace trackwise {

QString configFile(const char *name)
{
    return QStandardPaths::writableLocation(QStandardPaths::AppConfigLocation) + u'/' + QLatin1String(name);
}

// Beside the program where it was built; in the data folder of the system where it is installed.
QString demoFolder()
{
    const QDir programs(QCoreApplication::applicationDirPath());
    for (const auto *place : {"../share/demo-library", "../share/trackwise/demo-library"}) {
        const QString folder = QDir::cleanPath(programs.filePath(QLatin1String(place)));
        if (QDir(folder).exists())
            return folder;
    }
    return {};
}

std::optional<LibraryConfiguration> otherLibrary(const StartOptions &options)
{
    const QString cache = QStandardPaths::writableLocation(QStandardPaths::CacheLocation);
    if (options.usesDemoLibrary)
        return LibraryConfiguration{{QFile::encodeName(demoFolder())},
                                    QFile::encodeName(cache + QStringLiteral("/demo/library.db"))};
    if (options.folder.isEmpty() && options.database.isEmpty())
        return std::nullopt;
    LibraryConfiguration configuration =
        LibraryConfiguration::ofUser(QSettings(configFile("device.ini"), QSettings::IniFormat));
    if (!options.folder.isEmpty())
        configuration.musicFolders = {QFile::encodeName(QDir(options.folder).absolutePath())};
    configuration.databasePath =
        QFile::encodeName(options.database.isEmpty() ? cache + QStringLiteral("/folder/library.db")
                                                     : QDir::current().absoluteFilePath(options.database));
    return configuration;
}

QByteArray databaseOf(const StartOptions &options)
{
    const auto other = otherLibrary(options);
    return other ? other->databasePath
                 : LibraryConfiguration::ofUser(QSettings(configFile("device.ini"), QSettings::IniFormat))
                       .databasePath;
}

std::optional<MediaItem> songOfFile(const LinuxLibrary &library, const QByteArray &path)
{
    std::error_code error; // a file that has gone has no other name
    const auto resolved = std::filesystem::canonical(path.toStdString(), error);
    for (const QByteArray &name : {path, QByteArray::fromStdString(resolved.string())})
        if (const auto known = library.songForPath(name))
            return known->item;
    return std::nullopt;
}

std::optional<MediaItem> songNamed(const LinuxLibrary &library, const QString &words)
{
    if (auto known = songOfFile(library, QFile::encodeName(QDir::current().absoluteFilePath(words))))
        return known;
    std::optional<PersistentID> id = PersistentID::fromString(words);
    if (!id) {
        const auto found = library.search(words, 1).valueOr({});
        id = found.empty() ? std::nullopt : std::optional(found.front());
    }
    if (!id)
        return std::nullopt;
    const auto song = library.song(*id);
    return song ? std::optional(song->item) : std::nullopt;
}

} // namespace trackwise
