// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT
//
// How much heap does one command, one view take? Plain actions and plain widgets are the peers. All
// that the C library has given out counts, Qt's own data included.

#include "ui_base/command/cmdmgr.h"
#include "ui_base/command/commandbase.h"
#include "ui_base/command/commandcontext.h"
#include "ui_base/viewcontroller/baseview.h"
#include "ui_base/viewcontroller/cmdsviewcontroller.h"

#include "support/mainqueue.h"
#include "support/runbenchmarks.h"

#include <QAction>
#include <QApplication>
#include <QWidget>

#include <benchmark/benchmark.h>

#include <malloc.h>

#include <memory>
#include <vector>

using namespace Lumo::Bench;
using namespace Vela::UiBase;

namespace {

double usedHeap()
{
    return static_cast<double>(mallinfo2().uordblks);
}

class NumberedCommand : public CommandBase
{
    Q_OBJECT

public:
    explicit NumberedCommand(int index)
        : CommandBase(nullptr)
        , m_id(QString::number(index))
    { }

    const QString commandId() const override { return m_id; }
    bool onExecuteAsync(bool) override { return true; }

private:
    const QString m_id;
};

class Actions
{
public:
    void add(int index)
    {
        m_actions.push_back(std::make_unique<QAction>());
        m_actions.back()->setObjectName(QString::number(index));
    }
    void finish() { }

private:
    std::vector<std::unique_ptr<QAction>> m_actions;
};

class Commands
{
public:
    void add(int index) { m_manager->addCommand(new NumberedCommand(index)); }
    void finish() { drainMainQueue(); }

protected:
    const std::shared_ptr<CmdMgr> m_manager = std::make_shared<CmdMgr>();
};

/// Commands whose states were read and set once, after which the manager remembers them.
class UsedCommands : public Commands
{
public:
    void finish()
    {
        m_manager->setContext(m_manager->currentContext(nullptr));
        Commands::finish();
    }
};

class Widgets
{
public:
    void add(int) { m_widgets.push_back(std::make_unique<QWidget>()); }
    void finish() { }

protected:
    std::vector<std::unique_ptr<QWidget>> m_widgets;
};

class Views : public Widgets
{
public:
    void add(int)
    {
        auto *const view = new BaseView(static_cast<QWidget *>(nullptr), Qt::WindowFlags());
        new CmdsViewController(view);
        m_widgets.emplace_back(view->getQtWidget());
    }
};

/// Reports the bytes per object.
template<typename Objects>
void heap(benchmark::State &state)
{
    const int count = static_cast<int>(state.range(0));
    // What the first of a kind sets up for all that follow does not count.
    Objects earlier;
    earlier.add(-1);
    earlier.finish();
    double bytes = 0;
    for (auto _ : state) {
        const double before = usedHeap();
        Objects objects;
        for (int i = 0; i < count; ++i)
            objects.add(i);
        objects.finish();
        bytes = usedHeap() - before;
    }
    state.counters["bytes"] = bytes / count;
}

BENCHMARK_TEMPLATE(heap, Actions)->Name("heapAction")->Arg(1000)->Iterations(1);
BENCHMARK_TEMPLATE(heap, Commands)->Name("heapCommand")->Arg(1000)->Iterations(1);
BENCHMARK_TEMPLATE(heap, UsedCommands)->Name("heapUsedCommand")->Arg(1000)->Iterations(1);
BENCHMARK_TEMPLATE(heap, Widgets)->Name("heapWidget")->Arg(100)->Iterations(1);
BENCHMARK_TEMPLATE(heap, Views)->Name("heapView")->Arg(100)->Iterations(1);

} // namespace

int main(int argc, char **argv)
{
    const QApplication app(argc, argv);
    return runBenchmarks(argc, argv);
}

#include "bench_heap.moc"
