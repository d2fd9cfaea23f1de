// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "commandclock.h"
#include "commands/smoothcommand.h"
#include "commands/subdividecommand.h"
#include "dialogs/aboutcommand.h"
#include "dialogs/aboutdialog.h"
#include "dialogs/logcommand.h"
#include "dialogs/logdialog.h"
#include "dialogs/messagelog.h"
#include "dialogs/preferencescommand.h"
#include "flyouts/smoothflyout.h"
#include "look.h"
#include "mainwindow.h"
#include "preferences.h"
#include "support/mouse.h"
#include "support/testcase.h"
#include "support/testmain.h"
#include "toolbar/commandbars.h"
#include "view/meshview.h"
#include "view/viewpane.h"
#include "waypoints.h"

#include <lumo_app_service/ApplicationService>
#include <lumo_common_res/Styles>
#include <ui_base/CmdsViewController>
#include <ui_base/CommandGroup>
#include <ui_base/FlyoutBase>
#include <ui_base/StartUp>
#include <ui_base/ToolButton>
#include <ui_base/TooltipObject>

#include <QApplication>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPointer>
#include <QRegularExpression>
#include <QScopeGuard>
#include <QScrollBar>
#include <QSignalSpy>
#include <QToolButton>

#include <QCheckBox>
#include <QComboBox>
#include <QSettings>
#include <QTemporaryDir>

#include <thread>

using namespace Lumo::Test;
using namespace Workbench;

namespace {

Orrin::Core::Kernel &kernel()
{
    return Vela::Services::ApplicationService::GetInstance().kernel();
}

QString bunny()
{
    return QStringLiteral(WORKBENCH_DATA "/bunny.obj");
}

void click(QDialog *dialog, const char *name)
{
    auto *const button = dialog->findChild<QAbstractButton *>(QLatin1String(name));
    QVERIFY(button);
    QTest::mouseClick(button, Qt::LeftButton);
}

/// What an assistive tool reads out when the focus comes to @p widget.
QString spokenName(const QWidget *widget)
{
    if (!widget->accessibleName().isEmpty())
        return widget->accessibleName();
    if (const auto *const button = qobject_cast<const QAbstractButton *>(widget))
        return button->text();
    return {};
}

} // namespace

class DialogsTest : public Lumo::Test::TestCase
{
    Q_OBJECT

private Q_SLOTS:
    // As the program does: the view is the only native widget.
    void initTestCase() { QApplication::setAttribute(Qt::AA_DontCreateNativeWidgetSiblings); }

    // Commands

    void everyDialogHasACommandOfTheController()
    {
        MainWindow window;
        window.show();
        const CommandSet &commands = window.commands();
        for (DialogCommand *command : dialogCommands(window)) {
            QCOMPARE(command->commandGroup(), commands.program.get());
            QVERIFY(command->getViewController());
            QVERIFY(command->addedToCmdsVC());
            QVERIFY(!command->text().isEmpty() && !command->objectName().isEmpty());
            QVERIFY(!command->toolTip().isEmpty() && !command->whatsThis().isEmpty());
        }
    }

    void aCommandBringsUpOneDialog()
    {
        MainWindow window;
        window.show();
        for (DialogCommand *command : dialogCommands(window)) {
            command->trigger();
            const QPointer<QDialog> dialog = command->dialog();
            QVERIFY(dialog && dialog->isVisible());
            QCOMPARE(dialog->parentWidget(), &window);
            QVERIFY(!dialog->windowTitle().isEmpty());
            command->trigger();
            QCOMPARE(command->dialog(), dialog.data());
            QTest::keyClick(dialog, Qt::Key_Escape);
            QTRY_VERIFY(!dialog);
            QVERIFY(!command->dialog());
        }
    }

    void aDialogStandsInTheMiddleOfTheWindow()
    {
        MainWindow window;
        window.move(30, 40);
        window.show();
        for (DialogCommand *command : dialogCommands(window)) {
            command->trigger();
            const QPoint off = command->dialog()->geometry().center() - window.geometry().center();
            QVERIFY2(off.manhattanLength() < 40, qPrintable(command->commandId()));
        }
    }

    void aDialogGoesWithTheWindow()
    {
        auto window = std::make_unique<MainWindow>();
        window->show();
        QVector<QPointer<QDialog>> dialogs;
        for (DialogCommand *command : dialogCommands(*window)) {
            command->trigger();
            dialogs << command->dialog();
        }
        window.reset();
        for (const auto &dialog : dialogs)
            QVERIFY(!dialog);
    }

