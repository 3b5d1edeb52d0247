// SPDX-License-Identifier: GPL-3.0-or-later
#include "artwork/TileGround.h"

#include "artwork/Squircle.h"

#include <QPainter>
#include <QQuickWindow>
#include <QSGImageNode>
#include <QSGTexture>

#include <algorithm>
#include <array>
#include <cmath>
#include <memory>
#include <numbers>
#include <vector>

namespace trackwise {

namespace {

constexpr qreal visibleDeviations = 3; // beyond three standard deviations the shadow is below 0.2 %

/// Strength of the shadow along one axis: a step blurred by a Gaussian, at each end of the tile.
std::vector<qreal> shadowProfile(int length, qreal start, qreal end, qreal deviation)
{
    const auto blurredStep = [deviation](qreal distance) {
        return 0.5 * (1 + std::erf(distance / (deviation * std::numbers::sqrt2)));
    };
    std::vector<qreal> profile(static_cast<size_t>(length));
    for (int i = 0; i < length; ++i)
        profile.at(static_cast<size_t>(i)) =
            std::min(blurredStep(i + 0.5 - start), blurredStep(end - i - 0.5));
    return profile;
}

void drawShadow(QImage &image, const QRectF &shadow, const TileGroundLook &look)
{
    const auto across = shadowProfile(image.width(), shadow.left(), shadow.right(), look.shadowRadius);
    const auto down = shadowProfile(image.height(), shadow.top(), shadow.bottom(), look.shadowRadius);
    for (int y = 0; y < image.height(); ++y) {
        auto *line = reinterpret_cast<QRgb *>(image.scanLine(y));
        for (int x = 0; x < image.width(); ++x) {
            const qreal strength = across.at(static_cast<size_t>(x)) * down.at(static_cast<size_t>(y));
            line[x] = qRgba(0, 0, 0, qRound(255 * look.shadowOpacity * strength));
        }
    }
}

/// A picture in nine parts that share a texture. They are nodes of their own, since what Qt has for this
/// rounds the parts to whole points, which are no whole pixels on every screen.
class GroundNode : public QSGNode
{
public:
    explicit GroundNode(const QQuickWindow &window)
    {
        for (QSGImageNode *&part : m_parts)
            part = window.createImageNode();
    }
    ~GroundNode() override
    {
        removeAllChildNodes();
        for (const QSGImageNode *part : m_parts)
            delete part;
    }
    Q_DISABLE_COPY_MOVE(GroundNode)

    void show(const QQuickWindow &window, const QImage &image)
    {
        std::unique_ptr<QSGTexture> texture(
            window.createTextureFromImage(image, QQuickWindow::TextureHasAlphaChannel));
        const bool isFirst = !m_texture;
        for (QSGImageNode *part : m_parts) {
            part->setTexture(texture.get());
            part->setFiltering(QSGTexture::Linear);
            if (isFirst)
                appendChildNode(part);
        }
        m_texture = std::move(texture);
    }
    /// Spreads the picture over @p bounds, in points, by stretching what is not within @p fixed, in pixels.
    void layOut(const QRectF &bounds, const QMarginsF &fixed, qreal pixelRatio)
    {
        const QRectF source({}, QSizeF(m_texture->textureSize()));
        const auto fromX = columns(source, fixed);
        const auto toX = columns(bounds, fixed / pixelRatio);
        const auto fromY = rows(source, fixed);
        const auto toY = rows(bounds, fixed / pixelRatio);
        for (size_t i = 0; i < m_parts.size(); ++i) {
            const size_t column = i % 3;
            const size_t row = i / 3;
            m_parts.at(i)->setSourceRect(cell(fromX, fromY, column, row));
            m_parts.at(i)->setRect(cell(toX, toY, column, row));
        }
    }

private:
    using Edges = std::array<qreal, 4>;

    static Edges columns(const QRectF &all, const QMarginsF &fixed)
    {
        return {all.left(), all.left() + fixed.left(), all.right() - fixed.right(), all.right()};
    }
    static Edges rows(const QRectF &all, const QMarginsF &fixed)
    {
        return {all.top(), all.top() + fixed.top(), all.bottom() - fixed.bottom(), all.bottom()};
    }
    static QRectF cell(const Edges &x, const Edges &y, size_t column, size_t row)
    {
        return {QPointF(x.at(column), y.at(row)), QPointF(x.at(column + 1), y.at(row + 1))};
    }

    std::array<QSGImageNode *, 9> m_parts{};
    std::unique_ptr<QSGTexture> m_texture;
};

} // namespace

TileGroundPatch drawTileGround(const TileGroundLook &look)
{
    const qreal spread = look.shadowOpacity > 0 ? std::ceil(visibleDeviations * look.shadowRadius) : 0;
    const qreal offset = spread > 0 ? std::ceil(look.shadowOffset) : 0;
    const qreal inner = std::max(std::ceil(look.radius * squircleReach), spread + offset);
    const qreal stretched = 2; // pixels in the middle

    TileGroundPatch patch;
    patch.beyond = QMarginsF(spread, spread, spread, spread + offset);
    patch.fixed = patch.beyond + inner;
    const QRectF tile(spread, spread, 2 * inner + stretched, 2 * inner + stretched);
    patch.image =
        QImage(tile.marginsAdded(patch.beyond).size().toSize(), QImage::Format_ARGB32_Premultiplied);
    patch.image.fill(Qt::transparent);
    if (spread > 0)
        drawShadow(patch.image, tile.translated(0, look.shadowOffset), look);
    QPainter painter(&patch.image);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.fillPath(squirclePath(tile, look.radius), look.color);
    return patch;
}

TileGround::TileGround(QQuickItem *parent)
    : QQuickItem(parent)
{
    setFlag(ItemHasContents);
    connect(this, &TileGround::lookChanged, this, &QQuickItem::update);
}

TileGroundLook TileGround::lookInPixels(qreal pixelRatio) const
{
    // On a tile too small for the corners and the shadow's inner part both shrink with it.
    const qreal inner =
        std::max(m_radius * squircleReach, visibleDeviations * m_shadowRadius + m_shadowOffset) + 2;
    const qreal scale = pixelRatio * std::clamp(std::min(width(), height()) / (2 * inner), 0.0, 1.0);
    return {.color = m_color,
            .radius = m_radius * scale,
            .shadowOpacity = m_shadowOpacity,
            .shadowRadius = m_shadowRadius * scale,
            .shadowOffset = m_shadowOffset * scale};
}

QSGNode *TileGround::updatePaintNode(QSGNode *oldNode, UpdatePaintNodeData *)
{
    auto *node = static_cast<GroundNode *>(oldNode);
    if (width() < 1 || height() < 1) {
        delete node;
        return nullptr;
    }
    const qreal pixelRatio = window()->effectiveDevicePixelRatio();
    const TileGroundLook look = lookInPixels(pixelRatio);
    const bool isNewLook = look != m_drawnLook || m_patch.image.isNull();
    if (isNewLook) {
        m_drawnLook = look;
        m_patch = drawTileGround(look);
    }
    const bool isNewNode = !node;
    if (isNewNode)
        node = new GroundNode(*window());
    if (isNewNode || isNewLook)
        node->show(*window(), m_patch.image);
    node->layOut(boundingRect().marginsAdded(m_patch.beyond / pixelRatio), m_patch.fixed, pixelRatio);
    return node;
}

void TileGround::itemChange(ItemChange change, const ItemChangeData &data)
{
    if (change == ItemDevicePixelRatioHasChanged) // another size or window makes it draw anyway
        update();
    QQuickItem::itemChange(change, data);
}

} // namespace trackwise
