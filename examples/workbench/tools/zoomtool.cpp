// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "tools/zoomtool.h"

#include "view/camerarig.h"

#include <QWheelEvent>

#include <cmath>
#include <utility>

namespace Workbench {

ZoomTool::ZoomTool(Vela::UiBase::BaseView *view, std::shared_ptr<CameraRig> rig)
    : InteractiveTool(view)
    , m_rig(std::move(rig))
{ }

bool ZoomTool::mouseWheel(QWheelEvent *event)
{
    const int turn = event->angleDelta().y();
    if (turn == 0)
        return false;
    constexpr float factorOfNotch = 1.15F;
    constexpr float turnOfNotch = 120.0F; // eighths of a degree
    m_rig->zoomAt(event->position(), std::pow(factorOfNotch, float(-turn) / turnOfNotch));
    return true;
}

} // namespace Workbench
