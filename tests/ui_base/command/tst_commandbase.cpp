// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include <ui_base/CommandBase>
#include <ui_base/ToolButton>

#include "support/eventloop.h"
#include "support/recordingobservers.h"
#include "support/testcase.h"
#include "support/testmain.h"
#include "support/virtualorder.h"
#include "ui_base/command/dynamiccommandgroupstateprotocol.h"
#include "ui_base/command/testcommand.h"

#include <lumo_common_res/String>

#include <QActionGroup>
#include <QMetaMethod>
#include <QSemaphore>
#include <QSignalSpy>
#include <QTemporaryDir>

#include <atomic>
#include <climits>
#include <type_traits>

using Lumo::Test::CommandRecorder;
using Lumo::Test::ControllerFixture;
using Lumo::Test::EventLog;
using Lumo::Test::isMainThread;
using Lumo::Test::runLoopUntil;
using Lumo::Test::TestCommand;
using Lumo::Test::textOf;
using Lumo::Test::WaypointRecorder;
using Tessel::EQualityOfService;
using Vela::Services::ApplicationService;
using Vela::UiBase::CommandBase;
using Vela::UiBase::CommandContext;
using Vela::UiBase::CommandState;
using Vela::UiBase::State;
using Vela::UiBase::ToolButton;

namespace Sample {

class NamedCommand : public CommandBase
{
    Q_OBJECT
    COMMAND_ID

public:
    enum EFirstRun {
        eRunLater,
        eRunInConstructor,
    };

    explicit NamedCommand(EFirstRun firstRun = eRunLater)
        : CommandBase(nullptr)
    {
        if (firstRun == eRunInConstructor)
            onExecute();
    }
    bool onExecuteAsync(bool) override { return true; }
};

class DerivedCommand : public NamedCommand
{
    Q_OBJECT
    COMMAND_ID

public:
    using NamedCommand::NamedCommand;
};

/// Reaches the protected operations.
class OpenCommand : public TestCommand
{
public:
    static bool operationsStandInTheirOrder();
};

bool OpenCommand::operationsStandInTheirOrder()
{
    return Lumo::Test::standInThisOrder(
        &CommandBase::commandId, &CommandBase::setParent, &CommandBase::hasTag,
        &CommandBase::commandTags, &CommandBase::addTag, &CommandBase::removeTag,
        &CommandBase::defaultCommandState, &CommandBase::commandState,
        &CommandBase::setCommandState, &CommandBase::saveCommandState,
        &CommandBase::restoreCommandState, &CommandBase::setViewController,
        &CommandBase::executionQoS, &CommandBase::setExecutionQoS,
        &CommandBase::isExecutionNotificationEnabled, &CommandBase::enableExecutionNotification,
        &CommandBase::getExecutionNotificationMessage,
        &CommandBase::setExecutionNotificationMessage, &CommandBase::onExecuteAsync,
        &CommandBase::hasCommand, &CommandBase::getCommand, &CommandBase::commandGroup,
        &CommandBase::setCommandGroup, &CommandBase::toolButton, &CommandBase::setToolButton,
        &CommandBase::baseGroupName, &CommandBase::setBaseGroupName, &CommandBase::isAttached,
        &CommandBase::setAttached, &CommandBase::addAttachedCommandGroupName,
        &CommandBase::removeAttachedCommandGroupName, &CommandBase::attachedCommandGroupNames,
        &CommandBase::attachedCommandGroupName, &CommandBase::setAddedToCmdsVC,
        &CommandBase::onExecute, &OpenCommand::onTriggered, &OpenCommand::onToggled,
        &OpenCommand::getExecutionCommandContext);
}

} // namespace Sample

namespace {

const QString id = QStringLiteral("cut");

std::shared_ptr<TestCommand> makeCommand()
{
    return std::make_shared<TestCommand>(id);
}

/// Observes the command and its work; both go to the log.
std::shared_ptr<CommandRecorder> recordRuns(TestCommand &command, EventLog log)
{
    const auto recorder = std::make_shared<CommandRecorder>(log);
    command.addObserver(recorder, false);
    command.work = [log](bool checked) mutable {
        log.add(QStringLiteral("work(%1)").arg(textOf(checked))
                + (isMainThread() ? QString() : QStringLiteral("*")));
        return true;
    };
    return recorder;
}

CommandContext disabling(const QString &commandId)
{
    CommandContext context;
    context.overwrite(commandId, {State::Off, State::Keep});
    return context;
}

/// Serves the main queue until all that was posted before has run.
void servePosted()
{
    bool isServed = false;
    Tessel::dispatchAsync([&isServed] { isServed = true; }, EQualityOfService::Main);
    QVERIFY(runLoopUntil([&isServed] { return isServed; }));
}

bool isSwitchingEnabled()
{
    return ApplicationService::GetInstance().isWorkspaceSwitchingEnabled();
}

} // namespace

