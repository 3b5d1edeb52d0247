// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/Test.h"
#include "ui/Translations.h"

#include <QTranslator>

class tst_Translations : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void takesTheFirstLanguageThatWeHave()
    {
        const QString german = u":/translations/trackwise_de.qm"_s;
        QCOMPARE(translationFor({u"de-DE"_s, u"de"_s}), german);
        QCOMPARE(translationFor({u"de-CH"_s}), german);
        QCOMPARE(translationFor({u"tlh"_s, u"de"_s}), german);
        QCOMPARE(translationFor({u"en-US"_s, u"de"_s}), QString()); // English comes first, and is there
        QCOMPARE(translationFor({u"tlh"_s}), QString());
        QCOMPARE(translationFor({}), QString());
    }

    void translatesTextsAndTheDirectionOfWriting()
    {
        QTranslator arabic;
        QVERIFY(arabic.load(translationFor({u"ar"_s})));
        QCOMPARE(arabic.translate("EditMenu", "Copy"), u"نسخ"_s);
        QCOMPARE(arabic.translate("QGuiApplication", "QT_LAYOUT_DIRECTION"), u"RTL"_s);
    }
};

QTEST_GUILESS_MAIN(tst_Translations)
#include "tst_Translations.moc"
