// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include <ui_base/CommandGroup>
#include <ui_base/FloatingLayer>
#include <ui_base/ToolBar>
#include <ui_base/ToolbarManager>
#include <ui_base/ToolButton>

#include "desktop/desktopuser.h"
#include "support/testcase.h"
#include "support/testmain.h"
#include "ui_base/command/testcommand.h"

#include <QAction>
#include <QLineEdit>

#include <memory>

using namespace Vela::UiBase;
using namespace Lumo::Test;

namespace {

class PressCounter : public QObject
{
public:
    explicit PressCounter(QWidget &widget) { widget.installEventFilter(this); }

    int count = 0;

protected:
    bool eventFilter(QObject *, QEvent *event) override
    {
        count += event->type() == QEvent::MouseButtonPress ? 1 : 0;
        return false;
    }
};

/// An application with a native view, a floating tool bar over it, and a group that comes and goes.
struct Scene
{
    QWidget window;
    QLineEdit *edit = new QLineEdit(&window);
    NativeView *view = new NativeView(&window);
    std::unique_ptr<ToolBar> mainBar = std::make_unique<ToolBar>(view, Qt::BottomToolBarArea);
    std::shared_ptr<CommandGroup> group =
        std::make_shared<CommandGroup>(QString(), QString(), QStringLiteral("sculpt"));
    TestCommand *command = new TestCommand(QStringLiteral("cut"));
    ToolbarManager *manager = nullptr;

    Scene()
    {
        window.setGeometry(200, 200, 500, 400);
        edit->setGeometry(10, 10, 200, 30);
        view->setGeometry(20, 60, 460, 300);
        mainBar->AddAction(new QAction(&window));
        mainBar->SetOffset({30, 20});
        mainBar->move(30, 200);
        FloatingLayer::makeWidgetFloating(mainBar.get(), QMargins());
        manager = new ToolbarManager(mainBar.get());
        group->addCommand(command);
        manager->addDynamicCommandGroup(group.get());
        window.show();
        mainBar->show();
    }

    bool isActive()
    {
        edit->setFocus();
        return QTest::qWaitForWindowActive(&window) && QTest::qWaitForWindowExposed(bar());
    }
    QWidget *bar() const { return command->toolButton()->window(); }
    QPoint distance() const { return bar()->pos() - mainBar->mapToGlobal(QPoint(0, 0)); }
    QPoint expectedDistance() const { return {mainBar->width() - 1 + 10 + 2 - 1 + 10, 0}; }
};

} // namespace

class tst_ToolbarManagerDesktop : public Lumo::Test::TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void rowIsSeenAboveANativeViewAndLeavesTheFocus()
    {
        Scene scene;
        scene.manager->commandGroupBegan(scene.group.get());
        QVERIFY(scene.isActive());
        const QWidget &button = *scene.command->toolButton();
        QTRY_VERIFY(colourInside(button) != QColor(Qt::darkBlue));
        QCOMPARE(scene.distance(), scene.expectedDistance());
        scene.manager->commandGroupEnded(scene.group.get());
        QTRY_COMPARE(colourInside(button), QColor(Qt::darkBlue));
        scene.manager->commandGroupBegan(scene.group.get());
        QTRY_VERIFY(colourInside(button) != QColor(Qt::darkBlue));
        QVERIFY(typeAsUser(QStringLiteral("on")));
        QTRY_COMPARE(scene.edit->text(), QStringLiteral("on"));
    }

    void rowFollowsTheWindowThatTheUserMoves()
    {
        Scene scene;
        scene.manager->commandGroupBegan(scene.group.get());
        QVERIFY(scene.isActive());
        for (const QPoint &to : {QPoint(300, 260), QPoint(20, 30)}) {
            const QPoint before = scene.window.pos();
            QVERIFY(moveAsUser(scene.window, to.x(), to.y()));
            QTRY_VERIFY(scene.window.pos() != before);
            QTRY_COMPARE(scene.mainBar->mapToGlobal(QPoint(0, 0)),
                         scene.view->mapToGlobal(QPoint(30, 200)));
            QTRY_COMPARE(scene.distance(), scene.expectedDistance());
        }
        scene.mainBar->move(60, 100);
        QTRY_COMPARE(scene.distance(), scene.expectedDistance());
    }

    void roomBetweenPlatesBelongsToTheView()
    {
        Scene scene;
        ToolBar bar(scene.view, Qt::LeftToolBarArea);
        bar.SetBackColor(Qt::transparent);
        const QWidget *const first = bar.AddAction(new QAction(&bar), QStringLiteral("a"));
        const QWidget *const second = bar.AddAction(new QAction(&bar), QStringLiteral("b"));
        FloatingLayer::makeWidgetFloating(&bar, QMargins());
        bar.move(250, 30);
        bar.show();
        scene.manager->commandGroupBegan(scene.group.get());
        QVERIFY(scene.isActive());
        QTRY_VERIFY(colourInside(*first) != QColor(Qt::darkBlue));
        QTRY_VERIFY(colourInside(*second) != QColor(Qt::darkBlue));
        const QPoint between = (first->mapToGlobal(first->rect().bottomLeft())
                                + second->mapToGlobal(second->rect().topRight()))
            / 2;
        QTRY_COMPARE(colourOnScreen(between), QColor(Qt::darkBlue));
        PressCounter pressed(*scene.view);
        QVERIFY(pointAsUser(between));
        QVERIFY(clickAsUser(1));
        QTRY_COMPARE(pressed.count, 1);

        const QWidget *const third = bar.AddAction(new QAction(&bar), QStringLiteral("c"));
        QTRY_VERIFY(colourInside(*third) != QColor(Qt::darkBlue));
        QCOMPARE(colourOnScreen(between), QColor(Qt::darkBlue));
        bar.SetBackColor(Qt::green);
        QTRY_COMPARE(colourOnScreen(between), QColor(Qt::green));
        QVERIFY(pointAsUser(QPoint(0, 0)));
    }

    void commandMayTakeTheBarAwayAtAClick()
    {
        Scene scene;
        scene.manager->commandGroupBegan(scene.group.get());
        QVERIFY(scene.isActive());
        int runs = 0;
        scene.command->work = [&](bool) {
            scene.manager->removeDynamicCommand(scene.command);
            return ++runs > 0;
        };
        const QWidget &button = *scene.command->toolButton();
        const QPoint place = button.mapToGlobal(button.rect().center());
        QTRY_VERIFY(colourOnScreen(place) != QColor(Qt::darkBlue));
        QVERIFY(pointAsUser(place));
        QVERIFY(clickAsUser(1));
        QTRY_COMPARE(runs, 1);
        QVERIFY(!scene.manager->findDynamicCommand(QStringLiteral("cut")));
        QTRY_COMPARE(colourOnScreen(place), QColor(Qt::darkBlue));
        QVERIFY(pointAsUser(QPoint(0, 0)));
    }
};

LUMO_TEST_MAIN(tst_ToolbarManagerDesktop)
#include "tst_toolbarmanagerdesktop.moc"
