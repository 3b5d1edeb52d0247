// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "device/library/store/SongRecord.h"

#include <optional>

struct stat;

namespace trackwise {

[[nodiscard]] StatSignature signatureOf(const struct stat &status);

/// That of the file, or of what a link leads to; nothing when it cannot be looked at, as errno says. Blocks
/// on the disk.
[[nodiscard]] std::optional<StatSignature> signatureAt(const QByteArray &path);

/// Tells whether lyrics beside a song are still those that were read, without reading them. Never zero, which
/// says that there are none.
[[nodiscard]] std::int64_t sidecarSignature(QByteArrayView name, const StatSignature &file);

} // namespace trackwise
