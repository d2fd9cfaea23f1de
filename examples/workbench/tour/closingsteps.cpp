// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "commandclock.h"
#include "commands/flipnormalscommand.h"
#include "commands/subdividecommand.h"
#include "controllers/meshviewcontroller.h"
#include "mainwindow.h"
#include "meshdocument.h"
#include "tour/steps.h"
#include "tour/tourguide.h"

#include <QAbstractButton>
#include <QDialog>

#include <functional>

namespace Workbench {
namespace {

const char *const cancelButton = "button1";
const char *const discardButton = "button2";

/// Answers the question about changes.
void click(QDialog &dialog, const char *button)
{
    dialog.findChild<QAbstractButton *>(QLatin1String(button))->click();
}

/// Closes by @p close what has changes, and has second thoughts.
void refuseToClose(TourGuide &guide, const QString &title, const std::function<bool()> &close)
{
    guide.begin(title);
    bool wasAsked = false;
    guide.answerDialog([&](QDialog &dialog) {
        wasAsked = true;
        guide.finishWithPicture();
        click(dialog, cancelButton);
    });
    guide.check(TourGuide::tr("it stays open"), !close());
    guide.check(TourGuide::tr("the user was asked"), wasAsked);
    guide.check(TourGuide::tr("the window is still there"), guide.window().isVisible());
    guide.check(TourGuide::tr("the changes are still there"),
                guide.window().document().isModified());
    guide.check(TourGuide::tr("the commands still work"),
                guide.controller().findCommand(SubdivideCommand::className()));
}

void giveUpChanges(TourGuide &guide)
{
    guide.begin(TourGuide::tr("Give up changes"));
    guide.answerDialog([](QDialog &dialog) { click(dialog, discardButton); });
    guide.check(TourGuide::tr("the user may do without them"), guide.controller().canShutdown());
    guide.check(TourGuide::tr("there is nothing to ask about any more"),
                !guide.window().document().isModified());
}

void closeDuringRun(TourGuide &guide)
{
    guide.begin(TourGuide::tr("Close during a run"));
    MainWindow &window = guide.window();
    SubdivideCommand &command = *window.commands().subdivide;
    const int faces = guide.mesh().faces.size();
    command.trigger();
    window.close();
    guide.check(TourGuide::tr("the run is cancelled"), command.wasCancelled());
    guide.check(TourGuide::tr("the window is gone at once"), !window.isVisible());
    guide.check(TourGuide::tr("the run ends"),
                guide.waitUntil([&window] { return window.clock().running() == 0; }));
    guide.check(TourGuide::tr("its result is dropped"), guide.mesh().faces.size() == faces);
}

} // namespace

void visitClosing(TourGuide &guide)
{
    guide.runAndWait(*guide.window().commands().flipNormals);
    refuseToClose(guide, TourGuide::tr("Close with changes"),
                  [&guide] { return guide.window().close(); });
    refuseToClose(guide, TourGuide::tr("Close the view with changes"),
                  [&guide] { return guide.controller().close(); });
    giveUpChanges(guide);
    closeDuringRun(guide);
}

} // namespace Workbench
