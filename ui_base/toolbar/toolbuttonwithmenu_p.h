// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

#include "ui_base/toolbar/toolbutton_p.h"
#include "ui_base/toolbar/toolbuttonwithmenu.h"

namespace Vela::UiBase {

/// The state of a ToolButtonWithMenu.
class LUMO_UI_BASE_EXPORT ToolButtonWithMenuPrivate : public ToolButtonPrivate
{
    Q_DECLARE_PUBLIC(ToolButtonWithMenu)

public:
    void SetDefaults() override;
    bool hasMenu() const override;

    QPointer<QWidget> menu;
    WidgetPosCalculator *posCalculator = nullptr; ///< a child of the button
    bool noHideMenuOnClick = false;
    QIcon defaultIcon;        ///< the button's own
    bool ownIconShown = true; ///< and not that of a button of the popup
    bool saveMenuState = true;
    QPointer<ToolButtonWithMenu> savedMenuOwner;

private:
    friend class ToolButtonWithMenu;
    void initializeMenu();
    void enableTooltip(bool enable) const;
};

} // namespace Vela::UiBase
