// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QString>

#include <memory>

namespace trackwise {

/// The order in which people of one language look for names, and the letters beside a long list. Any thread.
class TextOrder
{
public:
    /// @p locale as ICU names it ("sv_SE"), or a name(); empty: the user's. Numbers in names are ordered by
    /// value, blanks around them do not count.
    explicit TextOrder(const QByteArray &locale = {});
    ~TextOrder();

    /// Names the language, with the country where that has rules of its own, and the version of the rules:
    /// keys made under another name are of no use.
    [[nodiscard]] QString name() const;
    /// Bytes whose order is that of the texts.
    [[nodiscard]] QByteArray sortKey(const QString &text) const;
    /// "A" to "Z" of the user's language, "あ", "Б" and so on for others, "#" for what begins with no letter,
    /// "…" for letters without an alphabet of their own.
    [[nodiscard]] QString section(const QString &text) const;

private:
    struct Rules;
    std::unique_ptr<const Rules> m_rules;
};

} // namespace trackwise
