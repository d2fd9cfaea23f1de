// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "commands/selectioncommand.h"
#include "commandset.h"
#include "mainwindow.h"
#include "menu/mainmenu.h"
#include "mesh/meshtopology.h"
#include "meshdocument.h"
#include "tour/picture.h"
#include "tour/steps.h"
#include "tour/tourguide.h"
#include "view/viewpane.h"

#include <ui_base/CommandBase>

#include <QFileInfo>
#include <QGuiApplication>
#include <QMenu>
#include <QScreen>
#include <QToolButton>
#include <QWindow>

#include <algorithm>

namespace Workbench {
namespace {

/// Vertices minus edges plus faces: it tells how many holes and handles there are.
int eulerNumber(const Mesh &mesh)
{
    return mesh.positions.size() - int(MeshTopology(mesh).edges().size()) + mesh.faces.size();
}

QImage showStart(TourGuide &guide)
{
    guide.begin(TourGuide::tr("Start"));
    MainWindow &window = guide.window();
    const auto isShown = [&] {
        return !guide.hasGraphics() || (window.windowHandle()->isExposed() && guide.isSettled());
    };
    guide.check(TourGuide::tr("the window shows a picture or says why not"),
                guide.waitUntil(isShown));
    guide.note(QStringLiteral("graphics"), guide.hasGraphics());
    QImage empty = guide.viewPicture();
    if (guide.hasGraphics()) {
        guide.check(TourGuide::tr("the background is lighter at the top"), topLight(empty) > 0.1);
    } else {
        guide.check(TourGuide::tr("the view says that it needs OpenGL"),
                    window.pane().message().contains(QLatin1String("OpenGL")));
    }
    guide.checkStatus();
    for (const Vela::UiBase::CommandBase *command : window.commands().edits()) {
        guide.check(TourGuide::tr("%1 is disabled without a mesh").arg(command->iconText()),
                    !command->isEnabled());
    }
    guide.finishWithPicture();
    return empty;
}

void checkBunny(TourGuide &guide)
{
    guide.check(TourGuide::tr("the bunny has 1839 vertices"),
                guide.mesh().positions.size() == 1839);
    guide.check(TourGuide::tr("the bunny has 3674 faces"), guide.mesh().faces.size() == 3674);
    guide.check(TourGuide::tr("the bunny is closed and has no handle"),
                eulerNumber(guide.mesh()) == 2);
}

void openFirst(TourGuide &guide, const QImage &empty)
{
    guide.begin(TourGuide::tr("Open"));
    guide.openAndWait(guide.file());
    guide.check(TourGuide::tr("the mesh has faces"), !guide.mesh().isEmpty());
    const QString name = QFileInfo(guide.file()).fileName();
    if (name == QLatin1String("bunny.obj"))
        checkBunny(guide);
    guide.check(TourGuide::tr("the title names the file"),
                guide.window().windowTitle().startsWith(name));
    guide.check(TourGuide::tr("there are no changes to save"),
                !guide.window().document().isModified());
    guide.checkStatus();
    guide.checkViewChanged(TourGuide::tr("the mesh fills a good part of the view"), empty, 0.1,
                           0.8);
    guide.finishWithPicture();
}

void checkMenu(TourGuide &guide, const QMenu &menu)
{
    for (Vela::UiBase::CommandBase *command : guide.window().commands().all()) {
        if (!menu.actions().contains(command))
            continue;
        if (qobject_cast<const SelectionCommand *>(command))
            guide.check(TourGuide::tr("%1 waits for a selection").arg(command->iconText()),
                        !command->isEnabled());
        else
            guide.check(TourGuide::tr("%1 can be chosen").arg(command->iconText()),
                        command->isEnabled());
    }
}

/// Whether the screen still shows @p before where @p menu, which is further to the right, leaves it
/// free. The window below paints itself a while after the menu has gone.
bool isLeft(TourGuide &guide, QMenu &before, const QMenu &menu)
{
    const QRect free(0, 0, menu.x() - before.x(), before.height());
    const QPoint corner = before.mapToGlobal(QPoint(0, 0));
    const QPixmap screen =
        guide.window().screen()->grabWindow(0, corner.x(), corner.y(), free.width(), free.height());
    return changedShare(screen.toImage(), before.grab(free).toImage()) < 0.05;
}

/// Goes to the menu @p name; @p before is the one that was open, or null.
QMenu *showMenu(TourGuide &guide, const QString &name, QMenu *before)
{
    const MainMenu &bar = guide.window().menu();
    QMenu &menu = *bar.menuOf(name);
    QToolButton &item = *bar.GetMenuBarItem(name);
    guide.begin(TourGuide::tr("Menu %1").arg(menu.accessibleName()));
    // What has no screen has no pointer to be followed.
    if (guide.hasGraphics())
        guide.pointAt(item, item.rect().center());
    else
        item.click();
    const auto isShown = [&] { return menu.isVisible() && menu.windowHandle()->isExposed(); };
    guide.check(TourGuide::tr("the menu is shown"), guide.waitUntil(isShown));
    const auto isAlone = [&] {
        const QStringList names = bar.names();
        return std::all_of(names.begin(), names.end(), [&](const QString &each) {
            return bar.menuOf(each) == &menu || !bar.menuOf(each)->isVisible();
        });
    };
    guide.check(TourGuide::tr("no other menu is"), isAlone());
    if (before && guide.hasGraphics()) {
        guide.check(TourGuide::tr("the menu before is gone from the screen"),
                    guide.waitUntil([&] { return !isLeft(guide, *before, menu); }));
    }
    checkMenu(guide, menu);
    guide.finishWithPicture();
    return &menu;
}

void leaveMenus(TourGuide &guide, const QImage &before)
{
    guide.begin(TourGuide::tr("Menus go"));
    const MainMenu &bar = guide.window().menu();
    const QMenu &last = *bar.menuOf(bar.names().constLast());
    if (guide.hasGraphics())
        guide.pointAt(guide.window(), guide.window().rect().bottomLeft() + QPoint(20, -60));
    else
        guide.pressKey(*bar.menuOf(bar.names().constLast()), Qt::Key_Escape);
    guide.check(TourGuide::tr("the menu goes with the pointer"),
                guide.waitUntil([&last] { return !last.isVisible(); }));
    // Later steps compare with what the screen shows now.
    guide.checkViewChanged(TourGuide::tr("the menu is gone from the screen"), before, 0.0, 0.0);
    guide.finishWithPicture();
}

void showRecent(TourGuide &guide)
{
    guide.begin(TourGuide::tr("Recent files"));
    const MainMenu &bar = guide.window().menu();
    QMenu &file = *bar.menuOf(bar.names().constFirst());
    const QMenu &recent = *bar.recentMenu();
    guide.pressKey(guide.window(), Qt::Key_F10);
    guide.check(TourGuide::tr("F10 opens the first menu"),
                guide.waitUntil([&] { return file.isVisible() && file.isActiveWindow(); }));
    file.setActiveAction(recent.menuAction());
    guide.pressKey(file, file.isRightToLeft() ? Qt::Key_Left : Qt::Key_Right);
    guide.check(TourGuide::tr("the recent files are shown"), guide.waitUntil([&recent] {
        return recent.isVisible() && recent.windowHandle()->isExposed();
    }));
    guide.check(TourGuide::tr("the open file is the first of them"),
                recent.actions().constFirst()->toolTip() == guide.window().document().filePath());
    guide.finishWithPicture();
    guide.pressKey(file, Qt::Key_Escape);
    guide.check(TourGuide::tr("Escape leads back to the window"), guide.waitUntil([&] {
        return !file.isVisible() && guide.window().isActiveWindow();
    }));
}

} // namespace

void visitStart(TourGuide &guide)
{
    guide.note(QStringLiteral("file"), QFileInfo(guide.file()).fileName());
    guide.note(QStringLiteral("platform"), QGuiApplication::platformName());
    guide.note(QStringLiteral("devicePixelRatio"), guide.window().devicePixelRatioF());
    openFirst(guide, showStart(guide));
}

void visitMenus(TourGuide &guide)
{
    const QImage before = guide.viewPicture();
    const QStringList names = guide.window().menu().names();
    QMenu *menu = nullptr;
    for (const QString &name : names)
        menu = showMenu(guide, name, menu);
    leaveMenus(guide, before);
    showRecent(guide);
    guide.checkViewChanged(TourGuide::tr("nothing is left over the view"), before, 0.0, 0.0);
}

} // namespace Workbench
