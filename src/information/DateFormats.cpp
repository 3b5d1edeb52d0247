// SPDX-License-Identifier: GPL-3.0-or-later
#include "information/DateFormats.h"

#include <QDateTime>

#include <unicode/datefmt.h>
#include <unicode/measfmt.h>
#include <unicode/numfmt.h>
#include <unicode/simpletz.h>
#include <unicode/uchar.h>

#include <array>
#include <memory>
#include <span>

namespace trackwise {

namespace {

icu::Locale icuLocale(const QByteArray &name)
{
    return icu::Locale::createCanonical(name.constData());
}

QString fromIcu(const icu::UnicodeString &text)
{
    return QString::fromUtf16(text.getBuffer(), text.length());
}

// The offset comes from the zone's own rules, so that zones without a name that ICU knows work as well.
icu::TimeZone *zoneAt(Instant date, const QTimeZone &zone)
{
    constexpr int msPerSecond = 1000;
    const auto moment = QDateTime::fromMSecsSinceEpoch(date.time_since_epoch().count(), Qt::UTC);
    const int offsetSeconds = zone.isValid() ? zone.offsetFromUtc(moment) : 0;
    return new icu::SimpleTimeZone(offsetSeconds * msPerSecond, icu::UnicodeString());
}

QString formattedDate(Instant date, icu::DateFormat::EStyle timeStyle, const QByteArray &locale,
                      const QTimeZone &zone)
{
    const std::unique_ptr<icu::DateFormat> format(
        icu::DateFormat::createDateTimeInstance(icu::DateFormat::kLong, timeStyle, icuLocale(locale)));
    const auto sinceEpoch = static_cast<UDate>(date.time_since_epoch().count());
    if (!format) // ICU has no data at all
        return QDateTime::fromMSecsSinceEpoch(date.time_since_epoch().count()).toString(Qt::ISODate);
    format->adoptTimeZone(zoneAt(date, zone));
    icu::UnicodeString text;
    format->format(sinceEpoch, text);
    // Newer locale data puts a narrow no-break space before AM and PM, which few programs that a value is
    // pasted into expect.
    return fromIcu(text).replace(QChar(0x202f), u' ');
}

QString formattedMeasures(std::span<const icu::Measure> measures, const icu::Locale &locale)
{
    UErrorCode error = U_ZERO_ERROR;
    std::unique_ptr<icu::NumberFormat> digits(icu::NumberFormat::createInstance(locale, error));
    if (U_FAILURE(error))
        return {};
    digits->setGroupingUsed(false);
    const icu::MeasureFormat format(locale, UMEASFMT_WIDTH_NUMERIC, digits.release(), error);
    icu::UnicodeString text;
    icu::FieldPosition position;
    format.formatMeasures(measures.data(), static_cast<int32_t>(measures.size()), text, position, error);
    return U_SUCCESS(error) ? fromIcu(text) : QString();
}

bool isZeroDigit(QChar c)
{
    return u_charDigitValue(c.unicode()) == 0;
}

} // namespace

QString longDate(Instant date, const QByteArray &locale, const QTimeZone &zone)
{
    return formattedDate(date, icu::DateFormat::kNone, locale, zone);
}

QString longDateShortTime(Instant date, const QByteArray &locale, const QTimeZone &zone)
{
    return formattedDate(date, icu::DateFormat::kShort, locale, zone);
}

QString positionalDuration(double seconds, const QByteArray &locale)
{
    constexpr int secondsPerMinute = 60;
    constexpr int secondsPerHour = 3600;
    constexpr double longestSeconds = 1e12; // beyond it, counting is a fault of the tag
    const QString nothing = QStringLiteral("0");
    if (!(seconds >= 0 && seconds < longestSeconds))
        return nothing;

    const auto whole = static_cast<int64_t>(seconds);
    UErrorCode error = U_ZERO_ERROR;
    const std::array measures{
        icu::Measure(icu::Formattable(whole / secondsPerHour), icu::MeasureUnit::createHour(error), error),
        icu::Measure(icu::Formattable(whole % secondsPerHour / secondsPerMinute),
                     icu::MeasureUnit::createMinute(error), error),
        icu::Measure(icu::Formattable(whole % secondsPerMinute), icu::MeasureUnit::createSecond(error),
                     error),
    };
    if (U_FAILURE(error))
        return nothing;
    const bool showsHours = whole >= secondsPerHour;
    QString text = formattedMeasures(std::span(measures).subspan(showsHours ? 0 : 1), icuLocale(locale));
    if (text.isEmpty())
        return nothing;
    // A locale may pad the leading unit; a single zero stands for no minutes.
    if (text.size() > 1 && isZeroDigit(text[0]) && isZeroDigit(text[1]))
        text.remove(0, 1);
    return text;
}

} // namespace trackwise
