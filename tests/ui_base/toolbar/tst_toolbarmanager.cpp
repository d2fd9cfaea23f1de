// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include <ui_base/ToolbarManager>

#include "support/testcase.h"
#include "support/testmain.h"
#include "ui_base/command/commandbag.h"
#include "ui_base/command/commandgroup.h"
#include "ui_base/command/flyoutcommand.h"
#include "ui_base/command/testcommand.h"
#include "ui_base/popup/floatinglayer.h"
#include "ui_base/qtui/panel/flyoutbase.h"
#include "ui_base/qtui/qtuitoolkit.h"
#include "ui_base/qtui/tooltip/tooltipobject.h"
#include "ui_base/toolbar/toolbar_p.h"
#include "ui_base/toolbar/toolbarmanager_p.h"

#include <QAction>
#include <QLabel>
#include <QPointer>
#include <QTest>

#include <cstddef>
#include <functional>
#include <memory>
#include <new>

using Lumo::Test::TestCommand;
using Vela::UiBase::CommandBase;
using Vela::UiBase::CommandGroup;
using Vela::UiBase::DynamicCommandGroupStateProtocol;
using Vela::UiBase::FloatingLayer;
using Vela::UiBase::FlyoutBase;
using Vela::UiBase::FlyoutCommand;
using Vela::UiBase::QtUiToolkit;
using Vela::UiBase::ToolBar;
using Vela::UiBase::ToolbarManager;
using Vela::UiBase::ToolbarManagerPrivate;
using Vela::UiBase::ToolBarPrivate;
using Vela::UiBase::ToolButton;
using Vela::UiBase::TooltipObject;

namespace {

const QString sculpt = QStringLiteral("sculpt");
const QString paint = QStringLiteral("paint");
const QString cut = QStringLiteral("cut");
const QString smooth = QStringLiteral("smooth");
const QString brush = QStringLiteral("brush");

using GroupStates = Tessel::Broadcaster<DynamicCommandGroupStateProtocol>;

std::shared_ptr<CommandGroup> makeGroup(const QString &name, const QStringList &ids)
{
    auto group = std::make_shared<CommandGroup>(QString(), QString(), name);
    for (const QString &id : ids)
        group->addCommand(new TestCommand(id));
    return group;
}

/// Opens what the bars have for subclasses.
class OpenBar : public ToolBar
{
public:
    using ToolBar::ToolBar;
    static ToolBarPrivate *opened(ToolBar *bar)
    {
        return static_cast<ToolBarPrivate *>((bar->*(&OpenBar::d_ptr)).get());
    }
};

/// A private class of a host.
class HostPrivate : public ToolbarManagerPrivate
{
public:
    explicit HostPrivate(bool &isGone)
        : m_isGone(isGone)
    { }
    ~HostPrivate() override { m_isGone = true; }

private:
    bool &m_isGone;
};

class HostManager : public ToolbarManager
{
public:
    HostManager(ToolBar *mainBar, bool &isGone)
        : ToolbarManager(*new HostPrivate(isGone), mainBar)
    { }
    HostPrivate &opened() { return static_cast<HostPrivate &>(*d_ptr); }
};

/// A command with a panel, which belongs to nobody but the button that shows it.
class PanelCommand : public FlyoutCommand
{
public:
    explicit PanelCommand(const QString &id)
        : FlyoutCommand(makePanel(), nullptr)
        , m_id(id)
    { }
    const QString commandId() const override { return m_id; }
    bool onExecuteAsync(bool) override { return true; }

private:
    static FlyoutBase *makePanel()
    {
        auto *const panel = new QWidget;
        panel->setFixedSize(120, 40);
        return QtUiToolkit::Instance().CreateFlyout(QString(), panel, nullptr, true, true, true,
                                                    false, nullptr);
    }

    const QString m_id;
};

/// Room for one group after the other, all at the same address.
class GroupPlace
{
public:
    std::shared_ptr<CommandGroup> make(const QString &name, const QStringList &ids)
    {
        const auto end = [](CommandGroup *group) { group->~CommandGroup(); };
        std::shared_ptr<CommandGroup> group(new (m_room) CommandGroup(QString(), QString(), name),
                                            end);
        for (const QString &id : ids)
            group->addCommand(new TestCommand(id));
        return group;
    }

private:
    alignas(CommandGroup) std::byte m_room[sizeof(CommandGroup)];
};

/// Runs what was posted to the main queue.
void runPosted()
{
    bool done = false;
    Tessel::dispatchAsync([&done] { done = true; }, Tessel::EQualityOfService::Main);
    QTRY_VERIFY(done);
}

/// Calls a function at each event of one type.
class EventHook : public QObject
{
public:
    EventHook(QEvent::Type type, std::function<void()> call, QObject *parent = nullptr)
        : QObject(parent)
        , m_type(type)
        , m_call(std::move(call))
    { }

    bool eventFilter(QObject *, QEvent *event) override
    {
        if (event->type() == m_type)
            m_call();
        return false;
    }

private:
    QEvent::Type m_type;
    std::function<void()> m_call;
};

QRect onScreen(const QWidget *widget)
{
    return {widget->mapToGlobal(QPoint(0, 0)), widget->size()};
}

/// A window with a main bar and a manager.
class Scene
{
public:
    explicit Scene(Qt::ToolBarArea area = Qt::TopToolBarArea, bool isFloating = false)
        : window(std::make_unique<QWidget>())
        , mainBar(new ToolBar(window.get(), area))
    {
        window->setGeometry(60, 50, 500, 400);
        mainBar->AddAction(new QAction(QStringLiteral("Open"), mainBar));
        mainBar->AddAction(new QAction(QStringLiteral("Save"), mainBar));
        mainBar->move(20, 10);
        if (isFloating) {
            FloatingLayer::makeWidgetFloating(mainBar, QMargins());
            floatingBar.reset(mainBar);
        }
        manager = new ToolbarManager(mainBar);
    }

    void show()
    {
        window->show();
        mainBar->show();
        QVERIFY(QTest::qWaitForWindowExposed(window.get()));
        QCoreApplication::processEvents();
    }

    ToolBar *barOf(const QString &name) const
    {
        const QString id = CommandGroup::className() + name;
        for (ToolBar *const bar : window->findChildren<ToolBar *>()) {
            if (bar->property("CMDGROUP_PROP").toString() == id)
                return bar;
        }
        return nullptr;
    }
    int countOfBars() const { return window->findChildren<ToolBar *>().size() - 1; }
    int countOfLayers() const { return window->findChildren<FloatingLayer *>().size(); }

    QLabel *separator() const
    {
        for (QLabel *const label : window->findChildren<QLabel *>()) {
            if (qobject_cast<FloatingLayer *>(label->parentWidget()))
                return label;
        }
        return nullptr;
    }

    QStringList idsOn(const QString &name) const
    {
        QStringList ids;
        for (ToolButton *const button : OpenBar::opened(barOf(name))->CollectButtons<ToolButton>())
            ids << button->property("CMDID_PROP").toString();
        return ids;
    }