class TestCommandBase : public Lumo::Test::TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void idIsTheNameOfTheClass();
    void freshCommandHasItsDefaults();
    void aParentIsRefused();
    void tagsAreFoundInAnyCase();
    void tagsDifferByCase();
    void hasTagAsksTheVirtualTags();
    void attachedGroupNamesAreKeptOnce();
    void attachedGroupNamesCanBeChangedInPlace();
    void messagesGrowOnDemand();
    void settersAreRead();
    void commandFindsItself();
    void buttonIsForgottenWhenItDies();

    void setCommandStateChangesWhatIsStated_data();
    void setCommandStateChangesWhatIsStated();
    void checkMarkOfAPlainCommandIsIgnored();
    void applyingACheckMarkRunsTheCommand();
    void stateCanBeAnEntryThatDies();
    void stateIsAProperty();

    void runInPlaceAnnouncesBeginAndEndAroundTheWork();
    void runInPlaceReturnsTheResultOfTheWork();
    void runInPlaceLeavesContextAndWorkspaceAlone();
    void runWithoutArgumentIsUnchecked();
    void runCanBeInvokedByName();
    void waypointsNameTheMostDerivedClass();
    void waypointsFollowAClassThatChanges();
    void plainCommandRunsOncePerTrigger();
    void checkableCommandRunsOncePerChange();
    void exclusiveSiblingRunsUnchecked();
    void announcementSignalComesBeforeTheRun();
    void commandCanLeaveItsLastOwnerInItsWork();
    void commandCanLeaveItsLastOwnerInItsSignal();

    void iconOfTheToolkitTakesTheSize();
    void iconOfOthersKeepsItsSize();

    void actionStandsOnTheWidgetOfTheView();
    void viewIsReachedThroughTheController();
    void controllerCanBeWithoutAView();
    void controllerThatDiesIsForgotten();

    void backgroundRunAnnouncesTheEndOnTheMainThread();
    void backgroundRunForbidsWorkspaceSwitching();
    void backgroundRunHoldsTheExecutionContext();
    void backgroundRunEndsInOrder();
    void executionContextIsAskedForInTheBackgroundOnly();
    void backgroundRunWithoutControllerPushesNothing();
    void backgroundRunWithoutEntriesPushesNothing();
    void refusedRunAnnouncesNoEndAndLeavesItsContext();
    void secondTriggerStartsASecondRun();
    void firstEndOfTwoRunsAllowsWorkspaceSwitching();
    void backgroundRunKeepsTheCommandAlive();
    void backgroundRunOutlivesTheController();
    void queuedObserverHearsBeginBeforeEnd();

    void accountChangesNothing();
    void destroyedCommandForgetsItsObservers();

    void operationsStandInTheirOrder();
    void linksByNameAreInTheMetaObject_data();
    void linksByNameAreInTheMetaObject();
    void observersImplementWhatTheyWant();
    void applicationAnnouncesItsDynamicGroups();
};

void TestCommandBase::idIsTheNameOfTheClass()
{
    const Sample::NamedCommand named;
    const Sample::DerivedCommand derived;
    QCOMPARE(Sample::NamedCommand::className(), QStringLiteral("Sample::NamedCommand"));
    QCOMPARE(named.commandId(), QStringLiteral("Sample::NamedCommand"));
    QCOMPARE(derived.commandId(), QStringLiteral("Sample::DerivedCommand"));
}

void TestCommandBase::freshCommandHasItsDefaults()
{
    const auto command = makeCommand();
    QCOMPARE(command->getViewController(), nullptr);
    QCOMPARE(command->getView(), nullptr);
    QCOMPARE(command->getViewQtWidget(), nullptr);
    QVERIFY(command->commandTags().isEmpty());
    QCOMPARE(command->baseGroupName(), QString(Vela::Resource::String::COMMAND_DEFAULT_GROUP));
    QVERIFY(!command->baseGroupName().isEmpty());
    QVERIFY(!command->isAttached());
    QVERIFY(command->attachedCommandGroupNames().isEmpty());
    QCOMPARE(command->commandGroup(), nullptr);
    QVERIFY(command->executionQoS() == EQualityOfService::Main);
    QVERIFY(!command->isExecutionNotificationEnabled());
    QVERIFY(!command->addedToCmdsVC());
    QVERIFY(command->commandState() == CommandState(State::On, State::Off));
    QVERIFY(command->defaultCommandState() == CommandState(State::On, State::Off));
}

void TestCommandBase::aParentIsRefused()
{
    QObject parent;
    const auto command = makeCommand();
    command->setParent(&parent);
    QCOMPARE(command->parent(), nullptr);
}

void TestCommandBase::tagsAreFoundInAnyCase()
{
    const auto command = makeCommand();
    command->addTag(QStringLiteral("Mesh"));
    QVERIFY(command->hasTag(QStringLiteral("Mesh")));
    QVERIFY(command->hasTag(QStringLiteral("mESH")));
    QVERIFY(!command->hasTag(QStringLiteral("Mes")));
    QVERIFY(!command->hasTag(QString()));
}

void TestCommandBase::tagsDifferByCase()
{
    const auto command = makeCommand();
    command->addTag(QStringLiteral("Mesh"));
    command->addTag(QStringLiteral("Mesh"));
    command->addTag(QStringLiteral("mesh"));
    QCOMPARE(command->commandTags(), QStringList({QStringLiteral("Mesh"), QStringLiteral("mesh")}));
    command->removeTag(QStringLiteral("mesh"));
    QCOMPARE(command->commandTags(), QStringList(QStringLiteral("Mesh")));
    command->removeTag(QStringLiteral("MESH"));
    QVERIFY(command->hasTag(QStringLiteral("mesh")));
}

void TestCommandBase::hasTagAsksTheVirtualTags()
{
    struct TaggedCommand : TestCommand
    {
        using TestCommand::TestCommand;
        QStringList commandTags() const override { return {QStringLiteral("flyout")}; }
    };
    const TaggedCommand command(id);
    QVERIFY(command.hasTag(QStringLiteral("Flyout")));
}

void TestCommandBase::attachedGroupNamesAreKeptOnce()
{
    const auto command = makeCommand();
    command->addAttachedCommandGroupName(QStringLiteral("tools"));
    command->addAttachedCommandGroupName(QStringLiteral("tools"));
    command->addAttachedCommandGroupName(QStringLiteral("Tools"));
    QCOMPARE(command->attachedCommandGroupNames(),
             QStringList({QStringLiteral("tools"), QStringLiteral("Tools")}));
    command->removeAttachedCommandGroupName(QStringLiteral("tools"));
    command->removeAttachedCommandGroupName(QStringLiteral("unknown"));
    QCOMPARE(command->attachedCommandGroupNames(), QStringList(QStringLiteral("Tools")));
}

