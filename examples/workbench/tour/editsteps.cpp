// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "commands/attributecommand.h"
#include "commands/displaymodecommand.h"
#include "commands/flipnormalscommand.h"
#include "commands/smoothcommand.h"
#include "commands/subdividecommand.h"
#include "mainwindow.h"
#include "mesh/meshoperations.h"
#include "mesh/meshtopology.h"
#include "meshdocument.h"
#include "tour/steps.h"
#include "tour/tourguide.h"
#include "view/meshview.h"

#include <ui_base/NotificationBar>

#include <QGuiApplication>

#include <algorithm>

namespace Workbench {
namespace {

using Vela::UiBase::CommandBase;

bool areNegated(const QVector<QVector3D> &one, const QVector<QVector3D> &other)
{
    const auto isNegated = [](const QVector3D &a, const QVector3D &b) { return a == -b; };
    return std::equal(one.begin(), one.end(), other.begin(), other.end(), isNegated);
}

bool areReversed(const QVector<Face> &one, const QVector<Face> &other)
{
    const auto isReversed = [](const Face &a, const Face &b) {
        return a == Face {b[0], b[2], b[1]};
    };
    return std::equal(one.begin(), one.end(), other.begin(), other.end(), isReversed);
}

void flipTwice(TourGuide &guide)
{
    FlipNormalsCommand &command = *guide.window().commands().flipNormals;
    guide.begin(TourGuide::tr("Flip normals"));
    const QImage before = guide.viewPictureAtRest();
    const Mesh original = guide.mesh();
    guide.runAndWait(command);
    guide.check(TourGuide::tr("every normal is negated"),
                areNegated(guide.mesh().normals, original.normals));
    guide.check(TourGuide::tr("every face turns the other way"),
                areReversed(guide.mesh().faces, original.faces));
    guide.check(TourGuide::tr("the window is marked as changed"),
                guide.window().isWindowModified());
    guide.checkViewChanged(TourGuide::tr("the inside is seen"), before, 0.1, 0.8);
    guide.finishWithPicture();

    guide.begin(TourGuide::tr("Flip normals back"));
    guide.runAndWait(command);
    guide.check(TourGuide::tr("the mesh is as it was before"),
                guide.mesh().faces == original.faces && guide.mesh().normals == original.normals);
    guide.checkViewChanged(TourGuide::tr("the view is as it was before"), before, 0.0, 0.0);
    guide.finishWithPicture();
}

/// Whether @p text is what the bar says and the bar has appeared.
bool says(const TourGuide &guide, const QString &text)
{
    return guide.bar() && guide.bar()->isShowing() && guide.barText() == text;
}

/// Runs an editing command, looks at what it says and how the others are held meanwhile.
void runEdit(TourGuide &guide, CommandBase &command)
{
    using Message = CommandBase::ENotification;
    guide.runAndWait(command);
    guide.check(TourGuide::tr("the bar told of the run while it lasted"),
                guide.barTextDuringRun()
                    == command.getExecutionNotificationMessage(Message::ExecutionBegan));
    guide.check(TourGuide::tr("all edits were disabled meanwhile"), guide.wereEditsHeld());
    const QString end = command.getExecutionNotificationMessage(Message::ExecutionEnded);
    guide.check(TourGuide::tr("the bar tells of the end"),
                guide.waitUntil([&] { return says(guide, end); }));
    const auto edits = guide.window().commands().edits();
    const auto areEnabled = [&edits] {
        return std::all_of(edits.begin(), edits.end(),
                           [](const CommandBase *edit) { return edit->isEnabled(); });
    };
    guide.check(TourGuide::tr("all edits are enabled again"), guide.waitUntil(areEnabled));
    guide.check(TourGuide::tr("the busy cursor has gone"), !QGuiApplication::overrideCursor());
    guide.checkStatus();
}

void smooth(TourGuide &guide)
{
    guide.begin(TourGuide::tr("Smooth"));
    const QImage before = guide.viewPictureAtRest();
    const Mesh original = guide.mesh();
    runEdit(guide, *guide.window().commands().smooth);
    guide.check(TourGuide::tr("the surface is less rough"),
                roughness(guide.mesh()) < roughness(original));
    guide.check(TourGuide::tr("the faces are the same"), guide.mesh().faces == original.faces);
    guide.checkViewChanged(TourGuide::tr("the surface looks different"), before, 0.005, 0.8);
    guide.finishWithPicture();
}

void subdivide(TourGuide &guide)
{
    guide.begin(TourGuide::tr("Subdivide"));
    AttributeCommand &edges = *guide.window().commands().attributes.front();
    edges.setChecked(true);
    const QImage before = guide.viewPictureAtRest();
    const Mesh original = guide.mesh();
    runEdit(guide, *guide.window().commands().subdivide);
    guide.check(TourGuide::tr("there are four times as many faces"),
                guide.mesh().faces.size() == 4 * original.faces.size());
    guide.check(TourGuide::tr("each edge has become a vertex"),
                guide.mesh().positions.size() - original.positions.size()
                    == int(MeshTopology(original).edges().size()));
    guide.checkViewChanged(TourGuide::tr("the edges are closer together"), before, 0.03, 0.8);
    guide.finishWithPicture();
    edges.setChecked(false);
}

/// What the user chooses during a run outlives the context that the run puts back.
void chooseDuringRun(TourGuide &guide)
{
    guide.begin(TourGuide::tr("Display mode during a run"));
    const CommandSet &commands = guide.window().commands();
    const int before = guide.endsOf(*commands.smooth);
    commands.smooth->trigger();
    commands.modes[1]->trigger();
    const auto message = commands.smooth->getExecutionNotificationMessage(
        CommandBase::ENotification::ExecutionBegan);
    // On a quick machine the run is over before its message has appeared.
    guide.waitUntil(
        [&] { return says(guide, message) || guide.endsOf(*commands.smooth) > before; });
    guide.finishWithPicture();
    guide.check(TourGuide::tr("Smooth ends"), guide.waitUntil([&] {
        return guide.endsOf(*commands.smooth) > before && commands.smooth->isEnabled();
    }));
    guide.check(TourGuide::tr("the mode is still the one that was chosen"),
                commands.modes[1]->isChecked()
                    && guide.view().appearance().mode == commands.modes[1]->mode());
    commands.modes[0]->trigger();
    guide.settle();
}

} // namespace

void visitEdits(TourGuide &guide)
{
    flipTwice(guide);
    smooth(guide);
    subdivide(guide);
    chooseDuringRun(guide);
}

} // namespace Workbench