    /// Adds a group and makes it active.
    std::shared_ptr<CommandGroup> begin(const QString &name, const QStringList &ids) const
    {
        auto group = makeGroup(name, ids);
        manager->addDynamicCommandGroup(group.get());
        manager->commandGroupBegan(group.get());
        return group;
    }

    std::unique_ptr<QWidget> window;
    // A widget that floats is handed back by the end of what it floats over.
    std::unique_ptr<ToolBar> floatingBar;
    QPointer<ToolBar> mainBar;
    QPointer<ToolbarManager> manager;
};

/// Fails unless the separator and the bars stand in one line behind the main bar.
void verifyLine(const Scene &scene, const QStringList &groups)
{
    const bool isHorizontal = scene.mainBar->IsHorizontalLayout();
    const auto next = [isHorizontal](const QRect &rect, int gap) {
        return isHorizontal ? QPoint(rect.right() + gap, rect.top())
                            : QPoint(rect.left(), rect.bottom() + gap);
    };
    QRect previous = onScreen(scene.mainBar);
    QCOMPARE(onScreen(scene.separator()).topLeft(), next(previous, 10));
    previous = onScreen(scene.separator());
    int gap = 10;
    for (const QString &name : groups) {
        const QRect rect = onScreen(scene.barOf(name));
        QVERIFY(scene.barOf(name)->isVisible());
        QCOMPARE(rect.topLeft(), next(previous, gap));
        previous = rect;
        gap = scene.mainBar->GetButtonGroupSpacing()
            + (isHorizontal ? scene.mainBar->GetGroupContentMargins().left()
                            : scene.mainBar->GetGroupContentMargins().top());
    }
}

} // namespace

class TestToolbarManager : public Lumo::Test::TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void namesAndGapAreThoseOfTheInterface();
    void managerBelongsToTheParentOfTheMainBar();
    void privateClassOfASubclassEndsWithTheManager();

    void separatorFloatsBesideTheMainBar_data();
    void separatorFloatsBesideTheMainBar();
    void placeIsKnownFromTheStart();
    void separatorsAreRemovedByTheirPlace();

    void firstCommandOfAGroupMakesItsBar();
    void barLooksLikeTheMainBar();
    void oneTooltipIsUpInTheRowAtATime();
    void barOverAMainBarThatFloatsHasTheSameParent();
    void groupWithoutCommandsHasNoBar();
    void nestedGroupsHaveBarsOfTheirOwn();
    void commandStandsOnItsBarOnce();
    void addingHidesTheBarUntilItIsShownAgain();
    void buttonRunsItsCommand();

    void barIsVisibleWhileItsGroupIsActive();
    void unknownGroupsAreIgnored();
    void groupThatHasBegunIsLeftAlone();
    void anotherGroupOfTheSameIdMovesTheBar();

    void barsStandInALineBehindTheMainBar_data();
    void barsStandInALineBehindTheMainBar();
    void lineTakesItsGapsFromTheMainBar_data();
    void lineTakesItsGapsFromTheMainBar();
    void groupsStandInTheOrderOfAdding();
    void barIsAtItsPlaceWhenItIsShown();
    void movedMainBarTakesTheLineAlong_data();
    void movedMainBarTakesTheLineAlong();
    void lineFollowsAMainBarAtTheEdgeOfItsParent();
    void grownMainBarMovesTheLine_data();
    void grownMainBarMovesTheLine();
    void barHiddenMeanwhileComesBackAtTheNewPlace();
    void hiddenMainBarIsAskedForItsPlace();
    void movedWindowTakesTheLineAlong();
    void mainBarWithoutParentHasALineOnTheScreen();

    void hiddenMainBarLeavesTheLine();
    void shownMainBarBringsTheActiveBars();
    void otherWidgetsAreNotFollowed();
    void allAreHiddenAndTheActiveOnesShownAgain();
    void barsAreOnlyShownTogether();
    void barsAreEnabledAsTheMainBar();
    void barAddedToADisabledMainBarIsDisabled();

    void removedCommandLeavesItsBar();
    void lastCommandTakesTheBarAndItsLayer();
    void commandOnTwoBarsLeavesOneAtATime();
    void removalLetsTheLineCloseUp();
    void removalShowsNothingThatIsHidden();
    void groupIsRemovedAtAnyDepth();
    void removedBarIsForgotten();
    void removedGroupCanComeBack();
    void commandMayRemoveItselfAtAClick();
    void commandsAreFoundById();

    void panelOpensFromTheRow();
    void openPanelFollowsItsBar();
    void panelOpenAtItsRemovalIsHarmless_data();
    void panelOpenAtItsRemovalIsHarmless();

    void broadcastReachesTheManager();
    void announcementOfADeadGroupIsHarmless();
    void groupIsNotTakenForADeadOneAtItsAddress();
    void groupAtTheAddressOfADeadOneCanBeAdded();
    void groupMayDieBeforeItIsRemoved();
    void managerTakesItsWidgetsAlong_data();
    void managerTakesItsWidgetsAlong();
    void windowTakesAllAlong_data();
    void windowTakesAllAlong();
    void managerWithoutAMainBarDoesNothing();
    void deadMainBarEndsTheRow();
    void deadBarLeavesTheRow();
    void deadSeparatorLeavesTheRest();
    void windowMayDieAtItsOwnBroadcast();
    void managerMayDieWhileABarIsShown_data();
    void managerMayDieWhileABarIsShown();
    void nothingIsLookedUpForNull();
};

void TestToolbarManager::namesAndGapAreThoseOfTheInterface()
{
    QCOMPARE(ToolbarManager::COMMANDGROUP_PROPERTY, QStringLiteral("CMDGROUP_PROP"));
    static_assert(ToolbarManager::MAIN_SPACING == 10);
    static_assert(std::is_base_of_v<DynamicCommandGroupStateProtocol, ToolbarManager>);
}

void TestToolbarManager::managerBelongsToTheParentOfTheMainBar()
{
    const Scene scene;
    QCOMPARE(scene.manager->parent(), scene.window.get());
    const Scene floating(Qt::TopToolBarArea, true);
    QCOMPARE(floating.manager->parent(), floating.mainBar->parent());
}

void TestToolbarManager::privateClassOfASubclassEndsWithTheManager()
{
    const Scene scene;
    bool isGone = false;
    auto manager = std::make_unique<HostManager>(scene.mainBar, isGone);
    QCOMPARE(manager->opened().separators.size(), 1);
    QCOMPARE(manager->opened().mainToolBar.data(), scene.mainBar.data());
    manager.reset();
    QVERIFY(isGone);
}

void TestToolbarManager::separatorFloatsBesideTheMainBar_data()
{
    QTest::addColumn<Qt::ToolBarArea>("area");
    QTest::addColumn<QSize>("picture");

    QTest::newRow("horizontal") << Qt::TopToolBarArea << QSize(2, 36);
    QTest::newRow("vertical") << Qt::LeftToolBarArea << QSize(36, 2);
}

