// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QStringList>

namespace trackwise {

/// What an index with @p places places shows: all of @p labels where they fit, else as many as fit, spread
/// evenly from the first to the last, with a dot between every two.
[[nodiscard]] QStringList fittedLabels(const QStringList &labels, int places);

} // namespace trackwise
