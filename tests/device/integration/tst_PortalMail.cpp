// SPDX-License-Identifier: GPL-3.0-or-later
#include "device/integration/PortalMailComposer.h"
#include "support/Test.h"

#include <QDBusConnection>
#include <QDBusContext>
#include <QDBusMessage>
#include <QDBusObjectPath>

#include <memory>

namespace {

const QString portalPath = u"/org/freedesktop/portal/desktop"_s;

/// Takes requests and responds to them as it is told, on a connection of its own.
class Portal : public QObject, protected QDBusContext
{
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.portal.Email")
    Q_PROPERTY(uint version MEMBER version)

public:
    explicit Portal(uint of)
        : version(of)
    {
        m_bus.registerObject(portalPath, this,
                             QDBusConnection::ExportAllSlots | QDBusConnection::ExportAllProperties);
        m_bus.registerService(u"org.freedesktop.portal.Desktop"_s);
    }
    ~Portal() override { QDBusConnection::disconnectFromBus(m_bus.name()); }

    void respond(uint response)
    {
        QDBusMessage signal =
            QDBusMessage::createSignal(m_request, u"org.freedesktop.portal.Request"_s, u"Response"_s);
        m_bus.send(signal << response << QVariantMap());
    }

    uint version;
    bool refuses = false;
    bool choosesPath = false;
    std::optional<uint> immediateResponse; ///< before the call is answered
    QVariantMap options;
    int calls = 0;

public Q_SLOTS:
    QDBusObjectPath ComposeEmail(const QString &, const QVariantMap &given)
    {
        options = given;
        ++calls;
        if (refuses)
            sendErrorReply(u"org.freedesktop.portal.Error.NotAllowed"_s);
        QString sender = message().service().mid(1);
        m_request = choosesPath ? portalPath + u"/request/own"_s
                                : portalPath + u"/request/"_s + sender.replace(u'.', u'_') + u'/' +
                                      given.value(u"handle_token"_s).toString();
        if (immediateResponse)
            respond(*immediateResponse);
        return QDBusObjectPath(m_request);
    }

private:
    QDBusConnection m_bus = QDBusConnection::connectToBus(QDBusConnection::SessionBus, u"portal"_s);
    QString m_request;
};

const MailMessage mail{u"a@example.org"_s, u"Subject"_s, u"\n\nBody ⁃"_s};

} // namespace

class tst_PortalMail : public QObject
{
    Q_OBJECT

    int m_unavailable = 0;

    void compose(PortalMailComposer &composer)
    {
        composer.compose(mail, [this] { ++m_unavailable; });
    }

private Q_SLOTS:
    void init() { m_unavailable = 0; }

    void givesTheMessageAsTheVersionTakesIt()
    {
        for (const uint version : {1U, 2U, 3U, 4U}) {
            Portal portal(version);
            PortalMailComposer composer;
            compose(composer);
            QTRY_VERIFY(!portal.options.isEmpty());
            QVERIFY(portal.options.remove(u"handle_token"_s));
            QVariantMap expected{{u"subject"_s, mail.subject}, {u"body"_s, mail.body}};
            expected.insert(version < 3 ? QVariantMap{{u"address"_s, mail.recipient}}
                                        : QVariantMap{{u"addresses"_s, QStringList(mail.recipient)}});
            QCOMPARE(portal.options, expected);
            portal.respond(0);
        }
        QCOMPARE(m_unavailable, 0);
    }

    void saysWhereNothingComposes()
    {
        PortalMailComposer composer;
        compose(composer); // no service
        QTRY_COMPARE(m_unavailable, 1);
        PortalMailComposer withoutBus(QDBusConnection(u"no such bus"_s));
        compose(withoutBus);
        QTRY_COMPARE(m_unavailable, 2);
        Portal portal(3);
        portal.refuses = true;
        compose(composer);
        QTRY_COMPARE(m_unavailable, 3);
        portal.refuses = false;
        portal.immediateResponse = 2; // no mail program
        compose(composer);
        QTRY_COMPARE(m_unavailable, 4);
        for (const uint fine : {0U, 1U}) { // sent, and thrown away by the user
            portal.immediateResponse = fine;
            compose(composer);
            QTRY_COMPARE(portal.calls, 3 + static_cast<int>(fine));
        }
        portal.immediateResponse.reset();
        portal.choosesPath = true;
        compose(composer);
        QTRY_COMPARE(portal.calls, 5);
        QTRY_VERIFY((portal.respond(2), m_unavailable == 5)); // once that path is known
        portal.version = 0; // the interface is there, but says nothing of use
        compose(composer);
        QTRY_COMPARE(m_unavailable, 6);
    }
};

QTEST_GUILESS_MAIN(tst_PortalMail)
#include "tst_PortalMail.moc"
