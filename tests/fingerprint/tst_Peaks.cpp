// SPDX-License-Identifier: GPL-3.0-or-later
#include "fingerprint/PeakExtractor.h"
#include "fingerprint/Pieces.h"
#include "support/Test.h"

#include <cmath>
#include <limits>
#include <numbers>
#include <random>

using namespace trackwise::fingerprint;

namespace {

using Rows = std::vector<std::vector<float>>;

RowSink into(Rows &rows)
{
    return [&rows](Row row) { rows.emplace_back(row.begin(), row.end()); };
}

Row rowOf(const std::vector<float> &values)
{
    return Row(values.data(), values.size());
}

Rows randomRows(unsigned seed, int count)
{
    std::mt19937 random(seed);
    std::normal_distribution<float> value(0, 1);
    Rows rows(static_cast<std::size_t>(count), std::vector<float>(binCount));
    for (auto &row : rows)
        std::generate(row.begin(), row.end(), [&] { return value(random); });
    return rows;
}

// How many of the peaks of one list the other has within a hop and a bin of them.
double shareFound(const std::vector<Peak> &sought, const std::vector<Peak> &among, float later = 0)
{
    std::size_t found = 0;
    for (const Peak &peak : sought)
        found += std::any_of(among.begin(), among.end(), [&](const Peak &other) {
            return std::abs(other.time - later - peak.time) <= 1 && std::abs(other.bin - peak.bin) <= 1;
        });
    return double(found) / double(sought.size());
}

} // namespace

