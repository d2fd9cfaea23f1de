// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "commands/wireframecommand.h"

#include "view/meshview.h"

#include <ui_base/QtUiToolkit>

namespace Workbench {

WireframeCommand::WireframeCommand(MeshView *view)
    : CommandBase(nullptr)
    , m_view(view)
{
    setCheckable(true);
    setText(tr("&Wireframe"));
    setToolTip(tr("Draw the edges on the surface"));
    setShortcut(Qt::CTRL + Qt::Key_W);
    setIcon(Vela::UiBase::QtUiToolkit::Instance().CreateIcon(QStringLiteral("cmd_wireframe")));
}

bool WireframeCommand::onExecuteAsync(bool checked)
{
    if (!m_view)
        return false;
    m_view->setWireframe(checked);
    return true;
}

} // namespace Workbench
