// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/linux/library/scan/FileChanges.h"

#include "platform/linux/library/store/FileSignature.h"

#include <linux/magic.h>
#include <sys/vfs.h>

#include <algorithm>
#include <array>

namespace trackwise {

namespace {
// Not in every version of the system's header.
constexpr long exfatMagic = 0x2011bab0;
constexpr long fuseMagic = 0x65735546;
constexpr long cifsMagic = 0xff534d42;
constexpr long smb2Magic = 0xfe534d42;

constexpr std::int64_t second = 1'000'000'000;
constexpr std::int64_t coarseStep = 2 * second; ///< FAT keeps even seconds
constexpr std::int64_t hour = 3600 * second;    ///< and local time, which moves with the clocks

bool isWithin(const QByteArray &path, const QByteArray &folder)
{
    return path == folder || path.startsWith(folder.endsWith('/') ? folder : folder + '/');
}

bool isWithinAny(const QByteArray &path, const std::vector<QByteArray> &folders)
{
    return std::any_of(folders.begin(), folders.end(),
                       [&path](const QByteArray &folder) { return isWithin(path, folder); });
}

bool isSameCoarseTime(std::int64_t a, std::int64_t b)
{
    const std::int64_t difference = std::abs(a - b);
    return difference <= coarseStep || std::abs(difference - hour) <= coarseStep;
}

std::int64_t modifiedAt(const QByteArray &path)
{
    const auto file = signatureAt(path);
    return file ? file->modified : 0;
}
} // namespace

bool FileChanges::hasStableInodes(std::uint64_t device, const QByteArray &folder)
{
    const auto known = m_stableInodes.find(device);
    if (known != m_stableInodes.end())
        return known->second;
    struct statfs status = {};
    constexpr std::array unstable{
        static_cast<long>(MSDOS_SUPER_MAGIC), exfatMagic, fuseMagic, cifsMagic, smb2Magic,
        static_cast<long>(SMB_SUPER_MAGIC)};
    const bool isStable =
        statfs(folder.constData(), &status) != 0 ||
        std::find(unstable.begin(), unstable.end(), static_cast<long>(status.f_type)) == unstable.end();
    m_stableInodes.emplace(device, isStable);
    return isStable;
}

bool FileChanges::isAsKnown(const FoundFile &file, const KnownFiles::Entry &entry) const
{
    const StatSignature &now = file.signature;
    const StatSignature &then = entry.signature;
    if (entry.isWorthRetrying || m_scope == ScanScope::Everything || now.size != then.size)
        return false;
    return m_stableInodes.at(now.identity.device)
               ? now.identity.inode == then.identity.inode && now.modified == then.modified &&
                     now.changed == then.changed
               : isSameCoarseTime(now.modified, then.modified);
}

bool FileChanges::isUnchanged(const FoundFile &file, std::int64_t sidecar, std::span<KnownFiles::Entry> known)
{
    bool isSame = false;
    for (KnownFiles::Entry &entry : known) {
        entry.isSeen = true;
        if (!entry.isProblem())
            m_presentDevices.insert(entry.signature.identity.device);
        if (!isAsKnown(file, entry))
            continue;
        // A file that has failed since it was a song is decided by its failure.
        if (entry.isProblem())
            return true;
        if (entry.sidecar != sidecar)
            continue;
        isSame = true;
        if (entry.availability != Availability::Available && known.size() == 1)
            m_returned.push_back(m_known.place(entry));
    }
    return isSame;
}

std::int64_t FileChanges::sidecarOf(const QByteArray &name, const FolderListing &companions,
                                    std::uint64_t device) const
{
    const auto path = companions.lyricsFile(name);
    auto file = path ? signatureAt(*path) : std::nullopt;
    if (!file)
        return 0;
    if (!m_stableInodes.at(device))
        file->changed = 0;
    return sidecarSignature(QByteArrayView(*path).sliced(path->lastIndexOf('/') + 1), *file);
}

void FileChanges::take(FoundFolder folder)
{
    m_monitor.noteFound(std::ssize(folder.music));
    m_monitor.noteFolder(folder.path);
    m_presentDevices.insert(folder.device);
    if (folder.music.empty())
        return;
    const KnownFolder *known = m_known.folder(folder.path);
    const auto companions = std::make_shared<const FolderListing>(folder.path, folder.companions);
    bool hasChanges = false;
    qsizetype unchanged = 0;
    for (FoundFile &file : folder.music) {
        const std::uint64_t device = file.signature.identity.device;
        (void)hasStableInodes(device, folder.path);
        const std::int64_t sidecar = sidecarOf(file.name, *companions, device);
        if (isUnchanged(file, sidecar, m_known.find(known, file.name))) {
            ++unchanged;
            continue;
        }
        hasChanges = true;
        FileName name{folder.path, std::move(file.name)};
        if (file.failure) {
            m_needs.problem({std::move(name), file.signature, *file.failure, file.reason});
            continue;
        }
        if (!m_needs.file({std::move(name), file.signature, sidecar, companions}))
            return;
    }
    m_monitor.noteHandled(unchanged);
    takeImage(folder.path, known, hasChanges, companions);
}

void FileChanges::takeImage(const QByteArray &folder, const KnownFolder *known, bool hasChanges,
                            const std::shared_ptr<const FolderListing> &companions)
{
    const bool wasThere = known && !known->imageName.isEmpty();
    const std::optional<QByteArray> image = companions->imageFile();
    if (!image) {
        if (wasThere)
            (void)m_needs.image({{folder, {}, 0, {}}, nullptr});
        return;
    }
    const QByteArray name = image->mid(image->lastIndexOf('/') + 1);
    const std::int64_t modified = modifiedAt(*image);
    const bool isSame = wasThere && known->imageName == name && known->imageModified == modified;
    if (hasChanges || !isSame)
        (void)m_needs.image({{folder, name, modified, {}}, companions});
}

FileChanges::Missing FileChanges::missing(const std::vector<QByteArray> &roots) const
{
    Missing missing;
    for (const KnownFiles::Entry &entry : m_known.entries()) {
        const QByteArray &folder = m_known.folders()[entry.folder].path;
        if (entry.isSeen)
            continue;
        // What lies outside was found when another folder was a music folder too.
        const bool isOutside = !isWithinAny(folder, roots);
        const bool isUnknown = !isOutside && isWithinAny(folder, m_unreadable);
        if (entry.isProblem()) {
            if (!isUnknown)
                missing.problems.push_back(m_known.place(entry));
            continue;
        }
        // No file and no folder of its disk was seen: an empty mount point, not an emptied folder.
        const bool isDiskThere = m_presentDevices.contains(entry.signature.identity.device);
        const bool isGone = isOutside || (!isUnknown && isDiskThere);
        const Availability now = isGone ? Availability::FileGone : Availability::DiskAbsent;
        if (now != entry.availability)
            (now == Availability::FileGone ? missing.gone : missing.diskAbsent)
                .push_back(m_known.place(entry));
    }
    return missing;
}

} // namespace trackwise
