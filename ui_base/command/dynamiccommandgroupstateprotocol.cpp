// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "ui_base/command/dynamiccommandgroupstateprotocol.h"

namespace Vela::UiBase {

DynamicCommandGroupStateProtocol::~DynamicCommandGroupStateProtocol() = default;

void DynamicCommandGroupStateProtocol::commandGroupBegan(CommandGroup *) { }
void DynamicCommandGroupStateProtocol::commandGroupEnded(CommandGroup *) { }

} // namespace Vela::UiBase

template class Tessel::Broadcaster<Vela::UiBase::DynamicCommandGroupStateProtocol>;
template class Tessel::Delegator<Vela::UiBase::DynamicCommandGroupStateProtocol>;
