// SPDX-License-Identifier: GPL-3.0-or-later
#include "device/library/LibraryFixture.h"
#include "device/library/store/SetAside.h"
#include "support/Files.h"
#include "support/Test.h"

#include <QFile>
#include <QSignalSpy>

class tst_LibraryTrouble : public QObject
{
    Q_OBJECT

private:
    static QByteArray contents(const QByteArray &path)
    {
        const QString name = QFile::decodeName(path);
        return QFile::exists(name) ? contentsOf(name) : "none"_ba;
    }

private Q_SLOTS:
    void isToldOnceForAllQuestions()
    {
        LibraryFixture fixture;
        const PersistentID id = fixture.add(u"One"_s, {});
        QSignalSpy told(&fixture.library().trouble(), &LibraryTrouble::didOccur);
        QVERIFY(!fixture.library().song(PersistentID{1})); // an answer
        QCoreApplication::processEvents();
        QCOMPARE(told.size(), 0);

        const QString path = QFile::decodeName(fixture.databasePath());
        QVERIFY(QFile::remove(path));
        const Result<Done> written = fixture.store().recordSkip(id);
        QVERIFY(!written && written.failure().detail.startsWith(path + u':'));
        QCOMPARE(written.failure().kind, FailureKind::Unreadable);
        QSignalSpy ended(&fixture.library().scan(), &ScanController::finished);
        for (int i = 0; i < 2; ++i) {
            fixture.library().scan().start();
            QVERIFY(ended.wait());
            QTRY_COMPARE(told.size(), 1);
        }
    }

    void distinguishesWhatPassesByItself()
    {
        for (const auto &[kind, times] :
             {std::pair(FailureKind::Malformed, 1), std::pair(FailureKind::Unreadable, 1),
              std::pair(FailureKind::Busy, 0), std::pair(FailureKind::NoSpace, 0),
              std::pair(FailureKind::Cancelled, 0)}) {
            LibraryTrouble trouble;
            QSignalSpy told(&trouble, &LibraryTrouble::didOccur);
            trouble.report({kind, {}});
            trouble.report({kind, {}});
            QCoreApplication::processEvents();
            QCOMPARE(told.size(), times);
        }
    }

    void setsADamagedDatabaseAside()
    {
        const WavFolder folder;
        const QByteArray path = folder.path("library.db");
        for (const QByteArray &name : {path + ".damaged", path + ".damaged-2"}) {
            folder.writeBytes("library.db", "damaged " + name);
            folder.writeBytes("library.db-wal", "log");
            QCOMPARE(*setDatabaseAside(path), name);
            QCOMPARE(contents(name), "damaged " + name);
            QCOMPARE(contents(name + "-wal"), "log"_ba);
            QCOMPARE(contents(path) + contents(path + "-wal"), "nonenone"_ba);
        }
        QCOMPARE(setDatabaseAside("/proc").failure().kind, FailureKind::NoSpace); // cannot be renamed
    }
};

QTEST_GUILESS_MAIN(tst_LibraryTrouble)
#include "tst_LibraryTrouble.moc"