void TestToolbarManager::separatorFloatsBesideTheMainBar()
{
    QFETCH(const Qt::ToolBarArea, area);
    QFETCH(const QSize, picture);

    Scene scene(area);
    scene.show();
    QLabel *const separator = scene.separator();
    QVERIFY(separator);
    QCOMPARE(FloatingLayer::getWidgetOriginalParent(separator), scene.window.get());
    QVERIFY(separator->testAttribute(Qt::WA_ShowWithoutActivating));
    QCOMPARE(separator->focusPolicy(), Qt::NoFocus);
    QVERIFY(!separator->isVisible());

    const QPixmap pixmap = separator->pixmap(Qt::ReturnByValue);
    QCOMPARE(pixmap.devicePixelRatio(), scene.window->devicePixelRatioF());
    QCOMPARE(pixmap.size() / pixmap.devicePixelRatio(), picture);
    const QSize size = area == Qt::TopToolBarArea ? QSize(2, scene.mainBar->height())
                                                  : QSize(scene.mainBar->width(), 2);
    QCOMPARE(separator->size(), size);
}

void TestToolbarManager::placeIsKnownFromTheStart()
{
    const Scene scene;
    bool isGone = false;
    HostManager manager(scene.mainBar, isGone);
    QCOMPARE(manager.opened().panelPos, scene.mainBar->geometry().topRight() + QPoint(10, 0));
}

void TestToolbarManager::separatorsAreRemovedByTheirPlace()
{
    const Scene scene;
    bool isGone = false;
    HostManager manager(scene.mainBar, isGone);
    const QPointer<QLabel> separator = manager.opened().separators.first();
    manager.opened().removeSeparator(-1);
    manager.opened().removeSeparator(1);
    QVERIFY(separator);
    manager.opened().removeSeparator(0);
    QVERIFY(!separator);
    QVERIFY(manager.opened().separators.isEmpty());
}

void TestToolbarManager::firstCommandOfAGroupMakesItsBar()
{
    Scene scene;
    scene.show();
    const auto group = makeGroup(sculpt, {cut, smooth});
    scene.manager->addDynamicCommandGroup(group.get());

    ToolBar *const bar = scene.barOf(sculpt);
    QVERIFY(bar);
    QCOMPARE(bar->property("CMDGROUP_PROP").toString(), group->commandId());
    QCOMPARE(FloatingLayer::getWidgetOriginalParent(bar), scene.window.get());
    QVERIFY(!bar->isVisible());
    QVERIFY(!scene.separator()->isVisible());
    QCOMPARE(scene.idsOn(sculpt), QStringList({cut, smooth}));
    QCOMPARE(group->getCommand(cut)->toolButton()->window(), bar->window());
}

void TestToolbarManager::oneTooltipIsUpInTheRowAtATime()
{
    Scene scene;
    scene.mainBar->SetTooltipGroup(QStringLiteral("row"));
    scene.mainBar->AddAction(new QAction(QStringLiteral("Undo"), scene.mainBar));
    scene.show();
    const auto group = makeGroup(sculpt, {cut});
    group->getCommand(cut)->setText(QStringLiteral("Cut"));
    scene.manager->addDynamicCommandGroup(group.get());
    scene.manager->commandGroupBegan(group.get());
    const auto tooltipOn = [](ToolBar *bar) {
        return OpenBar::opened(bar)->CollectButtons<ToolButton>().last()->GetTooltipObject();
    };
    TooltipObject *const ofMainBar = tooltipOn(scene.mainBar);
    TooltipObject *const ofRow = tooltipOn(scene.barOf(sculpt));
    ofMainBar->ShowTooltip();
    QVERIFY(ofMainBar->IsVisible());
    ofRow->ShowTooltip();
    QVERIFY(ofRow->IsVisible());
    QVERIFY(!ofMainBar->IsVisible());
    ofMainBar->ShowTooltip();
    QVERIFY(!ofRow->IsVisible());
}

void TestToolbarManager::barLooksLikeTheMainBar()
{
    Scene scene(Qt::LeftToolBarArea);
    scene.mainBar->SetButtonSize({50, 50});
    scene.mainBar->SetButtonSpacing(3);
    scene.mainBar->SetEnableAutoPosition(true);
    scene.mainBar->SetCentered(true);
    const auto group = makeGroup(sculpt, {cut});
    scene.manager->addDynamicCommandGroup(group.get());

    ToolBar *const bar = scene.barOf(sculpt);
    QVERIFY(bar->IsHorizontalLayout());
    QVERIFY(!bar->IsGridLayout());
    QCOMPARE(bar->ButtonSize(), QSize(50, 50));
    QCOMPARE(bar->GetButtonSpacing(), 3);
    const ToolBarPrivate *const opened = OpenBar::opened(bar);
    QVERIFY(!opened->autoPositionEnabled);
    QVERIFY(!opened->centered);
    QVERIFY(opened->delayRelocationOnResize);
}

void TestToolbarManager::barOverAMainBarThatFloatsHasTheSameParent()
{
    const Scene scene(Qt::TopToolBarArea, true);
    const auto group = makeGroup(sculpt, {cut});
    scene.manager->addDynamicCommandGroup(group.get());
    QCOMPARE(FloatingLayer::getWidgetOriginalParent(scene.barOf(sculpt)), scene.window.get());
    QCOMPARE(FloatingLayer::getWidgetOriginalParent(scene.separator()), scene.window.get());
}

void TestToolbarManager::groupWithoutCommandsHasNoBar()
{
    const Scene scene;
    const auto group = makeGroup(sculpt, {});
    scene.manager->addDynamicCommandGroup(group.get());
    scene.manager->addDynamicCommandGroup(nullptr);
    QCOMPARE(scene.countOfBars(), 0);
}

void TestToolbarManager::nestedGroupsHaveBarsOfTheirOwn()
{
    const Scene scene;
    const auto inner = makeGroup(paint, {brush});
    const auto outer = makeGroup(sculpt, {cut});
    const auto between = makeGroup(QStringLiteral("between"), {});
    between->addCommand(inner);
    outer->addCommand(between);
    outer->addCommand(new TestCommand(smooth));
    scene.manager->addDynamicCommandGroup(outer.get());

    QCOMPARE(scene.countOfBars(), 2);
    QCOMPARE(scene.idsOn(sculpt), QStringList({cut, smooth}));
    QCOMPARE(scene.idsOn(paint), QStringList({brush}));
}

void TestToolbarManager::commandStandsOnItsBarOnce()
{
    const Scene scene;
    const auto group = makeGroup(sculpt, {cut});
    scene.manager->addDynamicCommandGroup(group.get());
    const QPointer<ToolBar> bar = scene.barOf(sculpt);
    group->addCommand(new TestCommand(smooth));
    scene.manager->addDynamicCommandGroup(group.get());
    QCOMPARE(scene.countOfBars(), 1);
    QCOMPARE(scene.barOf(sculpt), bar.data());
    QCOMPARE(scene.idsOn(sculpt), QStringList({cut, smooth}));
}

void TestToolbarManager::addingHidesTheBarUntilItIsShownAgain()
{
    Scene scene;
    scene.show();
    const auto group = scene.begin(sculpt, {cut});
    QVERIFY(scene.barOf(sculpt)->isVisible());
    group->addCommand(new TestCommand(smooth));
    scene.manager->addDynamicCommandGroup(group.get());
    QVERIFY(!scene.barOf(sculpt)->isVisible());
    scene.manager->setVisible(true);
    QVERIFY(scene.barOf(sculpt)->isVisible());
}

