// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include <ui_base/CommandGroup>

#include "support/recordingobservers.h"
#include "support/testcase.h"
#include "support/testmain.h"
#include "support/virtualorder.h"
#include "ui_base/command/commandbag.h"
#include "ui_base/command/testcommand.h"
#include "ui_base/qtui/defaulticonprovider.h"
#include "ui_base/qtui/qtuitoolkit.h"
#include "ui_base/toolbar/toolbar.h"
#include "ui_base/toolbar/toolbutton.h"

#include <QActionGroup>
#include <QSignalSpy>

using Lumo::Test::CommandRecorder;
using Lumo::Test::EventLog;
using Lumo::Test::TestCommand;
using Lumo::Test::textOf;
using Lumo::Test::WaypointRecorder;
using Vela::UiBase::CommandBase;
using Vela::UiBase::CommandContext;
using Vela::UiBase::CommandGroup;
using Vela::UiBase::CommandState;
using Vela::UiBase::State;
using Vela::UiBase::ToolBar;
using Vela::UiBase::ToolButton;

namespace {

constexpr State::Action Off = State::Off;
constexpr State::Action On = State::On;
constexpr State::Action Keep = State::Keep;

const QString cut = QStringLiteral("cut");
const QString copy = QStringLiteral("copy");
const QString paste = QStringLiteral("paste");

/// Opens what subclasses see.
class OpenGroup : public CommandGroup
{
public:
    using CommandGroup::CommandGroup;
    using CommandGroup::onChildChanged;
    using CommandGroup::onChildToBeTriggered;
    using CommandGroup::onChildTriggered;
};

template<typename Group = CommandGroup>
std::shared_ptr<Group> makeGroup(const QString &name = QStringLiteral("Edit"))
{
    return std::make_shared<Group>(QString(), QString(), name);
}

TestCommand *addTo(CommandGroup &group, const QString &id, int rank = 0)
{
    auto *const command = new TestCommand(id);
    command->setCheckable(true);
    group.addCommand(command, rank);
    return command;
}

CommandGroup *addSubGroup(CommandGroup &group, const QString &name)
{
    const auto child = makeGroup(name);
    return static_cast<CommandGroup *>(group.addCommand(child));
}

/// Has the group itself, which is never run, tell its observers of a run.
void announceOf(CommandGroup &group)
{
    group.broadcast(&Vela::UiBase::CommandStateProtocol::commandBeganExecuting, &group, true);
}

QIcon iconIn(Qt::GlobalColor color)
{
    QPixmap pixmap(4, 4);
    pixmap.fill(color);
    return QIcon(pixmap);
}

QStringList idsOf(const CommandGroup &group)
{
    QStringList ids;
    for (const auto &[id, command] : group.commandBag())
        ids << id;
    return ids;
}

/// Gives a one-colour icon for the name "paint" and none for any other.
class PaintIconProvider : public Vela::UiBase::DefaultIconProvider
{
public:
    using DefaultIconProvider::CreateIcon;
    QIcon CreateIcon(const QString &name) const override
    {
        QPixmap pixmap(4, 4);
        pixmap.fill(Qt::red);
        return name == QStringLiteral("paint") ? QIcon(pixmap) : QIcon();
    }
};

class QObjectObserver : public QObject, public Vela::UiBase::CommandStateProtocol
{
public:
    using QObject::QObject;
    void commandBeganExecuting(CommandBase *command, bool) override
    {
        heard << command->objectName();
    }
    QStringList heard;
};

} // namespace

class TestCommandGroup : public Lumo::Test::TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void newGroupHasItsDefaults();
    void iconComesFromTheToolkit();
    void idIsTheClassNameAndTheObjectName();
    void runningAGroupDoesNothing();

    void addedCommandIsOwnedRankedAndPlaced();
    void takenIdIsRefused();
    void idOfOneThatWasPutIntoTheBagIsTakenToo();
    void addedCommandIsShared();
    void nullIsIgnored();
    void removedCommandLeavesEverything();
    void removalReachesSubGroups();
    void renamedSubGroupGoesWithItsLastCommand();
    void removalOfAnUnknownIdDoesNothing();
    void groupThatEndsFreesItsChildren();
    void commandNeverKnowsAGroupThatEnded();
    void groupNeverHoldsItself();
    void groupMayEndWithTheCommandThatIsRemoved();
    void groupsMayEndInWhatAnAdditionSetsOff();
    void groupStaysUntilItIsChecked();

    void groupIsFoundByItselfAndThroughItsChildren();
    void subGroupIsFoundByName();
    void ranksAreKeptById();

    void checkedChildUnchecksItsSibling();
    void groupFollowsTheChildThatRan();
    void groupThatIsNotCheckableStaysUnchecked();
    void groupIsEnabledWhileAChildIs();
    void childrenSetTheGroupByItsOwnOperations();
    void enabledChildIsFoundWhereverItStands();
    void checkedActionFollowsTheChildren();
    void otherChildIsUncheckedBeforeTheNewOneIsHeard();
    void siblingMayLetGoOfTheGroupThatUnchecksIt();
    void childrenOfAGroupThatIsNotExclusiveStayChecked();
    void actionBesideTheChildrenExcludesThem();
    void removedChildExcludesNoOther();
    void childTakenByAnotherActionGroupExcludesNoOther();
    void settingTheGroupLeavesItsChildrenAlone();
    void stateEnablesAndDisablesTheChildren_data();
    void stateEnablesAndDisablesTheChildren();
    void uncheckChildrenRunsTheCheckedOne();
    void uncheckChildrenOfAnUncheckedGroupChangesNothing();

    void childOnItsWayToBeingCheckedIsAnnounced();
    void groupsThatListenExcludeEachOther();
    void listeningToNothingIsIgnored();

    void toolButtonFollowsTheGroup();
    void toolButtonAndToolBarThatDieAreForgotten();
    void toolButtonShowsTheChildAddedLast();
    void toolButtonOfAGroupThatIsNotCheckableKeepsItsIcon();
    void toolButtonMayEndItsGroup();

    void contextHoldsOneLevel();
    void savingReachesTheChildren();
    void addedMarkReachesTheChildren();
    void attachedNamesGoToTheChildrenOnly();
    void observersAreAlwaysDirectAndReachTheChildren();
    void qobjectObserversReachTheChildren();
    void removingAllObserversLeavesThoseOfTheChildren();

    void absorbingTakesTheChildrenIn();
    void absorbingMergesEntriesOfTheSameGroup();
    void absorbingItselfOrNullDoesNothing();
    void absorbingAGroupThatHoldsThisOneTakesTheOthersIn();
    void wrappedCommandGetsAGroupOfItsOwn();

    void orderOfTheOperationsStays();
};

