// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/Program.h"
#include "support/Files.h"
#include "support/Test.h"

#include <QDir>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

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
        QFile::copy(m_demo + u"/Ines Marlow/Low Water/01 Paper Kites.flac"_s,
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
        QCOMPARE(scan.output, "12 songs, 0 files with problems\n"_ba);
        QCOMPARE(scan.code, 0);
        QCOMPARE(run(onDemo({"library", "scan", "--all"})).output, scan.output);
    }

    void saysHowItWent()
    {
        const std::pair<QByteArrayList, int> rows[]{{{"info", "--help"}, 0},
                                                    {{"library", "--help"}, 0},
                                                    {onDemo({"library", "status"}), 0},
                                                    {onDemo({"info", "qqqq"}), 3},
                                                    {onDemo({"library", "search", "qqqq"}), 3},
                                                    {onDemo({"info", "0000000000000001"}), 3},
                                                    {onDemo({"info", TRACKWISE_PROGRAM}), 1},
                                                    {{"library", "status", "--library", "/"}, 1}};
        for (const auto &[arguments, code] : rows) {
            const Outcome outcome = run(arguments);
            QVERIFY2(outcome.code == code, arguments.join(' ') + outcome.errors);
            QCOMPARE(outcome.errors.isEmpty(), code == 0 || arguments.contains("search"));
        }
        for (const char *misuse : {"info",
                                   "info a b",
                                   "info a --all",
                                   "library",
                                   "library play",
                                   "library scan a",
                                   "library scan --json",
                                   "library scan --more",
                                   "library status a",
                                   "library status --all",
                                   "library search",
                                   "library search a --lyrics",
                                   "identify",
                                   "identify a --all",
                                   "catalog",
                                   "catalog build a",
                                   "catalog export",
                                   "catalog add a b",
                                   "catalog remove",
                                   "catalog status --more",
                                   "library problems a",
                                   "library problems --more",
                                   "library export a",
                                   "library export --json"}) {
            const Outcome outcome = run(QByteArray(misuse).split(' '));
            QVERIFY2(outcome.code == 2 && outcome.errors.contains("trackwise ") && outcome.output.isEmpty(),
                     misuse);
        }
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
            QFile::encodeName(m_demo + u"/Various Artists/Small Hours/03 Harbour Lights.mp3"_s);
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
            QVERIFY(QFile::exists(song.value(u"path"_s).toString()));
            songs.insert(song.value(u"title"_s).toString(), song);
        }
        QCOMPARE(songs.size(), 12);
        const QJsonObject canon = songs.value(u"Canon for Four Lifts"_s);
        QCOMPARE(canon.value(u"releaseDate"_s).toString(), u"1998-04-17T00:00:00.000Z"_s);
        QCOMPARE(canon.value(u"rating"_s).toInt(), 4);
        QCOMPARE(canon.value(u"discCount"_s).toInt(), 3);
        QCOMPARE(canon.value(u"lyrics"_s), QJsonValue());
        QCOMPARE(canon.value(u"available"_s).toBool(), true);
        QCOMPARE(canon.value(u"persistentID"_s).toString().size(), 16);
        QVERIFY(!canon.value(u"artwork"_s).toString().isEmpty());
        QVERIFY(songs.value(QString()).value(u"artwork"_s).isNull());
        QVERIFY(
            songs.value(u"Медленный трамвай"_s).value(u"lyrics"_s).toString().startsWith(u"(кларнет)\n"_s));
    }

    void readsNamesOfAnyBytesAndNeutralisesTags()
    {
        QVERIFY(QDir().mkpath(QString::fromUtf8(inScratch("odd"))));
        const QByteArray path = makeSong(inScratch("odd/\xff\n'.flac"), L"\x1b[31mred\x07");
        const QByteArrayList library{"--library", inScratch("odd.db"), "--folder", inScratch("odd")};
        const QString garbage = QString::fromUtf8(inScratch("odd/noise.mp3"));
        writeFile(garbage, "<html>");

        QCOMPARE(run(QByteArrayList{"library", "scan"} + library).output,
                 "1 songs, 1 files with problems\n"_ba);
        QVERIFY(
            run(QByteArrayList{"library", "problems"} + library).output.startsWith(garbage.toUtf8() + ": "));
        const QByteArray problem = run(QByteArrayList{"library", "problems", "--json"} + library).output;
        QCOMPARE(QJsonDocument::fromJson(problem).object().value(u"path"_s), garbage);

        const QJsonObject song =
            QJsonDocument::fromJson(run(QByteArrayList{"library", "export"} + library).output).object();
        QCOMPARE(QByteArray::fromHex(song.value(u"path_hex"_s).toString().toLatin1()), path);
        QCOMPARE(song.value(u"title"_s).toString(), QStringLiteral("\x1b[31mred\x07"));

        const QByteArray shown = run(QByteArrayList{"info", path} + library).output;
        QVERIFY2(shown.startsWith("Title         ␛[31mred␇\n"), shown.constData());

        // The folder goes away: its song stays, as unavailable.
        QVERIFY(QDir().rename(QString::fromUtf8(inScratch("odd")), QString::fromUtf8(inScratch("away"))));
        QCOMPARE(run(QByteArrayList{"library", "scan"} + library).code, 3);
        const QJsonObject kept =
            QJsonDocument::fromJson(run(QByteArrayList{"library", "export"} + library).output).object();
        QCOMPARE(kept.value(u"available"_s), QJsonValue(false));
        QCOMPARE(kept.value(u"persistentID"_s), song.value(u"persistentID"_s));
    }

    void printsJsonOnDemand()
    {
        const auto json = [this](const QByteArrayList &arguments) {
            return QJsonDocument::fromJson(run(onDemo(arguments + QByteArrayList{"--json"})).output).object();
        };
        QJsonObject song = json({"library", "search", "harbour"});
        QCOMPARE(song.value(u"title"_s), u"Harbour Lights"_s);
        const QByteArray plain = run(onDemo({"info", "harbour"})).output;
        const QJsonObject record = json({"info", "harbour"});
        const QJsonArray rows = record.value(u"rows"_s).toArray();
        QCOMPARE(rows.size(), plain.count('\n'));
        QCOMPARE(rows.at(0).toObject(),
                 (QJsonObject{{u"title"_s, u"Title"_s}, {u"value"_s, u"Harbour Lights"_s}}));
        song.insert(u"rows"_s, rows);
        QCOMPARE(record, song);
        const QByteArray database = inScratch("demo.db");
        QByteArray status = "{'available':12,'diskAbsent':0,'fileGone':0,'folders':['" + m_demo.toUtf8() +
                            "'],'library':'" + database + "','problems':0}\n";
        QCOMPARE(run(onDemo({"library", "status", "--json"})).output, status.replace('\'', '"'));
        QCOMPARE(run(onDemo({"library", "status"})).output.simplified(),
                 "Library " + database + " Music folders " + m_demo.toUtf8() +
                     " Songs 12 Songs on absent disks 0 Songs whose file is gone 0 Files with problems 0");
    }

    void printsLyricsOnDemand()
    {
        QVERIFY(run(onDemo({"info", "Paper Kites", "--lyrics"})).output.startsWith("Newspaper, flour"));
        QCOMPARE(run(onDemo({"info", "Night Bus", "--lyrics"})).code, 3);
        QCOMPARE(run(onDemo({"info", "low"})).errors, "trackwise: 1 more songs fit; this is the best\n"_ba);
        QCOMPARE(run(onDemo({"info", "harbour"})).errors, ""_ba);
    }
};

QTEST_GUILESS_MAIN(tst_CommandLine)
#include "tst_CommandLine.moc"
