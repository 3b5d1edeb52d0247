// SPDX-License-Identifier: GPL-3.0-or-later
#include "device/library/store/Sqlite.h"

#include <QFile>

#include <unistd.h>

namespace trackwise::sqlite {

namespace {
// A second process may be writing a batch; batches take well under a second.
constexpr int busyTimeoutMilliseconds = 10'000;

[[noreturn]] void fail(sqlite3 *database, int result)
{
    throw Error(result, database ? sqlite3_errmsg(database) : sqlite3_errstr(result));
}

bool isWritable(const QByteArray &path)
{
    const qsizetype slash = path.lastIndexOf('/');
    const QByteArray folder = slash < 0 ? QByteArrayLiteral(".") : path.left(slash + 1);
    return access(path.constData(), W_OK) == 0 && access(folder.constData(), W_OK) == 0;
}

bool exists(const QByteArray &path)
{
    return access(path.constData(), F_OK) == 0;
}
} // namespace

Failure asFailure(const Error &error)
{
    const QString detail = QString::fromUtf8(error.what());
    switch (error.code()) {
    case SQLITE_FULL:
    case SQLITE_READONLY:
        return {FailureKind::NoSpace, detail};
    case SQLITE_BUSY:
    case SQLITE_LOCKED:
        return {FailureKind::Busy, detail};
    case SQLITE_CORRUPT:
    case SQLITE_NOTADB:
    case SQLITE_SCHEMA:
    case SQLITE_ERROR: // a table that should be there is not
        return {FailureKind::Malformed, detail};
    default:
        return {FailureKind::Unreadable, detail};
    }
}

Failure inDatabase(const QByteArray &path, Failure failure)
{
    failure.detail.prepend(QFile::decodeName(path) + QStringLiteral(": "));
    return failure;
}

Statement::Statement(sqlite3 *database, std::string_view sql)
{
    sqlite3_stmt *statement = nullptr;
    const int result = sqlite3_prepare_v3(database, sql.data(), static_cast<int>(sql.size()),
                                          SQLITE_PREPARE_PERSISTENT, &statement, nullptr);
    m_statement.reset(statement);
    if (result != SQLITE_OK)
        fail(database, result);
}

void Statement::check(int result)
{
    if (result != SQLITE_OK)
        fail(sqlite3_db_handle(m_statement.get()), result);
}

Statement &Statement::bind(std::int64_t value)
{
    check(sqlite3_bind_int64(m_statement.get(), m_nextParameter++, value));
    return *this;
}

Statement &Statement::bind(double value)
{
    check(sqlite3_bind_double(m_statement.get(), m_nextParameter++, value));
    return *this;
}

Statement &Statement::bind(std::nullptr_t)
{
    check(sqlite3_bind_null(m_statement.get(), m_nextParameter++));
    return *this;
}

Statement &Statement::bind(const QString &text)
{
    const QByteArray utf8 = text.toUtf8();
    check(sqlite3_bind_text64(m_statement.get(), m_nextParameter++, utf8.constData(),
                              static_cast<sqlite3_uint64>(utf8.size()), SQLITE_TRANSIENT, SQLITE_UTF8));
    return *this;
}

Statement &Statement::bindText(std::string_view utf8)
{
    // An absent pointer would bind NULL.
    const char *data = utf8.data() ? utf8.data() : "";
    check(sqlite3_bind_text64(m_statement.get(), m_nextParameter++, data, utf8.size(), SQLITE_TRANSIENT,
                              SQLITE_UTF8));
    return *this;
}

Statement &Statement::bindBytes(QByteArrayView bytes)
{
    const char *data = bytes.data() ? bytes.data() : "";
    check(sqlite3_bind_blob64(m_statement.get(), m_nextParameter++, data,
                              static_cast<sqlite3_uint64>(bytes.size()), SQLITE_TRANSIENT));
    return *this;
}

bool Statement::step()
{
    const int result = sqlite3_step(m_statement.get());
    if (result == SQLITE_ROW)
        return true;
    if (result == SQLITE_DONE)
        return false;
    const Error error(result, sqlite3_errmsg(sqlite3_db_handle(m_statement.get())));
    reset(); // a statement that stays half-way would hold the connection's locks
    throw error;
}

void Statement::run()
{
    while (step()) {
    }
    reset();
}

Statement &Statement::reset()
{
    sqlite3_reset(m_statement.get()); // repeats the error of the last step, which has been reported
    m_nextParameter = 1;
    return *this;
}

bool Statement::isNull(int column) const
{
    return sqlite3_column_type(m_statement.get(), column) == SQLITE_NULL;
}

std::int64_t Statement::integer(int column) const
{
    return sqlite3_column_int64(m_statement.get(), column);
}

double Statement::real(int column) const
{
    return sqlite3_column_double(m_statement.get(), column);
}

QString Statement::text(int column) const
{
    const std::string_view view = utf8(column);
    return QString::fromUtf8(view.data(), static_cast<qsizetype>(view.size()));
}

std::optional<QString> Statement::optionalText(int column) const
{
    return isNull(column) ? std::nullopt : std::optional(text(column));
}

std::optional<std::int64_t> Statement::optionalInteger(int column) const
{
    return isNull(column) ? std::nullopt : std::optional(integer(column));
}

std::string_view Statement::utf8(int column) const
{
    const auto *data = sqlite3_column_text(m_statement.get(), column);
    const auto size = static_cast<std::size_t>(sqlite3_column_bytes(m_statement.get(), column));
    return data ? std::string_view(reinterpret_cast<const char *>(data), size) : std::string_view();
}

QByteArray Statement::bytes(int column) const
{
    const void *data = sqlite3_column_blob(m_statement.get(), column);
    return data ? QByteArray(static_cast<const char *>(data), sqlite3_column_bytes(m_statement.get(), column))
                : QByteArray();
}

Connection::Connection(const QByteArray &path, Access access)
{
    if (access == Access::ReadWrite)
        open(path, SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE);
    else
        openReadOnly(path);
    sqlite3_busy_timeout(m_database.get(), busyTimeoutMilliseconds);
}

void Connection::open(const QByteArray &name, int flags, const char *fileSystem)
{
    sqlite3 *database = nullptr;
    const int result = sqlite3_open_v2(name.constData(), &database,
                                       flags | SQLITE_OPEN_NOMUTEX | SQLITE_OPEN_EXRESCODE, fileSystem);
    m_database.reset(database);
    if (result != SQLITE_OK)
        fail(database, result);
}

// Readers of a database with a write-ahead log need a file of shared memory beside it
// (https://www.sqlite.org/wal.html#read_only_databases).
void Connection::openReadOnly(const QByteArray &path)
{
    if (isWritable(path)) {
        open(path, SQLITE_OPEN_READWRITE); // without the right to write, the last one would leave that file
        execute("PRAGMA query_only = ON");
    } else if (!exists(path + "-wal")) { // nobody writes
        open("file:" + path.toPercentEncoding("/") + "?immutable=1", SQLITE_OPEN_READONLY | SQLITE_OPEN_URI);
    } else if (exists(path + "-shm")) {
        open(path, SQLITE_OPEN_READONLY);
    } else {
        // The log is read into memory of our own; nobody can hold a lock where there is no shared memory.
        open(path, SQLITE_OPEN_READONLY, "unix-none");
        execute("PRAGMA locking_mode = EXCLUSIVE");
    }
}

void Connection::execute(const char *sql) const
{
    const int result = sqlite3_exec(m_database.get(), sql, nullptr, nullptr, nullptr);
    if (result != SQLITE_OK)
        fail(m_database.get(), result);
}

std::int64_t Connection::integer(std::string_view sql) const
{
    Statement statement = prepare(sql);
    return statement.step() ? statement.integer(0) : 0;
}

Transaction::Transaction(const Connection &connection)
    : m_connection(connection)
{
    int hasMoved = 0;
    sqlite3_file_control(connection.handle(), "main", SQLITE_FCNTL_HAS_MOVED, &hasMoved);
    if (hasMoved != 0)
        throw Error(SQLITE_CANTOPEN, "the file has been removed or replaced while in use");
    m_connection.execute("BEGIN IMMEDIATE");
}

Transaction::~Transaction()
{
    // Some failures (a full disk) have rolled back already.
    if (m_isOpen && sqlite3_get_autocommit(m_connection.handle()) == 0)
        sqlite3_exec(m_connection.handle(), "ROLLBACK", nullptr, nullptr, nullptr);
}

void Transaction::commit()
{
    m_connection.execute("COMMIT");
    m_isOpen = false;
}

} // namespace trackwise::sqlite
