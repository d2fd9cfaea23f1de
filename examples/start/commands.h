// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

#include "shapeview.h"

#include <ui_base/CmdsViewController>
#include <ui_base/CommandBase>
#include <ui_base/CommandContext>
#include <ui_base/QtUiToolkit>

#include <tessel/dispatch.h>

#include <QPointer>

/// Fills the shape while it is checked: work in place, on the main thread.
class FilledCommand : public Vela::UiBase::CommandBase
{
    Q_OBJECT
    COMMAND_ID

public:
    FilledCommand(ShapeView *view, Vela::UiBase::CmdsViewController *controller)
        : CommandBase(controller)
        , m_view(view)
    {
        setText(tr("Filled"));
        setCheckable(true);
        setIcon(Vela::UiBase::QtUiToolkit::Instance().CreateIcon(QStringLiteral("cmd_shaded")));
    }
    bool onExecuteAsync(bool checked) override
    {
        m_view->setFilled(checked);
        return true;
    }

private:
    const QPointer<ShapeView> m_view;
};

/// Cuts the corners of the shape: work in the background, on a copy.
class SmoothCommand : public Vela::UiBase::CommandBase
{
    Q_OBJECT
    COMMAND_ID

public:
    SmoothCommand(ShapeView *view, Vela::UiBase::CmdsViewController *controller)
        : CommandBase(controller)
        , m_view(view)
    {
        setText(tr("Smooth"));
        setShortcut(QKeySequence(Qt::CTRL + Qt::Key_M));
        setIcon(Vela::UiBase::QtUiToolkit::Instance().CreateIcon(QStringLiteral("cmd_smooth")));
        setExecutionQoS(Tessel::EQualityOfService::UserInitiated);
        enableExecutionNotification(true);
        setExecutionNotificationMessage(ENotification::ExecutionEnded,
                                        tr("The shape is smoother."));
    }

    // On the main thread: reads what the worker needs. One run at a time.
    bool onExecute(bool checked) override
    {
        if (m_isRunning)
            return false;
        m_isRunning = true;
        m_shape = m_view->shape();
        return CommandBase::onExecute(checked);
    }

    // On the worker: no widget, no action. The command lives until its run has ended.
    bool onExecuteAsync(bool) override
    {
        QPolygonF smooth;
        for (int i = 0, count = m_shape.size(); i < count; ++i) {
            const QPointF from = m_shape[i];
            const QPointF to = m_shape[(i + 1) % count];
            smooth << from + (to - from) / 4 << to - (to - from) / 4;
        }
        return Tessel::dispatchAsync([this, smooth] { show(smooth); },
                                     Tessel::EQualityOfService::Main);
    }

protected:
    // The commands of the controller are disabled meanwhile.
    Vela::UiBase::CommandContext getExecutionCommandContext() const override
    {
        return getViewController()->disabledContext(nullptr);
    }

private:
    void show(const QPolygonF &shape)
    {
        m_isRunning = false;
        if (m_view)
            m_view->setShape(shape);
    }

    const QPointer<ShapeView> m_view;
    QPolygonF m_shape;
    bool m_isRunning = false;
};
