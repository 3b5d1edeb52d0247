// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/AppDelegate.h"

#include "artwork/ArtworkImageProvider.h"
#include "picker/MediaPicker.h"
#include "platform/LibraryBrowser.h"
#include "platform/MediaLibrary.h"
#include "preferences/Preferences.h"
#include "ui/Engine.h"
#include "ui/Theme.h"

#include <QCoreApplication>

#include <algorithm>
#include <span>

namespace trackwise {

namespace {

Instant now()
{
    return std::chrono::time_point_cast<std::chrono::milliseconds>(std::chrono::system_clock::now());
}

ArtworkLoader::Resolver artworkOf(MediaLibrary &library)
{
    return [&library](PersistentID id) {
        const std::optional<MediaItem> song = library.song(id);
        return song ? song->artwork : ArtworkPtr();
    };
}

std::function<QString(PersistentID)> fileNameIn(const LibraryBrowser &browser)
{
    return [&browser](PersistentID id) {
        // The row of a song without a title has the file's name instead.
        const std::vector<SongRow> rows = browser.songRows(std::span(&id, 1));
        return rows.empty() ? QString() : rows.front().title;
    };
}

} // namespace

AppDelegate::AppDelegate(const AppDevice &device, Preferences &preferences, QObject *parent)
    : QObject(parent)
    , m_device(device)
    , m_preferences(preferences)
    , m_artworkLoader(artworkOf(device.library))
    , m_artworkFiles(device.cacheFolder)
    , m_artworkServices{device.player, device.addresses,          m_artworkLoader, m_artworkFiles,
                        now,           fileNameIn(device.browser)}
    , m_detailServices{device.library,
                       device.systemPlayer,
                       preferences,
                       device.addresses,
                       m_artworkServices,
                       device.catalog,
                       device.recognition,
                       m_searches,
                       [this] {
                           return std::make_shared<MediaPicker>(m_device.library, m_device.browser,
                                                                m_device.scan, m_device.index);
                       },
                       [this] { return static_cast<int>(m_scenes.size()); },
                       {},
                       FormatLocale::fromEnvironment(),
                       QTimeZone::systemTimeZone(),
                       device.support}
    , m_containerServices{device.player, preferences, m_artworkServices,
                          [] { return QDateTime::currentDateTime(); }}
    , m_opening(device.scan, device.songOfFile)
    , m_placements(device.stateFile)
{
    prepareEngine(m_engine);
    m_engine.addImageProvider(QStringLiteral("artwork"), new ArtworkImageProvider(m_artworkLoader));
    connect(&device.appearance, &Appearance::appearanceDidChange, this, &AppDelegate::applyAppearance);
    applyAppearance();
}

AppDelegate::~AppDelegate()
{
    m_scenes.clear();
}

void AppDelegate::didFinishLaunching()
{
    if (!m_preferences.firstLaunchDate())
        m_preferences.setFirstLaunchDate(QDateTime::currentDateTimeUtc());
}

void AppDelegate::newWindow()
{
    m_scenes.push_back(std::make_unique<WindowScene>(m_engine, m_detailServices, m_containerServices));
    WindowScene *scene = m_scenes.back().get();
    connect(scene, &WindowScene::willClose, this, [this, scene] { m_placements.remember(scene->window()); });
    connect(
        scene, &WindowScene::didClose, this, [this, scene] { removeScene(scene); }, Qt::QueuedConnection);
    connect(&scene->window(), &QWindow::activeChanged, this, [this, scene] {
        if (scene->window().isActive())
            sceneWasUsed(scene);
    });
    connect(&scene->menus(), &WindowMenus::newWindowKeyCommanded, this, &AppDelegate::newWindow);
    scene->setMenuBarPlace(m_device.appearance.menuBarPlace());
    m_placements.restore(scene->window(), m_scenes.size() == 1);
    scene->show();
}

void AppDelegate::activate()
{
    if (m_scenes.empty())
        newWindow();
    else
        m_scenes.back()->raise();
}

void AppDelegate::open(const QStringList &addresses)
{
    activate();
    m_opening.open(addresses, m_scenes.back()->detail());
}

void AppDelegate::activateAction(const QString &name)
{
    activate();
    m_scenes.back()->performWhenSetUp(name);
}

void AppDelegate::sceneWasUsed(const WindowScene *scene)
{
    std::stable_partition(m_scenes.begin(), m_scenes.end(),
                          [scene](const auto &open) { return open.get() != scene; });
}

void AppDelegate::setTimeZone(const QTimeZone &zone)
{
    m_detailServices.zone = zone;
    for (const auto &scene : m_scenes)
        scene->detail().timeZoneDidChange();
}

void AppDelegate::removeScene(WindowScene *scene)
{
    std::erase_if(m_scenes, [scene](const auto &open) { return open.get() == scene; });
}

void AppDelegate::applyAppearance()
{
    const Appearance &appearance = m_device.appearance;
    const TextSize size = appearance.textSize();
    themeOf(m_engine).setSettings({appearance.isDark(), appearance.prefersHighContrast(),
                                   appearance.prefersReducedMotion(), textScale(size),
                                   isAccessibilitySize(size), appearance.accent()});
    for (const auto &scene : m_scenes)
        scene->setMenuBarPlace(appearance.menuBarPlace());
}

} // namespace trackwise
