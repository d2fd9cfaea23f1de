// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include <ui_base/MenuBuilder>

#include "support/testcase.h"
#include "support/testmain.h"
#include "ui_base/qtui/menu/menubuilder_p.h"

#include <QApplication>
#include <QCursor>
#include <QLineEdit>
#include <QMainWindow>
#include <QMenu>
#include <QPointer>
#include <QSignalSpy>
#include <QTimer>
#include <QToolButton>

#include <memory>

using namespace Lumo::Test;
using namespace Vela::UiBase;

namespace {

const QString File = QStringLiteral("&File");
const QString Edit = QStringLiteral("&Edit");
const QString Home = QStringLiteral("&Home");
const QString View = QStringLiteral("&View");

class Bar : public MenuBuilder
{
public:
    explicit Bar(QMainWindow *window)
        : MenuBuilder({}, window, window, Qt::ToolButtonTextOnly, true, {})
    { }

    LumoMenuManager &manager() { return *d_ptr->menuManager; }
};

// A window with a field that has the focus below a bar: File with a disabled action, two more and a
// sub menu, Edit, an item without a menu, and View.
struct Scene
{
    Scene()
    {
        closed.setEnabled(false);
        window.setGeometry(100, 100, 500, 300);
        window.setCentralWidget(edit);
        for (const QString &name : {File, Edit, Home, View})
            bar->AddMenuBarItem(name, {}, {}, {}, {});
        bar->AddDropDownMenu(File, {nullptr, &closed, &open, &save}, nullptr);
        bar->AddSubMenu(File, QStringLiteral("Recent"), {&recent}, nullptr, false);
        bar->AddDropDownMenu(Edit, {&undo}, nullptr);
        bar->AddDropDownMenu(View, {&zoom}, nullptr);
        bar->setGeometry(0, 0, 400, 30);
        bar->Start();
        QCursor::setPos(480, 380);
    }

    bool show()
    {
        window.show();
        window.activateWindow();
        edit->setFocus();
        return QTest::qWaitForWindowActive(&window);
    }

    QToolButton *item(const QString &name) const { return bar->GetMenuBarItem(name).data(); }
    QMenu *menu(const QString &name) const { return bar->manager().GetMenu(item(name)); }
    QMenu *subMenu() const { return menu(File)->actions().constLast()->menu(); }
    QTimer *timer() const { return bar->manager().findChild<QTimer *>(); }
    bool isOpen(const QString &name) const
    {
        return QTest::qWaitFor([&] { return QApplication::activeWindow() == menu(name); })
            && openMenus() == 1;
    }
    int openMenus() const
    {
        return int(menu(File)->isVisible()) + int(menu(Edit)->isVisible())
            + int(menu(View)->isVisible());
    }
    bool isBackInTheWindow() const
    {
        return QTest::qWaitFor([&] { return window.isActiveWindow(); }) && openMenus() == 0
            && edit->hasFocus();
    }
    void press(int key) const { QTest::keyClick(QApplication::activeWindow(), Qt::Key(key)); }

    QMainWindow window;
    QLineEdit *edit = new QLineEdit(&window);
    Bar *bar = new Bar(&window);
    QAction closed {QStringLiteral("Closed")};
    QAction open {QStringLiteral("Open")};
    QAction save {QStringLiteral("Save")};
    QAction recent {QStringLiteral("bunny.obj")};
    QAction undo {QStringLiteral("Undo")};
    QAction zoom {QStringLiteral("Zoom")};
};

void send(QObject *receiver, QEvent::Type type)
{
    QEvent event(type);
    QCoreApplication::sendEvent(receiver, &event);
}

} // namespace

