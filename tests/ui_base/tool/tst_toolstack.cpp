// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "ui_base/tool/toolstack.h"

#include "support/failingnew.h"
#include "ui_base/tool/recordingstack.h"
#include "ui_base/tool/virtualslot.h"

#include <gtest/gtest.h>

#include <QApplication>

#include <type_traits>

using namespace Lumo::Test;
using namespace Vela::UiBase;

static_assert(std::is_base_of_v<Tessel::SharedObject<ToolStack>, ToolStack>);
static_assert(std::is_base_of_v<ToolStateProtocol, ToolStack>);
static_assert(std::has_virtual_destructor_v<ToolStack>);
static_assert(!std::is_copy_constructible_v<ToolStack>);
static_assert(std::is_same_v<std::underlying_type_t<EToolActivationButton>, int>);
static_assert(int(eToolButtonNone) == int(Qt::NoButton));
static_assert(int(eToolButtonLeft) == int(Qt::LeftButton));
static_assert(int(eToolButtonRight) == int(Qt::RightButton));
static_assert(int(eToolButtonMiddle) == int(Qt::MiddleButton));

namespace {

constexpr auto backButton = static_cast<EToolActivationButton>(Qt::BackButton);

class ToolStackTest : public testing::Test
{
protected:
    using Tool = std::shared_ptr<TestTool>;

    static Tool makeTool(const char *toolName)
    {
        return std::make_shared<TestTool>(QString::fromLatin1(toolName));
    }
    Tool push(EToolActivationButton button, const char *toolName)
    {
        Tool tool = makeTool(toolName);
        stack->pushTool(button, tool);
        return tool;
    }
    /// Forgets what was heard up to now.
    void forget() { stack->takeEvents(); }

