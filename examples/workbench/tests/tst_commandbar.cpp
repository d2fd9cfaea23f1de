// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "toolbar/commandbars.h"

#include "commandclock.h"
#include "commands/displaymodecommand.h"
#include "commands/smoothcommand.h"
#include "mainwindow.h"
#include "meshdocument.h"
#include "support/testcase.h"
#include "support/testmain.h"

#include <ui_base/ATooltipEx>
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
    void initTestCase() { QApplication::setAttribute(Qt::AA_DontCreateNativeWidgetSiblings); }

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

    void noButtonIsCutOff()
    {
        MainWindow window;
        window.show();
        for (const CommandBase *command : window.commands().withButtons()) {
            const ToolButton *button = command->toolButton();
            QCOMPARE(button->size(), QSize(36, 36));
            QCOMPARE(button->visibleRegion(), QRegion(button->rect()));
        }
    }

    void buttonsFollowTheirCommands()
    {
        MainWindow window;
        window.show();
        const CommandSet &commands = window.commands();
        QVERIFY(!commands.smooth->toolButton()->isEnabled());
        commands.smooth->setEnabled(true);
        QVERIFY(commands.smooth->toolButton()->isEnabled());
        QVERIFY(commands.modes[0]->toolButton()->isChecked());
        commands.modes[2]->trigger();
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
        for (CommandBase *command : window.commands().withButtons()) {
            command->setEnabled(true);
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
        }
    }

    void aCardTakesTheOneBeforeAway()
    {
        MainWindow window;
        window.show();
        const ToolButton *one = window.commands().modes[0]->toolButton();
        QVERIFY(showCard(window, *window.commands().modes[0]));
        QVERIFY(showCard(window, *window.commands().modes[1]));
        QVERIFY(!one->GetTooltipObject()->IsVisible());
        QCOMPARE(window.bars().explainedButton(), window.commands().modes[1]->toolButton());
    }

    void f1OpensAndClosesTheCard()
    {
        MainWindow window;
        window.show();
        QVERIFY(QTest::qWaitForWindowActive(&window));
        const ATooltipEx *card = showCard(window, *window.commands().modes[0]);
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
        QVERIFY(QTest::qWaitForWindowActive(&window));
        QTest::keyClick(&window, Qt::Key_F1);
        QVERIFY(!window.bars().explainedButton());
    }

    void aWindowGoesWhileACardIsUp()
    {
        auto window = std::make_unique<MainWindow>();
        window->show();
        QVERIFY(showCard(*window, *window->commands().modes[0]));
        window.reset();
    }

private:
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
