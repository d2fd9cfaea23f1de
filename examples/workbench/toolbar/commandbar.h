// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QWidget>

namespace Vela::UiBase {
class CommandBase;
class CommandGroup;
class ToolBar;
class ToolButton;
} // namespace Vela::UiBase

namespace Workbench {

struct CommandSet;

/// A strip with a button for every command, one plate for each group. A button tells what its
/// command does by a card beneath it, which F1 opens further. That of a command with a panel opens it
/// beneath itself.
class CommandBar : public QWidget
{
    Q_OBJECT

public:
    explicit CommandBar(const CommandSet &commands, QWidget *parent = nullptr);

    /// The button whose card is up; null when none is.
    Vela::UiBase::ToolButton *explainedButton() const;

    /// Whether buttons have cards; they do at first.
    void setCardsEnabled(bool enabled);

private:
    void addGroup(Vela::UiBase::CommandGroup &group);
    Vela::UiBase::ToolButton *addButton(Vela::UiBase::CommandBase *command,
                                        const Vela::UiBase::CommandGroup &group, int rank);
    void openPanelsBeneath();
    void toggleDetails();

    Vela::UiBase::ToolBar *const m_bar;
};

} // namespace Workbench
