// SPDX-License-Identifier: GPL-3.0-or-later
#include "fingerprint/CatalogStore.h"

#include "fingerprint/CatalogJournal.h"
#include "fingerprint/CatalogSnapshot.h"
#include "fingerprint/SegmentBuilder.h"
#include "fingerprint/SegmentOutputs.h"

#include <algorithm>
#include <cerrno>
#include <fcntl.h>
#include <mutex>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace trackwise::fingerprint {

namespace fs = std::filesystem;

namespace {

using Failure = CatalogFailure::Kind;
using Files = StoreFolder::Kind;

/// As many songs of the journal become a segment. They are in memory until then.
constexpr std::size_t songsOfJournal = 64;
/// Each takes a third more there. A small library is tidied up when they are this share of it.
constexpr std::size_t shareOfJournal = 16;
/// How often a reader looks again where files went while it opened them.
constexpr int attempts = 10;

CatalogResult<FileDescriptor> lockedFile(const fs::path &path)
{
    FileDescriptor file(::open(path.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, S_IRUSR | S_IWUSR));
    if (!file)
        return systemFailure(errno, Failure::CannotWrite, "opening", path);
    if (::flock(file.get(), LOCK_EX | LOCK_NB) != 0)
        return systemFailure(errno, errno == EWOULDBLOCK ? Failure::InUse : Failure::CannotWrite, "locking",
                             path);
    return file;
}

std::vector<MergeInput> songsOf(std::span<const StoredSegment> segments)
{
    std::vector<MergeInput> inputs;
    for (const StoredSegment &segment : segments)
        inputs.push_back(segment.songs);
    return inputs;
}

/// What is worth merging: the smallest segments as long as the next is at most twice as large as they are
/// together, so that there are few at any time, and none is written often; else one of which a third was
/// removed.
std::vector<StoredSegment> worthMerging(const std::vector<StoredSegment> &settled)
{
    std::vector<std::pair<std::uint64_t, const StoredSegment *>> bySize;
    for (const StoredSegment &segment : settled)
        bySize.emplace_back(segment.pairCount(), &segment);
    std::sort(bySize.begin(), bySize.end());
    std::uint64_t sum = 0;
    std::uint64_t line = 0;
    std::size_t count = 0;
    for (std::size_t i = 0; i < bySize.size(); ++i) {
        line += bySize[i].second->songs.segment->lineLength();
        if (i > 0 && bySize[i].first <= 2 * sum && line <= longestLine)
            count = i + 1;
        sum += bySize[i].first;
    }
    std::vector<StoredSegment> result;
    for (std::size_t i = 0; i < count; ++i)
        result.push_back(*bySize[i].second);
    for (const auto &[pairs, segment] : bySize) {
        if (result.empty() && pairs * 3 < segment->songs.segment->pairCount() * 2)
            result.push_back(*segment);
    }
    return result;
}

/// Copies a file that may change meanwhile; the copy does not.
std::optional<CatalogFailure> copyCatalog(const fs::path &from, const fs::path &to)
{
    const FileDescriptor file(::open(from.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK));
    struct stat status
    {};
    if (!file || ::fstat(file.get(), &status) != 0)
        return systemFailure(errno, Failure::CannotRead, "opening", from);
    if (!S_ISREG(status.st_mode))
        return CatalogFailure{Failure::NotACatalog, from.string() + " is no file"};
    FileOutput output(to);
    std::vector<std::uint8_t> part(std::size_t(1) << 20);
    std::uint64_t copied = 0;
    for (;;) {
        const ssize_t count = ::read(file.get(), part.data(), part.size());
        if (count < 0 && errno == EINTR)
            continue;
        if (count < 0)
            return systemFailure(errno, Failure::CannotRead, "reading", from);
        if (count == 0)
            return output.finish();
        const auto bytes = std::span(part).first(std::size_t(count));
        if (copied == 0) { // before all of a film is copied
            const auto header = SegmentHeader::of(bytes, std::uint64_t(status.st_size));
            if (const auto *failure = std::get_if<CatalogFailure>(&header))
                return CatalogFailure{failure->kind, from.string() + ": " + failure->detail};
        }
        copied += bytes.size();
        output.append(bytes);
    }
}

} // namespace

/// What several threads work on. Who holds both locks took that of the merging first.
class CatalogStore::State
{
public:
    State(StoreFolder storeFolder, FileDescriptor lock, PairDensity pairDensity)
        : folder(std::move(storeFolder))
        , density(pairDensity)
        , m_lock(std::move(lock))
    {}

