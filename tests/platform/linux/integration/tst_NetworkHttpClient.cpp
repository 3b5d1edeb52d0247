// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/linux/integration/NetworkHttpClient.h"
#include "platform/linux/integration/WebServer.h"

#include <QSslCertificate>
#include <QSslKey>
#include <QTcpSocket>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>

#include <optional>

using namespace trackwise;
using namespace std::chrono_literals;

class tst_NetworkHttpClient : public QObject
{
    Q_OBJECT

    QTemporaryDir m_folder;
    QSslConfiguration m_serverTls;
    QSslConfiguration m_trusting;

    using Answer = std::optional<Result<QByteArray>>;

    [[nodiscard]] Answer fetch(NetworkHttpClient &client, const QUrl &address,
                               std::chrono::milliseconds timeout = 5s)
    {
        Answer answer;
        client.get(address, timeout, this,
                   [&answer](Result<QByteArray> reply) { answer = std::move(reply); });
        if (answer)
            qFatal("the answer came before the call had returned");
        if (!QTest::qWaitFor([&answer] { return answer.has_value(); }, 10'000))
            qFatal("no answer at all");
        return answer;
    }

private Q_SLOTS:
    void initTestCase()
    {
        m_serverTls = selfSigned(m_folder.path());
        QVERIFY(!m_serverTls.privateKey().isNull());
        m_trusting = QSslConfiguration::defaultConfiguration();
        m_trusting.setCaCertificates(m_serverTls.localCertificateChain());
    }

    void givesTheBodyWhateverTheStatus_data()
    {
        QTest::addColumn<QByteArray>("status");
        QTest::addColumn<QByteArray>("body");
        QTest::newRow("right") << QByteArray("200 OK") << QByteArray("{\"results\":[]}");
        QTest::newRow("empty") << QByteArray("200 OK") << QByteArray();
        QTest::newRow("junk") << QByteArray("200 OK\r\nContent-Type: image/png") << QByteArray("\0\1\2", 3);
        QTest::newRow("as large as allowed") << QByteArray("200 OK") << QByteArray(1 << 20, 'x');
        QTest::newRow("bad request") << QByteArray("400 Bad Request") << QByteArray("{}");
        QTest::newRow("not found") << QByteArray("404 Not Found") << QByteArray("<html>");
        QTest::newRow("too many requests") << QByteArray("429 Too Many Requests") << QByteArray("wait");
        QTest::newRow("out of order") << QByteArray("503 Service Unavailable") << QByteArray("later");
    }
    void givesTheBodyWhateverTheStatus()
    {
        QFETCH(QByteArray, status);
        QFETCH(QByteArray, body);
        const WebServer server(
            [&](QTcpSocket &socket, const QByteArray &) { WebServer::reply(socket, status, body); },
            m_serverTls);
        NetworkHttpClient client({}, m_trusting);
        const Answer answer = fetch(client, server.address(QStringLiteral("/x")));
        QVERIFY2(*answer, *answer ? "" : qPrintable(answer->failure().detail));
        QCOMPARE(**answer, body);
    }

    void keepsWhatMayBeKept_data()
    {
        QTest::addColumn<QByteArray>("cacheControl");
        QTest::addColumn<int>("requests");
        QTest::newRow("for a while") << QByteArray("max-age=60") << 1;
        QTest::newRow("not at all") << QByteArray("no-store") << 2;
        QTest::newRow("only after asking again") << QByteArray("no-cache") << 2;
    }
    void keepsWhatMayBeKept()
    {
        QFETCH(QByteArray, cacheControl);
        QFETCH(int, requests);
        const WebServer server(
            [&](QTcpSocket &socket, const QByteArray &) {
                WebServer::reply(socket, "200 OK\r\nCache-Control: " + cacheControl, "kept");
            },
            m_serverTls);
        const QTemporaryDir cache;
        for (int i = 0; i < 2; ++i) {
            NetworkHttpClient client(cache.path(), m_trusting);
            QCOMPARE(**fetch(client, server.address(QStringLiteral("/"))), QByteArray("kept"));
        }
        QCOMPARE(server.requests().size(), requests);
    }

    void sendsNoCookies()
    {
        const WebServer server(
            [](QTcpSocket &socket, const QByteArray &) {
                WebServer::reply(socket, "200 OK\r\nSet-Cookie: a=b", "x");
            },
            m_serverTls);
        NetworkHttpClient client({}, m_trusting);
        QVERIFY(*fetch(client, server.address(QStringLiteral("/1"))));
        QVERIFY(*fetch(client, server.address(QStringLiteral("/2"))));
        QCOMPARE(server.requests().size(), 2);
        for (const QByteArray &request : server.requests())
            QVERIFY2(!request.toLower().contains("cookie") && request.contains("User-Agent: Trackwise"),
                     request);
    }

    void waitsForALateAnswerButNotForever()
    {
        const WebServer server(
            [](QTcpSocket &socket, const QByteArray &path) {
                if (path == "/late")
                    QTimer::singleShot(200ms, &socket,
                                       [&socket] { WebServer::reply(socket, "200 OK", "late"); });
                else if (path == "/half")
                    socket.write("HTTP/1.1 200 OK\r\nContent-Length: 9\r\n\r\nhalf");
            },
            m_serverTls);
        NetworkHttpClient client({}, m_trusting);
        QCOMPARE(**fetch(client, server.address(QStringLiteral("/late"))), QByteArray("late"));
        for (const char *path : {"/never", "/half"}) {
            const Answer answer = fetch(client, server.address(QString::fromLatin1(path)), 150ms);
            QVERIFY(!*answer);
            QCOMPARE(answer->failure().kind, FailureKind::Unavailable);
        }
    }

    void failsWhereNothingWholeArrives()
    {
        const WebServer server(
            [](QTcpSocket &socket, const QByteArray &path) {
                if (path == "/half")
                    socket.write("HTTP/1.1 200 OK\r\nContent-Length: 9\r\n\r\nhalf");
                socket.disconnectFromHost();
            },
            m_serverTls);
        NetworkHttpClient client({}, m_trusting);
        QVERIFY(!*fetch(client, server.address(QStringLiteral("/half"))));
        QVERIFY(!*fetch(client, server.address(QStringLiteral("/none"))));
        QVERIFY(!*fetch(client, QUrl(QStringLiteral("https://127.0.0.1:1/"))));
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
        const Answer answer = fetch(client, server.address(QStringLiteral("/")));
        QVERIFY(!*answer);
        QCOMPARE(answer->failure().kind, FailureKind::Unsupported);
        QVERIFY2(sent < whole / 2, qPrintable(QString::number(sent)));
    }

    void followsRedirectsToHttpsOnly()
    {
        const WebServer plain(
            [](QTcpSocket &socket, const QByteArray &) { WebServer::reply(socket, "200 OK", "plain"); });
        QFile secret(m_folder.filePath(QStringLiteral("secret")));
        QVERIFY(secret.open(QIODevice::WriteOnly));
        secret.write("secret");
        secret.close();
        QByteArray target;
        const auto answer = [&target](QTcpSocket &socket, const QByteArray &path) {
            if (path == "/end")
                WebServer::reply(socket, "200 OK", "end");
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
            const QUrl address = from.address(QStringLiteral("/%1").arg(++number));
            const Answer first = fetch(client, address);
            const Answer second = fetch(client, address);
            return std::pair(*first, *second);
        };

        for (const QByteArray &good :
             {QByteArray("/end"), server.address(QStringLiteral("/end")).toEncoded()}) {
            target = good;
            const auto [first, second] = fetchTwice(server);
            QVERIFY(first && second);
            QCOMPARE(*first + *second, QByteArray("endend"));
        }
        for (const QByteArray &bad :
             {plain.address(QStringLiteral("/")).toEncoded(),
              QUrl::fromLocalFile(secret.fileName()).toEncoded(), QByteArray("ftp://127.0.0.1/x"),
              QByteArray("data:text/plain,x"), QByteArray("qrc:/x"), QByteArray("/again")}) {
            target = bad;
            const auto [first, second] = fetchTwice(server);
            QVERIFY2(!first && !second, bad);
        }
        target = plain.address(QStringLiteral("/")).toEncoded();
        const auto [first, second] = fetchTwice(downwards);
        QVERIFY(!first && !second); // not even from HTTP
        QVERIFY(plain.requests().isEmpty());
    }

    void refusesWhomItCannotTrust()
    {
        const WebServer server(
            [](QTcpSocket &socket, const QByteArray &) { WebServer::reply(socket, "200 OK", "x"); },
            m_serverTls);
        NetworkHttpClient client;
        QVERIFY(!*fetch(client, server.address(QStringLiteral("/"))));
        QVERIFY(server.requests().isEmpty());
        QVERIFY(!*fetch(client, QUrl(QStringLiteral("http://example.org/"))));
        QVERIFY(!*fetch(client, QUrl::fromLocalFile(QStringLiteral("/etc/hostname"))));
        QVERIFY(!*fetch(client, QUrl()));
    }

    void givesUpWhenNobodyWaits()
    {
        bool isClosed = false;
        const WebServer server(
            [&isClosed](QTcpSocket &socket, const QByteArray &) {
                connect(&socket, &QTcpSocket::disconnected, &socket, [&isClosed] { isClosed = true; });
            },
            m_serverTls);
        NetworkHttpClient client({}, m_trusting);
        {
            QObject receiver;
            client.get(server.address(QStringLiteral("/")), 60s, &receiver,
                       [](const Result<QByteArray> &) { qFatal("called for nobody"); });
            QTRY_COMPARE(server.requests().size(), 1);
        }
        QTRY_VERIFY(isClosed);
    }

    void outlivesItsClient()
    {
        const WebServer server([](QTcpSocket &, const QByteArray &) {}, m_serverTls);
        QObject receiver;
        Answer answer;
        {
            NetworkHttpClient client({}, m_trusting);
            client.get(server.address(QStringLiteral("/")), 600ms, &receiver,
                       [&answer](Result<QByteArray> reply) { answer = std::move(reply); });
            QTRY_COMPARE(server.requests().size(), 1);
        }
        QTRY_VERIFY(answer.has_value());
        QVERIFY(!*answer);
    }
};

QTEST_GUILESS_MAIN(tst_NetworkHttpClient)
#include "tst_NetworkHttpClient.moc"
