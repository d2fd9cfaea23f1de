// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

#include <ui_base/ActionPanel>

namespace Workbench {

struct CommandSet;

/// The panel at the left of the view: files and what changes the mesh. Menus and flyouts open to the
/// right. It floats over the view, which is a native one.
class EditingPanel : public Vela::UiBase::ActionPanel
{
    Q_OBJECT

public:
    /// @param place the widget over which the panel stands
    EditingPanel(const CommandSet &commands, QWidget *place);

    /// Leaves the icons the size that they are drawn for, in which they are crisp.
    int ButtonIconSizeDiff() override;

private:
    void followPanels(const CommandSet &commands);
};

} // namespace Workbench
