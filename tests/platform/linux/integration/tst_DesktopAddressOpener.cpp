// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/linux/integration/DesktopAddressOpener.h"

#include <QDBusConnection>
#include <QDBusContext>
#include <QDBusObjectPath>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>
#include <QUrl>

using namespace trackwise;

namespace {

/// Takes web addresses and refuses files, as the desktop portal does.
class Portal : public QObject, protected QDBusContext
{
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.portal.OpenURI")

public:
    Portal()
    {
        m_bus.registerObject(QStringLiteral("/org/freedesktop/portal/desktop"), this,
                             QDBusConnection::ExportAllSlots);
        m_bus.registerService(QStringLiteral("org.freedesktop.portal.Desktop"));
    }

    QStringList opened;

public Q_SLOTS:
    QDBusObjectPath OpenURI(const QString &, const QString &address, const QVariantMap &)
    {
        if (address.startsWith(QLatin1StringView("file:")))
            sendErrorReply(QStringLiteral("org.freedesktop.portal.Error.InvalidArgument"), address);
        else
            opened << address;
        return QDBusObjectPath(QStringLiteral("/org/freedesktop/portal/desktop/request/1"));
    }

private:
    QDBusConnection m_bus =
        QDBusConnection::connectToBus(QDBusConnection::SessionBus, QStringLiteral("portal"));
};

} // namespace

/// The desktop's programs are small scripts that write down how they were called.
class tst_DesktopAddressOpener : public QObject
{
    Q_OBJECT

    QTemporaryDir m_folder;

    void writeFile(const QString &name, const QByteArray &text, bool isProgram = false)
    {
        QFile file(m_folder.filePath(name));
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write(text);
        if (isProgram)
            file.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    }
    void writeProgram(const QString &name, const QByteArray &body)
    {
        writeFile(name, "#!/bin/sh\n" + body + "\n", true);
    }
    [[nodiscard]] QByteArray log() const
    {
        QFile file(m_folder.filePath(QStringLiteral("log")));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }

private Q_SLOTS:
    void initTestCase()
    {
        qputenv("PATH", m_folder.path().toUtf8() + ":/usr/bin:/bin");
        qputenv("XDG_DATA_HOME", m_folder.path().toUtf8());
        qputenv("LOG", m_folder.filePath(QStringLiteral("log")).toUtf8());
        QVERIFY(QDir(m_folder.path()).mkpath(QStringLiteral("applications/org")));
        writeFile(QStringLiteral("applications/org/player.desktop"), "[Desktop Entry]\n");
        for (const char *name : {"xdg-open", "gio", "gtk-launch"})
            writeProgram(QString::fromLatin1(name), QByteArray("[ /proc/self/fd/2 -ef /dev/null ] && echo ") +
                                                        name +
                                                        " \"$@\" >> \"$LOG\""); // ours is not its terminal
    }
    // Not sooner: the thread of the bus would look at the portal while that goes.
    void cleanup() { QDBusConnection::disconnectFromBus(QStringLiteral("portal")); }
    void init() { QFile::remove(m_folder.filePath(QStringLiteral("log"))); }

    void asksThePortalAndElseTheDesktop()
    {
        DesktopAddressOpener opener({});
        const Portal portal;
        opener.open(QUrl(QStringLiteral("https://example.org/a?b=c d")));
        QTRY_COMPARE(portal.opened, QStringList(QStringLiteral("https://example.org/a?b=c%20d")));
        QCOMPARE(log(), QByteArray());
        opener.open(QUrl(QStringLiteral("file:///tmp/x")));
        QTRY_COMPARE(log(), QByteArray("xdg-open file:///tmp/x\n"));
        opener.open(QUrl(QStringLiteral("relative")));
    }

    void doesWithoutABus()
    {
        DesktopAddressOpener opener({}, QDBusConnection(QStringLiteral("no such bus")));
        opener.open(QUrl(QStringLiteral("mailto:a@example.org?subject=x&body=y%0Az")));
        QTRY_COMPARE(log(), QByteArray("xdg-open mailto:a@example.org?subject=x&body=y%0Az\n"));
    }

    void raisesThePlayerThatPlays()
    {
        int raised = 0;
        DesktopAddressOpener opener([&raised] { return ++raised > 0; });
        opener.open(QUrl(QStringLiteral("music://")));
        QCOMPARE(raised, 1);
    }

    void startsTheDefaultMusicApplication_data()
    {
        QTest::addColumn<QByteArray>("answer");
        QTest::addColumn<QByteArray>("started");
        const QByteArray folder = m_folder.path().toUtf8();
        QTest::newRow("handler of music addresses")
            << QByteArray("[ \"$3\" = x-scheme-handler/music ] && echo org-player.desktop")
            << QByteArray("gio launch " + folder + "/applications/org/player.desktop\n");
        QTest::newRow("handler of music files, not installed properly")
            << QByteArray("[ \"$3\" = audio/mpeg ] && echo other.desktop")
            << QByteArray("gtk-launch other.desktop\n");
    }
    void startsTheDefaultMusicApplication()
    {
        QFETCH(QByteArray, answer);
        QFETCH(QByteArray, started);
        writeProgram(QStringLiteral("xdg-mime"), answer);
        DesktopAddressOpener opener([] { return false; });
        opener.open(QUrl(QStringLiteral("music://")));
        QTRY_COMPARE(log(), started);
    }
};

QTEST_GUILESS_MAIN(tst_DesktopAddressOpener)
#include "tst_DesktopAddressOpener.moc"
