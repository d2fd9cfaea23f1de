// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "ui_base/toolbar/toolbarutil.h"

#include "ui_base/popup/floatinglayer.h"
#include "ui_base/toolbar/toolbar.h"

namespace Vela::UiBase {
namespace {

void takeLooks(ToolBar &menu, const ToolBar &base)
{
    menu.EnableShadow(false);
    menu.SetRoundCorner(ToolBar::EToolBarRoundCorner::NoRoundCorners,
                        ToolBar::EToolBarRoundCorner::NoRoundCorners, 4);
    menu.CopyAllParametersFrom(&base);
}

void placeTooltips(ToolBar &menu, EArrowPosition arrowPosition, int offset, EDirection direction)
{
    ArrowedWindow::SArrowParam arrow = ToolBarUtil::DefaultArrow();
    arrow.position = arrowPosition;
    menu.SetButtonDefaultTooltipParameters(arrow, offset, direction, EWidgetsAlign::AlignCenter,
                                           QPoint(0, 0));
}

ToolBar *finish(ToolBar *menu, const ToolBar &base, const QSize &buttonSize)
{
    menu->SetButtonSize(buttonSize);
    menu->SetTooltipGroup(base.GetTooltipGroupName());
    FloatingLayer::makeWidgetFloating(menu, QMargins());
    return menu;
}

} // namespace

ToolBar *ToolBarUtil::CreateActionPanelToolBar(QWidget *parent, QWidget *baseToolBar, bool isGrid,
                                               int gridSize)
{
    const auto *const base = qobject_cast<ToolBar *>(baseToolBar);
    if (!base)
        return nullptr;
    auto *const menu = isGrid ? new ToolBar(gridSize, true, parent, Qt::TopToolBarArea)
                              : new ToolBar(parent, Qt::TopToolBarArea);
    takeLooks(*menu, *base);
    placeTooltips(*menu, EArrowPosition::Top, 7, EDirection::Bottom);
    return finish(menu, *base, base->ButtonSize());
}

ToolBar *ToolBarUtil::CreateMainToolBarButtonMenu(QWidget *parent, QWidget *baseToolBar,
                                                  const QSize &, const QSize &buttonSize,
                                                  bool isGrid, int gridSize)
{
    const auto *const base = qobject_cast<ToolBar *>(baseToolBar);
    if (!base)
        return nullptr;
    auto *const menu = isGrid ? new ToolBar(gridSize, false, parent, Qt::TopToolBarArea)
                              : new ToolBar(parent, Qt::LeftToolBarArea);
    takeLooks(*menu, *base);
    placeTooltips(*menu, EArrowPosition::Left, isGrid ? 7 : 5, EDirection::Right);
    return finish(menu, *base, buttonSize.isValid() ? buttonSize : base->ButtonSize());
}

ArrowedWindow::SArrowParam ToolBarUtil::DefaultArrow()
{
    ArrowedWindow::SArrowParam arrow;
    arrow.angle = 0;
    return arrow;
}

} // namespace Vela::UiBase
