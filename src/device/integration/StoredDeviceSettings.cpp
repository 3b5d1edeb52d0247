// SPDX-License-Identifier: GPL-3.0-or-later
#include "device/integration/StoredDeviceSettings.h"

#include <QSettings>

#include <array>

namespace trackwise {

namespace {

constexpr QLatin1StringView themeKey("Appearance/Theme");
constexpr QLatin1StringView textSizeKey("Appearance/TextSize");
constexpr QLatin1StringView motionKey("Appearance/Motion");
constexpr QLatin1StringView menuBarKey("Appearance/ShowMenuBar");
constexpr QLatin1StringView microphoneKey("Access/Microphone");
constexpr QLatin1StringView inputKey("Microphone/Input");
constexpr QLatin1StringView inputTitleKey("Microphone/InputTitle");
constexpr QLatin1StringView ignoredPlayersKey("Players/Ignored");

// Words, in the order of the enumeration that they stand for; the first one is the default.
constexpr std::array themeWords{QLatin1StringView("automatic"), QLatin1StringView("light"),
                                QLatin1StringView("dark")};
constexpr std::array motionWords{QLatin1StringView("automatic"), QLatin1StringView("reduced"),
                                 QLatin1StringView("full")};
constexpr std::array accessWords{QLatin1StringView("notDetermined"), QLatin1StringView("denied"),
                                 QLatin1StringView("allowed")};
constexpr std::array textSizeWords{QLatin1StringView("extraSmall"),
                                   QLatin1StringView("small"),
                                   QLatin1StringView("medium"),
                                   QLatin1StringView("large"),
                                   QLatin1StringView("extraLarge"),
                                   QLatin1StringView("extraExtraLarge"),
                                   QLatin1StringView("extraExtraExtraLarge"),
                                   QLatin1StringView("accessibility1"),
                                   QLatin1StringView("accessibility2"),
                                   QLatin1StringView("accessibility3"),
                                   QLatin1StringView("accessibility4"),
                                   QLatin1StringView("accessibility5")};

template <typename Choice, std::size_t count>
std::optional<Choice> choiceUnder(const QSettings &file, QLatin1StringView key,
                                  const std::array<QLatin1StringView, count> &words)
{
    const auto word = std::ranges::find(words, file.value(key).toString());
    if (word == words.end())
        return std::nullopt;
    return static_cast<Choice>(word - words.begin());
}

template <typename Choice, std::size_t count>
void store(QSettings &file, QLatin1StringView key, Choice choice,
           const std::array<QLatin1StringView, count> &words)
{
    file.setValue(key, QString(words.at(static_cast<std::size_t>(choice))));
}

} // namespace

StoredDeviceSettings::StoredDeviceSettings(QSettings &file, QObject *parent)
    : DeviceSettings(parent)
    , m_file(file)
{}

AppearanceChoices StoredDeviceSettings::appearance() const
{
    return {.theme = choiceUnder<ThemeChoice>(m_file, themeKey, themeWords).value_or(ThemeChoice::Automatic),
            .textSize = choiceUnder<TextSize>(m_file, textSizeKey, textSizeWords),
            .motion =
                choiceUnder<MotionChoice>(m_file, motionKey, motionWords).value_or(MotionChoice::Automatic),
            .showsMenuBar = m_file.value(menuBarKey).toBool()};
}

void StoredDeviceSettings::setAppearance(const AppearanceChoices &choices)
{
    if (choices == appearance())
        return;
    store(m_file, themeKey, choices.theme, themeWords);
    store(m_file, motionKey, choices.motion, motionWords);
    m_file.setValue(menuBarKey, choices.showsMenuBar);
    if (choices.textSize)
        store(m_file, textSizeKey, *choices.textSize, textSizeWords);
    else
        m_file.remove(textSizeKey);
    Q_EMIT appearanceDidChange();
}

AccessChoice StoredDeviceSettings::microphoneAccess() const
{
    return choiceUnder<AccessChoice>(m_file, microphoneKey, accessWords)
        .value_or(AccessChoice::NotDetermined);
}

void StoredDeviceSettings::setMicrophoneAccess(AccessChoice choice)
{
    if (choice == microphoneAccess())
        return;
    store(m_file, microphoneKey, choice, accessWords);
    Q_EMIT microphoneAccessDidChange();
}

SoundInputChoice StoredDeviceSettings::soundInput() const
{
    return {m_file.value(inputKey).toString(), m_file.value(inputTitleKey).toString()};
}

void StoredDeviceSettings::setSoundInput(const SoundInputChoice &choice)
{
    if (choice == soundInput())
        return;
    m_file.setValue(inputKey, choice.name);
    m_file.setValue(inputTitleKey, choice.title);
    Q_EMIT soundInputDidChange();
}

QStringList StoredDeviceSettings::ignoredPlayers() const
{
    return m_file.value(ignoredPlayersKey).toStringList();
}

void StoredDeviceSettings::setIgnoredPlayers(const QStringList &names)
{
    QStringList sorted = names;
    sorted.removeAll(QString());
    sorted.removeDuplicates();
    sorted.sort(Qt::CaseInsensitive);
    if (sorted == ignoredPlayers())
        return;
    m_file.setValue(ignoredPlayersKey, sorted);
    Q_EMIT ignoredPlayersDidChange();
}

} // namespace trackwise
