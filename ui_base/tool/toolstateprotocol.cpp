// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "ui_base/tool/toolstateprotocol.h"

namespace Vela::UiBase {

ToolStateProtocol::~ToolStateProtocol() = default;

void ToolStateProtocol::toolActivated(InteractiveTool *) { }
void ToolStateProtocol::toolDeactivated(InteractiveTool *) { }
void ToolStateProtocol::toolBeganOperating(InteractiveTool *) { }
void ToolStateProtocol::toolEndedOperating(InteractiveTool *) { }
void ToolStateProtocol::toolSuspended(InteractiveTool *) { }
void ToolStateProtocol::toolResumed(InteractiveTool *) { }
void ToolStateProtocol::toolCursorChange(InteractiveTool *) { }

} // namespace Vela::UiBase

template class Tessel::Broadcaster<Vela::UiBase::ToolStateProtocol>;
template class Tessel::Delegator<Vela::UiBase::ToolStateProtocol>;
