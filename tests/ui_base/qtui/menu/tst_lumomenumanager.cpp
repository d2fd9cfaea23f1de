// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include <ui_base/LumoMenuManager>

#include "support/mouse.h"
#include "support/testcase.h"
#include "support/testmain.h"

#include <QAction>
#include <QCursor>
#include <QGuiApplication>
#include <QMainWindow>
#include <QMap>
#include <QMenu>
#include <QPointer>
#include <QPushButton>
#include <QScopeGuard>
#include <QScreen>
#include <QSignalSpy>
#include <QTimer>
#include <QToolButton>
#include <QWindow>

#include <functional>
#include <memory>
#include <utility>

using namespace Lumo::Test;
using Vela::UiBase::LumoMenuManager;

namespace {

const QString Closed = QStringLiteral("QToolButton { color: black; }");
const QString Open = QStringLiteral("QToolButton { color: white; }");

void send(QObject *receiver, QEvent::Type type)
{
    QEvent event(type);
    QCoreApplication::sendEvent(receiver, &event);
}

/// A window with two buttons with menus and one without, and their manager.
struct Scene
{
    explicit Scene(bool customHover)
    {
        window.setGeometry(100, 100, 400, 300);
        first = addButton(QStringLiteral("First"), 10);
        second = addButton(QStringLiteral("Second"), 100);
        plain = addButton(QStringLiteral("Plain"), 200);
        firstMenu = addMenu(first);
        secondMenu = addMenu(second);
        manager = new LumoMenuManager(&window, 3, customHover, &window);
        manager->AddButtonMenuLinkage(first, firstMenu);
        manager->AddButtonMenuLinkage(second, secondMenu);
        manager->AddButtonMenuLinkage(plain, nullptr);
    }

    QToolButton *addButton(const QString &text, int x)
    {
        auto *button = new QToolButton(&window);
        button->setText(text);
        button->setGeometry(x, 20, 80, 30);
        button->setProperty(LumoMenuManager::OriginalStyleProperty, Closed);
        button->setProperty(LumoMenuManager::AlternateStyleProperty, Open);
        return button;
    }

    static QMenu *addMenu(QToolButton *button)
    {
        auto *menu = new QMenu(button);
        menu->addAction(QStringLiteral("Action"));
        return menu;
    }

    void start()
    {
        manager->Start();
        window.show();
        // The real pointer takes no part unless a test puts it somewhere.
        QCursor::setPos(window.mapToGlobal(QPoint(390, 290)));
        QCoreApplication::processEvents();
        timer().stop();
    }

    QTimer &timer() const { return *manager->findChild<QTimer *>(); }

    QMainWindow window;
    QToolButton *first = nullptr;
    QToolButton *second = nullptr;
    QToolButton *plain = nullptr;
    QMenu *firstMenu = nullptr;
    QMenu *secondMenu = nullptr;
    QPointer<LumoMenuManager> manager;
};

// The second movement is one over the widget.
void putCursorOn(const QWidget &widget)
{
    for (const QPoint &step : {QPoint(5, 5), QPoint(7, 6)}) {
        QCursor::setPos(widget.mapToGlobal(step));
        QCoreApplication::processEvents();
    }
}

void putCursorAway(const QWidget &window)
{
    QCursor::setPos(window.mapToGlobal(QPoint(390, 290)));
    QCoreApplication::processEvents();
}

// Tells of all events that pass.
class CallFilter : public QObject
{
public:
    using Call = std::function<void(QObject *, QEvent *)>;
    CallFilter(QObject &watched, Call call)
        : m_call(std::move(call))
    {
        watched.installEventFilter(this);
    }
    bool eventFilter(QObject *watched, QEvent *event) override
    {
        m_call(watched, event);
        return false;
    }

private:
    const Call m_call;
};

// Counts the events of one type that an object gets.
class EventCounter : public QObject
{
public:
    EventCounter(QObject *watched, QEvent::Type type)
        : m_type(type)
    {
        watched->installEventFilter(this);
    }
    bool eventFilter(QObject *, QEvent *event) override
    {
        count += event->type() == m_type ? 1 : 0;
        return false;
    }
    int count = 0;

private:
    const QEvent::Type m_type;
};

} // namespace

