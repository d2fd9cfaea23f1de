// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

#include "core/delegator.h"
#include "ui_base/uibaseexport.h"

#include <QString>

namespace Vela::UiBase {

class CmdMgr;
class CommandBase;

/// Hears which commands a manager takes in and lets go. All operations do nothing by default, and
/// copying or moving an observer copies no registration. The pointers are not kept alive for
/// observers that are served on the main queue.
class LUMO_UI_BASE_EXPORT CmdMgrProtocol
{
public:
    CmdMgrProtocol() = default;
    CmdMgrProtocol(const CmdMgrProtocol &other) = default;
    CmdMgrProtocol(CmdMgrProtocol &&other) = default;
    virtual ~CmdMgrProtocol();

    CmdMgrProtocol &operator=(const CmdMgrProtocol &other) = default;
    CmdMgrProtocol &operator=(CmdMgrProtocol &&other) = default;

    /// @p command is held by @p manager now; null when the manager refused what it was handed.
    virtual void commandAdded(CmdMgr *manager, CommandBase *command);
    /// The command @p id leaves @p manager; it is still there while direct observers hear of it.
    virtual void commandRemoved(CmdMgr *manager, QString id);
};

} // namespace Vela::UiBase

extern template class Tessel::Broadcaster<Vela::UiBase::CmdMgrProtocol>;
extern template class Tessel::Delegator<Vela::UiBase::CmdMgrProtocol>;
