// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/WindowScene.h"

#include "ui/Theme.h"

#include <QPointer>
#include <QQmlComponent>
#include <QQmlEngine>
#include <QScreen>
#include <QTimer>

#include <algorithm>
#include <chrono>

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
    m_window->installEventFilter(this);
    m_container.viewDidLoad();
    m_detail.viewDidLoad();
}

WindowScene::~WindowScene()
{
    m_window->disconnect(this);
}

bool WindowScene::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::Close)
        Q_EMIT willClose();
    return QObject::eventFilter(watched, event);
}

void WindowScene::show()
{
    m_window->setVisible(true); // show() would end its being maximized
    m_sinceShown.start();
}

void WindowScene::performWhenSetUp(const QString &action)
{
    constexpr std::chrono::milliseconds timeToSetUp{500};
    const std::chrono::milliseconds left = timeToSetUp - std::chrono::milliseconds(m_sinceShown.elapsed());
    if (left.count() <= 0)
        perform(action);
    else
        QTimer::singleShot(left, this, [this, action] { perform(action); });
}

bool WindowScene::perform(const QString &action)
{
    if (action == QLatin1StringView("SelectSongAction")) {
        m_presentation.whenUncovered([detail = QPointer(&m_detail)] {
            if (detail)
                detail->selectSongFromLibrary();
        });
        return true;
    }
    if (action == QLatin1StringView("SelectSongNowPlayingAction"))
        m_detail.selectSongFromNowPlaying();
    else if (action == QLatin1StringView("SelectSongMusicRecognitionAction"))
        m_presentation.whenUncovered([detail = QPointer(&m_detail)] {
            if (detail)
                detail->selectSongMusicRecognition();
        });
    return false;
}

void WindowScene::setMenuBarPlace(MenuBarPlace place)
{
    const QSize screen = m_window->screen()->size();
    const bool isPhone = std::min(screen.width(), screen.height()) < Theme::widestPhone();
    m_menus.setPlace(isPhone ? std::nullopt : std::optional(place));
}

void WindowScene::raise()
{
    m_window->setVisible(true);
    m_window->raise();
    m_window->requestActivate();
}

} // namespace trackwise
