// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include <tessel/dispatch.h>

#include "support/eventloop.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QAbstractEventDispatcher>
#include <QCoreApplication>
#include <QEvent>
#include <QEventLoop>
#include <QThread>
#include <QTimer>

#include <atomic>
#include <condition_variable>
#include <memory>
#include <mutex>
#include <stdexcept>
#include <thread>
#include <vector>

using Lumo::Test::runLoopUntil;
using Tessel::dispatchAsync;
using Tessel::dispatchSync;
using Tessel::EQualityOfService;
using testing::ElementsAre;

namespace {

constexpr EQualityOfService backgroundQualities[] = {
    EQualityOfService::UserInteractive, EQualityOfService::UserInitiated,
    EQualityOfService::Utility, EQualityOfService::Background};

/// Blocks whoever waits until it is opened.
class Gate
{
public:
    void open()
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        m_isOpen = true;
        m_opened.notify_all();
    }

    void wait()
    {
        std::unique_lock<std::mutex> lock(m_mutex);
        m_opened.wait(lock, [this] { return m_isOpen; });
    }

private:
    std::mutex m_mutex;
    std::condition_variable m_opened;
    bool m_isOpen = false;
};

class Dispatch : public testing::Test
{
protected:
    static QCoreApplication *makeApplication()
    {
        static int argc = 1;
        static char name[] = "tst_dispatch";
        static char *argv[] = {name, nullptr};
        return new QCoreApplication(argc, argv);
    }

    void SetUp() override { application.reset(makeApplication()); }

    std::unique_ptr<QCoreApplication> application;
};

TEST_F(Dispatch, mainWorkRunsLaterOnTheMainThread)
{
    QThread *ranOn = nullptr;
    ASSERT_TRUE(dispatchAsync([&] { ranOn = QThread::currentThread(); }, EQualityOfService::Main));
    EXPECT_EQ(ranOn, nullptr);
    ASSERT_TRUE(runLoopUntil([&] { return ranOn != nullptr; }));
    EXPECT_EQ(ranOn, application->thread());
}

TEST_F(Dispatch, mainWorkFromAnotherThreadRunsOnTheMainThread)
{
    std::atomic<QThread *> ranOn {nullptr};
    std::thread([&] {
        EXPECT_TRUE(
            dispatchAsync([&] { ranOn = QThread::currentThread(); }, EQualityOfService::Main));
    }).join();
    ASSERT_TRUE(runLoopUntil([&] { return ranOn != nullptr; }));
    EXPECT_EQ(ranOn, application->thread());
}

TEST_F(Dispatch, mainWorkRunsInTheOrderOfPosting)
{
    std::vector<int> order;
    for (int i = 0; i < 1000; ++i)
        dispatchAsync([&order, i] { order.push_back(i); }, EQualityOfService::Main);
    ASSERT_TRUE(runLoopUntil([&] { return order.size() == 1000; }));
    EXPECT_TRUE(std::is_sorted(order.begin(), order.end()));
}

TEST_F(Dispatch, eachPostingThreadKeepsItsOrder)
{
    constexpr int threads = 4;
    constexpr int posts = 5000;
    std::vector<std::vector<int>> orders(threads);
    int total = 0;
    std::vector<std::thread> posting;
    for (int t = 0; t < threads; ++t) {
        posting.emplace_back([&, t] {
            for (int i = 0; i < posts; ++i) {
                dispatchAsync(
                    [&, t, i] {
                        orders[static_cast<std::size_t>(t)].push_back(i);
                        ++total;
                    },
                    EQualityOfService::Main);
            }
        });
    }
    const bool allRan = runLoopUntil([&] { return total == threads * posts; });
    for (std::thread &thread : posting)
        thread.join();
    ASSERT_TRUE(allRan);
    for (const std::vector<int> &order : orders) {
        ASSERT_EQ(order.size(), static_cast<std::size_t>(posts));
        EXPECT_TRUE(std::is_sorted(order.begin(), order.end()));
    }
}

