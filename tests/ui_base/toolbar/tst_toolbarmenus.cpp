// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include <ui_base/ToolBar>
#include <ui_base/ToolBarUtil>

#include "support/testcase.h"
#include "support/testmain.h"
#include "support/virtualorder.h"
#include "ui_base/popup/widgetposcalculator.h"
#include "ui_base/qtui/tooltip/tooltipobject.h"
#include "ui_base/toolbar/commandtree.h"

#include <lumo_common_res/String>

#include <QCursor>
#include <QGridLayout>
#include <QPropertyAnimation>

#include <algorithm>
#include <functional>
#include <random>

using Lumo::Test::addCommand;
using Lumo::Test::CommandsBar;
using Lumo::Test::iconOf;
using Lumo::Test::makeGroup;
using Lumo::Test::MenuBar;
using Lumo::Test::MenuScene;
using Lumo::Test::partsOf;
using Lumo::Test::Tree;
using Vela::UiBase::ArrowedWindow;
using Vela::UiBase::CommandBase;
using Vela::UiBase::CommandGroup;
using Vela::UiBase::EArrowPosition;
using Vela::UiBase::EDirection;
using Vela::UiBase::EWidgetsAlign;
using Vela::UiBase::FloatingLayer;
using Vela::UiBase::FlyoutBase;
using Vela::UiBase::ToolBar;
using Vela::UiBase::ToolBarPrivate;
using Vela::UiBase::ToolBarUtil;
using Vela::UiBase::ToolButton;
using Vela::UiBase::ToolButtonWithButtonMenu;
using Vela::UiBase::ToolButtonWithMenu;
using Vela::UiBase::ToolButtonWithWidgetMenu;

namespace {

const QString tools = Lumo::Test::toolsGroup();

/// Knows the operations for subclasses by their addresses.
class Operations : public CommandsBar
{
public:
    static bool standInTheirOrder()
    {
        return Lumo::Test::standInThisOrder(
            static_cast<ToolButton *(ToolBar::*)(CommandGroup *, CommandGroup *)>(
                &Operations::AddCommandGroup),
            static_cast<ToolButton *(ToolBar::*)(CommandGroup *)>(&Operations::AddCommandGroup),
            &ToolBar::RemoveCommand, &ToolBar::AutoPosition,
            static_cast<bool (ToolBar::*)()>(&ToolBar::Hovered), &Operations::AddSingleCommand,
            &Operations::RemoveSingleCommand, &Operations::CreateSubToolBar, &Operations::AddButton,
            &Operations::OnDismissWidgetMenu, &Operations::ButtonIconSizeDiff);
    }
};

/// A bar whose sub bars are those of the test, or none.
class OwnSubBars : public CommandsBar
{
public:
    using CommandsBar::CommandsBar;

    bool hasSubBars = true;
    bool hasButtons = true;
    QPointer<ToolBar> made;

protected:
    ToolBar *CreateSubToolBar(CommandGroup *group) override
    {
        made = hasSubBars ? CommandsBar::CreateSubToolBar(group) : nullptr;
        return made;
    }
    ToolButton *AddButton(ToolBar *menu, CommandGroup *group, int rank) override
    {
        return hasButtons ? CommandsBar::AddButton(menu, group, rank) : nullptr;
    }
};

QStringList textsOn(ToolBar *bar, bool includeSubMenus = false)
{
    QStringList texts;
    for (const ToolButton *const button : partsOf(*bar).CollectButtons<ToolButton>(includeSubMenus))
        texts << button->objectName();
    return texts;
}

/// The pixel in the middle of the gap that follows the button on its bar.
QColor colourBelow(const ToolButton &button)
{
    QWidget *bar = button.parentWidget();
    while (!qobject_cast<ToolBar *>(bar))
        bar = bar->parentWidget();
    const QPoint gap = button.mapTo(bar, QPoint(button.width() / 2, button.height()));
    return bar->grab().toImage().pixelColor(gap);
}

} // namespace

class TestToolBarMenus : public Lumo::Test::TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();

    void operationsStandInTheirOrder();
    void menuOfButtonsIsAdded();
    void menuOfAWidgetIsAdded();
    void whatIsMissingGivesNoButton();
    void oddRanksAreTaken_data();
    void oddRanksAreTaken();
    void createdButtonIsPlaced_data();
    void createdButtonIsPlaced();
    void createdButtonTakesItsParameters();
    void defaultsForMenusReachTheButton();
    void defaultsForASubBar();
    void barIsAsLargeAsItsContents();

    void subBarIsMadeForAGroup();
    void subBarOfAGridGroup();
    void subBarOfAGroupWithoutGridSize();
    void groupWithoutSubBarOrButtonIsLeftOut();
    void barWithoutParentHasNoSubBars();
    void flyoutCommandOpensItsWidget();
    void flyoutCommandWithoutWidgetHasNoButton();

    void treeIsBuilt();
    void treeIsBuiltOnce();
    void ranksOrderTheTree();
    void gridPlacesByRank();
    void treeHasPanelsAndSeparators();
    void treeHasItsRanks();
    void treeHasItsPaths();
    void linesHaveSeparatorsBetweenTheirButtons();
    void gridHasSeparatorsBetweenItsCells();
    void buttonsOfTheTreeAreCollectedDepthFirst();
    void choiceInTheTreeShowsOnItsGroup();
    void virtualGroupIsOnTheBarOfItsParent();
    void flyoutsOfTheTreeOpenThroughTheirGroups();
    void deepestFlyoutIsToldOfByItsOwnersBar();
    void removedCommandsLeaveTheTree();
    void treeIsTakenDownInAnyOrder_data();
    void treeIsTakenDownInAnyOrder();
    void removedCommandsComeBack();
    void removedFlyoutEndsExtendMode();
    void commandAddedLaterIsSeen();
    void buttonsOfGroupsHaveNames();

    void escapeClosesTheFirstOpenMenu();
    void escapeOnASubMenuIsIgnored();
    void escapeOnADisabledButtonIsIgnored();
    void escapeInAMenuAsksTheOwnerLater();
    void escapeSurvivesTheEndOfTheMenu();
    void escapeClosesADeepFlyout();
    void escapeIsLeftToASubclass();

    void clickOutsideClosesDirectMenus();
    void clickOfAMenuButtonLeavesItsMenuBarOpen();
    void toggleKeepsTheStateOfOthers();
    void lockLeavesTheMenusAlone();
    void hideAndShowBringBackWhatWasOpen_data();
    void hideAndShowBringBackWhatWasOpen();
    void slidingOutForgetsWhatWasOpen();
    void resizeMovesTheOpenMenu();
    void activeButtonThatDiesIsForgotten();

    void everythingEndsInEveryOrder_data();
    void everythingEndsInEveryOrder();
    void clickMayEndAnything_data();
    void clickMayEndAnything();
    void visibilityMayEndAnything_data();
    void visibilityMayEndAnything();
    void closingSubMenuMayEndAnything_data();
    void closingSubMenuMayEndAnything();
    void takingOverAPopupMayEndTheBar_data();
    void takingOverAPopupMayEndTheBar();
    void menuMayEndWhileItIsFilled();
    void newButtonMayEndAnything_data();
    void newButtonMayEndAnything();
    void barThatEndsHearsNothingOfItsMenus();
    void endsWhileItSlides();
};

void TestToolBarMenus::initTestCase()
{
    QCursor::setPos(790, 590);
}

void TestToolBarMenus::operationsStandInTheirOrder()
{
    QVERIFY(Operations::standInTheirOrder());
}

void TestToolBarMenus::menuOfButtonsIsAdded()
{
    MenuScene scene;
    QAction *const action = scene.action(QStringLiteral("Own"), true);
    MenuBar *const menu = scene.menu();
    scene.bar->SetButtonSize(QSize(40, 40));
    ToolButtonWithButtonMenu *const button = scene.bar->AddAction(
        action, iconOf(Qt::gray), menu, true, tools, 3, QStringLiteral("Choose"));
    QCOMPARE(button->GetMenu(), menu);
    QVERIFY(menu->opened()->hideOnButtonClick);
    QCOMPARE(menu->ButtonSize(), QSize(40, 40));
    QCOMPARE(button->size(), QSize(40, 40));
    QCOMPARE(button->iconSize(), scene.bar->IconSize());
    QCOMPARE(button->defaultAction(), action);
    QVERIFY(button->isCheckable());
    QCOMPARE(button->parentWidget()->objectName(), tools);
    QCOMPARE(scene.bar->opened()->buttonRanks.value(button), 3);
    QCOMPARE(button->GetTooltipObject()->objectName(), QStringLiteral("Choose"));
    scene.bar->AddAction(nullptr, QIcon(), menu, false);
    QVERIFY(!menu->opened()->hideOnButtonClick);
    // A bar without sizes learns them from its first button, and the menu with it.
    scene.bar->opened()->buttonSize = QSize(0, 0);
    scene.bar->AddAction(nullptr, iconOf(Qt::gray), menu, false);
    QVERIFY(!scene.bar->ButtonSize().isEmpty());
    QCOMPARE(menu->ButtonSize(), scene.bar->ButtonSize());
}

