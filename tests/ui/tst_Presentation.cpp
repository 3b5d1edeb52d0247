// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/Test.h"
#include "ui/Presentation.h"

#include <QSignalSpy>

namespace {

std::shared_ptr<HostedView> view(const QString &title)
{
    return std::make_shared<HostedView>(title, QUrl(), QVariantMap());
}

std::unique_ptr<Alert> alert(const QString &title, std::function<void()> onOk = {})
{
    const AlertAction ok{u"OK"_s, AlertAction::Style::Cancel, std::move(onOk)};
    return std::make_unique<Alert>(title, QString(), std::vector{ok}, 0);
}

} // namespace

/// Plays the part of the views: animations end when the test says so.
class tst_Presentation : public QObject
{
    Q_OBJECT

    std::unique_ptr<Presentation> m_presentation;

private Q_SLOTS:
    void init()
    {
        m_presentation = std::make_unique<Presentation>();
        m_presentation->setAnimated(true);
    }

    void completesADismissalWhenItsAnimationHasEnded()
    {
        int completed = 0;
        const auto complete = [&completed] { ++completed; };
        m_presentation->dismiss(complete); // nothing is there
        QCOMPARE(completed, 1);
        m_presentation->present(view(u"one"_s));
        m_presentation->sheetDidHide(); // of no sheet that was to go
        QVERIFY(m_presentation->isSheetVisible());
        m_presentation->dismiss(complete);
        QVERIFY(!m_presentation->isSheetVisible());
        QCoreApplication::processEvents();
        QCOMPARE(completed, 1);
        m_presentation->sheetDidHide();
        QCOMPARE(completed, 2);
        QVERIFY(!m_presentation->isPresenting());
    }

    void presentsAfterTheDismissalThatRuns()
    {
        const QSignalSpy cancels(m_presentation.get(), &Presentation::sheetCancelRequested);
        m_presentation->cancelSheet();
        m_presentation->present(view(u"one"_s));
        m_presentation->present(view(u"dropped"_s));
        m_presentation->cancelSheet();
        m_presentation->dismiss();
        m_presentation->cancelSheet();
        QCOMPARE(cancels.size(), 1); // while it was there
        m_presentation->present(view(u"two"_s));
        QCOMPARE(m_presentation->sheet()->title(), u"one"_s);
        m_presentation->sheetDidHide();
        QCOMPARE(m_presentation->sheet()->title(), u"two"_s);
        QVERIFY(m_presentation->isSheetVisible());
    }

    void showsAlertsOneAfterTheOther()
    {
        QStringList answered;
        for (const QString &title : {u"a"_s, u"b"_s})
            m_presentation->presentAlert(alert(title, [&answered, title] { answered << title; }));
        QCOMPARE(m_presentation->alert()->title(), u"a"_s);
        for (const int nothing : {-1, 1})
            m_presentation->chooseAlertAction(nothing);
        m_presentation->alertDidHide();
        QVERIFY(m_presentation->isAlertVisible());
        m_presentation->chooseAlertAction(0);
        QVERIFY(answered.isEmpty());
        m_presentation->alertDidHide();
        QCOMPARE(answered, QStringList(u"a"_s));
        QCOMPARE(m_presentation->alert()->title(), u"b"_s);
        m_presentation->setAnimated(false);
        m_presentation->chooseAlertAction(0);
        QTRY_COMPARE(answered.size(), 2);
        QVERIFY(!m_presentation->isPresenting());
    }

    void survivesAnAnswerThatEndsTheWindow()
    {
        m_presentation->setAnimated(false);
        m_presentation->presentAlert(alert(u"a"_s, [&] { m_presentation.reset(); }));
        m_presentation->chooseAlertAction(0);
        QTRY_VERIFY(!m_presentation);
    }

    void keepsAPoppedViewUntilItHasLeft()
    {
        const QSignalSpy pops(m_presentation.get(), &Presentation::didPop);
        auto pushed = view(u"lyrics"_s);
        const std::weak_ptr<HostedView> watched = pushed;
        m_presentation->push(std::move(pushed));
        m_presentation->pop();
        QCoreApplication::processEvents();
        QVERIFY(!watched.expired());
        m_presentation->viewDidLeave();
        QTRY_VERIFY(watched.expired());
        m_presentation->pop(); // nothing is left
        QCOMPARE(pops.size(), 1);
    }
};

QTEST_GUILESS_MAIN(tst_Presentation)
#include "tst_Presentation.moc"
