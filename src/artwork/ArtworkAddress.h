// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "song/MediaItem.h"

#include <QByteArray>
#include <QString>

#include <optional>

namespace trackwise {

/// Which artwork a view asks for: whose, and what it showed when the view was made. Written as
/// "image://artwork/<persistent identifier>/<key>", both hexadecimal, it is the source of an image.
struct ArtworkReference
{
    PersistentID song; ///< zero: a song that is not in the library
    QByteArray key;    ///< ArtworkSource::key()

    friend bool operator==(const ArtworkReference &, const ArtworkReference &) = default;
};

/// The name under which an engine knows the image provider.
[[nodiscard]] QString artworkProviderName();

[[nodiscard]] QString artworkAddress(const ArtworkReference &reference);
/// Reads a whole address, or only what follows the provider's name.
[[nodiscard]] std::optional<ArtworkReference> artworkReference(QStringView address);

} // namespace trackwise
