// SPDX-License-Identifier: GPL-3.0-or-later
#include "fingerprint/Matcher.h"
#include "fingerprint/PeakExtractor.h"
#include "fingerprint/Pieces.h"
#include "support/Test.h"

#include <cmath>
#include <functional>
#include <map>
#include <random>

using namespace trackwise::fingerprint;

namespace {

constexpr unsigned songCount = 8;
constexpr double songSeconds = 16;
/// Between them lies certainScore. These pieces are made by one rule, and more alike than music is.
constexpr float leastOfRight = 4;
constexpr float mostOfWrong = 3.5F;

Sound partOf(const Sound &sound, double from, double seconds)
{
    const auto begin = sound.begin() + std::ptrdiff_t(from * sampleRateHz);
    return {begin, begin + std::ptrdiff_t(seconds * sampleRateHz)};
}

Sound louder(Sound sound, float factor)
{
    for (float &value : sound)
        value *= factor;
    return sound;
}

Sound withNoise(Sound sound, double decibels)
{
    const Sound noisy = noise(99, sound.size(), powerOf(sound) * std::pow(10, -decibels / 10));
    std::transform(sound.begin(), sound.end(), noisy.begin(), sound.begin(), std::plus());
    return sound;
}

// What a small speaker leaves of it: the difference of two filters of the first order, twice.
Sound throughSpeaker(Sound sound)
{
    for (int pass = 0; pass < 2; ++pass) {
        float slow = 0;
        float quick = 0;
        for (float &value : sound) {
            slow += 0.15F * (value - slow);
            quick += 0.7F * (value - quick);
            value = quick - slow;
        }
    }
    return sound;
}

Sound faster(const Sound &sound, double speed)
{
    Sound result(std::size_t(double(sound.size() - 1) / speed));
    for (std::size_t i = 0; i < result.size(); ++i) {
        const double place = double(i) * speed;
        const auto before = std::size_t(place);
        const auto share = float(place - double(before));
        result[i] = sound[before] * (1 - share) + sound[before + 1] * share;
    }
    return result;
}

std::vector<Peak> somePeaks(unsigned seed, int count, unsigned highestBin = 320)
{
    std::mt19937 random(seed);
    std::vector<Peak> peaks;
    float time = 0;
    for (int i = 0; i < count; ++i) {
        time += float(random() % 1000) / 125; // 16 a second
        peaks.push_back({time, float(13000 + random() % (1000UL * (highestBin - 13))) / 1000,
                         float(1 + random() % 1000)});
    }
    return peaks;
}

} // namespace

