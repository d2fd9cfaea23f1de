// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include <ui_base/CmdsViewController>
#include <ui_base/CommandContext>
#include <ui_base/CommandGroup>
#include <ui_base/FlyoutBase>
#include <ui_base/FlyoutCommand>
#include <ui_base/QtUiToolkit>
#include <ui_base/ToolBar>
#include <ui_base/ToolButton>

#include "support/eventloop.h"
#include "support/recordingobservers.h"
#include "support/testcase.h"
#include "support/testmain.h"
#include "support/virtualorder.h"
#include "ui_base/command/testcommand.h"

#include <lumo_common_res/String>

#include <QActionGroup>
#include <QKeyEvent>
#include <QKeySequence>
#include <QPointer>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>

#include <functional>
#include <memory>
#include <type_traits>
#include <vector>

using Lumo::Test::CommandRecorder;
using Lumo::Test::ControllerFixture;
using Lumo::Test::EventLog;
using Lumo::Test::isMainThread;
using Lumo::Test::runLoopUntil;
using Lumo::Test::TestCommand;
using Lumo::Test::textOf;
using Lumo::Test::WaypointRecorder;
using Vela::UiBase::CmdsViewController;
using Vela::UiBase::CommandBase;
using Vela::UiBase::CommandContext;
using Vela::UiBase::CommandGroup;
using Vela::UiBase::FlyoutBase;
using Vela::UiBase::FlyoutCommand;
using Vela::UiBase::QtUiToolkit;
using Vela::UiBase::State;
using Vela::UiBase::ToolBar;
using Vela::UiBase::ToolButton;
using Vela::UiBase::ViewResponder;

static_assert(std::is_base_of_v<CommandBase, FlyoutCommand>);
static_assert(std::is_base_of_v<ViewResponder, FlyoutCommand>);

namespace {

/// Settings of a host, which hear of the reset.
class Settings : public QWidget
{
    Q_OBJECT

Q_SIGNALS:
    void ResetValues();
};

/// Records what it is asked for, and calls what a test sets.
class Smooth : public FlyoutCommand
{
    Q_OBJECT

public:
    explicit Smooth(QWidget *panel, CmdsViewController *controller = nullptr,
                    const QString &id = QStringLiteral("smooth"))
        : FlyoutCommand(panel, controller)
        , m_id(id)
    {
        setObjectName(id);
    }

    using FlyoutCommand::setIsActive;

    const QString commandId() const override { return m_id; }
    bool onExecuteAsync(bool checked) override
    {
        record(QStringLiteral("work(%1)").arg(textOf(checked)));
        return true;
    }
    bool onBeforeExecute() override
    {
        record(QStringLiteral("before"));
        return agrees;
    }
    void onReset() override { record(QStringLiteral("reset")); }
    void onESCKeyReleased() override { record(QStringLiteral("escape")); }
    bool keyPress(QKeyEvent *) override
    {
        record(QStringLiteral("key"));
        return true;
    }
    CommandContext getBeginCommandContext() const override { return beginContext; }

    static bool operationsStandInTheirOrder();

    EventLog log;
    CommandContext beginContext;
    bool agrees = true;

private:
    void record(const QString &event)
    {
        log.add(event + (isMainThread() ? QString() : QStringLiteral("*")));
    }

    const QString m_id;
};

bool Smooth::operationsStandInTheirOrder()
{
    return Lumo::Test::standInThisOrder(
        &CommandBase::onExecute, &Smooth::getExecutionCommandContext, &FlyoutCommand::flyout,
        &FlyoutCommand::simpleFlyout, &FlyoutCommand::isSimpleFlyout, &FlyoutCommand::isActive,
        &FlyoutCommand::onBegin, &FlyoutCommand::onFinalize, &FlyoutCommand::onReset,
        &FlyoutCommand::onExitCommand, &Smooth::onESCKeyReleased,
        &FlyoutCommand::getBeginCommandContext, &FlyoutCommand::onBeforeExecute);
}

/// Keeps action, panel and pairs of begin and end in step, as the class tells its users to.
class Kept : public Smooth
{
    Q_OBJECT

public:
    using Smooth::Smooth;

    void onBegin() override
    {
        if (isActive())
            return;
        setIsActive(true);
        FlyoutCommand::onBegin();
    }
    void onFinalize() override
    {
        if (!isActive())
            return;
        setIsActive(false);
        setChecked(false);
        FlyoutCommand::onFinalize();
    }
};

using Flyout = std::unique_ptr<FlyoutBase>;

Flyout makeFlyout(bool reset = true, QWidget *main = new Settings)
{
    return Flyout(QtUiToolkit::Instance().CreateFlyout(QStringLiteral("Smooth"), main, nullptr,
                                                       true, true, true, reset, nullptr));
}

void click(const Flyout &flyout, const char *name)
{
    auto *const button = flyout->findChild<QAbstractButton *>(QLatin1String(name));
    QVERIFY(button);
    QTest::mouseClick(button, Qt::LeftButton);
}

template<typename Command = Smooth>
Command *addTo(CmdsViewController *controller, QWidget *panel,
               const QString &id = QStringLiteral("smooth"))
{
    auto *const command = new Command(panel, controller, id);
    controller->addCommand(command);
    return command;
}

/// Observes the command into its own log.
std::shared_ptr<CommandRecorder> record(Smooth &command)
{
    auto recorder = std::make_shared<CommandRecorder>(command.log);
    command.addObserver(recorder, false);
    return recorder;
}

CommandContext disabling(const QString &id)
{
    CommandContext context;
    context.overwrite(id, {State::Off, State::Keep});
    return context;
}

/// Runs what was posted to the main queue.
void runPosted()
{
    bool done = false;
    Tessel::dispatchAsync([&done] { done = true; }, Tessel::EQualityOfService::Main);
    QVERIFY(runLoopUntil([&done] { return done; }));
}

/// Runs what was posted to the event loop of @p receiver.
void runQueued(QObject *receiver)
{
    bool done = false;
    QMetaObject::invokeMethod(
        receiver, [&done] { done = true; }, Qt::QueuedConnection);
    QVERIFY(runLoopUntil([&done] { return done; }));
}

/// Shows and hides a panel with each click, as menu buttons do.
class PanelButton : public ToolButton
{
    Q_OBJECT

public:
    PanelButton(QAction *action, ToolBar *toolBar, FlyoutBase *panel)
        : ToolButton(action, toolBar, toolBar)
        , m_panel(panel)
    {
        panel->SetToolButton(this);
    }
    void ClickedHandler() override
    {
        ++clicks;
        if (m_panel)
            m_panel->setVisible(!m_panel->isVisible());
    }

