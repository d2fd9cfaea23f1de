// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

#include <cstddef>

namespace Lumo::Test {

/// While alive, makes the operator new of this program throw std::bad_alloc at one chosen call on
/// the constructing thread. Used to walk an operation through every failure of its allocations:
///
/// @code
/// for (std::size_t k = 0;; ++k) {
///     FailingNew fault(k);
///     try { operation(); } catch (const std::bad_alloc &) { }
///     if (!fault.happened())
///         break;
/// }
/// @endcode
class FailingNew
{
public:
    /// @param call zero-based number of the call that fails, counted from now
    explicit FailingNew(std::size_t call);
    ~FailingNew();

    /// Whether the chosen call was reached.
    bool happened() const;

    /// Ends the fault early, so that checks may allocate.
    void disarm();

    FailingNew(const FailingNew &) = delete;
    FailingNew &operator=(const FailingNew &) = delete;
};

/// Counts calls of operator new on the constructing thread while alive, and the bytes asked for.
class NewCounter
{
public:
    NewCounter();
    ~NewCounter();

    std::size_t calls() const;
    std::size_t bytes() const;

    NewCounter(const NewCounter &) = delete;
    NewCounter &operator=(const NewCounter &) = delete;

private:
    std::size_t m_callsBefore;
    std::size_t m_bytesBefore;
};

} // namespace Lumo::Test
