// SPDX-License-Identifier: GPL-3.0-or-later
#include "artwork/ArtworkPicture.h"

#include "artwork/ArtworkImageProvider.h"
#include "artwork/Squircle.h"
#include "platform/Background.h"

#include <QPainter>
#include <QQmlEngine>
#include <QQuickWindow>
#include <QSGImageNode>

#include <cmath>
#include <memory>

namespace trackwise {

namespace {

ArtworkLoader *loaderOf(const QObject *item)
{
    const QQmlEngine *engine = qmlEngine(item);
    auto *provider =
        engine ? dynamic_cast<ArtworkImageProvider *>(engine->imageProvider(artworkProviderName())) : nullptr;
    return provider ? &provider->loader() : nullptr;
}

} // namespace

QImage cutToSquircle(const QImage &image, int side, qreal radius)
{
    QImage cut(side, side, QImage::Format_ARGB32_Premultiplied);
    cut.fill(Qt::transparent);
    QPainter painter(&cut);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(Qt::black);
    painter.drawPath(squirclePath(cut.rect(), radius));
    painter.setCompositionMode(QPainter::CompositionMode_SourceIn);
    painter.drawImage(QPoint(), image.scaled(side, side, Qt::IgnoreAspectRatio, Qt::SmoothTransformation));
    return cut;
}

ArtworkPicture::ArtworkPicture(QQuickItem *parent)
    : QQuickItem(parent)
{
    setFlag(ItemHasContents);
}

ArtworkPicture::~ArtworkPicture()
{
    if (m_running)
        m_running->store(true, std::memory_order_relaxed);
}

void ArtworkPicture::setSource(const QString &source)
{
    if (source == m_source)
        return;
    m_source = source;
    m_image = {};
    m_imageSide = 0;
    m_hasFailed = false;
    if (const CancelFlag running = std::exchange(m_running, nullptr))
        running->store(true, std::memory_order_relaxed);
    polish();
    update();
    Q_EMIT sourceChanged();
    Q_EMIT stateChanged();
}

void ArtworkPicture::setRadius(qreal radius)
{
    if (qFuzzyCompare(radius, m_radius))
        return;
    m_radius = radius;
    m_imageSide = 0;
    polish();
    Q_EMIT radiusChanged();
}

int ArtworkPicture::wantedSide() const
{
    const qreal ratio = window() ? window()->effectiveDevicePixelRatio() : 1;
    return static_cast<int>(std::ceil(std::max(width(), height()) * ratio));
}

void ArtworkPicture::updatePolish()
{
    const int side = wantedSide();
    // A request under way is let finish: were it restarted at each step of a resize, none would arrive.
    if (m_source.isEmpty() || m_hasFailed || side <= 0 || side == m_imageSide || m_running)
        return;
    ArtworkLoader *loader = loaderOf(this);
    const std::optional<ArtworkReference> reference = artworkReference(m_source);
    if (loader && reference)
        request(*loader, *reference);
    else
        receive({}, side);
}

void ArtworkPicture::request(ArtworkLoader &loader, const ArtworkReference &reference)
{
    const int side = wantedSide();
    const qreal radius = m_radius * side / std::max(width(), height());
    const CancelFlag cancelled = std::make_shared<std::atomic<bool>>(false);
    m_running = cancelled;
    runInBackground(
        loader.pool(), this,
        [&loader, reference, side, radius, cancelled] {
            const QImage square = loader.square(reference, side, cancelled);
            return square.isNull() ? square : cutToSquircle(square, side, radius);
        },
        [this, cancelled, side](const QImage &image) {
            if (cancelled != m_running)
                return; // another song's by now
            m_running = nullptr;
            receive(image, side);
        });
}

void ArtworkPicture::receive(const QImage &image, int side)
{
    m_image = image;
    m_imageSide = side;
    m_hasNewImage = true;
    m_hasFailed = image.isNull();
    update();
    polish(); // the size may have changed meanwhile
    Q_EMIT stateChanged();
}

QSGNode *ArtworkPicture::updatePaintNode(QSGNode *oldNode, UpdatePaintNodeData *)
{
    auto *node = static_cast<QSGImageNode *>(oldNode);
    if (m_image.isNull() || boundingRect().isEmpty()) {
        delete node;
        return nullptr;
    }
    if (!node) {
        node = window()->createImageNode();
        node->setOwnsTexture(true);
        node->setFiltering(QSGTexture::Linear);
        m_hasNewImage = true;
    }
    if (std::exchange(m_hasNewImage, false))
        node->setTexture(window()->createTextureFromImage(m_image));
    node->setRect(boundingRect());
    return node;
}

void ArtworkPicture::geometryChange(const QRectF &now, const QRectF &before)
{
    QQuickItem::geometryChange(now, before);
    if (now.size() != before.size())
        polish();
}

void ArtworkPicture::itemChange(ItemChange change, const ItemChangeData &data)
{
    if (change == ItemDevicePixelRatioHasChanged || change == ItemSceneChange)
        polish();
    QQuickItem::itemChange(change, data);
}

} // namespace trackwise
