// SPDX-License-Identifier: GPL-3.0-or-later
#include "picker/ListeningStatus.h"

#include <QLocale>

namespace trackwise {

using Activity = RecognitionIndexState::Activity;

namespace {

/// So many songs are worth mentioning: two albums.
constexpr qsizetype manySongs = 25;

} // namespace

ListeningStatus::ListeningStatus(RecognitionIndex &index, QObject *parent)
    : QObject(parent)
    , m_index(index)
{
    connect(&index, &RecognitionIndex::stateDidChange, this, &ListeningStatus::update);
    update();
}

void ListeningStatus::prepare()
{
    m_isShown = false;
    update();
}

void ListeningStatus::update()
{
    m_state = m_index.state();
    const qsizetype left = m_state.songsTotal - m_state.songsDone;
    const bool isWorthMentioning = m_state.activity == Activity::Working && left >= manySongs;
    // Songs that cannot be read stay left over when all is done.
    const bool isUnderWay = m_state.activity != Activity::Idle && m_state.activity != Activity::Unavailable;
    m_isShown = (m_isShown || isWorthMentioning) && left > 0 && isUnderWay;
    Q_EMIT changed();
}

double ListeningStatus::fraction() const
{
    return m_state.songsTotal > 0 ? double(m_state.songsDone) / double(m_state.songsTotal) : 0;
}

QString ListeningStatus::text() const
{
    const QLocale locale;
    return tr("Listening to music: %1 of %2")
        .arg(locale.toString(m_state.songsDone), locale.toString(m_state.songsTotal));
}

QString ListeningStatus::activity() const
{
    if (isPaused())
        return tr("Paused");
    return m_state.activity == Activity::SavingPower ? tr("Paused: saving power")
                                                     : tr("So that it can be recognized");
}

QString ListeningStatus::commandTitle() const
{
    return isPaused() ? tr("Go On Listening to Music") : tr("Pause Listening to Music");
}

QString ListeningStatus::commandSymbol() const
{
    return isPaused() ? QStringLiteral("play.fill") : QStringLiteral("pause.fill");
}

bool ListeningStatus::isPaused() const
{
    return m_state.activity == Activity::Paused;
}

} // namespace trackwise
