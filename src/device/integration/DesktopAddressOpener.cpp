// SPDX-License-Identifier: GPL-3.0-or-later
#include "device/integration/DesktopAddressOpener.h"

#include "device/bus/PortalRequest.h"
#include "device/integration/DefaultHandler.h"
#include "device/integration/DefaultMusicApplication.h"
#include "device/integration/DetachedProgram.h"

#include <QDesktopServices>

namespace trackwise {

namespace {

void openWithoutPortal(const QUrl &address, const std::function<void()> &whenRefused)
{
    if (!startDetached(QStringLiteral("xdg-open"), {address.toString(QUrl::FullyEncoded)}) &&
        !QDesktopServices::openUrl(address) && whenRefused)
        whenRefused();
}

} // namespace

DesktopAddressOpener::DesktopAddressOpener(RaisePlayer raisePlayingPlayer, const QDBusConnection &bus,
                                           QObject *parent)
    : QObject(parent)
    , m_raisePlayingPlayer(std::move(raisePlayingPlayer))
    , m_bus(bus)
{}

void DesktopAddressOpener::open(const QUrl &address, std::function<void()> whenRefused)
{
    if (!address.isValid() || address.isRelative())
        return;
    if (address.scheme() == QLatin1StringView("music")) {
        openMusic();
        return;
    }
    if (!whenRefused) {
        openAnywhere(address, {});
        return;
    }
    findDefaultHandler(QStringLiteral("x-scheme-handler/") + address.scheme(), this,
                       [this, address, whenRefused = std::move(whenRefused)](const auto &handler) {
                           if (handler && handler->isEmpty())
                               whenRefused();
                           else
                               openAnywhere(address, whenRefused);
                       });
}

void DesktopAddressOpener::openMusic()
{
    if (!m_raisePlayingPlayer || !m_raisePlayingPlayer())
        startDefaultMusicApplication(this);
}

void DesktopAddressOpener::openAnywhere(const QUrl &address, const std::function<void()> &whenRefused)
{
    if (!m_bus.isConnected()) {
        openWithoutPortal(address, whenRefused);
        return;
    }
    PortalRequest::make(m_bus, QStringLiteral("org.freedesktop.portal.OpenURI"), QStringLiteral("OpenURI"),
                        {QString() /* no parent window */, address.toString(QUrl::FullyEncoded)}, {}, this,
                        [address, whenRefused](PortalEnd end) {
                            if (end == PortalEnd::NotTaken) // no portal, or one that refuses such addresses
                                openWithoutPortal(address, whenRefused);
                            else if (end == PortalEnd::Failed && whenRefused)
                                whenRefused();
                        });
}

} // namespace trackwise
