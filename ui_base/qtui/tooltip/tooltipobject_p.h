// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

#include "ui_base/qtui/tooltip/atooltipobject_p.h"
#include "ui_base/qtui/tooltip/tooltipobject.h"

namespace Vela::UiBase {

/// The state of a TooltipObject.
class LUMO_UI_BASE_EXPORT TooltipObjectPrivate : public ATooltipObjectPrivate
{
    Q_DECLARE_PUBLIC(TooltipObject)

public:
    TooltipObjectPrivate();
    ~TooltipObjectPrivate() override;

    void OnMade() override;
    void OnOtherEvent(QObject *watched, QEvent *event) override;
    void WatchEndOfHost();

    QPointer<QWidget> hostWidget;
    bool pressed = false;
    bool hovering = false;
    bool hideOnPress = true;

    QMetaObject::Connection endOfHost;

private:
    Q_DISABLE_COPY(TooltipObjectPrivate)
};

} // namespace Vela::UiBase
