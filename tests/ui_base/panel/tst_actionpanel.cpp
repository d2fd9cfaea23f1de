// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include <ui_base/ActionPanel>

#include "support/testcase.h"
#include "support/testmain.h"
#include "support/virtualorder.h"
#include "ui_base/command/commandbag.h"
#include "ui_base/command/commandgroup.h"
#include "ui_base/command/testcommand.h"
#include "ui_base/panel/actionpanel_p.h"
#include "ui_base/popup/widgetposcalculator.h"
#include "ui_base/qtui/tooltip/tooltipobject.h"
#include "ui_base/toolbar/menuscene.h"
#include "ui_base/toolbar/toolbuttonwithbuttonmenu_p.h"
#include "ui_base/toolbar/toolbuttonwithwidgetmenu_p.h"

#include <lumo_common_res/Styles>

#include <QGraphicsEffect>

using Lumo::Test::colourOf;
using Lumo::Test::iconOf;
using Lumo::Test::TestCommand;
using Vela::Resource::Styles;
using Vela::UiBase::ActionPanel;
using Vela::UiBase::ActionPanelPrivate;
using Vela::UiBase::ArrowedWindow;
using Vela::UiBase::CommandBase;
using Vela::UiBase::CommandGroup;
using Vela::UiBase::EArrowPosition;
using Vela::UiBase::EDirection;
using Vela::UiBase::EWidgetsAlign;
using Vela::UiBase::FloatingLayer;
using Vela::UiBase::FlyoutBase;
using Vela::UiBase::QtUiToolkit;
using Vela::UiBase::ToolBar;
using Vela::UiBase::ToolBarUtil;
using Vela::UiBase::ToolButton;
using Vela::UiBase::ToolButtonPrivate;
using Vela::UiBase::ToolButtonWithButtonMenu;
using Vela::UiBase::ToolButtonWithMenu;
using Vela::UiBase::ToolButtonWithMenuPrivate;
using Vela::UiBase::ToolButtonWithWidgetMenu;

namespace {

/// A panel that lets its subclass's parts be reached.
class OpenPanel : public ActionPanel
{
public:
    using ActionPanel::ActionPanel;
    using ActionPanel::AddButton;
    using ActionPanel::AddSingleCommand;
    using ActionPanel::CreateSubToolBar;
    using ActionPanel::OnDismissWidgetMenu;

    ActionPanelPrivate *opened() const { return static_cast<ActionPanelPrivate *>(d_ptr.get()); }
    QList<ToolButton *> buttons(bool includeSubMenus = false) const
    {
        return opened()->CollectButtons<ToolButton>(includeSubMenus);
    }
};

/// A subclass as a host writes one, with a state of its own.
class OwnPrivate : public ActionPanelPrivate
{
public:
    explicit OwnPrivate(int *ends)
        : m_ends(ends)
    { }
    ~OwnPrivate() override { ++*m_ends; }

private:
    int *const m_ends;
};

class OwnPanel : public ActionPanel
{
    Q_OBJECT

public:
    OwnPanel(int *ends, QWidget *parent)
        : ActionPanel(*new OwnPrivate(ends), parent)
    {
        Initialize();
    }

    void InitializeToolBar() override
    {
        ActionPanel::InitializeToolBar();
        SetButtonSize(QSize(60, 60));
    }

    QList<QPair<ToolButton *, bool>> changes;

public Q_SLOTS:
    void OnButtonMenuVisibilityChange(Vela::UiBase::ToolButton *button, bool isMenuVisible)
    {
        changes << qMakePair(button, isMenuVisible);
    }
};

class Scene
{
public:
    Scene()
        : window(std::make_unique<QWidget>())
        , panel(new OpenPanel(window.get()))
    {
        window->resize(800, 600);
        window->show();
        if (!QTest::qWaitForWindowActive(window.get()))
            qFatal("The window does not come up.");
    }

