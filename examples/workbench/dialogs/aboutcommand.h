// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

#include "dialogs/dialogcommand.h"

namespace Workbench {

/// Tells what program this is.
class AboutCommand : public DialogCommand
{
    Q_OBJECT
    COMMAND_ID

public:
    AboutCommand();

protected:
    QDialog *makeDialog(QWidget *window) override;
};

} // namespace Workbench
