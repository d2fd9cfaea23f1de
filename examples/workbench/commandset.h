// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

#include <memory>
#include <vector>

namespace Vela::UiBase {
class CommandBase;
}

namespace Workbench {

class BackgroundCommand;
class FlipNormalsCommand;
class OpenCommand;
class SmoothCommand;
class SubdivideCommand;
class WireframeCommand;

/// The commands of the workbench.
struct CommandSet
{
    std::shared_ptr<OpenCommand> open;
    std::shared_ptr<SmoothCommand> smooth;
    std::shared_ptr<SubdivideCommand> subdivide;
    std::shared_ptr<FlipNormalsCommand> flipNormals;
    std::shared_ptr<WireframeCommand> wireframe;

    std::vector<Vela::UiBase::CommandBase *> all() const;

    /// Those that change the mesh.
    std::vector<Vela::UiBase::CommandBase *> edits() const;

    /// Those that run in the background.
    std::vector<BackgroundCommand *> background() const;
};

} // namespace Workbench
