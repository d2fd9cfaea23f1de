// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include <ui_base/ToolButtonWithButtonMenu>

#include "support/mouse.h"
#include "support/paintcounter.h"
#include "support/testcase.h"
#include "support/testmain.h"
#include "ui_base/popup/widgetposcalculator.h"
#include "ui_base/qtui/tooltip/tooltipobject.h"
#include "ui_base/toolbar/menuscene.h"

#include <lumo_common_res/Styles>

#include <QAccessible>
#include <QCursor>
#include <QImage>

using Lumo::Test::colourOf;
using Lumo::Test::iconOf;
using Lumo::Test::MenuBar;
using Lumo::Test::MenuButton;
using Lumo::Test::MenuScene;
using Lumo::Test::PaintCounter;
using Vela::UiBase::EDirection;
using Vela::UiBase::EWidgetsAlign;
using Vela::UiBase::FloatingLayer;
using Vela::UiBase::ToolBar;
using Vela::UiBase::ToolButton;
using Vela::UiBase::ToolButtonWithButtonMenu;
using Vela::UiBase::ToolButtonWithMenu;
using Vela::UiBase::ToolButtonWithWidgetMenu;

namespace {

class Handler : public ToolButton::IToolButtonCallbackHandler
{
public:
    bool IsActionEnabled(QAction *) override { return answer; }
    bool answer = false;
};

/// A bar with one button, whose menu has two checkable buttons and one that is not.
class Scene : public MenuScene
{
public:
    Scene()
    {
        a = menuBar->AddAction(action(QStringLiteral("A"), true, Qt::green));
        b = menuBar->AddAction(action(QStringLiteral("B"), true, Qt::blue));
        c = menuBar->AddAction(action(QStringLiteral("C"), false, Qt::yellow));
        button = addMenu(menuBar);
    }

    bool hasTooltip() const { return button->GetTooltipObject()->IsTooltipEnabled(); }

    QPointer<MenuBar> menuBar = menu();
    ToolButton *a = nullptr;
    ToolButton *b = nullptr;
    ToolButton *c = nullptr;
    QPointer<ToolButtonWithButtonMenu> button;
};

/// The same with a button in the menu that opens a widget.
class ExtendScene : public Scene
{
public:
    ExtendScene()
    {
        child = menuBar->AddAction(action(QStringLiteral("W"), true, Qt::magenta), widget.data());
        button->SetExtendMode(true);
    }

    QPointer<QWidget> widget = new QWidget(window.get());
    QPointer<ToolButtonWithWidgetMenu> child;
};

QPoint placeOf(const QWidget &widget)
{
    return widget.mapToGlobal(QPoint(0, 0));
}

/// The pixels of the arrow that are fully covered, counted from the bottom right corner.
QList<QPoint> arrowOf(ToolButton &button)
{
    const QImage with = button.grab().toImage();
    button.SetLocked(true);
    const QImage without = button.grab().toImage();
    button.SetLocked(false);
    QList<QPoint> changed;
    for (int y = 0; y < with.height(); ++y) {
        for (int x = 0; x < with.width(); ++x) {
            if (with.pixel(x, y) != without.pixel(x, y))
                changed << QPoint(x, y) - button.rect().bottomRight();
        }
    }
    return changed;
}

} // namespace

class TestToolButtonWithButtonMenu : public Lumo::Test::TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();

    void newButtonHasItsDefaults();
    void assistiveToolsSeeABarOfTheNameOfItsButton();
    void menuTakesTheParametersOfTheBar();
    void menuIsReplacedAndDeleted();
    void nullMenuChangesNothing();
    void sameMenuAgainStays();
    void menuOfAnotherButtonIsTakenOver();
    void menuIsTakenOverInExtendMode();
    void barCannotBeItsOwnMenu();
    void buttonWithoutIconAdoptsOne_data();
    void buttonWithoutIconAdoptsOne();
    void buttonsWithoutIconsGiveNone();
    void hoverPictureIsKept();

    void clickOpensAndCloses();
    void menuOpensBesideTheButton_data();
    void menuOpensBesideTheButton();
    void placeIsThatOnTheScreen();
    void menuStaysInsideOfTheWindow();
    void menuOfAFloatingBarStaysInsideOfItsParent();
    void menuOfABarOnAFloatingPanelHasRoom();
    void openMenuFollowsItsButton();
    void visibilityIsToldByTheBar();
    void subMenuVisibilityIsToldByTheBar();

    void choiceShowsOnTheButton();
    void choiceOnAButtonThatIsNotCheckable();
    void chosenIconIsPinned();
    void choiceTakesTheDefaultActionAway();
    void choiceInExtendModeLeavesTheIcon();
    void replacedMenuIsHeardNoMore();
    void removedActionIsHeardNoMore();
    void closedButtonStaysCheckedWhileAChildIs();
    void closingClearsTheSelection();
    void clearedChoiceIsNotShownAnyMore();
    void hideWithoutMenuDoesNothing();

    void handlersOfTheMenuEnableTheButton();
    void subButtonWithoutHandlerCarriesTheLastAnswer();
    void buttonWithEmptyMenuIsDisabled();
    void subButtonsWithoutActionAddNothing();
    void actionsOfTheMenuAreAssociated();

    void arrowPointsToTheMenu_data();
    void arrowPointsToTheMenu();
    void arrowFollowsTheSize();
    void lockedButtonHasNoArrow();
    void arrowComesBackWithTheLock();
    void builtInArrowIsNotDrawn();
    void laterButtonsLookLikeTheFirst();

    void childOpensThroughTheButton();
    void exitByClickOnTheButton();
    void exitUnlocksTheBar();
    void exitWithoutEnteringOnlyUnchecks();
    void pointerLeavesTheBorrowedIconAlone();
    void extendModeNeedsAMenu();
    void switchedOffChildKeepsItsController();
    void switchedOnAgainConnectsAgain();
    void popupThatHidesItselfIsNoticedOutsideOfExtendMode();
    void enteringNullDoesNothing();
    void secondChildTakesOver();
    void hidingWithoutStateEndsExtendMode();
    void hidingWithStateKeepsExtendMode();
    void childThatDiesEndsExtendMode();
    void endOfTheMenuMayDeleteTheButton();

    void endsWithItsMenuOpen_data();
    void endsWithItsMenuOpen();
};

