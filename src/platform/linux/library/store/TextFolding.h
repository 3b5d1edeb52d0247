// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

#include <cstdint>
#include <string>
#include <vector>

namespace trackwise {

/// @p text without what people vary when they write it: width and composed forms (NFKC), diacritics of Latin
/// letters (ICU's Latin-ASCII: ø becomes o, ß becomes ss), letter case, accents and vowel points that Greek,
/// Russian, Arabic and Hebrew leave out as they please. Marks that make another letter stay: й, が. White
/// space is trimmed and collapsed; punctuation stays. Any thread.
[[nodiscard]] QString folded(const QString &text);

/// The words of a folded text in UTF-8 with one blank between them, as they are searched: punctuation parts
/// words, apostrophes are dropped. In scripts written without blanks each character is a word of its own,
/// and so is each symbol. A text of nothing but punctuation is given as it is.
[[nodiscard]] std::string searchText(const QString &foldedText);

/// What the user typed, ready to be looked for.
struct SearchWord
{
    std::string text;     ///< as in searchText()
    bool isWhole = false; ///< a character or symbol that is a word by itself; otherwise a beginning counts
};
[[nodiscard]] std::vector<SearchWord> searchWords(const std::string &searchText);

/// @p text without letter case, and in one form where it can be written in several (NFC); no other
/// difference is lost.
[[nodiscard]] QString withoutCase(const QString &text);
/// 64 bits that are equal for texts that differ in letter case alone.
[[nodiscard]] std::int64_t caselessKey(const QString &text);

} // namespace trackwise
