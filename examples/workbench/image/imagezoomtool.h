// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

#include <ui_base/InteractiveTool>

namespace Workbench {

/// Makes an image larger and smaller with the wheel. What lies under the pointer stays there.
class ImageZoomTool : public Vela::UiBase::InteractiveTool
{
public:
    /// @param view a view whose widget is an ImageView
    explicit ImageZoomTool(Vela::UiBase::BaseView *view);

    bool mouseWheel(QWheelEvent *event) override;
};

} // namespace Workbench
