// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "toolbar/commandbars.h"

#include "commandclock.h"
#include "commands/attributecommand.h"
#include "commands/barscommand.h"
#include "commands/displaymodecommand.h"
#include "commands/flipnormalscommand.h"
#include "commands/selectioncommand.h"
#include "mainwindow.h"
#include "meshdocument.h"
#include "support/testcase.h"
#include "support/testmain.h"
#include "testmeshes.h"
#include "toolbar/editingpanel.h"
#include "toolbar/viewingbar.h"

#include <ui_base/ATooltipEx>
#include <ui_base/CommandGroup>
#include <ui_base/ToolBar>
#include <ui_base/ToolButton>
#include <ui_base/TooltipObject>

#include <QApplication>
#include <QLabel>
#include <QStackedWidget>

#include <set>

using namespace Workbench;
using namespace Vela::UiBase;

class CommandBarTest : public Lumo::Test::TestCase
{
    Q_OBJECT

private Q_SLOTS:
    // As the program does: the view is the only native widget.
    void initTestCase()
    {
        QApplication::setAttribute(Qt::AA_UseHighDpiPixmaps);
        QApplication::setAttribute(Qt::AA_DontCreateNativeWidgetSiblings);
    }

    void everyCommandHasAButtonOfItsOwn()
    {
        MainWindow window;
        std::set<ToolButton *> buttons;
        for (const CommandBase *command : window.commands().withButtons()) {
            QVERIFY2(command->toolButton(), qPrintable(command->commandId()));
            QCOMPARE(command->toolButton()->Action(), command);
            buttons.insert(command->toolButton());
        }
        QCOMPARE(buttons.size(), window.commands().withButtons().size());
    }

    void everyIconHasAPictureForThePointer()
    {
        MainWindow window;
        for (const CommandBase *command : window.commands().withButtons()) {
            const QIcon icon = command->icon();
            const QImage normal = icon.pixmap(24, QIcon::Normal, QIcon::On).toImage();
            const QImage active = icon.pixmap(24, QIcon::Active, QIcon::On).toImage();
            QVERIFY2(!normal.isNull(), qPrintable(command->commandId()));
            QVERIFY2(normal != active, qPrintable(command->commandId()));
            QCOMPARE(normal.size() / normal.devicePixelRatio(), QSize(24, 24));
        }
    }

    // One that is scaled is blurred, and stands out among the others.
    void everyIconIsShownInTheSizeThatItIsDrawnFor()
    {
        const QSize drawn(24, 24);
        MainWindow window;
        window.show();
        for (const CommandBase *command : window.commands().withButtons()) {
            const ToolButton *button = command->toolButton();
            QCOMPARE(button->iconSize(), drawn);
            const QPixmap picture = button->icon().pixmap(window.windowHandle(), 2 * drawn);
            QVERIFY2(picture.size() == drawn * window.devicePixelRatioF(),
                     qPrintable(command->commandId()));
        }
    }

    void noButtonIsCutOff()
    {
        MainWindow window;
        window.show();
        QTRY_VERIFY(window.bars().panel().isVisible());
        for (const CommandBase *command : window.commands().withButtons()) {
            const ToolButton *button = command->toolButton();
            if (!button->isVisible())
                continue; // in a menu, or in the row for selected faces
            const bool isOfPanel = window.bars().panel().isAncestorOf(button);
            QCOMPARE(button->size(), isOfPanel ? QSize(50, 50) : QSize(36, 36));
            QCOMPARE(button->visibleRegion(), QRegion(button->rect()));
        }
    }

    void buttonsFollowTheirCommands()
    {
        MainWindow window;
        window.show();
        const CommandSet &commands = window.commands();
        QVERIFY(!commands.flipNormals->toolButton()->isEnabled());
        commands.flipNormals->setEnabled(true);
        QVERIFY(commands.flipNormals->toolButton()->isEnabled());
        QVERIFY(commands.modes[0]->toolButton()->isChecked());
        QVERIFY(commands.display->toolButton()->isChecked());
        commands.modes[2]->trigger();
        QVERIFY(commands.display->toolButton()->isChecked());
        QVERIFY(commands.modes[2]->toolButton()->isChecked());
        QVERIFY(!commands.modes[0]->toolButton()->isChecked());
    }

    void aClickRunsTheCommand()
    {
        MainWindow window;
        window.show();
        QTest::mouseClick(window.commands().modes[1]->toolButton(), Qt::LeftButton);
        QVERIFY(window.commands().modes[1]->isChecked());
        QVERIFY(!window.commands().modes[0]->isChecked());
    }

