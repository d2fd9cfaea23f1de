// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "ui_base/tool/toolstack.h"

#include "ui_base/tool/recordingstack.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QDir>

#include <atomic>
#include <chrono>
#include <condition_variable>
#include <mutex>
#include <set>
#include <stdexcept>
#include <thread>

using namespace Lumo::Test;
using namespace Vela::UiBase;

namespace {

class ToolStackReset : public testing::Test
{
protected:
    using Tool = std::shared_ptr<TestTool>;

    Tool push(EToolActivationButton button, const char *toolName)
    {
        auto tool = std::make_shared<TestTool>(QString::fromLatin1(toolName));
        stack->pushTool(button, tool);
        stack->takeEvents();
        return tool;
    }

    int argc = 1;
    char name[19] = "tst_toolstackreset";
    char *argv[2] = {name, nullptr};
    QApplication application {argc, argv};
    std::shared_ptr<RecordingStack> stack = std::make_shared<RecordingStack>();
};

// The first parallel call of the process starts the workers, so this stands before those.
TEST_F(ToolStackReset, startsNoWorkerForOneStack)
{
    const auto threads = [] {
        return QDir(QStringLiteral("/proc/self/task"))
            .entryList(QDir::Dirs | QDir::NoDotAndDotDot)
            .size();
    };
    stack->resetTools();
    push(eToolButtonLeft, "t");
    stack->isEmpty(eToolButtonRight);
    stack->isEmpty(eToolButtonMiddle);
    const auto threadsBefore = threads();
    stack->resetTools();
    EXPECT_EQ(stack->takeEvents(), QLatin1String("deactivated(t) activated(t)"));
    EXPECT_EQ(threads(), threadsBefore);
}

TEST_F(ToolStackReset, doesNothingWithoutTools)
{
    stack->resetTools();
    stack->isEmpty(eToolButtonLeft);
    stack->isEmpty(eToolButtonRight);
    stack->resetTools();
    EXPECT_EQ(stack->takeEvents(), QString());
}

TEST_F(ToolStackReset, takesEachToolThroughACycleFromTheTopDown)
{
    const Tool lowest = push(eToolButtonLeft, "lowest");
    const Tool middle = push(eToolButtonLeft, "middle");
    const Tool top = push(eToolButtonLeft, "top");
    stack->resetTools();
    EXPECT_EQ(stack->takeEvents(),
              QLatin1String("deactivated(top) activated(top) resumed(middle) deactivated(middle) "
                            "activated(middle) suspended(middle) resumed(lowest) "
                            "deactivated(lowest) activated(lowest) suspended(lowest)"));
    EXPECT_TRUE(top->isActive() && middle->isSuspended() && lowest->isSuspended());
    EXPECT_EQ(stack->popTool(eToolButtonLeft), top);
    EXPECT_EQ(stack->popTool(eToolButtonLeft), middle);
    EXPECT_EQ(stack->popTool(eToolButtonLeft), lowest);
    EXPECT_EQ(stack->popTool(eToolButtonLeft), nullptr);
}

TEST_F(ToolStackReset, leavesOperatingAndInactiveToolsAlone)
{
    const Tool inactive = push(eToolButtonLeft, "inactive");
    inactive->resume();
    inactive->deactivate();
    const Tool operating = push(eToolButtonLeft, "operating");
    operating->startOperation();
    const Tool top = push(eToolButtonLeft, "top");
    bool wasAsked = false;
    inactive->onActivate = operating->onActivate = [&wasAsked] { wasAsked = true; };
    stack->resetTools();
    EXPECT_EQ(stack->takeEvents(), QLatin1String("deactivated(top) activated(top)"));
    EXPECT_FALSE(wasAsked);
    EXPECT_TRUE(operating->isOperating());
    EXPECT_EQ(inactive->state(), QLatin1String("inactive"));
    EXPECT_EQ(stack->popTool(eToolButtonLeft), top);
    EXPECT_EQ(stack->getOperatingTool(), operating);
    EXPECT_EQ(stack->popTool(eToolButtonLeft), operating);
    EXPECT_EQ(stack->popTool(eToolButtonLeft), inactive);
}

TEST_F(ToolStackReset, noToolIsSeenOnTopDuringItsCycle)
{
    const Tool tool = push(eToolButtonLeft, "t");
    int callbacks = 0;
    bool wasOnTop = false;
    for (const char *event : {"deactivated(t)", "activated(t)"}) {
        stack->react(event, [&] {
            ++callbacks;
            wasOnTop = wasOnTop || stack->getTool(eToolButtonLeft) == tool;
        });
    }
    stack->resetTools();
    EXPECT_EQ(callbacks, 2);
    EXPECT_FALSE(wasOnTop);
    EXPECT_EQ(stack->getTool(eToolButtonLeft), tool);
}

TEST_F(ToolStackReset, returnsWhenTheToolsOfAllStacksAreDone)
{
    std::vector<Tool> tools;
    std::atomic<int> activations {0};
    for (int button = 0; button < 6; ++button) {
        for (int i = 0; i < 5; ++i) {
            tools.push_back(push(static_cast<EToolActivationButton>(button), "t"));
            tools.back()->onActivate = [&activations] { ++activations; };
        }
    }
    for (int round = 1; round <= 50; ++round) {
        stack->resetTools();
        ASSERT_EQ(activations, round * int(tools.size()));
    }
    for (int button = 0; button < 6; ++button) {
        for (int i = 4; i >= 0; --i) {
            const Tool &expected = tools[static_cast<std::size_t>(5 * button + i)];
            EXPECT_EQ(expected->state(), QLatin1String(i == 4 ? "active" : "suspended"));
        }
        for (int i = 4; i >= 0; --i) {
            EXPECT_EQ(stack->popTool(static_cast<EToolActivationButton>(button)),
                      tools[static_cast<std::size_t>(5 * button + i)]);
        }
    }
}

/// Lets threads go on only when a number of them has come.
class Meeting
{
public:
    explicit Meeting(int expected)
        : m_missing(expected)
    { }

