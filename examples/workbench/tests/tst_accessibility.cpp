// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "commands/attributecommand.h"
#include "controllers/meshviewcontroller.h"
#include "dialogs/aboutcommand.h"
#include "dialogs/changesquestion.h"
#include "dialogs/logcommand.h"
#include "dialogs/preferencescommand.h"
#include "flyouts/decimateflyout.h"
#include "flyouts/measureflyout.h"
#include "flyouts/smoothflyout.h"
#include "flyouts/subdivideflyout.h"
#include "image/imagepage.h"
#include "mainwindow.h"
#include "menu/mainmenu.h"
#include "meshdocument.h"
#include "support/accessibletree.h"
#include "support/keyboard.h"
#include "support/testcase.h"
#include "support/testmain.h"
#include "testmeshes.h"
#include "toolbar/commandbars.h"
#include "toolbar/editingpanel.h"
#include "toolbar/viewingbar.h"
#include "view/meshview.h"
#include "view/viewpane.h"

#include <tessel/dispatch.h>
#include <ui_base/ATooltipEx>
#include <ui_base/CommandGroup>
#include <ui_base/FloatingLayer>
#include <ui_base/FlyoutBase>
#include <ui_base/NotificationBar>
#include <ui_base/TaskDialog>
#include <ui_base/ToolBar>
#include <ui_base/ToolButtonWithButtonMenu>
#include <ui_base/TooltipObject>

#include <QAccessible>
#include <QApplication>
#include <QImage>
#include <QMenu>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTimer>
#include <QToolButton>

using namespace Workbench;
using namespace Vela::UiBase;
using Lumo::Test::missedByTab;
using Lumo::Test::stepsBack;
using Lumo::Test::tabStops;

namespace {

/// The window with a mesh of 800 faces, active.
class Scene
{
public:
    Scene()
    {
        window.show();
        window.document().open(QStringLiteral("noisy.obj"), TestMeshes::bumpyGrid(20, 1.0F));
        settle();
        activate();
    }

    const CommandSet &commands() const { return window.commands(); }

    /// Runs what is posted, and what that posts.
    static void settle()
    {
        for (int turn = 0; turn < 4; ++turn) {
            bool done = false;
            Tessel::dispatchAsync([&done] { done = true; }, Tessel::EQualityOfService::Main);
            QTRY_VERIFY(done);
            QCoreApplication::sendPostedEvents();
        }
    }

    void activate()
    {
        window.activateWindow();
        QTRY_COMPARE(QApplication::activeWindow(), &window);
    }

    MainWindow window;
};

/// In one piece, which a failing comparison shows.
QString said(const QStringList &faults)
{
    return faults.join(QLatin1Char('\n'));
}

QString textOf(QWidget &widget, QAccessible::Text type)
{
    return QAccessible::queryAccessibleInterface(&widget)->text(type);
}

QAccessible::State stateOf(QWidget &widget)
{
    return QAccessible::queryAccessibleInterface(&widget)->state();
}

/// What is wrong with what assistive tools are told of a window that is open, and with its keys.
QStringList faultsOf(QWidget &window)
{
    QStringList faults;
    if (Lumo::Test::controlCount(window) == 0)
        faults << QStringLiteral("no control");
    if (textOf(window, QAccessible::Name).isEmpty())
        faults << QStringLiteral("no name");
    return faults + Lumo::Test::namelessControls(window) + Lumo::Test::misreadControls(window)
        + Lumo::Test::sharedMnemonics(window);
}

/// The same for a dialog, in which Tab goes to every control, in the order in which they are read.
QStringList faultsOfDialog(QWidget &dialog)
{
    QStringList faults = faultsOf(dialog);
    if (QAccessible::queryAccessibleInterface(&dialog)->role() != QAccessible::Dialog)
        faults << QStringLiteral("no dialog");
    faults << missedByTab(dialog);
    const QVector<QWidget *> stops = tabStops(dialog);
    if (stepsBack(stops) > 1)
        faults << QStringLiteral("order: ") + Lumo::Test::namesOf(stops).join(QLatin1Char(' '));
    return faults;
}

/// The same for what floats, where a mere pane needs no name and takes no keys.
QStringList faultsOfLayer(FloatingLayer &layer)
{
    const bool isDialog =
        QAccessible::queryAccessibleInterface(&layer)->role() == QAccessible::Dialog;
    if (!layer.isVisible())
        return {};
    return isDialog ? faultsOfDialog(layer)
                    : Lumo::Test::namelessControls(layer) + Lumo::Test::misreadControls(layer);
}

/// Opens what stands beside and beneath a flyout.
void openSidePanels(FlyoutBase &flyout)
{
    for (const char *name : {"info_button", "ibutton"}) {
        auto *const button = flyout.findChild<QAbstractButton *>(QLatin1String(name));
        if (button->isVisible())
            QTest::keyClick(button, Qt::Key_Space);
    }
    Scene::settle();
}

void addDirections()
{
    QTest::addColumn<Qt::LayoutDirection>("direction");
    QTest::newRow("left to right") << Qt::LeftToRight;
    QTest::newRow("right to left") << Qt::RightToLeft;
}

QList<QMenu *> withSubMenus(QMenu *menu)
{
    QList<QMenu *> menus {menu};
    const auto actions = menu->actions();
    for (const QAction *action : actions) {
        if (action->menu())
            menus << withSubMenus(action->menu());
    }
    return menus;
}

/// The bar with a message over the view, once it is there.
NotificationBar *barOf(const QWidget &window)
{
    const auto bars = window.findChildren<NotificationBar *>();
    return bars.isEmpty() || !bars.first()->isShowing() ? nullptr : bars.first();
}

/// Looks at the modal dialog that comes up next, and closes it.
void whenAsked(const std::function<void(QDialog &)> &look)
{
    auto *const pulse = new QTimer(qApp);
    QObject::connect(pulse, &QTimer::timeout, pulse, [pulse, look] {
        auto *const dialog = qobject_cast<QDialog *>(QApplication::activeModalWidget());
        if (!dialog)
            return;
        pulse->stop();
        pulse->deleteLater();
        look(*dialog);
        dialog->reject();
    });
    pulse->start(1);
}

} // namespace

