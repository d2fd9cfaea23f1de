// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

#include "ui_base/toolbar/toolbuttonwithbuttonmenu.h"
#include "ui_base/toolbar/toolbuttonwithmenu_p.h"

#include <QColor>
#include <QIcon>
#include <QPainterPath>

namespace Vela::UiBase {

/// The state of a ToolButtonWithButtonMenu.
class LUMO_UI_BASE_EXPORT ToolButtonWithButtonMenuPrivate : public ToolButtonWithMenuPrivate
{
    Q_DECLARE_PUBLIC(ToolButtonWithButtonMenu)

public:
    void SetDefaults() override;

    /// The buttons of the menu, those of its own menus left out.
    QList<ToolButton *> subButtons() const;
    /// Takes a menu from the button that opens it, if there is one. What that runs may delete
    /// anything.
    static void takeFromButton(ToolBar &bar);

    bool extendMode = false;   ///< buttons of the menu open their popups from this one
    bool inExtendMode = false; ///< one of them does so now
    bool clearSelectionOnHide = false;
    QIcon savedIcon;        ///< what was shown before extend mode
    QPainterPath arrowPath; ///< in coordinates of the button
    QColor arrowColor;
    QPointer<ToolButton> extendButton; ///< the one that is shown through this button

private:
    friend class ToolButtonWithButtonMenu;

    ToolBar *menuBar() const;
    bool standsOn(const ToolBar *bar) const;
    void setMenu(ToolBar *next);
    void takeMenu(ToolBar *next);
    void letMenuGo();
    void connectSubButtons();
    void disconnectSubButtons();
    void adoptIcon();
    void showOwnIcon();
    void updateArrow();
    void connectExtended(ToolButtonWithWidgetMenu *child);
    void disconnectExtended(ToolButtonWithWidgetMenu *child);
    bool isAnyCheckableChecked() const;
};

} // namespace Vela::UiBase
