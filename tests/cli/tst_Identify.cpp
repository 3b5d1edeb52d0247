// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/Program.h"
#include "device/audio/SoundDecoder.h"
#include "device/recognizer/HeardMusic.h"
#include "fingerprint/Pieces.h"
#include "fingerprint/Row.h"
#include "support/Files.h"
#include "support/Test.h"
#include "support/WavFile.h"

#include <QDirIterator>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <cmath>
#include <map>
#include <numeric>

using namespace fingerprint;

namespace {

constexpr double clipBegins = 7.3; ///< seconds
constexpr double clipLasts = 5;

Sound soundOf(const QByteArray &path)
{
    Sound sound;
    auto decoder = SoundDecoder::open(path);
    if (!decoder)
        qFatal("%s", qPrintable(decoder.failure().detail));
    for (auto piece = decoder->next(); !piece.empty(); piece = decoder->next())
        sound.insert(sound.end(), piece.begin(), piece.end());
    return sound;
}

/// Whether what the clip was taken from is in the song at @p seconds too, sample by sample.
bool isRepeated(const Sound &song, double seconds)
{
    const auto second = [&song](double from, int shift) {
        return std::span(song).subspan(std::size_t(from * sampleRateHz) + std::size_t(shift), sampleRateHz);
    };
    if (seconds < 0.1 || (seconds + 1.1) * sampleRateHz > double(song.size()))
        return false;
    const auto clip = second(clipBegins, 0);
    for (int shift = 0; shift < 0.2 * sampleRateHz; ++shift) {
        const auto there = second(seconds - 0.1, shift);
        const double product = std::inner_product(clip.begin(), clip.end(), there.begin(), 0.0);
        if (product > 0.9 * sampleRateHz * std::sqrt(powerOf(clip) * powerOf(there)))
            return true;
    }
    return false;
}

/// As a microphone hears it across a room: quieter, and not alone.
Sound heard(std::span<const float> sound)
{
    Sound clip = noise(7, sound.size(), 0.01 * powerOf(sound) / 10);
    for (std::size_t i = 0; i < clip.size(); ++i)
        clip[i] += 0.1F * sound[i];
    return clip;
}

} // namespace

/// From music files to the names of what is heard.
class tst_Identify : public QObject, private Program
{
    Q_OBJECT

private:
    std::map<QByteArray, QByteArray> m_songOfClip; ///< paths
    QByteArray m_stranger;                         ///< a clip of other music

    [[nodiscard]] QByteArrayList onDemo(QByteArrayList arguments) const
    {
        return arguments << "--library" << inScratch("demo.db");
    }
    [[nodiscard]] QByteArray write(const QByteArray &name, const QByteArray &bytes) const
    {
        const QByteArray path = inScratch(name.constData());
        writeFile(QFile::decodeName(path), bytes);
        return path;
    }
    [[nodiscard]] QByteArray writeClip(const QByteArray &name, std::span<const float> sound) const
    {
        return write(name, wavFile(sound, sampleRateHz));
    }
    static QJsonObject json(const QByteArray &line) { return QJsonDocument::fromJson(line).object(); }

private Q_SLOTS:
    void initTestCase()
    {
        QDirIterator files(QStringLiteral(DEMO_LIBRARY_FOLDER), QDir::Files, QDirIterator::Subdirectories);
        while (files.hasNext()) {
            const QByteArray path = QFile::encodeName(files.next());
            if (path.endsWith(".jpg") || path.endsWith(".png") || path.endsWith(".lrc"))
                continue;
            const Sound sound = soundOf(path);
            if (double(sound.size()) < (clipBegins + clipLasts) * sampleRateHz)
                continue;
            const auto part = std::span(sound).subspan(std::size_t(clipBegins * sampleRateHz),
                                                       std::size_t(clipLasts * sampleRateHz));
            const QByteArray name = "clip" + QByteArray::number(qsizetype(m_songOfClip.size())) + ".wav";
            m_songOfClip[writeClip(name, heard(part))] = path;
        }
        QCOMPARE(m_songOfClip.size(), 12U);
        m_stranger = writeClip("stranger.wav", piece(5, clipLasts));
    }

