// SPDX-License-Identifier: GPL-3.0-or-later
#include "detail/MoreMenu.h"

namespace trackwise {

std::vector<MenuEntry> MoreMenu::entries(const State &state)
{
    std::vector<MenuEntry> entries{
        {SelectNowPlaying, tr("Now Playing"), QStringLiteral("music.note"), true, false},
        {SelectMusicRecognition, state.isListening ? tr("Listening…") : tr("Music Recognition"),
         QStringLiteral("waveform.circle"), !state.isListening, false},
        {ClearSelectedSong, tr("Clear Selected Song"), QStringLiteral("xmark"), state.showsSong, true},
        {ShowAbout, tr("About"), QStringLiteral("info.circle"), true, true},
        {ShowHelp, tr("Help"), QStringLiteral("questionmark.circle"), true, false},
    };
    if (state.hasSettings)
        entries.push_back({OpenSettings, tr("Settings"), QStringLiteral("slider.horizontal"), true, false});
    return entries;
}

} // namespace trackwise
