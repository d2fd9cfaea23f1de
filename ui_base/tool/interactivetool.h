// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

#include "core/delegator.h"
#include "ui_base/tool/toolstateprotocol.h"
#include "ui_base/tool/viewresponder.h"
#include "ui_base/uibaseexport.h"

#include <memory>

class QCursor;
class QPoint;
class QString;

namespace Vela::UiBase {

class BaseView;
class InteractiveToolPrivate;

/// Where a tool is in its life.
enum EToolState : int {
    eToolInactive = 0,  ///< out of use, as a new tool is
    eToolActive = 1,    ///< ready to begin an operation
    eToolSuspended = 2, ///< put out of action for a while; it is active again when it is resumed
    eToolOperating = 3  ///< in the middle of an operation, such as a drag
};

/// Turns the mouse and key input of a view into an interaction: a pan, a pick, a rubber band.
///
/// Derive from it and override the input operations that the interaction needs, and
/// startOperation() and endOperation() to bracket its work:
///
/// @code
/// class PanTool : public Vela::UiBase::InteractiveTool
/// {
/// public:
///     explicit PanTool(Vela::UiBase::BaseView *view)
///         : InteractiveTool(view)
///     {
///         setIdleCursor(Qt::OpenHandCursor);
///         setOperatingCursor(Qt::ClosedHandCursor);
///     }
///
///     bool mouseMove(QMouseEvent *event) override
///     {
///         if (!InteractiveTool::mouseMove(event))
///             return false;
///         panTo(event->pos() - startEvent().pos());
///         return true;
///     }
/// };
/// @endcode
///
/// A tool does nothing by itself: push it on a ToolStack, which takes it through its life and
/// shares its ownership. Every change of state is guarded: asked for in another state than the one
/// it starts from, it does nothing and tells nobody. Observers see the new state already. They may
/// pop or push the tool from within their call, and delete it.
///
/// A tool has no lock. Everything happens on the main thread, with one exception: while
/// ToolStack::resetTools() runs, activate(), suspend(), resume() and deactivate() are called on any
/// thread, at the same time as those of tools of other buttons. Overrides of the four, and
/// observers that are called directly, must be ready for that.
/// \sa ToolStack, docs/tools.md
class LUMO_UI_BASE_EXPORT InteractiveTool : public ViewResponder,
                                            public Tessel::Delegator<ToolStateProtocol>
{
public:
    /// Makes an inactive tool with an arrow as its cursor.
    /// @param view the view that the tool works in, not owned; null is none
    explicit InteractiveTool(BaseView *view);
    /// Tells nobody, whatever state the tool is in.
    ~InteractiveTool() override;

    /// The view given to the constructor; null when there was none or it has died.
    BaseView *getView() const;

    /// Whether the tool is ready to begin an operation. An operating tool is not active in this
    /// sense. A tool of which none of the three is true is inactive.
    bool isActive() const;
    /// Whether the tool is put out of action for a while.
    bool isSuspended() const;
    /// Whether the tool is in the middle of an operation.
    bool isOperating() const;

    /// The cursor to show while the tool is active; the operating cursor when none was set. The
    /// reference is good until a cursor is set.
    const QCursor &getIdleCursor() const;
    /// The cursor to show while the tool operates; an arrow when none was set.
    const QCursor &getOperatingCursor() const;

    /// Takes the event only while the tool operates and the button that started the operation is
    /// among those held. Changes no state, also when that button has come up unseen.
    bool mouseMove(QMouseEvent *event) override;
    /// Takes every press that reaches the active tool, keeps a copy of it as startEvent() and
    /// starts the operation, which goes on until the same button comes up. In any other state the
    /// press is not taken and the copy stays as it is.
    bool mousePress(QMouseEvent *event) override;
    /// Ends the operation when @p event is of the button that started it. Other events are not
    /// taken.
    bool mouseRelease(QMouseEvent *event) override;

    /// From inactive to active; toolActivated() is sent.
    virtual void activate();
    /// From active to suspended; toolSuspended() is sent. An operating tool has to end its
    /// operation first.
    virtual void suspend();
    /// From suspended to active; toolResumed() is sent.
    virtual void resume();
    /// From active to inactive; toolDeactivated() is sent. An operating tool has to end its
    /// operation first, a suspended one has to be resumed.
    virtual void deactivate();

protected:
    /// From operating to active; toolEndedOperating() is sent. Forgets startEvent() in any state.
    virtual void endOperation();
    /// From active to operating; toolBeganOperating() is sent and then toolCursorChange(), the
    /// latter unless an observer of the former has ended the operation. An operation that was not
    /// started by a press, but from a key say, has no startEvent() and ends by endOperation() only.
    virtual void startOperation();

    /// Sets the cursor for an active tool. Nobody is told: it shows when the tool is activated or
    /// resumed the next time.
    void setIdleCursor(const QCursor &cursor);
    /// Sets the cursor for an operating tool, and for an active one that has no other. An operating
    /// tool sends toolCursorChange().
    void setOperatingCursor(const QCursor &cursor);
    /// Makes a cursor of an image file or resource. Main thread only.
    /// @param hotSpot the pixel of the image that points
    /// @return the default cursor when the image can't be read
    static QCursor loadCursorFromPath(const QString &path, const QPoint &hotSpot);

    /// The press that started the operation, its position relative to the view's widget in logical
    /// pixels. An event of type QEvent::None, without button and at the origin, while the tool does
    /// not operate and in an operation that no press started.
    const QMouseEvent &startEvent() const;

private:
    friend class CmdsViewController;

    using Notification = void (ToolStateProtocol::*)(InteractiveTool *);
    bool change(EToolState from, EToolState to, Notification notification);

    // Shared so that a notification can find out afterwards whether the tool has died of it.
    const std::shared_ptr<InteractiveToolPrivate> d;
};

} // namespace Vela::UiBase