    QAction *action(const QString &text = {}, const QColor &colour = Qt::red)
    {
        actions.push_back(std::make_unique<QAction>(iconOf(colour), text));
        return actions.back().get();
    }

    ToolBar *grid() const
    {
        return ToolBarUtil::CreateActionPanelToolBar(window.get(), panel, true, 4);
    }

    ToolBar *line() const
    {
        return ToolBarUtil::CreateActionPanelToolBar(window.get(), panel, false, 0);
    }

    ToolButtonWithButtonMenu *addMenu(ToolBar *menu)
    {
        return ActionPanel::CreateToolButton(window.get(), nullptr, panel, menu,
                                             QStringLiteral("menus"), iconOf(Qt::gray), 3,
                                             QStringLiteral("tip"), QStringLiteral("the menu"));
    }

    /// A group named @p name of commands, and that group in one whose bar is the panel.
    void makeGroup(const QString &name, int commands)
    {
        outer = std::make_shared<CommandGroup>();
        outer->setToolbar(panel);
        group = std::make_shared<CommandGroup>(QString(), QStringLiteral("tip"), name);
        for (int i = 0; i < commands; ++i)
            group->addCommand(std::make_shared<TestCommand>(QStringLiteral("c%1").arg(i)), i + 1);
        outer->addCommand(group, 1);
    }

    ToolButtonWithButtonMenu *groupButton() const
    {
        return qobject_cast<ToolButtonWithButtonMenu *>(group->toolButton());
    }

    FlyoutBase *flyout() const
    {
        auto *const content = new QWidget;
        content->setFixedSize(120, 40);
        return QtUiToolkit::Instance().CreateFlyout(QStringLiteral("Smooth"), content, nullptr,
                                                    true, true, true, false, window.get());
    }

    std::vector<std::unique_ptr<QAction>> actions;
    std::shared_ptr<CommandGroup> outer;
    std::shared_ptr<CommandGroup> group;
    std::unique_ptr<QWidget> window;
    QPointer<OpenPanel> panel;
};

QRect globalRect(const QWidget &widget)
{
    return {widget.mapToGlobal(QPoint(0, 0)), widget.size()};
}

} // namespace

class ActionPanelTest : public Lumo::Test::TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void standsAtTheLeftInTheMiddle();
    void hasItsNameAndItsSlots();
    void addsItsVirtualOperationsInTheirOrder();
    void hasItsLooksAndSizes();
    void initializingBringsEverythingBack();
    void placesTooltipsAtTheRight();
    void placesMenusAtTheRight();
    void paintsPlatesOnNoGround();
    void aSubclassWithAStateOfItsOwnIsSetUpByInitialize();
    void aSubclassHearsOfMenusOnceEach();
    void aGroupOfCommandsBecomesAGridOfFourColumns();
    void theButtonOfAGroupIsThatOfTheGroup();
    void aGridOpensAtTheRightInLineWithItsButton();
    void aCommandOfAVirtualGroupHasALargeButton();
    void aGridMakesTheButtonCheckableAndExtended();
    void anyOtherMenuKeepsTheDefaultsOfTheBar();
    void theIconCanBeTwoFiles();
    void withoutAMenuNothingIsAdded();
    void aClickOnAButtonOfAMenuClosesIt();
    void preparingHasEveryMenuButtonCloseItsMenu();
    void disablingLeavesMenusAlone();
    void aBusyFlyoutBlocksThePanel();
    void escapeGoesToTheFlyoutOfAMenu();
    void aFlyoutOfAMenuOpensFromTheButtonOfTheGroup();
    void badInputIsIgnored();
    void aPanelWithoutParentStands();
    void everyOrderOfDyingIsSafe_data();
    void everyOrderOfDyingIsSafe();
};

