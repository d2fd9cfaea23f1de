// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include <ui_base/ToolButtonWithMenu>

#include "support/accessibleevents.h"
#include "support/testcase.h"
#include "support/testmain.h"
#include "ui_base/popup/floatinglayer.h"
#include "ui_base/popup/widgetposcalculator.h"
#include "ui_base/qtui/tooltip/tooltipobject.h"
#include "ui_base/toolbar/menubutton.h"

#include <QAction>
#include <QSignalSpy>
#include <QTest>

using Lumo::Test::AccessibleEvents;
using Lumo::Test::MenuBar;
using Lumo::Test::MenuButton;
using Vela::UiBase::EDirection;
using Vela::UiBase::EWidgetsAlign;
using Vela::UiBase::FloatingLayer;
using Vela::UiBase::ToolButtonWithMenu;

namespace {

/// A shown window with a bar, a button with a popup on it and the popup.
class Scene
{
public:
    Scene()
    {
        window.resize(300, 200);
        window.show();
        menu->hide();
        if (!QTest::qWaitForWindowExposed(&window))
            qFatal("The window does not come up.");
    }
    // A popup that floated is nobody's child any more when the window has gone.
    ~Scene() { delete menu; }

    QWidget window;
    MenuBar bar {&window, Qt::TopToolBarArea};
    QPointer<QWidget> menu = new QWidget(&window);
    MenuButton *button = new MenuButton(&bar, menu);
    QSignalSpy visibility {button, &ToolButtonWithMenu::ButtonMenuVisibilityChange};
    QSignalSpy barVisibility {&bar, &Vela::UiBase::ToolBar::ButtonMenuVisibilityChange};
};

} // namespace

class TestToolButtonWithMenu : public Lumo::Test::TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void newButtonHasItsDefaults();
    void popupOpensAtItsPlace();
    void openPopupTakesItsPlaceAnew();
    void floatingPopupMovesToTheCornerOfItsParent();
    void popupCloses();
    void buttonWithoutPopupDoesNothing();
    void popupThatDiesIsForgotten();
    void checkableButtonFollowsItsPopup();
    void popupThatHidesItselfIsNoticed();
    void popupMovesWithItsButton_data();
    void popupMovesWithItsButton();
    void closingByWidgetIsAClick();
    void actionThatTriggersIsHandled();
    void placeParametersReachTheCalculator();
    void buttonsOfAPopupBarAreKnown();
    void hearingOfVisibilityMayDeleteTheButton();
    void assistiveToolsOpenAndCloseThePopup();
    void assistiveToolsHearOfThePopup();
    void assistiveToolsLeaveADisabledButtonAlone();
};

void TestToolButtonWithMenu::newButtonHasItsDefaults()
{
    const Scene scene;
    const MenuButton &button = *scene.button;
    QCOMPARE(button.GetMenu(), scene.menu.data());
    QVERIFY(!button.IsMenuShowing());
    QVERIFY(button.SaveMenuState());
    QCOMPARE(button.SavedMenuOwner(), nullptr);
    QVERIFY(!button.isCheckable());
    QCOMPARE(button.GetPosCalculator()->RefWidget(), &button);
    QCOMPARE(button.GetPosCalculator()->parent(), &button);
    QCOMPARE(button.GetTooltipObject()->objectName(), QStringLiteral("Menu"));
    QCOMPARE(button.accessibleName(), QStringLiteral("Menu"));
    const MenuButton alone(nullptr, nullptr);
    QCOMPARE(alone.GetPosCalculator()->BaseOffset(), 0);
    QCOMPARE(alone.GetPosCalculator()->Alignment(), EWidgetsAlign::AlignCenter);
    // The bar's defaults for menus.
    QCOMPARE(button.GetPosCalculator()->BaseOffset(), 5);
    QCOMPARE(button.GetPosCalculator()->Direction(), EDirection::Top);
}

