// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

#include "core/delegator.h"
#include "ui_base/uibaseexport.h"

namespace Vela::UiBase {

class CommandBase;

/// Hears of the life and the runs of commands. Register it on a command or a whole group with
/// addObserver(). All operations do nothing by default.
///
/// The command is the sender and is not kept alive: an observer that is served on the main queue
/// can hear of a command that has died meanwhile, and may then use the pointer for comparison only.
/// Copying or moving an observer copies none of its registrations.
class LUMO_UI_BASE_EXPORT CommandStateProtocol
{
public:
    CommandStateProtocol() = default;
    CommandStateProtocol(const CommandStateProtocol &other) = default;
    CommandStateProtocol(CommandStateProtocol &&other) = default;
    virtual ~CommandStateProtocol();

    CommandStateProtocol &operator=(const CommandStateProtocol &other) = default;
    CommandStateProtocol &operator=(CommandStateProtocol &&other) = default;

    /// A command that stays open, such as one with a panel, was begun by the user.
    virtual void commandBegan(CommandBase *command);
    /// A command that had begun was closed.
    virtual void commandEnded(CommandBase *command);
    /// A run starts; @p checked is the check mark that it runs with.
    virtual void commandBeganExecuting(CommandBase *command, bool checked);
    /// The run is over, in the background too.
    virtual void commandEndedExecuting(CommandBase *command, bool checked);
};

} // namespace Vela::UiBase

extern template class Tessel::Broadcaster<Vela::UiBase::CommandStateProtocol>;
extern template class Tessel::Delegator<Vela::UiBase::CommandStateProtocol>;
