// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>

#include <cstdint>
#include <map>
#include <mutex>
#include <optional>
#include <set>
#include <unordered_map>
#include <vector>

namespace trackwise {

struct FoundFolder;

/// What the system tells of a watched folder, or of something in it.
struct FolderEvent
{
    QByteArray folder;      ///< empty where events were lost
    QByteArray name;        ///< empty where the folder itself is meant
    std::uint32_t kind = 0; ///< bits of inotify(7)

    [[nodiscard]] bool is(std::uint32_t kinds) const { return (kind & kinds) != 0; }
    [[nodiscard]] QByteArray path() const { return folder + '/' + name; }
};

/// The folders of the library, each with the system's watch on it where that is possible: not beyond the
/// system's limit, of which other programs are left a half, and not alone where changes may come from another
/// machine. Any thread.
class WatchedFolders
{
public:
    /// @p mostWatches: by default half of what the system allows a user.
    explicit WatchedFolders(std::optional<std::size_t> mostWatches = {});
    ~WatchedFolders();
    WatchedFolders(const WatchedFolders &) = delete;
    WatchedFolders &operator=(const WatchedFolders &) = delete;

    /// Becomes readable when there are events; -1 where the system gives no watches at all.
    [[nodiscard]] int descriptor() const { return m_descriptor; }
    /// Never blocks.
    [[nodiscard]] std::vector<FolderEvent> takeEvents();

    /// To be called before the folder is read, so that no change falls between.
    void add(const FoundFolder &folder);
    void removeTree(const QByteArray &path);
    void clear();
    /// Between these two every folder of the library is added; the others are let go.
    void beginAll();
    void endAll();
    /// Tells when a folder above that one is moved or removed, and that one with it; until the next
    /// beginAll().
    void watchAbove(const QByteArray &root);
    /// Tells when that folder appears, which is not there or not readable now; until the next beginAll().
    void awaitRoot(const QByteArray &root);

    [[nodiscard]] bool isKnown(const QByteArray &folder) const;
    [[nodiscard]] bool isPolled(const QByteArray &folder) const;
    [[nodiscard]] bool hasPolled() const;
    /// The folders of which the system tells nothing, or not everything, and when they were changed last.
    [[nodiscard]] std::vector<std::pair<QByteArray, std::int64_t>> polled() const;

private:
    struct Folder
    {
        int watch = -1;
        unsigned round = 0; ///< of beginAll(), in which it was seen last
        bool isPolled = false;
        std::int64_t modified = 0;
    };
    using Folders = std::map<QByteArray, Folder>;

    [[nodiscard]] bool isRemote(std::uint64_t device, const QByteArray &path);
    Folders::iterator forget(Folders::iterator folder);
    void letGoOfAwaited();

    mutable std::mutex m_mutex;
    int m_descriptor;
    std::size_t m_mostWatches;
    bool m_isFull = false;
    unsigned m_round = 0;
    Folders m_folders;
    std::unordered_map<int, QByteArray> m_pathOfWatch;
    std::map<int, std::set<QByteArray>> m_awaited; ///< paths that will be folders, by the watch above them
    std::map<std::uint64_t, bool> m_remoteDevices;
    std::size_t m_polledCount = 0;
};

} // namespace trackwise
