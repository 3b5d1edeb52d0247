// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/SymbolProvider.h"

#include <QColor>
#include <QFile>
#include <QLoggingCategory>
#include <QPainter>
#include <QSvgRenderer>

namespace trackwise {

namespace {
Q_LOGGING_CATEGORY(log, "trackwise.ui", QtFatalMsg)
constexpr QSize naturalSize(24, 24); // the view box that every symbol is drawn in
} // namespace

QImage SymbolProvider::requestImage(const QString &id, QSize *size, const QSize &requestedSize)
{
    const qsizetype slash = id.lastIndexOf(u'/');
    const QString name = id.left(slash);
    const QColor colour(id.mid(slash + 1));
    QSvgRenderer renderer(QStringLiteral(":/symbols/%1.svg").arg(name));
    if (!renderer.isValid() || !colour.isValid()) {
        qCWarning(log) << "cannot draw symbol" << id;
        return {};
    }
    QImage image(requestedSize.isEmpty() ? naturalSize : requestedSize, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    renderer.render(&painter, image.rect());
    painter.setCompositionMode(QPainter::CompositionMode_SourceIn);
    painter.fillRect(image.rect(), colour);
    if (size)
        *size = image.size();
    return image;
}

} // namespace trackwise