    int clicks = 0;

private:
    const QPointer<FlyoutBase> m_panel;
};

/// One way to close a panel.
struct CloseStep
{
    const char *name;
    void (*run)(const Flyout &flyout, Kept &command);
};

const std::vector<CloseStep> closeSteps {
    {"close button", [](const Flyout &flyout, Kept &) { click(flyout, "close_button"); }},
    {"cancel button", [](const Flyout &flyout, Kept &) { click(flyout, "cancel_button"); }},
    {"check mark", [](const Flyout &, Kept &command) { command.setChecked(false); }},
    {"exit", [](const Flyout &, Kept &command) { command.onExitCommand(); }},
    {"all of them",
     [](const Flyout &flyout, Kept &command) {
         command.onExitCommand();
         flyout->CloseMe();
         command.setChecked(false);
         command.onFinalize();
     }},
};

/// Calls functions when a command begins and ends.
class Reaction : public Vela::UiBase::CommandStateProtocol
{
public:
    void commandBegan(CommandBase *) override
    {
        if (began)
            began();
    }
    void commandEnded(CommandBase *) override
    {
        if (ended)
            ended();
    }

    std::function<void()> began;
    std::function<void()> ended;
};

} // namespace

class TestFlyoutCommand : public Lumo::Test::TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void virtualOperationsStandInTheirOrder();
    void commandIsTheFirstBase();
    void newCommandHasItsDefaults();
    void onlyAFlyoutMakesItMoreThanSimple();
    void tagsEndWithTheOneOfFlyouts();

    void triggerBeginsInsteadOfRunning();
    void checkMarkBeginsAndEnds();
    void beginComesBehindTheSignalOfTheToggle();
    void applyRunsInTheBackground();
    void refusedRunLeavesNoTrace();
    void closingEndsTheCommand();
    void closingAHiddenFlyoutEndsNothing();
    void cancelEndsNothing();
    void resetReachesTheSettingsFirst();
    void resetButtonThatComesLaterDoesNotReset();
    void settingsNeedNotHearOfTheReset();
    void escapeReachesTheCommand();
    void simpleFlyoutHasNoConnections();

    void contextHoldsWhileTheFlyoutIsOpen();
    void contextIsPushedBeforeTheBeginIsTold();
    void contextIsPoppedBeforeTheEndIsTold();
    void emptyContextIsPushedToo();
    void simpleFlyoutPushesNoContext();
    void commandWithoutControllerBeginsAndEnds();
    void runningCommandGetsTheInputFirst();
    void popDoesNotBeginAgain();
    void checkedSiblingSurvivesTheEndOfItsForerunner();
    void checkedToolSurvivesTheEndOfTheFlyout();
    void commandThatTakesOverRemembersWhatIsPutBack();
    void keptCommandEndsOnceHoweverItIsClosed_data();
    void keptCommandEndsOnceHoweverItIsClosed();

    void shortcutHasTheButtonShowThePanel();
    void shortcutWorksInThePanel();
    void clickOfTheMouseShowsThePanelOnce();
    void clickOfTheMouseIsNotRepeated();
    void clickFromCodeShowsThePanelOnce();
    void endBeforeTheTurnLeavesThePanelClosed();
    void uncheckingHasTheButtonHideThePanel();
    void clicksThatUncheckHideThePanelOnce();
    void beginBeforeTheTurnLeavesThePanelOpen();
    void otherButtonsAreNotClicked();

    void exitClosesThePanelInUse();
    void exitHidesASimpleFlyout();
    void exitNeedsAnActiveCommandAndAVisiblePanel();
    void panelFollowsTheEnabledAction();

    void flyoutMayDieFirst();
    void flyoutMayDieWhileItIsOpen();
    void commandMayDieFirst();
    void buttonMayDieBeforeItsClick();
    void controllerMayDieWhileThePanelIsOpen();
    void listenerMayRemoveTheCommandThatIsTriggered();
    void listenerMayDeleteTheCommandThatIsTriggered();
    void commandMayEndBeforeItsRun();
    void observerMayRemoveTheCommandThatBegins();
    void observerMayDeleteTheCommandThatBegins();
    void observerMayDeleteTheCommandThatEnds();
    void hideOfASimpleFlyoutMayDeleteTheCommand();
};

void TestFlyoutCommand::virtualOperationsStandInTheirOrder()
{
    QVERIFY(Smooth::operationsStandInTheirOrder());
}

