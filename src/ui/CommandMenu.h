// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QAbstractListModel>
#include <QKeySequence>
#include <QString>
#include <QtQml/qqmlregistration.h>

#include <functional>
#include <optional>
#include <vector>

namespace trackwise {

/// One command of a menu.
struct MenuEntry
{
    int command = 0; ///< of its maker's own enumeration
    QString title;
    QString symbolName;
    bool isEnabled = true;
    bool startsSection = false; ///< a line is drawn above it
    QList<QKeySequence> keys;   ///< that do the same, the one to show first
    /// The keys do it in front of whatever the window presents.
    bool worksEverywhere = false;

    friend bool operator==(const MenuEntry &, const MenuEntry &) = default;
};

/// The entries of a menu as its view draws them: a snapshot, which its maker replaces, except while the menu
/// is open: then once it has closed. Main thread.
class CommandMenu : public QAbstractListModel
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("made by controllers")
    Q_PROPERTY(QString title READ title CONSTANT)

public:
    enum Role {
        TitleRole = Qt::UserRole + 1,
        SymbolRole,
        EnabledRole,
        StartsSectionRole,
        KeysRole,
        KeyTextRole,
        WorksEverywhereRole
    };
    using Perform = std::function<void(int command)>;

    CommandMenu(QString title, Perform perform, QObject *parent = nullptr);

    [[nodiscard]] const QString &title() const { return m_title; }
    [[nodiscard]] const std::vector<MenuEntry> &entries() const { return m_entries; }
    void setEntries(std::vector<MenuEntry> entries);
    /// For the view.
    Q_INVOKABLE void setOpen(bool isOpen);

    /// Performs the command of @p row, unless it is disabled.
    Q_INVOKABLE void trigger(int row);

    [[nodiscard]] int rowCount(const QModelIndex &parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex &index, int role) const override;
    [[nodiscard]] QHash<int, QByteArray> roleNames() const override;

private:
    QString m_title;
    Perform m_perform;
    std::vector<MenuEntry> m_entries;
    std::optional<std::vector<MenuEntry>> m_nextEntries; ///< once it is closed
    bool m_isOpen = false;
};

} // namespace trackwise
