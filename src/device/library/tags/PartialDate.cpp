// SPDX-License-Identifier: GPL-3.0-or-later
#include "device/library/tags/PartialDate.h"

#include <QDateTime>
#include <QRegularExpression>

#include <algorithm>

namespace trackwise {

namespace {

/// Takes numbers and separators off the front of a text.
class Scanner
{
public:
    explicit Scanner(QStringView text)
        : m_text(text)
    {}

    /// A number of @p atLeast to @p atMost digits.
    std::optional<int> number(int atLeast, int atMost)
    {
        int value = 0;
        int digits = 0;
        while (digits < atMost && digits < m_text.size() && isDigit(m_text[digits]))
            value = value * 10 + (m_text[digits++].unicode() - u'0');
        if (digits < atLeast)
            return std::nullopt;
        m_text = m_text.mid(digits);
        return value;
    }

    /// One of the characters of @p any; which one, or a null character.
    QChar one(QStringView any)
    {
        if (m_text.isEmpty() || !any.contains(m_text.front()))
            return {};
        const auto found = m_text.front();
        m_text = m_text.mid(1);
        return found;
    }

    [[nodiscard]] bool atDigit() const { return !m_text.isEmpty() && isDigit(m_text.front()); }

private:
    static bool isDigit(QChar c) { return c >= u'0' && c <= u'9'; }

    QStringView m_text;
};

void readOffset(Scanner &scanner, PartialDate &date)
{
    const auto sign = scanner.one(u"Zz+-");
    if (sign.isNull())
        return;
    int seconds = 0;
    if (sign == u'+' || sign == u'-') {
        const auto hours = scanner.number(2, 2);
        scanner.one(u":");
        const auto minutes = scanner.number(2, 2);
        if (!hours || *hours > 14)
            return;
        seconds = (*hours * 60 + std::min(minutes.value_or(0), 59)) * 60;
    }
    date.offsetSeconds = sign == u'-' ? -seconds : seconds;
}

void readTime(Scanner &scanner, PartialDate &date)
{
    if (scanner.one(u"Tt ").isNull())
        return;
    const auto hour = scanner.number(2, 2);
    if (!hour || *hour > 23)
        return;
    scanner.one(u":");
    const auto minute = scanner.number(2, 2).value_or(0);
    scanner.one(u":");
    const auto second = scanner.number(2, 2).value_or(0);
    if (minute > 59 || second > 60)
        return;
    date.precision = PartialDate::Precision::Time;
    date.secondOfDay = (*hour * 60 + minute) * 60 + std::min(second, 59);
    if (scanner.one(u".,") != QChar())
        scanner.number(0, 9);
    readOffset(scanner, date);
}

/// "05.03.2021" and the like: the day comes first, unless that cannot be; between slashes either may be
/// meant, so that only the year is known.
std::optional<PartialDate> fromYearAtTheEnd(const QString &text)
{
    static const QRegularExpression form(
        QStringLiteral(R"(^\s*([0-9]{1,2})\s*([./-])\s*([0-9]{1,2})\s*\2\s*([0-9]{4})(?![0-9]))"));
    const auto match = form.match(text);
    if (!match.hasMatch() || match.captured(4).toInt() == 0)
        return std::nullopt;
    PartialDate date{.year = match.captured(4).toInt(), .text = text};
    int day = match.captured(1).toInt();
    int month = match.captured(3).toInt();
    if (match.captured(2) == u"/" && day <= 12 && month <= 12 && day != month)
        return date;
    if (month > 12)
        std::swap(day, month);
    if (QDate::isValid(date.year, month, day)) {
        date.month = month;
        date.day = day;
        date.precision = PartialDate::Precision::Day;
    }
    return date;
}

/// A year anywhere in the text: "March 2021", "© 1999".
std::optional<PartialDate> fromYearWithin(const QString &text)
{
    static const QRegularExpression form(QStringLiteral("(?<![0-9])[12][0-9]{3}(?![0-9])"));
    const auto match = form.match(text);
    if (!match.hasMatch())
        return std::nullopt;
    return PartialDate{.year = match.captured().toInt(), .text = text};
}

} // namespace

std::optional<PartialDate> PartialDate::fromText(const QString &text)
{
    Scanner scanner(QStringView(text).trimmed());
    const auto year = scanner.number(4, 4);
    if (!year || *year == 0) {
        const auto date = fromYearAtTheEnd(text);
        return date ? date : fromYearWithin(text);
    }
    PartialDate date{.year = *year, .text = text};

    // What follows the year counts only as far as it makes sense.
    const bool separated = !scanner.one(u"-/.").isNull();
    if (!scanner.atDigit())
        return date;
    const auto month = scanner.number(separated ? 1 : 2, 2);
    if (!month || *month < 1 || *month > 12)
        return date;
    if (separated)
        scanner.one(u"-/.");
    const auto day = scanner.number(separated ? 1 : 2, 2);
    if (!separated && !day) // "20213": not a date without separators
        return date;
    date.month = *month;
    date.precision = Precision::Month;
    if (!day || !QDate::isValid(date.year, date.month, *day))
        return date;
    date.day = *day;
    date.precision = Precision::Day;
    readTime(scanner, date);
    return date;
}

Instant PartialDate::start(const QTimeZone &zone) const
{
    const QDate date(year, month, day);
    const auto time = QTime::fromMSecsSinceStartOfDay(secondOfDay * 1000);
    auto moment = offsetSeconds                 ? QDateTime(date, time, Qt::OffsetFromUTC, *offsetSeconds)
                  : precision < Precision::Time ? date.startOfDay(zone)
                                                : QDateTime(date, time, zone);
    return Instant(std::chrono::milliseconds(moment.toMSecsSinceEpoch()));
}

} // namespace trackwise