void TestToolBarMenus::menuOfAWidgetIsAdded()
{
    MenuScene scene;
    QAction *const action = scene.action(QStringLiteral("Own"));
    ToolButtonWithWidgetMenu *const button =
        scene.bar->AddAction(action, new QWidget(scene.window.get()), tools, 3);
    QCOMPARE(button->Action(), action);
    QCOMPARE(button->parentWidget()->objectName(), tools);
    QCOMPARE(scene.bar->opened()->buttonRanks.value(button), 3);
    QSignalSpy clicked(scene.bar, &ToolBar::ToolButtonClicked);
    button->click();
    QCOMPARE(clicked.count(), 1);
}

void TestToolBarMenus::whatIsMissingGivesNoButton()
{
    MenuScene scene;
    QSignalSpy changed(scene.bar, &ToolBar::LayoutChanged);
    auto *const widget = new QWidget(scene.window.get());
    QCOMPARE(scene.bar->AddAction(nullptr, widget), nullptr);
    QCOMPARE(scene.bar->AddAction(scene.action(), static_cast<QWidget *>(nullptr)), nullptr);
    QCOMPARE(scene.bar->AddAction(scene.action(), QIcon(), nullptr, true), nullptr);
    MenuBar *const menu = scene.menu();
    const std::unique_ptr<MenuBar> kept(menu);
    const auto create = [&](QWidget *parent, ToolBar *asMenu) {
        return ToolBar::CreateToolButton(parent, scene.action(), *scene.bar, asMenu, tools, QIcon(),
                                         0, true, true, QString(), QString());
    };
    QCOMPARE(create(nullptr, menu), nullptr);
    QCOMPARE(create(scene.window.get(), nullptr), nullptr);
    QCOMPARE(create(scene.window.get(), scene.bar), nullptr);
    QCOMPARE(changed.count(), 0);
}

void TestToolBarMenus::oddRanksAreTaken_data()
{
    QTest::addColumn<int>("gridSize");
    QTest::addColumn<Qt::ToolBarArea>("area");
    for (const int gridSize : {-1, 0, 1, 3}) {
        for (const auto area :
             {Qt::LeftToolBarArea, Qt::TopToolBarArea, Qt::AllToolBarAreas, Qt::NoToolBarArea})
            QTest::addRow("%d, %d", gridSize, int(area)) << gridSize << area;
    }
}

void TestToolBarMenus::oddRanksAreTaken()
{
    QFETCH(int, gridSize);
    QFETCH(Qt::ToolBarArea, area);
    MenuScene scene;
    auto *const bar = new MenuBar(gridSize, true, scene.window.get(), area);
    QList<ToolButton *> added;
    for (const int rank : {-5, std::numeric_limits<int>::min(), 0, 2, 2}) {
        added << bar->AddAction(scene.action(), new QWidget(scene.window.get()), tools, rank);
        added << bar->AddAction(nullptr, iconOf(Qt::gray), scene.menu(area), true, tools, rank);
    }
    bar->show();
    for (ToolButton *const button : qAsConst(added)) {
        QVERIFY(button);
        button->click();
        QVERIFY(qobject_cast<ToolButtonWithMenu *>(button)->IsMenuShowing());
    }
    bar->DismissLeafMenu();
    QVERIFY(!qobject_cast<ToolButtonWithMenu *>(added.last())->IsMenuShowing());
}

void TestToolBarMenus::createdButtonIsPlaced_data()
{
    QTest::addColumn<Qt::ToolBarArea>("area");
    QTest::addColumn<Qt::ToolBarArea>("menuArea");
    QTest::addColumn<int>("gridSize");
    QTest::addColumn<EDirection>("direction");
    QTest::addColumn<int>("offset");
    QTest::addColumn<EWidgetsAlign>("align");
    QTest::addColumn<QPoint>("additional");
    const auto left = Qt::LeftToolBarArea;
    const auto top = Qt::TopToolBarArea;
    const auto start = EWidgetsAlign::AlignStart;
    const auto centre = EWidgetsAlign::AlignCenter;
    QTest::newRow("line at a horizontal bar")
        << top << left << 0 << EDirection::Top << 5 << centre << QPoint(0, 0);
    QTest::newRow("line at a vertical bar")
        << left << top << 0 << EDirection::Right << 5 << centre << QPoint(0, 0);
    QTest::newRow("horizontal grid at a horizontal bar")
        << top << top << 2 << EDirection::Top << 7 << start << QPoint(-2, 2);
    QTest::newRow("horizontal grid at a vertical bar")
        << left << top << 2 << EDirection::Right << 7 << start << QPoint(0, -2);
    QTest::newRow("vertical grid at a horizontal bar")
        << top << left << 2 << EDirection::Top << 7 << start << QPoint(0, 0);
    QTest::newRow("vertical grid at a vertical bar")
        << left << left << 2 << EDirection::Right << 7 << start << QPoint(0, 0);
}

void TestToolBarMenus::createdButtonIsPlaced()
{
    QFETCH(Qt::ToolBarArea, area);
    QFETCH(Qt::ToolBarArea, menuArea);
    QFETCH(int, gridSize);
    QFETCH(EDirection, direction);
    QFETCH(int, offset);
    QFETCH(EWidgetsAlign, align);
    QFETCH(QPoint, additional);
    MenuScene scene(area);
    auto *const menu = new MenuBar(gridSize, true, scene.window.get(), menuArea);
    const ToolButtonWithButtonMenu *const button =
        ToolBar::CreateToolButton(scene.window.get(), nullptr, *scene.bar, menu, tools, QIcon(), 0,
                                  true, true, QString(), QString());
    const auto &calculator = *button->GetPosCalculator();
    QCOMPARE(calculator.Direction(), direction);
    QCOMPARE(calculator.BaseOffset(), offset);
    QCOMPARE(calculator.Alignment(), align);
    QCOMPARE(calculator.AdditionalOffset(), additional);
}

void TestToolBarMenus::createdButtonTakesItsParameters()
{
    MenuScene scene;
    MenuBar *const menu = scene.menu();
    auto *const child =
        menu->AddAction(scene.action(), new QWidget(scene.window.get()), QStringLiteral("w"));
    QAction *const action = scene.action(QStringLiteral("Own"), true);
    ToolButtonWithButtonMenu *const button = ToolBar::CreateToolButton(
        scene.window.get(), action, *scene.bar, menu, tools, iconOf(Qt::gray), 4, true, false,
        QStringLiteral("Choose"), QStringLiteral("chooser"));
    QVERIFY(!button->isCheckable()); // as told, whatever the action is
    QCOMPARE(button->objectName(), QStringLiteral("chooser"));
    QCOMPARE(child->ExtendController(), button);
    QVERIFY(menu->opened()->hideOnButtonClick);
}

void TestToolBarMenus::defaultsForMenusReachTheButton()
{
    MenuScene scene;
    ArrowedWindow::SArrowParam arrow;
    arrow.position = EArrowPosition::TopLeft;
    arrow.length = 15;
    scene.bar->SetButtonDefaultMenuParameters(false, arrow, 9, EDirection::Left,
                                              EWidgetsAlign::AlignEnd, QPoint(1, 2));
    auto *const widget = new QWidget(scene.window.get());
    const auto *const widgetMenu = scene.bar->AddAction(scene.action(), widget);
    const auto *const buttonMenu =
        scene.bar->AddAction(nullptr, iconOf(Qt::gray), scene.menu(), true);
    for (const ToolButtonWithMenu *const button :
         {static_cast<const ToolButtonWithMenu *>(widgetMenu),
          static_cast<const ToolButtonWithMenu *>(buttonMenu)}) {
        QCOMPARE(button->GetPosCalculator()->Direction(), EDirection::Left);
        QCOMPARE(button->GetPosCalculator()->BaseOffset(), 9);
        QCOMPARE(button->GetPosCalculator()->Alignment(), EWidgetsAlign::AlignEnd);
        QCOMPARE(button->GetPosCalculator()->AdditionalOffset(), QPoint(1, 2));
    }
    ArrowedWindow::SArrowParam current;
    widgetMenu->GetArrowedWindow()->GetCurrentArrowParam(current);
    QCOMPARE(current.position, EArrowPosition::TopLeft);
    QCOMPARE(current.length, 15);
    QVERIFY(!widgetMenu->GetArrowedWindow()->graphicsEffect());
    const auto *const without = scene.bar->AddAction(
        scene.action(), new QWidget(scene.window.get()), QString(), 0, true, false);
    QCOMPARE(without->GetPosCalculator()->BaseOffset(), 0);
}

