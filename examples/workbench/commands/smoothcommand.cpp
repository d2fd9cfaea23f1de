// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "commands/smoothcommand.h"

#include "language.h"
#include "mesh/meshoperations.h"

#include <ui_base/QtUiToolkit>

#include <utility>

namespace Workbench {

SmoothCommand::SmoothCommand(std::shared_ptr<MeshDocument> document)
    : MeshCommand(std::move(document))
{
    inEveryLanguage(*this, [this] {
        setText(tr("&Smooth"));
        setToolTip(tr("Take the noise out of the surface"));
        setWhatsThis(tr("Moves each vertex towards its neighbours and a little back, so that noise "
                        "goes and the volume stays. Run it again for more."));
        setExecutionNotificationMessage(ENotification::ExecutionBegan, tr("Smoothing the surface"));
        setExecutionNotificationMessage(ENotification::ExecutionEnded,
                                        tr("The surface is smoother."));
    });
    setObjectName(QStringLiteral("smooth"));
    setShortcut(Qt::CTRL + Qt::Key_M);
    setIcon(Vela::UiBase::QtUiToolkit::Instance().CreateIcon(QStringLiteral("cmd_smooth")));
}

MeshCommand::Operation SmoothCommand::operation() const
{
    return [](const Mesh &mesh, const Cancellation &cancellation) {
        return smoothed(mesh, SmoothSettings(), cancellation);
    };
}

} // namespace Workbench
