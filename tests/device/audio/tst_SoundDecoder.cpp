// SPDX-License-Identifier: GPL-3.0-or-later
#include "device/audio/SoundDecoder.h"
#include "fingerprint/Row.h"
#include "support/Files.h"
#include "support/Test.h"
#include "support/WavFile.h"

#include <QDir>
#include <QTemporaryDir>

#include <cmath>
#include <complex>
#include <fcntl.h>
#include <numbers>
#include <random>
#include <sys/stat.h>
#include <thread>
#include <unistd.h>

using fingerprint::sampleRateHz;

namespace {

constexpr double toneHz = 1250;

/// A tone in the first channel, and nothing in the others.
std::vector<float> tone(int rateHz, int channels, double seconds)
{
    std::vector<float> samples(std::size_t(rateHz * seconds) * std::size_t(channels));
    for (std::size_t i = 0; i < samples.size(); i += std::size_t(channels))
        samples[i] = float(0.8 * std::sin(2 * std::numbers::pi * toneHz * double(i) / channels / rateHz));
    return samples;
}

/// How loud @p hertz is in the middle of @p sound.
double loudness(std::span<const float> sound, double hertz)
{
    const auto middle = sound.subspan(sound.size() / 4, sound.size() / 2);
    std::complex<double> sum;
    for (std::size_t i = 0; i < middle.size(); ++i)
        sum += double(middle[i]) * std::polar(2.0, 2 * std::numbers::pi * hertz * double(i) / sampleRateHz);
    return std::abs(sum) / double(middle.size());
}

std::vector<float> all(SoundDecoder &&decoder)
{
    std::vector<float> sound;
    for (auto piece = decoder.next(); !piece.empty(); piece = decoder.next())
        sound.insert(sound.end(), piece.begin(), piece.end());
    return sound;
}

double secondsOf(std::span<const float> sound)
{
    return double(sound.size()) / sampleRateHz;
}

} // namespace

class tst_SoundDecoder : public QObject
{
    Q_OBJECT

private:
    QTemporaryDir m_folder;

    QByteArray written(const char *name, const QByteArray &bytes)
    {
        writeFile(m_folder.filePath(QString::fromLatin1(name)), bytes);
        return QFile::encodeName(m_folder.filePath(QString::fromLatin1(name)));
    }

private Q_SLOTS:
    void makesMonoOfAnyChannelsAndRate()
    {
        for (const auto &[rate, channels] : {std::pair{8000, 1},
                                             {11025, 1},
                                             {16000, 1},
                                             {22050, 2},
                                             {44100, 2},
                                             {48000, 6},
                                             {44100, 8},
                                             {48000, 9},
                                             {96000, 2},
                                             {192000, 1},
                                             {44100, 31}}) {
            auto decoder =
                SoundDecoder::open(written("tone.wav", wavFile(tone(rate, channels, 1.5), rate, channels)));
            QVERIFY(decoder);
            const auto sound = all(*std::move(decoder));
            QVERIFY2(std::abs(secondsOf(sound) - 1.5) < 0.004, qPrintable(QString::number(rate)));
            const double expected = 0.8 / channels;
            QVERIFY2(std::abs(loudness(sound, toneHz) - expected) < 0.01 * expected,
                     qPrintable(QString::number(loudness(sound, toneHz) / expected)));
        }
    }

    void leavesNothingOfWhatIsTooHigh()
    {
        // 11 to 20 kHz would be heard as 1 to 5 kHz.
        for (const double hertz : {11000.0, 12000.0, 14500.0, 17000.0, 20000.0}) {
            std::vector<float> samples(48000);
            for (std::size_t i = 0; i < samples.size(); ++i)
                samples[i] = float(0.9 * std::sin(2 * std::numbers::pi * hertz * double(i) / 48000));
            auto decoder = SoundDecoder::open(written("high.wav", wavFile(samples, 48000)));
            const auto sound = all(*std::move(decoder));
            const double folded = std::abs(hertz - sampleRateHz);
            QVERIFY2(loudness(sound, folded) < 0.9e-3, qPrintable(QString::number(loudness(sound, folded))));
        }
    }

    void readsEveryFormat()
    {
        const QDir folder(QStringLiteral(TRACKWISE_TEST_DATA));
        QStringList names = folder.entryList(QDir::Files);
        for (const QString &hasTagsOnly : {u"apev2.ape"_s, u"apev2.mpc"_s, u"id3.dff"_s, u"id3.dsf"_s})
            QVERIFY(names.removeOne(hasTagsOnly));
        QVERIFY(names.size() > 25);
        for (const QString &name : names) {
            auto decoder = SoundDecoder::open(QFile::encodeName(folder.filePath(name)));
            QVERIFY2(decoder, qPrintable(name + (decoder ? QString() : decoder.failure().detail)));
            const auto sound = all(*std::move(decoder));
            QVERIFY2(secondsOf(sound) > 0.35 && secondsOf(sound) < 0.5,
                     qPrintable(name + QString::number(secondsOf(sound))));
            QVERIFY2(std::ranges::all_of(sound, [](float value) { return std::abs(value) < 2; }),
                     qPrintable(name));
        }
    }