void TestToolButtonWithButtonMenu::initTestCase()
{
    // Away from where the buttons stand.
    QCursor::setPos(700, 590);
}

void TestToolButtonWithButtonMenu::assistiveToolsSeeABarOfTheNameOfItsButton()
{
    const Scene scene;
    QAccessibleInterface *const button = QAccessible::queryAccessibleInterface(scene.button);
    QCOMPARE(button->role(), QAccessible::ButtonMenu);
    QAccessibleInterface *const bar = QAccessible::queryAccessibleInterface(scene.menuBar);
    QCOMPARE(bar->role(), QAccessible::ToolBar);
    scene.button->setAccessibleName(QStringLiteral("Modes"));
    QCOMPARE(bar->text(QAccessible::Name), QStringLiteral("Modes"));
    scene.menuBar->setAccessibleName(QStringLiteral("Mine"));
    QCOMPARE(bar->text(QAccessible::Name), QStringLiteral("Mine"));
    QCOMPARE(QAccessible::queryAccessibleInterface(scene.bar)->text(QAccessible::Name), QString());
}

void TestToolButtonWithButtonMenu::newButtonHasItsDefaults()
{
    const Scene scene;
    QCOMPARE(scene.button->GetMenu(), scene.menuBar.data());
    QVERIFY(!scene.button->IsMenuShowing());
    QVERIFY(!scene.button->IsInExtendMode());
    QVERIFY(!scene.button->isCheckable());
    QVERIFY(!scene.button->isChecked());
    QVERIFY(scene.button->SaveMenuState());
    QCOMPARE(scene.button->Action(), nullptr);
    QVERIFY(scene.button->IsSubMenuButton(scene.a));
    QVERIFY(!scene.button->IsSubMenuButton(scene.button));
    QCOMPARE(colourOf(*scene.button), QColor(Qt::gray));
    const ToolButtonWithButtonMenu bare(QIcon(), nullptr, nullptr, QStringLiteral("Menu"), nullptr);
    QCOMPARE(bare.GetMenu(), nullptr);
    QCOMPARE(bare.GetTooltipObject()->objectName(), QStringLiteral("Menu"));
}

void TestToolButtonWithButtonMenu::menuTakesTheParametersOfTheBar()
{
    const MenuScene scene;
    scene.bar->SetButtonSpacing(3);
    scene.bar->SetMainContentMargins(QMargins(1, 2, 3, 4));
    scene.bar->SetButtonGroupSpacing(7);
    scene.bar->SetGroupContentMargins(QMargins(5, 6, 7, 8));
    scene.bar->SetButtonSize(QSize(40, 40));
    MenuBar *const menu = scene.menu();
    menu->SetEnableAutoPosition(true);
    menu->show();
    const ToolButtonWithButtonMenu button(QIcon(), scene.bar, menu, QString(), scene.bar);
    QCOMPARE(menu->GetButtonSpacing(), 3);
    QCOMPARE(menu->GetMainContentMargins(), QMargins(1, 2, 3, 4));
    QCOMPARE(menu->GetButtonGroupSpacing(), 7);
    QCOMPARE(menu->GetGroupContentMargins(), QMargins(5, 6, 7, 8));
    QCOMPARE(menu->ButtonSize(), QSize(40, 40));
    QVERIFY(!menu->opened()->autoPositionEnabled);
    QVERIFY(!menu->isVisible());
    QCOMPARE(menu->GetBaseToolBar(), scene.bar.data());
}

void TestToolButtonWithButtonMenu::menuIsReplacedAndDeleted()
{
    Scene scene;
    const QPointer<QWidget> layer = scene.menuBar->parentWidget();
    MenuBar *const next = scene.menu();
    scene.button->SetMenu(next);
    QVERIFY(!scene.menuBar);
    QCOMPARE(scene.button->GetMenu(), next);
    QCoreApplication::sendPostedEvents(layer, QEvent::DeferredDelete);
    QVERIFY(!layer);
}

void TestToolButtonWithButtonMenu::nullMenuChangesNothing()
{
    Scene scene;
    scene.button->SetMenu(nullptr);
    QCOMPARE(scene.button->GetMenu(), scene.menuBar.data());
    QVERIFY(scene.menuBar);
}

void TestToolButtonWithButtonMenu::sameMenuAgainStays()
{
    Scene scene;
    scene.button->SetMenu(scene.menuBar);
    QVERIFY(scene.menuBar);
    QCOMPARE(colourOf(*scene.button), QColor(Qt::gray)); // it has an icon, and adopts none
    scene.button->setCheckable(true);
    QSignalSpy toggled(scene.button, &QAbstractButton::toggled);
    scene.a->Action()->setChecked(true);
    QCOMPARE(toggled.count(), 1);
}

void TestToolButtonWithButtonMenu::menuOfAnotherButtonIsTakenOver()
{
    Scene scene;
    scene.button->ShowMenu();
    ToolButtonWithButtonMenu *const other = scene.addMenu(scene.menuBar);
    QVERIFY(!scene.menuBar->isVisible());
    QCOMPARE(scene.button->GetMenu(), nullptr);
    QCOMPARE(other->GetMenu(), scene.menuBar.data());
    scene.button->click();
    QVERIFY(!scene.menuBar->isVisible());
    delete scene.button;
    QVERIFY(scene.menuBar);
    other->click();
    QVERIFY(scene.menuBar->isVisible());
}

void TestToolButtonWithButtonMenu::menuIsTakenOverInExtendMode()
{
    ExtendScene scene;
    scene.child->click();
    scene.bar->hide(); // which remembers the popup
    ToolButtonWithButtonMenu *const other = scene.addMenu(scene.menuBar);
    QVERIFY(!scene.button->IsInExtendMode());
    QCOMPARE(colourOf(*scene.button), QColor(Qt::gray));
    other->SetExtendMode(true);
    scene.bar->show();
    QVERIFY(!scene.widget->isVisible());
    scene.child->ShowMenu();
    QSignalSpy told(scene.button, &ToolButtonWithMenu::ButtonMenuVisibilityChange);
    scene.child->GetMenu()->hide();
    QCOMPARE(told.count(), 0);
}

