// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/AddressOpener.h"

#include <QDBusConnection>
#include <QObject>

#include <functional>

namespace trackwise {

/// Opens addresses with the user's own programs: through the desktop portal, else with xdg-open.
class DesktopAddressOpener : public QObject, public AddressOpener
{
    Q_OBJECT

public:
    /// Asks the player that is playing to show its window; says whether there is one that can.
    using RaisePlayer = std::function<bool()>;

    explicit DesktopAddressOpener(RaisePlayer raisePlayingPlayer,
                                  const QDBusConnection &bus = QDBusConnection::sessionBus(),
                                  QObject *parent = nullptr);

    void open(const QUrl &address) override;

private:
    void openMusic();
    void openThroughPortal(const QUrl &address);

    RaisePlayer m_raisePlayingPlayer;
    QDBusConnection m_bus;
};

} // namespace trackwise