void TestCommandBase::attachedGroupNamesCanBeChangedInPlace()
{
    const auto command = makeCommand();
    QStringList &names = command->attachedCommandGroupName();
    names << QStringLiteral("tools");
    QCOMPARE(command->attachedCommandGroupNames(), names);
}

void TestCommandBase::messagesGrowOnDemand()
{
    using ENotification = CommandBase::ENotification;
    const auto command = makeCommand();
    QCOMPARE(command->getExecutionNotificationMessage(ENotification::ExecutionBegan), QString());
    command->setExecutionNotificationMessage(ENotification::ExecutionEnded, QStringLiteral("done"));
    QCOMPARE(command->getExecutionNotificationMessage(ENotification::ExecutionBegan), QString());
    QCOMPARE(command->getExecutionNotificationMessage(ENotification::ExecutionEnded),
             QStringLiteral("done"));
    command->setExecutionNotificationMessage(ENotification(4), QStringLiteral("own"));
    QCOMPARE(command->getExecutionNotificationMessage(ENotification(4)), QStringLiteral("own"));
    QCOMPARE(command->getExecutionNotificationMessage(ENotification(3)), QString());
    QCOMPARE(command->getExecutionNotificationMessage(ENotification(5)), QString());
    command->setExecutionNotificationMessage(ENotification(-1), QStringLiteral("lost"));
    QCOMPARE(command->getExecutionNotificationMessage(ENotification(-1)), QString());
    command->setExecutionNotificationMessage(ENotification(INT_MAX), QStringLiteral("lost"));
    QCOMPARE(command->getExecutionNotificationMessage(ENotification(INT_MAX)), QString());
}

void TestCommandBase::settersAreRead()
{
    const auto command = makeCommand();
    command->setExecutionQoS(EQualityOfService::Utility);
    QVERIFY(command->executionQoS() == EQualityOfService::Utility);
    command->enableExecutionNotification(true);
    QVERIFY(command->isExecutionNotificationEnabled());
    command->setBaseGroupName(QStringLiteral("tools"));
    QCOMPARE(command->baseGroupName(), QStringLiteral("tools"));
    command->setAttached(true);
    QVERIFY(command->isAttached());
    command->setAddedToCmdsVC(true);
    QVERIFY(command->addedToCmdsVC());
}

void TestCommandBase::commandFindsItself()
{
    const auto command = makeCommand();
    QVERIFY(command->hasCommand(id));
    QCOMPARE(command->getCommand(id), command.get());
    QVERIFY(!command->hasCommand(QStringLiteral("Cut")));
    QCOMPARE(command->getCommand(QStringLiteral("Cut")), nullptr);
}

void TestCommandBase::buttonIsForgottenWhenItDies()
{
    const auto command = makeCommand();
    QCOMPARE(command->toolButton(), nullptr);
    auto button = std::make_unique<ToolButton>(nullptr);
    command->setToolButton(button.get());
    QCOMPARE(command->toolButton(), button.get());
    command->setToolButton(nullptr);
    QCOMPARE(command->toolButton(), nullptr);
    command->setToolButton(button.get());
    button.reset();
    QCOMPARE(command->toolButton(), nullptr);
}

void TestCommandBase::setCommandStateChangesWhatIsStated_data()
{
    QTest::addColumn<CommandState>("state");
    QTest::addColumn<bool>("isEnabled");
    QTest::addColumn<bool>("isChecked");
    // The command starts enabled and checked.
    QTest::newRow("nothing stated") << CommandState(State::Keep, State::Keep) << true << true;
    QTest::newRow("disabled") << CommandState(State::Off, State::Keep) << false << true;
    QTest::newRow("unchecked") << CommandState(State::Keep, State::Off) << true << false;
    QTest::newRow("both off") << CommandState(State::Off, State::Off) << false << false;
    QTest::newRow("both on") << CommandState(State::On, State::On) << true << true;
}

void TestCommandBase::setCommandStateChangesWhatIsStated()
{
    QFETCH(const CommandState, state);
    const auto command = makeCommand();
    command->setCheckable(true);
    command->setChecked(true);
    command->setCommandState(state);
    QTEST(command->isEnabled(), "isEnabled");
    QTEST(command->isChecked(), "isChecked");
}

void TestCommandBase::checkMarkOfAPlainCommandIsIgnored()
{
    const auto command = makeCommand();
    command->setCommandState({State::Off, State::On});
    QVERIFY(!command->isEnabled());
    QVERIFY(!command->isChecked());
    command->setCheckable(true);
    QVERIFY(!command->isChecked());
}

void TestCommandBase::applyingACheckMarkRunsTheCommand()
{
    EventLog log;
    const auto command = makeCommand();
    const auto recorder = recordRuns(*command, log);
    command->setCheckable(true);
    command->setCommandState({State::Keep, State::On});
    QCOMPARE(log.take(),
             QStringList({QStringLiteral("began(cut,true)"), QStringLiteral("work(true)"),
                          QStringLiteral("ended(cut,true)")}));
    command->setCommandState({State::On, State::On});
    QVERIFY(log.events().isEmpty());
    command->setCommandState({State::Keep, State::Off});
    QCOMPARE(log.take().value(1), QStringLiteral("work(false)"));
}

void TestCommandBase::stateCanBeAnEntryThatDies()
{
    const auto command = makeCommand();
    command->setCheckable(true);
    auto context = std::make_unique<CommandContext>();
    context->overwrite(id, {State::Off, State::On});
    connect(command.get(), &QAction::changed, this, [&context] { context.reset(); });
    command->setCommandState((*context)[id]);
    QVERIFY(!context);
    QVERIFY(command->isChecked());
}

