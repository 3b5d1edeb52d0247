// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/AddressOpener.h"

#include <QDBusConnection>
#include <QObject>

#include <functional>

namespace trackwise {

/// Opens addresses with the user's own programs: through the desktop portal, else with xdg-open. Whoever
/// wants to know of a refusal has the handler looked up first: a portal would ask the user to find a program,
/// and xdg-open would give the address to the browser.
class DesktopAddressOpener : public QObject, public AddressOpener
{
    Q_OBJECT

public:
    /// Asks the player that is playing to show its window; says whether there is one that can.
    using RaisePlayer = std::function<bool()>;

    explicit DesktopAddressOpener(RaisePlayer raisePlayingPlayer,
                                  const QDBusConnection &bus = QDBusConnection::sessionBus(),
                                  QObject *parent = nullptr);

    using AddressOpener::open;
    void open(const QUrl &address, std::function<void()> whenRefused) override;

private:
    void openMusic();
    void openAnywhere(const QUrl &address, const std::function<void()> &whenRefused);

    RaisePlayer m_raisePlayingPlayer;
    QDBusConnection m_bus;
};

} // namespace trackwise
