// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "support/failingnew.h"

#include <orrin_mesh_kernel/IService>
#include <orrin_mesh_kernel/Kernel>

#include <gtest/gtest.h>

#include <atomic>
#include <condition_variable>
#include <functional>
#include <memory>
#include <mutex>
#include <stdexcept>
#include <string>
#include <thread>
#include <type_traits>
#include <utility>
#include <vector>

using Lumo::Test::FailingNew;
using Lumo::Test::NewCounter;
using Orrin::Core::eRcmFailure;
using Orrin::Core::eRcmSuccess;
using Orrin::Core::Kernel;

namespace {

static_assert(!std::is_copy_constructible_v<Kernel> && !std::is_move_constructible_v<Kernel>);
static_assert(std::has_virtual_destructor_v<Kernel>);
static_assert(std::has_virtual_destructor_v<Orrin::Core::IService>);
static_assert(std::is_abstract_v<Orrin::Core::IService>);
static_assert(std::is_same_v<std::underlying_type_t<Orrin::Core::ERcmStatus>, int>);
static_assert(eRcmSuccess == 0 && eRcmFailure == 1);

using Texts = std::vector<std::wstring>;

Kernel::WaypointSink recorder(Texts &texts)
{
    return [&texts](const std::wstring &text) { texts.push_back(text); };
}

/// Runs @p work on @p count threads at once and waits for all.
template<typename Work>
void runOnThreads(int count, const Work &work)
{
    std::vector<std::thread> threads;
    for (int i = 0; i < count; ++i)
        threads.emplace_back(work, i);
    for (std::thread &thread : threads)
        thread.join();
}

/// Runs its work when the last copy of what holds it ends.
class AtEnd
{
public:
    explicit AtEnd(std::function<void()> work)
        : m_work(std::move(work))
    { }
    ~AtEnd() { m_work(); }
    AtEnd(const AtEnd &) = delete;
    AtEnd &operator=(const AtEnd &) = delete;

private:
    std::function<void()> m_work;
};

} // namespace

TEST(Kernel, waypointReachesTheSinkBeforeTheCallReturns)
{
    Texts texts;
    Kernel kernel;
    kernel.setWaypointSink(recorder(texts));
    const Kernel &reader = kernel;
    EXPECT_EQ(reader.ProfilerWaypoint(L"CMD BEGIN A(true)"), eRcmSuccess);
    EXPECT_EQ(texts, Texts {L"CMD BEGIN A(true)"});
    EXPECT_EQ(reader.ProfilerWaypoint(L""), eRcmSuccess);
    EXPECT_EQ(texts, (Texts {L"CMD BEGIN A(true)", L""}));
}

TEST(Kernel, nullTextFailsWithAndWithoutSink)
{
    Texts texts;
    Kernel kernel;
    EXPECT_EQ(kernel.ProfilerWaypoint(nullptr), eRcmFailure);
    kernel.setWaypointSink(recorder(texts));
    EXPECT_EQ(kernel.ProfilerWaypoint(nullptr), eRcmFailure);
    EXPECT_TRUE(texts.empty());
}

TEST(Kernel, withoutSinkAWaypointSucceedsAndAllocatesNothing)
{
    const std::wstring text(1000, L'x');
    Kernel kernel;
    const NewCounter counter;
    EXPECT_EQ(kernel.ProfilerWaypoint(text.c_str()), eRcmSuccess);
    EXPECT_EQ(counter.calls(), 0U);
}

TEST(Kernel, emptySinkSwitchesOffAgain)
{
    const std::wstring text(1000, L'x');
    Texts texts;
    Kernel kernel;
    kernel.setWaypointSink(recorder(texts));
    kernel.setWaypointSink({});
    const NewCounter counter;
    EXPECT_EQ(kernel.ProfilerWaypoint(text.c_str()), eRcmSuccess);
    EXPECT_EQ(counter.calls(), 0U);
    EXPECT_TRUE(texts.empty());
}

TEST(Kernel, newSinkTakesThePlaceOfTheOldOneAndFreesIt)
{
    Texts first;
    Texts second;
    Kernel kernel;
    const auto held = std::make_shared<int>(1);
    kernel.setWaypointSink([&first, held](const std::wstring &text) { first.push_back(text); });
    EXPECT_EQ(held.use_count(), 2);
    kernel.setWaypointSink(recorder(second));
    EXPECT_EQ(held.use_count(), 1);
    kernel.ProfilerWaypoint(L"a");
    EXPECT_TRUE(first.empty());
    EXPECT_EQ(second, Texts {L"a"});
}

