// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "ui_base/qtui/tooltip/tooltipwrapper.h"

#include "ui_base/qtui/tooltip/tooltipwrapper_p.h"

#include "ui_base/popup/widgetposcalculator.h"

#include <QPoint>

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
    // Whatever goes on in showing, the time is the one of this call.
    if (type == ETooltipShowUpType::ShowUpAutoDismiss)
        d->dismissTimer->start(d->autoDismissTime);
    else
        d->dismissTimer->stop();
    if (d->tooltipWindow)
        ShowTooltip();
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
