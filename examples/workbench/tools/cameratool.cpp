// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "tools/cameratool.h"

#include "view/camerarig.h"

#include <QMouseEvent>

#include <utility>

namespace Workbench {

CameraTool::CameraTool(Vela::UiBase::BaseView *view, std::shared_ptr<CameraRig> rig)
    : InteractiveTool(view)
    , m_rig(std::move(rig))
{ }

void CameraTool::finish()
{
    if (isOperating())
        endOperation();
}

void CameraTool::startOperation()
{
    m_last = startEvent().localPos();
    InteractiveTool::startOperation();
}

bool CameraTool::mouseMove(QMouseEvent *event)
{
    if (!InteractiveTool::mouseMove(event))
        return false;
    const QPointF before = std::exchange(m_last, event->localPos());
    drag(m_last - before);
    return true;
}

} // namespace Workbench
