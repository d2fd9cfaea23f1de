// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

#include "core/delegator.h"
#include "ui_base/uibaseexport.h"

namespace Vela::UiBase {

class InteractiveTool;

/// Hears of the life of tools. The stack that a tool is on is its one observer; register others
/// with addObserver() after the push, which removes those there are. All operations do nothing by
/// default.
///
/// A tool has its new state already when it tells of it. An observer that is called directly hears
/// it on the thread that changed the tool: the main one, or any worker while
/// ToolStack::resetTools() runs. The tool is the sender and is not kept alive: an observer that is
/// served on the main queue can hear of a tool that has died meanwhile, and may then use the
/// pointer for comparison only. Copying or moving an observer copies none of its registrations.
class LUMO_UI_BASE_EXPORT ToolStateProtocol
{
public:
    ToolStateProtocol() = default;
    ToolStateProtocol(const ToolStateProtocol &other) = default;
    ToolStateProtocol(ToolStateProtocol &&other) = default;
    virtual ~ToolStateProtocol();

    ToolStateProtocol &operator=(const ToolStateProtocol &other) = default;
    ToolStateProtocol &operator=(ToolStateProtocol &&other) = default;

    /// The tool has become active from inactive.
    virtual void toolActivated(InteractiveTool *tool);
    /// The tool has become inactive.
    virtual void toolDeactivated(InteractiveTool *tool);
    /// The tool has started an operation.
    virtual void toolBeganOperating(InteractiveTool *tool);
    /// The tool has ended its operation and is active again.
    virtual void toolEndedOperating(InteractiveTool *tool);
    /// The tool has been put out of action for a while.
    virtual void toolSuspended(InteractiveTool *tool);
    /// The tool was suspended and is active again.
    virtual void toolResumed(InteractiveTool *tool);
    /// The operating cursor is to be shown: the tool has just begun to operate, or has set another
    /// cursor in the middle of its operation.
    virtual void toolCursorChange(InteractiveTool *tool);
};

} // namespace Vela::UiBase

extern template class Tessel::Broadcaster<Vela::UiBase::ToolStateProtocol>;
extern template class Tessel::Delegator<Vela::UiBase::ToolStateProtocol>;
