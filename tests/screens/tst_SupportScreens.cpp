// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/DeviceConditions.h"
#include "screens/AboutView.h"
#include "screens/GradientDrift.h"
#include "screens/HelpView.h"
#include "support/Test.h"
#include "support/ViewWindow.h"
#include "ui/SheetFrame.h"

namespace {

class Conditions : public DeviceConditions
{
public:
    [[nodiscard]] bool isScreenReaderRunning() const override { return hasReader; }
    [[nodiscard]] bool isSavingPower() const override { return savesPower; }

    bool hasReader = false;
    bool savesPower = false;
};

struct About
{
    QStringList asked;
    Conditions conditions;
    AboutView screen{{u"1.2"_s, u"Jo Doe"_s, [this] { asked << u"dismiss"_s; },
                      [this] { asked << u"more"_s; }, [this] { asked << u"rate"_s; },
                      [this] { asked << u"privacy"_s; }},
                     &conditions};
};

struct AboutWindow : About, ViewWindow
{
    explicit AboutWindow(QSize size, const ThemeSettings &settings = {})
        : ViewWindow(size, settings)
    {
        show("Screens/AboutView.qml", "screen", QVariant::fromValue(&screen));
    }
    [[nodiscard]] GradientDrift *drift() const { return window.findChild<GradientDrift *>(); }
    [[nodiscard]] bool isRow() { return place(u"More Apps"_s).top() == place(u"Privacy Policy"_s).top(); }
};

} // namespace

