// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

#include "commands/scenecommand.h"

namespace Workbench {

/// Shows the mesh of the file beside the present one, as long as it is checked.
class CompareCommand : public SceneCommand
{
    Q_OBJECT
    COMMAND_ID

public:
    CompareCommand();

protected:
    void apply(MeshViewController &controller, bool checked) override;
};

} // namespace Workbench
