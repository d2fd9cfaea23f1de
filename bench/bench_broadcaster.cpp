// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT
//
// What does a broadcast to 1, 10 and 1000 observers cost: on the spot, and through the main queue
// until the last one has heard it? Broadcasts come in bursts, after each of which the event loop
// turns until nothing is left, so every closure that a broadcast posts is paid for in the time.

#include "core/broadcaster.h"

#include "support/mainqueue.h"
#include "support/protocol.h"
#include "support/runbenchmarks.h"

#include <QCoreApplication>
#include <QObject>

#include <benchmark/benchmark.h>
#include <boost/signals2/signal.hpp>

#include <deque>
#include <numeric>

using namespace Lumo::Bench;

namespace {

class QtSender : public QObject
{
    Q_OBJECT

Q_SIGNALS:
    void changed(Subject *subject, bool on);
};

class QtReceiver : public QObject
{
    Q_OBJECT

public:
    void hear(Subject *, bool on) { m_heard += on ? 1 : 2; }
    std::int64_t heard() const { return m_heard; }

private:
    std::int64_t m_heard = 0;
};

/// The ways to tell n observers, each with send(), with settle() that ends a burst when all is
/// delivered, and with the number of calls that arrived.
template<Qt::ConnectionType connection>
class QtChannel
{
public:
    explicit QtChannel(std::int64_t observers)
        : m_receivers(static_cast<std::size_t>(observers))
    {
        for (QtReceiver &receiver : m_receivers)
            QObject::connect(&m_sender, &QtSender::changed, &receiver, &QtReceiver::hear,
                             connection);
    }

    void send()
    {
        ++m_sent;
        Q_EMIT m_sender.changed(&m_subject, true);
    }

    void settle()
    {
        processEventsUntil([this] { return m_receivers.back().heard() == m_sent; });
    }

    std::int64_t heard() const
    {
        return std::accumulate(
            m_receivers.begin(), m_receivers.end(), std::int64_t(0),
            [](std::int64_t sum, const QtReceiver &receiver) { return sum + receiver.heard(); });
    }

private:
    Subject m_subject;
    QtSender m_sender;
    std::deque<QtReceiver> m_receivers;
    std::int64_t m_sent = 0;
};

/// What all channels to observers by shared pointer have in common.
class ObserverChannel
{
public:
    explicit ObserverChannel(std::int64_t observers)
        : m_observers(makeObservers(observers))
    { }

    std::int64_t heard() const
    {
        return std::accumulate(
            m_observers.begin(), m_observers.end(), std::int64_t(0),
            [](std::int64_t sum, const auto &observer) { return sum + observer->heard(); });
    }

protected:
    Subject m_subject;
    CountingObservers m_observers;
};

class BoostChannel : public ObserverChannel
{
public:
    explicit BoostChannel(std::int64_t observers)
        : ObserverChannel(observers)
    {
        for (const auto &observer : m_observers)
            m_signal.connect(trackedSlot(observer));
    }

    void send() { m_signal(&m_subject, true); }
    void settle() { }

private:
    using Signal = boost::signals2::signal<void(Subject *, bool)>;

    static Signal::slot_type trackedSlot(const std::shared_ptr<CountingObserver> &observer)
    {
        CountingObserver *const target = observer.get();
        return Signal::slot_type(
                   [target](Subject *subject, bool on) { target->changed(subject, on); })
            .track_foreign(observer);
    }

    Signal m_signal;
};

template<bool onMainQueue>
class TesselChannel : public ObserverChannel
{
public:
    explicit TesselChannel(std::int64_t observers)
        : ObserverChannel(observers)
    {
        for (const auto &observer : m_observers)
            m_broadcaster.addObserver(observer, onMainQueue);
    }

    void send() { m_broadcaster.broadcast(&SubjectProtocol::changed, &m_subject, true); }
    void settle() { drainMainQueue(); }

private:
    Tessel::Broadcaster<SubjectProtocol> m_broadcaster;
};

/// The limit: each observer kept alive for its call, and one closure in a queue without an event
/// loop.
template<bool onMainQueue>
class BareChannel : public ObserverChannel
{
public:
    explicit BareChannel(std::int64_t observers)
        : ObserverChannel(observers)
        , m_targets(m_observers.begin(), m_observers.end())
    { }

    void send()
    {
        m_queue.post([this] {
            if (onMainQueue)
                callAll();
        });
        if (!onMainQueue)
            callAll();
    }

    void settle() { m_queue.run(); }

private:
    void callAll()
    {
        for (const std::weak_ptr<SubjectProtocol> &target : m_targets) {
            if (const std::shared_ptr<SubjectProtocol> alive = target.lock())
                alive->changed(&m_subject, true);
        }
    }

    std::vector<std::weak_ptr<SubjectProtocol>> m_targets;
    BareQueue m_queue;
};

/// Times one broadcast within bursts of about 10000 calls, at most 1000 broadcasts.
template<typename Channel>
void broadcast(benchmark::State &state)
{
    const std::int64_t observers = state.range(0);
    const std::int64_t burst = observers < 10 ? 1000 : 10000 / observers;
    Channel channel(observers);
    while (state.KeepRunningBatch(burst)) {
        for (std::int64_t i = 0; i < burst; ++i)
            channel.send();
        channel.settle();
    }
    if (channel.heard() != observers * static_cast<std::int64_t>(state.iterations()))
        state.SkipWithError("an observer missed a broadcast");
}

void counts(benchmark::internal::Benchmark *benchmark)
{
    benchmark->Arg(1)->Arg(10)->Arg(1000);
}

BENCHMARK_TEMPLATE(broadcast, QtChannel<Qt::DirectConnection>)->Name("directQt")->Apply(counts);
BENCHMARK_TEMPLATE(broadcast, BoostChannel)->Name("directBoost")->Apply(counts);
BENCHMARK_TEMPLATE(broadcast, TesselChannel<false>)->Name("directTessel")->Apply(counts);
BENCHMARK_TEMPLATE(broadcast, BareChannel<false>)->Name("directBare")->Apply(counts);

BENCHMARK_TEMPLATE(broadcast, QtChannel<Qt::QueuedConnection>)->Name("queuedQt")->Apply(counts);
BENCHMARK_TEMPLATE(broadcast, TesselChannel<true>)->Name("queuedTessel")->Apply(counts);
BENCHMARK_TEMPLATE(broadcast, BareChannel<true>)->Name("queuedBare")->Apply(counts);

} // namespace

int main(int argc, char **argv)
{
    const QCoreApplication app(argc, argv);
    qRegisterMetaType<Subject *>("Subject*");
    return runBenchmarks(argc, argv);
}

#include "bench_broadcaster.moc"
