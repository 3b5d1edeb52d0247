// SPDX-License-Identifier: GPL-3.0-or-later
#include "device/library/scan/FileChanges.h"

#include "device/library/store/FileSignature.h"

#include <linux/magic.h>
#include <sys/vfs.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstring>

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

void FileChanges::noteDisks(const FoundFolder &folder, const FoundFile &file,
                            std::span<KnownFiles::Entry> known)
{
    for (const KnownFiles::Entry &entry : known) {
        const std::uint64_t disk = entry.signature.identity.device;
        if (!entry.isProblem() && !m_disks.isSeen(disk))
            m_disks.noteSeen(disk, FileName{folder.path, file.name}.path(), file.signature.identity.device);
    }
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

std::vector<ScanTask> FileChanges::compare(FoundFolder folder)
{
    m_monitor.noteFound(std::ssize(folder.music));
    m_monitor.noteFolder(folder.path);
    m_disks.noteSeen(folder.device, folder.path, folder.device);
    if (!folder.isUncertain)
        noteReadable(folder.path);
    if (folder.music.empty())
        return {};
    const KnownFolder *known = m_known.folder(folder.path);
    const auto companions = std::make_shared<const FolderListing>(folder.path, folder.companions);
    std::vector<ScanTask> tasks;
    qsizetype unchanged = 0;
    for (FoundFile &file : folder.music) {
        const std::uint64_t device = file.signature.identity.device;
        (void)hasStableInodes(device, folder.path);
        const std::int64_t sidecar = sidecarOf(file.name, *companions, device);
        const std::span<KnownFiles::Entry> entries = m_known.find(known, file.name);
        noteDisks(folder, file, entries);
        if (isUnchanged(file, sidecar, entries) || file.isUnfinished) {
            ++unchanged;
            continue;
        }
        FileName name{folder.path, std::move(file.name)};
        if (file.failure)
            tasks.emplace_back(ScanProblem{std::move(name), file.signature, *file.failure, file.reason});
        else
            tasks.emplace_back(ReadFile{std::move(name), file.signature, sidecar, companions});
    }
    m_monitor.noteHandled(unchanged);
    if (auto image = compareImage(folder.path, known, !tasks.empty(), companions))
        tasks.emplace_back(*std::move(image));
    return tasks;
}

std::vector<ScanTask> FileChanges::compareUnreadable(const QByteArray &folder, int error)
{
    m_unreadable.push_back(folder);
    if (error == ENOENT)
        return {}; // a music folder that is not there: its disk is absent
    if (std::find(m_musicFolders.begin(), m_musicFolders.end(), folder) != m_musicFolders.end())
        m_unreadableRoots.push_back(folder);
    FileName name = FileName::ofPath(folder);
    for (KnownFiles::Entry &entry : m_known.find(m_known.folder(name.folder), name.name))
        entry.isSeen = true;
    m_monitor.noteFound(1);
    return {ScanProblem{
        std::move(name),
        {},
        FailureKind::Unreadable,
        QStringLiteral("The folder cannot be read: %1.").arg(QString::fromLocal8Bit(strerror(error)))}};
}

void FileChanges::noteReadable(const QByteArray &folder)
{
    const FileName name = FileName::ofPath(folder);
    for (KnownFiles::Entry &entry : m_known.find(m_known.folder(name.folder), name.name)) {
        if (entry.isProblem()) {
            entry.isSeen = true;
            m_readable.push_back(m_known.place(entry));
        }
    }
}

std::optional<ReadImage> FileChanges::compareImage(const QByteArray &folder, const KnownFolder *known,
                                                   bool hasChanges,
                                                   const std::shared_ptr<const FolderListing> &companions)
{
    const bool wasThere = known && !known->imageName.isEmpty();
    const std::optional<QByteArray> image = companions->imageFile();
    if (!image)
        return wasThere ? std::optional(ReadImage{{folder, {}, 0, {}}, nullptr}) : std::nullopt;
    const QByteArray name = image->mid(image->lastIndexOf('/') + 1);
    const auto file = signatureAt(*image);
    if (!file)
        return std::nullopt; // not there any more
    const std::int64_t modified = file->modified;
    const bool isSame = wasThere && known->imageName == name && known->imageModified == modified;
    return hasChanges || !isSame ? std::optional(ReadImage{{folder, name, modified, {}}, companions})
                                 : std::nullopt;
}

FileChanges::Missing FileChanges::missing() const
{
    Missing missing;
    missing.problems = m_readable;
    std::vector<const KnownFiles::Entry *> unseen;
    std::vector<MusicDisks::File> files;
    const auto mark = [&](const KnownFiles::Entry &entry, Availability now) {
        if (entry.isProblem())
            missing.problems.push_back(m_known.place(entry));
        else if (now != entry.availability)
            (now == Availability::FileGone ? missing.gone : missing.diskAbsent)
                .push_back(m_known.place(entry));
    };
    for (const KnownFiles::Entry &entry : m_known.entries()) {
        if (entry.isSeen)
            continue;
        const FileName name{m_known.folders()[entry.folder].path, m_known.name(entry).toByteArray()};
        if (!isWithinAny(name.folder, m_musicFolders)) {
            mark(entry, Availability::FileGone); // found when another folder was a music folder too
        } else if (isWithinAny(name.folder, m_unreadable)) {
            if (!entry.isProblem())
                mark(entry, Availability::DiskAbsent);
        } else {
            unseen.push_back(&entry);
            files.push_back(
                {name.path(), entry.isProblem() ? 0 : entry.signature.identity.device, entry.isProblem()});
        }
    }
    const std::vector<MusicDisks::Whereabouts> found = m_disks.lookFor(files);
    for (std::size_t i = 0; i < unseen.size(); ++i) {
        if (found[i] == MusicDisks::Whereabouts::Gone)
            mark(*unseen[i], Availability::FileGone);
        else if (found[i] == MusicDisks::Whereabouts::Unknown && !unseen[i]->isProblem())
            mark(*unseen[i], Availability::DiskAbsent);
        else if (found[i] == MusicDisks::Whereabouts::There && !unseen[i]->isProblem())
            missing.hasReturned = true;
    }
    return missing;
}

} // namespace trackwise
