// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/WindowScene.h"

#include "ui/Theme.h"

#include <QQmlComponent>
#include <QQmlEngine>
#include <QScreen>

#include <algorithm>

namespace trackwise {

namespace {

std::unique_ptr<QQuickWindow> makeWindow(QQmlEngine &engine, ContainerViewController &container,
                                         Presentation &presentation, WindowMenus &menus)
{
    QQmlComponent component(&engine, QUrl(QStringLiteral("qrc:/qt/qml/Trackwise/App/MainWindow.qml")));
    if (component.isError())
        qFatal("cannot make the window: %s", qPrintable(component.errorString()));
    QObject *object = component.createWithInitialProperties(
        {{QStringLiteral("container"), QVariant::fromValue(&container)},
         {QStringLiteral("presentation"), QVariant::fromValue(&presentation)},
         {QStringLiteral("menus"), QVariant::fromValue(&menus)}});
    auto *window = qobject_cast<QQuickWindow *>(object);
    Q_ASSERT_X(window, "WindowScene", "MainWindow.qml is no window");
    QQmlEngine::setObjectOwnership(window, QQmlEngine::CppOwnership);
    return std::unique_ptr<QQuickWindow>(window);
}

} // namespace

WindowScene::WindowScene(QQmlEngine &engine, const DetailServices &detailServices,
                         const ContainerServices &containerServices, QObject *parent)
    : QObject(parent)
    , m_detail(detailServices, m_presentation)
    , m_container(containerServices, m_detail)
    , m_menus(m_detail, m_presentation)
    , m_window(makeWindow(engine, m_container, m_presentation, m_menus))
{
    connect(m_window.get(), &QQuickWindow::visibleChanged, this, [this](bool visible) {
        m_container.setInWindow(visible);
        if (!visible)
            Q_EMIT didClose();
    });
    // Not from within the window's own key handling.
    connect(&m_menus, &WindowMenus::closeWindowKeyCommanded, m_window.get(), &QWindow::close,
            Qt::QueuedConnection);
    m_container.viewDidLoad();
    m_detail.viewDidLoad();
}

WindowScene::~WindowScene()
{
    m_window->disconnect(this);
}

void WindowScene::show()
{
    m_window->show();
}

void WindowScene::setMenuBarPlace(MenuBarPlace place)
{
    const QSize screen = m_window->screen()->size();
    const bool isPhone = std::min(screen.width(), screen.height()) < Theme::widestPhone();
    m_menus.setPlace(isPhone ? std::nullopt : std::optional(place));
}

void WindowScene::raise()
{
    m_window->show();
    m_window->raise();
    m_window->requestActivate();
}

} // namespace trackwise
