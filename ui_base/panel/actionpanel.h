// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

#include "ui_base/toolbar/toolbar.h"

namespace Vela::UiBase {

class ActionPanelPrivate;

/// The vertical tool bar at the left of a view: large buttons on no ground of its own, each group on
/// a plate, with tooltips, menus and flyouts at the right. It keeps its place, 5 pixels from the
/// left edge of its parent and in the middle of its height.
///
/// Everything that it does is done by ToolBar; this class fixes the parameters. A group of commands
/// becomes a button with a grid of four columns:
///
/// @code
/// auto *const panel = new ActionPanel(view->getQtWidget());
/// controller->ActionPanelGroup()->setToolbar(panel);
/// panel->AddCommandGroup(controller->ActionPanelGroup());
/// @endcode
///
/// Main thread only.
/// \sa ToolBar, CmdsViewController::ActionPanelGroup()
class LUMO_UI_BASE_EXPORT ActionPanel : public ToolBar
{
    Q_OBJECT

public:
    /// An empty panel.
    /// @param parent owner of the panel and what it is placed by, may be null
    explicit ActionPanel(QWidget *parent);
    ~ActionPanel() override;

    /// Adds a button that opens a menu of buttons, which a click on one of them closes. With a grid
    /// the button is checkable, its menu is in line with it, and it is in extend mode, see
    /// ToolButtonWithButtonMenu::SetExtendMode(). With any other menu it is none of that and has
    /// no object name, and the menu opens as SetButtonDefaultMenuParameters() says.
    /// @param parent has to be there, and is not used otherwise
    /// @param action becomes the default action of the button; not owned, may be null
    /// @param toolBar the bar to add it to
    /// @param menu see ToolButtonWithButtonMenu::SetMenu()
    /// @param groupName,rank its place on the bar, see ToolBar::AddAction()
    /// @param icon shown where the action has none
    /// @param tooltip text of the tooltip
    /// @param objectName object name of a button with a grid
    /// @return the button, owned by the bar; null when @p parent, @p toolBar or @p menu is null, and
    ///         when @p toolBar is @p menu or stands below it
    static ToolButtonWithButtonMenu *CreateToolButton(QWidget *parent, QAction *action,
                                                      ToolBar *toolBar, ToolBar *menu,
                                                      const QString &groupName, const QIcon &icon,
                                                      int rank, const QString &tooltip,
                                                      const QString &objectName);
    /// The same with an icon of two files.
    /// @param normalIcon,activeIcon see ToolButton::CreateToolButtonIcon()
    static ToolButtonWithButtonMenu *CreateToolButton(
        QWidget *parent, QAction *action, ToolBar *toolBar, ToolBar *menu, const QString &groupName,
        const QString &normalIcon, const QString &activeIcon, int rank, const QString &tooltip,
        const QString &objectName);

    /// Has every button with a menu, also those in menus, close its menu when it is clicked while
    /// that is open, see ToolButtonWithMenu::SetNoHideMenuOnClick().
    void PrepareActionPanel();
    /// Enables or disables every button of the panel. Those of menus are left alone, and so are the
    /// actions of the buttons: a button of a disabled action is enabled, too, but its click does
    /// nothing, and one whose action changes takes the state of that again.
    void SetEnabled(bool enable);

    /// Repeats what the constructor does, for subclasses that override InitializeToolBar(): to be
    /// called from their constructors.
    virtual void Initialize();
    /// Gives the panel its looks, sizes and place. An override that only changes some of that calls
    /// this first.
    virtual void InitializeToolBar();

public Q_SLOTS:
    /// Disables all buttons while a flyout works, so that nothing comes between; to be connected to
    /// what tells of that.
    void OnFlyoutBusy();
    /// Enables all buttons again.
    void OnFlyoutIdle();
    /// Does nothing. A slot of this name in a subclass is called instead when a menu was opened or
    /// closed, if the subclass calls Initialize().
    void OnButtonMenuVisibilityChange(Vela::UiBase::ToolButton *button, bool isMenuVisible);

protected:
    /// For subclasses with a private class of their own; else like the public form.
    /// @param dd taken over and deleted by the panel
    ActionPanel(ActionPanelPrivate &dd, QWidget *parent);

    /// Makes a grid of four columns, whatever the group says.
    ToolBar *CreateSubToolBar(CommandGroup *group) override;
    /// Adds the button of a group by CreateToolButton().
    ToolButton *AddButton(ToolBar *menu, CommandGroup *group, int rank) override;
    /// Has the flyout of @p leaf treat Escape itself.
    void OnDismissWidgetMenu(ToolButtonWithButtonMenu *owner,
                             ToolButtonWithWidgetMenu *leaf) override;

private:
    Q_DECLARE_PRIVATE(ActionPanel)
    Q_DISABLE_COPY(ActionPanel)
};

} // namespace Vela::UiBase
