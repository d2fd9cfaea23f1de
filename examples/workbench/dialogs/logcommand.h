// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

#include "dialogs/dialogcommand.h"

#include <memory>

namespace Workbench {

class MessageLog;

/// Shows what the program has said since it began.
class LogCommand : public DialogCommand
{
    Q_OBJECT
    COMMAND_ID

public:
    explicit LogCommand(std::shared_ptr<MessageLog> log);

protected:
    QDialog *makeDialog(QWidget *window) override;

private:
    const std::shared_ptr<MessageLog> m_log;
};

} // namespace Workbench