class TestLumoMenuManager : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void plainModeHandsMenusToToolButtons();
    void plainModeHandsMenusToPushButtons();
    void stopTakesMenusBackAndKeepsLinks();
    void startedManagerWiresNewLinksAtOnce();
    void plainModeIgnoresThePointer();
    void nullButtonIsIgnored();
    void unknownButtonHasNoMenu();
    void buttonIsFoundByItsText();
    void chosenActionHidesTheMenu_data();
    void chosenActionHidesTheMenu();
    void replacedMenuStillHidesOnAChoice();

    void hoverModeMakesMenusFramelessWindows();
    void hoverModeTracksTheMouseOverTheWindow();
    void enteringAButtonShowsItsMenuBelowIt();
    void menuThatWouldLeaveTheScreenIsShiftedIntoIt_data();
    void menuThatWouldLeaveTheScreenIsShiftedIntoIt();
    void menuThatJustFitsStandsAtItsButton();
    void menuWiderThanTheScreenBeginsAtItsEdge();
    void menuWithoutParentIsNotMoved();
    void enteringAnotherButtonSwitchesAtOnce();
    void stoppedManagerOpensNothing();
    void buttonWithoutMenuClosesLater();
    void menusHideTwoHundredMillisecondsAfterThePointerLeft();
    void wayFromButtonToMenuKeepsItOpen();
    void movesOverLinkedPartsKeepMenusOpen_data();
    void movesOverLinkedPartsKeepMenusOpen();
    void movesOverSubMenusKeepMenusOpen();
    void thePlaceOfAHiddenMenuDoesNotCount();
    void theWindowsOwnEnterAndLeaveDoNotCount();
    void disabledButtonStillSwitchesOnEnter();
    void menuThatIsOpenComesToTheFront();
    void enteredButtonIsPaintedAgain();
    void stoppedManagerStillClosesWhatIsOpen();
    void shortcutsOfMenusWork_data();
    void shortcutsOfMenusWork();
    void subMenusAreWatched();
    void noEventIsConsumed();

    void theCursorOpensSwitchesAndLeaves();
    void theCursorGoesIntoSubMenus();
    void theCursorDoesNotKeepTheMenuOfADisabledButton();
    void theCursorOpensNothingOfAStoppedManager();

    void openMenuChangesTheStyleOfItsButton();
    void withoutAlternateStyleTheStyleStays();
    void subMenusGoBeforeTheStyleChange();
    void styleChangeToleratesASwitchFromTheEventLoop();
    void styleChangeToleratesTheEndOfTheManager();
    void styleChangeToleratesTheEndOfAnotherMenu();
    void buttonThatDiesInTheStyleChangeGetsNoEvent();

    void menuHiddenByItsOwnerInTheStyleChangeIsGone();
    void menuIsFilledAtTheLastMoment();
    void menuIsAsHighAsItsEntries();
    void menuMayEndInsteadOfBeingFilled_data();
    void menuMayEndInsteadOfBeingFilled();
    void subMenusThatComeWithTheOpeningAreWatched();
    void managerMayEndWhenASubMenuGoes();
    void managerTakesItsOpenMenuAlong();
    void openMenuMovesWithTheWindow();
    void stoppedManagerClosesWhatThePointerIsNotIn();
    void restartedManagerKeepsWhatIsOpen();

    void dyingButtonIsDropped();
    void dyingOpenMenuLeavesAButtonWithoutMenu();
    void dyingOpenMenuIsNotStyledOnceMore();
    void nextMenuOfAButtonKeepsItsOpenFace();
    void dyingWindowRunsNoEventLoop();
    void replacedOpenMenuIsHidden();
    void dyingWindowIsSurvived();
    void windowMayBeNull();
};

void TestLumoMenuManager::plainModeHandsMenusToToolButtons()
{
    Scene scene(false);
    QVERIFY(!scene.manager->IsStarted());
    QVERIFY(!scene.first->menu());
    scene.manager->Start();
    QVERIFY(scene.manager->IsStarted());
    QCOMPARE(scene.first->menu(), scene.firstMenu);
    QCOMPARE(scene.first->popupMode(), QToolButton::InstantPopup);
    QVERIFY(!scene.plain->menu());
    QVERIFY(!scene.manager->findChild<QTimer *>());
}

void TestLumoMenuManager::plainModeHandsMenusToPushButtons()
{
    QPushButton button;
    QMenu menu;
    LumoMenuManager manager(nullptr, 0, false, nullptr);
    manager.AddButtonMenuLinkage(&button, &menu);
    manager.Start();
    QCOMPARE(button.menu(), &menu);
    manager.Stop();
    QVERIFY(!button.menu());
}

void TestLumoMenuManager::stopTakesMenusBackAndKeepsLinks()
{
    Scene scene(false);
    scene.manager->Start();
    scene.manager->Stop();
    QVERIFY(!scene.manager->IsStarted());
    QVERIFY(!scene.first->menu());
    QCOMPARE(scene.manager->GetMenu(scene.first), scene.firstMenu);
    scene.manager->Start();
    QCOMPARE(scene.first->menu(), scene.firstMenu);
}

void TestLumoMenuManager::startedManagerWiresNewLinksAtOnce()
{
    Scene scene(false);
    scene.manager->Start();
    QMenu *menu = Scene::addMenu(scene.plain);
    scene.manager->AddButtonMenuLinkage(scene.plain, menu);
    QCOMPARE(scene.plain->menu(), menu);
    QVERIFY(scene.manager->IsStarted());
    scene.manager->AddButtonMenuLinkage(scene.plain, nullptr);
    QVERIFY(!scene.plain->menu());
}

void TestLumoMenuManager::plainModeIgnoresThePointer()
{
    Scene scene(false);
    scene.manager->Start();
    scene.window.show();
    scene.first->installEventFilter(scene.manager);
    send(scene.first, QEvent::Enter);
    QVERIFY(!scene.firstMenu->isVisible());
    QVERIFY(!scene.window.hasMouseTracking());
}

void TestLumoMenuManager::nullButtonIsIgnored()
{
    QMenu menu;
    LumoMenuManager manager(nullptr, 0, true, nullptr);
    const Qt::WindowFlags flags = menu.windowFlags();
    manager.AddButtonMenuLinkage(nullptr, &menu);
    QVERIFY(!manager.GetMenu(nullptr));
    QCOMPARE(menu.windowFlags(), flags);
}

void TestLumoMenuManager::unknownButtonHasNoMenu()
{
    const Scene scene(false);
    QPushButton stranger(QStringLiteral("Stranger"));
    QVERIFY(!scene.manager->GetMenu(&stranger));
    QVERIFY(!scene.manager->GetMenu(scene.plain));
    QVERIFY(!scene.manager->FindButton(stranger.text()));
}

void TestLumoMenuManager::buttonIsFoundByItsText()
{
    const Scene scene(false);
    QCOMPARE(scene.manager->FindButton(QStringLiteral("Second")), scene.second);
    QVERIFY(!scene.manager->FindButton(QStringLiteral("second")));
    QVERIFY(!scene.manager->FindButton(QString()));
}

