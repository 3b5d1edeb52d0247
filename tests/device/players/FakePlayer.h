// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDBusConnection>
#include <QDBusVirtualObject>
#include <QVariantMap>

namespace trackwise {

/// A player on the session bus that says what it is told to, right or wrong, through a connection of its own.
class FakePlayer : public QDBusVirtualObject
{
public:
    enum class Manners {
        Answers,
        Hangs,   ///< never replies
        Fails,   ///< replies with errors
        Rambles, ///< replies with what nobody asked for
    };

    explicit FakePlayer(const QString &name, Manners manners = Manners::Answers);
    ~FakePlayer() override;

    [[nodiscard]] bool appear();
    void vanish();
    /// Changes properties without telling.
    void set(const QVariantMap &properties);
    /// Changes properties and tells.
    void change(const QVariantMap &properties);
    void invalidate(const QStringList &properties);
    void seekTo(qlonglong microseconds);
    /// Sends any arguments as a change of properties.
    void sendChange(const QVariantList &arguments);
    void setManners(Manners manners) { m_manners = manners; }

    [[nodiscard]] int reads() const { return m_reads; }
    [[nodiscard]] int raised() const { return m_raised; }

    [[nodiscard]] QString introspect(const QString &) const override { return {}; }
    bool handleMessage(const QDBusMessage &message, const QDBusConnection &bus) override;

private:
    QString m_name;
    Manners m_manners;
    QDBusConnection m_bus;
    QVariantMap m_properties;
    int m_reads = 0;
    int m_raised = 0;
};

/// The properties of a player that plays @p title by @p artist.
[[nodiscard]] QVariantMap playing(const QString &title, const QString &artist = {}, double seconds = 0,
                                  const QString &status = QStringLiteral("Playing"));

} // namespace trackwise
