// SPDX-License-Identifier: GPL-3.0-or-later
#include "fingerprint/CatalogStore.h"

#include "fingerprint/SegmentBuilder.h"
#include "fingerprint/SegmentOutputs.h"
#include "fingerprint/StoreState.h"

#include <algorithm>
#include <cerrno>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace trackwise::fingerprint {

namespace fs = std::filesystem;

namespace {

using Failure = CatalogFailure::Kind;
using Files = StoreFolder::Kind;

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

CatalogStore::CatalogStore(std::unique_ptr<StoreState> state)
    : m_state(std::move(state))
{}

CatalogStore::~CatalogStore() = default;

CatalogResult<std::unique_ptr<CatalogStore>> CatalogStore::open(const fs::path &folder, PairDensity density,
                                                                Note note)
{
    std::error_code error;
    fs::create_directories(folder, error);
    if (error)
        return CatalogFailure{Failure::CannotWrite, "making " + folder.string() + ": " + error.message()};
    const StoreFolder files(folder);
    auto lock = lockedFile(files.lock());
    if (const auto *failure = std::get_if<CatalogFailure>(&lock)) {
        if (failure->kind == Failure::InUse && note == Note::Left)
            (void)FileDescriptor(
                ::open(files.wanted().c_str(), O_WRONLY | O_CREAT | O_CLOEXEC, S_IRUSR | S_IWUSR));
        return *failure;
    }
    fs::remove(files.wanted(), error);
    auto state = std::make_unique<StoreState>(files, std::get<FileDescriptor>(std::move(lock)), density);
    if (const auto failure = state->begin())
        return *failure;
    return std::unique_ptr<CatalogStore>(new CatalogStore(std::move(state)));
}

bool CatalogStore::isWanted() const
{
    std::error_code ignored;
    return fs::exists(m_state->folder.wanted(), ignored);
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
        m_state->settleFull(); // where it does not work, mergeSome() tells why
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
    return m_state->change(std::move(next), StoreState::Journal::New);
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

CatalogResult<bool> CatalogStore::mergeSome(const std::stop_token &stop)
{
    const std::lock_guard merging(m_state->merging);
    auto settled = m_state->settleEarly();
    if (std::holds_alternative<CatalogFailure>(settled) || std::get<bool>(settled))
        return settled;
    return m_state->merge(stop);
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
    if (const auto written = m_state->change(std::move(next), StoreState::Journal::GoesOn)) {
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
    return m_state->change(std::move(next), StoreState::Journal::GoesOn);
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
