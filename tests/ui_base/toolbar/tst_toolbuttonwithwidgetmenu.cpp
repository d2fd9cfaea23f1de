// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include <ui_base/ToolButtonWithWidgetMenu>

#include "support/testcase.h"
#include "support/testmain.h"
#include "ui_base/popup/widgetposcalculator.h"
#include "ui_base/qtui/tooltip/infodialog.h"
#include "ui_base/qtui/tooltip/tooltipobject.h"
#include "ui_base/toolbar/menuscene.h"

#include <QAccessible>
#include <QCursor>
#include <QGraphicsDropShadowEffect>
#include <QPushButton>
#include <QStackedWidget>

#include <algorithm>

using Lumo::Test::MenuBar;
using Lumo::Test::MenuScene;
using Vela::UiBase::ArrowedWindow;
using Vela::UiBase::EArrowPosition;
using Vela::UiBase::EDirection;
using Vela::UiBase::EWidgetsAlign;
using Vela::UiBase::FloatingLayer;
using Vela::UiBase::FlyoutBase;
using Vela::UiBase::InfoDialog;
using Vela::UiBase::ToolBar;
using Vela::UiBase::ToolButton;
using Vela::UiBase::ToolButtonWithButtonMenu;
using Vela::UiBase::ToolButtonWithMenu;
using Vela::UiBase::ToolButtonWithWidgetMenu;

namespace {

/// A bar with a button that opens a plain widget of 100 x 60.
class Scene : public MenuScene
{
public:
    Scene()
    {
        widget->setFixedSize(100, 60);
        button = bar->AddAction(action(QStringLiteral("Smooth")), widget.data());
    }

    bool hasTooltip() const { return button->GetTooltipObject()->IsTooltipEnabled(); }

    QPointer<QWidget> widget = new QWidget(window.get());
    QPointer<ToolButtonWithWidgetMenu> button;
};

/// A bar with a button that opens a flyout.
class FlyoutScene : public MenuScene
{
public:
    FlyoutScene() { button = bar->AddAction(action(QStringLiteral("Smooth"), true), panel.data()); }

    void click(const char *name) const
    {
        QTest::mouseClick(panel->findChild<QWidget *>(QString::fromLatin1(name)), Qt::LeftButton);
    }

    QPointer<FlyoutBase> panel = flyout();
    QPointer<ToolButtonWithWidgetMenu> button;
};

/// A bar with a menu, in which a button opens a flyout through the button of the menu.
class ExtendScene : public MenuScene
{
public:
    ExtendScene()
    {
        button = menuBar->AddAction(action(QStringLiteral("Smooth")), panel.data());
        controller = addMenu(menuBar);
        controller->SetExtendMode(true);
    }

    QPointer<MenuBar> menuBar = menu();
    QPointer<FlyoutBase> panel = flyout();
    QPointer<ToolButtonWithWidgetMenu> button;
    QPointer<ToolButtonWithButtonMenu> controller;
};

QPoint placeOf(const QWidget &widget)
{
    return widget.mapToGlobal(QPoint(0, 0));
}

QPoint tipOf(const ArrowedWindow &window)
{
    return window.mapToGlobal(window.GetArrowPoint());
}

ArrowedWindow::SArrowParam arrowAt(EArrowPosition position)
{
    ArrowedWindow::SArrowParam arrow;
    arrow.position = position;
    return arrow;
}

} // namespace

class TestToolButtonWithWidgetMenu : public Lumo::Test::TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();

    void newButtonHasItsDefaults();
    void assistiveToolsSeeAButtonThatOpensADialog();
    void popupIsInAFloatingWindow();
    void popupByItself();
    void nullAndOwnSurroundingsAreIgnored();
    void replacedWidgetIsDeleted_data();
    void replacedWidgetIsDeleted();
    void sameWidgetAgainStays_data();
    void sameWidgetAgainStays();
    void widgetOfAnotherButtonIsTakenOver_data();
    void widgetOfAnotherButtonIsTakenOver();
    void windowWithoutPopupStaysHidden();
    void widgetGoesBackToItsParent();
    void widgetOfAnotherButtonGoesBackToItsParent();
    void widgetWithoutParentGoesToThatOfTheBar();
    void widgetThatDiesClosesThePopup_data();
    void widgetThatDiesClosesThePopup();

    void clickOpensAndCloses();
    void openPopupCanStayAtAClick();
    void checkableButtonIsCheckedWhileOpen();
    void arrowPointsAtTheButton_data();
    void arrowPointsAtTheButton();
    void popupByItselfIsAligned();
    void popupStaysInsideOfTheWindow();
    void shadowIsSwitched();
    void openPopupCanBeRememberedOverAHide();

    void flyoutKnowsItsButton();
    void flyoutThatClosesItselfIsNoticed_data();
    void flyoutThatClosesItselfIsNoticed();
    void closingTheButtonsFlyoutIsToldOnce();
    void hiddenFlyoutIsStillToldToClose();
    void flyoutClosedWhileHiddenStaysClosed();
    void plainWidgetIsHiddenByCloseMenu();
    void escapeIsPassedOn();
    void bandIsPassedOn();
    void flyoutThatGrowsStaysAtTheButton();
    void flyoutThatIsMeasuredDoesNotAskAgain();
    void sidePanelOpensAndStays();
    void sidePanelMakesRoom();
    void sidePanelIsPlacedWithThePopup();
    void replacedFlyoutIsHeardNoMore();

    void requestNeedsAController();
    void flyoutOpensThroughTheController();
    void flyoutThatClosesEndsExtendMode_data();
    void flyoutThatClosesEndsExtendMode();
    void clickElsewhereClosesTheActiveFlyout();
    void nullControllerIsNotStored();
    void openingOutsideOfExtendModeMakesNothingActive();

    void barOnItsWayOutTellsNothing();
    void endsWhileOpen_data();
    void endsWhileOpen();
    void flyoutMayBringDownTheWindow_data();
    void flyoutMayBringDownTheWindow();
    void buttonsLeaveNoLayersBehind();
};

