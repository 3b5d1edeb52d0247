// SPDX-License-Identifier: GPL-3.0-or-later
#include "device/library/LibraryFixture.h"
#include "device/library/store/SetAside.h"

#include <QFile>
#include <QSignalSpy>
#include <QTest>

using namespace Qt::StringLiterals;
using namespace trackwise;

class tst_LibraryTrouble : public QObject
{
    Q_OBJECT

private:
    static bool write(const QByteArray &path, const QByteArray &bytes)
    {
        QFile file(QFile::decodeName(path));
        return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size();
    }
    static QByteArray contents(const QByteArray &path)
    {
        QFile file(QFile::decodeName(path));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : "none"_ba;
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

        LibraryFixture other;
        QVERIFY(other.add(u"Two"_s, {}) != PersistentID{});
        QSignalSpy otherTold(&other.library().trouble(), &LibraryTrouble::didOccur);
        QFile::remove(QFile::decodeName(other.databasePath()));
        const Result<Done> written = other.store().recordSkip(id);
        QVERIFY(!written);
        QVERIFY(written.failure().detail.startsWith(QFile::decodeName(other.databasePath()) + u':'));
        QCOMPARE(written.failure().kind, FailureKind::Unreadable);
        other.library().scan().start();
        QTRY_COMPARE(otherTold.size(), 1);
        other.library().scan().start();
        QSignalSpy ended(&other.library().scan(), &ScanController::finished);
        QVERIFY(ended.wait());
        QCoreApplication::processEvents();
        QCOMPARE(otherTold.size(), 1);
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
        const QTemporaryDir folder;
        const QByteArray path = QFile::encodeName(folder.filePath(u"library.db"_s));
        for (const QByteArray &name : {path + ".damaged", path + ".damaged-2"}) {
            QVERIFY(write(path, "damaged " + name) && write(path + "-wal", "log"));
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
