// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QPainterPath>
#include <QPointF>
#include <QRect>
#include <QRectF>

namespace Vela::UiBase::Internal {

/// The triangle of an arrow. Its base stands on the edge of the content, so inside of the rounded
/// rectangle, or on its edge when that is not rounded.
struct ArrowTriangle
{
    QPointF apex;
    QPointF first;
    QPointF second;
};

/// What an outline is made of: a rectangle with rounded corners, sharp ones for a radius of 0, and
/// a triangle that is united with it.
struct ArrowShape
{
    QRect rect;
    int radius = 0;
    ArrowTriangle triangle;
};

/// Sets @p path to the outline moved by @p shift, with the points that QPainterPath::united() and
/// simplified() give. The memory of the path is used again.
void setToArrowOutline(QPainterPath &path, const ArrowShape &shape, const QPointF &shift);

/// The bounding rectangle of the outline. Costs next to nothing when the corners are round.
QRectF arrowOutlineBounds(const ArrowShape &shape);

} // namespace Vela::UiBase::Internal
