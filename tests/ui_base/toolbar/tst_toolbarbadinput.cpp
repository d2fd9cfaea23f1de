// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

// What tool bars, their buttons and panels do with nothing, with strangers and with numbers out of
// range: what they tell, or nothing, and without a word.

#include <ui_base/ActionPanel>
#include <ui_base/ImageViewerToolBar>
#include <ui_base/ToolbarManager>
#include <ui_base/ToolBarUtil>

#include "support/testcase.h"
#include "support/testmain.h"
#include "ui_base/qtui/tooltip/tooltipobject.h"
#include "ui_base/toolbar/commandtree.h"

#include <QCursor>
#include <QEasingCurve>
#include <QPropertyAnimation>

#include <limits>

using namespace Lumo::Test;
using namespace Vela::UiBase;

namespace {

constexpr int lowest = std::numeric_limits<int>::min();
constexpr int highest = std::numeric_limits<int>::max();
const auto noDirection = static_cast<EDirection>(99);
const auto noAlignment = static_cast<EWidgetsAlign>(-7);

/// A scene whose bar has a button of each kind.
class Kinds : public MenuScene
{
public:
    Kinds()
    {
        plain = bar->AddAction(action(QStringLiteral("Plain"), true));
        widgetMenu = bar->AddAction(action(QStringLiteral("Widget")), new QWidget(window.get()));
        buttonMenu = addMenu(menu());
        buttonMenu->GetMenu()->AddAction(action(QStringLiteral("Inner")));
        bar->show();
    }

    ToolButton *plain = nullptr;
    ToolButtonWithWidgetMenu *widgetMenu = nullptr;
    ToolButtonWithButtonMenu *buttonMenu = nullptr;
};

class OpenBar : public CommandsBar
{
public:
    using CommandsBar::CommandsBar;
    using ToolBar::GetAnimationTargetPos;
    using ToolBar::InitializePosAnimation;
    using ToolBar::OnButtonClickCheckExclusiveGroups;
    using ToolBar::RemoveSingleCommand;
};

class BareCommand : public FlyoutCommand
{
public:
    explicit BareCommand(QWidget *widget)
        : FlyoutCommand(widget, nullptr)
    { }
    const QString commandId() const override { return QStringLiteral("bare"); }
    bool onExecuteAsync(bool) override { return true; }
    using FlyoutCommand::onESCKeyReleased;
};

} // namespace

class TestToolBarBadInput : public Lumo::Test::TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();

    void barsOfNoSideTakeEverything_data();
    void barsOfNoSideTakeEverything();
    void endlessGridIsALine();
    void sizesOutOfRangeArePainted_data();
    void sizesOutOfRangeArePainted();
    void looksOutOfRangeArePainted();
    void placesOutOfRangeAreTaken();
    void nullChangesNothingOnABar();
    void strangersChangeNothingOnABar();
    void nullChangesNothingOnAButton();
    void popupsOutOfRangeOpen();
    void bareButtonsTakeClicks();
    void factoriesGiveNothingForNothing();
    void managerIgnoresNothingAndStrangers();
    void panelIgnoresNothing();
    void flyoutIgnoresNothing();
    void commandWithoutFlyoutDoesNothing();
};

void TestToolBarBadInput::initTestCase()
{
    QCursor::setPos(790, 590);
}

void TestToolBarBadInput::barsOfNoSideTakeEverything_data()
{
    QTest::addColumn<int>("area");
    for (const int area : {0, 3, 9, 15})
        QTest::addRow("%d", area) << area;
}

void TestToolBarBadInput::barsOfNoSideTakeEverything()
{
    QFETCH(int, area);
    Tree tree;
    auto *const bar =
        new CommandsBar(2, true, tree.window.get(), static_cast<Qt::ToolBarArea>(area));
    tree.top->setToolbar(bar);
    bar->SetEnableAutoPosition(true);
    bar->SetMainContentMargins(QMargins(1, 2, 3, 4));
    bar->SetButtonGroupSpacing(7);
    bar->SetCentered(false);
    const QPoint before = bar->pos();
    static_cast<ToolBar *>(bar)->AddCommandGroup(tree.top.get());
    bar->AddAction(tree.action(), QStringLiteral("own"), -4);
    bar->show();
    Tree::buttonOf(tree.line)->click();
    QVERIFY(Tree::buttonOf(tree.line)->IsMenuShowing());
    bar->OnToolBarAreaSetLayout();
    bar->ShowAnimated();
    bar->HideAnimated();
    QCOMPARE(bar->pos(), area == 0 || area == 15 ? before : QPoint(0, 0));
    QVERIFY(!bar->grab().isNull());
    QVERIFY(bar->RemoveCommand(tree.command(QStringLiteral("open"))));
}

