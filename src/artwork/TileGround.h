// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QColor>
#include <QImage>
#include <QMarginsF>
#include <QQuickItem>

namespace trackwise {

/// How a tile's ground looks. Lengths in points, or in pixels once scaled.
struct TileGroundLook
{
    QColor color;
    qreal radius = 0;
    qreal shadowOpacity = 0;
    qreal shadowRadius = 0; ///< standard deviation of the blur
    qreal shadowOffset = 0; ///< downwards

    friend bool operator==(const TileGroundLook &, const TileGroundLook &) = default;
};

/// A small picture of a tile whose middle row and column may be stretched to any size.
struct TileGroundPatch
{
    QImage image;
    QMarginsF fixed;  ///< what must not be stretched, from the image's edges
    QMarginsF beyond; ///< how far the shadow reaches beyond the tile
};

/// @p look in pixels.
[[nodiscard]] TileGroundPatch drawTileGround(const TileGroundLook &look);

/// A plane with continuous corners and a soft black shadow around it, drawn from one small texture in any
/// renderer. The shadow lies outside the item's bounds.
class TileGround : public QQuickItem
{
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(QColor color MEMBER m_color NOTIFY lookChanged)
    Q_PROPERTY(qreal radius MEMBER m_radius NOTIFY lookChanged)
    Q_PROPERTY(qreal shadowOpacity MEMBER m_shadowOpacity NOTIFY lookChanged)
    Q_PROPERTY(qreal shadowRadius MEMBER m_shadowRadius NOTIFY lookChanged)
    Q_PROPERTY(qreal shadowOffset MEMBER m_shadowOffset NOTIFY lookChanged)

public:
    explicit TileGround(QQuickItem *parent = nullptr);

Q_SIGNALS:
    void lookChanged();

protected:
    QSGNode *updatePaintNode(QSGNode *node, UpdatePaintNodeData *) override;
    void itemChange(ItemChange change, const ItemChangeData &data) override;

private:
    [[nodiscard]] TileGroundLook lookInPixels(qreal pixelRatio) const;

    QColor m_color;
    qreal m_radius = 0;
    qreal m_shadowOpacity = 0;
    qreal m_shadowRadius = 0;
    qreal m_shadowOffset = 0;
    TileGroundLook m_drawnLook;
    TileGroundPatch m_patch;
};

} // namespace trackwise
