// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "ui_base/command/cmdmgrprotocol.h"

namespace Vela::UiBase {

CmdMgrProtocol::~CmdMgrProtocol() = default;

void CmdMgrProtocol::commandAdded(CmdMgr *, CommandBase *) { }
// Each observer gets an id of its own.
void CmdMgrProtocol::commandRemoved(CmdMgr *,
                                    QString) // NOLINT(performance-unnecessary-value-param)
{ }

} // namespace Vela::UiBase

template class Tessel::Broadcaster<Vela::UiBase::CmdMgrProtocol>;
template class Tessel::Delegator<Vela::UiBase::CmdMgrProtocol>;
