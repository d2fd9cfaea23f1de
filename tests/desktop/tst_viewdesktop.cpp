// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include <ui_base/BaseView>
#include <ui_base/CmdsViewController>
#include <ui_base/InteractiveTool>

#include "desktop/desktopuser.h"
#include "support/testcase.h"
#include "support/testmain.h"

#include <lumo_app_service/ApplicationService>

#include <QCursor>
#include <QLineEdit>
#include <QMouseEvent>
#include <QPointer>
#include <QWindow>

#include <memory>

using namespace Vela::UiBase;
using namespace Lumo::Test;

namespace {

/// Keeps the input that its view gets, in order.
class Recorder : public CmdsViewController
{
public:
    using CmdsViewController::CmdsViewController;

    QStringList log;
    QPoint last;

    bool mouseDoubleClick(QMouseEvent *event) override
    {
        log << QStringLiteral("double click");
        return CmdsViewController::mouseDoubleClick(event);
    }
    bool mouseMove(QMouseEvent *event) override
    {
        last = event->pos();
        return CmdsViewController::mouseMove(event);
    }
    bool mousePress(QMouseEvent *event) override
    {
        log << QStringLiteral("press %1").arg(event->button());
        return CmdsViewController::mousePress(event);
    }
    bool mouseRelease(QMouseEvent *event) override
    {
        log << QStringLiteral("release %1").arg(event->button());
        return CmdsViewController::mouseRelease(event);
    }
    bool mouseWheel(QWheelEvent *event) override
    {
        log << (event->angleDelta().y() > 0 ? QStringLiteral("wheel up")
                                            : QStringLiteral("wheel down"));
        return CmdsViewController::mouseWheel(event);
    }
    bool mouseEnter(QEvent *event) override
    {
        log << QStringLiteral("enter");
        return CmdsViewController::mouseEnter(event);
    }
    bool mouseLeave(QEvent *event) override
    {
        log << QStringLiteral("leave");
        return CmdsViewController::mouseLeave(event);
    }
    bool keyPress(QKeyEvent *event) override
    {
        log << QStringLiteral("key %1").arg(event->key());
        return CmdsViewController::keyPress(event);
    }
};

/// Keeps where its operations begin, and where they are.
class DragTool : public InteractiveTool
{
public:
    DragTool(BaseView *view, Qt::CursorShape cursor)
        : InteractiveTool(view)
    {
        setOperatingCursor(cursor);
    }

    QPoint begin;
    QPoint now;

    bool mouseMove(QMouseEvent *event) override
    {
        now = event->pos();
        return InteractiveTool::mouseMove(event);
    }

protected:
    void startOperation() override
    {
        begin = startEvent().pos();
        InteractiveTool::startOperation();
    }
};

/// The window of an application with a field to type into and a native view with its controller.
struct Scene
{
    QWidget window;
    QLineEdit *edit = new QLineEdit(&window);
    QPointer<Recorder> controller;

    Scene()
    {
        window.setGeometry(200, 200, 500, 400);
        edit->setGeometry(10, 10, 200, 30);
        auto *const view = new BaseView(&window, Qt::WindowFlags());
        controller = new Recorder(view);
        view->setQtWidget(new NativeView(&window));
        view->setFocusPolicy(Qt::StrongFocus);
        view->setGeometry({50, 60, 400, 300});
        window.show();
        Vela::Services::ApplicationService::GetInstance().setMainWindow(&window);
    }
    ~Scene() { Vela::Services::ApplicationService::GetInstance().setMainWindow(nullptr); }

    bool isReady()
    {
        return QTest::qWaitForWindowActive(&window)
            && QTest::qWaitFor([this] { return colourInside(widget()) == QColor(Qt::darkBlue); });
    }

    QWidget &widget() const { return *controller->getQtWidget(); }
    QPoint at(int x, int y) const { return widget().mapToGlobal(QPoint(x, y)); }
    Qt::CursorShape cursor() const { return widget().cursor().shape(); }
};

} // namespace

