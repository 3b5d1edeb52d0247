// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/WindowControllers.h"
#include "detail/FeedbackMail.h"
#include "detail/StoreLinks.h"
#include "platform/MailComposer.h"
#include "screens/HelpView.h"
#include "support/Test.h"

namespace {

class MailDouble : public MailComposer
{
public:
    void compose(const MailMessage &message, std::function<void()> whenUnavailable) override
    {
        composed.push_back(message);
        unavailable = std::move(whenUnavailable);
    }

    std::vector<MailMessage> composed;
    std::function<void()> unavailable;
};

struct Window : WindowControllers
{
    Window()
    {
        services.support.deployment = {.supportAddress = u"help me@example.org"_s,
                                       .storeHost = u"store.example"_s,
                                       .appStoreIdentifier = u"12"_s,
                                       .developerStoreIdentifier = u"34"_s,
                                       .webSite = u"https://site.example"_s};
        services.support.describeSystem = [] { return SystemDescription{u"System"_s, u"7.1"_s}; };
    }
    MailDouble mail;
};

const QString review = u"store.example/app/id12?mt=8&action=write-review"_s;
const QUrl mailto(u"mailto:help%20me@example.org?subject=Trackwise"_s);

} // namespace

class tst_Support : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        QGuiApplication::setApplicationDisplayName(u"Trackwise"_s);
        QCoreApplication::setApplicationVersion(u"1.2"_s);
    }

    void feedbackTellsOfTheProgramAndTheSystem()
    {
        const SystemDescription tablet{u"Some Linux"_s, u"12"_s, true};
        QCOMPARE(feedbackBody({u"Name"_s, u"0.1.0"_s, tablet}),
                 u"\n\n\u2043\u2043\nName 0.1.0\nSome Linux tablet 12"_s);
        QCOMPARE(feedbackBody({u"Name"_s, std::nullopt, {u"Other"_s, u"0"_s}}),
                 u"\n\n\u2043\u2043\nName 0\nOther 0"_s);
        QCOMPARE(mailtoAddress(u"a+b/c%d#e@example.org"_s).toEncoded(),
                 "mailto:a+b/c%25d%23e@example.org?subject=Trackwise"_ba);
    }

    void mailsFeedbackOrElseOpensAnAddress()
    {
        Window window;
        window.detail.sendFeedback(); // nothing composes
        QCOMPARE(window.addresses.opened, std::vector{mailto});
        window.services.support.mail = &window.mail;
        window.detail.sendFeedback();
        const MailMessage expected{u"help me@example.org"_s, u"Trackwise"_s,
                                   u"\n\n\u2043\u2043\nTrackwise 1.2\nSystem 7.1"_s};
        QCOMPARE(window.mail.composed, std::vector{expected});
        QCOMPARE(window.addresses.opened.size(), 1U);
        window.mail.unavailable();
        QCOMPARE(window.addresses.opened, std::vector({mailto, mailto}));
    }

    void mailsFromTheHelpScreenOnceThatHasGone()
    {
        Window window;
        window.services.support.mail = &window.mail;
        window.detail.presentHelp();
        const auto *help = qobject_cast<const HelpView *>(window.presentation.sheet()->model());
        help->contactSupport();
        help->contactSupport(); // twice, in a hurry
        QVERIFY(!window.presentation.isSheetVisible());
        QVERIFY(window.mail.composed.empty());
        QTRY_VERIFY(!window.mail.composed.empty());
        QVERIFY(!window.presentation.isPresenting());
        window.detail.presentHelp();
        help = qobject_cast<const HelpView *>(window.presentation.sheet()->model());
        help->dismiss();
        QTRY_VERIFY(!window.presentation.isPresenting());
        QCOMPARE(window.mail.composed.size(), 1U);
    }

    void linksLeadToTheStoreAndTheSite()
    {
        Window window;
        window.detail.rateApp();
        window.detail.showMoreApps();
        window.detail.showPrivacyPolicy();
        const QUrl inProgram(u"itms-apps://"_s + review), onTheWeb(u"https://"_s + review);
        std::vector<QUrl> expected{inProgram, QUrl(u"https://store.example/developer/id34"_s),
                                   QUrl(u"https://site.example/Trackwise/privacy.html"_s)};
        QCOMPARE(window.addresses.opened, expected);
        window.addresses.refused = u"itms-apps"_s;
        window.detail.rateApp();
        expected.insert(expected.end(), {inProgram, onTheWeb});
        QCOMPARE(window.addresses.opened, expected);
    }
};

QTEST_MAIN(tst_Support)
#include "tst_Support.moc"
