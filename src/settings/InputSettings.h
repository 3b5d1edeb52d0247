// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/InputMonitor.h"
#include "settings/SettingsList.h"

#include <QObject>
#include <QTimer>
#include <QtQml/qqmlregistration.h>

#include <memory>

namespace trackwise {

class DeviceSettings;

/// Which input music recognition listens to, and how much comes in there. It listens itself only while
/// somebody looks at the level and the microphone may be used, and not for minutes on end. Main thread.
class InputSettings : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("made by the settings screen")
    Q_PROPERTY(trackwise::SettingsList *choices READ choices CONSTANT)
    /// The level is in sight.
    Q_PROPERTY(bool isWatched READ isWatched WRITE setWatched NOTIFY watchedChanged)
    Q_PROPERTY(qreal level READ level NOTIFY levelChanged)
    /// Why the level says nothing.
    Q_PROPERTY(QString note READ note NOTIFY levelChanged)

public:
    /// @p device must outlive this object.
    InputSettings(DeviceSettings &device, std::unique_ptr<InputMonitor> monitor, QObject *parent = nullptr);

    [[nodiscard]] SettingsList *choices() { return &m_choices; }
    [[nodiscard]] bool isWatched() const { return m_isWatched; }
    void setWatched(bool isWatched);
    [[nodiscard]] qreal level() const { return m_meter.fullness(); }
    [[nodiscard]] QString note() const;

    /// It listens anew, too.
    Q_INVOKABLE void choose(int row);

Q_SIGNALS:
    void watchedChanged();
    void levelChanged();

private:
    void updateChoices();
    void updateMeasuring();
    void hear(const SoundLevel &level);

    DeviceSettings &m_device;
    std::unique_ptr<InputMonitor> m_monitor;
    SettingsList m_choices;
    SoundMeter m_meter;
    bool m_isWatched = false;
    bool m_isForgotten = false; ///< it has been watched for too long
    QTimer m_longestWatch;
    std::optional<QString> m_measured; ///< which choice
};

} // namespace trackwise
