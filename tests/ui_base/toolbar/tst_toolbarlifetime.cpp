// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

// Bars, buttons, menus, panels, commands and groups that end in any order and at any moment: between
// the steps of a user, and out of everything that is told on the way.

#include <ui_base/ActionPanel>
#include <ui_base/ToolbarManager>

#include "support/testcase.h"
#include "support/testmain.h"
#include "ui_base/command/commandbag.h"
#include "ui_base/qtui/tooltip/tooltipobject.h"
#include "ui_base/toolbar/commandtree.h"

#include <QCursor>
#include <QMetaMethod>
#include <QPropertyAnimation>
#include <QSemaphore>

#include <algorithm>
#include <functional>
#include <random>
#include <set>
#include <vector>

using namespace Lumo::Test;
using namespace Vela::UiBase;

namespace {

/// What tells of something that was done, so that a host may well end the teller in answer to it.
const std::set<QByteArray> tellingSignals {"triggered",
                                           "toggled",
                                           "toBeTriggered",
                                           "toBeToggled",
                                           "changed",
                                           "pressed",
                                           "released",
                                           "clicked",
                                           "ToolButtonClicked",
                                           "RequestShowMenu",
                                           "ButtonMenuCleared",
                                           "ButtonMenuVisibilityChange",
                                           "ESCKeyReleased",
                                           "LayoutChanged",
                                           "CloseFlyout",
                                           "ApplyChanges",
                                           "CancelChanges",
                                           "ResetValues",
                                           "EnterBusyMode",
                                           "ExitBusyMode",
                                           "ShowAnimationFinished",
                                           "HideAnimationFinished"};

// Of a button that was toggled Qt asks more after it has told of that.
bool tells(const QObject &object, const QMetaMethod &method)
{
    const bool isToggle =
        method.name() == "toggled" && qobject_cast<const QAbstractButton *>(&object);
    return method.methodType() == QMetaMethod::Signal && !isToggle
        && tellingSignals.count(method.name()) != 0;
}

void clickAsUser(QWidget *widget)
{
    const QPointer<QWidget> guard(widget);
    QTest::mousePress(widget, Qt::LeftButton);
    if (guard)
        QTest::mouseRelease(widget, Qt::LeftButton);
}

void escapeAsUser(QWidget *widget)
{
    const QPointer<QWidget> guard(widget);
    QTest::keyPress(widget, Qt::Key_Escape);
    if (guard)
        QTest::keyRelease(widget, Qt::Key_Escape);
}

} // namespace

/// A window with all that stands in tool bars, a user who does something with it, and a host that
/// ends parts of it. A seed decides what is done.
class Stage : public QObject
{
    Q_OBJECT

public:
    /// @param clearsSelection whether a menu unchecks what is checked in it when it closes
    Stage(unsigned seed, bool clearsSelection)
        : m_random(seed)
        , m_clearsSelection(clearsSelection)
    {
        addToTree();
        addPanel();
        addManager();
        fillSteps();
        fillEnds();
        watchAll();
        for (const std::shared_ptr<CommandGroup> &group : {m_tree.top, m_panelGroup, m_dynamic})
            note(*group);
    }
    ~Stage() override
    {
        m_left = 0;
        dropCommands();
        m_tree.window.reset();
        m_gate->release(100);
    }

    /// The commands and groups, also those that have died.
    std::vector<QPointer<CommandBase>> commands() const { return m_commands; }

    /// Does something as the user.
    void step()
    {
        pick(m_steps)();
        watchAll();
    }
    /// Ends something as the host.
    void end() { pick(m_ends)(); }
    /// Has something end when the n-th thing from now on is told.
    void endAtTelling(int n) { m_left = n; }
    /// A number below @p sides.
    int roll(int sides) { return int(m_random() % unsigned(sides)); }
    /// Whether a telling ended something since the last call of endAtTelling().
    bool hasEnded() const { return m_left == 0; }

private Q_SLOTS:
    void hear()
    {
        if (m_left > 0 && --m_left == 0)
            end();
    }
    // What is told while Qt toggles a button or hides a widget, which has to last as long as that.
    void hearAmidst()
    {
        if (m_left > 0 && --m_left == 0)
            QMetaObject::invokeMethod(this, &Stage::end, Qt::QueuedConnection);
    }

private:
    using Deed = std::function<void()>;