void TestToolButtonWithButtonMenu::barCannotBeItsOwnMenu()
{
    Scene scene;
    scene.button->SetMenu(scene.bar);
    QCOMPARE(scene.button->GetMenu(), scene.menuBar.data());
    QCOMPARE(scene.menuBar->AddAction(nullptr, QIcon(), scene.bar.data(), true), nullptr);
    QCOMPARE(scene.menuBar->AddAction(nullptr, QIcon(), scene.menuBar.data(), true), nullptr);
    QCOMPARE(scene.bar->GetBaseToolBar(), scene.bar.data());
}

void TestToolButtonWithButtonMenu::buttonWithoutIconAdoptsOne_data()
{
    QTest::addColumn<bool>("isSecondChecked");
    QTest::addColumn<QColor>("colour");
    QTest::newRow("first action") << false << QColor(Qt::green);
    QTest::newRow("checked action") << true << QColor(Qt::blue);
}

void TestToolButtonWithButtonMenu::buttonWithoutIconAdoptsOne()
{
    QFETCH(bool, isSecondChecked);
    QFETCH(QColor, colour);
    Scene scene;
    scene.b->Action()->setChecked(isSecondChecked);
    ToolButtonWithButtonMenu *const other = scene.addMenu(scene.menuBar, QIcon());
    QCOMPARE(colourOf(*other), colour);
    QCOMPARE(other->GetFirstSubMenuAction(false), scene.a->Action());
    QCOMPARE(other->GetFirstSubMenuAction(true), isSecondChecked ? scene.b->Action() : nullptr);
    other->IconState(true);
    QCOMPARE(colourOf(*other), colour);
}

void TestToolButtonWithButtonMenu::buttonsWithoutIconsGiveNone()
{
    MenuScene scene;
    MenuBar *const menu = scene.menu();
    QAction action(QStringLiteral("A"));
    action.setCheckable(true);
    action.setChecked(true);
    menu->AddAction(&action);
    const ToolButtonWithButtonMenu *const button = scene.addMenu(menu, QIcon());
    QVERIFY(button->icon().isNull());
}

// The menu has the button prepare its pictures before its size is known.
void TestToolButtonWithButtonMenu::hoverPictureIsKept()
{
    MenuScene scene;
    MenuBar *const menu = scene.menu();
    QAction first(iconOf(Qt::green, Qt::darkGreen), QStringLiteral("A"));
    menu->AddAction(&first);
    scene.bar->SetButtonSize(QSize(50, 50));
    ToolButtonWithButtonMenu *const adopted = scene.addMenu(menu, QIcon());
    adopted->IconState(true);
    QCOMPARE(colourOf(*adopted), QColor(Qt::darkGreen));
    adopted->IconState(false);
    QCOMPARE(colourOf(*adopted), QColor(Qt::green));
    QAction own(iconOf(Qt::red, Qt::darkRed), QStringLiteral("Own"));
    ToolButtonWithButtonMenu *const withAction =
        scene.bar->AddAction(&own, iconOf(Qt::gray), scene.menu(), true);
    withAction->IconState(true);
    QCOMPARE(colourOf(*withAction), QColor(Qt::darkRed));
    withAction->IconState(false);
    QCOMPARE(colourOf(*withAction), QColor(Qt::red));
    // Also when the size is right from the start.
    scene.bar->opened()->iconSize = QToolButton().iconSize();
    MenuBar *const next = scene.menu();
    next->AddAction(&first);
    ToolButtonWithButtonMenu *const sized = scene.bar->AddAction(&own, QIcon(), next, true);
    sized->IconState(true);
    QCOMPARE(colourOf(*sized), QColor(Qt::darkRed));
}

void TestToolButtonWithButtonMenu::clickOpensAndCloses()
{
    Scene scene;
    QVERIFY(scene.hasTooltip());
    QTest::mouseClick(scene.button, Qt::LeftButton);
    QVERIFY(scene.button->IsMenuShowing());
    QVERIFY(scene.a->isVisible());
    QVERIFY(!scene.hasTooltip());
    QTest::mouseClick(scene.button, Qt::LeftButton);
    QVERIFY(!scene.button->IsMenuShowing());
    QVERIFY(scene.hasTooltip());
}

void TestToolButtonWithButtonMenu::menuOpensBesideTheButton_data()
{
    QTest::addColumn<EDirection>("direction");
    QTest::addColumn<EWidgetsAlign>("align");
    QTest::addColumn<QPoint>("fromCorner"); // of the button of 36 x 36, for a menu of 112 x 38
    QTest::newRow("right") << EDirection::Right << EWidgetsAlign::AlignCenter << QPoint(40, -1);
    QTest::newRow("right start") << EDirection::Right << EWidgetsAlign::AlignStart << QPoint(40, 0);
    QTest::newRow("left") << EDirection::Left << EWidgetsAlign::AlignStart << QPoint(-117, 0);
    QTest::newRow("top") << EDirection::Top << EWidgetsAlign::AlignStart << QPoint(0, -43);
    QTest::newRow("bottom") << EDirection::Bottom << EWidgetsAlign::AlignStart << QPoint(0, 40);
}

void TestToolButtonWithButtonMenu::menuOpensBesideTheButton()
{
    QFETCH(EDirection, direction);
    QFETCH(EWidgetsAlign, align);
    QFETCH(QPoint, fromCorner);
    Scene scene;
    scene.bar->move(400, 300);
    scene.button->SetMenuParameters(direction, 5, align, QPoint(0, 0));
    scene.button->ShowMenu();
    QCOMPARE(scene.menuBar->size(), QSize(112, 38));
    QCOMPARE(placeOf(*scene.menuBar) - placeOf(*scene.button), fromCorner);
}

