// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/Result.h"

#include <QObject>

#include <atomic>

namespace trackwise {

/// Tells once that the database is damaged or gone, however many questions fail because of it.
class LibraryTrouble : public QObject
{
    Q_OBJECT

public:
    using QObject::QObject;

    /// Any thread. What passes by itself or by making room (Busy, NoSpace, Cancelled) is no such trouble.
    void report(const Failure &failure);

Q_SIGNALS:
    /// Sent on the main thread.
    void didOccur(const trackwise::Failure &failure);

private:
    std::atomic_flag m_isTold;
};

} // namespace trackwise
