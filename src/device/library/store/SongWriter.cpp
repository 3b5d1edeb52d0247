// SPDX-License-Identifier: GPL-3.0-or-later
#include "device/library/store/SongWriter.h"

#include "device/library/store/SongColumns.h"
#include "device/library/store/TextFolding.h"
#include "device/library/tags/FieldNames.h"

namespace trackwise {

namespace {
using sqlite::Statement;

// What the library makes of a song's tags, behind songColumns(), in the order of SongWriter::bindTags().
constexpr const char *madeColumns =
    "artwork_key, artist_id, album_id, sort_text, sort_key, section, title_key, artist_key, album_key";
constexpr std::size_t madeColumnCount = 9;

std::string tagColumns()
{
    std::string names;
    for (const SongColumn &column : songColumns())
        names.append(column.name).append(", ");
    return names + madeColumns;
}

std::string placeholders(std::size_t further)
{
    std::string marks = "?";
    for (std::size_t i = 1; i < songColumns().size() + madeColumnCount + further; ++i)
        marks += ", ?";
    return marks;
}

std::string insertSong()
{
    return "INSERT INTO songs (" + tagColumns() + ", persistent_id, date_added) VALUES (" + placeholders(2) +
           ")";
}

std::string updateSong()
{
    return "UPDATE songs SET (" + tagColumns() + ") = (" + placeholders(0) + ") WHERE id = ?";
}

std::uint64_t seed()
{
    std::random_device device;
    return (std::uint64_t{device()} << 32) ^ device();
}

/// What lists show for a song: its title, else the name of its file without the suffix.
QString shownTitle(const ScannedSong &scanned)
{
    return scanned.tags.title ? *scanned.tags.title : titleOfFile(scanned.file.name);
}

SearchTexts searchTextsOf(const ScannedSong &scanned)
{
    const SongTags &tags = scanned.tags;
    return searchTexts({shownTitle(scanned), tags.displayArtist().value_or(QString()), tags.artists,
                        tags.albumTitle.value_or(QString()), tags.albumArtist.value_or(QString()),
                        tags.composer.value_or(QString())});
}

std::optional<std::int64_t> keyOf(const std::optional<QString> &text)
{
    return text ? std::optional(caselessKey(*text)) : std::nullopt;
}
} // namespace

struct SongWriter::Statements
{
    explicit Statements(const sqlite::Connection &c)
        : insert(c.prepare(insertSong()))
        , update(c.prepare(updateSong()))
        , persistentID(c.prepare("SELECT 1 FROM songs WHERE persistent_id = ?1"
                                 " UNION ALL SELECT 1 FROM retired_ids WHERE persistent_id = ?1"))
        , writeFile(
              c.prepare("INSERT OR REPLACE INTO files (song, folder, name, device, inode, size, modified,"
                        " changed, audio_hash, sidecar, reader, availability)"
                        " VALUES (?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, 0)"))
        , writeLongTexts(c.prepare("INSERT OR REPLACE INTO long_texts VALUES (?, ?, ?)"))
        , removeLongTexts(c.prepare("DELETE FROM long_texts WHERE song = ?"))
        , availability(c.prepare("UPDATE files SET availability = ? WHERE song = ?"))
        , place(c.prepare("SELECT 1 FROM files WHERE song = ? AND folder = ? AND name = ?"))
        , findFolder(c.prepare("SELECT id FROM folders WHERE path = ?"))
        , addFolder(c.prepare("INSERT INTO folders (path) VALUES (?)"))
        , findArtist(c.prepare("SELECT id, sort_text FROM artists WHERE folded = ?"))
        , addArtist(c.prepare("INSERT INTO artists (folded, name, sort_text, sort_key, section)"
                              " VALUES (?, ?, ?, ?, ?)"))
        , sortArtist(c.prepare("UPDATE artists SET sort_text = ?, sort_key = ?, section = ? WHERE id = ?"))
        , findAlbum(c.prepare("SELECT id, sort_text FROM albums WHERE folded = ? AND folded_artist = ?"))
        , addAlbum(c.prepare("INSERT INTO albums (folded, folded_artist, title, artist, sort_text, sort_key,"
                             " section) VALUES (?, ?, ?, ?, ?, ?, ?)"))
        , sortAlbum(c.prepare("UPDATE albums SET sort_text = ?, sort_key = ?, section = ? WHERE id = ?"))
        , writeProblem(
              c.prepare("INSERT OR REPLACE INTO problems (folder, name, inode, size, modified, changed,"
                        " kind, reason, reader) VALUES (?, ?, ?, ?, ?, ?, ?, ?, ?)"))
        , forgetProblem(c.prepare("DELETE FROM problems WHERE folder = ? AND name = ?"))
    {}

