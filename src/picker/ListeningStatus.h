// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/RecognitionIndex.h"

#include <QtQml/qqmlregistration.h>

namespace trackwise {

/// How far the library is known by its sound, in words, while there is much to be listened to. Main thread.
class ListeningStatus : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Made by the picker")

    Q_PROPERTY(bool isShown READ isShown NOTIFY changed)
    Q_PROPERTY(double fraction READ fraction NOTIFY changed)
    Q_PROPERTY(QString text READ text NOTIFY changed)
    Q_PROPERTY(QString activity READ activity NOTIFY changed)
    Q_PROPERTY(QString commandTitle READ commandTitle NOTIFY changed)
    Q_PROPERTY(QString commandSymbol READ commandSymbol NOTIFY changed)

public:
    ListeningStatus(RecognitionIndex &index, QObject *parent);

    /// Not of some songs that were added just now, which takes seconds, nor of a pause that was made earlier.
    [[nodiscard]] bool isShown() const { return m_isShown; }
    /// Of the songs, 0 to 1.
    [[nodiscard]] double fraction() const;
    [[nodiscard]] QString text() const;
    /// What it is for, or why it does not go on.
    [[nodiscard]] QString activity() const;
    /// Pauses, or goes on.
    [[nodiscard]] QString commandTitle() const;
    [[nodiscard]] QString commandSymbol() const;
    Q_INVOKABLE void carryOut() { m_index.setPaused(!isPaused()); }
    /// Call each time the picker is about to be shown.
    void prepare();

Q_SIGNALS:
    void changed();

private:
    [[nodiscard]] bool isPaused() const;
    void update();

    RecognitionIndex &m_index;
    RecognitionIndexState m_state;
    bool m_isShown = false;
};

} // namespace trackwise
