// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "ui_base/popup/layershape_p.h"

#include "ui_base/popup/floatinglayer.h"

#include <QGuiApplication>
#include <QRegion>

namespace Vela::UiBase::Internal {
namespace {

// The platforms without a screen only warn.
bool canShapeWindows()
{
    const QString platform = QGuiApplication::platformName();
    return platform != QLatin1String("offscreen") && platform != QLatin1String("minimal");
}

} // namespace

void cutOutLayer(QWidget &floating, const QRegion &seen)
{
    auto *const layer = qobject_cast<FloatingLayer *>(floating.parentWidget());
    if (!layer || !canShapeWindows())
        return;
    // An empty mask is none at all to Qt.
    const QRegion mask = seen.isEmpty() ? QRegion(-1, -1, 1, 1) : seen;
    layer->setMask(mask.translated(FloatingLayer::getWidgetOffset(&floating)));
}

void restoreLayer(QWidget &floating)
{
    auto *const layer = qobject_cast<FloatingLayer *>(floating.parentWidget());
    if (layer && !layer->mask().isEmpty())
        layer->clearMask();
}

} // namespace Vela::UiBase::Internal
