// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "commands/comparecommand.h"
#include "controllers/comparecontroller.h"
#include "controllers/meshviewcontroller.h"
#include "mainwindow.h"
#include "tour/picture.h"
#include "tour/steps.h"
#include "tour/tourguide.h"
#include "view/camerarig.h"
#include "view/comparepanel.h"
#include "view/meshview.h"

#include <cstdlib>

namespace Workbench {
namespace {

void present(TourGuide &guide)
{
    guide.begin(TourGuide::tr("Compare"));
    const QImage before = guide.viewPictureAtRest();
    guide.runAndWait(*guide.window().commands().compare);
    const CompareController *comparison = guide.controller().comparison();
    const bool isPresented = comparison && comparison->panel();
    guide.check(TourGuide::tr("a controller is presented"),
                isPresented && guide.controller().presentedViewController().get() == comparison);
    if (!isPresented)
        return;
    guide.check(TourGuide::tr("it covers the view"),
                comparison->panel()->size() == guide.view().size());
    const int difference =
        comparison->panel()->before().width() - comparison->panel()->after().width();
    guide.check(TourGuide::tr("its two views are equally wide"), std::abs(difference) <= 1);
    guide.checkViewChanged(TourGuide::tr("two meshes are seen"), before, 0.1, 1.0);
    guide.finishWithPicture();
}

void orbitBoth(TourGuide &guide)
{
    guide.begin(TourGuide::tr("Orbit both"));
    const QImage before = guide.viewPicture();
    const CompareController *comparison = guide.controller().comparison();
    if (!comparison)
        return;
    comparison->rig().orbit({120.0, 0.0});
    guide.checkViewChanged(TourGuide::tr("both have turned"), before, 0.05, 0.9);
    guide.finishWithPicture();
}

void dismiss(TourGuide &guide, const QImage &plain)
{
    guide.begin(TourGuide::tr("Compare ends"));
    if (CompareController *comparison = guide.controller().comparison())
        guide.pressKey(*comparison->panel(), Qt::Key_Escape);
    guide.check(TourGuide::tr("Escape unchecks the command"),
                !guide.window().commands().compare->isChecked());
    guide.check(TourGuide::tr("no controller is presented"),
                !guide.controller().comparison() && !guide.controller().presentedViewController());
    guide.checkViewChanged(TourGuide::tr("the view is as it was before"), plain, 0.0, 0.0);
    guide.finishWithPicture();
}

} // namespace

void visitComparison(TourGuide &guide)
{
    const QImage plain = guide.viewPictureAtRest();
    present(guide);
    if (guide.hasGraphics())
        orbitBoth(guide);
    dismiss(guide, plain);
}

} // namespace Workbench
