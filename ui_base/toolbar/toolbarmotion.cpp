// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

// How a tool bar keeps its place, floats, slides in and out, and has its menus follow.

#include "ui_base/toolbar/toolbar.h"

#include "ui_base/toolbar/toolbar_p.h"

#include "ui_base/popup/floatinglayer.h"
#include "ui_base/popup/layershape_p.h"
#include "ui_base/toolbar/toolbargeometry_p.h"
#include "ui_base/toolbar/toolbuttonwithmenu.h"

#include <QEasingCurve>
#include <QEvent>
#include <QGraphicsDropShadowEffect>
#include <QPropertyAnimation>
#include <QRegion>
#include <QState>
#include <QTimer>

#include <algorithm>
#include <utility>

namespace Vela::UiBase {
namespace {

constexpr int slideDuration = 300;
constexpr int resizeDelay = 100;

} // namespace

void ToolBar::InitializeStateMachine()
{
    Q_D(ToolBar);
    d->initialState = new QState;
    d->stateMachine.addState(d->initialState);
    d->stateMachine.setInitialState(d->initialState);
    d->stateMachine.start();
}

void ToolBar::InitializeResizeTimer()
{
    Q_D(ToolBar);
    delete d->resizeTimer;
    d->resizeTimer = new QTimer(this);
    d->resizeTimer->setSingleShot(true);
    d->resizeTimer->setInterval(resizeDelay);
    connect(d->resizeTimer, &QTimer::timeout, this, &ToolBar::OnResizeTimerTimeOut);
}

void ToolBar::AutoPosition()
{
    Q_D(ToolBar);
    d->autoPositionTimer->start(d->autoPositionInterval);
}

void ToolBar::OnAutoPosition()
{
    Q_D(ToolBar);
    const bool hasSide = d->area != Qt::AllToolBarAreas && d->area != Qt::NoToolBarArea;
    if (d->autoPositionEnabled && hasSide && d->refParent)
        move(Internal::placeAtSide(d->area, d->refParent->size(), size(), d->offset, d->centered));
}

void ToolBar::SetEnableAutoPosition(bool enable)
{
    Q_D(ToolBar);
    d->autoPositionEnabled = enable;
}

void ToolBar::SetCentered(bool centered)
{
    Q_D(ToolBar);
    d->centered = centered;
    OnAutoPosition();
}

void ToolBar::SetOffset(const QPoint &offset)
{
    Q_D(ToolBar);
    d->offset = offset;
    OnAutoPosition();
}

void ToolBar::setDelayRelocationOnResize(bool delay)
{
    Q_D(ToolBar);
    d->delayRelocationOnResize = delay;
    if (delay)
        InitializeResizeTimer();
}

void ToolBar::OnResizeTimerTimeOut()
{
    Q_D(ToolBar);
    for (const QPointer<ToolButtonWithMenu> &button : d->menuButtons(true)) {
        if (button->IsMenuShowing()) {
            button->ShowMenu();
            return;
        }
    }
}

QPropertyAnimation *ToolBar::InitializePosAnimation(bool show, QWidget *widget, ToolBar *toolBar,
                                                    QPoint offset, const QEasingCurve &curve,
                                                    int durationMs)
{
    if (!widget || !toolBar)
        return nullptr;
    auto *const animation = new QPropertyAnimation(widget, "pos", widget);
    animation->setDuration(durationMs);
    animation->setEasingCurve(curve);
    animation->setStartValue(GetAnimationTargetPos(show, true, widget, toolBar, offset));
    animation->setEndValue(GetAnimationTargetPos(show, false, widget, toolBar, offset));
    connect(animation, &QAbstractAnimation::finished, toolBar,
            show ? &ToolBar::ShowAnimationFinished : &ToolBar::HideAnimationFinished);
    connect(animation, &QAbstractAnimation::finished, toolBar,
            show ? &ToolBar::OnShowAnimationDone : &ToolBar::OnHideAnimationDone);
    return animation;
}

QPoint ToolBar::GetAnimationTargetPos(bool show, bool isStart, QWidget *widget, ToolBar *toolBar,
                                      QPoint offset)
{
    if (!widget)
        return {};
    const QWidget *const parent = widget->parentWidget();
    if (!parent || !toolBar)
        return widget->pos();
    return Internal::placeOfSlide(toolBar->d_func()->area, show != isStart, parent->rect(),
                                  widget->rect(), widget->pos(), offset);
}

// A slide that has not ended is given up: Qt stops an animation when another one of the same property
// starts.
void ToolBarPrivate::slide(bool show, const QEasingCurve &curve)
{
    Q_Q(ToolBar);
    QPropertyAnimation *const animation =
        ToolBar::InitializePosAnimation(show, q, q, offset, curve, slideDuration);
    isSliding = true;
    if (show && !q->isVisible()) {
        q->move(animation->startValue().toPoint());
        q->show();
    }
    if (show)
        q->setEnabled(true);
    inShowMode = show;
    animation->start(QAbstractAnimation::DeleteWhenStopped);
}

void ToolBar::ShowAnimated()
{
    Q_D(ToolBar);
    d->slide(true, QEasingCurve::OutExpo);
}

void ToolBar::HideAnimated()
{
    Q_D(ToolBar);
    const QPointer<ToolBar> self(this);
    HideAllButtonMenusExcept(false, nullptr);
    if (!self)
        return;
    SetLocked(true);
    d->isLockedBySlide = true;
    d->slide(false, QEasingCurve::InExpo);
}

void ToolBar::OnShowAnimationDone()
{
    Q_D(ToolBar);
    d->isSliding = false;
    d->isLockedBySlide = false;
    SetLocked(false);
}

void ToolBar::OnHideAnimationDone()
{
    Q_D(ToolBar);
    d->isSliding = false;
    ToolBarPrivate::hide(this);
}

bool ToolBar::InShowMode()
{
    Q_D(ToolBar);
    if (!isVisible())
        d->inShowMode = false;
    return d->inShowMode;
}

void ToolBarPrivate::hide(QWidget *widget)
{
    auto *const bar = qobject_cast<ToolBar *>(widget);
    if (!bar || !bar->isVisible()) {
        widget->hide();
        return;
    }
    const QPointer<ToolBar> guard(bar);
    bar->HideAllButtonMenusExcept(bar->d_func()->keepMenuStateOnHide, nullptr);
    if (!guard)
        return;
    bar->d_func()->hasClosedMenus = true;
    bar->hide();
    if (guard)
        bar->d_func()->hasClosedMenus = false;
}

void ToolBar::ShowMe()
{
    show();
    raise();
}

void ToolBar::HideMe(bool keepMenuState)
{
    Q_D(ToolBar);
    d->keepMenuStateOnHide = keepMenuState;
    const QPointer<ToolBar> self(this);
    d->hideMenus(d->menuButtons(true), keepMenuState, nullptr);
    if (self)
        ToolBarPrivate::hide(this);
}

bool ToolBar::event(QEvent *event)
{
    auto *const layer = event->type() == QEvent::ParentChange
        ? qobject_cast<FloatingLayer *>(parentWidget())
        : nullptr;
    // A click would have the window system give the layer the focus, and keys such as Escape would not
    // reach the window below any more.
    if (layer)
        layer->setWindowFlag(Qt::WindowDoesNotAcceptFocus);
    return QWidget::event(event);
}

bool ToolBar::eventFilter(QObject *watched, QEvent *event)
{
    Q_D(ToolBar);
    if (event->type() == QEvent::Resize)
        d->onResized(watched);
    else if (event->type() == QEvent::DynamicPropertyChange)
        d->noteProperty(qobject_cast<ToolButton *>(watched));
    else if (event->type() == QEvent::StyleChange)
        d->plates.clear();
    else if (event->type() == QEvent::LayoutDirectionChange)
        d->UpdatePathMaps();
    return QWidget::eventFilter(watched, event);
}

void ToolBarPrivate::onResized(QObject *watched)
{
    Q_Q(ToolBar);
    const bool isPanel = std::find(panels.cbegin(), panels.cend(), watched) != panels.cend();
    if (watched == centralWidget || isPanel) {
        q->resize(centralWidget->size());
        centralWidget->move(0, 0);
        UpdatePathMaps();
        if (q->isVisible())
            cutOutLayer();
    }
    if (watched == refParent)
        q->OnAutoPosition();
    if (delayRelocationOnResize)
        resizeTimer->start();
    else
        q->OnResizeTimerTimeOut();
}

// Of a floating bar without a ground of its own only the plates are there.
void ToolBarPrivate::cutOutLayer()
{
    Q_Q(ToolBar);
    const bool isFramed = borderWidth != 0 && !borderAroundPanels;
    if (backColor.alpha() != 0 || isFramed || shadowEffect->isEnabled()) {
        Internal::restoreLayer(*q);
        return;
    }
    const int reach = borderWidth / 2;
    QRegion seen;
    for (const QWidget *const panel : qAsConst(panels)) {
        if (!panel->isHidden())
            seen += panel->geometry()
                        .translated(centralWidget->pos())
                        .adjusted(-reach, -reach, reach, reach);
    }
    Internal::cutOutLayer(*q, seen);
}

void ToolBar::showEvent(QShowEvent *event)
{
    Q_D(ToolBar);
    AdjustToolBarSize(false);
    d->cutOutLayer();
    d->reopenMenus();
    QWidget::showEvent(event);
    d->keepMenuStateOnHide = true;
    // Shown where it is after it has slid out.
    if (!d->isSliding && std::exchange(d->isLockedBySlide, false))
        SetLocked(false);
}

void ToolBar::hideEvent(QHideEvent *event)
{
    Q_D(ToolBar);
    if (!d->hasClosedMenus)
        HideAllButtonMenusExcept(d->keepMenuStateOnHide, nullptr);
    QWidget::hideEvent(event);
}

} // namespace Vela::UiBase
