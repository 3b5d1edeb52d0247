// SPDX-License-Identifier: GPL-3.0-or-later
#include "settings/SettingsList.h"

#include <algorithm>

namespace trackwise {

void SettingsList::setLines(std::vector<SettingsLine> lines)
{
    if (lines == m_lines)
        return;
    const bool areTheSame = std::ranges::equal(lines, m_lines, {}, &SettingsLine::key, &SettingsLine::key);
    if (areTheSame) { // the keyboard focus stays where it is
        m_lines = std::move(lines);
        Q_EMIT dataChanged(index(0), index(rowCount() - 1));
        return;
    }
    beginResetModel();
    m_lines = std::move(lines);
    endResetModel();
}

std::optional<SettingsLine> SettingsList::line(int row) const
{
    if (row < 0 || row >= rowCount())
        return std::nullopt;
    return m_lines.at(static_cast<std::size_t>(row));
}

int SettingsList::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_lines.size());
}

QVariant SettingsList::data(const QModelIndex &index, int role) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid))
        return {};
    const SettingsLine &line = m_lines.at(static_cast<std::size_t>(index.row()));
    switch (role) {
    case Qt::DisplayRole:
    case TitleRole:
        return line.title;
    case NoteRole:
        return line.note;
    case IsOnRole:
        return line.isOn;
    default:
        return {};
    }
}

QHash<int, QByteArray> SettingsList::roleNames() const
{
    return {{TitleRole, "title"}, {NoteRole, "note"}, {IsOnRole, "isOn"}};
}

} // namespace trackwise