void TestToolbarManager::buttonRunsItsCommand()
{
    Scene scene;
    scene.show();
    const auto group = scene.begin(sculpt, {cut});
    int runs = 0;
    auto *const command = static_cast<TestCommand *>(group->getCommand(cut));
    command->work = [&runs](bool) { return ++runs > 0; };
    QTest::mouseClick(command->toolButton(), Qt::LeftButton);
    QCOMPARE(runs, 1);
}

void TestToolbarManager::barIsVisibleWhileItsGroupIsActive()
{
    Scene scene;
    scene.show();
    const auto group = makeGroup(sculpt, {cut});
    scene.manager->addDynamicCommandGroup(group.get());
    scene.manager->commandGroupBegan(group.get());
    QVERIFY(scene.barOf(sculpt)->isVisible());
    QVERIFY(scene.separator()->isVisible());
    scene.manager->commandGroupEnded(group.get());
    QVERIFY(!scene.barOf(sculpt)->isVisible());
    QVERIFY(!scene.separator()->isVisible());
}

void TestToolbarManager::unknownGroupsAreIgnored()
{
    Scene scene;
    scene.show();
    const auto known = makeGroup(sculpt, {cut});
    const auto unknown = makeGroup(paint, {brush});
    scene.manager->addDynamicCommandGroup(known.get());
    scene.manager->commandGroupBegan(unknown.get());
    scene.manager->commandGroupEnded(unknown.get());
    QVERIFY(!scene.separator()->isVisible());
    QVERIFY(!scene.barOf(sculpt)->isVisible());
    QCOMPARE(scene.countOfBars(), 1);
}

void TestToolbarManager::groupThatHasBegunIsLeftAlone()
{
    Scene scene;
    scene.show();
    const auto group = scene.begin(sculpt, {cut});
    ToolBar *const bar = scene.barOf(sculpt);
    bar->move(200, 300);
    const QRect place = onScreen(bar);
    scene.manager->commandGroupBegan(group.get());
    QCOMPARE(onScreen(bar), place);
    bar->hide();
    scene.manager->commandGroupBegan(group.get());
    QVERIFY(!bar->isVisible());
    scene.manager->commandGroupEnded(group.get());
    bar->show();
    scene.manager->commandGroupEnded(group.get());
    QVERIFY(bar->isVisible());
}

void TestToolbarManager::anotherGroupOfTheSameIdMovesTheBar()
{
    Scene scene;
    scene.show();
    const auto group = makeGroup(sculpt, {cut});
    const auto copy = makeGroup(sculpt, {});
    scene.manager->addDynamicCommandGroup(group.get());
    scene.manager->commandGroupBegan(copy.get());
    QVERIFY(scene.barOf(sculpt)->isVisible());
}

void TestToolbarManager::barsStandInALineBehindTheMainBar_data()
{
    QTest::addColumn<Qt::ToolBarArea>("area");
    QTest::addColumn<bool>("isFloating");

    QTest::newRow("top") << Qt::TopToolBarArea << false;
    QTest::newRow("bottom") << Qt::BottomToolBarArea << false;
    QTest::newRow("left") << Qt::LeftToolBarArea << false;
    QTest::newRow("right") << Qt::RightToolBarArea << false;
    QTest::newRow("top, floating") << Qt::TopToolBarArea << true;
    QTest::newRow("left, floating") << Qt::LeftToolBarArea << true;
}

void TestToolbarManager::barsStandInALineBehindTheMainBar()
{
    QFETCH(const Qt::ToolBarArea, area);
    QFETCH(const bool, isFloating);

    Scene scene(area, isFloating);
    scene.show();
    const auto first = scene.begin(sculpt, {cut, smooth});
    const auto second = scene.begin(paint, {brush});
    const auto third = scene.begin(QStringLiteral("third"), {QStringLiteral("a")});
    verifyLine(scene, {sculpt, paint, QStringLiteral("third")});
    scene.manager->commandGroupEnded(second.get());
    verifyLine(scene, {sculpt, QStringLiteral("third")});
    scene.manager->commandGroupBegan(second.get());
    verifyLine(scene, {sculpt, paint, QStringLiteral("third")});
}

void TestToolbarManager::lineTakesItsGapsFromTheMainBar_data()
{
    QTest::addColumn<Qt::ToolBarArea>("area");
    QTest::addColumn<QPoint>("step");

    QTest::newRow("horizontal") << Qt::TopToolBarArea << QPoint(21, 0);
    QTest::newRow("vertical") << Qt::LeftToolBarArea << QPoint(0, 23);
}

void TestToolbarManager::lineTakesItsGapsFromTheMainBar()
{
    QFETCH(const Qt::ToolBarArea, area);
    QFETCH(const QPoint, step);

    Scene scene(area);
    scene.mainBar->SetButtonGroupSpacing(17);
    scene.mainBar->SetGroupContentMargins({4, 6, 0, 0});
    scene.mainBar->AdjustToolBarSize(false);
    scene.show();
    const auto first = scene.begin(sculpt, {cut});
    const auto second = scene.begin(paint, {brush});
    const QRect before = onScreen(scene.barOf(sculpt));
    const QPoint end = step.x() > 0 ? before.topRight() : before.bottomLeft();
    QCOMPARE(onScreen(scene.barOf(paint)).topLeft(), end + step);
    verifyLine(scene, {sculpt, paint});
}

void TestToolbarManager::groupsStandInTheOrderOfAdding()
{
    Scene scene;
    scene.show();
    const auto first = makeGroup(sculpt, {cut});
    const auto second = makeGroup(paint, {brush});
    scene.manager->addDynamicCommandGroup(first.get());
    scene.manager->addDynamicCommandGroup(second.get());
    scene.manager->commandGroupBegan(second.get());
    scene.manager->commandGroupBegan(first.get());
    verifyLine(scene, {sculpt, paint});
}

void TestToolbarManager::barIsAtItsPlaceWhenItIsShown()
{
    Scene scene;
    scene.show();
    const auto group = makeGroup(sculpt, {cut});
    scene.manager->addDynamicCommandGroup(group.get());
    QPoint atShow;
    EventHook hook(QEvent::Show, [&] { atShow = scene.barOf(sculpt)->window()->pos(); });
    scene.barOf(sculpt)->window()->installEventFilter(&hook);
    scene.manager->commandGroupBegan(group.get());
    QCOMPARE(atShow, onScreen(scene.barOf(sculpt)).topLeft());

    scene.manager->commandGroupEnded(group.get());
    scene.mainBar->move(50, 90);
    scene.manager->commandGroupBegan(group.get());
    QCOMPARE(atShow, onScreen(scene.barOf(sculpt)).topLeft());
}

void TestToolbarManager::movedMainBarTakesTheLineAlong_data()
{
    QTest::addColumn<Qt::ToolBarArea>("area");
    QTest::addColumn<bool>("isFloating");

    QTest::newRow("child") << Qt::TopToolBarArea << false;
    QTest::newRow("vertical child") << Qt::LeftToolBarArea << false;
    QTest::newRow("floating") << Qt::TopToolBarArea << true;
}

