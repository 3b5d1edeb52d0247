// SPDX-License-Identifier: GPL-3.0-or-later
#include "detail/KeyCommands.h"

namespace trackwise {

namespace {

enum class Line { None, Above };
enum class Reach {
    Screen,     ///< while nothing stands in front of it
    Everywhere, ///< sheets, alerts and menus do not keep the keys from it
};

MenuEntry entry(KeyCommand command, const QString &title, const char *keys,
                const KeyCommands::Validate &validate, Line line = Line::None, Reach reach = Reach::Screen)
{
    return {.command = static_cast<int>(command),
            .title = title,
            .isEnabled = validate(command),
            .startsSection = line == Line::Above,
            .keys =
                *keys != '\0' ? QKeySequence::listFromString(QLatin1StringView(keys)) : QList<QKeySequence>(),
            .worksEverywhere = reach == Reach::Everywhere};
}

} // namespace

std::vector<MenuEntry> KeyCommands::applicationMenu(const Validate &validate)
{
    return {
        entry(KeyCommand::NewWindow, tr("New Window"), "Ctrl+N", validate, Line::None, Reach::Everywhere),
        entry(KeyCommand::PresentAbout, tr("About"), "", validate, Line::Above),
        entry(KeyCommand::PresentHelp, tr("Help"), "F1", validate),
        entry(KeyCommand::OpenSettings, tr("Settings"), "Ctrl+,", validate),
        entry(KeyCommand::Quit, tr("Quit"), "Ctrl+Q", validate, Line::Above, Reach::Everywhere),
    };
}

std::vector<MenuEntry> KeyCommands::fileMenu(const Validate &validate)
{
    return {
        entry(KeyCommand::SelectSong, tr("Select Song"), "Ctrl+O", validate),
        entry(KeyCommand::SelectSongNowPlaying, tr("Select Song from Now Playing"), "Ctrl+Alt+O", validate),
        entry(KeyCommand::SelectSongMusicRecognition, tr("Select Song from Music Recognition"),
              "Ctrl+Shift+O", validate),
        entry(KeyCommand::ClearSelectedSong, tr("Clear Selected Song"), "Del", validate),
        entry(KeyCommand::PasteLink, tr("Paste Link"), "Ctrl+V; Shift+Ins", validate, Line::Above),
        entry(KeyCommand::CloseWindow, tr("Close Window"), "Ctrl+W", validate, Line::Above,
              Reach::Everywhere),
    };
}

} // namespace trackwise
