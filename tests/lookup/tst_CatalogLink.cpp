// SPDX-License-Identifier: GPL-3.0-or-later
#include "lookup/CatalogConfiguration.h"
#include "lookup/CatalogLink.h"
#include "lookup/CatalogLookup.h"
#include "lookup/DroppedUrls.h"

#include <QMimeData>
#include <QSettings>
#include <QTemporaryDir>
#include <QTest>
#include <QUrl>

using namespace trackwise;

namespace {
const QString marker = QStringLiteral("catalog.example");
}

class tst_CatalogLink : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void readsTheIdentifier_data()
    {
        QTest::addColumn<QStringList>("addresses");
        QTest::addColumn<QString>("identifier");
        const auto row = [](const char *name, const char *address, const char *identifier) {
            QTest::newRow(name) << QStringList{QString::fromLatin1(address)}
                                << QString::fromLatin1(identifier);
        };
        row("song of an album", "https://catalog.example.com/de/album/x/100?i=200", "200");
        row("among other items", "https://catalog.example.com/a?l=de&i=200&uo=4#top", "200");
        row("no number", "https://catalog.example.com/a?i=00abc", "00abc");
        row("the first of two", "https://catalog.example.com/a?i=1&i=2", "1");
        row("escaped digits", "https://catalog.example.com/a?%69=%31%32", "12");
        row("what could change a request stays escaped", "https://catalog.example.com/a?i=1%262%20",
            "1%262%20");
        row("equals signs in the value", "https://catalog.example.com/a?i=1=2", "1=2");
        row("marker in the path", "https://elsewhere.org/catalog.example/?i=7", "7");
        row("marker in the query", "https://elsewhere.org/?from=catalog.example&i=7", "7");
        row("another scheme", "music://catalog.example.com/a?i=7", "7");
        QTest::newRow("the first with the marker counts")
            << QStringList{QStringLiteral("https://elsewhere.org/?i=1"),
                           QStringLiteral("https://catalog.example.com/?i=2"),
                           QStringLiteral("https://catalog.example.com/?i=3")}
            << QStringLiteral("2");
    }
    void readsTheIdentifier()
    {
        QFETCH(QStringList, addresses);
        QFETCH(QString, identifier);
        const auto link = catalogLink(addresses, marker);
        QVERIFY(std::holds_alternative<CatalogLink>(link));
        QCOMPARE(std::get<CatalogLink>(link).identifier, identifier);
        const QUrl request = catalogLookupAddress(QStringLiteral("https://lookup.example"), identifier);
        QCOMPARE(request.toString(QUrl::FullyEncoded),
                 QStringLiteral("https://lookup.example/lookup?id=%1&entity=musicTrack").arg(identifier));
    }

    void saysWhyThereIsNone_data()
    {
        QTest::addColumn<QStringList>("addresses");
        QTest::addColumn<int>("problem");
        const auto row = [](const char *name, const char *address, LinkProblem problem) {
            QTest::newRow(name) << QStringList{QString::fromLatin1(address)} << static_cast<int>(problem);
        };
        QTest::newRow("nothing dropped") << QStringList() << static_cast<int>(LinkProblem::NotACatalogLink);
        row("elsewhere", "https://elsewhere.org/?i=1", LinkProblem::NotACatalogLink);
        row("marker in capitals", "https://elsewhere.org/CATALOG.EXAMPLE?i=1", LinkProblem::NotACatalogLink);
        row("album", "https://catalog.example.com/de/album/x/100", LinkProblem::NoSongInLink);
        row("other items only", "https://catalog.example.com/?l=de&id=3", LinkProblem::NoSongInLink);
        row("capital", "https://catalog.example.com/?I=3", LinkProblem::NoSongInLink);
        row("no value", "https://catalog.example.com/?i", LinkProblem::NoSongInLink);
        row("first without value", "https://catalog.example.com/?i&i=3", LinkProblem::NoSongInLink);
        row("empty value", "https://catalog.example.com/?i=", LinkProblem::NoSongInLink);
        row("behind the fragment", "https://catalog.example.com/#?i=3", LinkProblem::NoSongInLink);
        row("no address", "https://[catalog.example?i=3", LinkProblem::NoSongInLink);
        QTest::newRow("a later one is not asked")
            << QStringList{QStringLiteral("https://catalog.example.com/"),
                           QStringLiteral("https://catalog.example.com/?i=3")}
            << static_cast<int>(LinkProblem::NoSongInLink);
    }
    void saysWhyThereIsNone()
    {
        QFETCH(QStringList, addresses);
        QFETCH(int, problem);
        const auto link = catalogLink(addresses, marker);
        QVERIFY(std::holds_alternative<LinkProblem>(link));
        QCOMPARE(static_cast<int>(std::get<LinkProblem>(link)), problem);
    }

    void findsAddressesInWhatIsDropped_data()
    {
        using Formats = QMap<QString, QByteArray>;
        QTest::addColumn<Formats>("formats");
        QTest::addColumn<QStringList>("addresses");
        const QString list = QStringLiteral("text/uri-list");
        const QString browser = QStringLiteral("text/x-moz-url");
        const QString text = QStringLiteral("text/plain");
        const QString html = QStringLiteral("text/html");
        const QString title = QStringLiteral("https://a.example/?i=1&l=de\nA title\n");
        const QByteArray link(reinterpret_cast<const char *>(title.utf16()), title.size() * 2);
        const QStringList one{QStringLiteral("https://a.example/?i=1&l=de")};

        QTest::newRow("nothing") << Formats() << QStringList();
        QTest::newRow("list") << Formats{{list,
                                          "# comment\r\nhttps://a.example/?i=1&l=de\r\nfile:///tmp/x\r\n"}}
                              << (one + QStringList{QStringLiteral("file:///tmp/x")});
        QTest::newRow("list before text")
            << Formats{{list, "https://a.example/?i=1&l=de"}, {text, "https://b.example"}} << one;
        QTest::newRow("browser's link") << Formats{{browser, link}, {text, "A title"}} << one;
        QTest::newRow("half a browser's link") << Formats{{browser, link.left(3)}} << QStringList();
        QTest::newRow("text") << Formats{{text, "  Listen: https://a.example/?i=1&l=de\n"}} << one;
        QTest::newRow("text without an address") << Formats{{text, "a:b music // 12"}} << QStringList();
        QTest::newRow("HTML") << Formats{{html,
                                          "<A title='x' HREF = \"https://a.example/?i=1&amp;l=de\">x</A>"}}
                              << one;
        QTest::newRow("HTML without links") << Formats{{html, "<b>x</b>"}, {text, "x"}} << QStringList();
        QTest::newRow("enormous text")
            << Formats{{text, QByteArray(8'000'000, 'x') + " https://a.example"}} << QStringList();
    }
    void findsAddressesInWhatIsDropped()
    {
        using Formats = QMap<QString, QByteArray>;
        QFETCH(Formats, formats);
        QMimeData data;
        for (auto format = formats.begin(); format != formats.end(); ++format)
            data.setData(format.key(), format.value());
        QTEST(droppedUrls(data), "addresses");
    }

    void takesItsConfigurationFromTheEnvironmentFirst()
    {
        const QTemporaryDir folder;
        QSettings file(folder.filePath(QStringLiteral("device.ini")), QSettings::IniFormat);
        QCOMPARE(catalogConfiguration(file), CatalogConfiguration());
        file.setValue(QStringLiteral("Catalog/Address"), QStringLiteral("https://file.example/api//"));
        file.setValue(QStringLiteral("Catalog/HostMarker"), QStringLiteral("file.marker"));
        qputenv("TRACKWISE_CATALOG_HOST_MARKER", "environment.marker");
        const CatalogConfiguration configuration = catalogConfiguration(file);
        qunsetenv("TRACKWISE_CATALOG_HOST_MARKER");
        QCOMPARE(configuration.baseAddress, QStringLiteral("https://file.example/api"));
        QCOMPARE(configuration.hostMarker, QStringLiteral("environment.marker"));
    }
};

QTEST_GUILESS_MAIN(tst_CatalogLink)
#include "tst_CatalogLink.moc"
