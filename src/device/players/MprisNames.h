// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QLatin1StringView>

namespace trackwise {

/// What every player goes by on the bus (MPRIS 2.2), ours and the others.
inline constexpr QLatin1StringView mprisPath("/org/mpris/MediaPlayer2");
inline constexpr QLatin1StringView mprisPrefix("org.mpris.MediaPlayer2.");
inline constexpr QLatin1StringView mprisRootInterface("org.mpris.MediaPlayer2");
inline constexpr QLatin1StringView mprisPlayerInterface("org.mpris.MediaPlayer2.Player");

} // namespace trackwise
