// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/linux/library/store/TextFolding.h"

#include <unicode/normalizer2.h>
#include <unicode/translit.h>
#include <unicode/uchar.h>
#include <unicode/unistr.h>
#include <unicode/uscript.h>
#include <xxhash.h>

#include <algorithm>
#include <memory>

namespace trackwise {

namespace {
bool isAscii(const QString &text)
{
    return std::all_of(text.begin(), text.end(), [](QChar c) { return c.unicode() < 0x80; });
}

icu::UnicodeString toIcu(const QString &text)
{
    // Read-only view of the QString's own units; the copy is made by whoever changes it.
    return {false, reinterpret_cast<const char16_t *>(text.utf16()), static_cast<int32_t>(text.size())};
}

QString fromIcu(const icu::UnicodeString &text)
{
    return QString::fromUtf16(text.getBuffer(), text.length());
}

icu::UnicodeString normalized(const icu::Normalizer2 *form, const icu::UnicodeString &text)
{
    UErrorCode status = U_ZERO_ERROR;
    icu::UnicodeString result = form->normalize(text, status);
    return U_SUCCESS(status) ? result : text;
}

const icu::Normalizer2 *normalForm(bool isCompatible)
{
    UErrorCode status = U_ZERO_ERROR;
    return isCompatible ? icu::Normalizer2::getNFKCInstance(status)
                        : icu::Normalizer2::getNFCInstance(status);
}

std::unique_ptr<icu::Transliterator> makeLatinToAscii()
{
    UErrorCode status = U_ZERO_ERROR;
    std::unique_ptr<icu::Transliterator> made(
        icu::Transliterator::createInstance("Latin-ASCII", UTRANS_FORWARD, status));
    if (U_FAILURE(status))
        qFatal("ICU has no Latin-ASCII transliteration: %s", u_errorName(status));
    return made;
}

void latinToAscii(icu::UnicodeString &text)
{
    // Transliterators share a lock when shared, so each thread has its own.
    thread_local const std::unique_ptr<icu::Transliterator> instance = makeLatinToAscii();
    instance->transliterate(text);
}

bool isMark(UChar32 c)
{
    const auto type = u_charType(c);
    return type == U_NON_SPACING_MARK || type == U_ENCLOSING_MARK || type == U_COMBINING_SPACING_MARK;
}

UScriptCode scriptOf(UChar32 c)
{
    UErrorCode status = U_ZERO_ERROR;
    return uscript_getScript(c, &status);
}

// Marks that writers of the script leave out as they please.
bool isOptionalMark(UChar32 mark, UChar32 base)
{
    const bool isGeneral = mark >= 0x300 && mark <= 0x36f;
    if ((mark >= 0x64b && mark <= 0x65f) || mark == 0x670) // Arabic vowels
        return true;
    if (mark >= 0x591 && mark <= 0x5c7) // Hebrew points
        return true;
    if ((mark >= 0xfe00 && mark <= 0xfe0f) || u_charType(mark) == U_ENCLOSING_MARK)
        return true;
    if (!isGeneral)
        return false;
    if (base < 0x80)
        return true; // what Latin-ASCII leaves behind on letters without a composed form
    const UScriptCode script = scriptOf(base);
    return script == USCRIPT_GREEK || script == USCRIPT_LATIN ||
           (script == USCRIPT_CYRILLIC && (mark == 0x300 || mark == 0x301)); // marks of stress
}

UChar32 plainLetter(UChar32 c)
{
    if (c == 0x451) // ё, mostly written е
        return 0x435;
    if ((c >= 0x370 && c < 0x400) || (c >= 0x1f00 && c < 0x2000)) { // Greek with accents
        icu::UnicodeString parts;
        UErrorCode status = U_ZERO_ERROR;
        if (icu::Normalizer2::getNFDInstance(status)->getDecomposition(c, parts))
            return parts.char32At(0);
    }
    return c;
}

bool isBlank(UChar32 c)
{
    return u_isUWhiteSpace(c) || u_charType(c) == U_CONTROL_CHAR;
}

QString foldedAscii(const QString &text)
{
    QString result;
    result.reserve(text.size());
    for (const QChar c : text) {
        const char16_t unit = c.unicode();
        if (unit <= 0x20 || unit == 0x7f) {
            if (!result.isEmpty() && result.back() != u' ')
                result += u' ';
        } else {
            result += unit >= u'A' && unit <= u'Z' ? QChar(unit + 0x20) : c;
        }
    }
    if (result.endsWith(u' '))
        result.chop(1);
    return result;
}

// Written without blanks between words.
bool isWrittenInOneRun(UChar32 c)
{
    if (c < 0xe00)
        return false;
    if (c == 0x30fc) // the kana sign of length belongs to several scripts
        return true;
    switch (scriptOf(c)) {
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

bool isSymbol(UChar32 c)
{
    return c >= 0x80 && (U_GET_GC_MASK(c) & U_GC_S_MASK) != 0;
}

bool isApostrophe(UChar32 c)
{
    return c == u'\'' || c == 0x2019 || c == 0x2bc;
}

bool standsAlone(UChar32 c)
{
    return isSymbol(c) || isWrittenInOneRun(c);
}

class WordWriter
{
public:
    void take(UChar32 c)
    {
        if (isMark(c)) {
            if (!m_text.empty() && !m_isBetweenWords)
                write(c);
        } else if (standsAlone(c)) {
            partWords();
            write(c);
            m_lastStoodAlone = true;
        } else if (u_isalnum(c) || (U_GET_GC_MASK(c) & U_GC_N_MASK) != 0) {
            if (m_lastStoodAlone)
                partWords();
            write(c);
        } else if (!isApostrophe(c)) {
            partWords();
        }
    }
    [[nodiscard]] std::string text() && { return std::move(m_text); }

private:
    void partWords() { m_isBetweenWords = true; }

    void write(UChar32 c)
    {
        if (m_isBetweenWords && !m_text.empty())
            m_text += ' ';
        if (!isMark(c))
            m_lastStoodAlone = false;
        m_isBetweenWords = false;
        char utf8[U8_MAX_LENGTH];
        int32_t length = 0;
        UBool isError = false;
        U8_APPEND(utf8, length, U8_MAX_LENGTH, c, isError);
        if (!isError)
            m_text.append(utf8, static_cast<std::size_t>(length));
    }

    std::string m_text;
    bool m_isBetweenWords = false;
    bool m_lastStoodAlone = false;
};
} // namespace

QString folded(const QString &text)
{
    if (isAscii(text))
        return foldedAscii(text);
    icu::UnicodeString work = normalized(normalForm(true), toIcu(text));
    latinToAscii(work);
    work = normalized(normalForm(true), work.foldCase());

    icu::UnicodeString result;
    UChar32 base = 0;
    for (int32_t i = 0; i < work.length();) {
        const UChar32 c = work.char32At(i);
        i += U16_LENGTH(c);
        if (isBlank(c)) {
            base = 0;
            if (!result.isEmpty() && result[result.length() - 1] != u' ')
                result.append(u' ');
        } else if (u_charType(c) == U_FORMAT_CHAR ||
                   c == 0x640) { // invisible, or the Arabic lengthening stroke
            continue;
        } else if (!isMark(c)) {
            base = c;
            result.append(plainLetter(c));
        } else if (!isOptionalMark(c, base)) {
            result.append(c);
        }
    }
    if (result.endsWith(u' '))
        result.truncate(result.length() - 1);
    return fromIcu(result);
}

std::string searchText(const QString &foldedText)
{
    WordWriter words;
    const auto *units = reinterpret_cast<const char16_t *>(foldedText.utf16());
    const auto length = static_cast<int32_t>(foldedText.size());
    for (int32_t i = 0; i < length;) {
        UChar32 c = 0;
        U16_NEXT(units, i, length, c);
        words.take(c);
    }
    std::string text = std::move(words).text();
    return text.empty() ? foldedText.toStdString() : text;
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
            words.push_back({std::move(word), standsAlone(first)});
    }
    return words;
}

QString withoutCase(const QString &text)
{
    if (isAscii(text))
        return text.toLower();
    icu::UnicodeString work = normalized(normalForm(false), toIcu(text));
    return fromIcu(normalized(normalForm(false), work.foldCase()));
}

std::int64_t caselessKey(const QString &text)
{
    const QString key = withoutCase(text);
    return static_cast<std::int64_t>(
        XXH3_64bits(key.utf16(), static_cast<std::size_t>(key.size()) * sizeof(char16_t)));
}

} // namespace trackwise
