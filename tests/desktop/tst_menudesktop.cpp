// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include <ui_base/LumoMenuManager>
#include <ui_base/MenuBuilder>
#include <ui_base/TaskDialog>

#include "desktop/desktopuser.h"
#include "support/testcase.h"
#include "support/testmain.h"

#include <QElapsedTimer>
#include <QLineEdit>
#include <QMainWindow>
#include <QMenu>
#include <QSignalSpy>
#include <QTimer>
#include <QToolButton>
#include <QWindow>

#include <functional>

using namespace Vela::UiBase;
using Lumo::Test::asUser;
using Lumo::Test::clickAsUser;
using Lumo::Test::colourInside;
using Lumo::Test::colourOnScreen;
using Lumo::Test::pointAsUser;
using Lumo::Test::pressKeyAsUser;
using Lumo::Test::typeAsUser;
using Vela::UiToolkit::EDialogButtons;
using Vela::UiToolkit::EDialogIcon;
using Vela::UiToolkit::EDialogResult;
using Vela::UiToolkit::TaskDialog;

namespace {

const QString File = QStringLiteral("&File");
const QString Edit = QStringLiteral("&Edit");
const QString Home = QStringLiteral("Home");
const QString Closed = QStringLiteral("QToolButton { border: none; background: #000080; }");
const QString Opened = QStringLiteral("QToolButton { border: none; background: #C00000; }");

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
    MenuBuilder *bar = nullptr;
    QAction open {QStringLiteral("Open")};
    QAction save {QStringLiteral("Save")};
    QAction recent {QStringLiteral("bunny.obj")};
    QAction undo {QStringLiteral("Undo")};

