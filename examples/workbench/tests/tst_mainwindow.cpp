// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "mainwindow.h"

#include "commandclock.h"
#include "commands/attributecommand.h"
#include "commands/displaymodecommand.h"
#include "commands/opencommand.h"
#include "commands/savecommand.h"
#include "commands/selectioncommand.h"
#include "commands/smoothcommand.h"
#include "commands/subdividecommand.h"
#include "controllers/meshviewcontroller.h"
#include "dialogs/changesquestion.h"
#include "dialogs/messagelog.h"
#include "meshdocument.h"
#include "statusline.h"
#include "support/testcase.h"
#include "support/testmain.h"
#include "view/meshview.h"
#include "view/viewpane.h"

#include <QAbstractButton>
#include <QApplication>
#include <QTimer>

#include <chrono>

using namespace Workbench;
using Vela::UiBase::CommandBase;
using Vela::UiToolkit::TaskDialog;

namespace {

QString testFile(const char *name)
{
    return QStringLiteral(WORKBENCH_TEST_FILES "/") + QLatin1String(name);
}

QString bunny()
{
    return QStringLiteral(WORKBENCH_DATA "/bunny.obj");
}

/// Whether it can be chosen when a mesh is there and no face is selected.
bool isReady(const CommandBase &command)
{
    return command.isEnabled() || qobject_cast<const SelectionCommand *>(&command);
}

enum class EAnswer {
    Cancel = 1,
    Discard,
    SaveAs
};

/// Clicks this button of every question that comes up while it lives.
class DialogAnswer : public QObject
{
public:
    explicit DialogAnswer(EAnswer answer)
        : m_button(QStringLiteral("button%1").arg(int(answer)))
    {
        connect(&m_pulse, &QTimer::timeout, this, &DialogAnswer::look);
        m_pulse.start(10);
    }

    int count() const { return m_count; }
    QString text() const { return m_text; }

private:
    void look()
    {
        auto *const dialog = qobject_cast<TaskDialog *>(QApplication::activeModalWidget());
        if (!dialog)
            return;
        ++m_count;
        m_text = dialog->accessibleName();
        dialog->findChild<QAbstractButton *>(m_button)->click();
    }

    const QString m_button;
    QTimer m_pulse;
    int m_count = 0;
    QString m_text;
};

} // namespace

class MainWindowTest : public Lumo::Test::TestCase
{
    Q_OBJECT

private Q_SLOTS:
    // As the program does: the view is the only native widget.
    void initTestCase() { QApplication::setAttribute(Qt::AA_DontCreateNativeWidgetSiblings); }

    void openingShowsTheNameAndTheSize()
    {
        MainWindow window;
        QCOMPARE(window.statusLine().meshText(), QStringLiteral("No mesh is open"));
        open(window, bunny());
        QCOMPARE(window.statusLine().meshText(), QStringLiteral("1,839 vertices, 3,674 faces"));
        QCOMPARE(window.windowTitle(), QStringLiteral("bunny.obj[*] - Workbench"));
        QVERIFY(window.statusLine().commandText().startsWith(QLatin1String("Open: ")));
    }

    void aBadFileIsToldUntilTheDialogIsClosed()
    {
        MainWindow window;
        window.show();
        open(window, bunny());
        open(window, testFile("empty.obj"));
        QVERIFY(window.problem() && window.problem()->isVisible());
        const QString text =
            testFile("empty.obj") + QStringLiteral(" could not be read: it is empty.");
        QCOMPARE(window.problem()->accessibleName(), text);
        QCOMPARE(window.log()->lines().filter(text).size(), 1);
        QCOMPARE(window.document().mesh().faces.size(), 3674);
        auto *button = window.problem()->findChild<QAbstractButton *>(QStringLiteral("button1"));
        QTest::mouseClick(button, Qt::LeftButton);
        QTRY_VERIFY(!window.problem());
    }

    void aGoodFileTakesTheProblemAway()
    {
        MainWindow window;
        window.show();
        open(window, testFile("empty.obj"));
        QVERIFY(window.problem());
        open(window, bunny());
        QVERIFY(!window.problem());
    }

    void theLatestProblemTakesThePlaceOfTheOneBefore()
    {
        MainWindow window;
        window.show();
        window.document().reportProblem(QStringLiteral("One."));
        window.document().reportProblem(QStringLiteral("Two."));
        QCOMPARE(window.findChildren<TaskDialog *>().size(), 1);
        QCOMPARE(window.problem()->accessibleName(), QStringLiteral("Two."));
    }