TEST(Kernel, sinkIsFreedWithTheKernel)
{
    const auto held = std::make_shared<int>(1);
    {
        Kernel kernel;
        kernel.setWaypointSink([held](const std::wstring &) {});
        EXPECT_EQ(held.use_count(), 2);
    }
    EXPECT_EQ(held.use_count(), 1);
}

TEST(Kernel, sinkMayReplaceItselfInsideItsCallAndLivesUntilItsEnd)
{
    Texts texts;
    Kernel kernel;
    const auto held = std::make_shared<std::wstring>(L"held");
    kernel.setWaypointSink([&kernel, &texts, held](const std::wstring &) {
        kernel.setWaypointSink(recorder(texts));
        EXPECT_EQ(held.use_count(), 2);
        texts.push_back(*held);
    });
    EXPECT_EQ(kernel.ProfilerWaypoint(L"a"), eRcmSuccess);
    EXPECT_EQ(held.use_count(), 1);
    kernel.ProfilerWaypoint(L"b");
    EXPECT_EQ(texts, (Texts {L"held", L"b"}));
}

TEST(Kernel, sinkMaySwitchItselfOffInsideItsCall)
{
    int calls = 0;
    Kernel kernel;
    kernel.setWaypointSink([&](const std::wstring &) {
        ++calls;
        kernel.setWaypointSink({});
    });
    kernel.ProfilerWaypoint(L"a");
    kernel.ProfilerWaypoint(L"b");
    EXPECT_EQ(calls, 1);
}

TEST(Kernel, sinkMayWriteWaypointsItself)
{
    Texts texts;
    Kernel kernel;
    kernel.setWaypointSink([&](const std::wstring &text) {
        if (text == L"outer")
            kernel.ProfilerWaypoint(L"inner");
        texts.push_back(text);
    });
    kernel.ProfilerWaypoint(L"outer");
    EXPECT_EQ(texts, (Texts {L"inner", L"outer"}));
}

TEST(Kernel, endOfAReplacedSinkMayWriteWaypoints)
{
    Texts texts;
    Kernel kernel;
    auto end = std::make_shared<AtEnd>([&kernel] { kernel.ProfilerWaypoint(L"end"); });
    kernel.setWaypointSink([end](const std::wstring &) {});
    end.reset();
    kernel.setWaypointSink(recorder(texts));
    EXPECT_EQ(texts, Texts {L"end"});
}

TEST(Kernel, exceptionOfTheSinkEndsInTheStatusAndTheSinkStays)
{
    int calls = 0;
    Kernel kernel;
    kernel.setWaypointSink([&calls](const std::wstring &) {
        if (++calls == 1)
            throw std::runtime_error("sink");
    });
    ASSERT_NO_THROW(EXPECT_EQ(kernel.ProfilerWaypoint(L"a"), eRcmFailure));
    EXPECT_EQ(kernel.ProfilerWaypoint(L"b"), eRcmSuccess);
    EXPECT_EQ(calls, 2);
}

TEST(Kernel, overrideOfADerivedKernelIsCalled)
{
    class CountingKernel : public Kernel
    {
    public:
        Orrin::Core::ERcmStatus ProfilerWaypoint(const wchar_t *text) const override
        {
            ++calls;
            return Kernel::ProfilerWaypoint(text);
        }
        mutable int calls = 0;
    };
    Texts texts;
    CountingKernel counting;
    counting.setWaypointSink(recorder(texts));
    const Kernel &kernel = counting;
    kernel.ProfilerWaypoint(L"a");
    EXPECT_EQ(counting.calls, 1);
    EXPECT_EQ(texts, Texts {L"a"});
}

TEST(Kernel, lackOfMemoryInAWaypointEndsInTheStatus)
{
    const std::wstring text(100, L'x');
    Texts texts;
    texts.reserve(100);
    Kernel kernel;
    kernel.setWaypointSink(recorder(texts));
    std::size_t faults = 0;
    for (;; ++faults) {
        FailingNew fault(faults);
        Orrin::Core::ERcmStatus status = eRcmSuccess;
        EXPECT_NO_THROW(status = kernel.ProfilerWaypoint(text.c_str()));
        fault.disarm();
        EXPECT_EQ(status, fault.happened() ? eRcmFailure : eRcmSuccess);
        if (!fault.happened())
            break;
    }
    EXPECT_GE(faults, 1U);
    EXPECT_EQ(texts.size(), 1U);
}

