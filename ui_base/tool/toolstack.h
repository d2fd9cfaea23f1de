// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

#include "core/sharedobject.h"
#include "ui_base/tool/toolstateprotocol.h"
#include "ui_base/uibaseexport.h"

#include <memory>

class QMouseEvent;

namespace Vela::UiBase {

class InteractiveTool;
class ToolStackPrivate;

/// The button that a stack of tools belongs to. The values are those of Qt::MouseButton, so the
/// button of a mouse event serves as a key after a cast, also one that is not listed here.
enum EToolActivationButton : int {
    eToolButtonNone = 0,  ///< tools that want the wheel only; also a press without a button
    eToolButtonLeft = 1,  ///< the main tool of a view; it alone gets keys and sets the idle cursor
    eToolButtonRight = 2, ///< tools of the right button
    eToolButtonMiddle = 4 ///< tools of the middle button
};

/// The tools of a view: for each mouse button a stack, whose top is the tool that is in use. A
/// temporary tool is pushed over the one in use and comes off again.
///
/// Pushing activates a tool and suspends the one below it; popping deactivates it and resumes that
/// one. The stack is the delegate of every tool on it: while a tool of another button operates, it
/// keeps the top of the left stack suspended. Tools are shared; which tool an event goes to is for
/// the view controller to decide.
///
/// A stack must be owned by a std::shared_ptr before the first push: an unowned one is adopted by
/// the push and dies with it.
///
/// Main thread only. Callbacks of tools may push and pop tools, with one exception: while
/// resetTools() runs, which calls them on other threads too, the stack answers as if it were empty
/// and changes nothing.
/// \sa InteractiveTool, docs/tools.md
class LUMO_UI_BASE_EXPORT ToolStack : public virtual Tessel::SharedObject<ToolStack>,
                                      public ToolStateProtocol
{
public:
    ToolStack();
    /// Lets go of the tools as clearTools() does.
    ~ToolStack() override;

    /// The hand-over: suspends the top of the left stack unless that is @p tool. Tools below it and
    /// other stacks are left alone. Null is ignored.
    void toolBeganOperating(InteractiveTool *tool) override;
    /// The hand-over back: resumes the top of the left stack unless that is @p tool. Null is
    /// ignored.
    void toolEndedOperating(InteractiveTool *tool) override;

    /// Lets go of all tools at once. They are neither deactivated nor told; one that somebody else
    /// owns too keeps its state and this stack as its delegate.
    virtual void clearTools();

    /// Suspends the top of the stack of @p button, puts @p tool on it, makes this stack the tool's
    /// delegate, which removes all its observers, and activates it. An operating top goes on
    /// operating below. Null and the empty tool of getTool() are ignored.
    ///
    /// A tool may be on more than one stack when it is ready for its delegate to be replaced by the
    /// later push and removed by the first pop.
    virtual void pushTool(EToolActivationButton button, std::shared_ptr<InteractiveTool> tool);
    /// Deactivates the top of the stack of @p button, takes it off, resumes the tool below and
    /// removes all observers of the one taken off, in this order. A tool that is operating or
    /// suspended comes off in that state.
    /// @return the tool taken off; null when there is none
    virtual std::shared_ptr<InteractiveTool> popTool(EToolActivationButton button);
    /// The top of the stack of @p button. Without one the empty tool, which consumes no input and
    /// is the same for all stacks; never null.
    virtual std::shared_ptr<InteractiveTool> getTool(EToolActivationButton button);
    /// The tool that operates on top of any stack, or null. An operating tool below the top is not
    /// seen. With several of them, which take more than the mouse to get, it is any one.
    virtual std::shared_ptr<InteractiveTool> getOperatingTool() const;

    /// Whether there is no tool for @p button.
    bool isEmpty(EToolActivationButton button);

    /// Takes every active or suspended tool through one full cycle, so that it can make anew what
    /// it derives from the view or the document: an active one is deactivated and activated, a
    /// suspended one resumed, deactivated, activated and suspended. Operating and inactive tools
    /// are left alone.
    ///
    /// Each stack goes from its top down, with each tool off the stack during its cycle. The stacks
    /// go in parallel, on this thread and on workers, and the call returns when all are done. Tools
    /// of one stack never run at the same time, and neither do those of any two stacks when one
    /// tool is on both. Afterwards each stack is as it was.
    ///
    /// An exception out of a tool reaches the caller; the tools that had not had their turn may go
    /// without. A call from within a reset does nothing.
    void resetTools();

    ToolStack(const ToolStack &) = delete;
    ToolStack &operator=(const ToolStack &) = delete;

protected:
    /// Whether resetTools() runs. May be called on any thread; an override of a tool callback asks
    /// it when it would touch what belongs to the main thread.
    bool isResetting() const;

    /// A right press that is held back until it shows whether it begins a drag; null when there is
    /// none. The stack only owns it; the view controller sets and clears it.
    std::unique_ptr<QMouseEvent> m_pendingRightPress;

private:
    const std::unique_ptr<ToolStackPrivate> d;
};

} // namespace Vela::UiBase
