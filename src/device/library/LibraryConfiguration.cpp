// SPDX-License-Identifier: GPL-3.0-or-later
#include "device/library/LibraryConfiguration.h"

#include <QDir>
#include <QFile>
#include <QSettings>
#include <QStandardPaths>

#include <algorithm>

namespace trackwise {

namespace {
constexpr QLatin1StringView foldersKey("Library/FurtherFolders");

bool isHome(const QString &folder)
{
    return QDir(folder).canonicalPath() == QDir::home().canonicalPath();
}

bool isKnown(const char *place)
{
    return qgetenv(place).startsWith('/');
}

void add(std::vector<QByteArray> &folders, const QString &folder)
{
    if (!QDir::isAbsolutePath(folder) || isHome(folder))
        return;
    const QByteArray path = QFile::encodeName(QDir::cleanPath(folder));
    if (std::find(folders.begin(), folders.end(), path) == folders.end())
        folders.push_back(path);
}
} // namespace

LibraryConfiguration LibraryConfiguration::ofUser(const QSettings &deviceSettings)
{
    LibraryConfiguration configuration;
    if (isKnown("HOME"))
        add(configuration.musicFolders, QStandardPaths::writableLocation(QStandardPaths::MusicLocation));
    for (const QString &folder : deviceSettings.value(foldersKey).toStringList())
        add(configuration.musicFolders, folder);
    if (isKnown("HOME") || isKnown("XDG_DATA_HOME"))
        configuration.databasePath =
            QFile::encodeName(QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation) +
                              QStringLiteral("/trackwise/library.sqlite"));
    return configuration;
}

QString settingsFile(const char *name)
{
    return QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) +
           QStringLiteral("/trackwise/") + QLatin1StringView(name);
}

QString stateFile(const char *name)
{
    const QString folder =
        qEnvironmentVariable("XDG_STATE_HOME"); // Qt 6.4 does not know it; relative ones do not count
    return (folder.startsWith(u'/') ? folder : QDir::homePath() + QStringLiteral("/.local/state")) +
           QStringLiteral("/trackwise/") + QLatin1StringView(name);
}

void setFurtherMusicFolders(QSettings &deviceSettings, const QStringList &folders)
{
    deviceSettings.setValue(foldersKey, folders);
}

} // namespace trackwise
