// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

#include "dialogs/dialogcommand.h"

#include <memory>

namespace Workbench {

class Preferences;

/// Lets the user choose how the program looks and behaves.
class PreferencesCommand : public DialogCommand
{
    Q_OBJECT
    COMMAND_ID

public:
    explicit PreferencesCommand(std::shared_ptr<Preferences> preferences);

protected:
    QDialog *makeDialog(QWidget *window) override;

private:
    const std::shared_ptr<Preferences> m_preferences;
};

} // namespace Workbench
