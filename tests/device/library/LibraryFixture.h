// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "device/library/LinuxLibrary.h"

#include <QSettings>
#include <QTemporaryDir>

namespace trackwise {

/// An empty library in a folder of its own. Songs are written to it without files.
class LibraryFixture
{
public:
    explicit LibraryFixture(std::vector<QByteArray> musicFolders = {"/music"});

    [[nodiscard]] QString path(const QString &name) const { return m_folder.filePath(name); }
    [[nodiscard]] QByteArray databasePath() const;
    [[nodiscard]] LinuxLibrary &library() { return *m_library; }
    [[nodiscard]] SongStore &store() { return *m_library->store(); }

    /// Writes one song; its file is said to be "/music/<n>.flac", and gets indexed at once.
    PersistentID add(SongTags tags);
    PersistentID add(const QString &title, const QString &artist, const QString &album = {});
    void index();
    /// Scans the music folders to the end.
    ScanSummary scan(ScanScope scope = ScanScope::Changes);
    [[nodiscard]] PersistentID idAt(const QByteArray &path) const;
    [[nodiscard]] Availability availability(PersistentID id) const;

private:
    QTemporaryDir m_folder;
    QSettings m_settings;
    std::unique_ptr<LinuxLibrary> m_library;
    int m_count = 0;
};

} // namespace trackwise