void TestCommandGroup::newGroupHasItsDefaults()
{
    const CommandGroup group(QString(), QStringLiteral("Edits the mesh"), QStringLiteral("Edit"));
    QVERIFY(group.isCheckable());
    QVERIFY(group.isEnabled());
    QVERIFY(!group.isChecked());
    QVERIFY(group.isGrid());
    QCOMPARE(group.gridSize(), 2);
    QVERIFY(!group.isVirtualGroup());
    QVERIFY(!group.isAttached());
    QVERIFY(group.executionQoS() == Tessel::EQualityOfService::Main);
    QCOMPARE(group.toolTip(), QStringLiteral("Edits the mesh"));
    QCOMPARE(group.getViewController(), nullptr);
    QCOMPARE(group.groupActionGroup()->parent(), &group);
    QVERIFY(group.groupActionGroup()->isExclusive());
    QVERIFY(group.commandBag().empty());
    QVERIFY(group.icon().isNull());
    const CommandGroup nameless;
    QCOMPARE(nameless.commandId(), CommandGroup::className());
}

void TestCommandGroup::iconComesFromTheToolkit()
{
    using namespace Vela::UiBase;
    QtUiToolkit::Instance().IconProvider(new PaintIconProvider);
    const CommandGroup group(QStringLiteral("paint"));
    QtUiToolkit::Instance().IconProvider(new DefaultIconProvider);
    QVERIFY(!group.icon().isNull());
}

void TestCommandGroup::idIsTheClassNameAndTheObjectName()
{
    const auto group = makeGroup();
    QCOMPARE(group->commandId(), QStringLiteral("Vela::UiBase::CommandGroupEdit"));
    QCOMPARE(CommandGroup::className(), QStringLiteral("Vela::UiBase::CommandGroup"));
    group->setObjectName(QStringLiteral("View"));
    QCOMPARE(group->commandId(), QStringLiteral("Vela::UiBase::CommandGroupView"));
}

void TestCommandGroup::runningAGroupDoesNothing()
{
    EventLog log;
    const WaypointRecorder waypoints(log);
    const auto group = makeGroup();
    const auto recorder = std::make_shared<CommandRecorder>(log);
    group->addObserver(recorder, false);
    QVERIFY(group->onExecute(true));
    QVERIFY(group->onExecuteAsync(false));
    group->trigger();
    QVERIFY(log.events().isEmpty());
}

void TestCommandGroup::addedCommandIsOwnedRankedAndPlaced()
{
    const auto group = makeGroup();
    bool isDead = false;
    auto *const command = new TestCommand(cut);
    command->ended = [&isDead] { isDead = true; };
    QCOMPARE(group->addCommand(command, 7), command);
    QCOMPARE(idsOf(*group), QStringList(cut));
    QCOMPARE(group->getCommandRank(cut), 7);
    QCOMPARE(command->commandGroup(), group.get());
    QCOMPARE(command->actionGroup(), group->groupActionGroup());
    QVERIFY(group->removeCommand(cut));
    QVERIFY(isDead);
}

void TestCommandGroup::takenIdIsRefused()
{
    const auto group = makeGroup();
    addTo(*group, cut, 7);
    const auto second = std::make_shared<TestCommand>(cut);
    QCOMPARE(group->addCommand(second, 9), nullptr);
    QCOMPARE(group->getCommandRank(cut), 7);
    QCOMPARE(second->commandGroup(), nullptr);
    QCOMPARE(group->commandBag().size(), std::size_t(1));

    bool isDead = false;
    auto *const adopted = new TestCommand(cut);
    adopted->ended = [&isDead] { isDead = true; };
    QCOMPARE(group->addCommand(adopted), nullptr);
    QVERIFY(isDead);
}

void TestCommandGroup::idOfOneThatWasPutIntoTheBagIsTakenToo()
{
    const auto group = makeGroup();
    Vela::UiBase::CommandBag &bag = group->commandBag();
    addTo(*group, copy, 1);
    QVERIFY(bag.addCommand(std::make_shared<TestCommand>(cut)));
    QCOMPARE(group->addCommand(std::make_shared<TestCommand>(cut), 9), nullptr);
    QCOMPARE(bag.size(), std::size_t(2));
    QVERIFY(bag.removeCommand(copy));
    QVERIFY(group->addCommand(std::make_shared<TestCommand>(copy), 2));
    QCOMPARE(group->getCommandRank(copy), 2);
}

void TestCommandGroup::addedCommandIsShared()
{
    const auto command = std::make_shared<TestCommand>(cut);
    auto group = makeGroup();
    group->addCommand(command.get());
    QCOMPARE(command.use_count(), 2L);
    QCOMPARE(group->getCommandRank(cut), 0);
    group.reset();
    QCOMPARE(command.use_count(), 1L);
}