void TestCommandBase::stateIsAProperty()
{
    const auto command = makeCommand();
    QVERIFY(QMetaType::type("Vela::UiBase::CommandState") != QMetaType::UnknownType);
    QVERIFY(command->property("state").value<CommandState>()
            == CommandState(State::On, State::Off));
    QVERIFY(
        command->setProperty("state", QVariant::fromValue(CommandState(State::Off, State::Keep))));
    QVERIFY(!command->isEnabled());
}

void TestCommandBase::runInPlaceAnnouncesBeginAndEndAroundTheWork()
{
    EventLog log;
    const WaypointRecorder waypoints(log);
    const auto command = makeCommand();
    const auto recorder = recordRuns(*command, log);
    QVERIFY(command->onExecute(true));
    QCOMPARE(log.take(),
             QStringList({QStringLiteral("CMD BEGIN Lumo::Test::TestCommand(true)"),
                          QStringLiteral("began(cut,true)"), QStringLiteral("work(true)"),
                          QStringLiteral("CMD END   Lumo::Test::TestCommand(true)"),
                          QStringLiteral("ended(cut,true)")}));
}

void TestCommandBase::runInPlaceReturnsTheResultOfTheWork()
{
    const auto command = makeCommand();
    command->work = [](bool checked) { return checked; };
    QVERIFY(command->onExecute(true));
    QVERIFY(!command->onExecute(false));
}

void TestCommandBase::runInPlaceLeavesContextAndWorkspaceAlone()
{
    ControllerFixture fixture;
    TestCommand *const held = fixture.add(QStringLiteral("held"));
    TestCommand *const command = fixture.add(id);
    command->executionContext = disabling(QStringLiteral("held"));
    QSignalSpy switching(&ApplicationService::GetInstance(),
                         &ApplicationService::workspaceSwitchingEnabledChanged);
    command->onExecute();
    QCoreApplication::processEvents();
    QVERIFY(held->isEnabled());
    QVERIFY(switching.isEmpty());
}

void TestCommandBase::runWithoutArgumentIsUnchecked()
{
    EventLog log;
    const auto command = makeCommand();
    const auto recorder = recordRuns(*command, log);
    command->onExecute();
    QCOMPARE(log.take().value(1), QStringLiteral("work(false)"));
}

void TestCommandBase::runCanBeInvokedByName()
{
    EventLog log;
    const auto command = makeCommand();
    const auto recorder = recordRuns(*command, log);
    QVERIFY(QMetaObject::invokeMethod(command.get(), "onExecute", Q_ARG(bool, true)));
    QCOMPARE(log.take().value(1), QStringLiteral("work(true)"));
    QVERIFY(QMetaObject::invokeMethod(command.get(), "onExecute"));
    QCOMPARE(log.take().value(1), QStringLiteral("work(false)"));
}

void TestCommandBase::waypointsNameTheMostDerivedClass()
{
    EventLog log;
    const WaypointRecorder waypoints(log);
    Sample::NamedCommand named;
    Sample::DerivedCommand derived;
    named.onExecute(false);
    derived.onExecute(false);
    named.onExecute(true);
    QCOMPARE(log.take(),
             QStringList({QStringLiteral("CMD BEGIN Sample::NamedCommand(false)"),
                          QStringLiteral("CMD END   Sample::NamedCommand(false)"),
                          QStringLiteral("CMD BEGIN Sample::DerivedCommand(false)"),
                          QStringLiteral("CMD END   Sample::DerivedCommand(false)"),
                          QStringLiteral("CMD BEGIN Sample::NamedCommand(true)"),
                          QStringLiteral("CMD END   Sample::NamedCommand(true)")}));
}

void TestCommandBase::waypointsFollowAClassThatChanges()
{
    EventLog log;
    const WaypointRecorder waypoints(log);
    Sample::DerivedCommand command(Sample::NamedCommand::eRunInConstructor);
    command.onExecute();
    QCOMPARE(log.take(),
             QStringList({QStringLiteral("CMD BEGIN Sample::NamedCommand(false)"),
                          QStringLiteral("CMD END   Sample::NamedCommand(false)"),
                          QStringLiteral("CMD BEGIN Sample::DerivedCommand(false)"),
                          QStringLiteral("CMD END   Sample::DerivedCommand(false)")}));
}

void TestCommandBase::plainCommandRunsOncePerTrigger()
{
    EventLog log;
    const auto command = makeCommand();
    const auto recorder = recordRuns(*command, log);
    QSignalSpy triggered(command.get(), &CommandBase::toBeTriggered);
    QSignalSpy toggled(command.get(), &CommandBase::toBeToggled);
    command->trigger();
    QCOMPARE(log.take().count(QStringLiteral("work(false)")), 1);
    QCOMPARE(triggered.count(), 1);
    QCOMPARE(toggled.count(), 0);
}

void TestCommandBase::checkableCommandRunsOncePerChange()
{
    EventLog log;
    const auto command = makeCommand();
    command->setCheckable(true);
    const auto recorder = recordRuns(*command, log);
    QSignalSpy triggered(command.get(), &CommandBase::toBeTriggered);
    QSignalSpy toggled(command.get(), &CommandBase::toBeToggled);
    command->trigger();
    QCOMPARE(log.take(),
             QStringList({QStringLiteral("began(cut,true)"), QStringLiteral("work(true)"),
                          QStringLiteral("ended(cut,true)")}));
    command->setChecked(true);
    QVERIFY(log.events().isEmpty());
    command->setChecked(false);
    QCOMPARE(log.take().count(QStringLiteral("work(false)")), 1);
    QCOMPARE(triggered.count(), 0);
    QCOMPARE(toggled.count(), 2);
    QCOMPARE(toggled.first().first().toBool(), true);
}

