// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/AddressOpening.h"
#include "app/WindowControllers.h"
#include "support/ScriptedScan.h"

#include <QTest>

using namespace trackwise;

class tst_AddressOpening : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void tellsFilesFromAddresses_data()
    {
        QTest::addColumn<QString>("operand");
        QTest::addColumn<QString>("address");
        QTest::addColumn<QByteArray>("file");
        const auto row = [](const char *name, const char *operand, const char *address, const char *file) {
            QTest::newRow(name) << QString::fromUtf8(operand) << QString::fromUtf8(address)
                                << QByteArray(file);
        };
        row("link", "https://x.org/a?i=1", "https://x.org/a?i=1", "");
        row("name", "a.mp3", "file:///m/a.mp3", "/m/a.mp3");
        row("name that looks like an address", "a: 100% b#c?.mp3", "file:///m/a:%20100%25%20b%23c%3F.mp3",
            "/m/a: 100% b#c?.mp3");
        row("path upwards", "../é/a", "file:///%C3%A9/a", "/\xc3\xa9/a");
        row("file's address", "file:///m/%C3%A9%20%FF", "file:///m/%C3%A9%20%FF", "/m/\xc3\xa9 \xff");
        row("without slashes", "file:/m/a", "file:/m/a", "/m/a");
        row("on another device", "file://nas/m/a", "file://nas/m/a", "");
    }
    void tellsFilesFromAddresses()
    {
        QFETCH(QString, operand);
        const QString address = addressesOf({operand}, QStringLiteral("/m")).value(0);
        QTEST(address, "address");
        QTEST(fileOfAddress(address).value_or(QByteArray()), "file");
    }

    void showsAFilesSongOrSaysWhyNot()
    {
        WindowControllers window;
        ScriptedScan scan;
        std::map<QByteArray, MediaItem> songs;
        AddressOpening opening(window.library, scan, [&](const QByteArray &path) {
            const auto found = songs.find(path);
            return found == songs.end() ? std::nullopt : std::optional(found->second);
        });
        const auto open = [&](const char *address) {
            opening.open({QString::fromUtf8(address)}, window.detail);
            QThreadPool::globalInstance()->waitForDone();
            QCoreApplication::processEvents();
        };
        const auto takeAlert = [&] {
            const Alert *alert = window.presentation.alert();
            const QString text =
                alert ? alert->title() + u'|' + alert->message() + u'|' + alert->actionTitles().join(u',')
                      : QString();
            window.presentation.dismiss();
            QCoreApplication::processEvents();
            return text;
        };
        songs = {{"/m/a", song(1)}, {"/m/unknown", song(0)}};
        open("file:///m/a");
        QCOMPARE(window.shown(), 1U);
        QVERIFY(!window.detail.isTrackingNowPlaying());
        open("file:///m/unknown");
        QVERIFY(takeAlert().startsWith(QStringLiteral("Song Not Added to Library|")));
        open("file:///m/b");
        QCOMPARE(takeAlert(), QStringLiteral("Song Not Found|There is no file “/m/b”.|OK"));
        open("file:///");
        QCOMPARE(takeAlert(), QStringLiteral("Song Not Found|There is no song “/” in your music library. "
                                             "Music folders are chosen in the settings.|OK"));

        scan.report({.isRunning = true}); // it may come with the scan
        open("file:///m/b");
        QCOMPARE(takeAlert(), QString());
        songs.insert({"/m/b", song(2)});
        scan.report({});
        QCOMPARE(window.shown(), 2U);

        window.library.status = LibraryAuthorizationStatus::Denied;
        open("file:///m/a");
        QVERIFY(takeAlert().startsWith(QStringLiteral("No Music Access|")));
        opening.open({QStringLiteral("file:///m/a"), QStringLiteral("https://x.org")}, window.detail);
        QVERIFY(takeAlert().contains(QStringLiteral("doesn't seem to be"))); // as a drop of both
        QCOMPARE(window.shown(), 2U);
    }
};

QTEST_MAIN(tst_AddressOpening)
#include "tst_AddressOpening.moc"
