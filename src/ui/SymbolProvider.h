// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QQuickImageProvider>

namespace trackwise {

/// Draws our symbols in any colour and size for `Symbol.qml`. A source is "image://symbol/NAME/#aarrggbb";
/// NAME is a file of resources/symbols without its ending.
class SymbolProvider : public QQuickImageProvider
{
public:
    SymbolProvider()
        : QQuickImageProvider(QQuickImageProvider::Image)
    {}

    QImage requestImage(const QString &id, QSize *size, const QSize &requestedSize) override;
};

} // namespace trackwise
