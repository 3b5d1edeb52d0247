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

/// The song of the library that the user means by @p words: a file of it, a persistent identifier, or words
/// to search for. The detail of a failure is a sentence for the user.
[[nodiscard]] Result<FoundSong> findSong(const LibraryQuestions &library, const QByteArray &words);
/// The same, or what the file of that name says, where the library does not have it. Reads the file: not for
/// the main thread of a window.
[[nodiscard]] Result<FoundSong> findOrReadSong(const LibraryQuestions &library, const QByteArray &words);

} // namespace trackwise
