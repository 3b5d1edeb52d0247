// SPDX-License-Identifier: GPL-3.0-or-later
#include "detail/LinkDrop.h"

#include "lookup/CatalogLookup.h"
#include "lookup/ListedLibrary.h"
#include "support/WebDouble.h"

#include <QTest>
#include <QThreadPool>

#include <memory>

using namespace trackwise;

namespace {

QByteArray replyWith(const char *title)
{
    return QByteArray(R"({"results":[{"kind":"song","trackName":")") + title +
           R"(","artistName":"Band","collectionName":"Album"}]})";
}

QString link(const char *identifier)
{
    return QStringLiteral("https://catalog.example.com/album/1?i=") + QString::fromLatin1(identifier);
}

const QString notFound = QStringLiteral("Song Not Found: This doesn't seem to be ");
const QString accessIs = QStringLiteral("No Music Access: Trackwise does not ");
const QString failedLookUp =
    QStringLiteral("Failed to Look Up Song: You can try to find it via Select Song.");

} // namespace

class tst_LinkDrop : public QObject
{
    Q_OBJECT

    ListedLibrary m_library;
    WebDouble m_web;
    CatalogLookup m_catalog{m_web,
                            {QStringLiteral("https://lookup.example"), QStringLiteral("catalog.example")}};
    QThreadPool m_pool;
    std::unique_ptr<LinkDrop> m_drop;
    QStringList m_events;

private Q_SLOTS:
    void init()
    {
        m_library.status = LibraryAuthorizationStatus::Authorized;
        m_library.list.clear();
        m_library.add(1, "First", "Band", "Album", "100");
        m_library.add(2, "Second", "The Band", "Album");
        m_library.add(0, "Elsewhere", "Band", "Album", "300");
        m_web.requests.clear();
        m_events.clear();
        LinkDrop::Actions actions{
            .presentAlert =
                [this](const AlertMessage &alert) {
                    m_events << alert.title + QStringLiteral(": ") + alert.message +
                                    (alert.includesOpenMusic ? QStringLiteral(" [Open Music]") : QString()) +
                                    (alert.includesOpenSettings ? QStringLiteral(" [Open Settings]")
                                                                : QString());
                },
            .showLibrarySong =
                [this](const MediaItem &song) { m_events << QStringLiteral("show ") + *song.title; },
            .displayCatalogSong =
                [this](const MediaItem &song) { m_events << QStringLiteral("display ") + *song.title; }};
        m_drop = std::make_unique<LinkDrop>(m_library, m_catalog, m_pool, std::move(actions));
    }

    void endsWithoutTheCatalog_data()
    {
        using Status = LibraryAuthorizationStatus;
        QTest::addColumn<QStringList>("addresses");
        QTest::addColumn<LibraryAuthorizationStatus>("status");
        QTest::addColumn<QString>("event");
        QTest::newRow("nothing") << QStringList() << Status::Authorized
                                 << notFound + QStringLiteral("an Apple Music song.");
        QTest::newRow("elsewhere, before any question")
            << QStringList{QStringLiteral("https://x.org?i=1")} << Status::Denied
            << notFound + QStringLiteral("an Apple Music song.");
        QTest::newRow("album") << QStringList{QStringLiteral("https://catalog.example.com/album/1")}
                               << Status::Authorized << notFound + QStringLiteral("a valid song.");
        QTest::newRow("denied")
            << QStringList{link("100")} << Status::Denied
            << accessIs +
                   QStringLiteral(
                       "currently have access to your music library. Please turn on Media & Apple Music "
                       "access in the Settings app. [Open Settings]");
        QTest::newRow("restricted")
            << QStringList{link("100")} << Status::Restricted
            << accessIs + QStringLiteral(
                              "have access to your music library due to restrictions enabled on your device. "
                              "[Open Settings]");
        QTest::newRow("in the library")
            << QStringList{link("100")} << Status::Authorized << QStringLiteral("show First");
        QTest::newRow("known, but not added")
            << QStringList{link("300")} << Status::Authorized
            << QStringLiteral(
                   "Song Not Added to Library: This song needs to be added to your Music Library to "
                   "access its information. You can do this in the Music app. [Open Music]");
    }
    void endsWithoutTheCatalog()
    {
        QFETCH(QStringList, addresses);
        QFETCH(QString, event);
        QFETCH(LibraryAuthorizationStatus, status);
        m_library.status = status;
        m_drop->handleDroppedURLs(addresses);
        QTRY_COMPARE(m_events, QStringList(event));
        QVERIFY(m_web.requests.empty());
    }

