// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "device/library/tags/SongTags.h"
#include "song/ArtworkSource.h"

namespace trackwise {

/// A song's artwork where it lies on the disk, read when it is asked for.
class FileArtwork final : public ArtworkSource
{
public:
    explicit FileArtwork(ArtworkSummary summary);

    /// Null when @p summary names no picture.
    [[nodiscard]] static ArtworkPtr fromSummary(const ArtworkSummary &summary);

    [[nodiscard]] QByteArray key() const override { return m_summary.key; }
    [[nodiscard]] std::optional<EncodedImage> read() const override;

private:
    ArtworkSummary m_summary;
};

} // namespace trackwise