    std::optional<CatalogFailure> begin();
    std::optional<CatalogFailure> append(CatalogJournal::Kind kind, std::span<const std::uint8_t> bytes);
    enum class Journal { GoesOn, New };
    /// Makes @p next what there is, when it is written. The mutex is held.
    std::optional<CatalogFailure> change(StoreContents next, Journal journal);
    CatalogResult<bool> settle(std::size_t fewestSongs);
    std::size_t worthSettling();
    CatalogResult<bool> merge();
    std::shared_ptr<const Catalog> snapshot();

    const StoreFolder folder;
    const PairDensity density;
    std::mutex mutex;   ///< of the contents and the journal
    std::mutex merging; ///< one at a time
    StoreContents contents;
    std::uint64_t changes = 0;

private:
    CatalogResult<bool> replaceByOne(const std::vector<StoredSegment> &inputs, Journal journal);
    void removeFiles(const std::vector<fs::path> &before);

    FileDescriptor m_lock;
    std::optional<CatalogJournal> m_journal;
    std::mutex m_snapshotMutex; ///< of what follows
    CatalogSnapshot m_snapshots;
    std::shared_ptr<const Catalog> m_snapshot;
    std::uint64_t m_snapshotChanges = 0;
};

std::optional<CatalogFailure> CatalogStore::State::begin()
{
    auto loaded = StoreContents::load(folder);
    if (const auto *failure = std::get_if<CatalogFailure>(&loaded))
        return *failure;
    contents = std::get<StoreContents>(std::move(loaded));
    if (contents.journal == 0) {
        if (auto failure = change(contents, Journal::New))
            return failure;
    } else {
        auto journal =
            CatalogJournal::goOn(folder.file(Files::Journal, contents.journal), contents.journalSize);
        if (const auto *failure = std::get_if<CatalogFailure>(&journal))
            return *failure;
        m_journal = std::get<CatalogJournal>(std::move(journal));
    }
    auto kept = contents.files(folder);
    folder.removeAllBut(kept);
    return std::nullopt;
}

std::optional<CatalogFailure> CatalogStore::State::append(CatalogJournal::Kind kind,
                                                          std::span<const std::uint8_t> bytes)
{
    ++changes;
    return m_journal->append(kind, bytes);
}

std::optional<CatalogFailure> CatalogStore::State::change(StoreContents next, Journal journal)
{
    std::optional<CatalogJournal> nextJournal;
    if (journal == Journal::New) {
        next.journal = next.nextNumber++;
        std::vector<CatalogJournal::Entry> entries;
        for (const StoredSegment &single : next.fresh()) {
            const auto bytes = single.songs.segment->bytes();
            if (!single.songs.isRemoved(0))
                entries.push_back({CatalogJournal::Kind::Song, {bytes.begin(), bytes.end()}});
        }
        auto made = CatalogJournal::make(folder.file(Files::Journal, next.journal), entries);
        if (const auto *failure = std::get_if<CatalogFailure>(&made))
            return *failure;
        nextJournal = std::get<CatalogJournal>(std::move(made));
    }
    FileOutput output(folder.manifest());
    output.append(next.manifest().bytes());
    if (auto failure = output.finish())
        return failure;
    const auto before = contents.files(folder);
    contents = std::move(next);
    ++changes;
    if (nextJournal)
        m_journal = std::move(nextJournal);
    removeFiles(before);
    return std::nullopt;
}

void CatalogStore::State::removeFiles(const std::vector<fs::path> &before)
{
    const auto now = contents.files(folder);
    for (const fs::path &path : before) {
        std::error_code ignored; // it is tried again at the next start
        if (std::find(now.begin(), now.end(), path) == now.end())
            fs::remove(path, ignored);
    }
}

CatalogResult<bool> CatalogStore::State::settle(std::size_t fewestSongs)
{
    std::vector<StoredSegment> inputs;
    {
        const std::lock_guard lock(mutex);
        if (contents.fresh().size() < fewestSongs)
            return false;
        inputs = contents.fresh();
    }
    return replaceByOne(inputs, Journal::New);
}

std::size_t CatalogStore::State::worthSettling()
{
    const std::lock_guard lock(mutex);
    std::size_t settled = 0;
    for (const StoredSegment &segment : contents.settled())
        settled += segment.songs.segment->songCount();
    return std::clamp(settled / shareOfJournal, std::size_t(1), songsOfJournal);
}

