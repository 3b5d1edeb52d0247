// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/Program.h"

#include <QDir>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTest>

#include <fileref.h>

#include <filesystem>

class tst_CommandLine : public QObject, private Program
{
    Q_OBJECT

private:
    const QString m_demo = QStringLiteral(DEMO_LIBRARY_FOLDER);

    [[nodiscard]] QByteArrayList onDemo(QByteArrayList arguments) const
    {
        return arguments << "--library" << inScratch("demo.db") << "--folder" << QFile::encodeName(m_demo);
    }
    [[nodiscard]] QByteArray makeSong(const QByteArray &path, const TagLib::String &title) const
    {
        QFile::copy(m_demo + QStringLiteral("/Ines Marlow/Low Water/01 Paper Kites.flac"),
                    QString::fromUtf8(inScratch("copy.flac")));
        TagLib::FileRef file(inScratch("copy.flac").constData());
        file.tag()->setTitle(title);
        file.save();
        std::rename(inScratch("copy.flac").constData(), path.constData());
        return path;
    }

private Q_SLOTS:
    void initTestCase()
    {
        const Outcome scan = run(onDemo({"library", "scan"}));
        QCOMPARE(scan.errors, QByteArray()); // quiet in a pipe
        QCOMPARE(scan.output, QByteArray("12 songs, 0 files with problems\n"));
        QCOMPARE(scan.code, 0);
        QCOMPARE(run(onDemo({"library", "scan", "--all"})).output, scan.output);
    }

    void saysHowItWent_data()
    {
        QTest::addColumn<QByteArrayList>("arguments");
        QTest::addColumn<int>("code");
        QTest::newRow("help") << QByteArrayList{"info", "--help"} << 0;
        QTest::newRow("help of all") << QByteArrayList{"library", "--help"} << 0;
        QTest::newRow("status") << onDemo({"library", "status"}) << 0;
        QTest::newRow("no song named") << QByteArrayList{"info"} << 2;
        QTest::newRow("no command") << QByteArrayList{"library"} << 2;
        QTest::newRow("unknown command") << QByteArrayList{"library", "play"} << 2;
        QTest::newRow("unknown option") << onDemo({"library", "export", "--json"}) << 2;
        QTest::newRow("words that fit nothing") << onDemo({"info", "qqqq"}) << 3;
        QTest::newRow("search that finds nothing") << onDemo({"library", "search", "qqqq"}) << 3;
        QTest::newRow("identifier of nothing") << onDemo({"info", "0000000000000001"}) << 3;
        QTest::newRow("not music") << onDemo({"info", TRACKWISE_PROGRAM}) << 1;
        QTest::newRow("library that is a folder")
            << QByteArrayList{"library", "status", "--library", "/"} << 1;
    }
    void saysHowItWent()
    {
        QFETCH(QByteArrayList, arguments);
        QFETCH(int, code);
        const Outcome outcome = run(arguments);
        QVERIFY2(outcome.code == code, outcome.errors.constData());
        QCOMPARE(outcome.errors.isEmpty(), code == 0 || arguments.contains("search"));
    }

    void showsTheSameRowsForAWordAnIdentifierAndAFile()
    {
        const Outcome words = run(onDemo({"info", "lights harb", "--more"}));
        QVERIFY(words.output.startsWith("Title         Harbour Lights\n"
                                        "Artist        Ines Marlow\n"
                                        "Album         Small Hours\n"));
        QVERIFY(words.output.contains("Track         3 of 12\n"));
        QVERIFY(words.output.contains("\nExplicit      Yes\nRating        ★★★★★\n"));
        const QByteArray found = run(onDemo({"library", "search", "harbour"})).output;
        QCOMPARE(run(onDemo({"info", found.left(16), "--more"})).output, words.output);

        const QByteArray file =
            QFile::encodeName(m_demo + QStringLiteral("/Various Artists/Small Hours/03 Harbour Lights.mp3"));
        QCOMPARE(run(onDemo({"info", file, "--more"})).output, words.output);
        // In no library: the same but for the date on which it came into one.
        QByteArrayList expected = words.output.split('\n');
        for (QByteArray &line : expected)
            if (line.startsWith("Date added"))
                line = "Date added    --";
        QCOMPARE(run({"info", file, "--more", "--library", inScratch("empty.db")}).output,
                 expected.join('\n'));
    }

