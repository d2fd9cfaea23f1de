// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

#include "commands/meshcommand.h"

namespace Workbench {

/// Makes four faces of each, and the surface rounder.
class SubdivideCommand : public MeshCommand
{
    Q_OBJECT
    COMMAND_ID

public:
    /// The most faces that a mesh can have to be subdivided. Four times as many still fit the
    /// memory of an ordinary computer and the indices of the arrays.
    static constexpr int maximumFaces = 8'000'000;

    explicit SubdivideCommand(std::shared_ptr<MeshDocument> document);

protected:
    /// Refuses a larger mesh with a sentence for the user.
    Work prepare() override;
    Operation operation() const override;
};

} // namespace Workbench
