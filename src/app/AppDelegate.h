// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "app/AddressOpening.h"
#include "app/WindowPlacements.h"
#include "app/WindowScene.h"
#include "artwork/ArtworkFiles.h"
#include "artwork/ArtworkLoader.h"
#include "lookup/CatalogLookup.h"
#include "platform/Appearance.h"
#include "platform/LibraryBrowser.h"
#include "platform/LibraryScan.h"
#include "platform/RecognitionIndex.h"

#include <QQmlEngine>

#include <memory>
#include <vector>

namespace trackwise {

/// What the app is given of the device.
struct AppDevice
{
    MediaLibrary &library;
    const LibraryBrowser &browser;
    LibraryScan &scan;
    RecognitionIndex &index;
    MusicPlayer &player;
    SystemMusicPlayer &systemPlayer;
    Appearance &appearance;
    AddressOpener &addresses;
    const CatalogLookup &catalog;
    const RecognitionServices &recognition;
    QString cacheFolder;
    QString stateFile; ///< of where windows were
    SupportServices support;
    AddressOpening::SongOfFile songOfFile;
};

/// The app itself: what all windows share, and the windows. Main thread.
class AppDelegate : public QObject
{
    Q_OBJECT

public:
    /// @p device and @p preferences must outlive the app.
    AppDelegate(const AppDevice &device, Preferences &preferences, QObject *parent = nullptr);
    ~AppDelegate() override;

    /// Records the day of the first launch, once.
    void didFinishLaunching();
    Q_INVOKABLE void newWindow();
    /// Brings the window that was used last to the front, or opens one.
    void activate();
    /// Shows song links or files' songs in the window that was used last.
    void open(const QStringList &addresses);
    /// Carries out an action of the desktop entry; one that we do not know only shows a window.
    void activateAction(const QString &name);
    /// In the order of their use: the one that was used last is the last one.
    [[nodiscard]] const std::vector<std::unique_ptr<WindowScene>> &scenes() const { return m_scenes; }

    /// Shows dates in this time zone from now on; at first it is that of the start.
    void setTimeZone(const QTimeZone &zone);
    /// Shows the settings in the window of that presentation; set by whoever makes the settings screen.
    void setSettingsScreen(std::function<void(Presentation &)> open)
    {
        m_detailServices.openSettings = std::move(open);
    }

private:
    void applyAppearance();
    void sceneWasUsed(const WindowScene *scene);
    void removeScene(WindowScene *scene);

    AppDevice m_device;
    Preferences &m_preferences;
    ArtworkLoader m_artworkLoader;
    ArtworkFiles m_artworkFiles;
    ArtworkServices m_artworkServices;
    QThreadPool m_searches;
    DetailServices m_detailServices;
    ContainerServices m_containerServices;
    AddressOpening m_opening;
    WindowPlacements m_placements;
    QQmlEngine m_engine; ///< its image provider looks at the loader
    std::vector<std::unique_ptr<WindowScene>> m_scenes;
};

} // namespace trackwise
