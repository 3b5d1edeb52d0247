// SPDX-License-Identifier: GPL-3.0-or-later
#include "artwork/Squircle.h"
#include "artwork/TileGround.h"
#include "support/Test.h"

#include <QQuickWindow>

#include <numbers>

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
    void theShadowIsABlurThatFadesAway()
    {
        const TileGroundPatch patch = drawTileGround(
            {.color = Qt::red, .radius = 12, .shadowOpacity = 0.5, .shadowRadius = 10, .shadowOffset = 10});
        QCOMPARE(patch.beyond, QMarginsF(30, 30, 30, 40)); // three deviations
        QCOMPARE(patch.fixed, QMarginsF(70, 70, 70, 80));  // with the shadow's inner part
        QCOMPARE(patch.image.size(), QSize(142, 152));     // two pixels are stretched
        const auto alpha = [&patch](int x, int y) { return qAlpha(patch.image.pixel(x, y)); };
        // Of 127.5 at the middle of each side, by the normal distribution.
        QCOMPARE(alpha(29, 80), 61); // 0.05 deviations outside
        QCOMPARE(alpha(20, 80), 22); // 0.95
        QCOMPARE(alpha(112, 80), 61);
        QCOMPARE(alpha(71, 29), 19); // 1.05, as the shadow lies lower
        QCOMPARE(alpha(71, 122), 61);
        QCOMPARE(alpha(71, 131), 22);
        QCOMPARE(alpha(29, 121), 32); // a corner has the product of both
        QCOMPARE(patch.image.pixelColor(71, 76), QColor(Qt::red));
        const TileGroundPatch flat =
            drawTileGround({.color = Qt::red, .radius = 12, .shadowRadius = 10, .shadowOffset = 10});
        QCOMPARE(flat.beyond, QMarginsF());
        QCOMPARE(flat.image.size(), QSize(40, 40)); // the corners reach 19 pixels
    }

    void cornersMeetACircleOnTheDiagonal()
    {
        const QPainterPath path = squirclePath({0, 0, 200, 100}, 20);
        QCOMPARE(path.boundingRect(), QRectF(0, 0, 200, 100));
        const qreal meeting = 20 * (1 - std::numbers::sqrt2 / 2);
        for (const QTransform &corner :
             {QTransform(1, 0, 0, 1, 0, 0), QTransform(-1, 0, 0, 1, 200, 0), QTransform(1, 0, 0, -1, 0, 100),
              QTransform(-1, 0, 0, -1, 200, 100)}) {
            const auto has = [&](qreal x, qreal y) { return path.contains(corner.map(QPointF(x, y))); };
            QVERIFY(has(meeting + 0.1, meeting + 0.1) && !has(meeting - 0.1, meeting - 0.1));
            QVERIFY(has(20 * squircleReach, 0.01) && !has(18, 0.01)); // no circle is as long
        }
        QCOMPARE(squirclePath({0, 0, 200, 100}, 1000), squirclePath({0, 0, 200, 100}, 50 / squircleReach));
    }

    void theShadowIsInOnePiece()
    {
        QQuickWindow window;
        window.resize(360, 360);
        TileGround ground(window.contentItem());
        ground.setPosition(tile.topLeft());
        ground.setSize(tile.size());
        for (const auto &[name, value] :
             std::initializer_list<std::pair<const char *, QVariant>>{{"color", QColor(Qt::red)},
                                                                      {"radius", 12},
                                                                      {"shadowOpacity", 0.5},
                                                                      {"shadowRadius", 10},
                                                                      {"shadowOffset", 10}})
            ground.setProperty(name, value);
        window.show();
        QVERIFY(QTest::qWaitForWindowExposed(&window));
        const QImage picture = window.grabWindow();
        QCOMPARE(picture.size(), QSize(540, 540));
        QCOMPARE(picture.pixelColor(270, 270), QColor(Qt::red));
        const int beside = strength(picture, 50, 180);
        const int below = strength(picture, 180, 310);
        QVERIFY(beside > 10 && below > beside);
        for (int along = 120; along < 240; ++along) { // no seams where it is the same all along
            QVERIFY2(qAbs(strength(picture, 50, along) - beside) <= 1, qPrintable(QString::number(along)));
            QVERIFY2(qAbs(strength(picture, along, 310) - below) <= 1, qPrintable(QString::number(along)));
        }
        QCOMPARE(strength(picture, 5, 180), 0);

        ground.setProperty("color", QColor(Qt::blue));
        ground.setSize({120, 240});
        const QImage narrow = window.grabWindow();
        QCOMPARE(narrow.pixelColor(180, 270), QColor(Qt::blue));
        QCOMPARE(strength(narrow, 230, 180), 0);
        ground.setSize({30, 30}); // smaller than its shadow
        const QImage small = window.grabWindow();
        QCOMPARE(small.pixelColor(112, 112), QColor(Qt::blue));
        QVERIFY(strength(small, 56, 75) > 10);
        QCOMPARE(strength(small, 56, 75), strength(small, 93, 75));
        QCOMPARE(strength(small, 75, 130), 0);
        ground.setSize({0.9, 240});
        QCOMPARE(strength(window.grabWindow(), 60, 180), 0);
    }
};

QTEST_MAIN(tst_TileGround)
#include "tst_TileGround.moc"
