// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/WholeProgram.h"
#include "device/audio/SoundDecoder.h"
#include "device/recognizer/FingerprintWorker.h"
#include "device/recognizer/HeardMusic.h"
#include "support/Test.h"

#include <QDBusReply>
#include <QDir>
#include <QElapsedTimer>
#include <QRandomGenerator>

#include <cmath>

using fingerprint::Sound;

namespace {

/// A song of the demo library, from its fourth second on, 10 dB below full scale.
Sound demoSong(const QString &file)
{
    Sound sound;
    auto decoder = SoundDecoder::open(QFile::encodeName(file));
    for (auto piece = decoder->next(); !piece.empty(); piece = decoder->next())
        sound.insert(sound.end(), piece.begin(), piece.end());
    sound.erase(sound.begin(), sound.begin() + 3L * fingerprint::sampleRateHz);
    const float loudest = *std::ranges::max_element(sound, {}, [](float s) { return std::abs(s); });
    for (float &sample : sound)
        sample *= 0.316F / std::abs(loudest);
    return sound;
}

/// A café: twenty people speak at the same time, in syllables, each at a pitch of their own.
Sound cafe(std::size_t samples, double power)
{
    QRandomGenerator random(12);
    Sound sound(samples);
    for (int voice = 0; voice < 20; ++voice) {
        const double pitch = 90 + random.bounded(160.0);
        double rise = 0;
        double loudness = 0;
        double phase = 0;
        std::size_t next = 0;
        for (std::size_t i = 0; i < samples; ++i) {
            if (i == next) {
                next += 1600 + random.bounded(4000U);
                loudness = random.bounded(4) == 0 ? 0 : random.bounded(1.0);
                rise = 0.8 + random.bounded(0.5);
            }
            phase = std::fmod(phase + pitch * rise / fingerprint::sampleRateHz, 1);
            sound[i] += float(loudness * (std::exp(-6 * phase) * std::sin(40 * phase) + random.bounded(0.1)));
        }
    }
    const auto gain = float(std::sqrt(power / fingerprint::powerOf(sound)));
    for (float &sample : sound)
        sample *= gain;
    return sound;
}

/// Hears of the names that change, as screen readers do, on the bus for them.
class Reader : public QObject
{
    Q_OBJECT

public:
    QStringList heard;

    [[nodiscard]] bool start()
    {
        const QString bus = u"org.a11y.Bus"_s;
        const QDBusReply<QString> address = QDBusConnection::sessionBus().call(
            QDBusMessage::createMethodCall(bus, u"/org/a11y/bus"_s, bus, u"GetAddress"_s));
        auto readers = QDBusConnection::connectToBus(address.value(), u"reader"_s);
        const QString registry = u"org.a11y.atspi.Registry"_s;
        readers.call(QDBusMessage::createMethodCall(registry, u"/org/a11y/atspi/registry"_s, registry,
                                                    u"RegisterEvent"_s)
                     << u"object:property-change"_s);
        return readers.connect({}, {}, u"org.a11y.atspi.Event.Object"_s, u"PropertyChange"_s, this,
                               SLOT(take(QDBusMessage)));
    }

private Q_SLOTS:
    void take(const QDBusMessage &event)
    {
        if (event.arguments().value(0) != u"accessible-name"_s)
            return;
        const auto question = QDBusMessage::createMethodCall(event.service(), event.path(),
                                                             u"org.freedesktop.DBus.Properties"_s, u"Get"_s)
                              << u"org.a11y.atspi.Accessible"_s << u"Name"_s;
        QDBusConnection(u"reader"_s).callWithCallback(question, this, SLOT(hear(QDBusMessage)));
    }
    void hear(const QDBusMessage &answer)
    {
        heard << answer.arguments().value(0).value<QDBusVariant>().variant().toString();
    }
};

/// A window, and what its HUD has shown; "-" where that has gone.
struct Seen
{
    explicit Seen(WindowScene &window)
        : scene(window)
        , hud(*window.detail().recognitionHUD())
    {
        QObject::connect(&hud, &RecognitionHUD::changed, &here, [this] { look(); });
    }
    void listen() const { scene.detail().selectSongMusicRecognitionKeyCommanded(); }
    bool hears() const
    {
        listen();
        return QTest::qWaitFor([this] { return hud.level() > 0; });
    }
    /// Waits for the end of the attempt.
    QString texts()
    {
        (void)QTest::qWaitFor([this] { return !shown.empty() && !hud.config(); }, 60'000);
        return std::exchange(shown, {}).join(u", "_s);
    }
    void look()
    {
        const auto text = [this](const char *which) { return hud.config()->property(which).toString(); };
        const QString now = hud.config() ? text("topText") + u'|' + text("bottomText") : u"-"_s;
        if (shown.empty() || shown.back() != now)
            shown << now;
    }
    [[nodiscard]] QString title() const
    {
        return scene.detail().visibleMediaItem().value_or(MediaItem()).title.value_or(QString());
    }

    WindowScene &scene;
    RecognitionHUD &hud;
    QObject here;
    QStringList shown;
};

qsizetype countOf(const char *folder)
{
    return QDir(QLatin1StringView(folder)).entryList(QDir::AllEntries | QDir::NoDotAndDotDot).size();
}

/// Of this process, in KiB.
qlonglong memory()
{
    QFile file(u"/proc/self/statm"_s);
    return file.open(QIODevice::ReadOnly) ? file.readAll().split(' ').value(1).toLongLong() * 4 : 0;
}

const QString listening = u"Music Recognition|Listening…"_s;

} // namespace

/// The whole program, and music in the room that it stands in.
class tst_HearingMusic : public QObject
{
    Q_OBJECT