void TestToolBarMenus::defaultsForASubBar()
{
    const MenuScene scene;
    MenuBar *const bar = scene.bar;
    bar->SetButtonSpacing(4);
    MenuBar *const sub = scene.menu();
    sub->ApplyDefaultToolbarParams(bar, QStringLiteral("group"));
    QCOMPARE(sub->GetTooltipGroupName(), QStringLiteral("group"));
    QCOMPARE(sub->GetButtonSpacing(), 4);
    const auto &tooltip = sub->opened()->defaultTooltip;
    QCOMPARE(tooltip.arrow.position, EArrowPosition::Left);
    QCOMPARE(tooltip.arrow.length, 10);
    QCOMPARE(tooltip.arrow.angle, 0);
    QCOMPARE(tooltip.offset, 5);
    QCOMPARE(tooltip.direction, EDirection::Right);
    QCOMPARE(tooltip.align, EWidgetsAlign::AlignCenter);
    QCOMPARE(tooltip.additionalOffset, QPoint(0, 0));
    sub->ApplyDefaultToolbarParams(nullptr, QString());
    QCOMPARE(sub->GetButtonSpacing(), 4);
    delete sub;
}

void TestToolBarMenus::barIsAsLargeAsItsContents()
{
    MenuScene scene;
    QVERIFY(scene.bar->sizeHint().isValid());
    scene.bar->AddAction(scene.action());
    scene.bar->AddAction(scene.action());
    // Margins of 1 around, a separator of 1 between the buttons.
    QCOMPARE(scene.bar->sizeHint(), QSize(38, 75));
    QCOMPARE(scene.bar->minimumSizeHint(), QSize(38, 75));
    QCOMPARE(scene.bar->size(), QSize(38, 75));
    const ToolBar sideless(scene.window.get(), Qt::NoToolBarArea);
    QVERIFY(!sideless.sizeHint().isValid());
}

void TestToolBarMenus::subBarIsMadeForAGroup()
{
    const MenuScene scene;
    auto *const bar = new CommandsBar(scene.window.get(), Qt::LeftToolBarArea);
    bar->SetTooltipGroup(QStringLiteral("mine"));
    bar->SetButtonSize(QSize(44, 44));
    bar->SetBorder(3, Qt::red, true);
    const auto group = makeGroup(QStringLiteral("line"));
    group->setGrid(false);
    const std::unique_ptr<ToolBar> sub(bar->CreateSubToolBar(group.get()));
    QVERIFY(!sub->IsGridLayout());
    QVERIFY(!sub->IsHorizontalLayout());
    QCOMPARE(sub->ButtonSize(), QSize(44, 44));
    QCOMPARE(sub->GetTooltipGroupName(),
             QString(Vela::Resource::String::COMMAND_TOOLPANEL_GROUP_ID));
    QCOMPARE(FloatingLayer::getWidgetOriginalParent(sub.get()), scene.window.get());
    QCOMPARE(partsOf(*sub).borderWidth, 3);
    QCOMPARE(partsOf(*sub).defaultTooltip.offset, 5);
    QCOMPARE(bar->CreateSubToolBar(nullptr), nullptr);
    QCOMPARE(bar->AddButton(sub.get(), nullptr, 0), nullptr);
    QCOMPARE(bar->AddButton(nullptr, group.get(), 0), nullptr);
}

void TestToolBarMenus::subBarOfAGridGroup()
{
    const MenuScene scene;
    auto *const bar = new CommandsBar(scene.window.get(), Qt::LeftToolBarArea);
    const auto group = makeGroup(QStringLiteral("grid"));
    group->setGridSize(3);
    const std::unique_ptr<ToolBar> sub(bar->CreateSubToolBar(group.get()));
    QVERIFY(sub->IsGridLayout());
    QVERIFY(sub->IsHorizontalLayout());
    QCOMPARE(partsOf(*sub).gridSize, 3);
    QVERIFY(!partsOf(*sub).gridRowMajor);
}

void TestToolBarMenus::subBarOfAGroupWithoutGridSize()
{
    const MenuScene scene;
    auto *const bar = new CommandsBar(scene.window.get(), Qt::LeftToolBarArea);
    for (const int size : {0, -3}) {
        const auto group = makeGroup(QStringLiteral("grid"));
        group->setGridSize(size);
        const std::unique_ptr<ToolBar> sub(bar->CreateSubToolBar(group.get()));
        QVERIFY(!sub->IsGridLayout());
        QVERIFY(sub->IsHorizontalLayout());
    }
}

void TestToolBarMenus::groupWithoutSubBarOrButtonIsLeftOut()
{
    const MenuScene scene;
    auto *const bar = new OwnSubBars(scene.window.get(), Qt::LeftToolBarArea);
    const auto parent = makeGroup(QStringLiteral("parent"));
    const auto group = makeGroup(QStringLiteral("line"));
    addCommand(*group, QStringLiteral("cut"));
    parent->addCommand(group);
    bar->hasSubBars = false;
    QCOMPARE(bar->AddCommandGroup(group.get(), parent.get()), nullptr);
    bar->hasSubBars = true;
    bar->hasButtons = false;
    QCOMPARE(bar->AddCommandGroup(group.get(), parent.get()), nullptr);
    QVERIFY(!bar->made);
    QVERIFY(!group->toolbar());
    QCOMPARE(bar->AddCommandGroup(nullptr, parent.get()), nullptr);
    QCOMPARE(bar->AddCommandGroup(group.get(), nullptr), nullptr);
    bar->hasButtons = true;
    QVERIFY(bar->AddCommandGroup(group.get(), parent.get()));
}

void TestToolBarMenus::barWithoutParentHasNoSubBars()
{
    CommandsBar bar(nullptr, Qt::LeftToolBarArea);
    const auto parent = makeGroup(QStringLiteral("parent"));
    const auto group = makeGroup(QStringLiteral("line"));
    parent->addCommand(group);
    QCOMPARE(bar.AddCommandGroup(group.get(), parent.get()), nullptr);
    QVERIFY(!group->toolbar());
}

void TestToolBarMenus::flyoutCommandOpensItsWidget()
{
    Tree tree;
    tree.smooth->setCheckable(true);
    ToolButton *const button =
        tree.commandsBar->AddSingleCommand(tree.smooth.get(), tree.line.get());
    QCOMPARE(Tree::buttonOf(tree.smooth), button);
    QVERIFY(button->isCheckable());
    QCOMPARE(button->property("CMDID_PROP").toString(), QStringLiteral("smooth"));
    QCOMPARE(button->objectName(), QStringLiteral("smooth"));
    QCOMPARE(tree.smoothPanel->ToolButton(), button);
    QCOMPARE(tree.commandsBar->AddSingleCommand(tree.smooth.get(), tree.line.get()), button);
    tree.commandsBar->show();
    QTest::mouseClick(button, Qt::LeftButton);
    QVERIFY(tree.smoothPanel->isVisible());
}

void TestToolBarMenus::flyoutCommandWithoutWidgetHasNoButton()
{
    Tree tree;
    delete tree.smoothPanel;
    QCOMPARE(tree.commandsBar->AddSingleCommand(tree.smooth.get(), tree.line.get()), nullptr);
    tree.build();
    QVERIFY(!tree.smooth->toolButton());
    QCOMPARE(textsOn(tree.line->toolbar()),
             QStringList() << QStringLiteral("cut") << QStringLiteral("copy")
                           << QStringLiteral("paste") << QStringLiteral("inner"));
}

