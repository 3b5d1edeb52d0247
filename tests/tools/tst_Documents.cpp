// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/Syntax.h"
#include "support/Files.h"
#include "support/Test.h"

#include <QProcess>
#include <QTemporaryDir>

using namespace trackwise::cli;

// The manual page and the completions name everything that the program understands.
class tst_Documents : public QObject
{
    Q_OBJECT

private:
    static QByteArray document(const char *name)
    {
        return contentsOf(QStringLiteral(DOCUMENTS "/") + QString::fromLatin1(name));
    }
    /// Whether @p text has the word @p name with @p before it.
    static bool names(const QByteArray &text, const char *before, std::string_view name)
    {
        const QString word = QRegularExpression::escape(QString::fromLatin1(before) +
                                                        QString::fromStdString(std::string(name)));
        return QString::fromUtf8(text).contains(QRegularExpression(word + u"(?![-\\w])"_s));
    }

private Q_SLOTS:
    void nameEveryOptionAndCommand()
    {
        std::vector<Option> options(startOptions().begin(), startOptions().end());
        options.insert(options.end(), commonOptions().begin(), commonOptions().end());
        for (const Command &command : commands())
            options.insert(options.end(), command.options.begin(), command.options.end());
        for (const auto &[name, before] :
             {std::pair("trackwise.1", "Fl -"), std::pair("trackwise.bash", "--"),
              std::pair("_trackwise", "--"), std::pair("trackwise.fish", "-l ")}) {
            const QByteArray text = document(name);
            for (const Command &command : commands())
                QVERIFY2(names(text, "", command.word), name);
            for (const Option &option : options)
                QVERIFY2(names(text, before, option.name), option.name.data());
        }
        QVERIFY(!document("trackwise.1").contains("\n@"));
    }

    void tellReleasesNewestFirst()
    {
        QTemporaryDir folder;
        const auto make = [&folder](const QByteArray &releases) {
            writeFile(folder.filePath(u"metainfo"_s), "<releases>" + releases + "</releases>");
            return QProcess::execute(QStringLiteral(DOCUMENT_MAKER),
                                     {folder.path(), QStringLiteral(DOCUMENTS "/trackwise.1"),
                                      folder.filePath(u"metainfo"_s), u"Jo <jo@site.example>"_s});
        };
        const QByteArray note = "<p>" + QByteArray("word ").repeated(17) + "</p><p xml:lang='de'>Wort</p>";
        const QByteArray old = "<release version='1.9' date='2027-01-02'/>";
        QCOMPARE(make("<release version='2.0' date='2027-02-03'>" + note + "</release>" + old), 0);
        QCOMPARE(contentsOf(folder.filePath(u"changelog"_s)),
                 "trackwise (2.0) unstable; urgency=medium\n\n  * " + QByteArray("word ").repeated(14) +
                     "word\n    word word\n\n -- Jo <jo@site.example>  Wed, 03 Feb 2027 00:00:00 +0000\n\n"
                     "trackwise (1.9) unstable; urgency=medium\n\n\n"
                     " -- Jo <jo@site.example>  Sat, 02 Jan 2027 00:00:00 +0000\n\n");
        for (const char *wrong : {"", "<release version='2.0'/>", "<release date='2027-02-03'/>", "<release"})
            QCOMPARE(make(wrong), 1);
    }
};

QTEST_GUILESS_MAIN(tst_Documents)
#include "tst_Documents.moc"
