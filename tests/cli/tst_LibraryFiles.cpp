// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/Program.h"
#include "support/Files.h"
#include "support/Test.h"

#include <QDir>

#include <sqlite3.h>

// What the commands say of a library that is damaged, missing, or where nothing can be written.
class tst_LibraryFiles : public QObject, private Program
{
    Q_OBJECT

private:
    static constexpr qsizetype pageSize = 4096;
    QByteArray m_whole;    ///< the database
    QByteArray m_exported; ///< what is in it
    sqlite3 *m_stopped = nullptr;

    [[nodiscard]] QByteArrayList onLibrary(QByteArrayList arguments, const char *name = "library.db") const
    {
        return arguments << "--library" << inScratch(name);
    }
    [[nodiscard]] QByteArray write(const char *name, const QByteArray &bytes) const
    {
        writeFile(QFile::decodeName(inScratch(name)), bytes);
        return inScratch(name);
    }
    /// Root may write anywhere, unless it has given that up.
    static QByteArray asUser()
    {
        return geteuid() == 0 ? "setpriv --bounding-set=-dac_override,-dac_read_search" : "";
    }
    /// Another library whose writer has written into the log only.
    [[nodiscard]] QByteArray stoppedWriter()
    {
        if (!m_stopped) {
            sqlite3_open(write("stopped.db", m_whole).constData(), &m_stopped);
            sqlite3_exec(m_stopped, "UPDATE songs SET play_count = 77", nullptr, nullptr, nullptr);
        }
        return inScratch("stopped.db");
    }

private Q_SLOTS:
    void cleanupTestCase() { sqlite3_close(m_stopped); }
    void initTestCase()
    {
        QVERIFY(run(onLibrary({"library", "scan", "--folder", DEMO_LIBRARY_FOLDER})).code == 0);
        m_whole = contents(inScratch("library.db"));
        QVERIFY(m_whole.size() > 20 * pageSize);
        m_exported = run(onLibrary({"library", "export"})).output;
        QCOMPARE(m_exported.count('\n'), 12);
    }

    // Whichever page is lost, what is printed is all of it, or else the loss is told.
    void tellsOfEveryLostPage()
    {
        int told = 0;
        for (qsizetype page = 0; page < m_whole.size(); page += pageSize) {
            QByteArray damaged = m_whole;
            damaged.replace(page, pageSize, QByteArray(pageSize, '\0'));
            const QByteArray path = write("damaged.db", damaged);
            const Outcome outcome = run(onLibrary({"library", "export"}, "damaged.db"));
            if (outcome.code == 0) {
                QCOMPARE(outcome.output, m_exported);
                continue;
            }
            ++told;
            QCOMPARE(outcome.code, 1);
            QVERIFY2(outcome.errors.startsWith("trackwise: " + path + ": "), outcome.errors.constData());
        }
        QVERIFY(told > 2);
    }

    void failsOverDamage()
    {
        QByteArray most = m_whole; // all but the names of the tables
        for (qsizetype page = 0; page < most.size(); page += pageSize)
            if (!most.mid(page, pageSize).contains("CREATE "))
                most.replace(page, pageSize, QByteArray(pageSize, '\xa5'));
        for (const QByteArrayList &arguments :
             {QByteArrayList{"library", "status"}, QByteArrayList{"library", "search", "lights"},
              QByteArrayList{"library", "problems"}, QByteArrayList{"library", "export"},
              QByteArrayList{"info", "lights"},
              QByteArrayList{"library", "scan", "--folder", DEMO_LIBRARY_FOLDER}}) {
            for (const QByteArray &damaged : {most, "not a database"_ba.repeated(1000)}) {
                const QByteArray path = write("damaged.db", damaged);
                const Outcome outcome = run(onLibrary(arguments, "damaged.db"));
                QVERIFY2(outcome.errors.startsWith("trackwise: " + path + ": "), outcome.errors.constData());
                QCOMPARE(outcome.errors.count('\n'), 1);
                QCOMPARE(outcome.code, 1);
                QVERIFY(arguments.contains("scan") || contents(path) == damaged);
            }
            QCOMPARE(run(onLibrary(arguments), {}, "/dev/full").code, arguments.contains("problems") ? 0 : 1);
            if (!arguments.contains("scan")) { // nor is a library made that is not there
                QCOMPARE(run(onLibrary(arguments, "mistyped/library.db")).code, 3);
                QVERIFY(!QFile::exists(QFile::decodeName(inScratch("mistyped"))));
            }
        }
    }

    void countsAnOwnLibraryThatIsNotThereAsEmpty()
    {
        const Outcome status = run({"library", "status"});
        QVERIFY(status.output.contains("Songs                     0\n"));
        QCOMPARE(status.code, 0);
        QCOMPARE(run({"library", "export"}).code, 0);
        QCOMPARE(run({"library", "search", "lights"}).code, 3);
        QVERIFY(hasMadeNothing());
    }

    void readsWhereNothingCanBeWritten()
    {
        namespace fs = std::filesystem;
        // Whether the folder and its files can be written, and the parts of a library whose writer was
        // stopped.
        const std::tuple<bool, bool, QByteArrayList> rows[]{
            {true, true, {""}},   {true, false, {""}},          {false, true, {""}},
            {false, false, {""}}, {false, false, {"", "-wal"}}, {false, false, {"", "-wal", "-shm"}}};
        for (const auto &[isFolderWritable, isFileWritable, parts] : rows) {
            const fs::path folder = inScratch("away #1%20?").toStdString();
            fs::remove_all(folder);
            fs::create_directories(folder);
            // With its log, the library knows more than its file.
            const QByteArray source = parts.size() > 1 ? stoppedWriter() : inScratch("library.db");
            const QByteArray playCount = parts.size() > 1 ? "\"playCount\":77," : "\"playCount\":";
            for (const QByteArray &part : parts) {
                const fs::path copy = folder / ("library.db" + part).toStdString();
                fs::copy_file((source + part).toStdString(), copy);
                if (!isFileWritable)
                    fs::permissions(copy, fs::perms::owner_read | fs::perms::others_read);
            }
            if (!isFolderWritable)
                fs::permissions(folder, fs::perms::owner_write, fs::perm_options::remove);
            const Outcome outcome = run(onLibrary({"library", "export"}, "away #1%20?/library.db"), asUser());
            QCOMPARE(outcome.errors, QByteArray());
            QCOMPARE(outcome.code, 0);
            QCOMPARE(outcome.output.count(playCount), 12);
            const auto entries = QDir(QString::fromStdString(folder.string())).entryList(QDir::Files);
            QCOMPARE(entries.size(), parts.size());
            fs::permissions(folder, fs::perms::owner_all);
        }
    }
};

QTEST_GUILESS_MAIN(tst_LibraryFiles)
#include "tst_LibraryFiles.moc"
