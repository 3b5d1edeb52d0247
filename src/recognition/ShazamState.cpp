// SPDX-License-Identifier: GPL-3.0-or-later
#include "recognition/ShazamState.h"

#include "lookup/LibrarySearch.h"
#include "platform/MediaLibrary.h"

#include <QCoreApplication>

#include <algorithm>
#include <array>

namespace trackwise {

using namespace recognition;

namespace {

using namespace std::chrono_literals;

struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(Recognition)
};

/// A state whose song, item or message is not known.
struct Row
{
    std::optional<HapticNotification> haptic;
    HUDKind kind = HUDKind::Listening;
    const char *topText = nullptr;
    const char *bottomText = nullptr;
    const char *announcement = nullptr;
    std::optional<std::chrono::milliseconds> dismissAfter;
};

// In the order of the states.
constexpr std::array<std::optional<Row>, std::variant_size_v<ShazamState>> rows{
    Row{HapticNotification::Success, HUDKind::MatchFound, QT_TRANSLATE_NOOP("Recognition", "Song Identified"),
        "--", QT_TRANSLATE_NOOP("Recognition", "Song identified"), 3s},
    Row{HapticNotification::Warning, HUDKind::NotInLibrary,
        QT_TRANSLATE_NOOP("Recognition", "Song Not Found"),
        QT_TRANSLATE_NOOP("Recognition", "Couldn't find in your library"),
        QT_TRANSLATE_NOOP("Recognition", "Song not found, couldn't find in your library"), 4s},
    Row{HapticNotification::Error, HUDKind::Error, QT_TRANSLATE_NOOP("Recognition", "Error"), "",
        QT_TRANSLATE_NOOP("Recognition", "Error occurred, %1"), 4s},
    std::nullopt,
    Row{{},
        HUDKind::Listening,
        QT_TRANSLATE_NOOP("Recognition", "Music Recognition"),
        QT_TRANSLATE_NOOP("Recognition", "Listening…"),
        "",
        {}},
    Row{HapticNotification::Warning, HUDKind::NoResult, QT_TRANSLATE_NOOP("Recognition", "No Result"),
        QT_TRANSLATE_NOOP("Recognition", "Couldn't identify song"),
        QT_TRANSLATE_NOOP("Recognition", "No result, couldn't identify song"), 4s},
};

QString translated(const char *text)
{
    return *text == '\0' ? QString() : Texts::tr(text);
}

bool hasText(const std::optional<QString> &text)
{
    return text && !text->isEmpty();
}

/// Puts what a state knows into the texts of its row.
struct Details
{
    StateEffects &effects;

    void operator()(const MatchFound &state) const
    {
        const MediaItem &song = state.song;
        if (hasText(song.title))
            effects.topText = effects.bottomText = *song.title;
        if (hasText(song.artist))
            effects.bottomText = *song.artist;
        if (hasText(song.title) && hasText(song.artist))
            effects.announcement = Texts::tr("Song identified, %1 by %2").arg(*song.title, *song.artist);
    }
    void operator()(const NoSongFound &state) const
    {
        if (!state.item || !hasText(state.item->title) || !hasText(state.item->artist))
            return;
        effects.topText = Texts::tr("Not Found in Your Library");
        effects.bottomText = QStringLiteral("%1 – %2").arg(*state.item->title, *state.item->artist);
    }
    void operator()(const Failed &state) const
    {
        effects.bottomText = state.message;
        effects.announcement = effects.announcement.arg(state.message);
    }
    void operator()(const Listening &state) const
    {
        if (state.isSilent)
            effects.bottomText = effects.announcement = Texts::tr("No sound is coming in");
    }
    template <typename State>
    void operator()(const State &) const
    {}
};

std::optional<MediaItem> songForMatch(const MediaLibrary &library, const std::vector<MatchedMediaItem> &items)
{
    const auto first = [&items](auto isWanted) {
        const auto found = std::ranges::find_if(items, isWanted);
        return found == items.end() ? nullptr : &*found;
    };
    std::optional<MediaItem> song;
    if (const auto *item = first([](const MatchedMediaItem &it) { return hasText(it.catalogID); }))
        song = findLibrarySongByCatalogID(library, *item->catalogID);
    const auto *named =
        first([](const MatchedMediaItem &it) { return hasText(it.title) && hasText(it.artist); });
    if (!song && named)
        song = findLibrarySong(library, *named->title, *named->artist, std::nullopt);
    const auto *known = first([](const MatchedMediaItem &it) { return it.librarySong.has_value(); });
    if (!song && known)
        song = library.song(*known->librarySong);
    return song;
}

} // namespace

ShazamState stateForMatch(const MediaLibrary &library, const std::vector<MatchedMediaItem> &items)
{
    if (auto song = songForMatch(library, items))
        return MatchFound{*std::move(song)};
    return NoSongFound{items.empty() ? std::nullopt : std::optional(items.front())};
}

std::optional<StateEffects> effectsOf(const ShazamState &state)
{
    const std::optional<Row> &row = rows.at(state.index());
    if (!row)
        return std::nullopt;
    StateEffects effects{.kind = row->kind,
                         .haptic = row->haptic,
                         .topText = translated(row->topText),
                         .bottomText = translated(row->bottomText),
                         .announcement = translated(row->announcement),
                         .dismissAfter = row->dismissAfter};
    std::visit(Details{effects}, state);
    return effects;
}

} // namespace trackwise
