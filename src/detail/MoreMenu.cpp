// SPDX-License-Identifier: GPL-3.0-or-later
#include "detail/MoreMenu.h"

namespace trackwise {

std::vector<MoreMenuItem> moreMenuItems(const MoreMenuState &state)
{
    std::vector<MoreMenuItem> items{
        {MoreCommand::SelectNowPlaying, MoreMenu::tr("Now Playing"), QStringLiteral("music.note"), true,
         false},
        {MoreCommand::ClearSelectedSong, MoreMenu::tr("Clear Selected Song"), QStringLiteral("xmark"),
         state.showsSong, true},
    };
    if (state.hasSettings)
        items.push_back({MoreCommand::OpenSettings, MoreMenu::tr("Settings"),
                         QStringLiteral("slider.horizontal"), true, true});
    return items;
}

MoreMenu::MoreMenu(std::function<void(MoreCommand)> perform, QObject *parent)
    : QAbstractListModel(parent)
    , m_perform(std::move(perform))
    , m_items(moreMenuItems({}))
{}

QString MoreMenu::title() const
{
    return tr("Select Song from");
}

void MoreMenu::update(const MoreMenuState &state)
{
    std::vector<MoreMenuItem> items = moreMenuItems(state);
    if (items.size() != m_items.size()) {
        beginResetModel();
        m_items = std::move(items);
        endResetModel();
        return;
    }
    for (size_t row = 0; row < items.size(); ++row) {
        if (m_items[row] == items[row])
            continue;
        m_items[row] = std::move(items[row]);
        const QModelIndex changed = index(static_cast<int>(row));
        Q_EMIT dataChanged(changed, changed);
    }
}

void MoreMenu::trigger(int row)
{
    if (index(row).data(EnabledRole).toBool())
        m_perform(m_items[static_cast<size_t>(row)].command);
}

int MoreMenu::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_items.size());
}

QVariant MoreMenu::data(const QModelIndex &index, int role) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid))
        return {};
    const MoreMenuItem &item = m_items[static_cast<size_t>(index.row())];
    switch (role) {
    case TitleRole:
    case Qt::DisplayRole:
        return item.title;
    case SymbolRole:
        return item.symbolName;
    case EnabledRole:
        return item.isEnabled;
    case StartsSectionRole:
        return item.startsSection;
    default:
        return {};
    }
}

QHash<int, QByteArray> MoreMenu::roleNames() const
{
    return {{TitleRole, "title"},
            {SymbolRole, "symbolName"},
            {EnabledRole, "isEnabled"},
            {StartsSectionRole, "startsSection"}};
}

} // namespace trackwise
