// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/linux/library/store/SongIdentity.h"

#include "platform/linux/library/store/FileSignature.h"
#include "platform/linux/library/store/TextFolding.h"
#include "platform/linux/library/tags/TagReader.h"

#include <algorithm>

namespace trackwise {

namespace {
std::string candidatesWhere(const char *condition)
{
    return std::string("SELECT files.song, folders.path, files.name, files.device, files.inode, files.size,"
                       " files.modified, files.changed, files.audio_hash, files.availability"
                       " FROM files JOIN folders ON folders.id = files.folder WHERE ") +
           condition + " LIMIT ?";
}

// Copies of one recording beyond this number say nothing about which of them was moved.
constexpr int mostCandidates = 16;

bool holdsSound(const QByteArray &path, std::uint64_t audioHash)
{
    const Result<SongTags> tags = readTags(path);
    return tags && tags->audioHash == audioHash;
}

/// Whether the sound that the candidate had is no longer where the library says.
template <typename Candidate>
bool hasLeft(const Candidate &candidate)
{
    if (candidate.availability != Availability::Available)
        return candidate.availability == Availability::FileGone;
    const auto now = signatureAt(candidate.path);
    if (!now)
        return true;
    return *now != candidate.signature && !holdsSound(candidate.path, candidate.audioHash);
}
} // namespace

SongIdentity::SongIdentity(const sqlite::Connection &connection)
    : m_withIdentity(connection.prepare(candidatesWhere("inode = ? AND device = ?")))
    , m_withHash(connection.prepare(candidatesWhere("audio_hash = ?")))
    // Of songs that were here one after the other, the present one goes first, then the latest.
    , m_atPath(connection.prepare(
          candidatesWhere("folder = ? AND name = ? ORDER BY files.availability, files.song DESC")))
    , m_names(connection.prepare("SELECT title, artist FROM songs WHERE id = ?"))
{}

std::vector<SongIdentity::Candidate> SongIdentity::candidates(sqlite::Statement &statement)
{
    statement.bind(std::int64_t{mostCandidates});
    std::vector<Candidate> found;
    while (statement.step()) {
        Candidate &candidate = found.emplace_back();
        candidate.song = SongRowID{statement.integer(0)};
        candidate.path = statement.bytes(1) + '/' + statement.bytes(2);
        candidate.signature = {{static_cast<std::uint64_t>(statement.integer(3)),
                                static_cast<std::uint64_t>(statement.integer(4))},
                               statement.integer(5),
                               statement.integer(6),
                               statement.integer(7)};
        candidate.audioHash = static_cast<std::uint64_t>(statement.integer(8));
        candidate.availability = static_cast<Availability>(statement.integer(9));
    }
    statement.reset();
    return found;
}

std::vector<SongIdentity::Candidate> SongIdentity::withIdentity(FileIdentity identity)
{
    m_withIdentity.bind(static_cast<std::int64_t>(identity.inode))
        .bind(static_cast<std::int64_t>(identity.device));
    return candidates(m_withIdentity);
}

std::vector<SongIdentity::Candidate> SongIdentity::withHash(std::uint64_t audioHash)
{
    m_withHash.bind(static_cast<std::int64_t>(audioHash));
    return candidates(m_withHash);
}

std::vector<SongIdentity::Candidate> SongIdentity::atPath(std::int64_t folderID, const QByteArray &name)
{
    m_atPath.bind(folderID).bindBytes(name);
    return candidates(m_atPath);
}

bool SongIdentity::hasSameNames(SongRowID song, const SongTags &tags)
{
    m_names.bind(static_cast<std::int64_t>(song));
    std::optional<QString> title;
    std::optional<QString> artist;
    if (m_names.step()) {
        title = m_names.optionalText(0);
        artist = m_names.optionalText(1);
    }
    m_names.reset();
    const auto same = [](const std::optional<QString> &a, const std::optional<QString> &b) {
        return folded(a.value_or(QString())) == folded(b.value_or(QString()));
    };
    return title && tags.title && same(title, tags.title) && same(artist, tags.displayArtist());
}

std::optional<SongRowID> SongIdentity::songOf(const ScannedSong &scanned, std::int64_t folderID)
{
    const std::uint64_t hash = scanned.tags.audioHash;
    const QByteArray path = scanned.file.path();
    const auto sounds = [hash](const Candidate &candidate) {
        return hash != 0 && candidate.audioHash == hash;
    };

    // The same file under another name. A second name of a file that also kept its first one is a song of
    // its own, and so is the old file when a new one with the same sound has taken its place.
    for (const Candidate &candidate : withIdentity(scanned.signature.identity)) {
        if (!sounds(candidate) || candidate.path == path)
            continue;
        const auto there = signatureAt(candidate.path);
        if (!there || (there->identity != scanned.signature.identity && !holdsSound(candidate.path, hash)))
            return candidate.song;
    }

    const std::vector<Candidate> here = atPath(folderID, scanned.file.name);
    const auto sameSound = std::find_if(here.begin(), here.end(), sounds);
    if (sameSound != here.end())
        return sameSound->song;

    if (hash != 0) {
        std::vector<Candidate> vanished = withHash(hash);
        std::erase_if(vanished, [](const Candidate &candidate) { return !hasLeft(candidate); });
        if (vanished.size() == 1)
            return vanished.front().song;
    }

    // Another sound in the same place: a better copy of the song, if it says so itself.
    for (const Candidate &candidate : here) {
        if (hasSameNames(candidate.song, scanned.tags))
            return candidate.song;
        if (candidate.availability != Availability::FileGone)
            break;
    }
    return std::nullopt;
}

std::optional<SongRowID> SongIdentity::occupant(std::int64_t folderID, const QByteArray &name)
{
    const std::vector<Candidate> here = atPath(folderID, name);
    if (here.empty() || here.front().availability == Availability::FileGone)
        return std::nullopt;
    return here.front().song;
}

} // namespace trackwise
