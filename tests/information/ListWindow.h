// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "information/InformationView.h"
#include "preferences/Preferences.h"
#include "support/ViewWindow.h"

#include <QTemporaryDir>

namespace trackwise {

struct ShownList
{
    QTemporaryDir folder;
    Preferences preferences{folder.filePath(QStringLiteral("defaults.ini"))};
    InformationView information;
};

/// A song's real list in a real window.
class ListWindow : public ShownList, public ViewWindow
{
public:
    explicit ListWindow(MediaItem song, QSize size = {1024, 768}, const ThemeSettings &settings = {},
                        std::function<void()> lyricsAction = {})
        : ShownList{.information{{.mediaItem = std::move(song), .lyricsAction = std::move(lyricsAction)},
                                 preferences,
                                 {},
                                 QTimeZone::utc()}}
        , ViewWindow(size, settings)
    {
        show("Information/InformationView.qml", "view", QVariant::fromValue(&information));
    }
    /// Shows another song in the same list.
    void showInstead(const MediaItem &song)
    {
        auto *other = new InformationView({.mediaItem = song}, preferences, {}, QTimeZone::utc(), &window);
        window.rootObject()->setProperty("view", QVariant::fromValue(other));
    }
};

} // namespace trackwise
