// SPDX-License-Identifier: GPL-3.0-or-later
#include "device/integration/NetworkHttpClient.h"
#include "device/integration/WebServer.h"
#include "support/Test.h"

#include <QNetworkDiskCache>
#include <QSslCertificate>
#include <QSslKey>
#include <QTcpSocket>
#include <QTemporaryDir>
#include <QTimer>

#include <optional>

class tst_NetworkHttpClient : public QObject
{
    Q_OBJECT

    QTemporaryDir m_folder;
    QSslConfiguration m_serverTls;
    QSslConfiguration m_trusting;

    static void sayOk(QTcpSocket &socket, const QByteArray &) { WebServer::reply(socket, "200 OK", "ok"); }
    [[nodiscard]] Result<QByteArray> fetch(NetworkHttpClient &client, const QUrl &address,
                                           std::chrono::milliseconds timeout = 5s)
    {
        std::optional<Result<QByteArray>> answer;
        client.get(address, timeout, this,
                   [&answer](Result<QByteArray> reply) { answer = std::move(reply); });
        if (answer)
            qFatal("the answer came before the call had returned");
        if (!QTest::qWaitFor([&answer] { return answer.has_value(); }, 10'000))
            qFatal("no answer at all");
        return *answer;
    }

private Q_SLOTS:
    void initTestCase()
    {
        m_serverTls = selfSigned(m_folder.path());
        QVERIFY(!m_serverTls.privateKey().isNull());
        m_trusting = QSslConfiguration::defaultConfiguration();
        m_trusting.setCaCertificates(m_serverTls.localCertificateChain());
    }

    void givesTheBodyWhateverTheStatusAndSendsNoCookies()
    {
        const std::pair<QByteArray, QByteArray> answers[]{
            {"200 OK", "{\"results\":[]}"},
            {"200 OK", ""},
            {"200 OK\r\nContent-Type: image/png", QByteArray("\0\1\2", 3)},
            {"200 OK", QByteArray(1 << 20, 'x')}, // as large as allowed
            {"400 Bad Request", "{}"},            // the ends of what Qt tells apart
            {"403 Forbidden", "no"},
            {"451 Unavailable For Legal Reasons", "<html>"},
            {"500 Internal Server Error", "oh"},
            {"502 Bad Gateway", "gone"},
            {"200 OK", QByteArray((1 << 20) + 1, 'x')}}; // larger
        const WebServer server(
            [&](QTcpSocket &socket, const QByteArray &path) {
                const auto &[status, body] = answers[path.mid(1).toInt()];
                WebServer::reply(socket, status + "\r\nSet-Cookie: a=b", body);
            },
            m_serverTls);
        NetworkHttpClient client({}, m_trusting);
        const qsizetype larger = std::ssize(answers) - 1;
        QCOMPARE(fetch(client, server.address(u"/%1"_s.arg(larger))).failure().kind,
                 FailureKind::Unsupported);
        for (qsizetype i = 0; i < larger; ++i) {
            const auto answer = fetch(client, server.address(u"/%1"_s.arg(i)));
            QVERIFY2(answer && *answer == answers[i].second, answers[i].first);
            const QByteArray request = server.requests().last();
            QVERIFY2(!request.toLower().contains("cookie") && request.contains("User-Agent: Trackwise"),
                     request);
        }
    }

    void keepsWhatMayBeKept()
    {
        const QByteArray kept(1'000'000, 'x');
        const WebServer server(
            [&kept](QTcpSocket &socket, const QByteArray &path) {
                WebServer::reply(socket, "200 OK\r\nCache-Control: " + path.mid(1), kept);
            },
            m_serverTls);
        const QTemporaryDir cache;
        for (const auto &[control, expected] :
             {std::pair("max-age=60", 1), std::pair("no-store", 2), std::pair("no-cache", 2)}) {
            const auto before = server.requests().size();
            for (int i = 0; i < 2; ++i) {
                NetworkHttpClient client(cache.path(), m_trusting);
                QCOMPARE(*fetch(client, server.address(u'/' + QLatin1StringView(control))), kept);
            }
            QCOMPARE(server.requests().size() - before, expected);
        }
        NetworkHttpClient client(cache.path(), m_trusting);
        for (int i = 0; i < 5; ++i)
            QVERIFY(fetch(client, server.address(u"/max-age=6%1"_s.arg(i))));
        QNetworkDiskCache files;
        files.setCacheDirectory(cache.path());
        QVERIFY(files.cacheSize() > 1 << 20 && files.cacheSize() <= 2 << 20);
    }

    void waitsForALateAnswerButNotForeverNorTakesAHalf()
    {
        const WebServer server(
            [](QTcpSocket &socket, const QByteArray &path) {
                if (path == "/late")
                    QTimer::singleShot(200ms, &socket, [&socket] { sayOk(socket, {}); });
                else if (path != "/never")
                    socket.write("HTTP/1.1 200 OK\r\nContent-Length: 9\r\n\r\nhalf");
                if (path == "/cut")
                    socket.disconnectFromHost();
            },
            m_serverTls);
        NetworkHttpClient client({}, m_trusting);
        QCOMPARE(*fetch(client, server.address(u"/late"_s)), "ok"_ba);
        for (const QUrl &address : {server.address(u"/never"_s), server.address(u"/half"_s),
                                    server.address(u"/cut"_s), QUrl(u"https://127.0.0.1:1/"_s)})
            QCOMPARE(fetch(client, address, 150ms).failure().kind, FailureKind::Unavailable);
    }

    void breaksOffWhatIsTooLarge()
    {
        qint64 sent = 0;
        constexpr qint64 whole = 100'000'000;
        const WebServer server(
            [&sent](QTcpSocket &socket, const QByteArray &) {
                // Said to be endless, so that only counting helps.
                socket.write("HTTP/1.1 200 OK\r\nConnection: close\r\n\r\n");
                auto *pump = new QTimer(&socket);
                connect(pump, &QTimer::timeout, &socket, [&socket, &sent] {
                    if (sent < whole && socket.bytesToWrite() < 1'000'000)
                        sent += socket.write(QByteArray(100'000, 'x'));
                });
                pump->start(0);
            },
            m_serverTls);
        NetworkHttpClient client({}, m_trusting);
        QCOMPARE(fetch(client, server.address(u"/"_s)).failure().kind, FailureKind::Unsupported);
        QVERIFY2(sent < whole / 2, qPrintable(QString::number(sent)));
    }

    void followsRedirectsToHttpsOnly()
    {
        const WebServer plain(sayOk);
        QByteArray target;
        const auto answer = [&target](QTcpSocket &socket, const QByteArray &path) {
            if (path == "/end")
                sayOk(socket, path);
            else
                WebServer::reply(
                    socket, "301 Moved Permanently\r\nCache-Control: max-age=60\r\nLocation: " + target, "");
        };
        const WebServer server(answer, m_serverTls);
        const WebServer downwards(answer);
        const QTemporaryDir cache;
        NetworkHttpClient client(cache.path(), m_trusting);
        int number = 0;
        // The second time the redirect comes out of the cache.
        const auto fetchTwice = [&](const WebServer &from) {
            const QUrl address = from.address(u"/%1"_s.arg(++number));
            const auto first = fetch(client, address);
            return std::pair(first, fetch(client, address));
        };

        for (const QByteArray &good : {"/end"_ba, server.address(u"/end"_s).toEncoded()}) {
            target = good;
            const auto [first, second] = fetchTwice(server);
            QVERIFY(first && second);
            QCOMPARE(*first + *second, "okok"_ba);
        }
        for (const QByteArray &bad :
             {plain.address(u"/"_s).toEncoded(), QUrl::fromLocalFile(u"/etc/hostname"_s).toEncoded(),
              "ftp://127.0.0.1/x"_ba, "data:text/plain,x"_ba, "qrc:/x"_ba, "/again"_ba}) {
            target = bad;
            const auto [first, second] = fetchTwice(server);
            QVERIFY2(!first && !second, bad);
        }
        target = plain.address(u"/"_s).toEncoded();
        const auto [first, second] = fetchTwice(downwards);
        QVERIFY(!first && !second); // not even from HTTP
        QVERIFY(plain.requests().isEmpty());
    }

    void refusesWhomItCannotTrust()
    {
        const WebServer server(sayOk, m_serverTls);
        NetworkHttpClient client;
        QCOMPARE(fetch(client, server.address(u"/"_s)).failure().kind, FailureKind::Unavailable);
        QVERIFY(server.requests().isEmpty());
        for (const QUrl &address :
             {QUrl(u"http://example.org/"_s), QUrl::fromLocalFile(u"/etc/hostname"_s), QUrl()})
            QCOMPARE(fetch(client, address).failure().kind, FailureKind::Unsupported);
    }

    void answersWhoeverIsThereEvenAfterItsOwnEnd()
    {
        int closed = 0;
        const WebServer server(
            [&closed](QTcpSocket &socket, const QByteArray &) {
                connect(&socket, &QTcpSocket::disconnected, &socket, [&closed] { ++closed; });
            },
            m_serverTls);
        std::optional<Result<QByteArray>> answer;
        {
            NetworkHttpClient client({}, m_trusting);
            {
                QObject receiver;
                client.get(server.address(u"/"_s), 60s, &receiver,
                           [](const Result<QByteArray> &) { qFatal("called for nobody"); });
                client.get(server.address(u"/"_s), 2s, this,
                           [&answer](Result<QByteArray> reply) { answer = std::move(reply); });
                QTRY_COMPARE(server.requests().size(), 2);
            }
            QTRY_COMPARE_WITH_TIMEOUT(closed, 1, 1000); // nobody waits for it
            QVERIFY(!answer);
        }
        QTRY_VERIFY(answer.has_value());
        QVERIFY(!*answer);
    }
};

QTEST_GUILESS_MAIN(tst_NetworkHttpClient)
#include "tst_NetworkHttpClient.moc"
