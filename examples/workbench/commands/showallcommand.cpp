// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "commands/showallcommand.h"

#include "controllers/meshviewcontroller.h"
#include "language.h"
#include "meshdocument.h"
#include "view/camerarig.h"

#include <ui_base/QtUiToolkit>

namespace Workbench {

ShowAllCommand::ShowAllCommand()
    : CommandBase(nullptr)
{
    inEveryLanguage(*this, [this] {
        setText(tr("Show A&ll"));
        setToolTip(tr("Bring the whole mesh into sight"));
        setWhatsThis(tr("Moves the camera so far that the whole mesh fills the view. The direction "
                        "stays as it is."));
    });
    setObjectName(QStringLiteral("show_all"));
    setShortcut(Qt::Key_Home);
    setIconVisibleInMenu(false); // it stands among commands with check marks
    setIcon(Vela::UiBase::QtUiToolkit::Instance().CreateIcon(QStringLiteral("cmd_fit")));
}

bool ShowAllCommand::onExecuteAsync(bool checked)
{
    Q_UNUSED(checked)
    auto *const controller = qobject_cast<MeshViewController *>(getViewController());
    if (!controller)
        return false;
    Camera camera = controller->rig().camera();
    camera.frame(boundsOf(controller->document().mesh()));
    controller->rig().setCamera(camera);
    return true;
}

} // namespace Workbench
