// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>

namespace trackwise {

class Preferences;

/// Whether one information list shows its extra rows. Each list owns a store of its own, so two windows
/// may differ until their lists are made again; the stored preference is the last choice made anywhere.
class UserDefaultsStore : public QObject
{
    Q_OBJECT

public:
    /// Starts with what @p preferences hold now; they must outlive this object.
    explicit UserDefaultsStore(Preferences &preferences, QObject *parent = nullptr);

    [[nodiscard]] bool showMoreInformation() const { return m_showMoreInformation; }
    /// Stores the opposite choice, announces the change, then takes it over, in that order.
    void toggleShowMoreInformation();

Q_SIGNALS:
    /// Sent while the old value still stands, as its receivers expect to compare.
    void willChange();
    void didChange();

private:
    Preferences &m_preferences;
    bool m_showMoreInformation;
};

} // namespace trackwise
