// SPDX-License-Identifier: GPL-3.0-or-later
#include "device/audio/LinuxInputMonitor.h"
#include "device/players/PrivateSound.h"
#include "support/Test.h"

#include <QDeadlineTimer>
#include <QLocalServer>
#include <QSignalSpy>

#include <cmath>
#include <mutex>
#include <span>

namespace {

/// A microphone, and what it told.
struct Ear
{
    explicit Ear(std::chrono::milliseconds patience = std::chrono::seconds(20))
        : microphone(patience)
    {}
    struct Piece
    {
        std::size_t samples;
        int rateHz;
        std::chrono::microseconds time;
        float first;
    };

    void listen(const InputChoice &choice)
    {
        microphone.start(
            choice,
            [this](const HeardSound &heard) {
                const std::lock_guard lock(mutex);
                pieces.push_back({heard.samples.size(), heard.rateHz, heard.time, heard.samples.front()});
            },
            [this](const Failure &reason) {
                const std::lock_guard lock(mutex);
                failures.push_back(reason.kind);
            });
    }
    std::vector<Piece> all()
    {
        const std::lock_guard lock(mutex);
        return pieces;
    }
    int rateHz() { return all().empty() ? 0 : all().back().rateHz; }
    /// Whether it heard more than it has until now.
    bool hears(int rate = 0)
    {
        const auto before = all().size();
        return QTest::qWaitFor([&] { return all().size() > before && (rate == 0 || rateHz() == rate); },
                               10'000);
    }
    bool fails(FailureKind kind)
    {
        return QTest::qWaitFor([this] { return !microphone.isRunning(); }, 10'000) &&
               QTest::qWaitFor([this] { return std::lock_guard(mutex), failures.size() == 1; }) &&
               failures.front() == kind;
    }

    std::mutex mutex;
    std::vector<Piece> pieces;
    std::vector<FailureKind> failures;
    Microphone microphone;
};

const SoundInput microphoneA{"a", {}, 48000, 2, {}};
const SoundInput microphoneB{"b", {}, 48000, 2, {}};
const SoundInput loudspeaker{"speaker.monitor", {}, 48000, 2, "speaker"};

} // namespace

class tst_Microphone : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void takesTheInputThatIsMeant()
    {
        const SoundInputs both{{loudspeaker, microphoneA, microphoneB}, "b", "speaker"};
        const SoundInputs listeningToItself{{loudspeaker, microphoneA}, "speaker.monitor", "speaker"};
        const SoundInputs none{{loudspeaker}, "speaker.monitor", {}};
        const std::tuple<SoundInputs, InputChoice, QByteArray> rows[]{
            {both, defaultInputChoice, "b"},
            {both, "a", "a"},
            {both, "unplugged", "b"},
            {both, thisComputersSound, "speaker.monitor"},
            {listeningToItself, defaultInputChoice, "speaker.monitor"}, // the user said so
            {none, defaultInputChoice, {}},
            {none, "speaker.monitor", "speaker.monitor"},
            {none, thisComputersSound, {}},
        };
        for (const auto &[inputs, choice, name] : rows)
            QCOMPARE(chosenInput(inputs, choice).value_or(SoundInput{}).name, name);
    }

    void hearsTheMeanOfAllChannels_data()
    {
        QTest::addColumn<int>("rateHz");
        QTest::addColumn<int>("channels");
        QTest::addRow("telephone") << 8000 << 1;
        QTest::addRow("disc") << 44100 << 2;
        QTest::addRow("studio") << 192000 << 8;
    }
    void hearsTheMeanOfAllChannels()
    {
        QFETCH(int, rateHz);
        QFETCH(int, channels);
        PrivateSound sound;
        QVERIFY(sound.start());
        const QString format = u"rate=%1 channels=%2"_s.arg(rateHz).arg(channels);
        sound.control((u"load-module module-null-sink sink_name=room norewinds=1 "_s + format).toLatin1());
        QProcess music;
        music.start(u"pacat"_s,
                    {u"--playback"_s, u"--device=room"_s, u"--format=float32le"_s, u"--no-remap"_s,
                     u"--rate=%1"_s.arg(rateHz), u"--channels=%1"_s.arg(channels)});
        std::vector<float> frames(20 * std::size_t(rateHz) * std::size_t(channels));
        for (std::size_t i = 0; i < frames.size(); i += std::size_t(channels))
            frames[i] = 0.8F; // in the first channel only
        const auto bytes = std::as_bytes(std::span(frames));
        music.write(reinterpret_cast<const char *>(bytes.data()), qint64(bytes.size()));

        Ear ear;
        Ear another;
        ear.listen("room.monitor");
        another.listen("room.monitor");
        const float expected = 0.8F / float(channels);
        QTRY_VERIFY_WITH_TIMEOUT(std::abs(ear.microphone.level() - expected) < 0.01F, 10000);
        QTRY_VERIFY_WITH_TIMEOUT(ear.all().back().first > expected - 0.01F, 10000);
        ear.microphone.stop();
        QCOMPARE(ear.microphone.level(), 0.0F);
        QVERIFY(another.hears());
        const auto pieces = ear.all();
        for (std::size_t i = 0; i < pieces.size(); ++i) {
            QCOMPARE(pieces[i].samples, 2048U);
            QCOMPARE(pieces[i].rateHz, rateHz);
            QCOMPARE(pieces[i].time.count(), std::int64_t(i) * 2048 * 1000000 / rateHz);
        }
        QCOMPARE(ear.microphone.overruns(), 0);
        music.kill();
        music.waitForFinished();
    }

