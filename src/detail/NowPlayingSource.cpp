// SPDX-License-Identifier: GPL-3.0-or-later
#include "detail/NowPlayingSource.h"

#include <QPointer>

#include <utility>

namespace trackwise {

NowPlayingSource::NowPlayingSource(SystemMusicPlayer &player, LibraryAccessGate &gate, Display display,
                                   LibraryAccessGate::PresentAlert presentAlert, QObject *parent)
    : QObject(parent)
    , m_player(player)
    , m_gate(gate)
    , m_display(std::move(display))
    , m_presentAlert(std::move(presentAlert))
{}

void NowPlayingSource::selectNowPlayingSong(bool showsAlerts, Completion completion)
{
    m_gate.requestLibraryAccess(showsAlerts ? RefusalAlerts::Shown : RefusalAlerts::Silent,
                                [source = QPointer(this), showsAlerts, choices = m_choices,
                                 completion = std::move(completion)](bool authorized) {
                                    NowPlayingSource *self = source;
                                    if (!self || !authorized)
                                        return;
                                    if (showsAlerts)
                                        self->takeAnswer(completion);
                                    else if (choices == self->m_choices)
                                        self->take(false, completion);
                                });
}

void NowPlayingSource::selectSongOfStart()
{
    selectNowPlayingSong(false, [this](bool shown) {
        if (!shown)
            m_unknownSongOfStart = m_player.nowPlayingItem();
    });
}

bool NowPlayingSource::stopWaitingForSongOfStart()
{
    const auto awaited = std::exchange(m_unknownSongOfStart, std::nullopt);
    const std::optional<MediaItem> now = m_player.nowPlayingItem();
    return awaited && now && now->persistentID.isInLibrary() && now->title == awaited->title &&
           now->artist == awaited->artist;
}

void NowPlayingSource::dropSilentRequests()
{
    ++m_choices;
    ++m_requests;
    m_unknownSongOfStart.reset();
}

void NowPlayingSource::takeAnswer(const Completion &completion)
{
    m_player.whenAnswered([source = QPointer(this), request = ++m_requests, completion] {
        if (source && request == source->m_requests)
            source->take(true, completion);
    });
}

void NowPlayingSource::take(bool showsAlerts, const Completion &completion)
{
    if (const std::optional<MediaItem> song = m_player.nowPlayingItem()) {
        m_display(*song, showsAlerts, completion);
        return;
    }
    if (completion)
        completion(false);
    if (showsAlerts)
        m_presentAlert(noSongPlaying());
}

} // namespace trackwise
