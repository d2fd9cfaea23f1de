// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include <ui_base/LumoMenuManager>
#include <ui_base/MenuBuilder>

#include "desktop/desktopuser.h"
#include "support/testcase.h"
#include "support/testmain.h"

#include <QLineEdit>
#include <QMainWindow>
#include <QMenu>
#include <QSignalSpy>
#include <QTimer>
#include <QToolButton>

using namespace Vela::UiBase;
using Lumo::Test::clickAsUser;
using Lumo::Test::pointAsUser;
using Lumo::Test::pressKeyAsUser;
using Lumo::Test::typeAsUser;

namespace {

const QString File = QStringLiteral("&File");
const QString Edit = QStringLiteral("&Edit");
const QString Home = QStringLiteral("Home");

// The user moves onto something: the second movement is one over it. The window manager may still be
// putting the window in its place, so the user looks whether it was hit.
bool pointAt(const QWidget &widget, const QPoint &at)
{
    const auto hit = [&] {
        const QPoint global = widget.mapToGlobal(at);
        return pointAsUser(global) && pointAsUser(global + QPoint(2, 1)) && widget.underMouse();
    };
    return QTest::qWaitFor(hit, 20'000);
}

bool pointAt(const QWidget &widget)
{
    return pointAt(widget, widget.rect().center());
}

bool pointAt(const QMenu &menu, QAction *entry)
{
    return pointAt(menu, menu.actionGeometry(entry).center());
}

bool pointNowhere()
{
    return pointAsUser(QPoint(2, 2));
}

// A window with a bar of two menus and an item without one, and a field to type into.
struct Scene
{
    QMainWindow window;
    QLineEdit *edit = new QLineEdit(&window);
    MenuBuilder *bar =
        new MenuBuilder(QStringLiteral("bar"), &window, &window, Qt::ToolButtonTextOnly, true, {});
    QAction open {QStringLiteral("Open")};
    QAction save {QStringLiteral("Save")};
    QAction recent {QStringLiteral("bunny.obj")};
    QAction undo {QStringLiteral("Undo")};

    Scene()
    {
        pointNowhere();
        window.setGeometry(200, 150, 700, 500);
        window.setCentralWidget(edit);
        for (const QString &name : {File, Edit, Home})
            bar->AddMenuBarItem(name, {}, {}, {}, {});
        bar->AddDropDownMenu(File, {&open, &save}, nullptr);
        bar->AddSubMenu(File, QStringLiteral("Recent"), {&recent}, nullptr, false);
        bar->AddDropDownMenu(Edit, {&undo}, nullptr);
        bar->setGeometry(0, 0, 400, 30);
        bar->Start();
        window.show();
    }

    bool isActive()
    {
        edit->setFocus();
        return QTest::qWaitForWindowActive(&window) && QTest::qWaitForWindowExposed(&window);
    }

    QToolButton &item(const QString &name) const { return *bar->GetMenuBarItem(name); }
    QMenu &menu(const QString &name) const
    {
        return *item(name).findChild<QMenu *>(QString(), Qt::FindDirectChildrenOnly);
    }
    QMenu &subMenu() const { return *menu(File).actions().constLast()->menu(); }
    QTimer &timer() const { return *bar->findChild<LumoMenuManager *>()->findChild<QTimer *>(); }

    bool opens(const QString &name) const
    {
        return QTest::qWaitFor([&] { return menu(name).isVisible(); })
            && QTest::qWaitForWindowExposed(&menu(name));
    }
    bool opensForKeys(const QString &name) const
    {
        return opens(name) && QTest::qWaitForWindowActive(&menu(name));
    }
};

} // namespace

class tst_MenuDesktop : public Lumo::Test::TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void opensUnderThePointerAndTakesNoFocus();
    void switchesWithoutDelay();
    void goesWithThePointer();
    void staysOnTheWayIntoSubMenus();
    void aChoiceTakesAllMenusAway();
    void anItemWithoutAMenuClosesTheOthers();
    void theMenuOfADisabledItemDoesNotStay();
    void keysGoThroughTheMenusAndBack();
    void aMnemonicOpensItsMenu();
    void aTapOnAltOpensTheFirstMenu();
    void keysWorkWithThePointerInAMenu();
    void aClickOpensTheMenuAgain();
};

