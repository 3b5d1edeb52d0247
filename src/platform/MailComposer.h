// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

#include <functional>

namespace trackwise {

/// A message in plain text, as it is before the user looks at it.
struct MailMessage
{
    QString recipient; ///< a bare address
    QString subject;
    QString body;

    friend bool operator==(const MailMessage &, const MailMessage &) = default;
};

/// Lets the user complete and send a message in a mail program. Main thread; never blocks.
class MailComposer
{
public:
    virtual ~MailComposer() = default;

    /// @p whenUnavailable is called later, on the main thread, where the device cannot compose mail. What
    /// the user does with the message is not told.
    virtual void compose(const MailMessage &message, std::function<void()> whenUnavailable) = 0;
};

} // namespace trackwise
