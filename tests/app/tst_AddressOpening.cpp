// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/AddressOpening.h"
#include "app/WindowControllers.h"
#include "support/ScriptedScan.h"
#include "support/Test.h"

class tst_AddressOpening : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void tellsFilesFromAddresses()
    {
        const std::tuple<QString, QString, QByteArray> rows[]{
            {u"https://x.org/a?i=1"_s, u"https://x.org/a?i=1"_s, {}},
            {u"a.mp3"_s, u"file:///m/a.mp3"_s, "/m/a.mp3"},
            {u"a: 100% b#c?.mp3"_s, u"file:///m/a:%20100%25%20b%23c%3F.mp3"_s, "/m/a: 100% b#c?.mp3"},
            {u"1://a"_s, u"file:///m/1:/a"_s, "/m/1:/a"},
            {u"../é/a"_s, u"file:///%C3%A9/a"_s, "/é/a"},
            {u"file:///m/%C3%A9%20%FF"_s, u"file:///m/%C3%A9%20%FF"_s, "/m/é \xff"},
            {u"file:/m/a"_s, u"file:/m/a"_s, "/m/a"},
            {u"file://localhost/m/a"_s, u"file://localhost/m/a"_s, "/m/a"},
            {u"file://nas/m/a"_s, u"file://nas/m/a"_s, {}},
        };
        for (const auto &[operand, expected, file] : rows) {
            const QString address = addressesOf({operand}, u"/m"_s).value(0);
            QCOMPARE(address, expected);
            QCOMPARE(fileOfAddress(address).value_or(QByteArray()), file);
        }
    }

    void showsAFilesSongOrSaysWhyNot()
    {
        WindowControllers window;
        ScriptedScan scan;
        std::map<QByteArray, MediaItem> songs{{"/m/a", song(1)}, {"/m/unknown", song(0)}};
        AddressOpening opening(scan, [&](const QByteArray &path) {
            const auto found = songs.find(path);
            return found == songs.end() ? std::nullopt : std::optional(found->second);
        });
        window.services.openSettings = [](Presentation &) {};
        const auto alertOf = [&](const QStringList &addresses) {
            opening.open(addresses, window.detail);
            return window.takeAlert();
        };
        QCOMPARE(alertOf({}), QString());
        QCOMPARE(alertOf({u"file:///m/a"_s}), QString());
        QCOMPARE(window.shown(), 1U);
        QVERIFY(!window.detail.isTrackingNowPlaying());
        QVERIFY(alertOf({u"file:///m/unknown"_s}).startsWith(u"Song Not Added to Library|"_s));
        QCOMPARE(alertOf({u"file:///m/b"_s}), u"Song Not Found|There is no file “/m/b”.|OK|0"_s);
        QCOMPARE(alertOf({u"file:///"_s}),
                 u"Song Not Found|There is no song “/” in your music library. Music "
                 "folders are chosen in the settings.|Open Settings,Cancel|0"_s);

        scan.report({.isRunning = true}); // it may come with the scan
        QCOMPARE(alertOf({u"file:///m/b"_s}), QString());
        songs.insert({"/m/b", song(2)});
        scan.report({});
        QCOMPARE(window.shown(), 2U);

        window.library.status = LibraryAuthorizationStatus::Denied;
        QVERIFY(alertOf({u"file:///m/a"_s}).startsWith(u"No Music Access|"_s));
        window.library.status = LibraryAuthorizationStatus::Authorized;
        window.library.add(7, "Seven", "Band", "Album", "100");
        QCOMPARE(alertOf({u"trackwise://music.apple.com/album/1?i=100"_s}), QString());
        QCOMPARE(window.shown(), 7U);
        const QString both = alertOf({u"file:///m/a"_s, u"https://x.org"_s}); // as a drop of them
        QVERIFY(both.contains(u"doesn't seem to be"_s));
        QCOMPARE(window.shown(), 7U);
    }
};

QTEST_MAIN(tst_AddressOpening)
#include "tst_AddressOpening.moc"