// The window is not at the corner of the screen, so places in the window are others than those on the
// screen.
void TestToolButtonWithButtonMenu::placeIsThatOnTheScreen()
{
    Scene scene;
    scene.window->move(900, 700);
    QCoreApplication::processEvents();
    scene.button->SetMenuParameters(EDirection::Right, 5, EWidgetsAlign::AlignStart, QPoint(0, 0));
    scene.button->ShowMenu();
    QCOMPARE(placeOf(*scene.menuBar) - placeOf(*scene.button), QPoint(40, 0));
    // A menu that does not float is placed in its parent.
    auto *const plain = new MenuBar(scene.window.get(), Qt::TopToolBarArea);
    plain->AddAction(scene.action());
    ToolButtonWithButtonMenu *const other = scene.addMenu(plain);
    other->SetMenuParameters(EDirection::Right, 5, EWidgetsAlign::AlignStart, QPoint(1, 2));
    other->ShowMenu();
    QCOMPARE(placeOf(*plain) - placeOf(*other), QPoint(41, 2));
}

void TestToolButtonWithButtonMenu::menuStaysInsideOfTheWindow()
{
    Scene scene;
    scene.window->move(300, 200);
    QCoreApplication::processEvents();
    scene.bar->move(740, 300);
    scene.button->SetMenuParameters(EDirection::Right, 5, EWidgetsAlign::AlignStart, QPoint(0, 0));
    scene.button->ShowMenu();
    QCOMPARE(placeOf(*scene.menuBar) - placeOf(*scene.button), QPoint(-117, 0));
}

void TestToolButtonWithButtonMenu::menuOfAFloatingBarStaysInsideOfItsParent()
{
    Scene scene;
    auto *const area = new QWidget(scene.window.get());
    area->setGeometry(0, 0, 300, 600);
    area->show();
    const auto floating = std::make_unique<MenuBar>(area, Qt::LeftToolBarArea);
    floating->move(200, 200);
    QVERIFY(FloatingLayer::makeWidgetFloating(floating.get(), QMargins()));
    floating->show();
    MenuBar *const menu = scene.menu();
    menu->AddAction(scene.action());
    menu->AddAction(scene.action());
    ToolButtonWithButtonMenu *const button =
        floating->AddAction(nullptr, iconOf(Qt::gray), menu, true);
    QCoreApplication::processEvents();
    button->SetMenuParameters(EDirection::Right, 5, EWidgetsAlign::AlignStart, QPoint(0, 0));
    button->ShowMenu();
    QVERIFY(placeOf(*menu).x() < placeOf(*button).x());
}

// And not only that of the panel.
void TestToolButtonWithButtonMenu::menuOfABarOnAFloatingPanelHasRoom()
{
    MenuScene scene;
    QWidget panel(scene.window.get());
    panel.setGeometry(300, 200, 60, 60);
    MenuBar bar(&panel, Qt::LeftToolBarArea);
    MenuBar *const menu = scene.menu();
    menu->AddAction(scene.action());
    menu->AddAction(scene.action());
    ToolButtonWithButtonMenu *const button = bar.AddAction(nullptr, iconOf(Qt::gray), menu, true);
    QVERIFY(FloatingLayer::makeWidgetFloating(&panel, QMargins()));
    panel.show();
    QCoreApplication::processEvents();
    button->SetMenuParameters(EDirection::Right, 5, EWidgetsAlign::AlignStart, QPoint(0, 0));
    button->ShowMenu();
    QCOMPARE(placeOf(*menu) - placeOf(*button), QPoint(40, 0));
}

void TestToolButtonWithButtonMenu::openMenuFollowsItsButton()
{
    Scene scene;
    scene.button->ShowMenu();
    const QPoint distance = placeOf(*scene.menuBar) - placeOf(*scene.button);
    // A button that comes in above moves this one down.
    scene.bar->AddAction(scene.action(), QString(), -1);
    scene.bar->AdjustToolBarSize(true);
    QCoreApplication::processEvents();
    QVERIFY(scene.button->IsMenuShowing());
    QCOMPARE(placeOf(*scene.menuBar) - placeOf(*scene.button), distance);
}

void TestToolButtonWithButtonMenu::visibilityIsToldByTheBar()
{
    Scene scene;
    QSignalSpy told(scene.bar, &ToolBar::ButtonMenuVisibilityChange);
    scene.button->ShowMenu();
    scene.button->ShowMenu();
    QCOMPARE(told.count(), 1);
    QCOMPARE(told.first().at(0).value<ToolButton *>(), scene.button.data());
    QCOMPARE(told.first().at(1).toBool(), true);
    scene.button->HideMenu();
    QCOMPARE(told.count(), 2);
    QCOMPARE(told.last().at(1).toBool(), false);
}

void TestToolButtonWithButtonMenu::subMenuVisibilityIsToldByTheBar()
{
    Scene scene;
    MenuBar *const outer = scene.menu();
    ToolButtonWithButtonMenu *const inner =
        outer->AddAction(nullptr, iconOf(Qt::gray), scene.menu(), true);
    const ToolButtonWithButtonMenu *const owner = scene.addMenu(outer);
    QSignalSpy told(scene.bar, &ToolBar::ButtonMenuVisibilityChange);
    inner->ShowMenu();
    QCOMPARE(told.count(), 1);
    QCOMPARE(told.first().at(0).value<ToolButton *>(), inner);
    QVERIFY(!owner->IsMenuShowing());
}

void TestToolButtonWithButtonMenu::choiceShowsOnTheButton()
{
    Scene scene;
    scene.button->setCheckable(true);
    scene.button->ShowMenu();
    QTest::mouseClick(scene.b, Qt::LeftButton);
    QVERIFY(scene.button->isChecked());
    QCOMPARE(colourOf(*scene.button), QColor(Qt::blue));
    QVERIFY(!scene.button->IsMenuShowing()); // the menu hides on a click
    scene.button->ShowMenu();
    QTest::mouseClick(scene.b, Qt::LeftButton);
    QVERIFY(!scene.button->isChecked());
    QCOMPARE(colourOf(*scene.button), QColor(Qt::gray));
}

void TestToolButtonWithButtonMenu::choiceOnAButtonThatIsNotCheckable()
{
    Scene scene;
    scene.button->setIcon(iconOf(Qt::white));
    scene.a->Action()->setChecked(true);
    QCOMPARE(colourOf(*scene.button), QColor(Qt::gray));
    QVERIFY(!scene.button->isChecked());
    // One that is not checkable leaves a checkable button as it is.
    scene.button->setCheckable(true);
    scene.button->setIcon(iconOf(Qt::white));
    scene.c->Action()->trigger();
    QCOMPARE(colourOf(*scene.button), QColor(Qt::white));
    QVERIFY(scene.button->isChecked());
}

