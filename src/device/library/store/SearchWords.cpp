// SPDX-License-Identifier: GPL-3.0-or-later
#include "device/library/store/SearchWords.h"

#include <unicode/uchar.h>
#include <unicode/uscript.h>
#include <unicode/utf16.h>
#include <unicode/utf8.h>

#include <algorithm>
#include <array>

namespace trackwise {

namespace {
using Text = std::u32string;
using TextView = std::u32string_view;

constexpr char32_t wholeMark = 0xfdd0; // a code that is no character: no word has it
constexpr std::size_t longestJoined = 24;
constexpr std::size_t mostFurtherWords = 32;

UChar32 icuCode(char32_t c)
{
    return static_cast<UChar32>(c);
}

bool isMark(char32_t c)
{
    return c >= 0x300 && (U_GET_GC_MASK(icuCode(c)) & U_GC_M_MASK) != 0;
}

bool isLetterOrDigit(char32_t c)
{
    return u_isalnum(icuCode(c)) || (U_GET_GC_MASK(icuCode(c)) & U_GC_N_MASK) != 0;
}

bool isLetter(char32_t c)
{
    return u_isalpha(icuCode(c));
}

// Written without blanks between words.
bool isWrittenInOneRun(char32_t c)
{
    if (c < 0xe00)
        return false;
    if (c == 0x30fc) // the kana sign of length belongs to several scripts
        return true;
    UErrorCode status = U_ZERO_ERROR;
    switch (uscript_getScript(icuCode(c), &status)) {
    case USCRIPT_HAN:
    case USCRIPT_HIRAGANA:
    case USCRIPT_KATAKANA:
    case USCRIPT_HANGUL:
    case USCRIPT_BOPOMOFO:
    case USCRIPT_THAI:
    case USCRIPT_LAO:
    case USCRIPT_KHMER:
    case USCRIPT_MYANMAR:
        return true;
    default:
        return false;
    }
}

bool standsAlone(char32_t c)
{
    const bool isSymbol = c >= 0x80 && (U_GET_GC_MASK(icuCode(c)) & U_GC_S_MASK) != 0;
    return isSymbol || isWrittenInOneRun(c);
}

bool isApostrophe(char32_t c)
{
    return TextView(U"'`\u2019\u2018\u02bc\u02bb\u2032\u05f3\u05f4").find(c) != TextView::npos;
}

/// Signs that stand within names, where others part them.
bool isWithinNames(char32_t c)
{
    return isApostrophe(c) || TextView(U".-/&\u00b7\u2022*_+!$@:=~|\\^€£¥¢").find(c) != TextView::npos;
}

/// One letter for those that writers of Arabic take for each other: zero for a hamza that stands alone.
char32_t arabicLetter(char32_t c)
{
    switch (c) {
    case 0x622: // alef with madda, hamza above and below, wasla, wavy hamza
    case 0x623:
    case 0x625:
    case 0x671:
    case 0x672:
    case 0x673:
    case 0x675:
        return 0x627;
    case 0x624: // waw with hamza
        return 0x648;
    case 0x626: // yeh with hamza, alef maksura, Farsi yeh
    case 0x649:
    case 0x6cc:
        return 0x64a;
    case 0x629: // teh marbuta, and the other forms of heh
    case 0x6be:
    case 0x6c0:
    case 0x6c1:
    case 0x6c2:
    case 0x6c3:
    case 0x6d5:
        return 0x647;
    case 0x6a9: // keheh
        return 0x643;
    case 0x621:
    case 0x674:
        return 0;
    default:
        return isMark(c) ? 0 : c;
    }
}

char32_t plain(char32_t c)
{
    if (c < 0x600)
        return c;
    if (u_charType(icuCode(c)) == U_DECIMAL_DIGIT_NUMBER)
        return U'0' + static_cast<char32_t>(u_charDigitValue(icuCode(c)));
    if (c < 0x700)
        return arabicLetter(c);
    if ((c >= 0x30a1 && c <= 0x30f6) || c == 0x30fd || c == 0x30fe) // katakana, which hiragana mirror
        return c - 0x60;
    return c;
}

Text plainText(const QString &foldedText)
{
    Text text;
    const auto *units = reinterpret_cast<const char16_t *>(foldedText.utf16());
    const auto length = static_cast<int32_t>(foldedText.size());
    for (int32_t i = 0; i < length;) {
        UChar32 c = 0;
        U16_NEXT(units, i, length, c);
        if (const char32_t letter = U_IS_SURROGATE(c) ? 0 : plain(static_cast<char32_t>(c)))
            text += letter;
    }
    return text;
}

void append(std::string &utf8, char32_t c)
{
    char bytes[U8_MAX_LENGTH];
    int32_t length = 0;
    U8_APPEND_UNSAFE(bytes, length, c);
    utf8.append(bytes, static_cast<std::size_t>(length));
}

std::string utf8Of(char32_t c)
{
    std::string utf8;
    append(utf8, c);
    return utf8;
}

std::string toUtf8(TextView text)
{
    std::string utf8;
    for (const char32_t c : text)
        append(utf8, c);
    return utf8;
}

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
    [[nodiscard]] std::vector<std::string> words() &&
    {
        return m_hasWords ? std::move(m_words) : std::vector<std::string>();
    }

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
    std::vector<std::string> m_words;
    std::vector<std::size_t> m_loneNs;
    bool m_hasWords = false;
    bool m_isBetweenWords = true;
    bool m_lastStoodAlone = false;
};

std::vector<std::string> wordsOf(TextView text)
{
    return WordReader(text).words();
}

std::string joined(const std::vector<std::string> &words)
{
    std::string text;
    for (const std::string &word : words) {
        if (!text.empty())
            text += ' ';
        text += word;
    }
    return text;
}

/// The letter that the sign at @p i stands for in a name such as "P!nk" or "Ke$ha"; zero: none.
char32_t letterForSign(TextView name, std::size_t i)
{
    const bool isBehind = i > 0 && isLetter(name[i - 1]);
    const bool isBefore = i + 1 < name.size() && isLetter(name[i + 1]);
    const bool isWithin = isBehind && isBefore;
    switch (name[i]) {
    case U'$':
        return isBehind || isBefore ? U's' : 0;
    case U'€':
        return isWithin ? U'e' : 0;
    case U'£':
        return isWithin ? U'l' : 0;
    case U'¥':
        return isWithin ? U'y' : 0;
    case U'¢':
        return isWithin ? U'c' : 0;
    case U'@':
        return isBefore ? U'a' : 0;
    case U'!':
    case U'1':
        return isWithin ? U'i' : 0;
    case U'0':
        return isWithin ? U'o' : 0;
    case U'3':
        return isWithin ? U'e' : 0;
    case U'4':
        return isWithin ? U'a' : 0;
    case U'5':
        return isBehind && (isBefore || i + 1 == name.size()) ? U's' : 0; // "deadmau5"
    default:
        return 0;
    }
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

/// Calls @p visit for each run of letters, digits and the signs within names, and for what is between.
template <typename Visit>
void forEachName(TextView text, Visit visit)
{
    const auto isOfName = [](char32_t c) {
        return isWithinNames(c) || isMark(c) || (isLetterOrDigit(c) && !isWrittenInOneRun(c));
    };
    for (std::size_t begin = 0; begin < text.size();) {
        std::size_t end = begin + 1;
        const bool isName = isOfName(text[begin]);
        while (end < text.size() && isOfName(text[end]) == isName)
            ++end;
        visit(text.substr(begin, end - begin), isName);
        begin = end;
    }
}

bool hasSigns(TextView text)
{
    return std::any_of(text.begin(), text.end(),
                       [](char32_t c) { return isWithinNames(c) || (c >= U'0' && c <= U'9'); });
}

Text readAs(TextView text, Reading reading)
{
    Text read;
    forEachName(text, [&](TextView part, bool isName) {
        read += isName && std::any_of(part.begin(), part.end(), isLetterOrDigit) ? readName(part, reading)
                                                                                 : Text(part);
    });
    return read;
}

/// The words of each way to read the text, the first as it stands.
std::vector<std::vector<std::string>> waysToRead(TextView text)
{
    std::vector<std::vector<std::string>> ways{wordsOf(text)};
    if (ways.front().empty() || !hasSigns(text))
        return ways;
    for (const Reading reading : readings) {
        std::vector<std::string> words = wordsOf(readAs(text, reading));
        if (std::find(ways.begin(), ways.end(), words) == ways.end())
            ways.push_back(std::move(words));
    }
    return ways;
}

/// What follows an apostrophe in @p name: "été" in "d'été", but not the endings of English verbs.
std::vector<Text> elidedWords(TextView name)
{
    static constexpr std::array<TextView, 3> endings{U"re", U"ll", U"ve"};
    std::vector<Text> found;
    for (std::size_t i = 1; i < name.size(); ++i) {
        if (!isApostrophe(name[i]) || !isLetter(name[i - 1]))
            continue;
        std::size_t end = i + 1;
        while (end < name.size() && !isWithinNames(name[end]))
            ++end;
        const TextView rest = name.substr(i + 1, end - i - 1);
        if (rest.size() > 1 && std::find(endings.begin(), endings.end(), rest) == endings.end())
            found.emplace_back(rest);
    }
    return found;
}

/// The texts without the article before them, if there is one: "The Who", "L'Arc".
std::vector<Text> withoutArticle(TextView text)
{
    static constexpr std::array<TextView, 16> articles{U"the ", U"a ",   U"an ",  U"der ", U"die ", U"das ",
                                                       U"le ",  U"la ",  U"les ", U"el ",  U"los ", U"las ",
                                                       U"il ",  U"gli ", U"os ",  U"as "};
    static constexpr std::size_t longestElided = 5; // "dell'"
    std::vector<Text> rests;
    for (const TextView article : articles) {
        if (text.starts_with(article))
            rests.emplace_back(text.substr(article.size()));
    }
    const auto apostrophe = std::find_if(text.begin(), text.end(), isApostrophe);
    const auto length = static_cast<std::size_t>(apostrophe - text.begin());
    if (length > 0 && length <= longestElided && length < text.size() &&
        std::all_of(text.begin(), apostrophe, isLetter) &&
        !elidedWords(text.substr(0, text.find(U' '))).empty())
        rests.emplace_back(text.substr(length + 1));
    return rests;
}

/// Words behind the text, each of them once.
class FurtherWords
{
public:
    explicit FurtherWords(const std::vector<std::string> &own)
        : m_own(own)
    {}

    void add(std::string word)
    {
        const auto has = [&word](const auto &words) {
            return std::find(words.begin(), words.end(), word) != words.end();
        };
        if (m_words.size() < mostFurtherWords && !word.empty() && !has(m_own) && !has(m_words))
            m_words.push_back(std::move(word));
    }

    void addReadings(TextView text)
    {
        for (const auto &words : waysToRead(text)) {
            for (const std::string &word : words)
                add(word);
        }
        forEachName(text, [this](TextView part, bool isName) {
            if (isName) {
                for (const Text &word : elidedWords(part))
                    add(toUtf8(word));
            }
        });
        const bool hasAnd = std::find(m_own.begin(), m_own.end(), "and") != m_own.end();
        if (hasAnd && text.find(U"and") == TextView::npos)
            add("n"); // while "guns n" is being typed
    }

    void addWholeNames(TextView text)
    {
        for (const auto &words : waysToRead(text))
            add(wholeName(joined(words)));
        for (const Text &rest : withoutArticle(text))
            add(wholeName(joined(wordsOf(rest))));
    }

    [[nodiscard]] std::string behind(std::string text) const
    {
        return m_words.empty() ? std::move(text) : std::move(text) + '\n' + joined(m_words);
    }

private:
    const std::vector<std::string> &m_own;
    std::vector<std::string> m_words;
};

std::string asItStands(const QString &foldedText)
{
    std::string text = foldedText.toStdString();
    const std::string mark = utf8Of(wholeMark);
    for (std::size_t at = text.find(mark); at != std::string::npos; at = text.find(mark))
        text.erase(at, mark.size());
    return text;
}

std::string textOf(const std::vector<std::string> &words, const QString &foldedText)
{
    return words.empty() ? asItStands(foldedText) : joined(words);
}
} // namespace

std::string searchText(const QString &foldedText)
{
    return textOf(wordsOf(plainText(foldedText)), foldedText);
}

std::string indexedText(const QString &foldedText)
{
    const Text text = plainText(foldedText);
    const std::vector<std::string> words = wordsOf(text);
    FurtherWords further(words);
    further.addReadings(text);
    return further.behind(textOf(words, foldedText));
}

std::string indexedNames(const QString &foldedText, const QStringList &foldedNames)
{
    const Text text = plainText(foldedText);
    const std::vector<std::string> words = wordsOf(text);
    FurtherWords further(words);
    further.addReadings(text);
    further.addWholeNames(text);
    for (const QString &name : foldedNames)
        further.addWholeNames(plainText(name));
    return further.behind(textOf(words, foldedText));
}

std::string_view searchTextIn(std::string_view indexed)
{
    return indexed.substr(0, indexed.find('\n'));
}

std::string wholeName(std::string_view searchText)
{
    if (searchText.empty())
        return {};
    std::string name = utf8Of(wholeMark);
    std::copy_if(searchText.begin(), searchText.end(), std::back_inserter(name),
                 [](char c) { return c != ' '; });
    return name;
}

bool hasWholeName(std::string_view indexed)
{
    return indexed.find(utf8Of(wholeMark)) != std::string_view::npos;
}

std::vector<SearchWord> searchWords(const std::string &searchText)
{
    std::vector<SearchWord> words;
    for (std::size_t begin = 0; begin < searchText.size();) {
        const std::size_t end = std::min(searchText.find(' ', begin), searchText.size());
        std::string word = searchText.substr(begin, end - begin);
        begin = end + 1;
        UChar32 first = 0;
        int32_t offset = 0;
        U8_NEXT(word.data(), offset, static_cast<int32_t>(word.size()), first);
        if (!word.empty() && first >= 0)
            words.push_back({std::move(word), standsAlone(static_cast<char32_t>(first))});
    }
    return words;
}

std::vector<std::string> spellings(const QString &foldedText)
{
    std::vector<std::string> texts;
    for (const auto &words : waysToRead(plainText(foldedText)))
        texts.push_back(textOf(words, foldedText));
    return texts;
}

} // namespace trackwise
