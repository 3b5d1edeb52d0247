// SPDX-License-Identifier: GPL-3.0-or-later
#include "information/FormatLocale.h"

#include <QTest>

using namespace Qt::StringLiterals;
using namespace trackwise;

class tst_FormatLocale : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void followsTheEnvironment()
    {
        const auto locales = [](const QString &variables) {
            QProcessEnvironment environment;
            for (const QString &variable : variables.split(u' ', Qt::SkipEmptyParts))
                environment.insert(variable.section(u'=', 0, 0), variable.section(u'=', 1));
            const FormatLocale locale = FormatLocale::fromEnvironment(environment);
            return locale.dates == locale.numbers ? locale.dates : locale.dates + ' ' + locale.numbers;
        };
        QCOMPARE(locales({}), "en_US"_ba);
        QCOMPARE(locales(u"LANG=de_DE.UTF-8"_s), "de_DE"_ba);
        QCOMPARE(locales(u"LANG=en_US.UTF-8 LC_TIME=da_DK.UTF-8"_s), "da_DK en_US"_ba);
        QCOMPARE(locales(u"LANG=en_US LC_NUMERIC=ar_EG.UTF-8"_s), "en_US ar_EG"_ba);
        QCOMPARE(locales(u"LC_ALL=ja_JP.UTF-8 LC_TIME=fr_FR LANG=de_DE"_s), "ja_JP"_ba);
        QCOMPARE(locales(u"LC_ALL= LC_TIME= LANG=fi_FI"_s), "fi_FI"_ba); // empty means unset
        QCOMPARE(locales(u"LANG=C.UTF-8 LC_NUMERIC=POSIX"_s), "en_US"_ba);
        QCOMPARE(locales(u"LANG=fr_FR@euro"_s), "fr_FR"_ba);
        QCOMPARE(locales(u"LANG=sr_RS.UTF-8@latin"_s), "sr_Latn_RS"_ba);
        QCOMPARE(locales(u"LANG=uz@cyrillic"_s), "uz_Cyrl"_ba);
    }
};

QTEST_GUILESS_MAIN(tst_FormatLocale)
#include "tst_FormatLocale.moc"