void TestCommandBase::exclusiveSiblingRunsUnchecked()
{
    EventLog log;
    QActionGroup group(nullptr);
    TestCommand first(QStringLiteral("first"));
    TestCommand second(QStringLiteral("second"));
    for (TestCommand *const command : {&first, &second}) {
        command->setCheckable(true);
        group.addAction(command);
    }
    const auto recorder = std::make_shared<CommandRecorder>(log);
    first.trigger();
    first.addObserver(recorder, false);
    second.addObserver(recorder, false);
    second.trigger();
    const QStringList events = log.take();
    QCOMPARE(events.count(QStringLiteral("began(first,false)")), 1);
    QCOMPARE(events.count(QStringLiteral("began(second,true)")), 1);
    QCOMPARE(events.size(), 4);
}

void TestCommandBase::announcementSignalComesBeforeTheRun()
{
    EventLog log;
    const auto command = makeCommand();
    const auto recorder = recordRuns(*command, log);
    const auto note = [&log](bool) { log.add(QStringLiteral("to be")); };
    connect(command.get(), &CommandBase::toBeTriggered, this, note);
    connect(command.get(), &CommandBase::toBeToggled, this, note);
    command->trigger();
    QCOMPARE(log.take().first(), QStringLiteral("to be"));
    command->setCheckable(true);
    command->toggle();
    QCOMPARE(log.take().first(), QStringLiteral("to be"));
}

void TestCommandBase::commandCanLeaveItsLastOwnerInItsWork()
{
    EventLog log;
    auto command = makeCommand();
    const auto recorder = recordRuns(*command, log);
    TestCommand *const raw = command.get();
    raw->ended = [&log] { log.add(QStringLiteral("dead")); };
    raw->work = [&command](bool) {
        command.reset();
        return true;
    };
    raw->trigger();
    QCOMPARE(log.take(),
             QStringList({QStringLiteral("began(cut,false)"), QStringLiteral("ended(cut,false)"),
                          QStringLiteral("dead")}));
}

void TestCommandBase::commandCanLeaveItsLastOwnerInItsSignal()
{
    EventLog log;
    auto command = makeCommand();
    const auto recorder = recordRuns(*command, log);
    command->ended = [&log] { log.add(QStringLiteral("dead")); };
    connect(command.get(), &CommandBase::toBeTriggered, this, [&command] { command.reset(); });
    command->trigger();
    QCOMPARE(log.events().size(), 4);
    QCOMPARE(log.take().last(), QStringLiteral("dead"));
}

void TestCommandBase::iconOfTheToolkitTakesTheSize()
{
    const auto command = makeCommand();
    QPixmap drawn(20, 20);
    drawn.fill(Qt::red);
    QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("cut_normal.png"));
    QVERIFY(drawn.save(path));
    command->setProperty("icon_type", 0);
    command->setProperty("icon_normal_resource", path);
    command->updateIconSize(QSize(32, 32));
    QCOMPARE(command->icon().actualSize(QSize(300, 300)), QSize(32, 32));
}

void TestCommandBase::iconOfOthersKeepsItsSize()
{
    const auto command = makeCommand();
    QPixmap drawn(20, 20);
    drawn.fill(Qt::red);
    command->setIcon(drawn);
    command->updateIconSize(QSize(32, 32));
    QCOMPARE(command->icon().actualSize(QSize(300, 300)), QSize(20, 20));
}

void TestCommandBase::actionStandsOnTheWidgetOfTheView()
{
    ControllerFixture fixture;
    const auto command = std::make_shared<TestCommand>(id, fixture.controller());
    QVERIFY(fixture.view()->getQtWidget()->actions().contains(command.get()));
}

void TestCommandBase::viewIsReachedThroughTheController()
{
    ControllerFixture fixture;
    const auto command = makeCommand();
    command->setViewController(fixture.controller());
    QCOMPARE(command->getViewController(), fixture.controller());
    QCOMPARE(command->getView(), fixture.view());
    QCOMPARE(command->getViewQtWidget(), fixture.view()->getQtWidget());
    command->setViewController(nullptr);
    QCOMPARE(command->getViewController(), nullptr);
    QCOMPARE(command->getViewQtWidget(), nullptr);
}

void TestCommandBase::controllerCanBeWithoutAView()
{
    const auto controller = std::make_shared<Vela::UiBase::CmdsViewController>(nullptr);
    const TestCommand command(id, controller.get());
    QCOMPARE(command.getViewController(), controller.get());
    QCOMPARE(command.getView(), nullptr);
    QCOMPARE(command.getViewQtWidget(), nullptr);
}

void TestCommandBase::controllerThatDiesIsForgotten()
{
    ControllerFixture fixture;
    const auto unknown = std::make_shared<TestCommand>(id, fixture.controller());
    const auto managed = fixture.add(QStringLiteral("managed"))->shared_from_this();
    fixture.end();
    QCOMPARE(unknown->getViewController(), nullptr);
    QCOMPARE(unknown->getView(), nullptr);
    QCOMPARE(managed->getViewController(), nullptr);
}

void TestCommandBase::backgroundRunAnnouncesTheEndOnTheMainThread()
{
    EventLog log;
    const WaypointRecorder waypoints(log);
    const auto command = makeCommand();
    const auto recorder = recordRuns(*command, log);
    command->setExecutionQoS(EQualityOfService::UserInitiated);
    QVERIFY(command->onExecute(true));
    QVERIFY(runLoopUntil([&] { return log.events().size() == 5; }));
    QCOMPARE(log.take(),
             QStringList({QStringLiteral("CMD BEGIN Lumo::Test::TestCommand(true)"),
                          QStringLiteral("began(cut,true)"), QStringLiteral("work(true)*"),
                          QStringLiteral("CMD END   Lumo::Test::TestCommand(true)"),
                          QStringLiteral("ended(cut,true)")}));
}