TEST_F(Dispatch, syncOnMainWaitsBehindWhatTheSameThreadPosted)
{
    std::vector<int> order;
    std::atomic<bool> returned {false};
    std::thread worker([&] {
        for (int i = 0; i < 100; ++i)
            dispatchAsync([&order, i] { order.push_back(i); }, EQualityOfService::Main);
        EXPECT_TRUE(dispatchSync([&order] { order.push_back(100); }, EQualityOfService::Main));
        EXPECT_EQ(order.size(), 101u);
        returned = true;
    });
    const bool finished = runLoopUntil([&] { return returned.load(); });
    worker.join();
    ASSERT_TRUE(finished);
    EXPECT_TRUE(std::is_sorted(order.begin(), order.end()));
}

TEST_F(Dispatch, syncOnMainRunsInlineOnTheMainThreadAheadOfTheQueue)
{
    std::vector<int> order;
    dispatchAsync([&] { order.push_back(2); }, EQualityOfService::Main);
    EXPECT_TRUE(dispatchSync([&] { order.push_back(1); }, EQualityOfService::Main));
    EXPECT_THAT(order, ElementsAre(1));
    ASSERT_TRUE(runLoopUntil([&] { return order.size() == 2; }));
    EXPECT_THAT(order, ElementsAre(1, 2));
}

TEST_F(Dispatch, syncOnMainNestsInsideItself)
{
    bool innermost = false;
    EXPECT_TRUE(dispatchSync(
        [&] { EXPECT_TRUE(dispatchSync([&] { innermost = true; }, EQualityOfService::Main)); },
        EQualityOfService::Main));
    EXPECT_TRUE(innermost);
}

class EventCounter : public QObject
{
public:
    int count = 0;

    bool eventFilter(QObject *, QEvent *event) override
    {
        if (event->type() == QEvent::User)
            ++count;
        return false;
    }
};

TEST_F(Dispatch, aBurstWakesTheEventLoopOnce)
{
    EventCounter counter;
    application->installEventFilter(&counter);
    int ran = 0;
    for (int i = 0; i < 50; ++i)
        dispatchAsync([&ran] { ++ran; }, EQualityOfService::Main);
    ASSERT_TRUE(runLoopUntil([&] { return ran == 50; }));
    EXPECT_EQ(counter.count, 1);
}

TEST_F(Dispatch, workPostedByWorkLetsTheEventLoopGoFirst)
{
    std::vector<int> order;
    QObject receiver;
    dispatchAsync(
        [&] {
            order.push_back(0);
            dispatchAsync([&] { order.push_back(2); }, EQualityOfService::Main);
        },
        EQualityOfService::Main);
    QMetaObject::invokeMethod(
        &receiver, [&] { order.push_back(1); }, Qt::QueuedConnection);
    ASSERT_TRUE(runLoopUntil([&] { return order.size() == 3; }));
    EXPECT_THAT(order, ElementsAre(0, 1, 2));
}

TEST_F(Dispatch, nothingIsLeftToWakeTheLoopAfterABurst)
{
    int ran = 0;
    for (int i = 0; i < 50; ++i)
        dispatchAsync([&ran] { ++ran; }, EQualityOfService::Main);
    ASSERT_TRUE(runLoopUntil([&] { return ran == 50; }));
    while (QCoreApplication::eventDispatcher()->processEvents(QEventLoop::AllEvents)) { }
    EventCounter counter;
    application->installEventFilter(&counter);
    QCoreApplication::processEvents();
    EXPECT_EQ(counter.count, 0);
}

TEST_F(Dispatch, aFloodOfPostsLeavesRoomForTheRestOfTheEventLoop)
{
    bool timerFired = false;
    bool stop = false;
    std::function<void()> again = [&] {
        if (!stop)
            dispatchAsync(again, EQualityOfService::Main);
    };
    dispatchAsync(again, EQualityOfService::Main);
    QTimer::singleShot(0, [&] { timerFired = true; });
    EXPECT_TRUE(runLoopUntil([&] { return timerFired; }));
    stop = true;
    QCoreApplication::processEvents();
}

