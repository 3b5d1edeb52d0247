// SPDX-License-Identifier: GPL-3.0-or-later
#include "device/library/tags/TagReader.h"

#include "device/library/tags/AudioHash.h"
#include "device/library/tags/Lyrics.h"
#include "device/library/tags/MusicContent.h"
#include "device/library/tags/MusicFile.h"
#include "device/library/tags/MusicLayout.h"
#include "song/PictureFormat.h"

#include <exception>

namespace trackwise {

namespace {

constexpr qint64 largestImage = qint64{64} * 1024 * 1024;
constexpr qint64 largestSidecar = qint64{1024} * 1024;

QByteArrayView viewOf(const TagLib::ByteVector &bytes)
{
    return {bytes.data(), static_cast<qsizetype>(bytes.size())};
}

std::optional<QByteArray> wholeFile(const QByteArray &path, qint64 largest)
{
    const auto file = MusicFile::open(path);
    if (!file || file->size() > largest)
        return std::nullopt;
    QByteArray bytes(file->size(), Qt::Uninitialized);
    bytes.truncate(file->read(0, bytes.data(), bytes.size()));
    return file->hasFailed() ? std::nullopt : std::optional(bytes);
}

std::optional<QString> sidecarLyrics(const QByteArray &path, const FolderListing &folder)
{
    const auto sidecar = folder.lyricsFile(path);
    const auto bytes = sidecar ? wholeFile(*sidecar, largestSidecar) : std::nullopt;
    if (!bytes)
        return std::nullopt;
    const auto text = withoutTimeMarks(decodedText(*bytes));
    return text.trimmed().isEmpty() ? std::nullopt : std::optional(text);
}

Result<MusicContent> readContent(MusicFile &file, const MusicLayout &layout)
{
    // The parsers are not ours and allocate what a file asks for.
    try {
        auto content = musicContent(file, layout);
        if (content.durationSeconds <= 0)
            return Failure{FailureKind::Malformed, QStringLiteral("no sound found in it")};
        return content;
    } catch (const std::exception &error) {
        return Failure{FailureKind::Malformed, QString::fromLocal8Bit(error.what())};
    }
}

Result<SongTags> tagsOf(MusicFile &file, const QByteArray &path, const FolderListing &folder)
{
    const auto layout = musicLayout(file);
    if (!layout)
        return layout.failure();
    const auto content = readContent(file, *layout);
    if (!content)
        return content.failure();

    auto tags = songTags(content->fields);
    tags.durationSeconds = content->durationSeconds;
    tags.audioHash = audioHash(file, layout->sound, layout->soundSalt);
    if (const auto picture = viewOf(content->picture); pictureFormat(picture))
        tags.artwork = {ArtworkSummary::Place::Embedded, path, pictureKey(picture)};
    if (!tags.lyrics)
        tags.lyrics = sidecarLyrics(path, folder);
    return tags;
}

} // namespace

Result<SongTags> readTags(const QByteArray &path, const FolderListing &folder)
{
    auto file = MusicFile::open(path);
    if (!file)
        return file.failure();
    auto tags = tagsOf(*file, path, folder);
    if (file->hasFailed())
        return Failure{FailureKind::Unreadable, QStringLiteral("the disk fails to read it")};
    return tags;
}

std::optional<EncodedImage> readEmbeddedArtwork(const QByteArray &path)
{
    auto file = MusicFile::open(path);
    if (!file)
        return std::nullopt;
    const auto layout = musicLayout(*file);
    const auto content = layout ? readContent(*file, *layout) : layout.failure();
    if (!content || !pictureFormat(viewOf(content->picture)))
        return std::nullopt;
    return EncodedImage{viewOf(content->picture).toByteArray()};
}

std::optional<EncodedImage> readImageFile(const QByteArray &path)
{
    auto bytes = wholeFile(path, largestImage);
    if (!bytes || !pictureFormat(*bytes))
        return std::nullopt;
    return EncodedImage{std::move(*bytes)};
}

} // namespace trackwise
