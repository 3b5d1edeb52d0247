// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>
#include <QtQml/qqmlregistration.h>

namespace trackwise {

/// What stands in the place of a list without rows.
struct EmptyState
{
    Q_GADGET
    QML_VALUE_TYPE(emptyState)
    Q_PROPERTY(QString symbolName MEMBER symbolName)
    Q_PROPERTY(QString title MEMBER title)
    Q_PROPERTY(QString message MEMBER message)
    Q_PROPERTY(bool offersFolder MEMBER offersFolder)

public:
    QString symbolName;
    QString title;
    QString message;
    bool offersFolder = false; ///< with a button to choose another music folder

    friend bool operator==(const EmptyState &, const EmptyState &) = default;
};

/// @p searchText is what was looked for; empty where the list is not one of search results.
[[nodiscard]] EmptyState emptyState(const QString &searchText, bool isScanning);

} // namespace trackwise
