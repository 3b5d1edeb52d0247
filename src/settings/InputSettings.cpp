// SPDX-License-Identifier: GPL-3.0-or-later
#include "settings/InputSettings.h"

#include "platform/DeviceSettings.h"

#include <algorithm>
#include <chrono>
#include <utility>

namespace trackwise {

namespace {

/// The page may have been left open.
constexpr std::chrono::minutes longestWatch{2};

} // namespace

InputSettings::InputSettings(DeviceSettings &device, std::unique_ptr<InputMonitor> monitor, QObject *parent)
    : QObject(parent)
    , m_device(device)
    , m_monitor(std::move(monitor))
{
    m_longestWatch.setParent(this);
    m_longestWatch.setInterval(longestWatch);
    connect(&m_longestWatch, &QTimer::timeout, this, [this] {
        m_isForgotten = true;
        updateMeasuring();
    });
    connect(&m_device, &DeviceSettings::microphoneAccessDidChange, this, &InputSettings::updateMeasuring);
    connect(&m_device, &DeviceSettings::soundInputDidChange, this, [this] {
        updateChoices();
        updateMeasuring();
    });
    connect(m_monitor.get(), &InputMonitor::inputsDidChange, this, &InputSettings::updateChoices);
    connect(m_monitor.get(), &InputMonitor::didHear, this, &InputSettings::hear);
    updateChoices();
}

void InputSettings::setWatched(bool isWatched)
{
    if (std::exchange(m_isWatched, isWatched) == isWatched)
        return;
    m_isForgotten = false;
    updateMeasuring();
    Q_EMIT watchedChanged();
}

QString InputSettings::note() const
{
    if (m_isForgotten)
        return tr("Paused; choose an input to go on");
    return m_meter.isSilent() ? tr("No sound is coming in") : QString();
}

void InputSettings::choose(int row)
{
    const std::optional<SettingsLine> line = m_choices.line(row);
    if (!line)
        return;
    m_isForgotten = false;
    m_measured.reset();
    m_device.setSoundInput({line->key, line->title});
    updateMeasuring();
}

// What was chosen stays in the list, also while it is not there.
void InputSettings::updateChoices()
{
    const SoundInputChoice chosen = m_device.soundInput();
    const std::optional<AvailableInputs> known = m_monitor->inputs();
    const AvailableInputs inputs = known.value_or(AvailableInputs());
    std::vector<SettingsLine> lines{{.title = tr("Default input"), .note = inputs.defaultTitle}};
    if (known && inputs.defaultTitle.isEmpty())
        lines.front().note = tr("No microphone found");
    for (const NamedInput &input : inputs.named) {
        const bool hasNamesake = std::ranges::count(inputs.named, input.title, &NamedInput::title) > 1;
        lines.push_back(
            {.key = input.name, .title = input.title, .note = hasNamesake ? input.name : QString()});
    }
    const QString computersSound = QString::fromLatin1(computersSoundName);
    const auto isListed = [&lines](const QString &key) {
        return std::ranges::find(lines, key, &SettingsLine::key) != lines.end();
    };
    if (chosen.name != computersSound && !isListed(chosen.name))
        lines.push_back({.key = chosen.name,
                         .title = chosen.title,
                         .note = known ? tr("Not connected; the default input is used") : QString()});
    if (inputs.hasThisComputersSound || chosen.name == computersSound)
        lines.push_back({.key = computersSound,
                         .title = tr("This computer's sound"),
                         .note = !known || inputs.hasThisComputersSound
                                     ? tr("Whatever it plays, also for headphones")
                                     : tr("Not available now")});
    for (SettingsLine &line : lines)
        line.isOn = line.key == chosen.name;
    m_choices.setLines(std::move(lines));
}

void InputSettings::updateMeasuring()
{
    std::optional<QString> wanted;
    if (m_isWatched && !m_isForgotten && m_device.microphoneAccess() == AccessChoice::Allowed)
        wanted = m_device.soundInput().name;
    if (std::exchange(m_measured, wanted) == wanted)
        return;
    if (wanted) {
        m_monitor->measure(*wanted);
        m_longestWatch.start();
    } else {
        m_monitor->stopMeasuring();
        m_longestWatch.stop();
    }
    m_meter = {};
    Q_EMIT levelChanged();
}

void InputSettings::hear(const SoundLevel &level)
{
    if (!m_measured)
        return; // it was under way
    m_meter.hear(level);
    Q_EMIT levelChanged();
}

} // namespace trackwise
