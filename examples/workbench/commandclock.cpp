// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "commandclock.h"

#include <ui_base/CommandBase>

namespace Workbench {

using Vela::UiBase::CommandBase;

void CommandClock::watch(const std::shared_ptr<CommandClock> &clock, CommandBase &command)
{
    command.addObserver(clock, false);
}

void CommandClock::commandBeganExecuting(CommandBase *command, bool checked)
{
    Q_UNUSED(checked)
    m_running[command].start();
    Q_EMIT began(command);
}

void CommandClock::commandEndedExecuting(CommandBase *command, bool checked)
{
    Q_UNUSED(checked)
    const qint64 nanoseconds = m_running.take(command).nsecsElapsed();
    Q_EMIT ended(command, nanoseconds / 1000);
}

} // namespace Workbench