    void addToTree();
    void addPanel();
    void addManager();
    void fillSteps();
    void fillStepsOfMenus();
    void fillStepsOfBars();
    void fillEnds();
    void dropCommands();
    void watchAll();
    void watch(QObject *object);
    void note(CommandGroup &group);
    void endSlides() const;
    void point(ToolButton *button);
    QAction *anyAction()
    {
        return m_tree.actions.empty()
            ? nullptr
            : m_tree.actions[size_t(roll(int(m_tree.actions.size())))].get();
    }

    template<typename Things>
    typename Things::value_type pick(const Things &things)
    {
        return things.at(static_cast<decltype(things.size())>(roll(int(things.size()))));
    }
    template<typename T>
    QList<T *> all() const
    {
        return m_tree.window ? m_tree.window->findChildren<T *>() : QList<T *>();
    }
    /// A step with one of the widgets of a class, if there is any.
    template<typename T>
    Deed withAny(const std::function<void(T *)> &act)
    {
        return [this, act] {
            const QList<T *> found = all<T>();
            if (!found.isEmpty())
                act(pick(found));
        };
    }
    Deed withAnyCommand(const std::function<void(CommandBase *)> &act)
    {
        return [this, act] {
            const QPointer<CommandBase> command = pick(m_commands);
            const auto kept = command ? command->weak_from_this().lock() : nullptr;
            if (command)
                act(command);
        };
    }

    std::mt19937 m_random;
    std::set<QObject *> m_watched; // outlives what signs off from it
    const bool m_clearsSelection;
    int m_left = 0;
    Tree m_tree;
    QPointer<ActionPanel> m_panel;
    QPointer<ToolbarManager> m_manager;
    std::shared_ptr<CommandGroup> m_panelGroup = makeGroup(QStringLiteral("panel"));
    std::shared_ptr<CommandGroup> m_dynamic = makeGroup(QStringLiteral("dynamic"));
    std::vector<QPointer<CommandBase>> m_commands;
    std::shared_ptr<QSemaphore> m_gate = std::make_shared<QSemaphore>();
    std::vector<Deed> m_steps;
    std::vector<Deed> m_ends;
};