void TestToolButtonWithButtonMenu::chosenIconIsPinned()
{
    Scene scene;
    scene.button->IconState(false); // its own pictures are prepared
    scene.button->setCheckable(true);
    scene.a->Action()->setChecked(true);
    scene.button->IconState(true);
    scene.button->IconState(false);
    QCOMPARE(colourOf(*scene.button), QColor(Qt::green));
}

void TestToolButtonWithButtonMenu::choiceTakesTheDefaultActionAway()
{
    Scene scene;
    scene.button->setDefaultAction(scene.action(QStringLiteral("Own")));
    QVERIFY(!scene.button->toolTip().isEmpty());
    scene.c->Action()->trigger();
    QCOMPARE(scene.button->defaultAction(), nullptr);
    QVERIFY(scene.button->toolTip().isEmpty());
}

void TestToolButtonWithButtonMenu::choiceInExtendModeLeavesTheIcon()
{
    Scene scene;
    scene.button->SetExtendMode(true);
    scene.button->setCheckable(true);
    scene.button->setDefaultAction(scene.action(QStringLiteral("Own"), true, Qt::white));
    scene.a->Action()->setChecked(true);
    QCOMPARE(colourOf(*scene.button), QColor(Qt::white));
    QVERIFY(!scene.button->isChecked());
    QCOMPARE(scene.button->defaultAction(), nullptr);
}

void TestToolButtonWithButtonMenu::replacedMenuIsHeardNoMore()
{
    Scene scene;
    scene.button->setCheckable(true);
    QAction *const action = scene.a->Action();
    scene.button->SetMenu(scene.menu());
    scene.button->setIcon(iconOf(Qt::white));
    action->setChecked(true);
    QCOMPARE(colourOf(*scene.button), QColor(Qt::white));
}

void TestToolButtonWithButtonMenu::removedActionIsHeardNoMore()
{
    Scene scene;
    scene.button->setCheckable(true);
    QAction *const action = scene.a->Action();
    QVERIFY(scene.menuBar->RemoveButton(action));
    scene.button->setIcon(iconOf(Qt::white));
    action->setChecked(true);
    QCOMPARE(colourOf(*scene.button), QColor(Qt::white));
}

void TestToolButtonWithButtonMenu::closedButtonStaysCheckedWhileAChildIs()
{
    Scene scene;
    scene.button->setCheckable(true);
    scene.button->ShowMenu();
    QVERIFY(scene.button->isChecked());
    scene.button->HideMenu();
    QVERIFY(!scene.button->isChecked());
    scene.a->Action()->setChecked(true);
    scene.button->ShowMenu();
    scene.button->HideMenu();
    QVERIFY(scene.button->isChecked());
}

void TestToolButtonWithButtonMenu::closingClearsTheSelection()
{
    Scene scene;
    QSignalSpy cleared(scene.button, &ToolButtonWithButtonMenu::ButtonMenuCleared);
    scene.button->setIcon(iconOf(Qt::gray, Qt::white));
    scene.button->InitIcons();
    scene.button->setCheckable(true);
    scene.a->Action()->setChecked(true);
    scene.button->HideMenu();
    QCOMPARE(cleared.count(), 0);
    scene.button->SetClearSelectionOnHide(true);
    scene.button->HideMenu(); // closed already
    QCOMPARE(cleared.count(), 1);
    QVERIFY(!scene.a->Action()->isChecked());
    QVERIFY(!scene.button->isChecked());
    QCOMPARE(colourOf(*scene.button), QColor(Qt::gray));
    scene.button->IconState(true); // the choice sticks no more
    QCOMPARE(colourOf(*scene.button), QColor(Qt::white));
    scene.button->HideMenu();
    QCOMPARE(cleared.count(), 2);
}

// Chosen by a key, say, before the pointer was ever over the button.
void TestToolButtonWithButtonMenu::clearedChoiceIsNotShownAnyMore()
{
    Scene scene;
    scene.button->setCheckable(true);
    scene.button->SetClearSelectionOnHide(true);
    scene.a->Action()->setChecked(true);
    scene.button->IconState(true);
    QCOMPARE(colourOf(*scene.button), QColor(Qt::green));
    scene.button->HideMenu();
    QCOMPARE(colourOf(*scene.button), QColor(Qt::gray));
    scene.button->IconState(true);
    QCOMPARE(colourOf(*scene.button), QColor(Qt::gray));
}

void TestToolButtonWithButtonMenu::hideWithoutMenuDoesNothing()
{
    ToolButtonWithButtonMenu button(iconOf(Qt::gray), nullptr, nullptr, QString(), nullptr);
    QSignalSpy cleared(&button, &ToolButtonWithButtonMenu::ButtonMenuCleared);
    button.SetClearSelectionOnHide(true);
    button.setCheckable(true);
    button.setChecked(true);
    button.HideMenu();
    button.HideMenuEx();
    button.ShowMenu();
    button.click();
    button.EnableActions();
    button.ApplyBaseToolBarParamsToButtonMenu();
    QCOMPARE(button.GetMenuPosition(), QPoint());
    QCOMPARE(cleared.count(), 0);
    QVERIFY(button.isEnabled());
    button.OnEnterExtendMode(&button);
    QVERIFY(button.IsInExtendMode());
    button.OnExitExtendMode();
    QVERIFY(!button.IsInExtendMode());
}

void TestToolButtonWithButtonMenu::handlersOfTheMenuEnableTheButton()
{
    Scene scene;
    Handler handler;
    for (const ToolButton *const button : {scene.a, scene.b, scene.c})
        scene.bar->AddCallbackHandler(&handler, button->Action());
    scene.bar->EnableActions();
    QVERIFY(!scene.button->isEnabled());
    QVERIFY(!scene.a->Action()->isEnabled());
    QVERIFY(!scene.c->Action()->isEnabled());
    handler.answer = true;
    scene.bar->EnableActions();
    QVERIFY(scene.button->isEnabled());
    QVERIFY(scene.b->Action()->isEnabled());
}