TEST_F(Dispatch, aLongBurstGivesControlBackBeforeItsEnd)
{
    constexpr int works = 200;
    int ran = 0;
    int ranAtTimer = -1;
    const auto busyForAMillisecond = [&ran] {
        const QDeadlineTimer end(1);
        while (!end.hasExpired()) { }
        ++ran;
    };
    for (int i = 0; i < works; ++i)
        dispatchAsync(busyForAMillisecond, EQualityOfService::Main);
    QTimer::singleShot(0, [&] { ranAtTimer = ran; });
    ASSERT_TRUE(runLoopUntil([&] { return ran == works; }));
    EXPECT_GE(ranAtTimer, 0);
    EXPECT_LT(ranAtTimer, works / 2);
}

TEST_F(Dispatch, aNestedEventLoopGoesOnWithTheQueueInOrder)
{
    std::vector<int> order;
    QEventLoop nested;
    dispatchAsync(
        [&] {
            order.push_back(0);
            nested.exec();
            order.push_back(4);
        },
        EQualityOfService::Main);
    dispatchAsync([&] { order.push_back(1); }, EQualityOfService::Main);
    dispatchAsync(
        [&] {
            order.push_back(2);
            dispatchAsync(
                [&] {
                    order.push_back(3);
                    nested.quit();
                },
                EQualityOfService::Main);
        },
        EQualityOfService::Main);
    ASSERT_TRUE(runLoopUntil([&] { return order.size() == 5; }));
    EXPECT_THAT(order, ElementsAre(0, 1, 2, 3, 4));
}

TEST_F(Dispatch, loopsNestSeveralLevelsDeepAndTheRestRunsAfterwards)
{
    std::vector<int> order;
    QEventLoop outer;
    QEventLoop inner;
    dispatchAsync(
        [&] {
            outer.exec();
            order.push_back(3);
        },
        EQualityOfService::Main);
    dispatchAsync(
        [&] {
            order.push_back(0);
            inner.exec();
            order.push_back(2);
            outer.quit();
        },
        EQualityOfService::Main);
    dispatchAsync(
        [&] {
            order.push_back(1);
            inner.quit();
        },
        EQualityOfService::Main);
    ASSERT_TRUE(runLoopUntil([&] { return order.size() == 4; }));
    EXPECT_THAT(order, ElementsAre(0, 1, 2, 3));
}

TEST_F(Dispatch, backgroundWorkRunsOnAnotherThread)
{
    for (const EQualityOfService qos : backgroundQualities) {
        std::atomic<QThread *> ranOn {nullptr};
        ASSERT_TRUE(dispatchAsync([&] { ranOn = QThread::currentThread(); }, qos));
        ASSERT_TRUE(runLoopUntil([&] { return ranOn != nullptr; }));
        EXPECT_NE(ranOn, application->thread());
    }
}

TEST_F(Dispatch, syncBackgroundWorkIsDoneOnReturn)
{
    for (const EQualityOfService qos : backgroundQualities) {
        QThread *ranOn = nullptr;
        EXPECT_TRUE(dispatchSync([&] { ranOn = QThread::currentThread(); }, qos));
        EXPECT_NE(ranOn, nullptr);
        EXPECT_NE(ranOn, application->thread());
    }
}

TEST_F(Dispatch, syncOfTheSameQualityRunsInlineOnItsThread)
{
    QThread *outer = nullptr;
    QThread *inner = nullptr;
    dispatchSync(
        [&] {
            outer = QThread::currentThread();
            dispatchSync([&] { inner = QThread::currentThread(); }, EQualityOfService::Utility);
        },
        EQualityOfService::Utility);
    EXPECT_NE(outer, nullptr);
    EXPECT_EQ(inner, outer);
}

TEST_F(Dispatch, blockedWorkOfOneQualityLeavesTheOthersRunning)
{
    for (const EQualityOfService blocked : backgroundQualities) {
        const auto gate = std::make_shared<Gate>();
        for (int i = 0; i < 64; ++i)
            dispatchAsync([gate] { gate->wait(); }, blocked);
        for (const EQualityOfService free : backgroundQualities) {
            if (free == blocked)
                continue;
            bool ran = false;
            EXPECT_TRUE(dispatchSync([&] { ran = true; }, free));
            EXPECT_TRUE(ran);
        }
        gate->open();
    }
}

