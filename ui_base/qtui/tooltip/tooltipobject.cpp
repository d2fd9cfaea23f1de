// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "ui_base/qtui/tooltip/tooltipobject.h"

#include "ui_base/qtui/tooltip/tooltipobject_p.h"

#include "ui_base/popup/widgetposcalculator.h"

#include <QCursor>
#include <QMouseEvent>

namespace Vela::UiBase {

TooltipObjectPrivate::TooltipObjectPrivate() = default;

TooltipObjectPrivate::~TooltipObjectPrivate() = default;

void TooltipObjectPrivate::OnMade()
{
    if (!hostWidget)
        return;
    posCalculator->SetRefWidget(hostWidget);
    WatchEndOfHost();
}

// Qt tells nobody else that a visible child widget dies. Only a tooltip that was made can be up.
void TooltipObjectPrivate::WatchEndOfHost()
{
    Q_Q(TooltipObject);
    QObject::disconnect(endOfHost);
    endOfHost = QObject::connect(hostWidget, &QObject::destroyed, q, [q] { q->HideTooltip(); });
}

void TooltipObjectPrivate::OnOtherEvent(QObject *watched, QEvent *event)
{
    Q_Q(TooltipObject);
    if (event->type() == QEvent::EnabledChange && watched == hostWidget
        && !hostWidget->isEnabled()) {
        StopTooltipTimer();
        q->HideTooltip();
    } else {
        ATooltipObjectPrivate::OnOtherEvent(watched, event);
    }
}

TooltipObject::TooltipObject(const QString &groupName, QWidget *parent)
    : TooltipObject(*new TooltipObjectPrivate, groupName, parent)
{ }

TooltipObject::TooltipObject(TooltipObjectPrivate &dd, const QString &groupName, QWidget *parent)
    : ATooltipObject(dd, groupName, parent)
{ }

TooltipObject::~TooltipObject()
{
    Q_D(TooltipObject);
    // Its window is a child of the host, which hears of the end of that.
    if (d->hostWidget)
        d->hostWidget->removeEventFilter(this);
}

void TooltipObject::AttachTo(QWidget *host)
{
    Q_D(TooltipObject);
    if (!host || host == d->hostWidget)
        return;
    const bool hadHost = d->hostWidget;
    d->hostWidget = host;
    host->setAttribute(Qt::WA_ShowWithoutActivating);
    host->setFocusPolicy(Qt::NoFocus);
    host->setMouseTracking(true);
    host->installEventFilter(this);
    if (!d->isMade)
        return;
    d->posCalculator->SetRefWidget(host);
    d->WatchEndOfHost();
    if (!hadHost)
        return;
    d->StopTooltipTimer();
    HideTooltip();
}

void TooltipObject::Detach()
{
    Q_D(TooltipObject);
    if (!d->hostWidget)
        return;
    d->StopTooltipTimer();
    d->hostWidget->removeEventFilter(this);
    disconnect(d->endOfHost);
    d->hostWidget.clear();
    HideTooltip();
}

void TooltipObject::SetEnableHoverEvents(bool enable)
{
    Q_D(TooltipObject);
    d->hoverEventsEnabled = enable;
}

bool TooltipObject::CanTooltipBeShown()
{
    Q_D(TooltipObject);
    return ATooltipObject::CanTooltipBeShown() && d->hostWidget && d->hostWidget->isVisible();
}

bool TooltipObject::CheckMouseHover() const
{
    Q_D(const TooltipObject);
    const QWidget *const host = d->hostWidget;
    if (!host)
        return false;
    return host->rect().contains(host->mapFromGlobal(QCursor::pos()))
        || ATooltipObject::CheckMouseHover();
}

void TooltipObject::EventFilterOnEnter(QObject *watched)
{
    Q_D(TooltipObject);
    if (watched != d->hostWidget)
        return;
    d->StopDismissTimer();
    d->hovering = true;
    if (d->hoverEventsEnabled)
        OnHoverStatusChanged(true);
}

void TooltipObject::EventFilterOnLeave(QObject *watched)
{
    Q_D(TooltipObject);
    d->StopTooltipTimer();
    d->StartDismissTimer();
    if (d->hoverHold) {
        d->hovering = true;
        return;
    }
    d->hoveredOnLeave = CheckMouseHover();
    if (watched != d->hostWidget)
        return;
    d->hovering = false;
    if (d->hoverEventsEnabled)
        OnHoverStatusChanged(false);
}

void TooltipObject::EventFilterOnMouseMove(QObject *watched, QEvent *event)
{
    Q_D(TooltipObject);
    if (watched != d->hostWidget || d->hoverHold)
        return;
    d->pressed = static_cast<QMouseEvent *>(event)->button() == Qt::LeftButton;
    if (!d->hovering) {
        d->StopTooltipTimer();
        return;
    }
    d->EnsureMade();
    if (d->useCustomSettings && d->tooltipTimer && !d->visible)
        d->tooltipTimer->start();
    d->StopDismissTimer();
}

void TooltipObject::EventFilterOnMouseButtonPress(QObject *watched, QEvent *event)
{
    Q_D(TooltipObject);
    if (watched != d->hostWidget) {
        ATooltipObject::EventFilterOnMouseButtonPress(watched, event);
        return;
    }
    d->pressed = true;
    if (d->hideOnPress)
        HideTooltip();
}

void TooltipObject::EventFilterOnHide(QObject *watched)
{
    Q_D(TooltipObject);
    if (watched == d->hostWidget)
        HideTooltip();
}

} // namespace Vela::UiBase