    void everyCardHasANameATextAndAPicture()
    {
        MainWindow window;
        window.show();
        QTRY_VERIFY(window.bars().panel().isVisible());
        window.document().open(QStringLiteral("grid.obj"), TestMeshes::grid(1));
        window.document().select({0}); // which brings a row of buttons
        QTest::mouseClick(window.commands().display->toolButton(), Qt::LeftButton);
        for (CommandBase *command : window.commands().withButtons()) {
            command->setEnabled(true);
            QTRY_VERIFY2(command->toolButton()->isVisible(), qPrintable(command->commandId()));
            const ATooltipEx *card = showCard(window, *command);
            QVERIFY2(card, qPrintable(command->commandId()));
            const auto *title = card->findChild<QLabel *>(QStringLiteral("title_label"));
            QVERIFY(title->text().startsWith(command->iconText()));
            QVERIFY(!command->whatsThis().isEmpty());
            QCOMPARE(card->findChild<QLabel *>(QStringLiteral("content_label"))->text(),
                     command->whatsThis());
            QVERIFY2(card->AdvancedWidgets(), qPrintable(command->commandId()));
            QCOMPARE(card->AdvancedWidgets()->count(), 1);
            QVERIFY(!card->IsAdvancedWidgetVisible());
            command->toolButton()->GetTooltipObject()->HideTooltip();
        }
    }

    void aCardTakesTheOneBeforeAway()
    {
        MainWindow window;
        window.show();
        const ToolButton *one = window.commands().attributes[0]->toolButton();
        QVERIFY(showCard(window, *window.commands().attributes[0]));
        QVERIFY(showCard(window, *window.commands().attributes[1]));
        QVERIFY(!one->GetTooltipObject()->IsVisible());
        QCOMPARE(window.bars().explainedButton(), window.commands().attributes[1]->toolButton());
    }

    void f1OpensAndClosesTheCard()
    {
        MainWindow window;
        window.show();
        activate(window);
        const ATooltipEx *card = showCard(window, *window.commands().attributes[0]);
        QTest::keyClick(&window, Qt::Key_F1);
        QTRY_VERIFY(card->IsAdvancedWidgetVisible());
        QTest::keyClick(&window, Qt::Key_F1);
        QTRY_VERIFY(!card->IsAdvancedWidgetVisible());
        QVERIFY(window.bars().explainedButton());
    }

    void f1WithoutACardDoesNothing()
    {
        MainWindow window;
        window.show();
        activate(window);
        QTest::keyClick(&window, Qt::Key_F1);
        QVERIFY(!window.bars().explainedButton());
    }

    void aWindowGoesWhileACardIsUp()
    {
        auto window = std::make_unique<MainWindow>();
        window->show();
        QVERIFY(showCard(*window, *window->commands().attributes[0]));
        window.reset();
    }

    void barsThatAreCalledBackAtOnceStay()
    {
        MainWindow window;
        window.show();
        const CommandBars &bars = window.bars();
        QTRY_VERIFY(bars.panel().isVisible());
        QSignalSpy in(&bars.panel(), &ToolBar::ShowAnimationFinished);
        window.commands().bars->trigger();
        window.commands().bars->trigger();
        QTRY_COMPARE(in.count(), 1);
        QTRY_VERIFY(bars.panel().isVisible() && bars.strip().bar().isVisible());
    }

    void rowForSelectedFacesWaitsForTheBars()
    {
        MainWindow window;
        window.show();
        window.document().open(QStringLiteral("grid.obj"), TestMeshes::grid(1));
        window.commands().bars->trigger();
        QTRY_VERIFY(!window.bars().strip().isVisible());
        window.document().select({0});
        const ToolButton *grow = window.commands().selectionChanges[0]->toolButton();
        QCoreApplication::processEvents();
        QVERIFY(!grow->isVisible());
        window.commands().bars->trigger();
        QTRY_VERIFY(grow->isVisible());
    }

private:
    // Here a window is activated by its show, even a floating one that asks not to be.
    static void activate(MainWindow &window)
    {
        QTRY_VERIFY(window.bars().panel().isVisible());
        QCoreApplication::processEvents();
        window.activateWindow();
        QTRY_COMPARE(QApplication::activeWindow(), &window);
    }

    static ATooltipEx *showCard(const MainWindow &window, const CommandBase &command)
    {
        TooltipObject *tooltip = command.toolButton()->GetTooltipObject();
        tooltip->ShowTooltip();
        return window.bars().explainedButton() == command.toolButton()
            ? qobject_cast<ATooltipEx *>(tooltip->TooltipControl())
            : nullptr;
    }
};

LUMO_TEST_MAIN(CommandBarTest)
#include "tst_commandbar.moc"
