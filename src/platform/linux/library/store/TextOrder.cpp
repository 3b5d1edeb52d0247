// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/linux/library/store/TextOrder.h"

#include <unicode/alphaindex.h>
#include <unicode/coll.h>
#include <unicode/locid.h>
#include <unicode/tblcoll.h>

#include <array>

namespace trackwise {

namespace {
// Sort keys beyond this length only waste space: their first 20 or so letters have decided.
constexpr int longestKey = 96;
constexpr int longestText = 64;

icu::Locale orderingLocale(const QByteArray &name)
{
    const icu::Locale locale = name.isEmpty() ? icu::Locale::getDefault() : icu::Locale(name.constData());
    // "C" and "POSIX" order by code, with all capitals before all small letters: nobody's order of names.
    const bool isPosix = qstrcmp(locale.getVariant(), "POSIX") == 0;
    return isPosix || locale.isBogus() ? icu::Locale::getEnglish() : locale;
}

icu::UnicodeString icuText(const QString &text)
{
    return {reinterpret_cast<const char16_t *>(text.utf16()),
            static_cast<int32_t>(std::min<qsizetype>(text.size(), longestText))};
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
    std::unique_ptr<icu::RuleBasedCollator> collator;
    std::unique_ptr<const icu::AlphabeticIndex::ImmutableIndex> letters;
};

TextOrder::TextOrder(const QByteArray &localeName)
{
    auto rules = std::make_unique<Rules>();
    rules->locale = orderingLocale(localeName);
    UErrorCode status = U_ZERO_ERROR;
    std::unique_ptr<icu::Collator> collator(icu::Collator::createInstance(rules->locale, status));
    if (U_SUCCESS(status)) {
        collator->setAttribute(UCOL_NUMERIC_COLLATION, UCOL_ON, status);
        rules->collator.reset(dynamic_cast<icu::RuleBasedCollator *>(collator.release()));
    }
    icu::AlphabeticIndex index(rules->locale, status);
    index.setMaxLabelCount(1000, status); // more would be thinned out
    addAlphabets(index, status);
    index.setUnderflowLabel(u"#", status).setInflowLabel(u"…", status).setOverflowLabel(u"…", status);
    rules->letters.reset(index.buildImmutableIndex(status));
    if (U_FAILURE(status) || !rules->collator)
        qFatal("ICU has no collation data: %s", u_errorName(status));
    m_rules = std::move(rules);
}

TextOrder::~TextOrder() = default;

QString TextOrder::name() const
{
    UVersionInfo version;
    m_rules->collator->getVersion(version);
    return QStringLiteral("%1 %2.%3.%4.%5")
        .arg(QString::fromLatin1(m_rules->locale.getName()))
        .arg(version[0])
        .arg(version[1])
        .arg(version[2])
        .arg(version[3]);
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