void TestToolButtonWithButtonMenu::subButtonWithoutHandlerCarriesTheLastAnswer()
{
    Scene scene;
    Handler no;
    scene.button->SetCallbackHandler(scene.a->Action(), &no);
    scene.button->EnableActions();
    QVERIFY(!scene.button->isEnabled()); // the two others count as the first one
    QVERIFY(scene.b->Action()->isEnabled());
    // Before the first answer it is the state of the button itself that counts.
    Scene last;
    last.button->SetCallbackHandler(last.c->Action(), &no);
    last.button->EnableActions();
    QVERIFY(last.button->isEnabled());
    last.button->setEnabled(false);
    last.button->EnableActions();
    QVERIFY(!last.button->isEnabled());
}

void TestToolButtonWithButtonMenu::buttonWithEmptyMenuIsDisabled()
{
    const MenuScene scene;
    ToolButtonWithButtonMenu *const button = scene.addMenu(scene.menu());
    QVERIFY(button->isEnabled());
    button->EnableActions();
    QVERIFY(!button->isEnabled());
}

void TestToolButtonWithButtonMenu::subButtonsWithoutActionAddNothing()
{
    const MenuScene scene;
    MenuBar *const outer = scene.menu();
    outer->AddAction(nullptr, iconOf(Qt::gray), scene.menu(), true);
    ToolButtonWithButtonMenu *const button = scene.addMenu(outer);
    button->EnableActions();
    QVERIFY(!button->isEnabled());
}

void TestToolButtonWithButtonMenu::actionsOfTheMenuAreAssociated()
{
    Scene scene;
    QAction *const own = scene.action(QStringLiteral("Own"));
    const ToolButtonWithButtonMenu *const other =
        scene.bar->AddAction(own, QIcon(), scene.menu(), true);
    QVERIFY(other->defaultAction() == own);
    QVERIFY(!const_cast<ToolButtonWithButtonMenu *>(other)->IsActionAssociated(own));
    QVERIFY(scene.button->IsActionAssociated(scene.b->Action()));
    QVERIFY(!scene.button->IsActionAssociated(nullptr));
    QVERIFY(!scene.button->IsActionAssociated(own));
}

void TestToolButtonWithButtonMenu::arrowPointsToTheMenu_data()
{
    QTest::addColumn<EDirection>("direction");
    QTest::addColumn<bool>("isOpen");
    QTest::addColumn<QPoint>("inside");  // a pixel of the arrow, from the bottom right corner
    QTest::addColumn<QPoint>("outside"); // a pixel of the arrow to the other side
    QTest::newRow("left") << EDirection::Left << false << QPoint(-4, -7) << QPoint(-6, -7);
    QTest::newRow("left open") << EDirection::Left << true << QPoint(-6, -7) << QPoint(-4, -7);
    QTest::newRow("right") << EDirection::Right << false << QPoint(-6, -7) << QPoint(-4, -7);
    QTest::newRow("right open") << EDirection::Right << true << QPoint(-4, -7) << QPoint(-6, -7);
    QTest::newRow("top") << EDirection::Top << false << QPoint(-8, -3) << QPoint(-8, -5);
    QTest::newRow("top open") << EDirection::Top << true << QPoint(-8, -5) << QPoint(-8, -3);
    QTest::newRow("bottom") << EDirection::Bottom << false << QPoint(-8, -5) << QPoint(-8, -3);
    QTest::newRow("bottom open") << EDirection::Bottom << true << QPoint(-8, -3) << QPoint(-8, -5);
    QTest::newRow("none") << EDirection::NoDirection << false << QPoint(-8, -5) << QPoint(-8, -3);
}

void TestToolButtonWithButtonMenu::arrowPointsToTheMenu()
{
    QFETCH(EDirection, direction);
    QFETCH(bool, isOpen);
    QFETCH(QPoint, inside);
    QFETCH(QPoint, outside);
    Scene scene;
    scene.bar->move(400, 300);
    scene.button->SetMenuParameters(direction, 5, EWidgetsAlign::AlignCenter, QPoint(0, 0));
    if (isOpen)
        scene.button->ShowMenu();
    const QList<QPoint> arrow = arrowOf(*scene.button);
    QVERIFY(arrow.contains(inside));
    QVERIFY(!arrow.contains(outside));
    if (!isOpen)
        return;
    scene.button->HideMenu();
    QVERIFY(arrowOf(*scene.button).contains(outside));
}

void TestToolButtonWithButtonMenu::arrowFollowsTheSize()
{
    Scene scene;
    scene.bar->SetButtonSize(QSize(50, 44));
    scene.button->SetMenuParameters(EDirection::Bottom, 5, EWidgetsAlign::AlignCenter, QPoint());
    QVERIFY(arrowOf(*scene.button).contains(QPoint(-6, -5)));
    scene.button->setFixedSize(60, 60);
    QCOMPARE(scene.button->size(), QSize(60, 60));
    const QList<QPoint> arrow = arrowOf(*scene.button);
    QVERIFY(arrow.contains(QPoint(-6, -5)));
    QVERIFY(!arrow.contains(QPoint(-16, -21)));
}

void TestToolButtonWithButtonMenu::lockedButtonHasNoArrow()
{
    Scene scene;
    const QPoint inside = scene.button->rect().bottomRight() + QPoint(-5, -4);
    const QColor arrow = scene.button->grab().toImage().pixelColor(inside);
    scene.bar->SetLocked(true);
    const QColor ground = scene.button->grab().toImage().pixelColor(inside);
    QVERIFY(arrow.lightness() < ground.lightness() - 50);
}

void TestToolButtonWithButtonMenu::arrowComesBackWithTheLock()
{
    Scene scene;
    scene.bar->show();
    QVERIFY(QTest::qWaitForWindowExposed(scene.bar));
    scene.bar->SetLocked(true);
    QCoreApplication::processEvents();
    PaintCounter counter;
    scene.button->installEventFilter(&counter);
    scene.bar->SetLocked(false);
    QTRY_VERIFY(counter.paints > 0);
}

void TestToolButtonWithButtonMenu::builtInArrowIsNotDrawn()
{
    Scene scene;
    scene.button->SetLocked(true);
    const QImage before = scene.button->grab().toImage();
    // With more than one action a button draws an arrow of its own.
    scene.button->addAction(scene.action());
    scene.button->addAction(scene.action());
    QCOMPARE(scene.button->grab().toImage(), before);
}

