// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/LibraryScan.h"

namespace trackwise {

/// A scan that says what it is told to say.
class ScriptedScan : public LibraryScan
{
public:
    void start() override { ++started; }
    void lookForChanges() override { ++looked; }
    void cancel() override { report({}); }
    [[nodiscard]] ScanProgress progress() const override { return m_progress; }
    void report(const ScanProgress &progress)
    {
        m_progress = progress;
        Q_EMIT progressDidChange();
    }

    int started = 0;
    int looked = 0;

private:
    ScanProgress m_progress;
};

} // namespace trackwise