void ActionPanelTest::standsAtTheLeftInTheMiddle()
{
    Scene scene;
    scene.panel->AddAction(scene.action());
    scene.panel->AddAction(scene.action(), QStringLiteral("other"));
    scene.panel->show();
    const auto place = [&scene] {
        return QPoint(5, (scene.window->height() - scene.panel->height()) / 2);
    };
    QTRY_COMPARE(scene.panel->pos(), place());
    scene.window->resize(700, 421);
    QTRY_COMPARE(scene.panel->pos(), place());
    QVERIFY(!scene.panel->IsHorizontalLayout());
    QVERIFY(!scene.panel->IsGridLayout());
}

void ActionPanelTest::hasItsNameAndItsSlots()
{
    const ActionPanel panel(nullptr);
    QCOMPARE(panel.objectName(), QStringLiteral("action panel"));
    for (const char *slot : {"OnFlyoutBusy()", "OnFlyoutIdle()",
                             "OnButtonMenuVisibilityChange(Vela::UiBase::ToolButton*,bool)"}) {
        const int index = ActionPanel::staticMetaObject.indexOfSlot(slot);
        QVERIFY2(index >= ActionPanel::staticMetaObject.methodOffset(), slot);
    }
}

void ActionPanelTest::addsItsVirtualOperationsInTheirOrder()
{
    QVERIFY(Lumo::Test::standInThisOrder(&ToolBar::Hovered, &ActionPanel::Initialize,
                                         &ActionPanel::InitializeToolBar));
}

static void checkLooksAndSizes(const OpenPanel &panel)
{
    const ActionPanelPrivate &d = *panel.opened();
    QCOMPARE(d.groupBackColor, Styles::Instance().ColorActionPanelGroupBack());
    QCOMPARE(d.backColor, QColor(Qt::transparent));
    QCOMPARE(panel.GetGroupContentMargins(), QMargins(2, 2, 2, 2));
    QCOMPARE(panel.ButtonSize(), QSize(50, 50));
    QCOMPARE(panel.IconSize(), QSize(34, 34));
    QCOMPARE(panel.GetButtonSpacing(), 1);
    QCOMPARE(panel.GetButtonGroupSpacing(), 10);
    QVERIFY(d.mainRoundCorner == ToolBar::EToolBarRoundCorner::NoRoundCorners);
    QVERIFY(d.groupRoundCorner == ToolBar::EToolBarRoundCorner::NoRoundCorners);
    QCOMPARE(d.cornerRadius, 4);
    QCOMPARE(d.borderWidth, 1);
    QCOMPARE(d.borderColor, Styles::Instance().ColorActionPanelBorder());
    QVERIFY(d.borderAroundPanels);
    QVERIFY(!panel.graphicsEffect() || !panel.graphicsEffect()->isEnabled());
}

void ActionPanelTest::hasItsLooksAndSizes()
{
    checkLooksAndSizes(OpenPanel(nullptr));
}

void ActionPanelTest::initializingBringsEverythingBack()
{
    OpenPanel panel(nullptr);
    panel.EnableShadow(true);
    panel.setObjectName(QStringLiteral("other"));
    panel.SetEnableAutoPosition(false);
    panel.SetOffset(QPoint(1, 2));
    panel.SetBackColor(Qt::red);
    panel.SetGroupBackColor(Qt::red);
    panel.SetCentered(false);
    panel.SetRoundCorner(ToolBar::EToolBarRoundCorner::RoundAllCorners,
                         ToolBar::EToolBarRoundCorner::RoundAllCorners, 9);
    panel.SetButtonSpacing(3);
    panel.SetButtonGroupSpacing(4);
    panel.SetBorder(0, Qt::red, false);
    panel.InitializeToolBar();
    checkLooksAndSizes(panel);
    QCOMPARE(panel.objectName(), QStringLiteral("action panel"));
    QVERIFY(panel.opened()->autoPositionEnabled);
    QVERIFY(panel.opened()->centered);
    QCOMPARE(panel.opened()->offset, QPoint(5, 0));
}

