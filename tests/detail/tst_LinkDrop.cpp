// SPDX-License-Identifier: GPL-3.0-or-later
#include "detail/LinkDrop.h"

#include "lookup/CatalogLookup.h"
#include "lookup/ListedLibrary.h"
#include "support/WebDouble.h"

#include <QTest>
#include <QThreadPool>

#include <memory>

using namespace Qt::StringLiterals;
using namespace trackwise;

namespace {

QByteArray replyWith(const char *title)
{
    return QByteArray(R"({"results":[{"kind":"song","trackName":")") + title +
           R"(","artistName":"Band","collectionName":"Album"}]})";
}

QString link(const char *identifier)
{
    return u"https://catalog.example.com/album/1?i="_s + QLatin1String(identifier);
}

} // namespace

class tst_LinkDrop : public QObject
{
    Q_OBJECT

    ListedLibrary m_library;
    WebDouble m_web;
    CatalogLookup m_catalog{m_web, {u"https://lookup.example"_s, u"catalog.example"_s}};
    QThreadPool m_pool;
    std::unique_ptr<LinkDrop> m_drop;
    QStringList m_events;

    /// What happened, once nothing is on its way through the threads any more.
    QStringList takeEvents()
    {
        for (QThreadPool *pool : {QThreadPool::globalInstance(), &m_pool}) {
            pool->waitForDone();
            QCoreApplication::processEvents();
        }
        return std::exchange(m_events, {});
    }

private Q_SLOTS:
    void initTestCase()
    {
        m_library.add(1, "First", "Band", "Album", "100");
        m_library.add(2, "Second", "The Band", "Album");
        m_library.add(0, "Elsewhere", "Band", "Album", "300");
    }
    void init()
    {
        m_library.status = LibraryAuthorizationStatus::Authorized;
        m_web.requests.clear();
        LinkDrop::Actions actions{
            .presentAlert =
                [this](const AlertMessage &alert) {
                    m_events << alert.title + u": "_s + alert.message +
                                    (alert.includesOpenMusic ? u" [Open Music]"_s : QString()) +
                                    (alert.includesOpenSettings ? u" [Open Settings]"_s : QString());
                },
            .showLibrarySong = [this](const MediaItem &song) { m_events << u"show "_s + *song.title; },
            .displayCatalogSong = [this](const MediaItem &song) { m_events << u"display "_s + *song.title; }};
        m_drop = std::make_unique<LinkDrop>(m_library, m_catalog, m_pool, std::move(actions));
    }

    void endsWithoutTheCatalog()
    {
        using enum LibraryAuthorizationStatus;
        const std::tuple<QString, LibraryAuthorizationStatus, QString> rows[]{
            {u""_s, Authorized, u"Song Not Found: This doesn't seem to be an Apple Music song."_s},
            // Before any question.
            {u"https://x.org?i=1"_s, Denied,
             u"Song Not Found: This doesn't seem to be an Apple Music song."_s},
            {u"https://catalog.example.com/album/1"_s, Authorized,
             u"Song Not Found: This doesn't seem to be a valid song."_s},
            {link("100"), NotDetermined, u""_s},
            {link("100"), Denied,
             u"No Music Access: Trackwise does not currently have access to your music library. Please turn "
             "on Media & Apple Music access in the Settings app. [Open Settings]"_s},
            {link("100"), Restricted,
             u"No Music Access: Trackwise does not have access to your music library due to restrictions "
             "enabled on your device. [Open Settings]"_s},
            {link("100"), Authorized, u"show First"_s},
            {link("300"), Authorized,
             u"Song Not Added to Library: This song needs to be added to your Music Library to access its "
             "information. You can do this in the Music app. [Open Music]"_s},
        };
        for (const auto &[dropped, status, event] : rows) {
            m_library.status = status;
            m_drop->handleDroppedURLs({dropped});
            QCOMPARE(std::pair(dropped, takeEvents().join(u'\n')), std::pair(dropped, event));
            QVERIFY(m_web.requests.empty());
        }
    }

    void asksTheCatalog()
    {
        const std::pair<Result<QByteArray>, QString> rows[]{
            {replyWith("First"), u"display First"_s},
            {replyWith("Second"), u"display Second"_s}, // the artist is spelt otherwise
            {replyWith("Third"),
             u"Couldn't Find Song: Songs do need to be added to your library to get their info. If this song "
             "isn't in your library, add it then try again."_s},
            {QByteArray("<html>"), u"Failed to Look Up Song: You can try to find it via Select Song."_s},
            {Failure{FailureKind::NotFound, {}},
             u"Failed to Load Song: Please check your internet connection and try again. Or you can find it "
             "via Select Song without an internet connection."_s},
        };
        for (const auto &[reply, event] : rows) {
            m_web.requests.clear();
            m_drop->handleDroppedURLs({link("200")});
            QCOMPARE(takeEvents(), QStringList());
            QCOMPARE(m_web.requests.size(), 1u);
            QCOMPARE(m_web.requests.front().address,
                     QUrl(u"https://lookup.example/lookup?id=200&entity=musicTrack"_s));
            QCOMPARE(m_web.requests.front().timeout, std::chrono::milliseconds(60'000));
            m_web.answer(0, reply);
            QCOMPARE(takeEvents(), QStringList(event));
        }
    }

    void twoDropsAreTwoChains()
    {
        for (const char *identifier : {"201", "202"}) {
            m_drop->handleDroppedURLs({link(identifier)});
            QCOMPARE(takeEvents(), QStringList());
        }
        m_web.answer(1, replyWith("Second"));
        QCOMPARE(takeEvents(), QStringList(u"display Second"_s));
        m_web.answer(0, replyWith("First"));
        QCOMPARE(takeEvents(), QStringList(u"display First"_s));
    }

    void endsInSilenceWhenItsWindowHasGone()
    {
        m_drop->handleDroppedURLs({link("200")});
        QTRY_COMPARE(m_web.requests.size(), 1u);
        m_drop->handleDroppedURLs({link("100")}); // still on its way through the threads
        m_web.answer(0, replyWith("First"));
        m_drop.reset();
        m_web.answer(0, replyWith("First"));
        QCOMPARE(takeEvents(), QStringList());
    }
};

QTEST_GUILESS_MAIN(tst_LinkDrop)
#include "tst_LinkDrop.moc"
