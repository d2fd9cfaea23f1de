// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

#include "ui_base/qtui/tooltip/atooltipobject_p.h"
#include "ui_base/qtui/tooltip/tooltipwrapper.h"

namespace Vela::UiBase {

/// The state of a TooltipWrapper.
class LUMO_UI_BASE_EXPORT TooltipWrapperPrivate : public ATooltipObjectPrivate
{
    Q_DECLARE_PUBLIC(TooltipWrapper)

public:
    TooltipWrapperPrivate();
    ~TooltipWrapperPrivate() override;

    int autoDismissTime = 20000; ///< milliseconds

private:
    Q_DISABLE_COPY(TooltipWrapperPrivate)
};

} // namespace Vela::UiBase
