// SPDX-License-Identifier: GPL-3.0-or-later
#include "device/players/playing/FilePlayback.h"

#include "device/players/playing/DefaultOutput.h"
#include "device/players/playing/SoundConnection.h"

#include <QAudioDevice>
#include <QAudioOutput>
#include <QFile>
#include <QMediaDevices>
#include <QMediaPlayer>
#include <QUrl>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

extern "C" {
#include <libavutil/log.h>
}

#include <algorithm>
#include <cmath>

namespace trackwise {

using namespace std::chrono_literals;

namespace {

constexpr auto outputRetry = 200ms;
constexpr int mostOutputAttempts = 10;
constexpr auto serverRetry = 1s;
constexpr std::chrono::milliseconds libraryRetry = 4s; // the library tries once, after three seconds
constexpr auto longestReturn = 10s;

/// The file, open for reading; null when it is absent, unreadable or not a regular file. Opened by its
/// bytes: names in old collections are not always UTF-8.
std::unique_ptr<QFile> openRegularFile(const QByteArray &path)
{
    const int descriptor =
        ::open(path.constData(), O_RDONLY | O_CLOEXEC | O_NONBLOCK); // a FIFO must not block
    if (descriptor < 0)
        return nullptr;
    struct stat status
    {};
    auto file = std::make_unique<QFile>();
    if (::fstat(descriptor, &status) != 0 || !S_ISREG(status.st_mode) ||
        !file->open(descriptor, QIODevice::ReadOnly, QFileDevice::AutoCloseHandle)) {
        ::close(descriptor);
        return nullptr;
    }
    return file;
}

/// Null where the library does not know it, or not yet.
QAudioDevice outputNamed(const QByteArray &name)
{
    const QList<QAudioDevice> outputs = QMediaDevices::audioOutputs();
    const auto found = std::ranges::find(outputs, name, &QAudioDevice::id);
    return found == outputs.end() ? QAudioDevice() : *found;
}

} // namespace

FilePlayback::FilePlayback(QObject *parent)
    : QObject(parent)
{
    for (QTimer *timer : {&m_nextAttempt, &m_nextReturn})
        timer->setSingleShot(true);
    m_nextAttempt.setInterval(outputRetry);
    connect(&m_nextAttempt, &QTimer::timeout, this, &FilePlayback::followDefaultOutput);
    m_nextReturn.setInterval(serverRetry);
    connect(&m_nextReturn, &QTimer::timeout, this, &FilePlayback::returnToServer);
}

FilePlayback::~FilePlayback()
{
    if (m_player)
        m_player->disconnect(this);
}

bool FilePlayback::load(const QByteArray &path)
{
    unload();
    std::unique_ptr<QFile> file = openRegularFile(path);
    if (!file)
        return false;
    ensurePlayer();
    m_file = std::move(file);
    // By its descriptor: Qt 6.4 garbles names that need encoding in an address, and a QIODevice as source
    // loses 32 KiB each time. What the file is, FFmpeg sees from its content.
    m_player->setSource(QUrl::fromLocalFile(QStringLiteral("/proc/self/fd/%1").arg(m_file->handle())));
    if (m_player->hasAudio()) // known at once: this backend reads the file's head within the call
        return true;
    unload();
    return false;
}

void FilePlayback::unload()
{
    m_playUntil = {};
    if (!m_file)
        return;
    m_player->stop();
    m_player->setSource({});
    m_file.reset();
}

void FilePlayback::play()
{
    if (!m_file)
        return;
    if (m_nextReturn.isActive())
        m_playUntil.setRemainingTime(longestReturn);
    if (m_player->mediaStatus() == QMediaPlayer::EndOfMedia)
        openAgain();
    if (hasOutput()) // without one, the library would crash
        m_player->play();
}

/// Qt 6.4 may tell of an end twice, and the second time ends what plays again by then. With its decoder goes
/// what that one still has to tell.
void FilePlayback::openAgain()
{
    const QUrl source = m_player->source();
    m_player->setSource({});
    m_player->setSource(source);
}

void FilePlayback::pause()
{
    m_playUntil = {};
    if (m_file && state() == PlaybackState::Playing)
        m_player->pause();
}

void FilePlayback::stop()
{
    m_playUntil = {};
    if (m_file)
        m_player->stop();
}

void FilePlayback::seek(Milliseconds position)
{
    if (m_file)
        m_player->setPosition(std::clamp(position, Milliseconds(0), duration()).count());
}

PlaybackState FilePlayback::state() const
{
    if (!m_file)
        return PlaybackState::Stopped;
    switch (m_player->playbackState()) {
    case QMediaPlayer::PlayingState:
        return PlaybackState::Playing;
    case QMediaPlayer::PausedState:
        return PlaybackState::Paused;
    case QMediaPlayer::StoppedState:
        break;
    }
    return PlaybackState::Stopped;
}

FilePlayback::Milliseconds FilePlayback::position() const
{
    if (state() == PlaybackState::Stopped)
        return Milliseconds(0);
    return std::clamp(Milliseconds(m_player->position()), Milliseconds(0), duration());
}

FilePlayback::Milliseconds FilePlayback::duration() const
{
    return m_file ? std::max(Milliseconds(m_player->duration()), Milliseconds(0)) : Milliseconds(0);
}

void FilePlayback::setVolume(double volume)
{
    m_volume = std::fmin(std::fmax(volume, 0), 1); // NaN counts as 0
    applyVolume();
}

void FilePlayback::ensurePlayer()
{
    if (m_player)
        return;
    // The other backend lacks AAC without further packages and crashes without its plug-ins.
    if (qEnvironmentVariableIsEmpty("QT_MEDIA_BACKEND"))
        qputenv("QT_MEDIA_BACKEND", "ffmpeg");
    av_log_set_level(AV_LOG_QUIET); // it writes to the standard error, of every file that it opens
    m_player = std::make_unique<QMediaPlayer>();
    returnToServer();
    connect(m_player.get(), &QMediaPlayer::playbackStateChanged, this, &FilePlayback::stateDidChange);
    connect(m_player.get(), &QMediaPlayer::durationChanged, this, &FilePlayback::durationDidChange);
    connect(m_player.get(), &QMediaPlayer::mediaStatusChanged, this,
            [this](QMediaPlayer::MediaStatus status) {
                if (status == QMediaPlayer::EndOfMedia)
                    Q_EMIT didReachEnd();
            });
    // Queued: the player must not lose its file from within its own signal.
    const auto fail = [this] {
        if (m_file && m_player->error() != QMediaPlayer::NoError) {
            unload();
            Q_EMIT didFail();
        }
    };
    connect(m_player.get(), &QMediaPlayer::errorOccurred, this, fail, Qt::QueuedConnection);
}

void FilePlayback::makeOutput()
{
    m_output = std::make_unique<QAudioOutput>(QMediaDevices::defaultAudioOutput());
    applyVolume();
    m_player->setAudioOutput(m_output.get());
    m_defaultOutput = std::make_unique<DefaultOutput>();
    connect(m_defaultOutput.get(), &DefaultOutput::didChange, this, [this](const QByteArray &name) {
        m_wantedOutput = name;
        m_attempts = 0;
        followDefaultOutput();
    });
    connect(m_defaultOutput.get(), &DefaultOutput::serverDidVanish, this, &FilePlayback::leaveServer);
}

/// Whether there is somewhere to play to; an output that has gone since is replaced by the default one.
bool FilePlayback::hasOutput()
{
    if (m_isServerLost && !m_nextReturn.isActive())
        returnToServer();
    if (m_isServerLost)
        return false;
    if (outputNamed(m_output->device().id()).isNull())
        m_output->setDevice(QMediaDevices::defaultAudioOutput());
    return !m_output->device().isNull();
}

/// The library hears of a new output through a connection of its own, perhaps a little later than we do.
void FilePlayback::followDefaultOutput()
{
    if (m_output->device().id() == m_wantedOutput)
        return;
    if (const QAudioDevice wanted = outputNamed(m_wantedOutput); !wanted.isNull())
        m_output->setDevice(wanted);
    else if (++m_attempts < mostOutputAttempts)
        m_nextAttempt.start();
}

/// The sound server has gone. The song stands where it was, without an output, until the library has
/// connected again.
void FilePlayback::leaveServer()
{
    if (m_isServerLost)
        return;
    m_isServerLost = true;
    m_nextAttempt.stop();
    pause();
    m_player->setAudioOutput(nullptr);
    m_sinceLoss.start();
    m_nextReturn.start();
}

void FilePlayback::returnToServer()
{
    m_isServerLost = !isSoundServerThere() || !canPlayTo(QMediaDevices::defaultAudioOutput());
    if (!m_isServerLost) {
        makeOutput();
        if (m_file && !m_playUntil.hasExpired())
            m_player->play();
        return;
    }
    if (!m_sinceLoss.isValid())
        return; // there has been none yet
    if (m_sinceLoss.elapsed() > libraryRetry.count())
        lookForServer();
    m_nextReturn.start();
}

void FilePlayback::lookForServer()
{
    m_defaultOutput = std::make_unique<DefaultOutput>();
    connect(m_defaultOutput.get(), &DefaultOutput::didChange, this, [this] {
        m_sinceLoss.start();
        connectSoundAgain();
    });
}

void FilePlayback::applyVolume()
{
    if (m_output)
        m_output->setVolume(float(
            QAudio::convertVolume(m_volume, QAudio::LogarithmicVolumeScale, QAudio::LinearVolumeScale)));
}

} // namespace trackwise
