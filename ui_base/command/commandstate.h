// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

#include "ui_base/command/state.h"

#include <QMetaType>

namespace Vela::UiBase {

/// The look of a command: can it be used, and is it checked.
///
/// As with State, copies are plain and an assignment leaves a field alone where the right side says
/// State::Keep. Travels in a QVariant, as the property "state" of a command does. A value type for
/// any thread.
struct CommandState
{
    /// Not enabled and not checked; both are stated.
    constexpr CommandState() noexcept
        : CommandState(State::Off, State::Off)
    { }
    /// Plain copies of both facts, State::Keep included.
    constexpr CommandState(const State &enabledState, const State &checkedState) noexcept
        : enabled(enabledState)
        , checked(checkedState)
    { }
    constexpr CommandState(const CommandState &other) noexcept = default;
    ~CommandState() = default;

    /// Takes each field of @p other that is stated.
    constexpr CommandState &operator=(const CommandState &other) noexcept = default;
    /// Takes both fields of @p other, State::Keep included.
    constexpr CommandState &overwrite(const CommandState &other) noexcept
    {
        enabled.overwrite(other.enabled);
        checked.overwrite(other.checked);
        return *this;
    }

    friend constexpr bool operator==(const CommandState &left, const CommandState &right) noexcept
    {
        return left.enabled == right.enabled && left.checked == right.checked;
    }
    friend constexpr bool operator!=(const CommandState &left, const CommandState &right) noexcept
    {
        return !(left == right);
    }

    /// Exchanges the values, State::Keep included.
    friend constexpr void swap(CommandState &left, CommandState &right) noexcept
    {
        swap(left.enabled, right.enabled);
        swap(left.checked, right.checked);
    }

    State enabled; ///< the command can be used
    State checked; ///< the command is checked
};

} // namespace Vela::UiBase

Q_DECLARE_TYPEINFO(Vela::UiBase::CommandState, Q_MOVABLE_TYPE);
Q_DECLARE_METATYPE(Vela::UiBase::CommandState)