    int argc = 1;
    char name[14] = "tst_toolstack";
    char *argv[2] = {name, nullptr};
    QApplication application {argc, argv};
    std::shared_ptr<RecordingStack> stack = std::make_shared<RecordingStack>();
};

TEST_F(ToolStackTest, isEmptyAtFirst)
{
    for (const auto button :
         {eToolButtonNone, eToolButtonLeft, eToolButtonRight, eToolButtonMiddle, backButton}) {
        EXPECT_TRUE(stack->isEmpty(button));
        EXPECT_EQ(stack->popTool(button), nullptr);
    }
    EXPECT_EQ(stack->getOperatingTool(), nullptr);
    EXPECT_EQ(stack->m_pendingRightPress, nullptr);
}

TEST_F(ToolStackTest, pushingActivatesTheToolOnTop)
{
    const Tool tool = makeTool("t");
    std::shared_ptr<InteractiveTool> topWhenActivated;
    stack->react("activated(t)", [&] { topWhenActivated = stack->getTool(eToolButtonLeft); });
    stack->pushTool(eToolButtonLeft, tool);
    EXPECT_EQ(stack->takeEvents(), QLatin1String("activated(t)"));
    EXPECT_TRUE(tool->isActive());
    EXPECT_EQ(topWhenActivated, tool);
    EXPECT_EQ(stack->getTool(eToolButtonLeft), tool);
    EXPECT_FALSE(stack->isEmpty(eToolButtonLeft));
}

TEST_F(ToolStackTest, pushingSuspendsTheToolBelowWhileThatIsOnTop)
{
    const Tool below = push(eToolButtonLeft, "below");
    forget();
    std::shared_ptr<InteractiveTool> topWhenSuspended;
    stack->react("suspended(below)", [&] { topWhenSuspended = stack->getTool(eToolButtonLeft); });
    push(eToolButtonLeft, "above");
    EXPECT_EQ(stack->takeEvents(), QLatin1String("suspended(below) activated(above)"));
    EXPECT_TRUE(below->isSuspended());
    EXPECT_EQ(topWhenSuspended, below);
}

TEST_F(ToolStackTest, stacksOfButtonsAreIndependent)
{
    const Tool left = push(eToolButtonLeft, "left");
    const Tool right = push(eToolButtonRight, "right");
    const Tool back = push(backButton, "back");
    EXPECT_TRUE(left->isActive() && right->isActive() && back->isActive());
    EXPECT_EQ(stack->getTool(eToolButtonLeft), left);
    EXPECT_EQ(stack->getTool(eToolButtonRight), right);
    EXPECT_EQ(stack->getTool(static_cast<EToolActivationButton>(Qt::BackButton)), back);
    EXPECT_TRUE(stack->isEmpty(eToolButtonNone));
    EXPECT_EQ(stack->popTool(eToolButtonRight), right);
    EXPECT_TRUE(left->isActive() && back->isActive());
}

TEST_F(ToolStackTest, pushingReplacesAllObserversOfTheTool)
{
    const Tool tool = makeTool("t");
    const auto earlier = std::make_shared<ToolRecorder>();
    tool->addObserver(earlier, false);
    stack->pushTool(eToolButtonLeft, tool);
    EXPECT_EQ(earlier->takeEvents(), QStringList());
    EXPECT_EQ(tool->getDelegate(), stack.get());
    const auto later = std::make_shared<ToolRecorder>();
    tool->addObserver(later, false);
    tool->suspend();
    EXPECT_EQ(later->takeEvents(), QStringList {QStringLiteral("suspended(t)")});
}

TEST_F(ToolStackTest, theStackHoldsItsToolsAndTheyDoNotHoldTheStack)
{
    Tool tool = push(eToolButtonLeft, "t");
    EXPECT_EQ(stack.use_count(), 1);
    const std::weak_ptr<InteractiveTool> guard = tool;
    tool.reset();
    EXPECT_FALSE(guard.expired());
    stack.reset();
    EXPECT_TRUE(guard.expired());
}

TEST_F(ToolStackTest, pushingNullDoesNothing)
{
    const Tool tool = push(eToolButtonLeft, "t");
    forget();
    stack->pushTool(eToolButtonLeft, nullptr);
    EXPECT_TRUE(tool->isActive());
    EXPECT_EQ(stack->getTool(eToolButtonLeft), tool);
    EXPECT_EQ(stack->takeEvents(), QString());
}

// A stack is not seen from outside as long as it is empty, but making one takes memory.
TEST_F(ToolStackTest, onlyAskingWhetherAStackIsEmptyMakesIt)
{
    stack->getTool(eToolButtonLeft);
    const NewCounter counter;
    stack->pushTool(eToolButtonRight, nullptr);
    stack->popTool(eToolButtonRight);
    stack->getTool(eToolButtonRight);
    stack->getOperatingTool();
    EXPECT_EQ(counter.calls(), 0u);
    EXPECT_TRUE(stack->isEmpty(eToolButtonRight));
    const std::size_t callsOfOneStack = counter.calls();
    EXPECT_GT(callsOfOneStack, 0u);
    EXPECT_TRUE(stack->isEmpty(eToolButtonRight));
    stack->popTool(eToolButtonRight);
    EXPECT_EQ(counter.calls(), callsOfOneStack);
}

TEST_F(ToolStackTest, aStackThatWasAskedForBehavesAsAMissingOne)
{
    EXPECT_TRUE(stack->isEmpty(eToolButtonLeft));
    EXPECT_EQ(stack->popTool(eToolButtonLeft), nullptr);
    EXPECT_FALSE(stack->getTool(eToolButtonLeft)->isActive());
    EXPECT_EQ(stack->getOperatingTool(), nullptr);
    stack->resetTools();
    const Tool right = push(eToolButtonRight, "right");
    right->startOperation();
    EXPECT_TRUE(right->isOperating());
}

TEST_F(ToolStackTest, poppingDeactivatesTheToolAndResumesTheOneBelow)
{
    const Tool below = push(eToolButtonLeft, "below");
    const Tool above = push(eToolButtonLeft, "above");
    forget();
    std::shared_ptr<InteractiveTool> topWhenDeactivated;
    std::shared_ptr<InteractiveTool> topWhenResumed;
    ToolStateProtocol *delegateWhenResumed = nullptr;
    stack->react("deactivated(above)",
                 [&] { topWhenDeactivated = stack->getTool(eToolButtonLeft); });
    stack->react("resumed(below)", [&] {
        topWhenResumed = stack->getTool(eToolButtonLeft);
        delegateWhenResumed = above->getDelegate();
    });
    EXPECT_EQ(stack->popTool(eToolButtonLeft), above);
    EXPECT_EQ(stack->takeEvents(), QLatin1String("deactivated(above) resumed(below)"));
    EXPECT_EQ(topWhenDeactivated, above);
    EXPECT_EQ(topWhenResumed, below);
    EXPECT_EQ(delegateWhenResumed, stack.get());
    EXPECT_EQ(above->state(), QLatin1String("inactive"));
    EXPECT_TRUE(below->isActive());
    EXPECT_EQ(stack->getTool(eToolButtonLeft), below);
}

TEST_F(ToolStackTest, aPoppedToolHasNoObserversLeft)
{
    const Tool tool = push(eToolButtonLeft, "t");
    const auto observer = std::make_shared<ToolRecorder>();
    tool->addObserver(observer, false);
    stack->popTool(eToolButtonLeft);
    EXPECT_EQ(observer->takeEvents(), QStringList {QStringLiteral("deactivated(t)")});
    EXPECT_EQ(tool->getDelegate(), nullptr);
    tool->activate();
    EXPECT_EQ(observer->takeEvents(), QStringList());
    EXPECT_EQ(stack->takeEvents(), QLatin1String("activated(t) deactivated(t)"));
}

TEST_F(ToolStackTest, poppingTheLastToolLeavesTheEmptyTool)
{
    const Tool tool = push(eToolButtonLeft, "t");
    forget();
    EXPECT_EQ(stack->popTool(eToolButtonLeft), tool);
    EXPECT_EQ(stack->takeEvents(), QLatin1String("deactivated(t)"));
    EXPECT_EQ(stack->getTool(eToolButtonLeft), ToolStack().getTool(eToolButtonLeft));
    EXPECT_TRUE(stack->isEmpty(eToolButtonLeft));
    EXPECT_EQ(stack->popTool(eToolButtonLeft), nullptr);
}

TEST_F(ToolStackTest, theEmptyToolIsOneForAllAndConsumesNothing)
{
    const auto empty = stack->getTool(eToolButtonLeft);
    ASSERT_NE(empty, nullptr);
    EXPECT_EQ(stack->getTool(backButton), empty);
    EXPECT_EQ(std::make_shared<ToolStack>()->getTool(eToolButtonRight), empty);
    EXPECT_EQ(empty->getView(), nullptr);
    EXPECT_FALSE(press(*empty, Qt::LeftButton));
    EXPECT_FALSE(move(*empty, Qt::LeftButton));
    EXPECT_FALSE(release(*empty, Qt::LeftButton));
    EXPECT_FALSE(empty->isActive() || empty->isSuspended() || empty->isOperating());
    EXPECT_TRUE(stack->isEmpty(eToolButtonLeft));
}

TEST_F(ToolStackTest, nothingBringsTheEmptyToolToLife)
{
    const auto empty = stack->getTool(eToolButtonLeft);
    empty->activate();
    EXPECT_FALSE(empty->isActive());
    const Tool tool = push(eToolButtonLeft, "t");
    stack->pushTool(eToolButtonLeft, empty);
    EXPECT_EQ(stack->getTool(eToolButtonLeft), tool);
    EXPECT_TRUE(tool->isActive());
    EXPECT_EQ(empty->getDelegate(), nullptr);
}

TEST_F(ToolStackTest, anOperatingToolGoesOnBelowAndIsNotSeen)
{
    const Tool below = push(eToolButtonLeft, "below");
    below->startOperation();
    EXPECT_EQ(stack->getOperatingTool(), below);
    const Tool above = push(eToolButtonLeft, "above");
    EXPECT_TRUE(below->isOperating());
    EXPECT_TRUE(above->isActive());
    EXPECT_EQ(stack->getOperatingTool(), nullptr);
    above->startOperation();
    EXPECT_EQ(stack->getOperatingTool(), above);
}

TEST_F(ToolStackTest, findsTheOperatingToolOfAnyButton)
{
    push(eToolButtonLeft, "left");
    const Tool back = push(backButton, "back");
    EXPECT_EQ(stack->getOperatingTool(), nullptr);
    back->startOperation();
    EXPECT_EQ(stack->getOperatingTool(), back);
    back->endOperation();
    EXPECT_EQ(stack->getOperatingTool(), nullptr);
}

TEST_F(ToolStackTest, anOperatingToolComesOffOperating)
{
    const Tool below = push(eToolButtonLeft, "below");
    const Tool above = push(eToolButtonLeft, "above");
    above->startOperation();
    forget();
    EXPECT_EQ(stack->popTool(eToolButtonLeft), above);
    EXPECT_TRUE(above->isOperating());
    EXPECT_EQ(above->getDelegate(), nullptr);
    EXPECT_TRUE(below->isActive());
    EXPECT_EQ(stack->takeEvents(), QLatin1String("resumed(below)"));
}

TEST_F(ToolStackTest, aSuspendedToolComesOffSuspended)
{
    const Tool left = push(eToolButtonLeft, "left");
    const Tool right = push(eToolButtonRight, "right");
    right->startOperation();
    EXPECT_EQ(stack->popTool(eToolButtonLeft), left);
    EXPECT_TRUE(left->isSuspended());
    EXPECT_EQ(left->getDelegate(), nullptr);
}

TEST_F(ToolStackTest, theLeftToolIsSuspendedWhileAToolOfAnotherButtonOperates)
{
    const Tool left = push(eToolButtonLeft, "left");
    for (const auto button : {eToolButtonRight, eToolButtonMiddle, eToolButtonNone, backButton}) {
        const Tool other = push(button, "other");
        forget();
        other->startOperation();
        EXPECT_TRUE(left->isSuspended());
        EXPECT_EQ(stack->takeEvents(), QLatin1String("began(other) suspended(left) cursor(other)"));
        other->endOperation();
        EXPECT_TRUE(left->isActive());
        EXPECT_EQ(stack->takeEvents(), QLatin1String("ended(other) resumed(left)"));
    }
}

TEST_F(ToolStackTest, theHandOverLeavesOtherStacksAlone)
{
    const Tool middle = push(eToolButtonMiddle, "middle");
    const Tool right = push(eToolButtonRight, "right");
    right->startOperation();
    EXPECT_TRUE(middle->isActive());
    middle->suspend();
    right->endOperation();
    EXPECT_TRUE(middle->isSuspended());
}

TEST_F(ToolStackTest, aToolOfTheLeftStackHandsNothingOver)
{
    const Tool below = push(eToolButtonLeft, "below");
    const Tool above = push(eToolButtonLeft, "above");
    forget();
    stack->toolBeganOperating(above.get());
    EXPECT_TRUE(above->isActive());
    forget();
    above->startOperation();
    above->endOperation();
    EXPECT_EQ(stack->takeEvents(), QLatin1String("began(above) cursor(above) ended(above)"));
    EXPECT_TRUE(below->isSuspended());
    above->suspend();
    forget();
    stack->toolEndedOperating(above.get());
    EXPECT_TRUE(above->isSuspended());
}

TEST_F(ToolStackTest, theHandOverIgnoresNull)
{
    const Tool left = push(eToolButtonLeft, "left");
    stack->toolBeganOperating(nullptr);
    EXPECT_TRUE(left->isActive());
    left->suspend();
    stack->toolEndedOperating(nullptr);
    EXPECT_TRUE(left->isSuspended());
}

TEST_F(ToolStackTest, clearingLetsGoOfTheToolsAsTheyAre)
{
    const Tool left = push(eToolButtonLeft, "left");
    Tool right = push(eToolButtonRight, "right");
    right->startOperation();
    forget();
    const std::weak_ptr<TestTool> guard = right;
    right.reset();
    stack->clearTools();
    EXPECT_TRUE(guard.expired());
    EXPECT_TRUE(left->isSuspended());
    EXPECT_EQ(left->getDelegate(), stack.get());
    EXPECT_EQ(stack->takeEvents(), QString());
    EXPECT_TRUE(stack->isEmpty(eToolButtonLeft) && stack->isEmpty(eToolButtonRight));
    left->resume();
    EXPECT_EQ(stack->takeEvents(), QLatin1String("resumed(left)"));
}

TEST_F(ToolStackTest, theEndOfTheStackLetsGoOfTheToolsAsTheyAre)
{
    const Tool left = push(eToolButtonLeft, "left");
    stack.reset();
    EXPECT_TRUE(left->isActive());
    EXPECT_EQ(left.use_count(), 1);
    EXPECT_EQ(left->getDelegate(), nullptr);
    left->suspend();
}

TEST_F(ToolStackTest, theEndOfTheStackDeletesThePressThatIsHeldBack)
{
    struct Press : QMouseEvent
    {
        explicit Press(bool &deletedFlag)
            : QMouseEvent(mouseEvent(QEvent::MouseButtonPress, Qt::RightButton, Qt::RightButton))
            , deleted(deletedFlag)
        { }
        ~Press() override { deleted = true; }
        bool &deleted;
    };
    bool deleted = false;
    stack->m_pendingRightPress = std::make_unique<Press>(deleted);
    stack->clearTools();
    EXPECT_FALSE(deleted);
    stack.reset();
    EXPECT_TRUE(deleted);
}

TEST_F(ToolStackTest, aToolOnTwoStacksReportsToTheLaterAndLosesThatWithTheFirstPop)
{
    const auto second = std::make_shared<RecordingStack>();
    const Tool tool = push(eToolButtonLeft, "t");
    second->pushTool(eToolButtonLeft, tool);
    EXPECT_TRUE(tool->isActive());
    EXPECT_EQ(tool->getDelegate(), second.get());
    EXPECT_EQ(stack->popTool(eToolButtonLeft), tool);
    EXPECT_EQ(second->takeEvents(), QLatin1String("deactivated(t)"));
    EXPECT_EQ(tool->getDelegate(), nullptr);
    EXPECT_EQ(second->getTool(eToolButtonLeft), tool);
    EXPECT_EQ(second->popTool(eToolButtonLeft), tool);
}

TEST_F(ToolStackTest, aToolOnTwoButtonsComesOffEachOnce)
{
    const Tool tool = push(eToolButtonLeft, "t");
    stack->pushTool(eToolButtonRight, tool);
    tool->startOperation();
    EXPECT_TRUE(tool->isOperating());
    tool->endOperation();
    EXPECT_EQ(stack->popTool(eToolButtonLeft), tool);
    EXPECT_EQ(tool->getDelegate(), nullptr);
    EXPECT_EQ(stack->popTool(eToolButtonRight), tool);
    EXPECT_EQ(stack->popTool(eToolButtonRight), nullptr);
}

TEST_F(ToolStackTest, aToolThatIsPushedOverItselfComesOffTwice)
{
    const Tool tool = push(eToolButtonLeft, "t");
    stack->pushTool(eToolButtonLeft, tool);
    EXPECT_EQ(stack->takeEvents(), QLatin1String("activated(t) suspended(t)"));
    EXPECT_EQ(stack->popTool(eToolButtonLeft), tool);
    EXPECT_TRUE(tool->isActive());
    EXPECT_EQ(stack->getTool(eToolButtonLeft), tool);
    EXPECT_EQ(stack->popTool(eToolButtonLeft), tool);
    EXPECT_TRUE(stack->isEmpty(eToolButtonLeft));
    EXPECT_EQ(tool->state(), QLatin1String("inactive"));
}

TEST_F(ToolStackTest, aToolMayPopItselfWhenItIsActivated)
{
    stack->react("activated(t)", [this] { stack->popTool(eToolButtonLeft); });
    const std::weak_ptr<TestTool> guard = push(eToolButtonLeft, "t");
    EXPECT_TRUE(guard.expired());
    EXPECT_TRUE(stack->isEmpty(eToolButtonLeft));
}

TEST_F(ToolStackTest, aToolMayPopItselfWhenItIsDeactivated)
{
    const Tool below = push(eToolButtonLeft, "below");
    push(eToolButtonLeft, "above");
    forget();
    stack->react("deactivated(above)", [this] { stack->popTool(eToolButtonLeft); });
    stack->popTool(eToolButtonLeft);
    EXPECT_EQ(stack->getTool(eToolButtonLeft), below);
    EXPECT_TRUE(below->isActive());
    EXPECT_EQ(stack->takeEvents(), QLatin1String("deactivated(above) resumed(below)"));
}

TEST_F(ToolStackTest, aToolMayPopItselfWhenItIsSuspended)
{
    const Tool lowest = push(eToolButtonLeft, "lowest");
    const Tool middle = push(eToolButtonLeft, "middle");
    forget();
    stack->react("suspended(middle)", [this] { stack->popTool(eToolButtonLeft); });
    const Tool top = push(eToolButtonLeft, "top");
    EXPECT_EQ(stack->takeEvents(),
              QLatin1String("suspended(middle) resumed(lowest) suspended(lowest) activated(top)"));
    EXPECT_TRUE(lowest->isSuspended());
    EXPECT_EQ(middle->getDelegate(), nullptr);
    EXPECT_EQ(stack->popTool(eToolButtonLeft), top);
    EXPECT_EQ(stack->popTool(eToolButtonLeft), lowest);
}

TEST_F(ToolStackTest, aToolMayPopItselfWhenItBeginsAndWhenItEnds)
{
    const Tool left = push(eToolButtonLeft, "left");
    Tool right = push(eToolButtonRight, "right");
    stack->react("began(right)", [this] { stack->popTool(eToolButtonRight); });
    right->startOperation();
    EXPECT_TRUE(stack->isEmpty(eToolButtonRight));
    EXPECT_TRUE(right->isOperating());
    right = push(eToolButtonRight, "right");
    stack->react("ended(right)", [this] { stack->popTool(eToolButtonRight); });
    right->startOperation();
    right->endOperation();
    EXPECT_TRUE(stack->isEmpty(eToolButtonRight));
    EXPECT_TRUE(left->isActive());
}

TEST_F(ToolStackTest, aToolMayPushAnotherWhenItIsActivated)
{
    Tool helper;
    stack->react("activated(t)", [&] { helper = push(eToolButtonLeft, "helper"); });
    const Tool tool = push(eToolButtonLeft, "t");
    EXPECT_TRUE(tool->isSuspended());
    EXPECT_EQ(stack->getTool(eToolButtonLeft), helper);
    EXPECT_TRUE(helper->isActive());
}

TEST_F(ToolStackTest, aToolMayPushAnotherWhenItIsSuspended)
{
    push(eToolButtonLeft, "lowest");
    Tool helper;
    stack->react("suspended(lowest)", [&] { helper = push(eToolButtonLeft, "helper"); });
    const Tool top = push(eToolButtonLeft, "top");
    EXPECT_TRUE(helper->isSuspended());
    EXPECT_TRUE(top->isActive());
    EXPECT_EQ(stack->popTool(eToolButtonLeft), top);
    EXPECT_EQ(stack->popTool(eToolButtonLeft), helper);
}

TEST_F(ToolStackTest, anObserverThatPushesAtEverySuspensionDoesNotKeepThePushForEver)
{
    class Stubborn : public ToolStack
    {
    public:
        void toolSuspended(InteractiveTool *) override
        {
            ++suspensions;
            pushTool(eToolButtonLeft, std::make_shared<TestTool>());
        }
        int suspensions = 0;
    };
    const auto stubborn = std::make_shared<Stubborn>();
    stubborn->pushTool(eToolButtonLeft, makeTool("first"));
    const Tool last = makeTool("last");
    stubborn->pushTool(eToolButtonLeft, last);
    EXPECT_EQ(stubborn->getTool(eToolButtonLeft), last);
    EXPECT_EQ(stubborn->suspensions, 2);
}

TEST_F(ToolStackTest, aToolMayPushAnotherWhenItIsDeactivated)
{
    const Tool below = push(eToolButtonLeft, "below");
    const Tool above = push(eToolButtonLeft, "above");
    Tool follower;
    stack->react("deactivated(above)", [&] { follower = push(eToolButtonLeft, "follower"); });
    EXPECT_EQ(stack->popTool(eToolButtonLeft), above);
    EXPECT_EQ(stack->getTool(eToolButtonLeft), follower);
    EXPECT_TRUE(follower->isActive());
    EXPECT_TRUE(below->isSuspended());
    EXPECT_EQ(above->getDelegate(), nullptr);
    stack->popTool(eToolButtonLeft);
    EXPECT_EQ(stack->getTool(eToolButtonLeft), below);
}

TEST_F(ToolStackTest, aToolThatIsPushedAgainWhileItIsPoppedStaysWithTheStack)
{
    for (const char *event : {"deactivated(above)", "resumed(below)"}) {
        SCOPED_TRACE(event);
        stack->clearTools();
        push(eToolButtonLeft, "below");
        const Tool above = push(eToolButtonLeft, "above");
        stack->react(event, [&] { stack->pushTool(eToolButtonRight, above); });
        EXPECT_EQ(stack->popTool(eToolButtonLeft), above);
        EXPECT_EQ(stack->getTool(eToolButtonRight), above);
        EXPECT_TRUE(above->isActive());
        EXPECT_EQ(above->getDelegate(), stack.get());
    }
}

TEST_F(ToolStackTest, theToolsMayBeClearedFromWithinAnyCallback)
{
    const auto clear = [this] { stack->clearTools(); };
    stack->react("activated(t)", clear);
    push(eToolButtonLeft, "t");
    EXPECT_TRUE(stack->isEmpty(eToolButtonLeft));
    push(eToolButtonLeft, "t");
    stack->react("suspended(t)", clear);
    const Tool second = push(eToolButtonLeft, "second");
    EXPECT_EQ(stack->getTool(eToolButtonLeft), second);
    stack->react("deactivated(second)", clear);
    EXPECT_EQ(stack->popTool(eToolButtonLeft), second);
    push(eToolButtonLeft, "below");
    push(eToolButtonLeft, "above");
    stack->react("resumed(below)", clear);
    EXPECT_EQ(TestTool::nameOf(stack->popTool(eToolButtonLeft).get()), QLatin1String("above"));
    push(eToolButtonLeft, "left");
    const Tool right = push(eToolButtonRight, "right");
    stack->react("suspended(left)", clear);
    right->startOperation();
    EXPECT_TRUE(stack->isEmpty(eToolButtonLeft));
}

TEST_F(ToolStackTest, mayDieInACallbackOfItsTools)
{
    for (const char *event :
         {"suspended(below)", "activated(above)", "deactivated(above)", "resumed(below)"}) {
        SCOPED_TRACE(event);
        stack = std::make_shared<RecordingStack>();
        RecordingStack *const bare = stack.get();
        const std::weak_ptr<ToolStack> guard = stack;
        push(eToolButtonLeft, "below");
        stack->react(event, [this] { stack.reset(); });
        bare->pushTool(eToolButtonLeft, makeTool("above"));
        if (!guard.expired())
            bare->popTool(eToolButtonLeft);
        EXPECT_TRUE(guard.expired());
    }
}

TEST_F(ToolStackTest, aToolThatDiesMayAskTheStack)
{
    Tool tool = push(eToolButtonLeft, "t");
    QString found;
    tool->onDeath = [this, &found] {
        found = TestTool::nameOf(stack->getTool(eToolButtonLeft).get());
        EXPECT_TRUE(stack->isEmpty(eToolButtonLeft));
    };
    tool.reset();
    stack->clearTools();
    EXPECT_EQ(found, QLatin1String("unknown"));
}

TEST_F(ToolStackTest, aStackThatNobodyOwnsIsAdoptedByThePush)
{
    class Mortal : public ToolStack
    {
    public:
        explicit Mortal(bool &deadFlag)
            : dead(deadFlag)
        { }
        ~Mortal() override { dead = true; }
        bool &dead;
    };
    bool dead = false;
    (new Mortal(dead))->pushTool(eToolButtonLeft, makeTool("t"));
    EXPECT_TRUE(dead);
}

TEST_F(ToolStackTest, theOrderOfTheOperationsStays)
{
    using S = ToolStack;
    EXPECT_TRUE(areInFollowingSlots(&S::clearTools, &S::pushTool, &S::popTool, &S::getTool,
                                    &S::getOperatingTool));
    EXPECT_TRUE(isVirtual(&S::clearTools));
    EXPECT_FALSE(isVirtual(&S::isEmpty) || isVirtual(&S::resetTools));
}

} // namespace