    void aFileThatIsCalledLikeMarkupIsNamedAsItIs()
    {
        MainWindow window;
        window.show();
        const QString text = QStringLiteral("/tmp/<b>a</b> & b.obj could not be read.");
        window.document().reportProblem(text);
        QCOMPARE(window.problem()->accessibleName(), text);
    }

    void aProblemIsToldWhileTheWindowDies()
    {
        auto window = std::make_unique<MainWindow>();
        window->show();
        window->document().reportProblem(QStringLiteral("One."));
        const QPointer<QWidget> dialog = window->problem();
        window.reset();
        QVERIFY(!dialog);
    }

    void aWindowThatDiesDuringTheQuestionKeepsTheChanges()
    {
        auto *const window = new QWidget;
        window->show();
        QTimer::singleShot(0, qApp, [window] { delete window; });
        QVERIFY(askAboutChanges(window, QStringLiteral("bunny.obj")) == EChanges::Keep);
    }

    void changesAreSavedByTheLastButton()
    {
        QWidget window;
        window.show();
        const DialogAnswer answer(EAnswer::SaveAs);
        QVERIFY(askAboutChanges(&window, QStringLiteral("bunny.obj")) == EChanges::Save);
        QCOMPARE(answer.text(), QStringLiteral("bunny.obj was changed."));
    }

    void onlyWhatCanBeDoneIsEnabled()
    {
        MainWindow window;
        for (const auto *command : window.commands().edits())
            QVERIFY(!command->isEnabled());
        QVERIFY(!window.commands().save->isEnabled());
        open(window, bunny());
        for (const auto *command : window.commands().edits())
            QVERIFY(command->isEnabled());
        QVERIFY(window.commands().save->isEnabled());
        QVERIFY(window.commands().open->isEnabled());
    }

    void editsAreHeldDisabledWhileOneRuns()
    {
        MainWindow window;
        window.show();
        open(window, bunny());
        for (CommandBase *edit : std::initializer_list<CommandBase *> {
                 window.commands().smooth.get(), window.commands().subdivide.get()}) {
            QVector<bool> enabledAtTheEnd;
            const auto connection =
                connect(&window.clock(), &CommandClock::ended, this, [&window, &enabledAtTheEnd] {
                    for (const auto *command : window.commands().edits())
                        enabledAtTheEnd << command->isEnabled();
                });
            edit->trigger();
            QTRY_COMPARE(enabledAtTheEnd, QVector<bool>(3, false));
            disconnect(connection);
            for (const auto *command : window.commands().edits())
                QTRY_VERIFY(command->isEnabled());
        }
    }

    void anotherFileCanBeOpenedDuringARun()
    {
        MainWindow window;
        window.show();
        open(window, bunny());
        window.commands().subdivide->trigger();
        window.openFile(testFile("tetrahedron.obj"));
        QVERIFY(!window.commands().open->isEnabled());
        QTRY_COMPARE(window.clock().running(), 0);
        QCOMPARE(window.document().mesh().faces.size(), 4);
        for (const auto *command : window.commands().all())
            QTRY_VERIFY2(isReady(*command), qPrintable(command->commandId()));
    }

    // The snapshot that a run puts back at its end can be out of date by then.
    void runsThatOverlapLeaveEverythingEnabled()
    {
        MainWindow window;
        window.show();
        open(window, bunny());
        window.openFile(testFile("empty.obj"));
        window.commands().smooth->trigger();
        QTRY_COMPARE(window.clock().running(), 0);
        for (const auto *command : window.commands().all())
            QTRY_VERIFY2(isReady(*command), qPrintable(command->commandId()));
    }

    void whatIsCheckedDuringARunStaysChecked()
    {
        MainWindow window;
        window.show();
        open(window, bunny());
        const auto &modes = window.commands().modes;
        window.commands().smooth->trigger();
        modes[2]->trigger();
        window.commands().attributes[1]->trigger();
        QTRY_COMPARE(window.clock().running(), 0);
        QTRY_VERIFY(window.commands().smooth->isEnabled());
        QVERIFY(modes[2]->isChecked() && !modes[0]->isChecked());
        QVERIFY(window.commands().attributes[1]->isChecked());
        QVERIFY(window.pane().view()->appearance().mode == EDisplayMode::Wireframe);
    }

    void theTitleMarksChanges()
    {
        MainWindow window;
        open(window, bunny());
        QVERIFY(!window.isWindowModified());
        window.document().flipNormals();
        QVERIFY(window.isWindowModified());
        window.document().noteSaved(QStringLiteral("/tmp/other.obj"),
                                    window.document().snapshot().revision);
        QVERIFY(!window.isWindowModified());
        QCOMPARE(window.windowTitle(), QStringLiteral("other.obj[*] - Workbench"));
    }