    bool attend()
    {
        std::unique_lock<std::mutex> lock(m_mutex);
        --m_missing;
        m_changed.notify_all();
        return m_changed.wait_for(lock, std::chrono::seconds(30),
                                  [this] { return m_missing <= 0; });
    }

private:
    std::mutex m_mutex;
    std::condition_variable m_changed;
    int m_missing;
};

TEST_F(ToolStackReset, stacksGoAtTheSameTimeAndTheCallerTakesPart)
{
    if (std::thread::hardware_concurrency() < 2)
        GTEST_SKIP() << "a single processor has no workers";
    Meeting meeting(2);
    std::mutex mutex;
    std::set<std::thread::id> threads;
    std::atomic<int> met {0};
    for (const auto button : {eToolButtonLeft, eToolButtonRight}) {
        push(button, "t")->onActivate = [&] {
            met += meeting.attend();
            const std::lock_guard<std::mutex> lock(mutex);
            threads.insert(std::this_thread::get_id());
        };
    }
    stack->resetTools();
    EXPECT_EQ(met, 2);
    EXPECT_EQ(threads.size(), 2u);
    EXPECT_EQ(threads.count(std::this_thread::get_id()), 1u);
}

/// Finds out whether two threads are in the same piece of code.
class Crowd
{
public:
    void enter()
    {
        if (++m_inside > 1)
            m_wasCrowded = true;
        std::this_thread::yield();
        --m_inside;
    }
    bool wasCrowded() const { return m_wasCrowded; }

private:
    std::atomic<int> m_inside {0};
    std::atomic<bool> m_wasCrowded {false};
};

TEST_F(ToolStackReset, toolsOfOneStackNeverGoAtTheSameTime)
{
    constexpr EToolActivationButton buttons[] = {eToolButtonLeft, eToolButtonRight,
                                                 eToolButtonMiddle};
    Crowd crowds[3];
    for (std::size_t i = 0; i < 3; ++i) {
        for (int depth = 0; depth < 4; ++depth) {
            Crowd *const crowd = &crowds[i];
            push(buttons[i], "t")->onActivate = [crowd] { crowd->enter(); };
        }
    }
    for (int round = 0; round < 200; ++round)
        stack->resetTools();
    for (const Crowd &crowd : crowds)
        EXPECT_FALSE(crowd.wasCrowded());
}

TEST_F(ToolStackReset, aToolOnTwoStacksIsNeverInTwoCyclesAtOnce)
{
    Crowd crowd;
    std::set<std::thread::id> threads;
    const Tool tool = push(eToolButtonLeft, "t");
    stack->pushTool(eToolButtonRight, tool);
    push(eToolButtonMiddle, "other");
    int activations = 0;
    tool->onActivate = [&] {
        crowd.enter();
        ++activations;
        threads.insert(std::this_thread::get_id());
    };
    for (int round = 0; round < 200; ++round)
        stack->resetTools();
    EXPECT_EQ(activations, 400);
    EXPECT_EQ(threads, std::set<std::thread::id> {std::this_thread::get_id()});
    EXPECT_FALSE(crowd.wasCrowded());
    EXPECT_TRUE(tool->isActive());
}

TEST_F(ToolStackReset, observersAreCalledOnTheThreadOfTheCycle)
{
    const Tool left = push(eToolButtonLeft, "left");
    const Tool right = push(eToolButtonRight, "right");
    std::thread::id cycled;
    right->onActivate = [&cycled] { cycled = std::this_thread::get_id(); };
    std::thread::id called;
    class Listener : public ToolStateProtocol
    {
    public:
        explicit Listener(std::thread::id &id)
            : called(id)
        { }
        void toolActivated(InteractiveTool *) override { called = std::this_thread::get_id(); }
        std::thread::id &called;
    };
    const auto listener = std::make_shared<Listener>(called);
    right->addObserver(listener, false);
    stack->resetTools();
    EXPECT_NE(called, std::thread::id());
    EXPECT_EQ(called, cycled);
}

TEST_F(ToolStackReset, anExceptionReachesTheCallerAndNoToolIsLost)
{
    std::vector<Tool> tools;
    for (const auto button : {eToolButtonLeft, eToolButtonRight}) {
        for (const char *toolName : {"low", "middle", "top"})
            tools.push_back(push(button, toolName));
    }
    bool shallThrow = true;
    tools[1]->onActivate = [&shallThrow] {
        if (shallThrow)
            throw std::runtime_error("no device");
    };
    EXPECT_THROW(stack->resetTools(), std::runtime_error);
    shallThrow = false;
    EXPECT_FALSE(stack->isResetting());
    stack->resetTools();
    for (std::size_t i : {2u, 1u, 0u}) {
        EXPECT_EQ(stack->popTool(eToolButtonLeft), tools[i]);
        EXPECT_EQ(stack->popTool(eToolButtonRight), tools[i + 3]);
    }
}

TEST_F(ToolStackReset, theStackSaysThatAResetRuns)
{
    bool during = false;
    stack->react("activated(t)", [&] { during = stack->isResetting(); });
    push(eToolButtonLeft, "t");
    EXPECT_FALSE(during);
    stack->react("activated(t)", [&] { during = stack->isResetting(); });
    stack->resetTools();
    EXPECT_TRUE(during);
    EXPECT_FALSE(stack->isResetting());
}

TEST_F(ToolStackReset, duringAResetTheStackAnswersAsIfItWereEmptyAndChangesNothing)
{
    const Tool left = push(eToolButtonLeft, "left");
    const Tool right = push(eToolButtonRight, "right");
    const Tool operating = push(eToolButtonMiddle, "operating");
    operating->startOperation();
    const Tool newcomer = std::make_shared<TestTool>();
    const auto emptyTool = stack->getTool(eToolButtonNone);
    std::atomic<int> runs {0};
    right->onActivate = [&] {
        ++runs;
        stack->pushTool(eToolButtonRight, newcomer);
        stack->resetTools();
        stack->clearTools();
        EXPECT_EQ(stack->popTool(eToolButtonLeft), nullptr);
        EXPECT_EQ(stack->getTool(eToolButtonLeft), emptyTool);
        EXPECT_EQ(stack->getOperatingTool(), nullptr);
        EXPECT_TRUE(stack->isEmpty(eToolButtonMiddle));
    };
    stack->resetTools();
    EXPECT_EQ(runs, 1);
    EXPECT_EQ(newcomer->state(), QLatin1String("inactive"));
    EXPECT_EQ(stack->getTool(eToolButtonLeft), left);
    EXPECT_EQ(stack->getTool(eToolButtonRight), right);
    EXPECT_EQ(stack->getOperatingTool(), operating);
}

TEST_F(ToolStackReset, anOperationThatBeginsInAResetHandsNothingOver)
{
    const Tool left = push(eToolButtonLeft, "left");
    const Tool right = push(eToolButtonRight, "right");
    right->onActivate = [&right] {
        right->startOperation();
        right->endOperation();
    };
    stack->resetTools();
    EXPECT_FALSE(stack->takeEvents().contains(QLatin1String("suspended(left)")));
    EXPECT_TRUE(left->isActive());
    EXPECT_TRUE(right->isActive());
}

TEST_F(ToolStackReset, toolsAndTheStackMayLoseTheirLastOwnerInACycle)
{
    Tool tool = push(eToolButtonLeft, "t");
    const std::weak_ptr<ToolStack> guard = stack;
    RecordingStack *const bare = stack.get();
    tool->onActivate = [this, &tool] {
        tool.reset();
        stack.reset();
    };
    bare->resetTools();
    EXPECT_TRUE(guard.expired());
}

// What a debugger of races is to see: tools, observers and stacks of several buttons in many
// cycles, between changes made on the main thread.
TEST_F(ToolStackReset, manyResetsOfSeveralStacksBetweenChanges)
{
    std::vector<Tool> tools;
    const auto observer = std::make_shared<ToolRecorder>();
    for (int round = 0; round < 60; ++round) {
        const auto button = static_cast<EToolActivationButton>(round % 4);
        tools.push_back(push(button, "t"));
        tools.back()->addObserver(observer, round % 2 == 0);
        tools.back()->setIdleCursor(Qt::CrossCursor);
        stack->resetTools();
        EXPECT_EQ(stack->getTool(button), tools.back());
        if (round % 5 == 4)
            stack->popTool(button);
        QCoreApplication::processEvents();
    }
    EXPECT_FALSE(observer->takeEvents().isEmpty());
}

} // namespace