void TestCommandGroup::nullIsIgnored()
{
    const auto group = makeGroup();
    QCOMPARE(group->addCommand(nullptr), nullptr);
    QCOMPARE(group->addCommand(std::shared_ptr<CommandBase>(), 3), nullptr);
    QVERIFY(group->commandBag().empty());
    group->commandBag().emplace_back(cut, nullptr);
    QVERIFY(!group->hasCommand(copy));
    QCOMPARE(group->getCommand(copy), nullptr);
    QCOMPARE(group->getCommandGroup(copy), nullptr);
    group->setCommandState({On, On});
    QCOMPARE(group->commandContext().get().size(), 1);
}

void TestCommandGroup::removedCommandLeavesEverything()
{
    const auto group = makeGroup();
    const auto command = std::make_shared<TestCommand>(cut);
    command->setCheckable(true);
    group->addCommand(command, 7);
    QSignalSpy announced(group.get(), &CommandGroup::childToBeTriggered);
    QVERIFY(group->removeCommand(group->commandBag().front().first));
    QCOMPARE(command->commandGroup(), nullptr);
    QCOMPARE(command->actionGroup(), nullptr);
    QCOMPARE(group->getCommandRank(cut), 0);
    command->setChecked(true);
    QVERIFY(!group->isChecked());
    QVERIFY(announced.isEmpty());
    command->setEnabled(false);
    QVERIFY(group->isEnabled());

    const auto plain = std::make_shared<TestCommand>(copy);
    group->addCommand(plain);
    QVERIFY(group->removeCommand(copy));
    group->setChecked(true);
    plain->trigger();
    Q_EMIT plain->toBeTriggered(true);
    QVERIFY(group->isChecked());
    QVERIFY(announced.isEmpty());
}

void TestCommandGroup::removalReachesSubGroups()
{
    const auto group = makeGroup();
    CommandGroup *const sub = addSubGroup(*group, QStringLiteral("Sub"));
    addTo(*sub, cut);
    addTo(*sub, copy);
    QVERIFY(group->removeCommand(copy));
    QCOMPARE(idsOf(*sub), QStringList(cut));
    QCOMPARE(group->commandBag().size(), std::size_t(1));
    QVERIFY(group->removeCommand(cut));
    QVERIFY(group->commandBag().empty());
}

void TestCommandGroup::renamedSubGroupGoesWithItsLastCommand()
{
    const auto group = makeGroup();
    CommandGroup *const sub = addSubGroup(*group, QStringLiteral("Sub"));
    addTo(*sub, cut);
    sub->setObjectName(QStringLiteral("Renamed"));
    QVERIFY(group->removeCommand(cut));
    QVERIFY(group->commandBag().empty());
}

void TestCommandGroup::removalOfAnUnknownIdDoesNothing()
{
    const auto group = makeGroup();
    addTo(*group, cut);
    addTo(*addSubGroup(*group, QStringLiteral("Sub")), copy);
    QVERIFY(!group->removeCommand(paste));
    QVERIFY(!group->removeCommand(group->commandId()));
    QCOMPARE(group->commandBag().size(), std::size_t(2));
}

void TestCommandGroup::groupThatEndsFreesItsChildren()
{
    auto group = makeGroup();
    const auto command = std::make_shared<TestCommand>(cut);
    group->addCommand(command);
    group.reset();
    QCOMPARE(command->commandGroup(), nullptr);
    QCOMPARE(command->actionGroup(), nullptr);
    command->trigger();
}

void TestCommandGroup::commandNeverKnowsAGroupThatEnded()
{
    auto group = makeGroup();
    const auto command = std::make_shared<TestCommand>(cut);
    group->addCommand(command);
    group->commandBag().clear();
    QCOMPARE(command->commandGroup(), group.get());
    group.reset();
    QCOMPARE(command->commandGroup(), nullptr);
}

void TestCommandGroup::groupNeverHoldsItself()
{
    const auto group = makeGroup();
    CommandGroup *const sub = addSubGroup(*group, QStringLiteral("Sub"));
    CommandGroup *const deep = addSubGroup(*sub, QStringLiteral("Deep"));
    for (CommandGroup *const holder : {group.get(), sub, deep})
        QCOMPARE(holder->addCommand(group), nullptr);
    QCOMPARE(deep->addCommand(sub), nullptr);
    QVERIFY(deep->commandBag().empty());
    QCOMPARE(sub->commandGroup(), group.get());
    QCOMPARE(group->commandGroup(), nullptr);
    QVERIFY(!group->hasCommand(cut));

    CommandGroup unowned;
    QCOMPARE(unowned.addCommand(&unowned), nullptr);
    QVERIFY(unowned.commandBag().empty());
}

void TestCommandGroup::groupMayEndWithTheCommandThatIsRemoved()
{
    for (const bool isInSubGroup : {false, true}) {
        auto group = makeGroup();
        CommandGroup *const bare = group.get();
        CommandGroup *const holder =
            isInSubGroup ? addSubGroup(*group, QStringLiteral("Sub")) : bare;
        addTo(*holder, cut)->ended = [&group] { group.reset(); };
        QVERIFY(bare->removeCommand(cut));
        QCOMPARE(group, nullptr);
    }
}

void TestCommandGroup::groupsMayEndInWhatAnAdditionSetsOff()
{
    for (const bool isAbsorbing : {false, true}) {
        auto group = makeGroup();
        auto other = makeGroup(QStringLiteral("Other"));
        const auto command = std::make_shared<TestCommand>(cut);
        if (isAbsorbing) {
            other->addCommand(command);
            addTo(*other, copy);
        }
        // The action tells that it is in a group now.
        connect(command.get(), &QAction::changed, this, [&] {
            group.reset();
            other.reset();
        });
        if (isAbsorbing)
            group->absorbCommandGroup(other.get());
        else
            group->addCommand(command);
        QCOMPARE(group, nullptr);
        QCOMPARE(command->commandGroup(), nullptr);
    }
}

