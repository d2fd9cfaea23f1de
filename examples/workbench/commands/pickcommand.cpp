// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "commands/pickcommand.h"

#include "controllers/meshviewcontroller.h"
#include "language.h"

#include <ui_base/QtUiToolkit>

namespace Workbench {

PickCommand::PickCommand()
{
    inEveryLanguage(*this, [this] {
        setText(tr("Pic&k Faces"));
        setToolTip(tr("Select faces by clicking them"));
        setWhatsThis(tr("Selects the face that is clicked. The left button picks until Escape is "
                        "pressed; the other buttons move the view as always."));
    });
    setObjectName(QStringLiteral("pick"));
    setShortcut(Qt::CTRL + Qt::Key_K);
    setIcon(Vela::UiBase::QtUiToolkit::Instance().CreateIcon(QStringLiteral("cmd_pick")));
}

void PickCommand::apply(MeshViewController &controller, bool checked)
{
    if (checked)
        controller.beginPicking(this);
    else
        controller.endPicking();
}

} // namespace Workbench
