// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "artwork/ArtworkLoader.h"

#include <QColor>
#include <QObject>
#include <QPointF>

namespace trackwise {

class ArtworkFiles;
struct ArtworkHandout;

/// What is carried under the pointer. Lengths in points.
struct DragPreview
{
    qreal side = 0;
    qreal cornerRadius = 0;
    qreal pixelRatio = 1;
    QColor ground;   ///< behind a picture that can be seen through
    QPointF hotSpot; ///< where the pointer took hold, from the preview's top left corner
};

/// Hands a song's cover out at its full size: to the clipboard, or to whatever a drag is dropped on. Files
/// are read and pictures encoded on worker threads. Main thread.
class ArtworkDrag : public QObject
{
    Q_OBJECT

public:
    /// Both must outlive this object.
    ArtworkDrag(ArtworkLoader &loader, ArtworkFiles &files, QObject *parent = nullptr);

    /// Puts the cover on the clipboard as soon as its file has been read; never on the primary selection.
    /// A song without a readable cover changes nothing.
    void copy(const MediaItem &song);

    /// Begins a drag, which only copies, as soon as the cover's file has been read, unless cancel() comes
    /// first.
    void start(const MediaItem &song, const DragPreview &preview);
    /// The pointer has let go before the drag began.
    void cancel();
    /// Whether the cover is under the pointer.
    [[nodiscard]] bool isCarrying() const { return m_state == State::Carrying; }

Q_SIGNALS:
    void isCarryingChanged();

private:
    enum class State { Idle, Preparing, Carrying };

    void carry(ArtworkHandout handout, const QImage &preview, const QPointF &hotSpot);
    void setState(State state);

    ArtworkLoader &m_loader;
    ArtworkFiles &m_files;
    int m_latestDrag = 0;
    State m_state = State::Idle;
};

} // namespace trackwise