void TestCommandGroup::groupStaysUntilItIsChecked()
{
    // Checking the one group unchecks its sibling, and what that runs removes the group.
    const auto group = makeGroup();
    TestCommand *const sibling = addTo(*group, copy);
    sibling->setChecked(true);
    const std::weak_ptr<CommandBase> sub =
        addSubGroup(*group, QStringLiteral("Sub"))->shared_from_this();
    const auto command = std::make_shared<TestCommand>(cut);
    command->setCheckable(true);
    static_cast<CommandGroup *>(sub.lock().get())->addCommand(command);
    bool wasThere = false;
    sibling->work = [&](bool) {
        group->removeCommand(sub.lock()->commandId());
        wasThere = !sub.expired();
        return true;
    };
    command->setChecked(true);
    QVERIFY(!sibling->isChecked());
    QVERIFY(wasThere);
    QVERIFY(sub.expired());
}

void TestCommandGroup::groupIsFoundByItselfAndThroughItsChildren()
{
    const auto group = makeGroup();
    CommandGroup *const sub = addSubGroup(*group, QStringLiteral("Sub"));
    TestCommand *const command = addTo(*sub, cut);
    QVERIFY(group->hasCommand(group->commandId()));
    QCOMPARE(group->getCommand(group->commandId()), group.get());
    QVERIFY(group->hasCommand(cut));
    QCOMPARE(group->getCommand(cut), command);
    QCOMPARE(group->getCommand(sub->commandId()), sub);
    QVERIFY(!group->hasCommand(paste));
    QCOMPARE(group->getCommand(paste), nullptr);
}

void TestCommandGroup::subGroupIsFoundByName()
{
    const auto group = makeGroup();
    CommandGroup *const sub = addSubGroup(*group, QStringLiteral("Sub"));
    CommandGroup *const deep = addSubGroup(*sub, QStringLiteral("Deep"));
    QCOMPARE(group->getCommandGroup(QStringLiteral("Sub")), sub);
    QCOMPARE(group->getCommandGroup(QStringLiteral("Deep")), deep);
    QCOMPARE(group->getCommandGroup(QStringLiteral("Edit")), nullptr);
    QCOMPARE(group->getCommandGroup(QStringLiteral("sub")), nullptr);
}

void TestCommandGroup::ranksAreKeptById()
{
    const auto group = makeGroup();
    QCOMPARE(group->getCommandRank(cut), 0);
    group->setCommandRank(cut, -4);
    QCOMPARE(group->getCommandRank(cut), -4);
    group->setGrid(false);
    group->setGridSize(5);
    QVERIFY(!group->isGrid());
    QCOMPARE(group->gridSize(), 5);
}

void TestCommandGroup::checkedChildUnchecksItsSibling()
{
    const auto group = makeGroup();
    TestCommand *const first = addTo(*group, cut);
    TestCommand *const second = addTo(*group, copy);
    QStringList runs;
    for (TestCommand *const command : {first, second}) {
        command->work = [&runs, command](bool checked) {
            runs << command->commandId() + QLatin1Char(' ') + textOf(checked);
            return true;
        };
    }
    first->trigger();
    second->trigger();
    QVERIFY(!first->isChecked());
    QVERIFY(runs.contains(QStringLiteral("cut false")));
    QCOMPARE(runs.count(QStringLiteral("copy true")), 1);
    QCOMPARE(runs.size(), 3);
}

void TestCommandGroup::groupFollowsTheChildThatRan()
{
    const auto group = makeGroup();
    TestCommand *const command = addTo(*group, cut);
    command->setChecked(true);
    QVERIFY(group->isChecked());
    command->setChecked(false);
    QVERIFY(!group->isChecked());

    auto *const plain = new TestCommand(copy);
    group->addCommand(plain);
    group->setChecked(true);
    plain->trigger();
    QVERIFY(!group->isChecked());
}

void TestCommandGroup::groupThatIsNotCheckableStaysUnchecked()
{
    const auto group = makeGroup();
    TestCommand *const command = addTo(*group, cut);
    group->setCheckable(false);
    command->setChecked(true);
    group->setCheckable(true);
    QVERIFY(!group->isChecked());
}

void TestCommandGroup::groupIsEnabledWhileAChildIs()
{
    const auto group = makeGroup();
    TestCommand *const first = addTo(*group, cut);
    TestCommand *const second = addTo(*group, copy);
    first->setEnabled(false);
    QVERIFY(group->isEnabled());
    second->setEnabled(false);
    QVERIFY(!group->isEnabled());
    first->setEnabled(true);
    QVERIFY(group->isEnabled());
}

void TestCommandGroup::childrenSetTheGroupByItsOwnOperations()
{
    class Noting : public CommandGroup
    {
    public:
        void setEnabled(bool enabled) override
        {
            calls << QStringLiteral("enabled ") + textOf(enabled);
            CommandGroup::setEnabled(enabled);
        }
        void setChecked(bool checked) override
        {
            calls << QStringLiteral("checked ") + textOf(checked);
            CommandGroup::setChecked(checked);
        }
        QStringList calls;
    };
    Noting group;
    TestCommand *const command = addTo(group, cut);
    group.calls.clear();
    command->setEnabled(false);
    QCOMPARE(group.calls, QStringList(QStringLiteral("enabled false")));
    group.calls.clear();
    command->setChecked(true);
    QVERIFY(group.calls.contains(QStringLiteral("checked true")));
    group.calls.clear();
    group.uncheckChildren(true);
    QVERIFY(group.calls.contains(QStringLiteral("checked false")));
}

