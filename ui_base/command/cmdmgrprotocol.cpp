// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "ui_base/command/cmdmgrprotocol.h"

namespace Vela::UiBase {

CmdMgrProtocol::~CmdMgrProtocol() = default;

void CmdMgrProtocol::commandAdded(CmdMgr *, CommandBase *) { }
void CmdMgrProtocol::commandRemoved(CmdMgr *, QString) { }

} // namespace Vela::UiBase

template class Tessel::Broadcaster<Vela::UiBase::CmdMgrProtocol>;
template class Tessel::Delegator<Vela::UiBase::CmdMgrProtocol>;