class TestMenuKeys : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void aPointerTakesNoActivation();
    void f10OpensTheFirstMenuAndEscapeLeavesIt();
    void f10AgainLeaves();
    void f10WithAModifierIsNotOurs();
    void aTapOnAltOpensTheFirstMenu();
    void aTapWithSomethingBetweenDoesNot_data();
    void aTapWithSomethingBetweenDoesNot();
    void aMnemonicOpensItsMenu();
    void aPressByAToolOpensTheMenu();
    void aClickOpensTheMenuAgain();
    void arrowsGoToTheNeighboursAndRound();
    void arrowsPassWhatCannotOpen();
    void enterChooses();
    void arrowsGoIntoASubMenuAndOn();
    void arrowsAreMirroredFromRightToLeft();
    void thePointersWayOutOfAMenuThatTheKeysTookDoesNotCount();
    void aMenuThatLosesTheActivationGoes();
    void escapeInTheWindowHidesWhatThePointerOpened();
    void aHiddenWindowTakesItsMenusAlong();
    void aStoppedManagerHearsNoKeys();
    void aMenuMayDieWhileTheKeysAreInIt();
    void theManagerMayDieWhileTheKeysAreInAMenu();
    void keysWithoutAMenuDoNothing();
};

void TestMenuKeys::aPointerTakesNoActivation()
{
    const Scene scene;
    send(scene.item(File), QEvent::Enter);
    QVERIFY(scene.menu(File)->isVisible());
    QVERIFY(scene.menu(File)->testAttribute(Qt::WA_ShowWithoutActivating));
}

void TestMenuKeys::f10OpensTheFirstMenuAndEscapeLeavesIt()
{
    Scene scene;
    QVERIFY(scene.show());
    QTest::keyClick(scene.edit, Qt::Key_F10);
    QVERIFY(scene.isOpen(File));
    QCOMPARE(scene.menu(File)->activeAction(), &scene.open);
    scene.press(Qt::Key_Escape);
    QVERIFY(scene.isBackInTheWindow());
}

void TestMenuKeys::f10AgainLeaves()
{
    Scene scene;
    QVERIFY(scene.show());
    QTest::keyClick(scene.edit, Qt::Key_F10);
    QVERIFY(scene.isOpen(File));
    scene.press(Qt::Key_F10);
    QVERIFY(scene.isBackInTheWindow());
}

void TestMenuKeys::f10WithAModifierIsNotOurs()
{
    Scene scene;
    QVERIFY(scene.show());
    QTest::keyClick(&scene.window, Qt::Key_F10, Qt::ShiftModifier);
    QCOMPARE(scene.openMenus(), 0);
}

void TestMenuKeys::aTapOnAltOpensTheFirstMenu()
{
    Scene scene;
    QVERIFY(scene.show());
    QTest::keyPress(scene.edit, Qt::Key_Alt, Qt::AltModifier);
    QCOMPARE(scene.openMenus(), 0);
    QTest::keyRelease(scene.edit, Qt::Key_Alt);
    QVERIFY(scene.isOpen(File));
    scene.press(Qt::Key_Escape);
    QVERIFY(scene.isBackInTheWindow());
    QTest::keyRelease(scene.edit, Qt::Key_Alt);
    QCOMPARE(scene.openMenus(), 0);
}

void TestMenuKeys::aTapWithSomethingBetweenDoesNot_data()
{
    QTest::addColumn<int>("key");
    QTest::addColumn<bool>("isPressed");
    QTest::newRow("another key") << int(Qt::Key_X) << false;
    QTest::newRow("a click") << 0 << true;
}

void TestMenuKeys::aTapWithSomethingBetweenDoesNot()
{
    QFETCH(int, key);
    QFETCH(bool, isPressed);
    Scene scene;
    QVERIFY(scene.show());
    QTest::keyPress(scene.edit, Qt::Key_Alt, Qt::AltModifier);
    if (key)
        QTest::keyClick(scene.edit, Qt::Key(key), Qt::AltModifier);
    if (isPressed)
        QTest::mouseClick(scene.edit, Qt::LeftButton, Qt::AltModifier);
    QTest::keyRelease(scene.edit, Qt::Key_Alt);
    QCOMPARE(scene.openMenus(), 0);
    QVERIFY(scene.window.isActiveWindow());
}

void TestMenuKeys::aMnemonicOpensItsMenu()
{
    Scene scene;
    QVERIFY(scene.show());
    QTest::keyClick(scene.edit, Qt::Key_E, Qt::AltModifier);
    QVERIFY(scene.isOpen(Edit));
    QCOMPARE(scene.menu(Edit)->activeAction(), &scene.undo);
}

