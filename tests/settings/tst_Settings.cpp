// SPDX-License-Identifier: GPL-3.0-or-later
#include "device/integration/DesktopAppearance.h"
#include "device/integration/StoredDeviceSettings.h"
#include "device/library/LibraryAccess.h"
#include "device/library/StoredMusicFolders.h"
#include "lookup/ListedLibrary.h"
#include "settings/LibraryAccessRequest.h"
#include "settings/SettingsScreen.h"
#include "support/ScriptedIndex.h"
#include "support/ScriptedScan.h"
#include "support/Test.h"
#include "support/ViewWindow.h"
#include "ui/Presentation.h"

#include <QDir>
#include <QQmlContext>
#include <QQmlProperty>
#include <QSettings>
#include <QSignalSpy>
#include <QStandardPaths>
#include <QTemporaryDir>

namespace {

/// Inputs as the test says, which tell what they measure.
struct ScriptedInputs : InputMonitor
{
    std::optional<AvailableInputs> known;
    QStringList measured;

    [[nodiscard]] std::optional<AvailableInputs> inputs() const override { return known; }
    void measure(const QString &choice) override { measured << choice; }
    void stopMeasuring() override { measured << u"nothing"_s; }
    void change(const AvailableInputs &now)
    {
        known = now;
        Q_EMIT inputsDidChange();
    }
};

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
        const auto players = [] { return std::vector{KnownPlayer{u"mpv"_s, u"mpv Media Player"_s}}; };
        const auto setMusicAccess = [this](bool isAllowed) {
            setStatus(isAllowed ? LibraryAuthorizationStatus::Authorized
                                : LibraryAuthorizationStatus::Denied);
        };
        const auto makeMonitor = [this] {
            auto made = std::make_unique<ScriptedInputs>();
            inputs = made.get();
            return made;
        };
        return {settings, appearance, folders, library, scan, index, setMusicAccess, players, makeMonitor};
    }
    void setStatus(LibraryAuthorizationStatus status)
    {
        library.status = status;
        Q_EMIT library.authorizationStatusDidChange();
    }

    QTemporaryDir home;
    QSettings file{home.filePath(u"device.ini"_s), QSettings::IniFormat};
    StoredDeviceSettings settings{file};
    DesktopAppearance appearance{settings, QDBusConnection(u"no such bus"_s)};
    StoredMusicFolders folders{file};
    ListedLibrary library;
    ScriptedScan scan;
    ScriptedIndex index;
    ScriptedInputs *inputs = nullptr; ///< of the screen that was made last
};

struct SettingsWindow : ViewWindow
{
    SettingsWindow(const char *view, const char *property, QObject *object, const ThemeSettings &look = {})
        : ViewWindow({360, 1200}, look)
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

/// The whole screen, over a device of its own.
struct ShownSettings : Device
{
    SettingsScreen screen{services(), {}};
};
struct OpenSettings : ShownSettings, SettingsWindow
{
    OpenSettings()
        : SettingsWindow("Settings/SettingsView.qml", "screen", &screen)
    {}
};

} // namespace

class tst_Settings : public QObject
{
    Q_OBJECT

