// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "image/imagezoomtool.h"

#include "image/imageview.h"

#include <ui_base/BaseView>

#include <QWheelEvent>

#include <cmath>

namespace Workbench {

ImageZoomTool::ImageZoomTool(Vela::UiBase::BaseView *view)
    : InteractiveTool(view)
{ }

bool ImageZoomTool::mouseWheel(QWheelEvent *event)
{
    const int turn = event->angleDelta().y();
    auto *const image = getView() ? qobject_cast<ImageView *>(getView()->getQtWidget()) : nullptr;
    if (turn == 0 || !image)
        return false;
    constexpr double factorOfNotch = 1.15;
    constexpr double turnOfNotch = 120.0; // eighths of a degree
    image->zoomAt(event->position(), std::pow(factorOfNotch, turn / turnOfNotch));
    return true;
}

} // namespace Workbench
