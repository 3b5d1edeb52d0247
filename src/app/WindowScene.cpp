// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/WindowScene.h"

#include <QQmlComponent>
#include <QQmlEngine>

namespace trackwise {

namespace {

std::unique_ptr<QQuickWindow> makeWindow(QQmlEngine &engine, ContainerViewController &container,
                                         Presentation &presentation)
{
    QQmlComponent component(&engine, QUrl(QStringLiteral("qrc:/qt/qml/Trackwise/App/MainWindow.qml")));
    if (component.isError())
        qFatal("cannot make the window: %s", qPrintable(component.errorString()));
    QObject *object = component.createWithInitialProperties(
        {{QStringLiteral("container"), QVariant::fromValue(&container)},
         {QStringLiteral("presentation"), QVariant::fromValue(&presentation)}});
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
    , m_window(makeWindow(engine, m_container, m_presentation))
{
    connect(m_window.get(), &QQuickWindow::visibleChanged, this, [this](bool visible) {
        m_container.setInWindow(visible);
        if (!visible)
            Q_EMIT didClose();
    });
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

void WindowScene::raise()
{
    m_window->show();
    m_window->raise();
    m_window->requestActivate();
}

} // namespace trackwise