void TestFlyoutCommand::commandIsTheFirstBase()
{
    Smooth command(nullptr);
    FlyoutCommand *const flyoutCommand = &command;
    QCOMPARE(static_cast<void *>(static_cast<CommandBase *>(flyoutCommand)),
             static_cast<void *>(flyoutCommand));
}

void TestFlyoutCommand::newCommandHasItsDefaults()
{
    class Plain : public FlyoutCommand
    {
    public:
        Plain()
            : FlyoutCommand(nullptr, nullptr)
        { }
        const QString commandId() const override { return QStringLiteral("plain"); }
        bool onExecuteAsync(bool) override { return true; }
    };
    Plain command;
    QVERIFY(command.isExecutionNotificationEnabled());
    QCOMPARE(static_cast<int>(command.executionQoS()), 2);
    QVERIFY(!command.isActive());
    QVERIFY(!command.isCheckable());
    QVERIFY(command.getBeginCommandContext().get().isEmpty());
    QVERIFY(command.onBeforeExecute());
    QVERIFY(!command.keyPress(nullptr));
}

void TestFlyoutCommand::onlyAFlyoutMakesItMoreThanSimple()
{
    const Smooth without(nullptr);
    QVERIFY(without.isSimpleFlyout());
    QVERIFY(!without.simpleFlyout() && !without.flyout());

    QWidget widget;
    const Smooth simple(&widget);
    QVERIFY(simple.isSimpleFlyout());
    QCOMPARE(simple.simpleFlyout(), &widget);
    QVERIFY(!simple.flyout());

    const Flyout flyout = makeFlyout();
    const Smooth command(flyout.get());
    QVERIFY(!command.isSimpleFlyout());
    QCOMPARE(command.simpleFlyout(), flyout.get());
    QCOMPARE(command.flyout(), flyout.get());
}

void TestFlyoutCommand::tagsEndWithTheOneOfFlyouts()
{
    Smooth command(nullptr);
    const QString tag = Vela::Resource::String::TAG_FLYOUT;
    QCOMPARE(command.commandTags(), QStringList(tag));
    command.addTag(QStringLiteral("edit"));
    QCOMPARE(command.commandTags(), QStringList({QStringLiteral("edit"), tag}));
    QVERIFY(command.hasTag(tag.toUpper()));
}

void TestFlyoutCommand::triggerBeginsInsteadOfRunning()
{
    const Flyout flyout = makeFlyout();
    Smooth command(flyout.get());
    const auto recorder = record(command);
    connect(&command, &CommandBase::toBeTriggered, &command, [&command](bool checked) {
        command.log.add(QStringLiteral("toBeTriggered(%1)").arg(textOf(checked)));
    });
    command.trigger();
    QCOMPARE(
        command.log.take(),
        QStringList({QStringLiteral("toBeTriggered(false)"), QStringLiteral("opened(smooth)")}));
}

void TestFlyoutCommand::checkMarkBeginsAndEnds()
{
    const Flyout flyout = makeFlyout();
    Smooth command(flyout.get());
    command.setCheckable(true);
    const auto recorder = record(command);
    QSignalSpy triggered(&command, &CommandBase::toBeTriggered);
    command.trigger();
    QCOMPARE(command.log.take(), QStringList(QStringLiteral("opened(smooth)")));
    command.setChecked(false);
    QCOMPARE(command.log.take(), QStringList(QStringLiteral("closed(smooth)")));
    QCOMPARE(triggered.count(), 0);
}

void TestFlyoutCommand::beginComesBehindTheSignalOfTheToggle()
{
    Smooth command(nullptr);
    command.setCheckable(true);
    const auto recorder = record(command);
    connect(&command, &CommandBase::toBeToggled, &command, [&command](bool checked) {
        command.log.add(QStringLiteral("toBeToggled(%1)").arg(textOf(checked)));
    });
    command.setChecked(true);
    command.setChecked(false);
    QCOMPARE(command.log.take(),
             QStringList({QStringLiteral("toBeToggled(true)"), QStringLiteral("opened(smooth)"),
                          QStringLiteral("toBeToggled(false)"), QStringLiteral("closed(smooth)")}));
}

void TestFlyoutCommand::applyRunsInTheBackground()
{
    const Flyout flyout = makeFlyout();
    const auto command = std::make_shared<Smooth>(flyout.get());
    const auto recorder = record(*command);
    flyout->show();
    click(flyout, "apply_button");
    QTRY_COMPARE(command->log.events().size(), 4);
    QCOMPARE(command->log.take(),
             QStringList({QStringLiteral("before"), QStringLiteral("began(smooth,false)"),
                          QStringLiteral("work(false)*"), QStringLiteral("ended(smooth,false)")}));
    QVERIFY(flyout->isVisible());
}

void TestFlyoutCommand::refusedRunLeavesNoTrace()
{
    const Flyout flyout = makeFlyout();
    Smooth command(flyout.get());
    const WaypointRecorder waypoints(command.log);
    const auto recorder = record(command);
    command.agrees = false;
    QVERIFY(!command.onExecute());
    runPosted();
    QCOMPARE(command.log.take(), QStringList(QStringLiteral("before")));
    command.agrees = true;
    command.setExecutionQoS(Tessel::EQualityOfService::Main);
    QVERIFY(command.onExecute(true));
    QVERIFY(command.log.take().contains(QStringLiteral("work(true)")));
}