void TestCommandBase::backgroundRunForbidsWorkspaceSwitching()
{
    QSemaphore mayEnd;
    std::atomic<bool> isDone {false};
    const auto command = makeCommand();
    command->setExecutionQoS(EQualityOfService::Background);
    command->work = [&](bool) {
        mayEnd.acquire();
        isDone = true;
        return false;
    };
    QVERIFY(isSwitchingEnabled());
    QVERIFY(command->onExecute());
    QVERIFY(runLoopUntil([] { return !isSwitchingEnabled(); }));
    QVERIFY(!isDone);
    mayEnd.release();
    QVERIFY(runLoopUntil(isSwitchingEnabled));
    QVERIFY(isDone);
}

void TestCommandBase::backgroundRunHoldsTheExecutionContext()
{
    ControllerFixture fixture;
    TestCommand *const held = fixture.add(QStringLiteral("held"));
    TestCommand *const command = fixture.add(id);
    command->setExecutionQoS(EQualityOfService::Utility);
    command->executionContext = disabling(QStringLiteral("held"));
    QSemaphore mayEnd;
    std::atomic<bool> hasStarted {false};
    command->work = [&](bool) {
        hasStarted = true;
        mayEnd.acquire();
        return true;
    };
    QVERIFY(command->onExecute());
    QVERIFY(held->isEnabled());
    QVERIFY(runLoopUntil([&] { return !held->isEnabled(); }));
    QVERIFY(runLoopUntil([&] { return hasStarted.load(); }));
    QVERIFY(!held->isEnabled());
    mayEnd.release();
    QVERIFY(runLoopUntil([&] { return held->isEnabled(); }));
    fixture.controller()->popContext();
    held->setEnabled(false);
    QVERIFY(runLoopUntil(isSwitchingEnabled));
    QVERIFY(!held->isEnabled());
}

void TestCommandBase::backgroundRunEndsInOrder()
{
    ControllerFixture fixture;
    EventLog log;
    TestCommand *const held = fixture.add(QStringLiteral("held"));
    TestCommand *const command = fixture.add(id);
    const auto recorder = recordRuns(*command, log);
    QSemaphore mayEnd;
    command->work = [&mayEnd](bool) {
        mayEnd.acquire();
        return true;
    };
    command->executionContext = disabling(QStringLiteral("held"));
    command->setExecutionQoS(EQualityOfService::Utility);
    QVERIFY(command->onExecute());
    QVERIFY(runLoopUntil([&] { return !held->isEnabled() && !isSwitchingEnabled(); }));
    log.take();

    connect(held, &QAction::changed, this, [&log] { log.add(QStringLiteral("restored")); });
    const auto switching = connect(
        &ApplicationService::GetInstance(), &ApplicationService::workspaceSwitchingEnabledChanged,
        this, [&log](bool on) { log.add(QStringLiteral("switching(%1)").arg(textOf(on))); });
    const WaypointRecorder endsTheSink(log);
    ApplicationService::GetInstance().kernel().setWaypointSink([&log](const std::wstring &) {
        log.add(QStringLiteral("waypoint"));
        // Comes after the states, which the pop posted before.
        Tessel::dispatchAsync([&log] { log.add(QStringLiteral("posted at waypoint")); },
                              EQualityOfService::Main);
    });
    mayEnd.release();
    QVERIFY(runLoopUntil([&] { return log.events().size() == 5; }));
    disconnect(switching);
    QCOMPARE(log.take(),
             QStringList({QStringLiteral("waypoint"), QStringLiteral("ended(cut,false)"),
                          QStringLiteral("switching(true)"), QStringLiteral("restored"),
                          QStringLiteral("posted at waypoint")}));
}

void TestCommandBase::executionContextIsAskedForInTheBackgroundOnly()
{
    struct AskedCommand : TestCommand
    {
        using TestCommand::TestCommand;
        CommandContext getExecutionCommandContext() const override
        {
            asked(isMainThread());
            return {};
        }
        std::function<void(bool)> asked;
    };
    EventLog log;
    const auto command = std::make_shared<AskedCommand>(id);
    const auto recorder = recordRuns(*command, log);
    command->asked = [&log](bool onMainThread) {
        log.add(onMainThread ? QStringLiteral("asked") : QStringLiteral("asked*"));
    };
    command->onExecute();
    QVERIFY(!log.take().contains(QStringLiteral("asked")));
    command->setExecutionQoS(EQualityOfService::Utility);
    command->onExecute();
    QVERIFY(runLoopUntil([&] { return log.events().size() == 4; }));
    QCOMPARE(log.take(),
             QStringList({QStringLiteral("began(cut,false)"), QStringLiteral("asked"),
                          QStringLiteral("work(false)*"), QStringLiteral("ended(cut,false)")}));
}

void TestCommandBase::backgroundRunWithoutControllerPushesNothing()
{
    EventLog log;
    QSignalSpy switching(&ApplicationService::GetInstance(),
                         &ApplicationService::workspaceSwitchingEnabledChanged);
    const auto command = makeCommand();
    const auto recorder = recordRuns(*command, log);
    command->executionContext = disabling(id);
    command->setExecutionQoS(EQualityOfService::Utility);
    QVERIFY(command->onExecute());
    QVERIFY(runLoopUntil([&] { return switching.count() == 2; }));
    QVERIFY(command->isEnabled());
    QCOMPARE(log.events().size(), 3);
    QCOMPARE(switching.at(0).first().toBool(), false);
    QCOMPARE(switching.at(1).first().toBool(), true);
}

