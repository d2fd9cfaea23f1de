// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

#include "commands/scenecommand.h"

namespace Workbench {

/// Lets the left button pick faces instead of turning the mesh, as long as it is checked.
class PickCommand : public SceneCommand
{
    Q_OBJECT
    COMMAND_ID

public:
    PickCommand();

protected:
    void apply(MeshViewController &controller, bool checked) override;
};

} // namespace Workbench
