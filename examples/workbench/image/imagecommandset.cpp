// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "image/imagecommandset.h"

#include "image/openimagecommand.h"
#include "image/stepimagecommand.h"
#include "image/zoomimagecommand.h"

#include <ui_base/CommandGroup>

#include <utility>

namespace Workbench {

using Vela::UiBase::CommandBase;
using Vela::UiBase::CommandGroup;

std::vector<CommandBase *> ImageCommandSet::ofTheView() const
{
    return {previous.get(), next.get(), fit.get(), originalSize.get(), zoomIn.get(), zoomOut.get()};
}

std::vector<BackgroundCommand *> ImageCommandSet::background() const
{
    return {open.get(), previous.get(), next.get()};
}

ImageCommandSet makeImageCommands(const std::shared_ptr<ImageDocument> &document,
                                  std::function<QString()> chooser)
{
    ImageCommandSet set;
    set.open = std::make_shared<OpenImageCommand>(document, std::move(chooser));
    set.previous = std::make_shared<StepImageCommand>(document, EImageStep::Previous);
    set.next = std::make_shared<StepImageCommand>(document, EImageStep::Next);
    set.fit = std::make_shared<ZoomImageCommand>(EImageZoom::Fit);
    set.originalSize = std::make_shared<ZoomImageCommand>(EImageZoom::OriginalSize);
    set.zoomIn = std::make_shared<ZoomImageCommand>(EImageZoom::In);
    set.zoomOut = std::make_shared<ZoomImageCommand>(EImageZoom::Out);

    set.viewing = std::make_shared<CommandGroup>(QString(), QString(), QStringLiteral("viewing"));
    int rank = 0;
    for (CommandBase *command : set.ofTheView())
        set.viewing->addCommand(command, rank++);
    return set;
}

} // namespace Workbench