void ActionPanelTest::placesTooltipsAtTheRight()
{
    const OpenPanel panel(nullptr);
    const auto &tooltip = panel.opened()->defaultTooltip;
    ArrowedWindow::SArrowParam arrow;
    arrow.position = EArrowPosition::Left;
    arrow.length = 10;
    arrow.customAngle = false;
    arrow.angle = 0;
    arrow.apexAngle = 90;
    arrow.offsetAlongX = true;
    arrow.offset = 0;
    QVERIFY(tooltip.arrow == arrow);
    QCOMPARE(tooltip.offset, 5);
    QCOMPARE(tooltip.direction, EDirection::Right);
    QCOMPARE(tooltip.align, EWidgetsAlign::AlignCenter);
    QCOMPARE(tooltip.additionalOffset, QPoint(0, 0));
}

void ActionPanelTest::placesMenusAtTheRight()
{
    const OpenPanel panel(nullptr);
    const auto &menu = panel.opened()->defaultMenu;
    ArrowedWindow::SArrowParam arrow;
    arrow.position = EArrowPosition::TopLeft;
    arrow.length = 15;
    arrow.customAngle = true;
    arrow.angle = 180;
    arrow.apexAngle = 90;
    arrow.offsetAlongX = false;
    arrow.offset = 20;
    QVERIFY(menu.arrow == arrow);
    QVERIFY(!panel.opened()->defaultMenuShadow);
    QCOMPARE(menu.offset, 7);
    QCOMPARE(menu.direction, EDirection::Right);
    QCOMPARE(menu.align, EWidgetsAlign::AlignCenter);
    QCOMPARE(menu.additionalOffset, QPoint(0, 0));
}

void ActionPanelTest::paintsPlatesOnNoGround()
{
    Scene scene;
    scene.panel->AddAction(scene.action(), QStringLiteral("one"), 1);
    scene.panel->AddAction(scene.action(), QStringLiteral("two"), 2);
    scene.panel->show();
    scene.panel->AdjustToolBarSize(true);
    // Two plates of 54 pixels with 10 between them.
    QCOMPARE(scene.panel->size(), QSize(54, 118));
    const QList<ToolButton *> buttons = scene.panel->buttons();
    const QPoint first = buttons[0]->mapTo(scene.panel, QPoint(0, 0));
    QCOMPARE(first, QPoint(2, 2));
    QCOMPARE(buttons[1]->mapTo(scene.panel, QPoint(0, 0)), QPoint(2, 66));

    QImage picture(scene.panel->size(), QImage::Format_ARGB32_Premultiplied);
    picture.fill(Qt::green);
    scene.panel->render(&picture, {}, {}, QWidget::DrawChildren);
    QCOMPARE(picture.pixelColor(27, 59), QColor(Qt::green));
    QCOMPARE(picture.pixelColor(1, 1), Styles::Instance().ColorActionPanelGroupBack());
    QCOMPARE(picture.pixelColor(27, 0), Styles::Instance().ColorActionPanelBorder());
}

void ActionPanelTest::aSubclassWithAStateOfItsOwnIsSetUpByInitialize()
{
    int ends = 0;
    {
        OwnPanel panel(&ends, nullptr);
        QCOMPARE(panel.ButtonSize(), QSize(60, 60));
        QCOMPARE(panel.objectName(), QStringLiteral("action panel"));
        QCOMPARE(panel.GetButtonGroupSpacing(), 10);
        QCOMPARE(ends, 0);
    }
    QCOMPARE(ends, 1);
}

void ActionPanelTest::aSubclassHearsOfMenusOnceEach()
{
    Scene scene;
    int ends = 0;
    auto *const panel = new OwnPanel(&ends, scene.window.get());
    panel->Initialize(); // once more
    auto *const menu = ToolBarUtil::CreateActionPanelToolBar(scene.window.get(), panel, true, 4);
    menu->AddAction(scene.action());
    ToolButtonWithButtonMenu *const button =
        ActionPanel::CreateToolButton(scene.window.get(), nullptr, panel, menu, QString(),
                                      iconOf(Qt::gray), 0, QString(), QString());
    panel->show();
    button->ShowMenu();
    button->HideMenu();
    using Change = QPair<ToolButton *, bool>;
    QCOMPARE(panel->changes, (QList<Change> {{button, true}, {button, false}}));
}

