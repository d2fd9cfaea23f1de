// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include <ui_base/BaseView>
#include <ui_base/CmdMgrProtocol>
#include <ui_base/CmdsViewController>
#include <ui_base/CommandBag>
#include <ui_base/CommandBase>
#include <ui_base/CommandContext>
#include <ui_base/CommandGroup>
#include <ui_base/CommandStateProtocol>
#include <ui_base/InteractiveTool>
#include <ui_base/ToolStack>
#include <ui_base/ViewResponder>

#include "support/recordingobservers.h"
#include "support/testcase.h"
#include "support/testmain.h"
#include "ui_base/command/testcommand.h"
#include "ui_base/qtui/notification/notificationbar_p.h"

#include <lumo_app_service/ApplicationService>
#include <lumo_app_service/IAppManager>
#include <lumo_common_res/String>

#include <QActionGroup>
#include <QCursor>
#include <QDragEnterEvent>
#include <QGuiApplication>
#include <QHash>
#include <QKeyEvent>
#include <QMimeData>
#include <QMouseEvent>
#include <QPointer>
#include <QSemaphore>
#include <QTest>
#include <QTimer>
#include <QWheelEvent>
#include <QWidget>

#include <atomic>
#include <functional>
#include <memory>
#include <vector>

using namespace Vela::UiBase;
using Lumo::Test::EventLog;
using Lumo::Test::TestCommand;
using Vela::Services::ApplicationService;

namespace {

/// Records input under a name and consumes it if told to.
class Input : public ViewResponder
{
public:
    explicit Input(const EventLog &log, const QString &name)
        : m_log(log)
        , m_name(name)
    { }
    virtual ~Input() = default;

    bool mouseDoubleClick(QMouseEvent *) override { return record("doubleClick"); }
    bool mouseMove(QMouseEvent *) override { return record("move"); }
    bool mousePress(QMouseEvent *) override { return record("press"); }
    bool mouseRelease(QMouseEvent *) override { return record("release"); }
    bool mouseWheel(QWheelEvent *) override { return record("wheel"); }
    bool mouseEnter(QEvent *) override { return record("enter"); }
    bool mouseLeave(QEvent *) override { return record("leave"); }
    bool mouseDragEnter(QDragEnterEvent *) override { return record("dragEnter"); }
    bool mouseDragLeave(QDragLeaveEvent *) override { return record("dragLeave"); }
    bool mouseDragMove(QDragMoveEvent *) override { return record("dragMove"); }
    bool mouseDrop(QDropEvent *) override { return record("drop"); }
    bool keyPress(QKeyEvent *) override { return record("keyPress"); }
    bool keyRelease(QKeyEvent *) override { return record("keyRelease"); }

    bool consumes = false;
    std::function<void()> called;

private:
    bool record(const char *event)
    {
        m_log.add(QStringLiteral("%1 %2").arg(m_name, QString::fromLatin1(event)));
        if (called)
            called();
        return consumes;
    }

    EventLog m_log;
    QString m_name;
};

/// A command that takes part in the routing.
class InputCommand : public TestCommand, public Input
{
public:
    explicit InputCommand(const EventLog &log)
        : TestCommand(QStringLiteral("input"))
        , Input(log, QStringLiteral("command"))
    { }
};

/// A tool that records its input, behaves as tools do, and consumes further input if told to.
class RecordingTool : public InteractiveTool
{
public:
    RecordingTool(const EventLog &log, const QString &name)
        : InteractiveTool(nullptr)
        , m_log(log)
        , m_name(name)
    { }

    bool mousePress(QMouseEvent *event) override
    {
        lastPress = event->pos();
        return record("press") | InteractiveTool::mousePress(event);
    }
    bool mouseMove(QMouseEvent *event) override
    {
        return record("move") | InteractiveTool::mouseMove(event);
    }
    bool mouseRelease(QMouseEvent *event) override
    {
        return record("release") | InteractiveTool::mouseRelease(event);
    }
    bool mouseDoubleClick(QMouseEvent *) override { return record("doubleClick"); }
    bool mouseWheel(QWheelEvent *) override { return record("wheel"); }
    bool mouseEnter(QEvent *) override { return record("enter"); }
    bool mouseLeave(QEvent *) override { return record("leave"); }
    bool mouseDragEnter(QDragEnterEvent *) override { return record("dragEnter"); }
    bool mouseDragLeave(QDragLeaveEvent *) override { return record("dragLeave"); }
    bool mouseDragMove(QDragMoveEvent *) override { return record("dragMove"); }
    bool mouseDrop(QDropEvent *) override { return record("drop"); }
    bool keyPress(QKeyEvent *) override { return record("keyPress"); }
    bool keyRelease(QKeyEvent *) override { return record("keyRelease"); }
    void endOperation() override
    {
        record("end");
        InteractiveTool::endOperation();
    }

    using InteractiveTool::setIdleCursor;
    using InteractiveTool::setOperatingCursor;
    using InteractiveTool::startOperation;

    bool consumes = false;
    QPoint lastPress;
    QHash<QString, std::function<void()>> onCall;

private:
    bool record(const char *event)
    {
        const QString name = QString::fromLatin1(event);
        m_log.add(QStringLiteral("%1 %2").arg(m_name, name));
        if (const std::function<void()> call = onCall.take(name))
            call();
        return consumes;
    }

    EventLog m_log;
    QString m_name;
};

/// Lists the commands that a test makes, and what it was asked.
class Manager : public Vela::Services::IAppManager
{
public:
    QList<CommandBase *> commands(CmdsViewController *controller) override
    {
        lastController = controller;
        ++asked;
        return make ? make(controller) : QList<CommandBase *>();
    }

    std::function<QList<CommandBase *>(CmdsViewController *)> make;
    CmdsViewController *lastController = nullptr;
    int asked = 0;
};

/// Calls what a test puts into it for the begin and the end of a run.
class RunObserver : public CommandStateProtocol
{
public:
    void commandBeganExecuting(CommandBase *, bool) override { call(began); }
    void commandEndedExecuting(CommandBase *, bool) override { call(ended); }

    std::function<void()> began;
    std::function<void()> ended;

private:
    static void call(const std::function<void()> &function)
    {
        if (const std::function<void()> copy = function)
            copy();
    }
};

/// Calls what a test puts into it when a command "first" is added.
class AddObserver : public CmdMgrProtocol
{
public:
    void commandAdded(CmdMgr *, CommandBase *command) override
    {
        if (command && command->commandId() == QStringLiteral("first"))
            firstAdded();
    }

    std::function<void()> firstAdded;
};

/// Work that holds its worker until it is let go, which it is in the end of this object at last.
class HeldWork
{
public:
    ~HeldWork() { m_shared->released.release(100); }

    std::function<bool(bool)> work() const
    {
        return [shared = m_shared](bool) {
            ++shared->started;
            shared->released.acquire();
            return true;
        };
    }
    int started() const { return m_shared->started; }
    void letGo() { m_shared->released.release(); }

private:
    struct Shared
    {
        std::atomic<int> started {0};
        QSemaphore released;
    };

    std::shared_ptr<Shared> m_shared = std::make_shared<Shared>();
};

/// A view with its controller, tools named by their button, and a running command on demand.
class Scene
{
public:
    Scene()
        : view(new BaseView(static_cast<QWidget *>(nullptr), Qt::WindowFlags()))
        , controller(new CmdsViewController(view))
    { }
    ~Scene()
    {
        if (view)
            delete view->getQtWidget();
    }

    std::shared_ptr<RecordingTool> push(EToolActivationButton button, const char *name,
                                        Qt::CursorShape idle = Qt::OpenHandCursor,
                                        Qt::CursorShape operating = Qt::ClosedHandCursor)
    {
        auto tool = std::make_shared<RecordingTool>(log, QString::fromLatin1(name));
        tool->setIdleCursor(idle);
        tool->setOperatingCursor(operating);
        controller->pushTool(button, tool);
        return tool;
    }

    std::shared_ptr<InputCommand> run()
    {
        auto command = std::make_shared<InputCommand>(log);
        controller->commandBegan(command.get());
        return command;
    }

