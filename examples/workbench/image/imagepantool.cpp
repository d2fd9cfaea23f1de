// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "image/imagepantool.h"

#include "image/imageview.h"

#include <ui_base/BaseView>

#include <QCursor>
#include <QMouseEvent>

#include <utility>

namespace Workbench {

ImagePanTool::ImagePanTool(Vela::UiBase::BaseView *view)
    : InteractiveTool(view)
{
    setIdleCursor(Qt::OpenHandCursor);
    setOperatingCursor(Qt::ClosedHandCursor);
}

void ImagePanTool::finish()
{
    if (isOperating())
        endOperation();
}

void ImagePanTool::startOperation()
{
    m_last = startEvent().localPos();
    InteractiveTool::startOperation();
}

bool ImagePanTool::mouseMove(QMouseEvent *event)
{
    if (!InteractiveTool::mouseMove(event))
        return false;
    const QPointF before = std::exchange(m_last, event->localPos());
    if (auto *const image = qobject_cast<ImageView *>(getView()->getQtWidget()))
        image->pan(m_last - before);
    return true;
}

} // namespace Workbench
