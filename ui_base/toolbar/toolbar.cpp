// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "ui_base/toolbar/toolbar.h"

namespace Vela::UiBase {

class ToolBarPrivate
{
public:
    QString tooltipGroupName;
};

ToolBar::ToolBar(QWidget *parent, Qt::ToolBarArea)
    : QWidget(parent, Qt::FramelessWindowHint)
    , d_ptr(std::make_unique<ToolBarPrivate>())
{ }

ToolBar::~ToolBar() = default;

void ToolBar::SetTooltipGroup(QString group)
{
    d_ptr->tooltipGroupName = std::move(group);
}

QString ToolBar::GetTooltipGroupName() const
{
    return d_ptr->tooltipGroupName;
}

void ToolBar::HideAllButtonMenusExcept(bool, ToolButton *) { }

} // namespace Vela::UiBase