void TestToolButtonWithMenu::popupOpensAtItsPlace()
{
    Scene scene;
    scene.button->SetSavedMenuOwner(scene.button);
    scene.button->ShowMenu();
    QVERIFY(scene.button->IsMenuShowing());
    QCOMPARE(scene.menu->pos(), QPoint(7, 60));
    QCOMPARE(scene.visibility.count(), 1);
    QCOMPARE(scene.visibility.first().at(1).toBool(), true);
    QCOMPARE(scene.barVisibility.count(), 1);
    QVERIFY(!scene.button->GetTooltipObject()->IsTooltipEnabled());
    QVERIFY(!scene.button->SaveMenuState());
    QCOMPARE(scene.button->SavedMenuOwner(), nullptr);
}

void TestToolButtonWithMenu::openPopupTakesItsPlaceAnew()
{
    Scene scene;
    scene.button->ShowMenu();
    scene.button->place = QPoint(20, 70);
    scene.button->ShowMenu();
    QCOMPARE(scene.menu->pos(), QPoint(20, 70));
    QVERIFY(scene.button->IsMenuShowing());
    QCOMPARE(scene.visibility.count(), 1);
    scene.button->HideMenu();
    scene.button->place = QPoint(30, 80);
    scene.button->RecalcMenuPosAndMove();
    QCOMPARE(scene.menu->pos(), QPoint(30, 80));
    QVERIFY(!scene.button->IsMenuShowing());
}

// Which is where it stands inside of its layer already.
void TestToolButtonWithMenu::floatingPopupMovesToTheCornerOfItsParent()
{
    Scene scene;
    QVERIFY(FloatingLayer::makeWidgetFloating(scene.menu, QMargins()));
    scene.button->ShowMenu();
    QCOMPARE(scene.menu->mapToGlobal(QPoint()), scene.window.mapToGlobal(QPoint(7, 60)));
    scene.button->place = QPoint(0, 0);
    scene.button->ShowMenu();
    QCOMPARE(scene.menu->mapToGlobal(QPoint()), scene.window.mapToGlobal(QPoint(0, 0)));
    scene.button->HideMenu();
    scene.button->place = QPoint(5, 5);
    scene.button->ShowMenu();
    QCOMPARE(scene.menu->mapToGlobal(QPoint()), scene.window.mapToGlobal(QPoint(5, 5)));
    scene.button->HideMenu();
    scene.button->place = QPoint(0, 0);
    scene.button->ShowMenu();
    QCOMPARE(scene.menu->mapToGlobal(QPoint()), scene.window.mapToGlobal(QPoint(0, 0)));
}

void TestToolButtonWithMenu::popupCloses()
{
    Scene scene;
    scene.button->ShowMenu();
    scene.button->SetSavedMenuOwner(scene.button);
    scene.visibility.clear();
    scene.button->HideMenu();
    QVERIFY(!scene.button->IsMenuShowing());
    QCOMPARE(scene.visibility.count(), 1);
    QCOMPARE(scene.visibility.first().at(1).toBool(), false);
    QVERIFY(scene.button->GetTooltipObject()->IsTooltipEnabled());
    QCOMPARE(scene.button->SavedMenuOwner(), nullptr);
    scene.button->SetSaveMenuState(true);
    scene.button->SetSavedMenuOwner(scene.button);
    scene.button->HideMenu();
    QCOMPARE(scene.visibility.count(), 1);
    QCOMPARE(scene.button->SavedMenuOwner(), scene.button);
}

void TestToolButtonWithMenu::buttonWithoutPopupDoesNothing()
{
    MenuButton button(nullptr, nullptr);
    QSignalSpy visibility(&button, &ToolButtonWithMenu::ButtonMenuVisibilityChange);
    button.setCheckable(true);
    button.ShowMenu();
    QVERIFY(!button.isChecked());
    button.setChecked(true);
    button.HideMenu();
    QVERIFY(button.isChecked());
    button.RecalcMenuPosAndMove();
    QCOMPARE(button.asked, 0);
    QCOMPARE(visibility.count(), 0);
}