void TestMenuKeys::aPressByAToolOpensTheMenu()
{
    Scene scene;
    QVERIFY(scene.show());
    const QSignalSpy clicked(scene.item(View), &QAbstractButton::clicked);
    scene.item(View)->click();
    QVERIFY(scene.isOpen(View));
    QCOMPARE(clicked.count(), 1);
}

void TestMenuKeys::aClickOpensTheMenuAgain()
{
    Scene scene;
    QVERIFY(scene.show());
    const QPoint centre = scene.item(View)->mapTo(&scene.window, scene.item(View)->rect().center());
    QTest::mouseClick(scene.window.windowHandle(), Qt::LeftButton, {}, centre);
    QVERIFY(scene.menu(View)->isVisible());
    scene.menu(View)->hide();
    QTest::mouseClick(scene.window.windowHandle(), Qt::LeftButton, {}, centre);
    QVERIFY(scene.menu(View)->isVisible());
    QVERIFY(!scene.menu(View)->activeAction());
}

void TestMenuKeys::arrowsGoToTheNeighboursAndRound()
{
    Scene scene;
    QVERIFY(scene.show());
    QTest::keyClick(scene.edit, Qt::Key_F10);
    QVERIFY(scene.isOpen(File));
    for (const QString &name : {View, Edit, File}) {
        scene.press(Qt::Key_Left);
        QVERIFY2(scene.isOpen(name), qPrintable(name));
    }
    QCOMPARE(scene.menu(File)->activeAction(), &scene.open);
    for (const QString &name : {Edit, View, File}) {
        scene.press(Qt::Key_Right);
        QVERIFY2(scene.isOpen(name), qPrintable(name));
    }
}

void TestMenuKeys::arrowsPassWhatCannotOpen()
{
    Scene scene;
    QVERIFY(scene.show());
    scene.bar->SetButtonEnabled(Edit, false);
    QTest::keyClick(scene.edit, Qt::Key_F10);
    QVERIFY(scene.isOpen(File));
    scene.press(Qt::Key_Right);
    QVERIFY(scene.isOpen(View));
    scene.item(File)->hide();
    scene.press(Qt::Key_Right);
    QVERIFY(scene.isOpen(View));
}

void TestMenuKeys::enterChooses()
{
    Scene scene;
    QVERIFY(scene.show());
    const QSignalSpy chosen(&scene.save, &QAction::triggered);
    QTest::keyClick(scene.edit, Qt::Key_F10);
    QVERIFY(scene.isOpen(File));
    scene.press(Qt::Key_Down);
    scene.press(Qt::Key_Return);
    QCOMPARE(chosen.count(), 1);
    QVERIFY(scene.isBackInTheWindow());
}

void TestMenuKeys::arrowsGoIntoASubMenuAndOn()
{
    Scene scene;
    QVERIFY(scene.show());
    QTest::keyClick(scene.edit, Qt::Key_F10);
    QVERIFY(scene.isOpen(File));
    scene.press(Qt::Key_Up);
    QCOMPARE(scene.menu(File)->activeAction(), scene.subMenu()->menuAction());
    scene.press(Qt::Key_Right);
    QVERIFY(scene.subMenu()->isVisible());
    QVERIFY(scene.menu(File)->isVisible());
    QTest::keyClick(scene.subMenu(), Qt::Key_Left);
    QVERIFY(!scene.subMenu()->isVisible());
    QVERIFY(scene.menu(File)->isVisible());
    scene.press(Qt::Key_Right);
    QVERIFY(scene.subMenu()->isVisible());
    QTest::keyClick(scene.subMenu(), Qt::Key_Right);
    QVERIFY(!scene.subMenu()->isVisible());
    QVERIFY(scene.isOpen(Edit));
}

void TestMenuKeys::arrowsAreMirroredFromRightToLeft()
{
    Scene scene;
    scene.window.setLayoutDirection(Qt::RightToLeft);
    for (const QString &name : {File, Edit, View})
        scene.menu(name)->setLayoutDirection(Qt::RightToLeft);
    scene.subMenu()->setLayoutDirection(Qt::RightToLeft);
    QVERIFY(scene.show());
    QTest::keyClick(scene.edit, Qt::Key_F10);
    QVERIFY(scene.isOpen(File));
    scene.press(Qt::Key_Left);
    QVERIFY(scene.isOpen(Edit));
    scene.press(Qt::Key_Right);
    QVERIFY(scene.isOpen(File));
    scene.press(Qt::Key_Up);
    scene.press(Qt::Key_Left);
    QVERIFY(scene.subMenu()->isVisible());
}

