// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "device/library/tags/MusicContent.h"

namespace trackwise {

/// Reads a file through libavformat: for the containers that TagLib does not know, and where it finds no
/// duration. Slower by far. Opens nothing but the given file, reads a limited amount of it and gives up
/// after two seconds.
[[nodiscard]] MusicContent avContent(MusicFile &file, Container container);

} // namespace trackwise