    using Activity = RecognitionIndexState::Activity;

private Q_SLOTS:
    void tellsHowFarTheIndexIs()
    {
        ScriptedIndex index;
        const IndexStatus status(index);
        const std::pair<RecognitionIndexState, QString> rows[]{
            {{Activity::Idle, 40, 40, 300'000, {}}, u"40 of 40 songs can be recognized (293.0\u00a0KiB)"_s},
            {{Activity::Working, 1, 1200, 2'000, {}},
             u"1 of 1,200 songs can be recognized (2.0\u00a0KiB)\nListening to music: 1,199 left"_s},
            {{Activity::Working, 1, 2, 2'000, {}, true},
             u"1 of 2 songs can be recognized (2.0\u00a0KiB)\nListening to music: 1 left\n"
             "What was not recognized just now may be among the songs that are left."_s},
            {{Activity::Paused, 0, 0, 0, {}}, u"0 of 0 songs can be recognized (0\u00a0bytes)\nPaused"_s},
            {{Activity::SavingPower, 0, 1, 0, {}},
             u"0 of 1 songs can be recognized (0\u00a0bytes)\nPaused: saving power"_s},
            {{Activity::Unavailable, 0, 1, 0, u"disk full"_s},
             u"0 of 1 songs can be recognized (0\u00a0bytes)\nNot possible at the moment"_s},
        };
        for (const auto &[state, text] : rows) {
            index.report(state);
            QCOMPARE(status.text(), text);
            QCOMPARE(status.isPaused(), state.activity == Activity::Paused);
        }
    }

    void everyControlChangesItsSetting()
    {
        OpenSettings at;
        at.screen.scanAgain(); // nothing may be read yet
        QCOMPARE(at.scan.started, 0);
        at.press(u"Music access"_s);
        QCOMPARE(at.library.status, LibraryAuthorizationStatus::Authorized);
        QVERIFY(at.isChecked(u"Music access"_s));
        at.press(u"Scan Again"_s);
        QCOMPARE(at.scan.started, 1);
        at.scan.report({.isRunning = true});
        QVERIFY(!at.named(u"Scan Again"_s)->isEnabled());
        at.scan.report({.isRunning = true, .isQuiet = true});
        QVERIFY(at.named(u"Scan Again"_s)->isEnabled());
        at.press(u"Microphone access"_s, Qt::Key_Return);
        QCOMPARE(at.settings.microphoneAccess(), AccessChoice::Allowed);
        at.press(u"Microphone access"_s);
        QCOMPARE(at.settings.microphoneAccess(), AccessChoice::Denied);

        at.index.report({Activity::Idle, 2, 2, 3000, {}});
        at.press(u"Get to know songs by ear"_s);
        at.press(u"Begin Anew"_s);
        at.press(u"Forget All Songs"_s);
        at.index.report({Activity::Paused, 0, 2, 0, {}});
        QVERIFY(!at.isChecked(u"Get to know songs by ear"_s));
        at.press(u"Get to know songs by ear"_s);
        QCOMPARE(at.index.asked, u"prcg"_s);
        QVERIFY(!at.named(u"Forget All Songs"_s)->isEnabled());

        at.press(u"Theme, Dark"_s);
        QVERIFY(at.appearance.isDark() && at.isChecked(u"Theme, Dark"_s));
        at.press(u"Motion, Reduced"_s);
        QVERIFY(at.appearance.prefersReducedMotion());
        QVERIFY(!at.named(u"Text size"_s));
        at.press(u"Text size of the desktop"_s);
        QCOMPARE(at.settings.appearance().textSize, std::optional(TextSize::Large));
        at.press(u"Text size"_s, Qt::Key_Right);
        QCOMPARE(at.appearance.textSize(), TextSize::ExtraLarge);

        at.press(u"Ignore mpv Media Player"_s);
        QCOMPARE(at.settings.ignoredPlayers(), QStringList(u"mpv"_s));
        at.screen.setPlayerIgnored(-1, false); // no such players
        at.screen.setPlayerIgnored(1, false);
        at.press(u"Ignore mpv Media Player"_s);
        QCOMPARE(at.settings.ignoredPlayers(), QStringList());
    }

    void anInputIsChosenAndStaysChosen()
    {
        OpenSettings at;
        const auto lines = [&at] {
            QStringList found;
            for (const SettingsLine &line : at.screen.input()->choices()->lines())
                found << (line.isOn ? u"*"_s : QString()) + line.title + u'|' + line.note;
            return found;
        };
        const AvailableInputs three{
            {{u"a"_s, u"Desk"_s}, {u"b"_s, u"Twin"_s}, {u"c"_s, u"Twin"_s}}, u"Desk"_s, true};
        const QString computers = u"This computer's sound|Whatever it plays, also for headphones"_s;
        QCOMPARE(lines(), QStringList(u"*Default input|"_s)); // nothing is known yet
        at.inputs->change(three);
        QCOMPARE(lines(),
                 (QStringList{u"*Default input|Desk"_s, u"Desk|"_s, u"Twin|b"_s, u"Twin|c"_s, computers}));
        at.press(u"Input, Desk"_s);
        QVERIFY(at.isChecked(u"Input, Desk"_s));
        QCOMPARE(at.settings.soundInput(), (SoundInputChoice{u"a"_s, u"Desk"_s}));
        at.inputs->change({{{u"b"_s, u"Twin"_s}}, u"Twin"_s, false});
        QCOMPARE(lines(), (QStringList{u"Default input|Twin"_s, u"Twin|"_s,
                                       u"*Desk|Not connected; the default input is used"_s}));
        at.inputs->change(three);
        at.press(u"Input, This computer's sound"_s, Qt::Key_Return);
        QCOMPARE(at.settings.soundInput().name, QLatin1StringView(computersSoundName));
        at.inputs->change({});
        QCOMPARE(lines(), (QStringList{u"Default input|No microphone found"_s,
                                       u"*This computer's sound|Not available now"_s}));
        at.screen.input()->choose(9); // there is none
    }

    void listensOnlyWhileTheLevelIsInSight()
    {
        OpenSettings at;
        at.inputs->change({{{u"a"_s, u"Desk"_s}}, u"Desk"_s, false});
        at.settings.setMicrophoneAccess(AccessChoice::Allowed);
        QVERIFY(at.named(u"Level"_s));
        QTRY_COMPARE(at.inputs->measured, QStringList(QString()));
        at.press(u"Input, Desk"_s);
        Q_EMIT at.inputs->didHear({0.5F, 43ms});
        QVERIFY(at.screen.input()->level() > 0.8);
        at.window.resize(360, 200);
        at.press(u"Text size of the desktop"_s); // far below
        QTRY_COMPARE(at.inputs->measured, (QStringList{QString(), u"a"_s, u"nothing"_s}));
        Q_EMIT at.inputs->didHear({0.5F, 43ms}); // was under way
        QCOMPARE(at.screen.input()->level(), 0.0);
        at.window.resize(360, 1200);
        QTRY_COMPARE(at.inputs->measured.last(), u"a"_s);
        Q_EMIT at.inputs->didHear({0.00002F, 2900ms});
        QCOMPARE(at.screen.input()->note(), QString());
        Q_EMIT at.inputs->didHear({0, 100ms});
        QCOMPARE(at.screen.input()->note(), u"No sound is coming in"_s);
        Q_EMIT at.inputs->didHear({0.0001F, 40ms});
        QCOMPARE(at.screen.input()->note(), QString());
        at.inputs->measured.clear();
        at.press(u"Input, Desk"_s); // where it gave up
        QCOMPARE(at.inputs->measured, QStringList(u"a"_s));
        at.settings.setMicrophoneAccess(AccessChoice::Denied);
        QCOMPARE(at.inputs->measured.last(), u"nothing"_s);
        at.settings.setMicrophoneAccess(AccessChoice::Allowed);
        QTRY_COMPARE(at.inputs->measured.last(), u"a"_s);
        auto *longest = at.screen.input()->findChild<QTimer *>();
        QVERIFY(longest->isActive() && longest->intervalAsDuration() == 2min);
        QTimerEvent hasCome(longest->timerId());
        QCoreApplication::sendEvent(longest, &hasCome);
        QCOMPARE(at.inputs->measured.last(), u"nothing"_s);
        QCOMPARE(at.screen.input()->note(), u"Paused; choose an input to go on"_s);
        at.press(u"Input, Desk"_s, Qt::Key_Return);
        QCOMPARE(at.inputs->measured.last(), u"a"_s);
        QWindow other; // comes to the front
        other.show();
        other.requestActivate();
        QTRY_COMPARE(at.inputs->measured.last(), u"nothing"_s);
    }

    void choicesStayWithinTheirRange()
    {
        ShownSettings at;
        const auto chosen = [&at](int choice) {
            at.screen.setTheme(choice);
            at.screen.setMotion(choice);
            at.screen.setTextSize(choice);
            return QList{at.screen.theme(), at.screen.motion(), at.screen.textSize()};
        };
        QCOMPARE(chosen(-1), QList({0, 0, 0}));
        QCOMPARE(chosen(7), QList({2, 2, 7}));
        QCOMPARE(at.screen.textSizeName(), u"Accessibility 1"_s);
        QCOMPARE(chosen(99), QList({2, 2, 11}));
    }

    void longButtonsStayOnThePageAtItsLeadingEdge()
    {
        ShownSettings at;
        SettingsWindow sheet("Settings/SettingsView.qml", "screen", &at.screen,
                             {.textScale = 3.12, .isAccessibilitySize = true});
        const QQuickItem *button = sheet.named(u"Add Music Folder…"_s);
        const QRectF place = sheet.place(button);
        QVERIFY(place.right() < 360 && button->height() > 60); // two lines
        QQuickItem *root = sheet.window.rootObject();
        for (const auto &property : {u"LayoutMirroring.enabled"_s, u"LayoutMirroring.childrenInherit"_s})
            QVERIFY(QQmlProperty(root, property, qmlContext(root)).write(true));
        waitForLayout(sheet.window);
        QCOMPARE(sheet.place(button).right(), 360 - place.left());
    }

    void followsWhatChangesElsewhere()
    {
        OpenSettings at;
        at.setStatus(LibraryAuthorizationStatus::Authorized);
        QVERIFY(at.isChecked(u"Music access"_s));
        at.settings.setMicrophoneAccess(AccessChoice::Allowed);
        QVERIFY(at.isChecked(u"Microphone access"_s));
        at.settings.setAppearance({.theme = ThemeChoice::Light});
        QVERIFY(at.isChecked(u"Theme, Light"_s));
        const QSignalSpy changes(&at.screen, &SettingsScreen::changed);
        Q_EMIT at.appearance.appearanceDidChange(); // the desktop's own text size, say
        QCOMPARE(changes.size(), 1);
        at.settings.setIgnoredPlayers({u"firefox"_s}); // which does not run
        QVERIFY(at.isChecked(u"Ignore firefox"_s));
        at.press(u"Ignore firefox"_s); // it stays, as the user may think again
        QVERIFY(!at.isChecked(u"Ignore firefox"_s));
        at.setStatus(LibraryAuthorizationStatus::Restricted);
        QVERIFY(!at.named(u"Music access"_s)->isEnabled());
    }

    void keepsTheMusicFolders()
    {
        OpenSettings at;
        const QSignalSpy changes(&at.folders, &MusicFolders::foldersDidChange);
        const auto lines = [&at] {
            QStringList found;
            for (const SettingsLine &line : at.screen.folders()->lines())
                found << line.title + line.note;
            return found;
        };
        QCOMPARE(lines(), QStringList(u"~/Music"_s));
        at.screen.addFolder(QUrl::fromLocalFile(at.path("More") + u'/'));
        QCOMPARE(lines(), QStringList({u"~/Music"_s, u"~/More"_s}));
        for (const QString &nothing : {at.path("More"), at.path("Music"), at.home.path()})
            at.screen.addFolder(QUrl::fromLocalFile(nothing)); // there already, or no music folder
        at.screen.addFolder(QUrl(u"https://example.org/music"_s));
        for (const int row : {-1, 0, 2}) // the desktop's stays, and there are no others
            at.screen.removeFolder(row);
        QCOMPARE(changes.size(), 1);
        at.press(u"Remove ~/More"_s);
        at.folders.add(u"/nowhere"_s);
        QCOMPARE(lines(), QStringList({u"~/Music"_s, u"/nowhereNot available now"_s}));
    }

    void asksForTheMusicOnce()
    {
        using enum LibraryAuthorizationStatus;
        for (const auto &[pressed, status] :
             {std::pair(u"OK"_s, Authorized), std::pair(u"Don't Allow"_s, Denied),
              std::pair(QString(), NotDetermined)}) {
            Device device;
            Presentation presentation;
            LibraryAccess access(device.file, {device.path("Music").toUtf8()});
            access.setQuestion([&](LibraryAccess::Answer answer) {
                presentLibraryAccessRequest(device.folders, presentation, std::move(answer));
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
                device.folders.add(device.path("More"));
                const auto &folders = qobject_cast<LibraryAccessRequest *>(request)->folders()->lines();
                QCOMPARE(folders.at(0).title + folders.at(1).title, u"~/Music~/More"_s);
                QCOMPARE(sheet.window.activeFocusItem(), sheet.named(u"OK"_s));
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
        Device device;
        Presentation presentation;
        presentSettings(device.services(), presentation);
        int answers = 0;
        presentLibraryAccessRequest(device.folders, presentation, [&answers](std::optional<bool> isAllowed) {
            ++answers;
            QVERIFY(!isAllowed);
        });
        QCOMPARE(answers, 1);
        QVERIFY(presentation.isSheetVisible());
        presentation.cancelSheet(); // as Done and Escape do
        QTRY_VERIFY(!presentation.isPresenting());
    }
};

QTEST_MAIN(tst_Settings)
#include "tst_Settings.moc"
