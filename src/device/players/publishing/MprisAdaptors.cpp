// SPDX-License-Identifier: GPL-3.0-or-later
#include "device/players/publishing/MprisAdaptors.h"

#include <algorithm>

namespace trackwise {

using std::chrono::duration_cast;
using std::chrono::microseconds;
using std::chrono::milliseconds;

namespace {
qlonglong inMicroseconds(milliseconds time)
{
    return microseconds(time).count();
}
} // namespace

MprisRootAdaptor::MprisRootAdaptor(MprisPublisher &publisher)
    : QDBusAbstractAdaptor(&publisher)
    , m_publisher(publisher)
{}

void MprisRootAdaptor::Raise()
{
    if (canRaise())
        m_publisher.settings().raise();
}

void MprisRootAdaptor::Quit()
{
    if (canQuit())
        m_publisher.settings().quit();
}

MprisPlayerAdaptor::MprisPlayerAdaptor(MprisPublisher &publisher, ApplicationMusicPlayer &player)
    : QDBusAbstractAdaptor(&publisher)
    , m_publisher(publisher)
    , m_player(player)
{
    connect(&player, &ApplicationMusicPlayer::didSeek, this,
            [this](milliseconds position) { Q_EMIT Seeked(inMicroseconds(position)); });
}

void MprisPlayerAdaptor::setRate(double rate)
{
    if (rate == 0.0) // other speeds are not offered; this one stands for a pause
        m_player.pause();
}

qlonglong MprisPlayerAdaptor::position() const
{
    return inMicroseconds(m_player.position());
}

void MprisPlayerAdaptor::Next()
{
    if (canGoNext())
        m_player.skipToNextItem();
}

void MprisPlayerAdaptor::Previous()
{
    if (canGoPrevious())
        m_player.skipToPreviousItem();
}

void MprisPlayerAdaptor::PlayPause()
{
    if (m_player.playbackState() == PlaybackState::Playing)
        m_player.pause();
    else
        m_player.play();
}

void MprisPlayerAdaptor::Seek(qlonglong offset)
{
    if (!canSeek())
        return;
    // Bounded before the sum, which any program may try to overflow.
    const qlonglong length = inMicroseconds(m_player.duration());
    const qlonglong target = position() + std::clamp(offset, -length, length + 1);
    if (target > length)
        m_player.skipToNextItem();
    else
        m_player.seek(duration_cast<milliseconds>(microseconds(std::max(target, qlonglong(0)))));
}

void MprisPlayerAdaptor::SetPosition(const QDBusObjectPath &track, qlonglong position)
{
    if (canSeek() && m_publisher.isCurrentTrack(track.path()) && position >= 0 &&
        position <= inMicroseconds(m_player.duration()))
        m_player.seek(duration_cast<milliseconds>(microseconds(position)));
}

QVariant MprisPlayerAdaptor::value(const char *property) const
{
    return m_publisher.playerProperties().value(QLatin1String(property));
}

} // namespace trackwise
