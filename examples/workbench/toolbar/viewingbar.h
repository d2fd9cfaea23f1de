// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QWidget>

#include <memory>

namespace Vela::UiBase {
class CommandGroup;
class ToolBar;
class ToolbarManager;
} // namespace Vela::UiBase

namespace Workbench {

struct CommandSet;

/// The strip below the view: the display modes as a menu of four, what is drawn besides, and what
/// changes the view. A row of further buttons stands beside these while its group is active.
class ViewingBar : public QWidget
{
    Q_OBJECT

public:
    explicit ViewingBar(const CommandSet &commands, QWidget *parent = nullptr);
    ~ViewingBar() override;

    Vela::UiBase::ToolBar &bar() const { return *m_bar; }
    /// Shows the rows of groups that are told to it as active.
    Vela::UiBase::ToolbarManager &rows() const { return *m_rows; }

    /// Slides the bar in or out. When it is out the strip takes up no room.
    void slide(bool in);

private:
    Vela::UiBase::ToolBar *const m_bar;
    const std::unique_ptr<Vela::UiBase::ToolbarManager> m_rows;
};

} // namespace Workbench