void TestToolBarBadInput::endlessGridIsALine()
{
    MenuScene scene;
    auto *const bar = new MenuBar(20000, false, scene.window.get(), Qt::TopToolBarArea);
    const ToolButton *const first = bar->AddAction(scene.action());
    const ToolButton *const second = bar->AddAction(scene.action());
    bar->show();
    QCOMPARE(second->y(), first->y() + 37);
    QCOMPARE(second->x(), first->x());
    QVERIFY(first->parentWidget()->findChildren<QWidget *>().size() < 10);
}

void TestToolBarBadInput::sizesOutOfRangeArePainted_data()
{
    QTest::addColumn<QSize>("size");
    for (const QSize &size : {QSize(), QSize(0, 0), QSize(-40, 20), QSize(3, 3), QSize(-9, -9)})
        QTest::addRow("%d x %d", size.width(), size.height()) << size;
}

void TestToolBarBadInput::sizesOutOfRangeArePainted()
{
    QFETCH(QSize, size);
    Kinds kinds;
    kinds.bar->SetButtonSize(size);
    const bool isTaken = size.width() >= 0 && size.height() >= 0;
    QCOMPARE(kinds.bar->ButtonSize(), isTaken ? size : QSize(36, 36));
    kinds.bar->AddAction(kinds.action());
    kinds.bar->AddAction(nullptr, iconOf(Qt::gray), kinds.menu(), true);
    kinds.buttonMenu->ShowMenu();
    QVERIFY(kinds.plain->width() >= 0);
    kinds.bar->grab();
}

void TestToolBarBadInput::looksOutOfRangeArePainted()
{
    Kinds kinds;
    kinds.bar->SetMainContentMargins(QMargins(-3, -3, -3, -3));
    kinds.bar->SetGroupContentMargins(QMargins(-3, -3, -3, -3));
    kinds.bar->SetButtonSpacing(-5);
    kinds.bar->SetButtonGroupSpacing(-5);
    kinds.bar->SetBackColor(QColor());
    kinds.bar->SetGroupBackColor(QColor());
    kinds.bar->SetButtonSeparatorColor(QColor());
    kinds.bar->SetToolButtonStyle(static_cast<Qt::ToolButtonStyle>(7));
    for (const int corners : {0, 1, 2, 9, -1}) {
        for (const int radius : {-4, 0, 500}) {
            const auto corner = static_cast<ToolBar::EToolBarRoundCorner>(corners);
            kinds.bar->SetRoundCorner(corner, corner, radius);
            kinds.bar->SetBorder(-2, QColor(), radius == 0);
            kinds.bar->AdjustToolBarSize(true);
            kinds.bar->grab();
        }
    }
    QCOMPARE(kinds.bar->GetButtonSpacing(), -5);
}

void TestToolBarBadInput::placesOutOfRangeAreTaken()
{
    Kinds kinds;
    kinds.bar->SetEnableAutoPosition(true);
    for (const int far : {-100000, 0, 100000}) {
        kinds.bar->SetOffset(QPoint(far, far));
        kinds.bar->SetPos(QPoint(far, far));
        QCOMPARE(kinds.bar->Pos(), QPoint(far, far));
    }
    kinds.bar->AutoPosition();
    kinds.bar->setDelayRelocationOnResize(true);
    kinds.bar->setDelayRelocationOnResize(true);
    kinds.bar->setDelayRelocationOnResize(false);
}

