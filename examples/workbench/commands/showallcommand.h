// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

#include <ui_base/CommandBase>

namespace Workbench {

/// Moves the camera so that the whole mesh is in sight, from the direction it looks from.
class ShowAllCommand : public Vela::UiBase::CommandBase
{
    Q_OBJECT
    COMMAND_ID

public:
    ShowAllCommand();

    bool onExecuteAsync(bool checked) override;
};

} // namespace Workbench