void TestCommandBase::backgroundRunWithoutEntriesPushesNothing()
{
    ControllerFixture fixture;
    TestCommand *const held = fixture.add(QStringLiteral("held"));
    TestCommand *const command = fixture.add(id);
    command->setExecutionQoS(EQualityOfService::Utility);
    QSignalSpy switching(&ApplicationService::GetInstance(),
                         &ApplicationService::workspaceSwitchingEnabledChanged);
    fixture.controller()->pushContext(disabling(QStringLiteral("held")));
    QVERIFY(command->onExecute());
    QVERIFY(runLoopUntil([&] { return switching.count() == 2; }));
    servePosted();
    QVERIFY(!held->isEnabled());
    fixture.controller()->popContext();
    servePosted();
    QVERIFY(held->isEnabled());
}

void TestCommandBase::refusedRunAnnouncesNoEndAndLeavesItsContext()
{
    ControllerFixture fixture;
    EventLog log;
    TestCommand *const held = fixture.add(QStringLiteral("held"));
    TestCommand *const command = fixture.add(id);
    const auto recorder = recordRuns(*command, log);
    command->executionContext = disabling(QStringLiteral("held"));
    command->setExecutionQoS(EQualityOfService(99));
    QVERIFY(!command->onExecute());
    QVERIFY(runLoopUntil([&] { return !held->isEnabled(); }));
    QCOMPARE(log.take(), QStringList(QStringLiteral("began(cut,false)")));
    fixture.controller()->popContext();
    QVERIFY(runLoopUntil([&] { return held->isEnabled(); }));
}

void TestCommandBase::secondTriggerStartsASecondRun()
{
    QSemaphore mayEnd;
    std::atomic<int> started {0};
    EventLog log;
    const auto command = makeCommand();
    const auto recorder = recordRuns(*command, log);
    command->setExecutionQoS(EQualityOfService::Utility);
    command->work = [&](bool) {
        ++started;
        mayEnd.acquire();
        return true;
    };
    command->trigger();
    command->trigger();
    mayEnd.release(2);
    QVERIFY(runLoopUntil([&] { return log.events().size() == 4; }));
    QCOMPARE(started.load(), 2);
    QCOMPARE(log.take().mid(0, 2),
             QStringList({QStringLiteral("began(cut,false)"), QStringLiteral("began(cut,false)")}));
    QVERIFY(runLoopUntil(isSwitchingEnabled));
}

void TestCommandBase::firstEndOfTwoRunsAllowsWorkspaceSwitching()
{
    QSemaphore mayEnd;
    std::atomic<int> started {0};
    EventLog log;
    const auto command = makeCommand();
    const auto recorder = recordRuns(*command, log);
    command->setExecutionQoS(EQualityOfService::Utility);
    command->work = [&](bool) {
        ++started;
        mayEnd.acquire();
        return true;
    };
    command->onExecute();
    command->onExecute();
    QVERIFY(runLoopUntil([&] { return started == 2; }));
    servePosted();
    QVERIFY(!isSwitchingEnabled());
    mayEnd.release();
    QVERIFY(runLoopUntil(isSwitchingEnabled));
    QCOMPARE(log.take().count(QStringLiteral("ended(cut,false)")), 1);
    mayEnd.release();
    QVERIFY(runLoopUntil([&] { return !log.events().isEmpty(); }));
}

void TestCommandBase::backgroundRunKeepsTheCommandAlive()
{
    EventLog log;
    QSemaphore mayEnd;
    auto command = makeCommand();
    const auto recorder = recordRuns(*command, log);
    command->setExecutionQoS(EQualityOfService::Utility);
    command->work = [&](bool) {
        mayEnd.acquire();
        return true;
    };
    command->ended = [&log] { log.add(isMainThread() ? QStringLiteral("dead") : QString()); };
    QVERIFY(command->onExecute());
    command.reset();
    QCoreApplication::processEvents();
    QCOMPARE(log.events().size(), 1);
    mayEnd.release();
    QVERIFY(runLoopUntil([&] { return log.events().size() == 3; }));
    QCOMPARE(log.take(),
             QStringList({QStringLiteral("began(cut,false)"), QStringLiteral("ended(cut,false)"),
                          QStringLiteral("dead")}));
    QVERIFY(isSwitchingEnabled());
}

void TestCommandBase::backgroundRunOutlivesTheController()
{
    ControllerFixture fixture;
    QSemaphore mayEnd;
    EventLog log;
    TestCommand *const command = fixture.add(id);
    const auto recorder = recordRuns(*command, log);
    command->executionContext = disabling(id);
    command->setExecutionQoS(EQualityOfService::Utility);
    command->work = [&](bool) {
        mayEnd.acquire();
        return true;
    };
    QVERIFY(command->onExecute());
    QCOMPARE(log.take(), QStringList(QStringLiteral("began(cut,false)")));
    fixture.end();
    mayEnd.release();
    QVERIFY(runLoopUntil([&] { return !log.events().isEmpty(); }));
    QCOMPARE(log.take(), QStringList(QStringLiteral("ended(cut,false)")));
    QVERIFY(runLoopUntil(isSwitchingEnabled));
}

void TestCommandBase::queuedObserverHearsBeginBeforeEnd()
{
    EventLog log;
    const auto command = makeCommand();
    const auto recorder = std::make_shared<CommandRecorder>(log);
    command->addObserver(recorder, true);
    command->setExecutionQoS(EQualityOfService::UserInteractive);
    QVERIFY(command->onExecute());
    QVERIFY(log.events().isEmpty());
    QVERIFY(runLoopUntil([&] { return log.events().size() == 2; }));
    QCOMPARE(log.take(),
             QStringList({QStringLiteral("began(cut,false)"), QStringLiteral("ended(cut,false)")}));
}

