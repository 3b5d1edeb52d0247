// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/MailComposer.h"

#include <QDBusConnection>
#include <QObject>

namespace trackwise {

/// Composes mail with the program that the desktop portal chooses (org.freedesktop.portal.Email, versions 1
/// to 4). Main thread.
class PortalMailComposer : public QObject, public MailComposer
{
    Q_OBJECT

public:
    explicit PortalMailComposer(const QDBusConnection &bus = QDBusConnection::sessionBus(),
                                QObject *parent = nullptr);

    /// Unavailable is also a portal that cannot find a mail program.
    void compose(const MailMessage &message, std::function<void()> whenUnavailable) override;

private:
    void request(const MailMessage &message, uint version, const std::function<void()> &whenUnavailable);

    QDBusConnection m_bus;
};

} // namespace trackwise
