// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "menu/mainmenu.h"

#include "commandclock.h"
#include "commands/opencommand.h"
#include "dialogs/aboutcommand.h"
#include "dialogs/logcommand.h"
#include "dialogs/preferencescommand.h"
#include "image/openimagecommand.h"
#include "look.h"
#include "mainwindow.h"
#include "menu/recentfiles.h"
#include "meshdocument.h"
#include "statusline.h"
#include "support/testcase.h"
#include "support/testmain.h"
#include "toolbar/commandbars.h"
#include "toolbar/editingpanel.h"
#include "toolbar/viewingbar.h"
#include "view/viewpane.h"

#include <ui_base/StartUp>
#include <ui_base/TaskDialog>

#include <QApplication>
#include <QFile>
#include <QMenu>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QToolButton>

using namespace Workbench;

namespace {

QString testFile(const char *name)
{
    return QStringLiteral(WORKBENCH_TEST_FILES "/") + QLatin1String(name);
}

QStringList list(const char *joined)
{
    return QString::fromLatin1(joined).split(QLatin1Char(' '), Qt::SkipEmptyParts);
}

QStringList textsOf(const QMenu &menu)
{
    QStringList texts;
    for (const QAction *action : menu.actions()) {
        if (!action->isSeparator())
            texts << action->text();
    }
    return texts;
}

QList<QAction *> actionsOf(const MainMenu &menu)
{
    QList<QAction *> actions;
    for (const QString &name : menu.names())
        actions << menu.menuOf(name)->actions();
    return actions;
}

QRect placeOf(const QWidget &widget)
{
    return {widget.mapTo(widget.window(), QPoint(0, 0)), widget.size()};
}

void enter(QWidget &widget)
{
    QEvent event(QEvent::Enter);
    QCoreApplication::sendEvent(&widget, &event);
}

} // namespace

class MainMenuTest : public Lumo::Test::TestCase
{
    Q_OBJECT

private Q_SLOTS:
    // As the program does: the view is the only native widget.
    void initTestCase()
    {
        QApplication::setAttribute(Qt::AA_DontCreateNativeWidgetSiblings);
        applyLook(*qApp, ELook::Light);
        Vela::UiBase::StartUp();
    }

    void entriesOfAMenuAreOfOneHeight()
    {
        MainWindow window;
        for (const QString &name : window.menu().names()) {
            const QMenu &menu = *window.menu().menuOf(name);
            int height = 0;
            for (QAction *entry : menu.actions()) {
                if (entry->isSeparator())
                    continue;
                if (height == 0)
                    height = menu.actionGeometry(entry).height();
                QCOMPARE(menu.actionGeometry(entry).height(), height);
            }
            QVERIFY(height > 0);
        }
    }

    void recentFilesAreAbsoluteAndEachOnce()
    {
        RecentFiles recent;
        const QSignalSpy changed(&recent, &RecentFiles::changed);
        recent.setPaths(list("/a /b /a  /c"));
        QCOMPARE(recent.paths(), list("/a /b /c"));
        recent.add(QStringLiteral("/b"));
        QCOMPARE(recent.paths(), list("/b /a /c"));
        QCOMPARE(changed.count(), 2);
        recent.add(QStringLiteral("/b"));
        recent.add(QString());
        QCOMPARE(changed.count(), 2);
        recent.add(QStringLiteral("d"));
        QVERIFY(recent.paths().constFirst().endsWith(QLatin1String("/d")));
        QVERIFY(recent.paths().constFirst().startsWith(QLatin1Char('/')));
    }

    void recentFilesForgetTheOldest()
    {
        RecentFiles recent;
        for (int i = 0; i < 12; ++i)
            recent.add(QStringLiteral("/%1").arg(i));
        QCOMPARE(recent.paths(), list("/11 /10 /9 /8 /7 /6 /5 /4"));
        recent.remove(QStringLiteral("/9"));
        QCOMPARE(recent.paths(), list("/11 /10 /8 /7 /6 /5 /4"));
        recent.clear();
        QVERIFY(recent.paths().isEmpty());
    }