void ActionPanelTest::aGroupOfCommandsBecomesAGridOfFourColumns()
{
    Scene scene;
    scene.makeGroup(QStringLiteral("tools"), 6);
    scene.group->setGridSize(2);
    scene.group->setGrid(false);
    scene.panel->AddCommandGroup(scene.outer.get());
    QVERIFY(scene.groupButton());
    ToolBar *const menu = scene.groupButton()->GetMenu();
    QCOMPARE(menu, scene.group->toolbar());
    QVERIFY(menu->IsGridLayout());
    QVERIFY(menu->IsHorizontalLayout());
    const QSize size(50, 50);
    QCOMPARE(menu->ButtonSize(), size);
    QList<QPoint> places;
    for (const auto &[id, command] : scene.group->commandBag()) {
        QCOMPARE(command->toolButton()->size(), size);
        places << command->toolButton()->geometry().topLeft();
    }
    QCOMPARE(places.size(), 6);
    for (int column = 0; column < 4; ++column)
        QCOMPARE(places[column], places[0] + QPoint(51 * column, 0));
    QCOMPARE(places[4], places[0] + QPoint(0, 51));
    QCOMPARE(places[5], places[0] + QPoint(51, 51));
    scene.window.reset();
}

void ActionPanelTest::theButtonOfAGroupIsThatOfTheGroup()
{
    Scene scene;
    scene.makeGroup(QStringLiteral("tools"), 2);
    scene.group->setBaseGroupName(QStringLiteral("plate"));
    scene.group->setIcon(iconOf(Qt::darkCyan));
    scene.outer->setCommandRank(scene.group->commandId(), 7);
    scene.panel->AddCommandGroup(scene.outer.get());
    ToolButtonWithButtonMenu *const button = scene.groupButton();
    QCOMPARE(scene.panel->buttons(), QList<ToolButton *> {button});
    QCOMPARE(scene.panel->opened()->buttonsByGroup.firstKey(), QStringLiteral("plate"));
    QCOMPARE(scene.panel->opened()->buttonRanks.value(button), 7);
    QCOMPARE(button->objectName(), QStringLiteral("tools"));
    QVERIFY(button->isCheckable() && !button->isChecked());
    QCOMPARE(button->size(), QSize(50, 50));
    QCOMPARE(button->toolTip(), QStringLiteral("tip"));
    QCOMPARE(colourOf(*button), QColor(Qt::darkCyan));
    // A change of the group leaves the button as it was made.
    scene.group->setText(QStringLiteral("other"));
    QVERIFY(button->isCheckable());
    scene.panel->AddCommandGroup(scene.outer.get());
    QCOMPARE(scene.panel->buttons(), QList<ToolButton *> {button});
    QVERIFY(!button->GetMenu()->isVisible());
    scene.window.reset();
}

void ActionPanelTest::aGridOpensAtTheRightInLineWithItsButton()
{
    Scene scene;
    scene.makeGroup(QStringLiteral("tools"), 5);
    scene.panel->AddCommandGroup(scene.outer.get());
    scene.panel->show();
    scene.panel->OnAutoPosition();
    QTest::mouseClick(scene.groupButton(), Qt::LeftButton);
    const ToolBar *const menu = scene.groupButton()->GetMenu();
    QVERIFY(menu->isVisible());
    const QRect button = globalRect(*scene.groupButton());
    QCOMPARE(globalRect(*menu).topLeft(), button.topRight() + QPoint(7, -2));
    // So the first cell is as high as the button.
    QCOMPARE(globalRect(*menu->findChild<ToolButton *>()).top(), button.top());
    QTest::mouseClick(scene.groupButton(), Qt::LeftButton);
    QVERIFY(!menu->isVisible());
    scene.window.reset();
}