void TestFlyoutCommand::closingEndsTheCommand()
{
    const Flyout flyout = makeFlyout();
    Smooth command(flyout.get());
    command.setCheckable(true);
    const auto recorder = record(command);
    command.setChecked(true);
    flyout->show();
    click(flyout, "close_button");
    QCOMPARE(command.log.take(),
             QStringList({QStringLiteral("opened(smooth)"), QStringLiteral("closed(smooth)")}));
    QVERIFY(command.isChecked());
    flyout->show();
    flyout->CloseMe();
    QCOMPARE(command.log.take(), QStringList(QStringLiteral("closed(smooth)")));
}

void TestFlyoutCommand::closingAHiddenFlyoutEndsNothing()
{
    const Flyout flyout = makeFlyout();
    Smooth command(flyout.get());
    const auto recorder = record(command);
    flyout->CloseMe();
    QCOMPARE(command.log.take(), QStringList());
}

void TestFlyoutCommand::cancelEndsNothing()
{
    const Flyout flyout = makeFlyout();
    Smooth command(flyout.get());
    const auto recorder = record(command);
    flyout->show();
    click(flyout, "cancel_button");
    QVERIFY(!flyout->isVisible());
    QCOMPARE(command.log.take(), QStringList());
}

void TestFlyoutCommand::resetReachesTheSettingsFirst()
{
    const Flyout flyout = makeFlyout();
    Smooth command(flyout.get());
    auto *const settings = qobject_cast<Settings *>(flyout->MainPanel());
    connect(settings, &Settings::ResetValues, &command,
            [&command] { command.log.add(QStringLiteral("settings")); });
    flyout->show();
    click(flyout, "reset_button");
    QCOMPARE(command.log.take(),
             QStringList({QStringLiteral("settings"), QStringLiteral("reset")}));
    QVERIFY(flyout->isVisible());
}

void TestFlyoutCommand::resetButtonThatComesLaterDoesNotReset()
{
    const Flyout flyout = makeFlyout(false);
    Smooth command(flyout.get());
    QSignalSpy heard(flyout->MainPanel(), SIGNAL(ResetValues()));
    flyout->SetResetButtonVisible(true);
    flyout->show();
    click(flyout, "reset_button");
    QCOMPARE(command.log.take(), QStringList());
    QCOMPARE(heard.count(), 0);
}

void TestFlyoutCommand::settingsNeedNotHearOfTheReset()
{
    const Flyout flyout = makeFlyout(true, new QWidget);
    Smooth command(flyout.get());
    Q_EMIT flyout->ResetValues();
    QCOMPARE(command.log.take(), QStringList(QStringLiteral("reset")));
}

void TestFlyoutCommand::escapeReachesTheCommand()
{
    const Flyout flyout = makeFlyout();
    Smooth command(flyout.get());
    Q_EMIT flyout->ESCKeyReleased();
    QCOMPARE(command.log.take(), QStringList(QStringLiteral("escape")));
}

void TestFlyoutCommand::simpleFlyoutHasNoConnections()
{
    Settings widget;
    Smooth command(&widget);
    const auto recorder = record(command);
    Q_EMIT widget.ResetValues();
    widget.show();
    widget.hide();
    QCOMPARE(command.log.take(), QStringList());
}

void TestFlyoutCommand::contextHoldsWhileTheFlyoutIsOpen()
{
    const Flyout flyout = makeFlyout();
    ControllerFixture fixture;
    TestCommand *const save = fixture.add(QStringLiteral("save"));
    Smooth *const command = addTo(fixture.controller(), flyout.get());
    command->beginContext = disabling(QStringLiteral("save"));
    command->onBegin();
    QVERIFY(save->isEnabled());
    runPosted();
    QVERIFY(!save->isEnabled());
    command->onFinalize();
    QVERIFY(!save->isEnabled());
    runPosted();
    QVERIFY(save->isEnabled());
}

void TestFlyoutCommand::contextIsPushedBeforeTheBeginIsTold()
{
    const Flyout flyout = makeFlyout();
    ControllerFixture fixture;
    TestCommand *const save = fixture.add(QStringLiteral("save"));
    Smooth *const command = addTo(fixture.controller(), flyout.get());
    command->beginContext = disabling(QStringLiteral("save"));
    const auto observer = std::make_shared<Reaction>();
    // What an observer holds from now on stands above the command's own.
    CommandContext enabling;
    enabling.overwrite(QStringLiteral("save"), {State::On, State::Keep});
    observer->began = [&] { fixture.controller()->pushContext(enabling); };
    command->addObserver(observer, false);
    command->onBegin();
    runPosted();
    QVERIFY(save->isEnabled());
}

void TestFlyoutCommand::contextIsPoppedBeforeTheEndIsTold()
{
    const Flyout flyout = makeFlyout();
    ControllerFixture fixture;
    TestCommand *const save = fixture.add(QStringLiteral("save"));
    Smooth *const command = addTo(fixture.controller(), flyout.get());
    const auto observer = std::make_shared<Reaction>();
    observer->ended = [&] { fixture.controller()->pushContext(disabling(QStringLiteral("save"))); };
    command->addObserver(observer, false);
    command->onBegin();
    runPosted();
    command->onFinalize();
    runPosted();
    QVERIFY(!save->isEnabled());
}

void TestFlyoutCommand::emptyContextIsPushedToo()
{
    const Flyout flyout = makeFlyout();
    ControllerFixture fixture;
    TestCommand *const save = fixture.add(QStringLiteral("save"));
    Smooth *const command = addTo(fixture.controller(), flyout.get());
    command->onBegin();
    save->setEnabled(false);
    command->onFinalize();
    runPosted();
    QVERIFY(save->isEnabled());
}