TEST_F(Dispatch, anExceptionOutOfSyncWorkReachesTheCaller)
{
    const auto fail = [] { throw std::runtime_error("from the work"); };
    EXPECT_THROW(dispatchSync(fail, EQualityOfService::Main), std::runtime_error);
    EXPECT_THROW(dispatchSync(fail, EQualityOfService::Utility), std::runtime_error);
    std::atomic<bool> caught {false};
    std::thread worker([&] {
        EXPECT_THROW(dispatchSync(fail, EQualityOfService::Main), std::runtime_error);
        caught = true;
    });
    EXPECT_TRUE(runLoopUntil([&] { return caught.load(); }));
    worker.join();
}

TEST_F(Dispatch, theQueueGoesOnAfterAnExceptionOutOfSyncWork)
{
    std::atomic<bool> caught {false};
    std::thread worker([&] {
        EXPECT_THROW(dispatchSync([] { throw 1; }, EQualityOfService::Main), int);
        EXPECT_TRUE(dispatchAsync([&] { caught = true; }, EQualityOfService::Main));
    });
    EXPECT_TRUE(runLoopUntil([&] { return caught.load(); }));
    worker.join();
}

TEST(DispatchDeathTest, anExceptionOutOfAsyncWorkEndsTheProcess)
{
    testing::FLAGS_gtest_death_test_style = "threadsafe";
    const auto run = [](EQualityOfService qos) {
        int argc = 1;
        char name[] = "tst_dispatch";
        char *argv[] = {name, nullptr};
        QCoreApplication inner(argc, argv);
        dispatchAsync([] { throw std::runtime_error("nobody catches this"); }, qos);
        runLoopUntil([] { return false; });
    };
    EXPECT_DEATH(run(EQualityOfService::Main), "nobody catches this");
    EXPECT_DEATH(run(EQualityOfService::Utility), "nobody catches this");
}

TEST_F(Dispatch, emptyWorkIsRefused)
{
    EXPECT_FALSE(dispatchAsync({}, EQualityOfService::Main));
    EXPECT_FALSE(dispatchSync({}, EQualityOfService::Main));
    EXPECT_FALSE(dispatchAsync({}, EQualityOfService::Utility));
    EXPECT_FALSE(dispatchSync({}, EQualityOfService::Utility));
}

TEST_F(Dispatch, anUnknownQualityIsRefused)
{
    for (const int value : {-1, 5, 1000}) {
        const auto qos = static_cast<EQualityOfService>(value);
        EXPECT_FALSE(dispatchAsync([] { ADD_FAILURE(); }, qos));
        EXPECT_FALSE(dispatchSync([] { ADD_FAILURE(); }, qos));
    }
}

TEST_F(Dispatch, nothingRunsWithoutAnApplication)
{
    application.reset();
    const auto resource = std::make_shared<int>();
    for (int qos = 0; qos <= 4; ++qos) {
        const auto work = [resource] { ADD_FAILURE(); };
        EXPECT_FALSE(dispatchAsync(work, static_cast<EQualityOfService>(qos)));
        EXPECT_FALSE(dispatchSync(work, static_cast<EQualityOfService>(qos)));
    }
    EXPECT_EQ(resource.use_count(), 1);
}

TEST_F(Dispatch, mainWorkThatWaitsIsDroppedWithTheApplication)
{
    const auto resource = std::make_shared<int>();
    dispatchAsync([resource] { ADD_FAILURE(); }, EQualityOfService::Main);
    EXPECT_EQ(resource.use_count(), 2);
    application.reset();
    EXPECT_EQ(resource.use_count(), 1);
}

TEST_F(Dispatch, workIsRefusedWhenDroppedWorkPostsAnew)
{
    struct PostsAtItsEnd
    {
        explicit PostsAtItsEnd(bool &to)
            : accepted(to)
        { }
        ~PostsAtItsEnd()
        {
            accepted = dispatchAsync([] { ADD_FAILURE(); }, EQualityOfService::Main)
                || dispatchAsync([] { ADD_FAILURE(); }, EQualityOfService::Utility);
        }
        bool &accepted;
    };
    bool accepted = true;
    dispatchAsync([posts = std::make_shared<PostsAtItsEnd>(accepted)] {}, EQualityOfService::Main);
    application.reset();
    EXPECT_FALSE(accepted);
}

