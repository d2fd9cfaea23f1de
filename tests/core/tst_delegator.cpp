// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "core/delegator.h"

#include "greetprotocol.h"
#include "support/virtualorder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using testing::ElementsAre;

namespace {

class Greeter : public Tessel::Delegator<GreetProtocol>
{
public:
    void greet() { delegate(&GreetProtocol::greeted, QStringLiteral("you")); }
    std::vector<int> count() { return delegate(&GreetProtocol::count, 7); }
};

TEST(DelegatorOperations, standInTheirOrderBehindThoseOfTheBroadcaster)
{
    using Base = Tessel::Delegator<GreetProtocol>;
    using Shared = const std::shared_ptr<GreetProtocol> &;
    static_assert(sizeof(Base) == sizeof(Tessel::Broadcaster<GreetProtocol>));
    EXPECT_TRUE(Lumo::Test::standInThisOrder(
        &Base::removeAllObservers, static_cast<void (Base::*)(Shared, bool)>(&Base::setDelegate),
        static_cast<void (Base::*)(GreetProtocol *)>(&Base::setDelegate)));
}

class Delegator : public testing::Test
{
protected:
    std::shared_ptr<Listener> makeListener(const std::string &name = "delegate")
    {
        return std::make_shared<Listener>(journal, name);
    }

    TestApplication application;
    Listener::Journal journal;
    QObject parent;
    Greeter greeter;
};

TEST_F(Delegator, theDelegateIsCalledAsItAskedFor)
{
    const auto direct = makeListener();
    greeter.setDelegate(direct, false);
    greeter.greet();
    EXPECT_THAT(journal, ElementsAre("delegate:you"));
    const auto queued = makeListener("queued");
    greeter.setDelegate(queued, true);
    greeter.greet();
    EXPECT_EQ(journal.size(), 1u);
    QCoreApplication::processEvents();
    EXPECT_THAT(journal, ElementsAre("delegate:you", "queued:you"));
}

TEST_F(Delegator, aQObjectCanBeTheDelegate)
{
    ObjectListener object(journal, &parent);
    greeter.setDelegate(&object);
    EXPECT_EQ(greeter.getDelegate(), &object);
    greeter.greet();
    QCoreApplication::processEvents();
    EXPECT_THAT(journal, ElementsAre("object:you"));
}

TEST_F(Delegator, settingADelegateLeavesItAlone)
{
    const auto first = makeListener("first");
    const auto second = makeListener("second");
    ObjectListener third(journal, &parent, "third");
    greeter.addObserver(first, false);
    greeter.addObserver(second, true);
    greeter.addObserver(&third);
    const auto only = makeListener("only");
    greeter.setDelegate(only, false);
    greeter.greet();
    QCoreApplication::processEvents();
    EXPECT_THAT(journal, ElementsAre("only:you"));
}

TEST_F(Delegator, aNullDelegateLeavesNone)
{
    const auto first = makeListener();
    greeter.setDelegate(first, false);
    greeter.setDelegate(std::shared_ptr<GreetProtocol>(), false);
    EXPECT_EQ(greeter.getDelegate(), nullptr);
    greeter.setDelegate(first, false);
    greeter.setDelegate(static_cast<GreetProtocol *>(nullptr));
    EXPECT_EQ(greeter.getDelegate(), nullptr);
    greeter.greet();
    EXPECT_TRUE(journal.empty());
}

TEST_F(Delegator, withoutADelegateThereIsNone)
{
    EXPECT_EQ(greeter.getDelegate(), nullptr);
}

TEST_F(Delegator, aDelegateThatDiedIsNull)
{
    for (const bool onMainQueue : {false, true}) {
        auto listener = makeListener();
        greeter.setDelegate(listener, onMainQueue);
        EXPECT_EQ(greeter.getDelegate(), listener.get());
        listener.reset();
        EXPECT_EQ(greeter.getDelegate(), nullptr);
    }
    auto object = std::make_unique<ObjectListener>(journal, &parent);
    greeter.setDelegate(object.get());
    object.reset();
    EXPECT_EQ(greeter.getDelegate(), nullptr);
}

TEST_F(Delegator, withFurtherObserversTheFirstOfTheFirstListIsTheDelegate)
{
    const auto direct = makeListener();
    const auto queued = makeListener();
    const auto laterQueued = makeListener();
    ObjectListener object(journal, &parent);
    greeter.addObserver(direct, false);
    EXPECT_EQ(greeter.getDelegate(), direct.get());
    greeter.addObserver(queued, true);
    greeter.addObserver(laterQueued, true);
    EXPECT_EQ(greeter.getDelegate(), queued.get());
    greeter.addObserver(&object);
    EXPECT_EQ(greeter.getDelegate(), &object);
}

// The dead first entry answers for its list until a broadcast sweeps it out.
TEST_F(Delegator, aDeadEntryHidesTheNextOneUntilTheNextBroadcast)
{
    for (const bool onMainQueue : {false, true}) {
        auto dies = makeListener();
        const auto stays = makeListener();
        greeter.removeAllObservers();
        greeter.addObserver(dies, onMainQueue);
        greeter.addObserver(stays, onMainQueue);
        dies.reset();
        EXPECT_EQ(greeter.getDelegate(), nullptr);
        greeter.greet();
        EXPECT_EQ(greeter.getDelegate(), stays.get());
    }
}

TEST_F(Delegator, deadEntriesAreSweptBeforeTheFirstObserverIsCalled)
{
    auto dies = makeListener();
    const auto asks = makeListener();
    greeter.addObserver(dies, false);
    greeter.addObserver(asks, false);
    dies.reset();
    GreetProtocol *seen = nullptr;
    asks->onGreeted = [&] { seen = greeter.getDelegate(); };
    greeter.greet();
    EXPECT_EQ(seen, asks.get());
}

TEST_F(Delegator, resultsComeBackFromTheDelegate)
{
    const auto listener = makeListener();
    listener->weight = 3;
    greeter.setDelegate(listener, false);
    EXPECT_THAT(greeter.count(), ElementsAre(21));
}

TEST_F(Delegator, setDelegateGoesThroughTheVirtualOperations)
{
    class Watches : public Greeter
    {
    public:
        void removeAllObservers() override
        {
            calls.push_back("removeAll");
            Greeter::removeAllObservers();
        }
        void addObserver(GreetProtocol *observer) override
        {
            calls.push_back("add");
            Greeter::addObserver(observer);
        }
        void addObserver(const std::shared_ptr<GreetProtocol> &observer, bool onMainQueue) override
        {
            calls.push_back(onMainQueue ? "addQueued" : "addDirect");
            Greeter::addObserver(observer, onMainQueue);
        }
        std::vector<std::string> calls;
    };
    Watches watches;
    ObjectListener object(journal, &parent);
    watches.setDelegate(makeListener(), true);
    watches.setDelegate(makeListener(), false);
    watches.setDelegate(&object);
    EXPECT_THAT(
        watches.calls,
        ElementsAre("removeAll", "addQueued", "removeAll", "addDirect", "removeAll", "add"));
}

} // namespace
