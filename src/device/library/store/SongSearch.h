// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "device/library/store/ConnectionPool.h"
#include "song/PersistentID.h"

#include <QString>

#include <vector>

namespace trackwise {

/// The songs that contain every word of what the user has typed so far, the best first, at most @p limit:
/// by turns the artists and the titles that are the text, then titles that begin with it, titles that have
/// the words, artists that do, the rest. Each word may be the beginning of one, in title, artist, album,
/// album artist or composer. The time it takes hardly depends on how many songs fit: it looks at some
/// thousand of them.
[[nodiscard]] std::vector<PersistentID> searchSongs(ReadConnection &connection, const QString &typed,
                                                    int limit);

} // namespace trackwise
