// SPDX-License-Identifier: GPL-3.0-or-later
#include "device/integration/DesktopAddressOpener.h"
#include "support/Files.h"
#include "support/Test.h"

#include <QDBusConnection>
#include <QDBusContext>
#include <QDBusMessage>
#include <QDBusObjectPath>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QUrl>

namespace {

/// Takes web addresses and refuses files, as the desktop portal does.
class Portal : public QObject, protected QDBusContext
{
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.portal.OpenURI")

public:
    Portal()
    {
        m_bus.registerObject(u"/org/freedesktop/portal/desktop"_s, this, QDBusConnection::ExportAllSlots);
        m_bus.registerService(u"org.freedesktop.portal.Desktop"_s);
    }

    QStringList opened;
    uint response = 0;

public Q_SLOTS:
    QDBusObjectPath OpenURI(const QString &, const QString &address, const QVariantMap &options)
    {
        if (address.startsWith(QLatin1StringView("file:")))
            sendErrorReply(u"org.freedesktop.portal.Error.InvalidArgument"_s, address);
        else
            opened << address;
        QString sender = message().service().mid(1);
        const QString request = u"/org/freedesktop/portal/desktop/request/"_s + sender.replace(u'.', u'_') +
                                u'/' + options.value(u"handle_token"_s).toString();
        QDBusMessage signal =
            QDBusMessage::createSignal(request, u"org.freedesktop.portal.Request"_s, u"Response"_s);
        m_bus.send(signal << response << QVariantMap());
        return QDBusObjectPath(request);
    }

private:
    QDBusConnection m_bus = QDBusConnection::connectToBus(QDBusConnection::SessionBus, u"portal"_s);
};

} // namespace

/// The desktop's programs are small scripts that write down how they were called.
class tst_DesktopAddressOpener : public QObject
{
    Q_OBJECT

    QTemporaryDir m_folder;

    void writeProgram(const QString &name, const QByteArray &body) const
    {
        writeFile(m_folder.filePath(name), "#!/bin/sh\n" + body + '\n');
        QFile::setPermissions(m_folder.filePath(name),
                              QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    }
    [[nodiscard]] QByteArray log() const { return contentsOf(m_folder.filePath(u"log"_s)); }

private Q_SLOTS:
    void initTestCase()
    {
        qputenv("PATH", m_folder.path().toUtf8() + ":/usr/bin:/bin");
        qputenv("XDG_DATA_HOME", m_folder.path().toUtf8());
        qputenv("LOG", m_folder.filePath(u"log"_s).toUtf8());
        QVERIFY(QDir(m_folder.path()).mkpath(u"applications/org"_s));
        writeProgram(u"applications/org/player.desktop"_s, {}); // only looked for
        for (const char *name : {"xdg-open", "gio", "gtk-launch"})
            writeProgram(QString::fromLatin1(name), // our terminal is not its own
                         "for fd in 0 1 2; do [ /proc/self/fd/$fd -ef /dev/null ] || exit; done; echo "_ba +
                             name + " \"$@\" >> \"$LOG\"");
    }
    // Not sooner: the thread of the bus would look at the portal while that goes.
    void cleanup() { QDBusConnection::disconnectFromBus(u"portal"_s); }
    void init() { QFile::remove(m_folder.filePath(u"log"_s)); }

    void asksThePortalAndElseTheDesktop()
    {
        DesktopAddressOpener opener({});
        const Portal portal;
        for (const auto &address : {u"relative"_s, u"https://["_s, u"https://example.org/a?b=c d"_s})
            opener.open(QUrl(address));
        QTRY_COMPARE(portal.opened, QStringList(u"https://example.org/a?b=c%20d"_s));
        QCOMPARE(log(), QByteArray());
        opener.open(QUrl(u"file:///tmp/x"_s));
        QTRY_COMPARE(log(), "xdg-open file:///tmp/x\n"_ba);
    }

    void saysWhereNoProgramTakesTheAddress()
    {
        DesktopAddressOpener opener({});
        Portal portal;
        int refusals = 0;
        const auto open = [&] { opener.open(QUrl(u"store://a"_s), [&] { ++refusals; }); };
        writeProgram(u"xdg-mime"_s, ":"); // knows none
        open();
        QTRY_COMPARE(refusals, 1);
        QCOMPARE(portal.opened, QStringList()); // nobody is asked to find a program
        writeProgram(u"xdg-mime"_s, "[ \"$3\" = x-scheme-handler/store ] && echo store.desktop");
        open();
        QTRY_COMPARE(portal.opened.size(), 1);
        portal.response = 1; // the user has thought better of it
        open();
        QTRY_COMPARE(portal.opened.size(), 2);
        portal.response = 2;
        open();
        QTRY_COMPARE(refusals, 2);
        DesktopAddressOpener withoutBus({}, QDBusConnection(u"no such bus"_s));
        withoutBus.open(QUrl(u"store://a"_s), [&] { ++refusals; });
        QTRY_COMPARE(log(), "xdg-open store://a\n"_ba);
        QCOMPARE(refusals, 2);
    }

    void doesWithoutABus()
    {
        DesktopAddressOpener opener({}, QDBusConnection(u"no such bus"_s));
        opener.open(QUrl(u"mailto:a@example.org?subject=x&body=y%0Az"_s));
        QTRY_COMPARE(log(), "xdg-open mailto:a@example.org?subject=x&body=y%0Az\n"_ba);
    }

    void raisesThePlayerThatPlaysOrStartsTheDefaultApplication()
    {
        bool isPlaying = true;
        DesktopAddressOpener opener([&isPlaying] { return std::exchange(isPlaying, false); });
        opener.open(QUrl(u"music://"_s));
        QVERIFY(!isPlaying);
        writeProgram(u"xdg-mime"_s,
                     "[ \"$3\" = x-scheme-handler/music ] && printf 'org-player.desktop\nanother\n'");
        opener.open(QUrl(u"music://"_s));
        QByteArray expected = "gio launch " + m_folder.path().toUtf8() + "/applications/org/player.desktop\n";
        QTRY_COMPARE(log(), expected); // and nothing when the player was raised
        // A handler of music files that is not installed properly.
        writeProgram(u"xdg-mime"_s, "[ \"$3\" = audio/mpeg ] && echo other.desktop");
        DesktopAddressOpener ofNoPlayer({});
        ofNoPlayer.open(QUrl(u"music://"_s));
        QTRY_COMPARE(log(), expected + "gtk-launch other.desktop\n");
    }
};

QTEST_GUILESS_MAIN(tst_DesktopAddressOpener)
#include "tst_DesktopAddressOpener.moc"
