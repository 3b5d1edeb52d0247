// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "device/library/tags/AudioHash.h"
#include "device/library/tags/MusicFile.h"
#include "device/library/tags/OuterTags.h"

#include <vector>

namespace trackwise {

enum class Container : std::uint8_t {
    Mpeg,
    Adts,
    Latm,
    Ac3,
    Flac,
    OggVorbis,
    OggOpus,
    OggSpeex,
    OggFlac,
    Mp4,
    Wav,
    Rf64,
    Wave64,
    Caf,
    Aiff,
    MonkeysAudio,
    WavPack,
    Musepack,
    TrueAudio,
    Asf,
    Matroska,
    Dsf,
    Dsdiff,
};

/// What a file is and where its sound lies, found by its content and checked: whatever a parser would trust
/// (sizes, nesting, counts) has been looked at before one sees the file.
struct MusicLayout
{
    Container container;
    std::vector<AudioExtent> sound;   ///< what is hashed: all of it, or for Ogg the payload of some pages
    std::uint64_t soundSalt = 0;      ///< what else tells this sound from others
    double soundSeconds = 0;          ///< where looking at it told the duration, else 0
    std::vector<qint64> id3Chunks;    ///< where ID3v2 tags in chunks begin
    std::vector<AudioExtent> comment; ///< Ogg: the pieces of the packet of tags
    OuterTags outer;
};

/// Fails with Unsupported when the file is not music, with Malformed when it is but is cut off or lies.
[[nodiscard]] Result<MusicLayout> musicLayout(MusicFile &file);

} // namespace trackwise
