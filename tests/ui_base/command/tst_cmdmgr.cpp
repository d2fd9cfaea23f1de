// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include <ui_base/CmdMgr>

#include "support/eventloop.h"
#include "support/recordingobservers.h"
#include "support/testcase.h"
#include "support/testmain.h"
#include "ui_base/command/commandbag.h"
#include "ui_base/command/commandgroup.h"
#include "ui_base/command/testcommand.h"

#include <QActionGroup>
#include <QDeadlineTimer>
#include <QSignalBlocker>

#include <algorithm>
#include <atomic>
#include <functional>
#include <new>
#include <stdexcept>
#include <thread>

using Lumo::Test::CommandRecorder;
using Lumo::Test::EventLog;
using Lumo::Test::ManagerRecorder;
using Lumo::Test::runLoopUntil;
using Lumo::Test::TestCommand;
using Vela::UiBase::CmdMgr;
using Vela::UiBase::CommandBag;
using Vela::UiBase::CommandBase;
using Vela::UiBase::CommandContext;
using Vela::UiBase::CommandGroup;
using Vela::UiBase::CommandState;
using Vela::UiBase::State;

namespace {

constexpr State::Action Off = State::Off;
constexpr State::Action On = State::On;
constexpr State::Action Keep = State::Keep;

const QString cut = QStringLiteral("cut");
const QString copy = QStringLiteral("copy");
const QString paste = QStringLiteral("paste");
const QString tag = QStringLiteral("edit");
const QString groupId = QStringLiteral("Vela::UiBase::CommandGroupEdit");

CommandContext contextOf(std::initializer_list<std::pair<QString, CommandState>> entries)
{
    CommandContext context;
    for (const auto &[id, state] : entries)
        context.overwrite(id, state);
    return context;
}

/// Holds a command that is no child of a group and that nobody owns by shared pointer.
class HoldingCommand : public TestCommand
{
public:
    HoldingCommand(const QString &id, const QString &heldId)
        : TestCommand(id)
        , held(heldId)
    { }

    CommandBase *getCommand(const QString &id) override
    {
        return id == held.commandId() ? &held : CommandBase::getCommand(id);
    }

    TestCommand held;
};

/// Serves the main queue until all that was posted before has run.
void servePosted()
{
    bool isServed = false;
    Tessel::dispatchAsync([&isServed] { isServed = true; }, Tessel::EQualityOfService::Main);
    QVERIFY(runLoopUntil([&isServed] { return isServed; }));
}

/// A command that can tell another id from one moment to the next.
class RenamedCommand : public TestCommand
{
public:
    using TestCommand::TestCommand;

    const QString commandId() const override { return objectName(); }
};

/// A group that offers the commands of another group as its own.
class BorrowingGroup : public CommandGroup
{
public:
    using CommandGroup::commandBag;
    using CommandGroup::CommandGroup;

    const CommandBag &commandBag() const override
    {
        return lender ? std::as_const(*lender).commandBag() : CommandGroup::commandBag();
    }

    CommandGroup *lender = nullptr;
};

/// Counts what it gives back, which for a shared object is when its last weak pointer has gone too.
template<typename T>
struct CountingAllocator
{
    using value_type = T;

    explicit CountingAllocator(int &count)
        : released(count)
    { }
    template<typename Other>
    CountingAllocator(const CountingAllocator<Other> &other)
        : released(other.released)
    { }

    T *allocate(std::size_t count) { return std::allocator<T>().allocate(count); }
    void deallocate(T *memory, std::size_t count)
    {
        std::allocator<T>().deallocate(memory, count);
        ++released;
    }

    int &released;
};

/// What a snapshot of the commands has to tell, found out in the plainest way.
CommandContext statesOf(const CommandBag &bag)
{
    CommandContext context;
    for (const auto &[id, command] : bag) {
        if (!command)
            continue;
        context.overwrite(command->commandId(), {command->isEnabled(), command->isChecked()});
        if (const auto *const group = dynamic_cast<const CommandGroup *>(command.get()))
            context |= statesOf(group->commandBag());
    }
    return context;
}

/// Answers what a manager announces with functions.
class ManagerReaction : public Vela::UiBase::CmdMgrProtocol
{
public:
    void commandAdded(CmdMgr *, CommandBase *command) override
    {
        if (added)
            added(command);
    }
    void commandRemoved(CmdMgr *, QString id) override
    {
        if (removed)
            removed(id);
    }

    std::function<void(CommandBase *)> added;
    std::function<void(const QString &)> removed;
};

/// Answers the begin of a run with a function.
class RunReaction : public Vela::UiBase::CommandStateProtocol
{
public:
    explicit RunReaction(std::function<void()> reaction)
        : m_reaction(std::move(reaction))
    { }
    void commandBeganExecuting(CommandBase *, bool) override { m_reaction(); }

private:
    std::function<void()> m_reaction;
};

class RunRecordingManager : public CmdMgr
{
public:
    using CmdMgr::applyContext;
    using CmdMgr::commandBag;

    void commandBeganExecuting(CommandBase *command, bool) override
    {
        runs << command->commandId();
    }
    QStringList runs;
};

using Change = std::function<void(RunRecordingManager &manager)>;

} // namespace

Q_DECLARE_METATYPE(Change)
using ManagerCall = std::function<void(Vela::UiBase::CmdMgr &)>;
Q_DECLARE_METATYPE(ManagerCall)

class TestCmdMgr : public Lumo::Test::TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void addedCommandIsOwnedMarkedAndAnnounced();
    void addingNullDoesNothing();
    void addingAnEmptyIdThrows();
    void addingTwiceAnnouncesNull();
    void addedCommandIsHeardOnce();
    void removedCommandIsAnnouncedAndLetGo();
    void removedCommandIsNotHeard();
    void removingAnUnknownCommand();
    void removingAllAnnouncesEach();
    void strangerOfAKnownIdTakesTheIdAway();
    void commandsOfOneIdAreBothHeld();
    void emptyAndUnknownIdsAreIgnored();
    void findsCommandsByTagInOrder();
    void runningCommandIsTheOneBetweenBeginAndEnd();
    void destructionLetsGoOfTheCommands();

    void whatWasAddedMayBeRemovedWhenItIsAnnounced();
    void groupMayBeRemovedWhileAnotherIsMergedIntoIt();
    void othersMayBeRemovedWhenOneLeaves();
    void managerMayDieInWhatItAnnounces_data();
    void managerMayDieInWhatItAnnounces();
    void controllerMayDieInWhatItAnnounces();

    void contextsTellTheStateOfAllCommands();
    void contextsByTagTellTheStateOfTheTagged();
    void contextsOfABagTellItsCommands();
    void currentContextOfAContextTellsItsIds();
    void activeContextsHoldCheckedCommandsOnly();
    void queriesFromAnotherThreadWaitForTheMainThread();
    void bagThatAThreadAsksAboutIsKeptAlive();

    void setContextAppliesLater();
    void contextIsNeverAppliedInsideTheCall_data();
    void contextIsNeverAppliedInsideTheCall();
    void observersMayPushAndPopDuringARun();
    void managerMayDieWhileAContextIsApplied();
    void managerMayDieInAContextThatIsAppliedWithinTheCall();
    void queriesOfManyThreadsWhileContextsAreApplied();
    void setContextSkipsUnknownIds();
    void setContextAppliesInOrderOfIds();
    void queryWhileAContextIsAppliedIsEmpty();
    void walkInsideAWalkLeavesTheOuterOneGoing();
    void pushWhileAContextIsAppliedDoesNothing();
    void popPutsBackTheStateOfBeforeThePush();
    void popUndoesOtherChangesToo();
    void pushBehindAPopRemembersWhatThatPutsBack();
    void contextsNest();
    void popWithoutAPushDoesNothing();
    void resetForgetsTheStackAndAppliesDefaults();
    void resetAsksTheCommandsForTheirDefaults();
    void updateInTheStackSurvivesThePop();
    void updateInTheStackStopsAtAMissingId();
    void saveAndRestoreReachTheCommandsLater();
    void postedWorkIsDroppedWithTheManager();
    void commandMayRemoveOthersWhileAContextIsApplied();

    void everyCommandOfAnIdGetsTheState();
    void commandThatFindsOthersItsOwnWayIsAsked();
    void commandAddedWhileAGroupIsAppliedIsSeen();

    void snapshotTellsEveryChange_data();
    void snapshotTellsEveryChange();
    void snapshotStaysAsItWasTaken();
    void snapshotOfRepeatedIdsTellsEveryChange();
    void snapshotCanBeReadWhileTheNextIsTaken();
    void contextByTagFollowsTheTags();
    void contextReachesWhatEveryChangeLeft_data();
    void contextReachesWhatEveryChangeLeft();
    void contextReachesRepeatedIdsInTheirNewOrder();
    void commandMovedFromTheTopIntoAGroupIsFoundThere();
    void groupWithABagOfAnothersIsAskedItself();
    void groupThatBorrowsItsOwnCommandIsAskedItself();
    void otherCommandAtTheSameAddressIsAsked_data();
    void otherCommandAtTheSameAddressIsAsked();
    void otherCommandOfTheSameOwnerIsReached();
    void commandsThatFindOthersAreAskedInOrder();
    void commandThatDiesInPlaceWhileAGroupIsAppliedIsLeftOut();
    void contextAppliedWhileAGroupIsAppliedLeavesTheOuterOneGoing();
    void contextMayChangeWhileItIsApplied();
    void commandsAreNotKeptAliveByWhatWasFound();
    void memoryOfARemovedCommandIsGivenBack();

    void groupIsHeardWithItsChildren();
    void groupTakesOverTopLevelCommands();
    void commandWhoseIdAGroupTakesIsLetGo();
    void groupOfATakenIdIsMerged();
    void sameGroupTwiceAnnouncesNull();
    void removedChildLeavesItsGroup();
    void removingTheLastChildRemovesTheGroup();
    void commandsThatWereRenamedAreRemoved();
    void findsTheGroupBeforeItsChildren();
    void contextsReachIntoGroups();
    void currentContextOfAGroupTellsItsChildren();
    void childEntryHasTheLastWordOverItsGroup();
    void inactiveContextDisablesGroupedCommands();
    void groupsAreSavedBeforeCommands();

