// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

#include "ui_base/command/commandgroup.h"
#include "ui_base/command/flyoutcommand.h"
#include "ui_base/command/testcommand.h"
#include "ui_base/toolbar/menuscene.h"

#include <functional>
#include <memory>

namespace Lumo::Test {

/// The group of buttons that the commands of the tree stand in.
inline QString toolsGroup()
{
    return QStringLiteral("tools");
}

/// A command with a panel.
class Smooth : public Vela::UiBase::FlyoutCommand
{
public:
    Smooth(const QString &id, QWidget *panel)
        : FlyoutCommand(panel, nullptr)
        , m_id(id)
    { }
    const QString commandId() const override { return m_id; }
    bool onExecuteAsync(bool) override { return !work || work(); }
    void onBegin() override { ++begins; }
    void onFinalize() override { ++ends; }

    std::function<bool()> work; ///< done in the background; none by default
    int begins = 0;
    int ends = 0;

private:
    QString m_id;
};

/// A bar that lets the operations for subclasses be called.
class CommandsBar : public MenuBar
{
public:
    using MenuBar::MenuBar;
    using ToolBar::AddButton;
    using ToolBar::AddCommandGroup;
    using ToolBar::AddSingleCommand;
    using ToolBar::CreateSubToolBar;
    using ToolBar::OnDismissWidgetMenu;
};

inline std::shared_ptr<Vela::UiBase::CommandGroup> makeGroup(const QString &name)
{
    auto group = std::make_shared<Vela::UiBase::CommandGroup>(QString(), name, name);
    group->setBaseGroupName(toolsGroup());
    group->setIcon(iconOf(Qt::gray));
    return group;
}

inline TestCommand *addCommand(Vela::UiBase::CommandGroup &group, const QString &id, int rank = 0)
{
    auto *const command = new TestCommand(id);
    command->setBaseGroupName(toolsGroup());
    command->setIcon(iconOf(Qt::green));
    group.addCommand(command, rank);
    return command;
}

inline Vela::UiBase::ToolBarPrivate &partsOf(Vela::UiBase::ToolBar &bar)
{
    return Vela::UiBase::ToolButtonWithMenuPrivate::partsOf(bar);
}

/// A tree of groups with the commands and the menus for them. On the bar stand a command, the group
/// "line" and the group "grid"; the line holds a command, a virtual group of two, a flyout and the
/// group "inner", which holds two commands and a flyout; the grid holds three commands, the second
/// of which stands in the fourth cell.
class Tree : public MenuScene
{
public:
    Tree()
    {
        top->setToolbar(commandsBar);
        addCommand(*top, QStringLiteral("open"), 1);
        line->setGrid(false);
        grid->setGridSize(2);
        top->addCommand(line, 2);
        top->addCommand(grid, 3);
        addCommand(*line, QStringLiteral("cut"), 1);
        virtualGroup->setVirtualGroup(true);
        addCommand(*virtualGroup, QStringLiteral("copy"), 2);
        addCommand(*virtualGroup, QStringLiteral("paste"), 3);
        line->addCommand(virtualGroup);
        line->addCommand(smooth, 4);
        line->addCommand(inner, 5);
        inner->setGrid(false);
        addCommand(*inner, QStringLiteral("up"), 1);
        addCommand(*inner, QStringLiteral("down"), 2);
        inner->addCommand(measure, 3);
        addCommand(*grid, QStringLiteral("one"), 1);
        addCommand(*grid, QStringLiteral("two"), 4);
        addCommand(*grid, QStringLiteral("three"), 2);
        smooth->setBaseGroupName(toolsGroup());
        measure->setBaseGroupName(toolsGroup());
        smooth->setObjectName(QStringLiteral("smooth"));
        measure->setObjectName(QStringLiteral("measure"));
    }
    // The bars go with their buttons, which these outlive.
    ~Tree() { window.reset(); }

    void build() { commandsBar->ToolBar::AddCommandGroup(top.get()); }

    static Vela::UiBase::ToolButtonWithButtonMenu *buttonOf(
        const std::shared_ptr<Vela::UiBase::CommandGroup> &group)
    {
        return qobject_cast<Vela::UiBase::ToolButtonWithButtonMenu *>(group->toolButton());
    }
    static Vela::UiBase::ToolButtonWithWidgetMenu *buttonOf(const std::shared_ptr<Smooth> &command)
    {
        return qobject_cast<Vela::UiBase::ToolButtonWithWidgetMenu *>(command->toolButton());
    }
    Vela::UiBase::CommandBase *command(const QString &id) const { return top->getCommand(id); }

    QPointer<Vela::UiBase::FlyoutBase> smoothPanel = flyout();
    QPointer<Vela::UiBase::FlyoutBase> measurePanel = flyout();
    QPointer<CommandsBar> commandsBar = new CommandsBar(window.get(), Qt::LeftToolBarArea);
    std::shared_ptr<Vela::UiBase::CommandGroup> top = makeGroup(QStringLiteral("top"));
    std::shared_ptr<Vela::UiBase::CommandGroup> line = makeGroup(QStringLiteral("line"));
    std::shared_ptr<Vela::UiBase::CommandGroup> grid = makeGroup(QStringLiteral("grid"));
    std::shared_ptr<Vela::UiBase::CommandGroup> inner = makeGroup(QStringLiteral("inner"));
    std::shared_ptr<Vela::UiBase::CommandGroup> virtualGroup = makeGroup(QStringLiteral("virtual"));
    std::shared_ptr<Smooth> smooth =
        std::make_shared<Smooth>(QStringLiteral("smooth"), smoothPanel);
    std::shared_ptr<Smooth> measure =
        std::make_shared<Smooth>(QStringLiteral("measure"), measurePanel);
};

} // namespace Lumo::Test
