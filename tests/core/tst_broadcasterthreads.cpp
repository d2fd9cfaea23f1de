// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "core/delegator.h"

#include "greetprotocol.h"
#include "support/eventloop.h"

#include <gtest/gtest.h>

#include <atomic>
#include <memory>
#include <thread>
#include <vector>

using Lumo::Test::runLoopUntil;

namespace {

std::atomic<int> heard {0};

class Counts : public GreetProtocol
{
public:
    void greeted(QString name) override
    {
        if (name == QLatin1String("you") && m_alive)
            ++heard;
    }
    ~Counts() override { m_alive = false; }

private:
    std::atomic<bool> m_alive {true};
};

class ObjectCounts : public QObject, public Counts
{
public:
    using QObject::QObject;
};

// Threads add, remove, forget and broadcast on one broadcaster while observers die everywhere and
// the main thread delivers. Meant for a build with a thread or address sanitizer; without one it
// still finds deadlocks, lost broadcasts and calls on the dead.
TEST(BroadcasterThreads, manyThreadsAddRemoveAndBroadcastWhileObserversDie)
{
    TestApplication application;
    QObject parent;
    Tessel::Broadcaster<GreetProtocol> greeter;
    const auto survivor = std::make_shared<Counts>();
    greeter.addObserver(survivor, false);
    constexpr int threads = 4;
    constexpr int rounds = 400;
    std::atomic<int> running {threads};
    std::vector<std::thread> workers;
    for (int t = 0; t < threads; ++t) {
        workers.emplace_back([&greeter, &running, t] {
            std::vector<std::shared_ptr<Counts>> own;
            for (int i = 0; i < rounds; ++i) {
                auto observer = std::make_shared<Counts>();
                greeter.addObserver(observer, (i + t) % 2 == 0);
                own.push_back(std::move(observer));
                greeter.broadcast(&GreetProtocol::greeted, QStringLiteral("you"));
                if (i % 3 == 0)
                    greeter.removeObserver(own.front());
                if (i % 2 == 0)
                    own.erase(own.begin());
            }
            --running;
        });
    }
    std::vector<std::unique_ptr<ObjectCounts>> objects;
    const bool finished = runLoopUntil([&] {
        objects.push_back(std::make_unique<ObjectCounts>(&parent));
        greeter.addObserver(objects.back().get());
        if (objects.size() > 8)
            objects.erase(objects.begin());
        if (objects.size() == 5)
            greeter.removeObserver(objects.front().get());
        return running == 0;
    });
    for (std::thread &worker : workers)
        worker.join();
    ASSERT_TRUE(finished);
    QCoreApplication::processEvents();
    EXPECT_GE(heard, threads * rounds);
}

/// A broadcaster whose lists one thread looks through, by removing an unknown observer and by asking
/// for the delegate in turn.
struct Looking
{
    Tessel::Delegator<GreetProtocol> greeter;
    std::atomic<std::thread::id> thread {};
    std::atomic<bool> isRemoving {false};
    std::atomic<int> endsInRemoval {0};
};

/// Comes back to the broadcaster when it ends on the thread that looks, which waits for ever if the
/// mutex is taken.
class ComesBack : public GreetProtocol
{
public:
    explicit ComesBack(Looking &looking)
        : m_looking(looking)
    { }
    ~ComesBack() override
    {
        if (std::this_thread::get_id() != m_looking.thread.load())
            return;
        if (m_looking.isRemoving)
            ++m_looking.endsInRemoval;
        else
            m_looking.greeter.removeAllObservers();
    }

private:
    Looking &m_looking;
};

// Whoever looks at an observer can hold it last, when all others let go of it at that moment.
TEST(BroadcasterThreads, observersThatEndWhileTheyAreLookedAtDoNotEndUnderTheMutex)
{
    Looking looking;
    std::atomic<bool> stop {false};
    std::thread looks([&] {
        const auto unknown = std::make_shared<Counts>();
        looking.thread = std::this_thread::get_id();
        while (!stop) {
            looking.isRemoving = true;
            looking.greeter.removeObserver(unknown);
            looking.isRemoving = false;
            looking.greeter.getDelegate();
        }
    });
    while (looking.thread.load() == std::thread::id())
        std::this_thread::yield();
    for (int round = 0; round < 50'000; ++round) {
        auto observer = std::make_shared<ComesBack>(looking);
        looking.greeter.addObserver(observer, round % 2 == 0);
        observer.reset();
        looking.greeter.removeAllObservers();
    }
    stop = true;
    looks.join();
    EXPECT_EQ(looking.endsInRemoval, 0);
}

TEST(BroadcasterThreads, eachBroadcastReachesAQueuedObserverOnceAndInTheOrderOfItsThread)
{
    class Ordered : public GreetProtocol
    {
    public:
        void greeted(QString name) override { names.push_back(name); }
        std::vector<QString> names;
    };
    TestApplication application;
    Tessel::Broadcaster<GreetProtocol> greeter;
    const auto observer = std::make_shared<Ordered>();
    greeter.addObserver(observer, true);
    constexpr int threads = 4;
    constexpr int rounds = 500;
    std::vector<std::thread> workers;
    for (int t = 0; t < threads; ++t) {
        workers.emplace_back([&greeter, t] {
            for (int i = 0; i < rounds; ++i)
                greeter.broadcast(&GreetProtocol::greeted, QStringLiteral("%1 %2").arg(t).arg(i));
        });
    }
    const bool finished =
        runLoopUntil([&] { return observer->names.size() == std::size_t(threads * rounds); });
    for (std::thread &worker : workers)
        worker.join();
    ASSERT_TRUE(finished);
    std::vector<int> next(threads, 0);
    for (const QString &name : observer->names) {
        const auto thread = static_cast<std::size_t>(name.section(QLatin1Char(' '), 0, 0).toInt());
        EXPECT_EQ(name.section(QLatin1Char(' '), 1, 1).toInt(), next[thread]++);
    }
}

} // namespace
