// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT
//
// Fixed scenarios for counting instructions. `gate <scenario>` prepares the scenario, runs it a few
// times so that everything lazy is done, and then repeats it within lumo_gate_measured(), the one
// function that callgrind counts; it prints the number of repetitions.

#include "core/broadcaster.h"
#include "ui_base/command/cmdmgr.h"
#include "ui_base/command/commandbag.h"
#include "ui_base/command/commandbase.h"
#include "ui_base/command/commandcontext.h"
#include "ui_base/command/commandgroup.h"
#include "ui_base/popup/arrowedwindow.h"
#include "ui_base/popup/widgetposcalculator.h"
#include "ui_base/qtui/panel/flyoutbase.h"
#include "ui_base/qtui/qtuitoolkit.h"
#include "ui_base/tool/interactivetool.h"
#include "ui_base/toolbar/toolbar.h"
#include "ui_base/toolbar/toolbuttonwithwidgetmenu.h"
#include "ui_base/viewcontroller/baseview.h"
#include "ui_base/viewcontroller/cmdsviewcontroller.h"

#include "support/mainqueue.h"
#include "support/protocol.h"
#include "support/worker.h"

#include <tessel/dispatch.h>

#include <QAction>
#include <QApplication>
#include <QMouseEvent>
#include <QPixmap>
#include <QWidget>

#include <gnu/libc-version.h>

#include <cstdio>
#include <cstring>
#include <functional>
#include <memory>
#include <vector>

using namespace Lumo::Bench;
using namespace Vela::UiBase;

namespace {

using Repetition = std::function<void()>;

/// A pass of the main queue ends by the clock, so what runs in one has to be short on the slow
/// simulated processor, and one more pass has to cost next to nothing.
constexpr int burst = 20;

/// Runs the main queue until it is empty, by its events alone: the turns of an event loop would
/// outweigh what is counted, and their number is left to chance.
void deliver()
{
    bool reached = false;
    Tessel::dispatchAsync([&reached] { reached = true; }, Tessel::EQualityOfService::Main);
    while (!reached)
        QCoreApplication::sendPostedEvents();
}

struct Scenario
{
    const char *name;
    int repetitions;
    std::function<Repetition()> prepare;
};

class QObjectObserver : public QObject, public SubjectProtocol
{
public:
    using QObject::QObject;
};

/// A broadcaster with what it sends and who hears it.
struct Audience
{
    Subject subject;
    Tessel::Broadcaster<SubjectProtocol> broadcaster;
    CountingObservers observers;
    QObject parent;

    void add(int count, bool onMainQueue)
    {
        observers = makeObservers(count);
        for (const auto &observer : observers)
            broadcaster.addObserver(observer, onMainQueue);
    }

    void addQObjects(int count)
    {
        for (int i = 0; i < count; ++i)
            broadcaster.addObserver(new QObjectObserver(&parent));
    }

    void broadcastBurst()
    {
        for (int i = 0; i < burst; ++i)
            broadcaster.broadcast(&SubjectProtocol::changed, &subject, true);
        deliver();
    }

    void broadcastOnce()
    {
        broadcaster.broadcast(&SubjectProtocol::changed, &subject, true);
        deliver();
    }
};

Repetition postClosures()
{
    return [] {
        for (int i = 0; i < burst; ++i)
            Tessel::dispatchAsync([] {}, Tessel::EQualityOfService::Main);
        deliver();
    };
}

Repetition broadcastTo(int observers, bool onMainQueue)
{
    const auto audience = std::make_shared<Audience>();
    audience->add(observers, onMainQueue);
    return [audience] { audience->broadcastBurst(); };
}

Repetition broadcastOnceTo(int observers, bool onMainQueue)
{
    const auto audience = std::make_shared<Audience>();
    audience->add(observers, onMainQueue);
    return [audience] { audience->broadcastOnce(); };
}

Repetition broadcastToQObjects()
{
    const auto audience = std::make_shared<Audience>();
    audience->addQObjects(10);
    return [audience] { audience->broadcastBurst(); };
}

Repetition registerObservers()
{
    const auto observers = makeObservers(100);
    return [observers] {
        Tessel::Broadcaster<SubjectProtocol> broadcaster;
        for (const auto &observer : observers)
            broadcaster.addObserver(observer, false);
        for (const auto &observer : observers)
            broadcaster.removeObserver(observer);
    };
}

/// The id is the object's, not the class's, so that one class serves for many commands.
class IdleCommand : public CommandBase
{
    Q_OBJECT

public:
    explicit IdleCommand(const QString &id = QStringLiteral("Command"))
        : CommandBase(nullptr)
        , m_id(id)
    { }

