// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "device/library/store/SearchLetters.h"

#include <string>
#include <vector>

namespace trackwise::search {

/// The words of a text, each in UTF-8; none where it is punctuation alone.
using Words = std::vector<std::string>;
[[nodiscard]] Words wordsOf(TextView text);
/// The words with one blank between them.
[[nodiscard]] std::string joined(const Words &words);

/// The words of each way to read a text, each once, the first as it stands:
///   what punctuation parts, joined    R.E.M.: rem
///   the same, with n for "&"          R&B: rnb
///   letters for signs that look alike P!nk: pink
[[nodiscard]] std::vector<Words> waysToRead(TextView text);

/// A stretch of a text: a run of letters, digits and the signs within names, or what is between two of them.
struct Stretch
{
    TextView text;
    bool isName = false;
};
[[nodiscard]] std::vector<Stretch> stretchesOf(TextView text);

} // namespace trackwise::search
