// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "device/library/LinuxLibrary.h"
#include "device/library/WavFolder.h"
#include "device/library/store/FileSignature.h"

#include <QFile>
#include <QSettings>
#include <QTemporaryDir>

#include <algorithm>
#include <concepts>

namespace trackwise {

[[nodiscard]] inline SongTags songTags(const QString &title, const QString &artist, const QString &album = {},
                                       double seconds = 1)
{
    return {.title = title,
            .artists = artist.isEmpty() ? QStringList() : QStringList(artist),
            .albumTitle = album.isEmpty() ? std::nullopt : std::optional(album),
            .durationSeconds = seconds};
}

/// An empty library in a folder of its own. Songs are written to it without files.
class LibraryFixture
{
public:
    explicit LibraryFixture(std::vector<QByteArray> musicFolders = {"/music"})
    {
        LibraryConfiguration configuration;
        configuration.databasePath = databasePath();
        configuration.musicFolders = std::move(musicFolders);
        m_library = wanted(LinuxLibrary::open(configuration, m_settings));
    }
    /// Of what is in the folder now.
    template <std::same_as<WavFolder> Folder>
    explicit LibraryFixture(const Folder &music)
        : LibraryFixture(std::vector{music.root()})
    {
        scan();
    }

    [[nodiscard]] QString path(const QString &name) const { return m_folder.filePath(name); }
    [[nodiscard]] QByteArray databasePath() const
    {
        return QFile::encodeName(path(QStringLiteral("library.sqlite")));
    }
    [[nodiscard]] LinuxLibrary &library() { return *m_library; }
    [[nodiscard]] SongStore &store() { return *m_library->store(); }

    /// Writes one song; its file is said to be "/music/<n>.flac", and gets indexed at once.
    PersistentID add(SongTags tags)
    {
        const auto number = static_cast<std::uint64_t>(m_count) + 1;
        if (tags.audioHash == 0)
            tags.audioHash = number;
        const QByteArray name = QByteArray::number(m_count + 1) + ".flac";
        return write({{"/music", name}, {{1, number}, 100, m_count + 1}, std::move(tags)});
    }
    PersistentID add(const QString &title, const QString &artist, const QString &album = {})
    {
        return add(songTags(title, artist, album));
    }
    /// Writes the song of a file that is really there, at a canonical path.
    PersistentID addFile(const QString &path, SongTags tags)
    {
        const FileName file = FileName::ofPath(QFile::encodeName(path));
        const StatSignature signature = *signatureAt(file.path());
        tags.audioHash = signature.identity.inode;
        return write({file, signature, std::move(tags)});
    }
    void index()
    {
        while (*store().indexNext(1000)) {
        }
    }
    /// Scans the music folders to the end.
    ScanSummary scan(ScanScope scope = ScanScope::Changes)
    {
        ScanMonitor monitor;
        return wanted(
            LibraryScanner(store(), m_library->configuration().musicFolders).run({}, monitor, {scope}));
    }
    [[nodiscard]] PersistentID idAt(const QByteArray &path) const
    {
        const auto song = m_library->songForPath(path);
        return song ? song->item.persistentID : PersistentID{};
    }
    [[nodiscard]] Availability availability(PersistentID id) const
    {
        return m_library->song(id)->availability;
    }
    /// Of the songs that can be played now, the paths within the folder.
    [[nodiscard]] QByteArray available(const WavFolder &music) const
    {
        QByteArrayList paths;
        (void)m_library->forEachSong([&](const LibrarySong &song) {
            if (song.availability == Availability::Available)
                paths << song.file.path().mid(music.root().size() + 1);
            return true;
        });
        std::sort(paths.begin(), paths.end());
        return paths.join(' ');
    }

private:
    PersistentID write(const ScannedSong &song)
    {
        (void)wanted(store().write(std::span(&song, 1), {}, Instant(std::chrono::seconds(++m_count))));
        index();
        return idAt(song.file.path());
    }
    template <typename T>
    static T wanted(Result<T> result)
    {
        if (!result)
            qFatal("%s", qPrintable(result.failure().detail));
        return std::move(*result);
    }

    QTemporaryDir m_folder;
    QSettings m_settings{path(QStringLiteral("device.ini")), QSettings::IniFormat};
    std::unique_ptr<LinuxLibrary> m_library;
    int m_count = 0;
};

} // namespace trackwise