    const QString commandId() const override { return m_id; }
    bool onExecuteAsync(bool) override { return true; }

private:
    QString m_id;
};

class IdleStateObserver : public CommandStateProtocol
{ };

/// A command with one direct observer.
struct ObservedCommand
{
    std::shared_ptr<IdleCommand> command = std::make_shared<IdleCommand>();
    std::shared_ptr<IdleStateObserver> observer = std::make_shared<IdleStateObserver>();

    explicit ObservedCommand(bool checkable)
    {
        command->setCheckable(checkable);
        command->addObserver(observer, false);
    }
};

Repetition triggerCommand()
{
    return [observed = ObservedCommand(false)] {
        for (int i = 0; i < burst; ++i)
            observed.command->trigger();
        deliver();
    };
}

Repetition toggleCommand()
{
    return [observed = ObservedCommand(true)] {
        for (int i = 0; i < burst; ++i)
            observed.command->toggle();
        deliver();
    };
}

Repetition makeCommands()
{
    return [] {
        for (int i = 0; i < burst; ++i)
            std::make_shared<IdleCommand>();
    };
}

Repetition setCommandStates()
{
    return [command = std::make_shared<IdleCommand>()] {
        for (int i = 0; i < burst; ++i)
            command->setCommandState({i % 2 == 0, State::Keep});
    };
}

CommandContext contextOf(int first, int count)
{
    CommandContext context;
    for (int i = first; i < first + count; ++i)
        context[QStringLiteral("Command%1").arg(i)] = {State::On, State::Keep};
    return context;
}

Repetition mergeContexts()
{
    return [left = contextOf(0, 100), right = contextOf(50, 100)] {
        CommandContext merged = left | right;
        merged &= !left;
    };
}

std::shared_ptr<CmdMgr> managerOf(int commands)
{
    const auto manager = std::make_shared<CmdMgr>();
    for (int i = 0; i < commands; ++i)
        manager->addCommand(new IdleCommand(QStringLiteral("Command%1").arg(i)));
    return manager;
}

Repetition applyContext()
{
    return [manager = managerOf(100), disabled = contextOf(0, 100)] {
        manager->setContext(disabled);
        deliver();
    };
}

Repetition readContext()
{
    return [manager = managerOf(100)] { manager->currentContext(nullptr); };
}

Repetition readChangedContext()
{
    return [manager = managerOf(100)] {
        CommandBase *const command = manager->findCommand(QStringLiteral("Command50"));
        command->setEnabled(!command->isEnabled());
        manager->currentContext(nullptr);
    };
}

Repetition turnOverChildren()
{
    const auto group = std::make_shared<CommandGroup>();
    for (int i = 0; i < 100; ++i)
        group->addCommand(new IdleCommand(QStringLiteral("Command%1").arg(i)));
    return [group] {
        for (const bool enabled : {false, true}) {
            for (const auto &[id, child] : group->commandBag())
                child->setEnabled(enabled);
        }
    };
}

class MovedTool : public InteractiveTool
{
public:
    using InteractiveTool::InteractiveTool;

