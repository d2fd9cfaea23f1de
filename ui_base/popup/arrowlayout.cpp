// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "ui_base/popup/arrowlayout_p.h"

#include <lumo_math/LumoMath>

#include <QLineF>
#include <QTransform>

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <optional>

namespace Vela::UiBase::Internal {
namespace {

using SArrowParam = ArrowedWindow::SArrowParam;

// Far longer than any window, so that a ray from the apex passes all of it.
constexpr qreal RayLength = 1000000;
// No measure needs more, and a few of it still make a widget that Qt can size.
constexpr int LongestLength = 1000000;
constexpr double Tolerance = 0.00001;
constexpr int ApexStep = 10;
// The openings repeat after two full turns, half of one being what the rays are turned by.
constexpr int ApexPeriod = 720;

int limited(int length)
{
    return std::clamp(length, -LongestLength, LongestLength);
}

QSize limited(const QSize &size)
{
    return size.expandedTo(QSize(0, 0)).boundedTo(QSize(QWIDGETSIZE_MAX, QWIDGETSIZE_MAX));
}

QPoint tipAt(EArrowPosition position, const QRect &r)
{
    switch (position) {
    case EArrowPosition::Top:
        return {r.center().x(), r.top()};
    case EArrowPosition::Bottom:
        return {r.center().x(), r.bottom()};
    case EArrowPosition::Left:
        return {r.left(), r.center().y()};
    case EArrowPosition::Right:
        return {r.right(), r.center().y()};
    case EArrowPosition::TopLeft:
        return r.topLeft();
    case EArrowPosition::TopRight:
        return r.topRight();
    case EArrowPosition::BottomRight:
        return r.bottomRight();
    default:
        return r.bottomLeft();
    }
}

int defaultAngle(EArrowPosition position)
{
    // In the order of the enumerators, from Top on.
    constexpr std::array angles {270, 90, 180, 0, 225, 315, 45, 135};
    return angles.at(std::size_t(position) - 1);
}

// The tip moved by the offset, or where it was when it would leave the rectangle.
QPoint shiftedTip(const SArrowParam &arrow, const QRect &content)
{
    const qint64 along = arrow.offsetAlongX ? arrow.tip.x() : arrow.tip.y();
    const qint64 moved = along + arrow.offset;
    if (moved != std::clamp<qint64>(moved, -QWIDGETSIZE_MAX, QWIDGETSIZE_MAX))
        return arrow.tip;
    const QPoint tip =
        arrow.offsetAlongX ? QPoint(int(moved), arrow.tip.y()) : QPoint(arrow.tip.x(), int(moved));
    return content.contains(tip) ? tip : arrow.tip;
}

bool isWithin(int value, int first, int last)
{
    return first <= value && value <= last;
}

// An angle that points out of the edge on which the tip stands.
int outwardAngle(int angle, const QPoint &tip, const QRect &content)
{
    if (tip.x() == content.left())
        return isWithin(angle, 91, 269) ? angle : 180;
    if (tip.y() == content.top())
        return isWithin(angle, 181, 359) ? angle : 270;
    if (tip.x() == content.right())
        return isWithin(angle, 90, 270) ? 0 : angle;
    // The column whose number is that of the bottom row: anywhere else on the bottom edge an angle
    // is taken as it is, and hosts have come to rely on that.
    if (tip.x() == content.bottom())
        return isWithin(angle, 1, 179) ? angle : 90;
    return angle;
}

QPointF turned(const QPointF &point, const QPointF &centre, qreal degrees)
{
    return QTransform()
        .translate(centre.x(), centre.y())
        .rotate(degrees)
        .translate(-centre.x(), -centre.y())
        .map(point);
}

bool areEqual(const QPointF &a, const QPointF &b)
{
    return LumoMath::equals(a.x(), b.x(), Tolerance) && LumoMath::equals(a.y(), b.y(), Tolerance);
}

// The edges of a rectangle, a little longer than they are: a ray through a corner meets them, on
// whichever side of it rounding has put the ray.
std::array<QLineF, 4> edgesOf(const QRect &r)
{
    constexpr qreal more = 1e-9;
    const QPointF x(more, 0);
    const QPointF y(0, more);
    return {QLineF(r.topLeft() - x, r.topRight() + x),
            QLineF(r.topRight() - y, r.bottomRight() + y),
            QLineF(r.bottomLeft() - x, r.bottomRight() + x),
            QLineF(r.topLeft() - y, r.bottomLeft() + y)};
}

// Where the ray from the apex through another point meets the nearest edge of the content; the apex
// when it meets none.
QPointF nearestHit(const QPointF &apex, const QPointF &through, const QRect &content)
{
    if (areEqual(apex, through))
        return apex;
    QLineF ray(apex, through);
    ray.setLength(RayLength);
    QPointF nearest = apex;
    qreal nearestDistance = std::numeric_limits<qreal>::max();
    for (const QLineF &edge : edgesOf(content)) {
        QPointF hit;
        if (ray.intersects(edge, &hit) != QLineF::BoundedIntersection)
            continue;
        const qreal distance = QLineF(apex, hit).length();
        if (distance < nearestDistance) {
            nearestDistance = distance;
            nearest = hit;
        }
    }
    return nearest;
}

bool isDegenerate(const ArrowTriangle &triangle)
{
    return areEqual(triangle.first, triangle.apex) || areEqual(triangle.second, triangle.apex)
        || areEqual(triangle.first, triangle.second);
}

// The triangle with the opening that is asked for, or the widest of the narrower ones that gives
// one.
std::optional<ArrowTriangle> buildTriangle(const QPointF &apex, const ArrowLayoutInput &input)
{
    const QPointF tip = input.arrow.tip;
    qint64 opening = input.arrow.apexAngle;
    for (int turn = 0; turn <= ApexPeriod / ApexStep; ++turn) {
        const qint64 half = opening / 2;
        const ArrowTriangle triangle {
            apex, nearestHit(apex, turned(tip, apex, qreal(half)), input.content),
            nearestHit(apex, turned(tip, apex, -qreal(half)), input.content)};
        if (!isDegenerate(triangle))
            return triangle;
        opening -= ApexStep;
        if (opening < 0)
            break;
    }
    return std::nullopt;
}

QMargins grownMargins(int margin, const QRectF &outlined, const QRect &content)
{
    QMargins margins(margin, margin, margin, margin);
    if (outlined.left() < 0)
        margins.setLeft(margins.left() - int(outlined.left()));
    if (outlined.right() > content.right())
        margins.setRight(margins.right() + int(outlined.right() - content.right()));
    if (outlined.top() < 0)
        margins.setTop(margins.top() - int(outlined.top()));
    if (outlined.bottom() > content.bottom())
        margins.setBottom(margins.bottom() + int(outlined.bottom() - content.bottom()));
    return margins;
}

} // namespace

void normalizeArrow(SArrowParam &arrow, const QRect &content)
{
    if (!isWithin(int(arrow.position), int(EArrowPosition::Top), int(EArrowPosition::BottomLeft)))
        return;
    arrow.tip = tipAt(arrow.position, content);
    if (!arrow.customAngle)
        arrow.angle = defaultAngle(arrow.position);
    if (arrow.offset != 0)
        arrow.tip = shiftedTip(arrow, content);
    arrow.angle = outwardAngle(arrow.angle, arrow.tip, content);
}

ArrowLayout layOutArrow(const ArrowLayoutInput &input)
{
    const int border = limited(input.borderWidth);
    const int contentMargin = limited(input.contentMargin);
    const int radius = limited(input.cornerRadius);
    const QPointF tip = input.arrow.tip;
    const QPointF apex =
        turned(QPointF(tip.x() + limited(input.arrow.length), tip.y()), tip, input.arrow.angle);
    const int margin = contentMargin + 1 + border / 2;

    ArrowLayout result;
    result.bounds = input.content;
    result.margins = QMargins(margin, margin, margin, margin);
    const std::optional<ArrowTriangle> triangle = buildTriangle(apex, input);
    if (!triangle) {
        const int extra = 2 * contentMargin + border;
        result.size = limited(input.content.size() + QSize(extra, extra));
        const int halfBorder = border / 2;
        result.arrowPoint = (apex + QPointF(halfBorder, halfBorder)).toPoint();
        return result;
    }
    result.hasArrow = true;
    if (radius != 0)
        result.bounds.adjust(-radius, -radius, radius, radius);
    result.shape = {result.bounds, radius, *triangle};
    const QRectF outlined = arrowOutlineBounds(result.shape);
    result.shift = -outlined.topLeft() + QPointF(margin, margin);
    result.bounds.translate(result.shift.toPoint());
    result.margins = grownMargins(margin, outlined, input.content);
    result.size = limited(input.content.size()
                          + QSize(result.margins.left() + result.margins.right(),
                                  result.margins.top() + result.margins.bottom()));
    result.arrowPoint = (apex + result.shift).toPoint();
    return result;
}

} // namespace Vela::UiBase::Internal
