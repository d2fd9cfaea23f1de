// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "commands/meshcommand.h"

#include "meshdocument.h"

#include <ui_base/CmdsViewController>
#include <ui_base/CommandContext>

#include <utility>

namespace Workbench {

MeshCommand::MeshCommand(std::shared_ptr<MeshDocument> document)
    : m_document(std::move(document))
{
    addTag(editTag());
    enableExecutionNotification(true);
}

QString MeshCommand::editTag()
{
    return QStringLiteral("edit");
}

BackgroundCommand::Work MeshCommand::prepare()
{
    if (m_document->isEmpty())
        return {};
    return [document = m_document, snapshot = m_document->snapshot(),
            operation = operation()](const Cancellation &cancellation) -> TakeOver {
        const Mesh mesh = operation(snapshot.mesh, cancellation);
        return [document, mesh, revision = snapshot.revision] {
            document->replaceMesh(mesh, revision);
        };
    };
}

Vela::UiBase::CommandContext MeshCommand::getExecutionCommandContext() const
{
    const Vela::UiBase::CmdsViewController *const controller = getViewController();
    return controller ? controller->disabledContext(editTag()) : Vela::UiBase::CommandContext();
}

void MeshCommand::handleOutOfMemory()
{
    m_document->reportProblem(tr("There is not enough memory for \"%1\".").arg(iconText()));
}

} // namespace Workbench