    bool mouseMove(QMouseEvent *) override { return true; }
};

Repetition moveOverView()
{
    auto *const view = new BaseView(static_cast<QWidget *>(nullptr), Qt::WindowFlags());
    const std::shared_ptr<QWidget> widget(view->getQtWidget());
    auto *const controller = new CmdsViewController(view);
    controller->pushTool(eToolButtonLeft, std::make_shared<MovedTool>(view));
    return [widget] {
        const QPointF position(10, 10);
        QMouseEvent move(QEvent::MouseMove, position, position, position, Qt::NoButton,
                         Qt::LeftButton, Qt::NoModifier);
        for (int i = 0; i < burst; ++i)
            QCoreApplication::sendEvent(widget.get(), &move);
    };
}

Repetition makeBitmapIcon()
{
    return [action = std::make_shared<QAction>()] {
        QtUiToolkit::Instance().CreateIcon(QStringLiteral("cmd_open"), action.get(),
                                           EIconType::IconPng, QSize());
    };
}

Repetition resizeDrawnIcon()
{
    const auto action = std::make_shared<QAction>();
    action->setIcon(QtUiToolkit::Instance().CreateIcon(QStringLiteral("cmd_open"), action.get(),
                                                       EIconType::IconSvg, QSize(20, 20)));
    return [action] {
        for (const int side : {28, 20})
            QtUiToolkit::Instance().UpdateIconSize(action.get(), QSize(side, side));
    };
}

/// A hidden popup with an arrow and a content of this size.
std::shared_ptr<ArrowedWindow> makePopup(int width, int height)
{
    auto popup = std::make_shared<ArrowedWindow>();
    auto *const content = new QWidget;
    content->setFixedSize(width, height);
    popup->AttachWidget(content);
    popup->SetArrow(EArrowPosition::Bottom, 10, false, 0, 90, true, 0);
    return popup;
}

Repetition layOutArrow()
{
    return [popup = makePopup(320, 150), arrow = ArrowedWindow::SArrowParam()]() mutable {
        QSize size;
        QPoint apex;
        arrow.offset = 1 - arrow.offset;
        popup->GetArrowWindowSize(arrow, size, apex);
    };
}

Repetition solveArrow()
{
    const auto popup = makePopup(200, 100);
    const auto calculator = std::make_shared<WidgetPosCalculator>();
    calculator->SetWidget(popup.get());
    calculator->SetRefPoint(QPoint(730, 300));
    calculator->setMaxAvailableRect(QRect(0, 0, 800, 600));
    return [popup, calculator] {
        QPoint result;
        calculator->GetPosition(result, QRect(), true, QPoint());
    };
}

/// Opens what subclasses see.
class OpenBar : public ToolBar
{
public:
    using ToolBar::RemoveButton;
    using ToolBar::ToolBar;
};

/// A window on screen, and commands for a bar on it.
struct BarScene
{
    std::shared_ptr<QWidget> window = std::make_shared<QWidget>();
    std::vector<std::shared_ptr<QAction>> actions;
    ToolBar *bar = nullptr;

    explicit BarScene(int commands)
    {
        QPixmap picture(24, 24);
        picture.fill(Qt::red);
        for (int i = 0; i < commands; ++i) {
            actions.push_back(std::make_shared<QAction>(QStringLiteral("Command %1").arg(i)));
            actions.back()->setIcon(picture);
        }
        window->resize(400, 100);
        window->show();
        QCoreApplication::processEvents();
    }

    void makeBar()
    {
        bar = new ToolBar(window.get(), Qt::TopToolBarArea);
        fill();
        bar->show();
        QCoreApplication::sendPostedEvents();
    }

    void fill()
    {
        for (const auto &action : actions)
            bar->AddAction(action.get(), QStringLiteral("tools"));
    }
};

Repetition makeBars()
{
    return [scene = BarScene(100)]() mutable {
        scene.makeBar();
        delete scene.bar;
        QCoreApplication::sendPostedEvents();
    };
}

Repetition fillVisibleBar()
{
    return [scene = BarScene(100)]() mutable {
        scene.bar = new ToolBar(scene.window.get(), Qt::TopToolBarArea);
        scene.bar->show();
        scene.fill();
        QCoreApplication::sendPostedEvents();
        delete scene.bar;
        QCoreApplication::sendPostedEvents();
    };
}

Repetition paintBar()
{
    BarScene scene(10);
    scene.makeBar();
    return [scene] { scene.bar->repaint(); };
}

Repetition refillBar()
{
    auto bar = std::make_shared<OpenBar>(nullptr, Qt::TopToolBarArea);
    BarScene scene(100);
    scene.bar = bar.get();
    scene.fill();
    return [scene, bar] {
        QAction *const action = scene.actions[50].get();
        bar->RemoveButton(action);
        delete action->associatedWidgets().first();
        bar->AddAction(action, QStringLiteral("tools"));
    };
}

/// Counts the paint events of a widget.
class PaintCounter : public QObject
{
public:
    explicit PaintCounter(QWidget *widget) { widget->installEventFilter(this); }

    bool eventFilter(QObject *, QEvent *event) override
    {
        paints += event->type() == QEvent::Paint ? 1 : 0;
        return false;
    }

