// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDBusConnection>
#include <QObject>
#include <QStringList>

#include <functional>
#include <vector>

namespace trackwise {

/// What the desktop, or a second start of the program, asks of the app that runs.
struct ApplicationRequests
{
    std::function<void()> activate;
    std::function<void(const QStringList &addresses)> open;
    std::function<void(const QString &name)> activateAction; ///< of the desktop entry
};

/// The app's place on the session bus: its name, and the interface org.freedesktop.Application. Whoever
/// starts first takes it; later starts hand over what they were asked for. Without a bus every start stands
/// alone. Main thread.
class DesktopApplication : public QObject
{
    Q_OBJECT

public:
    enum class Standing {
        Running,    ///< we are the app, with or without a bus
        HandedOver, ///< another one is, and has taken over what we were asked for
    };
    using Handler = std::function<void(Standing)>;

    /// @p appId is the name on the bus; the object's path is made of it.
    DesktopApplication(QString appId, const QDBusConnection &bus, QObject *parent = nullptr);
    ~DesktopApplication() override;

    /// What a start of the program is for; nothing: to be shown.
    struct Purpose
    {
        QStringList addresses; ///< to open
        QString action;        ///< of the desktop entry; instead of addresses
    };
    /// Takes the place, or else asks the one who has it to do what we were started for. @p handler is called
    /// once, later. An app that does not answer is not waited for long.
    void start(const Purpose &purpose, Handler handler);

    /// Who carries requests out. Those that came before are made at once.
    void setRequests(ApplicationRequests requests);
    /// For the object on the bus. A token in @p platformData lets our windows come to the front.
    void receive(std::function<void(const ApplicationRequests &)> request, const QVariantMap &platformData);

private:
    struct Received
    {
        std::function<void(const ApplicationRequests &)> request;
        QString activationToken;
    };

    [[nodiscard]] QString path() const;
    void handOver(const Purpose &purpose, const Handler &handler);
    [[nodiscard]] QDBusMessage requestFor(const Purpose &purpose) const;
    void carryOut(const Received &received) const;

    QString m_appId;
    QDBusConnection m_bus;
    ApplicationRequests m_requests;
    std::vector<Received> m_waiting; ///< for somebody to carry them out
};

} // namespace trackwise
