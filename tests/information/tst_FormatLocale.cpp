// SPDX-License-Identifier: GPL-3.0-or-later
#include "information/FormatLocale.h"

#include <QTest>

using namespace trackwise;

class tst_FormatLocale : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void followsTheEnvironment_data()
    {
        QTest::addColumn<QStringList>("variables");
        QTest::addColumn<QByteArray>("dates");
        QTest::addColumn<QByteArray>("numbers");

        const auto row = [](const char *name, const QString &variables, const char *dates,
                            const char *numbers) {
            QTest::newRow(name) << variables.split(u' ', Qt::SkipEmptyParts) << QByteArray(dates)
                                << QByteArray(numbers);
        };
        row("nothing set", {}, "en_US", "en_US");
        row("language alone", QStringLiteral("LANG=de_DE.UTF-8"), "de_DE", "de_DE");
        row("one category differs", QStringLiteral("LANG=en_US.UTF-8 LC_TIME=da_DK.UTF-8"), "da_DK", "en_US");
        row("numbers differ", QStringLiteral("LANG=en_US LC_NUMERIC=ar_EG.UTF-8"), "en_US", "ar_EG");
        row("everything overruled", QStringLiteral("LC_ALL=ja_JP.UTF-8 LC_TIME=fr_FR LANG=de_DE"), "ja_JP",
            "ja_JP");
        row("empty means unset", QStringLiteral("LC_ALL= LC_TIME= LANG=fi_FI"), "fi_FI", "fi_FI");
        row("computer's language", QStringLiteral("LANG=C.UTF-8 LC_NUMERIC=POSIX"), "en_US", "en_US");
        row("currency modifier", QStringLiteral("LANG=fr_FR@euro"), "fr_FR", "fr_FR");
        row("script modifier", QStringLiteral("LANG=sr_RS.UTF-8@latin"), "sr_Latn_RS", "sr_Latn_RS");
        row("script without a country", QStringLiteral("LANG=uz@cyrillic"), "uz_Cyrl", "uz_Cyrl");
    }
    void followsTheEnvironment()
    {
        QFETCH(QStringList, variables);
        QProcessEnvironment environment;
        for (const QString &variable : variables)
            environment.insert(variable.section(u'=', 0, 0), variable.section(u'=', 1));
        const FormatLocale locale = FormatLocale::fromEnvironment(environment);
        QTEST(locale.dates, "dates");
        QTEST(locale.numbers, "numbers");
    }
};

QTEST_GUILESS_MAIN(tst_FormatLocale)
#include "tst_FormatLocale.moc"
