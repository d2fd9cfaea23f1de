// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include <ui_base/ActionPanel>
#include <ui_base/ArrowedWindow>
#include <ui_base/CommandBag>
#include <ui_base/CommandGroup>
#include <ui_base/FloatingLayer>
#include <ui_base/FlyoutBase>
#include <ui_base/QtUiToolkit>
#include <ui_base/ToolButtonWithButtonMenu>
#include <ui_base/ToolButtonWithWidgetMenu>

#include "desktop/desktopuser.h"
#include "support/testcase.h"
#include "support/testmain.h"
#include "ui_base/command/testcommand.h"

#include <lumo_common_res/Styles>

#include <QLabel>
#include <QSignalSpy>

using namespace Vela::UiBase;
using Lumo::Test::clickAsUser;
using Lumo::Test::colourOnScreen;
using Lumo::Test::moveAsUser;
using Lumo::Test::NativeView;
using Lumo::Test::pointAsUser;
using Lumo::Test::TestCommand;

namespace {

// The window manager may still be putting the window in its place, so the user looks whether it was
// hit.
bool pointAt(const QWidget &widget)
{
    const auto hit = [&widget] {
        const QPoint centre = widget.mapToGlobal(widget.rect().center());
        return pointAsUser(centre) && pointAsUser(centre + QPoint(2, 1)) && widget.underMouse();
    };
    return QTest::qWaitFor(hit, 20'000);
}

bool click(const QWidget &widget)
{
    return pointAt(widget) && clickAsUser(1);
}

QRect globalRect(const QWidget &widget)
{
    return {widget.mapToGlobal(QPoint(0, 0)), widget.size()};
}

// The plate of a bar shows between its frame and its first button.
bool isSeen(const QWidget &bar)
{
    const QPoint inThePlate = bar.mapToGlobal(QPoint(1, bar.height() - 2));
    const QColor plate = Vela::Resource::Styles::Instance().ColorActionPanelGroupBack();
    return QTest::qWaitFor([&] { return colourOnScreen(inThePlate) == plate; }, 20'000);
}

// A panel that floats over a view which paints itself, with a group of three commands. The last of
// them has a flyout.
class Scene
{
public:
    Scene()
        : view(new NativeView(&window))
        , panel(new ActionPanel(view))
        , all(std::make_shared<CommandGroup>())
        , group(std::make_shared<CommandGroup>(QString(), QString(), QStringLiteral("tools")))
    {
        pointAsUser(QPoint(2, 2));
        FloatingLayer::makeWidgetFloating(panel.get(), QMargins());
        window.setGeometry(200, 150, 700, 400);
        view->setGeometry(0, 0, 700, 400);
        for (const char *name : {"one", "two"})
            group->addCommand(std::make_shared<TestCommand>(QLatin1String(name)),
                              int(group->commandBag().size()) + 1);
        all->setToolbar(panel.get());
        all->addCommand(group, 1);
        panel->AddCommandGroup(all.get());
        window.show();
        panel->show();
    }

    bool isReady()
    {
        return QTest::qWaitForWindowActive(&window) && isSeen(*panel)
            && QTest::qWaitFor([this] { return panel->isVisible() && isInPlace(); }, 20'000);
    }

    bool isInPlace() const
    {
        const QRect around = globalRect(*view);
        const QRect place = globalRect(*panel);
        return place.left() == around.left() + 5
            && qAbs(place.center().y() - around.center().y()) <= 1;
    }

    ToolButtonWithButtonMenu *button() const
    {
        return qobject_cast<ToolButtonWithButtonMenu *>(group->toolButton());
    }
    TestCommand &command() const
    {
        return static_cast<TestCommand &>(*group->commandBag().begin()->second);
    }

    ToolButtonWithWidgetMenu *addFlyout()
    {
        auto *const settings = new QLabel(QStringLiteral("Settings"));
        settings->setFixedSize(160, 40);
        flyoutAction.setText(QStringLiteral("Smooth"));
        ToolButtonWithWidgetMenu *const leaf = group->toolbar()->AddAction(
            &flyoutAction,
            QtUiToolkit::Instance().CreateFlyout(QStringLiteral("Smooth"), settings, nullptr, true,
                                                 true, true, false, &window));
        button()->SetExtendMode(true);
        return leaf;
    }

    QAction flyoutAction;
    QWidget window;
    NativeView *view;
    std::unique_ptr<ActionPanel> panel; // what floats outlives the view
    std::shared_ptr<CommandGroup> all;
    std::shared_ptr<CommandGroup> group;
};

} // namespace

class ActionPanelDesktopTest : public Lumo::Test::TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { QApplication::setAttribute(Qt::AA_DontCreateNativeWidgetSiblings); }

    void aFloatingPanelIsSeenOverTheViewAndKeepsItsPlace();
    void aClickOpensTheGridBesideTheButton();
    void aCommandOfTheGridRunsAndTheGridGoes();
    void anOpenGridGoesWithTheWindow();
    void aFlyoutOpensAtTheButtonOfItsGroupAndCloses();
};

void ActionPanelDesktopTest::aFloatingPanelIsSeenOverTheViewAndKeepsItsPlace()
{
    Scene scene;
    QVERIFY(scene.isReady());
    QVERIFY(moveAsUser(scene.window, 40, 60));
    QTRY_VERIFY(scene.isInPlace());
    scene.view->resize(700, 300);
    QTRY_VERIFY(scene.isInPlace());
    QVERIFY(isSeen(*scene.panel));
}

void ActionPanelDesktopTest::aClickOpensTheGridBesideTheButton()
{
    Scene scene;
    QVERIFY(scene.isReady());
    QVERIFY(click(*scene.button()));
    const ToolBar &menu = *scene.group->toolbar();
    QTRY_VERIFY(menu.isVisible());
    QVERIFY(isSeen(menu));
    const QPoint beside = globalRect(*scene.button()).topRight() + QPoint(7, -2);
    QTRY_COMPARE(globalRect(menu).topLeft(), beside);
    QVERIFY(click(*scene.button()));
    QTRY_VERIFY(!menu.isVisible());
}

void ActionPanelDesktopTest::aCommandOfTheGridRunsAndTheGridGoes()
{
    Scene scene;
    QVERIFY(scene.isReady());
    int runs = 0;
    scene.command().work = [&runs](bool) { return ++runs > 0; };
    QVERIFY(click(*scene.button()));
    QTRY_VERIFY(scene.group->toolbar()->isVisible());
    QVERIFY(isSeen(*scene.group->toolbar()));
    QVERIFY(click(*scene.command().toolButton()));
    QTRY_COMPARE(runs, 1);
    QTRY_VERIFY(!scene.group->toolbar()->isVisible());
}

void ActionPanelDesktopTest::anOpenGridGoesWithTheWindow()
{
    Scene scene;
    QVERIFY(scene.isReady());
    QVERIFY(click(*scene.button()));
    const ToolBar &menu = *scene.group->toolbar();
    QTRY_VERIFY(menu.isVisible());
    QVERIFY(moveAsUser(scene.window, 60, 40));
    QTRY_VERIFY(scene.isInPlace());
    QTRY_COMPARE(globalRect(menu).topLeft(),
                 globalRect(*scene.button()).topRight() + QPoint(7, -2));
}

void ActionPanelDesktopTest::aFlyoutOpensAtTheButtonOfItsGroupAndCloses()
{
    Scene scene;
    const ToolButtonWithWidgetMenu *const leaf = scene.addFlyout();
    QVERIFY(scene.isReady());
    QVERIFY(click(*scene.button()));
    QTRY_VERIFY(scene.group->toolbar()->isVisible());
    QVERIFY(isSeen(*scene.group->toolbar()));
    QVERIFY(click(*leaf));
    QTRY_VERIFY(leaf->IsMenuShowing());
    QVERIFY(!scene.group->toolbar()->isVisible());
    const ArrowedWindow &frame = *leaf->GetArrowedWindow();
    const QPoint tip = frame.mapToGlobal(frame.GetArrowPoint());
    const QRect button = globalRect(*scene.button());
    QVERIFY(qAbs(tip.x() - (button.right() + 7)) <= 1);
    QVERIFY(qAbs(tip.y() - button.center().y()) <= 1);
    // A click on the button that stands in for it closes it.
    QVERIFY(click(*scene.button()));
    QTRY_VERIFY(!leaf->IsMenuShowing());
    QVERIFY(!scene.button()->IsInExtendMode());
}

LUMO_TEST_MAIN(ActionPanelDesktopTest)
#include "tst_actionpaneldesktop.moc"
