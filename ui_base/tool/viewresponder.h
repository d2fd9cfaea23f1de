// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

#include "ui_base/uibaseexport.h"

class QDragEnterEvent;
class QDragLeaveEvent;
class QDragMoveEvent;
class QDropEvent;
class QEvent;
class QKeyEvent;
class QMouseEvent;
class QWheelEvent;

namespace Vela::UiBase {

/// Takes part in the routing of a view's input: view controllers, tools and commands that want
/// input derive from it and override what they listen to.
///
/// Each operation gets the event as the view's widget got it, positions relative to that widget in
/// logical pixels, and answers whether it consumed the event. A consumed event reaches neither the
/// next responder nor the widget. By default every operation does nothing and answers false. The
/// events are not null, belong to the caller and end with the call. Main thread only.
///
/// The interface owns nothing and nothing is deleted through it.
class LUMO_UI_BASE_EXPORT ViewResponder
{
public:
    /// A button was pressed for the second time in quick succession; there was no further press.
    virtual bool mouseDoubleClick(QMouseEvent *event);
    /// The pointer moved. Whether moves without a button arrive is up to the view's widget.
    virtual bool mouseMove(QMouseEvent *event);
    /// A button went down.
    virtual bool mousePress(QMouseEvent *event);
    /// A button came up.
    virtual bool mouseRelease(QMouseEvent *event);
    /// The wheel was turned, or a touch pad scrolled.
    virtual bool mouseWheel(QWheelEvent *event);
    /// The pointer came in.
    virtual bool mouseEnter(QEvent *event);
    /// The pointer left.
    virtual bool mouseLeave(QEvent *event);
    /// Something that can be dropped was dragged in; accept the event to hear of its moves.
    virtual bool mouseDragEnter(QDragEnterEvent *event);
    /// What was dragged in left again.
    virtual bool mouseDragLeave(QDragLeaveEvent *event);
    /// What was dragged in moved on.
    virtual bool mouseDragMove(QDragMoveEvent *event);
    /// What was dragged in was dropped.
    virtual bool mouseDrop(QDropEvent *event);
    /// A key went down, or repeats.
    virtual bool keyPress(QKeyEvent *event);
    /// A key came up.
    virtual bool keyRelease(QKeyEvent *event);

protected:
    ViewResponder() = default;
    ViewResponder(const ViewResponder &other) = default;
    ViewResponder &operator=(const ViewResponder &other) = default;
    ~ViewResponder() = default;
};

} // namespace Vela::UiBase
