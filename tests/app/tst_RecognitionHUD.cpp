// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/RealWindow.h"
#include "support/Test.h"
#include "support/ViewWindow.h"

namespace {

struct Window : RealWindow
{
    using RealWindow::RealWindow;

    [[nodiscard]] RecognitionHUD &hud() const { return *scene->detail().recognitionHUD(); }
    [[nodiscard]] bool isListening() const { return scene->detail().isListening(); }
    /// The item of that QML file; null when there is none.
    [[nodiscard]] QQuickItem *item(const char *type) const
    {
        for (QQuickItem *found : window().findChildren<QQuickItem *>())
            if (QByteArray(found->metaObject()->className()).startsWith(type))
                return found;
        return nullptr;
    }
    [[nodiscard]] QRectF place() const
    {
        const QQuickItem *capsule = item("HUDView_");
        return capsule && capsule->isVisible() ? capsule->mapRectToScene(capsule->boundingRect()) : QRectF();
    }
    [[nodiscard]] bool isAtRest() const
    {
        return place() == QRectF((window().width() - 290) / 2.0, 11, 290, 50) && place().left() > 0;
    }
    bool listen()
    {
        scene->detail().selectSongMusicRecognitionKeyCommanded();
        return QTest::qWaitFor([this] { return isListening() && isAtRest(); });
    }
    /// The texts of the HUD, and whether one of them is cut off.
    [[nodiscard]] QStringList texts() const
    {
        QStringList found;
        for (const QQuickItem *text : item("ShazamHUDContent_")->findChildren<QQuickItem *>())
            if (text->inherits("QQuickText") && text->isVisible())
                found << text->property("text").toString() +
                             (text->property("truncated").toBool() ? u"…"_s : QString());
        return found;
    }
    void clickCancel() const
    {
        const QQuickItem *button = item("CancelButton_");
        QTest::mouseClick(&window(), Qt::LeftButton, {},
                          button->mapRectToScene(button->boundingRect()).center().toPoint());
    }
};

} // namespace

