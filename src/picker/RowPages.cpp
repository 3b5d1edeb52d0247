// SPDX-License-Identifier: GPL-3.0-or-later
#include "picker/RowPages.h"

#include "picker/ListKeys.h"
#include "platform/Background.h"

#include <algorithm>

namespace trackwise {

namespace {

constexpr int maxCachedRows = 32 * RowPages::pageSize;
constexpr size_t maxUnderway = 2;
// More pages than a screen can show at once; older wishes are of rows that have been scrolled past.
constexpr size_t maxWaiting = 8;
// Rows from the edge of a page at which the next one is fetched too: about a screenful.
constexpr int lookAhead = 20;

} // namespace

RowPages::RowPages(const LibraryBrowser &browser, QThreadPool &pool, ListContent::Kind kind, QObject *parent)
    : QObject(parent)
    , m_browser(browser)
    , m_pool(pool)
    , m_kind(kind)
    , m_cache(maxCachedRows)
{}

const ListRow *RowPages::row(const ListKeys &keys, int row)
{
    const int page = row / pageSize;
    const int place = row % pageSize;
    if (place < lookAhead && page > 0)
        want(keys, page - 1, Urgency::Soon);
    if (place >= pageSize - lookAhead)
        want(keys, page + 1, Urgency::Soon);

    const Cached *cached = m_cache.object(keys.at(row));
    if (!cached || cached->edition != m_edition)
        want(keys, page, Urgency::Now);
    return cached ? &cached->row : nullptr;
}

void RowPages::expire()
{
    ++m_edition;
    m_waiting.clear();
    m_underway.clear();
}

void RowPages::store(std::span<const std::uint64_t> keys, const std::vector<ListRow> &rows)
{
    for (size_t i = 0; i < rows.size() && i < keys.size(); ++i)
        m_cache.insert(keys[i], new Cached{rows[i], m_edition});
}

void RowPages::want(const ListKeys &keys, int page, Urgency urgency)
{
    const int first = page * pageSize;
    const int end = std::min(first + pageSize, keys.size());
    if (first >= end || std::ranges::find(m_underway, page) != m_underway.end())
        return;
    const auto waiting = std::ranges::find(m_waiting, page, &Page::number);
    if (waiting != m_waiting.end()) {
        if (urgency == Urgency::Now)
            std::rotate(waiting, waiting + 1, m_waiting.end());
        return;
    }
    if (urgency == Urgency::Soon) {
        // The far edge of the page is the part that is not there when the page is not.
        const int probe = first + (end - first) / 2;
        const Cached *cached = m_cache.object(keys.at(probe));
        if (cached && cached->edition == m_edition)
            return;
    }
    Page wanted{page, {}};
    wanted.keys.reserve(static_cast<size_t>(end - first));
    for (int i = first; i < end; ++i)
        wanted.keys.push_back(keys.at(i));
    m_waiting.insert(urgency == Urgency::Now ? m_waiting.end() : m_waiting.begin(), std::move(wanted));
    if (m_waiting.size() > maxWaiting)
        m_waiting.erase(m_waiting.begin());
    fetchNext();
}

void RowPages::fetchNext()
{
    if (m_waiting.empty() || m_underway.size() >= maxUnderway)
        return;
    Page page = std::move(m_waiting.back());
    m_waiting.pop_back();
    m_underway.push_back(page.number);
    runInBackground(
        m_pool, this,
        [browser = &m_browser, kind = m_kind, keys = page.keys] { return rowsOf(*browser, kind, keys); },
        [this, page, edition = m_edition](const std::vector<ListRow> &rows) {
            pageDidArrive(page, rows, edition);
        });
}

void RowPages::pageDidArrive(const Page &page, const std::vector<ListRow> &rows, int edition)
{
    if (edition != m_edition)
        return; // asked for before the list changed; its rows have been asked for again
    std::erase(m_underway, page.number);
    bool isNews = false;
    for (size_t i = 0; i < page.keys.size() && !isNews; ++i) {
        const Cached *cached = m_cache.object(page.keys[i]);
        isNews = !cached || !(cached->row == rows[i]);
    }
    store(page.keys, rows);
    fetchNext();
    if (isNews)
        Q_EMIT didArrive();
}

} // namespace trackwise