void TestFlyoutCommand::simpleFlyoutPushesNoContext()
{
    QWidget widget;
    ControllerFixture fixture;
    TestCommand *const save = fixture.add(QStringLiteral("save"));
    Smooth *const command = addTo(fixture.controller(), &widget);
    command->beginContext = disabling(QStringLiteral("save"));
    const auto recorder = record(*command);
    // A context of somebody else, which a pop too many would end.
    fixture.controller()->pushContext({});
    save->setChecked(false);
    save->setToolTip(QStringLiteral("changed"));
    command->onBegin();
    runPosted();
    QVERIFY(save->isEnabled());
    save->setEnabled(false);
    command->onFinalize();
    runPosted();
    QVERIFY(!save->isEnabled());
    QCOMPARE(command->log.take(),
             QStringList({QStringLiteral("opened(smooth)"), QStringLiteral("closed(smooth)")}));
}

void TestFlyoutCommand::commandWithoutControllerBeginsAndEnds()
{
    const Flyout flyout = makeFlyout();
    Smooth command(flyout.get());
    const auto recorder = record(command);
    command.onBegin();
    command.onFinalize();
    QCOMPARE(command.log.take(),
             QStringList({QStringLiteral("opened(smooth)"), QStringLiteral("closed(smooth)")}));
}

void TestFlyoutCommand::runningCommandGetsTheInputFirst()
{
    const Flyout flyout = makeFlyout();
    ControllerFixture fixture;
    Smooth *const command = addTo(fixture.controller(), flyout.get());
    QKeyEvent key(QEvent::KeyPress, Qt::Key_A, Qt::NoModifier);
    QVERIFY(!fixture.controller()->keyPress(&key));
    command->onBegin();
    QCOMPARE(fixture.controller()->runningCommand().get(), command);
    QVERIFY(fixture.controller()->keyPress(&key));
    QCOMPARE(command->log.take(), QStringList(QStringLiteral("key")));
    command->onFinalize();
    QVERIFY(!fixture.controller()->runningCommand());
    QVERIFY(!fixture.controller()->keyPress(&key));
}

void TestFlyoutCommand::popDoesNotBeginAgain()
{
    const Flyout flyout = makeFlyout();
    ControllerFixture fixture;
    Smooth *const command = addTo(fixture.controller(), flyout.get());
    command->setCheckable(true);
    const auto recorder = record(*command);
    command->setChecked(true);
    runPosted();
    command->setChecked(false);
    runPosted();
    runPosted();
    QVERIFY(!command->isChecked());
    QCOMPARE(command->log.take(),
             QStringList({QStringLiteral("opened(smooth)"), QStringLiteral("closed(smooth)")}));
}

void TestFlyoutCommand::checkedSiblingSurvivesTheEndOfItsForerunner()
{
    const Flyout smoothPanel = makeFlyout();
    const Flyout cutPanel = makeFlyout();
    ControllerFixture fixture;
    Smooth *const smooth = addTo(fixture.controller(), smoothPanel.get());
    Smooth *const cut = addTo(fixture.controller(), cutPanel.get(), QStringLiteral("cut"));
    QActionGroup exclusive(nullptr);
    for (Smooth *const command : {smooth, cut}) {
        command->setCheckable(true);
        exclusive.addAction(command);
    }
    const auto recorder = record(*cut);
    smooth->setChecked(true);
    runPosted();
    cut->setChecked(true);
    runPosted();
    runPosted();
    QVERIFY(!smooth->isChecked());
    QVERIFY(cut->isChecked());
    QCOMPARE(cut->log.take(), QStringList(QStringLiteral("opened(cut)")));
    QCOMPARE(fixture.controller()->runningCommand().get(), cut);
}

void TestFlyoutCommand::checkedToolSurvivesTheEndOfTheFlyout()
{
    const Flyout flyout = makeFlyout();
    ControllerFixture fixture;
    Smooth *const smooth = addTo(fixture.controller(), flyout.get());
    TestCommand *const tool = fixture.add(QStringLiteral("pick"));
    QActionGroup exclusive(nullptr);
    for (CommandBase *const command : std::initializer_list<CommandBase *> {smooth, tool}) {
        command->setCheckable(true);
        exclusive.addAction(command);
    }
    smooth->setChecked(true);
    runPosted();
    tool->setChecked(true);
    QVERIFY(!smooth->isChecked());
    runPosted();
    QVERIFY(tool->isChecked());

    // Without such a group the pop undoes what was done meanwhile.
    exclusive.setExclusive(false);
    tool->setChecked(false);
    smooth->setChecked(true);
    runPosted();
    tool->setChecked(true);
    smooth->setChecked(false);
    runPosted();
    QVERIFY(!tool->isChecked());
}

void TestFlyoutCommand::commandThatTakesOverRemembersWhatIsPutBack()
{
    const Flyout smoothPanel = makeFlyout();
    const Flyout cutPanel = makeFlyout();
    ControllerFixture fixture;
    TestCommand *const save = fixture.add(QStringLiteral("save"));
    auto *const smooth = addTo<Kept>(fixture.controller(), smoothPanel.get());
    auto *const cut = addTo<Kept>(fixture.controller(), cutPanel.get(), QStringLiteral("cut"));
    QActionGroup exclusive(nullptr);
    for (Kept *const command : {smooth, cut}) {
        command->setCheckable(true);
        exclusive.addAction(command);
    }
    smooth->beginContext = disabling(QStringLiteral("save"));
    smooth->setChecked(true);
    runPosted();
    QVERIFY(!save->isEnabled());
    cut->setChecked(true);
    runPosted();
    QVERIFY(save->isEnabled());
    cut->setChecked(false);
    runPosted();
    QVERIFY(save->isEnabled());
}

