// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "tools/pantool.h"

#include "view/camerarig.h"

#include <QCursor>

#include <utility>

namespace Workbench {

PanTool::PanTool(Vela::UiBase::BaseView *view, std::shared_ptr<CameraRig> rig)
    : CameraTool(view, std::move(rig))
{
    setOperatingCursor(Qt::SizeAllCursor);
}

void PanTool::drag(const QPointF &pixels)
{
    rig().pan(pixels);
}

} // namespace Workbench