private:
    void addChangeRows();
    void addPlainAndGrouped();
    TestCommand *add(const QString &id);
    static std::shared_ptr<CommandGroup> makeGroup(const QStringList &ids);

    std::shared_ptr<RunRecordingManager> m_manager;
    EventLog m_log;
    std::shared_ptr<ManagerRecorder> m_recorder;
};

void TestCmdMgr::init()
{
    TestCase::init();
    m_manager = std::make_shared<RunRecordingManager>();
    m_recorder = std::make_shared<ManagerRecorder>(m_log);
    m_manager->addObserver(m_recorder, false);
}

void TestCmdMgr::cleanup()
{
    m_manager.reset();
    m_log.take();
    TestCase::cleanup();
}

TestCommand *TestCmdMgr::add(const QString &id)
{
    auto *const command = new TestCommand(id);
    command->setCheckable(true);
    m_manager->addCommand(command);
    return command;
}

/// A group with the id groupId and checkable commands.
std::shared_ptr<CommandGroup> TestCmdMgr::makeGroup(const QStringList &ids)
{
    const auto group = std::make_shared<CommandGroup>(QString(), QString(), QStringLiteral("Edit"));
    for (const QString &id : ids) {
        auto *const command = new TestCommand(id);
        command->setCheckable(true);
        group->addCommand(command);
    }
    return group;
}

void TestCmdMgr::addedCommandIsOwnedMarkedAndAnnounced()
{
    auto *const command = new TestCommand(cut);
    QCOMPARE(m_manager->addCommand(command), command);
    QVERIFY(command->addedToCmdsVC());
    QCOMPARE(m_log.take(), QStringList(QStringLiteral("added(cut)")));
    QCOMPARE(m_recorder->lastManager, m_manager.get());
    QCOMPARE(m_manager->findCommand(cut), command);
    QCOMPARE(std::as_const(*m_manager).commandBag().size(), std::size_t(1));
    QCOMPARE(command->weak_from_this().use_count(), 1L);
}

void TestCmdMgr::addingNullDoesNothing()
{
    QCOMPARE(m_manager->addCommand(nullptr), nullptr);
    QVERIFY(m_log.events().isEmpty());
}

void TestCmdMgr::addingAnEmptyIdThrows()
{
    const auto command = std::make_unique<TestCommand>(QString());
    try {
        m_manager->addCommand(command.get());
        QFAIL("nothing was thrown");
    } catch (const std::runtime_error &error) {
        QCOMPARE(error.what(), "A command id must be defined (with the COMMAND_ID macro)!");
    }
    QVERIFY(!command->addedToCmdsVC());
    QVERIFY(m_log.events().isEmpty());
}

void TestCmdMgr::addingTwiceAnnouncesNull()
{
    TestCommand *const command = add(cut);
    m_log.take();
    QCOMPARE(m_manager->addCommand(command), nullptr);
    QCOMPARE(m_log.take(), QStringList(QStringLiteral("added(null)")));
    command->onExecute();
    QCOMPARE(m_manager->runs, QStringList(cut));
}

void TestCmdMgr::addedCommandIsHeardOnce()
{
    const auto command = std::make_shared<TestCommand>(cut);
    command->addObserver(m_manager, false);
    m_manager->addCommand(command.get());
    command->onExecute();
    QCOMPARE(m_manager->runs, QStringList(cut));
}

void TestCmdMgr::removedCommandIsAnnouncedAndLetGo()
{
    TestCommand *const command = add(cut);
    m_log.take();
    EventLog log = m_log;
    command->ended = [log]() mutable { log.add(QStringLiteral("dead")); };
    QVERIFY(m_manager->removeCommand(command));
    QCOMPARE(m_log.take(), QStringList({QStringLiteral("removed(cut)"), QStringLiteral("dead")}));
    QCOMPARE(m_manager->findCommand(cut), nullptr);
}

void TestCmdMgr::removedCommandIsNotHeard()
{
    const auto command = std::make_shared<TestCommand>(cut);
    m_manager->addCommand(command.get());
    QVERIFY(m_manager->removeCommand(cut));
    QVERIFY(!command->addedToCmdsVC());
    command->onExecute();
    QVERIFY(m_manager->runs.isEmpty());
}

void TestCmdMgr::removingAnUnknownCommand()
{
    QVERIFY(!m_manager->removeCommand(static_cast<CommandBase *>(nullptr)));
    QVERIFY(!m_manager->removeCommand(cut));
    QVERIFY(m_log.events().isEmpty());
    TestCommand stranger(cut);
    QVERIFY(m_manager->removeCommand(&stranger));
    QCOMPARE(m_log.take(), QStringList(QStringLiteral("removed(cut)")));
}

void TestCmdMgr::removingAllAnnouncesEach()
{
    add(cut);
    add(copy);
    m_log.take();
    m_manager->removeAllCommands();
    QCOMPARE(m_log.take(),
             QStringList({QStringLiteral("removed(cut)"), QStringLiteral("removed(copy)")}));
    QVERIFY(std::as_const(*m_manager).commandBag().empty());
}

void TestCmdMgr::strangerOfAKnownIdTakesTheIdAway()
{
    bool isDead = false;
    add(cut)->ended = [&isDead] { isDead = true; };
    add(copy);
    TestCommand stranger(cut);
    QVERIFY(m_manager->removeCommand(&stranger));
    QVERIFY(isDead);
    QCOMPARE(m_manager->findCommand(cut), nullptr);
    QVERIFY(m_manager->findCommand(copy));

    const auto group = makeGroup({cut, paste});
    m_manager->addCommand(group.get());
    QVERIFY(m_manager->removeCommand(&stranger));
    QCOMPARE(group->commandBag().size(), std::size_t(1));
    QCOMPARE(m_manager->findCommand(groupId), group.get());
}

void TestCmdMgr::commandsOfOneIdAreBothHeld()
{
    TestCommand *const first = add(cut);
    const auto second = std::make_shared<TestCommand>(cut);
    QCOMPARE(m_manager->addCommand(second.get()), second.get());
    QCOMPARE(m_manager->findCommand(cut), first);
    QCOMPARE(std::as_const(*m_manager).commandBag().size(), std::size_t(2));
    second->onExecute();
    QCOMPARE(m_manager->runs, QStringList(cut));
    QVERIFY(m_manager->removeCommand(first));
    QCOMPARE(m_manager->findCommand(cut), second.get());
    QVERIFY(m_manager->removeCommand(cut));
    QVERIFY(std::as_const(*m_manager).commandBag().empty());
}

void TestCmdMgr::emptyAndUnknownIdsAreIgnored()
{
    const TestCommand *const command = add(cut);
    m_log.take();
    QCOMPARE(m_manager->findCommand(QString()), nullptr);
    QVERIFY(!m_manager->removeCommand(QString()));
    QVERIFY(m_manager->findCommands(QString()).isEmpty());
    QVERIFY(m_manager->currentContext(QString()) == CommandContext());
    m_manager->pushContext(CommandContext());
    m_manager->updateContextInStack(paste, {Off, On});
    m_manager->updateContextInStack(QString(), {Off, On});
    m_manager->setContext(contextOf({{QString(), {Off, On}}, {paste, {Off, On}}}));
    m_manager->popContext();
    servePosted();
    QVERIFY(command->commandState() == CommandState(On, Off));
    QVERIFY(m_log.events().isEmpty());
}

