// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

#include "ui_base/uibaseexport.h"

#include <QMetaType>

class QObject;

namespace Vela::UiBase {

/// The side on which a popup stands beside its reference, and the edge of a window that a
/// sub-widget takes up.
enum class EDirection : int {
    Left = 0,       ///< to the left of it
    Top = 1,        ///< above it
    Right = 2,      ///< to the right of it
    Bottom = 3,     ///< below it
    NoDirection = 4 ///< no side is chosen
};

/// How a popup is aligned with its reference along the edge that they share.
enum class EWidgetsAlign : int {
    AlignStart = 0,  ///< left edges flush, or top edges
    AlignCenter = 1, ///< centres flush
    AlignEnd = 2     ///< right edges flush, or bottom edges
};

/// Reads a direction out of the dynamic property @p name of @p object, as "direction_to" holds one.
/// A value of another type is converted, so that a number or its text will do. Registers the
/// metatype on first use.
/// @return NoDirection for a null object; Left for a property that is not set and for a value that
///         does not convert; a number that is no enumerator comes back as it is
LUMO_UI_BASE_EXPORT EDirection DirectionProperty(const QObject *object, const char *name);

} // namespace Vela::UiBase

Q_DECLARE_METATYPE(Vela::UiBase::EDirection)
Q_DECLARE_METATYPE(Vela::UiBase::EWidgetsAlign)
