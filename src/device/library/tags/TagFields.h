// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "device/library/tags/FieldNames.h"

#include <QStringList>

#include <array>
#include <utility>

namespace trackwise {

/// The texts of one tag, by field. Where a dialect has several spellings of a field, each has a rank and the
/// lowest rank wins; values of equal rank form a list, each once.
class TagFields
{
public:
    void add(Field field, QString value, int rank = 0);
    void add(const FieldName &name, QString value) { add(name.field, std::move(value), name.rank); }
    /// Takes the fields that this one lacks: the next best tag of the same file.
    void fillGapsFrom(const TagFields &other);

    [[nodiscard]] const QStringList &values(Field field) const { return m_fields[index(field)].values; }
    [[nodiscard]] bool has(Field field) const { return !values(field).isEmpty(); }

private:
    struct Entry
    {
        QStringList values;
        int rank = 0;
    };
    static constexpr std::size_t index(Field field) { return static_cast<std::size_t>(field); }

    std::array<Entry, static_cast<std::size_t>(Field::Last) + 1> m_fields;
};

/// Reads the texts as what they mean. Leaves artwork, duration and hash alone.
[[nodiscard]] SongTags songTags(const TagFields &fields);

} // namespace trackwise