    Statement insert, update, persistentID, writeFile, writeLongTexts, removeLongTexts, availability, place;
    Statement findFolder, addFolder, findArtist, addArtist, sortArtist, findAlbum, addAlbum, sortAlbum;
    Statement writeProblem, forgetProblem;
};

SongWriter::SongWriter(const sqlite::Connection &connection, const TextOrder &order)
    : m_connection(connection)
    , m_order(order)
    , m_identity(connection)
    , m_searchIndex(connection)
    , m_random(seed())
    , m_statements(std::make_unique<Statements>(connection))
{}

SongWriter::~SongWriter() = default;

std::int64_t SongWriter::folderID(const QByteArray &path)
{
    if (m_lastFolder.id != 0 && m_lastFolder.path == path)
        return m_lastFolder.id;
    Statement &find = m_statements->findFolder;
    find.bindBytes(path);
    const bool isKnown = find.step();
    std::int64_t id = isKnown ? find.integer(0) : 0;
    find.reset();
    if (!isKnown) {
        m_statements->addFolder.bindBytes(path).run();
        id = m_connection.lastInsertedRow();
    }
    m_lastFolder = {path, id};
    return id;
}

std::uint64_t SongWriter::newPersistentID()
{
    for (;;) {
        const std::uint64_t id = m_random();
        Statement &find = m_statements->persistentID;
        const bool isTaken = find.bind(static_cast<std::int64_t>(id)).step();
        find.reset();
        if (id != 0 && !isTaken)
            return id;
    }
}

/// The row that @p find finds. One that was added without a name to sort by gets it from the first song that
/// has one.
std::optional<std::int64_t> SongWriter::knownGroup(Statement &find, Statement &sort,
                                                   const std::optional<QString> &sortName)
{
    std::optional<std::int64_t> id;
    bool hasSortName = false;
    if (find.step()) {
        id = find.integer(0);
        hasSortName = !find.isNull(1);
    }
    find.reset();
    if (id && sortName && !hasSortName)
        sort.bind(*sortName)
            .bindBytes(m_order.sortKey(*sortName))
            .bind(m_order.section(*sortName))
            .bind(*id)
            .run();
    return id;
}

std::int64_t SongWriter::artistID(const SongTags &tags)
{
    const QString name = tags.albumArtist ? *tags.albumArtist : tags.displayArtist().value_or(QString());
    const std::optional<QString> &sortName = tags.albumArtist ? tags.albumArtistSort : tags.artistSort;
    const QString key = folded(name);
    Statement &find = m_statements->findArtist.bind(key);
    if (const auto known = knownGroup(find, m_statements->sortArtist, sortName))
        return *known;
    const QString sorted = sortName.value_or(name);
    m_statements->addArtist.bind(key)
        .bind(name)
        .bind(sortName)
        .bindBytes(m_order.sortKey(sorted))
        .bind(m_order.section(sorted))
        .run();
    return m_connection.lastInsertedRow();
}

std::optional<std::int64_t> SongWriter::albumID(const SongTags &tags)
{
    if (!tags.albumTitle)
        return std::nullopt;
    // The songs of a compilation without an album artist are by different artists, and one album all the
    // same.
    const bool isMixed = !tags.albumArtist && tags.isCompilation;
    const QString artist = isMixed            ? QString()
                           : tags.albumArtist ? *tags.albumArtist
                                              : tags.displayArtist().value_or(QString());
    const QString key = folded(*tags.albumTitle);
    const QString artistKey = folded(artist);
    Statement &find = m_statements->findAlbum.bind(key).bind(artistKey);
    if (const auto known = knownGroup(find, m_statements->sortAlbum, tags.albumSort))
        return known;
    const QString sorted = tags.albumSort.value_or(*tags.albumTitle);
    m_statements->addAlbum.bind(key)
        .bind(artistKey)
        .bind(*tags.albumTitle)
        .bind(artist)
        .bind(tags.albumSort)
        .bindBytes(m_order.sortKey(sorted))
        .bind(m_order.section(sorted))
        .run();
    return m_connection.lastInsertedRow();
}

void SongWriter::bindTags(Statement &statement, const ScannedSong &scanned)
{
    const SongTags &tags = scanned.tags;
    for (const SongColumn &column : songColumns())
        column.bind(statement, tags);
    if (tags.artwork.place == ArtworkSummary::Place::Embedded)
        statement.bindText({tags.artwork.key.constData(), static_cast<std::size_t>(tags.artwork.key.size())});
    else
        statement.bind(nullptr);
    statement.bind(artistID(tags)).bind(albumID(tags));
    const QString sorted = tags.titleSort.value_or(shownTitle(scanned));
    statement.bind(tags.titleSort).bindBytes(m_order.sortKey(sorted)).bind(m_order.section(sorted));
    statement.bind(keyOf(tags.title)).bind(keyOf(tags.displayArtist())).bind(keyOf(tags.albumTitle));
}

void SongWriter::writeFile(SongRowID song, const ScannedSong &scanned, std::int64_t folder)
{
    m_statements->writeFile.bind(static_cast<std::int64_t>(song))
        .bind(folder)
        .bindBytes(scanned.file.name)
        .bind(static_cast<std::int64_t>(scanned.signature.identity.device))
        .bind(static_cast<std::int64_t>(scanned.signature.identity.inode))
        .bind(scanned.signature.size)
        .bind(scanned.signature.modified)
        .bind(scanned.signature.changed)
        .bind(static_cast<std::int64_t>(scanned.tags.audioHash))
        .bind(scanned.sidecar)
        .bind(std::int64_t{readerVersion})
        .run();
}

void SongWriter::writeLongTexts(SongRowID song, const SongTags &tags)
{
    if (tags.comments || tags.lyrics)
        m_statements->writeLongTexts.bind(static_cast<std::int64_t>(song))
            .bind(tags.comments)
            .bind(tags.lyrics)
            .run();
    else
        m_statements->removeLongTexts.bind(static_cast<std::int64_t>(song)).run();
}

SongRowID SongWriter::add(const ScannedSong &scanned, Instant now)
{
    Statement &insert = m_statements->insert;
    bindTags(insert, scanned);
    insert.bind(static_cast<std::int64_t>(newPersistentID()))
        .bind(std::int64_t{now.time_since_epoch().count()})
        .run();
    return SongRowID{m_connection.lastInsertedRow()};
}

bool SongWriter::write(const ScannedSong &scanned, Instant now)
{
    const std::int64_t folder = folderID(scanned.file.folder);
    const std::optional<SongRowID> known = m_identity.songOf(scanned, folder);
    if (!m_identity.unheard().empty())
        return false;
    const std::optional<SongRowID> occupant = m_identity.occupant(folder, scanned.file.name);
    if (occupant && occupant != known)
        setAvailability(*occupant, Availability::FileGone);

    forgetProblem(folder, scanned.file.name);

    const SearchTexts texts = searchTextsOf(scanned);
    if (!known) {
        const SongRowID song = add(scanned, now);
        writeFile(song, scanned, folder);
        if (scanned.tags.comments || scanned.tags.lyrics)
            writeLongTexts(song, scanned.tags);
        m_searchIndex.add(song, texts);
        return true;
    }
    Statement &update = m_statements->update;
    bindTags(update, scanned);
    update.bind(static_cast<std::int64_t>(*known)).run();
    setAvailability(*known, Availability::Available);
    writeFile(*known, scanned, folder);
    writeLongTexts(*known, scanned.tags);
    m_searchIndex.replace(*known, texts);
    return true;
}

bool SongWriter::isAt(SongRowID song, std::int64_t folderID, const QByteArray &name)
{
    Statement &find = m_statements->place;
    find.bind(static_cast<std::int64_t>(song)).bind(folderID).bindBytes(name);
    const bool isThere = find.step();
    find.reset();
    return isThere;
}

void SongWriter::setAvailability(SongRowID song, Availability availability)
{
    m_statements->availability.bind(static_cast<std::int64_t>(availability))
        .bind(static_cast<std::int64_t>(song))
        .run();
    if (availability == Availability::FileGone)
        m_searchIndex.remove(song); // lists do not hold it any more
}

void SongWriter::writeProblem(const ScanProblem &problem)
{
    const std::int64_t folder = folderID(problem.file.folder);
    // The song that was here keeps all it has until its sound turns up again.
    if (const auto occupant = m_identity.occupant(folder, problem.file.name)) {
        // A permission, a disk error, or a link to what may be on an absent disk.
        const bool mayPass = problem.kind == FailureKind::Unreadable || problem.kind == FailureKind::NotFound;
        setAvailability(*occupant, mayPass ? Availability::DiskAbsent : Availability::FileGone);
    }
    m_statements->writeProblem.bind(folder)
        .bindBytes(problem.file.name)
        .bind(static_cast<std::int64_t>(problem.signature.identity.inode))
        .bind(problem.signature.size)
        .bind(problem.signature.modified)
        .bind(problem.signature.changed)
        .bind(static_cast<std::int64_t>(problem.kind))
        .bind(problem.reason)
        .bind(std::int64_t{readerVersion})
        .run();
}

void SongWriter::forgetProblem(std::int64_t folderID, const QByteArray &name)
{
    m_statements->forgetProblem.bind(folderID).bindBytes(name).run();
}

} // namespace trackwise
