// SPDX-License-Identifier: GPL-3.0-or-later
#include "preferences/UserDefaultsStore.h"

#include "preferences/Preferences.h"

namespace trackwise {

UserDefaultsStore::UserDefaultsStore(Preferences &preferences, QObject *parent)
    : QObject(parent)
    , m_preferences(preferences)
    , m_showMoreInformation(preferences.showMoreInformation())
{}

void UserDefaultsStore::toggleShowMoreInformation()
{
    const bool show = !m_showMoreInformation;
    m_preferences.setShowMoreInformation(show);
    Q_EMIT willChange();
    m_showMoreInformation = show;
    Q_EMIT didChange();
}

} // namespace trackwise