void ActionPanelTest::aCommandOfAVirtualGroupHasALargeButton()
{
    Scene scene;
    const auto command = std::make_shared<TestCommand>(QStringLiteral("single"));
    command->setIcon(iconOf(Qt::blue));
    const std::shared_ptr<CommandBase> group =
        CommandGroup::WrapSingleCmdIntoVirtualCmdGroup(command.get(), 3, QStringLiteral("g"),
                                                       QStringLiteral("plate"))
            ->shared_from_this();
    ToolButton *const button =
        scene.panel->AddCommandGroup(static_cast<CommandGroup *>(group.get()));
    QCOMPARE(button->Action(), command.get());
    QCOMPARE(button->size(), QSize(50, 50));
    QCOMPARE(button->iconSize(), QSize(34, 34));
    scene.window.reset();
}

void ActionPanelTest::aGridMakesTheButtonCheckableAndExtended()
{
    Scene scene;
    ToolBar *const menu = scene.grid();
    ToolButtonWithWidgetMenu *const child =
        menu->AddAction(scene.action(), new QWidget(scene.window.get()));
    ToolButtonWithButtonMenu *const button = scene.addMenu(menu);
    QVERIFY(button->isCheckable() && !button->isChecked());
    QCOMPARE(button->objectName(), QStringLiteral("the menu"));
    QCOMPARE(child->ExtendController(), button);
    QCOMPARE(button->GetMenu(), menu);
    QCOMPARE(colourOf(*button), QColor(Qt::gray));
    QCOMPARE(button->GetTooltipObject()->objectName(), QStringLiteral("tip"));
    QCOMPARE(scene.panel->opened()->buttonRanks.value(button), 3);
    QCOMPARE(scene.panel->opened()->buttonsByGroup.firstKey(), QStringLiteral("menus"));
}

void ActionPanelTest::anyOtherMenuKeepsTheDefaultsOfTheBar()
{
    Scene scene;
    ToolBar *const menu = scene.line();
    ToolButtonWithWidgetMenu *const child =
        menu->AddAction(scene.action(), new QWidget(scene.window.get()));
    ToolButtonWithButtonMenu *const button = scene.addMenu(menu);
    QVERIFY(!button->isCheckable());
    QCOMPARE(button->objectName(), QString());
    QVERIFY(!child->ExtendController());
    scene.panel->show();
    button->ShowMenu();
    const QRect place = globalRect(*button);
    QCOMPARE(globalRect(*menu).left(), place.right() + 7);
    QVERIFY(qAbs(globalRect(*menu).center().y() - place.center().y()) <= 1);
}

void ActionPanelTest::theIconCanBeTwoFiles()
{
    Scene scene;
    ToolButtonWithButtonMenu *const button = ActionPanel::CreateToolButton(
        scene.window.get(), nullptr, scene.panel, scene.grid(), QStringLiteral("menus"),
        QStringLiteral(":/resources/images/sys_close.png"),
        QStringLiteral(":/resources/images/sys_close_hover.png"), 0, QString(),
        QStringLiteral("two files"));
    QCOMPARE(button->objectName(), QStringLiteral("two files"));
    const QImage normal = button->icon().pixmap(34, QIcon::Normal).toImage();
    QVERIFY(!normal.isNull());
    QVERIFY(normal != button->icon().pixmap(34, QIcon::Active).toImage());
}