void TestLumoMenuManager::chosenActionHidesTheMenu_data()
{
    QTest::addColumn<bool>("customHover");
    QTest::newRow("plain") << false;
    QTest::newRow("hover") << true;
}

void TestLumoMenuManager::chosenActionHidesTheMenu()
{
    QFETCH(bool, customHover);
    Scene scene(customHover);
    scene.firstMenu->show();
    scene.firstMenu->triggered(scene.firstMenu->actions().constFirst());
    QVERIFY(!scene.firstMenu->isVisible());
}

void TestLumoMenuManager::replacedMenuStillHidesOnAChoice()
{
    Scene scene(false);
    QMenu *menu = Scene::addMenu(scene.first);
    scene.manager->AddButtonMenuLinkage(scene.first, menu);
    QCOMPARE(scene.manager->GetMenu(scene.first), menu);
    scene.firstMenu->show();
    scene.firstMenu->triggered(scene.firstMenu->actions().constFirst());
    QVERIFY(!scene.firstMenu->isVisible());
}

void TestLumoMenuManager::hoverModeMakesMenusFramelessWindows()
{
    const Scene scene(true);
    QCOMPARE(int(scene.firstMenu->windowFlags()) & 2049, 2049);
    QCOMPARE(scene.firstMenu->windowType(), Qt::Window);
    QCOMPARE(scene.firstMenu->parentWidget(), scene.first);
}

void TestLumoMenuManager::hoverModeTracksTheMouseOverTheWindow()
{
    const Scene scene(true);
    QVERIFY(scene.window.hasMouseTracking());
    QCOMPARE(scene.timer().interval(), 200);
    QVERIFY(scene.timer().isSingleShot());
}

void TestLumoMenuManager::enteringAButtonShowsItsMenuBelowIt()
{
    Scene scene(true);
    scene.start();
    send(scene.first, QEvent::Enter);
    QVERIFY(scene.firstMenu->isVisible());
    QVERIFY(!scene.first->menu());
    QCOMPARE(scene.firstMenu->pos(), scene.window.mapToGlobal(QPoint(10, 20 + 30 - 1 + 3)));
}

void TestLumoMenuManager::menuThatWouldLeaveTheScreenIsShiftedIntoIt_data()
{
    QTest::addColumn<Qt::LayoutDirection>("direction");
    QTest::addColumn<QPoint>("window");
    const QRect room = QGuiApplication::primaryScreen()->availableGeometry();
    QTest::newRow("right edge") << Qt::LeftToRight << QPoint(room.right() - 60, 100);
    QTest::newRow("right edge, from right to left")
        << Qt::RightToLeft << QPoint(room.right() - 60, 100);
    QTest::newRow("bottom") << Qt::LeftToRight << QPoint(100, room.bottom() - 55);
    QTest::newRow("left edge") << Qt::LeftToRight << QPoint(room.left() - 40, 100);
}

void TestLumoMenuManager::menuThatWouldLeaveTheScreenIsShiftedIntoIt()
{
    QFETCH(Qt::LayoutDirection, direction);
    QFETCH(QPoint, window);
    Scene scene(true);
    scene.window.setLayoutDirection(direction);
    scene.window.setGeometry(QRect(window, QSize(400, 300)));
    scene.start();
    send(scene.first, QEvent::Enter);
    QVERIFY(scene.firstMenu->isVisible());
    const QRect room = QGuiApplication::primaryScreen()->availableGeometry();
    const QPoint wanted = scene.window.mapToGlobal(QPoint(10, 20 + 30 - 1 + 3));
    const QRect place = scene.firstMenu->geometry();
    QVERIFY(!room.contains(QRect(wanted, place.size())));
    QVERIFY(room.contains(place));
    // No further than it has to be.
    const bool isShiftedAcross = wanted.x() < room.left() || window.x() > room.center().x();
    QCOMPARE(place.top() == wanted.y(), isShiftedAcross);
    QCOMPARE(place.left() == wanted.x(), !isShiftedAcross);
    QVERIFY(place.right() == room.right() || place.bottom() == room.bottom()
            || place.left() == room.left());
}

void TestLumoMenuManager::menuThatJustFitsStandsAtItsButton()
{
    Scene scene(true);
    const QRect room = QGuiApplication::primaryScreen()->availableGeometry();
    scene.firstMenu->setFixedWidth(200);
    scene.window.setGeometry(room.right() + 1 - 200 - 10, 100, 400, 300);
    scene.start();
    send(scene.first, QEvent::Enter);
    QCOMPARE(scene.firstMenu->pos(), scene.window.mapToGlobal(QPoint(10, 20 + 30 - 1 + 3)));
    QCOMPARE(scene.firstMenu->geometry().right(), room.right());
}

void TestLumoMenuManager::menuWiderThanTheScreenBeginsAtItsEdge()
{
    Scene scene(true);
    const QRect room = QGuiApplication::primaryScreen()->availableGeometry();
    scene.firstMenu->setFixedWidth(room.width() + 50);
    scene.start();
    send(scene.first, QEvent::Enter);
    QCOMPARE(scene.firstMenu->x(), room.left());
}

void TestLumoMenuManager::menuWithoutParentIsNotMoved()
{
    Scene scene(true);
    QMenu menu;
    menu.addAction(QStringLiteral("Action"));
    scene.manager->AddButtonMenuLinkage(scene.plain, &menu);
    menu.move(7, 9);
    scene.start();
    send(scene.plain, QEvent::Enter);
    QVERIFY(menu.isVisible());
    QCOMPARE(menu.pos(), QPoint(7, 9));
}

