// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "commands/comparecommand.h"

#include "controllers/meshviewcontroller.h"
#include "language.h"

#include <ui_base/QtUiToolkit>

namespace Workbench {

CompareCommand::CompareCommand()
{
    inEveryLanguage(*this, [this] {
        setText(tr("&Compare with File"));
        setToolTip(tr("Show the mesh of the file beside the present one"));
        setWhatsThis(tr("Shows the mesh as the file has it beside the changed one. Both turn "
                        "together."));
    });
    setObjectName(QStringLiteral("compare"));
    setShortcut(Qt::CTRL + Qt::Key_B);
    setIcon(Vela::UiBase::QtUiToolkit::Instance().CreateIcon(QStringLiteral("cmd_compare")));
}

void CompareCommand::apply(MeshViewController &controller, bool checked)
{
    if (checked)
        controller.beginComparing(this);
    else
        controller.endComparing();
}

} // namespace Workbench
