// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "ui_base/popup/windowarea_p.h"

#include "ui_base/popup/floatinglayer.h"

#include <QApplication>

namespace Vela::UiBase::Internal {
namespace {

const QWidget &windowBelow(const QWidget &widget)
{
    const QWidget *window = widget.window();
    while (qobject_cast<const FloatingLayer *>(window) && window->parentWidget())
        window = window->parentWidget()->window();
    return *window;
}

} // namespace

QRect areaOnScreen(const QWidget &widget)
{
    return {widget.mapToGlobal(QPoint(0, 0)), widget.size()};
}

QRect windowAreaOnScreen(const QWidget &widget)
{
    return QApplication::activeWindow() ? areaOnScreen(windowBelow(widget)) : QRect();
}

} // namespace Vela::UiBase::Internal