void TestLumoMenuManager::enteringAnotherButtonSwitchesAtOnce()
{
    Scene scene(true);
    scene.start();
    send(scene.first, QEvent::Enter);
    send(scene.first, QEvent::Leave);
    QVERIFY(scene.timer().isActive());
    send(scene.second, QEvent::Enter);
    QVERIFY(!scene.timer().isActive());
    QVERIFY(!scene.firstMenu->isVisible());
    QVERIFY(scene.secondMenu->isVisible());
}

void TestLumoMenuManager::stoppedManagerOpensNothing()
{
    Scene scene(true);
    scene.start();
    scene.manager->Stop();
    send(scene.first, QEvent::Enter);
    QVERIFY(!scene.firstMenu->isVisible());
    scene.manager->Start();
    scene.manager->Start();
    send(scene.first, QEvent::Enter);
    QVERIFY(scene.firstMenu->isVisible());
}

void TestLumoMenuManager::buttonWithoutMenuClosesLater()
{
    Scene scene(true);
    scene.start();
    send(scene.first, QEvent::Enter);
    send(scene.plain, QEvent::Enter);
    QVERIFY(scene.firstMenu->isVisible());
    QVERIFY(scene.timer().isActive());
    QTRY_VERIFY(!scene.firstMenu->isVisible());
}

void TestLumoMenuManager::menusHideTwoHundredMillisecondsAfterThePointerLeft()
{
    Scene scene(true);
    scene.start();
    send(scene.first, QEvent::Enter);
    QVERIFY(!scene.timer().isActive());
    pointAt(&scene.window, QPoint(390, 290));
    QVERIFY(scene.timer().isActive());
    QCOMPARE(scene.timer().interval(), 200);
    QVERIFY(scene.firstMenu->isVisible());
    QTRY_VERIFY(!scene.firstMenu->isVisible());
}

void TestLumoMenuManager::wayFromButtonToMenuKeepsItOpen()
{
    Scene scene(true);
    scene.start();
    send(scene.first, QEvent::Enter);
    send(scene.first, QEvent::Leave);
    QVERIFY(scene.timer().isActive());
    send(scene.firstMenu, QEvent::Enter);
    QVERIFY(!scene.timer().isActive());
    QVERIFY(scene.firstMenu->isVisible());
    send(scene.firstMenu, QEvent::Leave);
    QVERIFY(scene.timer().isActive());
}

void TestLumoMenuManager::movesOverLinkedPartsKeepMenusOpen_data()
{
    QTest::addColumn<QString>("over");
    QTest::addColumn<bool>("isEnabled");
    QTest::addColumn<bool>("keeps");
    QTest::newRow("button") << "first" << true << true;
    QTest::newRow("disabled button") << "first" << false << false;
    QTest::newRow("button without menu") << "plain" << true << false;
    QTest::newRow("menu") << "menu" << true << true;
    QTest::newRow("menu of a disabled button") << "menu" << false << false;
    QTest::newRow("elsewhere") << "window" << true << false;
}

void TestLumoMenuManager::movesOverLinkedPartsKeepMenusOpen()
{
    QFETCH(QString, over);
    QFETCH(bool, isEnabled);
    QFETCH(bool, keeps);
    Scene scene(true);
    scene.start();
    scene.first->setEnabled(isEnabled);
    send(scene.first, QEvent::Enter);
    const QMap<QString, QPoint> places {
        {QStringLiteral("first"), scene.first->mapToGlobal(QPoint(5, 5))},
        {QStringLiteral("plain"), scene.plain->mapToGlobal(QPoint(5, 5))},
        {QStringLiteral("menu"), scene.firstMenu->mapToGlobal(QPoint(5, 5))},
        {QStringLiteral("window"), scene.window.mapToGlobal(QPoint(390, 290))}};
    QCursor::setPos(places.value(over));
    scene.timer().stop();
    if (keeps)
        scene.timer().start();
    pointAt(&scene.window, QPoint(390, 290));
    QCOMPARE(scene.timer().isActive(), !keeps);
}

void TestLumoMenuManager::movesOverSubMenusKeepMenusOpen()
{
    Scene scene(true);
    QMenu *sub = scene.firstMenu->addMenu(QStringLiteral("Sub"));
    sub->addAction(QStringLiteral("Action"));
    scene.start();
    send(scene.first, QEvent::Enter);
    // Whether it is visible or not.
    sub->setGeometry(600, 600, 100, 50);
    QCursor::setPos(610, 610);
    scene.timer().start();
    pointAt(&scene.window, QPoint(390, 290));
    QVERIFY(!scene.timer().isActive());
}

void TestLumoMenuManager::thePlaceOfAHiddenMenuDoesNotCount()
{
    Scene scene(true);
    scene.start();
    send(scene.first, QEvent::Enter);
    QCursor::setPos(scene.firstMenu->mapToGlobal(QPoint(5, 5)));
    scene.firstMenu->hide();
    scene.timer().stop();
    pointAt(&scene.window, QPoint(390, 290));
    QVERIFY(scene.timer().isActive());
}

void TestLumoMenuManager::theWindowsOwnEnterAndLeaveDoNotCount()
{
    Scene scene(true);
    scene.start();
    send(&scene.window, QEvent::Leave);
    QVERIFY(!scene.timer().isActive());
    scene.timer().start();
    send(&scene.window, QEvent::Enter);
    QVERIFY(scene.timer().isActive());
}

void TestLumoMenuManager::menuThatIsOpenComesToTheFront()
{
    Scene scene(true);
    scene.start();
    send(scene.first, QEvent::Enter);
    EventCounter raised(scene.firstMenu, QEvent::ZOrderChange);
    send(scene.first, QEvent::Enter);
    QCOMPARE(raised.count, 1);
}

