// SPDX-License-Identifier: GPL-3.0-or-later
#include "device/library/store/SearchReadings.h"

#include <algorithm>
#include <array>

namespace trackwise::search {

namespace {
constexpr std::size_t longestJoined = 24;

/// Parts a text into its words.
class WordReader
{
public:
    explicit WordReader(TextView text)
        : m_text(text)
    {
        for (m_at = 0; m_at < m_text.size(); ++m_at)
            take(m_text[m_at]);
        for (const std::size_t n : m_loneNs) { // "Guns N' Roses"
            if (n > 0 && n + 1 < m_words.size())
                m_words[n] = "and";
        }
    }

    /// None where the text is punctuation alone.
    [[nodiscard]] Words words() && { return m_hasWords ? std::move(m_words) : Words(); }

private:
    [[nodiscard]] char32_t at(std::size_t i) const { return i < m_text.size() ? m_text[i] : U' '; }

    void take(char32_t c)
    {
        if (isMark(c)) {
            if (!m_isBetweenWords)
                append(m_words.back(), c);
        } else if (standsAlone(c)) {
            write(c, true);
        } else if (isLetterOrDigit(c)) {
            write(c, m_lastStoodAlone);
            if (c == U'n' && partsLoneN(at(m_at - 1)) && partsLoneN(at(m_at + 1)))
                m_loneNs.push_back(m_words.size() - 1);
        } else if (isAnd(c)) {
            m_words.emplace_back("and");
            m_isBetweenWords = true;
        } else if (!isApostrophe(c) || isBesideN()) {
            m_isBetweenWords = true;
        }
    }

    [[nodiscard]] static bool partsLoneN(char32_t c) { return c == U' ' || c == U'-' || isApostrophe(c); }

    [[nodiscard]] bool isAnd(char32_t c) const
    {
        return c == U'&' || (c == U'+' && m_hasWords && at(m_at - 1) == U' ' && m_at + 1 < m_text.size() &&
                             at(m_at + 1) == U' ');
    }

    /// Whether the apostrophe is one of "rock'n'roll": left or right of an n that is no part of a word.
    [[nodiscard]] bool isBesideN() const
    {
        const bool isBefore = at(m_at + 1) == U'n' && !isLetterOrDigit(at(m_at + 2));
        const bool isBehind = m_words.size() > 1 && m_words.back() == "n";
        return isBefore || isBehind;
    }

    void write(char32_t c, bool beginsWord)
    {
        if (m_isBetweenWords || beginsWord)
            m_words.emplace_back();
        append(m_words.back(), c);
        m_lastStoodAlone = standsAlone(c);
        m_isBetweenWords = false;
        m_hasWords = true;
    }

    TextView m_text;
    std::size_t m_at = 0;
    Words m_words;
    std::vector<std::size_t> m_loneNs;
    bool m_hasWords = false;
    bool m_isBetweenWords = true;
    bool m_lastStoodAlone = false;
};

/// Where a sign stands for a letter.
enum class Place {
    BesideLetter, ///< on one side at least
    BeforeLetter,
    BetweenLetters,
    BetweenLettersOrAtEnd,
};

struct SignLetter
{
    char32_t sign;
    char32_t letter;
    Place place;
};

// "Ke$ha", "P!nk", "deadmau5"
constexpr std::array signLetters{
    SignLetter{U'$', U's', Place::BesideLetter},   SignLetter{U'@', U'a', Place::BeforeLetter},
    SignLetter{U'€', U'e', Place::BetweenLetters}, SignLetter{U'£', U'l', Place::BetweenLetters},
    SignLetter{U'¥', U'y', Place::BetweenLetters}, SignLetter{U'¢', U'c', Place::BetweenLetters},
    SignLetter{U'!', U'i', Place::BetweenLetters}, SignLetter{U'1', U'i', Place::BetweenLetters},
    SignLetter{U'0', U'o', Place::BetweenLetters}, SignLetter{U'3', U'e', Place::BetweenLetters},
    SignLetter{U'4', U'a', Place::BetweenLetters}, SignLetter{U'5', U's', Place::BetweenLettersOrAtEnd},
};

bool isAt(Place place, TextView name, std::size_t i)
{
    const bool isBehind = i > 0 && isLetter(name[i - 1]);
    const bool isLast = i + 1 == name.size();
    const bool isBefore = !isLast && isLetter(name[i + 1]);
    switch (place) {
    case Place::BesideLetter:
        return isBehind || isBefore;
    case Place::BeforeLetter:
        return isBefore;
    case Place::BetweenLetters:
        return isBehind && isBefore;
    case Place::BetweenLettersOrAtEnd:
        return isBehind && (isBefore || isLast);
    }
    return false;
}

/// The letter that the sign at @p i of a name stands for; zero: none.
char32_t letterForSign(TextView name, std::size_t i)
{
    for (const auto &[sign, letter, place] : signLetters) {
        if (sign == name[i])
            return isAt(place, name, i) ? letter : 0;
    }
    return 0;
}

enum class Reading {
    Joined,      ///< without the signs in it
    JoinedWithN, ///< the same, with n for "&"
    Signs,       ///< with the letters that signs stand for
};
constexpr std::array readings{Reading::Joined, Reading::JoinedWithN, Reading::Signs};

Text readName(TextView name, Reading reading)
{
    Text read;
    for (std::size_t i = 0; i < name.size(); ++i) {
        const char32_t letter = reading == Reading::Signs ? letterForSign(name, i) : 0;
        const bool isWithinWords = i > 0 && i + 1 < name.size();
        if (letter != 0)
            read += letter;
        else if (!isWithinNames(name[i]))
            read += name[i];
        else if (name[i] == U'&' && reading != Reading::Joined && isWithinWords)
            read += U'n';
    }
    return read.empty() || read.size() > longestJoined ? Text(name) : read;
}

bool hasSigns(TextView text)
{
    return std::any_of(text.begin(), text.end(),
                       [](char32_t c) { return isWithinNames(c) || (c >= U'0' && c <= U'9'); });
}

Text readAs(TextView text, Reading reading)
{
    Text read;
    for (const auto &[part, isName] : stretchesOf(text)) {
        read += isName && std::any_of(part.begin(), part.end(), isLetterOrDigit) ? readName(part, reading)
                                                                                 : Text(part);
    }
    return read;
}
} // namespace

Words wordsOf(TextView text)
{
    return WordReader(text).words();
}

std::string joined(const Words &words)
{
    std::string text;
    for (const std::string &word : words) {
        if (!text.empty())
            text += ' ';
        text += word;
    }
    return text;
}

std::vector<Stretch> stretchesOf(TextView text)
{
    const auto isOfName = [](char32_t c) {
        return isWithinNames(c) || isMark(c) || (isLetterOrDigit(c) && !isWrittenInOneRun(c));
    };
    std::vector<Stretch> stretches;
    for (std::size_t begin = 0; begin < text.size();) {
        std::size_t end = begin + 1;
        const bool isName = isOfName(text[begin]);
        while (end < text.size() && isOfName(text[end]) == isName)
            ++end;
        stretches.push_back({text.substr(begin, end - begin), isName});
        begin = end;
    }
    return stretches;
}

std::vector<Words> waysToRead(TextView text)
{
    std::vector<Words> ways{wordsOf(text)};
    if (ways.front().empty() || !hasSigns(text))
        return ways;
    for (const Reading reading : readings) {
        Words words = wordsOf(readAs(text, reading));
        if (std::find(ways.begin(), ways.end(), words) == ways.end())
            ways.push_back(std::move(words));
    }
    return ways;
}

} // namespace trackwise::search
