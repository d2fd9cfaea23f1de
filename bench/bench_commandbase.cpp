// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT
//
// What does a click on a command cost beyond the click on a plain action? The command has one
// direct observer, which hears the begin and the end of each run; the plain action has one slot.

#include "ui_base/command/commandbase.h"
#include "ui_base/command/commandstateprotocol.h"

#include "support/mainqueue.h"
#include "support/runbenchmarks.h"

#include <QAction>
#include <QApplication>

#include <benchmark/benchmark.h>

#include <memory>

using namespace Lumo::Bench;
using Vela::UiBase::CommandBase;

namespace {

constexpr int burst = 1000;

class CountingCommand : public CommandBase
{
    Q_OBJECT
    COMMAND_ID

public:
    CountingCommand()
        : CommandBase(nullptr)
    { }

    bool onExecuteAsync(bool) override
    {
        ++m_runs;
        return true;
    }

    std::int64_t runs() const { return m_runs; }

private:
    std::int64_t m_runs = 0;
};

class CountingStateObserver : public Vela::UiBase::CommandStateProtocol
{
public:
    void commandBeganExecuting(CommandBase *, bool) override { ++m_began; }
    void commandEndedExecuting(CommandBase *, bool) override { ++m_ended; }

    std::int64_t ended() const { return m_began == m_ended ? m_ended : -1; }

private:
    std::int64_t m_began = 0;
    std::int64_t m_ended = 0;
};

/// Has @p action call @p run as a command would run: at each change of the check mark, or else at
/// each trigger.
template<typename Run>
void connectRun(QAction &action, bool checkable, Run run)
{
    action.setCheckable(checkable);
    QObject::connect(&action, checkable ? &QAction::toggled : &QAction::triggered, &action, run);
}

/// The actions to run, each with settle() that ends a burst, and with the number of complete runs.
class QtWay
{
public:
    explicit QtWay(bool checkable)
    {
        connectRun(m_action, checkable, [this] { ++m_runs; });
    }

    QAction &action() { return m_action; }
    void settle() { }
    std::int64_t runs() const { return m_runs; }

private:
    QAction m_action;
    std::int64_t m_runs = 0;
};

class CommandWay
{
public:
    explicit CommandWay(bool checkable)
        : m_command(std::make_shared<CountingCommand>())
        , m_observer(std::make_shared<CountingStateObserver>())
    {
        m_command->setCheckable(checkable);
        m_command->addObserver(m_observer, false);
    }

    QAction &action() { return *m_command; }
    void settle() { drainMainQueue(); }
    std::int64_t runs() const
    {
        return m_command->runs() == m_observer->ended() ? m_command->runs() : -1;
    }

private:
    std::shared_ptr<CountingCommand> m_command;
    std::shared_ptr<CountingStateObserver> m_observer;
};

/// The limit: a plain action whose slot does the work, makes the two calls of the observer and
/// posts the two closures, with nothing that keeps anybody alive.
class BareWay
{
public:
    explicit BareWay(bool checkable)
    {
        connectRun(m_action, checkable, [this](bool checked) {
            announce(&CountingStateObserver::commandBeganExecuting, checked);
            ++m_runs;
            announce(&CountingStateObserver::commandEndedExecuting, checked);
        });
    }

    QAction &action() { return m_action; }
    void settle() { m_queue.run(); }
    std::int64_t runs() const { return m_runs == m_observer.ended() ? m_runs : -1; }

private:
    void announce(void (CountingStateObserver::*operation)(CommandBase *, bool), bool checked)
    {
        m_queue.post([] {});
        (m_observer.*operation)(nullptr, checked);
    }

    QAction m_action;
    CountingStateObserver m_observer;
    BareQueue m_queue;
    std::int64_t m_runs = 0;
};

template<typename Way>
void run(benchmark::State &state, bool checkable)
{
    Way way(checkable);
    while (state.KeepRunningBatch(burst)) {
        for (int i = 0; i < burst; ++i)
            checkable ? way.action().toggle() : way.action().trigger();
        way.settle();
    }
    if (way.runs() != static_cast<std::int64_t>(state.iterations()))
        state.SkipWithError("a run is missing");
}

template<typename Way>
void trigger(benchmark::State &state)
{
    run<Way>(state, false);
}

template<typename Way>
void toggle(benchmark::State &state)
{
    run<Way>(state, true);
}

BENCHMARK_TEMPLATE(trigger, QtWay)->Name("triggerQt");
BENCHMARK_TEMPLATE(trigger, CommandWay)->Name("triggerCommand");
BENCHMARK_TEMPLATE(trigger, BareWay)->Name("triggerBare");

BENCHMARK_TEMPLATE(toggle, QtWay)->Name("toggleQt");
BENCHMARK_TEMPLATE(toggle, CommandWay)->Name("toggleCommand");
BENCHMARK_TEMPLATE(toggle, BareWay)->Name("toggleBare");

} // namespace

int main(int argc, char **argv)
{
    const QApplication app(argc, argv);
    return runBenchmarks(argc, argv);
}

#include "bench_commandbase.moc"
