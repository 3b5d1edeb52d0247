// SPDX-License-Identifier: GPL-3.0-or-later
#include "detail/FeedbackMail.h"

#include "detail/SupportServices.h"
#include "platform/AddressOpener.h"
#include "platform/MailComposer.h"

#include <QGuiApplication>

namespace trackwise {

namespace {

// What may stand in the query of an address as it is, beside letters, digits and "-._~"; see RFC 3986, 3.4.
constexpr auto allowedInQuery = "!$&'()*+,;=:@/?";
const QString subject = QStringLiteral("Trackwise");

} // namespace

FeedbackFacts feedbackFacts(const SupportServices &services)
{
    const QString version = QCoreApplication::applicationVersion();
    return {.bundleName = QGuiApplication::applicationDisplayName(),
            .version = version.isEmpty() ? std::nullopt : std::optional(version),
            .system = services.describeSystem ? services.describeSystem() : SystemDescription()};
}

QString feedbackBody(const FeedbackFacts &facts)
{
    Q_ASSERT_X(!facts.bundleName.isEmpty(), "feedbackBody", "a program without a name");
    QString body = QStringLiteral("\n\n\u2043\u2043\n");
    body += facts.bundleName + u' ' + facts.version.value_or(QStringLiteral("0")) + u'\n';
    body += facts.system.name;
    if (facts.system.isTablet)
        body += QStringLiteral(" tablet");
    return body + u' ' + facts.system.version;
}

QUrl mailtoAddress(const QString &recipient)
{
    const QString text = QStringLiteral("mailto:") + recipient + QStringLiteral("?subject=") + subject;
    return QUrl::fromEncoded(QUrl::toPercentEncoding(text, allowedInQuery), QUrl::StrictMode);
}

void sendFeedbackMail(const SupportServices &services, const FeedbackFacts &facts, AddressOpener &addresses)
{
    const QString recipient = services.deployment.supportAddress;
    const auto openMailto = [recipient, &addresses] {
        const QUrl address = mailtoAddress(recipient);
        if (address.isValid())
            addresses.open(address);
    };
    if (services.mail)
        services.mail->compose({recipient, subject, feedbackBody(facts)}, openMailto);
    else
        openMailto();
}

} // namespace trackwise
