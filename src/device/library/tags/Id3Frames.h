// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "device/library/tags/MusicFile.h"

#include <taglib/tbytevector.h>

#include <optional>

namespace trackwise {

/// How an ID3v2 tag begins (ID3v2.4 structure, section 3.1).
struct Id3Header
{
    int version = 0; ///< 2 to 4 are known
    int flags = 0;
    qint64 framesBegin = 0;
    qint64 framesEnd = 0; ///< padding included
    qint64 end = 0;       ///< behind the footer, if it has one
};

/// Nothing when no ID3v2 tag begins at @p at. It may go past the end of the file.
[[nodiscard]] std::optional<Id3Header> id3HeaderAt(MusicFile &file, qint64 at);

/// The frames of an ID3v2 tag that matter here.
struct Id3Frames
{
    TagLib::ByteVector tag;     ///< a tag of them, without the picture, in a form that TagLib understands
    TagLib::ByteVector picture; ///< front cover, else the first picture; empty when there is none
};

/// Reads the tag that begins at @p at and belongs to what ends at @p end, with the oddities of those who
/// wrote it set right: TagLib drops whatever stands behind an odd frame, and holds all of a tag in memory.
[[nodiscard]] Id3Frames id3Frames(MusicFile &file, qint64 at, qint64 end);

/// Where id3Frames keeps the genres: in a frame that TagLib does not take apart.
inline constexpr const char *id3GenreFrame = "TGEN";

} // namespace trackwise