void TestCommandGroup::checkedActionFollowsTheChildren()
{
    const auto group = makeGroup();
    TestCommand *const first = addTo(*group, cut);
    TestCommand *const second = addTo(*group, copy);
    const QActionGroup &actions = *group->groupActionGroup();
    QCOMPARE(actions.checkedAction(), nullptr);
    first->setChecked(true);
    QCOMPARE(actions.checkedAction(), first);
    second->setEnabled(false);
    QCOMPARE(actions.checkedAction(), first);
    second->setChecked(true);
    QCOMPARE(actions.checkedAction(), second);
    QVERIFY(!first->isChecked());
    second->setChecked(false);
    QCOMPARE(actions.checkedAction(), nullptr);
    first->trigger();
    QCOMPARE(actions.checkedAction(), first);
    first->trigger();
    QVERIFY(first->isChecked());
}

void TestCommandGroup::otherChildIsUncheckedBeforeTheNewOneIsHeard()
{
    const auto group = makeGroup();
    TestCommand *const first = addTo(*group, cut);
    TestCommand *const second = addTo(*group, copy);
    first->setChecked(true);
    QStringList order;
    connect(first, &QAction::toggled, this, [&] { order << QStringLiteral("first off"); });
    connect(second, &QAction::changed, this, [&] { order << QStringLiteral("changed"); });
    connect(second, &QAction::toggled, this, [&] { order << QStringLiteral("second on"); });
    second->setChecked(true);
    QCOMPARE(order,
             QStringList({QStringLiteral("first off"), QStringLiteral("changed"),
                          QStringLiteral("second on")}));
}

void TestCommandGroup::siblingMayLetGoOfTheGroupThatUnchecksIt()
{
    auto group = makeGroup();
    TestCommand *const first = addTo(*group, cut);
    const auto second = std::make_shared<TestCommand>(copy);
    group->addCommand(second);
    first->setCheckable(true);
    second->setCheckable(true);
    first->setChecked(true);
    const QPointer<CommandGroup> alive = group.get();
    bool wasAlive = false;
    connect(first, &QAction::toggled, this, [&] {
        group.reset();
        wasAlive = alive;
    });
    second->setChecked(true);
    QVERIFY(wasAlive);
    QVERIFY(!alive);
    QVERIFY(second->isChecked());
}

void TestCommandGroup::childrenOfAGroupThatIsNotExclusiveStayChecked()
{
    const auto group = makeGroup();
    TestCommand *const first = addTo(*group, cut);
    TestCommand *const second = addTo(*group, copy);
    group->groupActionGroup()->setExclusive(false);
    first->setChecked(true);
    second->setChecked(true);
    QVERIFY(first->isChecked());
    QCOMPARE(group->groupActionGroup()->checkedAction(), nullptr);
}

void TestCommandGroup::actionBesideTheChildrenExcludesThem()
{
    const auto group = makeGroup();
    TestCommand *const child = addTo(*group, cut);
    QAction beside;
    beside.setCheckable(true);
    group->groupActionGroup()->addAction(&beside);
    beside.setChecked(true);
    child->setChecked(true);
    QVERIFY(!beside.isChecked());
    beside.setChecked(true);
    QVERIFY(!child->isChecked());
    QCOMPARE(group->groupActionGroup()->checkedAction(), &beside);
}

void TestCommandGroup::removedChildExcludesNoOther()
{
    const auto group = makeGroup();
    const auto removed = std::make_shared<TestCommand>(cut);
    removed->setCheckable(true);
    group->addCommand(removed);
    TestCommand *const other = addTo(*group, copy);
    group->removeCommand(cut);
    other->setChecked(true);
    removed->setChecked(true);
    QVERIFY(other->isChecked());
    QCOMPARE(group->groupActionGroup()->checkedAction(), other);
    group->addCommand(removed);
    QCOMPARE(group->groupActionGroup()->checkedAction(), removed.get());
    other->setChecked(false);
    other->setChecked(true);
    QVERIFY(!removed->isChecked());
}

void TestCommandGroup::childTakenByAnotherActionGroupExcludesNoOther()
{
    const auto group = makeGroup();
    TestCommand *const taken = addTo(*group, cut);
    TestCommand *const other = addTo(*group, copy);
    QActionGroup another(nullptr);
    another.addAction(taken);
    other->setChecked(true);
    taken->setChecked(true);
    QVERIFY(other->isChecked());
    QCOMPARE(another.checkedAction(), taken);
    QCOMPARE(group->groupActionGroup()->checkedAction(), other);
}

void TestCommandGroup::enabledChildIsFoundWhereverItStands()
{
    const auto group = makeGroup();
    QVector<TestCommand *> commands;
    for (int i = 0; i < 5; ++i)
        commands << addTo(*group, QString::number(i));
    for (int last = 0; last < commands.size(); ++last) {
        for (TestCommand *const command : std::as_const(commands))
            command->setEnabled(true);
        for (int i = 0; i < commands.size(); ++i) {
            if (i != last)
                commands[i]->setEnabled(false);
        }
        QVERIFY(group->isEnabled());
        commands[last]->setEnabled(false);
        QVERIFY(!group->isEnabled());
    }
    while (group->commandBag().size() > 1)
        QVERIFY(group->removeCommand(group->commandBag().back().first));
    commands.first()->setEnabled(true);
    QVERIFY(group->isEnabled());
}

void TestCommandGroup::settingTheGroupLeavesItsChildrenAlone()
{
    const auto group = makeGroup();
    TestCommand *const command = addTo(*group, cut);
    group->setEnabled(false);
    group->setChecked(true);
    QVERIFY(command->isEnabled());
    QVERIFY(!command->isChecked());
    QVERIFY(!group->isEnabled());
    QVERIFY(group->isChecked());
}

