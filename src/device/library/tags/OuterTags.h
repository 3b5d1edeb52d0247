// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "device/library/tags/MusicFile.h"

#include <optional>
#include <vector>

namespace trackwise {

/// The tags that can stand around any kind of music: ID3v2 before it; ID3v1, APEv2 and Lyrics3 behind it.
struct OuterTags
{
    qint64 soundBegin = 0;
    qint64 soundEnd = 0;
    std::vector<qint64> id3;         ///< where each ID3v2 tag before the sound begins
    std::optional<qint64> apeFooter; ///< where an APEv2 tag's last 32 bytes begin
    std::optional<qint64> id3v1;
};

/// Fails with Malformed when an ID3v2 tag goes past the end of the file.
[[nodiscard]] Result<OuterTags> outerTags(MusicFile &file);

} // namespace trackwise
