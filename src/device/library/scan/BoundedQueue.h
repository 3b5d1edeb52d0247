// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <condition_variable>
#include <cstddef>
#include <deque>
#include <mutex>
#include <optional>
#include <stop_token>

namespace trackwise {

/// Hands values from threads to threads. A full queue makes the givers wait, an empty one the takers.
template <typename T>
class BoundedQueue
{
public:
    explicit BoundedQueue(std::size_t capacity)
        : m_capacity(capacity)
    {}

    /// False when the queue was closed, or @p stop requested, before there was room.
    bool push(T value, const std::stop_token &stop)
    {
        std::unique_lock lock(m_mutex);
        m_hasRoom.wait(lock, stop, [this] { return m_values.size() < m_capacity || m_isClosed; });
        if (m_isClosed || stop.stop_requested())
            return false;
        m_values.push_back(std::move(value));
        lock.unlock();
        m_hasValues.notify_one();
        return true;
    }

    /// Nothing when the queue is closed and empty, or @p stop was requested.
    [[nodiscard]] std::optional<T> pop(const std::stop_token &stop)
    {
        std::unique_lock lock(m_mutex);
        m_hasValues.wait(lock, stop, [this] { return !m_values.empty() || m_isClosed; });
        if (m_values.empty() || stop.stop_requested())
            return std::nullopt;
        std::optional<T> value(std::move(m_values.front()));
        m_values.pop_front();
        lock.unlock();
        m_hasRoom.notify_one();
        return value;
    }

    /// Nothing further comes; what is in the queue can still be taken.
    void close()
    {
        {
            const std::scoped_lock lock(m_mutex);
            m_isClosed = true;
        }
        m_hasValues.notify_all();
        m_hasRoom.notify_all();
    }

private:
    std::size_t m_capacity;
    std::mutex m_mutex;
    std::condition_variable_any m_hasValues;
    std::condition_variable_any m_hasRoom;
    std::deque<T> m_values;
    bool m_isClosed = false;
};

} // namespace trackwise
