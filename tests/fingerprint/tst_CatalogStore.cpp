// SPDX-License-Identifier: GPL-3.0-or-later
#include "fingerprint/CatalogStore.h"
#include "fingerprint/SegmentBuilder.h"
#include "fingerprint/SomeSongs.h"
#include "support/Test.h"

#include <QProcess>
#include <QTemporaryDir>

#include <fstream>
#include <map>
#include <random>
#include <set>
#include <thread>
#include <unistd.h>

using namespace trackwise::fingerprint;
namespace fs = std::filesystem;

namespace {

using Kind = CatalogFailure::Kind;
using Songs = std::map<std::uint64_t, SomeSong>; // by persistent ID

constexpr int peaksOfSong = 120;

std::unique_ptr<CatalogStore> opened(const fs::path &folder)
{
    auto store = CatalogStore::open(folder);
    if (const auto *failure = std::get_if<CatalogFailure>(&store))
        qWarning("%s", failure->detail.c_str());
    return std::get<std::unique_ptr<CatalogStore>>(std::move(store));
}

/// The place in its song of each pair of @p cell that is found, by songs.
std::multimap<std::uint64_t, long> placesIn(const Catalog &catalog, Cell cell)
{
    std::multimap<std::uint64_t, long> found;
    catalog.forEachList(cell, [&](const PlaceList &list, LinePlace base) {
        list.forEach([&](LinePlace place) {
            if (const auto time = catalog.songAt(double(base) + place))
                found.emplace(catalog.song(time->song).persistentID, std::lround(time->frame / 4));
        });
    });
    return found;
}

bool knowsPeaks(const Catalog &catalog, SongNumber number, std::span<const Peak> expected)
{
    std::vector<KeptPeak> peaks;
    catalog.peaks(number, 0, 1e9F, peaks);
    return peaks.size() == expected.size() &&
           std::equal(peaks.begin(), peaks.end(), expected.begin(),
                      [](auto a, auto b) { return long(a.frame) == std::lround(b.time); });
}

/// Whether @p catalog has these songs of the own library, and no others.
bool has(const Catalog &catalog, const Songs &songs)
{
    std::set<std::uint64_t> found;
    for (SongNumber number = 0; number < catalog.songCount(); ++number) {
        if (catalog.isRemoved(number) || !catalog.originOf(number).empty())
            continue;
        const CatalogSong song = catalog.song(number);
        const auto expected = songs.find(song.persistentID);
        if (expected == songs.end() || !found.insert(song.persistentID).second ||
            !(expected->second.song == song) || !knowsPeaks(catalog, number, expected->second.peaks))
            return false;
    }
    for (const auto &[persistentID, song] : songs) {
        const auto pairs = pairsOfSong(song.peaks);
        for (std::size_t i = 0; i < pairs.size(); i += 30) {
            const auto places = placesIn(catalog, pairs[i].cell);
            const auto [begin, end] = places.equal_range(persistentID);
            if (std::none_of(begin, end,
                             [&](auto &place) { return place.second == long(pairs[i].time / 4); }))
                return false;
        }
    }
    return found.size() == songs.size();
}

bool has(const CatalogStore &store, const Songs &songs)
{
    const auto stamps = store.songs();
    return stamps.size() == songs.size() && has(*store.catalog(), songs) &&
           std::all_of(songs.begin(), songs.end(),
                       [&](auto &song) { return stamps.at(song.first) == song.second.song.stamp; });
}

void add(CatalogStore &store, Songs &songs, const SomeSong &song)
{
    QVERIFY(!store.add(song.song, song.peaks));
    songs[song.song.persistentID] = song;
}

void remove(CatalogStore &store, Songs &songs, std::uint64_t persistentID)
{
    const std::uint64_t unknown = ~persistentID;
    QVERIFY(!store.remove(std::array{unknown, persistentID}));
    songs.erase(persistentID);
}

bool mergeAll(CatalogStore &store)
{
    for (;;) {
        const auto merged = store.mergeSome();
        if (!std::holds_alternative<bool>(merged) || !std::get<bool>(merged))
            return std::holds_alternative<bool>(merged);
    }
}

std::string contentsOf(const fs::path &path)
{
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

void write(const fs::path &path, const std::string &contents)
{
    std::ofstream(path, std::ios::binary) << contents;
}

constexpr QLatin1String addsUntilKilled("--adds-until-killed");

/// Tells of each song that was added by a byte.
int addUntilKilled(const fs::path &folder, unsigned next)
{
    const auto store = opened(folder);
    std::thread([&] {
        while (std::holds_alternative<bool>(store->mergeSome()))
            ;
    }).detach();
    for (;; ++next) {
        const SomeSong song = someSongs(next, 1, peaksOfSong).front();
        if (store->add(song.song, song.peaks) || ::write(STDOUT_FILENO, "+", 1) != 1)
            ::_exit(1);
    }
}

fs::path fileIn(const fs::path &folder, const std::string &prefix)
{
    for (const auto &file : fs::directory_iterator(folder)) {
        if (file.path().filename().string().starts_with(prefix))
            return file.path();
    }
    return {};
}

} // namespace

class tst_CatalogStore : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        m_temporary = std::make_unique<QTemporaryDir>();
        m_root = m_temporary->path().toStdString();
        m_folder = m_root / "store";
    }

    void keepsWhatIsAddedAndRemoved()
    {
        Songs songs;
        std::mt19937 random(1);
        auto store = opened(m_folder);
        QVERIFY(has(*store, songs));
        for (unsigned step = 0; step < 240; ++step) {
            const auto some = std::next(songs.begin(), long(random() % (songs.size() + 1)));
            if (step % 5 == 4 && some != songs.end()) {
                remove(*store, songs, some->first);
            } else {
                SomeSong song = someSongs(step, 1, peaksOfSong).front();
                if (step % 7 == 6 && some != songs.end())
                    song.song.persistentID = some->first; // heard again
                add(*store, songs, song);
            }
            if (random() % 40 == 0)
                QVERIFY(has(*store, songs));
            if (random() % 60 == 0)
                QVERIFY(std::holds_alternative<bool>(store->mergeSome()));
            if (random() % 60 == 0) {
                store.reset();
                store = opened(m_folder);
                QVERIFY(store->damages().empty() && has(*store, songs));
            }
        }
        QVERIFY(mergeAll(*store));
        QVERIFY(has(*store, songs));
        QVERIFY(store->catalog()->parts().size() < 6);
        QVERIFY(has(*std::get<std::shared_ptr<const Catalog>>(CatalogStore::read(m_folder)), songs));
        // Of what goes, nothing stays.
        while (songs.size() > 10)
            remove(*store, songs, songs.begin()->first);
        QVERIFY(has(*store, songs));
        QVERIFY(mergeAll(*store));
        std::uint64_t pairs = 0;
        for (const auto &part : store->catalog()->parts())
            pairs += part.segment->pairCount();
        QVERIFY(pairs < std::uint64_t(64) * 4 * peaksOfSong);
        QVERIFY(has(*store, songs));
        QVERIFY(!store->removeAll() && has(*store, {}));
        store.reset();
        QVERIFY(has(*opened(m_folder), {}));
        QVERIFY(fileIn(m_folder, "segment-").empty());
    }

    void doesNotGrowByBeingAddedTo()
    {
        SegmentBuilder builder;
        auto store = opened(m_folder);
        for (const SomeSong &song : someSongs(3, 100, 600)) {
            QVERIFY(!store->add(song.song, song.peaks));
            builder.add(song.peaks, song.song);
        }
        QVERIFY(mergeAll(*store));
        QVERIFY(store->catalog()->parts().size() <= 3U);
        QVERIFY(double(store->byteCount()) < 1.03 * double(std::move(builder).bytes().size()));
    }

    void losesAtMostTheSongInWorkWhenKilled()
    {
        std::mt19937 random(2);
        Songs songs;
        unsigned next = 0;
        for (int round = 0; round < 5; ++round) {
            QProcess child;
            child.start(QCoreApplication::applicationFilePath(),
                        {QString(addsUntilKilled), QString::fromStdString(m_folder), QString::number(next)});
            const auto told = long(random() % 90);
            while (child.bytesAvailable() < told)
                QVERIFY(child.waitForReadyRead());
            child.kill();
            child.waitForFinished();
            for (qsizetype left = child.readAllStandardOutput().size(); left > 0; --left) {
                const SomeSong some = someSongs(next++, 1, peaksOfSong).front();
                songs[some.song.persistentID] = some;
            }
            auto store = opened(m_folder);
            const SomeSong last = someSongs(next, 1, peaksOfSong).front();
            if (store->songs().contains(last.song.persistentID)) { // it was about to tell
                songs[last.song.persistentID] = last;
                ++next;
            }
            QVERIFY(store->damages().empty());
            QVERIFY(has(*store, songs));
        }
        QVERIFY(next > 70);
    }

    void cutsOffATornEnd()
    {
        std::vector<std::uintmax_t> ends{0};
        std::vector<Songs> states(1);
        auto store = opened(m_folder);
        for (const SomeSong &song : someSongs(4, 3, 30)) {
            states.push_back(states.back());
            add(*store, states.back(), song);
            ends.push_back(fs::file_size(fileIn(m_folder, "journal-")));
        }
        store.reset();
        const fs::path journal = fileIn(m_folder, "journal-");
        const std::string whole = contentsOf(journal);
        const SomeSong other = someSongs(5, 1, 30).front();
        for (std::size_t size = 0; size < whole.size(); size += size % 16 == 15 ? 97 : 1) {
            const auto wholeSongs = std::upper_bound(ends.begin(), ends.end(), size) - ends.begin() - 1;
            Songs songs = states[std::size_t(wholeSongs)];
            std::string damaged = whole.substr(0, size + 1);
            damaged[size] = char(damaged[size] ^ 4);
            write(journal, size % 2 == 0 ? damaged : whole.substr(0, size));
            store = opened(m_folder);
            QCOMPARE(store->songs().size(), songs.size());
            add(*store, songs, other);
            store.reset();
            QVERIFY(has(*opened(m_folder), songs));
        }
    }

    void goesOnWithoutWhatIsDamaged_data()
    {
        QTest::addColumn<QByteArray>("prefix");
        QTest::addColumn<int>("songsLeft");
        QTest::addRow("manifest") << QByteArray("manifest") << 68;
        QTest::addRow("segment") << QByteArray("segment-") << 4;
        QTest::addRow("journal") << QByteArray("journal-") << 64;
    }
    void goesOnWithoutWhatIsDamaged()
    {
        QFETCH(QByteArray, prefix);
        QFETCH(int, songsLeft);
        Songs songs;
        auto store = opened(m_folder);
        for (const SomeSong &song : someSongs(4, 68, 30))
            add(*store, songs, song);
        store.reset();
        const fs::path path = fileIn(m_folder, prefix.toStdString());
        std::string contents = contentsOf(path);
        contents[contents.size() / (prefix.startsWith('j') ? 99 : 2)] ^= 1;
        contents[contents.size() - 20] ^= 1; // a part that is always looked at
        write(path, contents);
        store = opened(m_folder);
        QCOMPARE(int(store->songs().size()), songsLeft);
        QCOMPARE(store->damages().empty(), prefix.startsWith('j'));
        for (const auto &[persistentID, song] : Songs(songs))
            add(*store, songs, song);
        store.reset();
        store = opened(m_folder);
        QVERIFY(has(*store, songs));
        QVERIFY(store->damages().empty() || prefix.startsWith('s'));
    }

    void servesReadersWhileItIsWritten()
    {
        QCOMPARE(std::get<CatalogFailure>(CatalogStore::read(m_folder)).kind, Kind::NotThere);
        auto store = opened(m_folder);
        QCOMPARE(std::get<CatalogFailure>(CatalogStore::open(m_folder)).kind, Kind::InUse);
        const std::vector<SomeSong> added = someSongs(6, 150, peaksOfSong);
        Songs first;
        for (std::size_t i = 0; i < 70; ++i)
            add(*store, first, added[i]);
        const auto early = store->catalog();
        std::atomic<bool> isDone = false;
        std::atomic<int> wrong = 0;
        std::thread reader([&] {
            while (!isDone) {
                const auto catalog = CatalogStore::read(m_folder);
                const auto *there = std::get_if<std::shared_ptr<const Catalog>>(&catalog);
                wrong += there == nullptr || (*there)->songCount() < 70 || !has(*early, first);
            }
        });
        std::thread merger([&] {
            while (!isDone)
                wrong += std::holds_alternative<CatalogFailure>(store->mergeSome());
        });
        Songs all = first;
        for (std::size_t i = 70; i < added.size(); ++i)
            add(*store, all, added[i]);
        isDone = true;
        reader.join();
        merger.join();
        QCOMPARE(wrong.load(), 0);
        QVERIFY(has(*store, all) && has(*early, first));
    }

    void exportsForOthersToAdd()
    {
        Songs songs;
        auto store = opened(m_folder);
        for (const SomeSong &song : someSongs(7, 70, peaksOfSong))
            add(*store, songs, song);
        remove(*store, songs, songs.begin()->first);
        const fs::path file = m_root / "Sommer.catalog";
        QVERIFY(!store->exportTo(file, [](CatalogSong &song) { song.title = "today"; }));
        QCOMPARE(store->exportTo(m_root / "no" / "where", {})->kind, Kind::NotThere);

        auto other = opened(m_root / "other");
        Songs own;
        add(*other, own, someSongs(8, 1, peaksOfSong).front());
        for (int i = 0; i < 2; ++i) { // the second time in the place of the first
            const auto added = std::get<AddedCatalog>(other->addCatalog(file));
            QCOMPARE(added.name, "Sommer");
            QCOMPARE(added.songCount, 69U);
        }
        fs::remove(file);
        other.reset();
        other = opened(m_root / "other");
        QCOMPARE(other->addedCatalogs().size(), 1U);
        QVERIFY(has(*other, own));
        const auto catalog = other->catalog();
        QCOMPARE(catalog->songCount(), 70U);
        for (SongNumber number = 1; number < 70; ++number) {
            const CatalogSong song = catalog->song(number);
            QVERIFY(catalog->originOf(number) == "Sommer" && song.title == "today");
            QVERIFY(knowsPeaks(*catalog, number, songs.at(song.persistentID).peaks));
            const SongPair pair = pairsOfSong(songs.at(song.persistentID).peaks).front();
            QVERIFY(placesIn(*catalog, pair.cell).contains(song.persistentID));
        }
        QCOMPARE(other->removeCatalog("Winter")->kind, Kind::Unknown);
        QVERIFY(!other->removeCatalog("Sommer"));
        QVERIFY(other->catalog()->songCount() == 1 && fileIn(m_root / "other", "added-").empty());
    }

    void refusesOtherFiles_data()
    {
        QTest::addColumn<std::function<void(std::string &)>>("change");
        QTest::addColumn<Kind>("kind");
        const auto row = [](const char *name, const std::function<void(std::string &)> &change, Kind kind) {
            QTest::addRow("%s", name) << change << kind;
        };
        row(
            "nothing", [](std::string &s) { s.clear(); }, Kind::NotACatalog);
        row(
            "text", [](std::string &s) { s = std::string(500, 'x'); }, Kind::NotACatalog);
        row(
            "its first bytes", [](std::string &s) { s.resize(7); }, Kind::Truncated);
        row(
            "its header", [](std::string &s) { s.resize(SegmentHeader::size); }, Kind::Truncated);
        row(
            "without its last byte", [](std::string &s) { s.pop_back(); }, Kind::Truncated);
        row(
            "a later version", [](std::string &s) { s[8] = 2; }, Kind::NewerVersion);
        row(
            "another header", [](std::string &s) { s[20] ^= 1; }, Kind::Damaged);
        row(
            "other peaks", [](std::string &s) { s[SegmentHeader::size + 99] ^= 1; }, Kind::Damaged);
        row(
            "other places", [](std::string &s) { s[s.size() / 2] ^= 1; }, Kind::Damaged);
        row(
            "other texts", [](std::string &s) { s[s.size() - 12] ^= 1; }, Kind::Damaged);
    }
    void refusesOtherFiles()
    {
        QFETCH(std::function<void(std::string &)>, change);
        QFETCH(Kind, kind);
        SegmentBuilder builder;
        for (const SomeSong &song : someSongs(9, 3, 2000))
            builder.add(song.peaks, song.song);
        const auto bytes = std::move(builder).bytes();
        std::string contents(bytes.begin(), bytes.end());
        change(contents);
        const fs::path file = m_root / "file";
        write(file, contents);
        auto store = opened(m_folder);
        const auto added = store->addCatalog(file);
        QCOMPARE(std::get<CatalogFailure>(added).kind, kind);
        QVERIFY(store->addedCatalogs().empty() && fileIn(m_folder, "added-").empty());
        QCOMPARE(std::get<CatalogFailure>(store->addCatalog(m_folder)).kind, Kind::NotACatalog);
    }

private:
    std::unique_ptr<QTemporaryDir> m_temporary;
    fs::path m_root;
    fs::path m_folder;
};

int main(int argc, char **argv)
{
    const QCoreApplication application(argc, argv);
    const QStringList arguments = application.arguments();
    if (arguments.size() == 4 && arguments[1] == addsUntilKilled)
        return addUntilKilled(arguments[2].toStdString(), arguments[3].toUInt());
    tst_CatalogStore test;
    return QTest::qExec(&test, argc, argv);
}
#include "tst_CatalogStore.moc"
