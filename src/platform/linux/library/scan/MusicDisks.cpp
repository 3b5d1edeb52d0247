// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/linux/library/scan/MusicDisks.h"

#include "platform/linux/library/store/FileSignature.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>

namespace trackwise {

namespace {
/// A folder held by itself, wherever it is moved meanwhile.
class HeldFolder
{
public:
    explicit HeldFolder(const QByteArray &path)
        : m_descriptor(open(path.constData(), O_PATH | O_DIRECTORY | O_CLOEXEC))
    {}
    HeldFolder(HeldFolder &&other) noexcept
        : m_descriptor(std::exchange(other.m_descriptor, -1))
    {}
    HeldFolder &operator=(HeldFolder &&) = delete;
    ~HeldFolder()
    {
        if (m_descriptor >= 0)
            close(m_descriptor);
    }

    /// 0, or why there is nothing to be seen under this name.
    [[nodiscard]] int look(const char *name) const
    {
        struct stat status = {};
        return fstatat(m_descriptor, name, &status, AT_SYMLINK_NOFOLLOW) == 0 ? 0 : errno;
    }

private:
    int m_descriptor;
};

const char *relativeTo(const QByteArray &folder, const QByteArray &path)
{
    const char *rest = path.constData() + folder.size();
    while (*rest == '/')
        ++rest;
    return rest;
}
} // namespace

bool isWithin(const QByteArray &path, const QByteArray &folder)
{
    return path == folder || path.startsWith(folder.endsWith('/') ? folder : folder + '/');
}

MusicDisks::MusicDisks(const std::vector<QByteArray> &musicFolders)
{
    for (const QByteArray &path : musicFolders) {
        if (const auto folder = signatureAt(path))
            m_musicFolders.push_back({path, folder->identity.device, folder->identity.inode});
    }
}

void MusicDisks::noteSeen(std::uint64_t knownAs, const QByteArray &path, std::uint64_t device)
{
    m_disks.try_emplace(knownAs, Place{path, device, 0});
}

bool MusicDisks::isStill(const Place &place)
{
    const auto now = signatureAt(place.path);
    return now && now->identity.device == place.device &&
           (place.inode == 0 || now->identity.inode == place.inode);
}

const MusicDisks::Place *MusicDisks::musicFolderOf(const QByteArray &path) const
{
    const Place *innermost = nullptr;
    for (const Place &folder : m_musicFolders) {
        if (isWithin(path, folder.path) && (!innermost || folder.path.size() > innermost->path.size()))
            innermost = &folder;
    }
    return innermost;
}

std::vector<MusicDisks::Whereabouts> MusicDisks::lookFor(const std::vector<File> &files) const
{
    std::map<const Place *, HeldFolder> held;
    std::vector<Whereabouts> found;
    for (const File &file : files) {
        const Place *folder = musicFolderOf(file.path);
        int error = EIO;
        if (folder)
            error = held.try_emplace(folder, folder->path)
                        .first->second.look(relativeTo(folder->path, file.path));
        const bool isMissing = error == ENOENT || error == ENOTDIR;
        found.push_back(error == 0 ? Whereabouts::There
                                   : (isMissing ? Whereabouts::Gone : Whereabouts::Unknown));
    }

    // Only now: had a disk gone away while its files were looked for, it is seen here.
    std::map<const Place *, bool> isThere;
    const auto isIntact = [&isThere](const Place *place) {
        const auto known = isThere.find(place);
        return known != isThere.end() ? known->second : isThere.emplace(place, isStill(*place)).first->second;
    };
    for (std::size_t i = 0; i < files.size(); ++i) {
        if (found[i] != Whereabouts::Gone)
            continue;
        const auto disk = m_disks.find(files[i].disk);
        const bool isDiskThere = files[i].disk == 0 || (disk != m_disks.end() && isIntact(&disk->second));
        if (!isDiskThere || !isIntact(musicFolderOf(files[i].path)))
            found[i] = Whereabouts::Unknown;
    }
    return found;
}

} // namespace trackwise