void TestCommandGroup::stateEnablesAndDisablesTheChildren_data()
{
    QTest::addColumn<CommandState>("state");
    QTest::addColumn<bool>("childStartsEnabled");
    QTest::addColumn<bool>("isChildEnabled");
    QTest::addColumn<bool>("isGroupEnabled");
    QTest::newRow("on") << CommandState(On, Keep) << false << true << true;
    QTest::newRow("off") << CommandState(Off, Keep) << true << false << false;
    // The children go first, and the group follows them by its own rule.
    QTest::newRow("nothing stated") << CommandState(Keep, Keep) << true << false << false;
    QTest::newRow("nothing stated, disabled")
        << CommandState(Keep, Keep) << false << false << false;
    QTest::newRow("check mark only") << CommandState(Keep, On) << true << false << false;
}

void TestCommandGroup::stateEnablesAndDisablesTheChildren()
{
    QFETCH(const CommandState, state);
    QFETCH(const bool, childStartsEnabled);
    const auto group = makeGroup();
    TestCommand *const command = addTo(*group, cut);
    command->setEnabled(childStartsEnabled);
    group->setCommandState(state);
    QTEST(command->isEnabled(), "isChildEnabled");
    QTEST(group->isEnabled(), "isGroupEnabled");
    QVERIFY(!command->isChecked());
    QCOMPARE(group->isChecked(), state.checked == On);
}

void TestCommandGroup::uncheckChildrenRunsTheCheckedOne()
{
    const auto group = makeGroup();
    TestCommand *const command = addTo(*group, cut);
    addTo(*group, copy);
    group->addCommand(new TestCommand(paste));
    command->setChecked(true);
    QStringList runs;
    command->work = [&runs](bool checked) {
        runs << textOf(checked);
        return true;
    };
    group->uncheckChildren(true);
    QCOMPARE(runs, QStringList(QStringLiteral("false")));
    QVERIFY(!command->isChecked());
    QVERIFY(!group->isChecked());
    group->setChecked(true);
    group->uncheckChildren(false);
    QVERIFY(!group->isChecked());
}

void TestCommandGroup::uncheckChildrenOfAnUncheckedGroupChangesNothing()
{
    const auto group = makeGroup();
    QSignalSpy childChanged(addTo(*group, cut), &QAction::changed);
    QSignalSpy groupChanged(group.get(), &QAction::changed);
    group->uncheckChildren(true);
    QVERIFY(childChanged.isEmpty());
    QVERIFY(groupChanged.isEmpty());
}

void TestCommandGroup::childOnItsWayToBeingCheckedIsAnnounced()
{
    const auto group = makeGroup<OpenGroup>();
    TestCommand *const command = addTo(*group, cut);
    QSignalSpy announced(group.get(), &CommandGroup::childToBeTriggered);
    command->setChecked(true);
    QCOMPARE(announced.count(), 1);
    QCOMPARE(announced.first().first().toBool(), true);
    command->setChecked(false);
    group->onChildToBeTriggered(false);
    QCOMPARE(announced.count(), 1);
    Q_EMIT command->toBeTriggered(false);
    QCOMPARE(announced.count(), 1);
    Q_EMIT command->toBeTriggered(true);
    QCOMPARE(announced.count(), 2);
}

void TestCommandGroup::groupsThatListenExcludeEachOther()
{
    const auto tools = makeGroup(QStringLiteral("Tools"));
    const auto views = makeGroup(QStringLiteral("Views"));
    TestCommand *const tool = addTo(*tools, cut);
    TestCommand *const view = addTo(*views, copy);
    tools->listenToTrigger(views.get(), SLOT(uncheckChildren(bool)));
    bool wasUncheckedBeforeTheRun = false;
    view->work = [&](bool) {
        wasUncheckedBeforeTheRun = !tool->isChecked();
        return true;
    };
    tool->setChecked(true);
    view->setChecked(true);
    QVERIFY(wasUncheckedBeforeTheRun);
    QVERIFY(!tools->isChecked());
    tool->setChecked(true);
    QVERIFY(view->isChecked());
}

void TestCommandGroup::listeningToNothingIsIgnored()
{
    const auto group = makeGroup();
    group->listenToTrigger(nullptr, SLOT(uncheckChildren(bool)));
    group->listenToTrigger(group.get(), nullptr);
}

void TestCommandGroup::toolButtonFollowsTheGroup()
{
    const auto group = makeGroup();
    QCOMPARE(group->toolButton(), nullptr);
    ToolButton button(nullptr);
    group->setToolButton(&button);
    QCOMPARE(group->toolButton(), &button);
    QVERIFY(button.isCheckable());
    group->setChecked(true);
    QVERIFY(button.isChecked());
    group->setEnabled(false);
    QVERIFY(!button.isEnabled());

    TestCommand *const child = addTo(*group, cut);
    child->setEnabled(false);
    child->setEnabled(true);
    QVERIFY(button.isEnabled());
    child->setChecked(true);
    child->setChecked(false);
    QVERIFY(!button.isChecked());

    group->setCheckable(false);
    group->setToolButton(&button);
    QVERIFY(!button.isCheckable());
    group->setToolButton(nullptr);
    QCOMPARE(group->toolButton(), nullptr);
    group->setEnabled(false);
    QVERIFY(button.isEnabled());
}

void TestCommandGroup::toolButtonAndToolBarThatDieAreForgotten()
{
    const auto group = makeGroup();
    QCOMPARE(group->toolbar(), nullptr);
    auto bar = std::make_unique<ToolBar>(nullptr, Qt::TopToolBarArea);
    auto button = std::make_unique<ToolButton>(nullptr);
    group->setToolbar(bar.get());
    group->setToolButton(button.get());
    QCOMPARE(group->toolbar(), bar.get());
    bar.reset();
    button.reset();
    QCOMPARE(group->toolbar(), nullptr);
    QCOMPARE(group->toolButton(), nullptr);
    group->setChecked(true);
    group->setEnabled(false);
    addTo(*group, cut);
    QVERIFY(group->removeCommand(cut));
}

