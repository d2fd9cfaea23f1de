// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

// Buttons of a tool bar that open something: how they come onto it, also from groups of commands, and
// what opens and closes their menus.

#include "ui_base/toolbar/toolbar.h"

#include "ui_base/toolbar/toolbar_p.h"

#include "ui_base/command/commandgroup.h"
#include "ui_base/qtui/panel/flyoutbase.h"
#include "ui_base/qtui/qtuitoolkit.h"
#include "ui_base/toolbar/buttonline_p.h"
#include "ui_base/toolbar/toolbarutil.h"
#include "ui_base/toolbar/toolbutton_p.h"
#include "ui_base/toolbar/toolbuttonwithbuttonmenu_p.h"
#include "ui_base/toolbar/toolbuttonwithmenu_p.h"
#include "ui_base/toolbar/toolbuttonwithwidgetmenu_p.h"

#include <lumo_common_res/String>

namespace Vela::UiBase {
namespace {

// Beside a horizontal bar menus open upwards, beside a vertical one to the right.
EDirection menuDirection(const ToolBar &bar)
{
    return bar.IsHorizontalLayout() ? EDirection::Top : EDirection::Right;
}

// Where the first cell of a grid lines up with its button.
QPoint gridOffset(const ToolBar &owner, const ToolBar &menu)
{
    if (!menu.IsHorizontalLayout())
        return {0, 0};
    return owner.IsHorizontalLayout() ? QPoint(-2, 2) : QPoint(0, -2);
}

} // namespace

ToolButtonWithWidgetMenu *ToolBar::AddAction(QAction *action, QWidget *menuWidget,
                                             const QString &groupName, int rank,
                                             bool useTooltipDefaults, bool useMenuDefaults)
{
    Q_D(ToolBar);
    if (!action || !menuWidget)
        return nullptr;
    // Not while the new button is made: what hears that a popup closes may delete the bar.
    const QPointer<ToolBar> self(this);
    const QPointer<QAction> guardedAction(action);
    const QPointer<QWidget> guardedWidget(menuWidget);
    ToolButtonWithWidgetMenuPrivate::takeFromButton(menuWidget);
    if (!self || !guardedAction || !guardedWidget)
        return nullptr;
    QtUiToolkit::Instance().UpdateIconSize(action, d->iconSize);
    QWidget *const parent = d->parentForNewButton(groupName);
    QPointer<ToolButtonWithWidgetMenu> button;
    {
        const Internal::ButtonLine::SettingUp guard(Internal::ButtonLine::of(parent));
        button = new ToolButtonWithWidgetMenu(action, this, menuWidget, parent);
    }
    OnButtonCreated(button, groupName, useTooltipDefaults, useMenuDefaults, rank);
    auto *const flyout = qobject_cast<FlyoutBase *>(guardedWidget);
    if (button && flyout)
        flyout->SetToolButton(button);
    return button;
}

ToolButtonWithButtonMenu *ToolBar::AddAction(QAction *action, const QIcon &icon, ToolBar *menu,
                                             bool hideOnClick, const QString &groupName, int rank,
                                             const QString &tooltip, bool useTooltipDefaults,
                                             bool useMenuDefaults)
{
    Q_D(ToolBar);
    if (!menu || d->standsOn(menu))
        return nullptr;
    const QPointer<ToolBar> self(this);
    const QPointer<QAction> guardedAction(action);
    const QPointer<ToolBar> guardedMenu(menu);
    ToolButtonWithButtonMenuPrivate::takeFromButton(*menu);
    if (guardedMenu)
        ToolBarPrivate::hide(menu);
    if (!self || !guardedMenu)
        return nullptr;
    const QIcon sized = QtUiToolkit::Instance().UpdateIconSize(icon, d->iconSize);
    QWidget *const parent = d->parentForNewButton(groupName);
    QPointer<ToolButtonWithButtonMenu> button;
    {
        const Internal::ButtonLine::SettingUp guard(Internal::ButtonLine::of(parent));
        button = new ToolButtonWithButtonMenu(sized, this, menu, tooltip, parent);
    }
    menu->d_func()->hideOnButtonClick = hideOnClick;
    OnButtonCreated(button, groupName, useTooltipDefaults, useMenuDefaults, rank);
    if (!button || !guardedMenu)
        return button;
    menu->SetButtonSize(d->buttonSize);
    if (guardedAction)
        button->setDefaultAction(guardedAction);
    d->setFullIcon(button, guardedAction, sized);
    return button;
}

// A new button with a menu has prepared its pictures already, for another size and out of whichever
// icon was there first.
void ToolBarPrivate::setFullIcon(ToolButton *button, const QAction *action, const QIcon &icon) const
{
    auto *const menuButton = static_cast<ToolButtonWithButtonMenu *>(button);
    QIcon full = action ? action->icon() : QIcon();
    if (full.isNull())
        full = icon;
    const QAction *chosen = menuButton->GetFirstSubMenuAction(true);
    if (!chosen)
        chosen = menuButton->GetFirstSubMenuAction(false);
    if (full.isNull() && chosen)
        full = chosen->icon();
    button->d_func()->activeIcon.reset();
    button->d_func()->normalIcon.reset();
    button->setIcon(full);
}

void ToolBarPrivate::applyMenuDefaults(ToolButton *button) const
{
    if (auto *const widgetMenu = qobject_cast<ToolButtonWithWidgetMenu *>(button))
        widgetMenu->SetMenuParameters(defaultMenuShadow, defaultMenu.arrow, defaultMenu.direction,
                                      defaultMenu.offset, defaultMenu.align,
                                      defaultMenu.additionalOffset);
    else if (auto *const buttonMenu = qobject_cast<ToolButtonWithButtonMenu *>(button))
        buttonMenu->SetMenuParameters(defaultMenu.direction, defaultMenu.offset, defaultMenu.align,
                                      defaultMenu.additionalOffset);
    else if (auto *const menuButton = qobject_cast<ToolButtonWithMenu *>(button))
        menuButton->SetMenuPosParameters(defaultMenu.direction, defaultMenu.offset,
                                         defaultMenu.align, defaultMenu.additionalOffset);
}

ToolButtonWithButtonMenu *ToolBar::CreateToolButton(QWidget *parent, QAction *action,
                                                    ToolBar &toolBar, ToolBar *menu,
                                                    const QString &groupName, const QIcon &icon,
                                                    int rank, bool hideOnClick, bool checkable,
                                                    const QString &tooltip,
                                                    const QString &objectName)
{
    if (!parent || !menu)
        return nullptr;
    ToolButtonWithButtonMenu *const button =
        toolBar.AddAction(action, icon, menu, hideOnClick, groupName, rank, tooltip);
    if (!button)
        return nullptr;
    const EDirection direction = menuDirection(toolBar);
    if (menu->IsGridLayout())
        button->SetMenuParameters(direction, 7, EWidgetsAlign::AlignStart,
                                  gridOffset(toolBar, *menu));
    else
        button->SetMenuParameters(direction, 5, EWidgetsAlign::AlignCenter, QPoint(0, 0));
    button->setCheckable(checkable);
    button->setObjectName(objectName);
    button->SetExtendMode(true);
    return button;
}

ToolButton *ToolBar::AddButton(ToolBar *menu, CommandGroup *group, int rank)
{
    Q_D(ToolBar);
    if (!group)
        return nullptr;
    return CreateToolButton(d->refParent, group, *this, menu, group->baseGroupName(), group->icon(),
                            rank, true, true, group->toolTip(), group->objectName());
}

ToolBar *ToolBar::CreateSubToolBar(CommandGroup *group)
{
    Q_D(ToolBar);
    if (!group)
        return nullptr;
    ToolBar *const bar = ToolBarUtil::CreateMainToolBarButtonMenu(
        d->refParent, GetBaseToolBar(), QSize(), QSize(), group->isGrid(), group->gridSize());
    bar->ApplyDefaultToolbarParams(bar, Resource::String::COMMAND_TOOLPANEL_GROUP_ID);
    return bar;
}

void ToolBar::ApplyDefaultToolbarParams(const ToolBar *from, const QString &tooltipGroup)
{
    Q_D(ToolBar);
    d->tooltipGroupName = tooltipGroup;
    CopyAllParametersFrom(from);
    ArrowedWindow::SArrowParam arrow = ToolBarUtil::DefaultArrow();
    arrow.position = EArrowPosition::Left;
    SetButtonDefaultTooltipParameters(arrow, 5, EDirection::Right, EWidgetsAlign::AlignCenter,
                                      QPoint(0, 0));
}

ToolButton *ToolBar::AddCommandGroup(CommandGroup *group)
{
    return group ? AddCommandGroup(group, nullptr) : nullptr;
}

ToolButton *ToolBar::AddCommandGroup(CommandGroup *group, CommandGroup *parentGroup)
{
    Q_D(ToolBar);
    if (!group)
        return nullptr;
    const auto keptAlive = group->weak_from_this().lock();
    if (group->isVirtualGroup()) {
        const QPointer<ToolBar> self(this);
        QPointer<ToolButton> last;
        for (const auto &command : ToolBarPrivate::commandsOf(*group)) {
            if (self)
                last = AddSingleCommand(command.get(), group);
        }
        return last;
    }
    if (!group->toolbar() && !(parentGroup && d->makeSubToolBar(*group, *parentGroup)))
        return nullptr;
    ToolBarPrivate::fillSubToolBar(*group);
    return group->toolButton();
}

bool ToolBarPrivate::makeSubToolBar(CommandGroup &group, CommandGroup &parentGroup)
{
    Q_Q(ToolBar);
    const int rank = parentGroup.getCommandRank(group.commandId());
    const QPointer<ToolBar> bar = q->CreateSubToolBar(&group);
    ToolButton *const button = bar ? q->AddButton(bar, &group, rank) : nullptr;
    if (!button) {
        ToolButtonWithMenuPrivate::deletePopup(bar);
        return false;
    }
    button->removeAction(&group);
    button->setCheckable(group.isCheckable());
    button->setChecked(group.isChecked());
    button->d_func()->tooltipSource = &group;
    if (button->accessibleName().isEmpty())
        button->setAccessibleName(group.commandId());
    group.setToolbar(bar);
    group.setToolButton(button);
    return true;
}

void ToolBarPrivate::fillSubToolBar(CommandGroup &group)
{
    const QPointer<ToolBar> bar = group.toolbar();
    const QPointer<ToolButton> owner = group.toolButton();
    if (qobject_cast<ToolButtonWithButtonMenu *>(owner))
        owner->SetExtendMode(false);
    for (const auto &command : commandsOf(group)) {
        if (!bar)
            return;
        auto *const childGroup = qobject_cast<CommandGroup *>(command.get());
        ToolButton *const button = childGroup ? bar->AddCommandGroup(childGroup, &group)
                                              : bar->AddSingleCommand(command.get(), &group);
        if (owner)
            connectToOwner(*owner, *command, button);
    }
    if (bar)
        bar->AdjustToolBarSize(true);
}

void ToolBarPrivate::connectToOwner(ToolButton &owner, CommandBase &command, ToolButton *button)
{
    ToolBar *const bar = owner.d_func()->toolBar;
    const auto *const menuButton = qobject_cast<ToolButtonWithMenu *>(button);
    if (auto *const buttonMenu = qobject_cast<ToolButtonWithButtonMenu *>(&owner)) {
        if (menuButton && bar)
            QObject::connect(menuButton, &ToolButtonWithMenu::ButtonMenuVisibilityChange, bar,
                             &ToolBar::ButtonMenuVisibilityChange, Qt::UniqueConnection);
        QObject::connect(&command, command.isCheckable() ? &QAction::toggled : &QAction::triggered,
                         buttonMenu, &ToolButtonWithMenu::OnActionTriggered, Qt::UniqueConnection);
    }
    if (qobject_cast<ToolButtonWithWidgetMenu *>(button))
        owner.SetExtendMode(true);
}

// The choice of a command that stands in the menu no more does not show on its button.
void ToolBarPrivate::disconnectFromOwner(const QAction &action, const ToolButton &owner)
{
    const auto *const menuButton = qobject_cast<const ToolButtonWithMenu *>(&owner);
    if (!menuButton)
        return;
    for (const auto signal : {&QAction::toggled, &QAction::triggered})
        QObject::disconnect(&action, signal, menuButton, &ToolButtonWithMenu::OnActionTriggered);
}

void ToolBarPrivate::closeMenuOf(ToolButton *button) const
{
    if (parentButton && button->Action())
        disconnectFromOwner(*button->Action(), *parentButton);
    const QPointer<ToolButton> leaving(button);
    if (auto *const menuButton = qobject_cast<ToolButtonWithMenu *>(button))
        menuButton->HideMenu();
    if (!leaving)
        return;
    auto *const shown = qobject_cast<ToolButtonWithWidgetMenu *>(button);
    auto *const owner = qobject_cast<ToolButtonWithButtonMenu *>(parentButton);
    // The owner stands in for a button that is there no more.
    if (shown && owner && owner->IsStandingInFor(shown))
        owner->OnExitExtendMode();
}

ToolButtonWithWidgetMenu *ToolBar::GetActiveButton() const
{
    Q_D(const ToolBar);
    return d->activeButton;
}

void ToolBar::SetActiveButton(ToolButtonWithWidgetMenu *button)
{
    Q_D(ToolBar);
    d->activeButton = button;
}

void ToolBar::OnToolButtonClicked()
{
    Q_D(ToolBar);
    const QPointer<ToolBar> self(this);
    const QPointer<ToolButton> button = qobject_cast<ToolButton *>(sender());
    if (!button)
        return;
    OnButtonClickCheckExclusiveGroups(button);
    if (self && button)
        Q_EMIT ToolButtonClicked(button);
    if (self)
        d->closeActiveMenu(button);
    if (self)
        HideAllButtonMenusExcept(false, button);
    if (self && button && d->hideOnButtonClick
        && button->d_func()->buttonKind != ToolButtonPrivate::EButtonKind::ButtonMenu)
        d->hideAfterClick(qobject_cast<ToolButtonWithMenu *>(button));
}

// A click on the button that stands in for the active one ends that by itself.
void ToolBarPrivate::closeActiveMenu(const ToolButton *clicked) const
{
    if (!activeButton)
        return;
    const bool isStandIn = qobject_cast<const ToolButtonWithButtonMenu *>(clicked)
        && activeButton->ExtendController() == clicked;
    if (!isStandIn)
        activeButton->CloseMenu();
}

void ToolBarPrivate::hideAfterClick(const ToolButtonWithMenu *clicked)
{
    Q_Q(ToolBar);
    if (!parentButton) {
        if (!clicked)
            hide(q);
        return;
    }
    if (auto *const owner = qobject_cast<ToolButtonWithMenu *>(parentButton))
        owner->HideMenu();
}

void ToolBar::HideAllButtonMenusExcept(bool keepState, ToolButton *except)
{
    Q_D(ToolBar);
    const bool isBase = GetBaseToolBar() == this;
    d->hideMenus(d->menuButtons(isBase), keepState, except);
}

// Static, since what closing runs may delete the bar.
void ToolBarPrivate::hideMenus(const QList<QPointer<ToolButtonWithMenu>> &buttons, bool keepState,
                               const ToolButton *except)
{
    for (const QPointer<ToolButtonWithMenu> &button : buttons) {
        if (!button || button == except)
            continue;
        button->SetSaveMenuState(keepState);
        button->HideMenu();
    }
}

void ToolBarPrivate::reopenMenus()
{
    for (const QPointer<ToolButtonWithMenu> &button : menuButtons(false)) {
        if (!button || !button->SaveMenuState() || !button->GetMenu())
            continue;
        const QPointer<ToolButtonWithMenu> owner = button->SavedMenuOwner();
        if (!owner)
            continue;
        if (owner == button) {
            button->ShowMenu();
        } else if (owner->GetMenu()) {
            owner->ShowMenu();
            if (!button)
                continue;
            button->SetSaveMenuState(false);
            const auto *const buttonMenu = qobject_cast<ToolButtonWithButtonMenu *>(button);
            if (!buttonMenu || !buttonMenu->IsInExtendMode())
                button->SetSavedMenuOwner(nullptr);
        }
    }
}

void ToolBar::OnMouseClickedOutside()
{
    Q_D(ToolBar);
    for (const QPointer<ToolButtonWithMenu> &button : d->menuButtons(false)) {
        const auto *const bar = button ? ToolBarPrivate::subMenuOf(*button) : nullptr;
        const bool isButtonMenu = button
            && button->ToolButton::d_func()->buttonKind
                == ToolButtonPrivate::EButtonKind::ButtonMenu;
        if (isButtonMenu && !(bar && bar->d_func()->keepStateOnClickOutside))
            button->HideMenu();
    }
}

void ToolBar::SetKeepStateOnClickOutside(bool keep)
{
    Q_D(ToolBar);
    d->keepStateOnClickOutside = keep;
}

QMap<ToolButton *, ToolBar *> ToolBar::GetAllParentButtonsMap(ToolButton *) const
{
    return {};
}

// The bar with the button whose menu this bar is.
ToolBar *ToolBarPrivate::barAbove() const
{
    ToolBar *const above = parentButton ? parentButton->d_func()->toolBar.data() : nullptr;
    return above == q_func() ? nullptr : above;
}

// Whether @p bar is this one, or has this one among its menus at whichever level.
bool ToolBarPrivate::standsOn(const ToolBar *bar) const
{
    const ToolBar *above = q_func();
    while (above && above != bar)
        above = above->d_func()->barAbove();
    return above;
}

// Without a word to their tooltips.
void ToolBarPrivate::unlockButtons() const
{
    for (ToolButton *const button : CollectButtons<ToolButton>())
        button->d_func()->locked = false;
}

ToolBar *ToolBar::GetBaseToolBar()
{
    ToolBar *base = this;
    while (ToolBar *const above = base->d_func()->barAbove())
        base = above;
    return base;
}

ToolBar *ToolBarPrivate::subMenuOf(const ToolButton &button)
{
    if (button.d_func()->buttonKind != ToolButtonPrivate::EButtonKind::ButtonMenu)
        return nullptr;
    const auto *const menuButton = qobject_cast<const ToolButtonWithMenu *>(&button);
    return menuButton ? qobject_cast<ToolBar *>(menuButton->GetMenu()) : nullptr;
}

void ToolBarPrivate::AddButtonsToList(QList<ToolButton *> &list, bool includeSubMenus) const
{
    for (const QList<ToolButton *> &buttons : buttonsByGroup) {
        for (ToolButton *const button : buttons) {
            list << button;
            const ToolBar *const menu = includeSubMenus ? subMenuOf(*button) : nullptr;
            if (menu)
                menu->d_func()->AddButtonsToList(list, true);
        }
    }
}

QList<QPointer<ToolButtonWithMenu>> ToolBarPrivate::menuButtons(bool includeSubMenus) const
{
    QList<QPointer<ToolButtonWithMenu>> list;
    // Asked at each resize, of bars that mostly have none.
    if (!mayHaveMenus)
        return list;
    for (ToolButtonWithMenu *const button : CollectButtons<ToolButtonWithMenu>(includeSubMenus))
        list << button;
    return list;
}

void ToolBar::DismissLeafMenu()
{
    Q_D(ToolBar);
    if (GetBaseToolBar() != this)
        return;
    ToolButtonWithMenu *leaf = nullptr;
    for (const QPointer<ToolButtonWithMenu> &button : d->menuButtons(true)) {
        if (!leaf && button->IsMenuShowing())
            leaf = button;
    }
    if (auto *const widgetMenu = qobject_cast<ToolButtonWithWidgetMenu *>(leaf))
        d->dismissWidgetMenu(widgetMenu);
    else if (leaf && leaf->isEnabled())
        leaf->OnCloseMenu(leaf->GetMenu(), false);
}

void ToolBarPrivate::dismissWidgetMenu(ToolButtonWithWidgetMenu *leaf)
{
    Q_Q(ToolBar);
    for (ToolButtonWithButtonMenu *const owner : CollectButtons<ToolButtonWithButtonMenu>()) {
        if (!owner->IsSubMenuButton(leaf))
            continue;
        if (leaf->isEnabled())
            q->OnDismissWidgetMenu(owner, leaf);
        return;
    }
    leaf->CloseMenu();
}

// Later, as a button may be in the midst of handling a key. The slot is looked up by its name, so that
// an owner may have its own.
void ToolBar::OnDismissWidgetMenu(ToolButtonWithButtonMenu *owner, ToolButtonWithWidgetMenu *leaf)
{
    if (owner && leaf)
        QMetaObject::invokeMethod(owner, "OnCloseMenu", Qt::QueuedConnection,
                                  Q_ARG(QWidget *, leaf->GetMenu()), Q_ARG(bool, false));
}

} // namespace Vela::UiBase