    void theSelectionIsCounted()
    {
        MainWindow window;
        open(window, bunny());
        window.document().select({1, 2, 3});
        QCOMPARE(window.statusLine().meshText(),
                 QStringLiteral("1,839 vertices, 3,674 faces, 3 selected"));
        window.document().flipNormals();
        QCOMPARE(window.statusLine().meshText(), QStringLiteral("1,839 vertices, 3,674 faces"));
    }

    void openingAnotherFileCancelsTheRunOnTheOneBefore()
    {
        MainWindow window;
        open(window, bunny());
        window.commands().subdivide->trigger();
        window.document().open(QStringLiteral("other"), window.document().mesh());
        QVERIFY(window.commands().subdivide->wasCancelled());
        QTRY_COMPARE(window.clock().running(), 0);
        QCOMPARE(window.document().mesh().faces.size(), 3674);
        QCOMPARE(window.statusLine().commandText(), QStringLiteral("Subdivide was stopped"));
    }

    void closingDuringARunHidesAtOnceAndEndsTheProgramAtTheEndOfTheRun()
    {
        MainWindow window;
        window.show();
        open(window, bunny());
        QTimer::singleShot(0, &window, [&window] {
            window.commands().subdivide->trigger();
            QVERIFY(!window.close());
            QVERIFY(!window.isVisible());
            QVERIFY(window.commands().subdivide->wasCancelled());
        });
        QTimer::singleShot(std::chrono::minutes(1), &window, [] { QCoreApplication::exit(1); });
        QCOMPARE(QCoreApplication::exec(), 0);
        QCOMPARE(window.clock().running(), 0);
        QCOMPARE(window.document().mesh().faces.size(), 3674);
    }

    void closingWithoutARunIsImmediate()
    {
        MainWindow window;
        window.show();
        QVERIFY(window.close());
    }

    void changesAreAskedAboutAndKeepTheWindowOpen()
    {
        MainWindow window;
        window.show();
        open(window, bunny());
        window.document().flipNormals();
        DialogAnswer answer(EAnswer::Cancel);
        QVERIFY(!window.close());
        QCOMPARE(answer.count(), 1);
        QVERIFY(answer.text().startsWith(QLatin1String("bunny.obj")));
        QVERIFY(window.isVisible());
        QVERIFY(window.pane().controller()->isLoaded());
        QVERIFY(window.commands().smooth->addedToCmdsVC());
        QVERIFY(window.document().isModified());
    }

    void changesThatAreGivenUpAreAskedAboutOnce()
    {
        MainWindow window;
        window.show();
        open(window, bunny());
        window.document().flipNormals();
        DialogAnswer answer(EAnswer::Discard);
        QVERIFY(window.close());
        QCOMPARE(answer.count(), 1);
        QVERIFY(!window.isVisible());
        QVERIFY(!window.commands().smooth->addedToCmdsVC());
    }

    void closingTheViewAsksToo()
    {
        MainWindow window;
        window.show();
        open(window, bunny());
        window.document().flipNormals();
        DialogAnswer answer(EAnswer::Cancel);
        QVERIFY(!window.pane().controller()->close());
        QCOMPARE(answer.count(), 1);
        QVERIFY(window.pane().view());
    }

    void withoutChangesNobodyIsAsked()
    {
        MainWindow window;
        window.show();
        open(window, bunny());
        DialogAnswer answer(EAnswer::Cancel);
        QVERIFY(window.close());
        QCOMPARE(answer.count(), 0);
    }

    void destroyingTheWindowDuringARunIsSafe()
    {
        auto window = std::make_unique<MainWindow>();
        open(*window, bunny());
        const std::weak_ptr<SubdivideCommand> command = window->commands().subdivide;
        command.lock()->trigger();
        window.reset();
        QTRY_VERIFY(command.expired());
    }

    void withoutOpenGlTheViewSaysSo()
    {
        MainWindow window;
        window.show();
        QTRY_VERIFY(!window.pane().message().isEmpty());
        QVERIFY(window.pane().message().contains(QLatin1String("OpenGL 3.3")));
        QVERIFY(window.pane().message().contains(QLatin1String("offscreen")));
    }

private:
    static void open(MainWindow &window, const QString &path)
    {
        window.openFile(path);
        QTRY_COMPARE(window.clock().running(), 0);
    }
};

LUMO_TEST_MAIN(MainWindowTest)
#include "tst_mainwindow.moc"