void TestToolBarBadInput::nullChangesNothingOnABar()
{
    MenuScene scene;
    auto *const bar = new OpenBar(scene.window.get(), Qt::LeftToolBarArea);
    QSignalSpy changed(bar, &ToolBar::LayoutChanged);
    QVERIFY(!bar->AddAction(nullptr));
    QVERIFY(!bar->AddAction(nullptr, static_cast<QWidget *>(nullptr)));
    QVERIFY(!bar->AddAction(nullptr, QIcon(), nullptr, false));
    QVERIFY(!bar->AddCommandGroup(nullptr));
    QVERIFY(!bar->AddCommandGroup(nullptr, nullptr));
    QVERIFY(!bar->AddSingleCommand(nullptr, nullptr));
    QVERIFY(!bar->AddButton(nullptr, nullptr, 0));
    QVERIFY(!bar->CreateSubToolBar(nullptr));
    QVERIFY(!bar->RemoveCommand(nullptr));
    QVERIFY(!bar->RemoveSingleCommand(nullptr));
    QVERIFY(!bar->RemoveButton(nullptr));
    bar->CopyAllParametersFrom(nullptr);
    bar->CopyButtonDefaultMenuParameters(nullptr);
    bar->CopyButtonDefaultTooltipParameters(nullptr);
    bar->AddCallbackHandler(nullptr, nullptr);
    bar->AddExclusiveGroupButton(QString(), nullptr);
    bar->OnButtonClickCheckExclusiveGroups(nullptr);
    bar->OnDismissWidgetMenu(nullptr, nullptr);
    bar->SetActiveButton(nullptr);
    bar->HideAllButtonMenusExcept(true, nullptr);
    bar->SetTooltipGroup(QString());
    bar->OnToolButtonClicked();
    bar->OnResizeTimerTimeOut();
    bar->OnMouseClickedOutside();
    bar->DismissLeafMenu();
    bar->EnableActions();
    QVERIFY(!bar->GetActiveButton());
    QVERIFY(!bar->FindOneButton(QString(), true));
    QVERIFY(bar->GetAllParentButtonsMap(nullptr).isEmpty());
    QVERIFY(!OpenBar::InitializePosAnimation(true, nullptr, bar, {}, QEasingCurve::Linear, 1));
    QVERIFY(!OpenBar::InitializePosAnimation(true, bar, nullptr, {}, QEasingCurve::Linear, 1));
    QCOMPARE(OpenBar::GetAnimationTargetPos(true, true, nullptr, nullptr, {}), QPoint());
    QCOMPARE(OpenBar::GetAnimationTargetPos(true, true, bar, nullptr, {}), bar->pos());
    QCOMPARE(changed.count(), 0);
}

void TestToolBarBadInput::strangersChangeNothingOnABar()
{
    Kinds kinds;
    Tree others;
    others.build();
    auto *const bar = new OpenBar(kinds.window.get(), Qt::LeftToolBarArea);
    QSignalSpy changed(bar, &ToolBar::LayoutChanged);
    QVERIFY(!bar->RemoveCommand(others.command(QStringLiteral("cut"))));
    QVERIFY(!bar->RemoveCommand(others.top.get()));
    QVERIFY(!bar->RemoveButton(kinds.plain->Action()));
    QVERIFY(!bar->AddCommandGroup(makeGroup(QStringLiteral("unknown")).get()));
    QVERIFY(!bar->AddSingleCommand(others.line.get(), others.top.get()));
    bar->HideAllButtonMenusExcept(true, others.line->toolButton());
    bar->AddCallbackHandler(nullptr, kinds.plain->Action());
    bar->CopyAllParametersFrom(bar);
    bar->ApplyDefaultToolbarParams(bar, QString());
    QCOMPARE(changed.count(), 0);
    // A command of which the group knows nothing has rank 0.
    QVERIFY(bar->AddSingleCommand(others.command(QStringLiteral("cut")), others.inner.get()));
    QCOMPARE(changed.count(), 1);
}

void TestToolBarBadInput::nullChangesNothingOnAButton()
{
    Kinds kinds;
    const QPointer<QWidget> widget = kinds.widgetMenu->GetMenu();
    const QPointer<ToolBar> menu = kinds.buttonMenu->GetMenu();
    kinds.plain->SetCallbackHandler(nullptr, nullptr);
    kinds.plain->SetCallbackHandler(kinds.plain->Action(), nullptr);
    kinds.plain->EnableActions();
    QVERIFY(!kinds.plain->IsActionAssociated(nullptr));
    QVERIFY(!kinds.buttonMenu->IsActionAssociated(nullptr));
    for (ToolButtonWithMenu *const button : {static_cast<ToolButtonWithMenu *>(kinds.widgetMenu),
                                             static_cast<ToolButtonWithMenu *>(kinds.buttonMenu)}) {
        button->OnCloseMenu(nullptr, true);
        button->OnActionTriggered(true);
        button->SetSavedMenuOwner(nullptr);
        QVERIFY(!button->IsSubMenuButton(nullptr));
    }
    kinds.widgetMenu->SetMenu(nullptr, true);
    kinds.widgetMenu->SetExtendController(nullptr);
    kinds.widgetMenu->OnRequestShowMenu();
    kinds.buttonMenu->SetMenu(nullptr);
    kinds.buttonMenu->OnEnterExtendMode(nullptr);
    kinds.buttonMenu->OnExitExtendMode();
    kinds.buttonMenu->ActionTriggeredHandler(nullptr);
    QVERIFY(!kinds.buttonMenu->IsStandingInFor(nullptr));
    QVERIFY(widget && kinds.widgetMenu->GetMenu() == widget);
    QVERIFY(menu && kinds.buttonMenu->GetMenu() == menu);
    QVERIFY(!kinds.buttonMenu->IsInExtendMode());
}

