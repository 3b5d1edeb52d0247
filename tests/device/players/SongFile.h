// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "device/library/LibraryFixture.h"

#include <QFile>

#include <sys/stat.h>

namespace trackwise {

[[nodiscard]] inline SongTags songTags(const QString &title, const QString &artist, const QString &album,
                                       double seconds)
{
    SongTags tags;
    tags.title = title;
    if (!artist.isEmpty())
        tags.artists = {artist};
    if (!album.isEmpty())
        tags.albumTitle = album;
    tags.durationSeconds = seconds;
    return tags;
}

/// Writes the song of a file that is really there, at the canonical @p path.
inline PersistentID addSongFile(LibraryFixture &library, const QString &path, SongTags tags)
{
    const FileName file = FileName::ofPath(QFile::encodeName(path));
    struct stat status
    {};
    if (::stat(file.path().constData(), &status) != 0)
        qFatal("no such file: %s", file.path().constData());
    tags.audioHash = status.st_ino;
    const ScannedSong song{file, {{status.st_dev, status.st_ino}, status.st_size, 1}, std::move(tags)};
    if (!library.store().write(std::span(&song, 1), {}, Instant{}))
        qFatal("cannot write the song");
    return library.library().songForPath(file.path())->item.persistentID;
}

} // namespace trackwise
