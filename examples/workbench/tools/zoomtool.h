// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

#include <ui_base/InteractiveTool>

#include <memory>

namespace Workbench {

class CameraRig;

/// Comes closer and goes away with the wheel. What lies under the pointer stays there.
class ZoomTool : public Vela::UiBase::InteractiveTool
{
public:
    ZoomTool(Vela::UiBase::BaseView *view, std::shared_ptr<CameraRig> rig);

    bool mouseWheel(QWheelEvent *event) override;

private:
    const std::shared_ptr<CameraRig> m_rig;
};

} // namespace Workbench
