// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

#include <string>
#include <string_view>

namespace trackwise::search {

/// A text by its characters, as the rules of words need it.
using Text = std::u32string;
using TextView = std::u32string_view;

/// A folded text with the letters by which it is searched: kana are hiragana, Arabic letters have no hamza
/// and no marks, digits of all scripts are ASCII.
[[nodiscard]] Text plainText(const QString &foldedText);

[[nodiscard]] bool isMark(char32_t c);
[[nodiscard]] bool isLetter(char32_t c);
[[nodiscard]] bool isLetterOrDigit(char32_t c);
/// Of a script that is written without blanks between words.
[[nodiscard]] bool isWrittenInOneRun(char32_t c);
/// Whether the character is a word by itself: a symbol, or one of those written in one run.
[[nodiscard]] bool standsAlone(char32_t c);
[[nodiscard]] bool isApostrophe(char32_t c);
/// Signs that stand within names, where others part them.
[[nodiscard]] bool isWithinNames(char32_t c);

void append(std::string &utf8, char32_t c);
[[nodiscard]] std::string toUtf8(TextView text);

} // namespace trackwise::search
