// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "device/library/store/Sqlite.h"

#include <functional>
#include <memory>
#include <mutex>
#include <type_traits>
#include <unordered_map>
#include <vector>

namespace trackwise {

/// A read-only connection with the statements that were prepared on it. Used by one thread at a time.
class ReadConnection
{
public:
    explicit ReadConnection(const QByteArray &path);

    /// The statement, ready for its values. @p sql must stay where it is, as a literal does: it is told by
    /// its address. The statement is in use until it is asked for again.
    [[nodiscard]] sqlite::Statement &statement(const char *sql);
    /// Ends all statements, and with them the view of the database that they held.
    void rest();

private:
    sqlite::Connection m_connection;
    std::unordered_map<const char *, sqlite::Statement> m_statements;
};

/// Lends connections to any thread: as many as ask at the same time, a few of which are kept. A lock is held
/// for the handing over only.
class ConnectionPool
{
public:
    /// @p didFail is called for each failure, on the thread that reads.
    explicit ConnectionPool(QByteArray path, std::function<void(const Failure &)> didFail = {})
        : m_path(std::move(path))
        , m_didFail(std::move(didFail))
    {}

    /// What @p read answers with a connection; a failure, which names the file, when the database cannot be
    /// read.
    template <typename Read>
    [[nodiscard]] Result<std::invoke_result_t<Read, ReadConnection &>> read(Read read) const
    {
        try {
            const Lease lease(*this);
            return read(lease.connection());
        } catch (const sqlite::Error &error) {
            return failed(error);
        }
    }

private:
    class Lease
    {
    public:
        explicit Lease(const ConnectionPool &pool)
            : m_pool(pool)
            , m_connection(pool.take())
        {}
        Lease(const Lease &) = delete;
        Lease &operator=(const Lease &) = delete;
        ~Lease() { m_pool.giveBack(std::move(m_connection)); }
        [[nodiscard]] ReadConnection &connection() const { return *m_connection; }

    private:
        const ConnectionPool &m_pool;
        std::unique_ptr<ReadConnection> m_connection;
    };

    [[nodiscard]] std::unique_ptr<ReadConnection> take() const;
    void giveBack(std::unique_ptr<ReadConnection> connection) const;
    [[nodiscard]] Failure failed(const sqlite::Error &error) const;

    QByteArray m_path;
    std::function<void(const Failure &)> m_didFail;
    mutable std::mutex m_mutex;
    mutable std::vector<std::unique_ptr<ReadConnection>> m_idle;
};

} // namespace trackwise
