// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "information/FormatLocale.h"
#include "song/MediaItem.h"

#include <QObject>
#include <QString>
#include <QTimeZone>
#include <QtQml/qqmlregistration.h>

#include <optional>
#include <vector>

namespace trackwise {

enum class RowAction { None, ShowLyrics };

/// One line of the information list. Its texts are shown as they are and never translated.
struct InformationRow
{
    Q_GADGET
    QML_VALUE_TYPE(informationRow)
    Q_PROPERTY(QString title MEMBER title)
    Q_PROPERTY(QString value MEMBER value)
    Q_PROPERTY(QString spoken READ spoken)
    Q_PROPERTY(bool hasButton READ hasButton)

public:
    QString title;
    QString value;
    std::optional<QString> valueAccessibilityLabel; ///< spoken instead of the value
    RowAction action = RowAction::None;             ///< when there is one, the value is a button

    /// The whole row for a screen reader: "Rating, 4 stars".
    [[nodiscard]] QString spoken() const;
    [[nodiscard]] bool hasButton() const { return action != RowAction::None; }

    friend bool operator==(const InformationRow &, const InformationRow &) = default;
};

/// The rows that are always shown and those that follow them when more is asked for.
struct InformationRows
{
    Q_GADGET
    QML_VALUE_TYPE(informationRows)

public:
    std::vector<InformationRow> main;
    std::vector<InformationRow> more;

    /// @p index is from 0 to below the number of rows.
    Q_INVOKABLE [[nodiscard]] trackwise::InformationRow mainRow(int index) const;
    Q_INVOKABLE [[nodiscard]] trackwise::InformationRow moreRow(int index) const;

    friend bool operator==(const InformationRows &, const InformationRows &) = default;
};

/// Everything known about @p item, in the order of the list. What is not known is shown as "--".
/// A rating above 5 breaks the record's contract and stops the program. Any thread.
[[nodiscard]] InformationRows informationRows(const MediaItem &item, const FormatLocale &locale,
                                              const QTimeZone &zone);

} // namespace trackwise