CatalogResult<bool> CatalogStore::State::merge()
{
    std::vector<StoredSegment> inputs;
    {
        const std::lock_guard lock(mutex);
        inputs = worthMerging(contents.settled());
    }
    for (const StoredSegment &input : inputs) {
        if (const auto damage = input.songs.segment->verify()) {
            const std::lock_guard lock(mutex);
            StoreContents next = contents;
            next.leaveOut(input.songs.segment);
            next.damages.push_back(*damage);
            if (const auto failure = change(std::move(next), Journal::GoesOn))
                return *failure;
            return true;
        }
    }
    if (inputs.empty())
        return false;
    return replaceByOne(inputs, Journal::GoesOn);
}

CatalogResult<bool> CatalogStore::State::replaceByOne(const std::vector<StoredSegment> &inputs,
                                                      Journal journal)
{
    StoredSegment merged;
    {
        const std::lock_guard lock(mutex);
        merged.number = contents.nextNumber++;
    }
    const fs::path path = folder.file(Files::Segment, merged.number);
    FileOutput output(path);
    mergeSegments(songsOf(inputs), output);
    if (const auto failure = output.finish())
        return *failure;
    auto opened = Segment::ofFile(path);
    if (const auto *failure = std::get_if<CatalogFailure>(&opened))
        return *failure;
    merged.songs.segment = std::get<Segment::Ptr>(std::move(opened));

    const std::lock_guard lock(mutex);
    StoreContents next = contents;
    next.replace(inputs, std::move(merged));
    const auto failure = change(std::move(next), journal);
    removeFiles({path}); // where it does not count
    if (failure)
        return *failure;
    return true;
}

std::shared_ptr<const Catalog> CatalogStore::State::snapshot()
{
    const std::lock_guard snapshotLock(m_snapshotMutex);
    StoreContents now;
    {
        const std::lock_guard lock(mutex);
        if (m_snapshot && m_snapshotChanges == changes)
            return m_snapshot;
        now = contents;
        m_snapshotChanges = changes;
    }
    m_snapshot = m_snapshots.of(now);
    return m_snapshot;
}

CatalogStore::CatalogStore(std::unique_ptr<State> state)
    : m_state(std::move(state))
{}

CatalogStore::~CatalogStore() = default;

CatalogResult<std::unique_ptr<CatalogStore>> CatalogStore::open(const fs::path &folder, PairDensity density)
{
    std::error_code error;
    fs::create_directories(folder, error);
    if (error)
        return CatalogFailure{Failure::CannotWrite, "making " + folder.string() + ": " + error.message()};
    const StoreFolder files(folder);
    auto lock = lockedFile(files.lock());
    if (const auto *failure = std::get_if<CatalogFailure>(&lock))
        return *failure;
    auto state = std::make_unique<State>(files, std::get<FileDescriptor>(std::move(lock)), density);
    if (const auto failure = state->begin())
        return *failure;
    return std::unique_ptr<CatalogStore>(new CatalogStore(std::move(state)));
}

CatalogResult<std::shared_ptr<const Catalog>> CatalogStore::read(const fs::path &folder)
{
    std::error_code error;
    if (!fs::is_directory(folder, error))
        return CatalogFailure{Failure::NotThere, "there is no folder " + folder.string()};
    for (int attempt = 1;; ++attempt) {
        const auto loaded = StoreContents::load(StoreFolder(folder));
        if (const auto *failure = std::get_if<CatalogFailure>(&loaded))
            return *failure;
        const auto &contents = std::get<StoreContents>(loaded);
        // What has gone was merged by another process since the manifest was read.
        const bool isWhole =
            std::none_of(contents.damages.begin(), contents.damages.end(),
                         [](const CatalogFailure &damage) { return damage.kind == Failure::NotThere; });
        if (isWhole || attempt == attempts)
            return CatalogSnapshot().of(contents);
    }
}

std::optional<CatalogFailure> CatalogStore::add(const CatalogSong &song, std::span<const Peak> peaks)
{
    SegmentBuilder builder(m_state->density);
    builder.add(peaks, song);
    Segment::Ptr single = std::move(builder).build();
    {
        const std::lock_guard lock(m_state->mutex);
        if (auto failure = m_state->append(CatalogJournal::Kind::Song, single->bytes()))
            return failure;
        m_state->contents.addFresh(std::move(single));
    }
    // Not while something is merged: the next song will do.
    if (const std::unique_lock merging(m_state->merging, std::try_to_lock); merging)
        m_state->settle(songsOfJournal); // where it does not work, mergeSome() tells why
    return std::nullopt;
}

