// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "ui_base/popup/arrowoutline_p.h"

#include <QPolygonF>

#include <algorithm>
#include <optional>

namespace Vela::UiBase::Internal {
namespace {

// The general union of two paths costs many times what it takes to cut the arrow into the
// rectangle. What is built here has the very points that the union would have, in its order, so
// that dashes start at the same place; where that is in doubt the union is taken.

// Nearer than this to a corner of the polygon a crossing counts as doubtful.
constexpr qreal Doubt = 1e-6;

qreal cross(const QPointF &a, const QPointF &b)
{
    return a.x() * b.y() - a.y() * b.x();
}

// Qt loses the rectangle when it unites it with a triangle whose base is off the edge by no more
// than rounding.
QPointF snapped(const QPointF &point)
{
    constexpr qreal steps = 65536;
    return {qreal(qRound64(point.x() * steps)) / steps, qreal(qRound64(point.y() * steps)) / steps};
}

ArrowShape snapped(const ArrowShape &shape)
{
    const ArrowTriangle &triangle = shape.triangle;
    return {shape.rect,
            shape.radius,
            {snapped(triangle.apex), snapped(triangle.first), snapped(triangle.second)}};
}

QPainterPath united(const ArrowShape &shape)
{
    QPainterPath body;
    if (shape.radius == 0)
        body.addRect(shape.rect);
    else
        body.addRoundedRect(shape.rect, shape.radius, shape.radius);
    QPainterPath arrow;
    arrow.addPolygon(QPolygonF({shape.triangle.apex, shape.triangle.first, shape.triangle.second}));
    return body.united(arrow).simplified();
}

// Whether the base of the triangle lies inside and the straight parts of the edges are left.
bool isPlain(const ArrowShape &shape)
{
    const int diameter = 2 * shape.radius;
    return shape.radius > 0 && shape.rect.width() > diameter && shape.rect.height() > diameter;
}

// How many lines stand for the quarter of a circle in a union of paths.
int linesPerQuarter(int radius)
{
    const int lines = int(std::min<float>(64, float(radius * (2 * 3.14 / 6))));
    return std::max(lines, 3) - 1;
}

QPointF between(const QPointF &a, const QPointF &b, qreal t)
{
    return a * (1 - t) + b * t;
}

// A quarter of a circle as a Bezier curve.
struct Quarter
{
    QPointF start;
    QPointF first;
    QPointF second;
    QPointF end;

