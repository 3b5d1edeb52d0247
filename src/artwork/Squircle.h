// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QPainterPath>
#include <QRectF>

namespace trackwise {

/// A rectangle with continuous corners: each is a quarter of a superellipse, whose curvature grows from zero
/// at the straight edge, and which passes where a circular corner of @p radius has its middle. The radius is
/// reduced where the rectangle is too small for it.
[[nodiscard]] QPainterPath squirclePath(const QRectF &rect, qreal radius);

/// How far from the corner the edge begins to bend, for each unit of radius.
constexpr qreal squircleReach = 1.528;

} // namespace trackwise
