// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "song/MediaItem.h"

#include <optional>

namespace trackwise {

/// Is told of every change of the song that a detail controller shows. Main thread.
class DetailViewControllerDelegate
{
public:
    /// @p mediaItem is the song shown now, or nothing after the selection was cleared; @p isNowPlaying says
    /// whether it follows the system's player.
    virtual void detailViewControllerDidChangeMediaItem(const std::optional<MediaItem> &mediaItem,
                                                        bool isNowPlaying) = 0;

protected:
    ~DetailViewControllerDelegate() = default;
};

} // namespace trackwise
