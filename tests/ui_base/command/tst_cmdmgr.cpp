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

#include <atomic>
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

class RunRecordingManager : public CmdMgr
{
public:
    void commandBeganExecuting(CommandBase *command, bool) override
    {
        runs << command->commandId();
    }
    QStringList runs;
};

} // namespace

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
    void findsCommandsByTagInOrder();
    void runningCommandIsTheOneBetweenBeginAndEnd();
    void destructionLetsGoOfTheCommands();

    void contextsTellTheStateOfAllCommands();
    void contextsByTagTellTheStateOfTheTagged();
    void contextsOfABagTellItsCommands();
    void currentContextOfAContextTellsItsIds();
    void activeContextsHoldCheckedCommandsOnly();
    void queriesFromAnotherThreadWaitForTheMainThread();

    void setContextAppliesLater();
    void setContextSkipsUnknownIds();
    void setContextAppliesInOrderOfIds();
    void queryWhileAContextIsAppliedIsEmpty();
    void walkInsideAWalkLeavesTheOuterOneGoing();
    void pushWhileAContextIsAppliedDoesNothing();
    void popPutsBackTheStateOfBeforeThePush();
    void popUndoesOtherChangesToo();
    void contextsNest();
    void popWithoutAPushDoesNothing();
    void resetForgetsTheStackAndAppliesDefaults();
    void updateInTheStackSurvivesThePop();
    void updateInTheStackStopsAtAMissingId();
    void saveAndRestoreReachTheCommandsLater();
    void postedWorkIsDroppedWithTheManager();
    void commandMayRemoveOthersWhileAContextIsApplied();

    void everyCommandOfAnIdGetsTheState();
    void commandThatFindsOthersItsOwnWayIsAsked();
    void commandAddedWhileAGroupIsAppliedIsSeen();

    void groupIsHeardWithItsChildren();
    void groupTakesOverTopLevelCommands();
    void groupOfATakenIdIsMerged();
    void sameGroupTwiceAnnouncesNull();
    void removedChildLeavesItsGroup();
    void removingTheLastChildRemovesTheGroup();
    void findsTheGroupBeforeItsChildren();
    void contextsReachIntoGroups();
    void currentContextOfAGroupTellsItsChildren();
    void childEntryHasTheLastWordOverItsGroup();
    void inactiveContextDisablesGroupedCommands();
    void groupsAreSavedBeforeCommands();

private:
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
    add(cut)->setEnabled(false);
    CommandContext answer;
    std::atomic<bool> isAnswered {false};
    std::thread asking([&] {
        answer = m_manager->currentContext(nullptr);
        isAnswered = true;
    });
    const bool served = runLoopUntil([&] { return isAnswered.load(); });
    asking.join();
    QVERIFY(served);
    QVERIFY(answer == contextOf({{cut, {Off, Off}}}));
}

void TestCmdMgr::setContextAppliesLater()
{
    TestCommand *const command = add(cut);
    m_manager->setContext(contextOf({{cut, {Off, On}}}));
    QVERIFY(command->commandState() == CommandState(On, Off));
    servePosted();
    QVERIFY(command->commandState() == CommandState(Off, On));
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