void TestToolBarMenus::treeIsBuilt()
{
    Tree tree;
    tree.build();
    QCOMPARE(textsOn(tree.commandsBar),
             QStringList() << QStringLiteral("open") << QStringLiteral("line")
                           << QStringLiteral("grid"));
    QCOMPARE(textsOn(tree.line->toolbar()),
             QStringList() << QStringLiteral("cut") << QStringLiteral("copy")
                           << QStringLiteral("paste") << QStringLiteral("smooth")
                           << QStringLiteral("inner"));
    QCOMPARE(textsOn(tree.inner->toolbar()),
             QStringList() << QStringLiteral("up") << QStringLiteral("down")
                           << QStringLiteral("measure"));
    QCOMPARE(tree.top->toolbar(), tree.commandsBar.data());
    QVERIFY(!tree.top->toolButton());
    for (const auto &group : {tree.line, tree.grid, tree.inner}) {
        const ToolButtonWithButtonMenu *const button = Tree::buttonOf(group);
        QVERIFY(button);
        QCOMPARE(button->GetMenu(), group->toolbar());
        QCOMPARE(button->defaultAction(), nullptr);
        QVERIFY(button->actions().isEmpty());
        QVERIFY(button->isCheckable());
        QVERIFY(!button->property("CMDID_PROP").isValid());
        QCOMPARE(group->toolbar()->GetBaseToolBar(), tree.commandsBar.data());
    }
    QVERIFY(tree.grid->toolbar()->IsGridLayout());
    QVERIFY(!tree.inner->toolbar()->IsGridLayout());
    QVERIFY(!tree.virtualGroup->toolbar());
}

void TestToolBarMenus::treeIsBuiltOnce()
{
    Tree tree;
    tree.build();
    const QStringList texts = textsOn(tree.commandsBar, true);
    const QList<ToolBar *> bars {tree.line->toolbar(), tree.grid->toolbar(), tree.inner->toolbar()};
    tree.build();
    QCOMPARE(textsOn(tree.commandsBar, true), texts);
    const QList<ToolBar *> now {tree.line->toolbar(), tree.grid->toolbar(), tree.inner->toolbar()};
    QCOMPARE(now, bars);
    QSignalSpy told(tree.line->toolbar(), &ToolBar::ButtonMenuVisibilityChange);
    Tree::buttonOf(tree.inner)->ShowMenu();
    QCOMPARE(told.count(), 1);
}

void TestToolBarMenus::ranksOrderTheTree()
{
    Tree tree;
    tree.line->setCommandRank(QStringLiteral("cut"), 9);
    tree.top->setCommandRank(tree.grid->commandId(), 1);
    tree.build();
    tree.commandsBar->show();
    tree.line->toolbar()->show();
    const auto y = [](const ToolButton *button) { return button->mapToGlobal(QPoint()).y(); };
    QVERIFY(y(tree.grid->toolButton()) < y(tree.line->toolButton()));
    QVERIFY(y(tree.command(QStringLiteral("open"))->toolButton()) < y(tree.grid->toolButton()));
    const QStringList order {QStringLiteral("copy"), QStringLiteral("paste"),
                             QStringLiteral("smooth"), QStringLiteral("cut")};
    for (int i = 1; i < order.size(); ++i)
        QVERIFY(y(tree.command(order[i - 1])->toolButton())
                < y(tree.command(order[i])->toolButton()));
    QVERIFY(y(tree.command(QStringLiteral("smooth"))->toolButton()) < y(tree.inner->toolButton()));
}

void TestToolBarMenus::gridPlacesByRank()
{
    Tree tree;
    tree.build();
    const auto cellOf = [&tree](const char *id) {
        ToolButton *const button = tree.command(QString::fromLatin1(id))->toolButton();
        auto *const layout = qobject_cast<QGridLayout *>(button->parentWidget()->layout());
        int row = -1;
        int column = -1;
        int span = 0;
        layout->getItemPosition(layout->indexOf(button), &row, &column, &span, &span);
        return QPoint(column, row);
    };
    // Two rows, filled column by column.
    QCOMPARE(cellOf("one"), QPoint(0, 0));
    QCOMPARE(cellOf("three"), QPoint(0, 1));
    QCOMPARE(cellOf("two"), QPoint(1, 1));
}

void TestToolBarMenus::treeHasPanelsAndSeparators()
{
    Tree tree;
    tree.command(QStringLiteral("paste"))->setBaseGroupName(QStringLiteral("other"));
    tree.build();
    ToolBar *const line = tree.line->toolbar();
    ToolBarPrivate &parts = partsOf(*line);
    QCOMPARE(parts.panels.keys(), QStringList() << QStringLiteral("other") << tools);
    line->SetButtonSeparatorColor(Qt::magenta);
    Tree::buttonOf(tree.line)->ShowMenu();
    QCOMPARE(colourBelow(*tree.command(QStringLiteral("cut"))->toolButton()), QColor(Qt::magenta));
    QVERIFY(colourBelow(*tree.command(QStringLiteral("paste"))->toolButton())
            != QColor(Qt::magenta));
    parts.EnsurePaths();
    QCOMPARE(parts.panelPaths.size(), 2);
    QCOMPARE(parts.backgroundPath.boundingRect().toRect(), line->rect());
}

void TestToolBarMenus::treeHasItsRanks()
{
    Tree tree;
    tree.build();
    const auto ranksOn = [](ToolBar *bar) {
        QMap<QString, int> ranks;
        const auto &parts = partsOf(*bar);
        for (auto it = parts.buttonRanks.begin(); it != parts.buttonRanks.end(); ++it)
            ranks.insert(it.key()->objectName(), it.value());
        return ranks;
    };
    const auto name = [](const char *text) { return QString::fromLatin1(text); };
    QCOMPARE(ranksOn(tree.commandsBar),
             (QMap<QString, int> {{name("open"), 1}, {name("line"), 2}, {name("grid"), 3}}));
    QCOMPARE(ranksOn(tree.line->toolbar()),
             (QMap<QString, int> {{name("cut"), 1},
                                  {name("copy"), 2},
                                  {name("paste"), 3},
                                  {name("smooth"), 4},
                                  {name("inner"), 5}}));
    QCOMPARE(ranksOn(tree.inner->toolbar()),
             (QMap<QString, int> {{name("up"), 1}, {name("down"), 2}, {name("measure"), 3}}));
    QCOMPARE(ranksOn(tree.grid->toolbar()),
             (QMap<QString, int> {{name("one"), 1}, {name("two"), 4}, {name("three"), 2}}));
}

void TestToolBarMenus::treeHasItsPaths()
{
    Tree tree;
    tree.command(QStringLiteral("paste"))->setBaseGroupName(QStringLiteral("other"));
    tree.build();
    const QList<ToolBar *> bars {tree.commandsBar, tree.line->toolbar(), tree.inner->toolbar(),
                                 tree.grid->toolbar()};
    for (ToolBar *const bar : bars) {
        bar->show();
        ToolBarPrivate &parts = partsOf(*bar);
        parts.EnsurePaths();
        QCOMPARE(parts.backgroundPath.boundingRect().toRect(), bar->rect());
        QCOMPARE(parts.panels.size(), bar == tree.line->toolbar() ? 2 : 1);
        QCOMPARE(parts.panelPaths.keys().size(), parts.panels.size());
        for (QWidget *const panel : qAsConst(parts.panels))
            QCOMPARE(parts.panelPaths.value(panel).boundingRect().toRect(), panel->geometry());
    }
}

void TestToolBarMenus::linesHaveSeparatorsBetweenTheirButtons()
{
    Tree tree;
    tree.build();
    ToolBar *const line = tree.line->toolbar();
    line->show();
    ToolBarPrivate &parts = partsOf(*line);
    parts.EnsurePaths();
    // Buttons of 36 with a pixel around them all and between each two, the separator 4 off the ends.
    QCOMPARE(parts.separatorRects,
             (QVector<QRect> {{5, 37, 28, 1}, {5, 74, 28, 1}, {5, 111, 28, 1}, {5, 148, 28, 1}}));
}

void TestToolBarMenus::gridHasSeparatorsBetweenItsCells()
{
    Tree tree;
    tree.build();
    ToolBar *const grid = tree.grid->toolbar();
    grid->show();
    ToolBarPrivate &parts = partsOf(*grid);
    parts.EnsurePaths();
    // In the order of adding: the first in the upper left cell, the second in the lower right one, the
    // third, taken for one of the second column, in the lower left one.
    QCOMPARE(parts.separatorRects,
             (QVector<QRect> {{5, 37, 28, 1}, {37, 5, 1, 28}, {74, 42, 1, 28}, {5, 74, 28, 1}}));
}

