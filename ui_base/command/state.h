// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QTypeInfo>

#include <cstdint>

namespace Vela::UiBase {

/// One fact about a command, such as "is enabled", that is false, true or not stated at all.
///
/// Copies are plain; an assignment is not: assigning #Keep leaves the left side as it was, which is
/// what applying a partly stated fact to a full one means. Use overwrite() where #Keep itself has
/// to arrive, and mind that generic code that moves values by assignment does not carry a #Keep
/// either; swap() does.
///
/// In a condition a #Keep reads as false, and so does its negation, because <tt>!State(Keep)</tt>
/// is again #Keep. Compare with an Action where the difference counts. A value type for any thread.
class State
{
public:
    /// What is stated.
    enum Action : std::int32_t {
        Off = 0,  ///< the fact is false
        On = 1,   ///< the fact is true
        Keep = 2, ///< the fact is not stated
    };

    /// Stores @p action as it is.
    constexpr State(const Action &action = Keep) noexcept
        : m_action(action)
    { }
    /// #On for true, #Off for false.
    constexpr State(bool on) noexcept
        : m_action(on ? On : Off)
    { }
    constexpr State(const State &other) noexcept = default;
    ~State() = default;

    /// Takes the value of @p other unless that is #Keep.
    constexpr State &operator=(const State &other) noexcept { return *this = other.m_action; }
    /// Takes @p action unless that is #Keep.
    constexpr State &operator=(const Action &action) noexcept
    {
        if (action != Keep)
            m_action = action;
        return *this;
    }
    /// Takes the value of @p other, also when that is #Keep.
    constexpr State &overwrite(const State &other) noexcept
    {
        m_action = other.m_action;
        return *this;
    }

    /// The opposite fact; #Keep stays #Keep.
    constexpr State operator!() const noexcept
    {
        if (m_action == Keep)
            return Keep;
        return m_action == On ? Off : On;
    }

    /// True when both are; a #Keep on the right changes nothing, one on the left counts as true.
    constexpr State &operator&=(const State &other) noexcept
    {
        return combine(other, m_action != Off && other.m_action != Off);
    }
    /// True when either is; a #Keep on the right changes nothing, one on the left counts as false.
    constexpr State &operator|=(const State &other) noexcept
    {
        return combine(other, m_action == On || other.m_action == On);
    }
    /// True when they differ; a #Keep on the right changes nothing, one on the left takes the
    /// right.
    constexpr State &operator^=(const State &other) noexcept
    {
        const bool isOn = m_action == On;
        const bool isOtherOn = other.m_action == On;
        return combine(other, m_action == Keep ? isOtherOn : isOn != isOtherOn);
    }

    /// The stored value.
    constexpr operator Action() const noexcept { return m_action; }
    /// Whether the fact is stated and true.
    constexpr operator bool() const noexcept { return m_action == On; }

    friend constexpr bool operator==(const State &left, const State &right) noexcept
    {
        return left.m_action == right.m_action;
    }
    friend constexpr bool operator==(const State &left, Action right) noexcept
    {
        return left.m_action == right;
    }
    friend constexpr bool operator==(Action left, const State &right) noexcept
    {
        return left == right.m_action;
    }
    friend constexpr bool operator!=(const State &left, const State &right) noexcept
    {
        return !(left == right);
    }
    friend constexpr bool operator!=(const State &left, Action right) noexcept
    {
        return !(left == right);
    }
    friend constexpr bool operator!=(Action left, const State &right) noexcept
    {
        return !(left == right);
    }

    /// Exchanges the values, #Keep included.
    friend constexpr void swap(State &left, State &right) noexcept
    {
        const State old = left;
        left.overwrite(right);
        right.overwrite(old);
    }

private:
    constexpr State &combine(const State &other, bool result) noexcept
    {
        if (other.m_action != Keep)
            m_action = result ? On : Off;
        return *this;
    }

    Action m_action;
};

} // namespace Vela::UiBase

Q_DECLARE_TYPEINFO(Vela::UiBase::State, Q_MOVABLE_TYPE);
