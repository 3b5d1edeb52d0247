// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QPointer>
#include <QQuickItem>

#include <optional>

namespace trackwise {

/// A stretch of a page, in points from the page's beginning.
struct PageStretch
{
    qreal start = 0;
    qreal end = 0;
};

/// Where to scroll so that @p item is seen with @p air around it: as little as shows all of it. What is
/// longer than the view is shown from its start, and stays as it is while any of it is seen. Absent: nowhere.
[[nodiscard]] std::optional<qreal> revealingOffset(const PageStretch &item, const PageStretch &view,
                                                   qreal air);

/// Says where a page scrolls by its keys, and when the keyboard focus reaches something out of sight: by Tab,
/// backtab or a shortcut. Focus that a click sets, or that comes back when a menu or a sheet closes, moves
/// nothing. Main thread.
class KeyboardScrolling : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    /// A Flickable, or something with its properties.
    Q_PROPERTY(QQuickItem *page READ page WRITE setPage NOTIFY pageChanged REQUIRED)
    Q_PROPERTY(qreal air MEMBER m_air NOTIFY airChanged)
    /// How far an arrow key goes; a page key leaves as much of the page in view.
    Q_PROPERTY(qreal lineStep MEMBER m_lineStep NOTIFY airChanged)

public:
    using QObject::QObject;

    [[nodiscard]] QQuickItem *page() const { return m_page; }
    void setPage(QQuickItem *page);

    /// Scrolls, from @p contentY on, for a key that is for scrolling; false for any other.
    Q_INVOKABLE bool scrollForKey(int key, qreal contentY);

Q_SIGNALS:
    void pageChanged();
    void airChanged();
    /// @p contentY may lie beyond the page's ends: infinity, for one, is the end, wherever that comes to be.
    void scrollWanted(qreal contentY);

private:
    void watchWindow(const QQuickWindow *window);
    void focusDidMove();

    QPointer<QQuickItem> m_page;
    qreal m_air = 0;
    qreal m_lineStep = 0;
    QMetaObject::Connection m_watching;
};

} // namespace trackwise
