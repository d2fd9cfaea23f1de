// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT
//
// What does it cost to bring all commands of a view to given states, and to read all of their states?
// A program with a hash of plain actions is the peer: it looks each one up and enables or disables it.

#include "ui_base/command/cmdmgr.h"
#include "ui_base/command/commandbase.h"
#include "ui_base/command/commandcontext.h"

#include "support/mainqueue.h"
#include "support/runbenchmarks.h"

#include <QAction>
#include <QApplication>
#include <QHash>

#include <benchmark/benchmark.h>

#include <algorithm>
#include <memory>
#include <vector>

using namespace Lumo::Bench;
using namespace Vela::UiBase;

namespace {

constexpr int burst = 10;

QString idAt(int index)
{
    return QStringLiteral("Vela::Mesh::Command%1").arg(index);
}

/// The id is the object's, not the class's, so that one class serves for all the commands.
class NumberedCommand : public CommandBase
{
    Q_OBJECT

public:
    explicit NumberedCommand(int index)
        : CommandBase(nullptr)
        , m_id(idAt(index))
    { }

    const QString commandId() const override { return m_id; }
    bool onExecuteAsync(bool) override { return true; }

private:
    QString m_id;
};

/// The ways to set and to read the state of n commands or actions.
class HashWay
{
public:
    explicit HashWay(int count)
        : m_owned(static_cast<std::size_t>(count))
    {
        for (int i = 0; i < count; ++i) {
            m_owned[static_cast<std::size_t>(i)] = std::make_unique<QAction>();
            m_actions.insert(idAt(i), m_owned[static_cast<std::size_t>(i)].get());
            m_ids.push_back(idAt(i));
        }
    }

    void apply(bool enable)
    {
        for (const QString &id : m_ids)
            m_actions.value(id)->setEnabled(enable);
    }

    void settle() { }
    bool areAll(bool enabled) const
    {
        return std::all_of(m_owned.begin(), m_owned.end(), [enabled](const auto &action) {
            return action->isEnabled() == enabled;
        });
    }

private:
    std::vector<std::unique_ptr<QAction>> m_owned;
    QHash<QString, QAction *> m_actions;
    std::vector<QString> m_ids;
};

class ManagerWay
{
public:
    explicit ManagerWay(int count)
        : m_manager(std::make_shared<CmdMgr>())
    {
        for (int i = 0; i < count; ++i)
            m_changed = m_manager->addCommand(new NumberedCommand(i));
        m_enabled = m_manager->disabledContext(nullptr);
        m_disabled = m_enabled;
        m_enabled.overwrite({State::On, State::Keep});
        drainMainQueue();
    }

    void apply(bool enable) { m_manager->setContext(enable ? m_enabled : m_disabled); }
    void settle() { drainMainQueue(); }
    bool areAll(bool enabled) const
    {
        const CommandContext states = snapshot();
        return std::all_of(
            states.get().begin(), states.get().end(),
            [enabled](const CommandState &state) { return bool(state.enabled) == enabled; });
    }

    void change() { m_changed->setEnabled(!m_changed->isEnabled()); }
    CommandContext snapshot() const { return m_manager->currentContext(nullptr); }

private:
    std::shared_ptr<CmdMgr> m_manager;
    CommandBase *m_changed = nullptr;
    CommandContext m_enabled;
    CommandContext m_disabled;
};

/// Times one application of a context. When @p changing each one turns all commands over, else none
/// changes anything.
template<typename Way, bool changing>
void apply(benchmark::State &state)
{
    Way way(static_cast<int>(state.range(0)));
    bool enable = true;
    while (state.KeepRunningBatch(burst)) {
        for (int i = 0; i < burst; ++i) {
            enable = changing ? !enable : enable;
            way.apply(enable);
        }
        way.settle();
    }
    way.apply(false);
    way.settle();
    if (!way.areAll(false))
        state.SkipWithError("a command has not got its state");
}

/// Times one reading of all states, when @p changing after a change of one command, which asks for a
/// context of its own as the change of any number does.
template<bool changing>
void snapshot(benchmark::State &state)
{
    const int count = static_cast<int>(state.range(0));
    ManagerWay way(count);
    const CommandContext before = way.snapshot();
    way.change();
    CommandContext after;
    for (auto _ : state) {
        if (changing)
            way.change();
        after = way.snapshot();
        if (after.get().size() != count)
            state.SkipWithError("a command is missing");
    }
    way.change();
    if (way.snapshot() == after || (!changing && before == after))
        state.SkipWithError("a change is missing");
}

void counts(benchmark::internal::Benchmark *benchmark)
{
    benchmark->Arg(250)->Arg(1000);
}

BENCHMARK_TEMPLATE(apply, HashWay, true)->Name("applyQt")->Arg(1000);
BENCHMARK_TEMPLATE(apply, ManagerWay, true)->Name("applyManager")->Apply(counts);

BENCHMARK_TEMPLATE(apply, HashWay, false)->Name("applySameQt")->Arg(1000);
BENCHMARK_TEMPLATE(apply, ManagerWay, false)->Name("applySameManager")->Apply(counts);

BENCHMARK_TEMPLATE(snapshot, false)->Name("snapshot")->Apply(counts);
BENCHMARK_TEMPLATE(snapshot, true)->Name("snapshotChanged")->Apply(counts);

} // namespace

int main(int argc, char **argv)
{
    const QApplication app(argc, argv);
    return runBenchmarks(argc, argv);
}

#include "bench_cmdmgr.moc"
