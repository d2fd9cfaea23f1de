// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

#include "ui_base/panel/actionpanel.h"
#include "ui_base/toolbar/toolbar_p.h"

namespace Vela::UiBase {

/// The state of an ActionPanel, which has none beside that of a bar. A subclass with state of its
/// own derives from this.
class LUMO_UI_BASE_EXPORT ActionPanelPrivate : public ToolBarPrivate
{
    Q_DECLARE_PUBLIC(ActionPanel)

public:
    ~ActionPanelPrivate() override;
};

} // namespace Vela::UiBase
