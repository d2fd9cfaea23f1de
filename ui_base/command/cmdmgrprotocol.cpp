// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "ui_base/command/cmdmgrprotocol.h"

namespace Vela::UiBase {

CmdMgrProtocol::CmdMgrProtocol() = default;
CmdMgrProtocol::CmdMgrProtocol(const CmdMgrProtocol &) noexcept = default;
CmdMgrProtocol::CmdMgrProtocol(CmdMgrProtocol &&) noexcept = default;
CmdMgrProtocol::~CmdMgrProtocol() = default;

CmdMgrProtocol &CmdMgrProtocol::operator=(const CmdMgrProtocol &) noexcept = default;
CmdMgrProtocol &CmdMgrProtocol::operator=(CmdMgrProtocol &&) noexcept = default;

void CmdMgrProtocol::commandAdded(CmdMgr *, CommandBase *) { }
void CmdMgrProtocol::commandRemoved(CmdMgr *, QString) { }

} // namespace Vela::UiBase

template class Tessel::Broadcaster<Vela::UiBase::CmdMgrProtocol>;
template class Tessel::Delegator<Vela::UiBase::CmdMgrProtocol>;
