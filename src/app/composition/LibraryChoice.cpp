// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/composition/LibraryChoice.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QSettings>
#include <QStandardPaths>

namespace trackwise {

// Beside the program where it was built; in the data folder of the system where it is installed.
QString demoFolder()
{
    const QDir programs(QCoreApplication::applicationDirPath());
    const QString installed = QStringLiteral(TRACKWISE_DATA_FROM_PROGRAM "/trackwise/demo-library");
    for (const QString &place : {QStringLiteral("../share/demo-library"), installed}) {
        const QString folder = QDir::cleanPath(programs.filePath(place));
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
        LibraryConfiguration::ofUser(QSettings(settingsFile("device.ini"), QSettings::IniFormat));
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
                 : LibraryConfiguration::ofUser(QSettings(settingsFile("device.ini"), QSettings::IniFormat))
                       .databasePath;
}

} // namespace trackwise
