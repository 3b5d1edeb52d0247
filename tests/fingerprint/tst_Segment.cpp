// SPDX-License-Identifier: GPL-3.0-or-later
#include "fingerprint/Catalog.h"
#include "fingerprint/SegmentBuilder.h"
#include "fingerprint/SegmentMerge.h"
#include "fingerprint/SegmentOutputs.h"
#include "fingerprint/SomeSongs.h"
#include "support/Test.h"

#include <array>
#include <map>
#include <random>

using namespace trackwise::fingerprint;

namespace {

/// What a segment must say, in the plainest form.
struct Expected
{
    explicit Expected(const std::vector<SomeSong> &songs, PairDensity density)
    {
        for (const SomeSong &song : songs) {
            std::vector<std::pair<long, long>> kept;
            for (const Peak &peak : song.peaks)
                kept.emplace_back(std::lround(peak.time), std::lround(peak.bin));
            std::sort(kept.begin(), kept.end());
            beginnings.push_back(line + 125);
            for (const SongPair &pair : pairsOfSong(song.peaks, density))
                places[pair.cell].push_back(beginnings.back() + LinePlace(pair.time / 4));
            line = beginnings.back() + (kept.empty() ? 0 : LinePlace(kept.back().first / 4) + 1) + 125;
            peaks.push_back(std::move(kept));
        }
        for (auto &[cell, list] : places)
            std::sort(list.begin(), list.end());
    }
    LinePlace line = 0;
    std::vector<LinePlace> beginnings;
    std::map<Cell, std::vector<LinePlace>> places;
    std::vector<std::vector<std::pair<long, long>>> peaks;
};

std::vector<LinePlace> placesOf(const PlaceList &list)
{
    std::vector<LinePlace> places;
    list.forEach([&](LinePlace place) { places.push_back(place); });
    return places;
}

std::vector<std::pair<long, long>> peaksOf(const Segment &segment, SongNumber song, float first, float last)
{
    std::vector<KeptPeak> peaks;
    segment.peaks(song, first, last, peaks);
    std::vector<std::pair<long, long>> result;
    result.reserve(peaks.size());
    for (const KeptPeak &peak : peaks)
        result.emplace_back(peak.frame, peak.bin);
    return result;
}

/// How many places a catalog finds; 0 where one is wrong. For each segment it has the expected ones.
std::size_t placesOf(const Catalog &catalog, const Expected &expected)
{
    std::size_t count = 0;
    bool isRight = true;
    for (const auto &[cell, places] : expected.places) {
        std::size_t answers = 0;
        catalog.forEachList(cell, [&](const PlaceList &list, LinePlace base) {
            ++answers;
            count += list.size();
            isRight = isRight && placesOf(list) == places && base % expected.line == 0;
        });
        isRight = isRight && answers == catalog.parts().size();
        catalog.forEachList(cell + 1, [&](const PlaceList &, LinePlace) {
            isRight = isRight && expected.places.contains(cell + 1);
        });
    }
    return isRight ? count : 0;
}

/// Asks for everything; what comes is to lie in the segment.
bool staysWithin(const Segment::Ptr &segment)
{
    bool isWithin = true;
    for (Cell cell = 0; cell < cellCount; cell += 211)
        segment->places(cell).forEach(
            [&](LinePlace place) { isWithin = isWithin && place < segment->lineLength(); });
    for (SongNumber number = 0; number < segment->songCount(); ++number) {
        std::vector<KeptPeak> peaks;
        segment->peaks(number, 0, 1e9F, peaks);
        segment->peaks(number, 1000, 2000, peaks);
        isWithin = isWithin && segment->song(number).title.size() < 70000;
    }
    for (LinePlace place = 0; place < segment->lineLength() && place < 100000; place += 99)
        isWithin = isWithin && segment->songAt(place).value_or(SongTime()).song <= segment->songCount();
    MemoryOutput output;
    const std::array inputs{MergeInput{segment, {}}, MergeInput{segment, {true}}};
    const bool isMerged = mergeSegments(inputs, output);
    std::stop_source stop;
    stop.request_stop();
    const bool isStopped = !mergeSegments(inputs, output, {}, stop.get_token());
    return isMerged && isStopped && isWithin;
}

std::vector<std::uint8_t> bytesOf(const std::vector<SomeSong> &songs, PairDensity density = PairDensity::Full)
{
    SegmentBuilder builder(density);
    for (const SomeSong &song : songs)
        builder.add(song.peaks, song.song);
    return std::move(builder).bytes();
}

} // namespace

