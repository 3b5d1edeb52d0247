// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/RecognitionIndex.h"

namespace trackwise {

/// An index that says what it is told to say, and what it is asked for.
class ScriptedIndex : public RecognitionIndex
{
public:
    [[nodiscard]] RecognitionIndexState state() const override { return m_state; }
    void setPaused(bool isPaused) override { asked += isPaused ? u'p' : u'g'; }
    void rebuild() override { asked += u'r'; }
    void clear() override { asked += u'c'; }
    void report(const RecognitionIndexState &state)
    {
        m_state = state;
        Q_EMIT stateDidChange();
    }

    QString asked;

private:
    RecognitionIndexState m_state;
};

} // namespace trackwise