TEST(Kernel, lackOfMemoryInSetWaypointSinkKeepsTheOldSink)
{
    Texts oldTexts;
    Texts newTexts;
    Kernel kernel;
    kernel.setWaypointSink(recorder(oldTexts));
    std::size_t faults = 0;
    for (;; ++faults) {
        Kernel::WaypointSink sink = recorder(newTexts);
        FailingNew fault(faults);
        try {
            kernel.setWaypointSink(std::move(sink));
        } catch (const std::bad_alloc &) { }
        fault.disarm();
        kernel.ProfilerWaypoint(L"a");
        if (!fault.happened())
            break;
        EXPECT_EQ(oldTexts.size(), faults + 1);
    }
    EXPECT_GE(faults, 1U);
    EXPECT_EQ(oldTexts.size(), faults);
    EXPECT_EQ(newTexts, Texts {L"a"});
}

TEST(KernelThreads, aSinkThatWaitsHoldsUpNoOtherThread)
{
    std::mutex mutex;
    std::condition_variable changed;
    bool isSecondDone = false;
    Kernel kernel;
    kernel.setWaypointSink([&](const std::wstring &text) {
        std::unique_lock lock(mutex);
        if (text == L"second") {
            isSecondDone = true;
            changed.notify_all();
        } else {
            changed.wait(lock, [&] { return isSecondDone; });
        }
    });
    runOnThreads(2, [&](int i) { kernel.ProfilerWaypoint(i == 0 ? L"first" : L"second"); });
    EXPECT_TRUE(isSecondDone);
}

TEST(KernelThreads, everyWaypointReachesOneSinkWhileSinksAreSwapped)
{
    constexpr int writers = 3;
    constexpr int waypoints = 3000;
    std::atomic<int> received {0};
    std::atomic<int> running {writers};
    Kernel kernel;
    const auto counter = [&received] {
        const auto text = std::make_shared<const std::wstring>(L"waypoint");
        return [&received, text](const std::wstring &other) { received += other == *text; };
    };
    kernel.setWaypointSink(counter());
    runOnThreads(writers + 1, [&](int i) {
        if (i == writers) {
            while (running > 0)
                kernel.setWaypointSink(counter());
            return;
        }
        for (int k = 0; k < waypoints; ++k)
            EXPECT_EQ(kernel.ProfilerWaypoint(L"waypoint"), eRcmSuccess);
        --running;
    });
    EXPECT_EQ(received, writers * waypoints);
}

TEST(KernelThreads, aSinkSetBesideASwitchOffIsEitherOnOrGone)
{
    constexpr int rounds = 10000;
    int calls = 0;
    const auto held = std::make_shared<int>(1);
    const Kernel::WaypointSink counting = [&calls, held](const std::wstring &) { ++calls; };
    const long idleCount = held.use_count();
    Kernel kernel;
    std::atomic<int> arrived {0};
    const auto meet = [&arrived](int count) {
        ++arrived;
        while (arrived < count)
            std::this_thread::yield();
    };
    runOnThreads(2, [&](int i) {
        for (int round = 0; round < rounds; ++round) {
            Kernel::WaypointSink sink = i == 0 ? Kernel::WaypointSink() : counting;
            meet(6 * round + 2);
            kernel.setWaypointSink(std::move(sink));
            meet(6 * round + 4);
            if (i == 0) {
                calls = 0;
                kernel.ProfilerWaypoint(L"a");
                EXPECT_EQ(calls, held.use_count() > idleCount ? 1 : 0);
            }
            meet(6 * round + 6);
        }
    });
}

TEST(KernelThreads, waypointsSwapsAndSwitchOffsGoTogether)
{
    std::atomic<int> calls {0};
    Kernel kernel;
    runOnThreads(6, [&](int i) {
        for (int k = 0; k < 2000; ++k) {
            if (i == 0)
                kernel.setWaypointSink([&](const std::wstring &) { ++calls; });
            else if (i == 1)
                kernel.setWaypointSink([&](const std::wstring &) { kernel.setWaypointSink({}); });
            else
                EXPECT_EQ(kernel.ProfilerWaypoint(L"waypoint"), eRcmSuccess);
        }
    });
    kernel.setWaypointSink([&](const std::wstring &) { calls = -1; });
    kernel.ProfilerWaypoint(L"last");
    EXPECT_EQ(calls, -1);
}