void TestToolBarMenus::buttonsOfTheTreeAreCollectedDepthFirst()
{
    Tree tree;
    tree.build();
    QCOMPARE(textsOn(tree.commandsBar, true),
             QStringList() << QStringLiteral("open") << QStringLiteral("line")
                           << QStringLiteral("cut") << QStringLiteral("copy")
                           << QStringLiteral("paste") << QStringLiteral("smooth")
                           << QStringLiteral("inner") << QStringLiteral("up")
                           << QStringLiteral("down") << QStringLiteral("measure")
                           << QStringLiteral("grid") << QStringLiteral("one")
                           << QStringLiteral("two") << QStringLiteral("three"));
    const auto *const opened = tree.commandsBar->opened();
    QCOMPARE(opened->CollectButtons<ToolButtonWithButtonMenu>(true).size(), 3);
    QCOMPARE(opened->CollectButtons<ToolButtonWithButtonMenu>(false).size(), 2);
    QCOMPARE(opened->CollectButtons<ToolButtonWithMenu>(true).size(), 5);
    QCOMPARE(opened->CollectButtons<ToolButtonWithWidgetMenu>(false).size(), 0);
}

void TestToolBarMenus::choiceInTheTreeShowsOnItsGroup()
{
    Tree tree;
    tree.command(QStringLiteral("one"))->setCheckable(true);
    tree.build();
    tree.commandsBar->show();
    ToolButtonWithButtonMenu *const button = Tree::buttonOf(tree.grid);
    QTest::mouseClick(button, Qt::LeftButton);
    QVERIFY(button->IsMenuShowing());
    QTest::mouseClick(tree.command(QStringLiteral("one"))->toolButton(), Qt::LeftButton);
    QVERIFY(!button->IsMenuShowing());
    QVERIFY(button->isChecked());
    QCOMPARE(Lumo::Test::colourOf(*button), QColor(Qt::green));
}

void TestToolBarMenus::virtualGroupIsOnTheBarOfItsParent()
{
    Tree tree;
    tree.build();
    const ToolButton *const copy = tree.command(QStringLiteral("copy"))->toolButton();
    QVERIFY(Tree::buttonOf(tree.line)->IsSubMenuButton(const_cast<ToolButton *>(copy)));
}

void TestToolBarMenus::flyoutsOfTheTreeOpenThroughTheirGroups()
{
    Tree tree;
    tree.build();
    tree.commandsBar->show();
    ToolButtonWithButtonMenu *const line = Tree::buttonOf(tree.line);
    ToolButtonWithWidgetMenu *const smooth = Tree::buttonOf(tree.smooth);
    QCOMPARE(smooth->ExtendController(), line);
    QCOMPARE(Tree::buttonOf(tree.measure)->ExtendController(), Tree::buttonOf(tree.inner));
    line->click();
    QTest::mouseClick(smooth, Qt::LeftButton);
    QVERIFY(line->IsStandingInFor(smooth));
    QVERIFY(tree.smoothPanel->isVisible());
    QVERIFY(!tree.line->toolbar()->isVisible());
    QCOMPARE(tree.commandsBar->GetActiveButton(), smooth);
    QTest::mouseClick(line, Qt::LeftButton);
    QVERIFY(!tree.smoothPanel->isVisible());
    QCOMPARE(tree.smooth->ends, 1);
    // At a second build the mode is switched off and on again.
    tree.build();
    QSignalSpy requested(line, &ToolButtonWithMenu::ButtonMenuVisibilityChange);
    Q_EMIT smooth->RequestShowMenu();
    QVERIFY(line->IsStandingInFor(smooth));
}

void TestToolBarMenus::deepestFlyoutIsToldOfByItsOwnersBar()
{
    Tree tree;
    tree.build();
    tree.commandsBar->show();
    QSignalSpy inner(tree.inner->toolbar(), &ToolBar::ButtonMenuVisibilityChange);
    QSignalSpy line(tree.line->toolbar(), &ToolBar::ButtonMenuVisibilityChange);
    Tree::buttonOf(tree.measure)->ShowMenu();
    QCOMPARE(inner.count(), 1);
    QCOMPARE(line.count(), 1);
}

void TestToolBarMenus::removedCommandsLeaveTheTree()
{
    Tree tree;
    tree.build();
    QVERIFY(tree.commandsBar->RemoveCommand(tree.command(QStringLiteral("up"))));
    QVERIFY(!tree.commandsBar->RemoveCommand(tree.command(QStringLiteral("up"))));
    QVERIFY(tree.inner->toolbar()->RemoveCommand(tree.command(QStringLiteral("one"))));
    QCOMPARE(textsOn(tree.inner->toolbar()).size(), 2);
    QCOMPARE(textsOn(tree.grid->toolbar()).size(), 2);
    QVERIFY(!tree.commandsBar->RemoveCommand(tree.top.get())); // two are gone already
    QVERIFY(textsOn(tree.line->toolbar()).contains(QStringLiteral("inner")));
    QCOMPARE(textsOn(tree.commandsBar, true),
             QStringList() << QStringLiteral("line") << QStringLiteral("inner")
                           << QStringLiteral("grid"));
}

void TestToolBarMenus::treeIsTakenDownInAnyOrder_data()
{
    QTest::addColumn<unsigned>("seed");
    for (unsigned seed = 0; seed < 40; ++seed)
        QTest::addRow("order %u", seed) << seed;
}

// By any bar of the tree, with menus open, one command after the other.
void TestToolBarMenus::treeIsTakenDownInAnyOrder()
{
    QFETCH(unsigned, seed);
    std::mt19937 random(seed);
    Tree tree;
    tree.build();
    tree.commandsBar->show();
    Tree::buttonOf(tree.line)->ShowMenu();
    Tree::buttonOf(seed % 2 ? tree.inner : tree.grid)->ShowMenu();
    const QStringList all = textsOn(tree.commandsBar, true);
    QStringList left = all;
    const QStringList groups {QStringLiteral("line"), QStringLiteral("inner"),
                              QStringLiteral("grid")};
    QStringList commands = all;
    for (const QString &group : groups)
        commands.removeAll(group);
    std::shuffle(commands.begin(), commands.end(), random);
    ToolBar *const bars[] = {tree.commandsBar, tree.line->toolbar(), tree.inner->toolbar(),
                             tree.grid->toolbar()};
    for (const QString &id : qAsConst(commands)) {
        QVERIFY(bars[random() % 4]->RemoveCommand(tree.command(id)));
        left.removeAll(id);
        QCOMPARE(textsOn(tree.commandsBar, true), left);
        QVERIFY(!bars[random() % 4]->RemoveCommand(tree.command(id)));
        for (ToolBar *const bar : bars)
            QCOMPARE(partsOf(*bar).panels.keys(), partsOf(*bar).buttonsByGroup.keys());
    }
    QVERIFY(partsOf(*tree.inner->toolbar()).panels.isEmpty());
    QVERIFY(partsOf(*tree.grid->toolbar()).panels.isEmpty());
    QCOMPARE(left, groups);
    tree.build();
    QStringList back = textsOn(tree.commandsBar, true);
    back.sort();
    QStringList sorted = all;
    sorted.sort();
    QCOMPARE(back, sorted);
}

void TestToolBarMenus::removedCommandsComeBack()
{
    Tree tree;
    tree.build();
    const int count = textsOn(tree.commandsBar, true).size();
    for (int i = 0; i < 3; ++i) {
        QVERIFY(tree.commandsBar->RemoveCommand(tree.top.get()));
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        tree.build();
        QCOMPARE(textsOn(tree.commandsBar, true).size(), count);
        QVERIFY(tree.smoothPanel);
    }
    tree.commandsBar->show();
    Tree::buttonOf(tree.smooth)->click();
    QVERIFY(tree.smoothPanel->isVisible());
    QVERIFY(Tree::buttonOf(tree.line)->IsInExtendMode());
}

void TestToolBarMenus::removedFlyoutEndsExtendMode()
{
    for (const bool isLast : {false, true}) {
        Tree tree;
        tree.smooth->setBaseGroupName(isLast ? QStringLiteral("alone") : tools);
        tree.build();
        tree.commandsBar->show();
        Tree::buttonOf(tree.smooth)->click();
        QVERIFY(Tree::buttonOf(tree.line)->IsInExtendMode());
        QVERIFY(tree.commandsBar->RemoveCommand(tree.smooth.get()));
        QVERIFY(!tree.smoothPanel->isVisible());
        QVERIFY(!Tree::buttonOf(tree.line)->IsInExtendMode());
        QCOMPARE(tree.smooth->ends, 1);
    }
}

