// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

#include "ui_base/popup/arrowedwindow_p.h"
#include "ui_base/qtui/tooltip/atooltipobject_p.h"

#include <QCoreApplication>
#include <QCursor>
#include <QLabel>
#include <QMetaObject>
#include <QTimer>
#include <QWidget>

#include <memory>

namespace Lumo::Test {

/// A window with two hosts side by side. It is far from the edges of the screen, and the pointer
/// starts far from it.
struct TooltipScene
{
    std::unique_ptr<QWidget> window = std::make_unique<QWidget>();
    QPointer<QWidget> host = new QWidget(window.get());
    QPointer<QWidget> other = new QWidget(window.get());

    TooltipScene()
    {
        movePointer(QPoint(5, 5));
        window->setGeometry(100, 100, 500, 400);
        host->setGeometry(100, 180, 60, 40);
        other->setGeometry(300, 180, 60, 40);
        window->show();
        QCoreApplication::processEvents();
    }

    /// The pointer comes to a place of the screen, and whoever is there hears of it.
    static void movePointer(const QPoint &place)
    {
        QCursor::setPos(place);
        QCoreApplication::processEvents();
    }
    static void pointAt(const QWidget *widget, const QPoint &offset = {})
    {
        movePointer(widget->mapToGlobal(widget->rect().center() + offset));
    }
    static void pointNowhere() { movePointer(QPoint(5, 5)); }
};

/// Makes the state of a tooltip of the kind @p Tooltip visible to a test.
template<typename Tooltip>
class Peek : public Tooltip
{
public:
    using Tooltip::Tooltip;

    Vela::UiBase::ATooltipObjectPrivate &state() const { return *this->d_ptr; }
    QTimer *showTimer() const { return state().tooltipTimer; }
    QTimer *dismissTimer() const { return state().dismissTimer.data(); }
    QTimer *checkTimer() const { return state().checkTimer.data(); }
    QWidget *popup() const { return state().tooltipWindow; }
};

/// The end of a timer's time, without waiting for it.
inline void fire(QTimer *timer)
{
    QMetaObject::invokeMethod(timer, "timeout", Qt::DirectConnection);
}

inline Vela::UiBase::ArrowedWindowPrivate &stateOf(Vela::UiBase::ArrowedWindow *window)
{
    struct Opened : Vela::UiBase::ArrowedWindow
    {
        static auto member() { return &Opened::d_ptr; }
    };
    return *(window->*Opened::member());
}

inline QPoint originOf(const QWidget *widget)
{
    return widget->mapToGlobal(QPoint(0, 0));
}

} // namespace Lumo::Test
