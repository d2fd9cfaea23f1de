// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "core/broadcaster.h"

#include "greetprotocol.h"
#include "support/eventloop.h"
#include "support/virtualorder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <atomic>
#include <cstring>
#include <new>
#include <thread>
#include <type_traits>

using Lumo::Test::runLoopUntil;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::StartsWith;

namespace {

using Greeter = Tessel::Broadcaster<GreetProtocol>;

static_assert(std::is_default_constructible_v<Greeter>);
static_assert(std::has_virtual_destructor_v<Greeter>);
static_assert(!std::is_copy_constructible_v<Greeter>);
static_assert(!std::is_move_constructible_v<Greeter>);
static_assert(!std::is_copy_assignable_v<Greeter>);

/// Counts the blocks that are not given back; make_shared's block lives as long as its last weak
/// entry.
template<typename T>
struct CountingAllocator
{
    using value_type = T;

    explicit CountingAllocator(int &to)
        : blocks(&to)
    { }
    template<typename U>
    CountingAllocator(const CountingAllocator<U> &other)
        : blocks(other.blocks)
    { }
    T *allocate(std::size_t n)
    {
        ++*blocks;
        return std::allocator<T>().allocate(n);
    }
    void deallocate(T *memory, std::size_t n)
    {
        --*blocks;
        std::allocator<T>().deallocate(memory, n);
    }

    int *blocks;
};

TEST(BroadcasterOperations, standInTheirOrder)
{
    using Shared = const std::shared_ptr<GreetProtocol> &;
    EXPECT_TRUE(Lumo::Test::standInThisOrder(
        static_cast<void (Greeter::*)(GreetProtocol *)>(&Greeter::addObserver),
        static_cast<void (Greeter::*)(Shared, bool)>(&Greeter::addObserver),
        static_cast<void (Greeter::*)(GreetProtocol *)>(&Greeter::removeObserver),
        static_cast<void (Greeter::*)(Shared)>(&Greeter::removeObserver),
        &Greeter::removeAllObservers));
}

class Broadcaster : public testing::Test
{
protected:
    std::shared_ptr<Listener> add(bool onMainQueue, const std::string &name)
    {
        auto listener = std::make_shared<Listener>(journal, name);
        greeter.addObserver(listener, onMainQueue);
        return listener;
    }

    void greet(const QString &name = QStringLiteral("you"))
    {
        greeter.broadcast(&GreetProtocol::greeted, name);
    }