void TestToolBarMenus::commandAddedLaterIsSeen()
{
    Tree tree;
    tree.build();
    tree.commandsBar->show();
    ToolButtonWithButtonMenu *const grid = Tree::buttonOf(tree.grid);
    grid->ShowMenu();
    const int width = tree.grid->toolbar()->width();
    addCommand(*tree.grid, QStringLiteral("seven"), 7);
    tree.build();
    ToolButton *const button = tree.command(QStringLiteral("seven"))->toolButton();
    QTRY_VERIFY(button->isVisible());
    QVERIFY(tree.grid->toolbar()->width() > width);
    QVERIFY(tree.grid->toolbar()->rect().contains(
        button->geometry().translated(button->parentWidget()->pos())));
}

void TestToolBarMenus::buttonsOfGroupsHaveNames()
{
    Tree tree;
    tree.line->setToolTip(QStringLiteral("<b>Lines</b>"));
    tree.grid->setToolTip(QString());
    tree.build();
    QCOMPARE(tree.line->toolButton()->accessibleName(), QStringLiteral("Lines"));
    QCOMPARE(tree.grid->toolButton()->accessibleName(), tree.grid->commandId());
}

void TestToolBarMenus::escapeClosesTheFirstOpenMenu()
{
    Tree tree;
    tree.build();
    tree.commandsBar->show();
    tree.commandsBar->DismissLeafMenu();
    Tree::buttonOf(tree.line)->ShowMenu();
    Tree::buttonOf(tree.grid)->ShowMenu();
    Tree::buttonOf(tree.line)->ShowMenu();
    Tree::buttonOf(tree.inner)->ShowMenu();
    // Opening one by one from code leaves both branches open only without toggles.
    const bool wasGridOpen = Tree::buttonOf(tree.grid)->IsMenuShowing();
    tree.commandsBar->DismissLeafMenu();
    QVERIFY(!Tree::buttonOf(tree.line)->IsMenuShowing());
    QVERIFY(!Tree::buttonOf(tree.inner)->IsMenuShowing()); // hidden with the menu that it is on
    QCOMPARE(Tree::buttonOf(tree.grid)->IsMenuShowing(), wasGridOpen);
}

void TestToolBarMenus::escapeOnASubMenuIsIgnored()
{
    Tree tree;
    tree.build();
    tree.commandsBar->show();
    Tree::buttonOf(tree.line)->ShowMenu();
    Tree::buttonOf(tree.inner)->ShowMenu();
    tree.line->toolbar()->DismissLeafMenu();
    QVERIFY(Tree::buttonOf(tree.inner)->IsMenuShowing());
    QVERIFY(Tree::buttonOf(tree.line)->IsMenuShowing());
}

void TestToolBarMenus::escapeOnADisabledButtonIsIgnored()
{
    Tree tree;
    tree.build();
    tree.commandsBar->show();
    ToolButtonWithButtonMenu *const grid = Tree::buttonOf(tree.grid);
    grid->ShowMenu();
    grid->setEnabled(false);
    tree.commandsBar->DismissLeafMenu();
    QVERIFY(grid->IsMenuShowing());
    Tree::buttonOf(tree.smooth)->click();
    Tree::buttonOf(tree.smooth)->setEnabled(false);
    grid->HideMenu();
    tree.commandsBar->DismissLeafMenu();
    QCoreApplication::processEvents();
    QVERIFY(tree.smoothPanel->isVisible());
}

void TestToolBarMenus::escapeInAMenuAsksTheOwnerLater()
{
    Tree tree;
    tree.build();
    tree.commandsBar->show();
    ToolButtonWithButtonMenu *const line = Tree::buttonOf(tree.line);
    Tree::buttonOf(tree.smooth)->click();
    QSignalSpy clicked(line, &ToolButton::ToolButtonClicked);
    tree.commandsBar->DismissLeafMenu();
    QCOMPARE(clicked.count(), 0);
    QVERIFY(tree.smoothPanel->isVisible());
    QCoreApplication::processEvents();
    QCOMPARE(clicked.count(), 1);
    QVERIFY(!tree.smoothPanel->isVisible());
    QVERIFY(!line->IsInExtendMode());
    QCOMPARE(tree.smooth->ends, 1);
}

void TestToolBarMenus::escapeSurvivesTheEndOfTheMenu()
{
    for (const bool isOwner : {false, true}) {
        Tree tree;
        tree.build();
        tree.commandsBar->show();
        Tree::buttonOf(tree.smooth)->click();
        tree.commandsBar->DismissLeafMenu();
        if (isOwner)
            delete Tree::buttonOf(tree.line);
        else
            delete Tree::buttonOf(tree.smooth);
        QCoreApplication::processEvents();
        QVERIFY(!tree.smoothPanel->isVisible());
        tree.commandsBar->OnDismissWidgetMenu(nullptr, nullptr);
    }
}

void TestToolBarMenus::escapeClosesADeepFlyout()
{
    Tree tree;
    tree.build();
    tree.commandsBar->show();
    Tree::buttonOf(tree.measure)->click();
    QVERIFY(tree.measurePanel->isVisible());
    tree.commandsBar->DismissLeafMenu();
    QVERIFY(!tree.measurePanel->isVisible()); // at once: it stands in no menu of the base bar
    QCOMPARE(tree.measure->ends, 1);
    QVERIFY(!Tree::buttonOf(tree.inner)->IsInExtendMode());
}

void TestToolBarMenus::escapeIsLeftToASubclass()
{
    class Bar : public CommandsBar
    {
    public:
        using CommandsBar::CommandsBar;
        QList<ToolButton *> asked;

    protected:
        void OnDismissWidgetMenu(ToolButtonWithButtonMenu *owner,
                                 ToolButtonWithWidgetMenu *leaf) override
        {
            asked << owner << leaf;
            Q_EMIT leaf->ESCKeyReleased();
        }
    };
    Tree tree;
    auto *const bar = new Bar(tree.window.get(), Qt::LeftToolBarArea);
    tree.top->setToolbar(bar);
    tree.build();
    bar->ToolBar::AddCommandGroup(tree.top.get());
    bar->show();
    Tree::buttonOf(tree.smooth)->click();
    QSignalSpy escape(tree.smoothPanel, &FlyoutBase::ESCKeyReleased);
    bar->DismissLeafMenu();
    QCOMPARE(bar->asked,
             QList<ToolButton *>() << Tree::buttonOf(tree.line) << Tree::buttonOf(tree.smooth));
    QCOMPARE(escape.count(), 1);
}

void TestToolBarMenus::clickOutsideClosesDirectMenus()
{
    Tree tree;
    tree.build();
    tree.commandsBar->show();
    Tree::buttonOf(tree.line)->ShowMenu();
    tree.line->toolbar()->SetKeepStateOnClickOutside(true);
    tree.commandsBar->OnMouseClickedOutside();
    QVERIFY(Tree::buttonOf(tree.line)->IsMenuShowing());
    tree.line->toolbar()->SetKeepStateOnClickOutside(false);
    tree.commandsBar->OnMouseClickedOutside();
    QVERIFY(!Tree::buttonOf(tree.line)->IsMenuShowing());
    auto *const widget = new QWidget(tree.window.get());
    ToolButtonWithWidgetMenu *const plain = tree.commandsBar->AddAction(tree.action(), widget);
    plain->ShowMenu();
    tree.commandsBar->OnMouseClickedOutside();
    QVERIFY(plain->IsMenuShowing());
}

void TestToolBarMenus::clickOfAMenuButtonLeavesItsMenuBarOpen()
{
    Tree tree;
    tree.build();
    tree.commandsBar->show();
    Tree::buttonOf(tree.line)->click();
    Tree::buttonOf(tree.inner)->click();
    QVERIFY(Tree::buttonOf(tree.line)->IsMenuShowing());
    QVERIFY(Tree::buttonOf(tree.inner)->IsMenuShowing());
    tree.command(QStringLiteral("up"))->toolButton()->click();
    QVERIFY(!Tree::buttonOf(tree.inner)->IsMenuShowing());
    QVERIFY(Tree::buttonOf(tree.line)->IsMenuShowing());
}

