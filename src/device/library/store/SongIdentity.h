// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "device/library/store/SongRecord.h"
#include "device/library/store/Sqlite.h"

#include <functional>
#include <optional>
#include <vector>

namespace trackwise {

/// Number of a song's row: its place in the library's order. Not the identity that the program shows.
enum class SongRowID : std::int64_t {};

/// Decides which song of the library a file is. Identities follow the sound: a file that was moved, renamed,
/// retagged or rewritten stays the song it was, and a copy is a song of its own. Worker threads only, since
/// it may have to look at other files.
class SongIdentity
{
public:
    explicit SongIdentity(const sqlite::Connection &connection);

    /// The song that @p scanned is; nothing: one that the library has not seen.
    [[nodiscard]] std::optional<SongRowID> songOf(const ScannedSong &scanned, std::int64_t folderID);
    /// The song whose file is at this place according to the library.
    [[nodiscard]] std::optional<SongRowID> occupant(std::int64_t folderID, const QByteArray &name);

    using TagReading = std::function<Result<SongTags>(const QByteArray &path)>;
    /// How other files are read; readTags() unless somebody has to know of it.
    void setReading(TagReading read) { m_read = std::move(read); }

private:
    struct Candidate
    {
        SongRowID song{};
        QByteArray path;
        StatSignature signature;
        std::uint64_t audioHash = 0;
        Availability availability = Availability::Available;
    };

    [[nodiscard]] static std::vector<Candidate> candidates(sqlite::Statement &statement, int most);
    [[nodiscard]] std::vector<Candidate> withIdentity(FileIdentity identity);
    [[nodiscard]] std::vector<Candidate> withHash(std::uint64_t audioHash);
    [[nodiscard]] std::vector<Candidate> withHashAndName(std::uint64_t audioHash, const QByteArray &name);
    [[nodiscard]] std::vector<Candidate> atPath(std::int64_t folderID, const QByteArray &name);
    [[nodiscard]] bool hasSameNames(SongRowID song, const SongTags &tags);
    /// How many of the tags that tell the songs of an album apart are alike.
    [[nodiscard]] int sharedTags(SongRowID song, const SongTags &tags);
    /// Of songs with one sound those whose file has left its place, and whose path ends as @p path for
    /// longest.
    [[nodiscard]] std::vector<Candidate> closestThatLeft(std::vector<Candidate> twins,
                                                         const QByteArray &path) const;
    /// The song with this sound whose file has left its place, if it is clear which.
    [[nodiscard]] std::optional<SongRowID> vanishedTwin(const ScannedSong &scanned);

    [[nodiscard]] bool holdsSound(const QByteArray &path, std::uint64_t audioHash) const;
    [[nodiscard]] bool hasLeft(const Candidate &candidate) const;

    TagReading m_read;
    sqlite::Statement m_withIdentity;
    sqlite::Statement m_withHash;
    sqlite::Statement m_withHashAndName;
    sqlite::Statement m_atPath;
    sqlite::Statement m_tags;
};

} // namespace trackwise