    void saysNothingWhenNothingIsDecided()
    {
        m_library.status = LibraryAuthorizationStatus::NotDetermined;
        m_drop->handleDroppedURLs({link("100")});
        QVERIFY(QThreadPool::globalInstance()->waitForDone());
        QCoreApplication::processEvents();
        QVERIFY(m_pool.waitForDone());
        QCoreApplication::processEvents();
        QCOMPARE(m_events, QStringList());
    }

    void asksTheCatalog_data()
    {
        QTest::addColumn<bool>("arrives");
        QTest::addColumn<QByteArray>("reply");
        QTest::addColumn<QString>("event");
        QTest::newRow("in the library by its names")
            << true << replyWith("First") << QStringLiteral("display First");
        QTest::newRow("another spelling of the artist")
            << true << replyWith("Second") << QStringLiteral("display Second");
        QTest::newRow("not in the library")
            << true << replyWith("Third")
            << QStringLiteral(
                   "Couldn't Find Song: Songs do need to be added to your library to get their info. If "
                   "this song isn't in your library, add it then try again.");
        QTest::newRow("junk") << true << QByteArray("<html>") << failedLookUp;
        QTest::newRow("no reply")
            << false << QByteArray()
            << QStringLiteral(
                   "Failed to Load Song: Please check your internet connection and try again. Or you can "
                   "find it via Select Song without an internet connection.");
    }
    void asksTheCatalog()
    {
        QFETCH(bool, arrives);
        QFETCH(QByteArray, reply);
        QFETCH(QString, event);
        m_drop->handleDroppedURLs({link("200")});
        QTRY_COMPARE(m_web.requests.size(), 1u);
        QCOMPARE(m_web.requests.front().address,
                 QUrl(QStringLiteral("https://lookup.example/lookup?id=200&entity=musicTrack")));
        QCOMPARE(m_web.requests.front().timeout, std::chrono::milliseconds(60'000));
        if (arrives)
            m_web.answer(0, reply);
        else
            m_web.answer(0, Failure{FailureKind::Unavailable, {}});
        QTRY_COMPARE(m_events, QStringList(event));
    }

    void twoDropsAreTwoChains()
    {
        m_drop->handleDroppedURLs({link("201")});
        QTRY_COMPARE(m_web.requests.size(), 1u);
        m_drop->handleDroppedURLs({link("202")});
        QTRY_COMPARE(m_web.requests.size(), 2u);
        m_web.answer(1, replyWith("Second"));
        QTRY_COMPARE(m_events.size(), 1);
        m_web.answer(0, replyWith("First"));
        QTRY_COMPARE(m_events,
                     QStringList({QStringLiteral("display Second"), QStringLiteral("display First")}));
    }

    void endsInSilenceWhenItsWindowHasGone()
    {
        m_drop->handleDroppedURLs({link("200")});
        QTRY_COMPARE(m_web.requests.size(), 1u);
        m_drop->handleDroppedURLs({link("100")}); // still on its way through the threads
        m_web.answer(0, replyWith("First"));
        m_drop.reset();
        m_web.answer(0, replyWith("First"));
        QVERIFY(QThreadPool::globalInstance()->waitForDone());
        QCoreApplication::processEvents();
        QVERIFY(m_pool.waitForDone());
        QCoreApplication::processEvents();
        QCOMPARE(m_events, QStringList());
    }
};

QTEST_GUILESS_MAIN(tst_LinkDrop)
#include "tst_LinkDrop.moc"