    void everyControlOfADialogIsReachedAndNamed()
    {
        MainWindow window;
        window.show();
        for (DialogCommand *command : dialogCommands(window)) {
            command->trigger();
            QDialog *dialog = command->dialog();
            const auto controls = dialog->findChildren<QWidget *>();
            for (const QWidget *control : controls) {
                const bool isButton = qobject_cast<const QAbstractButton *>(control);
                if (!control->isVisible() || !(isButton || control->focusPolicy() & Qt::TabFocus))
                    continue;
                QVERIFY2(control->focusPolicy() & Qt::TabFocus, qPrintable(control->objectName()));
                QVERIFY2(!spokenName(control).isEmpty(), qPrintable(control->objectName()));
            }
            dialog->close();
        }
    }

    // About

    void aboutTellsTheVersionOfQt()
    {
        MainWindow window;
        window.show();
        window.commands().about->trigger();
        QDialog *dialog = window.commands().about->dialog();
        const QString text = dialog->findChild<QLabel *>(QStringLiteral("text"))->text();
        QVERIFY(text.contains(QLatin1String(qVersion())));
        QVERIFY(!dialog->accessibleDescription().isEmpty());
    }

    void aboutShowsAllOfItsText()
    {
        MainWindow window;
        window.show();
        window.commands().about->trigger();
        const auto *label =
            window.commands().about->dialog()->findChild<QLabel *>(QStringLiteral("text"));
        QVERIFY(label->heightForWidth(label->width()) <= label->height());
    }

    // Preferences

    void preferencesActAtOnce()
    {
        MainWindow window;
        window.show();
        QDialog *dialog = showPreferences(window);
        choose(dialog, EBackground::Dark);
        QVERIFY(window.pane().view()->appearance().background == EBackground::Dark);
        const auto *tooltip = window.commands().smoothFlyout->toolButton()->GetTooltipObject();
        QVERIFY(tooltip->IsTooltipEnabled());
        click(dialog, "cards");
        QVERIFY(!tooltip->IsTooltipEnabled());
        click(dialog, "advanced_button");
        QVERIFY(window.commands().smooth->isExecutionNotificationEnabled());
        click(dialog, "notifications");
        QVERIFY(!window.commands().smooth->isExecutionNotificationEnabled());
        QVERIFY(!window.commands().subdivide->isExecutionNotificationEnabled());
        click(dialog, "dark");
        QVERIFY(window.preferences().values().isDark);
    }

    void appliedPreferencesLast()
    {
        MainWindow window;
        window.show();
        const QSignalSpy kept(&window.preferences(), &Preferences::kept);
        QDialog *dialog = showPreferences(window);
        choose(dialog, EBackground::Grey);
        QCOMPARE(kept.count(), 0);
        click(dialog, "apply_button");
        QCOMPARE(kept.count(), 1);
        QTRY_VERIFY(!window.commands().preferences->dialog());
        QVERIFY(window.preferences().values().background == EBackground::Grey);
    }

    void preferencesThatAreNotAppliedAreGivenUp_data()
    {
        QTest::addColumn<QString>("button");
        QTest::newRow("cancel") << QStringLiteral("cancel_button");
        QTest::newRow("close") << QStringLiteral("close_button");
        QTest::newRow("Escape") << QString();
    }

    void preferencesThatAreNotAppliedAreGivenUp()
    {
        QFETCH(const QString, button);
        MainWindow window;
        window.show();
        SPreferences before;
        before.background = EBackground::Grey;
        window.preferences().setValues(before);
        QDialog *dialog = showPreferences(window);
        choose(dialog, EBackground::Dark);
        if (button.isEmpty())
            QTest::keyClick(dialog, Qt::Key_Escape);
        else
            click(dialog, button.toLatin1());
        QTRY_VERIFY(!window.commands().preferences->dialog());
        QVERIFY(window.preferences().values() == before);
        QVERIFY(window.pane().view()->appearance().background == EBackground::Grey);
    }

    void theGripOfTheLogIsWhereTheDialogIsResized()
    {
        MainWindow window;
        window.show();
        LogCommand &command = *window.commands().log;
        command.trigger();
        QDialog *const dialog = command.dialog();
        const auto placeOf = [dialog](const char *name) {
            return dialog->findChild<QWidget *>(QLatin1String(name))->geometry();
        };
        for (const Qt::LayoutDirection direction : {Qt::LeftToRight, Qt::RightToLeft}) {
            dialog->setLayoutDirection(direction);
            QTRY_VERIFY(placeOf("grip").left() > dialog->width() - 40);
            QTRY_VERIFY(placeOf("clear").right() < dialog->width() / 2);
        }
    }

