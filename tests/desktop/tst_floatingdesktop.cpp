// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include <ui_base/FloatingLayer>
#include <ui_base/NotificationBar>

#include "desktop/desktopuser.h"
#include "support/testcase.h"
#include "support/testmain.h"

#include <lumo_app_service/ApplicationService>

#include <QApplication>
#include <QDialog>
#include <QDockWidget>
#include <QLineEdit>
#include <QMainWindow>
#include <QPainter>
#include <QPointer>
#include <QWindow>

#include <memory>

using namespace Vela::UiBase;
using namespace Lumo::Test;

namespace {

class Patch : public QWidget
{
public:
    using QWidget::QWidget;

protected:
    void paintEvent(QPaintEvent *) override { QPainter(this).fillRect(rect(), Qt::green); }
};

class HideCounter : public QObject
{
public:
    explicit HideCounter(QWidget &widget) { widget.installEventFilter(this); }

    int count = 0;

protected:
    bool eventFilter(QObject *watched, QEvent *event) override
    {
        count += event->type() == QEvent::Hide ? 1 : 0;
        return QObject::eventFilter(watched, event);
    }
};

// The window of an application with a native view, a field to type into, and a patch over the view.
struct Scene
{
    QWidget window;
    QLineEdit *edit = new QLineEdit(&window);
    NativeView *view = new NativeView(&window);
    QPointer<QWidget> patch = new Patch(view);

    Scene()
    {
        window.setGeometry(200, 200, 500, 400);
        edit->setGeometry(10, 10, 200, 30);
        view->setGeometry(50, 60, 400, 300);
        patch->setGeometry(30, 40, 80, 50);
        window.show();
    }
    ~Scene() { delete patch.data(); }

    bool isActive()
    {
        edit->setFocus();
        return QTest::qWaitForWindowActive(&window);
    }

    QWidget *floatPatch()
    {
        FloatingLayer::makeWidgetFloating(patch, QMargins(6, 6, 6, 6));
        patch->show();
        return patch->parentWidget();
    }

    NotificationBar *floatBar()
    {
        auto *const bar = new NotificationBar(view);
        FloatingLayer::makeWidgetFloating(bar, QMargins());
        return bar;
    }

    QPoint offset() const { return patch->mapToGlobal(QPoint()) - view->mapToGlobal(QPoint()); }
};

} // namespace

