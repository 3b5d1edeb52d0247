// SPDX-License-Identifier: GPL-3.0-or-later
#include "device/integration/DesktopAddressOpener.h"

#include "device/bus/BusCalls.h"
#include "device/integration/DefaultMusicApplication.h"
#include "device/integration/DetachedProgram.h"

#include <QDesktopServices>

namespace trackwise {

namespace {

// Starting a portal that sleeps takes a second or two; one that says nothing for longer will not.
constexpr int portalPatienceMs = 10'000;

void openWithoutPortal(const QUrl &address)
{
    if (!startDetached(QStringLiteral("xdg-open"), {address.toString(QUrl::FullyEncoded)}))
        QDesktopServices::openUrl(address);
}

} // namespace

DesktopAddressOpener::DesktopAddressOpener(RaisePlayer raisePlayingPlayer, const QDBusConnection &bus,
                                           QObject *parent)
    : QObject(parent)
    , m_raisePlayingPlayer(std::move(raisePlayingPlayer))
    , m_bus(bus)
{}

void DesktopAddressOpener::open(const QUrl &address)
{
    if (!address.isValid() || address.isRelative())
        return;
    if (address.scheme() == QLatin1StringView("music"))
        openMusic();
    else if (m_bus.isConnected())
        openThroughPortal(address);
    else
        openWithoutPortal(address);
}

void DesktopAddressOpener::openMusic()
{
    if (!m_raisePlayingPlayer || !m_raisePlayingPlayer())
        startDefaultMusicApplication(this);
}

void DesktopAddressOpener::openThroughPortal(const QUrl &address)
{
    QDBusMessage call = QDBusMessage::createMethodCall(
        QStringLiteral("org.freedesktop.portal.Desktop"), QStringLiteral("/org/freedesktop/portal/desktop"),
        QStringLiteral("org.freedesktop.portal.OpenURI"), QStringLiteral("OpenURI"));
    call << QString() /* no parent window */ << address.toString(QUrl::FullyEncoded) << QVariantMap();
    whenReplied(m_bus.asyncCall(call, portalPatienceMs), this, [address](const QDBusMessage &reply) {
        if (reply.type() == QDBusMessage::ErrorMessage) // no portal, or one that refuses this kind of address
            openWithoutPortal(address);
    });
}

} // namespace trackwise
