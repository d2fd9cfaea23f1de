// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT
//
// How long does it take from a worker's call to the first frame of a notification, and what does the
// main thread have to do for it? A plain label that a queued functor shows after the same delay is
// the peer.

#include "ui_base/qtui/notification/notificationbar.h"
#include "ui_base/viewcontroller/baseview.h"
#include "ui_base/viewcontroller/baseviewcontroller.h"

#include "support/mainqueue.h"
#include "support/runbenchmarks.h"
#include "support/worker.h"

#include <QApplication>
#include <QEvent>
#include <QLabel>
#include <QPointer>
#include <QTimer>
#include <QWidget>

#include <benchmark/benchmark.h>

#include <algorithm>
#include <chrono>
#include <ctime>
#include <vector>

using namespace Lumo::Bench;
using namespace Vela::UiBase;

namespace {

using Clock = std::chrono::steady_clock;

// How long a notification waits before it appears.
constexpr int delay = 100;
// Long enough to be painted before it goes.
constexpr int stay = 50;
const QString text = QStringLiteral("The mesh was saved");

double threadSeconds()
{
    timespec time {};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) * 1e-9;
}

/// A bar that has gone can be painted too, and shows nothing.
bool isSeen(const NotificationBar &bar)
{
    return bar.isShowing();
}

bool isSeen(const QLabel &)
{
    return true;
}

/// Waits for the first paint event of a widget of the class @p Shown that is seen.
template<typename Shown>
class PaintWatch : public QObject
{
public:
    PaintWatch() { qApp->installEventFilter(this); }

    bool eventFilter(QObject *watched, QEvent *event) override
    {
        if (event->type() != QEvent::Paint || painted)
            return false;
        auto *const shown = qobject_cast<Shown *>(watched);
        if (shown && isSeen(*shown))
            painted = shown;
        return false;
    }

    Shown *painted = nullptr;
};

/// A window with a view, the notification of which is shown.
class BarWay
{
public:
    using Shown = NotificationBar;

    BarWay()
        : m_view(new BaseView(static_cast<QWidget *>(nullptr), Qt::WindowFlags()))
        , m_controller(new BaseViewController(m_view))
    { }
    ~BarWay() { delete m_view->getQtWidget(); }

    QWidget *window() const { return m_view->getQtWidget(); }
    /// On any thread.
    void show()
    {
        m_controller->showNotification(text, eNotificationNoFade, stay, false, nullptr, nullptr);
    }
    // It goes by itself.
    void hide(NotificationBar *bar)
    {
        processEventsUntil([bar] { return !bar->isShowing(); });
    }

    BarWay(const BarWay &) = delete;
    BarWay &operator=(const BarWay &) = delete;

private:
    BaseView *const m_view;
    BaseViewController *const m_controller;
};

class LabelWay
{
public:
    using Shown = QLabel;

    QWidget *window() { return &m_window; }
    void show()
    {
        QMetaObject::invokeMethod(
            &m_window, [this] { QTimer::singleShot(delay, &m_window, [this] { showLabel(); }); },
            Qt::QueuedConnection);
    }
    void hide(QLabel *label) { label->hide(); }

private:
    void showLabel()
    {
        if (!m_label)
            m_label = new QLabel(&m_window);
        m_label->setText(text);
        m_label->adjustSize();
        m_label->move((m_window.width() - m_label->width()) / 2, m_window.height() - 80);
        m_label->show();
        m_label->raise();
    }

    QWidget m_window;
    QPointer<QLabel> m_label;
};

struct Sample
{
    double seconds;
    double busySeconds;
};

template<typename Way>
Sample timeOne(Way &way, Worker &worker)
{
    PaintWatch<typename Way::Shown> watch;
    const Clock::time_point begin = Clock::now();
    const double busyBefore = threadSeconds();
    worker.start([&way] { way.show(); });
    while (!watch.painted)
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    const double busy = threadSeconds() - busyBefore;
    const std::chrono::duration<double> passed = Clock::now() - begin;
    worker.wait();
    way.hide(watch.painted);
    return {passed.count(), busy};
}

template<typename Way>
void prepare(Way &way)
{
    way.window()->resize(800, 600);
    way.window()->show();
    while (!way.window()->isVisible())
        QCoreApplication::processEvents();
    drainMainQueue();
}

double median(std::vector<double> values)
{
    const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
    std::nth_element(values.begin(), middle, values.end());
    return *middle;
}

/// Times one notification, when @p first in a window of its own, which has never shown any.
template<typename Way, bool first>
void firstFrame(benchmark::State &state)
{
    Worker worker;
    auto way = std::make_unique<Way>();
    std::vector<double> latencies;
    std::vector<double> costs;
    prepare(*way);
    for (auto _ : state) {
        const Sample sample = timeOne(*way, worker);
        state.SetIterationTime(sample.seconds);
        latencies.push_back(sample.seconds);
        costs.push_back(sample.busySeconds);
        if (first) {
            way.reset();
            way = std::make_unique<Way>();
            prepare(*way);
        }
    }
    // Those of the first time in the process stand apart.
    latencies.erase(latencies.begin());
    costs.erase(costs.begin());
    state.counters["latency_ns"] = median(latencies) * 1e9;
    state.counters["cost_ns"] = median(costs) * 1e9;
}

void few(benchmark::internal::Benchmark *benchmark)
{
    benchmark->Iterations(8)->UseManualTime();
}

BENCHMARK_TEMPLATE(firstFrame, LabelWay, false)->Name("shownLabel")->Apply(few);
BENCHMARK_TEMPLATE(firstFrame, BarWay, false)->Name("shownBar")->Apply(few);
BENCHMARK_TEMPLATE(firstFrame, LabelWay, true)->Name("firstLabel")->Apply(few);
BENCHMARK_TEMPLATE(firstFrame, BarWay, true)->Name("firstBar")->Apply(few);

} // namespace

int main(int argc, char **argv)
{
    const QApplication app(argc, argv);
    return runBenchmarks(argc, argv);
}
