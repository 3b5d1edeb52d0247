// SPDX-License-Identifier: GPL-3.0-or-later
#include "song/MediaItem.h"

namespace trackwise {

bool isSameSong(const MediaItem &a, const MediaItem &b)
{
    if (a.persistentID.isInLibrary() || b.persistentID.isInLibrary())
        return a.persistentID == b.persistentID;
    return a == b;
}

} // namespace trackwise
