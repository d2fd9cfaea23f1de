// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "commands/backgroundcommand.h"

#include "mesh/cancellation.h"

#include <tessel/dispatch.h>

#include <new>
#include <utility>

namespace Workbench {

/// One run: made on the main thread, read by the worker, ended on the main thread.
struct BackgroundCommand::Run
{
    explicit Run(Work workToDo)
        : work(std::move(workToDo))
    { }

    Work work;
    Cancellation cancellation;
    bool isOver = false; // main thread only
};

BackgroundCommand::BackgroundCommand()
    : CommandBase(nullptr)
{
    setExecutionQoS(Tessel::EQualityOfService::UserInitiated);
}

BackgroundCommand::~BackgroundCommand() = default;

bool BackgroundCommand::isRunning() const
{
    return m_run && !m_run->isOver;
}

bool BackgroundCommand::wasCancelled() const
{
    return m_run && m_run->cancellation.isCancelled();
}

void BackgroundCommand::cancel()
{
    if (isRunning())
        m_run->cancellation.cancel();
}

const QString BackgroundCommand::getExecutionNotificationMessage(ENotification notification) const
{
    if (notification == ENotification::ExecutionEnded && wasCancelled())
        return tr("%1 was stopped.").arg(iconText());
    return CommandBase::getExecutionNotificationMessage(notification);
}

bool BackgroundCommand::onExecute(bool checked)
{
    if (isRunning())
        return false;
    Work work = prepare();
    if (!work)
        return false;
    m_run = std::make_shared<Run>(std::move(work));
    const bool isAccepted = CommandBase::onExecute(checked);
    if (!isAccepted)
        m_run->isOver = true;
    return isAccepted;
}

bool BackgroundCommand::onExecuteAsync(bool checked)
{
    Q_UNUSED(checked)
    const std::shared_ptr<Run> run = m_run;
    TakeOver takeOver;
    try {
        takeOver = run->work(run->cancellation);
    } catch (const std::bad_alloc &) {
        // The job of the library keeps this command alive until its end was announced, which is
        // posted after this.
        takeOver = [this] { handleOutOfMemory(); };
    }
    const auto finish = [run, takeOver] {
        run->isOver = true;
        run->work = nullptr; // lets go of the snapshot
        if (takeOver && !run->cancellation.isCancelled())
            takeOver();
    };
    return Tessel::dispatchAsync(finish, Tessel::EQualityOfService::Main);
}

} // namespace Workbench