void tst_MenuDesktop::opensUnderThePointerAndTakesNoFocus()
{
    Scene scene;
    QVERIFY(scene.isActive());
    QVERIFY(pointAt(scene.item(File)));
    QVERIFY(scene.opens(File));
    QTRY_COMPARE(scene.menu(File).pos(),
                 scene.item(File).mapToGlobal(QPoint(0, scene.item(File).height() - 1)));
    QVERIFY(typeAsUser(QStringLiteral("abc")));
    QTRY_COMPARE(scene.edit->text(), QStringLiteral("abc"));
    QVERIFY(scene.window.isActiveWindow());
    QVERIFY(scene.menu(File).isVisible());
}

void tst_MenuDesktop::switchesWithoutDelay()
{
    Scene scene;
    QVERIFY(scene.isActive());
    QVERIFY(pointAt(scene.item(File)));
    QVERIFY(scene.opens(File));
    scene.timer().setInterval(1'000'000); // so that nothing goes by the timer
    QVERIFY(pointAt(scene.item(Edit)));
    QVERIFY(!scene.menu(File).isVisible());
    QVERIFY(scene.menu(Edit).isVisible());
}

void tst_MenuDesktop::goesWithThePointer()
{
    Scene scene;
    QVERIFY(scene.isActive());
    QVERIFY(pointAt(scene.item(File)));
    QVERIFY(scene.opens(File));
    QVERIFY(pointAt(*scene.edit));
    QTRY_VERIFY(!scene.menu(File).isVisible());
    QVERIFY(scene.window.isActiveWindow());
}

void tst_MenuDesktop::staysOnTheWayIntoSubMenus()
{
    Scene scene;
    QVERIFY(scene.isActive());
    QVERIFY(pointAt(scene.item(File)));
    QVERIFY(scene.opens(File));
    QVERIFY(pointAt(scene.menu(File), scene.subMenu().menuAction()));
    QTRY_VERIFY(scene.subMenu().isVisible());
    QVERIFY(pointAt(scene.subMenu(), &scene.recent));
    QTRY_VERIFY(!scene.timer().isActive());
    QVERIFY(scene.menu(File).isVisible());
    QVERIFY(scene.subMenu().isVisible());
    QVERIFY(pointNowhere());
    QTRY_VERIFY(!scene.menu(File).isVisible());
    QVERIFY(!scene.subMenu().isVisible());
}

void tst_MenuDesktop::aChoiceTakesAllMenusAway()
{
    Scene scene;
    QVERIFY(scene.isActive());
    const QSignalSpy chosen(&scene.recent, &QAction::triggered);
    QVERIFY(pointAt(scene.item(File)));
    QVERIFY(scene.opens(File));
    QVERIFY(pointAt(scene.menu(File), scene.subMenu().menuAction()));
    QTRY_VERIFY(scene.subMenu().isVisible());
    QVERIFY(pointAt(scene.subMenu(), &scene.recent));
    QVERIFY(clickAsUser(1));
    QTRY_COMPARE(chosen.count(), 1);
    QTRY_VERIFY(!scene.menu(File).isVisible());
    QVERIFY(!scene.subMenu().isVisible());
    QVERIFY(typeAsUser(QStringLiteral("abc")));
    QTRY_COMPARE(scene.edit->text(), QStringLiteral("abc"));
}

void tst_MenuDesktop::anItemWithoutAMenuClosesTheOthers()
{
    Scene scene;
    QVERIFY(scene.isActive());
    QVERIFY(pointAt(scene.item(File)));
    QVERIFY(scene.opens(File));
    QVERIFY(pointAt(scene.item(Home)));
    QTRY_VERIFY(!scene.menu(File).isVisible());
}

