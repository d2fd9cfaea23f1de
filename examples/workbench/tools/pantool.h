// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

#include "tools/cameratool.h"

namespace Workbench {

/// Moves the mesh with the pointer.
class PanTool : public CameraTool
{
public:
    PanTool(Vela::UiBase::BaseView *view, std::shared_ptr<CameraRig> rig);

protected:
    void drag(const QPointF &pixels) override;
};

} // namespace Workbench
