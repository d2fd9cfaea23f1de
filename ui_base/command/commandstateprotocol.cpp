// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "ui_base/command/commandstateprotocol.h"

namespace Vela::UiBase {

CommandStateProtocol::~CommandStateProtocol() = default;

void CommandStateProtocol::commandBegan(CommandBase *) { }
void CommandStateProtocol::commandEnded(CommandBase *) { }
void CommandStateProtocol::commandBeganExecuting(CommandBase *, bool) { }
void CommandStateProtocol::commandEndedExecuting(CommandBase *, bool) { }

} // namespace Vela::UiBase

template class Tessel::Broadcaster<Vela::UiBase::CommandStateProtocol>;
template class Tessel::Delegator<Vela::UiBase::CommandStateProtocol>;
