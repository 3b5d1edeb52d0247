// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "artwork/ArtworkLoader.h"

#include <QQuickItem>

namespace trackwise {

/// Draws one cover, cut to continuous corners, in any renderer. Decoding and cutting happen on worker
/// threads; while the item is resized the picture it has is stretched until the sharp one is there. A new
/// source takes the old picture away at once.
class ArtworkPicture : public QQuickItem
{
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(QString source READ source WRITE setSource NOTIFY sourceChanged)
    Q_PROPERTY(qreal radius READ radius WRITE setRadius NOTIFY radiusChanged)
    /// The picture of `source` is there.
    Q_PROPERTY(bool hasPicture READ hasPicture NOTIFY stateChanged)
    /// There is no picture to wait for: no source, or one that could not be decoded.
    Q_PROPERTY(bool isEmpty READ isEmpty NOTIFY stateChanged)

public:
    explicit ArtworkPicture(QQuickItem *parent = nullptr);
    ~ArtworkPicture() override;
    Q_DISABLE_COPY_MOVE(ArtworkPicture)

    [[nodiscard]] QString source() const { return m_source; }
    void setSource(const QString &source);
    [[nodiscard]] qreal radius() const { return m_radius; }
    void setRadius(qreal radius);
    [[nodiscard]] bool hasPicture() const { return !m_image.isNull(); }
    [[nodiscard]] bool isEmpty() const { return m_source.isEmpty() || m_hasFailed; }

Q_SIGNALS:
    void sourceChanged();
    void radiusChanged();
    void stateChanged();

protected:
    void updatePolish() override;
    QSGNode *updatePaintNode(QSGNode *node, UpdatePaintNodeData *) override;
    void geometryChange(const QRectF &now, const QRectF &before) override;
    void itemChange(ItemChange change, const ItemChangeData &data) override;

private:
    [[nodiscard]] int wantedSide() const;
    void request(ArtworkLoader &loader, const ArtworkReference &reference);
    void receive(const QImage &image, int side);

    QString m_source;
    qreal m_radius = 0;
    QImage m_image;
    int m_imageSide = 0;
    bool m_hasNewImage = false; ///< not yet handed to the renderer
    bool m_hasFailed = false;
    CancelFlag m_running; ///< of the request that is under way
};

/// @p image stretched to a square of @p side pixels and cut to continuous corners of @p radius pixels. Where
/// it can be seen through, it stays so.
[[nodiscard]] QImage cutToSquircle(const QImage &image, int side, qreal radius);

} // namespace trackwise
