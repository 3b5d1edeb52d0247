// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "device/library/scan/ScanPart.h"
#include "device/library/store/SongStore.h"

#include <span>
#include <string>
#include <unordered_map>
#include <vector>

namespace trackwise {

/// What the library knows of the files before a scan, held so that a look-up costs no query: some hundred
/// bytes a file.
class KnownFiles
{
public:
    struct Entry
    {
        StatSignature signature;
        std::int64_t sidecar = 0;
        SongRowID song{};
        std::uint32_t folder = 0; ///< place in folders()
        std::uint32_t nameBegin = 0;
        std::uint16_t nameLength = 0;
        Availability availability = Availability::Available;
        bool isWorthRetrying = false;
        bool isSeen = false;

        [[nodiscard]] bool isProblem() const { return song == SongRowID{}; }
    };

    [[nodiscard]] static Result<KnownFiles> load(const SongStore &store, const ScanPart &part);

    [[nodiscard]] const std::vector<KnownFolder> &folders() const { return m_folders; }
    [[nodiscard]] const KnownFolder *folder(const QByteArray &path) const;
    /// The entries under this name: at most a song and a problem.
    [[nodiscard]] std::span<Entry> find(const KnownFolder *folder, QByteArrayView name);
    [[nodiscard]] const std::vector<Entry> &entries() const { return m_entries; }
    [[nodiscard]] QByteArrayView name(const Entry &entry) const;
    [[nodiscard]] SongPlace place(const Entry &entry) const;

private:
    void sort();

    std::vector<KnownFolder> m_folders;
    std::unordered_map<QByteArray, std::size_t, size_t (*)(const QByteArray &)> m_folderByPath{
        0, [](const QByteArray &path) -> size_t { return qHash(path); }};
    std::vector<Entry> m_entries;          ///< by folder, then by name
    std::vector<std::size_t> m_firstEntry; ///< of each folder; one more at the end
    std::string m_names;
};

} // namespace trackwise
