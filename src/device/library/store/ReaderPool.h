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
class Reader
{
public:
    explicit Reader(const QByteArray &path);

    /// The statement, ready for its values. @p sql must stay where it is, as a literal does: it is told by
    /// its address. The statement is in use until it is asked for again.
    [[nodiscard]] sqlite::Statement &statement(const char *sql);
    /// Ends all statements, and with them the view of the database that they held.
    void rest();

private:
    sqlite::Connection m_connection;
    std::unordered_map<const char *, sqlite::Statement> m_statements;
};

/// Lends readers to any thread: as many as ask at the same time, a few of which are kept. A lock is held for
/// the handing over only.
class ReaderPool
{
public:
    /// @p didFail is called for each failure, on the thread that reads.
    explicit ReaderPool(QByteArray path, std::function<void(const Failure &)> didFail = {})
        : m_path(std::move(path))
        , m_didFail(std::move(didFail))
    {}

    /// What @p read answers with a reader; a failure, which names the file, when the database cannot be read.
    template <typename Read>
    [[nodiscard]] Result<std::invoke_result_t<Read, Reader &>> read(Read read) const
    {
        try {
            const Lease lease(*this);
            return read(lease.reader());
        } catch (const sqlite::Error &error) {
            return failed(error);
        }
    }

private:
    class Lease
    {
    public:
        explicit Lease(const ReaderPool &pool)
            : m_pool(pool)
            , m_reader(pool.take())
        {}
        Lease(const Lease &) = delete;
        Lease &operator=(const Lease &) = delete;
        ~Lease() { m_pool.giveBack(std::move(m_reader)); }
        [[nodiscard]] Reader &reader() const { return *m_reader; }

    private:
        const ReaderPool &m_pool;
        std::unique_ptr<Reader> m_reader;
    };

    [[nodiscard]] std::unique_ptr<Reader> take() const;
    void giveBack(std::unique_ptr<Reader> reader) const;
    [[nodiscard]] Failure failed(const sqlite::Error &error) const;

    QByteArray m_path;
    std::function<void(const Failure &)> m_didFail;
    mutable std::mutex m_mutex;
    mutable std::vector<std::unique_ptr<Reader>> m_idle;
};

} // namespace trackwise
