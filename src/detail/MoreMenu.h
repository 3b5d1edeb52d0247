// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "ui/CommandMenu.h"

#include <QCoreApplication>

#include <vector>

namespace trackwise {

/// The menu behind the "More" button.
struct MoreMenu
{
    Q_DECLARE_TR_FUNCTIONS(trackwise::MoreMenu)

public:
    enum Command : int {
        SelectNowPlaying,
        SelectMusicRecognition,
        ClearSelectedSong,
        ShowAbout,
        ShowHelp,
        OpenSettings
    };

    /// What the menu depends on.
    struct State
    {
        bool showsSong = false;
        bool isListening = false; ///< music is being recognised
        bool hasSettings = false; ///< the device has a settings screen
    };

    [[nodiscard]] static QString title() { return tr("Select Song from"); }
    [[nodiscard]] static std::vector<MenuEntry> entries(const State &state);
};

} // namespace trackwise
