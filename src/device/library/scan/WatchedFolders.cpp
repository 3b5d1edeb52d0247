// SPDX-License-Identifier: GPL-3.0-or-later
#include "device/library/scan/WatchedFolders.h"

#include "device/library/scan/FolderWalk.h"

#include <linux/magic.h>
#include <sys/inotify.h>
#include <sys/vfs.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <chrono>
#include <fstream>

namespace trackwise {

namespace {
using namespace std::chrono_literals;

constexpr std::uint32_t musicKinds = IN_CREATE | IN_DELETE | IN_MOVED_FROM | IN_MOVED_TO | IN_MODIFY |
                                     IN_CLOSE_WRITE | IN_ATTRIB | IN_DELETE_SELF | IN_MOVE_SELF |
                                     IN_EXCL_UNLINK;
constexpr std::uint32_t awaitingKinds = IN_CREATE | IN_MOVED_TO | IN_ATTRIB | IN_MOVE_SELF | IN_DELETE_SELF;

// Of file systems whose files other machines, or programs behind the system's back, may change. Not all of
// them are in every version of the system's header.
constexpr std::array<long, 9> remoteKinds{
    NFS_SUPER_MAGIC,        SMB_SUPER_MAGIC,       0xff534d42 /* CIFS */,
    0xfe534d42 /* SMB 2 */, 0x65735546 /* FUSE */, V9FS_MAGIC,
    AFS_SUPER_MAGIC,        CODA_SUPER_MAGIC,      0x00c36400 /* Ceph */};

std::size_t halfOfTheLimit()
{
    constexpr std::size_t leastOfOldSystems = 8192;
    std::size_t limit = leastOfOldSystems;
    std::ifstream("/proc/sys/fs/inotify/max_user_watches") >> limit;
    return limit / 2;
}

constexpr int mostAttempts = 1000; ///< more than a path has parts

bool isReadable(const QByteArray &folder)
{
    return access(folder.constData(), R_OK | X_OK) == 0;
}

/// Whether another change would give a folder another time. File systems count it in steps of two seconds, of
/// one, or of the system's clock.
bool isCertain(std::int64_t modified)
{
    using namespace std::chrono;
    const nanoseconds time(modified);
    const nanoseconds step = time % 1s == 0ns ? nanoseconds(2s) : nanoseconds(20ms);
    return system_clock::now().time_since_epoch() - time > step;
}

bool isBelow(const QByteArray &path, const QByteArray &folder)
{
    return path.size() > folder.size() && path.startsWith(folder) && path[folder.size()] == '/';
}
} // namespace

WatchedFolders::WatchedFolders(std::optional<std::size_t> mostWatches)
    : m_descriptor(inotify_init1(IN_CLOEXEC | IN_NONBLOCK))
    , m_mostWatches(mostWatches ? *mostWatches : halfOfTheLimit())
{}

WatchedFolders::~WatchedFolders()
{
    if (m_descriptor >= 0)
        close(m_descriptor);
}

bool WatchedFolders::isRemote(std::uint64_t device, const QByteArray &path)
{
    const auto known = m_remoteDevices.find(device);
    if (known != m_remoteDevices.end())
        return known->second;
    struct statfs status = {};
    const bool isRemote =
        statfs(path.constData(), &status) == 0 && std::ranges::count(remoteKinds, long{status.f_type}) > 0;
    m_remoteDevices.emplace(device, isRemote);
    return isRemote;
}

void WatchedFolders::add(const FoundFolder &found)
{
    const std::scoped_lock lock(m_mutex);
    Folder &folder = m_folders[found.path];
    int number = -1;
    if (folder.watch >= 0 || (!m_isFull && m_pathOfWatch.size() < m_mostWatches)) {
        // The system gives the same number again where it watches this folder, and another one where the
        // path leads to another folder now.
        number = inotify_add_watch(m_descriptor, found.path.constData(), musicKinds | IN_ONLYDIR);
        m_isFull = number < 0 && (errno == ENOSPC || errno == ENOMEM || errno == EBADF);
    }
    if (number != folder.watch && folder.watch >= 0) {
        m_pathOfWatch.erase(folder.watch);
        inotify_rm_watch(m_descriptor, folder.watch);
    }
    if (number >= 0) {
        const auto [holder, isNew] = m_pathOfWatch.try_emplace(number, found.path);
        if (!isNew && holder->second != found.path) { // it was moved here
            const auto old = m_folders.find(holder->second);
            if (old != m_folders.end())
                old->second.watch = -1;
            holder->second = found.path;
        }
    }
    const bool isPolled = number < 0 || isRemote(found.device, found.path);
    m_polledCount += (isPolled ? 1 : 0);
    m_polledCount -= (folder.isPolled ? 1 : 0);
    folder = {number, m_round, isPolled, isCertain(found.modified) ? found.modified : 0};
}

WatchedFolders::Folders::iterator WatchedFolders::forget(Folders::iterator folder)
{
    if (folder->second.watch >= 0) {
        m_pathOfWatch.erase(folder->second.watch);
        inotify_rm_watch(m_descriptor, folder->second.watch);
    }
    m_polledCount -= (folder->second.isPolled ? 1 : 0);
    return m_folders.erase(folder);
}

void WatchedFolders::removeTree(const QByteArray &path)
{
    const std::scoped_lock lock(m_mutex);
    auto folder = m_folders.lower_bound(path);
    // Names such as "path x" sort between "path" and "path/x".
    while (folder != m_folders.end() && folder->first.startsWith(path))
        folder = folder->first == path || isBelow(folder->first, path) ? forget(folder) : std::next(folder);
}

void WatchedFolders::letGoOfAwaited()
{
    for (const auto &[number, roots] : m_awaited)
        inotify_rm_watch(m_descriptor, number);
    m_awaited.clear();
}

void WatchedFolders::clear()
{
    beginAll();
    endAll();
}

void WatchedFolders::beginAll()
{
    const std::scoped_lock lock(m_mutex);
    ++m_round;
    m_isFull = false;
    letGoOfAwaited();
    m_remoteDevices.clear(); // numbers are given to other disks in time
}

void WatchedFolders::endAll()
{
    const std::scoped_lock lock(m_mutex);
    for (auto folder = m_folders.begin(); folder != m_folders.end();)
        folder = folder->second.round != m_round ? forget(folder) : std::next(folder);
}

void WatchedFolders::watchAbove(const QByteArray &root)
{
    const std::scoped_lock lock(m_mutex);
    QByteArray above = root;
    for (qsizetype slash = 0; (slash = above.lastIndexOf('/')) > 0;) {
        above.truncate(slash);
        const int number = inotify_add_watch(m_descriptor, above.constData(),
                                             IN_MOVE_SELF | IN_DELETE_SELF | IN_ONLYDIR | IN_MASK_ADD);
        if (number >= 0 && !m_pathOfWatch.contains(number)) // else it is one of the library's
            m_awaited[number];
    }
}

void WatchedFolders::awaitRoot(const QByteArray &root)
{
    const std::scoped_lock lock(m_mutex);
    QByteArray missing = root;
    for (int attempts = 0; missing.size() > 1 && attempts < mostAttempts; ++attempts) {
        const qsizetype slash = missing.lastIndexOf('/');
        const QByteArray above = slash > 0 ? missing.left(slash) : QByteArray("/");
        if (m_folders.contains(above))
            return; // is watched as it is
        const int number =
            inotify_add_watch(m_descriptor, above.constData(), awaitingKinds | IN_ONLYDIR | IN_MASK_ADD);
        if (number < 0) {
            missing = above;
            continue;
        }
        m_awaited[number].insert(missing);
        if (missing == root || !isReadable(missing))
            return;
        missing = root; // it has come between the two looks
    }
}

std::vector<FolderEvent> WatchedFolders::takeEvents()
{
    constexpr std::size_t roomForEvents = 65536;
    alignas(inotify_event) std::array<char, roomForEvents> buffer; // NOLINT: filled by read()
    std::vector<FolderEvent> events;
    const std::scoped_lock lock(m_mutex);
    for (ssize_t size = 0; (size = read(m_descriptor, buffer.data(), buffer.size())) > 0;) {
        for (ssize_t at = 0; at < size;) {
            const auto *event = reinterpret_cast<const inotify_event *>(buffer.data() + at);
            at += static_cast<ssize_t>(sizeof(inotify_event) + event->len);
            const QByteArray name(event->len > 0 ? event->name : "");
            if ((event->mask & IN_Q_OVERFLOW) != 0) {
                events.push_back({{}, {}, event->mask});
                continue;
            }
            const auto awaited = m_awaited.find(event->wd);
            if (awaited != m_awaited.end()) {
                const bool isAbove = name.isEmpty();
                const bool isIt = std::ranges::any_of(
                    awaited->second, [&](const QByteArray &path) { return path.endsWith('/' + name); });
                if (isAbove || isIt)
                    events.push_back({{}, {}, event->mask});
                continue;
            }
            const auto folder = m_pathOfWatch.find(event->wd);
            if (folder == m_pathOfWatch.end())
                continue; // let go since
            events.push_back({folder->second, name, event->mask});
            if ((event->mask & IN_IGNORED) != 0) {
                const auto ended = m_folders.find(folder->second);
                if (ended != m_folders.end())
                    ended->second.watch = -1;
                m_pathOfWatch.erase(folder);
            }
        }
    }
    return events;
}

bool WatchedFolders::isKnown(const QByteArray &folder) const
{
    const std::scoped_lock lock(m_mutex);
    return m_folders.contains(folder);
}

bool WatchedFolders::isPolled(const QByteArray &folder) const
{
    const std::scoped_lock lock(m_mutex);
    const auto known = m_folders.find(folder);
    return known != m_folders.end() && known->second.isPolled;
}

bool WatchedFolders::hasPolled() const
{
    const std::scoped_lock lock(m_mutex);
    return m_polledCount > 0;
}

std::vector<std::pair<QByteArray, std::int64_t>> WatchedFolders::polled() const
{
    const std::scoped_lock lock(m_mutex);
    std::vector<std::pair<QByteArray, std::int64_t>> polled;
    for (const auto &[path, folder] : m_folders) {
        if (folder.isPolled)
            polled.emplace_back(path, folder.modified);
    }
    return polled;
}

} // namespace trackwise
