// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

#include "ui_base/toolbar/toolbar_p.h"
#include "ui_base/toolbar/toolbuttonwithmenu_p.h"

#include <QWidget>

namespace Lumo::Test {

/// A bar that lets its subclass's parts be reached.
class MenuBar : public Vela::UiBase::ToolBar
{
public:
    using ToolBar::OnButtonCreated;
    using ToolBar::RemoveButton;
    using ToolBar::ToolBar;
    Vela::UiBase::ToolBarPrivate *opened()
    {
        return static_cast<Vela::UiBase::ToolBarPrivate *>(d_ptr.get());
    }
};

/// A button whose popup is a given widget, which is a menu of buttons when it is a bar.
class MenuButton : public Vela::UiBase::ToolButtonWithMenu
{
    Q_OBJECT

public:
    MenuButton(MenuBar *bar, QWidget *menu, const QString &tooltip = QStringLiteral("Menu"))
        : ToolButtonWithMenu(QIcon(), bar, tooltip, bar)
    {
        opened()->menu = menu;
        if (auto *const subBar = dynamic_cast<MenuBar *>(menu)) {
            opened()->buttonKind = Vela::UiBase::ToolButtonPrivate::EButtonKind::ButtonMenu;
            subBar->opened()->parentButton = this;
        }
        if (bar)
            bar->OnButtonCreated(this, QStringLiteral("tools"), true, true, 0);
    }

    QPoint GetMenuPosition() override
    {
        ++asked;
        return place;
    }
    void ActionTriggeredHandler(QAction *action) override
    {
        triggered << action;
        ToolButtonWithMenu::ActionTriggeredHandler(action);
    }
    void ClickedHandler() override { IsMenuShowing() ? HideMenu() : ShowMenu(); }
    Vela::UiBase::ToolButtonWithMenuPrivate *opened()
    {
        return static_cast<Vela::UiBase::ToolButtonWithMenuPrivate *>(d_ptr.get());
    }

    QPoint place {7, 60};
    int asked = 0;
    QList<QAction *> triggered;
};

} // namespace Lumo::Test
