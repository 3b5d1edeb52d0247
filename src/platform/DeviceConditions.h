// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>

namespace trackwise {

/// What holds on the device at the moment and asks for less to move on the screen, besides the user's choice
/// of motion. Until the device has answered, a while after this was made at the latest, both hold. Main
/// thread.
class DeviceConditions : public QObject
{
    Q_OBJECT

public:
    using QObject::QObject;

    [[nodiscard]] virtual bool isScreenReaderRunning() const = 0;
    [[nodiscard]] virtual bool isSavingPower() const = 0;

Q_SIGNALS:
    void conditionsDidChange();
};

} // namespace trackwise
