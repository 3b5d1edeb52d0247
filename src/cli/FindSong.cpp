// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/FindSong.h"

#include "cli/Call.h"

#include "device/library/tags/FolderListing.h"
#include "device/library/tags/TagReader.h"

#include <QFile>
#include <QTemporaryDir>

#include <filesystem>

namespace trackwise::cli {

namespace {

constexpr int searchLimit = 100;

// The record of a file that the library does not know: it goes through a library of its own, for this one
// song, so that it comes out as the user's library would give it.
Result<FoundSong> songOfFile(const QByteArray &path)
{
    const FileName file = FileName::ofPath(path);
    const FolderListing folder = FolderListing::ofFolder(file.folder);
    auto tags = readTags(path, folder);
    if (!tags)
        return Failure{tags.failure().kind,
                       QFile::decodeName(path) + QStringLiteral(": ") + tags.failure().detail};

    const QTemporaryDir scratch;
    if (!scratch.isValid())
        return Failure{FailureKind::NoSpace, scratch.errorString()};
    QSettings settings(scratch.filePath(QStringLiteral("settings")), QSettings::IniFormat);
    const auto library =
        LinuxLibrary::open({{}, QFile::encodeName(scratch.filePath(QStringLiteral("library")))}, settings);
    if (!library)
        return library.failure();
    SongStore &store = *(*library)->store();
    const ScannedSong scanned{file, {}, std::move(*tags)};
    if (const auto written = store.write({&scanned, 1}, {}, {}); !written)
        return written.failure();
    if (const auto image = folder.artwork()) {
        const FolderImage beside{file.folder, FileName::ofPath(image->path).name, 0, image->key};
        if (const auto written = store.writeFolderImages({&beside, 1}); !written)
            return written.failure();
    }
    auto song = (*library)->songForPath(path);
    if (!song)
        return song.failure();
    song->item.persistentID = {};
    song->item.dateAddedForReal = std::nullopt;
    return FoundSong{*std::move(song)};
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
    const QByteArray path = absolutePath(words);
    std::error_code error;
    if (std::filesystem::exists(words.toStdString(), error)) {
        const auto resolved = std::filesystem::canonical(path.toStdString(), error);
        for (const QByteArray &name : {path, QByteArray::fromStdString(resolved.string())}) {
            auto song = library.songForPath(name);
            if (isUnreadable(song))
                return song.failure();
            if (song && song->availability == Availability::Available)
                return FoundSong{*std::move(song)};
        }
        return songOfFile(path);
    }
    // Its file may be gone, what is known about it is not.
    if (auto song = library.songForPath(path); song || isUnreadable(song))
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

} // namespace trackwise::cli
