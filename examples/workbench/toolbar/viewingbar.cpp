// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "toolbar/viewingbar.h"

#include "commandset.h"

#include <lumo_common_res/String>
#include <ui_base/CommandGroup>
#include <ui_base/ToolBar>
#include <ui_base/ToolbarManager>

namespace Workbench {

using namespace Vela::UiBase;

namespace {
const int edge = 4;
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
