// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

#include "image/imagecommandset.h"

#include <memory>
#include <vector>

namespace Vela::UiBase {
class CommandBase;
class CommandGroup;
class CycleCheckableCommand;
} // namespace Vela::UiBase

namespace Workbench {

class AboutCommand;
class AttributeCommand;
class BackgroundCommand;
class BarsCommand;
class CompareCommand;
class DecimateFlyout;
class DisplayModeCommand;
class FlipNormalsCommand;
class LogCommand;
class MeasureFlyout;
class MeshPanelCommand;
class OpenCommand;
class PickCommand;
class PreferencesCommand;
class SaveCommand;
class SelectionCommand;
class ShowAllCommand;
class SmoothCommand;
class SmoothFlyout;
class SubdivideCommand;
class SubdivideFlyout;

/// The commands of the workbench and the groups that they stand in.
///
/// They are shared with the controller that they are added to. So a command that runs in the
/// background when the view is closed is still there for its end.
struct CommandSet
{
    std::shared_ptr<OpenCommand> open;
    std::shared_ptr<SaveCommand> save;
    std::shared_ptr<SmoothCommand> smooth;
    std::shared_ptr<SubdivideCommand> subdivide;
    std::shared_ptr<FlipNormalsCommand> flipNormals;
    std::shared_ptr<PickCommand> pick;
    std::shared_ptr<ShowAllCommand> showAll;
    std::shared_ptr<CompareCommand> compare;
    std::shared_ptr<SmoothFlyout> smoothFlyout;
    std::shared_ptr<SubdivideFlyout> subdivideFlyout;
    std::shared_ptr<DecimateFlyout> decimateFlyout;
    std::shared_ptr<MeasureFlyout> measureFlyout;
    std::shared_ptr<BarsCommand> bars;
    std::shared_ptr<PreferencesCommand> preferences;
    std::shared_ptr<LogCommand> log;
    std::shared_ptr<AboutCommand> about;
    std::vector<std::shared_ptr<DisplayModeCommand>> modes;
    std::vector<std::shared_ptr<AttributeCommand>> attributes;
    ImageCommandSet images;
    std::vector<std::shared_ptr<SelectionCommand>> selectionChanges;
    /// Goes on to the next display mode; it has a key and no button.
    std::shared_ptr<Vela::UiBase::CycleCheckableCommand> nextMode;

    std::shared_ptr<Vela::UiBase::CommandGroup> files;
    std::shared_ptr<Vela::UiBase::CommandGroup> editing;
    std::shared_ptr<Vela::UiBase::CommandGroup> display;  ///< the modes, of which one is checked
    std::shared_ptr<Vela::UiBase::CommandGroup> drawn;    ///< the attributes, any number checked
    std::shared_ptr<Vela::UiBase::CommandGroup> watching; ///< what changes the view of the mesh
    std::shared_ptr<Vela::UiBase::CommandGroup> viewing;  ///< the three groups before

    /// Commands with panels, which stand at the left of the view.
    std::shared_ptr<Vela::UiBase::CommandGroup> flyouts;
    /// What can be done with selected faces; on the screen while there are some.
    std::shared_ptr<Vela::UiBase::CommandGroup> selection;
    std::shared_ptr<Vela::UiBase::CommandGroup> program; ///< dialogs beside the work; menus only

    /// The groups of files, edits, what changes the view, and what selected faces can do.
    std::vector<Vela::UiBase::CommandGroup *> groups() const;

    /// All commands that stand in those groups.
    std::vector<Vela::UiBase::CommandBase *> all() const;

    /// Those of them that have a button, and the ones with panels.
    std::vector<Vela::UiBase::CommandBase *> withButtons() const;

    /// Those that change the mesh.
    std::vector<Vela::UiBase::CommandBase *> edits() const;

    /// Those that change the mesh with the settings of a panel.
    std::vector<MeshPanelCommand *> meshFlyouts() const;

    /// Those that run in the background.
    std::vector<BackgroundCommand *> background() const;
};

} // namespace Workbench
