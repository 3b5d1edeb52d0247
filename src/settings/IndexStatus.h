// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/RecognitionIndex.h"

#include <QtQml/qqmlregistration.h>

namespace trackwise {

/// How far the device knows the library by its sound, in words, and what the user may do about it. Main
/// thread.
class IndexStatus : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("made by the settings screen")
    Q_PROPERTY(QString text READ text NOTIFY changed)
    Q_PROPERTY(bool isPaused READ isPaused NOTIFY changed)
    Q_PROPERTY(bool isEmpty READ isEmpty NOTIFY changed)

public:
    /// @p index must outlive this object.
    explicit IndexStatus(RecognitionIndex &index, QObject *parent = nullptr);

    /// Lines: songs and their size, then what goes on, and what that means.
    [[nodiscard]] QString text() const;
    [[nodiscard]] bool isPaused() const;
    [[nodiscard]] bool isEmpty() const { return m_state.songsDone == 0; }

    Q_INVOKABLE void setPaused(bool isPaused) { m_index.setPaused(isPaused); }
    Q_INVOKABLE void rebuild() { m_index.rebuild(); }
    Q_INVOKABLE void clear() { m_index.clear(); }

Q_SIGNALS:
    void changed();

private:
    [[nodiscard]] QString activity() const;

    RecognitionIndex &m_index;
    RecognitionIndexState m_state;
};

} // namespace trackwise
