// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "app/WindowControllers.h"
#include "app/WindowScene.h"
#include "artwork/ArtworkImageProvider.h"
#include "support/ScriptedIndex.h"
#include "support/SyntheticLibrary.h"
#include "ui/Engine.h"
#include "ui/Theme.h"

#include <QQmlEngine>
#include <QTest>

namespace trackwise {

/// A real window over doubles of the device, whose library has one song.
struct RealWindow : WindowDevice
{
    explicit RealWindow(const ThemeSettings &settings = {})
    {
        library.add(7, "Seven", "Band", "Album", "100");
        services.makePicker = [this] { return std::make_shared<MediaPicker>(songs, songs, scan, index); };
        services.connectedScenes = [] { return 1; };
        prepareEngine(engine);
        themeOf(engine).setSettings(settings);
        engine.addImageProvider(QStringLiteral("artwork"), new ArtworkImageProvider(loader));
        scene = std::make_unique<WindowScene>(engine, services, containerServices);
        scene->show();
        (void)QTest::qWaitForWindowActive(&window());
    }
    [[nodiscard]] QQuickWindow &window() const { return scene->window(); }

    SyntheticLibrary songs{100};
    ScriptedScan scan;
    ScriptedIndex index;
    QQmlEngine engine;
    std::unique_ptr<WindowScene> scene;
};

} // namespace trackwise
