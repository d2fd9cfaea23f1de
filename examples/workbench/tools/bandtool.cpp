// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "tools/bandtool.h"

#include "view/camerarig.h"
#include "view/facepicker.h"
#include "view/meshview.h"

#include <ui_base/BaseView>

#include <QMouseEvent>

#include <utility>

namespace Workbench {

BandTool::BandTool(Vela::UiBase::BaseView *view, SelectionScene scene)
    : SelectionTool(view, std::move(scene))
{
    setOperatingCursor(Qt::CrossCursor);
}

bool BandTool::mouseMove(QMouseEvent *event)
{
    if (!InteractiveTool::mouseMove(event))
        return false;
    showBand(bandTo(event->pos()));
    return true;
}

bool BandTool::mouseRelease(QMouseEvent *event)
{
    const QRect band = bandTo(event->pos());
    // Ended first: who hears of the selection finds the tool at rest.
    if (!InteractiveTool::mouseRelease(event))
        return false;
    select(scene().picker->facesIn(*scene().rig, band), event->modifiers());
    return true;
}

void BandTool::endOperation()
{
    showBand({});
    SelectionTool::endOperation();
}

void BandTool::showBand(const QRect &band)
{
    auto *const view = getView() ? qobject_cast<MeshView *>(getView()->getQtWidget()) : nullptr;
    if (view)
        view->setBand(band);
}

QRect BandTool::bandTo(const QPoint &position) const
{
    return QRect(startEvent().pos(), position).normalized();
}

} // namespace Workbench
