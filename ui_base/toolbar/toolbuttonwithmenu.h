// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

#include "ui_base/toolbar/toolbutton.h"

namespace Vela::UiBase {

class ToolButtonWithMenuPrivate;

/// A button that opens a popup beside it. Subclasses say what the popup is and where it opens; this
/// class opens and closes it, moves it with the button, and remembers that it was open when its bar
/// is hidden, so that it opens again with the bar. While the popup is open the tooltip is off.
///
/// Main thread only.
class LUMO_UI_BASE_EXPORT ToolButtonWithMenu : public ToolButton
{
    Q_OBJECT

public:
    ~ToolButtonWithMenu() override;

    /// The popup; null when there is none or it has died.
    QWidget *GetMenu() const;
    /// Works out the place of the popup. Owned by the button.
    WidgetPosCalculator *GetPosCalculator() const;
    /// Whether the popup is visible.
    bool IsMenuShowing() const;
    /// Whether the popup is a tool bar with @p button on it.
    bool IsSubMenuButton(ToolButton *button) const;

    /// Whether the next hide with the popup open has the popup open again with the bar. On by default;
    /// off once the popup was opened.
    bool SaveMenuState() const;
    /// \sa SaveMenuState()
    void SetSaveMenuState(bool save);
    /// The button that has to open its popup when the bar is shown again, or null.
    ToolButtonWithMenu *SavedMenuOwner() const;
    /// \sa SavedMenuOwner()
    void SetSavedMenuOwner(ToolButtonWithMenu *owner);
    /// Has a click leave an open popup open, where the popup is a widget; off by default.
    void SetNoHideMenuOnClick(bool noHide);

    /// Sets where the popup opens, by GetPosCalculator().
    /// @param direction side of the button, if there is room
    /// @param baseOffset distance from the button, in logical pixels
    /// @param align how it is aligned with the button
    /// @param additionalOffset is added to its place
    void SetMenuPosParameters(EDirection direction, int baseOffset, EWidgetsAlign align,
                              QPoint additionalOffset);
    /// Works the place of the popup out anew and moves it there.
    void RecalcMenuPosAndMove();

    /// Opens the popup at its place and checks a checkable button. One that is open takes its place
    /// anew. Nothing without a popup.
    virtual void ShowMenu();
    /// Closes the popup, after HideMenuEx(). Nothing without a popup.
    virtual void HideMenu();
    /// Where the popup belongs, in the coordinates in which QWidget::move() moves it.
    virtual QPoint GetMenuPosition() = 0;
    /// Brings the button to the state of a closed popup: unchecks a checkable one.
    virtual void HideMenuEx();
    /// Called when an action of the popup was triggered or toggled: takes the button's own action away.
    virtual void ActionTriggeredHandler(QAction *action);

public Q_SLOTS:
    /// Closes the popup as a click would, if @p widget is visible. It may have died: a queued call is
    /// good.
    void OnCloseMenu(QWidget *widget, bool isChecked);
    /// Takes a trigger of the action that sends it.
    void OnActionTriggered(bool checked);

Q_SIGNALS:
    /// The popup of @p button was opened or closed. What hears of it must not delete bars or buttons at
    /// once, see ToolBar.
    void ButtonMenuVisibilityChange(Vela::UiBase::ToolButton *button, bool isMenuVisible);

protected:
    /// A button for an action, see ToolButton.
    ToolButtonWithMenu(QAction *action, ToolBar *toolBar, QWidget *parent);
    /// A button with an icon of its own.
    /// @param icon shown while no choice of the popup takes its place
    /// @param toolBar not owned; hears the mouse events of the button
    /// @param tooltip text of the tooltip
    /// @param parent owner of the button, may be null
    ToolButtonWithMenu(const QIcon &icon, ToolBar *toolBar, const QString &tooltip,
                       QWidget *parent);
    /// For subclasses with a private class of their own.
    /// @param dd taken over and deleted by the button
    ToolButtonWithMenu(ToolButtonWithMenuPrivate &dd, QAction *action, ToolBar *toolBar,
                       QWidget *parent);
    /// \overload
    ToolButtonWithMenu(ToolButtonWithMenuPrivate &dd, const QIcon &icon, ToolBar *toolBar,
                       const QString &tooltip, QWidget *parent);

    bool eventFilter(QObject *watched, QEvent *event) override;
    void moveEvent(QMoveEvent *event) override;

private:
    Q_DECLARE_PRIVATE(ToolButtonWithMenu)
    Q_DISABLE_COPY(ToolButtonWithMenu)
};

} // namespace Vela::UiBase