void TestLumoMenuManager::enteredButtonIsPaintedAgain()
{
    Scene scene(true);
    scene.plain->setProperty(LumoMenuManager::AlternateStyleProperty, QVariant());
    scene.start();
    QVERIFY(QTest::qWaitForWindowExposed(&scene.window));
    EventCounter painted(scene.plain, QEvent::Paint);
    QCoreApplication::processEvents();
    const int before = painted.count;
    send(scene.plain, QEvent::Enter);
    QTRY_VERIFY(painted.count > before);
}

void TestLumoMenuManager::stoppedManagerStillClosesWhatIsOpen()
{
    Scene scene(true);
    scene.start();
    send(scene.first, QEvent::Enter);
    scene.manager->Stop();
    send(scene.firstMenu, QEvent::Leave);
    QVERIFY(scene.timer().isActive());
    QTRY_VERIFY(!scene.firstMenu->isVisible());
}

void TestLumoMenuManager::shortcutsOfMenusWork_data()
{
    QTest::addColumn<bool>("customHover");
    QTest::newRow("plain") << false;
    QTest::newRow("hover") << true;
}

void TestLumoMenuManager::shortcutsOfMenusWork()
{
    QFETCH(bool, customHover);
    Scene scene(customHover);
    QAction *action = scene.firstMenu->actions().constFirst();
    action->setShortcut(Qt::CTRL + Qt::Key_B);
    QSignalSpy triggered(action, &QAction::triggered);
    scene.manager->Start();
    scene.window.show();
    scene.window.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&scene.window));
    const auto press = [&] {
        QTest::keyClick(&scene.window, Qt::Key_B, Qt::ControlModifier);
        return triggered.count();
    };
    QCOMPARE(press(), 1);
    scene.first->setEnabled(false);
    QCOMPARE(press(), 1);
    scene.first->setEnabled(true);
    QCOMPARE(press(), 2);
    scene.manager->Stop();
    QCOMPARE(press(), 2);
    scene.manager->Start();
    QCOMPARE(press(), 3);
    scene.manager->AddButtonMenuLinkage(scene.first, nullptr);
    QCOMPARE(press(), 3);
}

void TestLumoMenuManager::disabledButtonStillSwitchesOnEnter()
{
    Scene scene(true);
    scene.start();
    scene.first->setEnabled(false);
    send(scene.first, QEvent::Enter);
    QVERIFY(scene.firstMenu->isVisible());
}

void TestLumoMenuManager::subMenusAreWatched()
{
    Scene scene(true);
    QMenu *sub = scene.firstMenu->addMenu(QStringLiteral("Sub"));
    QMenu *deep = sub->addMenu(QStringLiteral("Deep"));
    scene.start();
    send(deep, QEvent::Leave);
    QVERIFY(scene.timer().isActive());
    send(deep, QEvent::Enter);
    QVERIFY(!scene.timer().isActive());
}

void TestLumoMenuManager::noEventIsConsumed()
{
    Scene scene(true);
    scene.start();
    for (QEvent::Type type : {QEvent::MouseMove, QEvent::Enter, QEvent::Leave}) {
        QEvent event(type);
        QVERIFY(!scene.manager->eventFilter(scene.first, &event));
    }
}

void TestLumoMenuManager::theCursorOpensSwitchesAndLeaves()
{
    Scene scene(true);
    scene.start();
    putCursorOn(*scene.first);
    QTRY_VERIFY(scene.firstMenu->isVisible());
    QCOMPARE(scene.first->styleSheet(), Open);
    scene.timer().setInterval(1'000'000); // so that nothing goes by the timer
    putCursorOn(*scene.second);
    QTRY_VERIFY(scene.secondMenu->isVisible());
    QVERIFY(!scene.firstMenu->isVisible());
    QCOMPARE(scene.first->styleSheet(), Closed);
    putCursorOn(*scene.secondMenu);
    QTRY_VERIFY(!scene.timer().isActive());
    scene.timer().setInterval(200);
    putCursorAway(scene.window);
    QTRY_VERIFY(!scene.secondMenu->isVisible());
    QCOMPARE(scene.second->styleSheet(), Closed);
}

void TestLumoMenuManager::theCursorGoesIntoSubMenus()
{
    Scene scene(true);
    QMenu *sub = scene.firstMenu->addMenu(QStringLiteral("Sub"));
    QAction *action = sub->addAction(QStringLiteral("Action"));
    const QSignalSpy chosen(action, &QAction::triggered);
    scene.start();
    putCursorOn(*scene.first);
    QTRY_VERIFY(scene.firstMenu->isVisible());
    scene.firstMenu->setActiveAction(sub->menuAction());
    QTRY_VERIFY(sub->isVisible());
    putCursorOn(*sub);
    QTRY_VERIFY(!scene.timer().isActive());
    QVERIFY(scene.firstMenu->isVisible() && sub->isVisible());
    QTest::mouseClick(sub, Qt::LeftButton, {}, sub->actionGeometry(action).center());
    QCOMPARE(chosen.count(), 1);
    QVERIFY(!scene.firstMenu->isVisible() && !sub->isVisible());
}

void TestLumoMenuManager::theCursorDoesNotKeepTheMenuOfADisabledButton()
{
    Scene scene(true);
    scene.start();
    scene.first->setEnabled(false);
    putCursorOn(*scene.first);
    QTRY_VERIFY(scene.firstMenu->isVisible());
    putCursorOn(*scene.firstMenu);
    QTRY_VERIFY(!scene.firstMenu->isVisible());
}

