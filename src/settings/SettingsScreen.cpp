// SPDX-License-Identifier: GPL-3.0-or-later
#include "settings/SettingsScreen.h"

#include "platform/DeviceSettings.h"
#include "platform/LibraryScan.h"
#include "platform/MediaLibrary.h"
#include "platform/MusicFolders.h"
#include "ui/Presentation.h"

#include <QDir>
#include <QPointer>

#include <algorithm>
#include <utility>

namespace trackwise {

SettingsScreen::SettingsScreen(SettingsServices services, std::function<void()> dismissAction)
    : m_services(std::move(services))
    , m_dismissAction(std::move(dismissAction))
    , m_index(m_services.index)
    , m_input(m_services.device, m_services.makeInputMonitor())
{
    const DeviceSettings &device = m_services.device;
    connect(&device, &DeviceSettings::appearanceDidChange, this, &SettingsScreen::changed);
    connect(&device, &DeviceSettings::microphoneAccessDidChange, this, &SettingsScreen::changed);
    connect(&device, &DeviceSettings::ignoredPlayersDidChange, this, &SettingsScreen::updatePlayers);
    connect(&m_services.appearance, &Appearance::appearanceDidChange, this, &SettingsScreen::changed);
    connect(&m_services.library, &MediaLibrary::authorizationStatusDidChange, this, &SettingsScreen::changed);
    connect(&m_services.folders, &MusicFolders::foldersDidChange, this, &SettingsScreen::updateFolders);
    connect(&m_services.scan, &LibraryScan::progressDidChange, this, &SettingsScreen::updateScanning);
    updateScanning();
    updateFolders();
    updatePlayers();
}

bool SettingsScreen::isMusicAllowed() const
{
    return m_services.library.authorizationStatus() == LibraryAuthorizationStatus::Authorized;
}

bool SettingsScreen::isMusicRestricted() const
{
    return m_services.library.authorizationStatus() == LibraryAuthorizationStatus::Restricted;
}

bool SettingsScreen::isMicrophoneAllowed() const
{
    return m_services.device.microphoneAccess() == AccessChoice::Allowed;
}

int SettingsScreen::theme() const
{
    return static_cast<int>(m_services.device.appearance().theme);
}

int SettingsScreen::motion() const
{
    return static_cast<int>(m_services.device.appearance().motion);
}

bool SettingsScreen::hasMenuBars() const
{
    return m_services.appearance.menuBarPlace() != MenuBarPlace::OnDesktop;
}

bool SettingsScreen::showsMenuBar() const
{
    return m_services.device.appearance().showsMenuBar;
}

bool SettingsScreen::hasOwnTextSize() const
{
    return m_services.device.appearance().textSize.has_value();
}

int SettingsScreen::textSize() const
{
    return static_cast<int>(
        m_services.device.appearance().textSize.value_or(m_services.appearance.textSize()));
}

QString SettingsScreen::textSizeName() const
{
    switch (static_cast<TextSize>(textSize())) {
    case TextSize::ExtraSmall:
        return tr("Extra Small");
    case TextSize::Small:
        return tr("Small");
    case TextSize::Medium:
        return tr("Medium");
    case TextSize::Large:
        return tr("Standard");
    case TextSize::ExtraLarge:
        return tr("Large");
    case TextSize::ExtraExtraLarge:
        return tr("Extra Large");
    case TextSize::ExtraExtraExtraLarge:
        return tr("Largest of the Usual Sizes");
    default:
        return tr("Accessibility %1").arg(textSize() - static_cast<int>(TextSize::Accessibility1) + 1);
    }
}

void SettingsScreen::setMusicAllowed(bool isAllowed)
{
    if (isAllowed != isMusicAllowed())
        m_services.setMusicAccess(isAllowed);
}

void SettingsScreen::scanAgain()
{
    if (isMusicAllowed())
        m_services.scan.start();
}

void SettingsScreen::updateScanning()
{
    const ScanProgress progress = m_services.scan.progress();
    const bool isScanning = progress.isRunning && !progress.isQuiet;
    if (isScanning == m_isScanning)
        return;
    m_isScanning = isScanning;
    Q_EMIT changed();
}

void SettingsScreen::setMicrophoneAllowed(bool isAllowed)
{
    m_services.device.setMicrophoneAccess(isAllowed ? AccessChoice::Allowed : AccessChoice::Denied);
}

void SettingsScreen::setTheme(int choice)
{
    AppearanceChoices choices = m_services.device.appearance();
    choices.theme = static_cast<ThemeChoice>(std::clamp(choice, 0, 2));
    m_services.device.setAppearance(choices);
}

void SettingsScreen::setMotion(int choice)
{
    AppearanceChoices choices = m_services.device.appearance();
    choices.motion = static_cast<MotionChoice>(std::clamp(choice, 0, 2));
    m_services.device.setAppearance(choices);
}

void SettingsScreen::setShowsMenuBar(bool shows)
{
    AppearanceChoices choices = m_services.device.appearance();
    choices.showsMenuBar = shows;
    m_services.device.setAppearance(choices);
}

void SettingsScreen::setHasOwnTextSize(bool hasOwn)
{
    if (hasOwn == hasOwnTextSize())
        return;
    AppearanceChoices choices = m_services.device.appearance();
    choices.textSize = hasOwn ? std::optional(m_services.appearance.textSize()) : std::nullopt;
    m_services.device.setAppearance(choices);
}

void SettingsScreen::setTextSize(int size)
{
    AppearanceChoices choices = m_services.device.appearance();
    choices.textSize = static_cast<TextSize>(std::clamp(size, 0, static_cast<int>(TextSize::Accessibility5)));
    m_services.device.setAppearance(choices);
}

void SettingsScreen::addFolder(const QUrl &folder)
{
    if (folder.isLocalFile())
        m_services.folders.add(folder.toLocalFile());
}

void SettingsScreen::removeFolder(int row)
{
    const std::optional<SettingsLine> folder = m_folders.line(row);
    if (folder && folder->isOn)
        m_services.folders.remove(folder->key);
}

void SettingsScreen::setPlayerIgnored(int row, bool isIgnored)
{
    const std::optional<SettingsLine> player = m_players.line(row);
    if (!player)
        return;
    QStringList ignored = m_services.device.ignoredPlayers();
    ignored.removeAll(player->key);
    if (isIgnored)
        ignored << player->key;
    m_services.device.setIgnoredPlayers(ignored);
}

void SettingsScreen::dismiss()
{
    if (m_dismissAction)
        m_dismissAction();
}

void SettingsScreen::updateFolders()
{
    std::vector<SettingsLine> lines;
    for (const MusicFolder &folder : m_services.folders.folders()) {
        lines.push_back({.key = folder.path,
                         .title = folderForPeople(folder.path),
                         .note = folder.isReadable ? QString() : tr("Not available now"),
                         .isOn = !folder.isDesktops});
    }
    m_folders.setLines(std::move(lines));
    Q_EMIT changed(); // whether the music is restricted depends on the folders
}

// Those that run now, and those that are ignored although they do not. A player keeps its place while the
// screen is shown.
void SettingsScreen::updatePlayers()
{
    const QStringList ignored = m_services.device.ignoredPlayers();
    std::vector<SettingsLine> lines = m_players.lines();
    const auto add = [&lines](const QString &name, const QString &title) {
        if (std::ranges::find(lines, name, &SettingsLine::key) == lines.end())
            lines.push_back({.key = name, .title = title});
    };
    if (lines.empty() && m_services.players) {
        for (const KnownPlayer &player : m_services.players())
            add(player.name, player.title);
    }
    for (const QString &name : ignored)
        add(name, name);
    for (SettingsLine &line : lines)
        line.isOn = ignored.contains(line.key);
    m_players.setLines(std::move(lines));
}

QString folderForPeople(const QString &path)
{
    const QString home = QDir::homePath();
    return path.startsWith(home + u'/') ? u'~' + path.sliced(home.size()) : path;
}

void presentSettings(const SettingsServices &services, Presentation &presentation)
{
    auto screen = std::make_shared<SettingsScreen>(services, [target = QPointer(&presentation)] {
        if (target)
            target->dismiss();
    });
    QObject::connect(&presentation, &Presentation::sheetCancelRequested, screen.get(),
                     &SettingsScreen::dismiss);
    presentation.present(std::make_shared<HostedView>(
        SettingsScreen::tr("Settings"),
        QUrl(QStringLiteral("qrc:/qt/qml/Trackwise/Settings/SettingsView.qml")), "screen", screen));
}

} // namespace trackwise
