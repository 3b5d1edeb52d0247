// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "device/library/tags/SongTags.h"

#include <QByteArray>
#include <QByteArrayView>

#include <optional>
#include <set>
#include <vector>

namespace trackwise {

/// What one folder holds beside its music: sidecar lyrics and an image of the cover. Made once a folder from
/// the names that the walk has read anyway, then shared by the folder's songs. A value; any thread.
class FolderListing
{
public:
    FolderListing() = default;
    FolderListing(QByteArray folder, const std::vector<QByteArray> &fileNames);
    /// Reads the folder itself. Worker threads only.
    [[nodiscard]] static FolderListing ofFolder(const QByteArray &folder);

    /// The sidecar lyrics of a song of this folder: same name with .lrc, else with .txt (either case).
    [[nodiscard]] std::optional<QByteArray> lyricsFile(QByteArrayView songPath) const;

    /// The best image by name (cover, folder, front, album, albumart; jpg, jpeg, png, webp; either case).
    /// It belongs to the songs only if the folder holds one album: the caller knows that.
    [[nodiscard]] std::optional<QByteArray> imageFile() const;
    /// The same as a summary with the key of its content; reads the image. Nothing if it is not an image.
    /// Worker threads only.
    [[nodiscard]] std::optional<ArtworkSummary> artwork() const;

private:
    QByteArray m_folder;
    std::set<QByteArray, std::less<>> m_lyricsFiles;
    std::optional<QByteArray> m_image;
};

} // namespace trackwise
