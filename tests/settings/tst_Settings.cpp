// SPDX-License-Identifier: GPL-3.0-or-later
#include "device/integration/DesktopAppearance.h"
#include "device/integration/StoredDeviceSettings.h"
#include "device/library/LibraryAccess.h"
#include "device/library/StoredMusicFolders.h"
#include "lookup/ListedLibrary.h"
#include "settings/LibraryAccessRequest.h"
#include "settings/SettingsScreen.h"
#include "support/ScriptedScan.h"
#include "support/ViewWindow.h"
#include "ui/Presentation.h"

#include <QDir>
#include <QSettings>
#include <QSignalSpy>
#include <QStandardPaths>
#include <QTemporaryDir>

#include <memory>

using namespace Qt::StringLiterals;
using namespace trackwise;

namespace {

/// A device of its own for each test: a home with music folders, and a settings file.
struct Device
{
    Device()
    {
        for (const char *name : {"Music", "More", "Locked"})
            QDir(home.path()).mkdir(QString::fromLatin1(name));
        qputenv("HOME", home.path().toUtf8());
        qputenv("XDG_CONFIG_HOME", home.path().toUtf8());
        library.status = LibraryAuthorizationStatus::Denied;
    }

    [[nodiscard]] QString path(const char *name) const { return home.filePath(QString::fromLatin1(name)); }
    [[nodiscard]] SettingsServices services()
    {
        return {.device = settings,
                .appearance = appearance,
                .folders = folders,
                .library = library,
                .scan = scan,
                .setMusicAccess =
                    [this](bool isAllowed) {
                        library.status = isAllowed ? LibraryAuthorizationStatus::Authorized
                                                   : LibraryAuthorizationStatus::Denied;
                        Q_EMIT library.authorizationStatusDidChange();
                    },
                .players =
                    [] {
                        return std::vector<KnownPlayer>{{u"mpv"_s, u"mpv Media Player"_s}};
                    }};
    }

    QTemporaryDir home;
    QSettings file{home.filePath(u"device.ini"_s), QSettings::IniFormat};
    StoredDeviceSettings settings{file};
    DesktopAppearance appearance{settings, QDBusConnection(u"no such bus"_s)};
    StoredMusicFolders folders{file};
    ListedLibrary library;
    ScriptedScan scan;
};

struct SettingsWindow : ViewWindow
{
    explicit SettingsWindow(const char *view, const char *property, QObject *object)
        : ViewWindow({360, 1200})
    {
        show(view, property, QVariant::fromValue(object));
    }
    /// The control of exactly this name; its label may have it too.
    [[nodiscard]] QQuickItem *named(const QString &name)
    {
        for (const Element &element : elements()) {
            if (element.name == name && element.role != QAccessible::StaticText)
                return element.item;
        }
        return nullptr;
    }
    /// Presses the control by keyboard, as somebody without a pointer does.
    void press(const QString &name, Qt::Key key = Qt::Key_Space)
    {
        QQuickItem *control = named(name);
        if (!control)
            qFatal("no control named %s", qPrintable(name));
        control->forceActiveFocus(Qt::TabFocusReason);
        ViewWindow::press(key);
    }
    [[nodiscard]] bool isChecked(const QString &name)
    {
        const QAccessible::State state = QAccessible::queryAccessibleInterface(named(name))->state();
        if (!state.checkable || state.checked != named(name)->property("checked").toBool())
            qFatal("%s is not what it seems to be", qPrintable(name));
        return state.checked;
    }
};

} // namespace

class tst_Settings : public QObject
{
    Q_OBJECT

    std::unique_ptr<Device> m_device;

private Q_SLOTS:
    void init() { m_device = std::make_unique<Device>(); }

    void everyControlChangesItsSetting()
    {
        SettingsScreen screen(m_device->services(), {});
        SettingsWindow settings("Settings/SettingsView.qml", "screen", &screen);
        const DeviceSettings &device = m_device->settings;

        settings.press(u"Music access"_s);
        QCOMPARE(m_device->library.status, LibraryAuthorizationStatus::Authorized);
        QVERIFY(settings.isChecked(u"Music access"_s));
        settings.press(u"Scan Again"_s);
        QCOMPARE(m_device->scan.started, 1);
        m_device->scan.report({.isRunning = true});
        QVERIFY(!settings.named(u"Scan Again"_s)->isEnabled());
        m_device->scan.report({.isRunning = true, .isQuiet = true});
        QVERIFY(settings.named(u"Scan Again"_s)->isEnabled());
        settings.press(u"Microphone access"_s, Qt::Key_Return);
        QCOMPARE(device.microphoneAccess(), AccessChoice::Allowed);
        settings.press(u"Microphone access"_s);
        QCOMPARE(device.microphoneAccess(), AccessChoice::Denied);

        settings.press(u"Theme, Dark"_s);
        QVERIFY(m_device->appearance.isDark());
        QVERIFY(settings.isChecked(u"Theme, Dark"_s));
        settings.press(u"Motion, Reduced"_s);
        QVERIFY(m_device->appearance.prefersReducedMotion());
        QVERIFY(!settings.named(u"Text size"_s));
        settings.press(u"Text size of the desktop"_s);
        QCOMPARE(device.appearance().textSize, std::optional(TextSize::Large));
        settings.press(u"Text size"_s, Qt::Key_Right);
        QCOMPARE(m_device->appearance.textSize(), TextSize::ExtraLarge);

        settings.press(u"Ignore mpv Media Player"_s);
        QCOMPARE(device.ignoredPlayers(), QStringList(u"mpv"_s));
        settings.press(u"Ignore mpv Media Player"_s);
        QCOMPARE(device.ignoredPlayers(), QStringList());
    }

