// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT
//
// What does a mouse move cost on its way through a view to a tool, past a running command that
// looks at it first? A bare event filter on a widget is the peer: it gets the same event from Qt and
// calls one virtual operation. And what do all events of an application cost once it has views?

#include "ui_base/command/commandbase.h"
#include "ui_base/tool/interactivetool.h"
#include "ui_base/viewcontroller/baseview.h"
#include "ui_base/viewcontroller/cmdsviewcontroller.h"

#include "support/mainqueue.h"
#include "support/runbenchmarks.h"

#include <QApplication>
#include <QMouseEvent>
#include <QWidget>

#include <benchmark/benchmark.h>

#include <memory>
#include <vector>

using namespace Lumo::Bench;
using namespace Vela::UiBase;

namespace {

constexpr EToolActivationButton buttons[] = {eToolButtonNone, eToolButtonLeft, eToolButtonRight,
                                             eToolButtonMiddle};

QMouseEvent makeMove()
{
    const QPointF position(10, 10);
    return {QEvent::MouseMove, position,       position,      position,
            Qt::NoButton,      Qt::LeftButton, Qt::NoModifier};
}

/// Looks at each move and lets it pass.
class WatchingCommand : public CommandBase, public ViewResponder
{
    Q_OBJECT
    COMMAND_ID

public:
    explicit WatchingCommand(CmdsViewController *controller)
        : CommandBase(controller)
    { }

    bool onExecuteAsync(bool) override { return true; }
    bool mouseMove(QMouseEvent *) override
    {
        ++moves;
        return false;
    }

    std::int64_t moves = 0;
};

class CountingTool : public InteractiveTool
{
public:
    using InteractiveTool::InteractiveTool;

    bool mouseMove(QMouseEvent *) override
    {
        ++moves;
        return true;
    }

    std::int64_t moves = 0;
};

/// A view whose controller has a command and, for each button, a stack of two tools.
class ViewWay
{
public:
    explicit ViewWay(bool isRunning)
        : m_view(new BaseView(static_cast<QWidget *>(nullptr), Qt::WindowFlags()))
        , m_controller(new CmdsViewController(m_view))
        , m_command(new WatchingCommand(m_controller))
        , m_isRunning(isRunning)
    {
        m_controller->addCommand(m_command);
        for (const EToolActivationButton button : buttons) {
            m_controller->pushTool(button, std::make_shared<CountingTool>(m_view));
            m_tools.push_back(std::make_shared<CountingTool>(m_view));
            m_controller->pushTool(button, m_tools.back());
        }
        if (isRunning)
            m_command->broadcast(&CommandStateProtocol::commandBegan, m_command);
        drainMainQueue();
    }
    ~ViewWay() { delete m_view->getQtWidget(); }

    QWidget *widget() const { return m_view->getQtWidget(); }
    std::int64_t moves() const
    {
        const std::int64_t heard = m_tools[1]->moves;
        return !m_isRunning || m_command->moves == heard ? heard : 0;
    }

    ViewWay(const ViewWay &) = delete;
    ViewWay &operator=(const ViewWay &) = delete;

private:
    BaseView *const m_view;
    CmdsViewController *const m_controller;
    WatchingCommand *const m_command;
    const bool m_isRunning;
    std::vector<std::shared_ptr<CountingTool>> m_tools;
};

class FilterWay
{
public:
    explicit FilterWay(bool)
        : m_filter(std::make_unique<Filter>())
    {
        m_widget.installEventFilter(m_filter.get());
    }

    QWidget *widget() { return &m_widget; }
    std::int64_t moves() const { return m_filter->moves; }

private:
    class Filter : public QObject
    {
    public:
        bool eventFilter(QObject *, QEvent *event) override
        {
            return event->type() == QEvent::MouseMove
                && mouseMove(static_cast<QMouseEvent *>(event));
        }

        virtual bool mouseMove(QMouseEvent *)
        {
            ++moves;
            return true;
        }

        std::int64_t moves = 0;
    };

    QWidget m_widget;
    const std::unique_ptr<Filter> m_filter;
};

template<typename Way, bool isRunning>
void move(benchmark::State &state)
{
    Way way(isRunning);
    QMouseEvent event = makeMove();
    for (auto _ : state)
        QCoreApplication::sendEvent(way.widget(), &event);
    if (way.moves() != state.iterations())
        state.SkipWithError("a move has not arrived");
}

/// Counts the events that are not for a view.
class Receiver : public QObject
{
public:
    bool event(QEvent *event) override
    {
        received += event->type() == QEvent::User ? 1 : 0;
        return true;
    }

    std::int64_t received = 0;
};

/// Times an event for an object beside the views of the application.
void eventBeside(benchmark::State &state)
{
    std::vector<std::unique_ptr<QWidget>> widgets;
    for (std::int64_t i = 0; i < state.range(0); ++i) {
        const BaseView *const view =
            new BaseView(static_cast<QWidget *>(nullptr), Qt::WindowFlags());
        widgets.emplace_back(view->getQtWidget());
    }
    Receiver receiver;
    QEvent event(QEvent::User);
    for (auto _ : state)
        QCoreApplication::sendEvent(&receiver, &event);
    if (receiver.received != state.iterations())
        state.SkipWithError("an event has not arrived");
}

BENCHMARK_TEMPLATE(move, FilterWay, false)->Name("moveFilter");
BENCHMARK_TEMPLATE(move, ViewWay, false)->Name("moveView");
BENCHMARK_TEMPLATE(move, ViewWay, true)->Name("moveViewRunning");

BENCHMARK(eventBeside)->Arg(0)->Arg(1)->Arg(100);

} // namespace

int main(int argc, char **argv)
{
    const QApplication app(argc, argv);
    return runBenchmarks(argc, argv);
}

#include "bench_baseview.moc"
