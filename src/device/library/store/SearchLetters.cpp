// SPDX-License-Identifier: GPL-3.0-or-later
#include "device/library/store/SearchLetters.h"

#include <unicode/uchar.h>
#include <unicode/uscript.h>
#include <unicode/utf16.h>
#include <unicode/utf8.h>

namespace trackwise::search {

namespace {
UChar32 icuCode(char32_t c)
{
    return static_cast<UChar32>(c);
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
} // namespace

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

bool isWithinNames(char32_t c)
{
    return isApostrophe(c) || TextView(U".-/&\u00b7\u2022*_+!$@:=~|\\^€£¥¢").find(c) != TextView::npos;
}

void append(std::string &utf8, char32_t c)
{
    char bytes[U8_MAX_LENGTH];
    int32_t length = 0;
    U8_APPEND_UNSAFE(bytes, length, c);
    utf8.append(bytes, static_cast<std::size_t>(length));
}

std::string toUtf8(TextView text)
{
    std::string utf8;
    for (const char32_t c : text)
        append(utf8, c);
    return utf8;
}

} // namespace trackwise::search