    void passesOverWhatIsBroken()
    {
        std::mt19937 random(1);
        const QDir folder(QStringLiteral(TRACKWISE_TEST_DATA));
        for (const QString &name : folder.entryList(QDir::Files)) {
            const QByteArray whole = contentsOf(folder.filePath(name));
            for (int damage = 0; damage < 6; ++damage) {
                QByteArray bytes = whole;
                for (int i = 0; i < 1 << damage; ++i)
                    bytes[qsizetype(random() % unsigned(bytes.size()))] = char(random());
                if (damage % 2 == 0)
                    bytes.truncate(qsizetype(random() % unsigned(bytes.size())));
                auto decoder =
                    SoundDecoder::open(written("damaged", bytes), {.patience = 5s, .longest = 60s});
                if (decoder)
                    QVERIFY2(secondsOf(all(*std::move(decoder))) <= 60, qPrintable(name));
            }
        }
        QByteArray mp3 = contentsOf(folder.filePath(u"id3v24.mp3"_s));
        const double seconds = secondsOf(all(*SoundDecoder::open(written("whole.mp3", mp3))));
        mp3.replace(mp3.size() / 2, 300, QByteArray(300, '\0'));
        const double left = secondsOf(all(*SoundDecoder::open(written("gap.mp3", mp3))));
        QVERIFY2(left > 0.5 * seconds, qPrintable(QString::number(left / seconds)));
    }

    void opensNothingElse()
    {
        const QByteArray song = written("song.wav", wavFile(tone(16000, 1, 1), 16000));
        const QByteArray list =
            "#EXTM3U\n#EXT-X-TARGETDURATION:1\n#EXTINF:1,\nfile://" + song + "\n#EXT-X-ENDLIST\n";
        const QByteArray script = "ffconcat version 1.0\nfile song.wav\n";
        const std::pair<QByteArray, FailureKind> rows[]{
            {written("list.m3u8", list), FailureKind::Malformed},
            {written("list.mp3", list), FailureKind::Malformed},
            {written("script.mp3", script), FailureKind::Malformed},
            {written("text.mp3", "Not music, but long enough to be read. "_ba.repeated(100)),
             FailureKind::Malformed},
            {written("empty.mp3", {}), FailureKind::Malformed},
            {"concat:" + song, FailureKind::NotFound},
            {"http://127.0.0.1:1/song.wav", FailureKind::NotFound},
            {QFile::encodeName(m_folder.filePath(u"none.mp3"_s)), FailureKind::NotFound},
            {QFile::encodeName(m_folder.path()), FailureKind::Unsupported},
            {"/dev/zero", FailureKind::Unsupported},
        };
        for (const auto &[path, kind] : rows) {
            const auto decoder = SoundDecoder::open(path);
            QVERIFY2(!decoder && decoder.failure().kind == kind, path.constData());
        }
        const QByteArray pipe = song + ".pipe";
        QCOMPARE(mkfifo(pipe.constData(), 0600), 0);
        QVERIFY(!SoundDecoder::open(pipe)); // and it does not wait for a writer
    }

    void keepsToItsLimits()
    {
        const QByteArray path = written("tone.wav", wavFile(tone(16000, 1, 5), 16000));
        QCOMPARE(secondsOf(all(*SoundDecoder::open(path, {.longest = 2s}))), 2.0);
        const auto tooLate = SoundDecoder::open(path, {.patience = 0s});
        QVERIFY(!tooLate && tooLate.failure().kind == FailureKind::Unavailable);
    }

    void hearsAStreamAsItComes()
    {
        const QByteArray bytes = wavFile(tone(44100, 2, 3), 44100, 2);
        int ends[2]{};
        QCOMPARE(pipe(ends), 0);
        std::thread writer([&] {
            for (qsizetype i = 0; i < bytes.size();) {
                const auto count = write(ends[1], bytes.constData() + i, std::size_t(bytes.size() - i));
                i += std::max<qsizetype>(count, 0);
            }
            close(ends[1]);
        });
        auto decoder = SoundDecoder::openStream(ends[0], {});
        QVERIFY(decoder);
        const auto sound = all(*std::move(decoder));
        writer.join();
        close(ends[0]);
        QVERIFY(std::abs(secondsOf(sound) - 3) < 0.004);
        QVERIFY(std::abs(loudness(sound, toneHz) - 0.4) < 0.004);
    }
};

QTEST_GUILESS_MAIN(tst_SoundDecoder)
#include "tst_SoundDecoder.moc"
