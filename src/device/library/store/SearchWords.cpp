// SPDX-License-Identifier: GPL-3.0-or-later
#include "device/library/store/SearchWords.h"

#include "device/library/store/SearchReadings.h"

#include <unicode/utf8.h>

#include <algorithm>
#include <array>

namespace trackwise {

using namespace search;

namespace {
constexpr TextView wholeMark = U"\xfdd0"; // a code that is no character: no word has it
constexpr std::size_t mostFurtherWords = 32;

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
    explicit FurtherWords(const Words &own)
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
        for (const auto &[part, isName] : stretchesOf(text)) {
            if (!isName)
                continue;
            for (const Text &word : elidedWords(part))
                add(toUtf8(word));
        }
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
    const Words &m_own;
    Words m_words;
};

std::string asItStands(const QString &foldedText)
{
    std::string text = foldedText.toStdString();
    const std::string mark = toUtf8(wholeMark);
    for (std::size_t at = text.find(mark); at != std::string::npos; at = text.find(mark))
        text.erase(at, mark.size());
    return text;
}

std::string textOf(const Words &words, const QString &foldedText)
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
    const Words words = wordsOf(text);
    FurtherWords further(words);
    further.addReadings(text);
    return further.behind(textOf(words, foldedText));
}

std::string indexedNames(const QString &foldedText, const QStringList &foldedNames)
{
    const Text text = plainText(foldedText);
    const Words words = wordsOf(text);
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
    std::string name = toUtf8(wholeMark);
    std::copy_if(searchText.begin(), searchText.end(), std::back_inserter(name),
                 [](char c) { return c != ' '; });
    return name;
}

bool hasWholeName(std::string_view indexed)
{
    return indexed.find(toUtf8(wholeMark)) != std::string_view::npos;
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