void TestCmdMgr::findsCommandsByTagInOrder()
{
    TestCommand *const first = add(paste);
    add(copy);
    TestCommand *const second = add(cut);
    first->addTag(tag);
    second->addTag(tag.toUpper());
    QCOMPARE(m_manager->findCommands(tag), QVector<CommandBase *>({first, second}));
    QVERIFY(m_manager->findCommands(QStringLiteral("none")).isEmpty());

    CommandBag bag;
    auto *const other = new TestCommand(cut);
    other->addTag(tag);
    bag.addCommand(other);
    QCOMPARE(m_manager->findCommands(tag, &bag), QVector<CommandBase *>({other}));
}

void TestCmdMgr::runningCommandIsTheOneBetweenBeginAndEnd()
{
    using Vela::UiBase::CommandStateProtocol;
    TestCommand *const command = add(cut);
    QCOMPARE(m_manager->runningCommand(), nullptr);
    command->broadcast(&CommandStateProtocol::commandBegan, command);
    QCOMPARE(m_manager->runningCommand().get(), command);
    command->broadcast(&CommandStateProtocol::commandEnded, command);
    QCOMPARE(m_manager->runningCommand(), nullptr);

    command->broadcast(&CommandStateProtocol::commandBegan, command);
    m_manager->removeCommand(command);
    QCOMPARE(m_manager->runningCommand(), nullptr);

    m_manager->commandBegan(nullptr);
    TestCommand unowned(copy);
    m_manager->commandBegan(&unowned);
    QCOMPARE(m_manager->runningCommand(), nullptr);
}

void TestCmdMgr::destructionLetsGoOfTheCommands()
{
    bool isDead = false;
    add(cut)->ended = [&isDead] { isDead = true; };
    m_manager.reset();
    QVERIFY(isDead);
}

void TestCmdMgr::whatWasAddedMayBeRemovedWhenItIsAnnounced()
{
    const auto reaction = std::make_shared<ManagerReaction>();
    reaction->added = [this](CommandBase *command) { m_manager->removeCommand(command); };
    m_manager->addObserver(reaction, false);
    bool isDead = false;
    auto *const command = new TestCommand(cut);
    command->ended = [&isDead] { isDead = true; };
    QCOMPARE(m_manager->addCommand(command), nullptr);
    QVERIFY(isDead);

    const auto owned = std::make_shared<TestCommand>(copy);
    QCOMPARE(m_manager->addCommand(owned.get()), nullptr);
    owned->onExecute();
    QVERIFY(m_manager->runs.isEmpty());
    QVERIFY(!owned->addedToCmdsVC());
}

void TestCmdMgr::groupMayBeRemovedWhileAnotherIsMergedIntoIt()
{
    m_manager->addCommand(makeGroup({cut}).get());
    const auto handedIn = makeGroup({copy});
    // The action tells that it is in another group now.
    connect(handedIn->getCommand(copy), &QAction::changed, this,
            [this] { m_manager->removeCommand(groupId); });
    QCOMPARE(m_manager->addCommand(handedIn.get()), nullptr);
    QVERIFY(std::as_const(*m_manager).commandBag().empty());
    QVERIFY(handedIn->hasCommand(copy));
}

void TestCmdMgr::othersMayBeRemovedWhenOneLeaves()
{
    for (const QString &id : {cut, copy, paste})
        add(id);
    m_log.take();
    QStringList presentAtTheEnd;
    const auto reaction = std::make_shared<ManagerReaction>();
    reaction->removed = [&](const QString &id) {
        if (m_manager->findCommand(id))
            presentAtTheEnd << id;
        if (id == cut)
            m_manager->removeCommand(copy);
    };
    m_manager->addObserver(reaction, false);
    m_manager->removeAllCommands();
    QCOMPARE(m_log.take(),
             QStringList({QStringLiteral("removed(cut)"), QStringLiteral("removed(copy)"),
                          QStringLiteral("removed(paste)")}));
    QCOMPARE(presentAtTheEnd, QStringList({cut, copy, paste}));
    QVERIFY(std::as_const(*m_manager).commandBag().empty());
}

void TestCmdMgr::managerMayDieInWhatItAnnounces_data()
{
    QTest::addColumn<ManagerCall>("act");
    const auto row = [](const char *name, const ManagerCall &act) { QTest::newRow(name) << act; };
    row("adding", [](CmdMgr &manager) { manager.addCommand(new TestCommand(paste)); });
    row("adding a group",
        [](CmdMgr &manager) { manager.addCommand(new CommandGroup(QString(), QString(), paste)); });
    row("removing", [](CmdMgr &manager) { manager.removeCommand(copy); });
    row("removing the last child of a group", [](CmdMgr &manager) { manager.removeCommand(cut); });
    row("removing all", [](CmdMgr &manager) { manager.removeAllCommands(); });
}

void TestCmdMgr::managerMayDieInWhatItAnnounces()
{
    QFETCH(const ManagerCall, act);
    int living = 0;
    const auto group = makeGroup({cut});
    for (TestCommand *const command :
         {add(copy), static_cast<TestCommand *>(group->getCommand(cut))}) {
        ++living;
        command->ended = [&living] { --living; };
    }
    m_manager->addCommand(group.get());
    const auto reaction = std::make_shared<ManagerReaction>();
    reaction->added = [this](CommandBase *) { m_manager.reset(); };
    reaction->removed = [this](const QString &) { m_manager.reset(); };
    m_manager->addObserver(reaction, false);
    const std::weak_ptr<CmdMgr> guard = m_manager;
    act(*m_manager);
    QVERIFY(guard.expired());
    QCOMPARE(living, group->commandBag().empty() ? 0 : 1);
}

void TestCmdMgr::controllerMayDieInWhatItAnnounces()
{
    for (const bool isAdding : {true, false}) {
        Lumo::Test::ControllerFixture fixture;
        fixture.add(cut);
        const QPointer<Vela::UiBase::CmdsViewController> controller = fixture.controller();
        const auto reaction = std::make_shared<ManagerReaction>();
        controller->addObserver(reaction, false);
        reaction->added = [&fixture](CommandBase *) { fixture.end(); };
        reaction->removed = [&fixture](const QString &) { fixture.end(); };
        if (isAdding)
            fixture.add(copy);
        else
            controller->removeAllCommands();
        QVERIFY(!controller);
    }
}

void TestCmdMgr::contextsTellTheStateOfAllCommands()
{
    TestCommand *const command = add(cut);
    add(copy);
    command->setEnabled(false);
    command->setChecked(true);
    QVERIFY(m_manager->defaultContext(nullptr) == contextOf({{cut, {On, Off}}, {copy, {On, Off}}}));
    QVERIFY(m_manager->currentContext(nullptr) == contextOf({{cut, {Off, On}}, {copy, {On, Off}}}));
    QVERIFY(m_manager->disabledContext(nullptr)
            == contextOf({{cut, {Off, Keep}}, {copy, {Off, Keep}}}));
    QVERIFY(m_manager->inactiveContext(nullptr)
            == contextOf({{cut, {Keep, Off}}, {copy, {Keep, Off}}}));
}

void TestCmdMgr::contextsByTagTellTheStateOfTheTagged()
{
    TestCommand *const command = add(cut);
    add(copy);
    command->addTag(tag);
    command->setChecked(true);
    QVERIFY(m_manager->currentContext(tag) == contextOf({{cut, {On, On}}}));
    QVERIFY(m_manager->disabledContext(tag) == contextOf({{cut, {Off, Keep}}}));
    QVERIFY(m_manager->inactiveContext(tag) == contextOf({{cut, {Keep, Off}}}));
    QVERIFY(m_manager->currentContext(QStringLiteral("none")) == CommandContext());
}

void TestCmdMgr::contextsOfABagTellItsCommands()
{
    add(cut);
    CommandBag bag;
    bag.addCommand(new TestCommand(paste));
    bag.emplace_back(copy, nullptr);
    bag.commandAt(0)->setEnabled(false);
    QVERIFY(m_manager->currentContext(&bag) == contextOf({{paste, {Off, Off}}}));
    QVERIFY(m_manager->defaultContext(&bag) == contextOf({{paste, {On, Off}}}));
    QVERIFY(m_manager->disabledContext(&bag) == contextOf({{paste, {Off, Keep}}}));
    QVERIFY(m_manager->inactiveContext(&bag) == contextOf({{paste, {Keep, Off}}}));
    QVERIFY(m_manager->currentActiveContext(&bag) == CommandContext());
}

void TestCmdMgr::currentContextOfAContextTellsItsIds()
{
    add(cut);
    add(copy)->setEnabled(false);
    const CommandContext asked = contextOf({{copy, {Keep, Keep}}, {paste, {On, On}}});
    QVERIFY(m_manager->currentContext(asked) == contextOf({{copy, {Off, Off}}}));
}