std::optional<CatalogFailure> CatalogStore::remove(std::span<const std::uint64_t> persistentIDs)
{
    const std::lock_guard lock(m_state->mutex);
    std::vector<std::uint8_t> bytes;
    for (const std::uint64_t persistentID : persistentIDs) {
        if (m_state->contents.knows(persistentID))
            appendLittle(bytes, persistentID);
    }
    if (bytes.empty())
        return std::nullopt;
    if (auto failure = m_state->append(CatalogJournal::Kind::Removal, bytes))
        return failure;
    for (const std::uint64_t persistentID : persistentIDs)
        m_state->contents.remove(persistentID);
    return std::nullopt;
}

std::optional<CatalogFailure> CatalogStore::removeAll()
{
    const std::lock_guard lock(m_state->mutex);
    StoreContents next = m_state->contents;
    next.removeAllOwn();
    next.damages.clear();
    return m_state->change(std::move(next), State::Journal::New);
}

std::shared_ptr<const Catalog> CatalogStore::catalog() const
{
    return m_state->snapshot();
}

std::unordered_map<std::uint64_t, std::uint64_t> CatalogStore::songs() const
{
    const std::lock_guard lock(m_state->mutex);
    return m_state->contents.stamps();
}

CatalogResult<bool> CatalogStore::mergeSome()
{
    const std::lock_guard merging(m_state->merging);
    auto settled = m_state->settle(m_state->worthSettling());
    if (std::holds_alternative<CatalogFailure>(settled) || std::get<bool>(settled))
        return settled;
    return m_state->merge();
}

std::optional<CatalogFailure> CatalogStore::exportTo(const fs::path &path, const SongNaming &naming) const
{
    std::vector<MergeInput> inputs;
    {
        const std::lock_guard lock(m_state->mutex);
        inputs = songsOf(m_state->contents.settled());
        const auto fresh = songsOf(m_state->contents.fresh());
        inputs.insert(inputs.end(), fresh.begin(), fresh.end());
    }
    FileOutput output(path, FileOutput::Readers::All);
    mergeSegments(inputs, output, naming);
    return output.finish();
}

CatalogResult<AddedCatalog> CatalogStore::addCatalog(const fs::path &path)
{
    StoredSegment added;
    {
        const std::lock_guard lock(m_state->mutex);
        added.number = m_state->contents.nextNumber++;
    }
    const fs::path copy = m_state->folder.file(Files::Added, added.number);
    if (const auto failure = copyCatalog(path, copy))
        return *failure;
    auto segment = Segment::ofFile(copy);
    std::error_code ignored;
    const auto *failure = std::get_if<CatalogFailure>(&segment);
    const auto damage = failure ? *failure : std::get<Segment::Ptr>(segment)->verify();
    if (damage) {
        fs::remove(copy, ignored);
        return CatalogFailure{damage->kind, path.string() + ": " + damage->detail};
    }
    added.songs.segment = std::get<Segment::Ptr>(std::move(segment));
    added.name = path.stem().string();

    const std::lock_guard lock(m_state->mutex);
    StoreContents next = m_state->contents;
    std::erase_if(next.added, [&](const StoredSegment &other) { return other.name == added.name; });
    next.added.push_back(added);
    if (const auto written = m_state->change(std::move(next), State::Journal::GoesOn)) {
        fs::remove(copy, ignored);
        return *written;
    }
    return AddedCatalog{added.name, added.songs.segment->songCount(), added.songs.segment->byteCount()};
}

std::optional<CatalogFailure> CatalogStore::removeCatalog(const std::string &name)
{
    const std::lock_guard lock(m_state->mutex);
    StoreContents next = m_state->contents;
    if (std::erase_if(next.added, [&](const StoredSegment &added) { return added.name == name; }) == 0)
        return CatalogFailure{Failure::Unknown, "there is no added catalog " + name};
    return m_state->change(std::move(next), State::Journal::GoesOn);
}

std::vector<AddedCatalog> CatalogStore::addedCatalogs() const
{
    const std::lock_guard lock(m_state->mutex);
    std::vector<AddedCatalog> result;
    for (const StoredSegment &added : m_state->contents.added)
        result.push_back({added.name, added.songs.segment->songCount(), added.songs.segment->byteCount()});
    return result;
}

std::uint64_t CatalogStore::byteCount() const
{
    return m_state->folder.byteCount();
}

std::vector<CatalogFailure> CatalogStore::damages() const
{
    const std::lock_guard lock(m_state->mutex);
    return m_state->contents.damages;
}

} // namespace trackwise::fingerprint