void TestToolbarManager::movedMainBarTakesTheLineAlong()
{
    QFETCH(const Qt::ToolBarArea, area);
    QFETCH(const bool, isFloating);

    Scene scene(area, isFloating);
    scene.show();
    const auto first = scene.begin(sculpt, {cut});
    const auto second = scene.begin(paint, {brush});
    QList<QPoint> places;
    EventHook hook(QEvent::Move, [&] { places << scene.barOf(paint)->window()->pos(); });
    scene.barOf(paint)->window()->installEventFilter(&hook);
    for (const QPoint &target : {QPoint(33, 44), QPoint(5, 6), QPoint(-3, 100)}) {
        scene.mainBar->move(target);
        QCOMPARE(onScreen(scene.mainBar).topLeft(), scene.window->mapToGlobal(target));
        verifyLine(scene, {sculpt, paint});
    }
    // No detour: once for each move of the main bar.
    QCOMPARE(places.size(), 3);
}

void TestToolbarManager::lineFollowsAMainBarAtTheEdgeOfItsParent()
{
    Scene scene;
    scene.show();
    const auto group = scene.begin(sculpt, {cut});
    // The separator then stands at (0, 0) of the parent, where it stands in its layer, too.
    scene.mainBar->move(-scene.mainBar->width() + 1 - 10, 0);
    QCOMPARE(onScreen(scene.separator()).topLeft(), scene.window->mapToGlobal(QPoint(0, 0)));
    verifyLine(scene, {sculpt});
    scene.mainBar->move(-scene.mainBar->width() + 1 - 10 - 11, 0);
    QCOMPARE(onScreen(scene.barOf(sculpt)).topLeft(), scene.window->mapToGlobal(QPoint(0, 0)));
    verifyLine(scene, {sculpt});
}

void TestToolbarManager::grownMainBarMovesTheLine_data()
{
    QTest::addColumn<Qt::ToolBarArea>("area");

    QTest::newRow("horizontal") << Qt::TopToolBarArea;
    QTest::newRow("vertical") << Qt::LeftToolBarArea;
}

void TestToolbarManager::grownMainBarMovesTheLine()
{
    QFETCH(const Qt::ToolBarArea, area);

    Scene scene(area);
    scene.show();
    const auto group = scene.begin(sculpt, {cut});
    const QRect place = onScreen(scene.barOf(sculpt));
    scene.mainBar->AddAction(new QAction(scene.mainBar));
    scene.mainBar->SetButtonSize({44, 44});
    verifyLine(scene, {sculpt});
    QVERIFY(onScreen(scene.barOf(sculpt)) != place);
    const bool isHorizontal = scene.mainBar->IsHorizontalLayout();
    QCOMPARE(isHorizontal ? scene.separator()->height() : scene.separator()->width(),
             isHorizontal ? scene.mainBar->height() : scene.mainBar->width());
}

void TestToolbarManager::barHiddenMeanwhileComesBackAtTheNewPlace()
{
    Scene scene;
    scene.show();
    const auto first = scene.begin(sculpt, {cut});
    const auto second = scene.begin(paint, {brush});
    scene.manager->setVisible(false);
    scene.mainBar->move(70, 120);
    scene.manager->setVisible(true);
    verifyLine(scene, {sculpt, paint});
}

void TestToolbarManager::hiddenMainBarIsAskedForItsPlace()
{
    Scene scene;
    scene.show();
    const auto group = scene.begin(sculpt, {cut});
    scene.mainBar->hide();
    scene.manager->setVisible(false);
    scene.mainBar->move(70, 120);
    scene.manager->setVisible(true);
    verifyLine(scene, {sculpt});
}

void TestToolbarManager::movedWindowTakesTheLineAlong()
{
    Scene scene;
    scene.show();
    const auto group = scene.begin(sculpt, {cut});
    scene.window->move(150, 130);
    QTRY_COMPARE(onScreen(scene.separator()).left(), onScreen(scene.mainBar).right() + 10);
    verifyLine(scene, {sculpt});
}

void TestToolbarManager::mainBarWithoutParentHasALineOnTheScreen()
{
    ToolBar mainBar(nullptr, Qt::TopToolBarArea);
    mainBar.AddAction(new QAction(&mainBar));
    mainBar.move(90, 70);
    ToolbarManager manager(&mainBar);
    QVERIFY(!manager.parent());
    mainBar.show();
    const auto group = makeGroup(sculpt, {cut});
    manager.addDynamicCommandGroup(group.get());
    manager.commandGroupBegan(group.get());
    const QWidget *const bar = group->getCommand(cut)->toolButton()->window();
    QCOMPARE(bar->pos(), onScreen(&mainBar).topRight() + QPoint(10 + 2 - 1 + 10, 0));
}

void TestToolbarManager::hiddenMainBarLeavesTheLine()
{
    Scene scene;
    scene.show();
    const auto group = scene.begin(sculpt, {cut});
    scene.mainBar->hide();
    QVERIFY(scene.barOf(sculpt)->isVisible());
    QVERIFY(scene.separator()->isVisible());
}

void TestToolbarManager::shownMainBarBringsTheActiveBars()
{
    Scene scene;
    scene.show();
    const auto active = scene.begin(sculpt, {cut});
    const auto idle = makeGroup(paint, {brush});
    scene.manager->addDynamicCommandGroup(idle.get());
    scene.mainBar->hide();
    scene.manager->setVisible(false);
    scene.mainBar->move(80, 90);
    scene.mainBar->show();
    verifyLine(scene, {sculpt});
    QVERIFY(scene.separator()->isVisible());
    QVERIFY(!scene.barOf(paint)->isVisible());
}

void TestToolbarManager::otherWidgetsAreNotFollowed()
{
    Scene scene;
    scene.show();
    const auto group = scene.begin(sculpt, {cut});
    scene.manager->setVisible(false);
    scene.barOf(sculpt)->setEnabled(false);
    // A subclass of a host may watch more.
    QWidget other(scene.window.get());
    other.installEventFilter(scene.manager);
    other.show();
    QVERIFY(!scene.barOf(sculpt)->isVisible());
    other.setEnabled(false);
    QVERIFY(!scene.barOf(sculpt)->isEnabled());
}

void TestToolbarManager::allAreHiddenAndTheActiveOnesShownAgain()
{
    Scene scene;
    scene.show();
    const auto first = scene.begin(sculpt, {cut});
    const auto idle = scene.begin(paint, {brush});
    scene.manager->commandGroupEnded(idle.get());
    scene.manager->setVisible(false);
    QVERIFY(!scene.barOf(sculpt)->isVisible());
    QVERIFY(!scene.separator()->isVisible());
    scene.manager->setVisible(true);
    QVERIFY(scene.barOf(sculpt)->isVisible());
    QVERIFY(!scene.barOf(paint)->isVisible());
    QVERIFY(scene.separator()->isVisible());

    scene.manager->commandGroupEnded(first.get());
    scene.manager->setVisible(false);
    scene.manager->setVisible(true);
    QVERIFY(!scene.separator()->isVisible());
    QVERIFY(!scene.barOf(sculpt)->isVisible());
}