    void goesAlongWithWhatHappens()
    {
        PrivateSound sound;
        QVERIFY(sound.start());
        const auto plugIn = [&sound](const char *name, int rateHz) {
            const QString input =
                u"load-module module-remap-source master=room.monitor source_name=%1 rate=%2"_s;
            return sound.control(input.arg(QLatin1String(name)).arg(rateHz).toLatin1()).trimmed();
        };
        const char *room = "load-module module-null-sink sink_name=room norewinds=1"; // gives sound at once
        sound.control(room);
        Ear deaf;
        deaf.listen(defaultInputChoice);
        QVERIFY(deaf.fails(FailureKind::NotFound));

        const QString desk = plugIn("desk", 16000);
        Ear ear;
        ear.listen(defaultInputChoice);
        QVERIFY(ear.hears(16000));
        const QString headset = plugIn("headset", 32000);
        sound.control("set-default-source headset");
        QVERIFY(ear.hears(32000));
        sound.control((u"unload-module "_s + headset).toLatin1());
        QVERIFY(ear.hears(16000));
        sound.stop();
        QVERIFY(sound.start());
        sound.control(room);
        plugIn("desk", 24000);
        QVERIFY(ear.hears(24000));
        const auto pieces = ear.all();
        const bool isInOrder =
            std::is_sorted(pieces.begin(), pieces.end(), [](auto &a, auto &b) { return a.time < b.time; });
        QVERIFY(isInOrder);

        sound.control("suspend-source desk 1");
        sound.control("suspend-sink room 1");
        Ear shutOut(300ms);
        shutOut.listen(defaultInputChoice);
        QVERIFY(shutOut.fails(FailureKind::Busy));

        sound.control("suspend-sink room 0");
        sound.control("suspend-source desk 0");
        sound.control("set-default-sink room");
        Ear surprised(1500ms);
        surprised.listen(defaultInputChoice);
        Ear impatient(1500ms);
        impatient.listen(thisComputersSound);
        QVERIFY(surprised.hears() && impatient.hears());
        sound.control("unload-module module-remap-source");
        QVERIFY(surprised.fails(FailureKind::NotFound));
        sound.stop();
        QVERIFY(impatient.fails(FailureKind::Unavailable));
    }

    void tellsWhatThereIsToListenTo()
    {
        PrivateSound sound;
        QVERIFY(sound.start());
        SoundInputs told;
        SoundInputWatch watch;
        connect(&watch, &SoundInputWatch::didChange, this,
                [&told](const SoundInputs &inputs) { told = inputs; });
        QTRY_COMPARE(told.all.size(), 2U);
        QCOMPARE(told.defaultOutput, "first"_ba);
        LinuxInputMonitor monitor;
        SoundLevel lastHeard{.peak = -1};
        connect(&monitor, &InputMonitor::didHear, this,
                [&lastHeard](const SoundLevel &level) { lastHeard = level; });
        monitor.measure(u"desk"_s); // it is not there yet, and no other
        QTRY_COMPARE(lastHeard.duration, SoundMeter::longEnough);
        sound.control(
            "load-module module-remap-source master=second.monitor source_name=desk rate=11025 channels=1 "
            "source_properties=device.description=Desk");
        QTRY_COMPARE(told.defaultInput, "desk"_ba);
        QVERIFY(told.all.back() == (SoundInput{"desk", u"Desk"_s, 11025, 1, {}}));
        QVERIFY(told.all.front() ==
                (SoundInput{"first.monitor", u"Monitor of Null Output"_s, 44100, 2, "first"}));
        QTRY_VERIFY(lastHeard.peak == 0 && lastHeard.duration < 1s); // nothing plays
        const AvailableInputs expected{{{u"desk"_s, u"Desk"_s}}, u"Desk"_s, true};
        QCOMPARE(monitor.inputs(), std::optional(expected));
        sound.stop();
        QTRY_VERIFY(told == SoundInputs());
        QCOMPARE(monitor.inputs(), std::optional(AvailableInputs()));
        monitor.stopMeasuring();
        QVERIFY(sound.start());
        QTRY_COMPARE(told.all.size(), 2U);
        const QDeadlineTimer freeze(10s); // of windows in which it is closed
        for (int times = 0; times < 20; ++times) {
            const SoundInputWatch closed;
            QVERIFY(QSignalSpy(&closed, &SoundInputWatch::didChange).wait());
        }
        QVERIFY(!freeze.hasExpired());
    }

    void doesNotWaitForServersThatSayNothing()
    {
        QTemporaryDir folder;
        const QString socket = folder.filePath(u"native"_s);
        qputenv("PULSE_SERVER", "unix:" + socket.toUtf8());
        Ear ear;
        ear.listen(defaultInputChoice);
        QVERIFY(ear.fails(FailureKind::Unavailable)); // nobody is there
        QLocalServer silent;
        QVERIFY(silent.listen(socket));
        Ear another(300ms);
        another.listen(defaultInputChoice);
        QVERIFY(another.fails(FailureKind::Unavailable));
        another.listen(defaultInputChoice); // and is stopped while it waits
        another.microphone.stop();
        QCOMPARE(another.failures.size(), 1U);
    }
};

QTEST_GUILESS_MAIN(tst_Microphone)
#include "tst_Microphone.moc"