    void recentFilesAreKeptInSettings()
    {
        const QTemporaryDir folder;
        const QString file = folder.filePath(QStringLiteral("below/recent.ini"));
        QVERIFY(readRecentFiles(file).isEmpty());
        for (const QStringList &paths : {list("/a /b"), list("/a"), QStringList()}) {
            QVERIFY(writeRecentFiles(file, paths));
            QCOMPARE(readRecentFiles(file), paths);
        }
        QVERIFY(!writeRecentFiles(QStringLiteral("/dev/null/recent.ini"), list("/a")));
    }

    void everyCommandStandsInOneMenu()
    {
        const MainWindow window;
        const QList<QAction *> actions = actionsOf(window.menu());
        QList<QAction *> commands {window.commands().log.get(), window.commands().about.get(),
                                   window.commands().preferences.get()};
        for (Vela::UiBase::CommandBase *command : window.commands().all())
            commands << command;
        for (QAction *command : commands)
            QVERIFY2(actions.count(command) == 1, qPrintable(command->text()));
    }

    void lettersOfItemsAndEntriesAreTheirOwn()
    {
        const MainWindow window;
        QStringList letters;
        for (const QString &name : window.menu().names())
            letters << QKeySequence::mnemonic(name).toString();
        QCOMPARE(letters.removeDuplicates(), 0);
        for (const QString &name : window.menu().names()) {
            letters.clear();
            for (const QString &text : textsOf(*window.menu().menuOf(name)))
                letters << QKeySequence::mnemonic(text).toString();
            letters.removeAll(QString());
            QVERIFY2(letters.removeDuplicates() == 0, qPrintable(name));
        }
    }

    void theBarStandsOverTheTopAndCoversNothing()
    {
        MainWindow window;
        window.show();
        QCOMPARE(placeOf(window.menu()).topLeft(), QPoint(0, 0));
        QTRY_VERIFY(placeOf(window.pane()).top() >= placeOf(window.menu()).bottom());
        QVERIFY(window.menu().isVisible());
        for (const QString &name : window.menu().names()) {
            const auto item = window.menu().GetMenuBarItem(name);
            QTRY_VERIFY(item->width() >= item->sizeHint().width());
        }
        window.setLayoutDirection(Qt::RightToLeft);
        QTRY_COMPARE(placeOf(window.menu()).right(), window.width() - 1);
        window.resize(window.width() - 100, window.height());
        QTRY_COMPARE(placeOf(window.menu()).right(), window.width() - 1);
    }

    void itemsOpenTheirMenusUnderThePointer()
    {
        MainWindow window;
        window.show();
        QMenu *before = nullptr;
        for (const QString &name : window.menu().names()) {
            QToolButton &item = *window.menu().GetMenuBarItem(name);
            const QString closed = item.styleSheet();
            enter(item);
            QVERIFY(window.menu().menuOf(name)->isVisible());
            QVERIFY(item.styleSheet() != closed);
            QVERIFY(!before || !before->isVisible());
            before = window.menu().menuOf(name);
        }
    }

    void shortcutsOfWhatIsOnlyInMenusWork()
    {
        MainWindow window;
        window.show();
        // Here a window is activated by its show, even one that asks not to be.
        QTRY_VERIFY(window.bars().panel().isVisible());
        QCoreApplication::processEvents();
        window.activateWindow();
        QTRY_COMPARE(QApplication::activeWindow(), &window);
        QTest::keyClick(&window, Qt::Key_L, Qt::ControlModifier);
        QTRY_VERIFY(window.commands().log->dialog());
        window.commands().log->dialog()->close();
    }

