// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/SystemDescription.h"

#include <QString>
#include <QUrl>

#include <optional>

namespace trackwise {

class AddressOpener;
struct SupportServices;

/// What a feedback mail tells of the program and of what it runs on.
struct FeedbackFacts
{
    QString bundleName;             ///< the program's, for people
    std::optional<QString> version; ///< the program's
    SystemDescription system;
};

/// Of this program, on this device.
[[nodiscard]] FeedbackFacts feedbackFacts(const SupportServices &services);

/// Room for the user's words, and below it the facts: name and version of the program, then of the system.
[[nodiscard]] QString feedbackBody(const FeedbackFacts &facts);

/// For devices that cannot compose mail: an address that opens a mail program. Invalid where no address can
/// be made.
[[nodiscard]] QUrl mailtoAddress(const QString &recipient);

/// Lets the user write to whoever ships the program. @p services and @p addresses must outlive the mail
/// composer's answer.
void sendFeedbackMail(const SupportServices &services, const FeedbackFacts &facts, AddressOpener &addresses);

} // namespace trackwise
