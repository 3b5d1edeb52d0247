// SPDX-License-Identifier: GPL-3.0-or-later
#include "device/library/tags/TagFields.h"

#include <algorithm>

namespace trackwise {

namespace {

constexpr qsizetype longestText = qsizetype{512} * 1024; ///< in UTF-16 units: 1 MiB
constexpr qsizetype mostValues = 256;

/// Nobody sees a blank or an invisible character around a text, and none is meant.
QString withoutOuterBlanks(QStringView value)
{
    const auto counts = [](QChar c) {
        return !c.isSpace() && c != u'\0' && c != u'\ufeff' && c != u'\u200b';
    };
    const auto first = std::find_if(value.begin(), value.end(), counts);
    const auto last = std::find_if(value.rbegin(), std::make_reverse_iterator(first), counts).base();
    return QString(first, last - first);
}

} // namespace

void TagFields::add(Field field, QString value, int rank)
{
    value = withoutOuterBlanks(value);
    if (value.isEmpty())
        return;
    auto &entry = m_fields[index(field)];
    if (!entry.values.isEmpty() && rank > entry.rank)
        return;
    if (rank < entry.rank)
        entry.values.clear();
    entry.rank = rank;
    value.truncate(longestText);
    if (entry.values.size() >= mostValues || entry.values.contains(value))
        return;
    entry.values.append(std::move(value));
}

void TagFields::fillGapsFrom(const TagFields &other)
{
    for (std::size_t i = 0; i < m_fields.size(); ++i) {
        if (m_fields[i].values.isEmpty())
            m_fields[i] = other.m_fields[i];
    }
}

} // namespace trackwise
