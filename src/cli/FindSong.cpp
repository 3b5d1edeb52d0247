// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/FindSong.h"

#include "cli/Call.h"

#include "platform/linux/library/tags/FolderListing.h"
#include "platform/linux/library/tags/TagReader.h"

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
        return Failure{FailureKind::NotFound, QFile::decodeName(path)};
    song->item.persistentID = {};
    song->item.dateAddedForReal = std::nullopt;
    return FoundSong{std::move(*song)};
}

} // namespace

Result<FoundSong> findSong(const LinuxLibrary &library, const QByteArray &words)
{
    std::error_code error;
    if (std::filesystem::exists(words.toStdString(), error)) {
        const QByteArray path = absolutePath(words);
        const auto resolved = std::filesystem::canonical(path.toStdString(), error);
        for (const QByteArray &name : {path, QByteArray::fromStdString(resolved.string())})
            if (auto song = library.songForPath(name); song && song->availability == Availability::Available)
                return FoundSong{std::move(*song)};
        return songOfFile(path);
    }
    if (auto song = library.songForPath(absolutePath(words)))
        return FoundSong{std::move(*song)}; // its file is gone, what is known about it is not

    const QString typed = QFile::decodeName(words);
    if (const auto id = PersistentID::fromString(typed))
        if (auto song = library.song(*id))
            return FoundSong{std::move(*song)};
    const std::vector<PersistentID> matches = library.search(typed, searchLimit);
    for (const PersistentID id : matches)
        if (auto song = library.song(id))
            return FoundSong{std::move(*song), static_cast<int>(matches.size()) - 1};
    return Failure{FailureKind::NotFound, QStringLiteral("no file and no song of the library: ") + typed};
}

} // namespace trackwise::cli