    void listensToTheWholeLibrary()
    {
        const QByteArrayList clip = onDemo({"identify", m_songOfClip.begin()->first});
        QCOMPARE(run(clip).code, 1); // there is no library
        QCOMPARE(run(onDemo({"library", "scan", "--folder", DEMO_LIBRARY_FOLDER})).code, 0);
        const Outcome tooEarly = run(clip);
        QCOMPARE(tooEarly.code, 3);
        QVERIFY(tooEarly.errors.startsWith("trackwise: no song is known by its sound yet"));

        const QByteArray status = run(onDemo({"catalog", "status", "--json"})).output;
        QCOMPARE(json(status).value(u"left"_s), QJsonValue(12));
        const Outcome built = run(onDemo({"catalog", "build"}));
        QCOMPARE(built.output, "12 of 12 songs\n"_ba);
        QCOMPARE(std::pair(built.code, built.errors), std::pair(0, QByteArray()));
        const QJsonObject done = json(run(onDemo({"catalog", "status", "--json"})).output);
        QCOMPARE(done.value(u"songs"_s), QJsonValue(12));
        QCOMPARE(done.value(u"left"_s), QJsonValue(0));
        QVERIFY(done.value(u"bytes"_s).toInt() > 10'000);
    }

    void namesEachClip()
    {
        QByteArrayList arguments{"identify", "--json"};
        for (const auto &[clip, song] : m_songOfClip)
            arguments << clip;
        const Outcome outcome = run(onDemo(arguments));
        QCOMPARE(std::pair(outcome.code, outcome.errors), std::pair(0, QByteArray()));
        const QByteArrayList lines = outcome.output.trimmed().split('\n');
        QCOMPARE(std::size_t(lines.size()), m_songOfClip.size());
        qsizetype line = 0;
        for (const auto &[clip, song] : m_songOfClip) {
            const QJsonObject found = json(lines.at(line++));
            QCOMPARE(found.value(u"file"_s).toString().toUtf8(), clip);
            QCOMPARE(found.value(u"match"_s), QJsonValue(true));
            QCOMPARE(found.value(u"path"_s).toString().toUtf8(), song);
            const double offset = found.value(u"offset_s"_s).toDouble();
            QVERIFY2(std::abs(offset - clipBegins) < 0.3 || isRepeated(soundOf(song), offset),
                     lines.at(line - 1));
            QVERIFY(found.value(u"score"_s).toDouble() >= found.value(u"threshold"_s).toDouble());
            QVERIFY(found.value(u"threshold"_s).toDouble() > 0 && found.value(u"ms"_s).toDouble() > 0);
            const QJsonObject known = json(run(onDemo({"info", song, "--json"})).output);
            for (const QString &key : {u"persistentID"_s, u"artist"_s})
                QCOMPARE(found.value(key), known.value(key));
            QCOMPARE(found.value(u"title"_s).toString(), known.value(u"title"_s).toString());
        }
    }

    void saysWhatItDoesNotKnow()
    {
        const QByteArray clip = m_songOfClip.begin()->first;
        const QByteArray text = write("text.wav", "This is no sound. "_ba.repeated(50));
        const Outcome stranger = run(onDemo({"identify", m_stranger, clip}));
        QCOMPARE(stranger.code, 3);
        QVERIFY(stranger.output.startsWith(m_stranger + ": no match\n" + clip + ": "));
        const Outcome all =
            run(onDemo({"identify", "--json", text, m_stranger, inScratch("none.wav"), clip}));
        QCOMPARE(all.code, 1);
        const QByteArrayList lines = all.output.trimmed().split('\n');
        QCOMPARE(lines.size(), 4);
        QCOMPARE(json(lines.at(0)).value(u"error"_s), u"there is no sound in it"_s);
        QCOMPARE(json(lines.at(1)).value(u"match"_s), QJsonValue(false));
        QCOMPARE(json(lines.at(1)).value(u"path"_s), QJsonValue());
        QVERIFY(json(lines.at(2)).contains(u"error"_s));
        QCOMPARE(json(lines.at(3)).value(u"match"_s), QJsonValue(true));
        QCOMPARE(all.errors.count('\n'), 2);
    }

    void listensToStandardInput()
    {
        const auto &[clip, song] = *m_songOfClip.begin();
        const Outcome outcome = run(onDemo({"identify", "--json", "-"}), {}, {}, clip);
        QCOMPARE(outcome.code, 0);
        QCOMPARE(json(outcome.output).value(u"path"_s).toString().toUtf8(), song);
        QCOMPARE(json(outcome.output).value(u"file"_s), u"-"_s);
    }

    void looksOnWhereTheFirstSecondsAreOfNoSong()
    {
        const auto &[clip, path] = *m_songOfClip.begin();
        const Sound song = soundOf(path);
        const auto before = std::size_t(17) * sampleRateHz;
        const auto after = [&](std::size_t samples) {
            Sound sound = noise(3, samples, 1e-6);
            const auto part = std::span(song).subspan(std::size_t(clipBegins * sampleRateHz),
                                                      std::size_t(5) * sampleRateHz);
            sound.insert(sound.end(), part.begin(), part.end());
            return sound;
        };
        const QByteArray late = writeClip("late.wav", after(before));
        const QJsonObject found = json(run(onDemo({"identify", "--json", late})).output);
        QCOMPARE(found.value(u"path"_s).toString().toUtf8(), path);
        const double place = found.value(u"offset_s"_s).toDouble() + 17;
        QVERIFY2(std::abs(place - clipBegins) < 0.3 || isRepeated(song, place),
                 qPrintable(QString::number(place)));
        const QByteArray tooLate = writeClip("tooLate.wav", after(std::size_t(125) * sampleRateHz));
        QCOMPARE(run(onDemo({"identify", tooLate})).code, 3);
    }

    void listensToTheMicrophone()
    {
        PrivateSound sound;
        QVERIFY(sound.start());
        putUpMicrophone(sound);
        const QByteArrayList listen = onDemo({"identify", "--listen"});
        {
            const auto &[clip, path] = *m_songOfClip.begin();
            const HeardMusic music(std::span<const float>(soundOf(path)).subspan(sampleRateHz));
            const Outcome outcome = run(listen + QByteArrayList{"--json"});
            QCOMPARE(std::pair(outcome.code, outcome.errors), std::pair(0, QByteArray()));
            const QJsonObject found = json(outcome.output);
            QCOMPARE(found.value(u"path"_s).toString().toUtf8(), path);
            QVERIFY(found.value(u"file"_s).isNull());
            QVERIFY(found.value(u"score"_s).toDouble() >= found.value(u"threshold"_s).toDouble());
            QVERIFY(found.value(u"offset_s"_s).toDouble() > 0.5 && found.value(u"ms"_s).toDouble() > 1500);
        }
        QCOMPARE(run(listen + QByteArrayList{"clip.wav"}).code, 2);
        const Outcome stopped = run(listen, "timeout --preserve-status -s INT 1");
        QCOMPARE(std::pair(stopped.code, stopped.errors), std::pair(1, "trackwise: stopped\n"_ba));
        const Outcome silent = run(listen + QByteArrayList{"--json"}, "env PULSE_SERVER=unix:/nowhere");
        QCOMPARE(std::pair(silent.code, silent.errors),
                 std::pair(1, "trackwise: No sound on this device\n"_ba));
        QVERIFY(json(silent.output).contains(u"error"_s));
        QVERIFY(QDir().mkpath(QFile::decodeName(inScratch("home/trackwise"))));
        (void)write("home/trackwise/device.ini", "[Access]\nMicrophone=denied\n");
        QVERIFY(run(listen).errors.startsWith("trackwise: the microphone may not be used"));
    }

    void takesOverCatalogsOfOthers()
    {
        const QByteArrayList other{"--library", inScratch("other.db"), "--folder", inScratch("nothing")};
        QVERIFY(QDir().mkpath(QFile::decodeName(inScratch("nothing"))));
        QCOMPARE(run(QByteArrayList{"library", "scan"} + other).code, 0);
        const QByteArray file = inScratch("demo.catalog");
        QCOMPARE(run(onDemo({"catalog", "export", file})).code, 0);
        const QByteArray others = "flock '" + inScratch("other.db.catalog/lock") + "' sleep 1 &";
        QVERIFY(QDir().mkpath(QFile::decodeName(inScratch("other.db.catalog"))));
        const Outcome added = run(QByteArrayList{"catalog", "add", file} + other, others);
        QCOMPARE(std::pair(added.code, added.output), std::pair(0, "demo: 12 songs\n"_ba));
        QVERIFY(run(QByteArrayList{"catalog", "status"} + other).output.contains("demo (12 songs)\n"));

        const auto &[clip, song] = *m_songOfClip.begin();
        const QByteArrayList identify = QByteArrayList{"identify", "--json", clip} + other;
        const QJsonObject found = json(run(identify).output);
        const QJsonObject known = json(run(onDemo({"info", song, "--json"})).output);
        QCOMPARE(found.value(u"match"_s), QJsonValue(true));
        QCOMPARE(found.value(u"title"_s), known.value(u"title"_s));
        QCOMPARE(found.value(u"artist"_s), known.value(u"artist"_s));
        QCOMPARE(found.value(u"path"_s), QJsonValue());
        QCOMPARE(found.value(u"persistentID"_s), QJsonValue());

        QCOMPARE(run(QByteArrayList{"catalog", "remove", "demo"} + other).code, 0);
        QCOMPARE(run(QByteArrayList{"catalog", "remove", "demo"} + other).code, 3);
        QCOMPARE(run(identify).code, 3);
        const Outcome wrong = run(QByteArrayList{"catalog", "add", m_stranger} + other);
        QVERIFY(wrong.code == 1 && wrong.errors.contains("the first bytes are those of something else"));
    }

    void bringsTheLibraryUpToDateFirst()
    {
        QVERIFY(QDir().mkpath(QFile::decodeName(inScratch("new"))));
        const QByteArrayList fresh{"--library", inScratch("new.db"), "--folder", inScratch("new")};
        const auto build = [&] { return run(QByteArrayList{"catalog", "build"} + fresh); };
        (void)writeClip("new/one.wav", piece(1, 8));
        QVERIFY(build().output.endsWith("\n1 of 1 songs\n"));
        (void)writeClip("new/two.wav", piece(2, 8));
        QCOMPARE(run(QByteArrayList{"library", "scan"} + fresh).code, 0);
        const Outcome half = run(QByteArrayList{"identify", m_stranger} + fresh);
        QVERIFY(half.errors.startsWith("trackwise: 1 of 2 songs are not known by their sound yet"));
        QVERIFY(build().output.endsWith("\n2 of 2 songs\n"));
        (void)writeClip("new/three.wav", piece(3, 8));
        QCOMPARE(run(QByteArrayList{"library", "scan"} + fresh).code, 0);
        QFile::remove(QFile::decodeName(inScratch("new/three.wav")));
        const Outcome left = run({"catalog", "build", "--library", inScratch("new.db")});
        QCOMPARE(std::pair(left.code, left.errors),
                 std::pair(1, "trackwise: 1 songs could not be read now\n"_ba));
        QFile::remove(QFile::decodeName(inScratch("new/one.wav")));
        QVERIFY(build().output.endsWith("\n1 of 1 songs\n"));
    }
};

QTEST_GUILESS_MAIN(tst_Identify)
#include "tst_Identify.moc"