void TestToolButtonWithWidgetMenu::initTestCase()
{
    QCursor::setPos(790, 590);
}

void TestToolButtonWithWidgetMenu::assistiveToolsSeeAButtonThatOpensADialog()
{
    const FlyoutScene scene;
    QAccessibleInterface *const button = QAccessible::queryAccessibleInterface(scene.button);
    QCOMPARE(button->role(), QAccessible::Button);
    QVERIFY(button->state().hasPopup && button->state().collapsed && button->state().checkable);
    scene.button->click();
    QVERIFY(scene.panel->isVisible());
    QVERIFY(button->state().expanded && button->state().checked);
    QAccessibleInterface *const dialog =
        QAccessible::queryAccessibleInterface(scene.panel->window());
    QCOMPARE(dialog->role(), QAccessible::Dialog);
    QCOMPARE(dialog->text(QAccessible::Name), QStringLiteral("Smooth"));
}

void TestToolButtonWithWidgetMenu::newButtonHasItsDefaults()
{
    const Scene scene;
    QVERIFY(!scene.button->IsMenuShowing());
    QCOMPARE(scene.button->ExtendController(), nullptr);
    QVERIFY(scene.button->SaveMenuState());
    QCOMPARE(scene.bar->GetActiveButton(), nullptr);
    const ToolButtonWithWidgetMenu bare(nullptr, nullptr, nullptr, nullptr);
    QCOMPARE(bare.GetMenu(), nullptr);
    QVERIFY(bare.GetArrowedWindow());
}

void TestToolButtonWithWidgetMenu::popupIsInAFloatingWindow()
{
    const Scene scene;
    QCOMPARE(scene.button->GetMenu(), scene.button->GetArrowedWindow());
    QCOMPARE(scene.widget->parentWidget(), scene.button->GetArrowedWindow());
    QCOMPARE(FloatingLayer::getWidgetOriginalParent(scene.button->GetMenu()), scene.window.get());
    QVERIFY(qobject_cast<FloatingLayer *>(scene.button->GetMenu()->parentWidget()));
    QVERIFY(!scene.button->GetMenu()->isVisible());
    QCOMPARE(scene.button->GetPosCalculator()->Widget(), scene.button->GetMenu());
}

void TestToolButtonWithWidgetMenu::popupByItself()
{
    Scene scene;
    scene.button->SetMenu(scene.widget, false);
    QCOMPARE(scene.button->GetMenu(), scene.widget.data());
    QCOMPARE(FloatingLayer::getWidgetOriginalParent(scene.widget), scene.window.get());
    QVERIFY(!scene.widget->isVisible());
    scene.button->click();
    QVERIFY(scene.widget->isVisible());
    QVERIFY(!scene.button->GetArrowedWindow()->isVisible());
}

void TestToolButtonWithWidgetMenu::nullAndOwnSurroundingsAreIgnored()
{
    Scene scene;
    for (QWidget *const widget :
         {static_cast<QWidget *>(nullptr), static_cast<QWidget *>(scene.button),
          static_cast<QWidget *>(scene.bar), scene.window.get(),
          static_cast<QWidget *>(scene.button->GetArrowedWindow())}) {
        scene.button->SetMenu(widget, true);
        scene.button->SetMenu(widget, false);
        QCOMPARE(scene.button->GetMenu(), scene.button->GetArrowedWindow());
        QVERIFY(scene.widget);
    }
    scene.button->click();
    QVERIFY(scene.widget->isVisible());
}

void TestToolButtonWithWidgetMenu::replacedWidgetIsDeleted_data()
{
    QTest::addColumn<bool>("wasWrapped");
    QTest::addColumn<bool>("isWrapped");
    QTest::newRow("wrapped, wrapped") << true << true;
    QTest::newRow("wrapped, bare") << true << false;
    QTest::newRow("bare, wrapped") << false << true;
    QTest::newRow("bare, bare") << false << false;
}

