// SPDX-License-Identifier: GPL-3.0-or-later
#include "device/library/store/Migrations.h"

#include <array>

namespace trackwise {

namespace {
constexpr int applicationID = 0x54575331; // "TWS1": tells our databases from others'

struct Migration
{
    int version;
    const char *sql;
};

// Released steps are never edited; a change is a further step.
//
// songs: one row a song, never deleted by a scan; the row number is the library's own order.
//   *_key are 64-bit hashes of the text without letter case; availability is 0 (the file is there),
//   1 (its disk or folder is not) or 2 (the file is gone), and follows that of the files table.
// songs.artwork_key is of the picture in the file itself; that of a picture beside the file is
// folders.image_key,
//   which is set only where the folder holds one album.
// songs.isrc is not filled any more.
// files: where each song's file is or was last; several songs that are gone may have had the same path.
// search_texts: folded texts of the songs that lists show; search_index is the full-text index over them and
//   reaches up to the song whose row number the setting 'indexed_up_to' holds.
constexpr std::array migrations{
    Migration{1, R"sql(
CREATE TABLE settings (
    name TEXT PRIMARY KEY,
    value NOT NULL
) WITHOUT ROWID;
INSERT INTO settings VALUES ('indexed_up_to', 0);

CREATE TABLE artists (
    id INTEGER PRIMARY KEY,
    folded TEXT NOT NULL UNIQUE,
    name TEXT NOT NULL,
    sort_key BLOB NOT NULL,
    section TEXT NOT NULL
);
CREATE TABLE albums (
    id INTEGER PRIMARY KEY,
    folded TEXT NOT NULL,
    folded_artist TEXT NOT NULL,
    title TEXT NOT NULL,
    artist TEXT NOT NULL,
    sort_key BLOB NOT NULL,
    section TEXT NOT NULL,
    UNIQUE (folded, folded_artist)
);

CREATE TABLE songs (
    id INTEGER PRIMARY KEY,
    persistent_id INTEGER NOT NULL UNIQUE,
    availability INTEGER NOT NULL DEFAULT 0,
    title TEXT,
    artist TEXT,
    album_title TEXT,
    album_artist TEXT,
    composer TEXT,
    genre TEXT,
    user_grouping TEXT,
    release_date TEXT,
    duration REAL NOT NULL,
    beats_per_minute INTEGER NOT NULL,
    track_number INTEGER NOT NULL,
    track_count INTEGER NOT NULL,
    disc_number INTEGER NOT NULL,
    disc_count INTEGER NOT NULL,
    is_compilation INTEGER NOT NULL,
    is_explicit INTEGER NOT NULL,
    rating_percent INTEGER,
    catalog_id TEXT,
    isrc TEXT,
    recording_mbid TEXT,
    artwork_key TEXT,
    tag_play_count INTEGER,
    date_added INTEGER,
    play_count INTEGER,
    skip_count INTEGER,
    last_played INTEGER,
    artist_id INTEGER NOT NULL,
    album_id INTEGER,
    sort_key BLOB NOT NULL,
    section TEXT NOT NULL,
    title_key INTEGER,
    artist_key INTEGER,
    album_key INTEGER
);
CREATE INDEX songs_by_title_and_artist ON songs (title_key, artist_key);
CREATE INDEX songs_by_title_and_album ON songs (title_key, album_key) WHERE album_key IS NOT NULL;
CREATE INDEX songs_by_catalog_id ON songs (catalog_id) WHERE catalog_id IS NOT NULL;
CREATE INDEX songs_by_recording_mbid ON songs (recording_mbid) WHERE recording_mbid IS NOT NULL;
CREATE INDEX songs_in_title_order ON songs (sort_key, section, persistent_id) WHERE availability < 2;
CREATE INDEX songs_by_date_added ON songs (date_added, id, persistent_id) WHERE availability < 2;
CREATE INDEX songs_by_artist_group ON songs (artist_id) WHERE availability < 2;
CREATE INDEX songs_by_album_group ON songs (album_id) WHERE availability < 2 AND album_id IS NOT NULL;

-- Identifiers of songs that were deleted for good: none of them is given again.
CREATE TABLE retired_ids (persistent_id INTEGER PRIMARY KEY);
CREATE TRIGGER song_is_deleted AFTER DELETE ON songs BEGIN
    INSERT OR IGNORE INTO retired_ids VALUES (old.persistent_id);
END;

CREATE TABLE long_texts (
    song INTEGER PRIMARY KEY REFERENCES songs (id) ON DELETE CASCADE,
    comments TEXT,
    lyrics TEXT
);

CREATE TABLE folders (
    id INTEGER PRIMARY KEY,
    path BLOB NOT NULL UNIQUE,
    image BLOB,
    image_modified INTEGER,
    image_key TEXT
);
CREATE TABLE files (
    song INTEGER PRIMARY KEY REFERENCES songs (id) ON DELETE CASCADE,
    folder INTEGER NOT NULL REFERENCES folders (id),
    name BLOB NOT NULL,
    device INTEGER NOT NULL,
    inode INTEGER NOT NULL,
    size INTEGER NOT NULL,
    modified INTEGER NOT NULL,
    audio_hash INTEGER NOT NULL,
    availability INTEGER NOT NULL DEFAULT 0
);
CREATE INDEX files_by_path ON files (folder, name);
CREATE INDEX files_by_inode ON files (inode, device);
CREATE INDEX files_by_audio_hash ON files (audio_hash);
CREATE TRIGGER file_changes_availability AFTER UPDATE OF availability ON files
WHEN new.availability <> old.availability BEGIN
    UPDATE songs SET availability = new.availability WHERE id = new.song;
END;

CREATE TABLE problems (
    folder INTEGER NOT NULL REFERENCES folders (id),
    name BLOB NOT NULL,
    inode INTEGER NOT NULL,
    size INTEGER NOT NULL,
    modified INTEGER NOT NULL,
    kind INTEGER NOT NULL,
    reason TEXT NOT NULL,
    PRIMARY KEY (folder, name)
) WITHOUT ROWID;

CREATE TABLE search_texts (
    song INTEGER PRIMARY KEY REFERENCES songs (id) ON DELETE CASCADE,
    title TEXT NOT NULL,
    artist TEXT NOT NULL,
    album TEXT NOT NULL,
    album_artist TEXT NOT NULL,
    composer TEXT NOT NULL
);
CREATE INDEX search_texts_by_title ON search_texts (title);
CREATE VIRTUAL TABLE search_index USING fts5 (
    title, artist, album, album_artist, composer,
    content = 'search_texts', content_rowid = 'song', tokenize = 'ascii',
    prefix = '1 2 3', detail = 'column', columnsize = 0
);
)sql"},
    // reader: the version of the tag reader that has read the file; 0: one that kept none, so that all files
    // are
    //   read once more. changed: the inode's time of change. sidecar: see sidecarSignature().
    // suspects: files that were being read when the program died, until it is known whether they are to
    // blame.
    Migration{2, R"sql(
ALTER TABLE files ADD COLUMN changed INTEGER NOT NULL DEFAULT 0;
ALTER TABLE files ADD COLUMN sidecar INTEGER NOT NULL DEFAULT 0;
ALTER TABLE files ADD COLUMN reader INTEGER NOT NULL DEFAULT 0;
ALTER TABLE problems ADD COLUMN changed INTEGER NOT NULL DEFAULT 0;
ALTER TABLE problems ADD COLUMN reader INTEGER NOT NULL DEFAULT 0;
CREATE TABLE suspects (
    folder INTEGER NOT NULL REFERENCES folders (id),
    name BLOB NOT NULL,
    PRIMARY KEY (folder, name)
) WITHOUT ROWID;
)sql"},
    // sort_text: by which a name is sorted, where its tags say another than the name. Texts lost the blanks
    // around them (as QString::trimmed() has it). The setting 'texts_to_renew' holds the last song whose
    // search texts may be of an earlier making.
    Migration{3, R"sql(
ALTER TABLE songs ADD COLUMN sort_text TEXT;
ALTER TABLE artists ADD COLUMN sort_text TEXT;
ALTER TABLE albums ADD COLUMN sort_text TEXT;
CREATE TEMP TABLE blanks AS SELECT char(9, 10, 11, 12, 13, 32, 133, 160, 5760, 8192, 8193, 8194, 8195, 8196,
    8197, 8198, 8199, 8200, 8201, 8202, 8232, 8233, 8239, 8287, 12288) AS blank;
UPDATE artists SET name = trim(name, blank) FROM blanks WHERE name <> trim(name, blank);
UPDATE albums SET title = trim(title, blank), artist = trim(artist, blank) FROM blanks
    WHERE title <> trim(title, blank) OR artist <> trim(artist, blank);
DROP TABLE blanks;
INSERT INTO settings SELECT 'texts_to_renew', coalesce(max(id), 0) FROM songs;
DROP INDEX files_by_audio_hash;
CREATE INDEX files_by_audio_hash ON files (audio_hash, name);
)sql"}};

static_assert(
    [] {
        int last = 0;
        for (const Migration &migration : migrations) {
            if (migration.version != last + 1)
                return false;
            last = migration.version;
        }
        return true;
    }(),
    "every version is reached from the one before it");

bool isEmpty(const sqlite::Connection &connection)
{
    return connection.integer("SELECT count(*) FROM sqlite_schema") == 0;
}

Failure foreignDatabase()
{
    return {FailureKind::Malformed, QStringLiteral("the database belongs to another program")};
}

Failure newerDatabase()
{
    return {FailureKind::Unsupported, QStringLiteral("the database was made by a newer version")};
}
} // namespace

int currentSchemaVersion()
{
    return migrations.back().version;
}

Result<Done> checkSchema(const sqlite::Connection &connection)
try {
    if (isEmpty(connection))
        return Failure{FailureKind::NotFound, QStringLiteral("there is no library")};
    if (connection.integer("PRAGMA application_id") != applicationID)
        return foreignDatabase();
    const auto version = connection.integer("PRAGMA user_version");
    if (version > currentSchemaVersion())
        return newerDatabase();
    if (version < currentSchemaVersion())
        return Failure{FailureKind::Busy, QStringLiteral("the database has not been brought up to date yet")};
    return Done{};
} catch (const sqlite::Error &error) {
    return sqlite::asFailure(error);
}

Result<Done> migrate(const sqlite::Connection &connection)
try {
    const bool isNew = isEmpty(connection);
    if (!isNew && connection.integer("PRAGMA application_id") != applicationID)
        return foreignDatabase();
    if (isNew)
        connection.execute("PRAGMA journal_mode = WAL"); // kept in the file; not possible in a transaction

    sqlite::Transaction transaction(connection);
    const auto version = connection.integer("PRAGMA user_version"); // another process may have been faster
    if (version > currentSchemaVersion())
        return newerDatabase();
    for (const Migration &migration : migrations) {
        if (migration.version <= version)
            continue;
        connection.execute(migration.sql);
        connection.execute(QByteArrayLiteral("PRAGMA user_version = ") +
                           QByteArray::number(migration.version));
    }
    connection.execute(QByteArrayLiteral("PRAGMA application_id = ") + QByteArray::number(applicationID));
    transaction.commit();
    return Done{};
} catch (const sqlite::Error &error) {
    return sqlite::asFailure(error);
}

} // namespace trackwise