class tst_SupportScreens : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void sheetsStandWhereThereIsRoom()
    {
        const QSizeF own(715, 475);
        QCOMPARE(sheetFrame({715, 475}, own), QRectF(0, 0, 715, 475));
        QCOMPARE(sheetFrame({1440, 900}, own), QRectF(362.5, 212.5, 715, 475));
        for (const QSizeF &room : {QSizeF(714, 900), QSizeF(720, 360), QSizeF(360, 720)})
            QCOMPARE(sheetFrame(room, own), QRectF({}, room));
        QCOMPARE(sheetFrame({699, 600}, {}), QRectF(0, 12, 699, 588));
        QCOMPARE(sheetFrame({700, 560}, {}), QRectF(80, 40, 540, 480));
        QCOMPARE(sheetFrame({700, 559}, {}), QRectF(80, 12, 540, 535));
        QCOMPARE(sheetFrame({1000, 1000}, {}), QRectF(230, 90, 540, 820));
    }

    void theAboutScreenIsReadAndUsedInOrder()
    {
        AboutWindow about({715, 475});
        QCOMPARE(about.names(),
                 QStringList({u"Close"_s, u"App icon"_s, u"Trackwise"_s, u"Version 1.2"_s, u"Jo Doe"_s,
                              u"More Apps"_s, u"Rate on App Store"_s, u"Privacy Policy"_s}));
        QVERIFY(about.find(u"Trackwise"_s, QAccessible::Heading));
        QCOMPARE(about.place(u"Close"_s), QRectF(655, 0, 60, 60));
        QCOMPARE(about.place(u"App icon"_s).top(), 50.0);
        about.press(Qt::Key_Space); // has the focus first
        for (const char *name : {"More Apps", "Rate on App Store", "Privacy Policy"})
            about.click(Qt::LeftButton, QString::fromLatin1(name), QAccessible::Button);
        QCOMPARE(about.asked, QStringList({u"dismiss"_s, u"more"_s, u"rate"_s, u"privacy"_s}));
        QCOMPARE(AboutView({}, nullptr).versionLine(), u"Version "_s);
    }

    void theAboutScreenIsLaidOutByItsSize()
    {
        const std::tuple<QSize, qreal, bool, qreal> rows[]{
            // The window, the margin beside texts, whether the buttons are in a row, the margin below them.
            {{500, 700}, 25, false, 16}, {{501, 700}, 50, false, 16}, {{600, 600}, 50, false, 16},
            {{601, 600}, 50, true, 20},  {{720, 360}, 50, true, 20},
        };
        for (const auto &[size, side, isRow, below] : rows) {
            AboutWindow about(size);
            QCOMPARE(about.place(u"Jo Doe"_s).left(), side);
            QCOMPARE(about.place(u"Jo Doe"_s).right(), size.width() - side);
            QCOMPARE(about.isRow(), isRow);
            QCOMPARE(about.place(u"Privacy Policy"_s).bottom(), size.height() - below);
        }
        AboutWindow large({720, 360}, {.textScale = 3.12});
        QVERIFY(!large.isRow()); // would not be read in one
        QVERIFY(large.place(u"Privacy Policy"_s).top() > 360);
        for (const Qt::Key key : {Qt::Key_End, Qt::Key_Backtab}) {
            large.press(key);
            QTRY_VERIFY(large.place(u"Privacy Policy"_s).bottom() <= 360);
            QCOMPARE(large.place(u"Close"_s).top(), 0.0); // stays in its corner
            large.press(Qt::Key_Home);
            QTRY_VERIFY(large.place(u"Privacy Policy"_s).top() > 360);
        }
    }

    void driftsWhileNothingAsksForLessMotion()
    {
        AboutWindow about({715, 475});
        const auto change = [&](bool hasReader, bool savesPower) {
            about.conditions.hasReader = hasReader;
            about.conditions.savesPower = savesPower;
            Q_EMIT about.conditions.conditionsDidChange();
            return about.drift()->isRunning();
        };
        QVERIFY(about.drift()->isRunning());
        QCOMPARE(about.drift()->size(), QSizeF(715, 475));
        QVERIFY(!change(true, false));
        QVERIFY(!change(false, true));
        QVERIFY(change(false, false));
        QTRY_VERIFY(about.drift()->startPoint().y() < 0);
        QVERIFY(about.drift()->startPoint().y() > -0.5); // slowly
        const AboutWindow still({715, 475}, {.reducesMotion = true});
        QVERIFY(!still.drift()->isRunning());
        QCOMPARE(still.drift()->plane(), gradientPlane({}, {715, 475}));
    }

    void theGradientLeavesAndComesBack()
    {
        const GradientPoints atRest{{0, 0}, {1, 1}};
        const GradientPoints farthest{{0, -1}, {-1, 1}};
        for (const double turn : {0.0, 40.0, 400.0}) {
            QCOMPARE(driftingPoints(turn), atRest);
            QCOMPARE(driftingPoints(turn + 20), farthest);
            QVERIFY(qAbs(driftingPoints(turn + 10).startPoint.y() + 0.5) < 0.001);
        }
        QVERIFY(driftingPoints(2).startPoint.y() > -0.05); // sets off slowly
        QCOMPARE(driftingPoints(15), driftingPoints(25));
        const QVector3D diagonal = gradientPlane(atRest, {200, 100});
        QCOMPARE(diagonal, QVector3D(0.8F, 0.2F, 0)); // right-angled to the diagonal of the rectangle
        QCOMPARE(gradientPlane(farthest, {100, 100}), QVector3D(-0.2F, 0.4F, 0.4F));
        QCOMPARE(gradientPlane(atRest, {0, 0}), QVector3D());
        QVERIFY(qAbs(greatestChange({1, 0, 0}, {1, 0.25F, 0}) - 0.25) < 1e-6);
        QCOMPARE(greatestChange({0, 0, 2}, {0, 0, 3}), 0.0); // one colour either way
        QCOMPARE(smallestStep(360 * 720), 1 / 55.0);
        QCOMPARE(smallestStep(360 * 720 + 520'000), 2 / 55.0);
        QCOMPARE(smallestStep(1e9), 4 / 55.0);
    }

    void theHelpScreenIsReadAndUsedInOrder()
    {
        QStringList asked;
        HelpView screen({[&] { asked << u"dismiss"_s; }, [&] { asked << u"mail"_s; }});
        ViewWindow help({540, 900});
        help.show("Screens/HelpView.qml", "screen", QVariant::fromValue(&screen));
        QStringList starts;
        for (const QString &name : help.names())
            starts << name.left(12);
        QCOMPARE(starts, QStringList({u"Help"_s, u"Done"_s, u"App"_s, u"Select any s"_s, u"Share Sheet "_s,
                                      u"Share a song"_s, u"The action e"_s, u"Contact Supp"_s,
                                      u"Reach out if"_s, u"Email the De"_s}));
        for (const char *heading : {"Help", "App", "Share Sheet Action", "Contact Support"})
            QVERIFY(help.find(QString::fromLatin1(heading), QAccessible::Heading));
        QCOMPARE(help.place(u"Select any"_s).left(), 22.0);
        help.window.resize(539, 300);
        QTRY_COMPARE(help.place(u"Select any"_s).left(), 18.0);
        help.press(Qt::Key_End); // read by keys, although "Done" has the focus
        QTRY_VERIFY(help.place(u"Email the"_s).bottom() <= 300);
        help.press(Qt::Key_Return);
        help.press({Qt::Key_Tab, Qt::Key_Return});
        QCOMPARE(asked, QStringList({u"dismiss"_s, u"mail"_s}));
    }
};

QTEST_MAIN(tst_SupportScreens)
#include "tst_SupportScreens.moc"