// Beside the tree: a plain button, one that opens a widget, and one whose menu holds a flyout.
void Stage::addToTree()
{
    m_tree.build();
    CommandsBar &bar = *m_tree.commandsBar;
    bar.AddAction(m_tree.action(QStringLiteral("Plain"), true), QStringLiteral("own"));
    bar.AddAction(m_tree.action(QStringLiteral("Widget")), new QWidget(m_tree.window.get()),
                  QStringLiteral("own"));
    MenuBar *const menu = m_tree.menu();
    menu->AddAction(m_tree.action(QStringLiteral("Checked"), true));
    menu->AddAction(m_tree.action(QStringLiteral("Flyout"), true), m_tree.flyout());
    auto *const button =
        bar.AddAction(m_tree.action(QStringLiteral("Menu")), iconOf(Qt::gray), menu, true);
    button->SetExtendMode(true);
    button->SetClearSelectionOnHide(m_clearsSelection);
    m_tree.command(QStringLiteral("cut"))->setCheckable(true);
    m_tree.smooth->setCheckable(roll(2) == 0);
    // Work that is let end, or lasts until the stage has gone.
    for (const auto &command : {m_tree.smooth, m_tree.measure}) {
        command->work = [gate = m_gate] { return gate->tryAcquire(1, 10'000); };
    }
    bar.show();
}

void Stage::addPanel()
{
    m_panel = new ActionPanel(m_tree.window.get());
    m_panelGroup->setVirtualGroup(roll(2) == 0);
    m_panelGroup->setToolbar(m_panel);
    addCommand(*m_panelGroup, QStringLiteral("fill"));
    const auto repair = makeGroup(QStringLiteral("repair"));
    addCommand(*repair, QStringLiteral("weld"))->setCheckable(true);
    const auto flyout = std::make_shared<Smooth>(QStringLiteral("trim"), m_tree.flyout());
    flyout->setBaseGroupName(toolsGroup());
    repair->addCommand(flyout);
    m_panelGroup->addCommand(repair);
    static_cast<ToolBar *>(m_panel)->AddCommandGroup(m_panelGroup.get());
    m_panel->PrepareActionPanel();
    m_panel->show();
}

void Stage::addManager()
{
    m_manager = new ToolbarManager(m_tree.commandsBar);
    addCommand(*m_dynamic, QStringLiteral("carve"));
    addCommand(*m_dynamic, QStringLiteral("pinch"))->setCheckable(true);
    m_manager->addDynamicCommandGroup(m_dynamic.get());
    m_manager->commandGroupBegan(m_dynamic.get());
}

void Stage::watchAll()
{
    for (QWidget *const widget : all<QWidget>()) {
        watch(widget);
        for (QAction *const action : widget->actions())
            watch(action);
    }
}

void Stage::watch(QObject *object)
{
    if (!m_watched.insert(object).second)
        return;
    connect(object, &QObject::destroyed, this, [this](QObject *dead) { m_watched.erase(dead); });
    const QMetaMethod hears = staticMetaObject.method(staticMetaObject.indexOfSlot("hear()"));
    const QMetaMethod hearsAmidst =
        staticMetaObject.method(staticMetaObject.indexOfSlot("hearAmidst()"));
    for (int i = 0; i < object->metaObject()->methodCount(); ++i) {
        const QMetaMethod method = object->metaObject()->method(i);
        if (tells(*object, method))
            connect(object, method, this,
                    method.name().startsWith("ButtonMenu") ? hearsAmidst : hears);
    }
}

void Stage::point(ToolButton *button)
{
    if (!button->isVisible())
        return;
    const QPointer<ToolButton> guard(button);
    QCursor::setPos(button->mapToGlobal(button->rect().center()));
    QCoreApplication::processEvents();
    if (guard && guard->GetTooltipObject())
        guard->GetTooltipObject()->ShowTooltip();
}

void Stage::endSlides() const
{
    QList<QPointer<QPropertyAnimation>> slides;
    for (QPropertyAnimation *const slide : all<QPropertyAnimation>())
        slides << slide;
    for (const QPointer<QPropertyAnimation> &slide : qAsConst(slides)) {
        if (slide && slide->state() == QAbstractAnimation::Running)
            slide->setCurrentTime(slide->duration());
    }
}

void Stage::fillSteps()
{
    for (int often = 0; often < 4; ++often) {
        m_steps.push_back(withAny<ToolButton>([](auto *button) { clickAsUser(button); }));
        m_steps.push_back(withAny<ToolButton>([](auto *button) { button->click(); }));
    }
    m_steps.push_back(withAny<ToolButton>([this](auto *button) { point(button); }));
    m_steps.push_back(
        withAny<ToolButton>([](auto *button) { QTest::mousePress(button, Qt::LeftButton); }));
    m_steps.push_back(withAny<ToolButton>([](auto *button) { button->toggle(); }));
    m_steps.push_back(
        withAny<ToolButton>([this](auto *button) { button->setEnabled(roll(3) != 0); }));
    m_steps.push_back(withAnyCommand([](auto *command) { command->trigger(); }));
    m_steps.push_back(withAnyCommand([](auto *command) { command->toggle(); }));
    m_steps.push_back(withAnyCommand([this](auto *command) { command->setEnabled(roll(3) != 0); }));
    m_steps.push_back([] { QCoreApplication::processEvents(); });
    m_steps.push_back([] { QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete); });
    fillStepsOfMenus();
    fillStepsOfBars();
}

void Stage::fillStepsOfMenus()
{
    const auto menuButton = [this](void (*act)(ToolButtonWithMenu *)) {
        m_steps.push_back(withAny<ToolButtonWithMenu>(act));
    };
    menuButton([](auto *button) { button->ShowMenu(); });
    menuButton([](auto *button) { button->HideMenu(); });
    menuButton([](auto *button) { button->OnCloseMenu(button->GetMenu(), false); });
    m_steps.push_back(withAny<ToolButtonWithWidgetMenu>([](auto *button) { button->CloseMenu(); }));
    m_steps.push_back(withAny<ToolButtonWithWidgetMenu>([this](auto *button) {
        const QList<FlyoutBase *> flyouts = all<FlyoutBase>();
        if (!flyouts.isEmpty())
            button->SetMenu(pick(flyouts), roll(2) == 0);
    }));
    m_steps.push_back(withAny<ToolButtonWithButtonMenu>(
        [this](auto *button) { button->SetMenu(pick(all<ToolBar>())); }));
    m_steps.push_back(withAny<ToolButtonWithButtonMenu>(
        [this](auto *button) { button->SetExtendMode(roll(3) != 0); }));
    m_steps.push_back(
        withAny<ToolButtonWithButtonMenu>([](auto *button) { button->OnExitExtendMode(); }));
    m_steps.push_back(withAny<FlyoutBase>([this](auto *flyout) {
        const QList<QAbstractButton *> buttons =
            static_cast<QWidget *>(flyout)->findChildren<QAbstractButton *>();
        clickAsUser(pick(buttons));
    }));
    m_steps.push_back(withAny<FlyoutBase>([](auto *flyout) { escapeAsUser(flyout); }));
    m_steps.push_back(withAny<FlyoutBase>([](auto *flyout) { flyout->OnEnterBusyMode(); }));
    m_steps.push_back(withAny<FlyoutBase>([](auto *flyout) { flyout->OnExitBusyMode(); }));
    m_steps.push_back(withAny<FlyoutBase>([](auto *flyout) { Q_EMIT flyout->ApplyChanges(); }));
    m_steps.push_back([this] { m_gate->release(); });
}

void Stage::fillStepsOfBars()
{
    const auto bar = [this](const std::function<void(ToolBar *)> &act) {
        m_steps.push_back(withAny<ToolBar>(act));
    };
    bar([](ToolBar *each) { each->DismissLeafMenu(); });
    bar([this](ToolBar *each) { each->HideMe(roll(2) == 0); });
    bar([](ToolBar *each) { each->ShowMe(); });
    bar([](ToolBar *each) { each->ShowMe(); });
    bar([](ToolBar *each) { each->HideAnimated(); });
    bar([](ToolBar *each) { each->ShowAnimated(); });
    bar([](ToolBar *each) { each->OnMouseClickedOutside(); });
    bar([this](ToolBar *each) { each->HideAllButtonMenusExcept(roll(2) == 0, nullptr); });
    bar([this](ToolBar *each) { each->SetLocked(roll(3) == 0); });
    bar([](ToolBar *each) { each->EnableActions(); });
    bar([this](ToolBar *each) { each->RemoveCommand(pick(m_commands)); });
    bar([this](ToolBar *each) {
        if (QAction *const action = anyAction())
            each->AddAction(action, QString(), roll(5));
    });
    bar([this](ToolBar *each) {
        const QList<FlyoutBase *> flyouts = all<FlyoutBase>();
        QAction *const action = anyAction();
        if (action && !flyouts.isEmpty())
            each->AddAction(action, pick(flyouts));
    });
    bar([this](ToolBar *each) {
        each->AddAction(nullptr, iconOf(Qt::gray), pick(all<ToolBar>()), roll(2) == 0);
    });
    m_steps.push_back([this] { endSlides(); });
    m_steps.push_back([this] {
        if (m_tree.commandsBar && m_tree.top)
            m_tree.build();
    });
    m_steps.push_back([this] {
        if (m_tree.window)
            m_tree.window->resize(700 + roll(200), 500 + roll(200));
    });
    m_steps.push_back([this] {
        if (m_manager && m_dynamic)
            roll(2) == 0 ? m_manager->commandGroupBegan(m_dynamic.get())
                         : m_manager->commandGroupEnded(m_dynamic.get());
    });
    m_steps.push_back([this] {
        if (m_manager && m_dynamic)
            m_manager->addDynamicCommandGroup(m_dynamic.get());
    });
}

void Stage::note(CommandGroup &group)
{
    m_commands.emplace_back(&group);
    watch(&group);
    for (const auto &[id, command] : group.commandBag()) {
        if (auto *const child = qobject_cast<CommandGroup *>(command.get()))
            note(*child);
        else
            m_commands.emplace_back(command.get());
        watch(command.get());
    }
}

void Stage::fillEnds()
{
    const auto endAny = [this](const Deed &deed, int often = 1) {
        m_ends.insert(m_ends.end(), size_t(often), deed);
    };
    endAny(withAny<ToolButton>([](auto *button) { delete button; }), 4);
    endAny(withAny<ToolButtonWithMenu>([](auto *button) { delete button; }), 2);
    endAny(withAny<ToolBar>([](auto *bar) { delete bar; }), 3);
    endAny(withAny<FlyoutBase>([](auto *flyout) { delete flyout; }), 2);
    endAny(withAny<ToolButtonWithMenu>([](auto *button) { delete button->GetMenu(); }), 2);
    endAny(withAny<ToolBar>([this](auto *bar) { bar->RemoveCommand(pick(m_commands)); }), 2);
    endAny([this] { delete m_tree.commandsBar; });
    endAny([this] { delete m_panel; });
    endAny([this] { delete m_manager; });
    endAny([this] { m_tree.window.reset(); });
    endAny([this] { dropCommands(); });
    endAny([this] {
        if (!m_tree.actions.empty())
            m_tree.actions.erase(m_tree.actions.begin() + roll(int(m_tree.actions.size())));
    });
    endAny(withAnyCommand([this](auto *command) {
               for (const auto &group : {m_tree.top, m_panelGroup, m_dynamic}) {
                   if (group)
                       group->removeCommand(command->commandId());
               }
           }),
           3);
    endAny(withAnyCommand([this](auto *command) {
               if (m_manager)
                   m_manager->removeDynamicCommand(command);
           }),
           2);
}

void Stage::dropCommands()
{
    for (auto *const group : {&m_tree.top, &m_tree.line, &m_tree.grid, &m_tree.inner,
                              &m_tree.virtualGroup, &m_panelGroup, &m_dynamic})
        group->reset();
    m_tree.smooth.reset();
    m_tree.measure.reset();
}

class TestToolBarLifetime : public Lumo::Test::TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();

    void anythingEndsBetweenSteps_data();
    void anythingEndsBetweenSteps();
    void anythingEndsOutOfATelling_data();
    void anythingEndsOutOfATelling();

private:
    void verifyNothingIsLeft(const std::vector<QPointer<CommandBase>> &commands);
};

