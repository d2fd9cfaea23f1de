// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

#include "ui_base/command/cmdmgr.h"
#include "ui_base/tool/toolstack.h"
#include "ui_base/uibaseexport.h"
#include "ui_base/viewcontroller/baseviewcontroller.h"

namespace Vela::UiBase {

class CmdsViewControllerPrivate;
class CommandGroup;

/// The controller of a working view: a view controller that is the stack of its tools and the
/// manager of its commands as well, and the place where the three meet.
///
/// Each input event of the view is offered to the running command first, if that is a
/// ViewResponder. What it does not consume goes to a tool: a press to the tool of its button, a
/// move and a release to the operating tool, keys to the left tool. A right press is held back
/// until the mouse moves, so that a right click stays free for a context menu. The cursors of the
/// tools are put on the view and taken off again. The first show of the view fetches the commands
/// of the application manager; the close unchecks and removes them.
///
/// The observer lists of PresentViewProtocol and CmdMgrProtocol are two: what both of them have
/// under one name is told apart by its argument, or by naming the base as in
/// CmdMgr::removeAllObservers().
///
/// Lives as BaseViewController tells. One without a view has to be owned by a shared pointer before
/// a tool is pushed on it. Main thread only, apart from what the bases allow.
/// \sa docs/views.md, docs/tools.md
class LUMO_UI_BASE_EXPORT CmdsViewController : public BaseViewController,
                                               public ToolStack,
                                               public CmdMgr
{
    Q_OBJECT

public:
    /// Makes a view with a window of its own, which owns the controller from now on. There are no
    /// groups for panels.
    CmdsViewController();
    /// Hands the controller to @p view, which owns it from now on, and makes the groups for panels.
    /// With null it has no view, no groups, and belongs to the caller.
    explicit CmdsViewController(BaseView *view);
    /// Lets go of tools and commands. The commands that others own too have no controller
    /// afterwards.
    ~CmdsViewController() override;

    /// A shared pointer to this controller; adopts one that nobody owns yet. Null while it is being
    /// destroyed.
    std::shared_ptr<CmdsViewController> shared_from_this();

    using BaseViewController::addObserver;
    using BaseViewController::removeObserver;
    using BaseViewController::setDelegate;
    using CmdMgr::addObserver;
    using CmdMgr::removeObserver;
    using CmdMgr::setDelegate;

    /// The group for the commands of an action panel, exclusive. Owned by the controller and not
    /// among its commands until a host adds it, which it does for them to take part in contexts and
    /// to be removed with the view; null in a controller that was made without a view. Its title,
    /// which is its tool tip, follows the language of the application unless a host has put another
    /// one in its place.
    CommandGroup *ActionPanelGroup() const;
    /// The same for a tool bar. Not exclusive: several tools can be checked at once.
    CommandGroup *ToolPanelGroup() const;
    /// The same for the tool bars that come and go, exclusive.
    CommandGroup *DynamicToolPanelGroup() const;

    /// Command, then the tool of the button, whose own rules apply to a press before it: another
    /// operating tool ends its operation.
    bool mouseDoubleClick(QMouseEvent *event) override;
    /// Command, then the operating tool. Without one the tool of the highest button held, right
    /// above middle above left, and of the left one when none is held; a right press that was held
    /// back goes ahead of the move.
    bool mouseMove(QMouseEvent *event) override;
    /// Command, then the tool of the button, after another operating tool has ended its operation.
    /// A right press ends such an operation too, but is held back and not consumed.
    bool mousePress(QMouseEvent *event) override;
    /// Command, then the operating tool. Forgets a right press that is held back.
    bool mouseRelease(QMouseEvent *event) override;
    /// Command, then the left tool, then the tool of eToolButtonNone. While another tool than that
    /// one operates, no tool.
    bool mouseWheel(QWheelEvent *event) override;
    /// The command only, as for the following ones.
    bool mouseEnter(QEvent *event) override;
    /// \copydoc mouseEnter
    bool mouseLeave(QEvent *event) override;
    /// \copydoc mouseEnter
    bool mouseDragEnter(QDragEnterEvent *event) override;
    /// \copydoc mouseEnter
    bool mouseDragLeave(QDragLeaveEvent *event) override;
    /// \copydoc mouseEnter
    bool mouseDragMove(QDragMoveEvent *event) override;
    /// \copydoc mouseEnter
    bool mouseDrop(QDropEvent *event) override;
    /// Command, then the left tool, also while another one operates.
    bool keyPress(QKeyEvent *event) override;
    /// Command, then the left tool, also while another one operates.
    bool keyRelease(QKeyEvent *event) override;

    /// Puts the idle cursor of the tool on the view if it is the top of the left stack. This and
    /// the other callbacks touch no cursor while resetTools() runs, or without a view.
    void toolActivated(InteractiveTool *tool) override;
    /// Takes the idle cursor of the top of the left stack off again.
    void toolDeactivated(InteractiveTool *tool) override;
    /// Suspends the left tool, which takes its cursor off, then puts the operating cursor on the
    /// view.
    void toolBeganOperating(InteractiveTool *tool) override;
    /// Takes the operating cursor off, then resumes the left tool, which puts its own on again.
    void toolEndedOperating(InteractiveTool *tool) override;
    /// As toolDeactivated().
    void toolSuspended(InteractiveTool *tool) override;
    /// As toolActivated().
    void toolResumed(InteractiveTool *tool) override;
    /// Replaces the cursor of the view by the tool's operating cursor.
    void toolCursorChange(InteractiveTool *tool) override;

    /// Adds the commands that the application manager has for this controller, in its order. A
    /// command without an id is skipped with a warning. Overrides have to call it.
    void viewDidLoad() override;
    /// Takes every command to its inactive state, within the call, and removes them all. Overrides
    /// that agree to the close have to call it, and those that refuse must not: the commands come
    /// back with the next show only.
    ///
    /// A command that runs in the background goes on with its run, of which nothing is shown any
    /// more, and ends with it. Its work must not ask for getViewController(), which may die
    /// meanwhile. A host that wants to hear of the end holds the command until then:
    ///
    /// @code
    /// auto *const command = new ExportCommand(controller); // with a background quality of service
    /// controller->addCommand(command);
    /// m_export = command->shared_from_this(); // a std::shared_ptr<CommandBase> of the host
    /// command->addObserver(m_exportObserver, true); // lets go of m_export when the run has ended
    /// command->trigger();
    /// @endcode
    /// @return true
    bool viewWillClose() override;

    /// If @p command asks for notification, shows the busy cursor while it runs, and its message
    /// for the begin, if it has one, pulsing until the end.
    void commandBeganExecuting(CommandBase *command, bool checked) override;
    /// Takes the busy cursor of the run away and, if the command asks for notification, shows its
    /// message for the end in place of the one for the begin; without one that is hidden.
    void commandEndedExecuting(CommandBase *command, bool checked) override;

    /// Gives the groups their titles when the language has changed. Overrides have to call it.
    bool event(QEvent *event) override;

protected:
    /// Sends no input to the command any more. What is shown for a run of it stays until that ends.
    void letGoOf(CommandBase *command) override;

private:
    std::shared_ptr<InteractiveTool> handOver(Qt::MouseButton button);

    const std::unique_ptr<CmdsViewControllerPrivate> d;
    Q_DISABLE_COPY(CmdsViewController)
};

} // namespace Vela::UiBase
