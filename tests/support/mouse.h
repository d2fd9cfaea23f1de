// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QApplication>
#include <QMouseEvent>
#include <QWidget>

namespace Lumo::Test {

/// Sends a mouse event to @p widget, from where it goes up to its parents as one of the user does.
/// @param at in logical pixels of the widget
/// @param buttons what is down afterwards
inline void sendMouse(QWidget *widget, QEvent::Type type, const QPoint &at, Qt::MouseButton button,
                      Qt::MouseButtons buttons)
{
    QMouseEvent event(type, at, widget->mapToGlobal(at), button, buttons, Qt::NoModifier);
    QApplication::sendEvent(widget, &event);
}

inline void press(QWidget *widget, const QPoint &at)
{
    sendMouse(widget, QEvent::MouseButtonPress, at, Qt::LeftButton, Qt::LeftButton);
}

inline void release(QWidget *widget, const QPoint &at)
{
    sendMouse(widget, QEvent::MouseButtonRelease, at, Qt::LeftButton, Qt::NoButton);
}

/// Moves the mouse with the left button down.
inline void dragTo(QWidget *widget, const QPoint &at)
{
    sendMouse(widget, QEvent::MouseMove, at, Qt::NoButton, Qt::LeftButton);
}

/// Moves the mouse with no button down.
inline void pointAt(QWidget *widget, const QPoint &at)
{
    sendMouse(widget, QEvent::MouseMove, at, Qt::NoButton, Qt::NoButton);
}

} // namespace Lumo::Test
