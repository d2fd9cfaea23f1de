// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT
//
// What does a long tool bar cost next to Qt's: to fill it, hidden or shown, to keep it in memory, and
// to paint it? Each pass makes a window with a bar of its own; the actions and their icons are at
// hand, as an application's commands are.

#include "ui_base/toolbar/toolbar.h"

#include "support/runbenchmarks.h"

#include <QAction>
#include <QApplication>
#include <QPixmap>
#include <QToolBar>

#include <benchmark/benchmark.h>

#include <malloc.h>

#include <deque>
#include <memory>

using namespace Lumo::Bench;
using Vela::UiBase::ToolBar;

namespace {

std::deque<QAction> makeActions(std::int64_t count)
{
    QPixmap picture(24, 24);
    picture.fill(Qt::red);
    const QIcon icon(picture);
    std::deque<QAction> actions(static_cast<std::size_t>(count));
    int number = 0;
    for (QAction &action : actions) {
        action.setText(QStringLiteral("Command %1").arg(++number));
        action.setIcon(icon);
    }
    return actions;
}

struct QtBar
{
    explicit QtBar(QWidget *window)
        : bar(new QToolBar(window))
    {
        bar->setIconSize(QSize(24, 24));
    }
    void add(QAction &action) { bar->addAction(&action); }
    void fit(int count) { bar->resize(count * 40, 40); }
    QWidget *widget() { return bar; }
    QToolBar *const bar;
};

struct LumoBar
{
    explicit LumoBar(QWidget *window)
        : bar(new ToolBar(window, Qt::TopToolBarArea))
    { }
    void add(QAction &action) { bar->AddAction(&action, QStringLiteral("tools")); }
    void fit(int) { }
    QWidget *widget() { return bar; }
    ToolBar *const bar;
};

double usedHeap()
{
    return static_cast<double>(mallinfo2().uordblks);
}

void settle()
{
    QCoreApplication::sendPostedEvents();
    QCoreApplication::processEvents();
}

template<typename Bar>
void fillHidden(benchmark::State &state)
{
    std::deque<QAction> actions = makeActions(state.range(0));
    for (auto _ : state) {
        QWidget window;
        window.resize(1000, 100);
        Bar bar(&window);
        for (QAction &action : actions)
            bar.add(action);
        window.show();
        settle();
        state.PauseTiming();
        delete bar.widget();
        state.ResumeTiming();
    }
}

/// Keeps a window from painting while it lives, but not from noting what to paint.
class PaintLater : public QObject
{
public:
    explicit PaintLater(QWidget *window)
        : m_window(window)
    {
        window->installEventFilter(this);
    }
    ~PaintLater() override
    {
        m_window->removeEventFilter(this);
        m_window->repaint();
    }
    bool eventFilter(QObject *, QEvent *event) override
    {
        return event->type() == QEvent::UpdateRequest;
    }

private:
    QWidget *const m_window;
};

/// Each button has its place before the next one comes, as when commands arrive one by one.
template<typename Bar>
void fillOneByOne(benchmark::State &state, bool paintsEach)
{
    std::deque<QAction> actions = makeActions(state.range(0));
    for (auto _ : state) {
        state.PauseTiming();
        QWidget window;
        window.resize(1000, 100);
        Bar bar(&window);
        window.show();
        settle();
        state.ResumeTiming();
        auto later = paintsEach ? nullptr : std::make_unique<PaintLater>(&window);
        for (QAction &action : actions) {
            bar.add(action);
            QCoreApplication::sendPostedEvents();
        }
        later.reset();
        settle();
        state.PauseTiming();
        delete bar.widget();
        state.ResumeTiming();
    }
}

template<typename Bar>
void fillShown(benchmark::State &state)
{
    fillOneByOne<Bar>(state, false);
}

template<typename Bar>
void fillPainting(benchmark::State &state)
{
    fillOneByOne<Bar>(state, true);
}

/// From the middle of a bar that is shown, most of it outside of the window.
void removeSome(benchmark::State &state)
{
    class OpenBar : public ToolBar
    {
    public:
        using ToolBar::RemoveButton;
        using ToolBar::ToolBar;
    };
    std::deque<QAction> actions = makeActions(state.range(0));
    const auto middle = actions.begin() + std::ptrdiff_t(actions.size() / 2);
    for (auto _ : state) {
        state.PauseTiming();
        auto window = std::make_unique<QWidget>();
        window->resize(1000, 100);
        auto *const bar = new OpenBar(window.get(), Qt::TopToolBarArea);
        for (QAction &action : actions)
            bar->AddAction(&action, QStringLiteral("tools"));
        window->show();
        settle();
        state.ResumeTiming();
        for (auto it = middle; it != middle + 100; ++it) {
            if (!bar->RemoveButton(&*it))
                state.SkipWithError("A button is missing.");
        }
        settle();
        state.PauseTiming();
        window.reset();
        state.ResumeTiming();
    }
}

template<typename Bar>
void heap(benchmark::State &state)
{
    std::deque<QAction> actions = makeActions(state.range(0));
    double bytes = 0;
    for (auto _ : state) {
        QWidget window;
        Bar bar(&window);
        window.show();
        settle();
        const double before = usedHeap();
        for (QAction &action : actions)
            bar.add(action);
        settle();
        bytes = usedHeap() - before;
    }
    state.counters["bytes"] = bytes / double(state.range(0));
}

template<typename Bar>
void repaint(benchmark::State &state, bool wholeBar)
{
    const int count = int(state.range(0));
    std::deque<QAction> actions = makeActions(count);
    QWidget window;
    window.resize(count * 40, 60);
    Bar bar(&window);
    for (QAction &action : actions)
        bar.add(action);
    window.show();
    bar.fit(count);
    settle();
    QWidget *const painted = wholeBar ? bar.widget() : bar.widget()->childAt(20, 20);
    while (state.KeepRunningBatch(wholeBar ? count : 1))
        painted->repaint();
}

template<typename Bar>
void repaintAll(benchmark::State &state)
{
    repaint<Bar>(state, true);
}

template<typename Bar>
void repaintOne(benchmark::State &state)
{
    repaint<Bar>(state, false);
}

BENCHMARK_TEMPLATE(fillHidden, QtBar)->Name("fillHiddenQt")->Arg(300)->Arg(2000);
BENCHMARK_TEMPLATE(fillHidden, LumoBar)->Name("fillHiddenLumo")->Arg(300)->Arg(2000);
BENCHMARK_TEMPLATE(fillShown, QtBar)->Name("fillShownQt")->Arg(300)->Arg(2000);
BENCHMARK_TEMPLATE(fillShown, LumoBar)->Name("fillShownLumo")->Arg(300)->Arg(2000);
BENCHMARK_TEMPLATE(fillPainting, QtBar)->Name("fillPaintingQt")->Arg(300);
BENCHMARK_TEMPLATE(fillPainting, LumoBar)->Name("fillPaintingLumo")->Arg(300);
BENCHMARK(removeSome)->Arg(500)->Arg(2000);
BENCHMARK_TEMPLATE(heap, QtBar)->Name("heapQt")->Arg(2000)->Iterations(1);
BENCHMARK_TEMPLATE(heap, LumoBar)->Name("heapLumo")->Arg(2000)->Iterations(1);
BENCHMARK_TEMPLATE(repaintAll, QtBar)->Name("repaintAllQt")->Arg(200);
BENCHMARK_TEMPLATE(repaintAll, LumoBar)->Name("repaintAllLumo")->Arg(200);
BENCHMARK_TEMPLATE(repaintOne, QtBar)->Name("repaintOneQt")->Arg(2000);
BENCHMARK_TEMPLATE(repaintOne, LumoBar)->Name("repaintOneLumo")->Arg(2000);

} // namespace

int main(int argc, char **argv)
{
    QApplication app(argc, argv);
    return runBenchmarks(argc, argv);
}