void TestToolBarMenus::toggleKeepsTheStateOfOthers()
{
    Tree tree;
    tree.build();
    tree.commandsBar->show();
    ToolButtonWithButtonMenu *const line = Tree::buttonOf(tree.line);
    ToolButtonWithButtonMenu *const grid = Tree::buttonOf(tree.grid);
    line->ShowMenu();
    grid->setChecked(true); // the group has its button hide the others
    QVERIFY(!line->IsMenuShowing());
    QVERIFY(line->SaveMenuState());
    QCOMPARE(line->SavedMenuOwner(), line);
}

void TestToolBarMenus::lockLeavesTheMenusAlone()
{
    Tree tree;
    tree.build();
    tree.commandsBar->SetLocked(true);
    ToolButton *const line = tree.line->toolButton();
    ToolButton *const cut = tree.command(QStringLiteral("cut"))->toolButton();
    QSignalSpy locked(line, &ToolButton::ToolButtonClicked);
    QSignalSpy open(cut, &ToolButton::ToolButtonClicked);
    line->click();
    cut->click();
    QCOMPARE(locked.count(), 0);
    QCOMPARE(open.count(), 1);
}

void TestToolBarMenus::hideAndShowBringBackWhatWasOpen_data()
{
    QTest::addColumn<QString>("how");
    QTest::addColumn<bool>("isKept");
    QTest::newRow("hide") << QStringLiteral("hide") << true;
    QTest::newRow("hide me, keep") << QStringLiteral("keep") << true;
    QTest::newRow("hide me") << QStringLiteral("forget") << false;
    QTest::newRow("window") << QStringLiteral("window") << true;
}

void TestToolBarMenus::hideAndShowBringBackWhatWasOpen()
{
    QFETCH(QString, how);
    QFETCH(bool, isKept);
    Tree tree;
    tree.build();
    tree.commandsBar->show();
    ToolButtonWithButtonMenu *const line = Tree::buttonOf(tree.line);
    ToolButtonWithButtonMenu *const inner = Tree::buttonOf(tree.inner);
    line->ShowMenu();
    inner->ShowMenu();
    for (int i = 0; i < 2; ++i) {
        if (how == QStringLiteral("hide"))
            tree.commandsBar->hide();
        else if (how == QStringLiteral("window"))
            tree.window->hide();
        else
            tree.commandsBar->HideMe(how == QStringLiteral("keep"));
        QVERIFY(!line->IsMenuShowing());
        QVERIFY(!inner->IsMenuShowing());
        tree.window->show();
        tree.commandsBar->ShowMe();
        QCOMPARE(line->IsMenuShowing(), isKept);
        QCOMPARE(inner->IsMenuShowing(), isKept);
        QVERIFY(!Tree::buttonOf(tree.grid)->IsMenuShowing());
    }
}

void TestToolBarMenus::slidingOutForgetsWhatWasOpen()
{
    Tree tree;
    tree.build();
    tree.commandsBar->show();
    Tree::buttonOf(tree.smooth)->click();
    tree.commandsBar->HideAnimated();
    QVERIFY(!tree.smoothPanel->isVisible());
    QVERIFY(!Tree::buttonOf(tree.line)->IsInExtendMode());
    QCOMPARE(tree.smooth->ends, 1);
    for (auto *const slide : tree.commandsBar->findChildren<QPropertyAnimation *>())
        slide->setCurrentTime(slide->duration());
    QTRY_VERIFY(!tree.commandsBar->isVisible());
    tree.commandsBar->ShowAnimated();
    QVERIFY(!tree.smoothPanel->isVisible());
}

void TestToolBarMenus::resizeMovesTheOpenMenu()
{
    Tree tree;
    tree.build();
    tree.commandsBar->SetEnableAutoPosition(true);
    tree.commandsBar->SetOffset(QPoint(5, 0));
    tree.commandsBar->show();
    ToolButtonWithButtonMenu *const line = Tree::buttonOf(tree.line);
    line->ShowMenu();
    const auto distance = [&] {
        return tree.line->toolbar()->mapToGlobal(QPoint()) - line->mapToGlobal(QPoint());
    };
    const QPoint before = distance();
    tree.window->resize(800, 720);
    QTRY_COMPARE(distance(), before);
    QVERIFY(line->IsMenuShowing());
}

void TestToolBarMenus::activeButtonThatDiesIsForgotten()
{
    MenuScene scene;
    auto *const widget = new QWidget(scene.window.get());
    auto *const button = scene.bar->AddAction(scene.action(), widget);
    scene.bar->SetActiveButton(button);
    QCOMPARE(scene.bar->GetActiveButton(), button);
    delete button;
    QCOMPARE(scene.bar->GetActiveButton(), nullptr);
    ToolButton *const plain = scene.bar->AddAction(scene.action());
    plain->click();
}

void TestToolBarMenus::everythingEndsInEveryOrder_data()
{
    QTest::addColumn<QString>("order");
    QTest::addColumn<bool>("isExtended");
    QString order = QStringLiteral("bcfmw");
    bool isExtended = false;
    do {
        isExtended = !isExtended;
        QTest::newRow(qPrintable(order)) << order << isExtended;
    } while (std::next_permutation(order.begin(), order.end()));
}

// b: the bar, c: the commands and groups, f: a flyout, m: the menu of the line, w: the window.
void TestToolBarMenus::everythingEndsInEveryOrder()
{
    QFETCH(QString, order);
    QFETCH(bool, isExtended);
    Tree tree;
    tree.build();
    tree.commandsBar->show();
    Tree::buttonOf(tree.line)->ShowMenu();
    if (isExtended)
        Tree::buttonOf(tree.smooth)->click();
    const QPointer<QWidget> menu = tree.line->toolbar();
    const auto endCommands = [&tree] {
        for (auto *const group :
             {&tree.top, &tree.line, &tree.grid, &tree.inner, &tree.virtualGroup})
            group->reset();
        tree.smooth.reset();
        tree.measure.reset();
    };
    const QHash<QChar, std::function<void()>> ends {{u'b', [&] { delete tree.commandsBar; }},
                                                    {u'c', endCommands},
                                                    {u'f', [&] { delete tree.smoothPanel; }},
                                                    {u'm', [&] { delete menu; }},
                                                    {u'w', [&] { tree.window.reset(); }}};
    for (const QChar what : qAsConst(order)) {
        ends.value(what)();
        if (tree.commandsBar) {
            tree.commandsBar->DismissLeafMenu();
            tree.commandsBar->HideAllButtonMenusExcept(true, nullptr);
            if (tree.top)
                tree.build();
        }
        QCoreApplication::processEvents();
    }
    QVERIFY(!tree.smoothPanel);
    QVERIFY(!tree.measurePanel);
}

void TestToolBarMenus::clickMayEndAnything_data()
{
    QTest::addColumn<QString>("clicked");
    QTest::addColumn<QString>("ended");
    for (const char *const clicked : {"open", "line", "cut", "smooth", "inner", "up"}) {
        for (const char *const ended : {"bar", "window", "button", "menu", "command", "owner"})
            QTest::addRow("%s ends %s", clicked, ended)
                << QString::fromLatin1(clicked) << QString::fromLatin1(ended);
    }
}

void TestToolBarMenus::clickMayEndAnything()
{
    QFETCH(QString, clicked);
    QFETCH(QString, ended);
    Tree tree;
    tree.build();
    tree.commandsBar->show();
    Tree::buttonOf(tree.line)->ShowMenu();
    Tree::buttonOf(tree.inner)->ShowMenu();
    const QPointer<ToolButton> button = tree.commandsBar->findChild<ToolButton *>(clicked)
        ? tree.commandsBar->findChild<ToolButton *>(clicked)
        : tree.window->findChild<ToolButton *>(clicked);
    QVERIFY(button);
    const QPointer<QWidget> menu = tree.line->toolbar();
    const QPointer<ToolButton> owner = tree.line->toolButton();
    connect(button, &ToolButton::ToolButtonClicked, this, [&] {
        if (ended == QStringLiteral("bar"))
            delete tree.commandsBar;
        else if (ended == QStringLiteral("window"))
            tree.window.reset();
        else if (ended == QStringLiteral("button"))
            delete button;
        else if (ended == QStringLiteral("menu"))
            delete menu;
        else if (ended == QStringLiteral("owner"))
            delete owner;
        else
            tree.top->removeCommand(clicked);
    });
    QTest::mouseClick(button, Qt::LeftButton);
    QCoreApplication::processEvents();
    if (tree.commandsBar)
        tree.commandsBar->DismissLeafMenu();
}

