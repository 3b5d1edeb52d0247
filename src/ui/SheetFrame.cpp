// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/SheetFrame.h"

#include "ui/Theme.h"

#include <algorithm>

namespace trackwise {

namespace {

constexpr qreal topGap = 12;
constexpr qreal roomyMargin = 40; // above and below, in windows that are not low
constexpr qreal low = 560;
constexpr qreal tallest = 820;

QRectF centred(const QSizeF &size, const QSizeF &room)
{
    return {QPointF((room.width() - size.width()) / 2, (room.height() - size.height()) / 2), size};
}

} // namespace

QRectF sheetFrame(const QSizeF &room, const std::optional<QSizeF> &preferred)
{
    if (preferred)
        return centred(preferred->boundedTo(room) == *preferred ? *preferred : room, room);
    if (room.width() < Theme::regularWidth())
        return {0, topGap, room.width(), room.height() - topGap};
    const qreal margin = room.height() < low ? topGap : roomyMargin;
    return centred({Theme::sheetWidth(), std::min(tallest, room.height() - 2 * margin)}, room);
}

} // namespace trackwise