    void followsWhatChangesElsewhere()
    {
        SettingsScreen screen(m_device->services(), {});
        SettingsWindow settings("Settings/SettingsView.qml", "screen", &screen);
        m_device->services().setMusicAccess(true);
        QVERIFY(settings.isChecked(u"Music access"_s));
        m_device->settings.setAppearance({.theme = ThemeChoice::Light});
        QVERIFY(settings.isChecked(u"Theme, Light"_s));
        m_device->library.status = LibraryAuthorizationStatus::Restricted;
        Q_EMIT m_device->library.authorizationStatusDidChange();
        QVERIFY(!settings.named(u"Music access"_s)->isEnabled());
    }

    void keepsTheMusicFolders()
    {
        Device &device = *m_device;
        SettingsScreen screen(device.services(), {});
        SettingsWindow settings("Settings/SettingsView.qml", "screen", &screen);
        const QSignalSpy changes(&device.folders, &MusicFolders::foldersDidChange);
        const QStringList desktops{device.path("Music")};
        const auto paths = [&device] {
            QStringList found;
            for (const MusicFolder &folder : device.folders.folders())
                found << folder.path;
            return found;
        };
        QCOMPARE(paths(), desktops);
        screen.addFolder(QUrl::fromLocalFile(device.path("More") + u'/'));
        QCOMPARE(paths(), desktops + QStringList{device.path("More")});
        for (const QString &nothing : {device.path("More"), device.path("Music"), device.home.path()})
            screen.addFolder(QUrl::fromLocalFile(nothing)); // there already, or no music folder
        screen.addFolder(QUrl(u"https://example.org/music"_s));
        QCOMPARE(changes.size(), 1);
        screen.removeFolder(0); // the desktop's stays
        screen.removeFolder(7);
        QCOMPARE(changes.size(), 1);
        settings.press(u"Remove ~/More"_s);
        QCOMPARE(paths(), desktops);
        device.folders.add(u"/nowhere"_s);
        QVERIFY(!device.folders.folders().back().isReadable);
    }

    void listsIgnoredPlayersThatDoNotRun()
    {
        m_device->settings.setIgnoredPlayers({u"firefox"_s});
        SettingsScreen screen(m_device->services(), {});
        SettingsWindow settings("Settings/SettingsView.qml", "screen", &screen);
        QVERIFY(settings.isChecked(u"Ignore firefox"_s));
        settings.press(u"Ignore firefox"_s);
        QVERIFY(settings.named(u"Ignore firefox"_s)); // the user may think again
        QVERIFY(!settings.isChecked(u"Ignore firefox"_s));
    }

    void closesOnDoneAndOnEscape()
    {
        Presentation presentation;
        presentSettings(m_device->services(), presentation);
        QVERIFY(presentation.isSheetVisible());
        presentation.cancelSheet();
        QTRY_VERIFY(!presentation.isPresenting());
    }

    void asksForTheMusicOnce()
    {
        using enum LibraryAuthorizationStatus;
        for (const auto &[pressed, status] :
             {std::pair(u"OK"_s, Authorized), std::pair(u"Don't Allow"_s, Denied),
              std::pair(QString(), NotDetermined)}) {
            init();
            Presentation presentation;
            LibraryAccess access(m_device->file, {m_device->path("Music").toUtf8()});
            access.setQuestion([&](LibraryAccess::Answer answer) {
                presentLibraryAccessRequest(m_device->folders, presentation, std::move(answer));
            });
            QList<LibraryAuthorizationStatus> answers;
            for (int i = 0; i < 2; ++i)
                access.request([&answers](LibraryAuthorizationStatus given) { answers << given; });
            QVERIFY(presentation.isSheetVisible());
            QVERIFY(answers.isEmpty());

            if (pressed.isEmpty()) {
                presentation.cancelSheet();
            } else {
                auto *request = presentation.sheet()->properties().value(u"request"_s).value<QObject *>();
                SettingsWindow sheet("Settings/LibraryAccessView.qml", "request", request);
                QCOMPARE(qobject_cast<LibraryAccessRequest *>(request)->folders()->lines().front().title,
                         u"~/Music"_s);
                sheet.press(pressed, Qt::Key_Return);
            }
            QTRY_COMPARE(answers, QList<LibraryAuthorizationStatus>({status, status}));
            QVERIFY(!presentation.isPresenting());
            QCOMPARE(access.status(), status);
            access.request([](LibraryAuthorizationStatus) {});
            QCOMPARE(presentation.isPresenting(), status == NotDetermined);
        }
    }

    void aQuestionThatCannotBeShownDecidesNothing()
    {
        Presentation presentation;
        presentSettings(m_device->services(), presentation);
        int answers = 0;
        presentLibraryAccessRequest(m_device->folders, presentation,
                                    [&answers](std::optional<bool> isAllowed) {
                                        ++answers;
                                        QVERIFY(!isAllowed);
                                    });
        QCOMPARE(answers, 1);
    }
};

QTEST_MAIN(tst_Settings)
#include "tst_Settings.moc"
