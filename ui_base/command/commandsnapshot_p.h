// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

#include "ui_base/command/commandcontext.h"
#include "ui_base/command/commandroll_p.h"

#include <memory>
#include <vector>

namespace Vela::UiBase {

/// The present states of the commands of a roll, remembered from one reading to the next. Each reading
/// looks at every command; what is saved is building the context again, which costs ten times that.
class CommandSnapshot
{
public:
    /// Brings the context up to date with the commands of @p roll, which all have to be alive.
    /// @return false when it has to be read anew and remembered: another roll, or ids that repeat
    bool refresh(const std::shared_ptr<const CommandRoll> &roll);
    /// Takes @p context as what a walk over the commands of @p roll has read just now.
    void remember(std::shared_ptr<const CommandRoll> roll, CommandContext context);
    /// Lets go of everything.
    void clear();

    const CommandContext &context() const { return m_context; }

private:
    bool readStates();
    void writeContext();

    // Null when the context can't be brought up to date.
    std::shared_ptr<const CommandRoll> m_roll;
    CommandContext m_context;
    // By entry of the roll.
    std::vector<CommandState> m_states;
    // Index of the entry, by place of its id in the context.
    std::vector<std::size_t> m_order;
};

} // namespace Vela::UiBase