void TestMenuKeys::thePointersWayOutOfAMenuThatTheKeysTookDoesNotCount()
{
    Scene scene;
    QVERIFY(scene.show());
    QTest::keyClick(scene.edit, Qt::Key_F10);
    QVERIFY(scene.isOpen(File));
    send(scene.menu(File), QEvent::Enter);
    scene.press(Qt::Key_Right);
    send(scene.menu(File), QEvent::Leave);
    QVERIFY(!scene.timer()->isActive());
    send(scene.menu(Edit), QEvent::Leave);
    QVERIFY(scene.timer()->isActive());
}

void TestMenuKeys::aMenuThatLosesTheActivationGoes()
{
    Scene scene;
    QVERIFY(scene.show());
    QTest::keyClick(scene.edit, Qt::Key_F10);
    QVERIFY(scene.isOpen(File));
    scene.window.activateWindow();
    QTRY_COMPARE(scene.openMenus(), 0);
    QVERIFY(scene.isBackInTheWindow());
}

void TestMenuKeys::escapeInTheWindowHidesWhatThePointerOpened()
{
    Scene scene;
    QVERIFY(scene.show());
    send(scene.item(File), QEvent::Enter);
    QVERIFY(scene.menu(File)->isVisible());
    QTest::keyClick(scene.edit, Qt::Key_Escape);
    QCOMPARE(scene.openMenus(), 0);
}

void TestMenuKeys::aHiddenWindowTakesItsMenusAlong()
{
    Scene scene;
    QVERIFY(scene.show());
    send(scene.item(File), QEvent::Enter);
    scene.window.hide();
    QCOMPARE(scene.openMenus(), 0);
}

void TestMenuKeys::aStoppedManagerHearsNoKeys()
{
    Scene scene;
    QVERIFY(scene.show());
    scene.bar->manager().Stop();
    QTest::keyClick(scene.edit, Qt::Key_F10);
    scene.item(View)->click();
    QCOMPARE(scene.openMenus(), 0);
}

void TestMenuKeys::aMenuMayDieWhileTheKeysAreInIt()
{
    Scene scene;
    QVERIFY(scene.show());
    QTest::keyClick(scene.edit, Qt::Key_F10);
    QVERIFY(scene.isOpen(File));
    delete scene.menu(File);
    scene.window.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&scene.window));
    QTest::keyClick(scene.edit, Qt::Key_F10);
    QTRY_COMPARE(QApplication::activeWindow(), scene.menu(Edit));
}

void TestMenuKeys::theManagerMayDieWhileTheKeysAreInAMenu()
{
    Scene scene;
    QVERIFY(scene.show());
    const QPointer<QMenu> menu = scene.menu(File);
    QTest::keyPress(scene.edit, Qt::Key_Alt, Qt::AltModifier);
    QTest::keyRelease(scene.edit, Qt::Key_Alt);
    QTRY_COMPARE(QApplication::activeWindow(), menu);
    QTest::keyPress(menu, Qt::Key_Alt, Qt::AltModifier);
    delete scene.bar;
    QVERIFY(!menu);
    QTest::keyRelease(scene.edit, Qt::Key_Alt);
    QTest::keyClick(scene.edit, Qt::Key_F10);
}

void TestMenuKeys::keysWithoutAMenuDoNothing()
{
    QMainWindow window;
    Bar bar(&window);
    QVERIFY(bar.AddMenuBarItem(Home, {}, {}, {}, {}));
    bar.Start();
    window.show();
    QVERIFY(QTest::qWaitForWindowActive(&window));
    QTest::keyClick(&window, Qt::Key_F10);
    QTest::keyClick(&window, Qt::Key_H, Qt::AltModifier);
    QVERIFY(window.isActiveWindow());
}

LUMO_TEST_MAIN(TestMenuKeys)
#include "tst_menukeys.moc"
