// SPDX-License-Identifier: GPL-3.0-or-later
#include "lookup/ListedLibrary.h"
#include "recognition/DampedSpring.h"
#include "recognition/RecognitionController.h"
#include "support/RecognitionDoubles.h"
#include "support/Test.h"

#include <QRandomGenerator>

#include <cmath>

using namespace recognition;

namespace {

MediaItem song(const char *title, const char *artist)
{
    return {.title = QString::fromUtf8(title), .artist = QString::fromUtf8(artist), .persistentID = {7}};
}

MatchedMediaItem item(const char *catalogID, const char *title, const char *artist)
{
    const auto text = [](const char *chars) {
        return *chars ? std::optional(QString::fromUtf8(chars)) : std::nullopt;
    };
    return {.catalogID = text(catalogID), .title = text(title), .artist = text(artist)};
}

/// The numbers of the kind, of the haptic (-1: none) and of the milliseconds, and the texts.
QString described(const StateEffects &effects)
{
    const int haptic = effects.haptic ? static_cast<int>(*effects.haptic) : -1;
    const auto milliseconds = effects.dismissAfter.value_or(0ms).count();
    return u"%1 %2 %3|"_s.arg(static_cast<int>(effects.kind)).arg(haptic).arg(milliseconds) +
           QStringList{effects.topText, effects.bottomText, effects.announcement}.join(u'|');
}

/// A controller with everything around it under the test's thumb.
struct Attempt : RecognitionDoubles
{
    ListedLibrary library;
    bool isAuthorized = true;
    RecognitionController controller{
        services,
        library,
        {.requestLibraryAccess = [this](auto then) { then(isAuthorized); },
         .presentNoMicrophoneAccess = [this] { calls << u"alert"_s; },
         .stopTrackingNowPlaying = [this] { calls << u"fixed"_s; },
         .stateDidChange = [this] { calls << u"menu"_s; },
         .display =
             [this](const MediaItem &found) { calls << u"display %1"_s.arg(found.persistentID.value); }}};
    RecognitionHUD &hud = controller.hud();

    Attempt()
    {
        library.add(7, "Seven", "Band", "Album", "100");
        hud.setAnimated(true);
        QObject::connect(&hud, &RecognitionHUD::announcementChanged, &controller, [this] {
            if (!hud.announcement().isEmpty())
                calls << u"say "_s + hud.announcement();
        });
        QObject::connect(&hud, &RecognitionHUD::changed, &controller, [this] {
            if (hud.config() && hud.isVisible())
                calls << u"hud "_s + hud.config()->property("topText").toString();
        });
    }
    QString request()
    {
        controller.selectSongMusicRecognition();
        return taken();
    }
    void answer(const std::vector<MatchedMediaItem> &items) { Q_EMIT session->didFind(items); }
    /// What has happened since the last look.
    QString taken()
    {
        QCoreApplication::processEvents();
        return std::exchange(calls, {}).join(u'|');
    }
    /// The timers that run, by their milliseconds; those that go off once are negative.
    [[nodiscard]] QMap<int, QTimer *> timers() const
    {
        QMap<int, QTimer *> found;
        for (QTimer *timer : controller.findChildren<QTimer *>())
            if (timer->isActive())
                found[timer->isSingleShot() ? -timer->interval() : timer->interval()] = timer;
        return found;
    }
    void fire(int which)
    {
        QTimerEvent event(timers().value(which)->timerId());
        QCoreApplication::sendEvent(timers().value(which), &event);
    }
};

/// What a controller is to do, told in another way: what is known of it after any events.
struct Model
{
    std::size_t state = ShazamState(Idle{}).index();
    bool isLeaving = false;
    bool isRunning = false;
    bool isStartPending = false;
    int dismissal = 0; ///< the timer that runs
    int stateChanges = 0;

