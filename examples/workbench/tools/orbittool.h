// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

#include "tools/cameratool.h"

namespace Workbench {

/// Turns the mesh with the pointer.
class OrbitTool : public CameraTool
{
public:
    OrbitTool(Vela::UiBase::BaseView *view, std::shared_ptr<CameraRig> rig);

protected:
    void drag(const QPointF &pixels) override;
};

} // namespace Workbench
