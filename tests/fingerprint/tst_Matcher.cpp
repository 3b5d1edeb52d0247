// SPDX-License-Identifier: GPL-3.0-or-later
#include "fingerprint/Listening.h"
#include "fingerprint/PeakExtractor.h"
#include "fingerprint/Pieces.h"
#include "fingerprint/SegmentBuilder.h"
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

/// Adds loud strokes, the same for all, each of a noise of its own.
Sound withBeat(Sound sound, unsigned seed)
{
    std::mt19937 rhythm(1);
    for (std::size_t at = 0; at + 1600 < sound.size(); at += 2000 * (1 + rhythm() % 3)) {
        const Sound stroke = noise(seed + unsigned(at), 1600, 0.05);
        for (std::size_t i = 0; i < stroke.size(); ++i)
            sound[at + i] += stroke[i] * float(std::exp(-double(i) / 300));
    }
    return sound;
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
        SegmentBuilder builder;
        for (unsigned seed = 0; seed < songCount; ++seed) {
            m_songs.push_back(piece(seed, songSeconds));
            builder.add(peaksOf(m_songs.back(), songDensity));
        }
        m_catalog = catalogOf(std::move(builder));
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

    void countsTheVotesOfAllPairs_data()
    {
        QTest::addColumn<std::size_t>("field");
        QTest::addRow("a byte for each bin") << (std::size_t(1) << 24);
        QTest::addRow("bins that share one") << (std::size_t(1) << 12);
    }
    void countsTheVotesOfAllPairs()
    {
        QFETCH(std::size_t, field);
        // Many songs of few notes: more bins have votes than are looked at in the end.
        SegmentBuilder builder;
        for (unsigned seed = 0; seed < 4; ++seed)
            builder.add(somePeaks(seed, 6000, 40));
        const Catalog catalog = catalogOf(std::move(builder));
        std::vector<Peak> query = somePeaks(2, 3000, 40);
        query.erase(query.begin(), query.end() - 60);
        const float start = query.front().time;
        for (Peak &peak : query)
            peak.time -= start;
        std::map<long, float> votes;
        for (const Peak &first : query) {
            for (const Peak &second : query) {
                const float delay = second.time - first.time;
                if (delay < shortestDelay - 1 || delay > longestDelay + 1)
                    continue;
                forEachCellAround({pitchScale(first.bin), pitchScale(second.bin), delay}, [&](Cell cell) {
                    catalog.forEachList(cell, [&](const PlaceList &places, LinePlace) {
                        const float weight = std::log(1e6F / float(places.size()));
                        places.forEach([&](LinePlace place) {
                            votes[long((place + 256 - std::lround(first.time / 4)) / 2 % field)] += weight;
                        });
                    });
                });
            }
        }
        QVERIFY(votes.size() > 2500);
        std::vector<float> expected;
        for (const auto &[bin, here] : votes) {
            const auto of = [&](long other) { return votes.contains(other) ? votes.at(other) : 0.0F; };
            if (of(bin - 1) <= here && of(bin + 1) < here)
                expected.push_back(here + std::max(of(bin - 1), of(bin + 1)));
        }
        std::sort(expected.begin(), expected.end(), std::greater());
        VoteField votesOfAll(catalog, 1, field);
        // In pieces, as it is heard: each pair votes once.
        std::size_t counted = 0;
        for (std::size_t heard = 10; heard <= query.size(); heard += 10)
            counted += votesOfAll.vote(std::span(query).first(heard), 1'000'000);
        QVERIFY(counted > votes.size());
        QCOMPARE(votesOfAll.vote(query, 1'000'000), 0U);
        const auto found = votesOfAll.best(20, 100);
        QVERIFY(found.size() >= 20 - (field < votes.size() ? 1 : 0));
        QVERIFY(std::any_of(found.begin(), found.begin() + 1 + catalog.lineLength() / 2 / field,
                            [&](const Candidate &one) {
                                return one.time.song == 2 && std::abs(one.time.frame - start - 100) <= 8;
                            }));
        QVERIFY(std::abs(found.front().votes * 0.125F / expected.front() - 1) < 0.02F);
        QVERIFY(VoteField(catalog, 1.03F, field).vote(query, 1'000'000) != counted);
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
        for (unsigned song = 0; song < songCount; song += 5) {
            const double from = 3.217 + song; // not at a frame
            Matcher matcher(m_catalog);
            matcher.push(change(partOf(m_songs[song], from, 6)));
            const auto match = matcher.look(Query::Ending::Final);
            QVERIFY(match && match->song == song);
            QVERIFY2(match->score > leastOfRight, qPrintable(QString::number(match->score)));
            // The even beat and the long tones of these pieces do not tell it more exactly.
            QVERIFY(std::abs(match->playing.tempo - speed) < 0.045);
            QVERIFY(std::abs(match->playing.pitch - speed) < 0.025);
            QVERIFY(std::abs(double(matcher.beginning(*match)) - from) < 0.2);
        }
    }

    // What is heard comes in pieces of any size, and has to be named twice in a row.
    void namesASongWhileItIsHeard()
    {
        for (const double speed : {1.0, 0.96, 1.04}) {
            const Sound song = faster(m_songs[3], speed);
            const auto heard = std::span(song).subspan(32000);
            const auto catalog = std::make_shared<const Catalog>(m_catalog);
            Listening listening(catalog);
            std::mt19937 random(7);
            auto answer = Listening::Answer::Undecided;
            bool wasCertain = false;
            std::size_t at = 0;
            for (std::size_t size = 0; answer == Listening::Answer::Undecided; at += size) {
                size = 1 + random() % 800;
                wasCertain = listening.score() >= listening.scoreAsked();
                answer = listening.hear(heard.subspan(at, size));
            }
            QVERIFY(answer == Listening::Answer::Match && listening.match().song == 3);
            const double seconds = double(at) / sampleRateHz;
            QVERIFY2(wasCertain && seconds < (speed == 1 ? 3.5 : 6), qPrintable(QString::number(seconds)));
            Listening atOnce(catalog);
            QVERIFY(atOnce.hear(heard) == answer && std::abs(atOnce.score() - listening.score()) < 0.001F);
            QVERIFY(std::abs(double(listening.beginning()) - 32000 * speed / sampleRateHz) < 0.2);
        }
    }

    void isNotCertainOfOtherSounds()
    {
        QVERIFY(!matchOf(m_catalog, {}));
        QVERIFY(!matchOf(m_catalog, Sound(80000)));
        QVERIFY(!matchOf(Catalog(), m_songs[0]));
        for (unsigned seed = 100; seed < 108; ++seed) {
            const Sound other = seed % 4 == 0 ? noise(seed, 80000, 0.01) : piece(seed, 5);
            const auto match = matchOf(m_catalog, other);
            QVERIFY2(!match || match->score < mostOfWrong, qPrintable(QString::number(double(match->score))));
        }
    }

    // What is left without the beat is nothing where the beat is all, and everything where notes are heard.
    void theSameBeatIsNotTheSameSong()
    {
        const Sound strokes = withBeat(noise(3, 160000, 1e-4), 1);
        const auto scores = [&](const Sound &heard, const Sound &recorded) {
            Query query;
            query.push(partOf(heard, 3, 6));
            query.settle(Query::Ending::Final);
            std::vector<KeptPeak> peaks;
            for (const Peak &peak : peaksOf(recorded, songDensity))
                peaks.push_back({std::uint32_t(peak.time), std::uint16_t(std::lround(peak.bin))});
            const Agreement found = bestSpeed(query.rows(), peaks, {6 * framesPerSecond}, Speeds::Few);
            return std::pair(found.score, scoreOfBeat(query.rows(), peaks, found.playing));
        };
        const auto [both, beat] = scores(withBeat(noise(4, 160000, 1e-4), 2), strokes);
        QVERIFY2(both > 4 && beat > 0.8F * both, qPrintable(QString::asprintf("%f, %f", both, beat)));
        const auto [same, none] = scores(withBeat(m_songs[2], 2), withBeat(m_songs[2], 1));
        QVERIFY2(same > 6 && none < 0.1F * same, qPrintable(QString::asprintf("%f, %f", same, none)));
    }

    void recordingsOfTheSameMusicDoNotDenyEachOther()
    {
        SegmentBuilder builder;
        for (const Sound &song : m_songs)
            builder.add(peaksOf(song, songDensity));
        const Sound remaster = throughSpeaker(louder(m_songs[4], 0.5F));
        const SongNumber again = builder.add(peaksOf(partOf(remaster, 1, 14), songDensity));
        const auto match = matchOf(catalogOf(std::move(builder)), withNoise(partOf(m_songs[4], 6, 5), 6));
        QVERIFY(match && (match->song == 4 || match->song == again) && match->score > certainScore);
    }

private:
    static Catalog catalogOf(SegmentBuilder &&builder)
    {
        return Catalog({{std::move(builder).build(), {}, {}}});
    }

    std::vector<Sound> m_songs;
    Catalog m_catalog;
};

QTEST_GUILESS_MAIN(tst_Matcher)
#include "tst_Matcher.moc"