void TestToolbarManager::barsAreOnlyShownTogether()
{
    Scene scene;
    scene.show();
    bool isGone = false;
    HostManager manager(scene.mainBar, isGone);
    const auto group = makeGroup(sculpt, {cut});
    manager.addDynamicCommandGroup(group.get());
    manager.commandGroupBegan(group.get());
    manager.setVisible(false);
    manager.opened().setToolbarsVisible(false);
    QVERIFY(!scene.barOf(sculpt)->isVisible());
    manager.opened().setToolbarsVisible(true);
    manager.opened().setToolbarsVisible(false);
    QVERIFY(scene.barOf(sculpt)->isVisible());
}

void TestToolbarManager::barsAreEnabledAsTheMainBar()
{
    Scene scene;
    scene.show();
    const auto active = scene.begin(sculpt, {cut});
    const auto idle = makeGroup(paint, {brush});
    scene.manager->addDynamicCommandGroup(idle.get());
    scene.mainBar->setEnabled(false);
    QVERIFY(!scene.barOf(sculpt)->isEnabled());
    QVERIFY(!scene.barOf(paint)->isEnabled());
    scene.mainBar->setEnabled(true);
    QVERIFY(scene.barOf(sculpt)->isEnabled());
    QVERIFY(scene.barOf(paint)->isEnabled());
}

void TestToolbarManager::barAddedToADisabledMainBarIsDisabled()
{
    const Scene scene;
    scene.mainBar->setEnabled(false);
    const auto group = makeGroup(sculpt, {cut});
    scene.manager->addDynamicCommandGroup(group.get());
    QVERIFY(!scene.barOf(sculpt)->isEnabled());
    scene.mainBar->setEnabled(true);
    QVERIFY(scene.barOf(sculpt)->isEnabled());
}

void TestToolbarManager::removedCommandLeavesItsBar()
{
    Scene scene;
    scene.show();
    const auto group = scene.begin(sculpt, {cut, smooth});
    const auto next = scene.begin(paint, {brush});
    const int width = scene.barOf(sculpt)->width();
    scene.manager->removeDynamicCommand(group->getCommand(cut));
    QCOMPARE(scene.idsOn(sculpt), QStringList({smooth}));
    QVERIFY(scene.barOf(sculpt)->width() < width);
    verifyLine(scene, {sculpt, paint});
    // Its button may live on, but it counts no more.
    scene.manager->removeDynamicCommand(group->getCommand(cut));
    QVERIFY(scene.barOf(sculpt));
}

void TestToolbarManager::lastCommandTakesTheBarAndItsLayer()
{
    Scene scene;
    scene.show();
    const auto group = scene.begin(sculpt, {cut, smooth});
    const QPointer<ToolBar> bar = scene.barOf(sculpt);
    const int layers = scene.countOfLayers();
    scene.manager->removeDynamicCommand(group->getCommand(smooth));
    QVERIFY(bar);
    scene.manager->removeDynamicCommand(group->getCommand(cut));
    QVERIFY(!bar);
    QVERIFY(!scene.separator()->isVisible());
    QTRY_COMPARE(scene.countOfLayers(), layers - 1);
    QVERIFY(!group->getCommand(cut)->toolButton());
}

void TestToolbarManager::commandOnTwoBarsLeavesOneAtATime()
{
    Scene scene;
    scene.show();
    const auto first = scene.begin(sculpt, {cut, smooth});
    const auto second = makeGroup(paint, {brush});
    second->addCommand(first->getCommand(cut));
    scene.manager->addDynamicCommandGroup(second.get());
    scene.manager->removeDynamicCommand(first->getCommand(cut));
    QCOMPARE(scene.idsOn(sculpt), QStringList({smooth}));
    QCOMPARE(scene.idsOn(paint), QStringList({brush, cut}));
    scene.manager->removeDynamicCommand(first->getCommand(cut));
    QCOMPARE(scene.idsOn(paint), QStringList({brush}));
}

void TestToolbarManager::removalLetsTheLineCloseUp()
{
    Scene scene;
    scene.show();
    const auto first = scene.begin(sculpt, {cut});
    const auto second = scene.begin(paint, {brush});
    scene.manager->removeDynamicCommand(first->getCommand(cut));
    QVERIFY(!scene.barOf(sculpt));
    verifyLine(scene, {paint});
    QVERIFY(scene.separator()->isVisible());
}

void TestToolbarManager::removalShowsNothingThatIsHidden()
{
    Scene scene;
    scene.show();
    const auto first = scene.begin(sculpt, {cut});
    const auto second = scene.begin(paint, {brush});
    scene.manager->setVisible(false);
    scene.manager->removeDynamicCommand(first->getCommand(cut));
    QVERIFY(!scene.separator()->isVisible());
    QVERIFY(!scene.barOf(paint)->isVisible());
}

void TestToolbarManager::groupIsRemovedAtAnyDepth()
{
    Scene scene;
    scene.show();
    const auto outer = makeGroup(sculpt, {cut});
    const auto inner = makeGroup(paint, {brush});
    const auto other = scene.begin(QStringLiteral("other"), {smooth});
    outer->addCommand(inner);
    scene.manager->addDynamicCommandGroup(outer.get());
    scene.manager->commandGroupBegan(outer.get());
    scene.manager->commandGroupBegan(inner.get());
    scene.manager->removeDynamicCommand(outer.get());
    QVERIFY(!scene.barOf(sculpt));
    QVERIFY(!scene.barOf(paint));
    verifyLine(scene, {QStringLiteral("other")});
}

void TestToolbarManager::removedBarIsForgotten()
{
    const Scene scene;
    bool isGone = false;
    HostManager manager(scene.mainBar, isGone);
    const auto removed = makeGroup(sculpt, {cut});
    const auto killed = makeGroup(paint, {brush});
    for (const auto &group : {removed, killed}) {
        manager.addDynamicCommandGroup(group.get());
        manager.commandGroupBegan(group.get());
    }
    QCOMPARE(manager.opened().visibleToolbarCount(), 2);
    manager.removeDynamicCommand(removed.get());
    delete manager.opened().toolbars.first();
    QVERIFY(manager.opened().toolbars.isEmpty());
    // A later bar can have the same address.
    QVERIFY(manager.opened().toolbarActive.isEmpty());
}

void TestToolbarManager::removedGroupCanComeBack()
{
    Scene scene;
    scene.show();
    const auto group = scene.begin(sculpt, {cut, smooth});
    scene.manager->removeDynamicCommand(group.get());
    QCOMPARE(scene.countOfBars(), 0);
    scene.manager->addDynamicCommandGroup(group.get());
    QCOMPARE(scene.idsOn(sculpt), QStringList({cut, smooth}));
    QVERIFY(!scene.barOf(sculpt)->isVisible());
    // It is not active any more, though nobody has ended it.
    scene.manager->commandGroupBegan(group.get());
    verifyLine(scene, {sculpt});
}

