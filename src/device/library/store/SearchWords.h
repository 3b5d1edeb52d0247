// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QStringList>

#include <string>
#include <string_view>
#include <vector>

namespace trackwise {

/// The words of a folded text in UTF-8 with one blank between them, as they are searched: punctuation parts
/// words, apostrophes are dropped, "&" and a lone "n" between words are "and". In scripts written without
/// blanks each character is a word of its own, and so is each symbol. Kana are hiragana, Arabic letters have
/// no hamza, and digits of all scripts are ASCII. A text of nothing but punctuation is given as it is.
[[nodiscard]] std::string searchText(const QString &foldedText);

/// What is stored of a text: searchText() and, behind a line feed, further words by which people look for it:
///   what follows an elision           L'Impératrice: imperatrice
///   what punctuation parts, joined    R.E.M.: rem, AC/DC: acdc, R&B: rnb
///   letters for signs that look alike P!nk: pink
[[nodiscard]] std::string indexedText(const QString &foldedText);
/// The same of @p foldedText that holds the names of artists, with wholeName() of each way to write it and
/// each of @p foldedNames, which are those in it where that is known.
[[nodiscard]] std::string indexedNames(const QString &foldedText, const QStringList &foldedNames = {});

/// searchText() in what indexedText() or indexedNames() gave.
[[nodiscard]] std::string_view searchTextIn(std::string_view indexed);
/// The word that stands for a whole text, however it is parted: nothing that is typed begins it by itself.
[[nodiscard]] std::string wholeName(std::string_view searchText);
[[nodiscard]] bool hasWholeName(std::string_view indexed);

/// What the user typed, ready to be looked for.
struct SearchWord
{
    std::string text;     ///< as in searchText()
    bool isWhole = false; ///< a character or symbol that is a word by itself; otherwise a beginning counts
};
[[nodiscard]] std::vector<SearchWord> searchWords(const std::string &searchText);

/// The ways to understand what was typed, as searchText(): as it stands and, where that differs, with
/// its punctuated words joined. The first is always there.
[[nodiscard]] std::vector<std::string> spellings(const QString &foldedText);

} // namespace trackwise
