// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/CommandMenu.h"

#include <utility>

namespace trackwise {

CommandMenu::CommandMenu(QString title, Perform perform, QObject *parent)
    : QAbstractListModel(parent)
    , m_title(std::move(title))
    , m_perform(std::move(perform))
{}

void CommandMenu::setEntries(std::vector<MenuEntry> entries)
{
    if (m_isOpen) {
        m_nextEntries = std::move(entries);
        return;
    }
    if (entries.size() != m_entries.size()) {
        beginResetModel();
        m_entries = std::move(entries);
        endResetModel();
        return;
    }
    for (size_t row = 0; row < entries.size(); ++row) {
        if (m_entries[row] == entries[row])
            continue;
        m_entries[row] = std::move(entries[row]);
        const QModelIndex changed = index(static_cast<int>(row));
        Q_EMIT dataChanged(changed, changed);
    }
}

void CommandMenu::setOpen(bool isOpen)
{
    m_isOpen = isOpen;
    if (!isOpen && m_nextEntries)
        setEntries(*std::exchange(m_nextEntries, std::nullopt));
}

void CommandMenu::trigger(int row)
{
    if (index(row).data(EnabledRole).toBool())
        m_perform(m_entries[static_cast<size_t>(row)].command);
}

int CommandMenu::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_entries.size());
}

QVariant CommandMenu::data(const QModelIndex &index, int role) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid))
        return {};
    const MenuEntry &entry = m_entries[static_cast<size_t>(index.row())];
    switch (role) {
    case TitleRole:
    case Qt::DisplayRole:
        return entry.title;
    case SymbolRole:
        return entry.symbolName;
    case EnabledRole:
        return entry.isEnabled;
    case StartsSectionRole:
        return entry.startsSection;
    case KeysRole:
        return QVariantList(entry.keys.begin(), entry.keys.end());
    case KeyTextRole:
        return entry.keys.isEmpty() ? QString() : entry.keys.front().toString(QKeySequence::NativeText);
    case WorksEverywhereRole:
        return entry.worksEverywhere;
    default:
        return {};
    }
}

QHash<int, QByteArray> CommandMenu::roleNames() const
{
    return {{TitleRole, "title"},
            {SymbolRole, "symbolName"},
            {EnabledRole, "isEnabled"},
            {StartsSectionRole, "startsSection"},
            {KeysRole, "keys"},
            {KeyTextRole, "keyText"},
            {WorksEverywhereRole, "worksEverywhere"}};
}

} // namespace trackwise
