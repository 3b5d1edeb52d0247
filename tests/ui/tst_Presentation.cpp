// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/Presentation.h"

#include <QTest>

using namespace trackwise;

namespace {

std::shared_ptr<HostedView> view(const QString &title)
{
    return std::make_shared<HostedView>(title, QUrl(), QVariantMap());
}

std::unique_ptr<Alert> alert(const QString &title, std::function<void()> onOk = {})
{
    std::vector<AlertAction> actions;
    actions.push_back({QStringLiteral("OK"), AlertAction::Style::Cancel, std::move(onOk)});
    return std::make_unique<Alert>(title, QString(), std::move(actions), 0);
}

} // namespace

/// Plays the part of the views: animations end when the test says so.
class tst_Presentation : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void completesADismissalWhenItsAnimationHasEnded()
    {
        Presentation presentation;
        presentation.setAnimated(true);
        presentation.present(view(QStringLiteral("one")));
        bool completed = false;
        presentation.dismiss([&] { completed = true; });
        QVERIFY(!presentation.isSheetVisible());
        QCoreApplication::processEvents();
        QVERIFY(!completed);
        presentation.sheetDidHide();
        QVERIFY(completed);
        QVERIFY(!presentation.isPresenting());
    }

    void completesAtOnceWhenNothingIsPresented()
    {
        Presentation presentation;
        bool completed = false;
        presentation.dismiss([&] { completed = true; });
        QVERIFY(completed);
    }

    void presentsAfterTheDismissalThatRuns()
    {
        Presentation presentation;
        presentation.setAnimated(true);
        presentation.present(view(QStringLiteral("one")));
        presentation.present(view(QStringLiteral("dropped")));
        QCOMPARE(presentation.sheet()->title(), QStringLiteral("one"));
        presentation.dismiss();
        presentation.present(view(QStringLiteral("two")));
        QCOMPARE(presentation.sheet()->title(), QStringLiteral("one"));
        presentation.sheetDidHide();
        QCOMPARE(presentation.sheet()->title(), QStringLiteral("two"));
        QVERIFY(presentation.isSheetVisible());
    }

    void showsAlertsOneAfterTheOther()
    {
        Presentation presentation;
        QStringList answered;
        for (const QString &title : {QStringLiteral("a"), QStringLiteral("b")})
            presentation.presentAlert(alert(title, [&answered, title] { answered << title; }));
        QCOMPARE(presentation.alert()->title(), QStringLiteral("a"));
        presentation.chooseAlertAction(7);
        QVERIFY(presentation.isAlertVisible());
        presentation.chooseAlertAction(0);
        QVERIFY(answered.isEmpty());
        QTRY_COMPARE(answered, QStringList(QStringLiteral("a")));
        QCOMPARE(presentation.alert()->title(), QStringLiteral("b"));
        presentation.chooseAlertAction(0);
        QTRY_COMPARE(answered.size(), 2);
        QVERIFY(!presentation.isPresenting());
    }

    void survivesAnAnswerThatEndsTheWindow()
    {
        auto presentation = std::make_unique<Presentation>();
        presentation->presentAlert(alert(QStringLiteral("a"), [&] { presentation.reset(); }));
        presentation->chooseAlertAction(0);
        QTRY_VERIFY(!presentation);
    }

    void keepsAPoppedViewUntilItHasLeft()
    {
        Presentation presentation;
        presentation.setAnimated(true);
        std::weak_ptr<HostedView> watched;
        {
            const auto pushed = view(QStringLiteral("lyrics"));
            watched = pushed;
            presentation.push(pushed);
        }
        presentation.pop();
        QCoreApplication::processEvents();
        QVERIFY(!watched.expired());
        presentation.viewDidLeave();
        QTRY_VERIFY(watched.expired());
        presentation.pop(); // nothing left: nothing happens
    }
};

QTEST_GUILESS_MAIN(tst_Presentation)
#include "tst_Presentation.moc"
