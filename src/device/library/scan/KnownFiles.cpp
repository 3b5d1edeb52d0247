// SPDX-License-Identifier: GPL-3.0-or-later
#include "device/library/scan/KnownFiles.h"

#include <algorithm>

namespace trackwise {

Result<KnownFiles> KnownFiles::load(const SongStore &store, const ScanPart &part)
{
    KnownFiles files;
    std::unordered_map<std::int64_t, std::uint32_t> folderByID;
    const auto takeFolder = [&](KnownFolder folder) {
        if (!part.contains(folder.path))
            return SongStore::FilesOfFolder::PassOver;
        folderByID.emplace(folder.id, static_cast<std::uint32_t>(files.m_folders.size()));
        files.m_folderByPath.emplace(folder.path, files.m_folders.size());
        files.m_folders.push_back(std::move(folder));
        return SongStore::FilesOfFolder::Visit;
    };
    const auto takeFile = [&](const KnownFile &file) {
        files.m_entries.push_back({file.signature, file.sidecar, file.song, folderByID.at(file.folder),
                                   static_cast<std::uint32_t>(files.m_names.size()),
                                   static_cast<std::uint16_t>(file.name.size()), file.availability,
                                   file.isWorthRetrying, false});
        files.m_names += file.name;
    };
    if (const Result<Done> visited = store.visitKnownFiles(takeFolder, takeFile); !visited)
        return visited.failure();
    files.sort();
    return files;
}

void KnownFiles::sort()
{
    // Into folders by counting, then each folder's few names by comparing.
    m_firstEntry.assign(m_folders.size() + 1, 0);
    for (const Entry &entry : m_entries)
        ++m_firstEntry[entry.folder + 1];
    for (std::size_t i = 1; i < m_firstEntry.size(); ++i)
        m_firstEntry[i] += m_firstEntry[i - 1];
    std::vector<std::size_t> next = m_firstEntry;
    std::vector<Entry> sorted(m_entries.size());
    for (const Entry &entry : m_entries)
        sorted[next[entry.folder]++] = entry;
    m_entries = std::move(sorted);
    const auto byName = [this](const Entry &a, const Entry &b) { return name(a) < name(b); };
    for (std::size_t folder = 0; folder < m_folders.size(); ++folder) {
        std::sort(m_entries.begin() + static_cast<std::ptrdiff_t>(m_firstEntry[folder]),
                  m_entries.begin() + static_cast<std::ptrdiff_t>(m_firstEntry[folder + 1]), byName);
    }
}

const KnownFolder *KnownFiles::folder(const QByteArray &path) const
{
    const auto found = m_folderByPath.find(path);
    return found == m_folderByPath.end() ? nullptr : &m_folders[found->second];
}

std::span<KnownFiles::Entry> KnownFiles::find(const KnownFolder *folder, QByteArrayView wanted)
{
    if (!folder)
        return {};
    const auto index = static_cast<std::size_t>(folder - m_folders.data());
    const std::span<Entry> all(m_entries.data() + m_firstEntry[index],
                               m_firstEntry[index + 1] - m_firstEntry[index]);
    const auto nameOf = [this](const Entry &entry) { return name(entry); };
    const auto first = std::ranges::lower_bound(all, wanted, {}, nameOf);
    return {first, std::ranges::upper_bound(first, all.end(), wanted, {}, nameOf)};
}

QByteArrayView KnownFiles::name(const Entry &entry) const
{
    return QByteArrayView(m_names).sliced(entry.nameBegin, entry.nameLength);
}

SongPlace KnownFiles::place(const Entry &entry) const
{
    return {entry.song, m_folders[entry.folder].id, name(entry).toByteArray()};
}

} // namespace trackwise
