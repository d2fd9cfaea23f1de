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

namespace Workbench {

using Vela::UiBase::CommandBase;
using Vela::UiBase::CommandGroup;

std::vector<CommandGroup *> CommandSet::groups() const
{
    return {files.get(), editing.get(), display.get(), drawn.get(), watching.get()};
}

std::vector<CommandBase *> CommandSet::all() const
{
    std::vector<CommandBase *> commands;
    for (const CommandGroup *group : groups()) {
        for (const auto &[id, command] : group->commandBag())
            commands.push_back(command.get());
    }
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