void TestCmdMgr::activeContextsHoldCheckedCommandsOnly()
{
    TestCommand *const command = add(cut);
    command->addTag(tag);
    add(copy)->addTag(tag);
    QVERIFY(m_manager->currentActiveContext(nullptr) == CommandContext());
    command->setChecked(true);
    command->setEnabled(false);
    QVERIFY(m_manager->currentActiveContext(nullptr) == contextOf({{cut, {Keep, On}}}));
    QVERIFY(m_manager->currentActiveContext(tag) == contextOf({{cut, {Off, On}}}));
}

void TestCmdMgr::queriesFromAnotherThreadWaitForTheMainThread()
{
    class Placed : public TestCommand
    {
    public:
        using TestCommand::TestCommand;
        const QString commandId() const override
        {
            wasAskedElsewhere = wasAskedElsewhere || !Lumo::Test::isMainThread();
            return TestCommand::commandId();
        }
        mutable std::atomic<bool> wasAskedElsewhere {false};
    };
    auto *const command = new Placed(cut);
    command->addTag(tag);
    command->setEnabled(false);
    m_manager->addCommand(command);
    CommandBag bag;
    bag.addCommand(command);
    QVector<CommandContext> answers;
    std::atomic<bool> isAnswered {false};
    std::thread asking([&] {
        const CommandContext known = contextOf({{cut, {Keep, Keep}}});
        answers << m_manager->currentContext(nullptr) << m_manager->currentContext(&bag)
                << m_manager->currentContext(known) << m_manager->currentContext(tag);
        isAnswered = true;
    });
    const bool served = runLoopUntil([&] { return isAnswered.load(); });
    asking.join();
    QVERIFY(served);
    QVERIFY(!command->wasAskedElsewhere);
    QCOMPARE(answers.count(contextOf({{cut, {Off, Off}}})), 4);
}

