// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "device/integration/DesktopApplication.h"

#include <QDBusAbstractAdaptor>
#include <QVariantMap>

namespace trackwise {

/// org.freedesktop.Application, as others on the bus see it.
class DesktopApplicationAdaptor : public QDBusAbstractAdaptor
{
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.Application")

public:
    explicit DesktopApplicationAdaptor(DesktopApplication &application)
        : QDBusAbstractAdaptor(&application)
        , m_application(application)
    {}

public Q_SLOTS:
    void Activate(const QVariantMap &platformData);
    void Open(const QStringList &uris, const QVariantMap &platformData);
    void ActivateAction(const QString &name, const QVariantList &parameter, const QVariantMap &platformData);

private:
    DesktopApplication &m_application;
};

} // namespace trackwise
