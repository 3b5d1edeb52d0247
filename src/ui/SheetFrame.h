// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QRectF>
#include <QSizeF>

#include <optional>

namespace trackwise {

/// Where a sheet stands in a window with @p room, in points: as wide as a phone and reaching the lower edge,
/// or of a width of its own and centred where there is room beside it. One that prefers a size has that,
/// centred, or fills a window that is smaller.
[[nodiscard]] QRectF sheetFrame(const QSizeF &room, const std::optional<QSizeF> &preferred);

} // namespace trackwise
