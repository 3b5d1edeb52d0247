// SPDX-License-Identifier: GPL-3.0-or-later
#include "device/library/scan/MusicDisks.h"

#include "device/library/scan/FolderWalk.h"
#include "device/library/store/FileSignature.h"

#include <QList>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
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

    enum class Sight { Nothing, Folder, File, Unclear };
    [[nodiscard]] Sight look(const char *name) const
    {
        struct stat status = {};
        if (fstatat(m_descriptor, name, &status, AT_SYMLINK_NOFOLLOW) != 0)
            return errno == ENOENT || errno == ENOTDIR ? Sight::Nothing : Sight::Unclear;
        struct stat target = {};
        if (S_ISLNK(status.st_mode) && fstatat(m_descriptor, name, &target, 0) == 0)
            status = target;
        return S_ISDIR(status.st_mode) ? Sight::Folder : Sight::File;
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

/// Whether its name, or that of a folder above it, keeps a walk from coming there.
bool isLeftOutByName(const QByteArray &pathInMusicFolder, bool isFolder)
{
    const QList<QByteArray> parts = pathInMusicFolder.split('/');
    const qsizetype folders = parts.size() - (isFolder ? 0 : 1);
    return std::any_of(parts.begin(), parts.begin() + folders,
                       [](const QByteArray &name) { return isPassedOver(name); }) ||
           (!isFolder && !isMusicName(parts.last()));
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

void MusicDisks::notePassedOver(const QByteArray &path, FileIdentity folder)
{
    m_passedOver.insert_or_assign(path, Place{path, folder.device, folder.inode});
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

const MusicDisks::Place *MusicDisks::passedOverAbove(const QByteArray &path, const Place &musicFolder) const
{
    for (QByteArray above = path; isWithin(above, musicFolder.path);
         above.truncate(std::max<qsizetype>(above.lastIndexOf('/'), 0))) {
        if (const auto place = m_passedOver.find(above); place != m_passedOver.end())
            return &place->second;
    }
    return nullptr;
}

std::vector<MusicDisks::Whereabouts> MusicDisks::lookFor(const std::vector<File> &files) const
{
    using Sight = HeldFolder::Sight;
    std::map<const Place *, HeldFolder> held;
    std::vector<Sight> seen;
    for (const File &file : files) {
        const Place *folder = musicFolderOf(file.path);
        seen.push_back(folder ? held.try_emplace(folder, folder->path)
                                    .first->second.look(relativeTo(folder->path, file.path))
                              : Sight::Unclear);
    }

    // Only now: had a disk gone away while its files were looked for, it is seen here.
    std::map<const Place *, bool> isThere;
    const auto isIntact = [&isThere](const Place *place) {
        const auto known = isThere.find(place);
        return known != isThere.end() ? known->second : isThere.emplace(place, isStill(*place)).first->second;
    };
    const auto whereabouts = [&](const File &file, Sight sight) {
        const Place *folder = musicFolderOf(file.path);
        if (sight == Sight::Unclear || !isIntact(folder))
            return Whereabouts::Unknown;
        if (sight == Sight::Nothing) {
            const auto disk = m_disks.find(file.disk);
            const bool isDiskThere = file.disk == 0 || (disk != m_disks.end() && isIntact(&disk->second));
            return isDiskThere ? Whereabouts::Gone : Whereabouts::Unknown;
        }
        const bool isFolder = sight == Sight::Folder;
        const Place *passedOver = passedOverAbove(file.path, *folder);
        const bool isLeftOut = (isFolder && !file.mayBeFolder) ||
                               isLeftOutByName(relativeTo(folder->path, file.path), isFolder) ||
                               (passedOver && isIntact(passedOver));
        return isLeftOut ? Whereabouts::Gone : Whereabouts::There;
    };
    std::vector<Whereabouts> found;
    for (std::size_t i = 0; i < files.size(); ++i)
        found.push_back(whereabouts(files[i], seen[i]));
    return found;
}

} // namespace trackwise
