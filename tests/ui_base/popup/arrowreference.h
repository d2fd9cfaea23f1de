// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

#include <ui_base/ArrowedWindow>

#include <QMargins>
#include <QPainterPath>
#include <QPolygonF>
#include <QRect>
#include <QTransform>

#include <algorithm>
#include <array>
#include <cmath>
#include <random>

namespace Lumo::Test {

using SArrowParam = Vela::UiBase::ArrowedWindow::SArrowParam;
using Vela::UiBase::EArrowPosition;

/// Numbers that are the same in every run.
class Dice
{
public:
    explicit Dice(unsigned seed)
        : m_engine(seed)
    { }

    /// A number from @p first to @p last, both included.
    int roll(int first, int last) { return first + int(m_engine() % unsigned(last - first + 1)); }
    bool flip() { return roll(0, 1) == 1; }

private:
    std::mt19937 m_engine;
};

/// The frame of a popup, laid out step by step with general operations on paths.
struct ReferenceLayout
{
    QSize size;
    QMargins margins;
    QPoint arrowPoint;
    QRect bounds;
    bool hasArrow = false;
    QPainterPath path;
};

/// Tip and angle of an arrow on a content with the rectangle @p r.
inline SArrowParam referenceArrow(SArrowParam p, const QRect &r)
{
    const int right = r.x() + r.width() - 1;
    const int bottom = r.y() + r.height() - 1;
    const int middle = (r.x() + right) / 2;
    const int half = (r.y() + bottom) / 2;
    struct Place
    {
        int x;
        int y;
        int angle;
    };
    const std::array<Place, 9> places {{{0, 0, 0},
                                        {middle, r.y(), 270},
                                        {middle, bottom, 90},
                                        {r.x(), half, 180},
                                        {right, half, 0},
                                        {r.x(), r.y(), 225},
                                        {right, r.y(), 315},
                                        {right, bottom, 45},
                                        {r.x(), bottom, 135}}};
    if (int(p.position) < 1 || int(p.position) > 8)
        return p;
    const Place &place = places.at(std::size_t(p.position));
    p.tip = QPoint(place.x, place.y);
    if (!p.customAngle)
        p.angle = place.angle;
    const int x = place.x + (p.offsetAlongX ? p.offset : 0);
    const int y = place.y + (p.offsetAlongX ? 0 : p.offset);
    if (x >= r.x() && x <= right && y >= r.y() && y <= bottom)
        p.tip = QPoint(x, y);
    if (p.tip.x() == r.x())
        p.angle = p.angle > 90 && p.angle < 270 ? p.angle : 180;
    else if (p.tip.y() == r.y())
        p.angle = p.angle > 180 && p.angle < 360 ? p.angle : 270;
    else if (p.tip.x() == right)
        p.angle = p.angle < 90 || p.angle > 270 ? p.angle : 0;
    else if (p.tip.x() == bottom) // of x, as it has always been
        p.angle = p.angle > 0 && p.angle < 180 ? p.angle : 90;
    return p;
}

namespace Reference {

inline QPointF rotated(const QPointF &point, const QPointF &centre, qreal degrees)
{
    QTransform transform;
    transform.translate(centre.x(), centre.y());
    transform.rotate(degrees, Qt::ZAxis);
    transform.translate(-centre.x(), -centre.y());
    return transform.map(point);
}

// Where the ray from the apex through a point meets the first edge. One through a corner meets it.
inline QPointF basePoint(const QPointF &apex, const QPointF &through, const QRect &r)
{
    constexpr qreal rounding = 1e-9;
    const QPointF d = through - apex;
    const qreal length = std::hypot(d.x(), d.y());
    QPointF best = apex;
    qreal bestAlong = 1000000 / length;
    const auto offer = [&](qreal along, qreal across, qreal from, qreal to, const QPointF &hit) {
        const bool isBounded = across >= std::min(from, to) - rounding
            && across <= std::max(from, to) + rounding && along >= 0;
        if (length > 0.5 && isBounded && along < bestAlong) {
            bestAlong = along;
            best = hit;
        }
    };
    const auto row = [&](qreal y) {
        const qreal along = (y - apex.y()) / d.y();
        const qreal x = apex.x() + along * d.x();
        offer(along, x, r.left(), r.right(), {x, y});
    };
    const auto column = [&](qreal x) {
        const qreal along = (x - apex.x()) / d.x();
        const qreal y = apex.y() + along * d.y();
        offer(along, y, r.top(), r.bottom(), {x, y});
    };
    row(r.top());
    column(r.right());
    row(r.bottom());
    column(r.left());
    return best;
}

inline bool same(const QPointF &a, const QPointF &b)
{
    return std::abs(a.x() - b.x()) <= 0.00001 && std::abs(a.y() - b.y()) <= 0.00001;
}

inline QPointF snapped(const QPointF &p)
{
    return {std::round(p.x() * 65536) / 65536, std::round(p.y() * 65536) / 65536};
}

} // namespace Reference

/// The layout of a window whose content has the rectangle @p r, for an arrow that has its tip.
inline ReferenceLayout referenceLayout(const SArrowParam &p, const QRect &r, int contentMargin,
                                       int borderWidth, int radius)
{
    using namespace Reference;
    ReferenceLayout result;
    result.bounds = r;
    const QPointF t = p.tip;
    const QPointF apex = rotated(QPointF(p.tip.x() + p.length, p.tip.y()), t, p.angle);
    const int m = contentMargin + 1 + borderWidth / 2;
    result.margins = QMargins(m, m, m, m);
    QPointF first;
    QPointF second;
    for (int a = p.apexAngle; !result.hasArrow; a -= 10) {
        const int half = a / 2;
        first = basePoint(apex, rotated(t, apex, half), r);
        second = basePoint(apex, rotated(t, apex, -half), r);
        result.hasArrow = !same(first, apex) && !same(second, apex) && !same(first, second);
        if (!result.hasArrow && a - 10 < 0)
            break;
    }
    if (!result.hasArrow) {
        const int extra = 2 * contentMargin + borderWidth;
        result.size = r.size() + QSize(extra, extra);
        const int halfBorder = borderWidth / 2;
        result.arrowPoint = (apex + QPointF(halfBorder, halfBorder)).toPoint();
        return result;
    }
    QPainterPath body;
    if (radius != 0) {
        result.bounds =
            QRect(r.x() - radius, r.y() - radius, r.width() + 2 * radius, r.height() + 2 * radius);
        body.addRoundedRect(result.bounds, radius, radius, Qt::AbsoluteSize);
    } else {
        body.addRect(r);
    }
    QPainterPath triangle;
    triangle.addPolygon(QPolygonF({snapped(apex), snapped(first), snapped(second)}));
    const QPainterPath outline = body.united(triangle).simplified();
    const QRectF b = outline.boundingRect();
    const QPointF shift = -b.topLeft() + QPointF(m, m);
    result.bounds.translate(shift.toPoint());
    const auto growth = [](qreal beyond) { return beyond > 0 ? int(beyond) : 0; };
    result.margins += QMargins(growth(-b.left()), growth(-b.top()), growth(b.right() - r.right()),
                               growth(b.bottom() - r.bottom()));
    result.size = r.size()
        + QSize(result.margins.left() + result.margins.right(),
                result.margins.top() + result.margins.bottom());
    result.arrowPoint = (apex + shift).toPoint();
    result.path = outline.translated(shift);
    return result;
}

} // namespace Lumo::Test
