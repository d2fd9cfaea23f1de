// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "commandset.h"

#include "commands/flipnormalscommand.h"
#include "commands/opencommand.h"
#include "commands/savecommand.h"
#include "commands/smoothcommand.h"
#include "commands/subdividecommand.h"
#include "flyouts/decimateflyout.h"
#include "flyouts/smoothflyout.h"
#include "flyouts/subdivideflyout.h"

#include <ui_base/CommandBag>
#include <ui_base/CommandGroup>

#include <algorithm>

namespace Workbench {

using Vela::UiBase::CommandBase;
using Vela::UiBase::CommandGroup;

namespace {

void collect(const CommandGroup &group, std::vector<CommandBase *> &commands)
{
    for (const auto &[id, command] : group.commandBag()) {
        if (const auto *const child = qobject_cast<const CommandGroup *>(command.get()))
            collect(*child, commands);
        else
            commands.push_back(command.get());
    }
}

} // namespace

std::vector<CommandGroup *> CommandSet::groups() const
{
    return {files.get(), editing.get(), viewing.get(), selection.get()};
}

std::vector<CommandBase *> CommandSet::all() const
{
    std::vector<CommandBase *> commands;
    for (const CommandGroup *group : groups())
        collect(*group, commands);
    return commands;
}

std::vector<CommandBase *> CommandSet::withButtons() const
{
    std::vector<CommandBase *> commands = all();
    collect(*flyouts, commands);
    commands.erase(std::remove_if(commands.begin(), commands.end(),
                                  [](const auto *command) { return !command->toolButton(); }),
                   commands.end());
    return commands;
}

std::vector<CommandBase *> CommandSet::edits() const
{
    return {smooth.get(), subdivide.get(), flipNormals.get()};
}

std::vector<MeshPanelCommand *> CommandSet::meshFlyouts() const
{
    return {smoothFlyout.get(), subdivideFlyout.get(), decimateFlyout.get()};
}

std::vector<BackgroundCommand *> CommandSet::background() const
{
    std::vector<BackgroundCommand *> commands {open.get(), save.get(), smooth.get(),
                                               subdivide.get()};
    for (BackgroundCommand *command : images.background())
        commands.push_back(command);
    return commands;
}

} // namespace Workbench
