// SPDX-License-Identifier: GPL-3.0-or-later
#include "device/library/scan/FolderWalk.h"

#include "device/library/scan/MusicDisks.h"
#include "device/library/store/FilePaths.h"
#include "device/library/store/FileSignature.h"
#include "device/library/tags/MusicFormats.h"

#include <dirent.h>
#include <fcntl.h>
#include <linux/magic.h>
#include <sys/stat.h>
#include <sys/vfs.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <map>
#include <memory>

namespace trackwise {

namespace {
constexpr std::array companionSuffixes{"jpeg", "jpg", "lrc", "png", "txt", "webp"};
constexpr std::array passedOver{"$RECYCLE.BIN", "@eaDir", "System Volume Information", "lost+found"};

struct CloseFolder
{
    void operator()(DIR *folder) const { closedir(folder); }
};
using FolderHandle = std::unique_ptr<DIR, CloseFolder>;

template <std::size_t count>
bool hasSuffix(QByteArrayView name, const std::array<const char *, count> &suffixes)
{
    const qsizetype dot = name.lastIndexOf('.');
    if (dot < 0)
        return false;
    const QByteArrayView suffix = name.sliced(dot + 1);
    return std::any_of(suffixes.begin(), suffixes.end(), [suffix](const char *known) {
        return suffix.compare(QByteArrayView(known), Qt::CaseInsensitive) == 0;
    });
}

bool isOfTheSystem(int descriptor)
{
    struct statfs status = {};
    if (fstatfs(descriptor, &status) != 0)
        return false;
    constexpr std::array kinds{PROC_SUPER_MAGIC, SYSFS_MAGIC,        DEVPTS_SUPER_MAGIC,
                               DEBUGFS_MAGIC,    CGROUP_SUPER_MAGIC, CGROUP2_SUPER_MAGIC};
    return std::any_of(kinds.begin(), kinds.end(), [&status](auto kind) { return status.f_type == kind; });
}

class Walk
{
public:
    Walk(const std::vector<QByteArray> &roots, const FolderWalk::Visitor &visitor,
         const std::stop_token &stop)
        : m_roots(roots)
        , m_visitor(visitor)
        , m_stop(stop)
    {}

    bool run()
    {
        for (const QByteArray &root : m_roots)
            walkTree(root);
        // Real folders come first, so that a song is known by its real path and not by a link to it.
        while (!m_links.empty() && !m_stop.stop_requested()) {
            const QByteArray link = std::move(m_links.back());
            m_links.pop_back();
            if (isWorthFollowing(link))
                walkTree(link);
            else if (const auto target = signatureAt(link))
                passOver(link, target->identity);
        }
        return !m_stop.stop_requested();
    }

    bool run(const ScanPart &part)
    {
        for (const QByteArray &tree : part.trees())
            walkTree(tree);
        std::vector<QByteArray> leftOut;
        for (const QByteArray &folder : part.folders())
            visit(folder, leftOut);
        return !m_stop.stop_requested();
    }

private:
    void walkTree(const QByteArray &top)
    {
        std::vector<QByteArray> waiting{top};
        while (!waiting.empty() && !m_stop.stop_requested()) {
            const QByteArray path = std::move(waiting.back());
            waiting.pop_back();
            visit(path, waiting);
        }
    }

    void visit(const QByteArray &path, std::vector<QByteArray> &waiting)
    {
        const int descriptor = open(path.constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC | O_NONBLOCK);
        if (descriptor < 0) {
            const int error = errno;
            // A folder may vanish after its parent was read; a root must be there.
            const bool isRoot = std::find(m_roots.begin(), m_roots.end(), path) != m_roots.end();
            if (isRoot || (error != ENOENT && error != ENOTDIR))
                m_visitor.unreadable(path, error);
            return;
        }
        const FolderHandle handle(fdopendir(descriptor));
        struct stat status = {};
        if (!handle || fstat(descriptor, &status) != 0) {
            m_visitor.unreadable(path, errno);
            return;
        }
        const FileIdentity identity = signatureOf(status).identity;
        const auto [visited, isFirst] = m_visited.try_emplace({status.st_dev, status.st_ino}, path);
        if (!isFirst || isOfTheSystem(descriptor)) {
            if (isFirst || visited->second != path)
                passOver(path, identity);
            return;
        }

        FoundFolder found;
        found.path = path;
        found.device = status.st_dev;
        found.modified = signatureOf(status).modified;
        if (m_visitor.willRead)
            m_visitor.willRead(found);
        std::vector<std::pair<QByteArray, unsigned char>> entries;
        errno = 0;
        while (const dirent *entry = readdir(handle.get())) {
            const QByteArrayView name(entry->d_name);
            if (name == leaveOutMark) {
                passOver(path, identity);
                return;
            }
            if (name != "." && name != "..")
                entries.emplace_back(name.toByteArray(), entry->d_type);
            errno = 0;
        }
        if (errno != 0) {
            m_visitor.unreadable(path, errno);
            return;
        }
        std::sort(entries.begin(), entries.end());
        const auto firstNew = std::ssize(waiting);
        for (const auto &[name, type] : entries)
            addEntry(descriptor, name, type, found, waiting);
        std::reverse(waiting.begin() + firstNew, waiting.end()); // the last one is visited first
        m_visitor.folder(std::move(found));
    }

