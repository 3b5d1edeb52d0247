// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

#include <utility>
#include <variant>

namespace trackwise {

enum class FailureKind {
    NotFound,    ///< what was asked for is not there
    Unreadable,  ///< it is there, but cannot be opened or read
    Malformed,   ///< it was read, but is not what it claims to be
    Unsupported, ///< it is well-formed, but of a kind that is not handled
    Busy,        ///< somebody else holds it
    NoSpace,     ///< the disk is full or may not be written
    Unavailable, ///< a service or device is absent or does not answer
    Cancelled,
};

/// Why an operation gave nothing. The kind decides behaviour and wording; the detail is for logs and lists
/// of problems.
struct Failure
{
    FailureKind kind = FailureKind::Unavailable;
    QString detail;

    friend bool operator==(const Failure &, const Failure &) = default;
};

/// A value, or the reason why there is none.
template <typename T>
class [[nodiscard]] Result
{
public:
    Result(T value)
        : m_state(std::in_place_index<0>, std::move(value))
    {}
    Result(Failure failure)
        : m_state(std::in_place_index<1>, std::move(failure))
    {}

    [[nodiscard]] explicit operator bool() const { return m_state.index() == 0; }
    [[nodiscard]] const T &operator*() const & { return std::get<0>(m_state); }
    [[nodiscard]] T &operator*() & { return std::get<0>(m_state); }
    [[nodiscard]] T &&operator*() && { return std::get<0>(std::move(m_state)); }
    [[nodiscard]] const T *operator->() const { return &std::get<0>(m_state); }
    [[nodiscard]] T *operator->() { return &std::get<0>(m_state); }
    /// For callers that can do without.
    [[nodiscard]] T valueOr(T fallback) && { return *this ? *std::move(*this) : std::move(fallback); }
    [[nodiscard]] const Failure &failure() const { return std::get<1>(m_state); }

private:
    std::variant<T, Failure> m_state;
};

struct Done
{};

} // namespace trackwise
