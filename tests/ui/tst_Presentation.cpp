// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/Presentation.h"

#include <QTest>

using namespace Qt::StringLiterals;
using namespace trackwise;

namespace {

std::shared_ptr<HostedView> view(const QString &title)
{
    return std::make_shared<HostedView>(title, QUrl(), QVariantMap());
}

std::unique_ptr<Alert> alert(const QString &title, std::function<void()> onOk = {})
{
    std::vector<AlertAction> actions;
    actions.push_back({u"OK"_s, AlertAction::Style::Cancel, std::move(onOk)});
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
        presentation.present(view(u"one"_s));
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
        presentation.present(view(u"one"_s));
        presentation.present(view(u"dropped"_s));
        QCOMPARE(presentation.sheet()->title(), u"one"_s);
        presentation.dismiss();
        presentation.present(view(u"two"_s));
        QCOMPARE(presentation.sheet()->title(), u"one"_s);
        presentation.sheetDidHide();
        QCOMPARE(presentation.sheet()->title(), u"two"_s);
        QVERIFY(presentation.isSheetVisible());
    }

    void showsAlertsOneAfterTheOther()
    {
        Presentation presentation;
        QStringList answered;
        for (const QString &title : {u"a"_s, u"b"_s})
            presentation.presentAlert(alert(title, [&answered, title] { answered << title; }));
        QCOMPARE(presentation.alert()->title(), u"a"_s);
        presentation.chooseAlertAction(7);
        QVERIFY(presentation.isAlertVisible());
        presentation.chooseAlertAction(0);
        QVERIFY(answered.isEmpty());
        QTRY_COMPARE(answered, QStringList(u"a"_s));
        QCOMPARE(presentation.alert()->title(), u"b"_s);
        presentation.chooseAlertAction(0);
        QTRY_COMPARE(answered.size(), 2);
        QVERIFY(!presentation.isPresenting());
    }

    void survivesAnAnswerThatEndsTheWindow()
    {
        auto presentation = std::make_unique<Presentation>();
        presentation->presentAlert(alert(u"a"_s, [&] { presentation.reset(); }));
        presentation->chooseAlertAction(0);
        QTRY_VERIFY(!presentation);
    }

    void keepsAPoppedViewUntilItHasLeft()
    {
        Presentation presentation;
        presentation.setAnimated(true);
        std::weak_ptr<HostedView> watched;
        {
            const auto pushed = view(u"lyrics"_s);
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