void TestToolButtonWithButtonMenu::laterButtonsLookLikeTheFirst()
{
    qApp->setStyleSheet(Vela::Resource::Styles::Instance().ApplicationStyleSheet());
    const MenuScene scene;
    QList<ToolButton *> buttons;
    for (int i = 0; i < 3; ++i)
        buttons << scene.addMenu(scene.menu(), iconOf(Qt::gray));
    scene.bar->show();
    for (ToolButton *const button : buttons) {
        button->setCheckable(true);
        button->setChecked(true);
    }
    const QImage first = buttons.first()->grab().toImage();
    const QImage second = buttons.at(1)->grab().toImage();
    const QImage third = buttons.at(2)->grab().toImage();
    qApp->setStyleSheet(QString());
    QCOMPARE(second, first);
    QCOMPARE(third, first);
}

void TestToolButtonWithButtonMenu::childOpensThroughTheButton()
{
    ExtendScene scene;
    scene.button->setCheckable(true);
    QCOMPARE(scene.child->ExtendController(), scene.button.data());
    scene.button->ShowMenu();
    QTest::mouseClick(scene.child, Qt::LeftButton);
    QVERIFY(scene.button->IsInExtendMode());
    QVERIFY(scene.button->IsStandingInFor(scene.child));
    QVERIFY(!scene.menuBar->isVisible());
    QVERIFY(scene.widget->isVisible());
    QVERIFY(scene.button->isChecked());
    QVERIFY(!scene.hasTooltip());
    QCOMPARE(colourOf(*scene.button), QColor(Qt::magenta));
    QCOMPARE(scene.bar->GetActiveButton(), scene.child.data());
    QCOMPARE(scene.button->SavedMenuOwner(), scene.child.data());
    QCOMPARE(scene.child->GetPosCalculator()->RefWidget(), scene.button.data());
}

void TestToolButtonWithButtonMenu::exitByClickOnTheButton()
{
    ExtendScene scene;
    scene.button->setCheckable(true);
    scene.a->GetTooltipObject()->SetEnableTooltip(false);
    scene.child->click();
    QVERIFY(scene.button->IsInExtendMode());
    QTest::mouseClick(scene.button, Qt::LeftButton);
    QVERIFY(scene.a->GetTooltipObject()->IsTooltipEnabled());
    QVERIFY(!scene.button->IsInExtendMode());
    QVERIFY(!scene.widget->isVisible());
    QVERIFY(!scene.button->IsMenuShowing());
    QVERIFY(!scene.button->isChecked());
    QVERIFY(scene.hasTooltip());
    QVERIFY(scene.child->GetTooltipObject()->IsTooltipEnabled());
    QCOMPARE(colourOf(*scene.button), QColor(Qt::gray));
    QCOMPARE(scene.bar->GetActiveButton(), nullptr);
    QCOMPARE(scene.button->SavedMenuOwner(), nullptr);
    QVERIFY(!scene.button->SaveMenuState());
    QTest::mouseClick(scene.button, Qt::LeftButton);
    QVERIFY(scene.button->IsMenuShowing());
}

void TestToolButtonWithButtonMenu::exitUnlocksTheBar()
{
    ExtendScene scene;
    ToolButton *const plain = scene.bar->AddAction(scene.action());
    scene.child->click();
    scene.bar->SetLocked(true);
    scene.button->OnExitExtendMode();
    QSignalSpy clicked(plain, &ToolButton::ToolButtonClicked);
    plain->click();
    QCOMPARE(clicked.count(), 1);
    QVERIFY(!plain->GetTooltipObject()->IsTooltipEnabled());
}

void TestToolButtonWithButtonMenu::exitWithoutEnteringOnlyUnchecks()
{
    ExtendScene scene;
    scene.button->setCheckable(true);
    scene.button->setChecked(true);
    scene.button->SetSaveMenuState(true);
    scene.bar->SetLocked(true);
    scene.button->OnExitExtendMode();
    QVERIFY(!scene.button->isChecked());
    QVERIFY(scene.button->SaveMenuState());
    QSignalSpy clicked(scene.button, &ToolButton::ToolButtonClicked);
    scene.button->click();
    QCOMPARE(clicked.count(), 0); // still locked
}

void TestToolButtonWithButtonMenu::pointerLeavesTheBorrowedIconAlone()
{
    ExtendScene scene;
    scene.button->IconState(true);
    scene.child->click();
    QEvent enter(QEvent::Enter);
    QCoreApplication::sendEvent(scene.button, &enter);
    Lumo::Test::pointAt(scene.button, QPoint(3, 3));
    QEvent leave(QEvent::Leave);
    QCoreApplication::sendEvent(scene.button, &leave);
    QCOMPARE(colourOf(*scene.button), QColor(Qt::magenta));
}

void TestToolButtonWithButtonMenu::extendModeNeedsAMenu()
{
    ToolButtonWithButtonMenu button(iconOf(Qt::gray), nullptr, nullptr, QString(), nullptr);
    button.setCheckable(true);
    button.SetExtendMode(true);
    QAction action(iconOf(Qt::green), QStringLiteral("A"));
    action.setCheckable(true);
    button.ActionTriggeredHandler(&action);
    QCOMPARE(colourOf(button), QColor(Qt::green)); // as without the mode
}

void TestToolButtonWithButtonMenu::switchedOffChildKeepsItsController()
{
    ExtendScene scene;
    scene.button->SetExtendMode(false);
    QCOMPARE(scene.child->ExtendController(), scene.button.data());
    Q_EMIT scene.child->RequestShowMenu();
    QVERIFY(!scene.widget->isVisible());
    scene.child->click();
    QVERIFY(scene.widget->isVisible());
    QVERIFY(scene.button->IsInExtendMode());
}

void TestToolButtonWithButtonMenu::switchedOnAgainConnectsAgain()
{
    ExtendScene scene;
    scene.button->SetExtendMode(false);
    scene.button->SetExtendMode(true);
    scene.button->SetExtendMode(true);
    QSignalSpy told(scene.child, &ToolButtonWithMenu::ButtonMenuVisibilityChange);
    Q_EMIT scene.child->RequestShowMenu();
    QVERIFY(scene.widget->isVisible());
    QVERIFY(scene.button->IsInExtendMode());
    QCOMPARE(told.count(), 1);
}

