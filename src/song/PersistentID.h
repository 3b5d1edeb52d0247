// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QHashFunctions>
#include <QMetaType>
#include <QString>

#include <compare>
#include <cstdint>
#include <optional>

namespace trackwise {

/// Identity of a song in the library: random, kept for as long as the song is known, never reused.
/// The value 0 stands for a song that is not in the library. Not a row number.
struct PersistentID
{
    std::uint64_t value = 0;

    [[nodiscard]] bool isInLibrary() const { return value != 0; }
    /// Sixteen upper-case hexadecimal digits, as people write such identifiers.
    [[nodiscard]] QString toString() const;
    /// Reads what toString() writes (either case); nothing when @p text is anything else or zero.
    [[nodiscard]] static std::optional<PersistentID> fromString(const QString &text);

    friend auto operator<=>(const PersistentID &, const PersistentID &) = default;
};

[[nodiscard]] inline size_t qHash(PersistentID id, size_t seed = 0)
{
    return ::qHash(static_cast<quint64>(id.value), seed);
}

} // namespace trackwise

Q_DECLARE_METATYPE(trackwise::PersistentID)