    void resetShowsTheDefaults()
    {
        MainWindow window;
        window.show();
        SPreferences other;
        other.background = EBackground::Dark;
        other.hasCards = false;
        other.hasNotifications = false;
        other.isDark = true;
        window.preferences().setValues(other);
        QDialog *dialog = showPreferences(window);
        QCOMPARE(dialog->findChild<QComboBox *>(QStringLiteral("background"))->currentIndex(),
                 int(EBackground::Dark));
        QVERIFY(!dialog->findChild<QCheckBox *>(QStringLiteral("cards"))->isChecked());
        QVERIFY(!dialog->findChild<QCheckBox *>(QStringLiteral("notifications"))->isChecked());
        click(dialog, "reset_button");
        QVERIFY(window.preferences().values() == SPreferences());
        QCOMPARE(dialog->findChild<QComboBox *>(QStringLiteral("background"))->currentIndex(),
                 int(EBackground::Light));
        QVERIFY(dialog->findChild<QCheckBox *>(QStringLiteral("cards"))->isChecked());
        QVERIFY(dialog->isVisible());
    }

    void preferencesGrowWithTheAdvancedOnes()
    {
        MainWindow window;
        window.show();
        QDialog *dialog = showPreferences(window);
        const int folded = dialog->height();
        click(dialog, "advanced_button");
        QVERIFY(dialog->height() > folded);
        QVERIFY(dialog->findChild<QCheckBox *>(QStringLiteral("notifications"))->isVisible());
    }

    void preferencesSurviveInTheirFile()
    {
        const QTemporaryDir folder;
        const QString file = folder.filePath(QStringLiteral("some/preferences.ini"));
        QVERIFY(readPreferences(file) == SPreferences());
        SPreferences values;
        values.background = EBackground::Grey;
        values.hasCards = false;
        values.hasNotifications = false;
        values.isDark = true;
        QVERIFY(writePreferences(file, values));
        QVERIFY(readPreferences(file) == values);
    }

    void preferencesThatMakeNoSenseAreDefaults()
    {
        const QTemporaryDir folder;
        const QString file = folder.filePath(QStringLiteral("preferences.ini"));
        for (const char *number : {"3", "-1", "blue", ""}) {
            QSettings(file, QSettings::IniFormat)
                .setValue(QStringLiteral("view/background"), QLatin1String(number));
            QVERIFY(readPreferences(file) == SPreferences());
        }
    }

    void preferencesThatCannotBeWrittenAreReported()
    {
        QVERIFY(!writePreferences(QStringLiteral("/dev/null/preferences.ini"), {}));
    }

    void aDarkLookIsDarkThroughout()
    {
        auto &styles = Vela::Resource::Styles::Instance();
        const QPalette light = qApp->palette();
        const auto reset = qScopeGuard([&styles, light] {
            styles.SetPalette(Vela::Resource::EPalette::Light);
            qApp->setPalette(light);
            qApp->setStyleSheet({});
        });
        applyLook(*qApp, ELook::Dark);
        Vela::UiBase::StartUp();
        QCOMPARE(qApp->styleSheet(), styles.ApplicationStyleSheet());
        const auto log = MessageLog::make();
        LogDialog dialog(log, nullptr);
        dialog.show();
        const QImage picture = dialog.grab().toImage();
        for (const QPoint &at : {QPoint(20, 8), QPoint(100, 100)})
            QVERIFY(qGray(picture.pixel(at * picture.devicePixelRatio())) < 80);
    }

    // The log

    void theLogHearsTheCommands()
    {
        MainWindow window;
        window.openFile(bunny());
        QTRY_COMPARE(window.clock().running(), 0);
        QTRY_VERIFY(!window.log()->lines().filter(QStringLiteral("CMD END")).isEmpty());
        const QStringList begins = window.log()->lines().filter(QStringLiteral("CMD BEGIN"));
        QVERIFY2(begins.first().contains(QLatin1String("  CMD BEGIN Workbench::OpenCommand(")),
                 qPrintable(begins.first()));
    }

    void aLineBeginsWithTheTime()
    {
        const auto log = MessageLog::make();
        log->append(QStringLiteral("one\n\n  two\n"));
        QCOMPARE(log->lines().size(), 2);
        const QRegularExpression shape(QStringLiteral("^\\d\\d:\\d\\d:\\d\\d\\.\\d{3}  two$"));
        QVERIFY2(shape.match(log->lines().at(1)).hasMatch(), qPrintable(log->lines().at(1)));
    }

    void waypointsOfAnyThreadAreHeard()
    {
        const auto log = MessageLog::make();
        std::thread([] { kernel().ProfilerWaypoint(L"from afar"); }).join();
        QTRY_COMPARE(log->lines().size(), 1);
        QVERIFY(log->lines().at(0).endsWith(QLatin1String("from afar")));
    }

