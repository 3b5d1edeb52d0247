// SPDX-License-Identifier: GPL-3.0-or-later
#include "recognition/RecognitionController.h"

#include <QCoreApplication>
#include <QPointer>

#include <utility>

namespace trackwise {

namespace {
using namespace std::chrono_literals;
using namespace recognition;
constexpr auto announcementTime = 500ms;
constexpr auto hapticsInterval = 250ms;
constexpr auto engineInterval = 500ms;

struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(Recognition)
};
} // namespace

RecognitionController::RecognitionController(const RecognitionServices &services, const MediaLibrary &library,
                                             Actions actions, QObject *parent)
    : QObject(parent)
    , m_services(services)
    , m_library(library)
    , m_actions(std::move(actions))
{
    for (QTimer *timer :
         {&m_timers.start, &m_timers.dismissHUD, &m_timers.haptics, &m_timers.audioEngineRunning})
        timer->setParent(this);
    m_timers.start.setSingleShot(true);
    m_timers.start.setInterval(announcementTime);
    m_timers.dismissHUD.setSingleShot(true);
    m_timers.haptics.setInterval(hapticsInterval);
    m_timers.audioEngineRunning.setInterval(engineInterval);
    connect(&m_timers.start, &QTimer::timeout, this, &RecognitionController::startListening);
    connect(&m_timers.dismissHUD, &QTimer::timeout, &m_hud, &RecognitionHUD::dismiss);
    connect(&m_timers.haptics, &QTimer::timeout, this, [this] {
        if (m_haptics)
            m_haptics->prepare();
    });
    connect(&m_timers.audioEngineRunning, &QTimer::timeout, this, &RecognitionController::lookAfterEngine);
    connect(&m_hud, &RecognitionHUD::cancelRequested, this, &RecognitionController::cancel);
    connect(&m_hud, &RecognitionHUD::didDismiss, this, [this] { setState(Idle{}); });
}

RecognitionController::~RecognitionController()
{
    if (isListening())
        stopListening();
}

void RecognitionController::selectSongMusicRecognition()
{
    m_actions.requestLibraryAccess([controller = QPointer(this)](bool authorized) {
        if (controller && authorized)
            controller->requestMicrophone();
    });
}

void RecognitionController::requestMicrophone()
{
    // The answer may come on any thread: the controller is looked at on the main thread only.
    m_services.audioSession.requestRecordPermission([controller = QPointer(this)](bool isGranted) {
        QMetaObject::invokeMethod(
            QCoreApplication::instance(),
            [controller, isGranted] {
                if (controller)
                    controller->microphoneWasAnswered(isGranted);
            },
            Qt::QueuedConnection);
    });
}

void RecognitionController::microphoneWasAnswered(bool isGranted)
{
    if (!isGranted)
        m_actions.presentNoMicrophoneAccess();
    if (isListening() || !isGranted)
        return;
    if (m_services.isScreenReaderRunning()) {
        m_hud.announce(Texts::tr("Listening"));
        m_timers.start.start(); // or else it would be recorded
    } else {
        startListening();
    }
}

RecognitionSession &RecognitionController::session()
{
    if (!m_session) {
        m_session = m_services.makeSession();
        connect(m_session.get(), &RecognitionSession::didHear, this, &RecognitionController::soundWasHeard,
                Qt::QueuedConnection);
        connect(m_session.get(), &RecognitionSession::didFind, this, &RecognitionController::matchWasFound,
                Qt::QueuedConnection);
        connect(m_session.get(), &RecognitionSession::didNotFind, this,
                &RecognitionController::noMatchWasFound, Qt::QueuedConnection);
    }
    return *m_session;
}

void RecognitionController::startListening()
{
    if (isListening())
        return;
    m_hud.finishDismissal(); // what slides out would take the new attempt with it
    m_services.audioSession.setCategory(AudioSessionCategory::Record);
    m_services.audioSession.activate();
    if (const std::optional<Failure> failure = session().start()) {
        setState(Failed{failure->kind == FailureKind::Busy ? Texts::tr("Microphone already in use")
                                                           : failure->detail});
        m_services.audioSession.setCategory(AudioSessionCategory::Playback);
        return;
    }
    m_actions.stopTrackingNowPlaying();
    setState(Listening{});
}

void RecognitionController::stopListening()
{
    session().stop();
    m_services.audioSession.setCategory(AudioSessionCategory::Playback);
}

void RecognitionController::cancel()
{
    m_timers.audioEngineRunning.stop();
    stopListening();
    m_hud.dismiss();
}

void RecognitionController::soundWasHeard(const SoundLevel &level)
{
    if (!isWaitingForAnswer())
        return;
    m_meter.hear(level);
    m_hud.setLevel(m_meter.fullness());
    auto &listening = std::get<Listening>(m_state);
    if (std::exchange(listening.isSilent, m_meter.isSilent()) == m_meter.isSilent())
        return;
    const StateEffects effects = *effectsOf(m_state);
    m_hud.announce(effects.announcement);
    m_hud.show(effects);
}

void RecognitionController::matchWasFound(const std::vector<MatchedMediaItem> &items)
{
    if (!isWaitingForAnswer())
        return;
    setState(stateForMatch(m_library, items));
    stopListening();
}

void RecognitionController::noMatchWasFound(const std::optional<QString> &error)
{
    if (!isWaitingForAnswer())
        return;
    setState(error ? ShazamState(Failed{*error}) : NoMatchFound{});
    stopListening();
}

void RecognitionController::lookAfterEngine()
{
    if (!session().isRunning())
        cancel();
}

void RecognitionController::setState(ShazamState state)
{
    if (std::holds_alternative<NoMatchFound>(std::exchange(m_state, std::move(state))) && !m_meter.isSilent())
        m_services.noteMiss();
    m_actions.stateDidChange();
    for (QTimer *timer : {&m_timers.dismissHUD, &m_timers.haptics, &m_timers.audioEngineRunning})
        timer->stop();
    if (const std::optional<StateEffects> effects = effectsOf(m_state)) {
        perform(*effects);
        return;
    }
    m_haptics.reset();
    m_hud.clear();
}

void RecognitionController::perform(const StateEffects &effects)
{
    m_hud.setLevel(0);
    if (isListening()) {
        m_meter = {};
        if (!m_haptics)
            m_haptics = m_services.makeHaptics();
        m_haptics->prepare();
        m_timers.haptics.start();
        m_timers.audioEngineRunning.start();
    }
    if (effects.haptic && m_haptics)
        m_haptics->notify(*effects.haptic);
    if (!effects.announcement.isEmpty())
        m_hud.announce(effects.announcement);
    if (effects.dismissAfter)
        m_timers.dismissHUD.start(*effects.dismissAfter);
    if (const auto *match = std::get_if<MatchFound>(&m_state))
        m_actions.display(match->song);
    m_hud.show(effects);
}

} // namespace trackwise
