// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "tools/picktool.h"

#include "view/camerarig.h"
#include "view/facepicker.h"

#include <QAction>
#include <QGuiApplication>
#include <QMouseEvent>
#include <QStyleHints>

#include <utility>

namespace Workbench {

PickTool::PickTool(Vela::UiBase::BaseView *view, SelectionScene scene, QAction *command)
    : SelectionTool(view, std::move(scene))
    , m_command(command)
{
    setIdleCursor(Qt::PointingHandCursor);
    setOperatingCursor(Qt::PointingHandCursor);
}

bool PickTool::mouseRelease(QMouseEvent *event)
{
    const QPoint pressed = startEvent().pos();
    if (!InteractiveTool::mouseRelease(event))
        return false;
    const int moved = (event->pos() - pressed).manhattanLength();
    if (moved >= QGuiApplication::styleHints()->startDragDistance())
        return true;
    const int face = scene().picker->faceAt(*scene().rig, event->localPos());
    select(face < 0 ? QVector<int>() : QVector<int> {face}, event->modifiers());
    return true;
}

bool PickTool::keyPress(QKeyEvent *event)
{
    if (event->key() != Qt::Key_Escape || !m_command)
        return false;
    m_command->setChecked(false);
    return true;
}

} // namespace Workbench