    void aLogThatHasGoneHearsNothing()
    {
        auto log = MessageLog::make();
        kernel().ProfilerWaypoint(L"on its way");
        log.reset();
        kernel().ProfilerWaypoint(L"too late");
        QCoreApplication::processEvents();
    }

    void listenersDoNotTakeEachOthersWaypoints()
    {
        std::vector<std::wstring> one;
        std::vector<std::wstring> two;
        auto first = std::make_unique<WaypointListener>(
            [&one](const std::wstring &text) { one.push_back(text); });
        {
            const WaypointListener second(
                [&two](const std::wstring &text) { two.push_back(text); });
            kernel().ProfilerWaypoint(L"both");
        }
        kernel().ProfilerWaypoint(L"one");
        first.reset();
        kernel().ProfilerWaypoint(L"none");
        QCOMPARE(one, (std::vector<std::wstring> {L"both", L"one"}));
        QCOMPARE(two, std::vector<std::wstring> {L"both"});
    }

    void theLogKeepsTheLatestLines()
    {
        const auto log = MessageLog::make();
        for (int i = 0; i <= MessageLog::largestCount; ++i)
            log->append(QString::number(i));
        QCOMPARE(log->lines().size(), MessageLog::largestCount);
        QVERIFY(log->lines().first().endsWith(QLatin1String("  1")));
    }

    void messagesOfTheProgramAreTapped()
    {
        const auto log = MessageLog::make();
        {
            const MessageTap tap(log);
            qDebug("said");
        }
        qDebug("said to nobody");
        QTRY_COMPARE(log->lines().size(), 1);
        QVERIFY(log->lines().at(0).endsWith(QLatin1String("  said")));
    }

    void theDialogShowsTheLinesAsTheyCome()
    {
        const auto log = MessageLog::make();
        log->append(QStringLiteral("before"));
        LogDialog dialog(log, nullptr);
        log->append(QStringLiteral("after"));
        const QStringList lines = dialog.text().split(QLatin1Char('\n'));
        QCOMPARE(lines, log->lines());
        dialog.show();
        click(&dialog, "clear");
        QCOMPARE(dialog.text(), QString());
        QVERIFY(log->lines().isEmpty());
    }

    void theLatestLineIsInSight()
    {
        const auto log = MessageLog::make();
        LogDialog dialog(log, nullptr);
        dialog.show();
        for (int i = 0; i < 100; ++i)
            log->append(QString::number(i));
        const QScrollBar *bar = dialog.findChild<QPlainTextEdit *>()->verticalScrollBar();
        QVERIFY(bar->maximum() > 0);
        QTRY_COMPARE(bar->value(), bar->maximum());
    }

    void theGripResizesTheLog()
    {
        const auto log = MessageLog::make();
        LogDialog dialog(log, nullptr);
        dialog.show();
        const QSize before = dialog.size();
        const QPoint grip(dialog.width() - 20, dialog.height() - 20);
        QVERIFY(!dialog.childAt(grip)
                || dialog.childAt(grip)->testAttribute(Qt::WA_TransparentForMouseEvents));
        press(&dialog, grip);
        dragTo(&dialog, grip + QPoint(40, 30));
        release(&dialog, grip + QPoint(40, 30));
        QCOMPARE(dialog.size(), before + QSize(40, 30));
    }

    void theTitleMovesTheLog()
    {
        const auto log = MessageLog::make();
        LogDialog dialog(log, nullptr);
        dialog.show();
        const auto *title = dialog.findChild<QLabel *>(QStringLiteral("title"));
        const QPoint onTitle = title->geometry().center();
        QCOMPARE(dialog.childAt(onTitle), nullptr);
        const QPoint before = dialog.pos();
        press(&dialog, onTitle);
        dragTo(&dialog, onTitle + QPoint(40, 30));
        QCOMPARE(dialog.pos(), before + QPoint(40, 30));
    }

private:
    static QDialog *showPreferences(const MainWindow &window)
    {
        window.commands().preferences->trigger();
        return window.commands().preferences->dialog();
    }

    static void choose(QDialog *dialog, EBackground background)
    {
        auto *const box = dialog->findChild<QComboBox *>(QStringLiteral("background"));
        QTest::keyClick(box, Qt::Key_Home);
        for (int i = 0; i < int(background); ++i)
            QTest::keyClick(box, Qt::Key_Down);
    }

    static std::vector<DialogCommand *> dialogCommands(const MainWindow &window)
    {
        return {window.commands().preferences.get(), window.commands().log.get(),
                window.commands().about.get()};
    }
};

LUMO_TEST_MAIN(DialogsTest)
#include "tst_dialogs.moc"
