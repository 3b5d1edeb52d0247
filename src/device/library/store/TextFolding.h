// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

#include <cstdint>

namespace trackwise {

/// @p text without what people vary when they write it: width and composed forms (NFKC), diacritics of Latin
/// letters (ICU's Latin-ASCII: ø becomes o, ß becomes ss), letter case, accents and vowel points that Greek,
/// Russian, Arabic and Hebrew leave out as they please. Marks that make another letter stay: й, が. White
/// space is trimmed and collapsed; punctuation stays. Any thread.
[[nodiscard]] QString folded(const QString &text);

/// @p text without letter case, and in one form where it can be written in several (NFC); no other
/// difference is lost.
[[nodiscard]] QString withoutCase(const QString &text);
/// 64 bits that are equal for texts that differ in letter case alone.
[[nodiscard]] std::int64_t caselessKey(const QString &text);

} // namespace trackwise