void TestLumoMenuManager::theCursorOpensNothingOfAStoppedManager()
{
    Scene scene(true);
    scene.start();
    scene.manager->Stop();
    putCursorOn(*scene.first);
    QCoreApplication::processEvents();
    QVERIFY(!scene.firstMenu->isVisible());
    scene.manager->Start();
    scene.manager->Start();
    putCursorOn(*scene.second);
    QTRY_VERIFY(scene.secondMenu->isVisible());
}

void TestLumoMenuManager::openMenuChangesTheStyleOfItsButton()
{
    Scene scene(true);
    scene.start();
    send(scene.first, QEvent::Enter);
    QCOMPARE(scene.first->styleSheet(), Open);
    QCOMPARE(scene.second->styleSheet(), QString());
    send(scene.second, QEvent::Enter);
    QCOMPARE(scene.first->styleSheet(), Closed);
    QCOMPARE(scene.second->styleSheet(), Open);
}

void TestLumoMenuManager::withoutAlternateStyleTheStyleStays()
{
    Scene scene(true);
    const QString own = QStringLiteral("QToolButton { color: red; }");
    scene.first->setProperty(LumoMenuManager::AlternateStyleProperty, QVariant());
    scene.first->setStyleSheet(own);
    scene.start();
    send(scene.first, QEvent::Enter);
    QVERIFY(scene.firstMenu->isVisible());
    QCOMPARE(scene.first->styleSheet(), own);
}

// Qt takes no note of what becomes active while a popup is open.
void TestLumoMenuManager::subMenusGoBeforeTheStyleChange()
{
    Scene scene(true);
    QMenu *sub = scene.firstMenu->addMenu(QStringLiteral("Sub"));
    QMenu *deep = sub->addMenu(QStringLiteral("Deep"));
    deep->addAction(QStringLiteral("Action"));
    scene.start();
    send(scene.first, QEvent::Enter);
    sub->popup(QPoint(300, 300));
    deep->popup(QPoint(350, 300));
    bool isDone = false;
    QTimer::singleShot(0, &scene.window, [&] {
        isDone = true;
        QVERIFY(!sub->isVisible());
        QVERIFY(!deep->isVisible());
    });
    scene.firstMenu->hide();
    QVERIFY(isDone);
}

void TestLumoMenuManager::styleChangeToleratesASwitchFromTheEventLoop()
{
    for (const bool isFirst : {true, false}) {
        Scene scene(true);
        scene.start();
        QToolButton *entered = isFirst ? scene.first : scene.second;
        QToolButton *other = isFirst ? scene.second : scene.first;
        QTimer::singleShot(0, other, [other] { send(other, QEvent::Enter); });
        send(entered, QEvent::Enter);
        QVERIFY(scene.manager->GetMenu(other)->isVisible());
        QVERIFY(!scene.manager->GetMenu(entered)->isVisible());
        QVERIFY(!scene.manager->GetMenu(entered)->windowHandle()->isVisible());
        QCOMPARE(other->styleSheet(), Open);
        QCOMPARE(entered->styleSheet(), Closed);
    }
}

void TestLumoMenuManager::styleChangeToleratesTheEndOfTheManager()
{
    Scene scene(true);
    scene.start();
    QTimer::singleShot(0, &scene.window, [&scene] { delete scene.manager; });
    send(scene.first, QEvent::Enter);
    QVERIFY(!scene.manager);
    QVERIFY(!scene.firstMenu->isVisible());
    QVERIFY(!scene.firstMenu->windowHandle()->isVisible());
    QCOMPARE(scene.first->styleSheet(), Closed);
}

void TestLumoMenuManager::styleChangeToleratesTheEndOfAnotherMenu()
{
    Scene scene(true);
    scene.start();
    QPointer<QMenu> other(scene.secondMenu);
    QTimer::singleShot(0, &scene.window, [other] { delete other; });
    send(scene.first, QEvent::Enter);
    QVERIFY(!other);
    QVERIFY(scene.firstMenu->isVisible());
    QVERIFY(!scene.manager->GetMenu(scene.second));
}

void TestLumoMenuManager::buttonThatDiesInTheStyleChangeGetsNoEvent()
{
    Scene scene(true);
    QMenu menu;
    menu.addAction(QStringLiteral("Action"));
    scene.manager->AddButtonMenuLinkage(scene.plain, &menu);
    scene.start();
    const QPointer<QToolButton> button(scene.plain);
    QTimer::singleShot(0, &scene.window, [button] { delete button; });
    QEvent enter(QEvent::Enter);
    QVERIFY(scene.manager->eventFilter(button, &enter));
    QVERIFY(!button);
    QVERIFY(!menu.isVisible());
}

void TestLumoMenuManager::menuHiddenByItsOwnerInTheStyleChangeIsGone()
{
    Scene scene(true);
    scene.start();
    QTimer::singleShot(0, scene.firstMenu, &QWidget::hide);
    send(scene.first, QEvent::Enter);
    QVERIFY(!scene.firstMenu->isVisible());
    QVERIFY(!scene.firstMenu->windowHandle()->isVisible());
    QCOMPARE(scene.first->styleSheet(), Closed);
    send(scene.first, QEvent::Enter);
    QVERIFY(scene.firstMenu->windowHandle()->isVisible());
    QCOMPARE(scene.first->styleSheet(), Open);
}