    void whatWasOpenedIsOfferedFirst()
    {
        MainWindow window;
        QCOMPARE(textsOf(*window.menu().recentMenu()),
                 QStringList(QStringLiteral("&Clear This List")));
        QVERIFY(!window.menu().recentMenu()->actions().constLast()->isEnabled());
        for (const char *file : {"square.obj", "tetrahedron.off", "empty.obj"})
            open(window, testFile(file));
        QCOMPARE(window.recentFiles().paths(),
                 (QStringList {testFile("tetrahedron.off"), testFile("square.obj")}));
        QTRY_COMPARE(textsOf(*window.menu().recentMenu()).mid(0, 2),
                     (QStringList {QStringLiteral("&1 tetrahedron.off  (files)"),
                                   QStringLiteral("&2 square.obj  (files)")}));
        QAction *second = window.menu().recentMenu()->actions().at(1);
        QCOMPARE(second->toolTip(), testFile("square.obj"));
        second->trigger();
        QTRY_COMPARE(window.document().filePath(), testFile("square.obj"));
        QCOMPARE(window.recentFiles().paths().constFirst(), testFile("square.obj"));
    }

    void whatWasSavedIsOffered()
    {
        MainWindow window;
        open(window, testFile("square.obj"));
        window.document().noteSaved(QStringLiteral("/tmp/saved.obj"),
                                    window.document().snapshot().revision);
        QCOMPARE(window.recentFiles().paths().constFirst(), QStringLiteral("/tmp/saved.obj"));
    }

    void aRecentFileThatHasGoneIsToldAndForgotten()
    {
        const QTemporaryDir folder;
        const QString path = folder.filePath(QStringLiteral("gone.obj"));
        QVERIFY(QFile::copy(testFile("square.obj"), path));
        MainWindow window;
        window.show();
        open(window, path);
        open(window, testFile("tetrahedron.off"));
        QVERIFY(QFile::remove(path));
        QTRY_COMPARE(window.menu().recentMenu()->actions().size(), 4);
        window.menu().recentMenu()->actions().at(1)->trigger();
        QTRY_VERIFY(window.problem());
        QCOMPARE(window.recentFiles().paths(), QStringList(testFile("tetrahedron.off")));
        QTRY_COMPARE(window.menu().recentMenu()->actions().size(), 3);
        QCOMPARE(window.document().filePath(), testFile("tetrahedron.off"));
    }

    void namesMayHoldWhatMenusTakeForAMark()
    {
        MainWindow window;
        window.recentFiles().setPaths({QStringLiteral("/r&d/a&b.obj")});
        QTRY_COMPARE(textsOf(*window.menu().recentMenu()).constFirst(),
                     QStringLiteral("&1 a&&b.obj  (r&&d)"));
    }

    void theListCanBeCleared()
    {
        MainWindow window;
        window.recentFiles().setPaths(list("/a /b"));
        QTRY_COMPARE(window.menu().recentMenu()->actions().size(), 4);
        window.menu().recentMenu()->actions().constLast()->trigger();
        QVERIFY(window.recentFiles().paths().isEmpty());
        QTRY_COMPARE(window.menu().recentMenu()->actions().size(), 2);
    }

    void panelsAreShownAndHidden()
    {
        MainWindow window;
        window.show();
        const QList<QAction *> entries =
            window.menu().menuOf(window.menu().names().at(4))->actions();
        const QList<QWidget *> panels {&window.bars().strip(), &window.statusLine()};
        for (int i = 0; i < panels.size(); ++i) {
            QVERIFY(entries.at(i)->isChecked() && panels.at(i)->isVisible());
            entries.at(i)->trigger();
            QTRY_VERIFY(!panels.at(i)->isVisible());
            entries.at(i)->trigger();
            QTRY_VERIFY(panels.at(i)->isVisible());
        }
    }

    void quitClosesTheWindow()
    {
        MainWindow window;
        window.show();
        window.menu().menuOf(window.menu().names().constFirst())->actions().constLast()->trigger();
        QVERIFY(!window.isVisible());
    }

private:
    static void open(MainWindow &window, const QString &path)
    {
        window.openFile(path);
        QTRY_COMPARE(window.clock().running(), 0);
        delete window.problem();
    }
};

LUMO_TEST_MAIN(MainMenuTest)
#include "tst_mainmenu.moc"
