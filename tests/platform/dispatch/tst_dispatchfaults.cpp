// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include <tessel/dispatch.h>

#include "support/eventloop.h"
#include "support/failingnew.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QThread>

#include <algorithm>
#include <atomic>
#include <memory>
#include <new>
#include <thread>

using Lumo::Test::FailingNew;
using Lumo::Test::runLoopUntil;
using Tessel::dispatchAsync;
using Tessel::dispatchSync;
using Tessel::EQualityOfService;

namespace {

class DispatchFaults : public testing::Test
{
protected:
    // Starts all threads of the qualities that the tests use: making a thread is Qt's own matter
    // and is not safe against a failed allocation.
    void SetUp() override
    {
        startAllThreads(EQualityOfService::Utility);
        startAllThreads(EQualityOfService::UserInitiated);
        growMainQueue();
    }

    // From here on a post to the main queue allocates the same blocks each time.
    static void growMainQueue()
    {
        for (int round = 0; round < 2; ++round) {
            bool ran = false;
            for (int i = 0; i < 100; ++i)
                ASSERT_TRUE(dispatchAsync([&ran] { ran = true; }, EQualityOfService::Main));
            ASSERT_TRUE(runLoopUntil([&] { return ran; }));
        }
    }

    static void startAllThreads(EQualityOfService qos)
    {
        const int threads = std::max(4, QThread::idealThreadCount());
        const auto started = std::make_shared<std::atomic<int>>(0);
        const auto waitForAll = [started, threads] {
            ++*started;
            while (*started < threads)
                std::this_thread::yield();
        };
        for (int i = 0; i < threads; ++i)
            ASSERT_TRUE(dispatchAsync(waitForAll, qos));
        ASSERT_TRUE(runLoopUntil([&] { return *started == threads; }));
    }

    int argc = 1;
    char name[19] = "tst_dispatchfaults";
    char *argv[2] = {name, nullptr};
    QCoreApplication application {argc, argv};
};

// Each accepted piece of work runs, each that failed to be accepted does not, and the queue is
// never stuck: work that is posted afterwards runs.
TEST_F(DispatchFaults, anyFailedAllocationOfAMainPostLosesNothingElse)
{
    for (std::size_t k = 0;; ++k) {
        const auto resource = std::make_shared<int>();
        int ran = 0;
        bool accepted = false;
        FailingNew fault(k);
        try {
            accepted = dispatchAsync([resource, &ran] { ++ran; }, EQualityOfService::Main);
        } catch (const std::bad_alloc &) { }
        const bool happened = fault.happened();
        fault.disarm();
        bool laterRan = false;
        ASSERT_TRUE(dispatchAsync([&] { laterRan = true; }, EQualityOfService::Main));
        ASSERT_TRUE(runLoopUntil([&] { return laterRan; })) << "stuck after fault " << k;
        EXPECT_EQ(ran, accepted ? 1 : 0) << k;
        EXPECT_EQ(resource.use_count(), 1) << k;
        if (!happened) {
            EXPECT_GT(k, 1u);
            break;
        }
    }
}

// The burst is long enough to be cut, twice, and the second cut leaves only what was posted meanwhile:
// each time the queue has to wake the loop for its rest.
TEST_F(DispatchFaults, anyFailedAllocationWhileABurstRunsLosesNothing)
{
    constexpr int works = 8;
    for (std::size_t k = 0;; ++k) {
        int ran = 0;
        int wanted = works;
        const auto busy = [&ran] {
            const QDeadlineTimer end(2);
            while (!end.hasExpired()) { }
            ++ran;
        };
        const auto postsMore = [&] {
            try {
                wanted += dispatchAsync(busy, EQualityOfService::Main) ? 1 : 0;
            } catch (const std::bad_alloc &) { }
            busy();
        };
        dispatchAsync(postsMore, EQualityOfService::Main);
        for (int i = 1; i < works; ++i)
            dispatchAsync(busy, EQualityOfService::Main);
        FailingNew fault(k);
        const bool allRan = runLoopUntil([&] { return ran == wanted; });
        const bool happened = fault.happened();
        fault.disarm();
        ASSERT_TRUE(allRan) << "stuck after fault " << k;
        if (!happened) {
            EXPECT_GT(k, 1u);
            break;
        }
    }
}

TEST_F(DispatchFaults, anyFailedAllocationOfABackgroundPostLosesNothingElse)
{
    for (std::size_t k = 0;; ++k) {
        const auto resource = std::make_shared<int>();
        std::atomic<int> ran {0};
        bool accepted = false;
        FailingNew fault(k);
        try {
            accepted = dispatchAsync([resource, &ran] { ++ran; }, EQualityOfService::Utility);
        } catch (const std::bad_alloc &) { }
        const bool happened = fault.happened();
        fault.disarm();
        ASSERT_TRUE(dispatchSync([] {}, EQualityOfService::Utility));
        ASSERT_TRUE(runLoopUntil([&] { return ran == (accepted ? 1 : 0); })) << k;
        ASSERT_TRUE(runLoopUntil([&] { return resource.use_count() == 1; })) << k;
        if (!happened) {
            EXPECT_GT(k, 1u);
            break;
        }
    }
}

TEST_F(DispatchFaults, anyFailedAllocationOfASyncCallIsReportedOrHarmless)
{
    for (std::size_t k = 0;; ++k) {
        bool ran = false;
        bool answered = false;
        FailingNew fault(k);
        try {
            answered = dispatchSync([&ran] { ran = true; }, EQualityOfService::UserInitiated);
        } catch (const std::bad_alloc &) { }
        const bool happened = fault.happened();
        fault.disarm();
        EXPECT_EQ(ran, answered) << k;
        if (!happened) {
            EXPECT_GT(k, 1u);
            break;
        }
    }
}

} // namespace