    void exportsEveryPropertyOfEverySong()
    {
        const QByteArrayList lines = run(onDemo({"library", "export"})).output.trimmed().split('\n');
        QCOMPARE(lines.size(), 12);
        QMap<QString, QJsonObject> songs;
        for (const QByteArray &line : lines) {
            const QJsonObject song = QJsonDocument::fromJson(line).object();
            QCOMPARE(song.size(), 28);
            QVERIFY(QFile::exists(song.value(QStringLiteral("path")).toString()));
            songs.insert(song.value(QStringLiteral("title")).toString(), song);
        }
        QCOMPARE(songs.size(), 12);
        const QJsonObject canon = songs.value(QStringLiteral("Canon for Four Lifts"));
        QCOMPARE(canon.value(QStringLiteral("releaseDate")).toString(),
                 QStringLiteral("1998-04-17T00:00:00.000Z"));
        QCOMPARE(canon.value(QStringLiteral("rating")).toInt(), 4);
        QCOMPARE(canon.value(QStringLiteral("discCount")).toInt(), 3);
        QCOMPARE(canon.value(QStringLiteral("lyrics")), QJsonValue());
        QCOMPARE(canon.value(QStringLiteral("available")).toBool(), true);
        QCOMPARE(canon.value(QStringLiteral("persistentID")).toString().size(), 16);
        QVERIFY(!canon.value(QStringLiteral("artwork")).toString().isEmpty());
        QVERIFY(songs.value(QString()).value(QStringLiteral("artwork")).isNull());
        QVERIFY(songs.value(QStringLiteral("Медленный трамвай"))
                    .value(QStringLiteral("lyrics"))
                    .toString()
                    .startsWith(QStringLiteral("(кларнет)\n")));
    }

    void readsNamesOfAnyBytesAndNeutralisesTags()
    {
        QVERIFY(QDir().mkpath(QString::fromUtf8(inScratch("odd"))));
        const QByteArray path = makeSong(inScratch("odd/\xff\n'.flac"), L"\x1b[31mred\x07");
        const QByteArrayList library{"--library", inScratch("odd.db"), "--folder", inScratch("odd")};
        QFile garbage(QString::fromUtf8(inScratch("odd/noise.mp3")));
        QVERIFY(garbage.open(QIODevice::WriteOnly) && garbage.write("<html>") > 0);
        garbage.close();

        QCOMPARE(run(QByteArrayList{"library", "scan"} + library).output,
                 QByteArray("1 songs, 1 files with problems\n"));
        QVERIFY(run(QByteArrayList{"library", "problems"} + library)
                    .output.startsWith(garbage.fileName().toUtf8()));

        const QJsonObject song =
            QJsonDocument::fromJson(run(QByteArrayList{"library", "export"} + library).output).object();
        QCOMPARE(QByteArray::fromHex(song.value(QStringLiteral("path_hex")).toString().toLatin1()), path);
        QCOMPARE(song.value(QStringLiteral("title")).toString(), QStringLiteral("\x1b[31mred\x07"));

        const QByteArray shown = run(QByteArrayList{"info", path} + library).output;
        QVERIFY2(shown.startsWith("Title         ␛[31mred␇\n"), shown.constData());

        // The folder goes away: its song stays, as unavailable.
        QVERIFY(QDir().rename(QString::fromUtf8(inScratch("odd")), QString::fromUtf8(inScratch("away"))));
        QCOMPARE(run(QByteArrayList{"library", "scan"} + library).code, 3);
        const QJsonObject kept =
            QJsonDocument::fromJson(run(QByteArrayList{"library", "export"} + library).output).object();
        QCOMPARE(kept.value(QStringLiteral("available")), QJsonValue(false));
        QCOMPARE(kept.value(QStringLiteral("persistentID")), song.value(QStringLiteral("persistentID")));
    }

    void printsLyricsOnDemand()
    {
        QVERIFY(run(onDemo({"info", "Paper Kites", "--lyrics"})).output.startsWith("Newspaper, flour"));
        QCOMPARE(run(onDemo({"info", "Night Bus", "--lyrics"})).code, 3);
    }
};

QTEST_GUILESS_MAIN(tst_CommandLine)
#include "tst_CommandLine.moc"
