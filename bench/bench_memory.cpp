// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT
//
// How many bytes does a broadcast hold while it waits in the main queue? Several wait, and each
// counts with its share of the queue and of the wake-up.

#include "core/broadcaster.h"

#include "support/heapcount.h"
#include "support/mainqueue.h"
#include "support/protocol.h"
#include "support/runbenchmarks.h"

#include <tessel/dispatch.h>

#include <QCoreApplication>

#include <benchmark/benchmark.h>

using namespace Lumo::Bench;

namespace {

constexpr int waiting = 64;

/// Each sends one broadcast that then waits in the main queue.
class TesselSender
{
public:
    explicit TesselSender(const CountingObservers &observers)
    {
        for (const auto &observer : observers)
            m_broadcaster.addObserver(observer, true);
    }

    void send() { m_broadcaster.broadcast(&SubjectProtocol::changed, &m_subject, true); }

private:
    Subject m_subject;
    Tessel::Broadcaster<SubjectProtocol> m_broadcaster;
};

/// The straightforward form, whose closure holds the list of observers itself.
class CopyingSender
{
public:
    explicit CopyingSender(const CountingObservers &observers)
        : m_observers(observers.begin(), observers.end())
    { }

    void send()
    {
        const auto closure = [observers = m_observers, subject = &m_subject] {
            for (const auto &observer : observers) {
                if (const auto alive = observer.lock())
                    alive->changed(subject, true);
            }
        };
        Tessel::dispatchAsync(closure, Tessel::EQualityOfService::Main);
    }

private:
    Subject m_subject;
    std::vector<std::weak_ptr<SubjectProtocol>> m_observers;
};

template<typename Sender>
void memory(benchmark::State &state)
{
    const CountingObservers observers = makeObservers(state.range(0));
    Sender sender(observers);
    sender.send();
    drainMainQueue();
    std::int64_t bytes = 0;
    for (auto _ : state) {
        const std::int64_t before = liveHeapBytes();
        for (int i = 0; i < waiting; ++i)
            sender.send();
        bytes = liveHeapBytes() - before;
        drainMainQueue();
    }
    if (observers.back()->heard() != waiting + 1)
        state.SkipWithError("an observer missed a broadcast");
    state.counters["bytes"] = static_cast<double>(bytes) / waiting;
}

BENCHMARK_TEMPLATE(memory, CopyingSender)->Name("waitingCopy")->Arg(1)->Arg(1000)->Iterations(1);
BENCHMARK_TEMPLATE(memory, TesselSender)->Name("waitingTessel")->Arg(1)->Arg(1000)->Iterations(1);

} // namespace

int main(int argc, char **argv)
{
    const QCoreApplication app(argc, argv);
    return runBenchmarks(argc, argv);
}
