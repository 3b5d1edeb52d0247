// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "song/ArtworkSource.h"

#include <QString>

#include <optional>

namespace trackwise {

/// The path of a file in @p folder that holds the artwork as it was stored, named after its content, for
/// programs that can only be handed a file. Nothing when the artwork cannot be read or is no picture that
/// desktops know. Keeps the files used last. Reads and writes files: worker threads only.
[[nodiscard]] std::optional<QString> artworkFile(const ArtworkSource &artwork, const QString &folder);

} // namespace trackwise
