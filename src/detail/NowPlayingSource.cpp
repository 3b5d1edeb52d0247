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
    ask(showsAlerts, [this, showsAlerts, completion = std::move(completion)](const Answer &song) {
        take(song, showsAlerts, completion);
    });
}

void NowPlayingSource::selectSongOfStart()
{
    ask(false, [this](const Answer &song) {
        take(song, false, [this, song](bool shown) {
            if (!shown)
                m_unknownSongOfStart = song;
        });
    });
}

void NowPlayingSource::nowPlayingItemDidChange(bool isFollowed)
{
    const bool isAwaited = isSongOfStart(m_player.nowPlayingItem());
    m_unknownSongOfStart.reset();
    if (isFollowed || isAwaited)
        selectNowPlayingSong(false, {});
}

bool NowPlayingSource::isSongOfStart(const Answer &song) const
{
    return m_unknownSongOfStart && song && song->persistentID.isInLibrary() &&
           song->title == m_unknownSongOfStart->title && song->artist == m_unknownSongOfStart->artist;
}

void NowPlayingSource::dropSilentRequests()
{
    ++m_choices;
    ++m_requests;
    m_unknownSongOfStart.reset();
}

void NowPlayingSource::ask(bool showsAlerts, SystemMusicPlayer::AnswerHandler then)
{
    m_gate.requestLibraryAccess(
        showsAlerts ? RefusalAlerts::Shown : RefusalAlerts::Silent,
        [source = QPointer(this), showsAlerts, choices = m_choices, then = std::move(then)](bool authorized) {
            if (!source || !authorized)
                return;
            if (!showsAlerts) {
                if (choices == source->m_choices)
                    then(source->m_player.nowPlayingItem());
                return;
            }
            source->m_player.whenAnswered([source, request = ++source->m_requests, then](const Answer &song) {
                if (source && request == source->m_requests)
                    then(song);
            });
        });
}

void NowPlayingSource::take(const Answer &song, bool showsAlerts, const Completion &completion)
{
    if (song) {
        m_display(*song, showsAlerts, completion);
        return;
    }
    if (completion)
        completion(false);
    if (showsAlerts)
        m_presentAlert(noSongPlaying());
}

} // namespace trackwise
