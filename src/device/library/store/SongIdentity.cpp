// SPDX-License-Identifier: GPL-3.0-or-later
#include "device/library/store/SongIdentity.h"

#include "device/library/store/FileSignature.h"
#include "device/library/store/TextFolding.h"

#include <algorithm>
#include <functional>
#include <utility>

namespace trackwise {

namespace {
std::string candidatesWhere(const char *condition)
{
    return std::string("SELECT files.song, folders.path, files.name, files.device, files.inode, files.size,"
                       " files.modified, files.changed, files.audio_hash, files.availability"
                       " FROM files JOIN folders ON folders.id = files.folder WHERE ") +
           condition + " LIMIT ?";
}

// Bound what thousands of copies of one recording cost. Of those with other names, so many say nothing about
// which of them was moved; to look at a file costs more than to compare its path.
constexpr int mostNamesakes = 1000;
constexpr int mostCandidates = 16;
constexpr int mostLooks = 32;

/// Whether @p gone is not there while @p present is: when both are away, so may be their disk, for now.
bool isMissingBeside(const QByteArray &gone, const QByteArray &present)
{
    return signatureAt(present) && !signatureAt(gone);
}

/// How many names, from the file's own upwards, two absolute paths have in common.
std::ptrdiff_t commonTail(const QByteArray &a, const QByteArray &b)
{
    const auto differ = std::mismatch(a.rbegin(), a.rend(), b.rbegin(), b.rend());
    return std::count(a.rbegin(), differ.first, '/');
}

QString foldedText(const std::optional<QString> &text)
{
    return folded(text.value_or(QString()));
}
} // namespace

SongIdentity::SongIdentity(const sqlite::Connection &connection)
    : m_withIdentity(connection.prepare(candidatesWhere("inode = ? AND device = ?")))
    , m_withHash(connection.prepare(candidatesWhere("audio_hash = ?")))
    , m_withHashAndName(connection.prepare(candidatesWhere("audio_hash = ? AND name = ?")))
    // Of songs that were here one after the other, the present one goes first, then the latest.
    , m_atPath(connection.prepare(
          candidatesWhere("folder = ? AND name = ? ORDER BY files.availability, files.song DESC")))
    , m_tags(connection.prepare(
          "SELECT title, artist, album_title, track_number, disc_number FROM songs WHERE id = ?"))
{}

bool SongIdentity::holdsSound(const QByteArray &path, std::uint64_t audioHash)
{
    const auto heard = m_heard.find(path);
    if (heard != m_heard.end())
        return heard->second == audioHash;
    m_unheard.insert(path);
    return true;
}

/// Whether the sound that the candidate had is no longer where the library says.
bool SongIdentity::hasLeft(const Candidate &candidate)
{
    if (candidate.availability != Availability::Available)
        return candidate.availability == Availability::FileGone;
    const auto now = signatureAt(candidate.path);
    if (!now)
        return true;
    return *now != candidate.signature && !holdsSound(candidate.path, candidate.audioHash);
}

std::vector<SongIdentity::Candidate> SongIdentity::candidates(sqlite::Statement &statement, int most)
{
    statement.bind(std::int64_t{most});
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
    return candidates(m_withIdentity, mostCandidates);
}

std::vector<SongIdentity::Candidate> SongIdentity::withHash(std::uint64_t audioHash)
{
    m_withHash.bind(static_cast<std::int64_t>(audioHash));
    return candidates(m_withHash, mostCandidates);
}

std::vector<SongIdentity::Candidate> SongIdentity::withHashAndName(std::uint64_t audioHash,
                                                                   const QByteArray &name)
{
    m_withHashAndName.bind(static_cast<std::int64_t>(audioHash)).bindBytes(name);
    return candidates(m_withHashAndName, mostNamesakes);
}

std::vector<SongIdentity::Candidate> SongIdentity::atPath(std::int64_t folderID, const QByteArray &name)
{
    m_atPath.bind(folderID).bindBytes(name);
    return candidates(m_atPath, mostCandidates);
}

bool SongIdentity::hasSameNames(SongRowID song, const SongTags &tags)
{
    m_tags.bind(static_cast<std::int64_t>(song));
    const bool isSame = m_tags.step() && !m_tags.isNull(0) && tags.title &&
                        folded(m_tags.text(0)) == folded(*tags.title) &&
                        foldedText(m_tags.optionalText(1)) == foldedText(tags.displayArtist());
    m_tags.reset();
    return isSame;
}

int SongIdentity::sharedTags(SongRowID song, const SongTags &tags)
{
    m_tags.bind(static_cast<std::int64_t>(song));
    int shared = 0;
    if (m_tags.step())
        shared = (m_tags.optionalText(0) == tags.title) + (m_tags.optionalText(1) == tags.displayArtist()) +
                 (m_tags.optionalText(2) == tags.albumTitle) +
                 (m_tags.integer(3) == tags.trackNumber.value_or(0)) +
                 (m_tags.integer(4) == tags.discNumber.value_or(0));
    m_tags.reset();
    return shared;
}

std::vector<SongIdentity::Candidate> SongIdentity::closestThatLeft(std::vector<Candidate> twins,
                                                                   const QByteArray &path)
{
    std::vector<std::pair<std::ptrdiff_t, Candidate>> ranked;
    ranked.reserve(twins.size());
    for (Candidate &twin : twins) {
        const auto tail = commonTail(twin.path, path);
        ranked.emplace_back(tail, std::move(twin));
    }
    std::stable_sort(ranked.begin(), ranked.end(),
                     [](const auto &a, const auto &b) { return a.first > b.first; });
    ranked.resize(std::min<std::size_t>(ranked.size(), mostLooks));

    std::vector<Candidate> left;
    std::ptrdiff_t closest = 0;
    for (auto &[tail, twin] : ranked) {
        if (!left.empty() && tail < closest)
            break;
        const bool mayBeAway = twin.availability == Availability::Available && !signatureAt(twin.path) &&
                               !isMissingBeside(twin.path, path);
        if (mayBeAway || !hasLeft(twin))
            continue;
        closest = tail;
        left.push_back(std::move(twin));
    }
    return left;
}

// A library that moves to another disk takes its copies of one recording along: each is the one that had its
// name, in the folder of that name, and so on upwards; among equals, the one with its tags.
std::optional<SongRowID> SongIdentity::vanishedTwin(const ScannedSong &scanned)
{
    const QByteArray path = scanned.file.path();
    const std::uint64_t hash = scanned.tags.audioHash;
    std::vector<Candidate> twins = closestThatLeft(withHashAndName(hash, scanned.file.name), path);
    if (twins.empty())
        twins = closestThatLeft(withHash(hash), path);
    if (twins.empty())
        return std::nullopt;
    using Likeness = std::pair<int, bool>;
    std::vector<std::pair<Likeness, SongRowID>> ranked;
    ranked.reserve(twins.size());
    for (const Candidate &twin : twins)
        ranked.push_back(
            {{sharedTags(twin.song, scanned.tags), twin.availability == Availability::Available}, twin.song});
    std::sort(ranked.begin(), ranked.end(), std::greater());
    const bool isClear = ranked.size() == 1 || ranked[0].first > ranked[1].first;
    return isClear ? std::optional(ranked.front().second) : std::nullopt;
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
        if (!there && !isMissingBeside(candidate.path, path))
            continue;
        if (!there || (there->identity != scanned.signature.identity && !holdsSound(candidate.path, hash)))
            return candidate.song;
    }

    const std::vector<Candidate> here = atPath(folderID, scanned.file.name);
    const auto sameSound = std::find_if(here.begin(), here.end(), sounds);
    if (sameSound != here.end())
        return sameSound->song;

    if (hash != 0) {
        if (const auto twin = vanishedTwin(scanned))
            return twin;
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
