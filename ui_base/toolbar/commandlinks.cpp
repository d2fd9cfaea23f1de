// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "ui_base/command/commandlinks_p.h"

#include "ui_base/toolbar/toolbutton.h"

namespace Vela::UiBase::Internal {

QObject *objectOf(ToolButton *button)
{
    return button;
}

} // namespace Vela::UiBase::Internal
