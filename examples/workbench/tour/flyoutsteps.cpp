// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "commands/smoothcommand.h"
#include "flyouts/decimateflyout.h"
#include "flyouts/measureflyout.h"
#include "flyouts/sidepanel.h"
#include "flyouts/smoothflyout.h"
#include "mainwindow.h"
#include "tour/steps.h"
#include "tour/tourguide.h"
#include "view/meshview.h"
#include "view/viewpane.h"

#include <ui_base/ArrowedWindow>
#include <ui_base/FlyoutBase>
#include <ui_base/ToolButton>

#include <QAbstractButton>
#include <QCoreApplication>
#include <QMouseEvent>
#include <QSlider>

namespace Workbench {

using Vela::UiBase::ArrowedWindow;

namespace {

/// Clicks in the middle of @p widget.
void clickOn(QWidget *widget)
{
    const QPoint middle = widget->rect().center();
    for (const QEvent::Type type : {QEvent::MouseButtonPress, QEvent::MouseButtonRelease}) {
        QMouseEvent event(type, middle, widget->mapToGlobal(middle), Qt::LeftButton,
                          type == QEvent::MouseButtonPress ? Qt::LeftButton : Qt::NoButton,
                          Qt::NoModifier);
        QCoreApplication::sendEvent(widget, &event);
    }
}

void clickPart(const PanelCommand &command, const char *name)
{
    clickOn(command.flyout()->findChild<QAbstractButton *>(QLatin1String(name)));
}

bool isOpen(const PanelCommand &command)
{
    return command.isActive() && command.flyout()->isVisible();
}

void applyAndWait(TourGuide &guide, MeshPanelCommand &command)
{
    const int before = guide.endsOf(command);
    clickPart(command, "apply_button");
    const auto hasEnded = [&] { return guide.endsOf(command) > before && !command.isRunning(); };
    guide.check(TourGuide::tr("the work ends"), guide.waitUntil(hasEnded));
    guide.check(TourGuide::tr("the panel is still open"), isOpen(command));
}

void checkSeen(TourGuide &guide, const PanelCommand &command)
{
    guide.check(TourGuide::tr("all of the panel is on the screen"),
                guide.waitUntil([&] { return guide.isSeen(*command.flyout()); }));
}

QRect areaOf(const QWidget &widget)
{
    return {widget.mapToGlobal(QPoint(0, 0)), widget.size()};
}

/// What is seen of the panel, without its arrow.
QRect frameOf(const PanelCommand &command)
{
    const auto &window = *static_cast<ArrowedWindow *>(command.flyout()->parentWidget());
    return window.GetBounds().translated(window.mapToGlobal(QPoint(0, 0)));
}

/// Checks that the panel and what stands beside it are seen, side by side in the window.
void checkBeside(TourGuide &guide, const PanelCommand &command, QWidget &beside)
{
    guide.check(TourGuide::tr("it comes beside the panel"),
                guide.waitUntil([&] { return beside.isVisible(); }));
    checkSeen(guide, command);
    guide.check(TourGuide::tr("all of it is on the screen"),
                guide.waitUntil([&] { return guide.isSeen(beside); }));
    const QRect view = areaOf(guide.window().pane());
    guide.check(TourGuide::tr("both are inside of the view"),
                view.contains(frameOf(command)) && view.contains(areaOf(beside)));
    guide.check(TourGuide::tr("none covers the other"),
                !frameOf(command).intersects(areaOf(beside)));
}

void openSmooth(TourGuide &guide, SmoothFlyout &smooth)
{
    guide.begin(TourGuide::tr("Panel of Smooth"));
    clickOn(smooth.toolButton());
    guide.check(TourGuide::tr("a click opens it"), guide.waitUntil([&] { return isOpen(smooth); }));
    checkSeen(guide, smooth);
    guide.check(TourGuide::tr("its button is checked"), smooth.toolButton()->isChecked());
    const SmoothCommand &plain = *guide.window().commands().smooth;
    guide.check(TourGuide::tr("edits without a panel wait"),
                guide.waitUntil([&] { return !plain.isEnabled(); }));
    guide.finishWithPicture();

    guide.begin(TourGuide::tr("Advanced settings of Smooth"));
    const int folded = smooth.flyout()->height();
    clickPart(smooth, "advanced_button");
    guide.check(TourGuide::tr("the panel grows"), smooth.flyout()->height() > folded);
    checkSeen(guide, smooth);
    guide.finishWithPicture();
}

void explainSmooth(TourGuide &guide, SmoothFlyout &smooth)
{
    guide.begin(TourGuide::tr("Explanation of Smooth"));
    clickPart(smooth, "info_button");
    QWidget &explanation = *smooth.flyout()->InfoDialog();
    checkBeside(guide, smooth, explanation);
    guide.finishWithPicture();
    clickPart(smooth, "info_button");
    guide.check(TourGuide::tr("a click closes it again"), !explanation.isVisible());
}

void applySmooth(TourGuide &guide, SmoothFlyout &smooth)
{
    guide.begin(TourGuide::tr("Smooth with settings"));
    const Mesh original = guide.mesh();
    smooth.flyout()->MainPanel()->findChild<QSlider *>()->setValue(60);
    applyAndWait(guide, smooth);
    guide.check(TourGuide::tr("the vertices have moved and the faces are the same"),
                guide.mesh().positions != original.positions
                    && guide.mesh().faces == original.faces);
    guide.finishWithPicture();

    guide.begin(TourGuide::tr("Reset of Smooth"));
    clickPart(smooth, "reset_button");
    guide.check(TourGuide::tr("the mesh is as it was before"),
                guide.mesh().positions == original.positions);
    guide.finishWithPicture();
}

void takeOver(TourGuide &guide, const SmoothFlyout &smooth, DecimateFlyout &decimate)
{
    guide.begin(TourGuide::tr("Decimate takes over"));
    clickOn(decimate.toolButton());
    guide.check(TourGuide::tr("a click opens it"),
                guide.waitUntil([&] { return isOpen(decimate); }));
    guide.check(TourGuide::tr("the panel of Smooth has closed"),
                !smooth.isActive() && !smooth.flyout()->isVisible());
    checkSeen(guide, decimate);
    const Mesh original = guide.mesh();
    decimate.flyout()->MainPanel()->findChild<QSlider *>()->setValue(25);
    applyAndWait(guide, decimate);
    guide.check(TourGuide::tr("a quarter of the faces is left"),
                guide.mesh().faces.size() * 4 <= original.faces.size() + 4);
    guide.finishWithPicture();

    guide.begin(TourGuide::tr("Decimate is closed"));
    clickPart(decimate, "reset_button");
    guide.check(TourGuide::tr("the mesh is as it was before"),
                guide.mesh().faces == original.faces);
    clickPart(decimate, "close_button");
    const SmoothCommand &plain = *guide.window().commands().smooth;
    guide.check(TourGuide::tr("edits without a panel go on"),
                guide.waitUntil([&] { return plain.isEnabled(); }));
    guide.check(TourGuide::tr("no button is checked"),
                !decimate.toolButton()->isChecked() && !smooth.toolButton()->isChecked());
    guide.finishWithPicture();
}

void resizeWindow(TourGuide &guide, const QSize &size)
{
    guide.window().resize(size);
    guide.check(TourGuide::tr("the window takes the size"),
                guide.waitUntil([&] { return guide.window().size() == size; }));
    guide.settle();
}

void checkFaces(TourGuide &guide, const MeasureFlyout &measure)
{
    SidePanel &faces = *measure.facesPanel();
    checkBeside(guide, measure, faces);
    const QPoint corner = frameOf(measure).topRight() + QPoint(1 + SidePanel::gap, 0);
    guide.check(TourGuide::tr("they stand in line"), areaOf(faces).topLeft() == corner);
}

void showInSmallWindow(TourGuide &guide, const MeasureFlyout &measure)
{
    guide.begin(TourGuide::tr("Measure in a small window"));
    const QSize usual = guide.window().size();
    resizeWindow(guide, guide.window().minimumSize());
    checkFaces(guide, measure);
    guide.finishWithPicture();
    resizeWindow(guide, usual);
    checkFaces(guide, measure);
}

void measure(TourGuide &guide, MeasureFlyout &measure)
{
    guide.begin(TourGuide::tr("Measure"));
    measure.trigger();
    guide.check(TourGuide::tr("its key opens it"),
                guide.waitUntil([&] { return isOpen(measure); }));
    checkSeen(guide, measure);
    guide.finishWithPicture();

    guide.begin(TourGuide::tr("Faces beside Measure"));
    clickPart(measure, "ibutton");
    checkFaces(guide, measure);
    guide.finishWithPicture();

    showInSmallWindow(guide, measure);

    guide.begin(TourGuide::tr("Escape closes Measure"));
    guide.pressKey(guide.view(), Qt::Key_Escape);
    guide.check(TourGuide::tr("the panel has closed"),
                guide.waitUntil([&] { return !isOpen(measure) && !measure.isChecked(); }));
    guide.check(TourGuide::tr("so has the one beside it"), !measure.facesPanel()->isVisible());
    guide.finishWithPicture();
}

} // namespace

void visitFlyouts(TourGuide &guide)
{
    const CommandSet &commands = guide.window().commands();
    openSmooth(guide, *commands.smoothFlyout);
    explainSmooth(guide, *commands.smoothFlyout);
    applySmooth(guide, *commands.smoothFlyout);
    takeOver(guide, *commands.smoothFlyout, *commands.decimateFlyout);
    measure(guide, *commands.measureFlyout);
}

} // namespace Workbench
