// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "commands/attributecommand.h"
#include "commands/displaymodecommand.h"
#include "mainwindow.h"
#include "tour/steps.h"
#include "tour/tourguide.h"
#include "view/meshview.h"

#include <algorithm>

namespace Workbench {
namespace {

int checkedModes(const TourGuide &guide)
{
    const auto &modes = guide.window().commands().modes;
    return int(std::count_if(modes.begin(), modes.end(),
                             [](const auto &mode) { return mode->isChecked(); }));
}

void showMode(TourGuide &guide, DisplayModeCommand &command)
{
    guide.begin(command.iconText());
    const QImage before = guide.viewPicture();
    guide.runAndWait(command);
    guide.check(TourGuide::tr("the command is checked"), command.isChecked());
    guide.check(TourGuide::tr("it is the only mode that is"), checkedModes(guide) == 1);
    guide.check(TourGuide::tr("the view has the mode"),
                guide.view().appearance().mode == command.mode());
    guide.checkViewChanged(TourGuide::tr("the mesh looks different"), before, 0.005, 0.8);
    guide.finishWithPicture();
}

void showAttribute(TourGuide &guide, AttributeCommand &command)
{
    guide.begin(command.iconText());
    const QImage before = guide.viewPicture();
    guide.runAndWait(command);
    guide.check(TourGuide::tr("the command is checked"), command.isChecked());
    guide.checkViewChanged(TourGuide::tr("it is drawn"), before, 0.0002, 0.8);
    guide.finishWithPicture();
}

void clearAttributes(TourGuide &guide, const QImage &plain)
{
    guide.begin(TourGuide::tr("Attributes off"));
    for (const auto &attribute : guide.window().commands().attributes) {
        guide.check(TourGuide::tr("%1 is still checked").arg(attribute->iconText()),
                    attribute->isChecked());
        attribute->setChecked(false);
    }
    guide.checkViewChanged(TourGuide::tr("the view is as it was before"), plain, 0.0, 0.0);
    guide.finishWithPicture();
}

} // namespace

void visitDisplay(TourGuide &guide)
{
    const CommandSet &commands = guide.window().commands();
    const QImage plain = guide.viewPicture();
    for (std::size_t index = 1; index < commands.modes.size(); ++index)
        showMode(guide, *commands.modes[index]);
    showMode(guide, *commands.modes.front());
    guide.checkViewChanged(TourGuide::tr("the view is as it was before"), plain, 0.0, 0.0);
    for (const auto &attribute : commands.attributes)
        showAttribute(guide, *attribute);
    clearAttributes(guide, plain);
}

} // namespace Workbench
