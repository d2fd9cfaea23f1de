// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "toolbar/viewingbar.h"

#include "commands/displaymodecommand.h"
#include "commandset.h"

#include <lumo_common_res/String>
#include <ui_base/CommandGroup>
#include <ui_base/ToolBar>
#include <ui_base/ToolbarManager>
#include <ui_base/ToolButton>

namespace Workbench {

using namespace Vela::UiBase;

namespace {

const int edge = 4;

/// The bar gives the menu icons that are a little larger than they are drawn.
void finishMenu(const CommandSet &commands)
{
    for (const auto &mode : commands.modes)
        mode->toolButton()->setIconSize(commands.display->toolButton()->iconSize());
    // One of the modes is on from the start.
    commands.display->toolButton()->setChecked(true);
}

} // namespace

ViewingBar::ViewingBar(const CommandSet &commands, QWidget *parent)
    : QWidget(parent)
    , m_bar(new ToolBar(this, Qt::BottomToolBarArea))
    , m_rows(std::make_unique<ToolbarManager>(m_bar))
{
    m_bar->SetTooltipGroup(
        Vela::Resource::String::COMMAND_TOOLPANEL_GROUP_ID); // that of their menus
    m_bar->SetBackColor(Qt::transparent);
    m_bar->SetEnableAutoPosition(true);
    m_bar->SetCentered(true);
    m_bar->SetOffset(QPoint(0, edge));
    commands.viewing->setToolbar(m_bar);
    m_bar->AddCommandGroup(commands.viewing.get());
    finishMenu(commands);
    m_rows->addDynamicCommandGroup(commands.selection.get());
    setFixedHeight(m_bar->sizeHint().height() + 2 * edge);
    connect(m_bar, &ToolBar::HideAnimationFinished, this, &QWidget::hide);
}

// The rows are parts of the strip, and the manager looks after them.
ViewingBar::~ViewingBar() = default;

void ViewingBar::slide(bool in)
{
    if (!in) {
        m_bar->HideAnimated();
        return;
    }
    show();
    m_bar->ShowAnimated();
}

} // namespace Workbench
