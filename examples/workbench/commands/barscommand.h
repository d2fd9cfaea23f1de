// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

#include <ui_base/CommandBase>

namespace Workbench {

/// Is checked while the bars around the view are shown. Who owns the bars follows toggled().
class BarsCommand : public Vela::UiBase::CommandBase
{
    Q_OBJECT
    COMMAND_ID

public:
    BarsCommand();

    bool onExecuteAsync(bool checked) override;
};

} // namespace Workbench
