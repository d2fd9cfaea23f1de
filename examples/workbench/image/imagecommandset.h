// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

#include <functional>
#include <memory>
#include <vector>

class QString;

namespace Vela::UiBase {
class CommandBase;
class CommandGroup;
} // namespace Vela::UiBase

namespace Workbench {

class BackgroundCommand;
class ImageDocument;
class OpenImageCommand;
class StepImageCommand;
class ZoomImageCommand;

/// The commands that deal with images. All but the first stand in a group for the controller of the
/// image view.
struct ImageCommandSet
{
    std::shared_ptr<OpenImageCommand> open;
    std::shared_ptr<StepImageCommand> previous;
    std::shared_ptr<StepImageCommand> next;
    std::shared_ptr<ZoomImageCommand> fit;
    std::shared_ptr<ZoomImageCommand> originalSize;
    std::shared_ptr<ZoomImageCommand> zoomIn;
    std::shared_ptr<ZoomImageCommand> zoomOut;

    std::shared_ptr<Vela::UiBase::CommandGroup> viewing;

    /// Those of the group.
    std::vector<Vela::UiBase::CommandBase *> ofTheView() const;

    /// Those that run in the background.
    std::vector<BackgroundCommand *> background() const;
};

/// Makes all of them, for @p document. @p chooser asks the user for a file.
ImageCommandSet makeImageCommands(const std::shared_ptr<ImageDocument> &document,
                                  std::function<QString()> chooser);

} // namespace Workbench
