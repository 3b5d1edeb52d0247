// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>

namespace trackwise {

/// @p path from the current folder on, without "." and "..".
[[nodiscard]] QByteArray absolutePath(const QByteArray &path);

/// The same place without symbolic links; empty when there is nothing. Blocks on the disk.
[[nodiscard]] QByteArray resolvedPath(const QByteArray &path);

} // namespace trackwise