    QPointF at(qreal t) const
    {
        const QPointF a = between(start, first, t);
        const QPointF b = between(first, second, t);
        const QPointF c = between(second, end, t);
        return between(between(a, b, t), between(b, c, t), t);
    }
};

void append(QPolygonF &points, const Quarter &quarter, int lines)
{
    const qreal step = qreal(1) / lines;
    points.append(quarter.start);
    for (int i = 1; i < lines; ++i)
        points.append(quarter.at(i * step));
    points.append(quarter.end);
}

// The diameter of the corners, through a percentage of the side as QPainterPath takes it: what is
// lost in rounding is then lost here too.
qreal diameter(qreal side, int radius)
{
    return side * (100 * radius / (side / 2)) / 100;
}

// The rounded rectangle as a polygon, clockwise from the upper end of its left edge.
QPolygonF roundedPolygon(const QRectF &r, int radius)
{
    constexpr qreal kappa = 0.5522847498;
    const QSizeF box(diameter(r.width(), radius), diameter(r.height(), radius));
    const qreal x = box.width() / 2;
    const qreal y = box.height() / 2;
    const qreal xk = x * kappa;
    const qreal yk = y * kappa;
    // Of the boxes around the circles in the corners.
    const qreal left = r.x();
    const qreal top = r.y();
    const qreal right = r.x() + r.width() - box.width();
    const qreal bottom = r.y() + r.height() - box.height();
    const qreal farRight = right + box.width();
    const qreal farBottom = bottom + box.height();
    const int lines = linesPerQuarter(radius);
    // With room for the arrow, and for the first point once more.
    constexpr int more = 4;
    QPolygonF points;
    points.reserve(4 * (lines + 1) + more);
    append(points, {{left, top + y}, {left, top + y - yk}, {left + x - xk, top}, {left + x, top}},
           lines);
    append(points,
           {{right + x, top}, {right + x + xk, top}, {farRight, top + y - yk}, {farRight, top + y}},
           lines);
    append(points,
           {{farRight, bottom + y},
            {farRight, bottom + y + yk},
            {right + x + xk, farBottom},
            {right + x, farBottom}},
           lines);
    append(points,
           {{left + x, farBottom},
            {left + x - xk, farBottom},
            {left, bottom + y + yk},
            {left, bottom + y}},
           lines);
    return points;
}

enum class ESide {
    Inside,
    Outside,
    Doubtful
};

// Where a point stands to the polygon, which is convex and runs clockwise.
ESide sideOf(const QPointF &point, const QPolygonF &polygon)
{
    ESide side = ESide::Inside;
    QPointF from = polygon.last();
    for (const QPointF &to : polygon) {
        const qreal turn = cross(to - from, point - from);
        if (turn < -Doubt)
            return ESide::Outside;
        if (turn < Doubt)
            side = ESide::Doubtful;
        from = to;
    }
    return side;
}

// Where a line from the outside to the inside passes the polygon's edge from corner @c edge on.
struct Crossing
{
    int edge;
    QPointF point;
};

std::optional<Crossing> crossing(const QPointF &outside, const QPointF &inside,
                                 const QPolygonF &polygon)
{
    const QPointF line = inside - outside;
    const int count = polygon.size();
    for (int i = 0; i < count; ++i) {
        const QPointF from = polygon[i];
        const QPointF edge = polygon[i + 1 < count ? i + 1 : 0] - from;
        const qreal par = cross(line, edge);
        // The polygon runs clockwise: the line comes in where the edge goes to its left.
        if (par >= 0)
            continue;
        const QPointF delta = from - outside;
        const qreal along = -cross(line, delta) / par;
        if (along < -Doubt || along > 1 + Doubt)
            continue;
        if (along < Doubt || along > 1 - Doubt)
            return std::nullopt;
        return Crossing {i, from + edge * along};
    }
    return std::nullopt;
}

// Puts the arrow in between two crossings, in place of the corners that it covers.
void cutIn(QPolygonF &polygon, const QPointF &apex, const Crossing &in, const Crossing &out)
{
    const bool isFirstCornerCovered = in.edge > out.edge;
    if (isFirstCornerCovered) {
        polygon.resize(in.edge + 1);
        polygon << in.point << apex;
        polygon.remove(0, out.edge);
        polygon.first() = out.point;
        return;
    }
    polygon.remove(in.edge + 1, out.edge - in.edge);
    polygon.insert(in.edge + 1, 3, apex);
    polygon[in.edge + 1] = in.point;
    polygon[in.edge + 3] = out.point;
}

// The points of the outline without a general union; none where that needs more care.
QPolygonF built(const ArrowShape &shape)
{
    if (!isPlain(shape))
        return {};
    QPolygonF polygon = roundedPolygon(shape.rect, shape.radius);
    const auto &[apex, first, second] = shape.triangle;
    const bool isFarOutside = !QRectF(shape.rect).adjusted(-1, -1, 1, 1).contains(apex);
    const ESide side = isFarOutside ? ESide::Outside : sideOf(apex, polygon);
    if (side == ESide::Inside)
        return polygon;
    const auto passFirst = crossing(apex, first, polygon);
    const auto passSecond = crossing(apex, second, polygon);
    if (side == ESide::Doubtful || !passFirst || !passSecond)
        return {};
    const bool isFirstAhead = cross(first - apex, second - apex) < 0;
    if (isFirstAhead)
        cutIn(polygon, apex, *passFirst, *passSecond);
    else
        cutIn(polygon, apex, *passSecond, *passFirst);
    return polygon;
}

} // namespace

void setToArrowOutline(QPainterPath &path, const ArrowShape &shape, const QPointF &shift)
{
    const ArrowShape exact = snapped(shape);
    QPolygonF points = built(exact);
    if (points.isEmpty()) {
        path = united(exact).translated(shift);
        return;
    }
    points.append(points.first());
    points.translate(shift);
    path.clear();
    path.reserve(points.size());
    path.addPolygon(points);
}

QRectF arrowOutlineBounds(const ArrowShape &shape)
{
    if (!isPlain(shape))
        return united(snapped(shape)).boundingRect();
    const QRectF rect(shape.rect);
    const QPointF apex = snapped(shape.triangle.apex);
    const QPointF topLeft(std::min(rect.left(), apex.x()), std::min(rect.top(), apex.y()));
    const QPointF bottomRight(std::max(rect.right(), apex.x()), std::max(rect.bottom(), apex.y()));
    return {topLeft, bottomRight};
}

} // namespace Vela::UiBase::Internal
