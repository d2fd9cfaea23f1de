// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT
//
// What does a group add when its children are disabled and enabled one by one? It follows each of
// them, and is to be enabled as long as one of them is. The same on plain actions is the peer; actions
// of an exclusive QActionGroup, which a group has too, show what that alone would cost.

#include "ui_base/command/commandbase.h"
#include "ui_base/command/commandgroup.h"

#include "support/runbenchmarks.h"

#include <QActionGroup>
#include <QApplication>

#include <benchmark/benchmark.h>

#include <memory>
#include <vector>

using namespace Lumo::Bench;
using namespace Vela::UiBase;

namespace {

/// The id is the object's, not the class's, so that one class serves for all the commands.
class NumberedCommand : public CommandBase
{
    Q_OBJECT

public:
    explicit NumberedCommand(int index)
        : CommandBase(nullptr)
        , m_id(QStringLiteral("Vela::Mesh::Command%1").arg(index))
    { }

    const QString commandId() const override { return m_id; }
    bool onExecuteAsync(bool) override { return true; }

private:
    QString m_id;
};

class PlainWay
{
public:
    explicit PlainWay(int count)
    {
        for (int i = 0; i < count; ++i)
            m_actions.push_back(std::make_unique<QAction>());
    }

    const std::vector<std::unique_ptr<QAction>> &actions() const { return m_actions; }
    bool follows(bool) const { return true; }

protected:
    std::vector<std::unique_ptr<QAction>> m_actions;
};

class ActionGroupWay : public PlainWay
{
public:
    explicit ActionGroupWay(int count)
        : PlainWay(count)
    {
        for (const auto &action : m_actions)
            m_group.addAction(action.get());
    }

private:
    QActionGroup m_group {nullptr};
};

class CommandGroupWay
{
public:
    explicit CommandGroupWay(int count)
    {
        for (int i = 0; i < count; ++i)
            m_children.push_back(m_group->addCommand(new NumberedCommand(i)));
    }

    const std::vector<CommandBase *> &actions() const { return m_children; }
    bool follows(bool enabled) const { return m_group->isEnabled() == enabled; }

private:
    std::shared_ptr<CommandGroup> m_group = std::make_shared<CommandGroup>();
    std::vector<CommandBase *> m_children;
};

/// Times disabling all and enabling all, as one.
template<typename Way>
void turnOver(benchmark::State &state)
{
    const Way way(static_cast<int>(state.range(0)));
    bool follows = true;
    for (auto _ : state) {
        for (const bool enabled : {false, true}) {
            for (const auto &action : way.actions())
                action->setEnabled(enabled);
            follows = follows && way.follows(enabled);
        }
    }
    if (!follows)
        state.SkipWithError("the group has not followed its children");
}

BENCHMARK_TEMPLATE(turnOver, PlainWay)->Name("turnOverPlain")->Arg(1000);
BENCHMARK_TEMPLATE(turnOver, ActionGroupWay)->Name("turnOverActionGroup")->Arg(1000);
BENCHMARK_TEMPLATE(turnOver, CommandGroupWay)->Name("turnOverCommandGroup")->Arg(1000);

} // namespace

int main(int argc, char **argv)
{
    const QApplication app(argc, argv);
    return runBenchmarks(argc, argv);
}

#include "bench_commandgroup.moc"
