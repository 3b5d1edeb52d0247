// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "device/library/tags/FolderListing.h"
#include "device/library/tags/SongTags.h"
#include "platform/Result.h"
#include "song/ArtworkSource.h"

#include <QByteArray>

#include <optional>

namespace trackwise {

/// Reads all that a music file says about its song. The file's content decides what it is, never its name.
/// @p path is the name as bytes, since names need not be UTF-8; @p folder, the listing of the file's folder,
/// gives the sidecar lyrics. Blocks on the disk: worker threads only, any number at a time.
///
/// Failures: NotFound (gone, or a link that leads nowhere), Unreadable (permission, disk error), Unsupported
/// (not a regular file, or not music), Malformed (music, but cut off or contradicting itself). The detail is
/// a sentence for the list of problems, without the path. Every file ends in one of these or in tags with a
/// duration above zero; nothing is thrown, and no file can make it wait or take memory without bounds.
[[nodiscard]] Result<SongTags> readTags(const QByteArray &path, const FolderListing &folder = {});

/// The picture that is embedded in a music file, front cover before any other, in its original bytes; none of
/// a kind that cannot be shown, which would hide the picture of the folder.
/// Worker threads only.
[[nodiscard]] std::optional<EncodedImage> readEmbeddedArtwork(const QByteArray &path);

/// An image file's bytes, if it is an image and not above 64 MiB. Worker threads only.
[[nodiscard]] std::optional<EncodedImage> readImageFile(const QByteArray &path);

} // namespace trackwise
