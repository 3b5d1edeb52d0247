// SPDX-License-Identifier: GPL-3.0-or-later
#include "artwork/ArtworkImageProvider.h"

#include "artwork/ArtworkLoader.h"

#include <algorithm>

namespace trackwise {

namespace {

constexpr int defaultSide = 384; // for an image without a sourceSize

class ArtworkResponse;

/// Where a worker leaves its result: the response, or nothing once that has gone.
struct Mailbox
{
    QMutex mutex;
    ArtworkResponse *receiver = nullptr;
};

class ArtworkResponse : public QQuickImageResponse
{
public:
    ArtworkResponse() { m_mailbox->receiver = this; }
    ~ArtworkResponse() override
    {
        m_cancelled->store(true, std::memory_order_relaxed);
        const QMutexLocker lock(&m_mailbox->mutex);
        m_mailbox->receiver = nullptr;
    }
    Q_DISABLE_COPY_MOVE(ArtworkResponse)

    void start(ArtworkLoader &loader, const ArtworkReference &reference, int side)
    {
        loader.pool().start(
            QRunnable::create([&loader, reference, side, cancelled = m_cancelled, mailbox = m_mailbox] {
                deliver(*mailbox, loader.square(reference, side, cancelled));
            }),
            loader.nextPriority());
    }
    void startEmpty() { deliver(*m_mailbox, QImage()); }

    [[nodiscard]] QQuickTextureFactory *textureFactory() const override
    {
        return m_image.isNull() ? nullptr : QQuickTextureFactory::textureFactoryForImage(m_image);
    }
    [[nodiscard]] QString errorString() const override
    {
        return m_image.isNull() ? QStringLiteral("no artwork") : QString();
    }
    void cancel() override { m_cancelled->store(true, std::memory_order_relaxed); }

private:
    // The engine deletes a response once it has finished, so that this happens on the response's own thread.
    static void deliver(Mailbox &mailbox, const QImage &image)
    {
        const QMutexLocker lock(&mailbox.mutex);
        if (ArtworkResponse *response = mailbox.receiver) {
            QMetaObject::invokeMethod(
                response,
                [response, image] {
                    response->m_image = image;
                    Q_EMIT response->finished();
                },
                Qt::QueuedConnection);
        }
    }

    std::shared_ptr<Mailbox> m_mailbox = std::make_shared<Mailbox>();
    CancelFlag m_cancelled = std::make_shared<std::atomic<bool>>(false);
    QImage m_image;
};

} // namespace

ArtworkImageProvider::ArtworkImageProvider(ArtworkLoader &loader)
    : m_loader(loader)
{}

QQuickImageResponse *ArtworkImageProvider::requestImageResponse(const QString &id, const QSize &requestedSize)
{
    auto *response = new ArtworkResponse;
    const int side = std::max(requestedSize.width(), requestedSize.height());
    if (const std::optional<ArtworkReference> reference = artworkReference(id))
        response->start(m_loader, *reference, side > 0 ? side : defaultSide);
    else
        response->startEmpty();
    return response;
}

} // namespace trackwise
