// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

#include <ui_base/CommandBase>

#include <functional>
#include <memory>

namespace Workbench {

class Cancellation;

/// A command whose work runs in the background, on data of its own, and hands its result over on
/// the main thread.
///
/// A subclass says in prepare() what there is to do. The rest is here: one run at a time, a way to
/// cancel it, and the order at its end. The result is taken over before the end of the run is
/// announced, so an observer of the end sees the new state.
///
/// Such a command is owned by a std::shared_ptr. The library keeps it alive during a run, and the
/// work holds what it needs, so that command, window and document may go at any time.
class BackgroundCommand : public Vela::UiBase::CommandBase
{
    Q_OBJECT

public:
    ~BackgroundCommand() override;

    /// Whether a run was begun whose end is not announced yet. Main thread.
    bool isRunning() const;

    /// Whether the present or else the latest run was cancelled. Main thread.
    bool wasCancelled() const;

    /// Asks the run to stop, if there is one. It ends soon and its result is dropped. Main thread.
    void cancel();

    /// The message of the end tells when the run was stopped.
    const QString getExecutionNotificationMessage(ENotification notification) const override;

    /// Begins a run.
    /// @return false when one is under way, when there is nothing to do, or when the library took
    /// no job; nothing is announced then but in the last case
    bool onExecute(bool checked = false) override;

    /// Does the work of the run; called by the library on a background thread.
    bool onExecuteAsync(bool checked) override;

protected:
    /// What is left to do on the main thread when the work is done; may be empty.
    using TakeOver = std::function<void()>;

    /// What runs in the background. It touches no widget and no document, asks @p cancellation
    /// often, and may return early when that was thrown.
    using Work = std::function<TakeOver(const Cancellation &cancellation)>;

    BackgroundCommand();

    /// Collects on the main thread what the work needs. An empty Work means that there is nothing
    /// to do.
    virtual Work prepare() = 0;

    /// Called on the main thread when the work ran out of memory.
    virtual void handleOutOfMemory() = 0;

private:
    struct Run;
    std::shared_ptr<Run> m_run;
};

} // namespace Workbench
