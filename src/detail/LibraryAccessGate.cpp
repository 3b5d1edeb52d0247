// SPDX-License-Identifier: GPL-3.0-or-later
#include "detail/LibraryAccessGate.h"

#include <QCoreApplication>
#include <QPointer>

namespace trackwise {

LibraryAccessGate::LibraryAccessGate(MediaLibrary &library, PresentAlert presentAlert, QObject *parent)
    : QObject(parent)
    , m_library(library)
    , m_presentAlert(std::move(presentAlert))
{}

void LibraryAccessGate::requestLibraryAccess(RefusalAlerts alerts, std::function<void(bool)> then)
{
    // The answer may come on any thread: the gate is looked at on the main thread only.
    m_library.requestAuthorization(
        [gate = QPointer(this), alerts, then = std::move(then)](LibraryAuthorizationStatus status) {
            QMetaObject::invokeMethod(
                QCoreApplication::instance(),
                [gate, alerts, then, status] {
                    if (!gate)
                        return;
                    gate->answer(status, alerts);
                    then(status == LibraryAuthorizationStatus::Authorized);
                },
                Qt::QueuedConnection);
        });
}

void LibraryAccessGate::answer(LibraryAuthorizationStatus status, RefusalAlerts alerts)
{
    if (alerts == RefusalAlerts::Silent)
        return;
    if (status == LibraryAuthorizationStatus::Denied)
        m_presentAlert(libraryAccessDenied());
    else if (status == LibraryAuthorizationStatus::Restricted)
        m_presentAlert(libraryAccessRestricted());
}

} // namespace trackwise
