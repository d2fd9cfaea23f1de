// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QRect>

class QWidget;

namespace Vela::UiBase::Internal {

/// The rectangle of a widget on the screen.
QRect areaOnScreen(const QWidget &widget);

/// The rectangle on the screen of the window in which @p widget is shown; for one in a layer that
/// floats the window below. It bounds a popup whose place is worked out on the screen and that has
/// no other bounds: left to itself the calculator takes the rectangle of the active window in the
/// coordinates of that window. Null without an active window, as nothing bounds a popup then.
QRect windowAreaOnScreen(const QWidget &widget);

} // namespace Vela::UiBase::Internal