void TestToolButtonWithWidgetMenu::replacedWidgetIsDeleted()
{
    QFETCH(bool, wasWrapped);
    QFETCH(bool, isWrapped);
    Scene scene;
    scene.button->SetMenu(scene.widget, wasWrapped);
    auto *const next = new QWidget(scene.window.get());
    scene.button->ShowMenu();
    scene.button->SetMenu(next, isWrapped);
    QVERIFY(!scene.widget);
    QVERIFY(!scene.button->IsMenuShowing());
    QVERIFY(!scene.button->GetArrowedWindow()->isVisible());
    scene.button->click();
    QVERIFY(next->isVisible());
    QCOMPARE(scene.button->GetArrowedWindow()->isVisible(), isWrapped);
}

void TestToolButtonWithWidgetMenu::sameWidgetAgainStays_data()
{
    replacedWidgetIsDeleted_data();
}

void TestToolButtonWithWidgetMenu::sameWidgetAgainStays()
{
    QFETCH(bool, wasWrapped);
    QFETCH(bool, isWrapped);
    Scene scene;
    scene.button->SetMenu(scene.widget, wasWrapped);
    scene.button->SetMenu(scene.widget, isWrapped);
    QVERIFY(scene.widget);
    QVERIFY(!scene.widget->isVisible());
    scene.button->click();
    QVERIFY(scene.widget->isVisible());
    QCOMPARE(scene.button->GetArrowedWindow()->isVisible(), isWrapped);
    delete scene.button;
    QVERIFY(scene.widget);
    QVERIFY(!scene.widget->isVisible());
}

void TestToolButtonWithWidgetMenu::widgetOfAnotherButtonIsTakenOver_data()
{
    replacedWidgetIsDeleted_data();
}

void TestToolButtonWithWidgetMenu::widgetOfAnotherButtonIsTakenOver()
{
    QFETCH(bool, wasWrapped);
    QFETCH(bool, isWrapped);
    Scene scene;
    scene.button->SetMenu(scene.widget, wasWrapped);
    scene.button->ShowMenu();
    ToolButtonWithWidgetMenu *const other =
        scene.bar->AddAction(scene.action(), scene.widget.data());
    other->SetMenu(scene.widget, isWrapped);
    QCOMPARE(scene.button->GetMenu(), nullptr);
    QVERIFY(!scene.widget->isVisible());
    scene.button->click();
    QVERIFY(!scene.widget->isVisible());
    other->click();
    QVERIFY(scene.widget->isVisible());
    delete scene.button;
    QVERIFY(scene.widget && scene.widget->isVisible());
    delete other;
    QVERIFY(scene.widget);
}

// Its parent may not be on the screen yet, and would show it then.
void TestToolButtonWithWidgetMenu::windowWithoutPopupStaysHidden()
{
    QWidget window;
    MenuBar bar(&window, Qt::LeftToolBarArea);
    QAction action(QStringLiteral("Smooth"));
    auto *const widget = new QWidget(&window);
    ToolButtonWithWidgetMenu *const button = bar.AddAction(&action, widget);
    button->SetMenu(widget, false);
    const ToolButtonWithWidgetMenu without(&action, &bar, nullptr, &bar);
    window.show();
    QVERIFY(!button->GetArrowedWindow()->isVisible());
    QVERIFY(!widget->isVisible());
    QVERIFY(!without.GetArrowedWindow()->isVisible());
}

void TestToolButtonWithWidgetMenu::widgetGoesBackToItsParent()
{
    Scene scene;
    auto *const owner = new QWidget(scene.window.get());
    auto *const mine = new QWidget(owner);
    ToolButtonWithWidgetMenu *const button = scene.bar->AddAction(scene.action(), mine);
    button->ShowMenu();
    delete button;
    QCOMPARE(mine->parentWidget(), owner);
    QVERIFY(!mine->isVisible());
    // Whoever else had a widget here before does not matter.
    auto *const earlier = new QWidget(scene.window.get());
    ToolButtonWithWidgetMenu *const next =
        scene.bar->AddAction(scene.action(), new QWidget(earlier));
    next->SetMenu(mine, true);
    delete earlier;
    delete next;
    QCOMPARE(mine->parentWidget(), owner);
    // And can be given to a button once more.
    scene.bar->AddAction(scene.action(), mine)->ShowMenu();
    QVERIFY(mine->isVisible());
}

void TestToolButtonWithWidgetMenu::widgetOfAnotherButtonGoesBackToItsParent()
{
    Scene scene;
    auto *const owner = new QWidget(scene.window.get());
    const QPointer<QWidget> mine = new QWidget(owner);
    scene.bar->AddAction(scene.action(), mine.data());
    ToolButtonWithWidgetMenu *const next =
        scene.bar->AddAction(scene.action(), new QWidget(scene.window.get()));
    next->SetMenu(mine, true);
    next->ShowMenu();
    QVERIFY(mine->isVisible());
    delete next;
    QVERIFY(mine);
    QCOMPARE(mine->parentWidget(), owner);
}

void TestToolButtonWithWidgetMenu::widgetWithoutParentGoesToThatOfTheBar()
{
    Scene scene;
    const QPointer<QWidget> mine = new QWidget;
    delete scene.bar->AddAction(scene.action(), mine.data());
    QVERIFY(mine);
    QCOMPARE(mine->parentWidget(), scene.window.get());
    scene.bar->AddAction(scene.action(), mine.data());
    scene.window.reset();
    QVERIFY(!mine);
}

