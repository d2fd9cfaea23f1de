// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "ui_base/toolbar/toolbargeometry_p.h"

#include <algorithm>

namespace Vela::UiBase::Internal {
namespace {

QRect pushedOut(const QRect &rect, int radius, Qt::ToolBarArea area)
{
    switch (area) {
    case Qt::LeftToolBarArea:
        return rect.adjusted(-radius, 0, 0, 0);
    case Qt::RightToolBarArea:
        return rect.adjusted(0, 0, radius, 0);
    case Qt::TopToolBarArea:
        return rect.adjusted(0, -radius, 0, 0);
    case Qt::BottomToolBarArea:
        return rect.adjusted(0, 0, 0, radius);
    default:
        return rect;
    }
}

QPainterPath rounded(const QRect &rect, int radius)
{
    QPainterPath path;
    path.addRoundedRect(rect, radius, radius, Qt::AbsoluteSize);
    return path;
}

QPainterPath square(const QRect &rect)
{
    QPainterPath path;
    path.addRect(rect);
    return path;
}

} // namespace

int iconSizeDifference(int buttonWidth)
{
    return buttonWidth - std::max((buttonWidth + 14) / 2, buttonWidth - buttonWidth / 3);
}

QPainterPath cornerShape(ToolBar::EToolBarRoundCorner corners, const QRect &rect, int radius,
                         Qt::ToolBarArea area)
{
    switch (corners) {
    case ToolBar::EToolBarRoundCorner::RoundAllCorners:
        return rounded(rect, radius);
    case ToolBar::EToolBarRoundCorner::RoundOuterCorners:
        return rounded(pushedOut(rect, radius, area), radius).intersected(square(rect));
    case ToolBar::EToolBarRoundCorner::NoRoundCorners:
        break;
    }
    return square(rect);
}

QRect separatorAfter(bool afterHorizontally, const QRect &button, int spacing, int margin)
{
    const QRect gap = afterHorizontally
        ? QRect(button.right() + 1, button.top(), spacing, button.height())
              .adjusted(0, margin, 0, -margin)
        : QRect(button.left(), button.bottom() + 1, button.width(), spacing)
              .adjusted(margin, 0, -margin, 0);
    // In a gap shorter than both margins the ends change places.
    return QRectF(gap).normalized().toRect();
}

QPoint placeAtSide(Qt::ToolBarArea area, const QSize &parent, const QSize &bar, QPoint offset,
                   bool centered)
{
    const QSize room = parent - bar;
    const bool isAtLeftOrRight = area == Qt::LeftToolBarArea || area == Qt::RightToolBarArea;
    if (centered)
        (isAtLeftOrRight ? offset.ry() : offset.rx()) =
            (isAtLeftOrRight ? room.height() : room.width()) / 2;
    switch (area) {
    case Qt::LeftToolBarArea:
    case Qt::TopToolBarArea:
        return offset;
    case Qt::RightToolBarArea:
        return {room.width() - offset.x(), offset.y()};
    case Qt::BottomToolBarArea:
        return {offset.x(), room.height() - offset.y()};
    default:
        return {};
    }
}

QPoint placeOfSlide(Qt::ToolBarArea area, bool inside, const QRect &parent, const QRect &widget,
                    const QPoint &pos, const QPoint &offset)
{
    switch (area) {
    case Qt::LeftToolBarArea:
        return {inside ? parent.left() + offset.x() : parent.left() - widget.width(), pos.y()};
    case Qt::RightToolBarArea:
        return {parent.right() + 1 - (inside ? widget.width() + offset.x() : 0), pos.y()};
    case Qt::TopToolBarArea:
        return {pos.x(), inside ? parent.top() + offset.y() : parent.top() - widget.height()};
    case Qt::BottomToolBarArea:
        return {pos.x(), parent.bottom() + 1 - (inside ? widget.height() + offset.y() : 0)};
    default:
        return pos;
    }
}

} // namespace Vela::UiBase::Internal
