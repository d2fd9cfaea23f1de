// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "ui_base/qtui/tooltip/tooltipwrapper.h"

#include "ui_base/qtui/tooltip/tooltipwrapper_p.h"

#include "ui_base/popup/widgetposcalculator.h"

#include <QPoint>
#include <QPointer>

namespace Vela::UiBase {

TooltipWrapperPrivate::TooltipWrapperPrivate() = default;

TooltipWrapperPrivate::~TooltipWrapperPrivate() = default;

TooltipWrapper::TooltipWrapper(const QString &groupName, QWidget *parent)
    : TooltipWrapper(*new TooltipWrapperPrivate, groupName, parent)
{ }

TooltipWrapper::TooltipWrapper(TooltipWrapperPrivate &dd, const QString &groupName, QWidget *parent)
    : ATooltipObject(dd, groupName, parent)
{ }

TooltipWrapper::~TooltipWrapper() = default;

void TooltipWrapper::Show(const QPoint &point, bool useRefPoint, ETooltipShowUpType type)
{
    Q_D(TooltipWrapper);
    d->EnsureMade();
    if (useRefPoint)
        d->posCalculator->SetRefPoint(point);
    if (type == ETooltipShowUpType::ShowUpManualDismiss)
        d->dismissTimer->stop();
    const QPointer<TooltipWrapper> self(this);
    if (d->tooltipWindow)
        ShowTooltip();
    if (self && type == ETooltipShowUpType::ShowUpAutoDismiss)
        d->dismissTimer->start(d->autoDismissTime);
}

void TooltipWrapper::DelayHide()
{
    Q_D(TooltipWrapper);
    d->EnsureMade();
    d->dismissTimer->start(d->dismissTime);
}

void TooltipWrapper::UpdateText(const QString &text)
{
    Q_EMIT UpdateTooltipText(text);
}

void TooltipWrapper::EventFilterOnHide(QObject *)
{
    HideTooltip();
}

} // namespace Vela::UiBase
