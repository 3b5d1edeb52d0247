// SPDX-License-Identifier: GPL-3.0-or-later
#include "device/library/store/TextOrder.h"

#include <QList>

#include <unicode/alphaindex.h>
#include <unicode/coll.h>
#include <unicode/localebuilder.h>
#include <unicode/locid.h>
#include <unicode/tblcoll.h>

#include <array>

namespace trackwise {

namespace {
// Sort keys beyond this length only waste space: their first 20 or so letters have decided.
constexpr int longestKey = 96;
constexpr int longestText = 64;
constexpr int ownVersion = 2; // to be raised when keys or letters are made otherwise

icu::Locale orderingLocale(const QByteArray &name)
{
    const icu::Locale locale = name.isEmpty() ? icu::Locale::getDefault() : icu::Locale(name.constData());
    // "C" and "POSIX" order by code, with all capitals before all small letters: nobody's order of names.
    const bool isPosix = qstrcmp(locale.getVariant(), "POSIX") == 0;
    return isPosix || locale.isBogus() ? icu::Locale::getEnglish() : locale;
}

using Collator = std::unique_ptr<icu::RuleBasedCollator>;

Collator collatorOf(const icu::Locale &locale)
{
    UErrorCode status = U_ZERO_ERROR;
    std::unique_ptr<icu::Collator> made(icu::Collator::createInstance(locale, status));
    if (U_SUCCESS(status))
        made->setAttribute(UCOL_NUMERIC_COLLATION, UCOL_ON, status);
    Collator collator(dynamic_cast<icu::RuleBasedCollator *>(made.release()));
    if (U_FAILURE(status) || !collator)
        qFatal("ICU has no collation data: %s", u_errorName(status));
    return collator;
}

/// Without the country unless it has rules of its own.
icu::Locale shortened(const icu::Locale &locale)
{
    UErrorCode status = U_ZERO_ERROR;
    const icu::Locale language = icu::LocaleBuilder().setLocale(locale).setRegion("").build(status);
    return U_SUCCESS(status) && *collatorOf(language) == *collatorOf(locale) ? language : locale;
}

icu::UnicodeString icuText(const QString &text)
{
    const QStringView view = QStringView(text).trimmed().left(longestText);
    return {view.utf16(), static_cast<int32_t>(view.size())};
}

void addAlphabets(icu::AlphabeticIndex &index, UErrorCode &status)
{
    static constexpr std::array languages{"en", "el", "ru", "hy", "ka", "he", "ar", "hi", "th", "ko", "ja"};
    for (const char *language : languages)
        index.addLabels(icu::Locale(language), status);
}
} // namespace

struct TextOrder::Rules
{
    icu::Locale locale;
    Collator collator;
    std::unique_ptr<const icu::AlphabeticIndex::ImmutableIndex> letters;
};

TextOrder::TextOrder(const QByteArray &localeName)
{
    auto rules = std::make_unique<Rules>();
    rules->locale = shortened(orderingLocale(localeName.split(' ').front()));
    rules->collator = collatorOf(rules->locale);
    UErrorCode status = U_ZERO_ERROR;
    icu::AlphabeticIndex index(rules->locale, status);
    index.setMaxLabelCount(1000, status); // more would be thinned out
    addAlphabets(index, status);
    index.setUnderflowLabel(u"#", status).setInflowLabel(u"…", status).setOverflowLabel(u"…", status);
    rules->letters.reset(index.buildImmutableIndex(status));
    if (U_FAILURE(status))
        qFatal("ICU has no alphabets: %s", u_errorName(status));
    m_rules = std::move(rules);
}

TextOrder::~TextOrder() = default;

QString TextOrder::name() const
{
    UVersionInfo version;
    m_rules->collator->getVersion(version);
    return QStringLiteral("%1 %2.%3.%4.%5.%6")
        .arg(QString::fromLatin1(m_rules->locale.getName()))
        .arg(version[0])
        .arg(version[1])
        .arg(version[2])
        .arg(version[3])
        .arg(ownVersion);
}

QByteArray TextOrder::sortKey(const QString &text) const
{
    std::array<std::uint8_t, 1024> key;
    const int32_t needed =
        m_rules->collator->getSortKey(icuText(text), key.data(), static_cast<int32_t>(key.size()));
    // The length counts the closing zero.
    const int32_t length = std::clamp<int32_t>(needed - 1, 0, longestKey);
    return {reinterpret_cast<const char *>(key.data()), length};
}

QString TextOrder::section(const QString &text) const
{
    UErrorCode status = U_ZERO_ERROR;
    const int32_t bucket = m_rules->letters->getBucketIndex(icuText(text), status);
    const auto *found = U_SUCCESS(status) ? m_rules->letters->getBucket(bucket) : nullptr;
    if (!found)
        return QStringLiteral("#");
    const icu::UnicodeString &label = found->getLabel();
    return QString::fromUtf16(label.getBuffer(), label.length());
}

} // namespace trackwise