    int paints = 0;
};

// The flyout has been shown before, and is kept. What it holds is next to nothing: the frame and what
// happens around it are counted.
Repetition openFlyout()
{
    BarScene scene(1);
    scene.window->resize(600, 400);
    scene.bar = new ToolBar(scene.window.get(), Qt::LeftToolBarArea);
    auto *const panel = new QWidget;
    panel->setFixedSize(200, 80);
    FlyoutBase *const flyout = QtUiToolkit::Instance().CreateFlyout(
        QStringLiteral("Smooth"), panel, nullptr, true, true, true, false, scene.window.get());
    ToolButtonWithWidgetMenu *const button =
        scene.bar->AddAction(scene.actions[0].get(), flyout, QStringLiteral("tools"));
    scene.bar->show();
    const auto counter = std::make_shared<PaintCounter>(panel);
    return [scene, button, counter] {
        counter->paints = 0;
        button->click();
        processEventsUntil([&] { return counter->paints > 0; });
        button->HideMenu();
        QCoreApplication::processEvents();
    };
}

const Scenario scenarios[] = {
    {"post-closures", 500, postClosures},
    {"broadcast-direct-1", 500, [] { return broadcastTo(1, false); }},
    {"broadcast-direct-10", 300, [] { return broadcastTo(10, false); }},
    {"broadcast-direct-1000", 50, [] { return broadcastOnceTo(1000, false); }},
    {"broadcast-queued-1", 500, [] { return broadcastTo(1, true); }},
    {"broadcast-queued-10", 300, [] { return broadcastTo(10, true); }},
    {"broadcast-queued-1000", 50, [] { return broadcastOnceTo(1000, true); }},
    {"broadcast-qobjects-10", 300, broadcastToQObjects},
    {"register-observers-100", 20, registerObservers},
    {"command-trigger", 300, triggerCommand},
    {"command-toggle", 300, toggleCommand},
    {"command-make", 50, makeCommands},
    {"command-state", 300, setCommandStates},
    {"context-merge", 50, mergeContexts},
    {"context-apply-100", 20, applyContext},
    {"context-read-100", 50, readContext},
    {"context-read-changed-100", 50, readChangedContext},
    {"group-children-100", 20, turnOverChildren},
    {"view-mouse-move", 300, moveOverView},
    {"icon-make-bitmap", 100, makeBitmapIcon},
    {"icon-resize-drawing", 50, resizeDrawnIcon},
    {"popup-layout-arrow", 300, layOutArrow},
    {"popup-solve-arrow", 300, solveArrow},
    {"popup-open-flyout", 20, openFlyout},
    {"bar-make-100", 5, makeBars},
    {"bar-fill-visible-100", 5, fillVisibleBar},
    {"bar-paint-10", 50, paintBar},
    {"bar-exchange-one-of-100", 20, refillBar},
};

int printAbout()
{
    std::printf("compiler=%s\nlibc=%s\nqt=%s\n", __VERSION__, gnu_get_libc_version(), qVersion());
#ifdef __OPTIMIZE__
    std::printf("build=optimised\n");
#else
    std::printf("build=not optimised\n");
#endif
    return 0;
}

int printNames()
{
    for (const Scenario &scenario : scenarios)
        std::printf("%s\n", scenario.name);
    return 0;
}

} // namespace

extern "C" [[gnu::noinline, gnu::used]] void lumo_gate_measured(const Repetition &repeat, int times)
{
    for (int i = 0; i < times; ++i)
        repeat();
}

static int run(const Scenario &scenario)
{
    // With a second thread the libraries take the atomic paths that they take in applications.
    const Worker secondThread;
    const Repetition repeat = scenario.prepare();
    for (int i = 0; i < 3; ++i)
        repeat();
    lumo_gate_measured(repeat, scenario.repetitions);
    std::printf("%d\n", scenario.repetitions);
    return 0;
}

int main(int argc, char **argv)
{
    const char *const name = argc == 2 ? argv[1] : "";
    if (!std::strcmp(name, "--about"))
        return printAbout();
    if (!std::strcmp(name, "--list"))
        return printNames();
    const QApplication app(argc, argv);
    for (const Scenario &scenario : scenarios) {
        if (!std::strcmp(name, scenario.name))
            return run(scenario);
    }
    std::fprintf(stderr, "usage: gate --about | --list | <scenario>\n");
    return 2;
}

#include "gate.moc"