    void addEntry(int folder, const QByteArray &name, unsigned char type, FoundFolder &found,
                  std::vector<QByteArray> &waiting)
    {
        const bool isMusic = isMusicName(name);
        if (type == DT_DIR) {
            addFolder(name, found, waiting);
            return;
        }
        if (!isMusic && (type == DT_REG || type == DT_FIFO || type == DT_SOCK)) {
            if (hasSuffix(name, companionSuffixes))
                found.companions.push_back(name);
            return;
        }
        struct stat status = {};
        if (fstatat(folder, name.constData(), &status, 0) != 0) {
            found.hasLinks |= type == DT_LNK && !isMusic;
            if (isMusic)
                addUnseen(folder, name, found);
            return;
        }
        if (S_ISDIR(status.st_mode)) {
            found.hasLinks |= type == DT_LNK;
            if (type == DT_LNK)
                m_links.push_back(found.path + '/' + name);
            else
                addFolder(name, found, waiting);
        } else if (isMusic) {
            FoundFile file{name, signatureOf(status), {}, {}, false};
            if (!S_ISREG(status.st_mode)) {
                file.failure = FailureKind::Unsupported;
                file.reason = QStringLiteral("It is not a regular file.");
            }
            found.music.push_back(std::move(file));
        } else if (S_ISREG(status.st_mode) && hasSuffix(name, companionSuffixes)) {
            found.companions.push_back(name);
        }
    }

    void passOver(const QByteArray &path, FileIdentity folder) const
    {
        if (m_visitor.passedOver)
            m_visitor.passedOver(path, folder);
    }

    static void addFolder(const QByteArray &name, FoundFolder &found, std::vector<QByteArray> &waiting)
    {
        if (isPassedOver(name))
            return;
        found.folders.push_back(name);
        waiting.push_back(found.path == "/" ? '/' + name : found.path + '/' + name);
    }

    void addUnseen(int folder, const QByteArray &name, FoundFolder &found)
    {
        const int error = errno;
        struct stat link = {};
        if (fstatat(folder, name.constData(), &link, AT_SYMLINK_NOFOLLOW) != 0) {
            if (errno != ENOENT && !found.isUncertain) { // else gone since the folder was read
                found.isUncertain = true;
                m_visitor.unreadable(found.path, errno);
            }
            return;
        }
        QString reason =
            QStringLiteral("It cannot be looked at: %1.").arg(QString::fromLocal8Bit(strerror(error)));
        if (error == ENOENT)
            reason = QStringLiteral("It is a link to a file that is not there.");
        else if (error == ELOOP)
            reason = QStringLiteral("It is a link that leads back to itself.");
        found.music.push_back(
            {name, signatureOf(link),
             error == ENOENT || error == ELOOP ? FailureKind::NotFound : FailureKind::Unreadable, reason,
             false});
    }

    // A link to the home folder or to what holds the music folders would draw in everything else.
    [[nodiscard]] bool isWorthFollowing(const QByteArray &link) const
    {
        const QByteArray target = resolvedPath(link);
        if (target.isEmpty() || isWithin(resolvedPath(qgetenv("HOME")), target))
            return false;
        return std::none_of(m_roots.begin(), m_roots.end(), [&target](const QByteArray &root) {
            return isWithin(resolvedPath(root), target);
        });
    }

    const std::vector<QByteArray> &m_roots;
    const FolderWalk::Visitor &m_visitor;
    const std::stop_token &m_stop;
    std::map<std::pair<dev_t, ino_t>, QByteArray> m_visited; ///< and under which path
    std::vector<QByteArray> m_links;
};
} // namespace

bool FolderWalk::walk(const std::vector<QByteArray> &roots, const Visitor &visitor,
                      const std::stop_token &stop)
{
    return Walk(roots, visitor, stop).run();
}

bool FolderWalk::walkPart(const ScanPart &part, const Visitor &visitor, const std::stop_token &stop)
{
    const std::vector<QByteArray> none;
    return Walk(none, visitor, stop).run(part);
}

bool isOfInterest(QByteArrayView fileName)
{
    return hasMusicSuffix(fileName) || hasSuffix(fileName, companionSuffixes);
}

bool isMusicName(QByteArrayView fileName)
{
    return hasMusicSuffix(fileName) && !fileName.startsWith("._"); // those hold what macOS adds to files
}

// "...And Justice" is a name, ".cache" is hidden.
bool isPassedOver(QByteArrayView folderName)
{
    const bool isHidden = folderName.startsWith('.') && !folderName.startsWith("..");
    return isHidden || std::any_of(passedOver.begin(), passedOver.end(), [folderName](const char *name) {
               return folderName == QByteArrayView(name);
           });
}

} // namespace trackwise
