// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

#include <ui_base/BaseView>
#include <ui_base/InteractiveTool>

#include <QCursor>
#include <QMouseEvent>
#include <QPainter>
#include <QPolygonF>
#include <QWidget>

/// A view that paints itself. Events, commands and tools come to its controller.
class ShapeView : public Vela::UiBase::BaseView
{
public:
    explicit ShapeView(QWidget *parent)
        : BaseView(parent, Qt::WindowFlags())
    { }

    QPolygonF shape() const { return m_shape; }
    void setShape(const QPolygonF &shape)
    {
        m_shape = shape;
        update();
    }
    void turn(double degrees)
    {
        m_angle += degrees;
        update();
    }
    void setFilled(bool filled)
    {
        m_filled = filled;
        update();
    }

protected:
    void paintEvent(QPaintEvent *) override
    {
        QPainter painter(getQtWidget());
        painter.setRenderHint(QPainter::Antialiasing);
        painter.fillRect(getRect(), painter.background());
        painter.translate(getRect().center());
        painter.rotate(m_angle);
        if (m_filled)
            painter.setBrush(Qt::darkCyan);
        painter.drawPolygon(m_shape);
    }

private:
    QPolygonF m_shape {{{-90, -90}, {90, -90}, {30, 0}, {90, 90}, {-90, 90}, {-30, 0}}};
    double m_angle = 0;
    bool m_filled = false;
};

/// Turns the shape while the mouse is dragged.
class TurnTool : public Vela::UiBase::InteractiveTool
{
public:
    explicit TurnTool(ShapeView *view)
        : InteractiveTool(view)
        , m_view(view)
    {
        setIdleCursor(Qt::OpenHandCursor);
        setOperatingCursor(Qt::ClosedHandCursor);
    }

    bool mousePress(QMouseEvent *event) override
    {
        m_last = event->x();
        return InteractiveTool::mousePress(event);
    }
    bool mouseMove(QMouseEvent *event) override
    {
        if (!InteractiveTool::mouseMove(event))
            return false;
        m_view->turn(event->x() - m_last);
        m_last = event->x();
        return true;
    }

private:
    ShapeView *const m_view;
    int m_last = 0;
};