void TestLumoMenuManager::menuIsFilledAtTheLastMoment()
{
    Scene scene(true);
    scene.start();
    const QSignalSpy filled(scene.firstMenu, &QMenu::aboutToShow);
    connect(scene.firstMenu, &QMenu::aboutToShow, scene.firstMenu,
            [&scene] { scene.firstMenu->addAction(QStringLiteral("A much longer entry")); });
    send(scene.first, QEvent::Enter);
    QCOMPARE(filled.count(), 1);
    QCOMPARE(scene.firstMenu->actions().size(), 2);
    QCOMPARE(scene.firstMenu->size(), scene.firstMenu->sizeHint());
    send(scene.first, QEvent::Enter);
    QCOMPARE(filled.count(), 1);
    send(scene.second, QEvent::Enter);
    send(scene.first, QEvent::Enter);
    QCOMPARE(filled.count(), 2);
    QCOMPARE(scene.firstMenu->size(), scene.firstMenu->sizeHint());
}

// Of a window left to itself a third of the screen stays free.
void TestLumoMenuManager::menuIsAsHighAsItsEntries()
{
    Scene scene(true);
    // A change of style would have Qt work the size out again.
    scene.first->setProperty(LumoMenuManager::AlternateStyleProperty, QVariant());
    scene.start();
    const int screen = scene.window.screen()->availableGeometry().height();
    const int count = screen * 3 / 4 / scene.firstMenu->fontMetrics().height();
    for (int i = 0; i < count; ++i)
        scene.firstMenu->addAction(QStringLiteral("Action"));
    send(scene.first, QEvent::Enter);
    QVERIFY(scene.firstMenu->sizeHint().height() > screen * 2 / 3);
    QCOMPARE(scene.firstMenu->size(), scene.firstMenu->sizeHint());
    QVERIFY(scene.firstMenu->rect().contains(
        scene.firstMenu->actionGeometry(scene.firstMenu->actions().constLast())));
}

void TestLumoMenuManager::menuMayEndInsteadOfBeingFilled_data()
{
    QTest::addColumn<int>("what");
    QTest::newRow("menu") << 0;
    QTest::newRow("button") << 1;
    QTest::newRow("manager") << 2;
}

void TestLumoMenuManager::menuMayEndInsteadOfBeingFilled()
{
    QFETCH(int, what);
    Scene scene(true);
    QMenu menu;
    scene.manager->AddButtonMenuLinkage(scene.plain, &menu);
    scene.start();
    const QVector<QObject *> ends {scene.firstMenu, scene.plain, scene.manager};
    const QPointer<QObject> end = ends.at(what);
    connect(what == 1 ? &menu : scene.firstMenu, &QMenu::aboutToShow, qApp, [end] { delete end; });
    send(what == 1 ? scene.plain : scene.first, QEvent::Enter);
    QVERIFY(!end);
    QVERIFY(!menu.isVisible());
}

void TestLumoMenuManager::subMenusThatComeWithTheOpeningAreWatched()
{
    Scene scene(true);
    scene.start();
    QMenu later;
    QMenu deeper;
    connect(scene.firstMenu, &QMenu::aboutToShow, &later,
            [&] { scene.firstMenu->addMenu(&later); });
    connect(&later, &QMenu::aboutToShow, &deeper, [&] { later.addMenu(&deeper); });
    send(scene.first, QEvent::Enter);
    send(&later, QEvent::Leave);
    QVERIFY(scene.timer().isActive());
    later.popup(QPoint(300, 300));
    scene.timer().start();
    send(&deeper, QEvent::Enter);
    QVERIFY(!scene.timer().isActive());
}

void TestLumoMenuManager::managerMayEndWhenASubMenuGoes()
{
    Scene scene(true);
    QMenu *sub = scene.firstMenu->addMenu(QStringLiteral("Sub"));
    sub->addAction(QStringLiteral("Action"));
    scene.start();
    send(scene.first, QEvent::Enter);
    sub->popup(QPoint(300, 300));
    connect(sub, &QMenu::aboutToHide, qApp, [&scene] { delete scene.manager; });
    scene.manager->OnMenuHideTimerTimeOut();
    QVERIFY(!scene.manager);
    QVERIFY(!scene.firstMenu->isVisible());
}

void TestLumoMenuManager::managerTakesItsOpenMenuAlong()
{
    Scene scene(true);
    QMenu *sub = scene.firstMenu->addMenu(QStringLiteral("Sub"));
    sub->addAction(QStringLiteral("Action"));
    scene.start();
    send(scene.first, QEvent::Enter);
    sub->popup(QPoint(300, 300));
    bool isLoopRun = false;
    QTimer::singleShot(0, &scene.window, [&isLoopRun] { isLoopRun = true; });
    delete scene.manager;
    QVERIFY(!isLoopRun);
    QVERIFY(!scene.firstMenu->isVisible() && !sub->isVisible());
    QCOMPARE(scene.first->styleSheet(), Closed);
    QVERIFY(!scene.window.actions().contains(scene.firstMenu->menuAction()));
}

void TestLumoMenuManager::openMenuMovesWithTheWindow()
{
    Scene scene(true);
    scene.start();
    send(scene.first, QEvent::Enter);
    const QPoint place = scene.firstMenu->pos();
    scene.window.move(scene.window.pos() + QPoint(30, 40));
    QTRY_COMPARE(scene.firstMenu->pos(), place + QPoint(30, 40));
}

void TestLumoMenuManager::stoppedManagerClosesWhatThePointerIsNotIn()
{
    Scene scene(true);
    scene.start();
    scene.manager->Stop();
    QVERIFY(!scene.timer().isActive());
    scene.manager->Start();
    send(scene.first, QEvent::Enter);
    scene.manager->Stop();
    QVERIFY(scene.firstMenu->isVisible());
    QTRY_VERIFY(!scene.firstMenu->isVisible());
}