void TestCommandGroup::toolButtonShowsTheChildAddedLast()
{
    const auto group = makeGroup();
    ToolButton button(nullptr);
    group->setToolButton(&button);
    QHash<QString, qint64> pictures;
    for (const QString &id : {cut, copy, paste}) {
        auto *const command = new TestCommand(id);
        command->setIcon(iconIn(Qt::red));
        pictures[id] = command->icon().cacheKey();
        group->addCommand(command);
        QCOMPARE(button.icon().cacheKey(), pictures[id]);
    }
    QVERIFY(group->removeCommand(cut));
    QCOMPARE(button.icon().cacheKey(), pictures[paste]);
    // The one that leaves is still the last one when the button is given its icon.
    QVERIFY(group->removeCommand(paste));
    QCOMPARE(button.icon().cacheKey(), pictures[paste]);
    QVERIFY(group->removeCommand(copy));
    QCOMPARE(button.icon().cacheKey(), pictures[copy]);
}

void TestCommandGroup::toolButtonOfAGroupThatIsNotCheckableKeepsItsIcon()
{
    const auto group = makeGroup();
    group->setCheckable(false);
    ToolButton button(nullptr);
    group->setToolButton(&button);
    auto *const command = new TestCommand(cut);
    command->setIcon(iconIn(Qt::red));
    group->addCommand(command);
    QVERIFY(button.icon().isNull());
}

void TestCommandGroup::toolButtonMayEndItsGroup()
{
    auto group = makeGroup();
    auto *const button = new ToolButton(nullptr);
    const std::unique_ptr<ToolButton> owner(button);
    group->setToolButton(button);
    connect(group.get(), &QAction::toggled, this, [&group] { group.reset(); });
    CommandGroup *const dying = group.get();
    dying->setChecked(true);
    QCOMPARE(group, nullptr);
    QVERIFY(button->isChecked());
}

void TestCommandGroup::contextHoldsOneLevel()
{
    const auto group = makeGroup();
    addTo(*group, cut)->setChecked(true);
    CommandGroup *const sub = addSubGroup(*group, QStringLiteral("Sub"));
    addTo(*sub, copy);
    const CommandContext context = group->commandContext();
    QCOMPARE(context.get().size(), 3);
    QVERIFY(context.get().value(group->commandId()) == CommandState(On, On));
    QVERIFY(context.get().value(cut) == CommandState(On, On));
    QVERIFY(context.get().value(sub->commandId()) == CommandState(On, Off));
}

void TestCommandGroup::savingReachesTheChildren()
{
    const auto group = makeGroup();
    TestCommand *const command = addTo(*addSubGroup(*group, QStringLiteral("Sub")), cut);
    group->saveCommandState();
    group->restoreCommandState();
    group->restoreCommandState();
    QCOMPARE(command->saves, 1);
    QCOMPARE(command->restores, 2);
}

void TestCommandGroup::addedMarkReachesTheChildren()
{
    const auto group = makeGroup();
    const TestCommand *const command = addTo(*group, cut);
    group->setAddedToCmdsVC(true);
    QVERIFY(group->addedToCmdsVC());
    QVERIFY(command->addedToCmdsVC());
    group->setAddedToCmdsVC(false);
    QVERIFY(!command->addedToCmdsVC());
}

void TestCommandGroup::attachedNamesGoToTheChildrenOnly()
{
    const auto group = makeGroup();
    const TestCommand *const command = addTo(*group, cut);
    const TestCommand *const deep = addTo(*addSubGroup(*group, QStringLiteral("Sub")), copy);
    const QString name = QStringLiteral("Tools");
    group->addAttachedCommandGroupName(name);
    QCOMPARE(command->attachedCommandGroupNames(), QStringList(name));
    QVERIFY(group->attachedCommandGroupNames().isEmpty());
    QVERIFY(deep->attachedCommandGroupNames().isEmpty());
    group->removeAttachedCommandGroupName(name);
    QVERIFY(command->attachedCommandGroupNames().isEmpty());
}

void TestCommandGroup::observersAreAlwaysDirectAndReachTheChildren()
{
    EventLog log;
    const auto group = makeGroup();
    TestCommand *const command = addTo(*group, cut);
    const auto recorder = std::make_shared<CommandRecorder>(log);
    group->addObserver(recorder, true);
    TestCommand *const late = addTo(*group, copy);
    command->onExecute();
    QCOMPARE(log.take().value(0), QStringLiteral("began(cut,false)"));
    late->onExecute();
    QVERIFY(log.events().isEmpty());
    announceOf(*group);
    QCOMPARE(log.take(), QStringList(QStringLiteral("began(Edit,true)")));
    group->removeObserver(recorder);
    command->onExecute();
    announceOf(*group);
    QVERIFY(log.events().isEmpty());
}

void TestCommandGroup::qobjectObserversReachTheChildren()
{
    QObject owner;
    auto *const observer = new QObjectObserver(&owner);
    const auto group = makeGroup();
    TestCommand *const command = addTo(*group, cut);
    group->addObserver(observer);
    command->onExecute();
    QTRY_COMPARE(observer->heard, QStringList(cut));
    announceOf(*group);
    QTRY_COMPARE(observer->heard, QStringList({cut, QStringLiteral("Edit")}));
    group->removeObserver(observer);
    command->onExecute();
    announceOf(*group);
    QCoreApplication::processEvents();
    QCOMPARE(observer->heard.size(), 2);
}

void TestCommandGroup::removingAllObserversLeavesThoseOfTheChildren()
{
    EventLog log;
    const auto group = makeGroup();
    TestCommand *const command = addTo(*group, cut);
    const auto recorder = std::make_shared<CommandRecorder>(log);
    group->addObserver(recorder, false);
    group->removeAllObservers();
    announceOf(*group);
    QVERIFY(log.events().isEmpty());
    command->onExecute();
    QCOMPARE(log.take().value(0), QStringLiteral("began(cut,false)"));
}

