// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/Result.h"

#include <QByteArray>

namespace trackwise {

/// Gives a damaged database another name beside its own, so that an empty one can be made in its place and
/// nothing is lost: the new name. Nobody may have it open. Failures: NoSpace (the folder cannot be written).
[[nodiscard]] Result<QByteArray> setDatabaseAside(const QByteArray &path);

} // namespace trackwise
