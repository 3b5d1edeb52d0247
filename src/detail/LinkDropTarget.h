// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QQuickItem>
#include <QStringList>

namespace trackwise {

/// An area that takes song links dropped on it, always as a copy. Data without any address is left to others,
/// and so is a cover of ours, which comes with the address of its file.
class LinkDropTarget : public QQuickItem
{
    Q_OBJECT
    QML_ELEMENT
    /// A link hovers over the area now.
    Q_PROPERTY(bool isTargeted READ isTargeted NOTIFY isTargetedChanged)

public:
    explicit LinkDropTarget(QQuickItem *parent = nullptr);

    [[nodiscard]] bool isTargeted() const { return m_isTargeted; }

Q_SIGNALS:
    void isTargetedChanged();
    void dropped(const QStringList &addresses);

protected:
    void dragEnterEvent(QDragEnterEvent *event) override;
    void dragMoveEvent(QDragMoveEvent *event) override;
    void dragLeaveEvent(QDragLeaveEvent *event) override;
    void dropEvent(QDropEvent *event) override;

private:
    void setTargeted(bool targeted);

    bool m_isTargeted = false;
};

} // namespace trackwise
