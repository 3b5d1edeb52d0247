// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/RecognitionServices.h"
#include "recognition/RecognitionHUD.h"
#include "recognition/ShazamState.h"

#include <QObject>
#include <QTimer>

#include <functional>
#include <memory>

namespace trackwise {

class MediaLibrary;

/// Listens through the microphone for a window, and finds the library's song for what is heard. What happens
/// is seen in its HUD. Main thread.
class RecognitionController : public QObject
{
    Q_OBJECT

public:
    /// What its owner does for it.
    struct Actions
    {
        std::function<void(std::function<void(bool authorized)>)> requestLibraryAccess;
        std::function<void()> presentNoMicrophoneAccess;
        std::function<void()> stopTrackingNowPlaying;
        std::function<void()> stateDidChange;
        std::function<void(const MediaItem &)> display;
    };

    /// @p services and @p library must outlive the controller.
    RecognitionController(const RecognitionServices &services, const MediaLibrary &library, Actions actions,
                          QObject *parent = nullptr);
    ~RecognitionController() override;

    /// Asks for the library and the microphone, then listens. Ignored while it listens.
    void selectSongMusicRecognition();

    [[nodiscard]] const ShazamState &shazamState() const { return m_state; }
    [[nodiscard]] bool isListening() const { return std::holds_alternative<recognition::Listening>(m_state); }
    [[nodiscard]] RecognitionHUD &hud() { return m_hud; }

private:
    void requestMicrophone();
    void microphoneWasAnswered(bool isGranted);
    void startListening();
    void stopListening();
    void cancel();
    void soundWasHeard(const SoundLevel &level);
    void matchWasFound(const std::vector<MatchedMediaItem> &items);
    void noMatchWasFound(const std::optional<QString> &error);
    void lookAfterEngine();
    void setState(ShazamState state);
    void perform(const StateEffects &effects);
    [[nodiscard]] bool isWaitingForAnswer() const { return isListening() && !m_hud.isLeaving(); }
    RecognitionSession &session();

    const RecognitionServices &m_services;
    const MediaLibrary &m_library;
    Actions m_actions;
    std::unique_ptr<RecognitionSession> m_session; ///< one for all attempts
    ShazamState m_state = recognition::Idle{};
    RecognitionHUD m_hud;
    SoundMeter m_meter;
    std::unique_ptr<NotificationHaptics> m_haptics; ///< from listening until idle
    struct
    {
        QTimer start; ///< until a screen reader has said that we listen
        QTimer dismissHUD;
        QTimer haptics;
        QTimer audioEngineRunning;
    } m_timers;
};

} // namespace trackwise