void TestToolbarManager::commandMayRemoveItselfAtAClick()
{
    Scene scene;
    scene.show();
    const auto group = scene.begin(sculpt, {cut});
    auto *const command = static_cast<TestCommand *>(group->getCommand(cut));
    command->work = [&scene, command](bool) {
        scene.manager->removeDynamicCommand(command);
        return true;
    };
    QTest::mouseClick(command->toolButton(), Qt::LeftButton);
    QCOMPARE(scene.countOfBars(), 0);
    QVERIFY(!scene.manager->findDynamicCommand(cut));
}

void TestToolbarManager::commandsAreFoundById()
{
    const Scene scene;
    const auto outer = makeGroup(sculpt, {cut});
    outer->addCommand(makeGroup(paint, {brush}));
    scene.manager->addDynamicCommandGroup(outer.get());
    QVERIFY(scene.manager->findDynamicCommand(cut));
    QVERIFY(scene.manager->findDynamicCommand(brush));
    QVERIFY(!scene.manager->findDynamicCommand(smooth));
    QVERIFY(!scene.manager->findDynamicCommand(QString()));
    scene.manager->removeDynamicCommand(outer->getCommand(cut));
    QVERIFY(!scene.manager->findDynamicCommand(cut));
}

void TestToolbarManager::panelOpensFromTheRow()
{
    Scene scene;
    scene.show();
    const auto group = makeGroup(sculpt, {cut});
    auto *const command = new PanelCommand(smooth);
    group->addCommand(command);
    scene.manager->addDynamicCommandGroup(group.get());
    scene.manager->commandGroupBegan(group.get());
    QTest::mouseClick(command->toolButton(), Qt::LeftButton);
    QVERIFY(command->flyout()->isVisible());
    scene.manager->commandGroupEnded(group.get());
    QVERIFY(!command->flyout()->isVisible());
}

void TestToolbarManager::openPanelFollowsItsBar()
{
    Scene scene;
    scene.window->resize(900, 600);
    scene.show();
    const auto first = scene.begin(paint, {brush, QStringLiteral("a"), QStringLiteral("b")});
    const auto group = makeGroup(sculpt, {});
    auto *const command = new PanelCommand(smooth);
    group->addCommand(command);
    scene.manager->addDynamicCommandGroup(group.get());
    scene.manager->commandGroupBegan(group.get());
    const ToolButton *const button = command->toolButton();
    QTest::mouseClick(command->toolButton(), Qt::LeftButton);
    const auto distance = [&] {
        return onScreen(command->flyout()).topLeft() - onScreen(button).topLeft();
    };
    const QPoint opened = distance();
    scene.manager->commandGroupEnded(first.get());
    QTRY_COMPARE(distance(), opened);
    scene.mainBar->move(120, 10);
    QTRY_COMPARE(distance(), opened);
}

void TestToolbarManager::panelOpenAtItsRemovalIsHarmless_data()
{
    QTest::addColumn<int>("way");

    QTest::newRow("command removed") << 0;
    QTest::newRow("group deleted") << 1;
    QTest::newRow("manager deleted") << 2;
    QTest::newRow("main bar deleted") << 3;
    QTest::newRow("window deleted") << 4;
}

void TestToolbarManager::panelOpenAtItsRemovalIsHarmless()
{
    QFETCH(const int, way);

    Scene scene;
    scene.show();
    auto group = makeGroup(sculpt, {});
    auto *const command = new PanelCommand(smooth);
    group->addCommand(command);
    scene.manager->addDynamicCommandGroup(group.get());
    scene.manager->commandGroupBegan(group.get());
    const QPointer<FlyoutBase> panel = command->flyout();
    QTest::mouseClick(command->toolButton(), Qt::LeftButton);
    QVERIFY(panel->isVisible());
    switch (way) {
    case 0:
        scene.manager->removeDynamicCommand(command);
        break;
    case 1:
        group.reset();
        break;
    case 2:
        delete scene.manager;
        break;
    case 3:
        delete scene.mainBar;
        break;
    default:
        scene.window.reset();
    }
    QCoreApplication::processEvents();
    QCOMPARE(panel && panel->isVisible(), way == 1 || way == 3);
}

void TestToolbarManager::broadcastReachesTheManager()
{
    Scene scene;
    scene.show();
    GroupStates states;
    states.addObserver(scene.manager);
    const auto group = makeGroup(sculpt, {cut});
    scene.manager->addDynamicCommandGroup(group.get());
    states.broadcast(&DynamicCommandGroupStateProtocol::commandGroupBegan, group.get());
    QTRY_VERIFY(scene.barOf(sculpt)->isVisible());
    states.broadcast(&DynamicCommandGroupStateProtocol::commandGroupEnded, group.get());
    QTRY_VERIFY(!scene.barOf(sculpt)->isVisible());
    states.removeObserver(scene.manager);
    states.broadcast(&DynamicCommandGroupStateProtocol::commandGroupBegan, group.get());
    QCoreApplication::processEvents();
    QVERIFY(!scene.barOf(sculpt)->isVisible());
}

void TestToolbarManager::announcementOfADeadGroupIsHarmless()
{
    Scene scene;
    scene.show();
    GroupStates states;
    states.addObserver(scene.manager);
    auto group = scene.begin(sculpt, {cut});
    QVERIFY(scene.barOf(sculpt)->isVisible());
    states.broadcast(&DynamicCommandGroupStateProtocol::commandGroupEnded, group.get());
    group.reset();
    QTRY_VERIFY(!scene.barOf(sculpt)->isVisible());

    auto removed = scene.begin(paint, {brush});
    states.broadcast(&DynamicCommandGroupStateProtocol::commandGroupEnded, removed.get());
    scene.manager->removeDynamicCommand(removed.get());
    removed.reset();
    QCoreApplication::processEvents();
    QVERIFY(!scene.barOf(paint));
    QVERIFY(!scene.separator()->isVisible());
}

void TestToolbarManager::groupIsNotTakenForADeadOneAtItsAddress()
{
    Scene scene;
    scene.show();
    GroupPlace place;
    auto group = place.make(sculpt, {cut});
    const std::shared_ptr<CommandBase> kept = group->commandBag().front().second;
    scene.manager->addDynamicCommandGroup(group.get());
    group.reset();
    runPosted();
    const auto ofAnotherManager = place.make(paint, {brush});
    scene.manager->commandGroupBegan(ofAnotherManager.get());
    QVERIFY(!scene.barOf(sculpt)->isVisible());
    QVERIFY(!scene.separator()->isVisible());
}

void TestToolbarManager::groupAtTheAddressOfADeadOneCanBeAdded()
{
    Scene scene;
    scene.show();
    GroupStates states;
    states.addObserver(scene.manager);
    GroupPlace place;
    auto group = place.make(sculpt, {cut});
    scene.manager->addDynamicCommandGroup(group.get());
    group.reset();
    group = place.make(paint, {brush});
    scene.manager->addDynamicCommandGroup(group.get());
    scene.manager->commandGroupBegan(group.get());
    // It is still known when the dead one is forgotten.
    runPosted();
    QVERIFY(scene.barOf(paint)->isVisible());
    states.broadcast(&DynamicCommandGroupStateProtocol::commandGroupEnded, group.get());
    group.reset();
    runPosted();
    QVERIFY(!scene.barOf(paint)->isVisible());
}