void TestToolButtonWithWidgetMenu::widgetThatDiesClosesThePopup_data()
{
    QTest::addColumn<bool>("isWrapped");
    QTest::newRow("wrapped") << true;
    QTest::newRow("bare") << false;
}

void TestToolButtonWithWidgetMenu::widgetThatDiesClosesThePopup()
{
    QFETCH(bool, isWrapped);
    Scene scene;
    scene.button->SetMenu(scene.widget, isWrapped);
    scene.button->setCheckable(true);
    scene.button->ShowMenu();
    QSignalSpy told(scene.bar, &ToolBar::ButtonMenuVisibilityChange);
    delete scene.widget;
    QCOMPARE(told.count(), 1);
    QCOMPARE(told.first().at(1).toBool(), false);
    QCOMPARE(scene.button->GetMenu(), nullptr);
    QVERIFY(!scene.button->GetArrowedWindow()->isVisible());
    QVERIFY(!scene.button->isChecked());
    QVERIFY(scene.hasTooltip());
    scene.button->click();
    QVERIFY(!scene.button->GetArrowedWindow()->isVisible());
    auto *const next = new QWidget(scene.window.get());
    scene.button->SetMenu(next, true);
    scene.button->ShowMenu();
    QVERIFY(next->isVisible());
}

void TestToolButtonWithWidgetMenu::clickOpensAndCloses()
{
    Scene scene;
    QSignalSpy told(scene.bar, &ToolBar::ButtonMenuVisibilityChange);
    QVERIFY(scene.hasTooltip());
    QTest::mouseClick(scene.button, Qt::LeftButton);
    QVERIFY(scene.button->IsMenuShowing());
    QVERIFY(scene.widget->isVisible());
    QVERIFY(!scene.hasTooltip());
    QCOMPARE(told.count(), 1);
    QTest::mouseClick(scene.button, Qt::LeftButton);
    QVERIFY(!scene.button->IsMenuShowing());
    QVERIFY(!scene.widget->isVisible());
    QVERIFY(scene.hasTooltip());
    QCOMPARE(told.count(), 2);
}

void TestToolButtonWithWidgetMenu::openPopupCanStayAtAClick()
{
    Scene scene;
    scene.button->SetNoHideMenuOnClick(true);
    scene.button->click();
    scene.button->click();
    QVERIFY(scene.button->IsMenuShowing());
    scene.button->HideMenu();
    QVERIFY(!scene.button->IsMenuShowing());
}

void TestToolButtonWithWidgetMenu::checkableButtonIsCheckedWhileOpen()
{
    Scene scene;
    scene.button->setCheckable(true);
    scene.button->ShowMenu();
    QVERIFY(scene.button->isChecked());
    scene.button->HideMenu();
    QVERIFY(!scene.button->isChecked());
}

void TestToolButtonWithWidgetMenu::arrowPointsAtTheButton_data()
{
    QTest::addColumn<EArrowPosition>("position");
    QTest::addColumn<EDirection>("direction");
    QTest::addColumn<QPoint>("tip"); // from the centre of the button of 36 x 36
    QTest::newRow("right") << EArrowPosition::Left << EDirection::Right << QPoint(25, 0);
    QTest::newRow("left") << EArrowPosition::Right << EDirection::Left << QPoint(-24, 0);
    QTest::newRow("above") << EArrowPosition::Bottom << EDirection::Top << QPoint(0, -24);
    QTest::newRow("below") << EArrowPosition::Top << EDirection::Bottom << QPoint(0, 25);
}

void TestToolButtonWithWidgetMenu::arrowPointsAtTheButton()
{
    QFETCH(EArrowPosition, position);
    QFETCH(EDirection, direction);
    QFETCH(QPoint, tip);
    Scene scene;
    scene.window->move(120, 80);
    scene.bar->move(400, 300);
    QCoreApplication::processEvents();
    scene.button->SetMenuParameters(false, arrowAt(position), direction, 7,
                                    EWidgetsAlign::AlignCenter, QPoint());
    scene.button->ShowMenu();
    const QPoint centre = scene.button->mapToGlobal(scene.button->rect().center());
    const QPoint distance = tipOf(*scene.button->GetArrowedWindow()) - centre;
    QVERIFY2((distance - tip).manhattanLength() <= 2,
             qPrintable(QStringLiteral("%1, %2").arg(distance.x()).arg(distance.y())));
}

void TestToolButtonWithWidgetMenu::popupByItselfIsAligned()
{
    Scene scene;
    scene.button->SetMenu(scene.widget, false);
    scene.button->SetMenuParameters(false, arrowAt(EArrowPosition::Left), EDirection::Right, 5,
                                    EWidgetsAlign::AlignStart, QPoint(3, 4));
    scene.button->ShowMenu();
    QCOMPARE(placeOf(*scene.widget) - placeOf(*scene.button), QPoint(35 + 5 + 3, 4));
}

