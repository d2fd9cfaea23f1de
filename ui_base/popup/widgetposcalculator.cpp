// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "ui_base/popup/widgetposcalculator.h"

#include "ui_base/popup/widgetposcalculator_p.h"

#include <QApplication>
#include <QMargins>
#include <QVariant>

#include <algorithm>
#include <limits>
#include <vector>

namespace Vela::UiBase {
namespace {

using SArrowParam = ArrowedWindow::SArrowParam;
using ArrowCandidate = QPair<SArrowParam, EDirection>;

const char *const SubWidgetsProperty = "sub_widgets";
const char *const DirectionToProperty = "direction_to";

// How far a popup keeps off the edges of the area.
constexpr int AreaInset = 30;
// The arrow keeps this much of the edge that it slides along to itself, so that it stays off the
// corners.
constexpr int ArrowRoom = 70;
// From the reference point to the edge of the square that stands for it.
constexpr int PointReach = 3;

void appendMissing(QList<EDirection> &list, EDirection direction)
{
    if (!list.contains(direction))
        list.append(direction);
}

void appendOpposite(QList<EDirection> &list, EDirection direction, EDirection opposite)
{
    if (list.contains(direction))
        appendMissing(list, opposite);
}

// The room that the visible sub-widgets of a popup take up at its sides.
QMargins subWidgetRoom(const QWidget *popup)
{
    QMargins room;
    if (!popup || !popup->dynamicPropertyNames().contains(SubWidgetsProperty))
        return room;
    const QVariantList entries = popup->property(SubWidgetsProperty).toList();
    for (const QVariant &entry : entries) {
        const auto *const widget = entry.value<QWidget *>();
        if (!widget || !widget->isVisible())
            continue;
        switch (DirectionProperty(widget, DirectionToProperty)) {
        case EDirection::Left:
            room += QMargins(widget->width(), 0, 0, 0);
            break;
        case EDirection::Top:
            room += QMargins(0, widget->height(), 0, 0);
            break;
        case EDirection::Right:
            room += QMargins(0, 0, widget->width(), 0);
            break;
        case EDirection::Bottom:
            room += QMargins(0, 0, 0, widget->height());
            break;
        default:
            break;
        }
    }
    return room;
}

// Sums of what hosts set stay far enough from the ends of the number range that rectangles can
// still be moved by them.
int bounded(qint64 value)
{
    constexpr qint64 Bound = std::numeric_limits<int>::max() / 2;
    return int(std::clamp(value, -Bound, Bound));
}

QRect shrunk(const QRect &area, const QMargins &room)
{
    return {QPoint(bounded(qint64(area.left()) + room.left() + AreaInset),
                   bounded(qint64(area.top()) + room.top() + AreaInset)),
            QPoint(bounded(qint64(area.right()) - room.right() - AreaInset),
                   bounded(qint64(area.bottom()) - room.bottom() - AreaInset))};
}

// One axis of a rectangle.
struct Span
{
    qint64 first;
    qint64 last;
    qint64 length;
};

Span spanOf(qint64 first, qint64 last)
{
    return {first, last, last - first + 1};
}

Span across(const QRect &rect, int by = 0)
{
    return spanOf(qint64(rect.left()) + by, qint64(rect.right()) + by);
}

Span upright(const QRect &rect, int by = 0)
{
    return spanOf(qint64(rect.top()) + by, qint64(rect.bottom()) + by);
}

QSize sizeOf(const QRect &rect)
{
    return {bounded(across(rect).length), bounded(upright(rect).length)};
}

bool isInside(const Span &popup, const Span &area)
{
    return popup.first >= area.first && popup.last <= area.last;
}

// How far the arrow slides for a popup that overflows the area: the first overflowing end counts. A
// popup smaller than the room of the arrow slides the other way.
int slide(const Span &popup, const Span &area)
{
    const qint64 limit = popup.length - ArrowRoom;
    return popup.first < area.first ? bounded(-std::min(limit, area.first - popup.first))
                                    : bounded(std::min(limit, popup.last - area.last));
}

// Where the popup starts along the edge that it shares with the reference; @p before for an
// alignment that is none.
qint64 aligned(EWidgetsAlign alignment, const Span &ref, const Span &popup, int before)
{
    switch (alignment) {
    case EWidgetsAlign::AlignStart:
        return ref.first;
    case EWidgetsAlign::AlignCenter:
        return ref.first + (ref.length - popup.length) / 2;
    case EWidgetsAlign::AlignEnd:
        return ref.last - popup.length;
    }
    return before;
}

// The plain candidate of a direction; @p before for one that is none.
QPoint plainCandidate(const WidgetPosCalculatorPrivate &d, EDirection direction, const QRect &ref,
                      const QRect &rect, const QPoint &before)
{
    const Span refX = across(ref);
    const Span refY = upright(ref);
    const qint64 base = d.baseOffset;
    const auto x = [&] { return aligned(d.alignment, refX, across(rect), before.x()); };
    const auto y = [&] { return aligned(d.alignment, refY, upright(rect), before.y()); };
    const auto at = [&d](qint64 left, qint64 top) {
        return QPoint(bounded(left + d.additionalOffset.x()),
                      bounded(top + d.additionalOffset.y()));
    };
    switch (direction) {
    case EDirection::Left:
        return at(refX.first - base - rect.width(), y());
    case EDirection::Top:
        return at(x(), refY.first - base - rect.height());
    case EDirection::Right:
        return at(refX.last + base, y());
    case EDirection::Bottom:
        return at(x(), refY.last + base);
    default:
        return at(before.x(), before.y());
    }
}

bool isCorner(EArrowPosition position)
{
    return position == EArrowPosition::TopLeft || position == EArrowPosition::TopRight
        || position == EArrowPosition::BottomLeft || position == EArrowPosition::BottomRight;
}

bool isLeftCorner(EArrowPosition position)
{
    return position == EArrowPosition::TopLeft || position == EArrowPosition::BottomLeft;
}

bool isTopCorner(EArrowPosition position)
{
    return position == EArrowPosition::TopLeft || position == EArrowPosition::TopRight;
}

// The side on which a window with this arrow stands.
EDirection directionOf(EArrowPosition position)
{
    switch (position) {
    case EArrowPosition::Top:
        return EDirection::Bottom;
    case EArrowPosition::Bottom:
        return EDirection::Top;
    case EArrowPosition::Left:
    case EArrowPosition::TopLeft:
    case EArrowPosition::BottomLeft:
        return EDirection::Right;
    case EArrowPosition::Right:
    case EArrowPosition::TopRight:
    case EArrowPosition::BottomRight:
        return EDirection::Left;
    case EArrowPosition::None:
        break;
    }
    return EDirection::NoDirection;
}

// The arrows that suit a direction, the one at the edge before those at the corners.
std::vector<EArrowPosition> arrowsFor(EDirection direction)
{
    switch (direction) {
    case EDirection::Left:
        return {EArrowPosition::Right, EArrowPosition::TopRight, EArrowPosition::BottomRight};
    case EDirection::Right:
        return {EArrowPosition::Left, EArrowPosition::TopLeft, EArrowPosition::BottomLeft};
    case EDirection::Top:
        return {EArrowPosition::Bottom, EArrowPosition::BottomLeft, EArrowPosition::BottomRight};
    case EDirection::Bottom:
        return {EArrowPosition::Top, EArrowPosition::TopLeft, EArrowPosition::TopRight};
    default:
        return {};
    }
}

// The place along x of a candidate above or below the reference. @p dx leads from the apex to the
// window's left edge. The right corners do not look at the reference: such a candidate is left to
// the check of the area.
qint64 besideColumn(const SArrowParam &arrow, const QRect &ref, qint64 base, qint64 dx)
{
    if (arrow.customAngle || !isCorner(arrow.position))
        return ref.center().x() + dx;
    return isLeftCorner(arrow.position) ? ref.right() + base + dx : dx - base;
}

// The same along y for a candidate at the left or the right; the bottom corners do not look at the
// reference.
qint64 besideRow(const SArrowParam &arrow, const QRect &ref, qint64 base, qint64 dy)
{
    if (arrow.customAngle || !isCorner(arrow.position))
        return ref.center().y() + dy;
    return isTopCorner(arrow.position) ? ref.bottom() + base + dy : dy - base;
}

} // namespace

WidgetPosCalculatorPrivate::WidgetPosCalculatorPrivate() = default;

WidgetPosCalculatorPrivate::~WidgetPosCalculatorPrivate() = default;

WidgetPosCalculator::WidgetPosCalculator(QObject *parent)
    : WidgetPosCalculator(*new WidgetPosCalculatorPrivate, parent)
{ }

WidgetPosCalculator::WidgetPosCalculator(WidgetPosCalculatorPrivate &dd, QObject *parent)
    : QObject(parent)
    , d_ptr(&dd)
{ }

WidgetPosCalculator::~WidgetPosCalculator() = default;

QWidget *WidgetPosCalculator::Widget() const
{
    return d_func()->widget;
}

void WidgetPosCalculator::SetWidget(QWidget *widget)
{
    d_func()->widget = widget;
}

QWidget *WidgetPosCalculator::RefWidget() const
{
    return d_func()->refWidget;
}

void WidgetPosCalculator::SetRefWidget(QWidget *widget)
{
    Q_D(WidgetPosCalculator);
    d->refWidget = widget;
    d->useRefWidget = true;
}

const QPoint &WidgetPosCalculator::RefWiget() const
{
    return d_func()->refPoint;
}

void WidgetPosCalculator::SetRefPoint(const QPoint &point)
{
    Q_D(WidgetPosCalculator);
    d->refPoint = point;
    d->useRefWidget = false;
}

int WidgetPosCalculator::BaseOffset() const
{
    return d_func()->baseOffset;
}

void WidgetPosCalculator::SetBaseOffset(int offset)
{
    d_func()->baseOffset = offset;
}

EWidgetsAlign WidgetPosCalculator::Alignment() const
{
    return d_func()->alignment;
}

void WidgetPosCalculator::SetAlignment(EWidgetsAlign alignment)
{
    d_func()->alignment = alignment;
}

QPoint WidgetPosCalculator::AdditionalOffset() const
{
    return d_func()->additionalOffset;
}

void WidgetPosCalculator::SetAdditionalOffset(const QPoint &offset)
{
    d_func()->additionalOffset = offset;
}

const QList<EDirection> &WidgetPosCalculator::Directions() const
{
    return d_func()->directions;
}

void WidgetPosCalculator::SetDirection(EDirection direction)
{
    Q_D(WidgetPosCalculator);
    d->directions = {direction};
    d->direction = direction;
    GetFullPriorityDirectionList();
}

void WidgetPosCalculator::SetDirections(const QList<EDirection> &directions)
{
    Q_D(WidgetPosCalculator);
    d->directions = directions;
    GetFullPriorityDirectionList();
    d->direction = d->directions.first();
}

EDirection WidgetPosCalculator::Direction(int) const
{
    return d_func()->direction;
}

void WidgetPosCalculator::setCalcGlobalPos(bool global)
{
    d_func()->calcGlobalPos = global;
}

void WidgetPosCalculator::setMaxAvailableRect(const QRect &rect)
{
    d_func()->maxAvailableRect = rect;
}

bool WidgetPosCalculator::GetPosition(QPoint &result, const QRect &rect, bool useArrow,
                                      const QPoint &point) const
{
    Q_D(const WidgetPosCalculator);
    QRect ref;
    if (!d->widget || !GetRefGeometry(ref))
        return false;
    const QRect popup(QPoint(0, 0), rect.isEmpty() ? d->widget->size() : sizeOf(rect));
    result = useArrow ? GetPosition(ref, popup, point) : GetPosition(ref, popup);
    return true;
}

void WidgetPosCalculator::Initialize() { }

bool WidgetPosCalculator::VerifyPosition(const QPoint &pos, const QRect &rect, QPoint &adjust) const
{
    QRect area;
    if (!GetMaxAvailableMovingArea(area))
        return true;
    const Span x = across(rect, pos.x());
    const Span y = upright(rect, pos.y());
    const bool fitsAcross = isInside(x, across(area));
    if (fitsAcross && isInside(y, upright(area)))
        return true;
    adjust = fitsAcross ? QPoint(0, slide(y, upright(area))) : QPoint(slide(x, across(area)), 0);
    return false;
}

void WidgetPosCalculator::GetFullPriorityDirectionList()
{
    QList<EDirection> &list = d_func()->directions;
    list.removeAll(EDirection::NoDirection);
    appendOpposite(list, EDirection::Left, EDirection::Right);
    appendOpposite(list, EDirection::Right, EDirection::Left);
    appendOpposite(list, EDirection::Top, EDirection::Bottom);
    appendOpposite(list, EDirection::Bottom, EDirection::Top);
    for (const EDirection direction :
         {EDirection::Left, EDirection::Top, EDirection::Right, EDirection::Bottom})
        appendMissing(list, direction);
}

bool WidgetPosCalculator::GetMaxAvailableMovingArea(QRect &area) const
{
    Q_D(const WidgetPosCalculator);
    if (!d->widget)
        return false;
    QRect whole = d->maxAvailableRect;
    if (whole.isEmpty()) {
        const QWidget *const window = QApplication::activeWindow();
        if (!window)
            return false;
        whole = window->rect().normalized();
    }
    const auto *const arrowed = qobject_cast<const ArrowedWindow *>(d->widget);
    area = shrunk(whole, subWidgetRoom(arrowed ? arrowed->InternalWidget() : d->widget.data()));
    return true;
}

bool WidgetPosCalculator::GetRefGeometry(QRect &geometry) const
{
    Q_D(const WidgetPosCalculator);
    if (!d->useRefWidget) {
        const QPoint centre(bounded(d->refPoint.x()), bounded(d->refPoint.y()));
        geometry = QRect(QPoint(-PointReach, -PointReach), QPoint(PointReach, PointReach))
                       .translated(centre);
        return true;
    }
    const QWidget *const ref = d->refWidget;
    if (!ref)
        return false;
    const QRect r = ref->rect();
    const QWidget *const parent = d->widget ? d->widget->parentWidget() : nullptr;
    if (d->calcGlobalPos || !parent)
        geometry = QRect(ref->mapToGlobal(r.topLeft()), ref->mapToGlobal(r.bottomRight()));
    else
        geometry = r.translated(ref->mapToGlobal(QPoint(0, 0)) - parent->mapToGlobal(QPoint(0, 0)));
    return true;
}

void WidgetPosCalculator::PrepareArrowParamPairs(const QList<SArrowParam> &params,
                                                 bool autoDecide) const
{
    auto &pairs = d_ptr->arrowParamPairs;
    pairs.clear();
    for (const SArrowParam &param : params) {
        const EDirection direction = directionOf(param.position);
        if (direction != EDirection::NoDirection)
            pairs.append({param, direction});
    }
    if (!autoDecide && pairs.size() == 1)
        return;
    if (autoDecide) {
        SArrowParam arrow = params.isEmpty() ? SArrowParam() : params.first();
        arrow.offset = 0;
        arrow.customAngle = false;
        for (const EDirection direction : d_ptr->directions) {
            for (const EArrowPosition position : arrowsFor(direction)) {
                arrow.position = position;
                pairs.append({arrow, direction});
            }
        }
    }
    if (!pairs.isEmpty())
        pairs.append(ArrowCandidate(pairs.first()));
}

QPoint WidgetPosCalculator::GetPosition(const QRect &ref, const QRect &rect) const
{
    QPoint result;
    const QList<EDirection> directions = d_ptr->directions;
    for (const EDirection direction : directions) {
        d_ptr->direction = direction;
        result = plainCandidate(*d_ptr, direction, ref, rect, result);
        QPoint adjust;
        if (VerifyPosition(result, rect, adjust))
            break;
    }
    return result;
}

QPoint WidgetPosCalculator::GetPosition(const QRect &ref, const QRect &, const QPoint &) const
{
    auto *const window = qobject_cast<ArrowedWindow *>(d_ptr->widget);
    QPoint result;
    if (!window)
        return result;
    PrepareArrowParamPairs(window->GetArrowParams(), window->AutoDecideArrowPosition());
    const auto candidates = d_ptr->arrowParamPairs;
    for (ArrowCandidate candidate : candidates) {
        SArrowParam &arrow = candidate.first;
        d_ptr->direction = candidate.second;
        QSize size;
        QPoint apex;
        if (!window->GetArrowWindowSize(arrow, size, apex))
            continue;
        result = GetPosition(candidate, ref, QRect(QPoint(0, 0), size), apex);
        QPoint adjust;
        if (VerifyPosition(result, QRect(QPoint(0, 0), size), adjust))
            return result;
        arrow.offsetAlongX = adjust.x() != 0;
        arrow.offset = bounded(qint64(arrow.offset) + (adjust.x() != 0 ? adjust.x() : adjust.y()));
        if (window->GetArrowWindowSize(arrow, size, apex))
            return GetPosition(candidate, ref, QRect(QPoint(0, 0), size), apex);
    }
    return result;
}

QPoint WidgetPosCalculator::GetPosition(const ArrowCandidate &candidate, const QRect &ref,
                                        const QRect &rect, const QPoint &arrowPoint) const
{
    const SArrowParam &arrow = candidate.first;
    const qint64 base = d_func()->baseOffset;
    const qint64 dx = qint64(rect.left()) - arrowPoint.x();
    const qint64 dy = qint64(rect.top()) - arrowPoint.y();
    switch (candidate.second) {
    case EDirection::Bottom:
        return {bounded(besideColumn(arrow, ref, base, dx)), bounded(ref.bottom() + base + dy)};
    case EDirection::Top:
    case EDirection::NoDirection:
        return {bounded(besideColumn(arrow, ref, base, dx)),
                bounded(ref.top() - base - rect.height() + rect.bottom() - arrowPoint.y())};
    case EDirection::Right:
        return {bounded(ref.right() + base + dx), bounded(besideRow(arrow, ref, base, dy))};
    case EDirection::Left:
        return {bounded(ref.left() - base - rect.width() + rect.right() - arrowPoint.x()),
                bounded(besideRow(arrow, ref, base, dy))};
    }
    return {};
}

} // namespace Vela::UiBase
