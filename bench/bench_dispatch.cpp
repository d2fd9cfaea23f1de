// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT
//
// What does it cost to hand a closure to the main thread? A flood from 1 and 4 threads while the
// event loop runs, and one closure at a time into a loop that sleeps.

#include "support/mainqueue.h"
#include "support/runbenchmarks.h"
#include "support/worker.h"

#include <tessel/dispatch.h>

#include <QCoreApplication>
#include <QEventLoop>
#include <QObject>

#include <benchmark/benchmark.h>

#include <algorithm>
#include <chrono>
#include <deque>
#include <thread>

using Lumo::Bench::BareQueue;
using Lumo::Bench::Worker;

namespace {

using Clock = std::chrono::steady_clock;

constexpr int closuresPerBurst = 40000;
constexpr auto timeToFallAsleep = std::chrono::microseconds(100);
constexpr auto timeBetweenLooks = std::chrono::microseconds(50);

double seconds(Clock::duration duration)
{
    return std::chrono::duration<double>(duration).count();
}

/// Loops that turn on the main thread until quit() is called there, and take closures meanwhile.
struct TesselLoop
{
    template<typename Work>
    void post(Work work)
    {
        Tessel::dispatchAsync(std::move(work), Tessel::EQualityOfService::Main);
    }
    void exec() { loop.exec(); }
    void quit() { loop.quit(); }

    QEventLoop loop;
};

struct QtLoop
{
    template<typename Work>
    void post(Work work)
    {
        QMetaObject::invokeMethod(&receiver, std::move(work), Qt::QueuedConnection);
    }
    void exec() { loop.exec(); }
    void quit() { loop.quit(); }

    QEventLoop loop;
    QObject receiver;
};

/// The limit: a queue without an event loop. It is woken by a post, or else looks into the queue now
/// and then, which keeps it out of the way of those who post.
template<bool woken>
struct BareLoop
{
    template<typename Work>
    void post(Work work)
    {
        queue.post(std::move(work));
    }
    void exec()
    {
        for (running = true; running;) {
            if (!woken)
                std::this_thread::sleep_for(timeBetweenLooks);
            woken ? queue.waitAndRun() : queue.run();
        }
    }
    void quit() { running = false; }

    BareQueue queue;
    bool running = false;
};

/// Posts the same closure from every worker and turns the loop until all of them have run.
template<typename Loop>
Clock::duration timeBurst(Loop &loop, std::deque<Worker> &workers)
{
    int left = closuresPerBurst;
    const auto closure = [&left, &loop] {
        if (--left == 0)
            loop.quit();
    };
    const int share = closuresPerBurst / static_cast<int>(workers.size());
    const auto begin = Clock::now();
    for (Worker &worker : workers) {
        worker.start([&loop, closure, share] {
            for (int i = 0; i < share; ++i)
                loop.post(closure);
        });
    }
    loop.exec();
    const auto end = Clock::now();
    for (Worker &worker : workers)
        worker.wait();
    return end - begin;
}

template<typename Loop>
void post(benchmark::State &state)
{
    std::deque<Worker> workers(static_cast<std::size_t>(state.range(0)));
    Loop loop;
    while (state.KeepRunningBatch(closuresPerBurst))
        state.SetIterationTime(seconds(timeBurst(loop, workers)));
}

/// Waits until the loop sleeps, posts one closure and takes the time until it runs.
template<typename Loop>
Clock::duration timeOnePost(Loop &loop, Worker &worker)
{
    Clock::time_point posted;
    Clock::time_point ran;
    worker.start([&loop, &posted, &ran] {
        std::this_thread::sleep_for(timeToFallAsleep);
        posted = Clock::now();
        loop.post([&loop, &ran] {
            ran = Clock::now();
            loop.quit();
        });
    });
    loop.exec();
    worker.wait();
    return ran - posted;
}

/// Reports the median: a single preemption would outweigh all the other samples in a mean.
template<typename Loop>
void latency(benchmark::State &state)
{
    Loop loop;
    Worker worker;
    std::vector<double> samples;
    for (auto _ : state) {
        samples.push_back(seconds(timeOnePost(loop, worker)));
        state.SetIterationTime(samples.back());
    }
    const auto middle = samples.begin() + static_cast<std::ptrdiff_t>(samples.size() / 2);
    std::nth_element(samples.begin(), middle, samples.end());
    state.counters["median_ns"] = *middle * 1e9;
}

BENCHMARK_TEMPLATE(post, QtLoop)->Name("postQt")->Arg(1)->Arg(4)->UseManualTime();
BENCHMARK_TEMPLATE(post, TesselLoop)->Name("postTessel")->Arg(1)->Arg(4)->UseManualTime();
BENCHMARK_TEMPLATE(post, BareLoop<false>)->Name("postBare")->Arg(1)->Arg(4)->UseManualTime();

BENCHMARK_TEMPLATE(latency, QtLoop)->Name("latencyQt")->Iterations(300)->UseManualTime();
BENCHMARK_TEMPLATE(latency, TesselLoop)->Name("latencyTessel")->Iterations(300)->UseManualTime();
BENCHMARK_TEMPLATE(latency, BareLoop<true>)->Name("latencyBare")->Iterations(300)->UseManualTime();

} // namespace

int main(int argc, char **argv)
{
    const QCoreApplication app(argc, argv);
    return Lumo::Bench::runBenchmarks(argc, argv);
}
