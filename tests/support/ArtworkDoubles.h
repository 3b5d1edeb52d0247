// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "artwork/ArtworkFiles.h"
#include "artwork/ArtworkLoader.h"
#include "artwork/ArtworkView.h"
#include "support/AddressOpenerDouble.h"
#include "support/MusicPlayerDouble.h"

#include <QTemporaryDir>

namespace trackwise {

/// What views of artwork are given, without a library behind it.
struct ArtworkDoubles
{
    MusicPlayerDouble player;
    AddressOpenerDouble addresses;
    ArtworkLoader loader{[](PersistentID) { return ArtworkPtr(); }};
    QTemporaryDir folder;
    ArtworkFiles files{folder.path()};
    ArtworkServices artwork{player, addresses, loader, files, [] { return Instant{}; }};
};

} // namespace trackwise