void ActionPanelTest::withoutAMenuNothingIsAdded()
{
    Scene scene;
    QVERIFY(!scene.addMenu(nullptr));
    ToolBar *const menu = scene.grid();
    const auto create = [&](QWidget *parent, ToolBar *bar) {
        return ActionPanel::CreateToolButton(parent, nullptr, bar, menu, QString(), QIcon(), 0,
                                             QString(), QString());
    };
    QVERIFY(!create(nullptr, scene.panel));
    QVERIFY(!create(scene.window.get(), nullptr));
    QVERIFY(scene.panel->buttons().isEmpty());
    QVERIFY(create(scene.window.get(), scene.panel));
}

void ActionPanelTest::aClickOnAButtonOfAMenuClosesIt()
{
    Scene scene;
    ToolBar *const menu = scene.grid();
    ToolButton *const child = menu->AddAction(scene.action());
    ToolButtonWithButtonMenu *const button = scene.addMenu(menu);
    scene.panel->show();
    button->ShowMenu();
    QTest::mouseClick(child, Qt::LeftButton);
    QVERIFY(!menu->isVisible());
}

void ActionPanelTest::preparingHasEveryMenuButtonCloseItsMenu()
{
    Scene scene;
    ToolBar *const menu = scene.grid();
    ToolButtonWithWidgetMenu *const inner =
        menu->AddAction(scene.action(), new QWidget(scene.window.get()));
    scene.addMenu(menu);
    ToolButtonWithWidgetMenu *const own =
        scene.panel->AddAction(scene.action(), new QWidget(scene.window.get()));
    for (ToolButtonWithMenu *button : {inner, own})
        button->SetNoHideMenuOnClick(true);
    scene.panel->PrepareActionPanel();
    scene.panel->show();
    for (ToolButtonWithMenu *button : {inner, own}) {
        button->ShowMenu();
        button->ClickedHandler();
        QVERIFY(!button->IsMenuShowing());
    }
}

void ActionPanelTest::disablingLeavesMenusAlone()
{
    Scene scene;
    ToolBar *const menu = scene.grid();
    ToolButton *const child = menu->AddAction(scene.action());
    ToolButtonWithButtonMenu *const button = scene.addMenu(menu);
    ToolButton *const plain = scene.panel->AddAction(scene.action());
    scene.panel->SetEnabled(false);
    QVERIFY(!button->isEnabled() && !plain->isEnabled());
    QVERIFY(child->isEnabled() && menu->isEnabled());
    QVERIFY(scene.panel->isEnabled());
    QVERIFY(plain->Action()->isEnabled());
    child->setEnabled(false);
    scene.panel->SetEnabled(true);
    QVERIFY(button->isEnabled() && plain->isEnabled());
    QVERIFY(!child->isEnabled());
}

void ActionPanelTest::aBusyFlyoutBlocksThePanel()
{
    Scene scene;
    FlyoutBase *const flyout = scene.flyout();
    ToolButton *const plain = scene.panel->AddAction(scene.action());
    connect(flyout, &FlyoutBase::EnterBusyMode, scene.panel, &ActionPanel::OnFlyoutBusy);
    connect(flyout, &FlyoutBase::ExitBusyMode, scene.panel, &ActionPanel::OnFlyoutIdle);
    flyout->OnEnterBusyMode();
    QVERIFY(!plain->isEnabled());
    flyout->OnExitBusyMode();
    QVERIFY(plain->isEnabled());
}

void ActionPanelTest::escapeGoesToTheFlyoutOfAMenu()
{
    Scene scene;
    ToolBar *const menu = scene.grid();
    ToolButtonWithWidgetMenu *const leaf = menu->AddAction(scene.action(), scene.flyout());
    ToolButtonWithButtonMenu *const button = scene.addMenu(menu);
    scene.panel->show();
    leaf->ClickedHandler();
    QVERIFY(button->IsInExtendMode() && leaf->IsMenuShowing());
    const QSignalSpy escapes(leaf, &ToolButtonWithWidgetMenu::ESCKeyReleased);
    scene.panel->DismissLeafMenu();
    QCOMPARE(escapes.count(), 1);
    // What the flyout does with it is its own affair; nobody clicks the button.
    QCoreApplication::processEvents();
    QCOMPARE(escapes.count(), 1);
}

