// SPDX-License-Identifier: GPL-3.0-or-later
#include "song/PersistentID.h"

#include <algorithm>

namespace trackwise {

namespace {
constexpr int hexDigits = 16;

bool isHexDigit(QChar c)
{
    const QChar lower = c.toLower();
    return (lower >= u'0' && lower <= u'9') || (lower >= u'a' && lower <= u'f');
}
} // namespace

QString PersistentID::toString() const
{
    return QStringLiteral("%1").arg(static_cast<quint64>(value), hexDigits, 16, QLatin1Char('0')).toUpper();
}

std::optional<PersistentID> PersistentID::fromString(const QString &text)
{
    if (text.size() != hexDigits || !std::all_of(text.begin(), text.end(), isHexDigit))
        return std::nullopt;
    const PersistentID id{text.toULongLong(nullptr, 16)};
    return id.isInLibrary() ? std::optional(id) : std::nullopt;
}

} // namespace trackwise