class tst_FloatingDesktop : public Lumo::Test::TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void layerIsSeenAboveANativeView()
    {
        Scene scene;
        QVERIFY(scene.isActive());
        const QWidget *const layer = scene.floatPatch();
        QVERIFY(layer);
        QTRY_COMPARE(colourInside(*scene.patch), QColor(Qt::green));
        scene.view->raise();
        scene.view->update();
        scene.window.raise();
        scene.window.activateWindow();
        QTRY_VERIFY(scene.window.isActiveWindow());
        QTRY_COMPARE(colourInside(*scene.patch), QColor(Qt::green));
    }

    void marginsLetTheViewShineThrough()
    {
        Scene scene;
        QVERIFY(scene.isActive());
        scene.floatPatch();
        QTRY_COMPARE(colourInside(*scene.patch), QColor(Qt::green));
        // Without a compositor a translucent window shows black instead of what lies below.
        const QColor margin = colourOnScreen(scene.patch->mapToGlobal(QPoint(-3, -3)));
        QVERIFY(margin == QColor(Qt::darkBlue) || margin == QColor(Qt::black));
    }

    void layerFollowsTheWindowThatTheUserMoves()
    {
        Scene scene;
        QVERIFY(scene.isActive());
        scene.floatPatch();
        QTRY_COMPARE(scene.offset(), QPoint(30, 40));
        for (const QPoint &to : {QPoint(400, 300), QPoint(20, 30)}) {
            const QPoint before = scene.window.pos();
            QVERIFY(moveAsUser(scene.window, to.x(), to.y()));
            QTRY_VERIFY(scene.window.pos() != before);
            QTRY_COMPARE(scene.offset(), QPoint(30, 40));
            QTRY_COMPARE(colourInside(*scene.patch), QColor(Qt::green));
        }
    }

    void layerFollowsTheMainWindowByTheService()
    {
        Scene scene;
        QVERIFY(scene.isActive());
        auto &service = Vela::Services::ApplicationService::GetInstance();
        service.setMainWindow(&scene.window);
        scene.floatPatch();
        QTRY_COMPARE(scene.offset(), QPoint(30, 40));
        const QPoint before = scene.window.pos();
        QVERIFY(moveAsUser(scene.window, 333, 222));
        QTRY_VERIFY(scene.window.pos() != before);
        QTRY_COMPARE(scene.offset(), QPoint(30, 40));
        service.setMainWindow(nullptr);
    }

    void layerSurvivesMinimiseAndRestore()
    {
        Scene scene;
        QVERIFY(scene.isActive());
        const QWidget *const layer = scene.floatPatch();
        QTRY_COMPARE(colourInside(*scene.patch), QColor(Qt::green));
        const QPoint place = scene.patch->mapToGlobal(scene.patch->rect().center());
        for (int i = 0; i < 2; ++i) {
            scene.window.showMinimized();
            QTRY_VERIFY(!scene.window.windowHandle()->isExposed());
            QTRY_VERIFY(colourOnScreen(place) != QColor(Qt::green));
            scene.window.showNormal();
            QTRY_VERIFY(scene.window.windowHandle()->isExposed());
            QTRY_COMPARE(colourOnScreen(place), QColor(Qt::green));
            QVERIFY(layer->isVisible());
            QVERIFY(scene.patch->isVisible());
            QCOMPARE(scene.offset(), QPoint(30, 40));
        }
    }

    void layerHiddenWhileMinimisedComesBackWithItsWidget()
    {
        Scene scene;
        QVERIFY(scene.isActive());
        const QWidget *const layer = scene.floatPatch();
        QTRY_COMPARE(colourInside(*scene.patch), QColor(Qt::green));
        scene.window.showMinimized();
        QTRY_VERIFY(layer->isMinimized());
        scene.patch->hide();
        QTRY_VERIFY(!scene.window.windowHandle()->isExposed());
        scene.window.showNormal();
        QTRY_VERIFY(scene.window.windowHandle()->isExposed());
        scene.patch->show();
        QTRY_COMPARE(colourInside(*scene.patch), QColor(Qt::green));
        QVERIFY(!layer->isMinimized());
        QVERIFY(scene.window.windowHandle()->isExposed());
    }

    void layerFollowsADockThatIsPulledOut()
    {
        QMainWindow window;
        window.setGeometry(200, 200, 600, 400);
        auto *const dock = new QDockWidget(&window);
        auto *const view = new NativeView(dock);
        view->setMinimumSize(200, 150);
        dock->setWidget(view);
        window.addDockWidget(Qt::LeftDockWidgetArea, dock);
        const std::unique_ptr<QWidget> patch(new Patch(view));
        patch->setGeometry(30, 40, 80, 50);
        window.show();
        QVERIFY(QTest::qWaitForWindowActive(&window));
        FloatingLayer::makeWidgetFloating(patch.get(), QMargins());
        patch->show();
        QTRY_COMPARE(colourInside(*patch), QColor(Qt::green));
        dock->setFloating(true);
        dock->move(900, 600);
        QTRY_COMPARE(patch->mapToGlobal(QPoint()) - view->mapToGlobal(QPoint()), QPoint(30, 40));
        QTRY_COMPARE(patch->window()->windowHandle()->transientParent(), dock->windowHandle());
        dock->raise();
        QTRY_COMPARE(colourInside(*patch), QColor(Qt::green));
    }

    void showingALayerLeavesTheFocusAlone()
    {
        Scene scene;
        QVERIFY(scene.isActive());
        QWidget *const layer = scene.floatPatch();
        QVERIFY(QTest::qWaitForWindowExposed(layer));
        QTRY_COMPARE(colourInside(*scene.patch), QColor(Qt::green));
        QVERIFY(typeAsUser(QStringLiteral("typed")));
        QTRY_COMPARE(scene.edit->text(), QStringLiteral("typed"));
        QVERIFY(scene.window.isActiveWindow());
        scene.patch->hide();
        scene.patch->show();
        QVERIFY(QTest::qWaitForWindowExposed(layer));
        QVERIFY(typeAsUser(QStringLiteral("2")));
        QTRY_COMPARE(scene.edit->text(), QStringLiteral("typed2"));
    }

    void userClosesTheWindowFromAFloatingWidget()
    {
        Scene scene;
        QVERIFY(scene.isActive());
        const QWidget *const layer = scene.floatPatch();
        QTRY_COMPARE(colourInside(*scene.patch), QColor(Qt::green));
        const QPoint onPatch = scene.patch->mapToGlobal(scene.patch->rect().center());
        QVERIFY(pointAsUser(onPatch));
        QVERIFY(clickAsUser(1));
        QTRY_VERIFY(layer->isActiveWindow());
        QVERIFY(pressKeyAsUser(QStringLiteral("alt+F4")));
        QTRY_VERIFY(!scene.window.isVisible());
        QVERIFY(layer->isVisible());
    }

    void showingABarLeavesTheFocusAlone()
    {
        Scene scene;
        QVERIFY(scene.isActive());
        NotificationBar *const bar = scene.floatBar();
        bar->ShowSimpleText(QStringLiteral("Saved."), eNotificationFadeOutOnly, 60'000, true);
        QTRY_VERIFY(bar->isShowing());
        QVERIFY(QTest::qWaitForWindowExposed(bar->window()));
        QVERIFY(typeAsUser(QStringLiteral("typed")));
        QTRY_COMPARE(scene.edit->text(), QStringLiteral("typed"));
        QVERIFY(scene.window.isActiveWindow());
    }

    void clickOnAMessageLeavesTheFocusAlone()
    {
        Scene scene;
        QVERIFY(scene.isActive());
        NotificationBar *const bar = scene.floatBar();
        bar->ShowSimpleText(QStringLiteral("Saved."), eNotificationFadeOutOnly, 60'000, false);
        QTRY_VERIFY(bar->isShowing());
        QVERIFY(QTest::qWaitForWindowExposed(bar->window()));
        QVERIFY(pointAsUser(bar->mapToGlobal(QPoint(bar->width() / 2, 66))));
        QVERIFY(clickAsUser(1));
        QVERIFY(typeAsUser(QStringLiteral("typed")));
        QTRY_COMPARE(scene.edit->text(), QStringLiteral("typed"));
    }

    void onlyAMessageWithAFieldTakesTheKeyboard()
    {
        Scene scene;
        QVERIFY(scene.isActive());
        NotificationBar *const bar = scene.floatBar();
        bar->ShowSimpleText(QStringLiteral("Saved."), eNotificationFadeOutOnly, 60'000, false);
        QTRY_VERIFY(bar->isShowing());
        QVERIFY(QTest::qWaitForWindowExposed(bar->window()));
        const QPointer<QLineEdit> field = new QLineEdit;
        bar->ShowControl(field, eNotificationNoFade, 60'000, false);
        QTRY_VERIFY(field->isVisible());
        QVERIFY(pointAsUser(field->mapToGlobal(field->rect().center())));
        QVERIFY(clickAsUser(1));
        QTRY_VERIFY(field->hasFocus());
        QVERIFY(typeAsUser(QStringLiteral("typed")));
        QTRY_COMPARE(field->text(), QStringLiteral("typed"));

        bar->ShowSimpleText(QStringLiteral("Saved."), eNotificationFadeOutOnly, 60'000, false);
        QTRY_VERIFY(!field && bar->isShowing());
        QTRY_VERIFY(scene.window.isActiveWindow());
        QVERIFY(pointAsUser(bar->mapToGlobal(QPoint(bar->width() / 2, 66))));
        QVERIFY(clickAsUser(1));
        QVERIFY(typeAsUser(QStringLiteral("again")));
        QTRY_COMPARE(scene.edit->text(), QStringLiteral("again"));
    }

    void barIsSeenAboveANativeView()
    {
        Scene scene;
        QVERIFY(scene.isActive());
        NotificationBar *const bar = scene.floatBar();
        bar->ShowSimpleText(QStringLiteral("."), eNotificationFadeOutOnly, 60'000, false);
        const auto inTheBox = [bar] { return colourOnScreen(bar->mapToGlobal(QPoint(8, 66))); };
        QTRY_COMPARE(inTheBox(), QColor(246, 246, 246));
        const QPoint centre = bar->mapToGlobal(QPoint(bar->width() / 2, 0));
        QVERIFY(qAbs(centre.x() - scene.view->mapToGlobal(QPoint(200, 0)).x()) <= 1);
    }

    void roomAroundABarBelongsToTheView()
    {
        Scene scene;
        QVERIFY(scene.isActive());
        auto *const bar = new NotificationBar(scene.view);
        FloatingLayer::makeWidgetFloating(bar, QMargins(3, 3, 3, 3));
        bar->ShowSimpleText(QStringLiteral("Saving"), eNotificationPulse, 0, false);
        const auto seenAt = [bar](int x, int y) {
            return colourOnScreen(bar->mapToGlobal({x, y}));
        };
        const int middle = bar->width() / 2;
        QTRY_COMPARE(seenAt(middle - 23, 24), QColor(190, 182, 173));
        QTRY_VERIFY(seenAt(8, 66).lightness() > 230);
        QCOMPARE(seenAt(8, 24), QColor(Qt::darkBlue));
        QCOMPARE(seenAt(-2, 66), QColor(Qt::darkBlue));
        QCOMPARE(seenAt(middle, 53), QColor(Qt::darkBlue));
        bar->ShowSimpleText(QStringLiteral("Saved"), eNotificationNoFade, 1, false);
        QTRY_VERIFY(bar->isShowing());
        QTRY_VERIFY(!bar->isShowing());
        QVERIFY(bar->isVisible());
        QTRY_COMPARE(seenAt(8, 66), QColor(Qt::darkBlue));
        QCOMPARE(seenAt(middle - 23, 24), QColor(Qt::darkBlue));
    }

    void userClosesABarByItsButton()
    {
        Scene scene;
        QVERIFY(scene.isActive());
        NotificationBar *const bar = scene.floatBar();
        bar->ShowSimpleText(QStringLiteral("Saved."), eNotificationPulse, 0, true);
        QTRY_VERIFY(bar->isShowing());
        QVERIFY(QTest::qWaitForWindowExposed(bar->window()));
        const QPoint button = bar->mapToGlobal(QPoint(bar->width() - 14, 58 + 14));
        QVERIFY(pointAsUser(button));
        QVERIFY(clickAsUser(1));
        QTRY_VERIFY(!bar->isShowing());
        QTRY_VERIFY(!bar->isVisible());
        QVERIFY(!bar->window()->isVisible());
        // A window manager may give what is clicked the focus, until it is gone.
        QTRY_VERIFY(scene.window.isActiveWindow());
        QVERIFY(typeAsUser(QStringLiteral("typed")));
        QTRY_COMPARE(scene.edit->text(), QStringLiteral("typed"));
    }

    void barFollowsTheWindowAndIsBackAfterMinimising()
    {
        Scene scene;
        QVERIFY(scene.isActive());
        NotificationBar *const bar = scene.floatBar();
        bar->ShowSimpleText(QStringLiteral("."), eNotificationFadeOutOnly, 600'000, false);
        const QColor box(246, 246, 246);
        const auto inTheBox = [bar] { return bar->mapToGlobal(QPoint(8, 66)); };
        const auto place = [&] { return inTheBox() - scene.view->mapToGlobal(QPoint()); };
        QTRY_COMPARE(colourOnScreen(inTheBox()), box);
        const QPoint standing = place();

        const QPoint before = scene.window.pos();
        QVERIFY(moveAsUser(scene.window, 420, 310));
        QTRY_VERIFY(scene.window.pos() != before);
        QTRY_COMPARE(place(), standing);
        QTRY_COMPARE(colourOnScreen(inTheBox()), box);

        const QPoint corner = scene.window.mapToGlobal(QPoint(490, 390));
        const QColor ground = colourOnScreen(corner);
        scene.window.showMinimized();
        QTRY_VERIFY(colourOnScreen(corner) != ground);
        QTRY_VERIFY(colourOnScreen(inTheBox()) != box);
        scene.window.showNormal();
        QTRY_VERIFY(scene.window.windowHandle()->isExposed());
        QTRY_COMPARE(place(), standing);
        QTRY_COMPARE(colourOnScreen(inTheBox()), box);
    }

    void barStaysWithTheMiddleOfAWindowThatIsResized()
    {
        Scene scene;
        QVERIFY(scene.isActive());
        NotificationBar *const bar = scene.floatBar();
        bar->ShowSimpleText(QStringLiteral("."), eNotificationFadeOutOnly, 600'000, false);
        QTRY_COMPARE(colourOnScreen(bar->mapToGlobal(QPoint(8, 66))), QColor(246, 246, 246));
        scene.view->resize(300, 250);
        const auto middle = [&] {
            return bar->mapToGlobal(QPoint(bar->width() / 2, 0)).x()
                - scene.view->mapToGlobal(QPoint(150, 0)).x();
        };
        QTRY_VERIFY(qAbs(middle()) <= 1);
        QTRY_COMPARE(colourOnScreen(bar->mapToGlobal(QPoint(8, 66))), QColor(246, 246, 246));
    }

    // The message under the pointer outlasts one of the same length that is not pointed at.
    void pointerHoldsAMessageAndLetsItGo()
    {
        Scene pointed;
        QVERIFY(pointed.isActive());
        QWidget elsewhere;
        elsewhere.setGeometry(900, 200, 300, 300);
        elsewhere.setAttribute(Qt::WA_ShowWithoutActivating);
        elsewhere.show();
        auto *const held = new NotificationBar(pointed.view);
        FloatingLayer::makeWidgetFloating(held, QMargins());
        held->ShowSimpleText(QStringLiteral("."), eNotificationFadeOutOnly, 600'000, false);
        const auto inTheBox = [held] { return held->mapToGlobal(QPoint(8, 66)); };
        QTRY_COMPARE(colourOnScreen(inTheBox()), QColor(246, 246, 246));
        QVERIFY(pointAsUser(inTheBox()));
        QTRY_VERIFY(held->underMouse());
        held->SetDismissInterval(1);

        NotificationBar other(&elsewhere);
        HideCounter hides(other);
        other.ShowSimpleText(QStringLiteral("."), eNotificationFadeOutOnly, 1, false);
        QTRY_COMPARE(hides.count, 1);
        QVERIFY(held->isShowing());
        QCOMPARE(colourOnScreen(inTheBox()), QColor(246, 246, 246));
        QVERIFY(pointAsUser({5, 5}));
        QTRY_VERIFY(!held->isVisible());
    }

    void layerThatIsShownAgainStaysBelowAModalDialog()
    {
        Scene scene;
        QVERIFY(scene.isActive());
        scene.patch->setGeometry(30, 40, 160, 50);
        QWidget *const layer = scene.floatPatch();
        QTRY_COMPARE(colourInside(*scene.patch), QColor(Qt::green));
        QDialog dialog(&scene.window);
        dialog.setStyleSheet(QStringLiteral("background: red"));
        const QPoint covered = scene.patch->mapToGlobal(QPoint(140, 25));
        dialog.setGeometry(QRect(covered - QPoint(60, 65), QSize(200, 130)));
        dialog.open();
        QTRY_COMPARE(colourOnScreen(covered), QColor(Qt::red));
        layer->show();
        const QPoint beside = dialog.frameGeometry().topRight() + QPoint(20, 20);
        QWidget late(&scene.window, Qt::Dialog | Qt::FramelessWindowHint);
        late.setStyleSheet(QStringLiteral("background: blue"));
        late.setGeometry(QRect(beside, QSize(30, 30)));
        late.show();
        // What was asked for before has been done when this is seen.
        QTRY_COMPARE(colourInside(late), QColor(Qt::blue));
        QCOMPARE(colourOnScreen(covered), QColor(Qt::red));
    }

    void layerOfAModalDialogIsSeenAboveIt()
    {
        Scene scene;
        QVERIFY(scene.isActive());
        QDialog dialog(&scene.window);
        dialog.setGeometry(300, 300, 200, 130);
        QPointer<QWidget> patch = new Patch(&dialog);
        patch->setGeometry(30, 40, 80, 50);
        FloatingLayer::makeWidgetFloating(patch, {});
        dialog.open();
        QTRY_VERIFY(dialog.windowHandle() && dialog.windowHandle()->isExposed());
        patch->show();
        QTRY_COMPARE(colourInside(*patch), QColor(Qt::green));
        delete patch.data();
    }

    void severalLayersStandInTheOrderInWhichTheyWereShown()
    {
        Scene scene;
        QVERIFY(scene.isActive());
        scene.floatPatch();
        QTRY_COMPARE(colourInside(*scene.patch), QColor(Qt::green));
        NotificationBar *const bar = scene.floatBar();
        bar->ShowSimpleText(QStringLiteral("."), eNotificationFadeOutOnly, 600'000, false);
        QTRY_COMPARE(colourOnScreen(bar->mapToGlobal(QPoint(8, 66))), QColor(246, 246, 246));
        const QPoint inTheBox = bar->mapToGlobal(QPoint(8, 66)) - scene.view->mapToGlobal(QPoint());
        scene.patch->move(inTheBox - QPoint(20, 20));
        QTRY_COMPARE(colourOnScreen(bar->mapToGlobal(QPoint(8, 66))), QColor(246, 246, 246));
        scene.patch->hide();
        scene.patch->show();
        QTRY_COMPARE(colourOnScreen(bar->mapToGlobal(QPoint(8, 66))), QColor(Qt::green));
        QVERIFY(scene.window.isActiveWindow());
    }
};

LUMO_TEST_MAIN(tst_FloatingDesktop)
#include "tst_floatingdesktop.moc"
