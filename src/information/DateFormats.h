// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "song/MediaItem.h"

#include <QByteArray>
#include <QString>
#include <QTimeZone>

namespace trackwise {

/// A date with its month written out, as the locale writes it: "March 5, 2021".
/// @p locale is an ICU identifier. Any thread.
[[nodiscard]] QString longDate(Instant date, const QByteArray &locale, const QTimeZone &zone);

/// The same with the time of day to the minute: "March 5, 2021 at 3:04 PM".
[[nodiscard]] QString longDateShortTime(Instant date, const QByteArray &locale, const QTimeZone &zone);

/// A length of time in the locale's digits and separators, cut to whole seconds: "0:45", "3:25", "1:02:03".
/// There is no limit to the hours and they are not grouped. "0" when @p seconds cannot be counted.
[[nodiscard]] QString positionalDuration(double seconds, const QByteArray &locale);

} // namespace trackwise
