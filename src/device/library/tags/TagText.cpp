// SPDX-License-Identifier: GPL-3.0-or-later
#include "device/library/tags/TagText.h"

namespace trackwise {

QString textOf(const TagLib::String &text)
{
    QString result(static_cast<qsizetype>(text.size()), Qt::Uninitialized);
    auto *to = result.data();
    for (const auto unit : text)
        *to++ = QChar(static_cast<char16_t>(unit));
    return result;
}

TagLib::String stringOf(const QString &text)
{
    return {std::wstring(text.utf16(), text.utf16() + text.size())};
}

std::string keyOf(const TagLib::String &key)
{
    std::string result(key.size(), '?');
    auto *to = result.data();
    for (const auto c : key) {
        if (c > 0 && c < 0x80)
            *to = static_cast<char>(c >= L'a' && c <= L'z' ? c - L'a' + L'A' : c);
        ++to;
    }
    return result;
}

} // namespace trackwise
