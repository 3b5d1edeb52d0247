// SPDX-License-Identifier: GPL-3.0-or-later
#include "artwork/ArtworkDrag.h"

#include "artwork/ArtworkFiles.h"
#include "artwork/ArtworkMimeData.h"
#include "artwork/ArtworkPicture.h"
#include "artwork/Squircle.h"
#include "platform/Background.h"

#include <QClipboard>
#include <QDrag>
#include <QGuiApplication>
#include <QPainter>
#include <QPixmap>

#include <cmath>
#include <utility>

namespace trackwise {

namespace {

std::optional<ArtworkHandout> readHandout(const ArtworkSource &source)
{
    std::optional<EncodedImage> encoded = source.read();
    const std::optional<PictureFormat> format = encoded ? pictureFormat(encoded->bytes) : std::nullopt;
    if (!format)
        return std::nullopt;
    return ArtworkHandout{.original = std::move(encoded->bytes), .format = *format};
}

std::optional<QUrl> storeOriginal(ArtworkFiles &files, const MediaItem &song, const ArtworkHandout &handout)
{
    const QString artist = song.albumArtist.value_or(song.artist.value_or(QString()));
    return files.store(
        handout.original, song.artwork->key(),
        artworkFileName(artist, song.albumTitle.value_or(QString()), fileSuffix(handout.format)));
}

/// Begins to make the PNG. Most receivers ask for it some time after it is there, or not at all.
void startPng(ArtworkHandout &handout)
{
    auto task = std::make_shared<std::packaged_task<QByteArray()>>(
        [original = handout.original] { return pngBytes(original); });
    handout.png = task->get_future().share();
    QThreadPool::globalInstance()->start([task] { (*task)(); });
}

QImage drawPreview(const QImage &cover, const DragPreview &look)
{
    const int side = static_cast<int>(std::ceil(look.side * look.pixelRatio));
    if (cover.isNull() || side <= 0)
        return {};
    QImage ground(1, 1, QImage::Format_ARGB32_Premultiplied);
    ground.fill(look.ground);
    const qreal radius = look.cornerRadius * look.pixelRatio;
    QImage preview = cutToSquircle(ground, side, radius);
    {
        QPainter painter(&preview);
        painter.drawImage(QPoint(), cutToSquircle(cover, side, radius));
    }
    preview.setDevicePixelRatio(look.pixelRatio);
    return preview;
}

/// A drag follows the mouse alone. What a finger does is kept from the window, so that Qt makes a mouse's
/// doing of it, as of all touches that nobody takes.
class FingerAsMouse : public QObject
{
public:
    FingerAsMouse() { QCoreApplication::instance()->installEventFilter(this); }

    bool eventFilter(QObject *receiver, QEvent *event) override
    {
        const QEvent::Type type = event->type();
        if (!receiver->isWindowType() || (type != QEvent::TouchUpdate && type != QEvent::TouchEnd))
            return false;
        if (!std::exchange(m_isLetGo, true)) {
            // Whoever has the finger will not hear of its end.
            QTouchEvent cancel(QEvent::TouchCancel, static_cast<QTouchEvent *>(event)->pointingDevice());
            QCoreApplication::sendEvent(receiver, &cancel);
        }
        event->ignore();
        return true;
    }

private:
    bool m_isLetGo = false;
};

} // namespace

ArtworkDrag::ArtworkDrag(ArtworkLoader &loader, ArtworkFiles &files, QObject *parent)
    : QObject(parent)
    , m_loader(loader)
    , m_files(files)
{}

void ArtworkDrag::copy(const MediaItem &song)
{
    if (!song.artwork)
        return;
    runInBackground(
        m_loader.pool(), this, [source = song.artwork] { return readHandout(*source); },
        [](std::optional<ArtworkHandout> handout) {
            if (!handout)
                return;
            startPng(*handout);
            QGuiApplication::clipboard()->setMimeData(new ArtworkMimeData(std::move(*handout)));
        });
}

void ArtworkDrag::start(const MediaItem &song, const DragPreview &preview)
{
    if (!song.artwork || m_state != State::Idle)
        return;
    struct Prepared
    {
        std::optional<ArtworkHandout> handout;
        QImage preview;
    };
    const int drag = ++m_latestDrag;
    const int side = static_cast<int>(std::ceil(preview.side * preview.pixelRatio));
    setState(State::Preparing);
    runInBackground(
        m_loader.pool(), this,
        [song, preview, side, loader = &m_loader, files = &m_files] {
            Prepared prepared{.handout = readHandout(*song.artwork)};
            if (prepared.handout) {
                prepared.handout->file = storeOriginal(*files, song, *prepared.handout);
                const QImage cover = loader->square({song.persistentID, song.artwork->key()}, side,
                                                    std::make_shared<std::atomic<bool>>(false));
                prepared.preview = drawPreview(cover, preview);
            }
            return prepared;
        },
        [this, drag, hotSpot = preview.hotSpot](Prepared prepared) {
            if (drag != m_latestDrag || m_state != State::Preparing)
                return;
            if (prepared.handout)
                carry(std::move(*prepared.handout), prepared.preview, hotSpot);
            else
                setState(State::Idle);
        });
}

void ArtworkDrag::cancel()
{
    if (m_state == State::Preparing)
        setState(State::Idle);
}

void ArtworkDrag::carry(ArtworkHandout handout, const QImage &preview, const QPointF &hotSpot)
{
    startPng(handout);
    // The song shown may change while the drag goes on: it belongs to the application, not to this view.
    auto *drag = new QDrag(QCoreApplication::instance());
    drag->setMimeData(new ArtworkMimeData(std::move(handout)));
    drag->setPixmap(QPixmap::fromImage(preview));
    drag->setHotSpot(hotSpot.toPoint());
    const QPointer<ArtworkDrag> self(this);
    setState(State::Carrying);
    const FingerAsMouse finger;
    drag->exec(Qt::CopyAction);
    if (self)
        setState(State::Idle);
}

void ArtworkDrag::setState(State state)
{
    const bool wasCarrying = isCarrying();
    m_state = state;
    if (isCarrying() != wasCarrying)
        Q_EMIT isCarryingChanged();
}

} // namespace trackwise
