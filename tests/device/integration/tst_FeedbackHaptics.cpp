// SPDX-License-Identifier: GPL-3.0-or-later
#include "device/integration/FeedbackHaptics.h"
#include "support/Test.h"

#include <QStringList>

namespace {

/// A feedback daemon that writes down what it is asked for, on a connection of its own.
class Daemon : public QObject
{
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.sigxcpu.Feedback")

public:
    explicit Daemon(QDBusConnection bus)
    {
        bus.registerObject(u"/org/sigxcpu/Feedback"_s, this, QDBusConnection::ExportAllSlots);
        bus.registerService(u"org.sigxcpu.Feedback"_s);
    }
    QStringList asked;

public Q_SLOTS:
    uint TriggerFeedback(const QString &app, const QString &event, const QVariantMap &hints, int timeout)
    {
        asked << u"%1 %2 %3 %4"_s.arg(app, event, hints.value(u"profile"_s).toString()).arg(timeout);
        return 1;
    }
};

} // namespace

class tst_FeedbackHaptics : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void asksTheDaemonForWhatCanBeFelt()
    {
        FeedbackHaptics haptics(u"org.example.App"_s, QDBusConnection::sessionBus());
        haptics.notify(HapticNotification::Success); // nobody is there
        {
            Daemon daemon(QDBusConnection::connectToBus(QDBusConnection::SessionBus, u"daemon"_s));
            for (int i = 0; i < 3; ++i)
                haptics.prepare();
            for (const auto notification :
                 {HapticNotification::Success, HapticNotification::Warning, HapticNotification::Error})
                haptics.notify(notification);
            QTRY_COMPARE(daemon.asked, (QStringList{u"org.example.App message-new-instant quiet -1"_s,
                                                    u"org.example.App message-missed-instant quiet -1"_s,
                                                    u"org.example.App bell-terminal quiet -1"_s}));
        }
        QDBusConnection::disconnectFromBus(u"daemon"_s);
    }
};

QTEST_GUILESS_MAIN(tst_FeedbackHaptics)
#include "tst_FeedbackHaptics.moc"