void TestFlyoutCommand::keptCommandEndsOnceHoweverItIsClosed_data()
{
    QTest::addColumn<int>("step");
    for (std::size_t step = 0; step < closeSteps.size(); ++step)
        QTest::newRow(closeSteps[step].name) << static_cast<int>(step);
}

void TestFlyoutCommand::keptCommandEndsOnceHoweverItIsClosed()
{
    QFETCH(int, step);
    const auto &close = closeSteps[static_cast<std::size_t>(step)].run;
    const Flyout flyout = makeFlyout();
    ControllerFixture fixture;
    TestCommand *const save = fixture.add(QStringLiteral("save"));
    auto *const command = addTo<Kept>(fixture.controller(), flyout.get());
    command->setCheckable(true);
    connect(flyout.get(), &FlyoutBase::CancelChanges, command, &Kept::onFinalize);
    command->beginContext = disabling(QStringLiteral("save"));
    const auto recorder = record(*command);
    for (int round = 0; round < 2; ++round) {
        command->trigger();
        flyout->show();
        runPosted();
        QVERIFY(!save->isEnabled());
        close(flyout, *command);
        runPosted();
        runPosted();
        QVERIFY(save->isEnabled());
        QVERIFY(!command->isChecked());
        QCOMPARE(command->log.take(),
                 QStringList({QStringLiteral("opened(smooth)"), QStringLiteral("closed(smooth)")}));
    }
}

void TestFlyoutCommand::shortcutHasTheButtonShowThePanel()
{
    const Flyout flyout = makeFlyout();
    ControllerFixture fixture;
    Smooth *const command = addTo(fixture.controller(), flyout.get());
    command->setShortcut(QKeySequence(Qt::CTRL + Qt::Key_M));
    ToolBar bar(nullptr, Qt::LeftToolBarArea);
    PanelButton button(command, &bar, flyout.get());
    QSignalSpy clicked(&button, &ToolButton::ToolButtonClicked);
    QWidget *const view = command->getViewQtWidget();
    view->show();
    QVERIFY(QTest::qWaitForWindowActive(view));
    QTest::keyClick(view, Qt::Key_M, Qt::ControlModifier);
    QCOMPARE(fixture.controller()->runningCommand().get(), command);
    QTRY_COMPARE(clicked.count(), 1);
    QVERIFY(flyout->isVisible());
    flyout->hide();
}

void TestFlyoutCommand::shortcutWorksInThePanel()
{
    const Flyout flyout = makeFlyout();
    Smooth command(flyout.get());
    command.setCheckable(true);
    command.setShortcut(QKeySequence(Qt::CTRL + Qt::Key_M));
    const auto recorder = record(command);
    command.setChecked(true);
    flyout->show();
    QVERIFY(QTest::qWaitForWindowActive(flyout.get()));
    QTest::keyClick(flyout.get(), Qt::Key_M, Qt::ControlModifier);
    QVERIFY(!command.isChecked());
    QCOMPARE(command.log.take(),
             QStringList({QStringLiteral("opened(smooth)"), QStringLiteral("closed(smooth)")}));
}

void TestFlyoutCommand::clickOfTheMouseShowsThePanelOnce()
{
    const Flyout flyout = makeFlyout();
    Smooth command(flyout.get());
    const auto recorder = record(command);
    ToolBar bar(nullptr, Qt::LeftToolBarArea);
    PanelButton button(&command, &bar, flyout.get());
    QTest::mouseClick(&button, Qt::LeftButton);
    QCOMPARE(command.log.take(), QStringList(QStringLiteral("opened(smooth)")));
    QVERIFY(flyout->isVisible());
    runQueued(&button);
    QCOMPARE(button.clicks, 1);
    QVERIFY(flyout->isVisible());
}

void TestFlyoutCommand::clickOfTheMouseIsNotRepeated()
{
    const Flyout flyout = makeFlyout();
    Smooth command(flyout.get());
    ToolBar bar(nullptr, Qt::LeftToolBarArea);
    // A host's button that shows its panel in its own time.
    ToolButton button(&command, &bar, &bar);
    flyout->SetToolButton(&button);
    QSignalSpy clicked(&button, &ToolButton::ToolButtonClicked);
    QTest::mouseClick(&button, Qt::LeftButton);
    runQueued(&button);
    QCOMPARE(clicked.count(), 1);
}

void TestFlyoutCommand::clickFromCodeShowsThePanelOnce()
{
    const Flyout flyout = makeFlyout();
    Smooth command(flyout.get());
    ToolBar bar(nullptr, Qt::LeftToolBarArea);
    PanelButton button(&command, &bar, flyout.get());
    button.click();
    QVERIFY(flyout->isVisible());
    runQueued(&button);
    QCOMPARE(button.clicks, 1);
    QVERIFY(flyout->isVisible());
}

void TestFlyoutCommand::endBeforeTheTurnLeavesThePanelClosed()
{
    const Flyout flyout = makeFlyout();
    Smooth command(flyout.get());
    command.setCheckable(true);
    ToolBar bar(nullptr, Qt::LeftToolBarArea);
    PanelButton button(&command, &bar, flyout.get());
    command.setChecked(true);
    command.setChecked(false);
    runQueued(&button);
    QCOMPARE(button.clicks, 0);
    command.setChecked(true);
    runQueued(&button);
    QCOMPARE(button.clicks, 1);
}

