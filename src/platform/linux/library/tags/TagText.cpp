// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/linux/library/tags/TagText.h"

namespace trackwise {

QString textOf(const TagLib::String &text)
{
    QString result;
    result.reserve(static_cast<qsizetype>(text.size()));
    for (const auto c : text) {
        const auto code = static_cast<char32_t>(c);
        if (QChar::requiresSurrogates(code)) {
            result += QChar(QChar::highSurrogate(code));
            result += QChar(QChar::lowSurrogate(code));
        } else {
            result += QChar(static_cast<char16_t>(code));
        }
    }
    return result;
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