    bool send(QEvent::Type type, Qt::MouseButton button, Qt::MouseButtons buttons,
              const QPointF &at = {5, 5})
    {
        QMouseEvent event(type, at, at, at, button, buttons, Qt::NoModifier);
        switch (type) {
        case QEvent::MouseButtonPress:
            return controller->mousePress(&event);
        case QEvent::MouseButtonRelease:
            return controller->mouseRelease(&event);
        case QEvent::MouseButtonDblClick:
            return controller->mouseDoubleClick(&event);
        default:
            return controller->mouseMove(&event);
        }
    }
    bool press(Qt::MouseButton button, const QPointF &at = {5, 5})
    {
        return send(QEvent::MouseButtonPress, button, button, at);
    }
    bool release(Qt::MouseButton button)
    {
        return send(QEvent::MouseButtonRelease, button, Qt::NoButton);
    }
    bool move(Qt::MouseButtons buttons) { return send(QEvent::MouseMove, Qt::NoButton, buttons); }
    bool doubleClick(Qt::MouseButton button)
    {
        return send(QEvent::MouseButtonDblClick, button, button);
    }
    bool wheel() const
    {
        QWheelEvent event({5, 5}, {5, 5}, {}, {0, 120}, Qt::NoButton, Qt::NoModifier,
                          Qt::NoScrollPhase, false);
        return controller->mouseWheel(&event);
    }
    bool key(QEvent::Type type) const
    {
        QKeyEvent event(type, Qt::Key_A, Qt::NoModifier);
        return type == QEvent::KeyPress ? controller->keyPress(&event)
                                        : controller->keyRelease(&event);
    }

    QStringList calls() { return log.take(); }
    NotificationBar *bar() const { return view->getQtWidget()->findChild<NotificationBar *>(); }
    Qt::CursorShape cursor() const { return view->getCursor().shape(); }