class AccessibilityTest : public Lumo::Test::TestCase
{
    Q_OBJECT

private Q_SLOTS:
    // As the program does: the view is the only native widget.
    void initTestCase() { QApplication::setAttribute(Qt::AA_DontCreateNativeWidgetSiblings); }

    void cleanup()
    {
        qApp->setLayoutDirection(Qt::LeftToRight);
        TestCase::cleanup();
    }

    void windowHasNoNamelessControl()
    {
        Scene scene;
        QVERIFY(Lumo::Test::controlCount(scene.window) > 20);
        QCOMPARE(said(faultsOf(scene.window)), QString());
    }

    void walkFindsANamelessControl()
    {
        MainWindow window;
        auto *const button = new QPushButton(&window);
        button->setObjectName(QStringLiteral("nameless"));
        const QStringList found = Lumo::Test::namelessControls(window);
        QCOMPARE(found.size(), 1);
        QVERIFY2(found.first().endsWith(QLatin1String("QPushButton#nameless")),
                 qPrintable(found.first()));
    }

    void barsAreToolBars()
    {
        Scene scene;
        QWidget &panel = *scene.window.bars().panel().window();
        QTRY_VERIFY(panel.isVisible());
        QCOMPARE(said(Lumo::Test::namelessControls(panel)), QString());
        QCOMPARE(said(Lumo::Test::misreadControls(panel)), QString());
        for (QWidget *bar : {static_cast<QWidget *>(&scene.window.bars().panel()),
                             static_cast<QWidget *>(&scene.window.bars().strip().bar())})
            QCOMPARE(QAccessible::queryAccessibleInterface(bar)->role(), QAccessible::ToolBar);
    }

    void menusAreTold()
    {
        Scene scene;
        scene.window.recentFiles().setPaths(
            {QStringLiteral("/one.obj"), QStringLiteral("/two.obj")});
        Scene::settle();
        for (const QString &name : scene.window.menu().names()) {
            QToolButton &item = *scene.window.menu().GetMenuBarItem(name);
            item.click();
            const QList<QMenu *> menus = withSubMenus(scene.window.menu().menuOf(name));
            QVERIFY(menus.first()->isVisible());
            QVERIFY(stateOf(item).expanded);
            for (QMenu *menu : menus)
                QCOMPARE(said(faultsOf(*menu)), QString());
            QTest::keyClick(menus.first(), Qt::Key_Escape);
            QTRY_VERIFY(!menus.first()->isVisible());
            QVERIFY(stateOf(item).collapsed);
        }
    }

    void theMenuOfAButtonIsTold()
    {
        Scene scene;
        auto *const button =
            qobject_cast<ToolButtonWithButtonMenu *>(scene.commands().display->toolButton());
        button->click();
        QVERIFY(button->IsMenuShowing());
        QVERIFY(stateOf(*button).expanded);
        QWidget &menu = *button->GetMenu();
        QCOMPARE(said(faultsOf(menu)), QString());
        QCOMPARE(textOf(menu, QAccessible::Name), textOf(*button, QAccessible::Name));
        QCOMPARE(Lumo::Test::controlCount(menu), 4);
    }

