// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

#include "commands/meshcommand.h"

namespace Workbench {

/// Takes the noise out of the surface and keeps its volume.
class SmoothCommand : public MeshCommand
{
    Q_OBJECT
    COMMAND_ID

public:
    explicit SmoothCommand(std::shared_ptr<MeshDocument> document);

protected:
    Operation operation() const override;
};

} // namespace Workbench