class tst_ViewDesktop : public Lumo::Test::TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        TestCase::init();
        QVERIFY(pointAsUser({5, 5}));
    }

    void pointerThatComesMovesAndGoesIsHeard()
    {
        Scene scene;
        QVERIFY(scene.isReady());
        scene.controller->log.clear();
        QVERIFY(pointAsUser(scene.at(100, 100)));
        QTRY_COMPARE(scene.controller->log, QStringList {QStringLiteral("enter")});
        QVERIFY(pointAsUser(scene.at(120, 130)));
        QTRY_COMPARE(scene.controller->last, QPoint(120, 130));
        QVERIFY(pointAsUser(scene.window.mapToGlobal(QPoint(20, 380))));
        QTRY_COMPARE(scene.controller->log,
                     QStringList({QStringLiteral("enter"), QStringLiteral("leave")}));
    }

    void pointerThatGoesToALayerLeavesTheView()
    {
        Scene scene;
        QVERIFY(scene.isReady());
        scene.controller->showNotification(QStringLiteral("."), eNotificationFadeOutOnly, 600'000,
                                           false, nullptr, nullptr);
        const auto inTheBox = [&scene] {
            auto *const bar = scene.widget().findChild<NotificationBar *>();
            return bar ? bar->mapToGlobal(QPoint(8, 66)) : QPoint();
        };
        QTRY_COMPARE(colourOnScreen(inTheBox()), QColor(246, 246, 246));
        QVERIFY(pointAsUser(scene.at(100, 20)));
        QTRY_VERIFY(scene.widget().underMouse());
        scene.controller->log.clear();
        QVERIFY(pointAsUser(inTheBox()));
        QTRY_COMPARE(scene.controller->log, QStringList {QStringLiteral("leave")});
        QVERIFY(pointAsUser(scene.at(100, 20)));
        QTRY_COMPARE(scene.controller->log,
                     QStringList({QStringLiteral("leave"), QStringLiteral("enter")}));
    }

    void doubleClickHasNoReleaseOfItsOwn()
    {
        Scene scene;
        QVERIFY(scene.isReady());
        QVERIFY(pointAsUser(scene.at(100, 100)));
        QTRY_VERIFY(scene.widget().underMouse());
        scene.controller->log.clear();
        QVERIFY(clickAsUser(1, 2));
        QTRY_COMPARE(scene.controller->log,
                     QStringList({QStringLiteral("press 1"), QStringLiteral("release 1"),
                                  QStringLiteral("double click")}));
    }

    void wheelIsHeard()
    {
        Scene scene;
        QVERIFY(scene.isReady());
        QVERIFY(pointAsUser(scene.at(100, 100)));
        QTRY_VERIFY(scene.widget().underMouse());
        scene.controller->log.clear();
        QVERIFY(clickAsUser(4));
        QTRY_COMPARE(scene.controller->log, QStringList {QStringLiteral("wheel up")});
        QVERIFY(clickAsUser(5));
        QTRY_COMPARE(scene.controller->log.last(), QStringLiteral("wheel down"));
    }

    void leftAndMiddleButtonBeginTheirToolsAtOnce_data()
    {
        QTest::addColumn<int>("number");
        QTest::addColumn<int>("button");
        QTest::newRow("left") << 1 << int(eToolButtonLeft);
        QTest::newRow("middle") << 2 << int(eToolButtonMiddle);
    }

    void leftAndMiddleButtonBeginTheirToolsAtOnce()
    {
        QFETCH(int, number);
        QFETCH(int, button);
        Scene scene;
        QVERIFY(scene.isReady());
        const auto tool =
            std::make_shared<DragTool>(scene.controller->getView(), Qt::SizeAllCursor);
        scene.controller->pushTool(EToolActivationButton(button), tool);
        QVERIFY(pointAsUser(scene.at(100, 100)));
        QTRY_VERIFY(scene.widget().underMouse());
        QVERIFY(pressAsUser(number));
        QTRY_VERIFY(tool->isOperating());
        QCOMPARE(tool->begin, QPoint(100, 100));
        QCOMPARE(scene.cursor(), Qt::SizeAllCursor);
        QVERIFY(pointAsUser(scene.at(150, 90)));
        QTRY_COMPARE(tool->now, QPoint(150, 90));
        QVERIFY(releaseAsUser(number));
        QTRY_VERIFY(tool->isActive());
    }

    void rightButtonBeginsItsToolWithTheFirstMove()
    {
        Scene scene;
        QVERIFY(scene.isReady());
        const auto tool = std::make_shared<DragTool>(scene.controller->getView(), Qt::CrossCursor);
        scene.controller->pushTool(eToolButtonRight, tool);
        QVERIFY(pointAsUser(scene.at(100, 100)));
        QTRY_VERIFY(scene.widget().underMouse());
        QVERIFY(pressAsUser(3));
        QTRY_COMPARE(scene.controller->log.last(), QStringLiteral("press 2"));
        QVERIFY(tool->isActive());
        QVERIFY(pointAsUser(scene.at(130, 140)));
        QTRY_VERIFY(tool->isOperating());
        QCOMPARE(tool->begin, QPoint(100, 100));
        QCOMPARE(scene.cursor(), Qt::CrossCursor);
        QVERIFY(releaseAsUser(3));
        QTRY_VERIFY(tool->isActive());
        QCOMPARE(scene.cursor(), Qt::ArrowCursor);
    }

    // The button is held, so the view goes on hearing of a pointer that has left it.
    void dragGoesOnOutsideOfTheView()
    {
        Scene scene;
        QVERIFY(scene.isReady());
        const auto tool = std::make_shared<DragTool>(scene.controller->getView(), Qt::CrossCursor);
        scene.controller->pushTool(eToolButtonLeft, tool);
        QVERIFY(pointAsUser(scene.at(100, 100)));
        QTRY_VERIFY(scene.widget().underMouse());
        QVERIFY(pressAsUser(1));
        QTRY_VERIFY(tool->isOperating());
        QVERIFY(pointAsUser(scene.at(-120, -140)));
        QTRY_COMPARE(tool->now, QPoint(-120, -140));
        QVERIFY(releaseAsUser(1));
        QTRY_VERIFY(tool->isActive());
    }

    void viewClosedInADragIsSafe()
    {
        Scene scene;
        QVERIFY(scene.isReady());
        const auto tool = std::make_shared<DragTool>(scene.controller->getView(), Qt::CrossCursor);
        scene.controller->pushTool(eToolButtonLeft, tool);
        QVERIFY(pointAsUser(scene.at(100, 100)));
        QTRY_VERIFY(scene.widget().underMouse());
        QVERIFY(pressAsUser(1));
        QTRY_VERIFY(tool->isOperating());
        const QPoint outside = scene.at(130, 130);
        QVERIFY(scene.controller->close());
        QTRY_VERIFY(!scene.controller);
        QVERIFY(pointAsUser(outside));
        QVERIFY(releaseAsUser(1));
        QVERIFY(!tool->getView());
        QTRY_VERIFY(scene.window.isActiveWindow());
    }

    void keysGoToTheViewThatWasClicked()
    {
        Scene scene;
        QVERIFY(scene.isReady());
        scene.edit->setFocus();
        QVERIFY(typeAsUser(QStringLiteral("a")));
        QTRY_COMPARE(scene.edit->text(), QStringLiteral("a"));
        QVERIFY(pointAsUser(scene.at(100, 100)));
        QVERIFY(clickAsUser(1));
        QTRY_VERIFY(scene.widget().hasFocus());
        scene.controller->log.clear();
        QVERIFY(pressKeyAsUser(QStringLiteral("Escape")));
        QTRY_COMPARE(scene.controller->log,
                     QStringList {QStringLiteral("key %1").arg(Qt::Key_Escape)});
        QCOMPARE(scene.edit->text(), QStringLiteral("a"));
    }

    // The first message gives the focus to the view, as it is meant to; no message takes it from the
    // window, and later ones leave it where it is.
    void notificationsLeaveTheKeyboardToTheWindow()
    {
        Scene scene;
        QVERIFY(scene.isReady());
        scene.controller->showNotification(QStringLiteral("1"), eNotificationFadeOutOnly, 600'000,
                                           true, nullptr, nullptr);
        QTRY_VERIFY(scene.controller->isNotificationShowing());
        QVERIFY(
            QTest::qWaitForWindowExposed(scene.widget().findChild<NotificationBar *>()->window()));
        QVERIFY(scene.window.isActiveWindow());
        QVERIFY(scene.widget().hasFocus());
        scene.edit->setFocus();
        scene.controller->showNotification(QStringLiteral("2"), eNotificationPulse, 0, true,
                                           nullptr, nullptr);
        QVERIFY(typeAsUser(QStringLiteral("typed")));
        QTRY_COMPARE(scene.edit->text(), QStringLiteral("typed"));
        QVERIFY(scene.window.isActiveWindow());
    }

    void viewAndMessageGoAndComeBackWithTheMinimisedWindow()
    {
        Scene scene;
        QVERIFY(scene.isReady());
        scene.controller->showNotification(QStringLiteral("."), eNotificationFadeOutOnly, 600'000,
                                           false, nullptr, nullptr);
        QTRY_VERIFY(scene.widget().findChild<NotificationBar *>());
        auto *const bar = scene.widget().findChild<NotificationBar *>();
        const auto inTheBox = [bar] { return bar->mapToGlobal(QPoint(8, 66)); };
        QTRY_COMPARE(colourOnScreen(inTheBox()), QColor(246, 246, 246));
        const QPoint place = inTheBox() - scene.at(0, 0);
        const QPoint corner = scene.window.mapToGlobal(QPoint(490, 390));
        const QColor ground = colourOnScreen(corner);
        for (int i = 0; i < 2; ++i) {
            scene.window.showMinimized();
            QTRY_VERIFY(!scene.widget().isVisible());
            QTRY_VERIFY(!bar->isVisible());
            // Asked any earlier, the window manager has not yet put the window away.
            QTRY_VERIFY(colourOnScreen(corner) != ground);
            scene.window.showNormal();
            QTRY_VERIFY(scene.widget().isVisible());
            QTRY_COMPARE(colourOnScreen(inTheBox()), QColor(246, 246, 246));
            QTRY_COMPARE(inTheBox() - scene.at(0, 0), place);
            QTRY_COMPARE(colourInside(scene.widget()), QColor(Qt::darkBlue));
        }
    }

    void presentedViewCoversTheNativeOne()
    {
        Scene scene;
        QVERIFY(scene.isReady());
        auto *const view = new BaseView(scene.controller->getView(), Qt::WindowFlags());
        const QPointer<Recorder> presented(new Recorder(view));
        auto *const cover = new QWidget(&scene.widget());
        cover->setAttribute(Qt::WA_NativeWindow);
        cover->setAutoFillBackground(true);
        cover->setPalette(QPalette(Qt::yellow));
        view->setQtWidget(cover);
        QVERIFY(scene.controller->presentViewController(presented, eTransitionNone));
        QTRY_COMPARE(colourInside(scene.widget()), QColor(Qt::yellow));
        QVERIFY(pointAsUser(scene.at(100, 100)));
        QTRY_COMPARE(presented->log.value(0), QStringLiteral("enter"));
        scene.controller->log.clear();
        QVERIFY(clickAsUser(1));
        QTRY_VERIFY(presented->log.contains(QStringLiteral("release 1")));
        presented->dismissViewController();
        QTRY_VERIFY(!presented);
        QTRY_COMPARE(colourInside(scene.widget()), QColor(Qt::darkBlue));
    }
};

LUMO_TEST_MAIN(tst_ViewDesktop)
#include "tst_viewdesktop.moc"
