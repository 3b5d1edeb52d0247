// SPDX-License-Identifier: GPL-3.0-or-later
#include "device/library/StoredMusicFolders.h"

#include "device/library/LibraryConfiguration.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStandardPaths>

#include <unistd.h>

namespace trackwise {

StoredMusicFolders::StoredMusicFolders(QSettings &deviceSettings, QObject *parent)
    : MusicFolders(parent)
    , m_deviceSettings(deviceSettings)
{}

std::vector<MusicFolder> StoredMusicFolders::folders() const
{
    const QString desktops = QDir::cleanPath(QStandardPaths::writableLocation(QStandardPaths::MusicLocation));
    std::vector<MusicFolder> folders;
    for (const QByteArray &bytes : LibraryConfiguration::ofUser(m_deviceSettings).musicFolders) {
        const QString path = QFile::decodeName(bytes);
        folders.push_back({.path = path,
                           .isDesktops = path == desktops,
                           .isReadable = access(bytes.constData(), R_OK | X_OK) == 0});
    }
    return folders;
}

void StoredMusicFolders::add(const QString &path)
{
    std::vector<MusicFolder> wanted = folders();
    wanted.push_back({.path = QDir::cleanPath(path)});
    store(wanted);
}

void StoredMusicFolders::remove(const QString &path)
{
    std::vector<MusicFolder> wanted = folders();
    std::erase_if(wanted, [&path](const MusicFolder &folder) { return folder.path == path; });
    store(wanted);
}

void StoredMusicFolders::store(const std::vector<MusicFolder> &folders)
{
    const std::vector<MusicFolder> before = this->folders();
    QStringList further;
    for (const MusicFolder &folder : folders) {
        if (!folder.isDesktops)
            further << folder.path;
    }
    setFurtherMusicFolders(m_deviceSettings, further);
    if (this->folders() != before)
        Q_EMIT foldersDidChange();
}

} // namespace trackwise
