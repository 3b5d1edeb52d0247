// SPDX-License-Identifier: GPL-3.0-or-later
#include "device/library/FindSong.h"

#include "device/library/store/FilePaths.h"
#include "device/library/store/SongColumns.h"
#include "device/library/tags/FolderListing.h"
#include "device/library/tags/TagReader.h"

#include <QFile>

namespace trackwise {

namespace {

constexpr int searchLimit = 100;

Result<FoundSong> readSong(const QByteArray &path)
{
    const FileName file = FileName::ofPath(path);
    const FolderListing folder = FolderListing::ofFolder(file.folder);
    const auto tags = readTags(path, folder);
    if (!tags)
        return Failure{tags.failure().kind,
                       QFile::decodeName(path) + QStringLiteral(": ") + tags.failure().detail};
    return FoundSong{{itemOf(*tags, folder.artwork()), file}};
}

bool isUnreadable(const Result<LibrarySong> &song)
{
    return !song && song.failure().kind != FailureKind::NotFound;
}

Result<FoundSong> asFound(Result<LibrarySong> song, int others)
{
    return song ? Result<FoundSong>(FoundSong{*std::move(song), others}) : song.failure();
}

} // namespace

Result<FoundSong> findSong(const LibraryQuestions &library, const QByteArray &words)
{
    // Its file may be gone, what is known about it is not.
    if (auto song = library.songForPath(absolutePath(words)); song || isUnreadable(song))
        return asFound(std::move(song), 0);

    const QString typed = QFile::decodeName(words);
    if (const auto id = PersistentID::fromString(typed))
        if (auto song = library.song(*id); song || isUnreadable(song))
            return asFound(std::move(song), 0);
    const auto matches = library.search(typed, searchLimit);
    if (!matches)
        return matches.failure();
    if (matches->empty())
        return Failure{FailureKind::NotFound, QStringLiteral("no file and no song of the library: ") + typed};
    return asFound(library.song(matches->front()), static_cast<int>(matches->size()) - 1);
}

Result<FoundSong> findOrReadSong(const LibraryQuestions &library, const QByteArray &words)
{
    const QByteArray path = absolutePath(words);
    if (resolvedPath(path).isEmpty())
        return findSong(library, words);
    auto song = library.songForPath(path);
    if (isUnreadable(song))
        return song.failure();
    return song && song->availability == Availability::Available ? asFound(std::move(song), 0)
                                                                 : readSong(path);
}

} // namespace trackwise