namespace {

constexpr int steps = 25;

/// The rounds of a test are few, so that it is quick; more can be asked for by the environment, which
/// also says the seed of the first.
void addSeeds()
{
    QTest::addColumn<unsigned>("seed");
    const int asked = qEnvironmentVariableIntValue("LUMO_LIFETIME_ROUNDS");
    const int first = qEnvironmentVariableIntValue("LUMO_LIFETIME_FIRST");
    for (int i = 0; i < (asked > 0 ? asked : 40); ++i)
        QTest::addRow("seed %d", first + i) << unsigned(first + i);
}

QStringList widgetsLeft()
{
    QStringList left;
    for (const QWidget *const widget : QApplication::allWidgets())
        left << QString::fromLatin1(widget->metaObject()->className());
    return left;
}

} // namespace

void TestToolBarLifetime::initTestCase()
{
    QCursor::setPos(790, 590);
}

void TestToolBarLifetime::verifyNothingIsLeft(const std::vector<QPointer<CommandBase>> &commands)
{
    QTRY_VERIFY(std::all_of(commands.begin(), commands.end(),
                            [](const auto &command) { return command.isNull(); }));
    QCoreApplication::sendPostedEvents();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QCOMPARE(widgetsLeft(), QStringList());
}

void TestToolBarLifetime::anythingEndsBetweenSteps_data()
{
    addSeeds();
}

void TestToolBarLifetime::anythingEndsBetweenSteps()
{
    QFETCH(unsigned, seed);
    auto stage = std::make_unique<Stage>(seed, true);
    for (int i = 0; i < steps; ++i) {
        if (stage->roll(4) == 0)
            stage->end();
        stage->step();
    }
    const auto commands = stage->commands();
    stage.reset();
    verifyNothingIsLeft(commands);
}

void TestToolBarLifetime::anythingEndsOutOfATelling_data()
{
    addSeeds();
}

void TestToolBarLifetime::anythingEndsOutOfATelling()
{
    QFETCH(unsigned, seed);
    auto stage = std::make_unique<Stage>(seed, false);
    for (int i = 0; i < steps; ++i) {
        if (stage->hasEnded())
            stage->endAtTelling(1 + stage->roll(6));
        stage->step();
    }
    const auto commands = stage->commands();
    stage.reset();
    verifyNothingIsLeft(commands);
}

LUMO_TEST_MAIN(TestToolBarLifetime)
#include "tst_toolbarlifetime.moc"
