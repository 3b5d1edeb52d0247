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
                        return std::vector<KnownPlayer>{
                            {QStringLiteral("mpv"), QStringLiteral("mpv Media Player")}};
                    }};
    }

    QTemporaryDir home;
    QSettings file{home.filePath(QStringLiteral("device.ini")), QSettings::IniFormat};
    StoredDeviceSettings settings{file};
    DesktopAppearance appearance{settings, QDBusConnection(QStringLiteral("no such bus"))};
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

        settings.press(QStringLiteral("Music access"));
        QCOMPARE(m_device->library.status, LibraryAuthorizationStatus::Authorized);
        QVERIFY(settings.isChecked(QStringLiteral("Music access")));
        settings.press(QStringLiteral("Scan Again"));
        QCOMPARE(m_device->scan.started, 1);
        m_device->scan.report({.isRunning = true});
        QVERIFY(!settings.named(QStringLiteral("Scan Again"))->isEnabled());
        m_device->scan.report({.isRunning = true, .isQuiet = true});
        QVERIFY(settings.named(QStringLiteral("Scan Again"))->isEnabled());
        settings.press(QStringLiteral("Microphone access"), Qt::Key_Return);
        QCOMPARE(device.microphoneAccess(), AccessChoice::Allowed);
        settings.press(QStringLiteral("Microphone access"));
        QCOMPARE(device.microphoneAccess(), AccessChoice::Denied);

        settings.press(QStringLiteral("Theme, Dark"));
        QVERIFY(m_device->appearance.isDark());
        QVERIFY(settings.isChecked(QStringLiteral("Theme, Dark")));
        settings.press(QStringLiteral("Motion, Reduced"));
        QVERIFY(m_device->appearance.prefersReducedMotion());
        QVERIFY(!settings.named(QStringLiteral("Text size")));
        settings.press(QStringLiteral("Text size of the desktop"));
        QCOMPARE(device.appearance().textSize, std::optional(TextSize::Large));
        settings.press(QStringLiteral("Text size"), Qt::Key_Right);
        QCOMPARE(m_device->appearance.textSize(), TextSize::ExtraLarge);

        settings.press(QStringLiteral("Ignore mpv Media Player"));
        QCOMPARE(device.ignoredPlayers(), QStringList(QStringLiteral("mpv")));
        settings.press(QStringLiteral("Ignore mpv Media Player"));
        QCOMPARE(device.ignoredPlayers(), QStringList());
    }

    void followsWhatChangesElsewhere()
    {
        SettingsScreen screen(m_device->services(), {});
        SettingsWindow settings("Settings/SettingsView.qml", "screen", &screen);
        m_device->services().setMusicAccess(true);
        QVERIFY(settings.isChecked(QStringLiteral("Music access")));
        m_device->settings.setAppearance({.theme = ThemeChoice::Light});
        QVERIFY(settings.isChecked(QStringLiteral("Theme, Light")));
        m_device->library.status = LibraryAuthorizationStatus::Restricted;
        Q_EMIT m_device->library.authorizationStatusDidChange();
        QVERIFY(!settings.named(QStringLiteral("Music access"))->isEnabled());
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
        screen.addFolder(QUrl(QStringLiteral("https://example.org/music")));
        QCOMPARE(changes.size(), 1);
        screen.removeFolder(0); // the desktop's stays
        screen.removeFolder(7);
        QCOMPARE(changes.size(), 1);
        settings.press(QStringLiteral("Remove ~/More"));
        QCOMPARE(paths(), desktops);
        device.folders.add(QStringLiteral("/nowhere"));
        QVERIFY(!device.folders.folders().back().isReadable);
    }

    void listsIgnoredPlayersThatDoNotRun()
    {
        m_device->settings.setIgnoredPlayers({QStringLiteral("firefox")});
        SettingsScreen screen(m_device->services(), {});
        SettingsWindow settings("Settings/SettingsView.qml", "screen", &screen);
        QVERIFY(settings.isChecked(QStringLiteral("Ignore firefox")));
        settings.press(QStringLiteral("Ignore firefox"));
        QVERIFY(settings.named(QStringLiteral("Ignore firefox"))); // the user may think again
        QVERIFY(!settings.isChecked(QStringLiteral("Ignore firefox")));
    }

    void closesOnDoneAndOnEscape()
    {
        Presentation presentation;
        presentSettings(m_device->services(), presentation);
        QVERIFY(presentation.isSheetVisible());
        presentation.cancelSheet();
        QTRY_VERIFY(!presentation.isPresenting());
    }

    void asksForTheMusicOnce_data()
    {
        QTest::addColumn<QString>("pressed");
        QTest::addColumn<LibraryAuthorizationStatus>("status");
        QTest::newRow("allowed") << QStringLiteral("OK") << LibraryAuthorizationStatus::Authorized;
        QTest::newRow("denied") << QStringLiteral("Don't Allow") << LibraryAuthorizationStatus::Denied;
        QTest::newRow("put off") << QString() << LibraryAuthorizationStatus::NotDetermined;
    }
    void asksForTheMusicOnce()
    {
        QFETCH(QString, pressed);
        QFETCH(LibraryAuthorizationStatus, status);
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
            auto *request =
                presentation.sheet()->properties().value(QStringLiteral("request")).value<QObject *>();
            SettingsWindow sheet("Settings/LibraryAccessView.qml", "request", request);
            QCOMPARE(qobject_cast<LibraryAccessRequest *>(request)->folders()->lines().front().title,
                     QStringLiteral("~/Music"));
            sheet.press(pressed, Qt::Key_Return);
        }
        QTRY_COMPARE(answers, QList<LibraryAuthorizationStatus>({status, status}));
        QVERIFY(!presentation.isPresenting());
        QCOMPARE(access.status(), status);
        access.request([](LibraryAuthorizationStatus) {});
        QCOMPARE(presentation.isPresenting(), status == LibraryAuthorizationStatus::NotDetermined);
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