    [[nodiscard]] bool isListening() const { return state == ShazamState(Listening{}).index(); }
    [[nodiscard]] bool isIdle() const { return state == ShazamState(Idle{}).index(); }
    void enter(const ShazamState &next, int timer = 0)
    {
        state = next.index();
        dismissal = timer;
        ++stateChanges;
    }
    void start(const std::optional<Failure> &failure)
    {
        if (isListening())
            return;
        hide();
        isRunning = !failure;
        failure ? enter(Failed{}, -4000) : enter(Listening{});
    }
    void end(const ShazamState &next, int timer)
    {
        if (!isListening() || isLeaving)
            return;
        isRunning = false;
        enter(next, timer);
    }
    void leave()
    {
        isRunning = false;
        isLeaving = true;
        dismissal = 0;
    }
    void hide()
    {
        if (std::exchange(isLeaving, false))
            enter(Idle{});
    }
    [[nodiscard]] QList<int> timers() const
    {
        QList<int> running;
        if (dismissal)
            running << dismissal;
        if (isStartPending)
            running << -500;
        if (isListening())
            running << 250;
        if (isListening() && !isLeaving)
            running << 500;
        return running;
    }
};

} // namespace

class tst_Recognition : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void everyStateHasItsEffects()
    {
        const char *lost = "3 1 4000|Song Not Found|Couldn't find in your library|"
                           "Song not found, couldn't find in your library";
        const std::pair<ShazamState, const char *> rows[]{
            {Listening{}, "0 -1 0|Music Recognition|Listening\u2026|"},
            {Listening{.isSilent = true},
             "0 -1 0|Music Recognition|No sound is coming in|No sound is coming in"},
            {MatchFound{song("Seven", "Band")}, "1 0 3000|Seven|Band|Song identified, Seven by Band"},
            {MatchFound{song("%2", "%1")}, "1 0 3000|%2|%1|Song identified, %2 by %1"},
            {MatchFound{song("Seven", "")}, "1 0 3000|Seven|Seven|Song identified"},
            {MatchFound{song("", "Band")}, "1 0 3000|Song Identified|Band|Song identified"},
            {MatchFound{}, "1 0 3000|Song Identified|--|Song identified"},
            {NoSongFound{item("", "Seven", "Band")}, "3 1 4000|Not Found in Your Library|Seven \u2013 Band|"
                                                     "Song not found, couldn't find in your library"},
            {NoSongFound{item("1", "Seven", "")}, lost},
            {NoSongFound{item("1", "", "Band")}, lost},
            {NoSongFound{}, lost},
            {NoMatchFound{}, "2 1 4000|No Result|Couldn't identify song|No result, couldn't identify song"},
            {Failed{u"It is 5 %1"_s}, "4 2 4000|Error|It is 5 %1|Error occurred, It is 5 %1"},
        };
        for (const auto &[state, effects] : rows)
            QCOMPARE(described(effectsOf(state).value()), QString::fromUtf8(effects));
        QVERIFY(!effectsOf(Idle{}));
    }

    void findsTheSongThatWasHeard()
    {
        ListedLibrary library;
        library.add(1, "One", "Band", "Album", "100");
        library.add(2, "Two", "Band", "Album", "");
        MatchedMediaItem known;
        known.librarySong = PersistentID{2};
        const std::tuple<std::vector<MatchedMediaItem>, unsigned, bool> rows[]{
            // What was heard, the song that is (0: none), whether an item is left to tell of.
            {{item("", "Two", "Band"), item("100", "", "")}, 1, false}, // the identifier comes first
            {{item("9", "", ""), item("100", "", "")}, 0, true},        // of the first item that has one
            {{item("9", "Two", ""), item("", "two", "band")}, 2, false},
            {{item("", "Three", "Band"), item("", "Two", "Band")}, 0, true},
            {{item("", "", "Band"), item("", "", "")}, 0, true},
            {{item("", "Three", "Band"), known}, 2, false},
            {{item("", "One", "Band"), known}, 1, false},
            {{}, 0, false},
        };
        for (const auto &[heard, expected, hasItem] : rows) {
            const ShazamState state = stateForMatch(library, heard);
            const auto *match = std::get_if<MatchFound>(&state);
            QCOMPARE(match ? match->song.persistentID.value : 0, expected);
            if (!match)
                QCOMPARE(std::get<NoSongFound>(state).item,
                         hasItem ? std::optional(heard.front()) : std::nullopt);
        }
    }

    void doesEverythingInItsOrder()
    {
        Attempt a;
        const QString listening = u"record|activate|start|fixed|menu|prepare|hud Music Recognition"_s;
        const QString error = u"say Error occurred, %1|hud Error|playback"_s;
        QCOMPARE(a.request(), listening);
        QCOMPARE(a.timers().keys(), (QList{250, 500}));
        a.fire(250);
        a.fire(500);                         // it runs
        QCOMPARE(a.request(), u"prepare"_s); // it listens already
        const auto *shown = a.hud.config();
        a.answer({item("100", "", "")});
        QCOMPARE(a.taken(), u"menu|haptic 0|say Song identified, Seven by Band|display 7|hud Seven|"
                            "stop|playback"_s);
        QCOMPARE(a.hud.config(), shown);
        QCOMPARE(a.timers().keys(), QList{-3000});
        a.answer({}); // too late
        QCOMPARE(a.taken(), QString());

        a.startFailure = Failure{FailureKind::Busy, u"not this"_s};
        QCOMPARE(a.request(),
                 u"record|activate|start|menu|haptic 2|"_s + error.arg(u"Microphone already in use"_s));
        QCOMPARE(a.timers().keys(), QList{-4000});
        a.fire(-4000);
        QCOMPARE(a.taken(), QString());
        a.startFailure = Failure{FailureKind::Unavailable, u"No sound"_s};
        // What slid out is gone first; the new one is felt only while listening was prepared for that.
        QCOMPARE(a.request(), u"menu|record|activate|start|menu|"_s + error.arg(u"No sound"_s));

        a.startFailure.reset();
        a.isScreenReaderRunning = true;
        QCOMPARE(a.request(), u"say Listening"_s);
        QCOMPARE(a.timers().keys(), (QList{-4000, -500}));
        a.fire(-500);
        QCOMPARE(a.taken(), listening);
        Q_EMIT a.session->didNotFind(u"Broken"_s);
        QCOMPARE(a.taken(),
                 u"menu|haptic 2|"_s + error.arg(u"Broken"_s).replace(u"playback"_s, u"stop|playback"_s));
        QCOMPARE(a.request(), u"say Listening"_s);
        a.fire(-500);
        (void)a.taken();
        Q_EMIT a.session->didNotFind({});
        QVERIFY(!a.taken().contains(u"miss"_s)); // the text is still to be read
        a.fire(-4000);
        a.hud.didHide();
        QCOMPARE(a.taken(), u"miss|menu"_s);
        a.isGranted = false;
        QCOMPARE(a.request(), u"alert"_s);
        a.isAuthorized = false;
        QCOMPARE(a.request(), QString());
    }

    void showsWhatComesIn()
    {
        Attempt a;
        (void)a.request();
        const auto hear = [&a](float peak, std::chrono::milliseconds duration) {
            Q_EMIT a.session->didHear({peak, duration});
            const QString called = a.taken();
            return called + u'|' + a.hud.config()->property("bottomText").toString();
        };
        QCOMPARE(hear(1, 40ms), u"|Listening…"_s);
        QCOMPARE(a.hud.level(), 1.0);
        QCOMPARE(hear(0, 2999ms), u"|Listening…"_s);
        QCOMPARE(a.hud.level(), 0.0);
        QCOMPARE(hear(0.00003F, 1ms),
                 u"say No sound is coming in|hud Music Recognition|No sound is coming in"_s);
        QCOMPARE(a.hud.level(), 0.0);
        QCOMPARE(hear(0, 9s), u"|No sound is coming in"_s);
        QCOMPARE(a.timers().keys(), (QList{250, 500}));
        QCOMPARE(hear(0.1F, 40ms), u"hud Music Recognition|Listening…"_s);
        QCOMPARE(qRound(900 * a.hud.level()), 600);
        QVERIFY(hear(0, 400ms) == u"|Listening…"_s && a.hud.level() > 0.1 && a.hud.level() < 0.2);
        (void)hear(0, 3s);
        a.answer({item("100", "", "")});
        (void)a.taken();
        QCOMPARE(hear(0.5F, 40ms), u"|Band"_s); // it is over
        (void)a.request();
        QCOMPARE(hear(0, 1s), u"|Listening…"_s); // and begins anew
        (void)hear(1, 40ms);
        a.answer({item("100", "", "")});
        (void)a.taken();
        QCOMPARE(a.hud.level(), 0.0);
        (void)a.request();
        (void)hear(0, 13s);
        Q_EMIT a.session->didNotFind({});
        QVERIFY(a.taken().contains(u"No Result"_s));
        a.fire(-4000);
        a.hud.didHide();
        QVERIFY(!a.taken().contains(u"miss"_s)); // nothing was heard
    }

    void keepsToItsModelWhateverHappens()
    {
        QRandomGenerator random(20261123);
        for (int sequence = 0; sequence < 100; ++sequence) {
            Attempt a;
            Model model;
            QString story;
            for (int step = 0; step < 40; ++step) {
                const int event = random.bounded(10);
                story += QString::number(event);
                a.isScreenReaderRunning = random.bounded(3) == 0;
                a.startFailure = random.bounded(4) == 0 ? std::optional(Failure{}) : std::nullopt;
                switch (event) {
                case 0:
                case 1:
                    a.controller.selectSongMusicRecognition();
                    QCoreApplication::processEvents();
                    if (a.isScreenReaderRunning && !model.isListening())
                        model.isStartPending = true;
                    else
                        model.start(a.startFailure);
                    break;
                case 2:
                    if (a.session)
                        a.answer({item("100", "", "")});
                    model.end(MatchFound{}, -3000);
                    break;
                case 3:
                    if (a.session)
                        Q_EMIT a.session->didNotFind({});
                    model.end(NoMatchFound{}, -4000);
                    break;
                case 4:
                    a.isRunning = false; // somebody has pulled the plug
                    model.isRunning = false;
                    break;
                case 5:
                    a.hud.cancel();
                    if (model.isListening() && !model.isLeaving)
                        model.leave();
                    break;
                case 6:
                    a.hud.didHide();
                    model.hide();
                    break;
                default:
                    if (const QList<int> timers = a.timers().keys(); !timers.empty()) {
                        const int timer = timers[random.bounded(static_cast<int>(timers.size()))];
                        a.fire(timer);
                        if (timer == -500) {
                            model.isStartPending = false;
                            model.start(a.startFailure);
                        } else if (timer < 0 || (timer == 500 && !model.isRunning)) {
                            model.leave();
                        }
                    }
                }
                QCoreApplication::processEvents();
                QVERIFY2(a.controller.shazamState().index() == model.state, qPrintable(story));
                QVERIFY2(a.isRunning == model.isRunning, qPrintable(story));
                QVERIFY2(a.timers().keys() == model.timers(), qPrintable(story));
                QVERIFY2((a.hud.config() != nullptr) == !model.isIdle(), qPrintable(story));
                QVERIFY2(a.hud.isVisible() == (!model.isIdle() && !model.isLeaving), qPrintable(story));
                QVERIFY2(a.calls.count(u"menu"_s) == model.stateChanges, qPrintable(story));
            }
        }
    }

    void springsAreDamped()
    {
        for (const auto &[duration, ratio] :
             {std::pair(0.333, 0.82), std::pair(0.666, 0.85), std::pair(2.0, 0.3)}) {
            const DampedSpring spring{duration, ratio};
            const double w = spring.angularFrequency();
            constexpr double h = 1e-5;
            QVERIFY(std::abs(spring.position(0)) < 1e-12);
            QVERIFY(std::abs(spring.position(h)) < w * w * h * h); // at rest
            for (int step = 1; step <= 1000; ++step) {
                const double t = step * duration / 500;
                const double x = spring.position(t);
                const double before = spring.position(t - h);
                const double after = spring.position(t + h);
                const double pull = (after - 2 * x + before) / (h * h) +
                                    2 * ratio * w * (after - before) / (2 * h) + w * w * (x - 1);
                QVERIFY(std::abs(pull) < 1e-3 * w * w);
                QVERIFY(t < duration || std::abs(x - 1) <= 0.001);
            }
        }
        QCOMPARE(RecognitionHUD::slideInDuration(), 333);
        QCOMPARE(RecognitionHUD::slideOutDuration(), 666);
        constexpr DampedSpring in{0.333, 0.82};
        QCOMPARE(RecognitionHUD::slideIn().valueForProgress(0.5), in.position(0.1665));
        QCOMPARE(RecognitionHUD::slideIn().valueForProgress(1), 1.0);
        QVERIFY(RecognitionHUD::slideOut().valueForProgress(0.7) >
                RecognitionHUD::slideIn().valueForProgress(0.3));
        QCOMPARE(RecognitionHUD::minimumScale(1.12), 0.95);
        QCOMPARE(RecognitionHUD::minimumScale(1.24), 0.4);
    }
};

QTEST_GUILESS_MAIN(tst_Recognition)
#include "tst_Recognition.moc"
