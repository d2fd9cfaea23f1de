// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "ui_base/tool/viewresponder.h"

namespace Vela::UiBase {

bool ViewResponder::mouseDoubleClick(QMouseEvent *)
{
    return false;
}

bool ViewResponder::mouseMove(QMouseEvent *)
{
    return false;
}

bool ViewResponder::mousePress(QMouseEvent *)
{
    return false;
}

bool ViewResponder::mouseRelease(QMouseEvent *)
{
    return false;
}

bool ViewResponder::mouseWheel(QWheelEvent *)
{
    return false;
}

bool ViewResponder::mouseEnter(QEvent *)
{
    return false;
}

bool ViewResponder::mouseLeave(QEvent *)
{
    return false;
}

bool ViewResponder::mouseDragEnter(QDragEnterEvent *)
{
    return false;
}

bool ViewResponder::mouseDragLeave(QDragLeaveEvent *)
{
    return false;
}

bool ViewResponder::mouseDragMove(QDragMoveEvent *)
{
    return false;
}

bool ViewResponder::mouseDrop(QDropEvent *)
{
    return false;
}

bool ViewResponder::keyPress(QKeyEvent *)
{
    return false;
}

bool ViewResponder::keyRelease(QKeyEvent *)
{
    return false;
}

} // namespace Vela::UiBase
