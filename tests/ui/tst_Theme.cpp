// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/Engine.h"
#include "ui/Theme.h"

#include <QQmlComponent>
#include <QQmlEngine>
#include <QTest>

using namespace trackwise;

class tst_Theme : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void textCanBeReadOnEveryGround_data()
    {
        QTest::addColumn<bool>("dark");
        QTest::addColumn<bool>("highContrast");
        for (const bool dark : {false, true})
            for (const bool high : {false, true})
                QTest::addRow("%s%s", dark ? "dark" : "light", high ? ", high contrast" : "") << dark << high;
    }
    void textCanBeReadOnEveryGround()
    {
        QFETCH(bool, dark);
        QFETCH(bool, highContrast);
        Theme theme;
        theme.setSettings({.isDark = dark, .isHighContrast = highContrast});
        for (const QColor &ground : {theme.systemBackground(), theme.secondarySystemBackground(),
                                     theme.tertiarySystemBackground()}) {
            for (const QColor &text : {theme.label(), theme.secondaryLabel(), theme.accent()})
                QVERIFY2(contrastRatio(text, ground) >= 4.5, qPrintable(text.name() + ground.name()));
        }
        QVERIFY(contrastRatio(theme.onAccent(), theme.accent()) >= 4.5);
    }

    void takesTheDesktopsAccentOnlyWhereItCanBeRead()
    {
        Theme theme;
        const QColor ours = theme.accent();
        theme.setSettings({.accent = QColor(Qt::yellow)});
        QCOMPARE(theme.accent(), ours);
        theme.setSettings({.isDark = true, .accent = QColor(Qt::yellow)});
        QCOMPARE(theme.accent(), QColor(Qt::yellow));
    }

    void viewsFollowTheSettings()
    {
        QQmlEngine engine;
        prepareEngine(engine);
        QQmlComponent component(&engine);
        component.setData(
            "import QtQuick\nimport Trackwise.Ui\nStyledText { style: Theme.title2; text: '<b>x</b>' }", {});
        const std::unique_ptr<QObject> text(component.create());
        QVERIFY2(text, qPrintable(component.errorString()));
        QCOMPARE(text->property("font").value<QFont>().pixelSize(), 22);
        QCOMPARE(text->property("lineHeight").toReal(), 28.0);

        Theme *theme = &themeOf(engine);
        theme->setSettings({.isDark = true, .textSize = 11});
        QCOMPARE(text->property("color").value<QColor>(), theme->label());
        QCOMPARE(text->property("font").value<QFont>().pixelSize(), theme->title2().font.pixelSize());
        QVERIFY(theme->isAccessibilitySize());
    }
};

QTEST_MAIN(tst_Theme)
#include "tst_Theme.moc"