void TestToolButtonWithWidgetMenu::popupStaysInsideOfTheWindow()
{
    Scene scene;
    scene.window->move(300, 200);
    scene.bar->move(10, 540);
    scene.widget->setFixedSize(100, 200);
    QCoreApplication::processEvents();
    scene.button->SetMenuParameters(false, arrowAt(EArrowPosition::Left), EDirection::Right, 5,
                                    EWidgetsAlign::AlignCenter, QPoint());
    scene.button->ShowMenu();
    const QWidget &popup = *scene.button->GetMenu();
    QVERIFY(placeOf(popup).y() + popup.height() <= placeOf(*scene.window).y() + 600 - 30);
    const int middle = placeOf(*scene.button).y() + scene.button->height() / 2;
    QVERIFY(qAbs(tipOf(*scene.button->GetArrowedWindow()).y() - middle) <= 2);
}

void TestToolButtonWithWidgetMenu::shadowIsSwitched()
{
    Scene scene;
    QVERIFY(scene.button->GetArrowedWindow()->graphicsEffect()); // the default of a bar
    scene.button->SetMenuParameters(false, arrowAt(EArrowPosition::Left), EDirection::Right, 5,
                                    EWidgetsAlign::AlignCenter, QPoint());
    QVERIFY(!scene.button->GetArrowedWindow()->graphicsEffect());
}

void TestToolButtonWithWidgetMenu::openPopupCanBeRememberedOverAHide()
{
    Scene scene;
    scene.button->ShowMenu();
    scene.bar->hide();
    QVERIFY(!scene.widget->isVisible());
    QCOMPARE(scene.button->SavedMenuOwner(), scene.button.data());
    scene.bar->show();
    QVERIFY(scene.widget->isVisible());
    scene.bar->HideMe(false);
    scene.bar->ShowMe();
    QVERIFY(!scene.widget->isVisible());
}

void TestToolButtonWithWidgetMenu::flyoutKnowsItsButton()
{
    const FlyoutScene scene;
    QCOMPARE(scene.panel->ToolButton(), scene.button.data());
}

void TestToolButtonWithWidgetMenu::flyoutThatClosesItselfIsNoticed_data()
{
    QTest::addColumn<QByteArray>("control");
    QTest::newRow("close") << QByteArray("close_button");
    QTest::newRow("cancel") << QByteArray("cancel_button");
}

void TestToolButtonWithWidgetMenu::flyoutThatClosesItselfIsNoticed()
{
    QFETCH(QByteArray, control);
    FlyoutScene scene;
    scene.button->ShowMenu();
    QVERIFY(scene.button->isChecked());
    QSignalSpy told(scene.bar, &ToolBar::ButtonMenuVisibilityChange);
    scene.click(control);
    QVERIFY(!scene.button->IsMenuShowing());
    QVERIFY(!scene.button->isChecked());
    QVERIFY(scene.button->GetTooltipObject()->IsTooltipEnabled());
    QCOMPARE(told.count(), 1);
    QCOMPARE(told.first().at(1).toBool(), false);
    scene.button->ShowMenu();
    QVERIFY(scene.panel->isVisible());
}

void TestToolButtonWithWidgetMenu::closingTheButtonsFlyoutIsToldOnce()
{
    FlyoutScene scene;
    scene.button->ShowMenu();
    QSignalSpy closed(scene.panel, &FlyoutBase::CloseFlyout);
    scene.button->CloseMenu();
    QCOMPARE(closed.count(), 1);
    QVERIFY(!scene.button->IsMenuShowing());
    QVERIFY(!scene.button->isChecked());
}

// Hidden with its bar it was never closed, so who waits for its end still has to hear of it.
void TestToolButtonWithWidgetMenu::hiddenFlyoutIsStillToldToClose()
{
    FlyoutScene scene;
    scene.button->ShowMenu();
    scene.bar->hide();
    QSignalSpy closed(scene.panel, &FlyoutBase::CloseFlyout);
    Q_EMIT scene.button->CloseFlyout();
    QCOMPARE(closed.count(), 1);
}

void TestToolButtonWithWidgetMenu::flyoutClosedWhileHiddenStaysClosed()
{
    FlyoutScene scene;
    scene.button->ShowMenu();
    scene.bar->hide();
    scene.button->CloseMenu();
    scene.bar->show();
    QVERIFY(!scene.panel->isVisible());
    QVERIFY(!scene.button->isChecked());
}

void TestToolButtonWithWidgetMenu::plainWidgetIsHiddenByCloseMenu()
{
    Scene scene;
    scene.button->ShowMenu();
    scene.bar->SetActiveButton(scene.button);
    scene.button->CloseMenu();
    QVERIFY(!scene.button->IsMenuShowing());
    QVERIFY(scene.hasTooltip());
    QCOMPARE(scene.bar->GetActiveButton(), nullptr);
}

void TestToolButtonWithWidgetMenu::escapeIsPassedOn()
{
    FlyoutScene scene;
    QSignalSpy heard(scene.panel, &FlyoutBase::ESCKeyReleased);
    Q_EMIT scene.button->ESCKeyReleased();
    QCOMPARE(heard.count(), 1);
}

