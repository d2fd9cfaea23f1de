// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "toolbar/editingpanel.h"

#include "commands/flipnormalscommand.h"
#include "commandset.h"
#include "flyouts/panelcommand.h"

#include <lumo_common_res/String>
#include <ui_base/CommandBag>
#include <ui_base/CommandGroup>
#include <ui_base/FloatingLayer>
#include <ui_base/ToolButton>

namespace Workbench {

using namespace Vela::UiBase;

EditingPanel::EditingPanel(const CommandSet &commands, QWidget *place)
    : ActionPanel(place)
{
    SetTooltipGroup(Vela::Resource::String::COMMAND_TOOLPANEL_GROUP_ID); // that of their menus
    SetOffset(QPoint(8, 0));
    SetButtonSize(ButtonSize()); // anew, for the size of the icons
    for (CommandGroup *group : {commands.files.get(), commands.flyouts.get()})
        AddCommandGroup(group);
    // What the panels do has no further buttons; the menu has it without settings.
    AddSingleCommand(commands.flipNormals.get(), commands.editing.get());
    followPanels(commands);
    FloatingLayer::makeWidgetFloating(this, QMargins());
}

int EditingPanel::ButtonIconSizeDiff()
{
    constexpr int iconSize = 24;
    return ButtonSize().width() - iconSize;
}

// Whatever closes a panel, the bar tells of it.
void EditingPanel::followPanels(const CommandSet &commands)
{
    for (const auto &[id, command] : commands.flyouts->commandBag()) {
        auto *const panelCommand = qobject_cast<PanelCommand *>(command.get());
        connect(this, &ToolBar::ButtonMenuVisibilityChange, panelCommand,
                [panelCommand](const ToolButton *button, bool isVisible) {
                    if (!isVisible && button == panelCommand->toolButton())
                        panelCommand->onFinalize();
                });
    }
}

} // namespace Workbench