void TestToolBarBadInput::popupsOutOfRangeOpen()
{
    Kinds kinds;
    ArrowedWindow::SArrowParam arrow;
    arrow.position = static_cast<EArrowPosition>(88);
    arrow.length = -20;
    arrow.apexAngle = -400;
    arrow.angle = 7000;
    arrow.offset = highest;
    for (const int offset : {-5000, 5000}) {
        const QPoint additional(offset, -offset);
        kinds.plain->SetTooltipParameters(arrow, noDirection, offset, noAlignment, additional);
        kinds.widgetMenu->SetMenuParameters(true, arrow, noDirection, offset, noAlignment,
                                            additional);
        kinds.buttonMenu->SetMenuParameters(noDirection, offset, noAlignment, additional);
        kinds.bar->SetButtonDefaultMenuParameters(true, arrow, offset, noDirection, noAlignment,
                                                  additional);
        kinds.bar->SetButtonDefaultTooltipParameters(arrow, offset, noDirection, noAlignment,
                                                     additional);
        auto *const later = kinds.bar->AddAction(kinds.action(), new QWidget(kinds.window.get()));
        for (ToolButtonWithMenu *const button :
             {static_cast<ToolButtonWithMenu *>(kinds.widgetMenu),
              static_cast<ToolButtonWithMenu *>(later),
              static_cast<ToolButtonWithMenu *>(kinds.buttonMenu)}) {
            button->ShowMenu();
            QVERIFY(button->IsMenuShowing());
            button->grab();
        }
        kinds.plain->GetTooltipObject()->ShowTooltip();
    }
}

void TestToolBarBadInput::bareButtonsTakeClicks()
{
    MenuScene scene;
    auto *const bare = new ToolButton(scene.window.get());
    auto *const half = new ToolButton(scene.action(), nullptr, scene.window.get());
    auto *const noMenu =
        new ToolButtonWithButtonMenu(QIcon(), nullptr, nullptr, QString(), scene.window.get());
    auto *const noWidget =
        new ToolButtonWithWidgetMenu(scene.action(), nullptr, nullptr, scene.window.get());
    auto *const nothing =
        new ToolButtonWithWidgetMenu(nullptr, nullptr, nullptr, scene.window.get());
    for (ToolButton *const button :
         {bare, half, static_cast<ToolButton *>(noMenu), static_cast<ToolButton *>(noWidget),
          static_cast<ToolButton *>(nothing)}) {
        button->setCheckable(true);
        button->SetHideMenuWhenUnchecked(true);
        button->show();
        QSignalSpy clicked(button, &ToolButton::ToolButtonClicked);
        QTest::mouseClick(button, Qt::LeftButton);
        QCOMPARE(clicked.count(), 1);
        button->SetTooltipParameters({}, noDirection, 0, noAlignment, {});
        button->RaiseTooltip();
        button->RefreshTooltip();
        button->SetLocked(true);
        button->EnableActions();
        button->SetExtendMode(true);
        button->InitIcons();
        button->grab();
        if (auto *const menuButton = qobject_cast<ToolButtonWithMenu *>(button)) {
            menuButton->ShowMenu();
            menuButton->HideMenu();
            menuButton->RecalcMenuPosAndMove();
            QCOMPARE(menuButton->GetMenuPosition(), QPoint());
            QVERIFY(!menuButton->IsMenuShowing());
        }
    }
    noMenu->ApplyBaseToolBarParamsToButtonMenu();
    QVERIFY(!noMenu->GetFirstSubMenuAction(false));
    noWidget->CloseMenu();
    noWidget->OnFlyoutClosed();
    noWidget->OnFlyoutResized();
    noWidget->OnFlyoutSubWidgetVisibilityChanged(true);
    noWidget->OnFlyoutSetPartialBackgroundColor(true, QRect(), QColor());
}

void TestToolBarBadInput::factoriesGiveNothingForNothing()
{
    MenuScene scene;
    QWidget noBar;
    QVERIFY(!ToolBarUtil::CreateActionPanelToolBar(scene.window.get(), nullptr, true, -3));
    QVERIFY(!ToolBarUtil::CreateMainToolBarButtonMenu(scene.window.get(), &noBar, {}, {}, true, 0));
    QVERIFY(ToolButton::CreateToolButtonIcon(QString(), QString()).isNull());
    const std::unique_ptr<QAction> action(ToolButton::CreateToolButtonAction(
        nullptr, QString(), QIcon(), QString(), nullptr, SLOT(close())));
    action->trigger();
    QVERIFY(!ActionPanel::CreateToolButton(nullptr, nullptr, nullptr, nullptr, QString(), QIcon(),
                                           0, QString(), QString()));
    for (const int gridSize : {lowest, -1, 0}) {
        const std::unique_ptr<ToolBar> menu(ToolBarUtil::CreateMainToolBarButtonMenu(
            scene.window.get(), scene.bar, QSize(-4, 0), QSize(-4, -4), true, gridSize));
        QVERIFY(!menu->IsGridLayout());
        QCOMPARE(menu->ButtonSize(), scene.bar->ButtonSize());
    }
}

