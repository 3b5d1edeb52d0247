// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/SoundLevel.h"

#include <QObject>
#include <QString>

#include <optional>
#include <vector>

namespace trackwise {

/// The name under which one chooses to listen to what this computer plays itself. That of the default input
/// is empty.
inline constexpr char computersSoundName[] = "@DEFAULT_MONITOR@";

/// Something to listen to.
struct NamedInput
{
    QString name;  ///< the device's own
    QString title; ///< for people, in the device's language

    friend bool operator==(const NamedInput &, const NamedInput &) = default;
};

/// What there is to listen to at one moment.
struct AvailableInputs
{
    std::vector<NamedInput> named; ///< without what only repeats an output
    QString defaultTitle;          ///< of the default input; empty: there is none
    bool hasThisComputersSound = false;

    friend bool operator==(const AvailableInputs &, const AvailableInputs &) = default;
};

/// Tells what there is to listen to, as long as it is there, and how loud it is, for those who choose. Main
/// thread.
class InputMonitor : public QObject
{
    Q_OBJECT

public:
    using QObject::QObject;

    /// Nothing until the device has answered.
    [[nodiscard]] virtual std::optional<AvailableInputs> inputs() const = 0;
    /// Begins to measure the input that @p choice means, in place of what was measured before.
    virtual void measure(const QString &choice) = 0;
    virtual void stopMeasuring() = 0;

Q_SIGNALS:
    void inputsDidChange();
    /// Also where nothing comes that could be heard, once that is sure.
    void didHear(const trackwise::SoundLevel &level);
};

} // namespace trackwise