void TestToolbarManager::groupMayDieBeforeItIsRemoved()
{
    Scene scene;
    scene.show();
    auto group = scene.begin(sculpt, {cut, smooth});
    const std::shared_ptr<CommandBase> kept = group->commandBag().front().second;
    group.reset();
    QVERIFY(scene.manager->findDynamicCommand(cut));
    QVERIFY(!scene.manager->findDynamicCommand(smooth));
    scene.manager->removeDynamicCommand(kept.get());
    QVERIFY(!scene.manager->findDynamicCommand(cut));
    scene.mainBar->move(50, 60);
    verifyLine(scene, {sculpt});
}

void TestToolbarManager::managerTakesItsWidgetsAlong_data()
{
    QTest::addColumn<bool>("isFloating");

    QTest::newRow("child") << false;
    QTest::newRow("floating") << true;
}

void TestToolbarManager::managerTakesItsWidgetsAlong()
{
    QFETCH(const bool, isFloating);

    Scene scene(Qt::TopToolBarArea, isFloating);
    scene.show();
    const auto group = scene.begin(sculpt, {cut});
    const QPointer<ToolBar> bar = scene.barOf(sculpt);
    const QPointer<QLabel> separator = scene.separator();
    delete scene.manager;
    QVERIFY(!bar);
    QVERIFY(!separator);
    QTRY_COMPARE(scene.countOfLayers(), isFloating ? 1 : 0);
    scene.mainBar->move(1, 2);
    scene.mainBar->setEnabled(false);
}

void TestToolbarManager::windowTakesAllAlong_data()
{
    managerTakesItsWidgetsAlong_data();
}

void TestToolbarManager::windowTakesAllAlong()
{
    QFETCH(const bool, isFloating);

    Scene scene(Qt::TopToolBarArea, isFloating);
    scene.show();
    const auto active = scene.begin(sculpt, {cut});
    const auto idle = makeGroup(paint, {brush});
    scene.manager->addDynamicCommandGroup(idle.get());
    const QPointer<ToolBar> bar = scene.barOf(sculpt);
    const QPointer<ToolBar> idleBar = scene.barOf(paint);
    const QPointer<QLabel> separator = scene.separator();
    scene.window.reset();
    QVERIFY(!scene.manager);
    QVERIFY(!bar);
    QVERIFY(!idleBar);
    QVERIFY(!separator);
    QCOMPARE(bool(scene.mainBar), isFloating);
}

void TestToolbarManager::managerWithoutAMainBarDoesNothing()
{
    ToolbarManager manager(nullptr);
    const auto group = makeGroup(sculpt, {cut});
    manager.addDynamicCommandGroup(group.get());
    manager.commandGroupBegan(group.get());
    manager.setVisible(true);
    manager.setVisible(false);
    manager.commandGroupEnded(group.get());
    QVERIFY(!manager.findDynamicCommand(cut));
    manager.removeDynamicCommand(group.get());
    QVERIFY(!group->getCommand(cut)->toolButton());
}

void TestToolbarManager::deadMainBarEndsTheRow()
{
    Scene scene;
    scene.show();
    const auto group = scene.begin(sculpt, {cut});
    const auto late = makeGroup(paint, {brush});
    delete scene.mainBar;
    scene.manager->addDynamicCommandGroup(late.get());
    QVERIFY(!scene.barOf(paint));
    group->addCommand(new TestCommand(smooth));
    scene.manager->addDynamicCommandGroup(group.get());
    scene.manager->setVisible(true);
    QVERIFY(scene.barOf(sculpt)->isVisible());
    scene.manager->commandGroupEnded(group.get());
    QVERIFY(!scene.barOf(sculpt)->isVisible());
    scene.manager->removeDynamicCommand(group.get());
    QVERIFY(!scene.barOf(sculpt));
}

void TestToolbarManager::deadBarLeavesTheRow()
{
    Scene scene;
    scene.show();
    const auto first = scene.begin(sculpt, {cut});
    const auto second = scene.begin(paint, {brush});
    delete scene.barOf(sculpt);
    QVERIFY(!scene.manager->findDynamicCommand(cut));
    scene.mainBar->move(30, 40);
    verifyLine(scene, {paint});
    scene.manager->removeDynamicCommand(first.get());
    scene.manager->commandGroupEnded(first.get());
    scene.manager->addDynamicCommandGroup(first.get());
    scene.manager->commandGroupBegan(first.get());
    verifyLine(scene, {paint, sculpt});
}

void TestToolbarManager::deadSeparatorLeavesTheRest()
{
    Scene scene;
    scene.show();
    const auto group = scene.begin(sculpt, {cut});
    delete scene.separator();
    scene.mainBar->move(30, 40);
    scene.manager->commandGroupEnded(group.get());
    QVERIFY(!scene.barOf(sculpt)->isVisible());
    scene.manager->commandGroupBegan(group.get());
    QVERIFY(scene.barOf(sculpt)->isVisible());
}

void TestToolbarManager::windowMayDieAtItsOwnBroadcast()
{
    Scene scene;
    scene.show();
    GroupStates states;
    states.addObserver(scene.manager);
    const auto group = scene.begin(sculpt, {cut});
    states.broadcast(&DynamicCommandGroupStateProtocol::commandGroupEnded, group.get());
    scene.window.reset();
    QCoreApplication::processEvents();
    QVERIFY(!scene.manager);
}

void TestToolbarManager::managerMayDieWhileABarIsShown_data()
{
    QTest::addColumn<bool>("byMainBar");

    QTest::newRow("the main bar is shown") << true;
    QTest::newRow("a group begins") << false;
}

void TestToolbarManager::managerMayDieWhileABarIsShown()
{
    QFETCH(const bool, byMainBar);

    Scene scene;
    scene.show();
    delete scene.manager;
    bool isGone = false;
    auto *const manager = new HostManager(scene.mainBar, isGone);
    const auto group = makeGroup(sculpt, {cut});
    manager->addDynamicCommandGroup(group.get());
    if (byMainBar) {
        manager->commandGroupBegan(group.get());
        manager->setVisible(false);
        scene.mainBar->hide();
    }
    HostPrivate &opened = manager->opened();
    // What is being shown can't be deleted within that, so it is taken out of the manager's hands.
    const std::unique_ptr<QWidget> shown(byMainBar ? static_cast<QWidget *>(opened.toolbars.first())
                                                   : opened.separators.first());
    EventHook hook(QEvent::Show, [&] {
        if (byMainBar)
            opened.toolbars.clear();
        else
            opened.separators.clear();
        delete manager;
    });
    shown->window()->installEventFilter(&hook);
    if (byMainBar)
        scene.mainBar->show();
    else
        manager->commandGroupBegan(group.get());
    QVERIFY(isGone);
}

void TestToolbarManager::nothingIsLookedUpForNull()
{
    const Scene scene;
    scene.manager->removeDynamicCommand(nullptr);
    scene.manager->commandGroupBegan(nullptr);
    scene.manager->commandGroupEnded(nullptr);
    QCOMPARE(scene.countOfBars(), 0);
    QVERIFY(!scene.separator()->isVisible());
}

LUMO_TEST_MAIN(TestToolbarManager)

#include "tst_toolbarmanager.moc"
