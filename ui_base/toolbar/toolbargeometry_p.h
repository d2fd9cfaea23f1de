// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

#include "ui_base/toolbar/toolbar.h"

#include <QPainterPath>
#include <QRect>

/// The measures of a tool bar, from values to values. Lengths are logical pixels.
namespace Vela::UiBase::Internal {

/// How much smaller an icon is than a button of the width @p buttonWidth.
int iconSizeDifference(int buttonWidth);

/// @p rect with rounded corners.
/// @param area the side on which the bar stands, where RoundOuterCorners leaves the corners square
QPainterPath cornerShape(ToolBar::EToolBarRoundCorner corners, const QRect &rect, int radius,
                         Qt::ToolBarArea area);

/// The separator in the gap of @p spacing beside or below @p button, @p margin shorter than that at
/// both ends, in the coordinates of @p button.
QRect separatorAfter(bool afterHorizontally, const QRect &button, int spacing, int margin);

/// Where a bar of the size @p bar keeps its place at the side @p area of a parent.
QPoint placeAtSide(Qt::ToolBarArea area, const QSize &parent, const QSize &bar, QPoint offset,
                   bool centered);

/// Where a widget that slides from the side @p area of its parent is at rest (@p inside) or just out
/// of sight.
QPoint placeOfSlide(Qt::ToolBarArea area, bool inside, const QRect &parent, const QRect &widget,
                    const QPoint &pos, const QPoint &offset);

} // namespace Vela::UiBase::Internal
