// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/composition/Launch.h"

#include "app/AppDelegate.h"
#include "app/composition/LibraryChoice.h"
#include "device/Device.h"
#include "device/library/FindSong.h"
#include "settings/LibraryAccessRequest.h"

#include <QCoreApplication>
#include <QFile>
#include <QProcess>
#include <QTimer>

#include <cstdio>
#include <memory>
#include <utility>

namespace trackwise {

void say(const QString &text)
{
    std::fputs(qPrintable(QStringLiteral("trackwise: ") + text + u'\n'), stderr);
}

namespace {

/// Answers once: what the user chose, or nothing when the question goes away before.
class PendingAnswer
{
public:
    explicit PendingAnswer(LinuxAudioSession::Answer answer)
        : m_answer(std::move(answer))
    {}
    ~PendingAnswer() { give(std::nullopt); }
    Q_DISABLE_COPY_MOVE(PendingAnswer)

    void give(std::optional<bool> isAllowed)
    {
        if (const auto answer = std::exchange(m_answer, nullptr))
            answer(isAllowed);
    }

private:
    LinuxAudioSession::Answer m_answer;
};

} // namespace

Launch::Launch(AppDelegate &app, Device &device, StartOptions options)
    : m_app(app)
    , m_device(device)
    , m_options(std::move(options))
{
    LibraryAccess &access = device.library().access();
    access.setQuestion([this](LibraryAccess::Answer answer) { askForAccess(std::move(answer)); });
    device.audioSession().setQuestion(
        [this](const LinuxAudioSession::Answer &answer) { askForMicrophone(answer); });
    connect(&device.library().mediaLibrary(), &MediaLibrary::authorizationStatusDidChange, this,
            [this] { scanIfAllowed(); });
    connect(&device.library().scan(), &ScanController::finished, this, [this] { scanDidFinish(); });
    connect(&device.library().trouble(), &LibraryTrouble::didOccur, this, [this](const Failure &why) {
        presentLibraryAlert(why, {tr("Cancel"), AlertAction::Style::Cancel, {}});
    });
}

void Launch::run()
{
    m_app.newWindow();
    if (m_options.size) {
        m_app.scenes().back()->window().showNormal(); // whatever the last one was
        m_app.scenes().back()->window().resize(*m_options.size);
    }
    scanIfAllowed();
    if (!m_options.addresses.isEmpty())
        m_app.open(m_options.addresses);
    if (!m_options.action.isEmpty())
        m_app.activateAction(m_options.action);
    if (m_options.show.isEmpty() && !m_options.screenshotFile.isEmpty())
        saveScreenshotSoon();
}

void Launch::runWithoutLibrary(const Failure &why)
{
    m_app.newWindow();
    presentLibraryAlert(
        why, {tr("Quit"), AlertAction::Style::Cancel, [] { QCoreApplication::exit(EXIT_FAILURE); }});
}

void Launch::presentLibraryAlert(const Failure &why, AlertAction wayOut)
{
    if (m_app.scenes().empty())
        return;
    QString message = why.detail;
    std::vector<AlertAction> actions;
    // A library of a newer version, or one that cannot be written, is as good as it was.
    if (why.kind == FailureKind::Malformed || why.kind == FailureKind::Unreadable) {
        message += QStringLiteral("\n\n") +
                   tr("A new library can be made from your music folders. The old file is kept under another "
                      "name; what only it knows, such as play counts, starts anew.");
        actions.push_back({tr("New Library"), AlertAction::Style::Default,
                           [] { QCoreApplication::exit(newLibraryWanted); }});
    }
    actions.push_back(std::move(wayOut));
    const int preferred = static_cast<int>(actions.size()) - 1; // the way that changes nothing
    m_app.scenes().back()->presentation().presentAlert(
        std::make_unique<Alert>(tr("Music Library Unreadable"), message, std::move(actions), preferred));
}

void Launch::scanIfAllowed()
{
    if (m_device.library().access().status() == LibraryAuthorizationStatus::Authorized)
        m_device.library().scan().start();
}

// The question may come while the first window is still being made. It stands where the user is.
void Launch::askForAccess(LibraryAccess::Answer answer)
{
    QTimer::singleShot(0, this, [this, answer = std::move(answer)] {
        if (m_app.scenes().empty())
            answer(std::nullopt);
        else
            presentLibraryAccessRequest(m_device.musicFolders(), m_app.scenes().back()->presentation(),
                                        answer);
    });
}

void Launch::askForMicrophone(const LinuxAudioSession::Answer &answer)
{
    const auto pending = std::make_shared<PendingAnswer>(answer);
    if (m_app.scenes().empty())
        return;
    std::vector<AlertAction> actions{
        {tr("Don't Allow"), AlertAction::Style::Cancel, [pending] { pending->give(false); }},
        {tr("OK"), AlertAction::Style::Default, [pending] { pending->give(true); }}};
    m_app.scenes().back()->presentation().presentAlert(
        std::make_unique<Alert>(tr("“Trackwise” would like to access the microphone"),
                                tr("It listens only while you look for a song by its sound. What is heard "
                                   "stays on this device and is not kept."),
                                std::move(actions), 1));
}

void Launch::scanDidFinish()
{
    if (m_device.library().scan().failure())
        return; // what the library holds is not known
    if (!m_options.show.isEmpty()) {
        showSong();
        return;
    }
    if (!m_options.usesDemoLibrary && m_device.library().browser().songCount() == 0)
        offerDemoLibrary();
}

void Launch::showSong()
{
    const Result<FoundSong> found = findSong(m_device.library(), QFile::encodeName(m_options.show));
    if (!found) {
        say(found.failure().detail);
        if (!m_options.screenshotFile.isEmpty())
            QCoreApplication::exit(EXIT_FAILURE);
        return;
    }
    m_options.show.clear();
    if (m_app.scenes().empty())
        return;
    m_app.scenes().back()->detail().displayMediaItem(found->song.item, {});
    if (!m_options.screenshotFile.isEmpty())
        saveScreenshotSoon();
}

void Launch::saveScreenshotSoon()
{
    constexpr std::chrono::milliseconds timeToSettle{1500}; // covers are decoded, animations have ended
    QTimer::singleShot(timeToSettle, this, [this] {
        const bool saved = m_app.scenes().back()->window().grabWindow().save(m_options.screenshotFile);
        if (!saved)
            say(QStringLiteral("cannot write %1").arg(m_options.screenshotFile));
        QCoreApplication::exit(saved ? EXIT_SUCCESS : EXIT_FAILURE);
    });
}

void Launch::offerDemoLibrary()
{
    const QString offered = QStringLiteral("Demo/Offered");
    if (m_app.scenes().empty() || demoFolder().isEmpty() || m_device.settingsFile().value(offered).toBool())
        return;
    m_device.settingsFile().setValue(offered, true); // once for all starts
    std::vector<AlertAction> actions{
        {tr("Show Demo"), AlertAction::Style::Default,
         [] {
             if (QProcess::startDetached(QCoreApplication::applicationFilePath(), {QStringLiteral("--demo")}))
                 QCoreApplication::quit();
         }},
        {tr("Not Now"), AlertAction::Style::Cancel, {}}};
    m_app.scenes().back()->presentation().presentAlert(
        std::make_unique<Alert>(tr("No Music Found"),
                                tr("There are no songs in your music folder. Would you like to look around "
                                   "with a dozen demo songs?"),
                                std::move(actions), 0));
}

} // namespace trackwise