void ActionPanelTest::aFlyoutOfAMenuOpensFromTheButtonOfTheGroup()
{
    Scene scene;
    ToolBar *const menu = scene.grid();
    ToolButtonWithWidgetMenu *const leaf = menu->AddAction(scene.action(), scene.flyout());
    ToolButtonWithButtonMenu *const button = scene.addMenu(menu);
    scene.panel->show();
    scene.panel->OnAutoPosition();
    button->ShowMenu();
    QTest::mouseClick(leaf, Qt::LeftButton);
    QVERIFY(leaf->IsMenuShowing() && !menu->isVisible());
    QCOMPARE(colourOf(*button), QColor(Qt::red));
    // The tip of the arrow is 7 pixels from the button, in its middle.
    const QPoint tip =
        leaf->GetArrowedWindow()->mapToGlobal(leaf->GetArrowedWindow()->GetArrowPoint());
    const QRect place = globalRect(*button);
    QVERIFY(qAbs(tip.x() - (place.right() + 7)) <= 1);
    QVERIFY(qAbs(tip.y() - place.center().y()) <= 1);
    leaf->CloseMenu();
    QVERIFY(!button->IsInExtendMode());
}

void ActionPanelTest::badInputIsIgnored()
{
    Scene scene;
    QVERIFY(!scene.panel->CreateSubToolBar(nullptr));
    QVERIFY(!scene.panel->AddButton(nullptr, nullptr, 0));
    const auto group = std::make_shared<CommandGroup>();
    QVERIFY(!scene.panel->AddButton(nullptr, group.get(), 0));
    QVERIFY(!scene.panel->AddCommandGroup(group.get()));
    scene.panel->OnDismissWidgetMenu(nullptr, nullptr);
    scene.panel->OnButtonMenuVisibilityChange(nullptr, true);
    QVERIFY(scene.panel->buttons().isEmpty());
}

void ActionPanelTest::aPanelWithoutParentStands()
{
    Scene scene;
    OpenPanel panel(nullptr);
    panel.AddAction(scene.action());
    QCOMPARE(panel.buttons().size(), 1);
    // Its menus would have nobody to float over.
    const auto group = std::make_shared<CommandGroup>();
    const std::unique_ptr<ToolBar> menu(panel.CreateSubToolBar(group.get()));
    QVERIFY(!panel.AddButton(menu.get(), group.get(), 0));
}

void ActionPanelTest::everyOrderOfDyingIsSafe_data()
{
    QTest::addColumn<QByteArray>("order");
    QTest::newRow("window first") << QByteArray("wgp");
    QTest::newRow("panel first") << QByteArray("pgw");
    QTest::newRow("groups first") << QByteArray("gpw");
    QTest::newRow("groups, then window") << QByteArray("gw");
    QTest::newRow("menu first") << QByteArray("mpgw");
    QTest::newRow("button first") << QByteArray("bgpw");
}

void ActionPanelTest::everyOrderOfDyingIsSafe()
{
    QFETCH(QByteArray, order);
    Scene scene;
    scene.makeGroup(QStringLiteral("tools"), 3);
    scene.panel->AddCommandGroup(scene.outer.get());
    scene.panel->show();
    scene.groupButton()->ShowMenu();
    for (const char part : order) {
        switch (part) {
        case 'w':
            scene.window.reset();
            break;
        case 'p':
            delete scene.panel.data();
            break;
        case 'g':
            scene.outer.reset();
            scene.group.reset();
            break;
        case 'm':
            delete scene.groupButton()->GetMenu();
            break;
        default:
            delete scene.group->toolButton();
        }
        QCoreApplication::processEvents();
    }
    QVERIFY(!scene.panel);
}

LUMO_TEST_MAIN(ActionPanelTest)
#include "tst_actionpanel.moc"