void tst_MenuDesktop::theMenuOfADisabledItemDoesNotStay()
{
    Scene scene;
    QVERIFY(scene.isActive());
    scene.bar->SetButtonEnabled(Edit, false);
    QVERIFY(pointAt(scene.item(Edit)));
    QVERIFY(scene.opens(Edit));
    QVERIFY(pointAsUser(scene.menu(Edit).mapToGlobal(QPoint(10, 10))));
    QVERIFY(pointAsUser(scene.menu(Edit).mapToGlobal(QPoint(12, 11))));
    QTRY_VERIFY(!scene.menu(Edit).isVisible());
}

void tst_MenuDesktop::keysGoThroughTheMenusAndBack()
{
    Scene scene;
    QVERIFY(scene.isActive());
    const QSignalSpy chosen(&scene.save, &QAction::triggered);
    QVERIFY(pressKeyAsUser(QStringLiteral("F10")));
    QVERIFY(scene.opensForKeys(File));
    QVERIFY(pressKeyAsUser(QStringLiteral("Right")));
    QVERIFY(scene.opensForKeys(Edit));
    QVERIFY(!scene.menu(File).isVisible());
    QVERIFY(pressKeyAsUser(QStringLiteral("Left")));
    QVERIFY(scene.opensForKeys(File));
    QVERIFY(pressKeyAsUser(QStringLiteral("Down")));
    QVERIFY(pressKeyAsUser(QStringLiteral("Return")));
    QTRY_COMPARE(chosen.count(), 1);
    QVERIFY(QTest::qWaitForWindowActive(&scene.window));
    QVERIFY(pressKeyAsUser(QStringLiteral("F10")));
    QVERIFY(scene.opensForKeys(File));
    QVERIFY(pressKeyAsUser(QStringLiteral("Escape")));
    QTRY_VERIFY(!scene.menu(File).isVisible());
    QVERIFY(QTest::qWaitForWindowActive(&scene.window));
    QVERIFY(typeAsUser(QStringLiteral("abc")));
    QTRY_COMPARE(scene.edit->text(), QStringLiteral("abc"));
}

void tst_MenuDesktop::aMnemonicOpensItsMenu()
{
    Scene scene;
    QVERIFY(scene.isActive());
    QVERIFY(pressKeyAsUser(QStringLiteral("alt+e")));
    QVERIFY(scene.opensForKeys(Edit));
    QCOMPARE(scene.menu(Edit).activeAction(), &scene.undo);
}

void tst_MenuDesktop::aTapOnAltOpensTheFirstMenu()
{
    Scene scene;
    QVERIFY(scene.isActive());
    QVERIFY(pressKeyAsUser(QStringLiteral("Alt_L")));
    QVERIFY(scene.opensForKeys(File));
}

void tst_MenuDesktop::keysWorkWithThePointerInAMenu()
{
    Scene scene;
    QVERIFY(scene.isActive());
    QVERIFY(pointAt(scene.item(File)));
    QVERIFY(scene.opens(File));
    QVERIFY(pointAt(scene.menu(File), &scene.save));
    QVERIFY(pressKeyAsUser(QStringLiteral("F10")));
    QVERIFY(scene.opensForKeys(File));
    QVERIFY(pressKeyAsUser(QStringLiteral("Right")));
    QVERIFY(scene.opensForKeys(Edit));
    QTRY_VERIFY(!scene.menu(File).underMouse());
    QVERIFY(!scene.timer().isActive());
    QVERIFY(scene.menu(Edit).isVisible());
}

void tst_MenuDesktop::aClickOpensTheMenuAgain()
{
    Scene scene;
    QVERIFY(scene.isActive());
    QVERIFY(pointAt(scene.item(File)));
    QVERIFY(scene.opens(File));
    QVERIFY(pressKeyAsUser(QStringLiteral("Escape")));
    QTRY_VERIFY(!scene.menu(File).isVisible());
    QVERIFY(clickAsUser(1));
    QVERIFY(scene.opens(File));
    QVERIFY(typeAsUser(QStringLiteral("abc")));
    QTRY_COMPARE(scene.edit->text(), QStringLiteral("abc"));
}

LUMO_TEST_MAIN(tst_MenuDesktop)
#include "tst_menudesktop.moc"
