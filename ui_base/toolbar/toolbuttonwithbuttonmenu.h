// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

#include "ui_base/toolbar/toolbuttonwithmenu.h"

namespace Vela::UiBase {

class ToolButtonWithButtonMenuPrivate;

/// A button whose popup is a tool bar: a menu of buttons. A small arrow in its corner tells where the
/// menu opens. A checkable button is checked while one of the menu is, and shows the icon of the
/// action that was chosen last.
///
/// In extend mode the button stands in for the buttons of its menu that open a widget: a click on
/// one closes the menu, opens the widget from the place of this button, and has this button show
/// that one's icon until the widget is closed.
///
/// ToolBar::AddAction() and ToolBar::AddCommandGroup() make such buttons. Main thread only.
class LUMO_UI_BASE_EXPORT ToolButtonWithButtonMenu : public ToolButtonWithMenu
{
    Q_OBJECT

public:
    /// A button with a menu.
    /// @param icon shown while no choice of the menu takes its place; with a null one the icon of the
    ///             first checked action of the menu is taken, else that of its first action
    /// @param toolBar not owned; hears the mouse events of the button and tells the menu's sizes
    /// @param menu see SetMenu()
    /// @param tooltip text of the tooltip
    /// @param parent owner of the button, may be null
    ToolButtonWithButtonMenu(const QIcon &icon, ToolBar *toolBar, ToolBar *menu,
                             const QString &tooltip, QWidget *parent);
    ~ToolButtonWithButtonMenu() override;

    /// The menu; null when there is none or it has died.
    ToolBar *GetMenu() const;
    /// Replaces the menu, and deletes the former one. The menu takes spacings, margins and the size
    /// of its buttons over from the bar of this button, does not place itself any more, and is
    /// hidden. Actions of its buttons are connected to OnActionTriggered().
    /// @param menu belongs to the button from now on, another button that has it loses it; see
    ///             FloatingLayer for one above native views. Null and the bar that this button
    ///             stands on, at whichever level, are ignored
    void SetMenu(ToolBar *menu);
    /// Sets where the menu opens, see SetMenuPosParameters(), and has the arrow tell so.
    void SetMenuParameters(EDirection direction, int baseOffset, EWidgetsAlign align,
                           QPoint additionalOffset);

    /// Whether a widget of the menu is open through this button now.
    bool IsInExtendMode() const;
    /// Whether that is a widget of @p child.
    bool IsStandingInFor(const ToolButton *child) const;
    /// Sets whether closing the menu unchecks all actions of it, also when it is closed already; off by
    /// default. What that runs must not delete this button at once, for Qt may be toggling it.
    /// \sa ButtonMenuCleared()
    void SetClearSelectionOnHide(bool clear);
    /// Begins to stand in for a button of the menu: closes the menu and shows the icon of that
    /// button. One that was shown before is closed. Null is ignored.
    void OnEnterExtendMode(ToolButton *child);
    /// Ends to stand in: closes the widget of the menu, shows the own icon again and unlocks the
    /// buttons of the bar. Without a button to stand in for it only unchecks this one.
    void OnExitExtendMode();

    /// The action of the first button of the menu that has one, or null.
    /// @param checkedOnly whether it has to be checked
    QAction *GetFirstSubMenuAction(bool checkedOnly) const;
    /// Gives the menu the spacings, margins and button size that the bar of this button has now.
    void ApplyBaseToolBarParamsToButtonMenu();

    /// Switches on or off that the buttons of the menu that open a widget do so through this one; those
    /// that are there now, so it is to be called again when others were added. Nothing is switched
    /// on without a menu.
    void SetExtendMode(bool on) override;
    /// Opens the menu or closes it, or ends to stand in for a button of it.
    void ClickedHandler() override;
    /// Asks the handlers that were registered here for the actions of the menu, and enables those
    /// accordingly. The button is enabled if one of them is, and a button with an empty menu is
    /// disabled; one without handlers counts as the one before it. Nothing without a menu.
    void EnableActions() override;
    /// Whether a button of the menu was made for @p action; the own action does not count.
    bool IsActionAssociated(QAction *action) override;
    void ShowMenu() override;
    /// Closes the menu; and ends extend mode unless the menu is to open again with the bar.
    void HideMenu() override;
    QPoint GetMenuPosition() override;
    /// Brings the button to the state of a closed menu: a checkable one stays checked while an
    /// action of the menu is.
    void HideMenuEx() override;
    /// Shows the choice: the icon of a checkable @p action on a checkable button, the own one on any
    /// other and when nothing of the menu is checked. The pointer does not change it any more.
    void ActionTriggeredHandler(QAction *action) override;

Q_SIGNALS:
    /// All actions of the menu were unchecked, see SetClearSelectionOnHide().
    void ButtonMenuCleared();

protected:
    /// For subclasses with a private class of their own; else like the public form.
    /// @param dd taken over and deleted by the button
    ToolButtonWithButtonMenu(ToolButtonWithButtonMenuPrivate &dd, const QIcon &icon,
                             ToolBar *toolBar, ToolBar *menu, const QString &tooltip,
                             QWidget *parent);

    void enterEvent(QEvent *event) override;
    void leaveEvent(QEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;

private:
    Q_DECLARE_PRIVATE(ToolButtonWithButtonMenu)
    Q_DISABLE_COPY(ToolButtonWithButtonMenu)
};

} // namespace Vela::UiBase
