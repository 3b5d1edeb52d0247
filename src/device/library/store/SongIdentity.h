// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "device/library/store/SongRecord.h"
#include "device/library/store/Sqlite.h"

#include <map>
#include <optional>
#include <set>
#include <vector>

namespace trackwise {

/// Number of a song's row: its place in the library's order. Not the identity that the program shows.
enum class SongRowID : std::int64_t {};

/// What files sound like now (SongTags::audioHash), by their paths; zero where it cannot be told.
using HeardSounds = std::map<QByteArray, std::uint64_t>;

/// Decides which song of the library a file is. Identities follow the sound: a file that was moved, renamed,
/// retagged or rewritten stays the song it was, and a copy is a song of its own. It asks the disk which files
/// are there, and opens none: where another file has to be listened to, somebody else does so. Worker threads
/// only.
class SongIdentity
{
public:
    explicit SongIdentity(const sqlite::Connection &connection);

    /// The song that @p scanned is; nothing: one that the library has not seen. With files in unheard() the
    /// answer may be another one once these are heard.
    [[nodiscard]] std::optional<SongRowID> songOf(const ScannedSong &scanned, std::int64_t folderID);
    /// The song whose file is at this place according to the library.
    [[nodiscard]] std::optional<SongRowID> occupant(std::int64_t folderID, const QByteArray &name);

    /// What songOf() knows of other files from now on; those it does not know are what they were.
    void setHeard(HeardSounds heard)
    {
        m_heard = std::move(heard);
        m_unheard.clear();
    }
    /// The files that songOf() would have listened to since then.
    [[nodiscard]] const std::set<QByteArray> &unheard() const { return m_unheard; }

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
                                                         const QByteArray &path);
    /// The song with this sound whose file has left its place, if it is clear which.
    [[nodiscard]] std::optional<SongRowID> vanishedTwin(const ScannedSong &scanned);

    [[nodiscard]] bool holdsSound(const QByteArray &path, std::uint64_t audioHash);
    [[nodiscard]] bool hasLeft(const Candidate &candidate);

    HeardSounds m_heard;
    std::set<QByteArray> m_unheard;
    sqlite::Statement m_withIdentity;
    sqlite::Statement m_withHash;
    sqlite::Statement m_withHashAndName;
    sqlite::Statement m_atPath;
    sqlite::Statement m_tags;
};

} // namespace trackwise