    const QString m_demo = QStringLiteral(DEMO_LIBRARY_FOLDER "/");
    const QString m_kites = m_demo + u"Ines Marlow/Low Water/01 Paper Kites.flac"_s;
    const QString m_tram = m_demo + u"Нева Три/Последний Круг/04 Медленный трамвай.mp3"_s;
    QTemporaryDir m_folder;
    PrivateSound m_sound;
    std::unique_ptr<WholeProgram> m_program;

    /// How many listen to the microphone.
    [[nodiscard]] qsizetype listeners() const
    {
        return m_sound.control("list short source-outputs").count(u"protocol-native"_s);
    }

private Q_SLOTS:
    void initTestCase()
    {
        QVERIFY(m_sound.start());
        putUpMicrophone(m_sound);
        m_sound.control("set-default-sink room");
        const QDir music(m_folder.filePath(u"music"_s));
        QVERIFY(music.mkpath(u"."_s));
        for (const QString &song : {m_kites, m_tram})
            QVERIFY(QFile::copy(song, music.filePath(QFileInfo(song).fileName())));
        m_program = std::make_unique<WholeProgram>(QFile::encodeName(music.path()), m_folder);
        m_program->device->settings().setMicrophoneAccess(AccessChoice::Allowed);
        m_program->library.scan().start();
        QTRY_COMPARE_WITH_TIMEOUT(m_program->device->fingerprinting().state().songsDone, 2, 60'000);
    }
    void cleanup()
    {
        for (const auto &scene : m_program->app.scenes())
            scene->window().close();
        QTRY_VERIFY(m_program->app.scenes().empty());
        QTRY_COMPARE(listeners(), 0);
    }

    void namesTheSongInTheRoom()
    {
        Reader reader;
        QVERIFY(reader.start());
        Seen seen(m_program->openWindow());
        QVERIFY(QTest::qWaitForWindowExposed(&seen.scene.window()));
        const std::tuple<QString, QString, QString> rows[]{
            {m_kites, u"Paper Kites"_s, u"Ines Marlow"_s},
            {m_tram, u"Медленный трамвай"_s, u"Нева Три"_s},
        };
        for (const auto &[file, title, artist] : rows) {
            Sound sound = demoSong(file);
            const Sound noise = cafe(sound.size(), fingerprint::powerOf(sound) / 4);
            std::ranges::transform(sound, noise, sound.begin(), std::plus());
            const HeardMusic music(sound);
            seen.listen();
            QTRY_COMPARE_WITH_TIMEOUT(seen.title(), title, 15'000);
            QElapsedTimer shown;
            shown.start();
            QTRY_COMPARE(listeners(), 0);
            QCOMPARE(seen.texts(), listening + u", "_s + title + u'|' + artist + u", -"_s);
            QVERIFY(shown.elapsed() >= 2900);
            QCOMPARE(reader.heard.count(u"Song identified, %1 by %2"_s.arg(title, artist)), 1);
        }
    }

    void ourOwnMusicIsHeardToo()
    {
        Seen seen(m_program->openWindow());
        MusicPlayer &player = m_program->device->player();
        player.setQueue({m_program->library.song(m_program->library.search(u"Kites"_s, 1)->at(0))->item});
        player.play();
        seen.listen();
        QCOMPARE(seen.texts(), listening + u", Paper Kites|Ines Marlow, -"_s);
        QCOMPARE(player.playbackState(), PlaybackState::Playing);
        player.stop();
    }

    void eachWindowListensForItself()
    {
        const HeardMusic music(fingerprint::noise(3, 25 * std::size_t(fingerprint::sampleRateHz), 0.01));
        Seen first(m_program->openWindow());
        Seen second(m_program->openWindow());
        Seen third(m_program->openWindow());
        for (const Seen *seen : {&first, &second, &third})
            QVERIFY(seen->hears());
        QCOMPARE(listeners(), 3);
        first.hud.cancel();
        third.scene.window().close();
        QTRY_COMPARE(listeners(), 1);
        QCOMPARE(first.texts(), listening + u", -"_s);
        QCOMPARE(second.texts(), listening + u", No Result|Couldn't identify song, -"_s);
    }

    void fiftyAttemptsLeaveNothingBehind()
    {
        Seen seen(m_program->openWindow());
        const HeardMusic music(fingerprint::noise(4, 60 * std::size_t(fingerprint::sampleRateHz), 0.01));
        const auto attempt = [&seen] {
            const bool hasHeard = seen.hears();
            seen.hud.cancel();
            seen.hud.didHide();
            return hasHeard && !seen.hud.config();
        };
        for (int i = 0; i < 10; ++i)
            QVERIFY(attempt());
        const auto left = [] { return std::pair(countOf("/proc/self/fd"), countOf("/proc/self/task")); };
        const auto before = left();
        [[maybe_unused]] const auto memoryBefore = memory();
        for (int i = 0; i < 50; ++i)
            QVERIFY(attempt());
        QTRY_VERIFY(left().first <= before.first && left().second <= before.second);
#if !defined(__SANITIZE_ADDRESS__) && !defined(__SANITIZE_THREAD__) // which keep what is given back
        QVERIFY2(memory() < memoryBefore + 8'000, qPrintable(QString::number(memory() - memoryBefore)));
#endif
    }

    void theMicrophoneGoes()
    {
        Seen seen(m_program->openWindow());
        const HeardMusic music(fingerprint::noise(5, 20 * std::size_t(fingerprint::sampleRateHz), 0.01));
        QVERIFY(seen.hears());
        m_sound.control("unload-module module-remap-source");
        QCOMPARE(seen.texts(), listening + u", -"_s); // as when the engine stops
        seen.listen();
        QCOMPARE(seen.texts(), u"Error|No microphone found, -"_s);
        putUpMicrophone(m_sound);
        QVERIFY(seen.hears());
        m_sound.stop();
        QCOMPARE(seen.texts(), listening + u", -"_s);
        m_program->device->settings().setMicrophoneAccess(AccessChoice::Denied);
        seen.listen();
        QTRY_VERIFY(seen.scene.presentation().alert());
        QCOMPARE(seen.scene.presentation().alert()->title(), u"No Microphone Access"_s);
        QVERIFY(seen.shown.empty());
    }
};

int main(int argc, char **argv)
{
    if (argc == 3 && std::string_view(argv[1]) == workerArgument)
        return runFingerprintWorker(STDIN_FILENO, STDOUT_FILENO, argv[2]);
    QGuiApplication application(argc, argv);
    tst_HearingMusic test;
    return QTest::qExec(&test, argc, argv);
}
#include "tst_HearingMusic.moc"