    TestApplication application;
    Listener::Journal journal;
    QObject parent;
    Greeter greeter;
};

TEST_F(Broadcaster, directObserversAreCalledWithinTheCallInOrder)
{
    const auto first = add(false, "first");
    const auto second = add(false, "second");
    greet();
    EXPECT_THAT(journal, ElementsAre("first:you", "second:you"));
}

TEST_F(Broadcaster, mainQueueObserversAreCalledLaterQObjectsFirst)
{
    const auto queued = add(true, "queued");
    const auto direct = add(false, "direct");
    ObjectListener object(journal, &parent);
    greeter.addObserver(&object);
    greet();
    EXPECT_THAT(journal, ElementsAre("direct:you"));
    QCoreApplication::processEvents();
    EXPECT_THAT(journal, ElementsAre("direct:you", "object:you", "queued:you"));
}

TEST_F(Broadcaster, mainQueueObserversKeepTheOrderOfRegistration)
{
    const auto first = add(true, "first");
    ObjectListener third(journal, &parent, "third");
    ObjectListener fourth(journal, &parent, "fourth");
    greeter.addObserver(&third);
    const auto second = add(true, "second");
    greeter.addObserver(&fourth);
    greet();
    QCoreApplication::processEvents();
    EXPECT_THAT(journal, ElementsAre("third:you", "fourth:you", "first:you", "second:you"));
}

TEST_F(Broadcaster, eachObserverIsCalledOnItsThread)
{
    const auto direct = add(false, "direct");
    const auto queued = add(true, "queued");
    ObjectListener object(journal, &parent);
    greeter.addObserver(&object);
    QThread *broadcastingThread = nullptr;
    std::thread([&] {
        broadcastingThread = QThread::currentThread();
        greet();
    }).join();
    ASSERT_TRUE(runLoopUntil([&] { return journal.size() == 3; }));
    EXPECT_EQ(direct->thread, broadcastingThread);
    EXPECT_EQ(queued->thread, QThread::currentThread());
    EXPECT_EQ(object.Listener::thread, QThread::currentThread());
}

TEST_F(Broadcaster, aBroadcastWithoutObserversDoesNothing)
{
    greet();
    QCoreApplication::processEvents();
    EXPECT_THAT(journal, IsEmpty());
}

TEST_F(Broadcaster, aBroadcastWithoutObserversPostsItsClosureToo)
{
    class WakeUps : public QObject
    {
    public:
        bool eventFilter(QObject *, QEvent *event) override
        {
            count += event->type() == QEvent::User ? 1 : 0;
            return false;
        }
        int count = 0;
    };
    WakeUps wakeUps;
    QCoreApplication::instance()->installEventFilter(&wakeUps);
    greet();
    QCoreApplication::processEvents();
    EXPECT_EQ(wakeUps.count, 1);
}

TEST_F(Broadcaster, anObserverAddedTwiceIsCalledTwiceAndRemovedAtOnce)
{
    const auto listener = add(false, "direct");
    greeter.addObserver(listener, false);
    greet();
    EXPECT_EQ(journal.size(), 2u);
    greeter.removeObserver(listener);
    greet();
    EXPECT_EQ(journal.size(), 2u);
}

TEST_F(Broadcaster, removingLeavesOtherObserversOfTheSameOwner)
{
    struct Pair
    {
        explicit Pair(Listener::Journal &to)
            : leaves(to, "leaves")
            , stays(to, "stays")
        { }
        Listener leaves;
        Listener stays;
    };
    const auto pair = std::make_shared<Pair>(journal);
    const std::shared_ptr<Listener> leaves(pair, &pair->leaves);
    const std::shared_ptr<Listener> stays(pair, &pair->stays);
    greeter.addObserver(leaves, false);
    greeter.addObserver(stays, false);
    greeter.removeObserver(leaves);
    greet();
    EXPECT_THAT(journal, ElementsAre("stays:you"));
}

TEST_F(Broadcaster, removingTakesAnObserverOutOfBothSharedLists)
{
    const auto listener = add(false, "both");
    greeter.addObserver(listener, true);
    greeter.removeObserver(listener);
    greet();
    QCoreApplication::processEvents();
    EXPECT_THAT(journal, IsEmpty());
}

TEST_F(Broadcaster, removingAQObjectTakesAllItsEntriesAndLeavesTheOthers)
{
    ObjectListener leaves(journal, &parent, "leaves");
    ObjectListener stays(journal, &parent, "stays");
    greeter.addObserver(&leaves);
    greeter.addObserver(&stays);
    greeter.addObserver(&leaves);
    greeter.removeObserver(&leaves);
    greet();
    QCoreApplication::processEvents();
    EXPECT_THAT(journal, ElementsAre("stays:you"));
}

TEST_F(Broadcaster, removeAllObserversEmptiesEveryList)
{
    const auto direct = add(false, "direct");
    const auto queued = add(true, "queued");
    ObjectListener object(journal, &parent);
    greeter.addObserver(&object);
    greeter.removeAllObservers();
    greet();
    QCoreApplication::processEvents();
    EXPECT_THAT(journal, IsEmpty());
}

TEST_F(Broadcaster, everyChangeBetweenTwoBroadcastsIsHeardOf)
{
    const auto first = add(false, "first");
    const auto second = add(true, "second");
    ObjectListener object(journal, &parent);
    const auto heardNow = [&] {
        journal.clear();
        greet();
        QCoreApplication::processEvents();
        return journal.size();
    };
    EXPECT_EQ(heardNow(), 2u);
    const auto third = add(false, "third");
    EXPECT_EQ(heardNow(), 3u);
    const auto fourth = add(true, "fourth");
    EXPECT_EQ(heardNow(), 4u);
    greeter.addObserver(&object);
    EXPECT_EQ(heardNow(), 5u);
    greeter.removeObserver(&object);
    EXPECT_EQ(heardNow(), 4u);
    greeter.removeObserver(third);
    EXPECT_EQ(heardNow(), 3u);
    greeter.removeObserver(second);
    EXPECT_EQ(heardNow(), 2u);
    greeter.removeAllObservers();
    EXPECT_EQ(heardNow(), 0u);
}

// What a broadcast remembers must not outlive the entries: the block of make_shared does not.
TEST_F(Broadcaster, removingObserversLetsGoOfThemAtOnce)
{
    int blocks = 0;
    const auto makeCounted = [&] {
        return std::allocate_shared<Listener>(CountingAllocator<Listener>(blocks), journal);
    };
    auto direct = makeCounted();
    auto queued = makeCounted();
    greeter.addObserver(direct, false);
    greeter.addObserver(queued, true);
    greet();
    QCoreApplication::processEvents();
    greeter.removeAllObservers();
    direct.reset();
    queued.reset();
    EXPECT_EQ(blocks, 0);
}

TEST_F(Broadcaster, noObserverIsKeptAlive)
{
    const std::weak_ptr<Listener> direct = add(false, "direct");
    const std::weak_ptr<Listener> queued = add(true, "queued");
    EXPECT_TRUE(direct.expired());
    EXPECT_TRUE(queued.expired());
}

TEST_F(Broadcaster, deadObserversAreSkipped)
{
    auto direct = add(false, "direct");
    auto queued = add(true, "queued");
    auto object = std::make_unique<ObjectListener>(journal, &parent);
    greeter.addObserver(object.get());
    direct.reset();
    queued.reset();
    object.reset();
    greet();
    QCoreApplication::processEvents();
    EXPECT_THAT(journal, IsEmpty());
}

TEST_F(Broadcaster, observersThatDieBetweenBroadcastAndDeliveryAreSkipped)
{
    auto queued = add(true, "queued");
    auto object = std::make_unique<ObjectListener>(journal, &parent);
    greeter.addObserver(object.get());
    const auto survivor = add(true, "survivor");
    greet();
    queued.reset();
    object.reset();
    QCoreApplication::processEvents();
    EXPECT_THAT(journal, ElementsAre("survivor:you"));
}

TEST_F(Broadcaster, theEntryOfADeadObserverGoesAtTheNextBroadcast)
{
    for (const bool onMainQueue : {false, true}) {
        int blocks = 0;
        auto listener =
            std::allocate_shared<Listener>(CountingAllocator<Listener>(blocks), journal);
        greeter.addObserver(listener, onMainQueue);
        greet();
        QCoreApplication::processEvents();
        listener.reset();
        EXPECT_EQ(blocks, 1);
        greet();
        QCoreApplication::processEvents();
        EXPECT_EQ(blocks, 0);
    }
}

TEST_F(Broadcaster, theClosureOutlivesTheBroadcaster)
{
    auto shortLived = std::make_unique<Greeter>();
    const auto queued = std::make_shared<Listener>(journal, "queued");
    shortLived->addObserver(queued, true);
    shortLived->broadcast(&GreetProtocol::greeted, QStringLiteral("you"));
    shortLived.reset();
    QCoreApplication::processEvents();
    EXPECT_THAT(journal, ElementsAre("queued:you"));
}

TEST_F(Broadcaster, argumentsAreCopiedIntoTheClosure)
{
    const auto queued = add(true, "queued");
    QString name = QStringLiteral("before");
    greeter.broadcast(&GreetProtocol::greetedByReference, name);
    name = QStringLiteral("after");
    QCoreApplication::processEvents();
    EXPECT_THAT(journal, ElementsAre("queued:before"));
}

TEST_F(Broadcaster, anObserverMayChangeItsArgumentWithoutTouchingTheOthers)
{
    class Shouts : public GreetProtocol
    {
    public:
        void greeted(QString name) override { name[0] = QLatin1Char('!'); }
    };
    for (const bool onMainQueue : {false, true}) {
        journal.clear();
        const auto shouts = std::make_shared<Shouts>();
        greeter.addObserver(shouts, onMainQueue);
        const auto listener = add(onMainQueue, "listener");
        greet();
        QCoreApplication::processEvents();
        EXPECT_THAT(journal, ElementsAre("listener:you"));
        greeter.removeAllObservers();
    }
}

TEST_F(Broadcaster, anObserverThatRemovesItselfIsNotCalledAgain)
{
    const auto direct = add(false, "direct");
    direct->onGreeted = [&] { greeter.removeObserver(direct); };
    const auto queued = add(true, "queued");
    queued->onGreeted = [&] { greeter.removeObserver(queued); };
    ObjectListener object(journal, &parent);
    object.onGreeted = [&] { greeter.removeObserver(&object); };
    greeter.addObserver(&object);
    greet();
    QCoreApplication::processEvents();
    EXPECT_EQ(journal.size(), 3u);
    greet();
    QCoreApplication::processEvents();
    EXPECT_EQ(journal.size(), 3u);
}

TEST_F(Broadcaster, changesDuringABroadcastApplyToLaterOnes)
{
    const auto first = add(false, "first");
    const auto second = add(false, "second");
    const auto third = std::make_shared<Listener>(journal, "third");
    first->onGreeted = [&] {
        greeter.removeObserver(second);
        greeter.addObserver(third, false);
    };
    greet();
    EXPECT_THAT(journal, ElementsAre("first:you", "second:you"));
    journal.clear();
    first->onGreeted = nullptr;
    greet();
    EXPECT_THAT(journal, ElementsAre("first:you", "third:you"));
}

TEST_F(Broadcaster, anObserverThatDiesDuringTheBroadcastIsNotCalled)
{
    const auto first = add(false, "first");
    auto second = add(false, "second");
    first->onGreeted = [&] { second.reset(); };
    greet();
    EXPECT_THAT(journal, ElementsAre("first:you"));
}

TEST_F(Broadcaster, aDirectObserverIsKeptAliveDuringItsCall)
{
    auto listener = add(false, "direct");
    bool aliveInside = false;
    const std::weak_ptr<Listener> watch = listener;
    listener->onGreeted = [&] {
        listener.reset();
        aliveInside = !watch.expired();
    };
    greet();
    EXPECT_TRUE(aliveInside);
    EXPECT_TRUE(watch.expired());
}

TEST_F(Broadcaster, anObserverMayDestroyTheBroadcaster)
{
    alignas(Greeter) unsigned char memory[sizeof(Greeter)];
    auto *const shortLived = new (memory) Greeter;
    const auto first = std::make_shared<Listener>(journal, "first");
    auto second = std::make_shared<Listener>(journal, "second");
    const auto third = std::make_shared<Listener>(journal, "third");
    for (const auto &listener : {first, second, third})
        shortLived->addObserver(listener, false);
    first->onGreeted = [&] {
        shortLived->~Greeter();
        // Whoever touches it now finds no list and no mutex.
        std::memset(memory, 0xff, sizeof memory);
        second.reset();
    };
    shortLived->broadcast(&GreetProtocol::greeted, QStringLiteral("you"));
    EXPECT_THAT(journal, ElementsAre("first:you", "third:you"));
}

TEST_F(Broadcaster, broadcastsNest)
{
    const auto outer = add(false, "outer");
    outer->onGreeted = [&] {
        outer->onGreeted = nullptr;
        greet(QStringLiteral("inner"));
    };
    greet(QStringLiteral("outer"));
    EXPECT_THAT(journal, ElementsAre("outer:outer", "outer:inner"));
}

TEST_F(Broadcaster, anExceptionOfADirectObserverReachesTheCallerAfterThePost)
{
    const auto throws = add(false, "throws");
    throws->onGreeted = [] { throw std::runtime_error("observer"); };
    const auto queued = add(true, "queued");
    EXPECT_THROW(greet(), std::runtime_error);
    QCoreApplication::processEvents();
    EXPECT_THAT(journal, ElementsAre("throws:you", "queued:you"));
}

TEST_F(Broadcaster, nullObserversAreIgnored)
{
    greeter.addObserver(nullptr);
    greeter.removeObserver(nullptr);
    greeter.addObserver(std::shared_ptr<GreetProtocol>(), true);
    greeter.addObserver(std::shared_ptr<GreetProtocol>(), false);
    greeter.removeObserver(std::shared_ptr<GreetProtocol>());
    greet();
    QCoreApplication::processEvents();
    EXPECT_THAT(journal, IsEmpty());
}

template<typename Action>
std::string messageOfInvalidArgument(const Action &action)
{
    try {
        action();
    } catch (const std::invalid_argument &error) {
        return error.what();
    }
    return "nothing was thrown";
}

TEST_F(Broadcaster, aPlainPointerHasToBeAQObject)
{
    Listener listener(journal);
    const std::string text = std::string(typeid(Listener).name())
        + " needs to be a QObject with its lifetime managed by its parent!";
    EXPECT_EQ(messageOfInvalidArgument([&] { greeter.addObserver(&listener); }), text);
    EXPECT_EQ(messageOfInvalidArgument([&] { greeter.removeObserver(&listener); }), text);
}

TEST_F(Broadcaster, anOrphanQObjectCanBeAddedButNotRemoved)
{
    ObjectListener orphan(journal, nullptr);
    greeter.addObserver(&orphan);
    EXPECT_EQ(messageOfInvalidArgument([&] { greeter.removeObserver(&orphan); }),
              std::string(typeid(ObjectListener).name())
                  + " needs to be a QObject with its lifetime managed by its parent!");
    orphan.setParent(&parent);
    greeter.removeObserver(&orphan);
    greet();
    QCoreApplication::processEvents();
    EXPECT_THAT(journal, IsEmpty());
}

TEST_F(Broadcaster, removingAnUnknownObserverDoesNothing)
{
    const auto stays = add(false, "stays");
    ObjectListener object(journal, &parent);
    greeter.removeObserver(&object);
    greeter.removeObserver(std::make_shared<Listener>(journal));
    greet();
    EXPECT_THAT(journal, ElementsAre("stays:you"));
}

// While an object is being destroyed it is no longer the observer that it was.
TEST_F(Broadcaster, aQObjectInItsBaseDestructorIsNotCalled)
{
    class DeliversInDestructor : public QObject
    {
    public:
        using QObject::QObject;
        ~DeliversInDestructor() override { QCoreApplication::processEvents(); }
    };
    class Dying : public DeliversInDestructor, public Listener
    {
    public:
        Dying(Journal &to, QObject *owner)
            : DeliversInDestructor(owner)
            , Listener(to, "dying")
        { }
    };
    auto dying = std::make_unique<Dying>(journal, &parent);
    greeter.addObserver(dying.get());
    greet();
    GreetProtocol::unheard = 0;
    dying.reset();
    EXPECT_THAT(journal, IsEmpty());
    EXPECT_EQ(GreetProtocol::unheard, 0);
}

TEST_F(Broadcaster, aQObjectMayRegisterInItsConstructor)
{
    class Registers : public QObject, public Listener
    {
    public:
        Registers(Greeter &with, Journal &to, QObject *owner)
            : QObject(owner)
            , Listener(to, "base")
        {
            with.addObserver(this);
        }
    };
    class Derived : public Registers
    {
    public:
        using Registers::Registers;
        void greeted(QString) override { journal.push_back("derived"); }
    };
    Derived derived(greeter, journal, &parent);
    greet();
    QCoreApplication::processEvents();
    EXPECT_THAT(journal, ElementsAre("derived"));
}

TEST_F(Broadcaster, resultsAreCollectedInTheOrderOfTheLists)
{
    const auto direct = add(false, "direct");
    direct->weight = 3;
    const auto queued = add(true, "queued");
    queued->weight = 2;
    ObjectListener object(journal, &parent);
    greeter.addObserver(&object);
    EXPECT_THAT(greeter.broadcast(&GreetProtocol::count, 10), ElementsAre(10, 20, 30));
}

TEST_F(Broadcaster, resultsOfMainThreadObserversAreWaitedForFromAnotherThread)
{
    const auto queued = add(true, "queued");
    queued->weight = 2;
    std::atomic<bool> done {false};
    std::vector<int> results;
    std::thread worker([&] {
        results = greeter.broadcast(&GreetProtocol::count, 10);
        done = true;
    });
    const bool finished = runLoopUntil([&] { return done.load(); });
    worker.join();
    ASSERT_TRUE(finished);
    EXPECT_THAT(results, ElementsAre(20));
}

TEST_F(Broadcaster, withoutObserversThereAreNoResults)
{
    EXPECT_THAT(greeter.broadcast(&GreetProtocol::mayLeave), IsEmpty());
}

TEST(BroadcasterWithoutApplication, directObserversAreStillCalled)
{
    Listener::Journal journal;
    Greeter greeter;
    const auto direct = std::make_shared<Listener>(journal, "direct");
    const auto queued = std::make_shared<Listener>(journal, "queued");
    greeter.addObserver(direct, false);
    greeter.addObserver(queued, true);
    greeter.broadcast(&GreetProtocol::greeted, QStringLiteral("you"));
    EXPECT_THAT(journal, ElementsAre("direct:you"));
}

} // namespace
