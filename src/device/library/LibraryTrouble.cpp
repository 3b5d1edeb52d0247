// SPDX-License-Identifier: GPL-3.0-or-later
#include "device/library/LibraryTrouble.h"

namespace trackwise {

void LibraryTrouble::report(const Failure &failure)
{
    const bool stays = failure.kind == FailureKind::Malformed || failure.kind == FailureKind::Unreadable;
    if (!stays || m_isTold.test_and_set())
        return;
    QMetaObject::invokeMethod(
        this, [this, failure] { Q_EMIT didOccur(failure); }, Qt::QueuedConnection);
}

} // namespace trackwise
