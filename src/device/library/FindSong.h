// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "device/library/LibraryQuestions.h"
#include "platform/Result.h"

namespace trackwise {

struct FoundSong
{
    LibrarySong song;
    int others = 0; ///< how many more songs the words fit, up to a few
};

/// The song that the user means by @p words: a file (in the library or, if it is not, read now), a persistent
/// identifier, or words to search for. The detail of a failure is a sentence for the user.
[[nodiscard]] Result<FoundSong> findSong(const LibraryQuestions &library, const QByteArray &words);

} // namespace trackwise
