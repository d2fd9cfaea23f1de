// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "ui_base/qtui/mouseeventclone_p.h"

#include <QMouseEvent>
#include <QWidget>

namespace Vela::UiBase::Internal {

std::unique_ptr<QMouseEvent> mouseEventFor(const QWidget &target, const QMouseEvent &event)
{
    const QPoint local = target.mapFromGlobal(event.globalPos());
    const QPointF fraction = event.screenPos() - QPointF(event.globalPos());
    auto clone = std::make_unique<QMouseEvent>(
        event.type(), local + fraction, target.mapTo(target.window(), local) + fraction,
        event.screenPos(), event.button(), event.buttons(), event.modifiers(), event.source());
    clone->setTimestamp(event.timestamp());
    return clone;
}

} // namespace Vela::UiBase::Internal
