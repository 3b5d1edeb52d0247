// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "detail/DetailAlerts.h"
#include "platform/MediaLibrary.h"

#include <QObject>

#include <functional>

namespace trackwise {

enum class RefusalAlerts { Shown, Silent };

/// The permission that every source of songs passes first. Main thread.
class LibraryAccessGate : public QObject
{
    Q_OBJECT

public:
    using PresentAlert = std::function<void(const AlertMessage &)>;

    LibraryAccessGate(MediaLibrary &library, PresentAlert presentAlert, QObject *parent = nullptr);

    /// Asks the device, shows the alert for a refusal unless told not to, then calls @p then with whether the
    /// library may be used. Nothing happens once the gate has gone.
    void requestLibraryAccess(RefusalAlerts alerts, std::function<void(bool authorized)> then);

private:
    void answer(LibraryAuthorizationStatus status, RefusalAlerts alerts);

    MediaLibrary &m_library;
    PresentAlert m_presentAlert;
};

} // namespace trackwise
