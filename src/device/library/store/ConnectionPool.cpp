// SPDX-License-Identifier: GPL-3.0-or-later
#include "device/library/store/ConnectionPool.h"

#include <QLoggingCategory>

namespace trackwise {

namespace {
Q_LOGGING_CATEGORY(log, "trackwise.library", QtFatalMsg)

constexpr std::size_t mostIdle = 3;

// Not mapped: every connection would count the whole database towards the memory of the program.
constexpr const char *readPragmas = R"sql(
PRAGMA cell_size_check = ON;
PRAGMA mmap_size = 0;
PRAGMA cache_size = -4096;
PRAGMA temp_store = MEMORY;
)sql";
} // namespace

ReadConnection::ReadConnection(const QByteArray &path)
    : m_connection(path, sqlite::Access::ReadOnly)
{
    m_connection.execute(readPragmas);
}

sqlite::Statement &ReadConnection::statement(const char *sql)
{
    auto found = m_statements.find(sql);
    if (found == m_statements.end())
        found = m_statements.emplace(sql, m_connection.prepare(sql)).first;
    return found->second.reset();
}

void ReadConnection::rest()
{
    for (auto &[sql, statement] : m_statements)
        statement.reset();
}

std::unique_ptr<ReadConnection> ConnectionPool::take() const
{
    {
        const std::scoped_lock lock(m_mutex);
        if (!m_idle.empty()) {
            std::unique_ptr<ReadConnection> connection = std::move(m_idle.back());
            m_idle.pop_back();
            return connection;
        }
    }
    return std::make_unique<ReadConnection>(m_path);
}

void ConnectionPool::giveBack(std::unique_ptr<ReadConnection> connection) const
{
    connection->rest();
    const std::scoped_lock lock(m_mutex);
    if (m_idle.size() < mostIdle)
        m_idle.push_back(std::move(connection));
}

Failure ConnectionPool::failed(const sqlite::Error &error) const
{
    Failure failure = sqlite::inDatabase(m_path, sqlite::asFailure(error));
    qCWarning(log) << "reading the library:" << failure.detail;
    if (m_didFail)
        m_didFail(failure);
    return failure;
}

} // namespace trackwise