void TestCommandBase::accountChangesNothing()
{
    const auto command = makeCommand();
    Vela::Services::CloudServiceProtocol &account = *command;
    account.onUserLogIn();
    account.onUserLogOut();
    account.onUserLogInFailed();
    QVERIFY(command->commandState() == command->defaultCommandState());
}

void TestCommandBase::destroyedCommandForgetsItsObservers()
{
    EventLog log;
    const auto recorder = std::make_shared<CommandRecorder>(log);
    auto command = makeCommand();
    command->setCheckable(true);
    command->setChecked(true);
    command->addObserver(recorder, false);
    QActionGroup group(nullptr);
    group.addAction(command.get());
    command.reset();
    QVERIFY(log.events().isEmpty());
    QCOMPARE(recorder.use_count(), 1L);
}

void TestCommandBase::operationsStandInTheirOrder()
{
    QVERIFY(Sample::OpenCommand::operationsStandInTheirOrder());
    using Vela::UiBase::CmdMgrProtocol;
    using Vela::UiBase::CommandStateProtocol;
    using Vela::UiBase::DynamicCommandGroupStateProtocol;
    QVERIFY(Lumo::Test::standInThisOrder(&CommandStateProtocol::commandBegan,
                                         &CommandStateProtocol::commandEnded,
                                         &CommandStateProtocol::commandBeganExecuting,
                                         &CommandStateProtocol::commandEndedExecuting));
    QVERIFY(Lumo::Test::standInThisOrder(&DynamicCommandGroupStateProtocol::commandGroupBegan,
                                         &DynamicCommandGroupStateProtocol::commandGroupEnded));
    QVERIFY(Lumo::Test::standInThisOrder(&CmdMgrProtocol::commandAdded,
                                         &CmdMgrProtocol::commandRemoved));
}

void TestCommandBase::linksByNameAreInTheMetaObject_data()
{
    QTest::addColumn<QByteArray>("signature");
    QTest::addColumn<int>("type");
    QTest::addColumn<int>("access");
    QTest::newRow("announces a toggle")
        << QByteArray("toBeToggled(bool)") << int(QMetaMethod::Signal) << int(QMetaMethod::Public);
    QTest::newRow("announces a trigger") << QByteArray("toBeTriggered(bool)")
                                         << int(QMetaMethod::Signal) << int(QMetaMethod::Public);
    QTest::newRow("runs") << QByteArray("onExecute(bool)") << int(QMetaMethod::Slot)
                          << int(QMetaMethod::Public);
    QTest::newRow("runs unchecked")
        << QByteArray("onExecute()") << int(QMetaMethod::Slot) << int(QMetaMethod::Public);
    QTest::newRow("is triggered") << QByteArray("onTriggered(bool)") << int(QMetaMethod::Slot)
                                  << int(QMetaMethod::Protected);
    QTest::newRow("is toggled") << QByteArray("onToggled(bool)") << int(QMetaMethod::Slot)
                                << int(QMetaMethod::Protected);
}

void TestCommandBase::linksByNameAreInTheMetaObject()
{
    QFETCH(const QByteArray, signature);
    const QMetaObject &meta = CommandBase::staticMetaObject;
    QCOMPARE(meta.methodCount() - meta.methodOffset(), 6);
    const QMetaMethod method = meta.method(meta.indexOfMethod(signature));
    QVERIFY(method.isValid());
    QTEST(int(method.methodType()), "type");
    QTEST(int(method.access()), "access");
}

void TestCommandBase::observersImplementWhatTheyWant()
{
    using Vela::UiBase::CmdMgrProtocol;
    using Vela::UiBase::CommandStateProtocol;
    static_assert(std::is_copy_assignable_v<CommandStateProtocol>);
    static_assert(std::is_move_assignable_v<CommandStateProtocol>);
    static_assert(std::is_copy_assignable_v<CmdMgrProtocol>);
    static_assert(std::is_move_assignable_v<CmdMgrProtocol>);
    struct Silent : CommandStateProtocol, CmdMgrProtocol
    { };
    const auto silent = std::make_shared<Silent>();
    const auto command = makeCommand();
    command->addObserver(silent, false);
    QVERIFY(command->onExecute());
    command->broadcast(&CommandStateProtocol::commandBegan, command.get());
    command->broadcast(&CommandStateProtocol::commandEnded, command.get());
    ControllerFixture fixture;
    fixture.controller()->CmdMgr::addObserver(silent, false);
    fixture.controller()->removeCommand(fixture.add(id));
}

void TestCommandBase::applicationAnnouncesItsDynamicGroups()
{
    using Vela::UiBase::CommandGroup;
    using Vela::UiBase::DynamicCommandGroupStateProtocol;
    static_assert(std::is_copy_assignable_v<DynamicCommandGroupStateProtocol>);
    static_assert(std::is_move_assignable_v<DynamicCommandGroupStateProtocol>);
    struct HearsBegin : DynamicCommandGroupStateProtocol
    {
        void commandGroupBegan(CommandGroup *) override { ++began; }
        int began = 0;
    };
    const auto observer = std::make_shared<HearsBegin>();
    Tessel::Delegator<DynamicCommandGroupStateProtocol> groups;
    groups.setDelegate(observer, false);
    groups.broadcast(&DynamicCommandGroupStateProtocol::commandGroupBegan, nullptr);
    groups.broadcast(&DynamicCommandGroupStateProtocol::commandGroupEnded, nullptr);
    QCOMPARE(observer->began, 1);
}

LUMO_TEST_MAIN(TestCommandBase)
#include "tst_commandbase.moc"