class tst_Matcher : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        SongIndexBuilder builder;
        for (unsigned seed = 0; seed < songCount; ++seed) {
            m_songs.push_back(piece(seed, songSeconds));
            builder.add(peaksOf(m_songs.back(), songDensity));
        }
        m_index = std::move(builder).build();
    }

    void looksIntoTheCellOfAPairThatIsALittleOff()
    {
        std::mt19937 random(5);
        const auto within = [&random](float reach) { return (float(random() % 2001) / 1000 - 1) * reach; };
        for (int i = 0; i < 2000; ++i) {
            const PeakPair kept{pitchScale(13 + float(random() % 307)),
                                pitchScale(13 + float(random() % 307)), 2 + float(random() % 29)};
            const auto cell = cellOf(kept);
            QVERIFY(cell && *cell < cellCount);
            const PeakPair heard{kept.first + within(0.49F), kept.second + within(0.49F),
                                 kept.delay + within(0.49F)};
            std::vector<Cell> cells;
            forEachCellAround(heard, [&](Cell around) { cells.push_back(around); });
            QVERIFY(std::count(cells.begin(), cells.end(), *cell) == 1);
            QVERIFY(std::count(cells.begin(), cells.end(), *cellOf(heard)) == 1);
        }
        for (const PeakPair &outside : {PeakPair{-1, 5, 5}, PeakPair{5, -0.6F, 5}, PeakPair{5, 5, -1},
                                        PeakPair{288, 5, 5}, PeakPair{5, 288, 5}, PeakPair{5, 5, 34}})
            QVERIFY(!cellOf(outside));
    }

    void keepsEachPairWithAStrongPartner()
    {
        std::vector<std::vector<Peak>> songs;
        SongIndexBuilder builder;
        std::multimap<Cell, SongTime> expected;
        for (unsigned seed = 0; seed < 3; ++seed) {
            songs.push_back(somePeaks(seed, 200));
            const auto &peaks = songs.back();
            QCOMPARE(builder.add(peaks), seed);
            for (const Peak &peak : peaks) {
                std::vector<Peak> partners;
                for (const Peak &other : peaks) {
                    const float delay = other.time - peak.time;
                    if (delay >= shortestDelay && delay <= longestDelay)
                        partners.push_back(other);
                }
                std::sort(partners.begin(), partners.end(),
                          [](const Peak &a, const Peak &b) { return a.strength > b.strength; });
                partners.resize(std::min<std::size_t>(4, partners.size()));
                for (const Peak &other : partners) {
                    const PeakPair pair{pitchScale(peak.bin), pitchScale(other.bin), other.time - peak.time};
                    expected.emplace(*cellOf(pair), SongTime{seed, peak.time});
                }
            }
        }
        const SongIndex index = std::move(builder).build();
        std::size_t found = 0;
        for (Cell cell = 0; cell < cellCount; ++cell)
            found += index.places(cell).size();
        QCOMPARE(found, expected.size());
        for (auto entry = expected.begin(); entry != expected.end();) {
            const auto places = index.places(entry->first);
            QCOMPARE(places.size(), expected.count(entry->first));
            for (const LinePlace place : places) {
                const auto time = index.songAt(place);
                QVERIFY(time && time->song == entry->second.song);
                QVERIFY(std::abs(time->frame - entry->second.frame) <= 4 || places.size() > 1);
                ++entry;
            }
        }
        QVERIFY(index.places(cellCount).empty());
        QVERIFY(!index.songAt(-1) && !index.songAt(index.lineLength()));
    }

    void countsTheVotesOfAllPairs()
    {
        // Many songs of few notes: more bins have votes than are counted exactly.
        SongIndexBuilder builder;
        for (unsigned seed = 0; seed < 4; ++seed)
            builder.add(somePeaks(seed, 6000, 40));
        const SongIndex index = std::move(builder).build();
        std::vector<Peak> query = somePeaks(2, 3000, 40);
        query.erase(query.begin(), query.end() - 60);
        const float middle = query.front().time + 100;
        std::map<long, float> votes;
        for (const Peak &first : query) {
            for (const Peak &second : query) {
                const float delay = second.time - first.time;
                if (delay < shortestDelay - 1 || delay > longestDelay + 1)
                    continue;
                forEachCellAround({pitchScale(first.bin), pitchScale(second.bin), delay}, [&](Cell cell) {
                    for (const LinePlace place : index.places(cell))
                        votes[(place - std::lround((first.time - middle) / 4)) / 2] +=
                            std::log(1e6F / float(index.places(cell).size()));
                });
            }
        }
        QVERIFY(votes.size() > 4000);
        std::vector<float> expected;
        for (const auto &[bin, here] : votes) {
            const auto of = [&](long other) { return votes.contains(other) ? votes.at(other) : 0.0F; };
            if (of(bin - 1) <= here && of(bin + 1) < here)
                expected.push_back(here + std::max(of(bin - 1), of(bin + 1)));
        }
        std::sort(expected.begin(), expected.end(), std::greater());
        const auto found = Voting(index).candidates(query, middle, Probing::CellsAround, 20);
        QCOMPARE(found.size(), 20U);
        QVERIFY(found[0].time.song == 2 && std::abs(found[0].time.frame - middle) <= 8);
        for (std::size_t i = 0; i < found.size(); ++i)
            QVERIFY(std::abs(found[i].votes - expected[i]) < 0.01F);
        const auto fewer = Voting(index).candidates(query, middle, Probing::NearestCell, 20);
        QVERIFY(fewer[0].time == found[0].time || std::abs(fewer[0].time.frame - middle) <= 8);
        QVERIFY(fewer[0].votes < found[0].votes);
    }

    void namesASongFromAFewSeconds_data()
    {
        QTest::addColumn<std::function<Sound(Sound)>>("change");
        QTest::addColumn<double>("speed");
        const auto add = [](const char *name, double speed, const std::function<Sound(Sound)> &change) {
            QTest::addRow("%s", name) << change << speed;
        };
        add("as it is", 1, [](const Sound &s) { return s; });
        add("quieter", 1, [](const Sound &s) { return louder(s, 0.1F); });
        add("noisier", 1, [](const Sound &s) { return withNoise(s, 3); });
        add("through a speaker", 1, [](const Sound &s) { return throughSpeaker(s); });
        add("a little faster", 1.01, [](const Sound &s) { return faster(s, 1.01); });
        add("slower", 0.96, [](const Sound &s) { return faster(s, 0.96); });
        add("faster", 1.03, [](const Sound &s) { return faster(s, 1.03); });
    }
    void namesASongFromAFewSeconds()
    {
        QFETCH(std::function<Sound(Sound)>, change);
        QFETCH(double, speed);
        Matcher matcher(m_index);
        for (unsigned song = 0; song < songCount; song += 5) {
            const double from = 3.217 + song; // not at a frame
            const Query query = Query::of(change(partOf(m_songs[song], from, 6)));
            const auto match = matcher.match(query);
            QVERIFY(match && match->song == song);
            QVERIFY2(match->score > leastOfRight, qPrintable(QString::number(match->score)));
            // The even beat and the long tones of these pieces do not tell it more exactly.
            QVERIFY(std::abs(match->playing.tempo - speed) < 0.045);
            QVERIFY(std::abs(match->playing.pitch - speed) < 0.025);
            const double beginning = match->playing.middle - query.middle() * match->playing.tempo;
            QVERIFY(std::abs(beginning / framesPerSecond - from) < 0.2);
        }
    }

    void isNotCertainOfOtherSounds()
    {
        Matcher matcher(m_index);
        QVERIFY(!matcher.match(Query::of({})));
        QVERIFY(!matcher.match(Query::of(Sound(80000))));
        QVERIFY(!Matcher(SongIndexBuilder().build()).match(Query::of(m_songs[0])));
        for (unsigned seed = 100; seed < 108; ++seed) {
            const Sound other = seed % 4 == 0 ? noise(seed, 80000, 0.01) : piece(seed, 5);
            const auto match = matcher.match(Query::of(other));
            QVERIFY2(!match || match->score < mostOfWrong, qPrintable(QString::number(match->score)));
        }
    }

    void recordingsOfTheSameMusicDoNotDenyEachOther()
    {
        SongIndexBuilder builder;
        for (const Sound &song : m_songs)
            builder.add(peaksOf(song, songDensity));
        const Sound remaster = throughSpeaker(louder(m_songs[4], 0.5F));
        const SongNumber again = builder.add(peaksOf(partOf(remaster, 1, 14), songDensity));
        const SongIndex index = std::move(builder).build();
        const Query query = Query::of(withNoise(partOf(m_songs[4], 6, 5), 6));
        const auto match = Matcher(index).match(query);
        QVERIFY(match && (match->song == 4 || match->song == again) && match->score > certainScore);
    }

private:
    std::vector<Sound> m_songs;
    SongIndex m_index;
};

QTEST_GUILESS_MAIN(tst_Matcher)
#include "tst_Matcher.moc"
