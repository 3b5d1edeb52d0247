// SPDX-License-Identifier: GPL-3.0-or-later
#include "artwork/TileGround.h"

#include <QQuickWindow>
#include <QTest>

using namespace trackwise;

namespace {

constexpr qreal pixelRatio = 1.5; // the environment says so: some points are no whole pixels
constexpr QRect tile(60, 60, 240, 240);

int strength(const QImage &picture, qreal x, qreal y)
{
    return 255 - qGray(picture.pixel(qRound(x * pixelRatio), qRound(y * pixelRatio)));
}

} // namespace

class tst_TileGround : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void theShadowIsInOnePiece()
    {
        QQuickWindow window;
        window.resize(360, 360);
        TileGround ground(window.contentItem());
        ground.setPosition(tile.topLeft());
        ground.setSize(tile.size());
        ground.setProperty("color", QColor(Qt::red));
        ground.setProperty("radius", 12);
        ground.setProperty("shadowOpacity", 0.5);
        ground.setProperty("shadowRadius", 10);
        ground.setProperty("shadowOffset", 10);
        window.show();
        QVERIFY(QTest::qWaitForWindowExposed(&window));
        const QImage picture = window.grabWindow();
        QCOMPARE(picture.size(), QSize(540, 540));
        QCOMPARE(picture.pixelColor(270, 270), QColor(Qt::red));
        const int beside = strength(picture, 50, 180);
        const int below = strength(picture, 180, 310);
        QVERIFY(beside > 10);
        QVERIFY(below > beside);
        for (int along = 120; along < 240; ++along) { // no seams where it is the same all along
            QVERIFY2(qAbs(strength(picture, 50, along) - beside) <= 1, qPrintable(QString::number(along)));
            QVERIFY2(qAbs(strength(picture, along, 310) - below) <= 1, qPrintable(QString::number(along)));
        }
        for (int from = 300; from < 345; ++from) // and it fades away
            QVERIFY(strength(picture, 180, from + 1) <= strength(picture, 180, from));
        QCOMPARE(strength(picture, 5, 180), 0);
    }
};

QTEST_MAIN(tst_TileGround)
#include "tst_TileGround.moc"
