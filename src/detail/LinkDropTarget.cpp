// SPDX-License-Identifier: GPL-3.0-or-later
#include "detail/LinkDropTarget.h"

#include "artwork/ArtworkMimeData.h"
#include "lookup/DroppedUrls.h"

#include <QMimeData>

namespace trackwise {

namespace {
void proposeCopy(QDropEvent *event)
{
    event->setDropAction(Qt::CopyAction);
    event->accept();
}
} // namespace

LinkDropTarget::LinkDropTarget(QQuickItem *parent)
    : QQuickItem(parent)
{
    setFlag(ItemAcceptsDrops);
}

void LinkDropTarget::dragEnterEvent(QDragEnterEvent *event)
{
    const QMimeData &data = *event->mimeData();
    if (isOurArtwork(data) || droppedUrls(data).isEmpty()) {
        event->ignore();
        return;
    }
    setTargeted(true);
    proposeCopy(event);
}

void LinkDropTarget::dragMoveEvent(QDragMoveEvent *event)
{
    proposeCopy(event);
}

void LinkDropTarget::dragLeaveEvent(QDragLeaveEvent *)
{
    setTargeted(false);
}

void LinkDropTarget::dropEvent(QDropEvent *event)
{
    setTargeted(false);
    proposeCopy(event);
    Q_EMIT dropped(droppedUrls(*event->mimeData()));
}

void LinkDropTarget::setTargeted(bool targeted)
{
    if (targeted == m_isTargeted)
        return;
    m_isTargeted = targeted;
    Q_EMIT isTargetedChanged();
}

} // namespace trackwise