class tst_Segment : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void givesBackWhatWasAdded_data()
    {
        QTest::addColumn<int>("songs");
        QTest::addColumn<int>("peaksOfEach");
        QTest::addColumn<unsigned>("highestBin");
        QTest::addColumn<PairDensity>("density");
        QTest::addRow("nothing") << 0 << 0 << 320U << PairDensity::Full;
        QTest::addRow("silence") << 3 << 0 << 320U << PairDensity::Full;
        QTest::addRow("two peaks") << 1 << 2 << 320U << PairDensity::Full;
        QTest::addRow("one song") << 1 << 4000 << 320U << PairDensity::Full;
        QTest::addRow("some songs") << 20 << 3000 << 320U << PairDensity::Compact;
        QTest::addRow("few cells") << 7 << 3000 << 30U << PairDensity::Full;
        QTest::addRow("very few cells") << 30 << 3000 << 14U << PairDensity::Full;
    }
    void givesBackWhatWasAdded()
    {
        QFETCH(int, songs);
        QFETCH(int, peaksOfEach);
        QFETCH(unsigned, highestBin);
        QFETCH(PairDensity, density);
        std::vector<SomeSong> added = someSongs(unsigned(songs), songs, peaksOfEach, highestBin);
        if (songs > 1 && peaksOfEach > 10) {
            for (int i = 0; i < 3000; ++i)
                added[2].song.artist += "é"; // longer than what is kept
            for (std::size_t i = 100; i < added[1].peaks.size(); ++i)
                added[1].peaks[i].time += 40000; // a silence of ten minutes
        }
        const Expected expected(added, density);
        const auto opened = Segment::of(SegmentBytes::of(bytesOf(added, density)));
        const Segment::Ptr segment = std::get<Segment::Ptr>(opened);
        QVERIFY(!segment->verify());
        QCOMPARE(segment->lineLength(), expected.line);
        QCOMPARE(segment->songCount(), SongNumber(songs));
        std::size_t pairs = 0;
        for (const auto &[cell, should] : expected.places) {
            QCOMPARE(placesOf(segment->places(cell)), should);
            pairs += should.size();
            QVERIFY(segment->places(cell + 1).empty() == !expected.places.contains(cell + 1));
        }
        QCOMPARE(segment->pairCount(), pairs);
        QCOMPARE(placesOf(Catalog({{segment, {}, {}}, {segment, {}, {}}}), expected), 2 * pairs);
        for (Cell cell = 0; cell < 2 * cellCount; cell += 997)
            QVERIFY(segment->places(cell).empty() == !expected.places.contains(cell));
        for (SongNumber number = 0; number < SongNumber(songs); ++number) {
            CatalogSong song = added[number].song;
            if (song.artist.size() > 5000)
                song.artist.resize(added[2].song.artist.size() % 2 == 0 ? 4096 : 4095); // whole characters
            QCOMPARE(segment->song(number), song);
            const auto &peaks = expected.peaks[number];
            QCOMPARE(peaksOf(*segment, number, 0, 1e9F), peaks);
            for (const auto &range : {std::pair(500, 900), {1234, 1235}, {2000, 60000}}) {
                auto some = peaks;
                std::erase_if(
                    some, [&](auto peak) { return peak.first < range.first || peak.first >= range.second; });
                QCOMPARE(peaksOf(*segment, number, float(range.first), float(range.second)), some);
            }
            const double beginning = expected.beginnings[number];
            QCOMPARE(segment->songAt(beginning + 2.5), (SongTime{number, 10}));
            QCOMPARE(segment->songAt(beginning - 125), (SongTime{number, -500}));
        }
        QVERIFY(!segment->songAt(-0.5) && !segment->songAt(expected.line));
    }

    void keepsFewerPairsWhereItIsToBeCompact()
    {
        const auto peaks = somePeaks(3, 2000, 4);
        const auto all = pairsOfSong(peaks);
        const auto some = pairsOfSong(peaks, PairDensity::Compact);
        QVERIFY(some.size() > all.size() * 35 / 100 && some.size() < all.size() * 40 / 100);
        for (const SongPair &pair : some)
            QVERIFY(std::any_of(all.begin(), all.end(), [&](const SongPair &other) {
                return other.cell == pair.cell && other.time == pair.time;
            }));
    }

    void readsNothingByADirectoryThatIsTooShort()
    {
        const PlaceCoding coding(PlaceCoding::widestGroup, 1000);
        PlacePacker packer(coding);
        packer.add(77, std::array<LinePlace, 2>{3, 900});
        std::vector<std::uint8_t> groups = packer.finish();
        const auto directory = packer.directory();
        std::vector<std::uint8_t> bytes = directory.bytes;
        for (std::vector<std::uint8_t> *padded : {&groups, &bytes})
            padded->resize(padded->size() + bitPadding);
        const auto placesWithout = [&](std::size_t missing) {
            const auto whole = std::span(bytes).first(directory.bytes.size() - missing);
            return PackedPlaces(coding, {groups, whole, directory.bits}).places(77).size();
        };
        QCOMPARE(placesWithout(0), 2U);
        QCOMPARE(placesWithout(1), 0U);
    }

    void answersWithinAnyBytes()
    {
        // A hostile file has the right checksums.
        std::mt19937 random(5);
        const auto whole = bytesOf(someSongs(1, 4, 1000, 60));
        const SegmentHeader wholeHeader = std::get<SegmentHeader>(SegmentHeader::of(whole, whole.size()));
        int accepted = 0;
        for (int round = 0; round < 200; ++round) {
            std::vector<std::uint8_t> bytes = whole;
            SegmentHeader header = wholeHeader;
            auto &part = header.parts[std::size_t(round % SegmentHeader::PartCount)];
            for (unsigned left = 1 + random() % 30; left > 0; --left)
                bytes[part.offset + random() % part.size] = std::uint8_t(random() % 3 == 0   ? 0
                                                                         : random() % 3 == 0 ? 255
                                                                                             : random());
            if (round % 4 == 3) {
                for (std::uint32_t *number :
                     {&header.groupShift, &header.directoryBits, &header.songCount, &header.lineLength})
                    *number = random() % 3 != 0   ? *number
                              : random() % 2 == 0 ? std::uint32_t(random())
                                                  : std::uint32_t(random() % 40);
                for (std::uint64_t *number : {&part.offset, &part.size})
                    *number = random() % 4 != 0 ? *number : random() % (2 * whole.size());
            }
            if (round % 10 == 9)
                part.size = std::uint64_t(0) - part.offset;
            for (auto &each : header.parts) {
                if (each.offset < bytes.size() && each.size <= bytes.size() - each.offset)
                    each.checksum = checksumOf(std::span(bytes).subspan(each.offset, each.size));
            }
            const auto first = header.bytes();
            std::copy(first.begin(), first.end(), bytes.begin());
            const auto opened = Segment::of(SegmentBytes::of(bytes));
            if (const auto *segment = std::get_if<Segment::Ptr>(&opened)) {
                ++accepted;
                QVERIFY(staysWithin(*segment));
            }
        }
        QVERIFY(accepted > 80);
    }
};

QTEST_GUILESS_MAIN(tst_Segment)
#include "tst_Segment.moc"
