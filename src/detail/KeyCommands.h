// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "ui/CommandMenu.h"

#include <QCoreApplication>

#include <functional>
#include <vector>

namespace trackwise {

/// What a window does when it is asked to by key, or in the menu bar.
enum class KeyCommand : int {
    NewWindow,
    PresentAbout,
    PresentHelp,
    OpenSettings,
    Quit,
    SelectSong,
    SelectSongNowPlaying,
    SelectSongMusicRecognition,
    ClearSelectedSong,
    PasteLink,
    CloseWindow,
};

/// The two menus of the menu bar; what stands in them is all that has a key of its own, so that keys are
/// defined here and nowhere else.
struct KeyCommands
{
    Q_DECLARE_TR_FUNCTIONS(trackwise::KeyCommands)

public:
    /// Whether a command can be carried out now.
    using Validate = std::function<bool(KeyCommand)>;

    [[nodiscard]] static std::vector<MenuEntry> applicationMenu(const Validate &validate);
    [[nodiscard]] static std::vector<MenuEntry> fileMenu(const Validate &validate);
    [[nodiscard]] static QString fileMenuTitle() { return tr("File"); }
};

} // namespace trackwise
