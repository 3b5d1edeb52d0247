// SPDX-License-Identifier: GPL-3.0-or-later
#include "artwork/Squircle.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace trackwise {

namespace {

constexpr int pointsInCorner = 24;

// |x/a|^n + |y/a|^n = 1 with a = squircleReach * r meets the diagonal where a circle of radius r does when
// sqrt(2) a (1 - 2^(-1/n)) = (sqrt(2) - 1) r, so n = ln 2 / -ln(1 - (1 - 1/sqrt 2) / squircleReach).
const qreal exponent = std::numbers::ln2 / -std::log(1 - (1 - std::numbers::sqrt2 / 2) / squircleReach);

/// The corner around @p centre, from the end of its first arm to the end of its second.
void addCorner(QPainterPath &path, QPointF centre, QPointF firstArm, QPointF secondArm)
{
    for (int i = 0; i <= pointsInCorner; ++i) {
        const qreal angle = std::numbers::pi / 2 * i / pointsInCorner;
        const qreal first = std::pow(std::max(0.0, std::cos(angle)), 2 / exponent);
        const qreal second = std::pow(std::sin(angle), 2 / exponent);
        const QPointF point = centre + firstArm * first + secondArm * second;
        if (path.elementCount() == 0)
            path.moveTo(point);
        else
            path.lineTo(point);
    }
}

} // namespace

QPainterPath squirclePath(const QRectF &rect, qreal radius)
{
    const qreal reach = std::min({radius * squircleReach, rect.width() / 2, rect.height() / 2});
    const QPointF right(reach, 0);
    const QPointF down(0, reach);
    const QRectF inner = rect.adjusted(reach, reach, -reach, -reach);
    QPainterPath path;
    addCorner(path, inner.topLeft(), -right, -down);
    addCorner(path, QPointF(inner.right(), inner.top()), -down, right);
    addCorner(path, QPointF(inner.right(), inner.bottom()), right, down);
    addCorner(path, QPointF(inner.left(), inner.bottom()), down, -right);
    path.closeSubpath();
    return path;
}

} // namespace trackwise
