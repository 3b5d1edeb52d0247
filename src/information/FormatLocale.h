// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QProcessEnvironment>

namespace trackwise {

/// The user's conventions for dates and for numbers, which may differ: ICU locale identifiers such as
/// "de_CH" or "sr_Latn_RS".
struct FormatLocale
{
    QByteArray dates = "en_US";
    QByteArray numbers = "en_US"; ///< also of durations

    /// Read from LC_ALL, LC_TIME, LC_NUMERIC and LANG, in the order that setlocale(3) gives them. "C",
    /// "POSIX" and an empty environment mean US English.
    [[nodiscard]] static FormatLocale
    fromEnvironment(const QProcessEnvironment &environment = QProcessEnvironment::systemEnvironment());

    friend bool operator==(const FormatLocale &, const FormatLocale &) = default;
};

} // namespace trackwise