void TestToolBarMenus::visibilityMayEndAnything_data()
{
    QTest::addColumn<QString>("ended");
    QTest::addColumn<bool>("atOpening");
    for (const char *const ended : {"bar", "window", "menu", "child", "panel"}) {
        QTest::addRow("%s at opening", ended) << QString::fromLatin1(ended) << true;
        QTest::addRow("%s at closing", ended) << QString::fromLatin1(ended) << false;
    }
}

void TestToolBarMenus::visibilityMayEndAnything()
{
    QFETCH(QString, ended);
    QFETCH(bool, atOpening);
    for (const bool isExtended : {false, true}) {
        Tree tree;
        tree.build();
        tree.commandsBar->show();
        const QPointer<QWidget> menu = tree.line->toolbar();
        const QPointer<ToolButton> child = tree.smooth->toolButton();
        const auto end = [&](ToolButton *, bool opens) {
            if (opens != atOpening)
                return;
            if (ended == QStringLiteral("bar"))
                delete tree.commandsBar;
            else if (ended == QStringLiteral("window"))
                tree.window.reset();
            else if (ended == QStringLiteral("menu"))
                delete menu;
            else if (ended == QStringLiteral("child"))
                delete child;
            else
                delete tree.smoothPanel;
        };
        connect(tree.commandsBar, &ToolBar::ButtonMenuVisibilityChange, this, end);
        tree.line->toolButton()->click();
        if (isExtended && child)
            child->click();
        if (tree.line->toolButton())
            tree.line->toolButton()->click();
        if (tree.commandsBar)
            tree.commandsBar->HideMe(false);
        QCoreApplication::processEvents();
    }
}

void TestToolBarMenus::closingSubMenuMayEndAnything_data()
{
    QTest::addColumn<QString>("how");
    QTest::addColumn<QString>("ended");
    for (const char *const how : {"menu", "outside", "bar", "extend", "click"}) {
        for (const char *const ended : {"bar", "window", "menu", "inner"})
            QTest::addRow("%s closes, %s ends", how, ended)
                << QString::fromLatin1(how) << QString::fromLatin1(ended);
    }
}

// The menu of a menu closes because the one that it stands on does.
void TestToolBarMenus::closingSubMenuMayEndAnything()
{
    QFETCH(QString, how);
    QFETCH(QString, ended);
    MenuScene scene;
    QPointer<MenuBar> menu = scene.menu();
    QPointer<MenuBar> inner = scene.menu();
    ToolButton *const plain = menu->AddAction(scene.action());
    ToolButtonWithButtonMenu *const innerButton =
        menu->AddAction(nullptr, iconOf(Qt::gray), inner, true);
    ToolButtonWithButtonMenu *const button = scene.addMenu(menu);
    button->ShowMenu();
    innerButton->ShowMenu();
    bool hasEnded = false;
    connect(innerButton, &ToolButtonWithMenu::ButtonMenuVisibilityChange, this, [&] {
        hasEnded = true;
        if (ended == QStringLiteral("bar"))
            delete scene.bar;
        else if (ended == QStringLiteral("window"))
            scene.window.reset();
        else
            delete (ended == QStringLiteral("menu") ? menu : inner);
    });
    if (how == QStringLiteral("menu"))
        button->HideMenu();
    else if (how == QStringLiteral("outside"))
        scene.bar->OnMouseClickedOutside();
    else if (how == QStringLiteral("bar"))
        scene.bar->HideMe(true);
    else if (how == QStringLiteral("extend"))
        button->OnEnterExtendMode(plain);
    else
        plain->click();
    QVERIFY(hasEnded);
    QCoreApplication::processEvents();
    const bool endsAll = ended == QStringLiteral("bar") || ended == QStringLiteral("window");
    QCOMPARE(scene.bar.isNull(), endsAll);
    QCOMPARE(menu.isNull(), endsAll || ended == QStringLiteral("menu"));
    QVERIFY(!inner);
}

void TestToolBarMenus::takingOverAPopupMayEndTheBar_data()
{
    QTest::addColumn<bool>("isMenu");
    QTest::newRow("menu of buttons") << true;
    QTest::newRow("widget") << false;
}

void TestToolBarMenus::takingOverAPopupMayEndTheBar()
{
    QFETCH(bool, isMenu);
    MenuScene scene;
    // Left without a button it is the caller's again.
    const std::unique_ptr<MenuBar> kept(scene.menu());
    MenuBar *const menu = kept.get();
    auto *const widget = new QWidget(scene.window.get());
    ToolButtonWithMenu *owner = nullptr;
    if (isMenu)
        owner = scene.bar->AddAction(nullptr, iconOf(Qt::gray), menu, true);
    else
        owner = scene.bar->AddAction(scene.action(), widget);
    QPointer<MenuBar> other = new MenuBar(scene.window.get(), Qt::RightToolBarArea);
    owner->ShowMenu();
    connect(scene.bar, &ToolBar::ButtonMenuVisibilityChange, this, [&other] { delete other; });
    QAction *const action = scene.action();
    if (isMenu)
        QCOMPARE(other->AddAction(action, iconOf(Qt::gray), menu, true), nullptr);
    else
        QCOMPARE(other->AddAction(action, widget), nullptr);
    QVERIFY(!other);
    QVERIFY(!owner->IsMenuShowing());
}

void TestToolBarMenus::menuMayEndWhileItIsFilled()
{
    Tree tree;
    tree.build();
    addCommand(*tree.line, QStringLiteral("new"));
    addCommand(*tree.line, QStringLiteral("newer"));
    QPointer<ToolBar> menu = tree.line->toolbar();
    connect(menu, &ToolBar::LayoutChanged, this, [&menu] { delete menu; });
    tree.build();
    QVERIFY(!menu);
    QVERIFY(!tree.command(QStringLiteral("newer"))->toolButton());
}

void TestToolBarMenus::newButtonMayEndAnything_data()
{
    QTest::addColumn<bool>("isMenu");
    QTest::addColumn<QString>("ended");
    for (const bool isMenu : {false, true}) {
        for (const char *const ended : {"bar", "window", "popup", "button"})
            QTest::addRow("%s, %s ends", isMenu ? "menu" : "flyout", ended)
                << isMenu << QString::fromLatin1(ended);
    }
}

void TestToolBarMenus::newButtonMayEndAnything()
{
    QFETCH(bool, isMenu);
    QFETCH(QString, ended);
    MenuScene scene;
    QAction *const action = scene.action();
    QPointer<FlyoutBase> flyout = scene.flyout();
    QPointer<MenuBar> menu = scene.menu();
    const std::unique_ptr<MenuBar> unused(isMenu ? nullptr : menu.data());
    connect(scene.bar, &ToolBar::LayoutChanged, this, [&] {
        if (ended == QStringLiteral("bar"))
            delete scene.bar;
        else if (ended == QStringLiteral("window"))
            scene.window.reset();
        else if (ended == QStringLiteral("button"))
            delete scene.bar->findChild<ToolButtonWithMenu *>();
        else if (isMenu)
            delete menu;
        else
            delete flyout;
    });
    const ToolButton *const button = isMenu
        ? static_cast<ToolButton *>(scene.bar->AddAction(action, iconOf(Qt::gray), menu, true))
        : static_cast<ToolButton *>(scene.bar->AddAction(action, flyout.data()));
    QCOMPARE(button != nullptr, ended == QStringLiteral("popup"));
}

void TestToolBarMenus::barThatEndsHearsNothingOfItsMenus()
{
    Tree tree;
    tree.build();
    tree.commandsBar->show();
    Tree::buttonOf(tree.line)->ShowMenu();
    Tree::buttonOf(tree.inner)->ShowMenu();
    Tree::buttonOf(tree.measure)->ToolButtonWithMenu::ShowMenu();
    const QSignalSpy told(tree.commandsBar, &ToolBar::ButtonMenuVisibilityChange);
    delete tree.commandsBar;
    QCOMPARE(told.count(), 0);
}

void TestToolBarMenus::endsWhileItSlides()
{
    for (const bool isWindow : {false, true}) {
        Tree tree;
        tree.build();
        tree.commandsBar->show();
        Tree::buttonOf(tree.line)->ShowMenu();
        tree.commandsBar->HideAnimated();
        QCoreApplication::processEvents();
        tree.commandsBar->ShowAnimated();
        Tree::buttonOf(tree.line)->ShowMenu();
        QCoreApplication::processEvents();
        if (isWindow)
            tree.window.reset();
        else
            delete tree.commandsBar;
        QCoreApplication::processEvents();
    }
}

LUMO_TEST_MAIN(TestToolBarMenus)
#include "tst_toolbarmenus.moc"
