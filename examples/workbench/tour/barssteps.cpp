// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "commands/barscommand.h"
#include "commands/displaymodecommand.h"
#include "commands/selectioncommand.h"
#include "controllers/meshviewcontroller.h"
#include "mainwindow.h"
#include "mesh/facetree.h"
#include "meshdocument.h"
#include "toolbar/commandbars.h"
#include "toolbar/editingpanel.h"
#include "toolbar/viewingbar.h"
#include "tour/steps.h"
#include "tour/tourguide.h"
#include "view/camerarig.h"
#include "view/meshview.h"
#include "view/viewpane.h"

#include <ui_base/CommandGroup>
#include <ui_base/CycleCheckableCommand>
#include <ui_base/ToolBar>
#include <ui_base/ToolButton>

#include <QCoreApplication>
#include <QMouseEvent>

namespace Workbench {
namespace {

using Vela::UiBase::CommandBase;
using Vela::UiBase::ToolButton;

void clickButton(TourGuide &guide, ToolButton &button)
{
    for (const QEvent::Type type : {QEvent::MouseButtonPress, QEvent::MouseButtonRelease}) {
        const Qt::MouseButtons held =
            type == QEvent::MouseButtonPress ? Qt::LeftButton : Qt::NoButton;
        QMouseEvent event(type, button.rect().center(), button.mapToGlobal(button.rect().center()),
                          Qt::LeftButton, held, Qt::NoModifier);
        QCoreApplication::sendEvent(&button, &event);
    }
    guide.settle();
}

QPoint placeIn(const QWidget &window, const QWidget &widget)
{
    return window.mapFromGlobal(widget.mapToGlobal(QPoint()));
}

int selected(const TourGuide &guide)
{
    return guide.window().document().selection().size();
}

/// The faces around the one in the middle of the view.
void selectInTheMiddle(const TourGuide &guide)
{
    const Ray ray = guide.controller().rig().rayAt(guide.view().rect().center());
    guide.window().document().select({FaceTree(guide.mesh()).firstHit(ray).face});
}

CommandBase &change(const TourGuide &guide, ESelectionChange what)
{
    return *guide.window().commands().selectionChanges[std::size_t(what)];
}

void useMenuOfModes(TourGuide &guide)
{
    guide.begin(TourGuide::tr("Menu of display modes"));
    const CommandSet &commands = guide.window().commands();
    ToolButton &button = *commands.display->toolButton();
    clickButton(guide, button);
    ToolButton &flat = *commands.modes[1]->toolButton();
    guide.check(TourGuide::tr("the four modes are on the screen"),
                guide.waitUntil([&] { return flat.isVisible() && guide.isSeen(*flat.window()); }));
    guide.finishWithPicture();
    clickButton(guide, flat);
    guide.check(TourGuide::tr("a click chooses a mode"), commands.modes[1]->isChecked());
    guide.check(TourGuide::tr("the menu is gone"), !flat.isVisible());
    guide.check(TourGuide::tr("the button is checked for the choice"), button.isChecked());
}

void cycleModes(TourGuide &guide)
{
    guide.begin(TourGuide::tr("Next display mode"));
    const CommandSet &commands = guide.window().commands();
    const auto &modes = commands.modes;
    for (std::size_t step = 0; step < modes.size(); ++step) {
        const std::size_t expected = (step + 2) % modes.size();
        commands.nextMode->trigger();
        guide.check(TourGuide::tr("%1 follows").arg(modes[expected]->iconText()),
                    modes[expected]->isChecked());
    }
    modes[0]->trigger();
    guide.settle();
}

void useRowOfSelection(TourGuide &guide)
{
    guide.begin(TourGuide::tr("Row for selected faces"));
    ToolButton &grow = *change(guide, ESelectionChange::Grow).toolButton();
    guide.check(TourGuide::tr("it is not there without a selection"), !grow.isVisible());
    selectInTheMiddle(guide);
    guide.check(TourGuide::tr("it comes with a selection"),
                guide.waitUntil([&] { return grow.isVisible(); }));
    const int before = selected(guide);
    for (int times = 0; times < 4; ++times)
        clickButton(guide, grow);
    guide.check(TourGuide::tr("the selection has grown"), selected(guide) > before);
    guide.finishWithPicture();
    const int grown = selected(guide);

    guide.begin(TourGuide::tr("Invert selection"));
    clickButton(guide, *change(guide, ESelectionChange::Invert).toolButton());
    guide.check(TourGuide::tr("the others are selected instead"),
                selected(guide) == guide.mesh().faces.size() - grown);
    guide.finishWithPicture();

    guide.begin(TourGuide::tr("Row without a selection"));
    clickButton(guide, *change(guide, ESelectionChange::Clear).toolButton());
    guide.check(TourGuide::tr("nothing is selected"), selected(guide) == 0);
    guide.check(TourGuide::tr("the row goes with the selection"), !grow.isVisible());
    guide.finishWithPicture();
}

void deleteFaces(TourGuide &guide)
{
    guide.begin(TourGuide::tr("Delete faces"));
    const int before = guide.mesh().faces.size();
    selectInTheMiddle(guide);
    for (int times = 0; times < 4; ++times)
        change(guide, ESelectionChange::Grow).trigger();
    const int count = selected(guide);
    clickButton(guide, *change(guide, ESelectionChange::Delete).toolButton());
    guide.check(TourGuide::tr("the mesh has lost them"),
                guide.mesh().faces.size() == before - count);
    guide.check(TourGuide::tr("nothing is selected any more"), selected(guide) == 0);
    guide.finishWithPicture();
    guide.window().document().giveUpChanges();
}

void hideBars(TourGuide &guide)
{
    guide.begin(TourGuide::tr("Bars slide out"));
    const QImage before = guide.viewPictureAtRest();
    CommandBase &command = *guide.window().commands().bars;
    const CommandBars &bars = guide.window().bars();
    const int height = guide.window().pane().height();
    const QPoint panelPlace = placeIn(guide.window(), bars.panel());
    const QPoint barPlace = placeIn(guide.window(), bars.strip().bar());
    command.trigger();
    guide.check(TourGuide::tr("the panel and the strip are gone"), guide.waitUntil([&] {
        return !bars.panel().isVisible() && !bars.strip().isVisible();
    }));
    guide.check(TourGuide::tr("the view has their room"),
                guide.waitUntil([&] { return guide.window().pane().height() > height; }));
    guide.finishWithPicture();

    guide.begin(TourGuide::tr("Bars slide in"));
    command.trigger();
    guide.check(TourGuide::tr("they are back"), guide.waitUntil([&] {
        return bars.panel().isVisible() && bars.strip().isVisible()
            && guide.window().pane().height() == height;
    }));
    guide.check(TourGuide::tr("they come to rest where they were"), guide.waitUntil([&] {
        return placeIn(guide.window(), bars.panel()) == panelPlace
            && placeIn(guide.window(), bars.strip().bar()) == barPlace;
    }));
    guide.checkViewChanged(TourGuide::tr("nothing is left on their way"), before, 0.0, 0.0);
    guide.finishWithPicture();
}

} // namespace

void visitBars(TourGuide &guide)
{
    useMenuOfModes(guide);
    cycleModes(guide);
    useRowOfSelection(guide);
    hideBars(guide);
    const QString file = guide.window().document().filePath();
    deleteFaces(guide);
    guide.openAndWait(file);
}

} // namespace Workbench
