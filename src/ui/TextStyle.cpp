// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/TextStyle.h"

#include <QFontMetricsF>
#include <QTextBoundaryFinder>

#include <algorithm>
#include <cmath>

namespace trackwise {

TextStyle TextStyle::weighing(QFont::Weight weight) const
{
    TextStyle style = *this;
    style.font.setWeight(weight);
    return style;
}

TextStyle TextStyle::atMost(int pixelSize) const
{
    TextStyle style = *this;
    if (font.pixelSize() > pixelSize) {
        style.font.setPixelSize(pixelSize);
        style.lineHeight = std::round(lineHeight * pixelSize / font.pixelSize());
    }
    return style;
}

TextStyle TextStyle::keepingWords(const QString &text, qreal width) const
{
    const QFontMetricsF metrics(font);
    QTextBoundaryFinder finder(QTextBoundaryFinder::Line, text);
    qreal widest = 0;
    for (qsizetype begin = 0, end = finder.toNextBoundary(); end >= 0; end = finder.toNextBoundary()) {
        widest = std::max(widest, metrics.horizontalAdvance(text.mid(begin, end - begin).trimmed()));
        begin = end;
    }
    if (width <= 0 || widest <= width)
        return *this;
    return atMost(std::max(int(font.pixelSize() * width / widest), font.pixelSize() / 2));
}

} // namespace trackwise
