// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "fingerprint/Catalog.h"
#include "platform/Result.h"
#include "song/PersistentID.h"

#include <QByteArray>

#include <optional>

namespace trackwise {

/// What a clip was found to be.
struct ClipMatch
{
    std::optional<PersistentID> librarySong; ///< of the own library, or:
    QString title;                           ///< as an added catalog has it
    QString artist;
    double offsetSeconds = 0; ///< where in the song the clip begins; before it, where it is negative
};
struct ClipAnswer
{
    std::optional<ClipMatch> match;
    double score = 0;     ///< of the likeliest song, where it comes closest to the threshold
    double threshold = 0; ///< that a match has to reach there
};

/// The match with a song of @p catalog.
[[nodiscard]] ClipMatch matchOf(const fingerprint::Catalog &catalog, fingerprint::SongNumber number,
                                double offsetSeconds);

/// Names the song that is heard in a sound file, or, for "-", in what comes from standard input: by its first
/// 15 seconds, or where those are of no known song by what follows, up to two minutes. No more than that is
/// waited for. Failures are those of SoundDecoder::open(). Blocks.
[[nodiscard]] Result<ClipAnswer> recognizeClip(const fingerprint::Catalog &catalog, const QByteArray &path);

} // namespace trackwise