void TestFlyoutCommand::uncheckingHasTheButtonHideThePanel()
{
    const Flyout flyout = makeFlyout();
    Smooth command(flyout.get());
    command.setCheckable(true);
    ToolBar bar(nullptr, Qt::LeftToolBarArea);
    PanelButton button(&command, &bar, flyout.get());
    command.setChecked(true);
    runQueued(&button);
    QVERIFY(flyout->isVisible());
    command.setChecked(false);
    QVERIFY(flyout->isVisible());
    runQueued(&button);
    QVERIFY(!flyout->isVisible());
    QCOMPARE(button.clicks, 2);

    // The end of the command does not tell that its panel is to go.
    flyout->show();
    command.onFinalize();
    runQueued(&button);
    QVERIFY(flyout->isVisible());
}

void TestFlyoutCommand::clicksThatUncheckHideThePanelOnce()
{
    const Flyout flyout = makeFlyout();
    Smooth command(flyout.get());
    command.setCheckable(true);
    ToolBar bar(nullptr, Qt::LeftToolBarArea);
    PanelButton button(&command, &bar, flyout.get());
    QTest::mouseClick(&button, Qt::LeftButton);
    QTest::mouseClick(&button, Qt::LeftButton);
    runQueued(&button);
    QCOMPARE(button.clicks, 2);
    QVERIFY(!flyout->isVisible());
    button.click();
    button.click();
    runQueued(&button);
    QCOMPARE(button.clicks, 4);
    QVERIFY(!flyout->isVisible());
}

void TestFlyoutCommand::beginBeforeTheTurnLeavesThePanelOpen()
{
    const Flyout flyout = makeFlyout();
    Smooth command(flyout.get());
    command.setCheckable(true);
    ToolBar bar(nullptr, Qt::LeftToolBarArea);
    PanelButton button(&command, &bar, flyout.get());
    command.setChecked(true);
    runQueued(&button);
    command.setChecked(false);
    command.setChecked(true);
    runQueued(&button);
    QVERIFY(flyout->isVisible());
    QCOMPARE(button.clicks, 1);
}

void TestFlyoutCommand::otherButtonsAreNotClicked()
{
    const Flyout flyout = makeFlyout();
    Smooth command(flyout.get());
    QToolButton button;
    QSignalSpy clicked(&button, &QToolButton::clicked);
    flyout->SetToolButton(&button);
    command.onBegin();
    runQueued(&button);
    QCOMPARE(clicked.count(), 0);
    flyout->SetToolButton(nullptr);
    command.onBegin();
}

void TestFlyoutCommand::exitClosesThePanelInUse()
{
    const Flyout flyout = makeFlyout();
    Smooth command(flyout.get());
    const auto recorder = record(command);
    QSignalSpy closed(flyout.get(), &FlyoutBase::CloseFlyout);
    command.setIsActive(true);
    QVERIFY(command.isActive());
    flyout->show();
    command.onExitCommand();
    QVERIFY(!flyout->isVisible());
    QCOMPARE(closed.count(), 1);
    QCOMPARE(command.log.take(), QStringList(QStringLiteral("closed(smooth)")));
    QVERIFY(command.isActive());
}

void TestFlyoutCommand::exitHidesASimpleFlyout()
{
    QWidget widget;
    Smooth command(&widget);
    const auto recorder = record(command);
    command.setIsActive(true);
    widget.show();
    command.onExitCommand();
    QVERIFY(!widget.isVisible());
    QCOMPARE(command.log.take(), QStringList(QStringLiteral("closed(smooth)")));
}

void TestFlyoutCommand::exitNeedsAnActiveCommandAndAVisiblePanel()
{
    const Flyout flyout = makeFlyout();
    Smooth command(flyout.get());
    const auto recorder = record(command);
    flyout->show();
    command.onExitCommand();
    QVERIFY(flyout->isVisible());
    flyout->hide();
    command.setIsActive(true);
    command.onExitCommand();
    Smooth without(nullptr);
    without.setIsActive(true);
    without.onExitCommand();
    QWidget widget;
    Smooth simple(&widget);
    const auto simpleRecorder = record(simple);
    simple.setIsActive(true);
    simple.onExitCommand();
    QCOMPARE(command.log.take(), QStringList());
    QCOMPARE(simple.log.take(), QStringList());
}

void TestFlyoutCommand::panelFollowsTheEnabledAction()
{
    const Flyout flyout = makeFlyout();
    Smooth command(flyout.get());
    command.setEnabled(false);
    QVERIFY(!flyout->isEnabled());
    command.setEnabled(true);
    QVERIFY(flyout->isEnabled());
    QWidget widget;
    Smooth simple(&widget);
    simple.setEnabled(false);
    QVERIFY(widget.isEnabled());
}

void TestFlyoutCommand::flyoutMayDieFirst()
{
    Flyout flyout = makeFlyout();
    Smooth command(flyout.get());
    const auto recorder = record(command);
    flyout.reset();
    QVERIFY(!command.flyout());
    QVERIFY(!command.simpleFlyout());
    QVERIFY(command.isSimpleFlyout());
    command.setIsActive(true);
    command.onExitCommand();
    command.setEnabled(false);
    command.setEnabled(true);
    command.trigger();
    command.onFinalize();
    QCOMPARE(command.log.take(),
             QStringList({QStringLiteral("opened(smooth)"), QStringLiteral("closed(smooth)")}));
}

void TestFlyoutCommand::flyoutMayDieWhileItIsOpen()
{
    Flyout flyout = makeFlyout();
    ControllerFixture fixture;
    TestCommand *const save = fixture.add(QStringLiteral("save"));
    Smooth *const command = addTo(fixture.controller(), flyout.get());
    command->beginContext = disabling(QStringLiteral("save"));
    command->onBegin();
    runPosted();
    QVERIFY(!save->isEnabled());
    flyout.reset();
    command->onFinalize();
    runPosted();
    QVERIFY(save->isEnabled());
    // Nothing is left to pop.
    fixture.controller()->pushContext({});
    save->setEnabled(false);
    command->onFinalize();
    runPosted();
    QVERIFY(!save->isEnabled());
}