class tst_Peaks : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void showsATone_data()
    {
        QTest::addColumn<double>("amplitude");
        QTest::addColumn<float>("magnitude");
        QTest::addRow("full scale") << 1.0 << std::log(256.0F);
        QTest::addRow("60 dB below") << 0.001 << std::log(0.256F);
        QTest::addRow("silence") << 0.0 << std::log(0.001F);
    }
    void showsATone()
    {
        QFETCH(double, amplitude);
        QFETCH(float, magnitude);
        constexpr int bin = 64;
        Sound tone(frameLength + 2 * songHop - 1); // the third row lacks one sample
        for (std::size_t i = 0; i < tone.size(); ++i)
            tone[i] = float(amplitude * std::sin(2 * std::numbers::pi * bin * double(i) / frameLength));
        Rows rows;
        LogSpectrum(songHop).push(tone, into(rows));
        QCOMPARE(rows.size(), 2U);
        for (const auto &row : rows) {
            QVERIFY(std::abs(row[bin] - magnitude) < 0.002F);
            QVERIFY(amplitude == 0 || std::max_element(row.begin(), row.end()) == row.begin() + bin);
        }
    }

    void whitensByTheMeanOfTheSurroundings()
    {
        // 0.48 s are 30 rows of a song; shorter than that, a little longer, and long.
        for (const int count : {1, 20, 45, 100}) {
            const Rows rows = randomRows(unsigned(count), count);
            Rows whitened;
            Whitening whitening(songHop);
            for (const auto &row : rows)
                whitening.push(rowOf(row), into(whitened));
            QCOMPARE(int(whitened.size()), std::max(0, count - 30)); // as soon as they can be
            whitening.finish(into(whitened));
            QCOMPARE(int(whitened.size()), count);
            for (int row = 0; row < count; ++row) {
                for (const int bin : {0, 5, 20, 21, 180, 339, 340, 360}) {
                    double sum = 0;
                    int values = 0;
                    for (int r = std::max(0, row - 30); r <= std::min(count - 1, row + 30); ++r)
                        for (int b = std::max(0, bin - 20); b <= std::min(360, bin + 20); ++b, ++values)
                            sum += rows[r][b];
                    QVERIFY(std::abs(whitened[row][bin] - (rows[row][bin] - sum / values)) < 1e-4);
                }
            }
        }
    }

    void findsWhatNothingExceedsNearby()
    {
        const Rows rows = randomRows(7, 60);
        for (const int hop : {songHop, queryHop}) {
            const int reach = 768 / hop; // 48 ms
            std::vector<Peak> expected;
            for (int row = 1; row < 59; ++row) {
                for (int bin = 13; bin <= 320; ++bin) {
                    bool isGreatest = rows[row][bin] >= 2;
                    for (int r = std::max(0, row - reach); r <= std::min(59, row + reach); ++r)
                        for (int b = bin - 6; b <= bin + 6; ++b)
                            isGreatest = isGreatest && rows[r][b] <= rows[row][bin];
                    if (isGreatest)
                        expected.push_back({float(row * hop) / songHop, float(bin), rows[row][bin]});
                }
            }
            std::vector<Peak> found;
            PeakFinder finder(hop, 2);
            for (const auto &row : rows)
                finder.push(rowOf(row), found);
            finder.finish(found);
            QVERIFY(expected.size() > 50);
            QCOMPARE(found.size(), expected.size());
            for (std::size_t i = 0; i < found.size(); ++i) {
                QCOMPARE(found[i].strength, expected[i].strength);
                QVERIFY(std::abs(found[i].time - expected[i].time) <= float(hop) / songHop / 2);
                QVERIFY(std::abs(found[i].bin - expected[i].bin) <= 0.5F);
            }
        }
    }

    void findsPlacesBetweenRowsAndBins()
    {
        // A hill of which the summit is at row 5.25 and bin 100.4.
        std::vector<Peak> found;
        PeakFinder finder(songHop, 1);
        for (int row = 0; row < 12; ++row) {
            std::vector<float> values(binCount);
            for (int bin = 0; bin < binCount; ++bin)
                values[bin] = float(3 - std::pow(row - 5.25, 2) / 8 - std::pow(bin - 100.4, 2) / 8);
            finder.push(rowOf(values), found);
        }
        finder.finish(found);
        QCOMPARE(found.size(), 1U);
        QVERIFY(std::abs(found[0].time - 5.25F) < 0.001F && std::abs(found[0].bin - 100.4F) < 0.001F);
    }

    void passesTheStrongestOfEachBand()
    {
        std::mt19937 random(3);
        std::vector<Peak> peaks;
        for (int row = 0; row < 400; ++row)
            for (unsigned i = random() % 5; i > 0; --i)
                peaks.push_back({float(row) + float(random() % 1000) / 1000 - 0.5F,
                                 float(13 + random() % 308), float(1 + random() % 1000)});
        std::vector<Peak> expected;
        for (const Peak &peak : peaks) {
            const auto stronger = std::count_if(peaks.begin(), peaks.end(), [&](const Peak &other) {
                return bandOf(other.bin) == bandOf(peak.bin) && std::abs(other.time - peak.time) <= 31.25F &&
                       other.strength > peak.strength;
            });
            if (stronger < 4)
                expected.push_back(peak);
        }
        std::vector<Peak> passed;
        PeakQuota quota(4);
        for (const Peak &peak : peaks)
            quota.push(peak, passed);
        QVERIFY(passed.size() > expected.size() * 3 / 4); // does not keep them to the end
        quota.finish(passed);
        QCOMPARE(passed, expected);
    }

    void doesNotDependOnHowSoundIsCut()
    {
        const Sound sound = piece(1, 6);
        for (const PeakDensity &density : {songDensity, queryDensity}) {
            std::mt19937 random(2);
            PeakExtractor extractor(density);
            std::vector<Peak> peaks;
            for (std::span<const float> rest = sound; !rest.empty();) {
                const auto part = std::min<std::size_t>(rest.size(), random() % 3000);
                extractor.push(rest.first(part), peaks);
                rest = rest.subspan(part);
            }
            extractor.finish(peaks);
            QCOMPARE(peaks, peaksOf(sound, density));
        }
    }

    void findsTheSamePeaksInOtherSurroundings()
    {
        const Sound sound = piece(4, 10);
        const std::vector<Peak> peaks = peaksOf(sound, songDensity);
        QVERIFY(peaks.size() > 80 && peaks.size() < 200);

        Sound quieter = sound;
        for (float &value : quieter)
            value *= 0.1F;
        QVERIFY(shareFound(peaks, peaksOf(quieter, songDensity)) > 0.98);

        // From another beginning, which is 1 s and a part of a hop earlier.
        Sound later = noise(5, 16100, 0.001);
        later.insert(later.end(), sound.begin(), sound.end());
        QVERIFY(shareFound(peaks, peaksOf(later, queryDensity), 16100.0F / songHop) > 0.95);

        Sound noisier = noise(6, sound.size(), powerOf(sound));
        std::transform(sound.begin(), sound.end(), noisier.begin(), noisier.begin(), std::plus());
        QVERIFY(shareFound(peaks, peaksOf(noisier, queryDensity)) > 0.7);
        QVERIFY(shareFound(peaks, peaksOf(piece(8, 10), queryDensity)) < 0.2); // by chance
    }

    void survivesWhatIsNoSound()
    {
        QVERIFY(peaksOf(Sound(40000), queryDensity).empty());
        QVERIFY(peaksOf(Sound(500, 0.5F), songDensity).empty());
        // What is broken for a moment is forgotten after it.
        Sound broken = piece(1, 12);
        const std::vector<Peak> whole = peaksOf(broken, songDensity);
        broken[8000] = std::numeric_limits<float>::quiet_NaN();
        broken[9000] = std::numeric_limits<float>::infinity();
        broken[10000] = std::numeric_limits<float>::max();
        const auto isLate = [](const Peak &peak) { return peak.time > 130; };
        std::vector<Peak> expected;
        std::copy_if(whole.begin(), whole.end(), std::back_inserter(expected), isLate);
        QVERIFY(shareFound(expected, peaksOf(broken, songDensity)) > 0.98);
    }
};

QTEST_GUILESS_MAIN(tst_Peaks)
#include "tst_Peaks.moc"
