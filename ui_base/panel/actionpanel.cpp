// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "ui_base/panel/actionpanel.h"

#include "ui_base/panel/actionpanel_p.h"

#include "ui_base/command/commandgroup.h"
#include "ui_base/toolbar/toolbarutil.h"
#include "ui_base/toolbar/toolbuttonwithbuttonmenu.h"
#include "ui_base/toolbar/toolbuttonwithmenu.h"
#include "ui_base/toolbar/toolbuttonwithwidgetmenu.h"

#include <lumo_common_res/Styles>

namespace Vela::UiBase {
namespace {

const int columnsOfMenu = 4;

QString panelName()
{
    return QStringLiteral("action panel");
}

ArrowedWindow::SArrowParam tooltipArrow()
{
    ArrowedWindow::SArrowParam arrow = ToolBarUtil::DefaultArrow();
    arrow.position = EArrowPosition::Left;
    return arrow;
}

// Points horizontally at the button, below the upper corner of the flyout.
ArrowedWindow::SArrowParam menuArrow()
{
    ArrowedWindow::SArrowParam arrow;
    arrow.position = EArrowPosition::TopLeft;
    arrow.length = 15;
    arrow.customAngle = true;
    arrow.angle = 180;
    arrow.apexAngle = 90;
    arrow.offsetAlongX = false;
    arrow.offset = 20;
    arrow.tip = QPoint(0, 0);
    return arrow;
}

} // namespace

ActionPanelPrivate::~ActionPanelPrivate() = default;

ActionPanel::ActionPanel(QWidget *parent)
    : ActionPanel(*new ActionPanelPrivate, parent)
{ }

ActionPanel::ActionPanel(ActionPanelPrivate &dd, QWidget *parent)
    : ToolBar(dd, parent, Qt::LeftToolBarArea)
{
    setObjectName(panelName());
    ActionPanel::InitializeToolBar();
    AdjustToolBarSize(false);
}

ActionPanel::~ActionPanel() = default;

void ActionPanel::Initialize()
{
    setObjectName(panelName());
    InitializeToolBar();
    AdjustToolBarSize(false);
}

void ActionPanel::InitializeToolBar()
{
    const Resource::Styles &styles = Resource::Styles::Instance();
    EnableShadow(false);
    setObjectName(panelName());
    SetEnableAutoPosition(true);
    SetOffset(QPoint(5, 0));
    SetCentered(true);
    SetGroupBackColor(styles.ColorActionPanelGroupBack());
    SetGroupContentMargins(QMargins(2, 2, 2, 2));
    SetRoundCorner(EToolBarRoundCorner::NoRoundCorners, EToolBarRoundCorner::NoRoundCorners, 4);
    SetBackColor(Qt::transparent);
    SetButtonSize(QSize(50, 50));
    SetButtonSpacing(1);
    SetButtonGroupSpacing(10);
    SetButtonDefaultTooltipParameters(tooltipArrow(), 5, EDirection::Right,
                                      EWidgetsAlign::AlignCenter, QPoint(0, 0));
    SetButtonDefaultMenuParameters(false, menuArrow(), 7, EDirection::Right,
                                   EWidgetsAlign::AlignCenter, QPoint(0, 0));
    // By name, so that a subclass's own slot of this name is found once its constructor runs.
    connect(this, SIGNAL(ButtonMenuVisibilityChange(Vela::UiBase::ToolButton *, bool)),
            SLOT(OnButtonMenuVisibilityChange(Vela::UiBase::ToolButton *, bool)),
            Qt::UniqueConnection);
    SetBorder(1, styles.ColorActionPanelBorder(), true);
}

ToolButtonWithButtonMenu *ActionPanel::CreateToolButton(QWidget *parent, QAction *action,
                                                        ToolBar *toolBar, ToolBar *menu,
                                                        const QString &groupName, const QIcon &icon,
                                                        int rank, const QString &tooltip,
                                                        const QString &objectName)
{
    if (!parent || !toolBar || !menu)
        return nullptr;
    ToolButtonWithButtonMenu *const button =
        toolBar->AddAction(action, icon, menu, true, groupName, rank, tooltip, true, true);
    if (!button || !menu->IsGridLayout())
        return button;
    button->SetMenuParameters(EDirection::Right, 7, EWidgetsAlign::AlignStart, QPoint(0, -2));
    button->setCheckable(true);
    button->setChecked(false);
    button->setObjectName(objectName);
    button->SetExtendMode(true);
    return button;
}

ToolButtonWithButtonMenu *ActionPanel::CreateToolButton(
    QWidget *parent, QAction *action, ToolBar *toolBar, ToolBar *menu, const QString &groupName,
    const QString &normalIcon, const QString &activeIcon, int rank, const QString &tooltip,
    const QString &objectName)
{
    return CreateToolButton(parent, action, toolBar, menu, groupName,
                            ToolButton::CreateToolButtonIcon(normalIcon, activeIcon), rank, tooltip,
                            objectName);
}

void ActionPanel::PrepareActionPanel()
{
    Q_D(ActionPanel);
    for (ToolButtonWithMenu *const button : d->CollectButtons<ToolButtonWithMenu>(true))
        button->SetNoHideMenuOnClick(false);
}

void ActionPanel::SetEnabled(bool enable)
{
    Q_D(ActionPanel);
    for (ToolButton *const button : d->CollectButtons<ToolButton>(false))
        button->setEnabled(enable);
}

void ActionPanel::OnFlyoutBusy()
{
    SetEnabled(false);
}

void ActionPanel::OnFlyoutIdle()
{
    SetEnabled(true);
}

void ActionPanel::OnButtonMenuVisibilityChange(ToolButton *, bool) { }

ToolBar *ActionPanel::CreateSubToolBar(CommandGroup *group)
{
    if (!group)
        return nullptr;
    return ToolBarUtil::CreateActionPanelToolBar(getRefParent(), GetBaseToolBar(), true,
                                                 columnsOfMenu);
}

ToolButton *ActionPanel::AddButton(ToolBar *menu, CommandGroup *group, int rank)
{
    if (!group)
        return nullptr;
    return CreateToolButton(getRefParent(), group, this, menu, group->baseGroupName(),
                            group->icon(), rank, group->toolTip(), group->objectName());
}

void ActionPanel::OnDismissWidgetMenu(ToolButtonWithButtonMenu *, ToolButtonWithWidgetMenu *leaf)
{
    if (leaf)
        Q_EMIT leaf->ESCKeyReleased();
}

} // namespace Vela::UiBase