void TestToolBarBadInput::managerIgnoresNothingAndStrangers()
{
    Tree tree;
    ToolbarManager manager(tree.commandsBar);
    ToolbarManager none(nullptr);
    for (ToolbarManager *const each : {&manager, &none}) {
        each->addDynamicCommandGroup(nullptr);
        each->removeDynamicCommand(nullptr);
        each->removeDynamicCommand(tree.top.get());
        each->commandGroupBegan(nullptr);
        each->commandGroupEnded(tree.line.get());
        each->setVisible(false);
        each->setVisible(true);
        QVERIFY(!each->findDynamicCommand(QString()));
    }
    none.addDynamicCommandGroup(tree.line.get());
    none.commandGroupBegan(tree.line.get());
    QVERIFY(!none.findDynamicCommand(QStringLiteral("cut")));
}

void TestToolBarBadInput::panelIgnoresNothing()
{
    MenuScene scene;
    auto *const panel = new ActionPanel(scene.window.get());
    panel->SetEnabled(false);
    panel->OnFlyoutBusy();
    panel->OnFlyoutIdle();
    panel->PrepareActionPanel();
    panel->Initialize();
    panel->Initialize();
    QVERIFY(!static_cast<ToolBar *>(panel)->AddCommandGroup(nullptr));
    QVERIFY(!ActionPanel::CreateToolButton(scene.window.get(), nullptr, panel, panel, QString(),
                                           QIcon(), -1, QString(), QString()));
    QVERIFY(!ActionPanel::CreateToolButton(scene.window.get(), nullptr, panel, nullptr, QString(),
                                           QString(), QStringLiteral("missing.png"), -1, QString(),
                                           QString()));
    Vela::UiToolkit::ImageViewerToolBar strip(nullptr);
    QSignalSpy told(&strip, &Vela::UiToolkit::ImageViewerToolBar::KeyReleased);
    QTest::keyRelease(&strip, Qt::Key_F35);
    QCOMPARE(told.count(), 1);
}

void TestToolBarBadInput::flyoutIgnoresNothing()
{
    MenuScene scene;
    FlyoutBase *const flyout = scene.flyout();
    flyout->AddSubWidget(nullptr, noDirection);
    flyout->AddSubWidget(new QWidget(flyout), noDirection);
    flyout->RemoveSubWidget(nullptr);
    flyout->EnableInfoButton(true, nullptr);
    flyout->SetInfoWidgetPos();
    flyout->SetBounds(QRect(), QRect(5, 5, -9, -9));
    flyout->SetToolButton(nullptr);
    flyout->SetTitle(QString());
    flyout->SetApplyButtonText(QString());
    flyout->SetCancelButtonText(QString());
    flyout->SetReferencePoint(QPoint(lowest / 4, highest / 4), nullptr, QPoint(-500, 500));
    flyout->OnExitBusyMode();
    QPoint place(3, 4);
    QVERIFY(flyout->GetPositionOnReferencePoint(place));
    QCOMPARE(flyout->FindItemIndexInLayout(nullptr), -1);
    QVERIFY(!flyout->InfoDialog());
    QVERIFY(!flyout->ToolButton());
    flyout->show();
    QVERIFY(flyout->isVisible());
    flyout->CloseMe();
    flyout->CloseMe();
}

void TestToolBarBadInput::commandWithoutFlyoutDoesNothing()
{
    const auto command = std::make_shared<BareCommand>(nullptr);
    command->onBegin();
    command->onReset();
    command->onESCKeyReleased();
    command->onExitCommand();
    command->onFinalize();
    command->onFinalize();
    QVERIFY(!command->flyout());
    QVERIFY(!command->simpleFlyout());
    QVERIFY(command->isSimpleFlyout());
    command->trigger();
    CycleCheckableCommand cycle(nullptr, QKeySequence(), nullptr);
    QVERIFY(!cycle.onExecuteAsync(true));
    QCOMPARE(cycle.commandId(), CycleCheckableCommand::className());
}

LUMO_TEST_MAIN(TestToolBarBadInput)
#include "tst_toolbarbadinput.moc"