void TestToolButtonWithWidgetMenu::bandIsPassedOn()
{
    FlyoutScene scene;
    scene.button->ShowMenu();
    ArrowedWindow *const window = scene.button->GetArrowedWindow();
    const QPoint inside(window->GetBounds().left() + 2, window->rect().center().y());
    QVERIFY(window->grab().toImage().pixelColor(inside) != QColor(Qt::cyan));
    Q_EMIT scene.panel->SetPartialBackgroundColor(true, scene.panel->rect(), Qt::cyan);
    QCOMPARE(window->grab().toImage().pixelColor(inside), QColor(Qt::cyan));
}

void TestToolButtonWithWidgetMenu::flyoutThatGrowsStaysAtTheButton()
{
    FlyoutScene scene;
    scene.bar->move(300, 250);
    scene.button->SetMenuParameters(false, arrowAt(EArrowPosition::Left), EDirection::Right, 5,
                                    EWidgetsAlign::AlignCenter, QPoint());
    scene.button->ShowMenu();
    const ArrowedWindow &window = *scene.button->GetArrowedWindow();
    const QPoint tip = tipOf(window);
    const int height = window.height();
    scene.panel->MainPanel()->setFixedSize(160, 140);
    scene.panel->SetCancelButtonVisible(true);
    QTRY_VERIFY(window.height() > height + 50);
    QTRY_VERIFY((tipOf(window) - tip).manhattanLength() <= 1);
    // Its new size is taken up at both sides of the arrow.
    QVERIFY(qAbs(window.GetArrowPoint().y() - window.GetBounds().center().y()) <= 2);
}

// Working out the place gives the flyout the size that it prefers, which it tells.
void TestToolButtonWithWidgetMenu::flyoutThatIsMeasuredDoesNotAskAgain()
{
    class Button : public ToolButtonWithWidgetMenu
    {
    public:
        using ToolButtonWithWidgetMenu::ToolButtonWithWidgetMenu;
        QPoint GetMenuPosition() override
        {
            ++depth;
            deepest = std::max(deepest, depth);
            const QPoint position = ToolButtonWithWidgetMenu::GetMenuPosition();
            --depth;
            return position;
        }
        int depth = 0;
        int deepest = 0;
    };
    MenuScene scene;
    FlyoutBase *const panel = scene.flyout();
    auto *const button = new Button(scene.action(), scene.bar, panel, scene.bar);
    scene.bar->OnButtonCreated(button, QString(), true, true, 0);
    button->SetMenu(panel, false);
    button->ShowMenu();
    const QSize size = panel->size();
    panel->resize(size + QSize(40, 40));
    QCOMPARE(panel->size(), size);
    QCOMPARE(button->deepest, 1);
}

// The panel at the side must not be closed by moving the popup for it.
void TestToolButtonWithWidgetMenu::sidePanelOpensAndStays()
{
    FlyoutScene scene;
    InfoDialog info(scene.window.get());
    info.SetParams(QString(), QString(), new QStackedWidget, false, 200,
                   InfoDialog::EWidgetExVisibility::ExAlwaysShown);
    scene.panel->EnableInfoButton(true, &info);
    scene.button->ShowMenu();
    scene.click("info_button");
    QVERIFY(info.isVisible());
    QVERIFY(scene.panel->isVisible());
    const ArrowedWindow &window = *scene.button->GetArrowedWindow();
    const QPoint expected = placeOf(window)
        + QPoint(window.GetBounds().left(), window.height() - 1 + window.GetBounds().top());
    QCOMPARE(placeOf(info), expected);
    scene.window->resize(790, 590); // has the popup take its place anew
    QVERIFY(info.isVisible());
    scene.button->HideMenu();
    QVERIFY(!info.isVisible());
}

void TestToolButtonWithWidgetMenu::sidePanelMakesRoom()
{
    FlyoutScene scene;
    scene.bar->move(10, 380);
    scene.button->SetMenuParameters(false, arrowAt(EArrowPosition::Left), EDirection::Right, 5,
                                    EWidgetsAlign::AlignCenter, QPoint());
    InfoDialog info(scene.window.get());
    info.setMinimumHeight(150);
    scene.panel->EnableInfoButton(true, &info);
    scene.button->ShowMenu();
    const int top = placeOf(*scene.button->GetMenu()).y();
    scene.click("info_button");
    QVERIFY(placeOf(*scene.button->GetMenu()).y() < top);
}

void TestToolButtonWithWidgetMenu::sidePanelIsPlacedWithThePopup()
{
    FlyoutScene scene;
    InfoDialog info(scene.window.get());
    scene.panel->EnableInfoButton(false, &info); // nobody hears of it
    scene.button->ShowMenu();
    const ArrowedWindow &window = *scene.button->GetArrowedWindow();
    const auto expected = [&window] {
        return placeOf(window)
            + QPoint(window.GetBounds().left(), window.height() - 1 + window.GetBounds().top());
    };
    QCOMPARE(placeOf(info), expected());
    scene.panel->MainPanel()->setFixedSize(120, 100);
    scene.panel->adjustSize();
    QCOMPARE(placeOf(info), expected());
    // One that floats is placed by its original parent.
    QVERIFY(FloatingLayer::makeWidgetFloating(&info, QMargins()));
    scene.button->HideMenu();
    info.show();
    scene.window->move(150, 90);
    scene.bar->move(60, 320);
    QCoreApplication::processEvents();
    scene.button->ShowMenu();
    QTRY_COMPARE(placeOf(info), expected());
}

