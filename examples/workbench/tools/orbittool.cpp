// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "tools/orbittool.h"

#include "view/camerarig.h"

#include <QCursor>

#include <utility>

namespace Workbench {

OrbitTool::OrbitTool(Vela::UiBase::BaseView *view, std::shared_ptr<CameraRig> rig)
    : CameraTool(view, std::move(rig))
{
    setIdleCursor(Qt::OpenHandCursor);
    setOperatingCursor(Qt::ClosedHandCursor);
}

void OrbitTool::drag(const QPointF &pixels)
{
    rig().orbit(pixels);
}

} // namespace Workbench
