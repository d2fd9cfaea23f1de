// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "commands/scenecommand.h"

#include "controllers/meshviewcontroller.h"

namespace Workbench {

SceneCommand::SceneCommand()
    : CommandBase(nullptr)
{
    setCheckable(true);
    setIconVisibleInMenu(false); // the check mark stands in its place
}

bool SceneCommand::onExecuteAsync(bool checked)
{
    auto *const controller = qobject_cast<MeshViewController *>(getViewController());
    if (!controller)
        return false;
    using Vela::UiBase::State;
    controller->updateContextInStack(commandId(), {State::Keep, checked});
    apply(*controller, checked);
    return true;
}

} // namespace Workbench