void TestToolButtonWithMenu::popupThatDiesIsForgotten()
{
    Scene scene;
    scene.button->ShowMenu();
    delete scene.menu;
    QCOMPARE(scene.button->GetMenu(), nullptr);
    scene.button->HideMenu();
    QVERIFY(!scene.button->IsMenuShowing());
}

void TestToolButtonWithMenu::checkableButtonFollowsItsPopup()
{
    Scene scene;
    scene.button->setCheckable(true);
    scene.button->ShowMenu();
    QVERIFY(scene.button->isChecked());
    scene.button->HideMenu();
    QVERIFY(!scene.button->isChecked());
}

void TestToolButtonWithMenu::popupThatHidesItselfIsNoticed()
{
    Scene scene;
    scene.menu->installEventFilter(scene.button);
    scene.button->ShowMenu();
    scene.visibility.clear();
    scene.menu->hide();
    QCOMPARE(scene.visibility.count(), 1);
    QVERIFY(scene.button->GetTooltipObject()->IsTooltipEnabled());
    scene.button->opened()->ownIconShown = false;
    scene.menu->show();
    scene.menu->hide();
    QCOMPARE(scene.visibility.count(), 1);
}

void TestToolButtonWithMenu::popupMovesWithItsButton_data()
{
    QTest::addColumn<bool>("floats");
    QTest::newRow("child of the window") << false;
    QTest::newRow("floating") << true;
}

void TestToolButtonWithMenu::popupMovesWithItsButton()
{
    QFETCH(bool, floats);
    Scene scene;
    scene.menu->resize(40, 30);
    if (floats)
        QVERIFY(FloatingLayer::makeWidgetFloating(scene.menu, QMargins(4, 4, 4, 4)));
    scene.button->ShowMenu();
    QCoreApplication::processEvents();
    const QPoint before = scene.menu->mapToGlobal(QPoint());
    const int asked = scene.button->asked;
    scene.button->move(scene.button->pos() + QPoint(5, 3));
    QCOMPARE(scene.menu->mapToGlobal(QPoint()), before + QPoint(5, 3));
    QCOMPARE(scene.button->asked, asked);
    scene.button->HideMenu();
    const QPoint hidden = scene.menu->pos();
    scene.button->move(scene.button->pos() + QPoint(5, 3));
    QCOMPARE(scene.menu->pos(), hidden);
}

void TestToolButtonWithMenu::closingByWidgetIsAClick()
{
    Scene scene;
    QSignalSpy clicked(scene.button, &ToolButtonWithMenu::ToolButtonClicked);
    scene.button->OnCloseMenu(scene.menu, false);
    scene.button->OnCloseMenu(nullptr, false);
    QCOMPARE(clicked.count(), 0);
    scene.button->ShowMenu();
    QVERIFY(QMetaObject::invokeMethod(scene.button, "OnCloseMenu",
                                      Q_ARG(QWidget *, scene.menu.data()), Q_ARG(bool, false)));
    QCOMPARE(clicked.count(), 1);
    QVERIFY(!scene.button->IsMenuShowing());
}

void TestToolButtonWithMenu::actionThatTriggersIsHandled()
{
    Scene scene;
    QAction action(QStringLiteral("Smooth"));
    QAction own(QStringLiteral("Own"));
    connect(&action, &QAction::triggered, scene.button, &ToolButtonWithMenu::OnActionTriggered);
    scene.button->setDefaultAction(&own);
    scene.button->setToolTip(QStringLiteral("Own"));
    action.trigger();
    QCOMPARE(scene.button->triggered, QList<QAction *>() << &action);
    QCOMPARE(scene.button->defaultAction(), nullptr);
    QVERIFY(scene.button->toolTip().isEmpty());
    scene.button->OnActionTriggered(true);
    QCOMPARE(scene.button->triggered.size(), 1);
}

