// SPDX-License-Identifier: GPL-3.0-or-later
#include "device/integration/SystemTimeZone.h"
#include "support/Test.h"

#include <QSignalSpy>
#include <QTemporaryDir>

class tst_SystemTimeZone : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    // The environment stands in for the link, which is the system's.
    void followsWhatReplacesTheLink()
    {
        const QTemporaryDir folder;
        const auto replaceLink = [&](const char *zone) {
            qputenv("TZ", zone);
            return QFile::link(u"/nowhere"_s, folder.filePath(QString::fromLatin1(zone).mid(5)));
        };
        qputenv("TZ", "Europe/Berlin");
        const SystemTimeZone system(folder.path());
        QSignalSpy changes(&system, &SystemTimeZone::zoneDidChange);
        QVERIFY(replaceLink("Asia/Tokyo"));
        QTRY_COMPARE(system.zone().id(), "Asia/Tokyo"_ba);
        QVERIFY(QFile::remove(folder.filePath(u"Tokyo"_s))); // something else in the folder
        QVERIFY(replaceLink("Asia/Seoul"));
        QTRY_COMPARE(system.zone().id(), "Asia/Seoul"_ba);
        QCOMPARE(changes.size(), 2);
    }
};

QTEST_GUILESS_MAIN(tst_SystemTimeZone)
#include "tst_SystemTimeZone.moc"
