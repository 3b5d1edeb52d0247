// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "picker/ListContent.h"

#include <QCache>
#include <QObject>

#include <vector>

class QThreadPool;

namespace trackwise {

class ListKeys;

/// The rows that are on screen or were a moment ago, fetched in pages by workers. Bounded: however long the
/// list, some thousand rows are held. What is asked for last is fetched first, so a long flick ends with the
/// rows where it stopped. Main thread.
class RowPages : public QObject
{
    Q_OBJECT

public:
    static constexpr int pageSize = 64;

    /// @p browser and @p pool must outlive this object, and the pool's work must end before the browser does.
    RowPages(const LibraryBrowser &browser, QThreadPool &pool, ListContent::Kind kind, QObject *parent);

    /// The row, or null while it is being fetched. A pointer holds until the next call.
    [[nodiscard]] const ListRow *row(const ListKeys &keys, int row);
    /// Rows may have changed: they are still given, but fetched anew as soon as somebody asks for them.
    void expire();
    void store(std::span<const std::uint64_t> keys, const std::vector<ListRow> &rows);

Q_SIGNALS:
    /// Rows came, or came out different from what was given before. They lie anywhere in the list.
    void didArrive();

private:
    struct Cached
    {
        ListRow row;
        int edition = 0;
    };
    struct Page
    {
        int number = 0;
        std::vector<std::uint64_t> keys;
    };

    enum class Urgency { Now, Soon };
    void want(const ListKeys &keys, int page, Urgency urgency);
    void fetchNext();
    void pageDidArrive(const Page &page, const std::vector<ListRow> &rows, int edition);

    const LibraryBrowser &m_browser;
    QThreadPool &m_pool;
    ListContent::Kind m_kind;
    QCache<std::uint64_t, Cached> m_cache;
    int m_edition = 0;
    std::vector<Page> m_waiting; ///< most urgent last
    std::vector<int> m_underway; ///< page numbers
};

} // namespace trackwise
