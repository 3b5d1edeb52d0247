// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "picker/ListContent.h"
#include "picker/ListDifference.h"

#include <QObject>

#include <memory>
#include <optional>

class QThreadPool;

namespace trackwise {

/// A list's order as it was found, and how it differs from the one before.
struct LoadedList
{
    ListContent content;
    std::shared_ptr<const ListOrder> order;
    std::optional<std::vector<ListEdit>> edits; ///< absent where this is another list than the one before
    std::vector<ListRow> firstRows;             ///< of another list, so that it appears with its texts
};

/// Reads orders on workers; only the answer to the latest request counts. A request does not wait for an
/// earlier one that is no longer wanted, unless two of those are still at work. Main thread.
class ListLoader : public QObject
{
    Q_OBJECT

public:
    ListLoader(const LibraryBrowser &browser, QThreadPool &pool, QObject *parent);

    /// @p shown is the order to compare with, or null for another list.
    void load(const ListContent &content, std::shared_ptr<const ListOrder> shown);
    /// Nobody wants the answer any more.
    void abandon() { m_latest.reset(); }
    [[nodiscard]] bool isLoading() const { return m_latest.has_value(); }

Q_SIGNALS:
    void didLoad(const trackwise::LoadedList &list);

private:
    struct Request
    {
        int number = 0;
        ListContent content;
        std::shared_ptr<const ListOrder> shown;
    };
    void start();
    void didFinish(int number, const LoadedList &list);

    const LibraryBrowser &m_browser;
    QThreadPool &m_pool;
    std::optional<Request> m_latest; ///< until it has been answered
    int m_lastNumber = 0;
    int m_startedNumber = 0;
    int m_underway = 0;
};

} // namespace trackwise