void TestFlyoutCommand::commandMayDieFirst()
{
    const Flyout flyout = makeFlyout();
    ToolBar bar(nullptr, Qt::LeftToolBarArea);
    auto command = std::make_unique<Smooth>(flyout.get());
    PanelButton button(command.get(), &bar, flyout.get());
    command->onBegin();
    command.reset();
    runQueued(&button);
    QCOMPARE(button.clicks, 0);
    flyout->show();
    click(flyout, "apply_button");
    click(flyout, "reset_button");
    Q_EMIT flyout->ESCKeyReleased();
    click(flyout, "close_button");
    QVERIFY(!flyout->isVisible());
}

void TestFlyoutCommand::buttonMayDieBeforeItsClick()
{
    const Flyout flyout = makeFlyout();
    Smooth command(flyout.get());
    ToolBar bar(nullptr, Qt::LeftToolBarArea);
    auto button = std::make_unique<PanelButton>(&command, &bar, flyout.get());
    command.onBegin();
    button.reset();
    runQueued(&command);
    QVERIFY(!flyout->isVisible());
}

void TestFlyoutCommand::controllerMayDieWhileThePanelIsOpen()
{
    const Flyout flyout = makeFlyout();
    ControllerFixture fixture;
    const auto command = std::make_shared<Smooth>(flyout.get(), fixture.controller());
    fixture.controller()->addCommand(command.get());
    command->onBegin();
    fixture.end();
    command->onFinalize();
    QVERIFY(!command->getViewController());
}

void TestFlyoutCommand::listenerMayRemoveTheCommandThatIsTriggered()
{
    const Flyout flyout = makeFlyout();
    ControllerFixture fixture;
    for (const bool checkable : {false, true}) {
        QPointer<Smooth> command = addTo(fixture.controller(), flyout.get());
        command->setCheckable(checkable);
        const auto recorder = record(*command);
        const EventLog log = command->log;
        const auto remove = [&] { fixture.controller()->removeCommand(command); };
        connect(command, &CommandBase::toBeTriggered, this, remove);
        connect(command, &CommandBase::toBeToggled, this, remove);
        command->trigger();
        QVERIFY(!command);
        QCOMPARE(log.events(), QStringList(QStringLiteral("opened(smooth)")));
    }
}

void TestFlyoutCommand::listenerMayDeleteTheCommandThatIsTriggered()
{
    for (const bool checkable : {false, true}) {
        QPointer<Smooth> command = new Smooth(nullptr);
        command->setCheckable(checkable);
        const auto recorder = record(*command);
        const EventLog log = command->log;
        const auto end = [&] { delete command; };
        connect(command, &CommandBase::toBeTriggered, this, end);
        connect(command, &CommandBase::toBeToggled, this, end);
        command->trigger();
        QVERIFY(!command);
        QCOMPARE(log.events(), QStringList());
    }
}

void TestFlyoutCommand::commandMayEndBeforeItsRun()
{
    class Leaving : public Smooth
    {
    public:
        using Smooth::Smooth;
        bool onBeforeExecute() override
        {
            delete this;
            return true;
        }
    };
    CommandBase *const command = new Leaving(nullptr);
    QVERIFY(!command->onExecute(true));
}

void TestFlyoutCommand::observerMayRemoveTheCommandThatBegins()
{
    const Flyout flyout = makeFlyout();
    ControllerFixture fixture;
    ToolBar bar(nullptr, Qt::LeftToolBarArea);
    QPointer<Smooth> command = addTo(fixture.controller(), flyout.get());
    PanelButton button(command, &bar, flyout.get());
    const auto observer = std::make_shared<Reaction>();
    observer->began = [&] { fixture.controller()->removeCommand(command); };
    command->addObserver(observer, false);
    command->trigger();
    QVERIFY(!command);
    runQueued(&button);
    QCOMPARE(button.clicks, 0);
}

void TestFlyoutCommand::observerMayDeleteTheCommandThatBegins()
{
    const Flyout flyout = makeFlyout();
    QPointer<Smooth> command = new Smooth(flyout.get());
    const auto observer = std::make_shared<Reaction>();
    observer->began = [&] { delete command; };
    command->addObserver(observer, false);
    command->onBegin();
    QVERIFY(!command);
}

void TestFlyoutCommand::observerMayDeleteTheCommandThatEnds()
{
    const Flyout flyout = makeFlyout();
    QPointer<Smooth> command = new Smooth(flyout.get());
    command->setCheckable(true);
    const auto observer = std::make_shared<Reaction>();
    observer->ended = [&] { delete command; };
    command->addObserver(observer, false);
    command->setChecked(true);
    command->setChecked(false);
    QVERIFY(!command);
}

void TestFlyoutCommand::hideOfASimpleFlyoutMayDeleteTheCommand()
{
    class Deleting : public QWidget
    {
    public:
        QPointer<Smooth> command;

    protected:
        void hideEvent(QHideEvent *) override { delete command; }
    };
    Deleting widget;
    widget.command = new Smooth(&widget);
    widget.command->setIsActive(true);
    widget.show();
    widget.command->onExitCommand();
    QVERIFY(!widget.command);
}

LUMO_TEST_MAIN(TestFlyoutCommand)
#include "tst_flyoutcommand.moc"
