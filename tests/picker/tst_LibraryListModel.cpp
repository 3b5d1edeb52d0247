// SPDX-License-Identifier: GPL-3.0-or-later
#include "picker/LibraryListModel.h"
#include "support/SyntheticLibrary.h"
#include "support/Test.h"

#include <QAbstractItemModelTester>
#include <QSemaphore>
#include <QSignalSpy>
#include <QThreadPool>

#include <algorithm>
#include <atomic>
#include <mutex>
#include <set>
#include <utility>

class tst_LibraryListModel : public QObject
{
    Q_OBJECT

private:
    /// A list over @p library that is watched and loaded, under the model tester.
    struct Fixture
    {
        /// Shows the songs, except where nothing is shown yet.
        explicit Fixture(int songCount, bool isShown = true)
            : library(songCount)
        {
            QObject::connect(&library, &MediaLibrary::libraryDidChange, &list,
                             &LibraryListModel::libraryDidChange);
            list.setWatched(isShown);
            if (!QTest::qWaitFor([this, isShown] { return list.isLoaded() == isShown; }))
                qFatal("the songs were never listed");
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
        Fixture f(100000, false);
        std::mutex mutex;
        std::set<std::uint64_t> firstRows; // of what was asked for
        f.library.beforeRows = [&](std::span<const PersistentID> ids) {
            const std::lock_guard lock(mutex);
            firstRows.insert(ids.front().value / 10 - 1);
        };
        const auto fetched = [&] {
            f.pool.waitForDone();
            return std::exchange(firstRows, {});
        };
        f.list.setWatched(true);
        QTRY_COMPARE(f.list.count(), 100000);
        QCOMPARE(f.title(0), Fixture::titleOf(10)); // comes with the order
        QCOMPARE(fetched(), std::set<std::uint64_t>{0});
        constexpr int page = 640; // its first row
        QCOMPARE(f.title(page + 30), QString());
        QTRY_COMPARE(f.title(page + 30), Fixture::titleOf(6710));
        QCOMPARE(fetched(), std::set<std::uint64_t>{page}); // amid the page
        (void)f.title(page + 20);
        (void)f.title(page + 43);
        QCOMPARE(fetched(), std::set<std::uint64_t>{});
        (void)f.title(page + 19); // a screenful from its edges the next ones come too
        QCOMPARE(fetched(), std::set<std::uint64_t>{page - 64});
        (void)f.title(page + 44);
        QCOMPARE(fetched(), std::set<std::uint64_t>{page + 64});
        f.library.insert({5}); // with which rows that are there may look different
        QTRY_COMPARE(f.list.count(), 100001);
        (void)fetched();
        QCOMPARE(f.title(page + 30), Fixture::titleOf(6700));
        QCOMPARE(fetched(), std::set<std::uint64_t>{page - 1});
    }

    void fetchesTheRowsWhereALongFlickEnds()
    {
        Fixture f(100000);
        QSemaphore gate;
        std::mutex mutex;
        std::vector<std::uint64_t> fetched; // the first of each page, in turn
        f.library.beforeRows = [&](std::span<const PersistentID> ids) {
            gate.acquire();
            const std::lock_guard lock(mutex);
            fetched.push_back(ids.front().value);
        };
        for (int row = 1000; row < 90000; row += 50)
            QCOMPARE(f.title(row), QString());
        (void)f.title(89750); // is looked at again: the first of those that wait
        gate.release(1000000);
        QTRY_COMPARE(f.title(89950), Fixture::titleOf(899510));
        f.pool.waitForDone();
        QVERIFY2(fetched.size() < 40, qPrintable(QString::number(fetched.size())));
        const auto turn = std::ranges::find(fetched, 10 * (89750 / 64 * 64 + 1)) - fetched.begin();
        QVERIFY(turn == 2 || turn == 3); // after the two that were under way
    }

    void rowsComeAndGoWhileTheHighlightStaysOnItsSong()
    {
        Fixture f(1000);
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
        Fixture f(1000, false);
        QSemaphore gate;
        f.library.beforeSongs = [&](const SongScope &scope) {
            if (scope.searchText == u"000001"_s)
                gate.acquire(); // the slow one
        };
        const auto search = [&f](const QString &text) {
            f.list.show({.kind = SongScope::Kind::Matching, .searchText = text});
        };
        search(u"0000020"_s);
        QTRY_COMPARE(f.list.count(), 1);
        search(u"000001"_s);
        QCOMPARE(f.title(0), Fixture::titleOf(20)); // until others come
        search(u"0000030"_s);
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
        Fixture f(100, false);
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
        QCOMPARE(f.list.shownSearchText(), u"49"_s);
        const int needed = asked;
        QVERIFY(needed <= 4);
        f.list.show({.kind = SongScope::Kind::Matching, .searchText = u"49"_s}); // is there already
        f.pool.waitForDone();
        QCOMPARE(asked.load(), needed);
    }

    void knowsItsLetters()
    {
        Fixture f(260);
        QCOMPARE(f.list.sectionCount(), 26);
        QCOMPARE(f.list.sectionLabel(0) + f.list.sectionLabel(25), u"AZ"_s);
        QCOMPARE(f.list.sectionLabel(-1) + f.list.sectionLabel(26), QString());
        QCOMPARE(f.list.firstRowOfSection(2), 20);
        QCOMPARE(f.list.firstRowOfSection(-1) + f.list.firstRowOfSection(26), 0);
        QCOMPARE(f.list.indexLabels(3).join(u' '), u"A • Z"_s);
        const auto at = [&f](int row, int role) { return f.list.index(row).data(role); };
        QCOMPARE(at(19, LibraryListModel::SectionRole).toString(), u"B"_s);
        QVERIFY(at(20, LibraryListModel::StartsSectionRole).toBool());
        QVERIFY(!at(21, LibraryListModel::StartsSectionRole).toBool());
        QVERIFY(!at(0, Qt::DecorationRole).isValid() &&
                !at(0, LibraryListModel::StartsSectionRole + 1).isValid());
    }

    void theHighlightStaysWithinTheList()
    {
        Fixture f(100);
        connect(&f.list, &LibraryListModel::viewportWanted, this, [&f] { f.list.setViewport(5, 14); });
        QSignalSpy moves(&f.list, &LibraryListModel::highlightDidMove);
        const QSignalSpy changes(&f.list, &LibraryListModel::highlightedRowChanged);
        const auto after = [&](int rows) {
            f.list.moveHighlight(rows);
            return f.list.highlightedRow();
        };
        QCOMPARE(after(1), 5); // the first in view
        QCOMPARE(after(-20), 0);
        QCOMPARE(after(-1), 0);
        QCOMPARE(after(500), 99);
        f.list.highlight(-1);
        QCOMPARE(after(-1), 14); // the last in view
        QCOMPARE(moves.size(), 5);
        QCOMPARE(changes.size(), 5); // not the third time
        QCOMPARE(f.list.rowsInView(), 9);
        f.list.clear();
        QCOMPARE(f.list.highlightedRow(), -1);
        QCOMPARE(after(1), -1); // there is none
    }
};

QTEST_MAIN(tst_LibraryListModel)
#include "tst_LibraryListModel.moc"
