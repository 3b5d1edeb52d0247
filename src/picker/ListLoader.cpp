// SPDX-License-Identifier: GPL-3.0-or-later
#include "picker/ListLoader.h"

#include "picker/RowPages.h"
#include "platform/Background.h"

#include <algorithm>

namespace trackwise {

namespace {

constexpr int maxUnderway = 2;

LoadedList read(const LibraryBrowser &browser, const ListContent &content, const ListOrder *shown)
{
    LoadedList list;
    list.content = content;
    const auto order = std::make_shared<const ListOrder>(orderOf(browser, content));
    list.order = order;
    if (shown) {
        list.edits = difference(shown->keys, order->keys);
    } else {
        const std::span<const std::uint64_t> keys(order->keys);
        list.firstRows =
            rowsOf(browser, content.kind, keys.first(std::min<size_t>(keys.size(), RowPages::pageSize)));
    }
    return list;
}

} // namespace

ListLoader::ListLoader(const LibraryBrowser &browser, QThreadPool &pool, QObject *parent)
    : QObject(parent)
    , m_browser(browser)
    , m_pool(pool)
{}

void ListLoader::load(const ListContent &content, std::shared_ptr<const ListOrder> shown)
{
    m_latest = Request{++m_lastNumber, content, std::move(shown)};
    if (m_underway < maxUnderway)
        start();
}

void ListLoader::start()
{
    ++m_underway;
    m_startedNumber = m_latest->number;
    runInBackground(
        m_pool, this,
        [browser = &m_browser, request = *m_latest] {
            return read(*browser, request.content, request.shown.get());
        },
        [this, number = m_latest->number](const LoadedList &list) { didFinish(number, list); });
}

void ListLoader::didFinish(int number, const LoadedList &list)
{
    --m_underway;
    if (!m_latest)
        return;
    if (number == m_latest->number) {
        m_latest.reset();
        Q_EMIT didLoad(list);
    } else if (m_latest->number != m_startedNumber) {
        start();
    }
}

} // namespace trackwise