TEST_F(Dispatch, aSyncCallThatWaitsForTheMainThreadIsReleasedWithTheApplication)
{
    Gate posted;
    std::atomic<bool> result {true};
    std::thread worker([&] {
        posted.open();
        result = dispatchSync([] { ADD_FAILURE(); }, EQualityOfService::Main);
    });
    posted.wait();
    application.reset();
    worker.join();
    EXPECT_FALSE(result);
}

TEST_F(Dispatch, backgroundWorkIsFinishedOrDroppedBeforeTheApplicationDies)
{
    std::atomic<int> running {0};
    std::atomic<int> ran {0};
    const auto resource = std::make_shared<int>();
    for (int i = 0; i < 200; ++i) {
        dispatchAsync(
            [&, resource] {
                ++running;
                std::this_thread::yield();
                ++ran;
                --running;
            },
            EQualityOfService::Utility);
    }
    application.reset();
    EXPECT_EQ(running, 0);
    EXPECT_EQ(resource.use_count(), 1);
    EXPECT_LE(ran, 200);
}

TEST_F(Dispatch, backgroundWorkThatWaitsForTheMainThreadDoesNotHangTheEnd)
{
    Gate started;
    std::atomic<bool> result {true};
    dispatchAsync(
        [&] {
            started.open();
            result = dispatchSync([] { ADD_FAILURE(); }, EQualityOfService::Main);
        },
        EQualityOfService::Utility);
    started.wait();
    application.reset();
    EXPECT_FALSE(result);
}

// Background work usually posts its end to the main thread together with what it held; objects of the
// main thread among that must not die on the worker.
TEST_F(Dispatch, whatTheEndOfTheApplicationRefusesDiesOnTheMainThread)
{
    Gate started;
    Gate ending;
    QThread *diedOn = nullptr;
    dispatchAsync(
        [&] {
            std::shared_ptr<void> resource(&diedOn,
                                           [&](void *) { diedOn = QThread::currentThread(); });
            started.open();
            ending.wait();
            bool accepted = true;
            while (accepted)
                accepted = dispatchAsync([] {}, EQualityOfService::Main);
            EXPECT_FALSE(
                dispatchAsync([resource = std::move(resource)] {}, EQualityOfService::Main));
        },
        EQualityOfService::Utility);
    started.wait();
    ending.open();
    application.reset();
    EXPECT_EQ(diedOn, QThread::currentThread());
}

TEST_F(Dispatch, aLaterApplicationOpensTheQueuesAgain)
{
    dispatchAsync([] { ADD_FAILURE(); }, EQualityOfService::Main);
    application.reset();
    application.reset(makeApplication());
    bool ran = false;
    EXPECT_TRUE(dispatchAsync([&] { ran = true; }, EQualityOfService::Main));
    EXPECT_TRUE(runLoopUntil([&] { return ran; }));
    EXPECT_TRUE(dispatchSync([] {}, EQualityOfService::Utility));
}

TEST_F(Dispatch, givenAwayWorkIsNotCopied)
{
    struct CountsCopies
    {
        explicit CountsCopies(int &to)
            : copies(to)
        { }
        CountsCopies(const CountsCopies &other)
            : copies(other.copies)
        {
            ++copies;
        }
        CountsCopies(CountsCopies &&) = default;
        void operator()() const { }
        int &copies;
        std::shared_ptr<int> keepsItOffTheSmallBuffer = std::make_shared<int>();
    };
    int copies = 0;
    std::function<void()> work = CountsCopies(copies);
    const int before = copies;
    dispatchAsync(std::move(work), EQualityOfService::Main);
    QCoreApplication::processEvents();
    EXPECT_EQ(copies, before);
}

TEST_F(Dispatch, closuresDieOnceTheyHaveRun)
{
    const auto resource = std::make_shared<int>();
    bool ran = false;
    dispatchAsync([resource, &ran] { ran = true; }, EQualityOfService::Main);
    dispatchAsync([&] { EXPECT_EQ(resource.use_count(), 1); }, EQualityOfService::Main);
    EXPECT_TRUE(runLoopUntil([&] { return ran; }));
}

} // namespace
