// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/Test.h"
#include "ui/Engine.h"
#include "ui/SymbolProvider.h"
#include "ui/Theme.h"

#include <QFontMetricsF>
#include <QQmlComponent>
#include <QQmlEngine>

class tst_Theme : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void contrastIsThatOfTheGuidelines()
    {
        const auto percent = [](QRgb color) { return qRound(100 * contrastRatio(QColor(color), Qt::white)); };
        const QList<int> ratios{percent(0x000000), percent(0x767676), percent(0xff0000), percent(0x008000),
                                percent(0x0000ff)};
        QCOMPARE(ratios, QList({2100, 454, 400, 514, 859}));
        QCOMPARE(qRound(1000 * contrastRatio(QColor(QRgb(0x0a0a0a)), Qt::black)), 1061);
    }

    void textCanBeReadOnEveryGround()
    {
        Theme theme;
        for (int kind = 0; kind < 4; ++kind) {
            theme.setSettings({.isDark = kind % 2 == 1, .isHighContrast = kind >= 2});
            for (const QColor &ground : {theme.systemBackground(), theme.secondarySystemBackground(),
                                         theme.tertiarySystemBackground()}) {
                for (const QColor &text : {theme.label(), theme.secondaryLabel(), theme.accent()})
                    QVERIFY2(contrastRatio(text, ground) >= 4.5, qPrintable(text.name() + ground.name()));
            }
            QVERIFY(contrastRatio(theme.onAccent(), theme.accent()) >= 4.5);
        }
    }

    void textGrowsWithTheSetting()
    {
        Theme theme;
        const auto sizes = [&theme](qreal scale) {
            theme.setSettings({.textScale = scale});
            QList<int> found;
            for (const TextStyle &style :
                 {theme.largeTitle(), theme.title(), theme.title2(), theme.title3(), theme.headline(),
                  theme.body(), theme.callout(), theme.subheadline(), theme.footnote(), theme.caption(),
                  theme.caption2(), theme.barTitle(), theme.barButton()})
                found << style.font.pixelSize() << qRound(style.lineHeight);
            return found;
        };
        QCOMPARE(sizes(1), QList({34, 41, 28, 34, 22, 28, 20, 25, 17, 22, 17, 22, 16,
                                  21, 15, 20, 13, 18, 12, 16, 11, 13, 17, 22, 15, 20}));
        QCOMPARE(sizes(2.35).mid(22), QList({24, 31, 24, 32})); // a bar has no room for more
        QCOMPARE(sizes(0.82).mid(0, 6), QList({28, 34, 23, 28, 18, 23}));
    }

    void wordsAreNotBroken()
    {
        Theme theme;
        theme.setSettings({.textScale = 3.12});
        const TextStyle style = theme.body();
        const QString words = u"a Reconnaissance of music"_s;
        const qreal widest = QFontMetricsF(style.font).horizontalAdvance(u"Reconnaissance"_s);
        QCOMPARE(style.keepingWords(words, widest), style); // the words beside it go on in other lines
        QCOMPARE(style.keepingWords(words, 0), style);
        const TextStyle smaller = style.keepingWords(words, 0.7 * widest);
        QVERIFY(QFontMetricsF(smaller.font).horizontalAdvance(u"Reconnaissance"_s) <= 0.7 * widest + 1);
        QVERIFY(smaller.lineHeight < style.lineHeight &&
                smaller.font.pixelSize() > 0.6 * style.font.pixelSize());
        QCOMPARE(style.keepingWords(words, 10).font.pixelSize(), style.font.pixelSize() / 2);
    }

    void takesTheDesktopsAccentOnlyWhereItCanBeRead()
    {
        Theme theme;
        const QColor ours = theme.accent();
        for (const QColor &pale : {QColor(Qt::yellow), QColor(QRgb(0x757575))}) { // this one: on white alone
            theme.setSettings({.accent = pale});
            QCOMPARE(theme.accent(), ours);
        }
        theme.setSettings({.isDark = true, .accent = QColor(Qt::yellow)});
        QCOMPARE(theme.accent(), QColor(Qt::yellow));
    }

    void symbolsAreDrawnInAColour()
    {
        SymbolProvider symbols;
        QSize size;
        const QImage image = symbols.requestImage(u"e.square.fill/#ff0000ff"_s, &size, {});
        QCOMPARE(size, QSize(24, 24));
        QCOMPARE(image.pixel(5, 5), qRgb(0, 0, 255)); // within the square, beside the letter
        QCOMPARE(qAlpha(image.pixel(0, 0)), 0);
        QCOMPARE(symbols.requestImage(u"note/#ff0000"_s, nullptr, {48, 40}).size(), QSize(48, 40));
        QVERIFY(symbols.requestImage(u"no such/#ff0000"_s, nullptr, {}).isNull());
        QVERIFY(symbols.requestImage(u"note/no colour"_s, nullptr, {}).isNull());
    }

    void viewsFollowTheSettings()
    {
        QQmlEngine engine;
        prepareEngine(engine);
        QQmlComponent component(&engine);
        component.setData(
            "import QtQuick\nimport Trackwise.Ui\nStyledText { style: Theme.title2; text: '<b>x</b>' }", {});
        const std::unique_ptr<QObject> text(component.create());
        Theme *theme = &themeOf(engine);
        theme->setSettings({.isDark = true, .textScale = 3.12});
        QCOMPARE(text->property("color").value<QColor>(), theme->label());
        QCOMPARE(text->property("font").value<QFont>(), theme->title2().font);
        QCOMPARE(text->property("lineHeight").toReal(), theme->title2().lineHeight);
    }
};

QTEST_MAIN(tst_Theme)
#include "tst_Theme.moc"
