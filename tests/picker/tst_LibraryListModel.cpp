// SPDX-License-Identifier: GPL-3.0-or-later
#include "picker/LibraryListModel.h"
#include "support/SyntheticLibrary.h"

#include <QAbstractItemModelTester>
#include <QSemaphore>
#include <QSignalSpy>
#include <QTest>
#include <QThreadPool>

#include <atomic>

using namespace trackwise;

class tst_LibraryListModel : public QObject
{
    Q_OBJECT

private:
    /// A list over @p library that is watched and loaded, under the model tester.
    struct Fixture
    {
        explicit Fixture(int songCount)
            : library(songCount)
        {
            QObject::connect(&library, &MediaLibrary::libraryDidChange, &list,
                             &LibraryListModel::libraryDidChange);
        }
        ~Fixture() { pool.waitForDone(); }
        [[nodiscard]] QString title(int row) const { return list.index(row).data().toString(); }
        [[nodiscard]] static QString titleOf(std::uint64_t id) { return SyntheticLibrary::titleOf({id}); }

        SyntheticLibrary library;
        QThreadPool pool;
        LibraryListModel list{library, pool, ListContent::Kind::Songs, nullptr};
        QAbstractItemModelTester tester{&list, QAbstractItemModelTester::FailureReportingMode::QtTest};
    };

private Q_SLOTS:
    void holdsOnlyTheRowsThatAreLookedAt()
    {
        Fixture f(100000);
        std::atomic<int> fetched = 0;
        f.library.beforeRows = [&](std::span<const PersistentID> ids) {
            fetched += static_cast<int>(ids.size());
        };
        f.list.setWatched(true);
        QTRY_COMPARE(f.list.count(), 100000);
        QCOMPARE(f.title(0), Fixture::titleOf(10)); // comes with the order
        QCOMPARE(f.title(50000), QString());
        QTRY_COMPARE(f.title(50000), Fixture::titleOf(500010));
        f.pool.waitForDone();
        QVERIFY2(fetched < 1000, qPrintable(QString::number(fetched)));
    }

    void fetchesTheRowsWhereALongFlickEnds()
    {
        Fixture f(100000);
        QSemaphore gate;
        f.list.setWatched(true);
        QTRY_COMPARE(f.list.count(), 100000);
        std::atomic<int> fetched = 0;
        f.library.beforeRows = [&](std::span<const PersistentID>) {
            gate.acquire();
            ++fetched;
        };
        for (int row = 1000; row < 90000; row += 50)
            QCOMPARE(f.title(row), QString());
        gate.release(1000000);
        QTRY_COMPARE(f.title(89950), Fixture::titleOf(899510));
        f.pool.waitForDone();
        QVERIFY2(fetched < 40, qPrintable(QString::number(fetched)));
    }

    void rowsComeAndGoWhileTheHighlightStaysOnItsSong()
    {
        Fixture f(1000);
        f.list.setWatched(true);
        QTRY_COMPARE(f.list.count(), 1000);
        f.list.highlight(500);
        QSignalSpy reset(&f.list, &QAbstractItemModel::modelReset);
        QSignalSpy inserted(&f.list, &QAbstractItemModel::rowsInserted);
        QSignalSpy removed(&f.list, &QAbstractItemModel::rowsRemoved);

        f.library.insert({15});
        QTRY_COMPARE(f.list.count(), 1001);
        QCOMPARE(inserted.size(), 1);
        QCOMPARE(inserted.at(0).at(1).toInt(), 1);
        QTRY_COMPARE(f.title(1), Fixture::titleOf(15));
        QCOMPARE(f.list.highlightedRow(), 501);

        f.library.remove({10});
        QTRY_COMPARE(f.list.count(), 1000);
        QCOMPARE(removed.size(), 1);
        QCOMPARE(f.list.highlightedRow(), 500);
        QCOMPARE(reset.size(), 0);

        f.library.remove({5010});
        QTRY_COMPARE(f.list.highlightedRow(), -1);
    }

    void manyChangesAtOnceComeInFewSignals()
    {
        Fixture f(1000);
        f.list.setWatched(true);
        QTRY_COMPARE(f.list.count(), 1000);
        f.list.setViewport(400, 410);
        f.list.setWatched(false);
        for (std::uint64_t id = 15; id < 9000; id += 10)
            f.library.insert({id});
        QSignalSpy inserted(&f.list, &QAbstractItemModel::rowsInserted);
        f.list.setWatched(true);
        QTRY_COMPARE(f.list.count(), 1899);
        QVERIFY(inserted.size() < 20);
        QTRY_COMPARE(f.title(801), Fixture::titleOf(4015));
    }

    void onlyTheLatestSearchCounts()
    {
        Fixture f(1000);
        QSemaphore gate;
        f.library.beforeSongs = [&](const SongScope &scope) {
            if (scope.searchText == QStringLiteral("000001"))
                gate.acquire(); // the slow one
        };
        const auto search = [&f](const QString &text) {
            f.list.show({.kind = SongScope::Kind::Matching, .searchText = text});
        };
        search(QStringLiteral("0000020"));
        QTRY_COMPARE(f.list.count(), 1);
        search(QStringLiteral("000001"));
        QCOMPARE(f.title(0), Fixture::titleOf(20)); // until others come
        search(QStringLiteral("0000030"));
        QTRY_COMPARE(f.title(0), Fixture::titleOf(30)); // does not wait for the slow one
        gate.release();
        f.pool.waitForDone();
        QCoreApplication::sendPostedEvents();
        QCoreApplication::processEvents();
        QCOMPARE(f.title(0), Fixture::titleOf(30));
        QVERIFY(!f.list.isWaiting());
    }

    void manyKeystrokesDoNotQueueUp()
    {
        Fixture f(100);
        QSemaphore gate;
        std::atomic<int> asked = 0;
        f.library.beforeSongs = [&](const SongScope &) {
            ++asked;
            gate.acquire();
        };
        for (int i = 0; i < 50; ++i)
            f.list.show({.kind = SongScope::Kind::Matching, .searchText = QString::number(i)});
        gate.release(1000);
        QTRY_VERIFY(!f.list.isWaiting());
        QCOMPARE(f.list.shownSearchText(), QStringLiteral("49"));
        QVERIFY(asked <= 4);
    }

    void knowsItsLetters()
    {
        Fixture f(260);
        f.list.setWatched(true);
        QTRY_COMPARE(f.list.sectionCount(), 26);
        QCOMPARE(f.list.sectionLabel(2), QStringLiteral("C"));
        QCOMPARE(f.list.firstRowOfSection(2), 20);
        QCOMPARE(f.list.index(19).data(LibraryListModel::SectionRole).toString(), QStringLiteral("B"));
        QVERIFY(f.list.index(20).data(LibraryListModel::StartsSectionRole).toBool());
        QVERIFY(!f.list.index(21).data(LibraryListModel::StartsSectionRole).toBool());
    }
};

QTEST_MAIN(tst_LibraryListModel)
#include "tst_LibraryListModel.moc"