void TestToolButtonWithWidgetMenu::replacedFlyoutIsHeardNoMore()
{
    FlyoutScene scene;
    QSignalSpy told(scene.bar, &ToolBar::ButtonMenuVisibilityChange);
    ToolButtonWithWidgetMenu *const other =
        scene.bar->AddAction(scene.action(QStringLiteral("Other"), true), scene.panel.data());
    QSignalSpy first(scene.button, &ToolButtonWithMenu::ButtonMenuVisibilityChange);
    other->ShowMenu();
    scene.panel->CloseMe();
    QCOMPARE(first.count(), 0);
    QCOMPARE(told.count(), 2);
    QSignalSpy escape(scene.panel, &FlyoutBase::ESCKeyReleased);
    Q_EMIT scene.button->ESCKeyReleased();
    QCOMPARE(escape.count(), 0);
}

void TestToolButtonWithWidgetMenu::requestNeedsAController()
{
    Scene scene;
    scene.button->OnRequestShowMenu();
    QVERIFY(!scene.button->IsMenuShowing());
    scene.button->SetExtendController(scene.window.get());
    scene.button->OnRequestShowMenu();
    QVERIFY(!scene.button->IsMenuShowing());
}

void TestToolButtonWithWidgetMenu::flyoutOpensThroughTheController()
{
    ExtendScene scene;
    scene.controller->click();
    QTest::mouseClick(scene.button, Qt::LeftButton);
    QVERIFY(scene.panel->isVisible());
    QVERIFY(!scene.menuBar->isVisible());
    QVERIFY(scene.controller->IsInExtendMode());
    QCOMPARE(scene.bar->GetActiveButton(), scene.button.data());
    QCOMPARE(scene.button->GetPosCalculator()->RefWidget(), scene.controller.data());
    QVERIFY(!scene.controller->GetTooltipObject()->IsTooltipEnabled());
}

void TestToolButtonWithWidgetMenu::flyoutThatClosesEndsExtendMode_data()
{
    QTest::addColumn<QString>("how");
    QTest::addColumn<int>("closed"); // times that the flyout tells so
    QTest::newRow("flyout's close") << QStringLiteral("close_button") << 1;
    QTest::newRow("flyout's cancel") << QStringLiteral("cancel_button") << 0;
    QTest::newRow("click on the controller") << QStringLiteral("controller") << 1;
    QTest::newRow("close of the button") << QStringLiteral("CloseMenu") << 1;
    QTest::newRow("escape") << QStringLiteral("escape") << 1;
    QTest::newRow("hidden for good") << QStringLiteral("hide") << 1;
}

void TestToolButtonWithWidgetMenu::flyoutThatClosesEndsExtendMode()
{
    QFETCH(QString, how);
    QFETCH(int, closed);
    ExtendScene scene;
    scene.controller->setCheckable(true);
    scene.controller->SetHideMenuWhenUnchecked(true);
    scene.button->click();
    QVERIFY(scene.panel->isVisible());
    QSignalSpy told(scene.panel, &FlyoutBase::CloseFlyout);
    if (auto *const control = scene.panel->findChild<QWidget *>(how))
        QTest::mouseClick(control, Qt::LeftButton);
    else if (how == QStringLiteral("controller"))
        QTest::mouseClick(scene.controller, Qt::LeftButton);
    else if (how == QStringLiteral("CloseMenu"))
        scene.button->CloseMenu();
    else if (how == QStringLiteral("escape"))
        scene.bar->DismissLeafMenu();
    else
        scene.bar->HideAllButtonMenusExcept(false, nullptr);
    QTRY_VERIFY(!scene.panel->isVisible());
    QCOMPARE(told.count(), closed);
    QVERIFY(!scene.controller->IsInExtendMode());
    QVERIFY(!scene.controller->isChecked());
    QVERIFY(!scene.controller->IsMenuShowing());
    QCOMPARE(scene.bar->GetActiveButton(), nullptr);
    QVERIFY(scene.controller->GetTooltipObject()->IsTooltipEnabled());
}

void TestToolButtonWithWidgetMenu::clickElsewhereClosesTheActiveFlyout()
{
    ExtendScene scene;
    ToolButton *const plain = scene.bar->AddAction(scene.action());
    scene.button->click();
    QSignalSpy told(scene.panel, &FlyoutBase::CloseFlyout);
    plain->click();
    QVERIFY(!scene.panel->isVisible());
    QVERIFY(!scene.controller->IsInExtendMode());
    QCOMPARE(told.count(), 1);
    // Also one that a host made the active one.
    FlyoutScene other;
    ToolButton *const beside = other.bar->AddAction(other.action());
    other.button->ShowMenu();
    other.bar->SetActiveButton(other.button);
    QSignalSpy closed(other.panel, &FlyoutBase::CloseFlyout);
    beside->click();
    QCOMPARE(closed.count(), 1);
    QCOMPARE(other.bar->GetActiveButton(), nullptr);
}

