// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "picker/ListContent.h"

#include <memory>

namespace trackwise {

/// The keys of a list's rows while it turns step by step from one order into the next. At any moment the
/// list is a front part of the new order followed by a back part of the old one, so a step costs nothing,
/// however long the list is.
class ListKeys
{
public:
    using OrderPtr = std::shared_ptr<const ListOrder>;

    [[nodiscard]] int size() const { return m_taken + static_cast<int>(m_old->keys.size()) - m_left; }
    [[nodiscard]] std::uint64_t at(int row) const
    {
        const auto index = static_cast<size_t>(row);
        const auto taken = static_cast<size_t>(m_taken);
        return row < m_taken ? m_new->keys[index] : m_old->keys[index - taken + static_cast<size_t>(m_left)];
    }
    /// The order that is shown, or is about to be.
    [[nodiscard]] const OrderPtr &order() const { return m_new; }

    void replace(OrderPtr order)
    {
        m_new = std::move(order);
        endEdits();
    }
    /// Then follow keep(), remove() and insert() from front to back, and endEdits().
    void beginEdits(OrderPtr next) { m_new = std::move(next); }
    void keep(int count)
    {
        m_taken += count;
        m_left += count;
    }
    void remove(int count) { m_left += count; }
    void insert(int count) { m_taken += count; }
    void endEdits()
    {
        m_old = m_new;
        m_taken = 0;
        m_left = 0;
    }

private:
    OrderPtr m_new = std::make_shared<const ListOrder>();
    OrderPtr m_old = m_new;
    int m_taken = 0; ///< rows in front that are those of the new order
    int m_left = 0;  ///< rows of the old order that are not shown any more
};

} // namespace trackwise
