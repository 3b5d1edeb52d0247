// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/ViewWindow.h"

#include "ui/Engine.h"

#include <QQmlEngine>
#include <QtQuickTest/quicktest.h>

namespace trackwise {

namespace {

void collect(QAccessibleInterface *parent, std::vector<ViewWindow::Element> &found)
{
    for (int i = 0; parent && i < parent->childCount(); ++i) {
        QAccessibleInterface *child = parent->child(i);
        if (child->state().invisible)
            continue;
        auto *item = qobject_cast<QQuickItem *>(child->object());
        if (const QString name = child->text(QAccessible::Name); item && !name.isEmpty())
            found.push_back({item, child->role(), name});
        collect(child, found);
    }
}

bool isLaidOut(const QQuickItem *item)
{
    const QList<QQuickItem *> children = item->childItems();
    return !QQuickTest::qIsPolishScheduled(item) && std::all_of(children.begin(), children.end(), isLaidOut);
}

} // namespace

void waitForLayout(const QQuickWindow &window)
{
    if (!QTest::qWaitFor([&window] { return isLaidOut(window.contentItem()); }))
        qFatal("the window was never laid out");
}

QStringList namesIn(QQuickWindow &window, QAccessible::Role role)
{
    std::vector<ViewWindow::Element> found;
    collect(QAccessible::queryAccessibleInterface(&window), found);
    QStringList result;
    for (const ViewWindow::Element &element : found) {
        if (role == QAccessible::NoRole || element.role == role)
            result << element.name;
    }
    return result;
}

ViewWindow::ViewWindow(QSize size, const ThemeSettings &settings)
{
    QAccessible::setActive(true);
    prepareEngine(*window.engine());
    themeOf(*window.engine()).setSettings(settings);
    window.setResizeMode(QQuickView::SizeRootObjectToView);
    window.resize(size);
}

void ViewWindow::show(const char *file, const char *property, const QVariant &value)
{
    window.setInitialProperties({{QString::fromLatin1(property), value}});
    window.setSource(QUrl(QStringLiteral("qrc:/qt/qml/Trackwise/") + QString::fromLatin1(file)));
    window.rootObject()->setFocus(true);
    window.show();
    window.requestActivate();
    if (!QTest::qWaitForWindowActive(&window))
        qFatal("the window did not become active");
    waitForLayout(window);
}

std::vector<ViewWindow::Element> ViewWindow::elements()
{
    std::vector<Element> found;
    collect(QAccessible::queryAccessibleInterface(&window), found);
    return found;
}

QQuickItem *ViewWindow::find(const QString &nameStart, QAccessible::Role role)
{
    for (const Element &element : elements()) {
        if (element.name.startsWith(nameStart) && (role == QAccessible::NoRole || element.role == role))
            return element.item;
    }
    return nullptr;
}

QRectF ViewWindow::place(const QString &nameStart, QAccessible::Role role)
{
    return place(find(nameStart, role));
}

QRectF ViewWindow::place(const QQuickItem *item)
{
    waitForLayout(window);
    return item ? item->mapRectToScene({0, 0, item->width(), item->height()}) : QRectF();
}

void ViewWindow::press(Qt::Key key, Qt::KeyboardModifiers modifiers)
{
    QTest::keyClick(&window, key, modifiers);
}

void ViewWindow::press(std::initializer_list<Qt::Key> keys)
{
    for (const Qt::Key key : keys)
        press(key);
}

void ViewWindow::click(Qt::MouseButton button, const QString &nameStart, QAccessible::Role role)
{
    QTest::mouseClick(&window, button, {}, place(nameStart, role).center().toPoint());
}

} // namespace trackwise
