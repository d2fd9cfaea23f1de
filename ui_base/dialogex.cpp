// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "ui_base/dialogex.h"

#include "ui_base/dialogex_p.h"

#include <QKeyEvent>
#include <QMouseEvent>

#include <algorithm>

namespace Vela::UiBase {
namespace {

constexpr int NoZone = 8;
constexpr int GripZone = 3;
constexpr std::array<int, 7> EdgeZones {2, 4, 5, 6, 7, 0, 1};
constexpr int MoveBarTop = 10;
constexpr int LeastSize = 300;

Qt::WindowFlags flagsFor(bool resizable)
{
    return resizable ? Qt::FramelessWindowHint : Qt::CustomizeWindowHint;
}

bool isDismissingKey(int key)
{
    return key == Qt::Key_Escape || key == Qt::Key_Return || key == Qt::Key_Enter;
}

} // namespace

DialogExPrivate::DialogExPrivate(bool canBeResized)
    : resizable(canBeResized)
{ }

DialogExPrivate::~DialogExPrivate() = default;

void DialogExPrivate::updateMoveBar()
{
    moveBarRect = q_ptr->rect();
    moveBarRect.setTop(MoveBarTop);
    // A rectangle of negative height would hold the points above it.
    moveBarRect.setHeight(std::max(moveBarHeight, MoveBarTop) - MoveBarTop);
}

// A square, and below it a flat foot along the edge of the dialog.
void DialogExPrivate::updateGrip()
{
    if (!resizable)
        return;
    const QRect area = q_ptr->rect();
    const QRect square(area.right() - 30, area.bottom() - 30, 20, 20);
    const QRect foot(square.left(), area.bottom() - 10, 30, 10);
    cornerRects = {square, foot};
}

int DialogExPrivate::zoneAt(const QPoint &position)
{
    if (cornerRects.isEmpty())
        updateGrip();
    for (const QRect &corner : qAsConst(cornerRects)) {
        if (corner.contains(position))
            return GripZone;
    }
    for (std::size_t i = 0; i < edgeRects.size(); ++i) {
        if (edgeRects[i].contains(position))
            return EdgeZones[i];
    }
    return NoZone;
}

QSize DialogExPrivate::takenPart(const QPoint &way) const
{
    switch (resizeZone) {
    case 0:
    case 4:
        return {0, way.y()};
    case 2:
    case 6:
        return {way.x(), 0};
    default:
        return {way.x(), way.y()};
    }
}

void DialogExPrivate::moveTo(const QPoint &globalPosition)
{
    const QPoint way = globalPosition - lastGlobalPos;
    lastGlobalPos = globalPosition;
    q_ptr->move(q_ptr->pos() + way);
}

void DialogExPrivate::resizeTo(const QPoint &globalPosition)
{
    if (resizeZone == NoZone)
        return;
    const QPoint way = globalPosition - lastGlobalPos;
    lastGlobalPos = globalPosition;
    q_ptr->resize(q_ptr->size() + takenPart(way));
}

DialogEx::DialogEx(QWidget *parent, bool resizable)
    : DialogEx(*new DialogExPrivate(resizable), parent)
{ }

DialogEx::DialogEx(DialogExPrivate &dd, QWidget *parent)
    : QDialog(parent, flagsFor(dd.resizable))
    , d_ptr(&dd)
{
    dd.q_ptr = this;
    Initialize();
}

DialogEx::~DialogEx() = default;

void DialogEx::Initialize()
{
    setMouseTracking(true);
    setAutoFillBackground(true);
    setMinimumSize(LeastSize, LeastSize);
}

void DialogEx::SetMoveBarHeight(int height)
{
    Q_D(DialogEx);
    d->moveBarHeight = height;
    d->updateMoveBar();
}

void DialogEx::SetDismissByDefaultEvents(bool dismiss)
{
    d_func()->dismissByDefaultEvents = dismiss;
}

bool DialogEx::DismissByDefaultEvents() const
{
    return d_func()->dismissByDefaultEvents;
}

void DialogEx::EnableMouseTracking(bool enable)
{
    if (!enable)
        return;
    const auto children = findChildren<QWidget *>(QString(), Qt::FindDirectChildrenOnly);
    for (QWidget *child : children)
        child->setMouseTracking(true);
}

bool DialogEx::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::KeyPress) {
        const int key = static_cast<QKeyEvent *>(event)->key();
        if (key == Qt::Key_Return || key == Qt::Key_Escape) {
            event->ignore();
            return false;
        }
    }
    return QDialog::eventFilter(watched, event);
}

void DialogEx::keyPressEvent(QKeyEvent *event)
{
    if (!d_func()->dismissByDefaultEvents && isDismissingKey(event->key())) {
        event->ignore();
        return;
    }
    QDialog::keyPressEvent(event);
}

void DialogEx::mousePressEvent(QMouseEvent *event)
{
    Q_D(DialogEx);
    if (d->moveBarRect.contains(event->pos())) {
        d->moving = true;
        d->lastGlobalPos = event->globalPos();
    } else if (d->resizable) {
        d->resizeZone = d->zoneAt(event->pos());
        if (d->resizeZone != NoZone) {
            d->resizing = true;
            d->lastGlobalPos = event->globalPos();
        }
    }
    QDialog::mousePressEvent(event);
}

void DialogEx::mouseMoveEvent(QMouseEvent *event)
{
    Q_D(DialogEx);
    if (d->resizable) {
        if (!d->resizing)
            d->resizeZone = d->zoneAt(event->pos());
        setCursor(d->resizeZone == GripZone ? Qt::SizeFDiagCursor : Qt::ArrowCursor);
    }
    if (d->moving) {
        if (event->buttons() == Qt::NoButton)
            d->moving = false;
        else
            d->moveTo(event->globalPos());
    } else if (d->resizing) {
        d->resizeTo(event->globalPos());
    } else {
        QDialog::mouseMoveEvent(event);
    }
}

void DialogEx::mouseReleaseEvent(QMouseEvent *event)
{
    Q_D(DialogEx);
    d->moving = false;
    d->resizing = false;
    QDialog::mouseReleaseEvent(event);
}

void DialogEx::resizeEvent(QResizeEvent *event)
{
    Q_D(DialogEx);
    d->updateMoveBar();
    d->updateGrip();
    QDialog::resizeEvent(event);
}

void DialogEx::showEvent(QShowEvent *event)
{
    Q_D(DialogEx);
    d->updateMoveBar();
    d->updateGrip();
    QDialog::showEvent(event);
}

} // namespace Vela::UiBase
