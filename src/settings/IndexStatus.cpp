// SPDX-License-Identifier: GPL-3.0-or-later
#include "settings/IndexStatus.h"

#include <QLocale>

namespace trackwise {

using Activity = RecognitionIndexState::Activity;

IndexStatus::IndexStatus(RecognitionIndex &index, QObject *parent)
    : QObject(parent)
    , m_index(index)
    , m_state(index.state())
{
    connect(&index, &RecognitionIndex::stateDidChange, this, [this] {
        m_state = m_index.state();
        Q_EMIT changed();
    });
}

QString IndexStatus::text() const
{
    const QLocale locale;
    const QString songs = tr("%1 of %2 songs can be recognized (%3)")
                              .arg(locale.toString(m_state.songsDone), locale.toString(m_state.songsTotal),
                                   locale.formattedDataSize(m_state.bytes, 1).replace(u' ', QChar::Nbsp));
    QStringList lines{songs, activity()};
    if (m_state.hasMissed)
        lines << tr("What was not recognized just now may be among the songs that are left.");
    lines.removeAll(QString());
    return lines.join(u'\n');
}

QString IndexStatus::activity() const
{
    switch (m_state.activity) {
    case Activity::Idle:
        return {};
    case Activity::Working:
        return tr("Listening to music: %1 left")
            .arg(QLocale().toString(m_state.songsTotal - m_state.songsDone));
    case Activity::Paused:
        return tr("Paused");
    case Activity::SavingPower:
        return tr("Paused: saving power");
    case Activity::Unavailable:
        return tr("Not possible at the moment");
    }
    Q_UNREACHABLE();
}

bool IndexStatus::isPaused() const
{
    return m_state.activity == Activity::Paused;
}

} // namespace trackwise
