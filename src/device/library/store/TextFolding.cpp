// SPDX-License-Identifier: GPL-3.0-or-later
#include "device/library/store/TextFolding.h"

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
