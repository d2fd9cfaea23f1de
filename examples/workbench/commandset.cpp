// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "commandset.h"

#include "commands/flipnormalscommand.h"
#include "commands/opencommand.h"
#include "commands/smoothcommand.h"
#include "commands/subdividecommand.h"
#include "commands/wireframecommand.h"

namespace Workbench {

std::vector<Vela::UiBase::CommandBase *> CommandSet::all() const
{
    return {open.get(), smooth.get(), subdivide.get(), flipNormals.get(), wireframe.get()};
}

std::vector<Vela::UiBase::CommandBase *> CommandSet::edits() const
{
    return {smooth.get(), subdivide.get(), flipNormals.get()};
}

std::vector<BackgroundCommand *> CommandSet::background() const
{
    return {open.get(), smooth.get(), subdivide.get()};
}

} // namespace Workbench