void TestToolButtonWithMenu::placeParametersReachTheCalculator()
{
    Scene scene;
    scene.button->SetMenuPosParameters(EDirection::Left, 9, EWidgetsAlign::AlignEnd, QPoint(1, 2));
    QCOMPARE(scene.button->GetPosCalculator()->Directions().first(), EDirection::Left);
    QCOMPARE(scene.button->GetPosCalculator()->BaseOffset(), 9);
    QCOMPARE(scene.button->GetPosCalculator()->Alignment(), EWidgetsAlign::AlignEnd);
    QCOMPARE(scene.button->GetPosCalculator()->AdditionalOffset(), QPoint(1, 2));
}

void TestToolButtonWithMenu::buttonsOfAPopupBarAreKnown()
{
    Scene scene;
    auto *const subBar = new MenuBar(&scene.window, Qt::TopToolBarArea);
    const MenuButton owner(&scene.bar, subBar);
    QAction action(QStringLiteral("Smooth"));
    QVERIFY(owner.IsSubMenuButton(subBar->AddAction(&action)));
    QVERIFY(!owner.IsSubMenuButton(scene.button));
    QVERIFY(!scene.button->IsSubMenuButton(scene.button));
}

void TestToolButtonWithMenu::hearingOfVisibilityMayDeleteTheButton()
{
    for (const bool opens : {true, false}) {
        Scene scene;
        const QPointer<MenuButton> button = scene.button;
        if (!opens)
            button->ShowMenu();
        connect(button, &ToolButtonWithMenu::ButtonMenuVisibilityChange, this,
                [button] { delete button; });
        opens ? button->ShowMenu() : button->HideMenu();
        QVERIFY(!button);
    }
}

void TestToolButtonWithMenu::assistiveToolsOpenAndCloseThePopup()
{
    Scene scene;
    QAccessibleInterface *const seen = QAccessible::queryAccessibleInterface(scene.button);
    QCOMPARE(seen->text(QAccessible::Name), QStringLiteral("Menu"));
    QVERIFY(seen->state().hasPopup && seen->state().expandable);
    QVERIFY(seen->state().collapsed && !seen->state().expanded);
    QVERIFY(!seen->state().checkable);
    scene.button->setCheckable(true);
    QVERIFY(seen->state().checkable && !seen->state().checked);
    const QString action = seen->actionInterface()->actionNames().constFirst();
    seen->actionInterface()->doAction(action);
    QTRY_VERIFY(scene.button->IsMenuShowing());
    QVERIFY(seen->state().expanded && !seen->state().collapsed && seen->state().checked);
    seen->actionInterface()->doAction(action);
    QTRY_VERIFY(!scene.button->IsMenuShowing());
}

void TestToolButtonWithMenu::assistiveToolsHearOfThePopup()
{
    Scene scene;
    const AccessibleEvents events;
    QVERIFY(events.isPossible());
    scene.button->ShowMenu();
    QCOMPARE(events.expansionsOf(scene.button), 1);
    scene.button->HideMenu();
    QCOMPARE(events.expansionsOf(scene.button), 2);
}

void TestToolButtonWithMenu::assistiveToolsLeaveADisabledButtonAlone()
{
    Scene scene;
    QAccessibleInterface *const seen = QAccessible::queryAccessibleInterface(scene.button);
    const QString action = seen->actionInterface()->actionNames().constFirst();
    scene.button->setEnabled(false);
    QVERIFY(seen->state().disabled);
    QVERIFY(seen->actionInterface()->actionNames().isEmpty());
    seen->actionInterface()->doAction(action);
    QCoreApplication::processEvents();
    QVERIFY(!scene.button->IsMenuShowing());
}

LUMO_TEST_MAIN(TestToolButtonWithMenu)
#include "tst_toolbuttonwithmenu.moc"
