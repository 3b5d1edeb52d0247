// SPDX-License-Identifier: GPL-3.0-or-later
#include "detail/SupportScreens.h"

#include "detail/MoreMenu.h"
#include "detail/SupportServices.h"
#include "screens/AboutView.h"
#include "screens/HelpView.h"
#include "ui/Presentation.h"

#include <QCoreApplication>
#include <QPointer>

namespace trackwise {

namespace {

constexpr QSizeF aboutSize(715, 475);

// Once: a screen that leaves can still be pressed.
std::function<void()> dismissal(Presentation &presentation, Presentation::Completion completion = {})
{
    return [target = QPointer(&presentation), completion = std::move(completion)] {
        if (target && target->isSheetVisible())
            target->dismiss(completion);
    };
}

QUrl viewNamed(const QString &name)
{
    return QUrl(QStringLiteral("qrc:/qt/qml/Trackwise/Screens/%1.qml").arg(name));
}

} // namespace

void presentHelpScreen(Presentation &presentation, std::function<void()> contactSupport)
{
    auto screen = std::make_shared<HelpView>(
        HelpView::Actions{.dismissAction = dismissal(presentation),
                          .contactSupportAction = dismissal(presentation, std::move(contactSupport))});
    QObject::connect(&presentation, &Presentation::sheetCancelRequested, screen.get(), &HelpView::dismiss);
    presentation.present(std::make_shared<HostedView>(
        MoreMenu::tr("Help"), viewNamed(QStringLiteral("HelpView")), "screen", std::move(screen)));
}

void presentAboutScreen(Presentation &presentation, const SupportServices &services, AboutLinks links)
{
    AboutView::Content content{.version = QCoreApplication::applicationVersion(),
                               .developerName = services.deployment.developerName,
                               .dismissAction = dismissal(presentation),
                               .moreAppsAction = std::move(links.showMoreApps),
                               .rateAction = std::move(links.rate),
                               .privacyAction = std::move(links.showPrivacyPolicy)};
    auto screen = std::make_shared<AboutView>(std::move(content), services.conditions);
    QObject::connect(&presentation, &Presentation::sheetCancelRequested, screen.get(), &AboutView::dismiss);
    auto view = std::make_shared<HostedView>(MoreMenu::tr("About"), viewNamed(QStringLiteral("AboutView")),
                                             "screen", std::move(screen));
    view->setPreferredSize(aboutSize);
    presentation.present(std::move(view));
}

} // namespace trackwise
