// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/Result.h"

#include <QByteArray>
#include <QByteArrayView>
#include <QString>

#include <sqlite3.h>

#include <cstdint>
#include <memory>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>

namespace trackwise::sqlite {

/// What SQLite says went wrong. Thrown and caught inside the library module only: its public operations
/// answer with a Failure, see asFailure().
class Error : public std::runtime_error
{
public:
    Error(int code, const std::string &what)
        : std::runtime_error(what)
        , m_code(code)
    {}
    /// The primary result code, such as SQLITE_FULL.
    [[nodiscard]] int code() const { return m_code & 0xff; }

private:
    int m_code;
};

[[nodiscard]] Failure asFailure(const Error &error);
/// The same failure with the name of the database file before the detail.
[[nodiscard]] Failure inDatabase(const QByteArray &path, Failure failure);

/// One prepared statement. It keeps copies of the values bound to it.
class Statement
{
public:
    Statement() = default;
    Statement(sqlite3 *database, std::string_view sql);

    /// Values are bound one after the other, from the first parameter on; reset() starts anew.
    Statement &bind(std::int64_t value);
    Statement &bind(double value);
    Statement &bind(std::nullptr_t);
    Statement &bind(const QString &text);
    Statement &bindText(std::string_view utf8);
    Statement &bindBytes(QByteArrayView bytes);
    template <typename T>
    Statement &bind(const std::optional<T> &value)
    {
        return value ? bind(*value) : bind(nullptr);
    }

    /// Whether there is a (further) row.
    [[nodiscard]] bool step();
    /// Runs a statement that gives no rows and makes it ready for the next values.
    void run();
    Statement &reset();

    [[nodiscard]] bool isNull(int column) const;
    [[nodiscard]] std::int64_t integer(int column) const;
    [[nodiscard]] double real(int column) const;
    [[nodiscard]] QString text(int column) const;
    [[nodiscard]] std::optional<QString> optionalText(int column) const;
    [[nodiscard]] std::optional<std::int64_t> optionalInteger(int column) const;
    /// Valid until the next step or reset.
    [[nodiscard]] std::string_view utf8(int column) const;
    [[nodiscard]] QByteArray bytes(int column) const;

private:
    void check(int result);

    struct Finalize
    {
        void operator()(sqlite3_stmt *statement) const { sqlite3_finalize(statement); }
    };
    std::unique_ptr<sqlite3_stmt, Finalize> m_statement;
    int m_nextParameter = 1;
};

enum class Access { ReadOnly, ReadWrite };

/// One connection. Used by one thread at a time.
class Connection
{
public:
    /// Opens, and for writing creates, the database at @p path (bytes of the file name). One that is only
    /// read may lie where nothing can be written, with or without the log of a writer that was stopped.
    Connection(const QByteArray &path, Access access);

    [[nodiscard]] Statement prepare(std::string_view sql) const { return {m_database.get(), sql}; }
    /// Runs any number of statements without values or rows.
    void execute(const char *sql) const;
    [[nodiscard]] std::int64_t integer(std::string_view sql) const;
    [[nodiscard]] std::int64_t lastInsertedRow() const { return sqlite3_last_insert_rowid(m_database.get()); }
    [[nodiscard]] sqlite3 *handle() const { return m_database.get(); }

private:
    void open(const QByteArray &name, int flags, const char *fileSystem = nullptr);
    void openReadOnly(const QByteArray &path);

    struct Close
    {
        void operator()(sqlite3 *database) const { sqlite3_close_v2(database); }
    };
    std::unique_ptr<sqlite3, Close> m_database;
};

/// Everything until commit() happens, or nothing. Takes the write lock at once. Fails where the file has been
/// removed or replaced since it was opened: what is written then would be lost.
class Transaction
{
public:
    explicit Transaction(const Connection &connection);
    Transaction(const Transaction &) = delete;
    Transaction &operator=(const Transaction &) = delete;
    ~Transaction();

    void commit();

private:
    const Connection &m_connection;
    bool m_isOpen = true;
};

} // namespace trackwise::sqlite
