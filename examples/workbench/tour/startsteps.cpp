// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "commandset.h"
#include "mainwindow.h"
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
#include <QMenuBar>
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
    const QImage empty = guide.viewPicture();
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
        if (menu.actions().contains(command)) {
            guide.check(TourGuide::tr("%1 can be chosen").arg(command->iconText()),
                        command->isEnabled());
        }
    }
}

void showMenu(TourGuide &guide, QAction &title)
{
    guide.begin(TourGuide::tr("Menu %1").arg(title.iconText()));
    const QImage before = guide.viewPicture();
    QMenu *menu = title.menu();
    guide.window().menuBar()->setActiveAction(&title);
    const auto isShown = [menu] { return menu->isVisible() && menu->windowHandle()->isExposed(); };
    guide.check(TourGuide::tr("the menu is shown"), guide.waitUntil(isShown));
    checkMenu(guide, *menu);
    guide.finishWithPicture();
    menu->close();
    guide.settle();
    // Later steps compare with what the screen shows now.
    guide.checkViewChanged(TourGuide::tr("the menu is gone from the screen"), before, 0.0, 0.0);
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
    const QList<QAction *> titles = guide.window().menuBar()->actions();
    for (QAction *title : titles)
        showMenu(guide, *title);
}

} // namespace Workbench