void TestCommandGroup::absorbingTakesTheChildrenIn()
{
    const auto group = makeGroup();
    TestCommand *const own = addTo(*group, cut, 1);
    auto other = makeGroup();
    TestCommand *const copied = addTo(*other, copy, 5);
    const TestCommand *const refused = addTo(*other, cut, 6);
    group->absorbCommandGroup(other.get());
    QCOMPARE(idsOf(*group), QStringList({cut, copy}));
    QCOMPARE(idsOf(*other), QStringList({copy, cut}));
    QCOMPARE(group->getCommand(cut), own);
    QCOMPARE(group->getCommandRank(copy), 5);
    QCOMPARE(group->getCommandRank(cut), 1);
    QCOMPARE(copied->commandGroup(), other.get());
    QCOMPARE(refused->commandGroup(), other.get());
    QCOMPARE(copied->actionGroup(), group->groupActionGroup());
    other.reset();
    QCOMPARE(copied->commandGroup(), nullptr);
    copied->setChecked(true);
    QVERIFY(group->isChecked());
}

void TestCommandGroup::absorbingMergesEntriesOfTheSameGroup()
{
    // The bag has an entry with the id of the group that comes, so entries merge and share.
    const auto group = makeGroup(QStringLiteral("Top"));
    const auto other = makeGroup(QStringLiteral("Same"));
    group->addCommand(makeGroup(QStringLiteral("Same")));
    CommandGroup *const entry = addSubGroup(*group, QStringLiteral("Sub"));
    auto child = makeGroup(QStringLiteral("Sub"));
    TestCommand *const command = addTo(*child, cut, 3);
    other->addCommand(child);
    addTo(*other, paste);
    group->absorbCommandGroup(other.get());
    QCOMPARE(&entry->commandBag(), &child->commandBag());
    QCOMPARE(entry->getCommandRank(cut), 3);
    QVERIFY(!group->hasCommand(paste));
    child.reset();
    QVERIFY(other->removeCommand(CommandGroup::className() + QStringLiteral("Sub")));
    QCOMPARE(entry->getCommand(cut), command);
    QCOMPARE(entry->groupActionGroup(), nullptr);
    command->setChecked(true);
    QVERIFY(entry->isChecked());
    addTo(*entry, copy);
    QVERIFY(entry->removeCommand(cut));
}

void TestCommandGroup::absorbingItselfOrNullDoesNothing()
{
    const auto group = makeGroup();
    addTo(*group, cut);
    group->absorbCommandGroup(nullptr);
    group->absorbCommandGroup(group.get());
    QCOMPARE(idsOf(*group), QStringList(cut));
    QCOMPARE(group->getCommand(cut)->commandGroup(), group.get());
}

void TestCommandGroup::absorbingAGroupThatHoldsThisOneTakesTheOthersIn()
{
    const auto group = makeGroup();
    const auto other = makeGroup(QStringLiteral("Other"));
    other->addCommand(group);
    addTo(*other, cut);
    group->absorbCommandGroup(other.get());
    QCOMPARE(idsOf(*group), QStringList(cut));
    QVERIFY(!group->hasCommand(copy));
    QCOMPARE(group->commandGroup(), other.get());

    // The same where entries are merged: the one would share all with a group that holds it.
    const auto same = makeGroup(QStringLiteral("Same"));
    CommandGroup *const holding = addSubGroup(*same, QStringLiteral("Sub"));
    holding->addCommand(group);
    group->addCommand(makeGroup(QStringLiteral("Same")));
    CommandGroup *const entry = addSubGroup(*group, QStringLiteral("Sub"));
    group->absorbCommandGroup(same.get());
    QVERIFY(entry->commandBag().empty());
    QVERIFY(!group->hasCommand(copy));
}

void TestCommandGroup::wrappedCommandGetsAGroupOfItsOwn()
{
    auto *const command = new TestCommand(cut);
    const std::unique_ptr<CommandGroup> group(CommandGroup::WrapSingleCmdIntoVirtualCmdGroup(
        command, 4, QStringLiteral("Wrap"), QStringLiteral("Base")));
    QVERIFY(group->isVirtualGroup());
    QCOMPARE(group->objectName(), QStringLiteral("Wrap"));
    QCOMPARE(group->baseGroupName(), QStringLiteral("Base"));
    QCOMPARE(command->baseGroupName(), QStringLiteral("Base"));
    QCOMPARE(group->getCommandRank(cut), 4);
    QCOMPARE(command->commandGroup(), group.get());
    QCOMPARE(group->weak_from_this().use_count(), 0L);
    QCOMPARE(CommandGroup::WrapSingleCmdIntoVirtualCmdGroup(nullptr, 0, QString(), QString()),
             nullptr);
}

void TestCommandGroup::orderOfTheOperationsStays()
{
    using G = OpenGroup;
    using Bag = Vela::UiBase::CommandBag;
    using Shared = std::shared_ptr<CommandBase>;
    using Change = void (G::*)(bool);
    QVERIFY(Lumo::Test::standInThisOrder(
        static_cast<const Bag &(G::*)() const>(&G::commandBag),
        static_cast<Bag &(G::*)()>(&G::commandBag),
        static_cast<CommandBase *(G::*)(const Shared &, int)>(&G::addCommand),
        static_cast<CommandBase *(G::*)(CommandBase *, int)>(&G::addCommand), &G::removeCommand,
        &G::getCommandGroup, &G::absorbCommandGroup, static_cast<Change>(&G::setEnabled),
        static_cast<Change>(&G::setChecked), &G::getCommandRank, &G::setCommandRank,
        &G::isVirtualGroup, &G::setVirtualGroup, &G::commandContext, &G::uncheckChildren,
        &G::onChildTriggered, &G::onChildToBeTriggered, &G::onChildChanged));
}

LUMO_TEST_MAIN(TestCommandGroup)
#include "tst_commandgroup.moc"