void TestLumoMenuManager::restartedManagerKeepsWhatIsOpen()
{
    Scene scene(true);
    scene.start();
    send(scene.first, QEvent::Enter);
    scene.manager->AddButtonMenuLinkage(scene.plain, Scene::addMenu(scene.plain));
    QVERIFY(!scene.timer().isActive());
    send(scene.first, QEvent::Leave);
    scene.manager->AddButtonMenuLinkage(scene.plain, nullptr);
    QVERIFY(scene.timer().isActive());
    QVERIFY(scene.firstMenu->isVisible());
}

void TestLumoMenuManager::dyingButtonIsDropped()
{
    Scene scene(true);
    QMenu menu;
    menu.addAction(QStringLiteral("Action"));
    scene.manager->AddButtonMenuLinkage(scene.plain, &menu);
    scene.start();
    send(scene.first, QEvent::Enter);
    delete scene.first;
    QVERIFY(!scene.manager->FindButton(QStringLiteral("First")));
    send(scene.plain, QEvent::Enter);
    QVERIFY(menu.isVisible());
    delete scene.plain;
    QVERIFY(!menu.isVisible());
    pointAt(&scene.window, QPoint(390, 290));
    scene.manager->Stop();
    scene.manager->Start();
    scene.manager->OnMenuHideTimerTimeOut();
}

void TestLumoMenuManager::dyingOpenMenuLeavesAButtonWithoutMenu()
{
    Scene scene(true);
    scene.start();
    send(scene.first, QEvent::Enter);
    delete scene.firstMenu;
    QVERIFY(!scene.manager->GetMenu(scene.first));
    QTRY_COMPARE(scene.first->styleSheet(), Closed);
    pointAt(&scene.window, QPoint(390, 290));
    scene.timer().stop();
    send(scene.first, QEvent::Enter);
    QVERIFY(scene.timer().isActive());
    scene.manager->OnMenuHideTimerTimeOut();
}

// Qt would remember it by its address, and meet it with the next style sheet of the application.
void TestLumoMenuManager::dyingOpenMenuIsNotStyledOnceMore()
{
    qApp->setStyleSheet(QStringLiteral("QMenu { padding: 1px; }"));
    const auto reset = qScopeGuard([] { qApp->setStyleSheet({}); });
    Scene scene(true);
    QMenu *menu = Scene::addMenu(scene.plain);
    int events = 0;
    bool isDead = false;
    connect(menu, &QObject::destroyed, this, [&isDead] { isDead = true; });
    scene.manager->AddButtonMenuLinkage(scene.plain, menu);
    scene.start();
    send(scene.plain, QEvent::Enter);
    QCOMPARE(scene.plain->styleSheet(), Open);
    const CallFilter filter(*qApp, [&](QObject *watched, QEvent *event) {
        if (isDead && watched == menu && event->type() == QEvent::StyleChange)
            ++events;
    });
    delete menu;
    QVERIFY(isDead);
    QTRY_COMPARE(scene.plain->styleSheet(), Closed);
    QCOMPARE(events, 0);
}

void TestLumoMenuManager::nextMenuOfAButtonKeepsItsOpenFace()
{
    Scene scene(true);
    scene.start();
    send(scene.first, QEvent::Enter);
    delete scene.firstMenu;
    QMenu *next = Scene::addMenu(scene.first);
    scene.manager->AddButtonMenuLinkage(scene.first, next);
    send(scene.first, QEvent::Enter);
    QCoreApplication::processEvents();
    QVERIFY(next->isVisible());
    QCOMPARE(scene.first->styleSheet(), Open);
}

// What waits there would find a window that is no main window any more.
void TestLumoMenuManager::dyingWindowRunsNoEventLoop()
{
    auto scene = std::make_unique<Scene>(true);
    scene->start();
    send(scene->first, QEvent::Enter);
    QVERIFY(scene->firstMenu->isVisible());
    int turns = 0;
    QTimer::singleShot(0, this, [&turns] { ++turns; });
    scene.reset();
    QCOMPARE(turns, 0);
    QTRY_COMPARE(turns, 1);
}

void TestLumoMenuManager::replacedOpenMenuIsHidden()
{
    Scene scene(true);
    scene.start();
    send(scene.first, QEvent::Enter);
    scene.manager->AddButtonMenuLinkage(scene.first, nullptr);
    QVERIFY(!scene.firstMenu->isVisible());
    QCOMPARE(scene.first->styleSheet(), Closed);
}

void TestLumoMenuManager::dyingWindowIsSurvived()
{
    auto window = std::make_unique<QMainWindow>();
    LumoMenuManager manager(window.get(), 0, true, nullptr);
    auto *button = new QToolButton(window.get());
    manager.AddButtonMenuLinkage(button, new QMenu(button));
    manager.Start();
    window->show(); // one on the screen tells of its hiding, when it is a main window no more
    window.reset();
    manager.Stop();
    manager.OnMenuHideTimerTimeOut();
}

void TestLumoMenuManager::windowMayBeNull()
{
    QToolButton button;
    auto *menu = new QMenu(&button);
    menu->addAction(QStringLiteral("Action"));
    LumoMenuManager manager(nullptr, 0, true, nullptr);
    manager.AddButtonMenuLinkage(&button, menu);
    manager.Start();
    button.move(30, 40);
    button.show();
    send(&button, QEvent::Enter);
    QVERIFY(menu->isVisible());
    QCOMPARE(menu->pos(), button.geometry().bottomLeft());
}

LUMO_TEST_MAIN(TestLumoMenuManager)
#include "tst_lumomenumanager.moc"