void TestCmdMgr::bagThatAThreadAsksAboutIsKeptAlive()
{
    CommandBag bag;
    const auto command = std::make_shared<TestCommand>(cut);
    bag.addCommand(command);
    std::atomic<bool> isAnswered {false};
    std::thread asking([&] {
        m_manager->currentContext(&bag);
        isAnswered = true;
    });
    // The main thread serves nobody meanwhile, so the thread waits with what it holds.
    const QDeadlineTimer limit(20'000);
    while (command.use_count() < 3 && !limit.hasExpired())
        std::this_thread::yield();
    const bool wasHeld = !limit.hasExpired();
    runLoopUntil([&] { return isAnswered.load(); });
    asking.join();
    QVERIFY(wasHeld);
    QCOMPARE(command.use_count(), 2L);
}

void TestCmdMgr::setContextAppliesLater()
{
    TestCommand *const command = add(cut);
    m_manager->setContext(contextOf({{cut, {Off, On}}}));
    QVERIFY(command->commandState() == CommandState(On, Off));
    servePosted();
    QVERIFY(command->commandState() == CommandState(Off, On));
}

void TestCmdMgr::contextIsNeverAppliedInsideTheCall_data()
{
    QTest::addColumn<ManagerCall>("act");
    const auto row = [](const char *name, const ManagerCall &act) { QTest::newRow(name) << act; };
    const CommandContext context = contextOf({{cut, {On, Off}}});
    row("set", [context](CmdMgr &manager) { manager.setContext(context); });
    row("push", [context](CmdMgr &manager) { manager.pushContext(context); });
    row("pop", [](CmdMgr &manager) { manager.popContext(); });
    row("reset", [](CmdMgr &manager) { manager.resetContext(); });
}

void TestCmdMgr::contextIsNeverAppliedInsideTheCall()
{
    QFETCH(const ManagerCall, act);
    TestCommand *const command = add(cut);
    const CommandState before(Off, On);
    const CommandState after(On, Off);
    m_manager->pushContext(CommandContext());
    command->setCommandState(before);
    act(*m_manager);
    QVERIFY(command->commandState() == before);
    servePosted();
    QVERIFY(command->commandState() == after);

    // Neither from within work on the main queue.
    m_manager->pushContext(CommandContext());
    CommandState seen;
    Tessel::dispatchAsync(
        [&] {
            command->setCommandState(before);
            act(*m_manager);
            seen = command->commandState();
        },
        Tessel::EQualityOfService::Main);
    servePosted();
    QVERIFY(seen == before);
    servePosted();
    QVERIFY(command->commandState() == after);
}

void TestCmdMgr::observersMayPushAndPopDuringARun()
{
    TestCommand *const command = add(cut);
    TestCommand *const other = add(copy);
    const auto popping = std::make_shared<RunReaction>([this] { m_manager->popContext(); });
    command->addObserver(popping, false);
    m_manager->pushContext(contextOf({{copy, {Off, Keep}}}));
    servePosted();
    QVERIFY(!other->isEnabled());
    command->onExecute();
    servePosted();
    QVERIFY(other->isEnabled());

    // In the walk of a context too; the pop comes after it.
    m_manager->pushContext(contextOf({{cut, {Keep, On}}, {copy, {Off, Keep}}}));
    servePosted();
    servePosted();
    QVERIFY(other->isEnabled());
    QVERIFY(!command->isChecked());
}

void TestCmdMgr::managerMayDieWhileAContextIsApplied()
{
    const auto last = std::make_shared<TestCommand>(paste);
    m_manager->addCommand(last.get());
    add(copy)->work = [this](bool) {
        m_manager.reset();
        return true;
    };
    m_manager->addCommand(makeGroup({cut}).get());
    const std::weak_ptr<CmdMgr> guard = m_manager;
    m_manager->setContext(
        contextOf({{groupId, {On, Keep}}, {copy, {Keep, On}}, {paste, {Off, Keep}}}));
    m_manager->setContext(contextOf({{paste, {On, Keep}}}));
    servePosted();
    QVERIFY(guard.expired());
    QVERIFY(!last->isEnabled());
}

void TestCmdMgr::managerMayDieInAContextThatIsAppliedWithinTheCall()
{
    add(cut)->work = [this](bool) {
        m_manager.reset();
        return true;
    };
    const std::weak_ptr<CmdMgr> guard = m_manager;
    m_manager->applyContext(contextOf({{cut, {Keep, On}}}));
    QVERIFY(guard.expired());
}

void TestCmdMgr::queriesOfManyThreadsWhileContextsAreApplied()
{
    TestCommand *const command = add(cut);
    command->addTag(tag);
    std::atomic<int> running {4};
    std::atomic<int> wrong {0};
    std::vector<std::thread> threads;
    for (int i = running; i > 0; --i) {
        threads.emplace_back([&] {
            for (int round = 0; round < 50; ++round) {
                const CommandContext all = m_manager->currentContext(nullptr);
                const CommandContext tagged = m_manager->disabledContext(tag);
                wrong += !all.get().isEmpty() && all.get().keys() != QStringList(cut);
                wrong += !tagged.get().isEmpty() && tagged.get().keys() != QStringList(cut);
            }
            --running;
        });
    }
    const bool ended = runLoopUntil([&] {
        m_manager->setContext(contextOf({{cut, {Keep, !command->isChecked()}}}));
        return running == 0;
    });
    for (std::thread &thread : threads)
        thread.join();
    QVERIFY(ended);
    QCOMPARE(wrong.load(), 0);
}

void TestCmdMgr::setContextSkipsUnknownIds()
{
    TestCommand *const command = add(cut);
    m_manager->setContext(contextOf({{copy, {On, On}}, {cut, {Off, Keep}}, {paste, {On, On}}}));
    servePosted();
    QVERIFY(!command->isEnabled());
}

void TestCmdMgr::setContextAppliesInOrderOfIds()
{
    for (const QString &id : {paste, cut, copy})
        add(id);
    m_manager->setContext(contextOf({{cut, {Keep, On}}, {paste, {Keep, On}}, {copy, {Keep, On}}}));
    servePosted();
    QCOMPARE(m_manager->runs, QStringList({copy, cut, paste}));
}

void TestCmdMgr::queryWhileAContextIsAppliedIsEmpty()
{
    TestCommand *const command = add(cut);
    CommandContext seen = contextOf({{cut, {}}});
    CommandContext seenByTag = seen;
    command->addTag(tag);
    command->work = [&](bool) {
        seen = m_manager->currentContext(nullptr);
        seenByTag = m_manager->currentActiveContext(tag);
        return true;
    };
    m_manager->setContext(contextOf({{cut, {Keep, On}}}));
    servePosted();
    QVERIFY(command->isChecked());
    QVERIFY(seen == CommandContext());
    QVERIFY(seenByTag == CommandContext());
    QVERIFY(m_manager->currentContext(nullptr) == contextOf({{cut, {On, On}}}));
}

void TestCmdMgr::walkInsideAWalkLeavesTheOuterOneGoing()
{
    // A command that opens a dialog serves the main queue within the walk.
    TestCommand *const command = add(cut);
    TestCommand *const other = add(copy);
    CommandContext seen = contextOf({{cut, {}}});
    command->work = [&](bool) {
        m_manager->setContext(contextOf({{copy, {Off, Keep}}}));
        servePosted();
        seen = m_manager->currentContext(nullptr);
        return true;
    };
    m_manager->setContext(contextOf({{cut, {Keep, On}}}));
    servePosted();
    QVERIFY(!other->isEnabled());
    QVERIFY(seen == CommandContext());
    QVERIFY(m_manager->currentContext(nullptr) != CommandContext());
}

void TestCmdMgr::pushWhileAContextIsAppliedDoesNothing()
{
    TestCommand *const command = add(cut);
    TestCommand *const other = add(copy);
    command->work = [&](bool) {
        m_manager->pushContext(contextOf({{copy, {Off, Keep}}}));
        return true;
    };
    m_manager->setContext(contextOf({{cut, {Keep, On}}}));
    servePosted();
    servePosted();
    QVERIFY(other->isEnabled());
    other->setEnabled(false);
    m_manager->popContext();
    servePosted();
    QVERIFY(!other->isEnabled());
}

void TestCmdMgr::popPutsBackTheStateOfBeforeThePush()
{
    TestCommand *const command = add(cut);
    m_manager->pushContext(contextOf({{cut, {Off, Keep}}}));
    m_manager->popContext();
    servePosted();
    QVERIFY(command->isEnabled());

    m_manager->pushContext(contextOf({{cut, {Off, Keep}}}));
    servePosted();
    QVERIFY(!command->isEnabled());
    m_manager->popContext();
    servePosted();
    QVERIFY(command->isEnabled());
}

void TestCmdMgr::popUndoesOtherChangesToo()
{
    TestCommand *const command = add(cut);
    m_manager->pushContext(contextOf({{copy, {Off, Keep}}}));
    command->setChecked(true);
    m_manager->popContext();
    servePosted();
    QVERIFY(!command->isChecked());
}

void TestCmdMgr::pushBehindAPopRemembersWhatThatPutsBack()
{
    TestCommand *const command = add(cut);
    TestCommand *const other = add(copy);
    m_manager->pushContext(contextOf({{cut, {Off, Keep}}}));
    servePosted();
    m_manager->popContext();
    TestCommand *const late = add(paste);
    m_manager->pushContext(contextOf({{copy, {Off, Keep}}}));
    servePosted();
    QVERIFY(command->isEnabled());
    QVERIFY(!other->isEnabled());
    late->setEnabled(false);
    m_manager->popContext();
    servePosted();
    QVERIFY(command->isEnabled());
    QVERIFY(other->isEnabled());
    QVERIFY(late->isEnabled());

    // A command that has left meanwhile is not remembered.
    m_manager->pushContext({});
    m_manager->popContext();
    m_manager->removeCommand(paste);
    m_manager->pushContext({});
    servePosted();
    TestCommand *const again = add(paste);
    again->setEnabled(false);
    m_manager->popContext();
    servePosted();
    QVERIFY(!again->isEnabled());

    // Once it has been put back, the present state counts again.
    command->setEnabled(false);
    m_manager->pushContext(contextOf({{cut, {On, Keep}}}));
    servePosted();
    m_manager->popContext();
    servePosted();
    QVERIFY(!command->isEnabled());
}

void TestCmdMgr::contextsNest()
{
    TestCommand *const command = add(cut);
    TestCommand *const other = add(copy);
    m_manager->pushContext(contextOf({{cut, {Off, Keep}}}));
    servePosted();
    m_manager->pushContext(contextOf({{cut, {On, On}}, {copy, {Off, Keep}}}));
    servePosted();
    QVERIFY(command->commandState() == CommandState(On, On));
    m_manager->popContext();
    servePosted();
    QVERIFY(command->commandState() == CommandState(Off, Off));
    QVERIFY(other->isEnabled());
    m_manager->popContext();
    servePosted();
    QVERIFY(command->commandState() == CommandState(On, Off));
}

void TestCmdMgr::popWithoutAPushDoesNothing()
{
    TestCommand *const command = add(cut);
    command->setEnabled(false);
    m_manager->popContext();
    servePosted();
    QVERIFY(!command->isEnabled());
}

void TestCmdMgr::resetForgetsTheStackAndAppliesDefaults()
{
    TestCommand *const command = add(cut);
    for (int i = 0; i < 3; ++i)
        m_manager->pushContext(contextOf({{cut, {Off, On}}}));
    servePosted();
    m_manager->resetContext();
    servePosted();
    QVERIFY(command->commandState() == CommandState(On, Off));
    command->setEnabled(false);
    m_manager->popContext();
    servePosted();
    QVERIFY(!command->isEnabled());
}

void TestCmdMgr::resetAsksTheCommandsForTheirDefaults()
{
    class Modest : public TestCommand
    {
    public:
        using TestCommand::TestCommand;
        CommandState defaultCommandState() const override { return {Off, On}; }
    };
    auto *const command = new Modest(cut);
    command->setCheckable(true);
    m_manager->addCommand(command);
    m_manager->resetContext();
    servePosted();
    QVERIFY(command->commandState() == CommandState(Off, On));
}

void TestCmdMgr::updateInTheStackSurvivesThePop()
{
    TestCommand *const command = add(cut);
    m_manager->pushContext(CommandContext());
    m_manager->pushContext(CommandContext());
    m_manager->updateContextInStack(cut, {Keep, On});
    m_manager->updateContextInStack(QString(), {Off, Off});
    m_manager->popContext();
    servePosted();
    QVERIFY(command->commandState() == CommandState(On, On));
    command->setCommandState({Off, Off});
    m_manager->popContext();
    servePosted();
    QVERIFY(command->commandState() == CommandState(On, On));
}

void TestCmdMgr::updateInTheStackStopsAtAMissingId()
{
    m_manager->pushContext(CommandContext());
    TestCommand *const late = add(cut);
    m_manager->pushContext(CommandContext());
    m_manager->updateContextInStack(cut, {Off, On});
    m_manager->popContext();
    servePosted();
    QVERIFY(late->commandState() == CommandState(On, Off));
}

void TestCmdMgr::saveAndRestoreReachTheCommandsLater()
{
    TestCommand *const command = add(cut);
    m_manager->saveContext();
    m_manager->restoreContext();
    m_manager->restoreContext();
    QCOMPARE(command->saves, 0);
    servePosted();
    QCOMPARE(command->saves, 1);
    QCOMPARE(command->restores, 2);
}

void TestCmdMgr::postedWorkIsDroppedWithTheManager()
{
    const auto command = std::make_shared<TestCommand>(cut);
    m_manager->addCommand(command.get());
    m_manager->setContext(contextOf({{cut, {Off, Keep}}}));
    m_manager->saveContext();
    m_manager.reset();
    servePosted();
    QVERIFY(command->isEnabled());
    QCOMPARE(command->saves, 0);
}

void TestCmdMgr::commandMayRemoveOthersWhileAContextIsApplied()
{
    for (const QString &id : {paste, cut, copy})
        add(id);
    static_cast<TestCommand *>(m_manager->findCommand(copy))->work = [this](bool) {
        m_manager->removeAllCommands();
        return true;
    };
    m_manager->setContext(contextOf({{cut, {Off, On}}, {paste, {Off, On}}, {copy, {Off, On}}}));
    servePosted();
    QVERIFY(std::as_const(*m_manager).commandBag().empty());
}

void TestCmdMgr::everyCommandOfAnIdGetsTheState()
{
    QStringList order;
    const auto added = [&](TestCommand *command, const QString &name) {
        command->work = [&order, name](bool) {
            order << name;
            return true;
        };
        return command;
    };
    added(add(cut), QStringLiteral("first"));
    auto *const holding = new HoldingCommand(paste, cut);
    holding->held.setCheckable(true);
    added(&holding->held, QStringLiteral("held"));
    m_manager->addCommand(holding);
    added(add(cut), QStringLiteral("second"));
    m_manager->setContext(contextOf({{cut, {On, On}}}));
    servePosted();
    QCOMPARE(
        order,
        QStringList({QStringLiteral("first"), QStringLiteral("held"), QStringLiteral("second")}));
}

void TestCmdMgr::commandThatFindsOthersItsOwnWayIsAsked()
{
    const auto group = makeGroup({copy});
    auto *const holding = new HoldingCommand(paste, cut);
    group->addCommand(holding);
    m_manager->addCommand(group.get());
    m_manager->setContext(
        contextOf({{copy, {Off, Keep}}, {cut, {Off, Keep}}, {paste, {Off, Keep}}}));
    servePosted();
    QVERIFY(!holding->held.isEnabled());
    QVERIFY(!holding->isEnabled());
    QVERIFY(!group->getCommand(copy)->isEnabled());
}

void TestCmdMgr::commandAddedWhileAGroupIsAppliedIsSeen()
{
    const auto group = makeGroup({cut});
    m_manager->addCommand(group.get());
    const QString late = QStringLiteral("late");
    const auto addLate = [&] {
        if (!m_manager->findCommand(late))
            add(late);
    };
    connect(group->getCommand(cut), &QAction::changed, this, addLate);
    m_manager->setContext(contextOf({{groupId, {Off, Keep}}, {late, {Off, Keep}}}));
    servePosted();
    QVERIFY(!m_manager->findCommand(late)->isEnabled());
}

/// Two commands at the top and a group of two behind them; all of them can be checked.
void TestCmdMgr::addPlainAndGrouped()
{
    for (const QString &id : {cut, copy}) {
        auto *const command = new RenamedCommand(id);
        command->setCheckable(true);
        m_manager->addCommand(command);
    }
    m_manager->addCommand(makeGroup({QStringLiteral("first"), QStringLiteral("second")}).get());
}

/// All that can change between two walks over the commands, also without a signal or an announcement.
void TestCmdMgr::addChangeRows()
{
    using Manager = RunRecordingManager;
    const auto row = [](const char *name, const Change &change) { QTest::newRow(name) << change; };
    const auto group = [](Manager &manager) {
        return static_cast<CommandGroup *>(manager.findCommand(groupId));
    };
    QTest::addColumn<Change>("change");
    row("nothing", [](Manager &) {});
    row("action disabled", [](Manager &manager) { manager.findCommand(copy)->setEnabled(false); });
    row("action checked", [](Manager &manager) { manager.findCommand(cut)->setChecked(true); });
    row("action hidden", [](Manager &manager) { manager.findCommand(cut)->setVisible(false); });
    row("signals blocked", [](Manager &manager) {
        const QSignalBlocker blocker(manager.findCommand(copy));
        manager.findCommand(copy)->setEnabled(false);
    });
    row("actions disabled together",
        [group](Manager &manager) { group(manager)->groupActionGroup()->setEnabled(false); });
    row("state set", [](Manager &manager) {
        manager.findCommand(QStringLiteral("second"))->setCommandState({Off, On});
    });
    row("command added", [](Manager &manager) { manager.addCommand(new TestCommand(paste)); });
    row("command removed", [](Manager &manager) { manager.removeCommand(copy); });
    row("all removed", [](Manager &manager) { manager.removeAllCommands(); });
    row("command replaced", [](Manager &manager) {
        manager.removeCommand(cut);
        manager.addCommand(new TestCommand(cut));
        manager.findCommand(cut)->setEnabled(false);
    });
    row("child added",
        [group](Manager &manager) { group(manager)->addCommand(new TestCommand(paste)); });
    row("child removed",
        [group](Manager &manager) { group(manager)->removeCommand(QStringLiteral("first")); });
    row("id changed", [](Manager &manager) { manager.findCommand(cut)->setObjectName(paste); });
    row("ids exchanged", [](Manager &manager) {
        CommandBase *const second = manager.findCommand(copy);
        second->setEnabled(false);
        manager.findCommand(cut)->setObjectName(copy);
        second->setObjectName(cut);
    });
    row("group renamed",
        [group](Manager &manager) { group(manager)->setObjectName(QStringLiteral("Other")); });
    row("bag cleared in place", [](Manager &manager) { manager.commandBag().clear(); });
    row("entry erased in place",
        [](Manager &manager) { manager.commandBag().erase(manager.commandBag().begin()); });
    row("last entry erased in place", [](Manager &manager) { manager.commandBag().pop_back(); });
    row("child erased in place",
        [group](Manager &manager) { group(manager)->commandBag().pop_back(); });
    row("child replaced in place", [group](Manager &manager) {
        group(manager)->commandBag().back() = {paste, std::make_shared<TestCommand>(paste)};
    });
    row("entry appended in place", [](Manager &manager) {
        manager.commandBag().emplace_back(paste, std::make_shared<TestCommand>(paste));
    });
    row("entry replaced in place", [](Manager &manager) {
        manager.commandBag()[1] = {paste, std::make_shared<TestCommand>(paste)};
    });
    row("entry emptied in place", [](Manager &manager) { manager.commandBag()[0].second.reset(); });
    row("entries turned round in place", [](Manager &manager) {
        std::reverse(manager.commandBag().begin(), manager.commandBag().end());
    });
    row("group merged", [](Manager &manager) { manager.addCommand(makeGroup({paste}).get()); });
}

void TestCmdMgr::snapshotTellsEveryChange_data()
{
    addChangeRows();
}

void TestCmdMgr::snapshotTellsEveryChange()
{
    QFETCH(const Change, change);
    addPlainAndGrouped();
    const CommandBag &bag = std::as_const(*m_manager).commandBag();
    QVERIFY(m_manager->currentContext(nullptr) == statesOf(bag));
    change(*m_manager);
    QVERIFY(m_manager->currentContext(nullptr) == statesOf(bag));
    QVERIFY(m_manager->currentContext(nullptr) == statesOf(bag));
}

void TestCmdMgr::snapshotStaysAsItWasTaken()
{
    add(cut);
    const CommandContext before = m_manager->currentContext(nullptr);
    m_manager->findCommand(cut)->setEnabled(false);
    const CommandContext after = m_manager->currentContext(nullptr);
    m_manager->findCommand(cut)->setChecked(true);
    QVERIFY(m_manager->currentContext(nullptr) == contextOf({{cut, {Off, On}}}));
    QVERIFY(before == contextOf({{cut, {On, Off}}}));
    QVERIFY(after == contextOf({{cut, {Off, Off}}}));
}

void TestCmdMgr::snapshotOfRepeatedIdsTellsEveryChange()
{
    const auto group = makeGroup({cut});
    m_manager->addCommand(group.get());
    TestCommand *const command = add(cut);
    const CommandBag &bag = std::as_const(*m_manager).commandBag();
    const CommandState states[] = {{On, Off}, {Off, On}, {Off, Off}, {On, On}};
    for (int i = 0; i < 16; ++i) {
        group->getCommand(cut)->setCommandState(states[i % 4]);
        command->setCommandState(states[i / 4]);
        QVERIFY(m_manager->currentContext(nullptr) == statesOf(bag));
        // What follows an entry overwrites it, and what stands in a group is merged into it.
        std::swap(m_manager->commandBag()[0], m_manager->commandBag()[1]);
        QVERIFY(m_manager->currentContext(nullptr) == statesOf(bag));
        group->getCommand(cut)->setCommandState(states[(i + 1) % 4]);
        QVERIFY(m_manager->currentContext(nullptr) == statesOf(bag));
        std::swap(m_manager->commandBag()[0], m_manager->commandBag()[1]);
    }
}

void TestCmdMgr::snapshotCanBeReadWhileTheNextIsTaken()
{
    constexpr int rounds = 200;
    TestCommand *const command = add(cut);
    std::atomic<int> tornAnswers {0};
    std::atomic<bool> isDone {false};
    std::thread asking([&] {
        for (int i = 0; i < rounds; ++i) {
            const CommandContext context = m_manager->currentContext(nullptr);
            const CommandState state = context.get().value(cut);
            tornAnswers += state.enabled == state.checked ? 0 : 1;
        }
        isDone = true;
    });
    bool enable = false;
    const bool served = runLoopUntil([&] {
        command->setCommandState({enable, enable});
        enable = !enable;
        m_manager->currentContext(nullptr);
        return isDone.load();
    });
    asking.join();
    QVERIFY(served);
    QCOMPARE(tornAnswers.load(), 0);
}

void TestCmdMgr::contextByTagFollowsTheTags()
{
    add(cut)->addTag(tag);
    TestCommand *const other = add(copy);
    QVERIFY(m_manager->currentContext(tag) == contextOf({{cut, {On, Off}}}));
    other->addTag(tag);
    QVERIFY(m_manager->currentContext(tag) == contextOf({{copy, {On, Off}}, {cut, {On, Off}}}));
    m_manager->findCommand(cut)->removeTag(tag);
    QVERIFY(m_manager->currentContext(tag) == contextOf({{copy, {On, Off}}}));
}

void TestCmdMgr::contextReachesWhatEveryChangeLeft_data()
{
    addChangeRows();
}

void TestCmdMgr::contextReachesWhatEveryChangeLeft()
{
    QFETCH(const Change, change);
    addPlainAndGrouped();
    m_manager->setContext(m_manager->currentContext(nullptr));
    servePosted();
    change(*m_manager);
    CommandContext wanted = statesOf(std::as_const(*m_manager).commandBag());
    wanted.overwrite({Off, Keep});
    wanted.overwrite(QStringLiteral("unknown"), {On, On});
    m_manager->setContext(wanted);
    servePosted();
    // A group also follows its children, those that were put in place excepted.
    CommandContext reached = statesOf(std::as_const(*m_manager).commandBag());
    for (const QString &id : reached.get().keys()) {
        if (!id.startsWith(CommandGroup::className()))
            QVERIFY(reached[id].enabled == Off);
    }
}

void TestCmdMgr::contextReachesRepeatedIdsInTheirNewOrder()
{
    QStringList order;
    for (const QString &name : {QStringLiteral("first"), QStringLiteral("second")}) {
        add(cut)->work = [&order, name](bool) {
            order << name;
            return true;
        };
    }
    m_manager->setContext(contextOf({{cut, {On, On}}}));
    servePosted();
    std::swap(m_manager->commandBag()[0], m_manager->commandBag()[1]);
    m_manager->setContext(contextOf({{cut, {On, Off}}}));
    servePosted();
    QCOMPARE(order,
             QStringList({QStringLiteral("first"), QStringLiteral("second"),
                          QStringLiteral("second"), QStringLiteral("first")}));
}

void TestCmdMgr::commandMovedFromTheTopIntoAGroupIsFoundThere()
{
    // Of the commands of one id in a group only the first is found; a walk meets the same commands in
    // the same order before and after the move.
    const auto group = makeGroup({cut});
    m_manager->addCommand(group.get());
    TestCommand *const other = add(cut);
    m_manager->setContext(contextOf({{cut, {Off, Keep}}}));
    servePosted();
    QVERIFY(!other->isEnabled());
    group->commandBag().push_back(m_manager->commandBag().back());
    m_manager->commandBag().pop_back();
    m_manager->setContext(contextOf({{cut, {On, Keep}}}));
    servePosted();
    QVERIFY(group->getCommand(cut)->isEnabled());
    QVERIFY(!other->isEnabled());
}

void TestCmdMgr::groupWithABagOfAnothersIsAskedItself()
{
    const auto lender = makeGroup({cut});
    const auto group =
        std::make_shared<BorrowingGroup>(QString(), QString(), QStringLiteral("Borrowing"));
    group->addCommand(new TestCommand(copy));
    m_manager->addCommand(group.get());
    for (const bool borrows : {false, true, false}) {
        group->lender = borrows ? lender.get() : nullptr;
        QVERIFY(m_manager->currentContext(nullptr).get().contains(borrows ? cut : copy));
        group->getCommand(copy)->setEnabled(true);
        m_manager->setContext(contextOf({{copy, {Off, Keep}}, {cut, {Off, Keep}}}));
        servePosted();
        QVERIFY(!group->getCommand(copy)->isEnabled());
        QVERIFY(lender->getCommand(cut)->isEnabled());
    }
}

void TestCmdMgr::groupThatBorrowsItsOwnCommandIsAskedItself()
{
    const auto group =
        std::make_shared<BorrowingGroup>(QString(), QString(), QStringLiteral("Borrowing"));
    const auto child = std::make_shared<TestCommand>(copy);
    const auto lender = makeGroup({});
    group->addCommand(child);
    lender->addCommand(child);
    m_manager->addCommand(group.get());
    m_manager->setContext(contextOf({{copy, {Off, Keep}}}));
    servePosted();
    QVERIFY(!child->isEnabled());
    group->lender = lender.get();
    group->CommandGroup::commandBag().clear();
    m_manager->setContext(contextOf({{copy, {On, Keep}}}));
    servePosted();
    QVERIFY(!child->isEnabled());
}

void TestCmdMgr::otherCommandAtTheSameAddressIsAsked_data()
{
    QTest::addColumn<bool>("isOwned");
    QTest::newRow("owned") << true;
    QTest::newRow("unowned") << false;
}

void TestCmdMgr::otherCommandAtTheSameAddressIsAsked()
{
    QFETCH(const bool, isOwned);
    // Only the second one finds another command than itself.
    std::aligned_storage_t<sizeof(HoldingCommand), alignof(HoldingCommand)> place;
    const auto enter = [&](CommandBase *command) {
        const auto end = [](CommandBase *ended) { ended->~CommandBase(); };
        m_manager->commandBag().clear();
        m_manager->commandBag().emplace_back(
            cut,
            isOwned ? std::shared_ptr<CommandBase>(command, end)
                    : std::shared_ptr<CommandBase>(std::shared_ptr<void>(), command));
        m_manager->setContext(contextOf({{cut, {Off, Keep}}, {copy, {Off, Keep}}}));
        servePosted();
        QVERIFY(!command->isEnabled());
    };
    auto *const plain = new (&place) TestCommand(cut);
    enter(plain);
    m_manager->commandBag().clear();
    if (!isOwned)
        plain->~TestCommand();
    auto *const holding = new (&place) HoldingCommand(cut, copy);
    enter(holding);
    QVERIFY(!holding->held.isEnabled());
    m_manager->commandBag().clear();
    if (!isOwned)
        holding->~HoldingCommand();
}

void TestCmdMgr::otherCommandOfTheSameOwnerIsReached()
{
    const auto holding = std::make_shared<HoldingCommand>(cut, cut);
    m_manager->commandBag().emplace_back(cut, holding);
    QVERIFY(m_manager->currentContext(nullptr) == contextOf({{cut, {On, Off}}}));
    holding->held.setEnabled(false);
    m_manager->commandBag()[0].second = std::shared_ptr<CommandBase>(holding, &holding->held);
    QVERIFY(m_manager->currentContext(nullptr) == contextOf({{cut, {Off, Off}}}));
}

void TestCmdMgr::commandsThatFindOthersAreAskedInOrder()
{
    QStringList order;
    for (const QString &id : {paste, copy, QStringLiteral("last")}) {
        auto *const holding = new HoldingCommand(id, cut);
        holding->held.setCheckable(true);
        holding->held.work = [&order, id](bool) {
            order << id;
            return true;
        };
        m_manager->addCommand(holding);
    }
    m_manager->setContext(contextOf({{cut, {On, On}}}));
    servePosted();
    QCOMPARE(order, QStringList({paste, copy, QStringLiteral("last")}));
}

void TestCmdMgr::commandThatDiesInPlaceWhileAGroupIsAppliedIsLeftOut()
{
    const auto group = makeGroup({cut});
    m_manager->addCommand(group.get());
    bool isDead = false;
    add(QStringLiteral("late"))->ended = [&isDead] { isDead = true; };
    connect(group->getCommand(cut), &QAction::changed, this, [this] {
        if (m_manager->commandBag().size() == 2)
            m_manager->commandBag().pop_back();
    });
    m_manager->setContext(contextOf({{groupId, {Off, Keep}}, {QStringLiteral("late"), {Off, On}}}));
    servePosted();
    QVERIFY(isDead);
    QVERIFY(m_manager->runs.isEmpty());
}

void TestCmdMgr::contextAppliedWhileAGroupIsAppliedLeavesTheOuterOneGoing()
{
    const auto group = makeGroup({cut});
    m_manager->addCommand(group.get());
    TestCommand *const plain = add(QStringLiteral("late"));
    bool isNested = false;
    connect(group->getCommand(cut), &QAction::changed, this, [this, &isNested] {
        if (isNested)
            return;
        isNested = true;
        add(QStringLiteral("later"));
        m_manager->setContext(contextOf({{QStringLiteral("later"), {Keep, On}}}));
        servePosted();
    });
    m_manager->setContext(contextOf({{groupId, {Off, Keep}},
                                     {QStringLiteral("late"), {Off, Keep}},
                                     {QStringLiteral("later"), {Off, Keep}}}));
    servePosted();
    QVERIFY(!plain->isEnabled());
    QVERIFY(m_manager->findCommand(QStringLiteral("later"))->commandState()
            == CommandState(Off, On));
}

void TestCmdMgr::contextMayChangeWhileItIsApplied()
{
    const auto group = makeGroup({cut});
    m_manager->addCommand(group.get());
    TestCommand *const plain = add(QStringLiteral("late"));
    CommandContext context =
        contextOf({{groupId, {Off, Keep}}, {QStringLiteral("late"), {Off, Keep}}});
    connect(group->getCommand(cut), &QAction::changed, this, [&context] {
        context = contextOf({{paste, {On, On}}});
    });
    m_manager->applyContext(context);
    QVERIFY(!group->getCommand(cut)->isEnabled());
    QVERIFY(!plain->isEnabled());
}

void TestCmdMgr::commandsAreNotKeptAliveByWhatWasFound()
{
    QStringList dead;
    for (const QString &id : {cut, copy, paste}) {
        add(id)->ended = [&dead, id] { dead << id; };
    }
    m_manager->setContext(m_manager->currentContext(nullptr));
    servePosted();
    m_manager->removeCommand(copy);
    QCOMPARE(dead, QStringList(copy));
    m_manager->setContext(m_manager->currentContext(nullptr));
    servePosted();
    m_manager->commandBag().pop_back();
    QCOMPARE(dead, QStringList({copy, paste}));
    m_manager->setContext(m_manager->currentContext(nullptr));
    servePosted();
    m_manager->commandBag().clear();
    QCOMPARE(dead, QStringList({copy, paste, cut}));
}

void TestCmdMgr::memoryOfARemovedCommandIsGivenBack()
{
    int released = 0;
    auto command = std::allocate_shared<TestCommand>(CountingAllocator<TestCommand>(released), cut);
    m_manager->addCommand(command.get());
    m_manager->setContext(m_manager->currentContext(nullptr));
    servePosted();
    m_manager->removeCommand(cut);
    command.reset();
    QCOMPARE(released, 1);
}

void TestCmdMgr::groupIsHeardWithItsChildren()
{
    const auto group = makeGroup({cut, copy});
    QCOMPARE(m_manager->addCommand(group.get()), group.get());
    QCOMPARE(m_log.take(), QStringList(QStringLiteral("added(%1)").arg(groupId)));
    QVERIFY(group->getCommand(cut)->addedToCmdsVC());
    group->getCommand(cut)->onExecute();
    QCOMPARE(m_manager->runs, QStringList(cut));
    QCOMPARE(m_manager->findCommand(copy), group->getCommand(copy));
    m_manager->removeCommand(group.get());
    group->getCommand(cut)->onExecute();
    QCOMPARE(m_manager->runs.size(), 1);
    QVERIFY(!group->getCommand(cut)->addedToCmdsVC());
}

void TestCmdMgr::groupTakesOverTopLevelCommands()
{
    TestCommand *const command = add(cut);
    add(paste);
    const auto group = makeGroup({copy});
    group->addCommand(command);
    m_log.take();
    m_manager->addCommand(group.get());
    const CommandBag &bag = std::as_const(*m_manager).commandBag();
    QCOMPARE(bag.size(), std::size_t(2));
    QVERIFY(!bag.hasCommand(cut));
    QCOMPARE(m_manager->findCommand(cut), command);
    QCOMPARE(m_log.take(), QStringList(QStringLiteral("added(%1)").arg(groupId)));
    command->onExecute();
    QCOMPARE(m_manager->runs, QStringList(cut));
}

void TestCmdMgr::commandWhoseIdAGroupTakesIsLetGo()
{
    const auto command = std::make_shared<TestCommand>(cut);
    m_manager->addCommand(command.get());
    const auto group = makeGroup({cut});
    m_manager->addCommand(group.get());
    QCOMPARE(m_manager->findCommand(cut), group->getCommand(cut));
    QVERIFY(!command->addedToCmdsVC());
    QVERIFY(group->getCommand(cut)->addedToCmdsVC());
    command->onExecute();
    QVERIFY(m_manager->runs.isEmpty());
}

void TestCmdMgr::groupOfATakenIdIsMerged()
{
    const auto held = makeGroup({cut});
    const auto handedIn = makeGroup({copy});
    m_manager->addCommand(held.get());
    m_log.take();
    QCOMPARE(m_manager->addCommand(handedIn.get()), held.get());
    QCOMPARE(m_log.take(), QStringList(QStringLiteral("added(%1)").arg(groupId)));
    QCOMPARE(std::as_const(*m_manager).commandBag().size(), std::size_t(1));
    QVERIFY(held->hasCommand(copy));
    QVERIFY(handedIn->addedToCmdsVC());
    QCOMPARE(handedIn.use_count(), 1L);
    held->getCommand(cut)->onExecute();
    held->getCommand(copy)->onExecute();
    QCOMPARE(m_manager->runs, QStringList({cut, copy}));
}

void TestCmdMgr::sameGroupTwiceAnnouncesNull()
{
    const auto group = makeGroup({cut});
    m_manager->addCommand(group.get());
    m_log.take();
    QCOMPARE(m_manager->addCommand(group.get()), nullptr);
    QCOMPARE(m_log.take(), QStringList(QStringLiteral("added(null)")));
    group->getCommand(cut)->onExecute();
    QCOMPARE(m_manager->runs, QStringList(cut));
}

void TestCmdMgr::removedChildLeavesItsGroup()
{
    const auto group = makeGroup({cut, copy});
    m_manager->addCommand(group.get());
    m_log.take();
    QVERIFY(m_manager->removeCommand(cut));
    QCOMPARE(m_log.take(), QStringList(QStringLiteral("removed(cut)")));
    QVERIFY(!group->hasCommand(cut));
    QCOMPARE(m_manager->findCommand(groupId), group.get());
}

void TestCmdMgr::removingTheLastChildRemovesTheGroup()
{
    m_manager->addCommand(makeGroup({cut}).get());
    m_log.take();
    QVERIFY(m_manager->removeCommand(cut));
    QCOMPARE(
        m_log.take(),
        QStringList({QStringLiteral("removed(cut)"), QStringLiteral("removed(%1)").arg(groupId)}));
    QVERIFY(std::as_const(*m_manager).commandBag().empty());
}

void TestCmdMgr::commandsThatWereRenamedAreRemoved()
{
    const QString renamedId = CommandGroup::className() + QStringLiteral("Renamed");
    const QString renamed = QStringLiteral("removed(%1)").arg(renamedId);
    const auto addRenamed = [&](const QStringList &ids) {
        const auto group = makeGroup(ids);
        m_manager->addCommand(group.get());
        group->setObjectName(QStringLiteral("Renamed"));
        m_log.take();
        return group.get();
    };
    addRenamed({cut});
    QVERIFY(m_manager->removeCommand(cut));
    QCOMPARE(m_log.take(), QStringList({QStringLiteral("removed(cut)"), renamed}));
    QVERIFY(m_manager->removeCommand(addRenamed({})));
    QCOMPARE(m_log.take(), QStringList(renamed));
    addRenamed({copy});
    QVERIFY(m_manager->removeCommand(renamedId));
    QCOMPARE(m_log.take(), QStringList(renamed));
    QVERIFY(std::as_const(*m_manager).commandBag().empty());
}

void TestCmdMgr::findsTheGroupBeforeItsChildren()
{
    const auto group = makeGroup({cut});
    group->addTag(tag);
    group->getCommand(cut)->addTag(tag);
    m_manager->addCommand(group.get());
    TestCommand *const last = add(copy);
    last->addTag(tag);
    QCOMPARE(m_manager->findCommands(tag),
             QVector<CommandBase *>({group.get(), group->getCommand(cut), last}));
}

void TestCmdMgr::contextsReachIntoGroups()
{
    const auto group = makeGroup({cut, copy});
    m_manager->addCommand(group.get());
    group->getCommand(cut)->setChecked(true);
    QVERIFY(m_manager->currentContext(nullptr)
            == contextOf({{groupId, {On, On}}, {cut, {On, On}}, {copy, {On, Off}}}));
    QVERIFY(m_manager->currentActiveContext(nullptr)
            == contextOf({{groupId, {Keep, On}}, {cut, {Keep, On}}}));
    QVERIFY(m_manager->disabledContext(nullptr)
            == contextOf({{groupId, {Off, Keep}}, {cut, {Off, Keep}}, {copy, {Off, Keep}}}));
    QVERIFY(m_manager->inactiveContext(&group->commandBag())
            == contextOf({{cut, {Keep, Off}}, {copy, {Keep, Off}}}));
}

void TestCmdMgr::currentContextOfAGroupTellsItsChildren()
{
    m_manager->addCommand(makeGroup({cut}).get());
    QVERIFY(m_manager->currentContext(contextOf({{groupId, {Keep, Keep}}}))
            == contextOf({{groupId, {On, Off}}, {cut, {On, Off}}}));
}

void TestCmdMgr::childEntryHasTheLastWordOverItsGroup()
{
    // Ids of children on both sides of that of the group in the order of the context.
    const QString first = QStringLiteral("A");
    const auto group = makeGroup({first, copy, paste});
    m_manager->addCommand(group.get());
    m_manager->setContext(
        contextOf({{groupId, {Off, Keep}}, {first, {On, Keep}}, {copy, {On, Keep}}}));
    servePosted();
    QVERIFY(group->getCommand(first)->isEnabled());
    QVERIFY(group->getCommand(copy)->isEnabled());
    QVERIFY(!group->getCommand(paste)->isEnabled());
}

void TestCmdMgr::inactiveContextDisablesGroupedCommands()
{
    const auto group = makeGroup({cut});
    m_manager->addCommand(group.get());
    TestCommand *const plain = add(copy);
    m_manager->setContext(m_manager->inactiveContext(nullptr));
    servePosted();
    QVERIFY(!group->getCommand(cut)->isEnabled());
    QVERIFY(plain->isEnabled());
}

void TestCmdMgr::groupsAreSavedBeforeCommands()
{
    TestCommand *const plain = add(copy);
    const auto group = makeGroup({cut});
    m_manager->addCommand(group.get());
    auto *const child = static_cast<TestCommand *>(group->getCommand(cut));
    QStringList order;
    plain->saved = [&order] { order << QStringLiteral("plain"); };
    child->saved = [&order] { order << QStringLiteral("child"); };
    m_manager->saveContext();
    servePosted();
    QCOMPARE(order, QStringList({QStringLiteral("child"), QStringLiteral("plain")}));
}

LUMO_TEST_MAIN(TestCmdMgr)
#include "tst_cmdmgr.moc"
