// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

#include <ui_base/CommandStateProtocol>

#include <QElapsedTimer>
#include <QHash>
#include <QObject>

#include <memory>

namespace Workbench {

/// Hears the runs of the commands it watches, measures them and passes them on as signals, all on
/// the main thread.
///
/// It is registered as a direct observer. The main queue would deliver begin and end of a command
/// that runs in place one right after the other, when all is over, and there would be no time to
/// measure.
class CommandClock : public QObject, public Vela::UiBase::CommandStateProtocol
{
    Q_OBJECT

public:
    /// @p clock goes on hearing the runs of @p command as long as both live.
    static void watch(const std::shared_ptr<CommandClock> &clock,
                      Vela::UiBase::CommandBase &command);

    /// How many runs are under way.
    int running() const { return int(m_running.size()); }

    void commandBeganExecuting(Vela::UiBase::CommandBase *command, bool checked) override;
    void commandEndedExecuting(Vela::UiBase::CommandBase *command, bool checked) override;

Q_SIGNALS:
    void began(Vela::UiBase::CommandBase *command);
    void ended(Vela::UiBase::CommandBase *command, qint64 microseconds);

private:
    QHash<Vela::UiBase::CommandBase *, QElapsedTimer> m_running;
};

} // namespace Workbench
