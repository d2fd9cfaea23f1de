// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

#include "ui_base/uibaseexport.h"

#include <QString>
#include <QWidget>

#include <memory>

namespace Vela::UiBase {

class ToolBarPrivate;
class ToolButton;

/// A bar of tool buttons along one side of its parent, which lays its buttons out itself. Its
/// buttons hand it the mouse events that they get. Main thread only.
class LUMO_UI_BASE_EXPORT ToolBar : public QWidget
{
    Q_OBJECT

public:
    /// An empty bar.
    /// @param parent owner of the bar, may be null
    /// @param area the side of the parent along which the bar stands
    ToolBar(QWidget *parent, Qt::ToolBarArea area);
    ~ToolBar() override;

    /// Sets the name of the group in which the tooltips of buttons made later exclude each other.
    void SetTooltipGroup(QString group);
    /// Name of the group of the tooltips; empty by default.
    QString GetTooltipGroupName() const;

    /// Closes the menus of all buttons but one.
    /// @param keepState whether the menus open again when the bar is shown the next time
    /// @param except the button whose menu stays open; null for none
    void HideAllButtonMenusExcept(bool keepState, ToolButton *except);

private:
    const std::unique_ptr<ToolBarPrivate> d_ptr;
    Q_DISABLE_COPY(ToolBar)
};

} // namespace Vela::UiBase
