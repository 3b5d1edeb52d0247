// SPDX-License-Identifier: GPL-3.0-or-later
#include "device/library/tags/Lyrics.h"

#include <QRegularExpression>
#include <QStringDecoder>
#include <QStringList>

#include <array>

namespace trackwise {

namespace {

QString fromWindows1252(QByteArrayView bytes)
{
    // The 32 characters in which it differs from Latin-1; the five free places stay what they are there.
    static constexpr std::array<char16_t, 32> upper = {
        0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
        0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
        0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};
    auto text = QString::fromLatin1(bytes);
    for (auto &c : text) {
        if (c >= QChar(0x80) && c < QChar(0xA0))
            c = QChar(upper[c.unicode() - 0x80]);
    }
    return text;
}

} // namespace

QString withoutTimeMarks(QString lyrics)
{
    static const QRegularExpression lineTimes(
        QStringLiteral(R"(^\s*(?:\[\d{1,3}:\d{1,2}(?:[.:]\d{1,3})?\] ?)+)"),
        QRegularExpression::MultilineOption);
    static const QRegularExpression wordTimes(QStringLiteral(R"(<\d{1,3}:\d{1,2}(?:[.:]\d{1,3})?> ?)"));
    static const QRegularExpression header(QStringLiteral(R"(^\s*\[[a-z#]{1,8}:.*\]\s*$)"),
                                           QRegularExpression::CaseInsensitiveOption);
    lyrics.replace(QStringLiteral("\r\n"), QStringLiteral("\n")).replace(u'\r', u'\n');
    if (!lyrics.contains(u'[') || !lyrics.contains(lineTimes))
        return lyrics;
    QStringList lines;
    for (auto &line : lyrics.split(u'\n')) {
        if (!line.contains(header))
            lines.append(line.remove(lineTimes).remove(wordTimes));
    }
    return lines.join(u'\n').trimmed();
}

QString decodedText(QByteArrayView bytes)
{
    if (const auto marked = QStringConverter::encodingForData(bytes)) {
        QStringDecoder decode(*marked);
        return decode(bytes);
    }
    QStringDecoder decode(QStringConverter::Utf8);
    const QString text = decode(bytes);
    return decode.hasError() ? fromWindows1252(bytes) : text;
}

} // namespace trackwise
