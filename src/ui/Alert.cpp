// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/Alert.h"

#include <algorithm>

namespace trackwise {

Alert::Alert(QString title, QString message, std::vector<AlertAction> actions, int preferredAction)
    : m_title(std::move(title))
    , m_message(std::move(message))
    , m_actions(std::move(actions))
    , m_preferredAction(preferredAction)
{
    Q_ASSERT(preferredAction >= 0 && static_cast<size_t>(preferredAction) < m_actions.size());
}

QStringList Alert::actionTitles() const
{
    QStringList titles;
    for (const AlertAction &action : m_actions)
        titles << action.title;
    return titles;
}

int Alert::cancelAction() const
{
    const auto cancel = std::find_if(m_actions.begin(), m_actions.end(), [](const AlertAction &action) {
        return action.style == AlertAction::Style::Cancel;
    });
    return cancel == m_actions.end() ? -1 : static_cast<int>(cancel - m_actions.begin());
}

} // namespace trackwise
