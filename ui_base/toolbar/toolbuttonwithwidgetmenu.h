// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

#include "ui_base/popup/arrowedwindow.h"
#include "ui_base/toolbar/toolbuttonwithmenu.h"

#include <QColor>
#include <QRect>

namespace Vela::UiBase {

class ToolButtonWithButtonMenu;
class ToolButtonWithWidgetMenuPrivate;

/// A button whose popup is a widget, mostly a FlyoutBase, in an ArrowedWindow that points at the
/// button. It follows a flyout that resizes, closes itself, or shows a side panel.
///
/// When the button stands on the menu of another one, that can stand in for it, see
/// ToolButtonWithButtonMenu::SetExtendMode(): the widget opens from the place of that one then.
///
/// ToolBar::AddAction() makes such buttons. Main thread only.
class LUMO_UI_BASE_EXPORT ToolButtonWithWidgetMenu : public ToolButtonWithMenu
{
    Q_OBJECT

public:
    /// A button that shows @p action and opens @p menu in an arrowed window.
    /// @param action not owned, see ToolButton
    /// @param toolBar not owned; hears the mouse events of the button. The widget by which it is placed
    ///                becomes the owner of the window
    /// @param menu see SetMenu()
    /// @param parent owner of the button, may be null
    ToolButtonWithWidgetMenu(QAction *action, ToolBar *toolBar, QWidget *menu, QWidget *parent);
    /// Closes what is open. The widget goes back to the parent that it had, else to the widget by
    /// which the bar is placed, hidden; it is deleted with the button when both have gone.
    ~ToolButtonWithWidgetMenu() override;

    /// Replaces the widget of the popup, and deletes the former one. The popup is made floating and
    /// hidden. The flyout that @p widget may be is connected: its resizing, closing, side panels and
    /// bands reach the button, CloseFlyout() of the button closes it, and ESCKeyReleased() is passed
    /// on to it.
    /// @param widget becomes a child of the window and belongs to the button from now on; another
    ///               button that has it loses it. Null, the button and what it stands in are
    ///               ignored
    /// @param useArrowedWindow whether it is shown in GetArrowedWindow() rather than by itself
    void SetMenu(QWidget *widget, bool useArrowedWindow);
    /// Sets where the popup opens and how its window looks.
    /// @param shadow whether the window has a shadow
    /// @param arrow the arrow of the window
    /// @param direction side of the button, if there is room
    /// @param baseOffset distance from the button, in logical pixels
    /// @param align how a popup without window is aligned with the button
    /// @param additionalOffset is added to the place of a popup without window
    void SetMenuParameters(bool shadow, const ArrowedWindow::SArrowParam &arrow,
                           EDirection direction, int baseOffset, EWidgetsAlign align,
                           QPoint additionalOffset);
    /// The window around the widget.
    ArrowedWindow *GetArrowedWindow() const;

    /// The button that stands in for this one; null when there is none or it has died.
    QWidget *ExtendController() const;
    /// Sets the button that stands in for this one. Null is not stored: the one of before stays known.
    void SetExtendController(QWidget *controller);

    /// Closes the popup: has a flyout closed, by CloseFlyout(), and hides any other widget.
    void CloseMenu();

    /// Opens the popup or closes it.
    /// \sa SetNoHideMenuOnClick()
    void ClickedHandler() override;
    void ShowMenu() override;
    void HideMenu() override;
    QPoint GetMenuPosition() override;

public Q_SLOTS:
    /// Opens the popup through the button that stands in for this one; nothing without one.
    void OnRequestShowMenu();
    /// Takes that the flyout was closed or cancelled: ends extend mode of the button that stands in
    /// for this one, else unchecks this one, and tells that the popup has closed.
    void OnFlyoutClosed();
    /// Moves the popup to where it belongs with its new size.
    void OnFlyoutResized();
    /// Moves the popup to where it belongs with its side panel.
    void OnFlyoutSubWidgetVisibilityChanged(bool visible);
    /// Has the window paint a band, see ArrowedWindow::SetPartialBackgroundColor().
    void OnFlyoutSetPartialBackgroundColor(bool showColor, const QRect &rc, const QColor &color);

Q_SIGNALS:
    /// For owners to emit: the popup is to open through the button that stands in for this one.
    void RequestShowMenu();
    /// The flyout is to be closed. One that is visible is closed by this, and emits its own
    /// FlyoutBase::CloseFlyout() once; one that is hidden emits that alone.
    void CloseFlyout();
    /// For owners to emit: Escape was released, which is passed on to the flyout.
    void ESCKeyReleased();

protected:
    /// For subclasses with a private class of their own; else like the public form.
    /// @param dd taken over and deleted by the button
    ToolButtonWithWidgetMenu(ToolButtonWithWidgetMenuPrivate &dd, QAction *action, ToolBar *toolBar,
                             QWidget *menu, QWidget *parent);

private:
    Q_DECLARE_PRIVATE(ToolButtonWithWidgetMenu)
    Q_DISABLE_COPY(ToolButtonWithWidgetMenu)
};

} // namespace Vela::UiBase