void TestToolButtonWithWidgetMenu::nullControllerIsNotStored()
{
    ExtendScene scene;
    scene.button->SetExtendController(nullptr);
    QCOMPARE(scene.button->ExtendController(), scene.controller.data());
    delete scene.controller;
    QVERIFY(!scene.button); // went with the menu
}

void TestToolButtonWithWidgetMenu::openingOutsideOfExtendModeMakesNothingActive()
{
    ExtendScene scene;
    scene.button->ShowMenu();
    QVERIFY(scene.panel->isVisible());
    QCOMPARE(scene.bar->GetActiveButton(), nullptr);
    QCOMPARE(scene.controller->SavedMenuOwner(), nullptr);
}

void TestToolButtonWithWidgetMenu::barOnItsWayOutTellsNothing()
{
    for (const bool isMenu : {false, true}) {
        ExtendScene scene;
        scene.button->click();
        MenuBar *const bar = isMenu ? scene.menuBar : scene.bar;
        int told = 0;
        connect(bar, &ToolBar::ButtonMenuVisibilityChange, this, [&told] { ++told; });
        delete bar;
        QCOMPARE(told, 0);
        QVERIFY(!scene.panel->isVisible());
    }
}

void TestToolButtonWithWidgetMenu::endsWhileOpen_data()
{
    QTest::addColumn<QString>("what");
    for (const char *const what :
         {"button", "controller", "menu", "bar", "window", "panel", "frame", "layer", "action"})
        QTest::newRow(what) << QString::fromLatin1(what);
}

void TestToolButtonWithWidgetMenu::endsWhileOpen()
{
    QFETCH(QString, what);
    ExtendScene scene;
    scene.button->click();
    QVERIFY(scene.panel->isVisible());
    const QHash<QString, QObject *> things {
        {QStringLiteral("button"), scene.button},
        {QStringLiteral("controller"), scene.controller},
        {QStringLiteral("menu"), scene.menuBar},
        {QStringLiteral("bar"), scene.bar},
        {QStringLiteral("panel"), scene.panel},
        {QStringLiteral("frame"), scene.button->GetArrowedWindow()},
        {QStringLiteral("layer"), scene.button->GetArrowedWindow()->parentWidget()}};
    if (what == QStringLiteral("window"))
        scene.window.reset();
    else if (what == QStringLiteral("action"))
        scene.actions.clear();
    else
        delete things.value(what);
    QCoreApplication::processEvents();
    if (scene.controller) {
        scene.controller->click();
        scene.controller->click();
        scene.controller->SetExtendMode(true);
    }
    if (scene.button) {
        scene.button->click();
        scene.button->click();
        scene.button->SetMenuParameters(true, arrowAt(EArrowPosition::Left), EDirection::Right, 5,
                                        EWidgetsAlign::AlignCenter, QPoint());
        scene.button->CloseMenu();
        auto *const next = new QWidget(scene.window.get());
        scene.button->SetMenu(next, true);
        scene.button->click();
        QVERIFY(next->isVisible());
    }
    if (what != QStringLiteral("panel") && what != QStringLiteral("window") && !scene.button) {
        QVERIFY(scene.panel);
        QVERIFY(!scene.panel->isVisible());
    }
}

void TestToolButtonWithWidgetMenu::flyoutMayBringDownTheWindow_data()
{
    QTest::addColumn<QByteArray>("control");
    QTest::newRow("close") << QByteArray("close_button");
    QTest::newRow("cancel") << QByteArray("cancel_button");
    QTest::newRow("apply") << QByteArray("apply_button");
}

void TestToolButtonWithWidgetMenu::flyoutMayBringDownTheWindow()
{
    QFETCH(QByteArray, control);
    for (const bool onlyBar : {true, false}) {
        ExtendScene scene;
        scene.button->click();
        const auto end = [&] {
            if (onlyBar)
                delete scene.bar;
            else
                scene.window.reset();
        };
        connect(scene.panel, &FlyoutBase::CloseFlyout, this, end);
        connect(scene.panel, &FlyoutBase::CancelChanges, this, end);
        connect(scene.panel, &FlyoutBase::ApplyChanges, this, end);
        auto *const pressed = scene.panel->findChild<QWidget *>(QString::fromLatin1(control));
        QTest::mouseClick(pressed, Qt::LeftButton);
        QVERIFY(!scene.bar);
    }
}

// A bar whose commands come and go would collect them.
void TestToolButtonWithWidgetMenu::buttonsLeaveNoLayersBehind()
{
    MenuScene scene;
    for (int i = 0; i < 3; ++i) {
        delete scene.bar->AddAction(scene.action(), new QWidget(scene.window.get()));
        auto *const bare = new QWidget(scene.window.get());
        ToolButtonWithWidgetMenu *const button = scene.bar->AddAction(scene.action(), bare);
        button->SetMenu(bare, false);
        delete button;
        delete scene.addMenu(scene.menu());
    }
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QVERIFY(scene.window->findChildren<FloatingLayer *>().isEmpty());
}

LUMO_TEST_MAIN(TestToolButtonWithWidgetMenu)
#include "tst_toolbuttonwithwidgetmenu.moc"
