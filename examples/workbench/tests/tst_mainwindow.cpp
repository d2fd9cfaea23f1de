// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "mainwindow.h"

#include "commandclock.h"
#include "commands/opencommand.h"
#include "commands/smoothcommand.h"
#include "commands/subdividecommand.h"
#include "meshdocument.h"
#include "messagebanner.h"
#include "statusline.h"
#include "support/testcase.h"
#include "support/testmain.h"
#include "view/viewpane.h"

#include <QAbstractButton>
#include <QTimer>

#include <chrono>

using namespace Workbench;

namespace {

QString testFile(const char *name)
{
    return QStringLiteral(WORKBENCH_TEST_FILES "/") + QLatin1String(name);
}

QString bunny()
{
    return QStringLiteral(WORKBENCH_DATA "/bunny.obj");
}

} // namespace

class MainWindowTest : public Lumo::Test::TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void openingShowsTheNameAndTheSize()
    {
        MainWindow window;
        QCOMPARE(window.statusLine().meshText(), QStringLiteral("No mesh is open"));
        open(window, bunny());
        QCOMPARE(window.statusLine().meshText(), QStringLiteral("1,839 vertices, 3,674 faces"));
        QCOMPARE(window.windowTitle(), QStringLiteral("bunny.obj - Workbench"));
        QVERIFY(window.statusLine().commandText().startsWith(QLatin1String("Open: ")));
    }

    void aBadFileIsToldUntilDismissed()
    {
        MainWindow window;
        window.show();
        open(window, bunny());
        open(window, testFile("empty.obj"));
        QVERIFY(window.banner().isVisible());
        QCOMPARE(window.banner().message(),
                 testFile("empty.obj") + QStringLiteral(" could not be read: it is empty."));
        QCOMPARE(window.document().mesh().faces.size(), 3674);
        auto *button = window.findChild<QAbstractButton *>(QStringLiteral("dismiss"));
        QCOMPARE(button->accessibleName(), QStringLiteral("Dismiss"));
        QTest::mouseClick(button, Qt::LeftButton);
        QVERIFY(!window.banner().isVisible());
    }

    void aGoodFileTakesTheMessageAway()
    {
        MainWindow window;
        window.show();
        open(window, testFile("empty.obj"));
        QVERIFY(window.banner().isVisible());
        open(window, bunny());
        QVERIFY(!window.banner().isVisible());
    }

    void onlyWhatCanBeDoneIsEnabled()
    {
        MainWindow window;
        for (const auto *command : window.commands().edits())
            QVERIFY(!command->isEnabled());
        open(window, bunny());
        for (const auto *command : window.commands().edits())
            QVERIFY(command->isEnabled());

        window.commands().smooth->trigger();
        for (const auto *command : window.commands().edits())
            QVERIFY(!command->isEnabled());
        QVERIFY(window.commands().open->isEnabled());
        QTRY_COMPARE(window.clock().running(), 0);
        for (const auto *command : window.commands().edits())
            QVERIFY(command->isEnabled());
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
