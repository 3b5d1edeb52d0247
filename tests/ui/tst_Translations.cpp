// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/Translations.h"

#include <QTest>
#include <QTranslator>

using namespace trackwise;

class tst_Translations : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void takesTheFirstLanguageThatWeHave_data()
    {
        QTest::addColumn<QStringList>("languages");
        QTest::addColumn<QString>("file");
        const auto german = QStringLiteral(":/translations/trackwise_de.qm");
        const auto row = [](const char *name, const QString &languages, const QString &file) {
            QTest::newRow(name) << languages.split(u' ', Qt::SkipEmptyParts) << file;
        };
        row("German", QStringLiteral("de-DE de"), german);
        row("German of another country", QStringLiteral("de-CH"), german);
        row("unknown language, then German", QStringLiteral("tlh de"), german);
        row("English comes before German", QStringLiteral("en-US de"), {});
        row("unknown language alone", QStringLiteral("tlh"), {});
        row("none", {}, {});
    }
    void takesTheFirstLanguageThatWeHave()
    {
        QFETCH(QStringList, languages);
        QTEST(translationFor(languages), "file");
    }

    void translatesTextsAndTheDirectionOfWriting()
    {
        QTranslator arabic;
        QVERIFY(arabic.load(translationFor({QStringLiteral("ar")})));
        QCOMPARE(arabic.translate("EditMenu", "Copy"), QStringLiteral("نسخ"));
        QCOMPARE(arabic.translate("QGuiApplication", "QT_LAYOUT_DIRECTION"), QStringLiteral("RTL"));
    }
};

QTEST_GUILESS_MAIN(tst_Translations)
#include "tst_Translations.moc"