class tst_RecognitionHUD : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { QAccessible::setActive(true); }

    void changesInPlaceAndIsReadAloud()
    {
        Window w;
        w.systemPlayer.item = song(3);
        w.scene->detail().selectNowPlayingSong(true);
        QTRY_VERIFY(w.scene->detail().isTrackingNowPlaying());
        const auto *focused = w.window().activeFocusItem();
        CommandMenu &menu = *w.scene->detail().moreMenu();
        const auto recognition = [&] { // the row of the menu, and the command of the key
            return menu.index(1).data(CommandMenu::TitleRole).toString() + u'|' +
                   menu.index(1).data(CommandMenu::SymbolRole).toString() + u'|' +
                   menu.index(1).data(CommandMenu::EnabledRole).toString() + u'|' +
                   QVariant(w.scene->detail().validateCommand(KeyCommand::SelectSongMusicRecognition))
                       .toString();
        };
        QCOMPARE(recognition(), u"Music Recognition|waveform.circle|true|true"_s);
        menu.trigger(1);
        QTRY_VERIFY(w.isAtRest());
        QCOMPARE(recognition(), u"Listening…|waveform.circle|false|false"_s);
        QVERIFY(!w.scene->detail().isTrackingNowPlaying());
        QCOMPARE(w.texts(), (QStringList{u"Music Recognition"_s, u"Listening…"_s}));
        QCOMPARE(w.hud().config()->symbolName(), u"mic.fill"_s);
        QCOMPARE(w.hud().config()->outlineName(), u"mic"_s);
        QCOMPARE(w.window().activeFocusItem(), focused);
        // Its texts are not for screen readers, which get announcements.
        const QStringList spoken = namesIn(w.window());
        QVERIFY(spoken.contains(u"More"_s));
        for (const QString &text : w.texts())
            QVERIFY(!spoken.contains(text));
        const auto *content = w.item("ShazamHUDContent_");
        QVERIFY(w.item("CancelButton_")->isVisible());

        Q_EMIT w.recognition.session->didFind({{.catalogID = u"100"_s}});
        QTRY_COMPARE(w.texts(), (QStringList{u"Seven"_s, u"Band"_s}));
        QCOMPARE(w.item("ShazamHUDContent_"), content);
        QVERIFY(w.isAtRest());
        QVERIFY(!w.item("CancelButton_")->isVisible());
        QCOMPARE(w.hud().config()->symbolName(), u"checkmark.circle.hierarchical"_s);
        QCOMPARE(w.scene->detail().visibleMediaItem()->title, u"Seven"_s);
        QCOMPARE(namesIn(w.window(), QAccessible::AlertMessage),
                 QStringList{u"Song identified, Seven by Band"_s});

        w.hud().dismiss();
        QTRY_VERIFY(!w.hud().config());
        QVERIFY(w.place().isEmpty());
    }

    void aNewAttemptInterruptsADismissal()
    {
        Window w;
        QVERIFY(w.listen());
        Q_EMIT w.recognition.session->didNotFind({});
        QTRY_COMPARE(w.texts().first(), u"No Result"_s);
        w.hud().dismiss();
        QTRY_VERIFY(!w.isAtRest());
        QVERIFY(w.listen());
        QCOMPARE(w.texts().first(), u"Music Recognition"_s);
        QVERIFY(w.recognition.isRunning);
        w.scene.reset(); // the window is closed
        QVERIFY(!w.recognition.isRunning);
        QCOMPARE(w.recognition.calls.last(), u"playback"_s);
    }

    void isCancelledAboveEverything()
    {
        Window w;
        QVERIFY(w.listen());
        w.scene->menus().setPlace(MenuBarPlace::OnDemand);
        for (const Qt::Key key : {Qt::Key_F10, Qt::Key_Down, Qt::Key_Escape}) // closes the menu first
            QTest::keyClick(&w.window(), key);
        QVERIFY(w.recognition.isRunning);
        w.clickCancel();
        QVERIFY(!w.recognition.isRunning);
        QTRY_VERIFY(!w.isListening());

        w.scene->detail().selectSongFromLibrary();
        QVERIFY(QTest::qWaitFor([&w] { return w.window().activeFocusItem()->inherits("QQuickTextInput"); }));
        w.scene->detail().presentAlert({.title = u"First"_s, .message = u"One"_s});
        QTRY_VERIFY(w.window().activeFocusItem()->inherits("QQuickAbstractButton"));
        const auto *focused = w.window().activeFocusItem();
        QVERIFY(w.listen());
        QCOMPARE(w.window().activeFocusItem(), focused);
        w.clickCancel();
        QVERIFY(!w.recognition.isRunning);
        QTRY_VERIFY(!w.isListening());
        QVERIFY(w.listen());
        QTest::keyClick(&w.window(), Qt::Key_Escape);
        QVERIFY(!w.recognition.isRunning);
        QVERIFY(w.scene->presentation().isAlertVisible());
        QTest::keyClick(&w.window(), Qt::Key_Escape); // is the alert's again, while the HUD slides out
        QTRY_VERIFY(!w.scene->presentation().alert());
        QVERIFY(w.scene->presentation().isSheetVisible());
        QTRY_VERIFY(!w.isListening());
    }

    void fitsLargeTexts()
    {
        for (const qreal scale : {1.0, 1.12, 1.24, 3.12}) {
            Window w({.textScale = scale});
            QVERIFY(w.listen());
            Q_EMIT w.recognition.session->didFind({});
            QTRY_COMPARE(w.texts(), (QStringList{u"Song Not Found"_s, u"Couldn't find in your library"_s}));
            for (const QQuickItem *text : w.item("ShazamHUDContent_")->findChildren<QQuickItem *>()) {
                QVERIFY(!text->inherits("QQuickText") ||
                        w.place().contains(text->mapRectToScene(text->boundingRect())));
            }
            // A longer text becomes smaller as far as it may, and only then is cut off.
            QString longer = u"Band"_s;
            w.hud().config()->setProperty("bottomText", longer);
            const QQuickItem *line = nullptr;
            for (const QQuickItem *text : w.item("ShazamHUDContent_")->findChildren<QQuickItem *>())
                line = text->property("text") == longer ? text : line;
            QVERIFY(line);
            const qreal before = line->scale();
            const auto grow = [&] {
                w.hud().config()->setProperty("bottomText", longer += u'n');
                return line->scale();
            };
            while (grow() >= before && longer.size() < 200) {
            }
            QVERIFY(!line->property("truncated").toBool());
            while (!line->property("truncated").toBool() && longer.size() < 200)
                grow();
            QCOMPARE(line->scale(), RecognitionHUD::minimumScale(scale));
        }
    }
};

QTEST_MAIN(tst_RecognitionHUD)
#include "tst_RecognitionHUD.moc"