    void flyoutsAreToldAndWorkedFromTheKeyboard_data() { addDirections(); }
    void flyoutsAreToldAndWorkedFromTheKeyboard()
    {
        QFETCH(const Qt::LayoutDirection, direction);
        qApp->setLayoutDirection(direction);
        Scene scene;
        for (PanelCommand *command : flyoutsOf(scene)) {
            command->trigger(); // as its key does
            Scene::settle();
            FlyoutBase &flyout = *command->flyout();
            QVERIFY(flyout.isVisible());
            scene.activate();
            QVERIFY(stateOf(*command->toolButton()).expanded);
            auto *const advanced =
                flyout.findChild<QAbstractButton *>(QStringLiteral("advanced_button"));
            if (advanced->isVisible())
                QTest::keyClick(advanced, Qt::Key_Space);
            QVERIFY(!flyout.AdvancedPanel() || flyout.AdvancedPanel()->isVisible());
            QCOMPARE(said(faultsOfDialog(*flyout.window())), QString());
            QCOMPARE(textOf(*flyout.window(), QAccessible::Name), flyout.Title());
            openSidePanels(flyout);
            const auto layers = scene.window.findChildren<FloatingLayer *>();
            for (FloatingLayer *layer : layers)
                QCOMPARE(said(faultsOfLayer(*layer)), QString());
            scene.activate();
            QTest::keyClick(&scene.window, Qt::Key_F6);
            QTRY_COMPARE(QApplication::activeWindow(), flyout.window());
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape);
            QTRY_VERIFY(!flyout.isVisible());
            QTRY_COMPARE(QApplication::activeWindow(), &scene.window);
            QVERIFY(stateOf(*command->toolButton()).collapsed);
        }
    }

    void dialogsAreToldAndWorkedFromTheKeyboard_data() { addDirections(); }
    void dialogsAreToldAndWorkedFromTheKeyboard()
    {
        QFETCH(const Qt::LayoutDirection, direction);
        qApp->setLayoutDirection(direction);
        Scene scene;
        for (DialogCommand *command : std::initializer_list<DialogCommand *> {
                 scene.commands().preferences.get(), scene.commands().log.get(),
                 scene.commands().about.get()}) {
            command->trigger();
            const QPointer<QDialog> dialog = command->dialog();
            QVERIFY(dialog);
            if (auto *const advanced =
                    dialog->findChild<QAbstractButton *>(QStringLiteral("advanced_button")))
                QTest::keyClick(advanced, Qt::Key_Space);
            QCOMPARE(said(faultsOfDialog(*dialog)), QString());
            QVERIFY2(!dialog->accessibleDescription().isEmpty(), qPrintable(command->commandId()));
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape);
            QTRY_VERIFY(!dialog);
        }
    }

    void aProblemIsTold()
    {
        Scene scene;
        scene.window.openFile(QStringLiteral("/nowhere/x.obj"));
        QTRY_VERIFY(scene.window.problem());
        QCOMPARE(said(faultsOfDialog(*scene.window.problem())), QString());
        QCOMPARE(scene.window.problem()->accessibleDescription(), QStringLiteral("Error"));
        delete scene.window.problem();
    }

    void theQuestionAboutChangesIsTold_data() { addDirections(); }
    void theQuestionAboutChangesIsTold()
    {
        QFETCH(const Qt::LayoutDirection, direction);
        qApp->setLayoutDirection(direction);
        Scene scene;
        QStringList faults {QStringLiteral("not asked")};
        QString description;
        whenAsked([&](QDialog &dialog) {
            faults = faultsOfDialog(dialog);
            description = dialog.accessibleDescription();
        });
        askAboutChanges(&scene.window, QStringLiteral("a & b.obj"));
        QCOMPARE(said(faults), QString());
        QVERIFY(!description.isEmpty());
    }

    void messagesOverTheViewAreTold()
    {
        Scene scene;
        scene.window.pane().controller()->showNotification(QStringLiteral("Take care."),
                                                           eNotificationFadeOutOnly, 600'000, true,
                                                           nullptr, nullptr);
        QTRY_VERIFY(barOf(scene.window));
        QCOMPARE(textOf(*barOf(scene.window), QAccessible::Name), QStringLiteral("Take care."));
        QCOMPARE(said(Lumo::Test::namelessControls(*barOf(scene.window))), QString());
        QCOMPARE(Lumo::Test::controlCount(*barOf(scene.window)), 1);
    }

    void cardsAreTold()
    {
        Scene scene;
        ToolButton &button = *scene.commands().attributes.front()->toolButton();
        button.GetTooltipObject()->ShowTooltip();
        QVERIFY(button.GetTooltipObject()->IsVisible());
        QWidget &card = *button.GetTooltipObject()->TooltipControl();
        QVERIFY(!textOf(*card.window(), QAccessible::Name).isEmpty());
        QCOMPARE(said(Lumo::Test::namelessControls(*card.window())), QString());
        QCOMPARE(said(Lumo::Test::misreadControls(*card.window())), QString());
    }

    void theImagePageIsTold()
    {
        Scene scene;
        const QTemporaryDir folder;
        const QString path = folder.filePath(QStringLiteral("one.png"));
        QImage image(40, 30, QImage::Format_RGB32);
        image.fill(Qt::red);
        QVERIFY(image.save(path));
        scene.window.openFile(path);
        QTRY_VERIFY(scene.window.imagePage().isVisible());
        QCOMPARE(said(faultsOf(scene.window)), QString());
        QCOMPARE(said(missedByTab(scene.window.imagePage())), QString());
    }

private:
    static QVector<PanelCommand *> flyoutsOf(const Scene &scene)
    {
        return {scene.commands().smoothFlyout.get(), scene.commands().subdivideFlyout.get(),
                scene.commands().decimateFlyout.get(), scene.commands().measureFlyout.get()};
    }
};

LUMO_TEST_MAIN(AccessibilityTest)
#include "tst_accessibility.moc"
