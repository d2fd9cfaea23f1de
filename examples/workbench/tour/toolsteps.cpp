// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "commands/pickcommand.h"
#include "commands/showallcommand.h"
#include "controllers/meshviewcontroller.h"
#include "mainwindow.h"
#include "mesh/facetree.h"
#include "meshdocument.h"
#include "statusline.h"
#include "tour/steps.h"
#include "tour/tourguide.h"
#include "view/camerarig.h"
#include "view/meshview.h"

#include <algorithm>

namespace Workbench {
namespace {

/// Where the middle of the mesh is seen.
QPointF middleOf(const TourGuide &guide)
{
    const CameraRig &rig = guide.controller().rig();
    return rig.toPicture().map(boundsOf(guide.mesh()).center()).toPointF();
}

bool isNear(const QPointF &one, const QPointF &other)
{
    return (one - other).manhattanLength() < 0.5;
}

void orbit(TourGuide &guide)
{
    guide.begin(TourGuide::tr("Orbit"));
    const QImage before = guide.viewPicture();
    const QPoint from = guide.view().rect().center();
    const QPoint to = from + QPoint(150, -60);
    guide.checkCursor(TourGuide::tr("the cursor is an open hand"), Qt::OpenHandCursor);
    guide.dragTo(from, to, Qt::LeftButton);
    guide.checkCursor(TourGuide::tr("the cursor is a closed hand"), Qt::ClosedHandCursor);
    guide.release(to, Qt::LeftButton);
    guide.checkCursor(TourGuide::tr("the cursor is an open hand again"), Qt::OpenHandCursor);
    guide.checkViewChanged(TourGuide::tr("the mesh has turned"), before, 0.05, 0.8);
    guide.finishWithPicture();
}

void pan(TourGuide &guide)
{
    guide.begin(TourGuide::tr("Pan"));
    const QPointF before = middleOf(guide);
    const QPoint from = guide.view().rect().center();
    const QPoint way(-140, 50);
    guide.dragTo(from, from + way, Qt::MiddleButton);
    guide.checkCursor(TourGuide::tr("the cursor has arrows in all directions"), Qt::SizeAllCursor);
    guide.release(from + way, Qt::MiddleButton);
    guide.checkCursor(TourGuide::tr("the cursor is that of the left tool again"),
                      Qt::OpenHandCursor);
    guide.check(TourGuide::tr("the mesh has followed the pointer"),
                isNear(middleOf(guide), before + way));
    guide.finishWithPicture();
}

void zoom(TourGuide &guide)
{
    guide.begin(TourGuide::tr("Zoom"));
    CameraRig &rig = guide.controller().rig();
    const QPoint pointer = middleOf(guide).toPoint() + QPoint(60, 0);
    const Ray ray = rig.rayAt(pointer);
    const Hit hit = FaceTree(guide.mesh()).firstHit(ray);
    guide.check(TourGuide::tr("the pointer is over the mesh"), hit.isHit());
    const float before = rig.camera().zoomFactor();
    guide.turnWheel(pointer, 4);
    guide.check(TourGuide::tr("the camera has come closer"), rig.camera().zoomFactor() < before);
    const int face = FaceTree(guide.mesh()).firstHit(rig.rayAt(pointer)).face;
    guide.check(TourGuide::tr("the mesh is still under the pointer"), face >= 0);
    guide.finishWithPicture();

    guide.begin(TourGuide::tr("Show all"));
    guide.runAndWait(*guide.window().commands().showAll);
    guide.check(TourGuide::tr("the mesh is in the middle again"),
                isNear(middleOf(guide), QRectF(guide.view().rect()).center()));
    guide.finishWithPicture();
}

bool areInside(const TourGuide &guide, const QRect &band)
{
    const QMatrix4x4 toPicture = guide.controller().rig().toPicture();
    const QVector<int> &selection = guide.window().document().selection();
    return std::all_of(selection.begin(), selection.end(), [&](int face) {
        const QVector3D center = centerOf(guide.mesh(), guide.mesh().faces.at(face));
        return QRectF(band).contains(toPicture.map(center).toPointF());
    });
}

void selectByBand(TourGuide &guide)
{
    guide.begin(TourGuide::tr("Rubber band"));
    const QImage before = guide.viewPicture();
    const QPoint middle = guide.view().rect().center();
    const QRect band(middle - QPoint(110, 60), middle + QPoint(110, 90));
    guide.dragTo(band.topLeft(), band.bottomRight(), Qt::RightButton);
    guide.checkCursor(TourGuide::tr("the cursor is a cross"), Qt::CrossCursor);
    guide.check(TourGuide::tr("the view has the band"), guide.view().band() == band);
    guide.checkViewChanged(TourGuide::tr("the band is drawn"), before, 0.01, 0.5);
    guide.finishWithPicture();

    guide.begin(TourGuide::tr("Selection"));
    guide.release(band.bottomRight(), Qt::RightButton);
    const int count = guide.window().document().selection().size();
    guide.check(TourGuide::tr("the band is gone"), guide.view().band().isEmpty());
    guide.checkCursor(TourGuide::tr("the cursor is that of the left tool again"),
                      Qt::OpenHandCursor);
    guide.check(TourGuide::tr("some faces are selected, and not those of the far side"),
                count > 0 && count < guide.mesh().faces.size() / 2);
    guide.check(TourGuide::tr("all of them are inside the band"), areInside(guide, band));
    guide.check(TourGuide::tr("the status line counts them"),
                guide.window().statusLine().meshText().endsWith(QLatin1String("selected")));
    guide.checkViewChanged(TourGuide::tr("they stand out"), before, 0.01, 0.5);
    guide.finishWithPicture();
}

void pick(TourGuide &guide)
{
    guide.begin(TourGuide::tr("Pick"));
    PickCommand &command = *guide.window().commands().pick;
    guide.runAndWait(command);
    guide.check(TourGuide::tr("the command is checked"), command.isChecked());
    guide.checkCursor(TourGuide::tr("the cursor is a pointing hand"), Qt::PointingHandCursor);
    const QPoint place = middleOf(guide).toPoint();
    guide.click(place);
    const Hit hit = FaceTree(guide.mesh()).firstHit(guide.controller().rig().rayAt(place));
    guide.check(TourGuide::tr("the face under the pointer is selected"),
                guide.window().document().selection() == QVector<int> {hit.face});
    guide.finishWithPicture();

    guide.begin(TourGuide::tr("Pick ends"));
    guide.click({4, 4});
    guide.check(TourGuide::tr("a click beside the mesh selects nothing"),
                guide.window().document().selection().isEmpty());
    guide.pressKey(guide.view(), Qt::Key_Escape);
    guide.check(TourGuide::tr("Escape unchecks the command"), !command.isChecked());
    guide.check(TourGuide::tr("the left button orbits again"), !guide.controller().isPicking());
    guide.checkCursor(TourGuide::tr("the cursor is an open hand again"), Qt::OpenHandCursor);
    guide.finishWithPicture();
}

} // namespace

void visitTools(TourGuide &guide)
{
    CameraRig &rig = guide.controller().rig();
    const Camera camera = rig.camera();
    const QImage before = guide.viewPicture();
    orbit(guide);
    pan(guide);
    zoom(guide);
    selectByBand(guide);
    pick(guide);
    rig.setCamera(camera);
    guide.checkViewChanged(TourGuide::tr("the view is as it was before"), before, 0.0, 0.0);
}

} // namespace Workbench