    explicit Scene(bool customHover = true)
        : bar(new MenuBuilder(QStringLiteral("bar"), &window, &window, Qt::ToolButtonTextOnly,
                              customHover, Closed))
    {
        pointNowhere();
        window.setGeometry(200, 150, 700, 500);
        window.setCentralWidget(edit);
        for (const QString &name : {File, Edit, Home})
            bar->AddMenuBarItem(name, {}, Opened, {}, {});
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

    void aMenuStaysOpenForItsTime();
    void anOpenMenuIsSeenOnItsItem();
    void aStoppedBarOpensNothing();
    void changesOfAnOpenMenuKeepIt();
    void aMenuThatCameLaterIsStayedIn();
    void aDialogFromAMenuIsAnswered_data();
    void aDialogFromAMenuIsAnswered();
    void menusGoWithTheirWindow_data();
    void menusGoWithTheirWindow();
    void anotherWindowCoversAnOpenMenu();
    void anotherWindowKeepsTheKeyboard();
    void anOpenMenuMovesWithItsWindow();
    void aFastPointerLeavesNoMenuBehind();

    void plainModeOpensOnAPress();
    void plainModeGoesIntoSubMenus();
    void plainModeLeavesDisabledAndStoppedItemsAlone();
    void plainModeSurvivesTheEndOf_data();
    void plainModeSurvivesTheEndOf();
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

namespace {

// Notes how long a menu was left by the pointer when it went.
class LeaveClock : public QObject
{
public:
    explicit LeaveClock(QMenu &menu) { menu.installEventFilter(this); }
    bool eventFilter(QObject *, QEvent *event) override
    {
        if (event->type() == QEvent::Leave)
            m_clock.start();
        else if (event->type() == QEvent::Hide && m_clock.isValid())
            milliseconds = m_clock.elapsed();
        return false;
    }
    qint64 milliseconds = -1;

private:
    QElapsedTimer m_clock;
};

// Goes on to the next item as soon as the style of the first one changes.
class FastUser : public QObject
{
public:
    explicit FastUser(const Scene &scene)
        : m_next(scene.item(Edit))
    {
        scene.item(File).installEventFilter(this);
    }
    bool eventFilter(QObject *watched, QEvent *event) override
    {
        if (event->type() == QEvent::StyleChange) {
            watched->removeEventFilter(this);
            isDone = pointAt(m_next);
        }
        return false;
    }
    bool isDone = false;

private:
    QToolButton &m_next;
};

// The colour of an item beside its text.
QColor faceOf(const QToolButton &item)
{
    return colourOnScreen(item.mapToGlobal(QPoint(3, 3)));
}

bool isSeen(const QMenu &menu)
{
    return menu.isVisible() && menu.windowHandle() && menu.windowHandle()->isExposed();
}

// Acts once as soon as something holds, from whatever event loop runs then: menus of plain mode and
// dialogs wait in one of their own.
class Later : public QObject
{
public:
    Later(std::function<bool()> holds, std::function<void()> act)
    {
        connect(&m_timer, &QTimer::timeout, this, [this, holds, act] {
            if (!holds())
                return;
            m_timer.stop();
            act();
            isDone = true;
        });
        m_timer.start(20);
    }
    bool isDone = false;

private:
    QTimer m_timer;
};

// Opens the menu of an item by a click, and acts in it. It is closed when the user did not.
bool clickAndAct(const Scene &scene, const QString &name, const std::function<void()> &act)
{
    const QPointer<QMenu> menu(&scene.menu(name));
    const Later later([menu] { return menu && isSeen(*menu); },
                      [menu, act] {
                          act();
                          const auto isGone = [menu] { return !menu || !menu->isVisible(); };
                          if (!QTest::qWaitFor(isGone))
                              menu->hide();
                      });
    return pointAt(scene.item(name)) && clickAsUser(1)
        && QTest::qWaitFor([&] { return later.isDone; }, 20'000);
}

} // namespace

void tst_MenuDesktop::aMenuStaysOpenForItsTime()
{
    Scene scene;
    QVERIFY(scene.isActive());
    QVERIFY(pointAt(scene.item(File)));
    QVERIFY(scene.opens(File));
    QVERIFY(pointAt(scene.menu(File), &scene.open));
    const LeaveClock clock(scene.menu(File));
    QVERIFY(pointNowhere());
    QTRY_VERIFY(!scene.menu(File).isVisible());
    QVERIFY2(clock.milliseconds >= 190, qPrintable(QString::number(clock.milliseconds)));
}

void tst_MenuDesktop::anOpenMenuIsSeenOnItsItem()
{
    Scene scene;
    QVERIFY(scene.isActive());
    QTRY_COMPARE(faceOf(scene.item(File)), QColor(0, 0, 0x80));
    QVERIFY(pointAt(scene.item(File)));
    QVERIFY(scene.opens(File));
    QTRY_COMPARE(faceOf(scene.item(File)), QColor(0xC0, 0, 0));
    QTRY_COMPARE(faceOf(scene.item(Edit)), QColor(0, 0, 0x80));
    QVERIFY(pointAt(scene.item(Edit)));
    QTRY_COMPARE(faceOf(scene.item(Edit)), QColor(0xC0, 0, 0));
    QTRY_COMPARE(faceOf(scene.item(File)), QColor(0, 0, 0x80));
    QVERIFY(pointNowhere());
    QTRY_COMPARE(faceOf(scene.item(Edit)), QColor(0, 0, 0x80));
}

void tst_MenuDesktop::aStoppedBarOpensNothing()
{
    Scene scene;
    QVERIFY(scene.isActive());
    auto &manager = *scene.bar->findChild<LumoMenuManager *>();
    QVERIFY(pointAt(scene.item(File)));
    QVERIFY(scene.opens(File));
    manager.Stop();
    QVERIFY(pointAt(scene.item(Edit)));
    QVERIFY(!scene.menu(Edit).isVisible());
    QTRY_VERIFY(!scene.menu(File).isVisible());
    manager.Start();
    QVERIFY(pointAt(scene.item(File)));
    QVERIFY(scene.opens(File));
    manager.Start();
    QVERIFY(pointAt(scene.item(Edit)));
    QTRY_VERIFY(scene.menu(Edit).isVisible());
    QVERIFY(!scene.menu(File).isVisible());
}

// Each of them stops the manager and starts it again.
void tst_MenuDesktop::changesOfAnOpenMenuKeepIt()
{
    Scene scene;
    QVERIFY(scene.isActive());
    QVERIFY(pointAt(scene.item(File)));
    QVERIFY(scene.opens(File));
    QVERIFY(scene.bar->AddDropDownMenu(File, {&scene.undo}, &scene.open));
    QVERIFY(scene.bar->AddSubMenu(File, QStringLiteral("More"), {&scene.undo}, nullptr, true));
    QVERIFY(scene.menu(File).isVisible());
    const QSignalSpy chosen(&scene.undo, &QAction::triggered);
    QVERIFY(pointAt(scene.menu(File), &scene.undo));
    QVERIFY(clickAsUser(1));
    QTRY_COMPARE(chosen.count(), 1);
    QTRY_VERIFY(!scene.menu(File).isVisible());
}

void tst_MenuDesktop::aMenuThatCameLaterIsStayedIn()
{
    Scene scene;
    QVERIFY(scene.isActive());
    QMenu later(QStringLiteral("Later"));
    QAction *entry = later.addAction(QStringLiteral("An entry"));
    connect(&scene.menu(File), &QMenu::aboutToShow, &later,
            [&] { scene.menu(File).addMenu(&later); });
    QVERIFY(pointAt(scene.item(File)));
    QVERIFY(scene.opens(File));
    QVERIFY(pointAt(scene.menu(File), later.menuAction()));
    QTRY_VERIFY(later.isVisible());
    QVERIFY(pointAt(later, entry));
    QTRY_VERIFY(!scene.timer().isActive());
    QVERIFY(later.isVisible());
    QVERIFY(scene.menu(File).isVisible());
}

void tst_MenuDesktop::aDialogFromAMenuIsAnswered_data()
{
    QTest::addColumn<bool>("customHover");
    QTest::addColumn<bool>("byKeys");
    QTest::addColumn<bool>("hasParent");
    QTest::newRow("plain, pointer") << false << false << true;
    QTest::newRow("plain, keys") << false << true << true;
    QTest::newRow("hover, pointer") << true << false << true;
    QTest::newRow("hover, keys") << true << true << true;
    QTest::newRow("hover, pointer, dialog on its own") << true << false << false;
    QTest::newRow("hover, keys, dialog on its own") << true << true << false;
}

// The menu is still open when its action runs; it goes, and the dialog has the keyboard.
void tst_MenuDesktop::aDialogFromAMenuIsAnswered()
{
    QFETCH(bool, customHover);
    QFETCH(bool, byKeys);
    QFETCH(bool, hasParent);
    Scene scene(customHover);
    QVERIFY(scene.isActive());
    auto answer = EDialogResult::None;
    connect(&scene.open, &QAction::triggered, &scene.window, [&] {
        answer = TaskDialog::showQuestionMessage(hasParent ? &scene.window : nullptr,
                                                 QStringLiteral("Really?"),
                                                 EDialogButtons::ButtonsYesNo);
    });
    bool isAlone = false;
    bool hasKeyboard = false;
    const auto isReady = [&] {
        return isSeen(scene.menu(File))
            && (!byKeys || QGuiApplication::queryKeyboardModifiers() == Qt::NoModifier)
            && (!byKeys || !customHover || scene.menu(File).isActiveWindow());
    };
    const Later choice(isReady, [&] {
        if (!byKeys)
            pointAt(scene.menu(File), &scene.open) && clickAsUser(1);
        else if (scene.menu(File).activeAction() == &scene.open)
            pressKeyAsUser(QStringLiteral("Return"));
        else
            pressKeyAsUser(QStringLiteral("Down")) && pressKeyAsUser(QStringLiteral("Return"));
    });
    const Later reply([] { return QApplication::activeModalWidget(); },
                      [&] {
                          QWidget &dialog = *QApplication::activeModalWidget();
                          isAlone = QTest::qWaitFor([&] { return !scene.menu(File).isVisible(); });
                          hasKeyboard = QTest::qWaitForWindowActive(&dialog);
                          pressKeyAsUser(QStringLiteral("Tab"));
                          pressKeyAsUser(QStringLiteral("Return"));
                          if (!QTest::qWaitFor([&] { return !QApplication::activeModalWidget(); }))
                              dialog.close();
                      });
    if (byKeys)
        QVERIFY(pressKeyAsUser(QStringLiteral("alt+f")));
    else if (!customHover)
        QVERIFY(pointAt(scene.item(File)) && clickAsUser(1));
    // All the rest may happen while the pointer comes.
    const QPoint onItem = scene.item(File).rect().center();
    const auto isAnswered = [&] {
        return answer != EDialogResult::None
            || (pointAsUser(scene.item(File).mapToGlobal(onItem)) && answer != EDialogResult::None);
    };
    if (customHover && !byKeys)
        QVERIFY(QTest::qWaitFor(isAnswered, 20'000));
    QTRY_VERIFY_WITH_TIMEOUT(answer != EDialogResult::None, 30'000);
    QVERIFY(isAlone);
    QVERIFY(hasKeyboard);
    QCOMPARE(answer, EDialogResult::Yes);
    QVERIFY(QTest::qWaitForWindowActive(&scene.window));
}

void tst_MenuDesktop::menusGoWithTheirWindow_data()
{
    QTest::addColumn<QString>("way");
    QTest::newRow("minimised") << "minimised";
    QTest::newRow("closed") << "closed";
}

void tst_MenuDesktop::menusGoWithTheirWindow()
{
    QFETCH(QString, way);
    Scene scene;
    QVERIFY(scene.isActive());
    QVERIFY(pointAt(scene.item(File)));
    QVERIFY(scene.opens(File));
    scene.timer().setInterval(1'000'000); // so that nothing goes by the timer
    const QPoint inMenu = scene.menu(File).geometry().center();
    QVERIFY(pointAsUser(inMenu));
    const QColor seen = colourOnScreen(inMenu);
    if (way == QLatin1String("closed"))
        QVERIFY(pressKeyAsUser(QStringLiteral("alt+F4")));
    else
        QVERIFY(asUser({QStringLiteral("windowminimize"), QString::number(scene.window.winId())}));
    QTRY_VERIFY(!scene.menu(File).isVisible());
    QTRY_VERIFY(colourOnScreen(inMenu) != seen);
}

void tst_MenuDesktop::anotherWindowCoversAnOpenMenu()
{
    Scene scene;
    QVERIFY(scene.isActive());
    QVERIFY(pointAt(scene.item(File)));
    QVERIFY(scene.opens(File));
    QVERIFY(pointAt(scene.menu(File), &scene.open));
    QWidget other;
    other.setGeometry(scene.window.geometry());
    other.show();
    QVERIFY(QTest::qWaitForWindowActive(&other));
    other.raise();
    QTRY_VERIFY(!scene.menu(File).isVisible());
    QVERIFY(other.isActiveWindow());
}

// The menu that the keys opened goes, and the main window doesn't take the activation back.
void tst_MenuDesktop::anotherWindowKeepsTheKeyboard()
{
    Scene scene;
    QVERIFY(scene.isActive());
    QVERIFY(pressKeyAsUser(QStringLiteral("F10")));
    QVERIFY(scene.opensForKeys(File));
    QLineEdit other;
    other.setGeometry(1000, 800, 300, 100);
    other.show();
    QTRY_VERIFY(!scene.menu(File).isVisible());
    QVERIFY(QTest::qWaitForWindowActive(&other));
    QVERIFY(typeAsUser(QStringLiteral("abc")));
    QTRY_COMPARE(other.text(), QStringLiteral("abc"));
}

void tst_MenuDesktop::anOpenMenuMovesWithItsWindow()
{
    Scene scene;
    QVERIFY(scene.isActive());
    QVERIFY(pressKeyAsUser(QStringLiteral("F10")));
    QVERIFY(scene.opensForKeys(File));
    QVERIFY(Lumo::Test::moveAsUser(scene.window, 400, 300));
    QTRY_VERIFY(scene.window.pos().x() > 300);
    QTRY_COMPARE(scene.menu(File).pos(),
                 scene.item(File).mapToGlobal(QPoint(0, scene.item(File).height() - 1)));
}

// The pointer is on the next item while the menu of this one is still being shown.
void tst_MenuDesktop::aFastPointerLeavesNoMenuBehind()
{
    Scene scene;
    QVERIFY(scene.isActive());
    const FastUser user(scene);
    QVERIFY(pointAsUser(scene.item(File).mapToGlobal(QPoint(10, 10))));
    QTRY_VERIFY(user.isDone);
    QTRY_VERIFY(scene.menu(Edit).isVisible());
    QVERIFY(!scene.menu(File).isVisible());
    QVERIFY(!scene.menu(File).windowHandle()->isVisible());
    QVERIFY(pointNowhere());
    QTRY_VERIFY(!scene.menu(Edit).isVisible());
    QTRY_COMPARE(colourInside(*scene.edit), scene.edit->palette().color(QPalette::Base));
}

void tst_MenuDesktop::plainModeOpensOnAPress()
{
    Scene scene(false);
    QVERIFY(scene.isActive());
    const QSignalSpy chosen(&scene.save, &QAction::triggered);
    QVERIFY(pointAt(scene.item(File)));
    QVERIFY(!scene.menu(File).isVisible());
    QVERIFY(clickAndAct(scene, File,
                        [&] { pointAt(scene.menu(File), &scene.save) && clickAsUser(1); }));
    QTRY_COMPARE(chosen.count(), 1);
    QVERIFY(!scene.menu(File).isVisible());
    QVERIFY(scene.window.isActiveWindow());
}

void tst_MenuDesktop::plainModeGoesIntoSubMenus()
{
    Scene scene(false);
    QVERIFY(scene.isActive());
    const QSignalSpy chosen(&scene.recent, &QAction::triggered);
    QVERIFY(clickAndAct(scene, File, [&] {
        pointAt(scene.menu(File), scene.subMenu().menuAction())
            && QTest::qWaitFor([&] { return scene.subMenu().isVisible(); })
            && pointAt(scene.subMenu(), &scene.recent) && clickAsUser(1);
    }));
    QTRY_COMPARE(chosen.count(), 1);
    QVERIFY(!scene.menu(File).isVisible() && !scene.subMenu().isVisible());
}

void tst_MenuDesktop::plainModeLeavesDisabledAndStoppedItemsAlone()
{
    Scene scene(false);
    QVERIFY(scene.isActive());
    scene.bar->SetButtonEnabled(Edit, false);
    QVERIFY(pointAt(scene.item(Edit)) && clickAsUser(1));
    scene.bar->findChild<LumoMenuManager *>()->Stop();
    QVERIFY(pointAt(scene.item(File)) && clickAsUser(1));
    // Was it going to open, it would have by now.
    QVERIFY(typeAsUser(QStringLiteral("abc")));
    QTRY_COMPARE(scene.edit->text(), QStringLiteral("abc"));
    QVERIFY(!scene.menu(Edit).isVisible() && !scene.menu(File).isVisible());
    scene.bar->Start();
    bool isOpen = false;
    QVERIFY(clickAndAct(scene, File, [&] {
        isOpen = true;
        pressKeyAsUser(QStringLiteral("Escape"));
    }));
    QVERIFY(isOpen);
}

void tst_MenuDesktop::plainModeSurvivesTheEndOf_data()
{
    QTest::addColumn<int>("what");
    QTest::newRow("the menu") << 0;
    QTest::newRow("the item") << 1;
    QTest::newRow("the manager") << 2;
    QTest::newRow("the bar") << 3;
}

void tst_MenuDesktop::plainModeSurvivesTheEndOf()
{
    QFETCH(int, what);
    Scene scene(false);
    QVERIFY(scene.isActive());
    const QVector<QObject *> ends {&scene.menu(File), &scene.item(File),
                                   scene.bar->findChild<LumoMenuManager *>(), scene.bar};
    const QPointer<QObject> end = ends.at(what);
    // QToolButton itself takes it that its menu lives on.
    for (int i = 0; i < 2 && what == 0; ++i)
        expectMessage(QStringLiteral("QObject::disconnect: Unexpected nullptr parameter"));
    QVERIFY(clickAndAct(scene, File, [&] {
        delete end;
        pressKeyAsUser(QStringLiteral("Escape"));
    }));
    QVERIFY(!end);
    QVERIFY(typeAsUser(QStringLiteral("abc")));
    QTRY_COMPARE(scene.edit->text(), QStringLiteral("abc"));
}

LUMO_TEST_MAIN(tst_MenuDesktop)
#include "tst_menudesktop.moc"
