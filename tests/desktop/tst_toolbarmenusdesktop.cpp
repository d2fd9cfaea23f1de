// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include <ui_base/CommandGroup>
#include <ui_base/FloatingLayer>
#include <ui_base/ToolBar>
#include <ui_base/ToolButtonWithButtonMenu>

#include "desktop/desktopuser.h"
#include "support/testcase.h"
#include "support/testmain.h"
#include "ui_base/command/testcommand.h"

#include <QLineEdit>

#include <memory>

using namespace Vela::UiBase;
using namespace Lumo::Test;

namespace {

std::shared_ptr<CommandGroup> makeGroup(const QString &name)
{
    auto group = std::make_shared<CommandGroup>(QString(), name, name);
    group->setGrid(false);
    return group;
}

/// An application with a native view, a tool bar over it, and menus of commands two levels deep.
struct Scene
{
    std::unique_ptr<QWidget> window = std::make_unique<QWidget>();
    QPointer<QLineEdit> edit = new QLineEdit(window.get());
    QPointer<NativeView> view = new NativeView(window.get());
    std::unique_ptr<ToolBar> bar = std::make_unique<ToolBar>(view, Qt::LeftToolBarArea);
    std::shared_ptr<CommandGroup> top = makeGroup(QStringLiteral("top"));
    std::shared_ptr<CommandGroup> line = makeGroup(QStringLiteral("line"));
    std::shared_ptr<CommandGroup> inner = makeGroup(QStringLiteral("inner"));
    std::shared_ptr<TestCommand> cut = std::make_shared<TestCommand>(QStringLiteral("cut"));
    std::shared_ptr<TestCommand> up = std::make_shared<TestCommand>(QStringLiteral("up"));

    Scene()
    {
        window->setGeometry(200, 200, 500, 400);
        edit->setGeometry(10, 10, 200, 30);
        view->setGeometry(20, 60, 460, 300);
        bar->move(30, 100);
        FloatingLayer::makeWidgetFloating(bar.get(), QMargins());
        inner->addCommand(up);
        line->addCommand(cut, 1);
        line->addCommand(inner, 2);
        top->addCommand(line);
        top->setToolbar(bar.get());
        bar->AddCommandGroup(top.get());
        window->show();
        bar->show();
    }
    ~Scene() { pointAsUser(QPoint(0, 0)); }

    bool isActive() const
    {
        edit->setFocus();
        return QTest::qWaitForWindowActive(window.get())
            && QTest::qWaitForWindowExposed(bar->window());
    }
    bool click(const QWidget *button) const
    {
        const QPoint place = button->mapToGlobal(button->rect().center());
        return QTest::qWaitForWindowExposed(button->window()) && pointAsUser(place)
            && clickAsUser(1);
    }
    bool openAll() const
    {
        return click(line->toolButton())
            && QTest::qWaitFor([&] { return line->toolbar()->isVisible(); })
            && click(inner->toolButton())
            && QTest::qWaitFor([&] { return inner->toolbar()->isVisible(); });
    }
};

} // namespace

class tst_ToolBarMenusDesktop : public Lumo::Test::TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void menusAreSeenAboveANativeViewAndLeaveTheFocus()
    {
        Scene scene;
        QVERIFY(scene.isActive());
        QVERIFY(scene.openAll());
        for (const auto &command : {scene.cut, scene.up})
            QTRY_VERIFY(colourInside(*command->toolButton()) != QColor(Qt::darkBlue));
        QVERIFY(typeAsUser(QStringLiteral("on")));
        QTRY_COMPARE(scene.edit->text(), QStringLiteral("on"));
        const QPoint place = scene.cut->toolButton()->mapToGlobal(QPoint(5, 5));
        QVERIFY(scene.click(scene.line->toolButton()));
        QTRY_COMPARE(colourOnScreen(place), QColor(Qt::darkBlue));
    }

    void commandRunsAtAClickInTheDeepestMenu()
    {
        Scene scene;
        int runs = 0;
        scene.up->work = [&runs](bool) { return ++runs > 0; };
        QVERIFY(scene.isActive());
        QVERIFY(scene.openAll());
        QVERIFY(scene.click(scene.up->toolButton()));
        QTRY_COMPARE(runs, 1);
        QTRY_VERIFY(!scene.inner->toolbar()->isVisible());
        QVERIFY(scene.line->toolbar()->isVisible());
    }

    void openMenusFollowTheWindowThatTheUserMoves()
    {
        Scene scene;
        QVERIFY(scene.isActive());
        QVERIFY(scene.openAll());
        const auto places = [&scene] {
            const QPoint corner = scene.window->mapToGlobal(QPoint(0, 0));
            return QList<QPoint> {scene.line->toolbar()->window()->pos() - corner,
                                  scene.inner->toolbar()->window()->pos() - corner};
        };
        const QList<QPoint> before = places();
        for (const QPoint &to : {QPoint(300, 260), QPoint(20, 30)}) {
            const QPoint old = scene.window->pos();
            QVERIFY(moveAsUser(*scene.window, to.x(), to.y()));
            QTRY_VERIFY(scene.window->pos() != old);
            QTRY_COMPARE(places(), before);
        }
    }

    void clickMayEndTheMenuThatItIsIn_data()
    {
        QTest::addColumn<QString>("ended");
        QTest::newRow("window") << QStringLiteral("window");
        QTest::newRow("bar") << QStringLiteral("bar");
        QTest::newRow("button of the menu") << QStringLiteral("owner");
    }

    void clickMayEndTheMenuThatItIsIn()
    {
        QFETCH(QString, ended);
        Scene scene;
        bool hasEnded = false;
        scene.up->work = [&](bool) {
            if (ended == QStringLiteral("window"))
                scene.window.reset();
            else if (ended == QStringLiteral("bar"))
                scene.bar.reset();
            else
                delete scene.inner->toolButton();
            return hasEnded = true;
        };
        QVERIFY(scene.isActive());
        QVERIFY(scene.openAll());
        QVERIFY(scene.click(scene.up->toolButton()));
        QTRY_VERIFY(hasEnded);
        QCoreApplication::processEvents();
        // The bar itself floats, and comes back from a window that ends.
        QCOMPARE(scene.up->toolButton() != nullptr, ended == QStringLiteral("window"));
    }
};

LUMO_TEST_MAIN(tst_ToolBarMenusDesktop)
#include "tst_toolbarmenusdesktop.moc"