    EventLog log;
    QPointer<BaseView> view;
    QPointer<CmdsViewController> controller;
};

/// What a bar shows, without asking its window.
const NotificationBarPrivate &dataOf(NotificationBar *bar)
{
    struct Opened : NotificationBar
    {
        static const NotificationBarPrivate &of(NotificationBar *bar)
        {
            return *(bar->*(&Opened::d_ptr));
        }
    };
    return Opened::of(bar);
}

std::shared_ptr<TestCommand> notifyingCommand(const QString &began, const QString &ended)
{
    auto command = std::make_shared<TestCommand>(QStringLiteral("notifying"));
    command->enableExecutionNotification(true);
    command->setExecutionNotificationMessage(CommandBase::ENotification::ExecutionBegan, began);
    command->setExecutionNotificationMessage(CommandBase::ENotification::ExecutionEnded, ended);
    return command;
}

QStringList names(std::initializer_list<const char *> list)
{
    QStringList result;
    for (const char *const name : list)
        result << QString::fromLatin1(name);
    return result;
}

/// Calls all thirteen operations in the order of ViewResponder. @return the bits of their results
int callAll(CmdsViewController *controller)
{
    static const QMimeData data;
    const QPointF at(5, 5);
    const auto mouse = [&at](QEvent::Type type, Qt::MouseButton button) {
        return QMouseEvent(type, at, at, at, button, Qt::LeftButton, Qt::NoModifier);
    };
    QMouseEvent doubleClick = mouse(QEvent::MouseButtonDblClick, Qt::LeftButton);
    QMouseEvent move = mouse(QEvent::MouseMove, Qt::NoButton);
    QMouseEvent press = mouse(QEvent::MouseButtonPress, Qt::LeftButton);
    QMouseEvent release = mouse(QEvent::MouseButtonRelease, Qt::LeftButton);
    QWheelEvent wheel(at, at, {}, {0, 120}, Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
    QEvent enter(QEvent::Enter);
    QEvent leave(QEvent::Leave);
    QDragEnterEvent dragEnter({5, 5}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QDragLeaveEvent dragLeave;
    QDragMoveEvent dragMove({5, 5}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QDropEvent drop(at, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QKeyEvent keyPress(QEvent::KeyPress, Qt::Key_A, Qt::NoModifier);
    QKeyEvent keyRelease(QEvent::KeyRelease, Qt::Key_A, Qt::NoModifier);
    const bool results[] {controller->mouseDoubleClick(&doubleClick),
                          controller->mouseMove(&move),
                          controller->mousePress(&press),
                          controller->mouseRelease(&release),
                          controller->mouseWheel(&wheel),
                          controller->mouseEnter(&enter),
                          controller->mouseLeave(&leave),
                          controller->mouseDragEnter(&dragEnter),
                          controller->mouseDragLeave(&dragLeave),
                          controller->mouseDragMove(&dragMove),
                          controller->mouseDrop(&drop),
                          controller->keyPress(&keyPress),
                          controller->keyRelease(&keyRelease)};
    int bits = 0;
    for (int i = 0; i < 13; ++i)
        bits |= int(results[i]) << i;
    return bits;
}

constexpr int allOfThem = (1 << 13) - 1;

const char *const inputNames[] {"doubleClick", "move",     "press",     "release",   "wheel",
                                "enter",       "leave",    "dragEnter", "dragLeave", "dragMove",
                                "drop",        "keyPress", "keyRelease"};

QStringList inputOf(const char *name)
{
    QStringList result;
    for (const char *const input : inputNames)
        result << QStringLiteral("%1 %2").arg(QString::fromLatin1(name),
                                              QString::fromLatin1(input));
    return result;
}

} // namespace

static_assert(std::is_base_of_v<BaseViewController, CmdsViewController>);
static_assert(std::is_base_of_v<ToolStack, CmdsViewController>);
static_assert(std::is_base_of_v<CmdMgr, CmdsViewController>);

class TestCmdsViewController : public Lumo::Test::TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup()
    {
        ApplicationService::GetInstance().setAppManager(nullptr);
        while (QGuiApplication::overrideCursor())
            QGuiApplication::restoreOverrideCursor();
        TestCase::cleanup();
    }

    void basesShareOneOwnerCount()
    {
        const Scene scene;
        const auto self = scene.controller->shared_from_this();
        const auto view = scene.controller->BaseViewController::shared_from_this();
        const auto tools = scene.controller->ToolStack::shared_from_this();
        const auto commands = scene.controller->CmdMgr::shared_from_this();
        QCOMPARE(self.use_count(), 5L);
        QCOMPARE(static_cast<CmdsViewController *>(tools.get()), scene.controller.data());
        QCOMPARE(static_cast<CmdsViewController *>(commands.get()), scene.controller.data());
        QCOMPARE(static_cast<CmdsViewController *>(view.get()), scene.controller.data());
    }

    void groupsOfPanelsAreMadeWithAView()
    {
        using namespace Vela::Resource::String;
        const Scene scene;
        CommandGroup *const actions = scene.controller->ActionPanelGroup();
        CommandGroup *const tools = scene.controller->ToolPanelGroup();
        CommandGroup *const dynamic = scene.controller->DynamicToolPanelGroup();
        QCOMPARE(actions->toolTip(), ACTIONS_GROUP_TEXT.toString());
        QCOMPARE(actions->objectName(), COMMAND_ACTIONPANEL_GROUP_ID.toString());
        QCOMPARE(tools->toolTip(), TOOLS_GROUP_TEXT.toString());
        QCOMPARE(tools->objectName(), COMMAND_TOOLPANEL_GROUP_ID.toString());
        QCOMPARE(dynamic->toolTip(), DYNAMIC_TOOLS_GROUP_TEXT.toString());
        QCOMPARE(dynamic->objectName(), COMMAND_DYNAMIC_TOOLPANEL_GROUP_ID.toString());
        QVERIFY(actions->icon().isNull());
        QVERIFY(!tools->groupActionGroup()->isExclusive());
        QVERIFY(actions->groupActionGroup()->isExclusive());
        QVERIFY(dynamic->groupActionGroup()->isExclusive());
        QVERIFY(std::as_const(*scene.controller).commandBag().empty());
    }

    void groupsCanBeAddedAndOutliveTheirRemoval()
    {
        const Scene scene;
        QCOMPARE(scene.controller->addCommand(scene.controller->ActionPanelGroup()),
                 scene.controller->ActionPanelGroup());
        scene.controller->removeAllCommands();
        QVERIFY(scene.controller->ActionPanelGroup()->objectName().size() > 0);
    }

    void controllerWithoutAGivenViewHasNoGroups()
    {
        auto *const own = new CmdsViewController;
        QVERIFY(own->getQtWidget());
        QVERIFY(!own->ActionPanelGroup() && !own->ToolPanelGroup()
                && !own->DynamicToolPanelGroup());
        delete own->getQtWidget();
        const auto viewless = std::make_shared<CmdsViewController>(nullptr);
        QVERIFY(!viewless->ActionPanelGroup());
        QCOMPARE(callAll(viewless.get()), 0);
    }

    void commandsLoseADyingController()
    {
        Scene scene;
        auto *const command = new TestCommand(QStringLiteral("held"), scene.controller);
        scene.controller->addCommand(command);
        bool hadController = true;
        command->ended = [&] { hadController = command->getViewController(); };
        delete scene.view->getQtWidget();
        QVERIFY(!hadController);
    }

    void commandsOfItsGroupsLoseADyingController()
    {
        Scene scene;
        const auto command =
            std::make_shared<TestCommand>(QStringLiteral("shared"), scene.controller);
        bool hadController = true;
        auto other = std::make_shared<TestCommand>(QStringLiteral("dying"), scene.controller);
        TestCommand *const raw = other.get();
        raw->ended = [&hadController, raw] { hadController = raw->getViewController(); };
        scene.controller->ToolPanelGroup()->addCommand(command);
        scene.controller->ActionPanelGroup()->addCommand(other);
        other.reset();
        delete scene.view->getQtWidget();
        QVERIFY(!hadController);
        QCOMPARE(command->getViewController(), nullptr);
    }

    void withoutToolsNothingIsConsumed()
    {
        Scene scene;
        QCOMPARE(callAll(scene.controller), 0);
        for (const Qt::MouseButton button : {Qt::RightButton, Qt::MiddleButton, Qt::BackButton}) {
            QVERIFY(!scene.press(button));
            QVERIFY(!scene.move(button));
            QVERIFY(!scene.release(button));
            QVERIFY(!scene.doubleClick(button));
        }
    }

    void nullEventsAreNotConsumed()
    {
        Scene scene;
        const auto left = scene.push(eToolButtonLeft, "left");
        const auto command = scene.run();
        QVERIFY(!scene.controller->mousePress(nullptr));
        QVERIFY(!scene.controller->mouseMove(nullptr));
        QVERIFY(!scene.controller->mouseDoubleClick(nullptr));
        QVERIFY(!scene.controller->mouseRelease(nullptr));
        QVERIFY(!scene.controller->mouseWheel(nullptr));
        QVERIFY(!scene.controller->keyPress(nullptr));
    }

    void runningCommandGoesFirst()
    {
        Scene scene;
        const auto tool = scene.push(eToolButtonLeft, "left");
        const auto command = scene.run();
        command->consumes = true;
        QCOMPARE(callAll(scene.controller), allOfThem);
        QCOMPARE(scene.calls(), inputOf("command"));
    }

    void commandThatDoesNotConsumeLetsTheToolHave()
    {
        Scene scene;
        const auto tool = scene.push(eToolButtonLeft, "left");
        const auto command = scene.run();
        QVERIFY(scene.press(Qt::LeftButton));
        QCOMPARE(scene.calls(), names({"command press", "left press"}));
        QVERIFY(scene.move(Qt::LeftButton));
        command->consumes = true;
        QVERIFY(scene.move(Qt::LeftButton));
        QCOMPARE(scene.calls(), names({"command move", "left move", "command move"}));
        scene.controller->commandEnded(command.get());
        QVERIFY(scene.release(Qt::LeftButton));
        QCOMPARE(scene.calls(), names({"left release", "left end"}));
    }

    void commandThatTakesNoPartOrHasDiedIsPassedOver()
    {
        Scene scene;
        const auto tool = scene.push(eToolButtonLeft, "left");
        auto plain = std::make_shared<TestCommand>(QStringLiteral("plain"));
        scene.controller->commandBegan(plain.get());
        scene.key(QEvent::KeyPress);
        plain.reset();
        scene.key(QEvent::KeyRelease);
        QCOMPARE(scene.calls(), names({"left keyPress", "left keyRelease"}));
    }

    void enterLeaveAndDragsAreForTheCommandOnly()
    {
        Scene scene;
        const auto tool = scene.push(eToolButtonLeft, "left");
        const auto wheel = scene.push(eToolButtonNone, "wheel");
        tool->consumes = wheel->consumes = true;
        callAll(scene.controller);
        for (const QString &call : scene.calls()) {
            for (const char *const event :
                 {"enter", "leave", "dragEnter", "dragLeave", "dragMove", "drop"})
                QVERIFY(!call.endsWith(QLatin1Char(' ') + QString::fromLatin1(event)));
        }
    }

    void pressGoesToTheToolOfItsButton_data()
    {
        QTest::addColumn<int>("button");
        QTest::addColumn<QString>("call");
        const auto row = [](const char *tag, Qt::MouseButton button, const char *call) {
            QTest::newRow(tag) << int(button) << QString::fromLatin1(call);
        };
        row("left", Qt::LeftButton, "left");
        row("middle", Qt::MiddleButton, "middle");
        row("back", Qt::BackButton, "back");
        row("none", Qt::NoButton, "wheel");
    }

    void pressGoesToTheToolOfItsButton()
    {
        QFETCH(int, button);
        QFETCH(QString, call);
        Scene scene;
        const auto left = scene.push(eToolButtonLeft, "left");
        const auto middle = scene.push(eToolButtonMiddle, "middle");
        const auto right = scene.push(eToolButtonRight, "right");
        const auto back = scene.push(EToolActivationButton(Qt::BackButton), "back");
        const auto wheel = scene.push(eToolButtonNone, "wheel");
        QVERIFY(scene.press(Qt::MouseButton(button)));
        QCOMPARE(scene.calls(), QStringList(call + QStringLiteral(" press")));
    }

    void doubleClickGoesToTheToolOfItsButton()
    {
        Scene scene;
        const auto left = scene.push(eToolButtonLeft, "left");
        const auto right = scene.push(eToolButtonRight, "right");
        right->consumes = true;
        QVERIFY(scene.doubleClick(Qt::RightButton));
        QVERIFY(!scene.doubleClick(Qt::LeftButton));
        QCOMPARE(scene.calls(), names({"right doubleClick", "left doubleClick"}));
        left->startOperation();
        scene.doubleClick(Qt::RightButton);
        QCOMPARE(scene.calls(), names({"left end", "right doubleClick"}));
    }

    void pressOfAnotherButtonEndsTheOperation()
    {
        Scene scene;
        const auto left = scene.push(eToolButtonLeft, "left");
        const auto right = scene.push(eToolButtonRight, "right");
        scene.press(Qt::RightButton);
        scene.move(Qt::RightButton);
        QVERIFY(right->isOperating() && left->isSuspended());
        scene.calls();
        QVERIFY(scene.press(Qt::LeftButton));
        QCOMPARE(scene.calls(), names({"right end", "left press"}));
        QVERIFY(left->isOperating() && right->isActive());
        QVERIFY(!scene.press(Qt::RightButton));
        QCOMPARE(scene.calls(), names({"left end"}));
        QVERIFY(left->isActive());
    }

    void pressOfTheOperatingToolIsNotTaken()
    {
        Scene scene;
        const auto left = scene.push(eToolButtonLeft, "left");
        scene.press(Qt::LeftButton);
        scene.calls();
        QVERIFY(!scene.press(Qt::LeftButton));
        QCOMPARE(scene.calls(), names({"left press"}));
        QVERIFY(left->isOperating());
    }

    void rightPressWaitsForTheFirstMove()
    {
        Scene scene;
        const auto right = scene.push(eToolButtonRight, "right");
        QVERIFY(!scene.press(Qt::RightButton, {17, 19}));
        QCOMPARE(scene.calls(), QStringList());
        QVERIFY(scene.move(Qt::RightButton));
        QCOMPARE(scene.calls(), names({"right press", "right move"}));
        QCOMPARE(right->lastPress, QPoint(17, 19));
        QVERIFY(right->isOperating());
        QVERIFY(scene.move(Qt::RightButton));
        QCOMPARE(scene.calls(), names({"right move"}));
        QVERIFY(scene.release(Qt::RightButton));
        QCOMPARE(scene.calls(), names({"right release", "right end"}));
    }

    void rightClickReachesNoTool()
    {
        Scene scene;
        const auto right = scene.push(eToolButtonRight, "right");
        QVERIFY(!scene.press(Qt::RightButton));
        QVERIFY(!scene.release(Qt::RightButton));
        QVERIFY(!scene.move(Qt::RightButton));
        QCOMPARE(scene.calls(), names({"right move"}));
    }

    void laterRightPressReplacesTheEarlier()
    {
        Scene scene;
        const auto right = scene.push(eToolButtonRight, "right");
        scene.press(Qt::RightButton, {1, 1});
        scene.press(Qt::RightButton, {2, 2});
        scene.move(Qt::RightButton);
        QCOMPARE(scene.calls(), names({"right press", "right move"}));
        QCOMPARE(right->lastPress, QPoint(2, 2));
    }

    void rightPressWaitsOnWhileAnotherButtonMoves()
    {
        Scene scene;
        const auto left = scene.push(eToolButtonLeft, "left");
        const auto right = scene.push(eToolButtonRight, "right");
        scene.press(Qt::RightButton);
        scene.move(Qt::LeftButton);
        QCOMPARE(scene.calls(), names({"left move"}));
        scene.move(Qt::RightButton | Qt::LeftButton);
        QCOMPARE(scene.calls(), names({"right press", "right move"}));
    }

    void consumedReleaseKeepsTheRightPress()
    {
        Scene scene;
        const auto right = scene.push(eToolButtonRight, "right");
        scene.press(Qt::RightButton);
        const auto command = scene.run();
        command->consumes = true;
        QVERIFY(scene.release(Qt::RightButton));
        scene.controller->commandEnded(command.get());
        scene.calls();
        scene.move(Qt::RightButton);
        QCOMPARE(scene.calls(), names({"right press", "right move"}));
    }

    void moveGoesToTheToolOfTheHighestButton_data()
    {
        QTest::addColumn<int>("buttons");
        QTest::addColumn<QString>("call");
        const auto row = [](const char *tag, Qt::MouseButtons buttons, const char *call) {
            QTest::newRow(tag) << int(buttons) << QString::fromLatin1(call);
        };
        row("none", Qt::NoButton, "left move");
        row("left", Qt::LeftButton, "left move");
        row("left and middle", Qt::LeftButton | Qt::MiddleButton, "middle move");
        row("all three", Qt::LeftButton | Qt::MiddleButton | Qt::RightButton, "right move");
        row("back", Qt::BackButton, "left move");
    }

    void moveGoesToTheToolOfTheHighestButton()
    {
        QFETCH(int, buttons);
        QFETCH(QString, call);
        Scene scene;
        const auto left = scene.push(eToolButtonLeft, "left");
        const auto middle = scene.push(eToolButtonMiddle, "middle");
        const auto right = scene.push(eToolButtonRight, "right");
        scene.move(Qt::MouseButtons(buttons));
        QCOMPARE(scene.calls(), QStringList(call));
    }

    void operatingToolGetsEveryMoveAndRelease()
    {
        Scene scene;
        const auto left = scene.push(eToolButtonLeft, "left");
        const auto middle = scene.push(eToolButtonMiddle, "middle");
        const auto right = scene.push(eToolButtonRight, "right");
        QVERIFY(!scene.release(Qt::LeftButton));
        QCOMPARE(scene.calls(), QStringList());
        scene.press(Qt::MiddleButton);
        scene.calls();
        scene.move(Qt::LeftButton | Qt::RightButton);
        scene.move(Qt::NoButton);
        QVERIFY(!scene.release(Qt::LeftButton));
        QCOMPARE(scene.calls(), names({"middle move", "middle move", "middle release"}));
        QVERIFY(middle->isOperating());
    }

    void wheelIsForTheLeftToolThenForTheWheelTool()
    {
        Scene scene;
        const auto left = scene.push(eToolButtonLeft, "left");
        const auto wheel = scene.push(eToolButtonNone, "wheel");
        QVERIFY(!scene.wheel());
        QCOMPARE(scene.calls(), names({"left wheel", "wheel wheel"}));
        wheel->consumes = true;
        QVERIFY(scene.wheel());
        left->consumes = true;
        scene.calls();
        QVERIFY(scene.wheel());
        QCOMPARE(scene.calls(), names({"left wheel"}));
    }

    void wheelIsDeadWhileAnotherToolOperates()
    {
        Scene scene;
        const auto left = scene.push(eToolButtonLeft, "left");
        const auto right = scene.push(eToolButtonRight, "right");
        const auto wheel = scene.push(eToolButtonNone, "wheel");
        left->consumes = wheel->consumes = true;
        left->startOperation();
        QVERIFY(!scene.wheel());
        left->endOperation();
        right->startOperation();
        scene.calls();
        QVERIFY(!scene.wheel());
        right->endOperation();
        scene.calls();
        left->consumes = false;
        wheel->startOperation();
        QVERIFY(scene.wheel());
        QCOMPARE(scene.calls(), names({"left wheel", "wheel wheel"}));
    }

    void keysAreForTheLeftTool()
    {
        Scene scene;
        const auto left = scene.push(eToolButtonLeft, "left");
        const auto right = scene.push(eToolButtonRight, "right");
        right->startOperation();
        QVERIFY(!scene.key(QEvent::KeyPress));
        left->consumes = true;
        QVERIFY(scene.key(QEvent::KeyPress));
        QVERIFY(scene.key(QEvent::KeyRelease));
        QCOMPARE(scene.calls(), names({"left keyPress", "left keyPress", "left keyRelease"}));
    }

    void inputOfTheWidgetArrivesByTheView()
    {
        Scene scene;
        scene.view->show();
        const auto left = scene.push(eToolButtonLeft, "left");
        QTest::mousePress(scene.view->getQtWidget(), Qt::LeftButton);
        QTest::mouseRelease(scene.view->getQtWidget(), Qt::LeftButton);
        QCOMPARE(scene.calls(), names({"left press", "left release", "left end"}));
    }

    void leftToolsMoveTheCursor()
    {
        Scene scene;
        scene.view->setCursor(Qt::CrossCursor);
        const auto first = scene.push(eToolButtonLeft, "first", Qt::OpenHandCursor);
        QCOMPARE(scene.cursor(), Qt::OpenHandCursor);
        const auto second = scene.push(eToolButtonLeft, "second", Qt::PointingHandCursor);
        QCOMPARE(scene.cursor(), Qt::PointingHandCursor);
        scene.controller->popTool(eToolButtonLeft);
        QCOMPARE(scene.cursor(), Qt::OpenHandCursor);
        scene.controller->popTool(eToolButtonLeft);
        QCOMPARE(scene.cursor(), Qt::CrossCursor);
    }

    void operationHasACursorOfItsOwn()
    {
        Scene scene;
        const auto left = scene.push(eToolButtonLeft, "left");
        scene.press(Qt::LeftButton);
        QCOMPARE(scene.cursor(), Qt::ClosedHandCursor);
        left->setOperatingCursor(Qt::SizeAllCursor);
        QCOMPARE(scene.cursor(), Qt::SizeAllCursor);
        scene.release(Qt::LeftButton);
        QCOMPARE(scene.cursor(), Qt::OpenHandCursor);
        scene.controller->popTool(eToolButtonLeft);
        QCOMPARE(scene.cursor(), Qt::ArrowCursor);
    }

    void cursorOfAnotherButtonShowsOnlyWhileItOperates()
    {
        Scene scene;
        scene.view->setCursor(Qt::CrossCursor);
        const auto left = scene.push(eToolButtonLeft, "left");
        const auto right = scene.push(eToolButtonRight, "right", Qt::WaitCursor, Qt::SizeVerCursor);
        QCOMPARE(scene.cursor(), Qt::OpenHandCursor);
        right->startOperation();
        QCOMPARE(scene.cursor(), Qt::SizeVerCursor);
        QVERIFY(left->isSuspended());
        right->endOperation();
        QCOMPARE(scene.cursor(), Qt::OpenHandCursor);
        QVERIFY(left->isActive());
        scene.controller->popTool(eToolButtonRight);
        QCOMPARE(scene.cursor(), Qt::OpenHandCursor);
        scene.controller->popTool(eToolButtonLeft);
        QCOMPARE(scene.cursor(), Qt::CrossCursor);
    }

    void cursorBelowTheOperatingOneIsTheOneBeforeTheLeftTool()
    {
        Scene scene;
        scene.view->setCursor(Qt::CrossCursor);
        const auto left = scene.push(eToolButtonLeft, "left");
        const auto right = scene.push(eToolButtonRight, "right");
        right->startOperation();
        // Popping the suspended left tool takes no cursor off: its own is off already.
        scene.controller->popTool(eToolButtonLeft);
        right->endOperation();
        QCOMPARE(scene.cursor(), Qt::CrossCursor);
    }

    void toolsThatAreClearedLeaveTheirOperatingCursor()
    {
        Scene scene;
        scene.push(eToolButtonLeft, "left");
        const auto right = scene.push(eToolButtonRight, "right", Qt::WaitCursor, Qt::SizeVerCursor);
        right->startOperation();
        scene.controller->clearTools();
        QCOMPARE(scene.cursor(), Qt::SizeVerCursor);
        QVERIFY(right->isOperating());
    }

    void toolMayDieWhenItsOperationSuspendsTheLeftTool()
    {
        class Watcher : public ToolStateProtocol
        {
        public:
            explicit Watcher(CmdsViewController *controller)
                : m_controller(controller)
            { }
            void toolSuspended(InteractiveTool *) override
            {
                m_controller->popTool(eToolButtonRight);
            }

        private:
            CmdsViewController *m_controller;
        };
        Scene scene;
        const auto left = scene.push(eToolButtonLeft, "left");
        const auto watcher = std::make_shared<Watcher>(scene.controller);
        left->addObserver(watcher, false);
        RecordingTool *const right = scene.push(eToolButtonRight, "right").get();
        right->startOperation();
        QVERIFY(scene.controller->isEmpty(eToolButtonRight));
        QVERIFY(left->isSuspended());
    }

    void operatingCursorGoesOnAfterTheLeftOneCameOff()
    {
        Scene scene;
        scene.view->setCursor(Qt::CrossCursor);
        const auto left = scene.push(eToolButtonLeft, "left");
        const auto right = scene.push(eToolButtonRight, "right", Qt::WaitCursor, Qt::SizeVerCursor);
        scene.controller->toolBeganOperating(right.get());
        QCOMPARE(scene.cursor(), Qt::SizeVerCursor);
        QVERIFY(left->isSuspended());
        scene.controller->toolEndedOperating(right.get());
        QCOMPARE(scene.cursor(), Qt::OpenHandCursor);
        scene.controller->popTool(eToolButtonLeft);
        QCOMPARE(scene.cursor(), Qt::CrossCursor);
    }

    void emptyCursorStackGivesTheArrow()
    {
        Scene scene;
        scene.view->setCursor(Qt::CrossCursor);
        const auto tool = std::make_shared<InteractiveTool>(nullptr);
        scene.controller->toolEndedOperating(tool.get());
        QCOMPARE(scene.cursor(), Qt::ArrowCursor);
    }

    void callbacksForNoToolChangeNoCursorButThePop()
    {
        Scene scene;
        scene.view->setCursor(Qt::CrossCursor);
        for (const auto callback :
             {&ToolStateProtocol::toolActivated, &ToolStateProtocol::toolResumed,
              &ToolStateProtocol::toolDeactivated, &ToolStateProtocol::toolSuspended,
              &ToolStateProtocol::toolBeganOperating, &ToolStateProtocol::toolCursorChange})
            (static_cast<ToolStateProtocol *>(scene.controller.data())->*callback)(nullptr);
        QCOMPARE(scene.cursor(), Qt::CrossCursor);
    }

    void resetLeavesTheCursorAlone()
    {
        Scene scene;
        const auto below = scene.push(eToolButtonLeft, "below", Qt::WaitCursor);
        const auto left = scene.push(eToolButtonLeft, "left");
        const auto right = scene.push(eToolButtonRight, "right");
        const auto middle = scene.push(eToolButtonMiddle, "middle");
        scene.view->setCursor(Qt::CrossCursor);
        scene.controller->resetTools();
        QCOMPARE(scene.cursor(), Qt::CrossCursor);
        scene.controller->popTool(eToolButtonLeft);
        QCOMPARE(scene.cursor(), Qt::WaitCursor);
    }

    void operationsThatAResetStartsTouchNoCursor()
    {
        struct Eager : InteractiveTool
        {
            using InteractiveTool::InteractiveTool;
            void activate() override
            {
                InteractiveTool::activate();
                if (std::exchange(isEager, false)) {
                    startOperation();
                    endOperation();
                }
            }
            bool isEager = false;
        };
        Scene scene;
        for (const EToolActivationButton button : {eToolButtonRight, eToolButtonMiddle}) {
            const auto tool = std::make_shared<Eager>(nullptr);
            scene.controller->pushTool(button, tool);
            tool->isEager = true;
        }
        scene.view->setCursor(Qt::CrossCursor);
        scene.controller->resetTools();
        QCOMPARE(scene.cursor(), Qt::CrossCursor);
    }

    void toolsGoOnWithoutAView()
    {
        Scene scene;
        const auto shared = scene.controller->shared_from_this();
        const auto left = scene.push(eToolButtonLeft, "left");
        const auto right = scene.push(eToolButtonRight, "right");
        right->startOperation();
        delete scene.view->getQtWidget();
        right->setOperatingCursor(Qt::WaitCursor);
        right->endOperation();
        QVERIFY(left->isActive());
        QVERIFY(scene.press(Qt::LeftButton));
        QVERIFY(scene.release(Qt::LeftButton));
        QCOMPARE(shared->popTool(eToolButtonLeft).get(), left.get());
    }

    void firstShowFetchesTheCommandsOfTheApplication()
    {
        Manager manager;
        ApplicationService::GetInstance().setAppManager(&manager);
        manager.make = [](CmdsViewController *controller) {
            return QList<CommandBase *> {new TestCommand(QStringLiteral("b"), controller), nullptr,
                                         new TestCommand(QStringLiteral("a"), controller)};
        };
        const Scene scene;
        QCOMPARE(manager.asked, 0);
        scene.view->show();
        QCOMPARE(manager.asked, 1);
        QCOMPARE(manager.lastController, scene.controller.data());
        QVERIFY(scene.controller->isLoaded());
        const CommandBag &bag = std::as_const(*scene.controller).commandBag();
        QCOMPARE(int(bag.size()), 2);
        QCOMPARE(bag[0].first, QStringLiteral("b"));
        QCOMPARE(bag[1].first, QStringLiteral("a"));
        QVERIFY(bag[0].second->addedToCmdsVC());
        scene.view->hide();
        scene.view->show();
        QCOMPARE(manager.asked, 1);
    }

    void commandWithoutAnIdIsSkippedWithAWarning()
    {
        Manager manager;
        ApplicationService::GetInstance().setAppManager(&manager);
        bool ended = false;
        manager.make = [&ended](CmdsViewController *) {
            auto *const nameless = new TestCommand(QString());
            nameless->ended = [&ended] { ended = true; };
            return QList<CommandBase *> {nameless, new TestCommand(QStringLiteral("named"))};
        };
        expectMessage(
            QStringLiteral("CmdsViewController: a command was not added: .*COMMAND_ID.*"));
        const Scene scene;
        scene.view->show();
        QVERIFY(ended);
        QVERIFY(scene.controller->findCommand(QStringLiteral("named")));
    }

    void closeUnchecksAndRemovesTheCommandsWithinTheCall()
    {
        Scene scene;
        scene.view->setDeleteOnCloseAttribute(false);
        const auto shared = scene.controller->shared_from_this();
        const auto command =
            std::make_shared<TestCommand>(QStringLiteral("checked"), scene.controller);
        command->setCheckable(true);
        scene.controller->addCommand(command.get());
        command->setChecked(true);
        bool wasHeld = false;
        command->work = [&](bool) {
            wasHeld = scene.controller->findCommand(QStringLiteral("checked"));
            return true;
        };
        scene.view->show();
        QVERIFY(scene.view->close());
        QVERIFY(!command->isChecked() && command->isEnabled());
        QVERIFY(wasHeld);
        QVERIFY(!scene.controller->findCommand(QStringLiteral("checked")));
        QVERIFY(!command->addedToCmdsVC());
        QVERIFY(!scene.controller->isLoaded());
    }

    void closeTakesTheCommandsOfGroupsOutOfUse()
    {
        Scene scene;
        const auto command = std::make_shared<TestCommand>(QStringLiteral("child"));
        scene.controller->ActionPanelGroup()->addCommand(command);
        scene.controller->addCommand(scene.controller->ActionPanelGroup());
        QVERIFY(command->isEnabled());
        QVERIFY(scene.controller->viewWillClose());
        QVERIFY(!command->isEnabled());
    }

    void viewMayDieInTheWorkOfACommandThatTheCloseUnchecks_data()
    {
        QTest::addColumn<bool>("byTheView");
        QTest::newRow("closed by the view") << true;
        QTest::newRow("asked by somebody else") << false;
    }

    void viewMayDieInTheWorkOfACommandThatTheCloseUnchecks()
    {
        QFETCH(bool, byTheView);
        Scene scene;
        auto *const command = new TestCommand(QStringLiteral("deadly"), scene.controller);
        command->setCheckable(true);
        scene.controller->addCommand(command);
        command->setChecked(true);
        command->work = [&](bool) {
            delete scene.view->getQtWidget();
            return true;
        };
        if (byTheView)
            scene.view->close();
        else
            QVERIFY(scene.controller->viewWillClose());
        QVERIFY(!scene.view && !scene.controller);
    }

    void commandMayEndTheViewInItsInput()
    {
        Scene scene;
        const auto left = scene.push(eToolButtonLeft, "left");
        const auto command = scene.run();
        command->called = [&] { delete scene.view->getQtWidget(); };
        QTest::mousePress(scene.view->getQtWidget(), Qt::LeftButton);
        QVERIFY(!scene.view && !scene.controller);
    }

    void toolMayEndTheViewInItsInput_data()
    {
        QTest::addColumn<QString>("call");
        QTest::addColumn<int>("ending");
        const QByteArray endings[] {"closed", "deleted", "let go of"};
        for (const char *const call : {"press", "move", "release", "end", "doubleClick", "wheel",
                                       "keyPress", "keyRelease"}) {
            for (int ending = 0; ending < 3; ++ending)
                QTest::newRow(call + ('/' + endings[ending]))
                    << QString::fromLatin1(call) << ending;
        }
    }

    void toolMayEndTheViewInItsInput()
    {
        QFETCH(QString, call);
        QFETCH(int, ending);
        Scene scene;
        const QPointer<QWidget> widget = scene.view->getQtWidget();
        scene.view->show();
        const auto end = [&] {
            if (ending == 0)
                scene.view->close();
            else if (ending == 1)
                delete widget.data();
            else
                scene.view->setViewController(nullptr);
        };
        for (const EToolActivationButton button :
             {eToolButtonLeft, eToolButtonRight, eToolButtonNone})
            scene.push(button, "tool")->onCall[call] = end;
        sendAll(widget);
        if (ending == 2)
            delete widget.data();
        QTRY_VERIFY(!widget);
        QVERIFY(!scene.controller);
    }

    void viewClosedDuringADragLeavesItsToolsInPeace()
    {
        Scene scene;
        scene.view->show();
        const QPointer<QWidget> widget = scene.view->getQtWidget();
        const auto left = scene.push(eToolButtonLeft, "left");
        const auto right = scene.push(eToolButtonRight, "right");
        QTest::mousePress(widget, Qt::RightButton);
        scene.move(Qt::RightButton);
        QVERIFY(right->isOperating() && left->isSuspended());
        scene.view->close();
        QTRY_VERIFY(!widget);
        QVERIFY(!scene.controller);
        right->endOperation();
        left->resume();
        QVERIFY(right->isActive() && left->isActive());
        QVERIFY(!QGuiApplication::overrideCursor());
    }

    void viewMayBeClosedWhileItsCommandsAreAdded()
    {
        Manager manager;
        ApplicationService::GetInstance().setAppManager(&manager);
        bool ended = false;
        manager.make = [&](CmdsViewController *controller) {
            auto *const second = new TestCommand(QStringLiteral("second"), controller);
            second->ended = [&] { ended = true; };
            return QList<CommandBase *> {new TestCommand(QStringLiteral("first"), controller),
                                         second};
        };
        Scene scene;
        scene.view->setDeleteOnCloseAttribute(false);
        const auto observer = std::make_shared<AddObserver>();
        observer->firstAdded = [&] { scene.view->close(); };
        scene.controller->addObserver(observer, false);
        scene.view->show();
        QVERIFY(!scene.controller->isLoaded());
        QVERIFY(std::as_const(*scene.controller).commandBag().empty());
        QVERIFY(ended);
        observer->firstAdded = [] {};
        scene.view->show();
        QCOMPARE(int(std::as_const(*scene.controller).commandBag().size()), 2);
    }

    void applicationMayLetGoOfItsCommandsWhileTheyAreAdded()
    {
        std::vector<std::shared_ptr<TestCommand>> owned;
        for (const char *const id : {"first", "second", "third"})
            owned.push_back(std::make_shared<TestCommand>(QString::fromLatin1(id)));
        Manager manager;
        ApplicationService::GetInstance().setAppManager(&manager);
        manager.make = [&](CmdsViewController *) {
            return QList<CommandBase *> {owned[0].get(), owned[1].get(), owned[2].get()};
        };
        const Scene scene;
        const auto observer = std::make_shared<AddObserver>();
        observer->firstAdded = [&] { owned.clear(); };
        scene.controller->addObserver(observer, false);
        scene.view->show();
        QCOMPARE(int(std::as_const(*scene.controller).commandBag().size()), 3);
    }

    void runThatAsksForItShowsTheBusyCursor()
    {
        Scene scene;
        auto *const command = new TestCommand(QStringLiteral("busy"), scene.controller);
        scene.controller->addCommand(command);
        const QCursor *seen = nullptr;
        Qt::CursorShape shape = Qt::ArrowCursor;
        command->work = [&](bool) {
            seen = QGuiApplication::overrideCursor();
            shape = seen ? seen->shape() : Qt::ArrowCursor;
            return true;
        };
        command->trigger();
        QVERIFY(!seen);
        command->enableExecutionNotification(true);
        command->trigger();
        QCOMPARE(shape, Qt::BusyCursor);
        QVERIFY(!QGuiApplication::overrideCursor());
        scene.controller->commandBeganExecuting(nullptr, false);
        scene.controller->commandEndedExecuting(nullptr, false);
        QVERIFY(!QGuiApplication::overrideCursor());
    }

    void cursorsThatOthersPutThereStay()
    {
        Scene scene;
        const auto command = std::make_shared<TestCommand>(QStringLiteral("busy"));
        QGuiApplication::setOverrideCursor(Qt::CrossCursor);
        scene.controller->commandBeganExecuting(command.get(), false);
        command->enableExecutionNotification(true);
        scene.controller->commandEndedExecuting(command.get(), false);
        QCOMPARE(QGuiApplication::overrideCursor()->shape(), Qt::CrossCursor);
        scene.controller->commandBeganExecuting(command.get(), false);
        command->enableExecutionNotification(false);
        scene.controller->commandEndedExecuting(command.get(), false);
        QCOMPARE(QGuiApplication::overrideCursor()->shape(), Qt::CrossCursor);
    }

    void busyCursorGoesWithTheView_data()
    {
        QTest::addColumn<bool>("closes");
        QTest::newRow("closed") << true;
        QTest::newRow("deleted") << false;
    }

    void busyCursorGoesWithTheView()
    {
        QFETCH(bool, closes);
        Scene scene;
        const auto command = std::make_shared<TestCommand>(QStringLiteral("busy"));
        command->enableExecutionNotification(true);
        scene.controller->addCommand(command.get());
        scene.controller->commandBeganExecuting(command.get(), false);
        scene.controller->commandBeganExecuting(command.get(), false);
        if (closes)
            scene.view->close();
        else
            delete scene.view->getQtWidget();
        QVERIFY(!QGuiApplication::overrideCursor());
        QTRY_VERIFY(!scene.view);
    }

    void observerOfARunMayEndTheView_data()
    {
        QTest::addColumn<bool>("atTheBegin");
        QTest::addColumn<bool>("heardBeforeTheController");
        QTest::addColumn<int>("ending");
        const char *const endings[] {"closed", "deleted", "let go of", "moved"};
        for (const bool atTheBegin : {true, false}) {
            for (const bool before : {true, false}) {
                for (int ending = 0; ending < 4; ++ending)
                    QTest::addRow("%s/%s/%s", atTheBegin ? "begin" : "end",
                                  before ? "before the controller" : "after it", endings[ending])
                        << atTheBegin << before << ending;
            }
        }
    }

    void observerOfARunMayEndTheView()
    {
        QFETCH(bool, atTheBegin);
        QFETCH(bool, heardBeforeTheController);
        QFETCH(int, ending);
        Scene scene;
        scene.view->show();
        const QPointer<QWidget> widget = scene.view->getQtWidget();
        auto *const later = new BaseView(static_cast<QWidget *>(nullptr), Qt::WindowFlags());
        const auto observer = std::make_shared<RunObserver>();
        (atTheBegin ? observer->began : observer->ended) = [&] {
            if (ending == 0)
                widget->close();
            else if (ending == 1)
                delete widget.data();
            else if (ending == 2)
                scene.view->setViewController(nullptr);
            else
                scene.controller->setView(later);
        };
        auto command = notifyingCommand(QStringLiteral("begun"), QStringLiteral("done"));
        if (heardBeforeTheController)
            command->addObserver(observer, false);
        scene.controller->addCommand(command.get());
        if (!heardBeforeTheController)
            command->addObserver(observer, false);
        command->trigger();
        const std::weak_ptr<TestCommand> gone = command;
        command.reset();
        if (ending == 2)
            delete widget.data();
        QTRY_VERIFY(!widget);
        QVERIFY(!QGuiApplication::overrideCursor());
        delete later->getQtWidget();
        QVERIFY(!scene.controller && gone.expired());
    }

    void runOfARemovedCommandIsShownUntilItsEnd_data()
    {
        QTest::addColumn<bool>("inAGroup");
        QTest::addColumn<bool>("isHeldBack");
        QTest::newRow("alone") << false << false;
        QTest::newRow("in a group") << true << false;
        QTest::newRow("alone, in the background") << false << true;
        QTest::newRow("in a group, in the background") << true << true;
    }

    void runOfARemovedCommandIsShownUntilItsEnd()
    {
        QFETCH(bool, inAGroup);
        QFETCH(bool, isHeldBack);
        const Scene scene;
        scene.view->show();
        HeldWork held;
        const auto command = notifyingCommand(QStringLiteral("begun"), QStringLiteral("done"));
        CommandBase *top = command.get();
        if (inAGroup) {
            scene.controller->ToolPanelGroup()->addCommand(command);
            top = scene.controller->ToolPanelGroup();
        }
        scene.controller->addCommand(top);
        bool wasBusy = false;
        const auto remove = [&] {
            scene.controller->removeCommand(top);
            wasBusy = QGuiApplication::overrideCursor();
        };
        if (isHeldBack) {
            command->setExecutionQoS(Tessel::EQualityOfService::Utility);
            command->work = held.work();
            command->onExecute();
            QTRY_COMPARE(held.started(), 1);
            remove();
            held.letGo();
        } else {
            command->work = [&](bool) {
                remove();
                return true;
            };
            command->onExecute();
        }
        QVERIFY(wasBusy);
        QTRY_VERIFY(!QGuiApplication::overrideCursor());
        QTRY_VERIFY(scene.bar() && dataOf(scene.bar()).text == QStringLiteral("done"));
        command->work = nullptr;
        command->onExecute();
        QVERIFY(!QGuiApplication::overrideCursor());
    }

    void overlappingRunsOfARemovedCommandEndOneByOne()
    {
        const Scene scene;
        HeldWork held;
        int ends = 0;
        const auto command = notifyingCommand(QString(), QString());
        command->setExecutionQoS(Tessel::EQualityOfService::Utility);
        command->work = held.work();
        const auto observer = std::make_shared<RunObserver>();
        observer->ended = [&ends] { ++ends; };
        scene.controller->addCommand(command.get());
        command->addObserver(observer, false);
        command->onExecute();
        command->onExecute();
        scene.controller->removeCommand(command.get());
        held.letGo();
        QTRY_COMPARE(ends, 1);
        QVERIFY(QGuiApplication::overrideCursor());
        held.letGo();
        QTRY_COMPARE(ends, 2);
        QTRY_VERIFY(!QGuiApplication::overrideCursor());
    }

    void runOfARemovedGroupDoesNotHearItsChildren()
    {
        const Scene scene;
        CommandGroup *const group = scene.controller->ToolPanelGroup();
        const auto child = notifyingCommand(QString(), QStringLiteral("done"));
        group->addCommand(child);
        group->enableExecutionNotification(true);
        scene.controller->addCommand(group);
        scene.controller->commandBeganExecuting(group, false);
        scene.controller->removeCommand(group);
        child->onExecute();
        QCoreApplication::processEvents();
        QVERIFY(QGuiApplication::overrideCursor() && !scene.bar());
        group->broadcast(&CommandStateProtocol::commandEndedExecuting, group, false);
        QVERIFY(!QGuiApplication::overrideCursor());
    }

    void viewMayEndWhenTheRunOfARemovedCommandEnds()
    {
        class Ending : public CmdsViewController
        {
        public:
            using CmdsViewController::CmdsViewController;
            void commandEndedExecuting(CommandBase *command, bool checked) override
            {
                delete getQtWidget();
                CmdsViewController::commandEndedExecuting(command, checked);
            }
        };
        const QPointer<Ending> controller = new Ending;
        const auto command = notifyingCommand(QStringLiteral("begun"), QStringLiteral("done"));
        controller->addCommand(command.get());
        command->work = [&](bool) { return controller->removeCommand(command.get()); };
        QVERIFY(command->onExecute());
        QVERIFY(!controller);
        QVERIFY(!QGuiApplication::overrideCursor());
    }

    void removedCommandGetsNoInput_data()
    {
        QTest::addColumn<bool>("inAGroup");
        QTest::newRow("alone") << false;
        QTest::newRow("in a group") << true;
    }

    void removedCommandGetsNoInput()
    {
        QFETCH(bool, inAGroup);
        Scene scene;
        const auto command = std::make_shared<InputCommand>(scene.log);
        const auto other = std::make_shared<TestCommand>(QStringLiteral("other"));
        CommandGroup *const group = scene.controller->ToolPanelGroup();
        if (inAGroup)
            group->addCommand(command);
        CommandBase *const top = inAGroup ? static_cast<CommandBase *>(group) : command.get();
        scene.controller->addCommand(top);
        scene.controller->addCommand(other.get());
        command->broadcast(&CommandStateProtocol::commandBegan, command.get());
        scene.controller->removeCommand(other.get());
        scene.key(QEvent::KeyPress);
        QCOMPARE(scene.calls(), names({"command keyPress"}));
        scene.controller->removeCommand(top);
        scene.key(QEvent::KeyPress);
        QCOMPARE(scene.calls(), QStringList());
    }

    void observerOfARunMayPopAContext()
    {
        const Scene scene;
        const auto command = std::make_shared<TestCommand>(QStringLiteral("pops"));
        const auto other = std::make_shared<TestCommand>(QStringLiteral("other"));
        scene.controller->addCommand(command.get());
        scene.controller->addCommand(other.get());
        CommandContext context;
        context.overwrite(QStringLiteral("other"), {State::Off, State::Keep});
        scene.controller->pushContext(context);
        QTRY_VERIFY(!other->isEnabled());
        const auto observer = std::make_shared<RunObserver>();
        observer->began = observer->ended = [&] { scene.controller->popContext(); };
        command->addObserver(observer, false);
        command->trigger();
        QTRY_VERIFY(other->isEnabled());
    }

    void backgroundRunOutlivesItsView_data()
    {
        QTest::addColumn<bool>("closes");
        QTest::newRow("closed") << true;
        QTest::newRow("deleted") << false;
    }

    void backgroundRunOutlivesItsView()
    {
        QFETCH(bool, closes);
        ApplicationService &service = ApplicationService::GetInstance();
        bool endedOnMainThread = false;
        HeldWork held;
        Scene scene;
        scene.view->show();
        const QPointer<QWidget> widget = scene.view->getQtWidget();
        const QPointer<TestCommand> command =
            new TestCommand(QStringLiteral("busy"), scene.controller);
        command->setExecutionQoS(Tessel::EQualityOfService::Utility);
        command->enableExecutionNotification(true);
        command->setExecutionNotificationMessage(CommandBase::ENotification::ExecutionBegan,
                                                 QStringLiteral("begun"));
        command->executionContext.overwrite(QStringLiteral("busy"), {State::Off, State::Keep});
        command->work = held.work();
        command->ended = [&] { endedOnMainThread = Lumo::Test::isMainThread(); };
        scene.controller->addCommand(command);
        QVERIFY(command->onExecute());
        QTRY_COMPARE(held.started(), 1);
        QTRY_VERIFY(!service.isWorkspaceSwitchingEnabled());
        QVERIFY(QGuiApplication::overrideCursor());
        if (closes)
            scene.view->close();
        else
            delete widget.data();
        QTRY_VERIFY(!widget);
        QVERIFY(!scene.controller && command);
        QVERIFY(!QGuiApplication::overrideCursor());
        held.letGo();
        QTRY_VERIFY(!command);
        QVERIFY(endedOnMainThread);
        QVERIFY(service.isWorkspaceSwitchingEnabled());
        QVERIFY(!QGuiApplication::overrideCursor());
    }

    void hostThatHoldsItsCommandHearsTheEndOfARun()
    {
        bool ended = false;
        HeldWork held;
        Scene scene;
        auto *const command = new TestCommand(QStringLiteral("export"), scene.controller);
        command->setExecutionQoS(Tessel::EQualityOfService::Utility);
        command->work = held.work();
        scene.controller->addCommand(command);
        std::shared_ptr<CommandBase> holder = command->shared_from_this();
        command->ended = [&] { ended = true; };
        const auto observer = std::make_shared<RunObserver>();
        observer->ended = [&] { holder.reset(); };
        command->addObserver(observer, true);
        command->trigger();
        QTRY_COMPARE(held.started(), 1);
        delete scene.view->getQtWidget();
        QCOMPARE(command->getViewController(), nullptr);
        held.letGo();
        QTRY_VERIFY(!holder);
        QTRY_VERIFY(ended);
    }

    void workTellsTheUserByTheMainQueue_data()
    {
        QTest::addColumn<bool>("viewDies");
        QTest::newRow("view lives") << false;
        QTest::newRow("view dies") << true;
    }

    void workTellsTheUserByTheMainQueue()
    {
        QFETCH(bool, viewDies);
        bool ended = false;
        HeldWork held;
        Scene scene;
        auto *const command = new TestCommand(QStringLiteral("tells"), scene.controller);
        const std::weak_ptr<BaseViewController> weak =
            scene.controller->BaseViewController::shared_from_this();
        const auto wait = held.work();
        command->setExecutionQoS(Tessel::EQualityOfService::Utility);
        command->work = [wait, weak](bool checked) {
            wait(checked);
            const auto tell = [weak] {
                if (const auto living = weak.lock())
                    living->showNotification(QStringLiteral("half"), eNotificationNoFade, 3000,
                                             false, nullptr, nullptr);
            };
            return Tessel::dispatchAsync(tell, Tessel::EQualityOfService::Main);
        };
        command->ended = [&ended] { ended = true; };
        scene.controller->addCommand(command);
        command->trigger();
        QTRY_COMPARE(held.started(), 1);
        if (viewDies)
            delete scene.view->getQtWidget();
        held.letGo();
        if (viewDies) {
            QTRY_VERIFY(ended);
            QVERIFY(!scene.controller);
        } else {
            QTRY_VERIFY(scene.bar() && dataOf(scene.bar()).text == QStringLiteral("half"));
        }
    }

    void messagesOfARun_data()
    {
        QTest::addColumn<QString>("began");
        QTest::addColumn<QString>("ended");
        QTest::addColumn<int>("fade");
        const auto row = [](const char *tag, const char *began, const char *ended, int fade) {
            QTest::newRow(tag) << QString::fromLatin1(began) << QString::fromLatin1(ended) << fade;
        };
        row("both", "begun", "done", eNotificationFadeOutOnly);
        row("end only", "", "done", eNotificationFadeInOut);
    }

    void messagesOfARun()
    {
        QFETCH(QString, began);
        QFETCH(QString, ended);
        QFETCH(int, fade);
        const Scene scene;
        const auto command = notifyingCommand(began, ended);
        scene.controller->commandBeganExecuting(command.get(), false);
        QCoreApplication::processEvents();
        NotificationBar *const bar = scene.bar();
        QCOMPARE(bar != nullptr, !began.isEmpty());
        if (bar) {
            QCOMPARE(dataOf(bar).text, began);
            QCOMPARE(dataOf(bar).fadeOption, eNotificationPulse);
            QVERIFY(!dataOf(bar).closeButtonVisible);
        }
        scene.controller->commandEndedExecuting(command.get(), false);
        QCoreApplication::processEvents();
        QVERIFY(scene.bar());
        QCOMPARE(dataOf(scene.bar()).text, ended);
        QCOMPARE(int(dataOf(scene.bar()).fadeOption), fade);
        QCOMPARE(dataOf(scene.bar()).dismissTimer->interval(), 3000);
        QVERIFY(!dataOf(scene.bar()).closeButtonVisible);
    }

    void beginMessageAloneIsHiddenAtTheEnd()
    {
        const Scene scene;
        scene.view->show();
        const auto command = notifyingCommand(QStringLiteral("begun"), QString());
        scene.controller->commandBeganExecuting(command.get(), false);
        QTRY_VERIFY(scene.controller->isNotificationShowing());
        scene.controller->commandEndedExecuting(command.get(), false);
        QTRY_VERIFY(!scene.controller->isNotificationShowing());
    }

    void runWithoutMessagesMakesNoBar()
    {
        const Scene scene;
        const auto silent = notifyingCommand(QString(), QString());
        const auto unasked = notifyingCommand(QStringLiteral("begun"), QStringLiteral("done"));
        unasked->enableExecutionNotification(false);
        for (const auto &command : {silent, unasked}) {
            scene.controller->commandBeganExecuting(command.get(), false);
            scene.controller->commandEndedExecuting(command.get(), false);
        }
        QCoreApplication::processEvents();
        QVERIFY(!scene.bar());
    }

    void messageOfARunThatIsNotOverGoesWithTheClose()
    {
        const Scene scene;
        scene.view->setDeleteOnCloseAttribute(false);
        scene.view->show();
        const auto command = notifyingCommand(QStringLiteral("begun"), QString());
        scene.controller->addCommand(command.get());
        scene.controller->commandBeganExecuting(command.get(), false);
        QTRY_VERIFY(scene.controller->isNotificationShowing());
        scene.view->close();
        QTRY_VERIFY(!scene.controller->isNotificationShowing());
    }

    void commandBoundToTheControllerReachesItsView()
    {
        const Scene scene;
        auto *const command = new TestCommand(QStringLiteral("bound"), scene.controller);
        scene.controller->addCommand(command);
        QCOMPARE(command->getViewController(), scene.controller.data());
        QCOMPARE(command->getView(), scene.view.data());
        QVERIFY(scene.view->getQtWidget()->actions().contains(command));
    }

private:
    /// Sends a widget what its tools hear of, as long as it lives.
    static void sendAll(const QPointer<QWidget> &widget)
    {
        const auto send = [&widget](QEvent &&event) {
            if (widget)
                QCoreApplication::sendEvent(widget, &event);
        };
        const auto mouse = [&send](QEvent::Type type, Qt::MouseButton button,
                                   Qt::MouseButtons buttons) {
            send(QMouseEvent(type, {5, 5}, {5, 5}, {5, 5}, button, buttons, Qt::NoModifier));
        };
        send(QKeyEvent(QEvent::KeyPress, Qt::Key_A, Qt::NoModifier));
        send(QKeyEvent(QEvent::KeyRelease, Qt::Key_A, Qt::NoModifier));
        send(QWheelEvent({5, 5}, {5, 5}, {}, {0, 120}, Qt::NoButton, Qt::NoModifier,
                         Qt::NoScrollPhase, false));
        mouse(QEvent::MouseButtonPress, Qt::LeftButton, Qt::LeftButton);
        mouse(QEvent::MouseMove, Qt::NoButton, Qt::LeftButton);
        mouse(QEvent::MouseButtonPress, Qt::RightButton, Qt::LeftButton | Qt::RightButton);
        mouse(QEvent::MouseMove, Qt::NoButton, Qt::LeftButton | Qt::RightButton);
        mouse(QEvent::MouseButtonRelease, Qt::RightButton, Qt::LeftButton);
        mouse(QEvent::MouseButtonRelease, Qt::LeftButton, Qt::NoButton);
        mouse(QEvent::MouseButtonPress, Qt::LeftButton, Qt::LeftButton);
        mouse(QEvent::MouseButtonRelease, Qt::LeftButton, Qt::NoButton);
        mouse(QEvent::MouseButtonDblClick, Qt::LeftButton, Qt::LeftButton);
        mouse(QEvent::MouseButtonRelease, Qt::LeftButton, Qt::NoButton);
    }
};

LUMO_TEST_MAIN(TestCmdsViewController)
#include "tst_cmdsviewcontroller.moc"
