// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "song/MediaItem.h"

#include <QString>
#include <QTimeZone>

#include <cstdint>
#include <optional>

namespace trackwise {

/// A date as tags write it: "2021", "2021-03", "2021-03-05" or with a time of day, and how much of it is
/// known. What is not known has the value of the period's start.
struct PartialDate
{
    enum class Precision : std::uint8_t { Year, Month, Day, Time };

    Precision precision = Precision::Year;
    int year = 0; ///< 1 to 9999
    int month = 1;
    int day = 1;
    int secondOfDay = 0;
    std::optional<int> offsetSeconds; ///< east of UTC, when the text says so ("Z" is 0)
    QString text;                     ///< as written

    /// Reads ISO 8601 and the spellings seen in tags (20210305, 2021/3/5, 05.03.2021, a blank for the T). A
    /// text that otherwise holds a year is that year; nothing when it has none.
    [[nodiscard]] static std::optional<PartialDate> fromText(const QString &text);

    /// Start of the period in @p zone, unless the text itself tells the offset.
    [[nodiscard]] Instant start(const QTimeZone &zone = QTimeZone::systemTimeZone()) const;

    friend bool operator==(const PartialDate &, const PartialDate &) = default;
};

} // namespace trackwise