void TestToolButtonWithButtonMenu::popupThatHidesItselfIsNoticedOutsideOfExtendMode()
{
    ExtendScene scene;
    scene.child->click();
    QSignalSpy told(scene.button, &ToolButtonWithMenu::ButtonMenuVisibilityChange);
    scene.child->GetMenu()->hide();
    QCOMPARE(told.count(), 0);
    scene.button->OnExitExtendMode();
    scene.child->ShowMenu();
    told.clear();
    scene.child->GetMenu()->hide();
    QCOMPARE(told.count(), 1);
    QCOMPARE(told.first().at(1).toBool(), false);
    scene.button->SetExtendMode(false);
    scene.child->ShowMenu();
    scene.child->GetMenu()->hide();
    QCOMPARE(told.count(), 1);
}

void TestToolButtonWithButtonMenu::enteringNullDoesNothing()
{
    ExtendScene scene;
    scene.button->ShowMenu();
    scene.button->OnEnterExtendMode(nullptr);
    QVERIFY(!scene.button->IsInExtendMode());
    QVERIFY(scene.button->IsMenuShowing());
    QVERIFY(!scene.button->IsStandingInFor(nullptr));
}

void TestToolButtonWithButtonMenu::secondChildTakesOver()
{
    ExtendScene scene;
    QPointer<QWidget> second = new QWidget(scene.window.get());
    ToolButtonWithWidgetMenu *const other =
        scene.menuBar->AddAction(scene.action(QStringLiteral("V"), false, Qt::cyan), second.data());
    scene.button->setCheckable(true);
    scene.button->SetExtendMode(false);
    scene.b->Action()->setChecked(true); // this choice shows and comes back
    scene.button->SetExtendMode(true);
    scene.child->click();
    scene.button->OnEnterExtendMode(other);
    QVERIFY(!scene.widget->isVisible());
    QVERIFY(scene.button->IsStandingInFor(other));
    QCOMPARE(colourOf(*scene.button), QColor(Qt::cyan));
    scene.button->OnEnterExtendMode(other);
    scene.button->OnExitExtendMode();
    QCOMPARE(colourOf(*scene.button), QColor(Qt::blue));
}

void TestToolButtonWithButtonMenu::hidingWithoutStateEndsExtendMode()
{
    ExtendScene scene;
    scene.child->click();
    scene.bar->HideAllButtonMenusExcept(false, nullptr);
    QVERIFY(!scene.button->IsInExtendMode());
    QVERIFY(!scene.widget->isVisible());
}

void TestToolButtonWithButtonMenu::hidingWithStateKeepsExtendMode()
{
    ExtendScene scene;
    scene.button->setCheckable(true);
    scene.child->click();
    scene.child->Action()->setChecked(false);
    scene.bar->hide();
    QVERIFY(!scene.widget->isVisible());
    QVERIFY(scene.button->IsInExtendMode());
    QVERIFY(scene.button->isChecked());
    scene.bar->show();
    QVERIFY(scene.widget->isVisible());
    QVERIFY(!scene.menuBar->isVisible());
    QVERIFY(scene.button->IsInExtendMode());
    QCOMPARE(colourOf(*scene.button), QColor(Qt::magenta));
    QCOMPARE(scene.button->SavedMenuOwner(), scene.child.data());
    // And once more, as nothing was lost.
    scene.bar->hide();
    scene.bar->show();
    QVERIFY(scene.widget->isVisible());
}

void TestToolButtonWithButtonMenu::childThatDiesEndsExtendMode()
{
    ExtendScene scene;
    scene.child->click();
    delete scene.child;
    QVERIFY(!scene.button->IsInExtendMode());
    QCOMPARE(colourOf(*scene.button), QColor(Qt::gray));
    QVERIFY(scene.widget);
    QVERIFY(!scene.widget->isVisible());
}

void TestToolButtonWithButtonMenu::endOfTheMenuMayDeleteTheButton()
{
    for (const bool isReplaced : {true, false}) {
        Scene scene;
        Vela::UiBase::FlyoutBase *const panel = scene.flyout();
        ToolButtonWithWidgetMenu *const child = scene.menuBar->AddAction(scene.action(), panel);
        scene.button->SetExtendMode(true);
        child->click();
        QVERIFY(panel->isVisible());
        connect(panel, &Vela::UiBase::FlyoutBase::CloseFlyout, this,
                [&scene] { delete scene.button; });
        const std::unique_ptr<MenuBar> next(scene.menu());
        if (isReplaced)
            scene.button->SetMenu(next.get());
        else
            delete scene.menuBar;
        QVERIFY(!scene.button);
        QCOMPARE(next->GetBaseToolBar(), next.get());
    }
}

void TestToolButtonWithButtonMenu::endsWithItsMenuOpen_data()
{
    QTest::addColumn<QString>("what");
    for (const char *const what : {"button", "menu", "bar", "window", "child", "widget", "layer"})
        QTest::newRow(what) << QString::fromLatin1(what);
}

void TestToolButtonWithButtonMenu::endsWithItsMenuOpen()
{
    QFETCH(QString, what);
    for (const bool isExtended : {false, true}) {
        ExtendScene scene;
        isExtended ? scene.child->click() : scene.button->click();
        const QHash<QString, QObject *> things {
            {QStringLiteral("button"), scene.button},
            {QStringLiteral("menu"), scene.menuBar},
            {QStringLiteral("bar"), scene.bar},
            {QStringLiteral("child"), scene.child},
            {QStringLiteral("widget"), scene.widget},
            {QStringLiteral("layer"), scene.menuBar->parentWidget()}};
        if (what == QStringLiteral("window"))
            scene.window.reset();
        else
            delete things.value(what);
        QCoreApplication::processEvents();
        if (scene.button) {
            scene.button->click();
            scene.button->click();
            scene.button->EnableActions();
            scene.button->HideMenu();
        }
        if (scene.bar) {
            scene.bar->hide();
            scene.bar->show();
            scene.bar->DismissLeafMenu();
        }
    }
}

LUMO_TEST_MAIN(TestToolButtonWithButtonMenu)
#include "tst_toolbuttonwithbuttonmenu.moc"
